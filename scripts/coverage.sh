# shellcheck shell=bash
# Part of ./dev: coverage.

command_coverage() {
    (($# == 0)) || fail "coverage takes no arguments"
    build coverage
    find build/coverage -name '*.gcda' -delete
    say "Testing coverage"
    run ctest --preset coverage --parallel "$jobs"
    say "Reporting"
    mkdir -p build/coverage/report
    run gcovr --root . --object-directory build/coverage --filter 'framework/' \
        --exclude-throw-branches --exclude-unreachable-branches \
        --txt --print-summary --html-details build/coverage/report/index.html
    say "Line by line: build/coverage/report/index.html"
}
