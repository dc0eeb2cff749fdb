# shellcheck shell=bash
# Part of ./dev: what looks for faults on its own.

command_numbers() {
    (($# <= 1)) || fail "numbers takes one count"
    build clang --target numbers_against_qt
    say "Comparing numbers"
    run build/clang/bin/numbers_against_qt "$@"
}

# What a row of operations comes to is compared after each step. The seed of one that differs is told.
command_sequences() {
    (($# <= 2)) || fail "sequences takes a count and a seed"
    local number
    for number in "$@"; do
        [[ $number =~ ^[1-9][0-9]*$ ]] || fail "sequences takes numbers"
    done
    build dev --target reportbase_tests
    say "Comparing ${1:-100000} rows of operations of each class"
    REPORTGENERATOR_TEST_SEQUENCES="${1:-100000}" REPORTGENERATOR_TEST_FIRST_SEED="${2:-1}" LC_ALL=C.UTF-8 \
        run build/dev/bin/reportbase_tests --gtest_filter='*BothPathsSequences*'
}

fuzz_names() {
    sed -n '/^set(targets$/,/)$/s/^ *\([a-z_]*\))\?$/\1/p' fuzz/CMakeLists.txt
}

# Has one target explore. What it finds on its way stays in build/fuzz/corpus, what ends it in build/fuzz/findings.
explore() {
    local name="$1" seconds="$2"
    local found="build/fuzz/corpus/$name" kept="tests/corpus/$name"
    mkdir -p "$found" build/fuzz/findings
    local folders=("$found" "build/fuzz/seeds/$name")
    [[ ! -d $kept ]] || folders+=("$kept")
    say "Exploring $name for $seconds s"
    run "build/fuzz/bin/fuzz_$name" -dict=build/fuzz/reports.dict -max_total_time="$seconds" -max_len=4096 -timeout=20 \
        -rss_limit_mb=2048 -print_final_stats=1 -print_funcs=0 -artifact_prefix="build/fuzz/findings/$name-" \
        "${folders[@]}"
}

command_fuzz() {
    local name='' seconds=60
    while (($# > 0)); do
        case "$1" in
            --seconds)
                [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || fail "--seconds takes a number"
                seconds="$2"
                shift
                ;;
            -*) fail "fuzz knows only --seconds" ;;
            *)
                [[ -z $name ]] || fail "fuzz takes one target"
                name="$1"
                ;;
        esac
        shift
    done
    if [[ -z $name ]]; then
        fuzz_names
        printf '%s\n' all walk
        return
    fi
    [[ $name == all || $name == walk ]] || fuzz_names | grep -xF -e "$name" >/dev/null || fail "no target '$name'; see ./dev fuzz"
    build fuzz
    case "$name" in
        walk)
            say "Walking over the golden vectors"
            run build/fuzz/bin/fuzz_walk
            ;;
        all)
            local each
            for each in $(fuzz_names); do
                explore "$each" "$seconds"
            done
            ;;
        *) explore "$name" "$seconds" ;;
    esac
}
