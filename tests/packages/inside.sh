#!/usr/bin/env bash
# Tries the packages of /packages in the bare system that this runs in: `runtime` those that programs need to run, each
# by itself, `development` those that programs are built with, all at once.
set -euo pipefail

part="$1"
version="$2"
interface="${version%.*}"
qt5_library="libreportbase$interface"
qt6_library="libreportbase-qt6-$interface"
qt5_models="libreportmodels$interface"
qt6_models="libreportmodels-qt6-$interface"

fail() {
    printf 'packages: %s\n' "$*" >&2
    exit 1
}

say() {
    printf -- '-- %s\n' "$*"
}

apt_get() {
    apt-get --quiet=2 -o Dpkg::Use-Pty=0 "$@" >/tmp/apt.log 2>&1 || {
        cat /tmp/apt.log >&2
        fail "apt-get $*"
    }
}

# Every file and folder with its kind and rights, and every package that dpkg knows; not what apt and dpkg keep for
# themselves.
snapshot() {
    find / \( -path /proc -o -path /sys -o -path /dev -o -path /tmp -o -path /packages -o -path /project \
        -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/cache -o -path /var/log \) -prune \
        -o -printf '%p %y %m\n' | sort
    dpkg-query --show --showformat='${Package} ${db:Status-Abbrev}\n'
}

# Fails unless the system is again as the snapshot in a file says.
expect_as_before() {
    snapshot | diff "$1" - >&2 || fail "$2 leaves something behind"
    if find / -xdev \( -path /proc -o -path /tmp -o -path /packages -o -path /project -o -path /var/lib/apt \
        -o -path /var/cache/apt -o -path /var/log \) -prune -o \
        \( -name '*reportbase*' -o -name '*reportmodels*' -o -name '*wendbase*' -o -name '*reporttool*' -o -name '*reportviewer*' -o -iname '*reportgenerator*' -o -name '*gdal-reports*' -o -name 'ogr_REPORTS*' \) -print |
        grep . >&2; then
        fail "$2 leaves files with its name behind"
    fi
}

expect_file() {
    [[ -f $1 ]] || fail "there is no $1"
}

# Packages with debug information tell it for the very files that the other packages hold.
expect_debug_information() {
    local file id
    for file in "$@"; do
        id="$(readelf --notes "$file" | sed -n 's/.*Build ID: //p')"
        [[ -n $id ]] || fail "$file has no build ID"
        expect_file "/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug"
        readelf --sections --wide "/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug" | grep -q ' \.debug_info ' ||
            fail "no debug information for $file"
    done
}

# Headers, names to link with and descriptions: what only those need who build programs.
expect_no_development_files() {
    if find /usr -path '/usr/include/*.h' -o -name '*.so' \( -name 'libQt*' -o -name 'libreportbase*' -o -name 'libreportmodels*' -o \
        -name 'libwendbase*' \) \
        -o -path '*/pkgconfig/reportgenerator*' -o -path '*/cmake/ReportGenerator*' | grep . >&2; then
        fail "$1 brings development files"
    fi
}

# try_libraries SUFFIX LIBRARY...: the libraries load with all that they need, and the system's cache knows them.
try_libraries() {
    local suffix="$1" library place
    shift
    for library in "$@"; do
        place="$(ldconfig -p | sed -n "s/.*lib$library$suffix\.so\.$interface .* => //p")"
        [[ -n $place ]] || fail "the system's cache doesn't know lib$library$suffix"
        ldd "$place" >/tmp/ldd.log
        ! grep 'not found' /tmp/ldd.log >&2 || fail "lib$library$suffix lacks libraries"
    done
}

