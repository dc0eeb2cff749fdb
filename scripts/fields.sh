# shellcheck shell=bash
# Part of ./dev: the fields of docs/adding-a-field.md.

# Adds them to a copy of the tree, builds what is needed of it, and takes them through the forms and the program.
command_fields() {
    (($# == 0)) || fail "fields takes no arguments"
    need "${build_packages[@]}" patch
    local folder=build/fields patch
    say "Adding the fields to a copy of the tree"
    rm -rf "$folder/tree" "$folder/scratch"
    mkdir -p "$folder/tree"
    # Files keep their times, so that only what has changed is compiled again.
    tar --create --exclude=./build --exclude=./.git . | tar --extract --directory="$folder/tree"
    for patch in tests/fields/*.patch; do
        run patch --directory="$folder/tree" --strip=1 --quiet --input="$root/$patch"
    done

    say "Building it"
    run cmake -S "$folder/tree" -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=Plain -DCMAKE_CXX_FLAGS=-fpch-preprocess \
        -DREPORTGENERATOR_BUILD_TESTS=OFF -DREPORTGENERATOR_BUILD_EXAMPLES=OFF -DREPORTGENERATOR_BUILD_MODELS=OFF \
        "-DCMAKE_PROJECT_ReportGenerator_INCLUDE=$root/tests/fields/build.cmake"
    CCACHE_SLOPPINESS=pch_defines,time_macros run cmake --build "$folder/build" --parallel "$jobs" \
        --target newfields reporttool

    say "Taking the fields through every form"
    run "$folder/build/bin/newfields"
    say "Taking them through reporttool"
    run tests/fields/reporttool.sh "$root/$folder/build/bin/reporttool" "$folder/scratch"
}
