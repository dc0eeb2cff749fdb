# shellcheck shell=bash
# Part of ./dev: 64-bit Windows, built by MinGW-w64 and run under Wine.

windows_parts=build/windows-parts

# Builds what the preset needs besides the distribution's packages, once: Qt Core, GoogleTest and a Windows to run
# programs in. It stands below build/windows-parts.
prepare_windows() {
    # The source package comes from the archives that apt knows, and it knows them by what it has fetched.
    if [[ -z "$(apt-get indextargets 'Identifier: Packages' 'Origin: Debian')" ]]; then
        missing=("the sources of Qt")
        apt_get update
    fi
    windows_part qt "Qt Core for Windows, which takes some minutes" cmake/windows/buildqt.sh
    windows_part googletest "GoogleTest for Windows" cmake/windows/buildgoogletest.sh cmake/windows/toolchain.cmake
    windows_part wine "a Windows to run programs in" cmake/windows/makewine.sh
}

# windows_part NAME WORDS SCRIPT [FILE...]: has SCRIPT build a part unless it was built by the same one, with the same
# files and tools. It is built aside and moved when it is whole, so that nothing half is ever taken for it.
windows_part() {
    local name="$1" words="$2" script="$3"
    local place="$windows_parts/$name" state
    state="$({
        cat "${@:3}"
        dpkg-query --show g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev googletest wine64
    } | sha256sum)"
    if [[ -f $place/recipe && "$(<"$place/recipe")" == "$state" ]]; then
        return 0
    fi
    say "Building $words"
    mkdir -p "$windows_parts"
    local work
    # Not below build/, whose path may have blanks.
    work="$(mktemp -d)"
    # shellcheck disable=SC2064 # this folder, whatever comes later
    trap "rm -rf '$work'" EXIT
    show "$script" "$work" "$name"
    if ! "$script" "$work" "$name" >"$windows_parts/$name.log" 2>&1; then
        tail -n 40 "$windows_parts/$name.log" >&2
        fail "$script failed; all of its output is in $windows_parts/$name.log"
    fi
    rm -rf "$place.new"
    cp -a "$work/$name" "$place.new"
    printf '%s\n' "$state" >"$place.new/recipe"
    rm -rf "$place"
    mv "$place.new" "$place"
    rm -rf "$work"
    trap - EXIT
}

# Runs a command with a server for the programs that it runs under Wine: without one each of them would start its own.
with_wine() {
    local -x WINEPREFIX="$root/$windows_parts/wine"
    # It outlives tests that run nothing under Wine for minutes. One that runs already serves as well.
    /usr/lib/wine/wineserver64 -p300 >/dev/null 2>&1 </dev/null || true
    # The services of its Windows, which the first program starts, hold that program's output open as long as they live.
    cmake/windows/wine.sh cmd /c exit >/dev/null 2>&1 </dev/null
    trap 'stop_wine' EXIT
    local result=0
    "$@" || result=$?
    stop_wine
    trap - EXIT
    return $result
}

stop_wine() {
    # There is none any more when the last program is minutes ago.
    WINEPREFIX="$root/$windows_parts/wine" /usr/lib/wine/wineserver64 -k || true
}

# Makes the package for Windows in build/packages, and takes it as its users do.
package_windows() {
    (($# == 0)) || fail "package windows takes no arguments"
    build windows
    say "Packing"
    SOURCE_DATE_EPOCH="$(packaging_time)" run cpack --config build/windows/package.cmake -B build/packages
    local package
    package="$(sed -n 's/^set(CPACK_PACKAGE_FILE_NAME "\(.*\)")$/\1/p' build/windows/package.cmake).zip"
    say "Trying $package"
    with_wine cmake "-DSETTINGS=$root/build/windows/tests/install/settings.cmake" \
        "-DPACKAGE_FILE=$root/build/packages/$package" -P tests/windows/package.cmake \
        >build/packages/windows.log 2>&1 || {
        cat build/packages/windows.log >&2
        fail "the package doesn't work"
    }
    say "build/packages/$package"
}