# The program says its version, accepts the reports, and takes one through every form.
try_tool() {
    local tool="$1" form
    [[ "$("$tool" --version)" == *" $version" ]] || fail "$tool says another version: $("$tool" --version)"
    "$tool" check /project/reports/*.xml
    local report
    report="$(find /project/reports -name '*.xml' | sort | sed -n 1p)"
    "$tool" convert "$report" /tmp/report.xml --to xml
    for form in plain compressed file; do
        "$tool" convert "$report" /tmp/report.bin --to "$form"
        "$tool" convert /tmp/report.bin /tmp/again.xml --to xml
        cmp /tmp/report.xml /tmp/again.xml
    done
    expect_file "/usr/share/man/man1/$tool-check.1.gz"
    expect_file "/usr/share/bash-completion/completions/$tool"
    expect_file "/usr/share/zsh/vendor-completions/_$tool"
    expect_file "/usr/share/fish/vendor_completions.d/$tool.fish"
    printf '<ReportBase><Frequency>nowhere' >/tmp/broken.xml
    ! "$tool" check /tmp/broken.xml >/dev/null 2>&1 || fail "$tool accepts a broken report"
}

# The window says its version, and shows a report where there is no screen.
try_viewer() {
    local viewer="$1"
    [[ "$("$viewer" --version)" == *" $version" ]] || fail "$viewer says another version: $("$viewer" --version)"
    # What it remembers of its user is no part of the package.
    XDG_CONFIG_HOME=/tmp/config XDG_CACHE_HOME=/tmp/cache QT_QPA_PLATFORM=offscreen "$viewer" --screenshot /tmp/window.png \
        "$(find /project/reports -name '*.xml' | sort | sed -n 1p)" 2>/tmp/viewer.log ||
        { cat /tmp/viewer.log >&2; fail "$viewer shows no report"; }
    [[ -s /tmp/window.png ]] || fail "$viewer takes no picture"
    expect_file "/usr/share/applications/$viewer.desktop"
}

# What GDAL reads of a report.
read_by_gdal() {
    ogr2ogr -f CSV /vsistdout/ "$1" -select frequency_value,area_name,area_scriptId -lco GEOMETRY=AS_WKT
}

# GDAL finds the driver where it looks for plug-ins, opens a folder of reports by it, and writes one.
try_gdal() {
    apt_get install --yes --no-install-recommends gdal-bin
    ogrinfo --formats >/tmp/formats
    grep -q '^ *REPORTS -vector- (rw' /tmp/formats || fail "GDAL doesn't know the driver"
    local reports=(/project/reports/*.xml)
    ogrinfo -ro -so -al /project/reports >/tmp/layer || fail "GDAL reads no folder of reports"
    grep -qx "Feature Count: ${#reports[@]}" /tmp/layer || fail "GDAL doesn't find ${#reports[@]} reports"
    read_by_gdal "${reports[0]}" >/tmp/read
    grep -q '^"\?POLYGON' /tmp/read || fail "GDAL finds no area in ${reports[0]}"
    ogr2ogr -f REPORTS /tmp/written.xml "${reports[0]}" || fail "GDAL writes no report"
    read_by_gdal /tmp/written.xml | diff /tmp/read - >&2 || fail "GDAL writes another report than it read"
    apt_get purge --yes gdal-bin
}

test_runtime() {
    local package
    for package in "$qt5_library" "$qt5_models" reporttool reportviewer "$qt6_library" "$qt6_models" reporttool-qt6 \
        reportviewer-qt6 reporttool-types python3-reportgenerator libgdal-reports libreportbase-headers libreportbase-doc \
        reportgenerator-doc; do
        say "$package"
        snapshot >/tmp/before
        apt_get install --yes --no-install-recommends "$package"
        case "$package" in
            "$qt5_library") try_libraries "" reportbase wendbase ;;
            "$qt6_library") try_libraries -qt6 reportbase wendbase ;;
            "$qt5_models") try_libraries "" reportmodels ;;
            "$qt6_models") try_libraries -qt6 reportmodels ;;
            reporttool-types)
                expect_file /usr/share/mime/packages/reportgenerator.xml
                expect_file /usr/share/file/magic/reportgenerator
                expect_file /usr/share/reportgenerator/schemas/catalog.xml
                ;;
            python3-reportgenerator)
                # What Python remembers of its files is no part of the package.
                python3 -B /project/use.py /project/reports/*.xml >/tmp/loaded
                grep -q "libreportbase\.so\.$interface" <(sed 's|.*/||' /tmp/loaded) || fail "Python loads another library"
                ;;
            libgdal-reports) try_gdal ;;
            reporttool*) try_tool "$package" ;;
            reportviewer*) try_viewer "$package" ;;
            libreportbase-headers)
                expect_file /usr/include/reportgenerator/reportbase/reportbase.h
                expect_file /usr/include/reportgenerator/qt/everything.h
                ;;
            libreportbase-doc)
                expect_file /usr/share/doc/libreportbase-doc/README.md
                expect_file "/usr/share/doc/libreportbase-doc/reportgenerator-$version.spdx.json"
                ;;
            reportgenerator-doc)
                expect_file /usr/share/doc/reportgenerator-doc/html/index.html
                expect_file /usr/share/doc/reportgenerator-doc/html/classREPORTGENERATOR_1_1ReportBase.html
                expect_file /usr/share/doc/reportgenerator-doc/html/page_using.html
                expect_file /usr/share/qt5/doc/reportgenerator.qch
                ;;
        esac
        [[ $package == libreportbase-headers ]] || expect_no_development_files "$package"
        ! grep -q "$qt6_library" <(dpkg-query --show) || [[ $package == *qt6* ]] || fail "$package brings Qt 6"
        apt_get purge --yes "$package"
        apt_get autoremove --purge --yes
        expect_as_before /tmp/before "$package"
    done

    say "both programs beside each other"
    snapshot >/tmp/before
    apt_get install --yes --no-install-recommends reporttool reporttool-qt6
    try_tool reporttool
    try_tool reporttool-qt6
    ! ldd /usr/bin/reporttool | grep Qt6 >&2 || fail "reporttool loads Qt 6"
    ! ldd /usr/bin/reporttool-qt6 | grep Qt5 >&2 || fail "reporttool-qt6 loads Qt 5"
    expect_no_development_files "reporttool"
    apt_get purge --yes reporttool reporttool-qt6
    apt_get autoremove --purge --yes
    expect_as_before /tmp/before "reporttool"
}

