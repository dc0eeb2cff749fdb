# shellcheck shell=bash
# Part of ./dev: the package for Conan.

conan_version=2.34.0
conan_folder=build/conan

# Installs Conan below build/, where it keeps what it builds too.
install_conan() {
    need "${build_packages[@]}" qt6-base-dev python3-venv
    if [[ ! -f $conan_folder/installed ]] || [[ "$(<"$conan_folder/installed")" != "$conan_version" ]]; then
        say "Installing Conan $conan_version from PyPI into $conan_folder"
        rm -rf "$conan_folder"
        run /usr/bin/python3 -m venv "$conan_folder/venv"
        run "$conan_folder/venv/bin/pip" install --quiet "conan==$conan_version"
        printf '%s\n' "$conan_version" >"$conan_folder/installed"
    fi
}

# Has Conan build the package for each version of Qt, and an example with it. Qt is the system's: none is fetched.
package_conan() {
    (($# == 0)) || fail "package conan takes no arguments"
    install_conan
    local -x CONAN_HOME="$root/$conan_folder/home"
    [[ -f $CONAN_HOME/profiles/default ]] || run "$conan_folder/venv/bin/conan" profile detect
    local qt profile
    for qt in 5 6; do
        say "Building the package for Qt $qt"
        profile="$root/$conan_folder/system-qt$qt"
        cat >"$profile" <<TEXT
include(default)
[platform_requires]
qt/$(pkg-config --modversion "Qt${qt}Core")
[conf]
tools.cmake.cmaketoolchain:generator=Ninja
tools.cmake.cmaketoolchain:user_presets=
tools.cmake.cmake_layout:test_folder=$root/$conan_folder/test
TEXT
        run "$conan_folder/venv/bin/conan" create packaging/conan --profile:all "$profile" --no-remote --options "&:qt=$qt"
    done
}
