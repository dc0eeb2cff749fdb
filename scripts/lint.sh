# shellcheck shell=bash
# Part of ./dev: format and lint.

# The C++ files of the project, each ended by a NUL.
sources() {
    find framework tools examples tests bench fuzz -type f \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z
}

check_format() {
    say "Checking the format"
    printf '+ clang-format --dry-run --Werror ...\n'
    sources | xargs -0 clang-format --dry-run --Werror
}

command_format() {
    need clang-format
    case "${1:-}" in
        '')
            say "Formatting"
            printf '+ clang-format -i ...\n'
            sources | xargs -0 clang-format -i
            ;;
        --check) check_format ;;
        *) fail "format knows only --check" ;;
    esac
}

# Runs clang-tidy on one file unless it passed before and neither it nor what all files depend on has changed.
tidy_one() {
    local file="$1" common="$2"
    local stamp="build/clang/tidy/$file.passed"
    local state
    state="$common $(sha256sum <"$file")"
    if [[ -f $stamp && "$(<"$stamp")" == "$state" ]]; then
        return 0
    fi
    local output
    if ! output="$(clang-tidy --quiet -p build/clang "$file" 2>&1)"; then
        grep -vE '^[0-9]+ warnings? generated\.$' <<<"$output"
        return 1
    fi
    mkdir -p "${stamp%/*}"
    printf '%s\n' "$state" >"$stamp"
    printf '  %s\n' "$file"
}
export -f tidy_one

command_lint() {
    (($# == 0)) || fail "lint takes no arguments"
    need clang-format clang-tidy
    check_format
    build clang

    say "Running clang-tidy"
    # What every file depends on: the checks, the compiler's flags and all headers.
    local common
    common="$({
        cat .clang-tidy tests/.clang-tidy CMakePresets.json cmake/TargetDefaults.cmake
        find framework tools examples tests fuzz -type f -name '*.h' -print0 | sort -z | xargs -0 cat
    } | sha256sum)"
    printf '+ clang-tidy --quiet -p build/clang ...\n'
    # The consumers are projects of their own, the virtual tables are laid out for another platform, some tests are of
    # Windows or of an emulated system, and one is of fields that only a copy of the tree has: none of them is in this build.
    # shellcheck disable=SC2016 # the inner shell expands $1 and $2
    find framework tools examples tests fuzz -type f -name '*.cpp' -not -path 'tests/consumer/*' \
        -not -path 'tests/fullsystem/*' -not -path 'tests/abi/*' -not -path 'tests/windows/*' \
        -not -path 'tests/bigendian/*' -not -path 'tests/fields/*' -print0 | sort -z |
        xargs -0 -P "$jobs" -I '{}' bash -c 'tidy_one "$1" "$2"' tidy_one '{}' "$common"
    say "No findings"
}
