# shellcheck shell=bash
# Part of ./dev: pictures of the programs with windows.

command_screenshots() {
    (($# == 0)) || fail "screenshots takes no arguments"
    need xvfb xauth fonts-dejavu-core
    build release
    say "Taking pictures"
    local samples=examples/settings-dialog pictures=build/screenshots
    mkdir -p "$pictures"
    rm -f "$pictures"/settings-dialog*.png
    local screen=(xvfb-run --auto-servernum --server-args='-screen 0 1280x1024x24' env QT_QPA_PLATFORM=xcb)
    run "${screen[@]}" build/release/bin/settings-dialog \
        --screenshot "$pictures/settings-dialog.png" "$samples/settings.xml"
    run "${screen[@]}" build/release/bin/settings-dialog \
        --screenshot "$pictures/settings-dialog-problem.png" "$samples/settings.xml" "$samples/incomplete.xml"
    take_pictures_of_viewer "$pictures" "${screen[@]}"
    rm -f "$pictures/reports.png"
    run build/release/bin/reporttool export examples/reports/*.xml --to png --size 900x500 -o "$pictures/reports.png"
    say "Pictures: $pictures"
}

# The viewer with a good report, with one whose bytes are looked at, and with one that has a problem.
take_pictures_of_viewer() {
    local pictures="$1" viewer=build/release/bin/reportviewer reports=examples/reports folder
    shift
    folder="$(mktemp -d)"
    # shellcheck disable=SC2064 # the name as it is now
    trap "rm -rf '$folder'" EXIT
    rm -f "$pictures"/reportviewer*.png
    build/release/bin/reporttool convert "$reports/fm_broadcast_country.xml" "$folder/country.plain" --to plain
    sed '0,/<Latitude>/s//&9/' "$reports/airband_emergency_lake.xml" >"$folder/misspelt.xml"
    # What the program remembers of its windows is not that of whoever takes the pictures.
    local words=("$@" "XDG_CONFIG_HOME=$folder" "$viewer" --screenshot)
    run "${words[@]}" "$pictures/reportviewer.png" --field 'area.coordinate[3]' "$reports/fm_broadcast_country.xml"
    run "${words[@]}" "$pictures/reportviewer-bytes.png" --field 'area.coordinate[3].latitude' "$folder/country.plain"
    run "${words[@]}" "$pictures/reportviewer-problem.png" --problem "$folder/misspelt.xml"
    rm -r "$folder"
    trap - EXIT
}
