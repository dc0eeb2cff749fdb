# shellcheck shell=bash
# Part of ./dev: the Python package with all that it can go together with, in a virtual environment below build/.

python_packages=("${build_packages[@]}" python3-dev python3-venv)
python_folder=build/python

# Makes the environment, and installs the package there with the named extras, or brings it up to date.
install_python() {
    local extras="$1"
    need "${python_packages[@]}"
    if [[ ! -x $python_folder/venv/bin/python ]]; then
        run /usr/bin/python3 -m venv "$python_folder/venv"
    fi
    run "$python_folder/venv/bin/pip" install --quiet "scikit-build-core>=0.10" "pybind11>=2.10" ninja cmake
    run env CMAKE_CXX_COMPILER_LAUNCHER=ccache "CMAKE_BUILD_PARALLEL_LEVEL=$jobs" \
        "$python_folder/venv/bin/pip" install --quiet --no-build-isolation \
        --config-settings="build-dir=$root/$python_folder/{build_type}" \
        --config-settings=cmake.define.REPORTGENERATOR_PYTHON_OWN_LIBRARY=ON "./python[$extras]"
}

# Arguments go to pytest.
test_python() {
    say "Installing the package"
    need openjdk-17-jre-headless
    install_python test,engines
    say "Testing the package"
    run env "REPORTGENERATOR_TEST_TREE=$root" "$python_folder/venv/bin/python" -m pytest \
        -o "cache_dir=$root/$python_folder/pytest" python/tests "$@"
}

# What the package does with a million reports, beside the C++ library and others.
bench_python() {
    local measure=() results=build/bench/results
    while (($# > 0)); do
        case "$1" in
            --quick) measure+=(--reports 20000 --repetitions 3) ;;
            --reports)
                (($# >= 2)) || fail "--reports takes a number"
                measure+=(--reports "$2")
                shift
                ;;
            *) fail "bench --python does not know '$1'" ;;
        esac
        shift
    done
    need openjdk-17-jre-headless protobuf-compiler
    build release --target reporttool
    build bench --target reportbase_reading
    install_python engines
    mkdir -p "$results"
    say "Measuring; a whole run takes half an hour"
    run "$python_folder/venv/bin/python" python/bench/columns.py --reading build/bench/bin/reportbase_reading \
        --tool build/release/bin/reporttool --proto bench/peers/report.proto --json "$results/python.json" "${measure[@]}"
    say "Figures: $results/python.json"
}
