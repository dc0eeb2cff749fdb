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
    rm -f "$pictures/reports.png"
    run build/release/bin/reporttool export examples/reports/*.xml --to png --size 900x500 -o "$pictures/reports.png"
    say "Pictures: $pictures"
}
