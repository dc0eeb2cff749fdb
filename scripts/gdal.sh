# shellcheck shell=bash
# Part of ./dev: GDAL with the driver for reports, and other programs that read what ours writes.

command_gdal() {
    (($# == 0)) || fail "gdal takes no arguments"
    build dev --target reporttool reportgdal_tests ogr_REPORTS
    say "Testing the driver for GDAL, and what GDAL reads and converts"
    run ctest --preset dev -R "^gdal[.]"
}
