# shellcheck shell=bash
# Part of ./dev: how thoroughly the library's own tests try it. They are those of the ordinary build, with another library
# in the place of the ordinary one: one that counts, or one that has faults.

# As GoogleTest takes them: the suites of tests/reportbase and tests/threads, also those of types and of values.
library_suites() {
    sed -n 's/^\(TEST\|TEST_F\|TEST_P\|TYPED_TEST\)(\([A-Za-z0-9_]*\),.*/\2/p' tests/reportbase/*.cpp tests/threads/*.cpp |
        sort -u | sed 's|.*|&.*:&/*:*/&.*:*/&/*|' | paste -sd:
}

# What isn't reached stands in tests/notreached.txt with a reason each.
command_coverage() {
    (($# == 0)) || fail "coverage takes no arguments"
    local folder=build/coverage profiles=build/coverage/profiles
    local sources=framework/reportgenerator/reportbase
    build dev --target reportbase_tests
    build coverage --target reportbase
    rm -rf "$profiles"
    mkdir -p "$profiles"
    say "Testing coverage"
    LD_LIBRARY_PATH="$root/$folder/$sources" LLVM_PROFILE_FILE="$root/$profiles/%p-%m.profraw" LC_ALL=C.UTF-8 \
        build/dev/bin/reportbase_tests --gtest_brief=1 --gtest_filter="$(library_suites)"
    say "Reporting"
    run llvm-profdata merge --sparse "$profiles"/*.profraw -o "$profiles/merged"
    run llvm-cov show "$folder/$sources/libreportbase.so" "--instr-profile=$profiles/merged" --format=html \
        --show-branches=count --output-dir="$folder/report" >/dev/null
    llvm-cov export "$folder/$sources/libreportbase.so" "--instr-profile=$profiles/merged" >"$folder/coverage.json"
    say "Line by line: $folder/report/index.html"
    run python3 scripts/coverage.py "$folder/coverage.json" --folder "$root/$sources" --known tests/notreached.txt
}

command_mutate() {
    need python3-clang-14
    build dev --target reportbase_tests
    build coverage --target reportbase
    say "Trying faults"
    show scripts/mutants "$@"
    MUTANTS_SUITES="$(library_suites)" /usr/bin/python3 scripts/mutants "$@"
}
