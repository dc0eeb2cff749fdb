# shellcheck shell=bash
# Part of ./dev: packages of the library and its program.

command_package() {
    if [[ ! ${1:-} =~ ^[a-z]+$ ]] || ! declare -F "package_$1" >/dev/null; then
        fail "package takes one of: $(declare -F | sed -n 's/^declare -f package_//p' | paste -sd ' ')"
    fi
    local kind="$1"
    shift
    "package_$kind" "$@"
}
