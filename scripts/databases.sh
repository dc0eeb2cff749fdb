# shellcheck shell=bash
# Part of ./dev: databases that take what ours writes.

command_databases() {
    (($# == 0)) || fail "databases takes no arguments"
    need postgresql-15-postgis-3 postgresql-15-ogr-fdw python3-geopandas python3-venv
    local folder=build/databases
    if [[ ! -x $folder/bin/duckdb ]]; then
        run /usr/bin/python3 -m venv "$folder"
        # The extension is that of the same version.
        run "$folder/bin/pip" install --quiet --no-deps duckdb-cli==1.5.5 duckdb-extension-spatial==1.5.5
    fi
    build dev --target reporttool reportbase_tests ogr_REPORTS
    say "Running the commands of docs/spatial-databases.md and docs/gdal.md"
    run ctest --preset dev -R "^databases[.]"
}
