# shellcheck shell=bash
# Part of ./dev: s390x, a big-endian platform.

# Makes the system root that is compiled against, unless it is there and its recipe is the same.
prepare_big-endian() {
    local root=build/sysroot-s390x before=''
    [[ ! -f $root/recipe ]] || before="$(<"$root/recipe")"
    # Where nobody has installed anything yet, apt knows no packages.
    if [[ -z "$(apt-get indextargets 'Identifier: Packages')" ]]; then
        apt_get update
    fi
    say "Making the system root for s390x, unless it is there"
    run cmake/bigendian/makesysroot.sh "$root"
    # What was compiled against another one is of no use.
    [[ "$(<"$root/recipe")" == "$before" ]] || run rm -rf build/big-endian
}
