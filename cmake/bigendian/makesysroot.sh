#!/usr/bin/env bash
# makesysroot.sh ROOT
#
# Makes a system root for s390x, a big-endian platform, of the distribution's own packages: the system's libraries, Qt
# Core and Test, and GoogleTest with what is needed to compile and to run against them. Nothing of the machine changes: a package
# manager's state of its own beside the root reads the machine's own archives for that architecture and verifies what it
# downloads as always; the packages are unpacked and not installed. Qt's tools are those of the machine.
#
# The root appears when it is complete. An unchanged recipe, which is this file, leaves a complete one alone.
set -euo pipefail

root="$1"
architecture=s390x
# With all that they depend on.
packages=(libqt5core5a libqt5test5 libstdc++6 libc6-dev zlib1g-dev libgmock-dev)
# Alone: they bring parts that nobody asks for here, the desktop among them.
single_packages=(qtbase5-dev qt5-qmake)

recipe="$(sha256sum <"${BASH_SOURCE[0]}")"
if [[ -f $root/recipe && "$(<"$root/recipe")" == "$recipe" ]]; then
    exit 0
fi

mkdir -p "${root%/*}"
work="$(cd "${root%/*}" && pwd)/${root##*/}.work"
rm -rf "$work"
mkdir -p "$work"/{state/lists/partial,cache/archives/partial,single,root}
trap 'rm -rf "$work"' EXIT

# --- The package manager

# The archives of the distribution that the machine knows, by apt's own reading of its lists.
# shellcheck disable=SC2016 # apt fills these in
apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Identifier: Packages' 'Origin: Debian' | sort -u |
    while read -r uri release component; do
        printf 'deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s %s %s\n' \
            "$uri" "$release" "$component"
    done >"$work/sources.list"
if [[ ! -s $work/sources.list ]]; then
    printf 'makesysroot: apt knows no archive of Debian; "apt-get update" lets it know\n' >&2
    exit 1
fi

# No package counts as installed.
: >"$work/status"
cat >"$work/apt.conf" <<CONF
APT::Architecture "$architecture";
APT::Architectures { "$architecture"; };
APT::Install-Recommends "false";
APT::Sandbox::User "$(id -un)";
Acquire::Languages "none";
Dir::Etc::sourcelist "$work/sources.list";
Dir::Etc::sourceparts "/dev/null";
Dir::State "$work/state";
Dir::State::status "$work/status";
Dir::Cache "$work/cache";
CONF
export APT_CONFIG="$work/apt.conf"

apt-get --quiet=2 update
apt-get --quiet=2 --yes --download-only install "${packages[@]}" >/dev/null
(cd "$work/single" && apt-get --quiet=2 download "${single_packages[@]}")

# --- The root

for package in "$work"/cache/archives/*.deb "$work"/single/*.deb; do
    dpkg-deb --extract "$package" "$work/root"
done
rm -rf "$work"/root/usr/share/{doc,locale,man}
# Of Qt's other parts there are headers, but no libraries.
find "$work"/root/usr/lib/*/cmake -mindepth 1 -maxdepth 1 -name 'Qt5?*' ! -name Qt5Core ! -name Qt5Test -exec rm -r '{}' +

# Links stay within the root, wherever it stands.
find "$work/root" -type l -lname '/*' -printf '%P\t%l\n' | while IFS=$'\t' read -r link target; do
    ln -sfnr "$work/root$target" "$work/root/$link"
done

# Qt's CMake package looks for the tools in the root.
mkdir -p "$work/root/usr/lib/qt5/bin" "$work/root/usr/lib/$architecture-linux-gnu/qt5/bin"
for tool in moc rcc qmake; do
    ln -sf "/usr/lib/qt5/bin/$tool" "$work/root/usr/lib/qt5/bin/$tool"
done
ln -sf /usr/lib/qt5/bin/qmake "$work/root/usr/lib/$architecture-linux-gnu/qt5/bin/qmake"

printf '%s\n' "$recipe" >"$work/root/recipe"
rm -rf "$root"
mv "$work/root" "$root"
