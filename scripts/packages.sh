# shellcheck shell=bash
# Part of ./dev: packages. A kind of package is a function package_KIND.

command_package() {
    local kind="${1:-}"
    if [[ ! $kind =~ ^[a-z]+$ ]] || ! declare -F "package_$kind" >/dev/null; then
        fail "package takes one of: $(declare -F | sed -n 's/^declare -f package_//p' | paste -sd ' ')"
    fi
    shift
    "package_$kind" "$@"
}

# Who packs: as Debian's own tools take it, else who wrote the latest change.
packager() {
    if [[ -n ${DEBEMAIL:-} ]]; then
        printf '%s <%s>\n' "${DEBFULLNAME:-$DEBEMAIL}" "$DEBEMAIL"
    else
        git log -1 --format='%an <%ae>' 2>/dev/null || fail "who packs? set DEBFULLNAME and DEBEMAIL"
    fi
}

# When, in seconds since 1970: at the latest change, so that the same sources say the same.
packaging_time() {
    local seconds
    seconds="${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null)}" || true
    printf '%s\n' "${seconds:-$(stat --format=%Y CHANGELOG.md)}"
}

# --- Debian

deb_packages=("${build_packages[@]}" qt6-base-dev dpkg-dev file gzip binutils python3 python3-dev pybind11-dev libgdal-dev)
deb_folder=build/packages/debian

package_deb() {
    local test=1
    case "${1:-}" in
        '') ;;
        --no-test) test=0 ;;
        *) fail "package deb knows only --no-test" ;;
    esac
    (($# <= 1)) || fail "package deb takes one option"
    need "${deb_packages[@]}"

    local version time
    version="$(project_version)"
    time="$(packaging_time)"
    [[ "$(grep -m 1 '^## ' CHANGELOG.md)" == "## $version"* ]] ||
        fail "CHANGELOG.md doesn't begin with version $version, which CMakeLists.txt states"

    say "Packing version $version"
    local bill="$deb_folder/reportgenerator-$version.spdx.json"
    rm -rf "$deb_folder"
    mkdir -p "$deb_folder"
    make_reference
    local qt
    for qt in 5 6; do
        build_for_debian "$qt" "$time" "$root/$bill"
        pack_debian "$qt"
    done
    # The documentation has the bill of all packages, and the bill what else the documentation has.
    run python3 scripts/sbom.py debian "$bill" "$time" \
        "libreportbase-doc:usr/share/doc/libreportbase-doc/${bill##*/}" "$deb_folder"/*.deb
    pack_debian 5 documentation

    say "Testing the bill of materials"
    run python3 tests/packages/sbomtest.py
    run python3 scripts/sbom.py check "$bill" "$deb_folder"/*.deb
    local part
    for part in libqt5core5a libqt6core6 zlib1g libstdc++6; do
        grep -qF "\"name\": \"$part\"" "$bill" || fail "the bill of materials lacks $part"
    done
    if ((test)); then
        look_at_debian
        test_debian "$version"
    fi
    say "Packages: $deb_folder"
    (cd "$deb_folder" && du --apparent-size --block-size=1 ./*)
}

# Builds for one version of Qt as Debian builds its own packages, optimised as this project measures itself.
build_for_debian() {
    local qt="$1" time="$2" bill="$3" python=OFF flags linker_flags
    # Python loads one of them only.
    if ((qt == 5)); then
        python=ON
    fi
    flags="$(DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-O2 dpkg-buildflags --get CXXFLAGS)"
    flags+=" $(DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --get CPPFLAGS)"
    linker_flags="$(DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --get LDFLAGS)"
    run cmake -S . -B "build/packages/qt$qt" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        "-DCMAKE_CXX_FLAGS=$flags" "-DCMAKE_SHARED_LINKER_FLAGS=$linker_flags" "-DCMAKE_EXE_LINKER_FLAGS=$linker_flags" \
        "-DCMAKE_MODULE_LINKER_FLAGS=$linker_flags" \
        -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_DOCDIR=share/doc/libreportbase-doc -DCMAKE_SKIP_INSTALL_RPATH=ON \
        -DREPORTGENERATOR_QT_MAJOR="$qt" -DREPORTGENERATOR_WERROR=ON -DREPORTGENERATOR_BUILD_TESTS=OFF \
        -DREPORTGENERATOR_BUILD_EXAMPLES=OFF "-DREPORTGENERATOR_BUILD_PYTHON=$python" -DREPORTGENERATOR_DEBIAN_PACKAGES=ON \
        "-DREPORTGENERATOR_REFERENCE=$root/$reference_folder" "-DREPORTGENERATOR_BILL_OF_MATERIALS=$bill" "-DREPORTGENERATOR_PACKAGE_MAINTAINER=$(packager)" \
        "-DREPORTGENERATOR_PACKAGE_DATE=$(LC_ALL=C date --utc --rfc-email --date="@$time")"
    run cmake --build "build/packages/qt$qt" --parallel "$jobs"
}

# Packs the components of a build, all or the named one.
pack_debian() {
    local qt="$1" component="${2:-}" words=()
    [[ -z $component ]] || words=(-D "CPACK_COMPONENTS_ALL=$component")
    rm -rf "build/packages/qt$qt/packed"
    run cpack --config "build/packages/qt$qt/CPackConfig.cmake" -B "build/packages/qt$qt/packed" "${words[@]}"
    local package
    for package in "build/packages/qt$qt/packed"/*.*deb; do
        finish_debian "$package"
    done
}

# Packs a package once more, with what cpack doesn't know: which packages of several architectures go together, and that
# dpkg renews the cache of libraries itself, once for all that it installs. Debug information is packed as Debian packs it.
# No file is younger than the sources.
finish_debian() {
    local package="$1" folder="${1%.*}" architectures=foreign
    dpkg-deb --raw-extract "$package" "$folder"
    [[ $package != */lib*_"$(dpkg --print-architecture)".*deb ]] || architectures=same
    sed -i "/^Architecture: /a Multi-Arch: $architectures
        /^Package-Type: /d" "$folder/DEBIAN/control"
    [[ $package != *-dbgsym_* ]] || finish_debug_information "$folder"
    rm -f "$folder"/DEBIAN/{postinst,postrm}
    if [[ -f $folder/DEBIAN/shlibs ]]; then
        printf 'activate-noawait ldconfig\n' >"$folder/DEBIAN/triggers"
    fi
    SOURCE_DATE_EPOCH="$(packaging_time)" dpkg-deb --root-owner-group -Zxz --build "$folder" "$deb_folder" >/dev/null
}