# A program built with one version of Qt runs, with that and no other.
try_consumer() {
    local program="$1" qt="$2"
    "$program" "$qt" || fail "$program"
    ldd "$program" >/tmp/ldd.log
    grep -q "libQt${qt}Core" /tmp/ldd.log || fail "$program doesn't load Qt $qt"
    ! grep "libQt$((11 - qt))Core" /tmp/ldd.log >&2 || fail "$program loads another Qt than $qt"
    ! grep 'not found' /tmp/ldd.log >&2 || fail "$program lacks libraries"
}

test_development() {
    local qt package suffix
    say "all packages at once"
    snapshot >/tmp/before
    apt_get install --yes --no-install-recommends libreportbase-dev libreportbase-qt6-dev libreportbase-doc reporttool \
        reporttool-qt6
    for suffix in "" -qt6; do
        expect_file "/usr/share/gdb/auto-load/usr/lib/$(gcc -print-multiarch)/libreportbase$suffix.so.$version-gdb.py"
    done

    say "debug information"
    apt_get install --yes --no-install-recommends "$qt5_library-dbgsym" "$qt6_library-dbgsym" "$qt5_models-dbgsym" \
        "$qt6_models-dbgsym" reporttool-dbgsym reporttool-qt6-dbgsym
    expect_debug_information "/usr/lib/$(gcc -print-multiarch)"/lib{reportbase,reportmodels,wendbase}{,-qt6}.so."$version" \
        /usr/bin/reporttool /usr/bin/reporttool-qt6
    apt_get purge --yes '*-dbgsym'

    for qt in 5 6; do
        package=ReportGenerator suffix=""
        if ((qt == 6)); then
            package=ReportGeneratorQt6 suffix=-qt6
        fi
        say "a program for Qt $qt by CMake"
        cmake -S /project/consumer -B "/tmp/cmake$qt" "-DREPORTGENERATOR_PACKAGE=$package" >/tmp/cmake.log ||
            { cat /tmp/cmake.log >&2; fail "cmake"; }
        cmake --build "/tmp/cmake$qt" >/tmp/cmake.log || { cat /tmp/cmake.log >&2; fail "cmake"; }
        try_consumer "/tmp/cmake$qt/consumer" "$qt"
        try_consumer "/tmp/cmake$qt/headerconsumer" "$qt"

        say "a program for Qt $qt by pkg-config"
        [[ "$(pkg-config --modversion "reportgenerator$suffix")" == "$version" ]] || fail "pkg-config: another version"
        # shellcheck disable=SC2046 # these are words
        g++ -std=c++17 /project/consumer/main.cpp -o "/tmp/consumer$qt" \
            $(pkg-config --cflags --libs "reportgenerator$suffix")
        try_consumer "/tmp/consumer$qt" "$qt"
        # shellcheck disable=SC2046 # these are words
        g++ -std=c++17 /project/consumer/models.cpp -o "/tmp/modelconsumer$qt" \
            $(pkg-config --cflags --libs "reportgenerator-models$suffix")
        try_consumer "/tmp/modelconsumer$qt" "$qt"
    done

    # What is built runs without what it was built with.
    say "the programs with the libraries alone"
    apt-mark manual "$qt5_models" "$qt6_models" >/dev/null
    apt_get purge --yes libreportbase-dev libreportbase-qt6-dev libreportbase-headers libreportbase-doc reporttool \
        reporttool-qt6
    apt_get autoremove --purge --yes
    for qt in 5 6; do
        try_consumer "/tmp/cmake$qt/consumer" "$qt"
        try_consumer "/tmp/cmake$qt/modelconsumer" "$qt"
        try_consumer "/tmp/consumer$qt" "$qt"
        try_consumer "/tmp/modelconsumer$qt" "$qt"
    done
    apt_get purge --yes "$qt5_models" "$qt6_models"
    apt_get autoremove --purge --yes
    expect_as_before /tmp/before "everything"
}

apt_get update
"test_$part"
