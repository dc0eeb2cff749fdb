# shellcheck shell=bash
# Part of ./dev: the tests of the schemas with compiler and runtimes that the distribution doesn't have.

kaitai_version=0.11.0
js_yaml_version=4.1.0
kaitai_folder=build/kaitai

# Installs the compiler of Kaitai Struct and its runtimes below build/.
install_kaitai() {
    local packages=(python3 python3-pip)
    # The npm of another origin comes with its Node.js.
    command -v npm >/dev/null || packages+=(nodejs npm)
    need "${packages[@]}"
    if [[ ! -f $kaitai_folder/installed ]] || [[ "$(<"$kaitai_folder/installed")" != "$kaitai_version" ]]; then
        say "Installing Kaitai Struct $kaitai_version into $kaitai_folder"
        mkdir -p "$kaitai_folder"
        run npm install --prefix "$kaitai_folder" --no-audit --no-fund --no-save --loglevel=error \
            "kaitai-struct-compiler@$kaitai_version" "kaitai-struct@$kaitai_version" "js-yaml@$js_yaml_version"
        run /usr/bin/python3 -m pip install --quiet --root-user-action=ignore --upgrade --target "$kaitai_folder/python" \
            "kaitaistruct==${kaitai_version%.0}"
        printf '%s\n' "$kaitai_version" >"$kaitai_folder/installed"
    fi
}

test_schemas() {
    install_kaitai
    build dev --target written_objects reporttool
    say "Testing the schemas"
    run ctest --preset dev --parallel "$jobs" -R '^schemas[.]' "$@"
}
