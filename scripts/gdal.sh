# shellcheck shell=bash
# Part of ./dev: other programs that read what ours writes.

command_gdal() {
    (($# == 0)) || fail "gdal takes no arguments"
    need gdal-bin
    build dev
    say "Having GDAL read what reporttool exports, and convert what it doesn't import"
    run ctest --preset dev -R "^gdal[.]"
}
