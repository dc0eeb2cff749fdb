#!/usr/bin/env bash
# buildqt.sh WORK PREFIX
#
# Builds Qt Core for 64-bit Windows from the distribution's own source package: a shared library with its headers, its
# CMake package and the tools that CMake asks for. WORK is an empty folder, without blanks in its path, which Qt's build
# can't take; the outcome stands in WORK/PREFIX in the end. The machine's package sources stay as they are: a package
# manager's state of its own in WORK reads the source entries of the same archives.
set -euo pipefail

work="$1"
prefix="$work/$2"
mkdir -p "$prefix"
cd "$work"

# --- The source package

# The archives of the distribution that the machine knows, by apt's own reading of its lists.
archives() {
    # shellcheck disable=SC2016 # apt fills these in
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Identifier: Packages' 'Origin: Debian' | sort -u
}

mkdir -p apt/etc apt/state/lists/partial apt/cache/archives/partial
while read -r uri release component; do
    printf 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s %s %s\n' \
        "$uri" "$release" "$component"
done < <(archives) >apt/etc/sources.list
if [[ ! -s apt/etc/sources.list ]]; then
    printf 'buildqt: apt knows no archive of Debian; "apt-get update" lets it know\n' >&2
    exit 1
fi

private_apt_get() {
    apt-get --quiet=2 -o Dir::Etc::sourcelist="$work/apt/etc/sources.list" -o Dir::Etc::sourceparts=/dev/null \
        -o Dir::State="$work/apt/state" -o Dir::State::status=/var/lib/dpkg/status -o Dir::Cache="$work/apt/cache" \
        -o APT::Sandbox::User="$(id -un)" "$@"
}
private_apt_get update
private_apt_get source --download-only --only-source qtbase-opensource-src
dpkg-source --no-check --extract qtbase-opensource-src_*.dsc source >/dev/null
grep -E '^Version: ' qtbase-opensource-src_*.dsc >"$prefix/version"

# --- Build

mkdir build
cd build
../source/configure -opensource -confirm-license -silent \
    -prefix "$prefix" -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32- \
    -release -shared -no-pch -nomake examples -nomake tests \
    -no-gui -no-widgets -no-dbus -no-opengl -no-openssl -no-schannel -no-icu \
    -no-feature-network -no-feature-sql -no-feature-concurrent -no-feature-testlib -no-feature-xml \
    -qt-zlib -qt-pcre -qt-doubleconversion
make -s sub-src-qmake_all
cd src
make -s -j "$(nproc)" sub-corelib-make_first sub-winmain-make_first sub-rcc-make_first
make -s sub-corelib-install_subtargets sub-winmain-install_subtargets sub-moc-install_subtargets \
    sub-rcc-install_subtargets
cd ..

# CMake refuses a Qt without them.
mkdir -p "$prefix/bin" "$prefix/mkspecs"
cp bin/qmake "$prefix/bin/"
for part in common features win32-g++; do
    cp -r "../source/mkspecs/$part" "$prefix/mkspecs/"
done

# For packages that hold the DLL.
mkdir -p "$prefix/licenses"
cp ../source/LICENSE.LGPL3 ../source/LICENSE.GPL3 ../source/debian/copyright "$prefix/licenses/"

# The parts of others that are built into it, for the bill of materials: name and version.
for part in zlib pcre2 double-conversion; do
    printf '%s %s\n' "$part" \
        "$(sed -n 's/^ *"Version": "\([^"]*\)",$/\1/p' "../source/src/3rdparty/$part/qt_attribution.json" | head -n 1)"
done >"$prefix/bundled"