# The list of sums names files where they were made, and the documentation is that of the package with the programs.
finish_debug_information() {
    local folder="$1" name
    name="$(sed -n 's/^Package: //p' "$folder/DEBIAN/control")"
    sed -i 's|  .*/usr/lib/debug/|  usr/lib/debug/|' "$folder/DEBIAN/md5sums"
    find "$folder" -name '*.debug' -exec chmod 0644 {} +
    mkdir -p "$folder/usr/share/doc"
    ln -s "${name%-dbgsym}" "$folder/usr/share/doc/$name"
}

# Has lintian look at the packages. What it finds stands with reasons in a list, and nothing else stands there.
look_at_debian() {
    need lintian
    say "Looking at the packages"
    local found listed
    show lintian --allow-root --pedantic "$deb_folder"/*.deb
    found="$(lintian --allow-root --pedantic "$deb_folder"/*.deb 2>&1 | grep -v '^running with root privileges' || true)"
    listed="$(sed 's/ *#.*//; /^$/d' tests/packages/lintian.txt | sort)"
    printf '%s\n' "$found"
    found="$(sed -n 's/^[A-Z]: \([^:]*\): \([a-z0-9-]*\).*/\1: \2/p' <<<"$found" | sort -u)"
    diff <(printf '%s\n' "$listed") <(printf '%s\n' "$found") >&2 ||
        fail "lintian finds something else than tests/packages/lintian.txt lists"
}

# Installs the packages in bare systems, uses them there and takes them off again.
test_debian() {
    local version="$1" part name
    need apt-utils mmdebstrap debian-archive-keyring
    for part in runtime development; do
        local packages=()
        [[ $part == runtime ]] || packages=(g++ cmake make pkg-config)
        say "Testing the packages in a bare system: $part"
        fresh_bare_system "$part" "${packages[@]}"

        name="build/bare/$part"
        as_root mkdir -p "$name/packages" "$name/project"
        as_root cp "$deb_folder"/*.deb "$name/packages"
        as_root cp -r tests/consumer examples/reports tests/packages/inside.sh python/tests/packages/use.py "$name/project"
        (cd "$deb_folder" && apt-ftparchive packages .) | as_root tee "$name/packages/Packages" >/dev/null
        printf 'deb [trusted=yes] file:/packages ./\n' | as_root tee "$name/etc/apt/sources.list.d/packages.list" >/dev/null
        in_bare_system "$part" bash /project/inside.sh "$part" "$version"
        as_root rm -rf --one-file-system "$name"
    done
}
