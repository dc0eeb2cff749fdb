#!/usr/bin/env bash
# Tries what pip installs in the bare system that this runs in: `wheel` in one without a compiler and Qt, `sdist` in one with
# both, without the report library and, where its packages are at hand, with it.
set -euo pipefail

part="$1"

fail() {
    printf 'packages: %s\n' "$*" >&2
    exit 1
}

# Which libraries the package has loaded.
try_package() {
    local place="$1"
    (cd /tmp && "$place/bin/python" /project/use.py /project/reports/*.xml >"$place/loaded")
    grep -q libreportbase "$place/loaded" || fail "the library isn't loaded"
}

install_from() {
    local place="$1" file="$2"
    python3 -m venv "$place"
    "$place/bin/pip" install --quiet --no-index --find-links /wheels "$file"
}

case "$part" in
    wheel)
        ! find / -xdev -name 'libQt5Core*' | grep . >&2 || fail "this system has Qt"
        install_from /tmp/wheel /wheels/reportgenerator-*.whl
        try_package /tmp/wheel
        ! grep -v '^/tmp/wheel/' /tmp/wheel/loaded | grep -E 'libreportbase|libwendbase|libQt5|libicu|libglib|libpcre2' >&2 ||
            fail "the wheel takes libraries from elsewhere"
        [[ $(find /tmp/wheel -name 'libwendbase*' | wc -l) == 1 ]] || fail "the wheel has a library twice"
        ;;
    sdist)
        install_from /tmp/alone /wheels/reportgenerator-*.tar.gz
        try_package /tmp/alone
        grep libreportbase /tmp/alone/loaded | grep -q '^/tmp/alone/' || fail "the package has no library of its own"
        if compgen -G '/project/*.deb' >/dev/null; then
            apt-get --quiet=2 update
            apt-get --quiet=2 install --yes --no-install-recommends /project/libreportbase{0,-dev,-headers}*.deb \
                /project/libreportmodels0*.deb
            install_from /tmp/beside /wheels/reportgenerator-*.tar.gz
            try_package /tmp/beside
            grep libreportbase /tmp/beside/loaded | grep -q '^/usr/lib/' || fail "the installed library isn't used"
        else
            printf 'Not tried: beside an installed library, since there are no packages of it (./dev package deb)\n'
        fi
        ;;
esac
