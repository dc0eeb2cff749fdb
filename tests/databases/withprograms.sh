#!/usr/bin/env bash
# Runs a command where a PostgreSQL server with PostGIS and ogr_fdw, GDAL's programs with the driver for reports, geopandas and
# DuckDB are at hand. The server is one of its own, without a port, and ends with the command.
#
#     withprograms.sh DUCKDB BUILD FOLDER COMMAND...
#
# DUCKDB is the environment of Python that DuckDB and its extension are installed in, BUILD the build tree that the driver is
# installed from; all else is written to FOLDER.
set -euo pipefail

duckdb="$1"
build="$2"
folder="$3"
shift 3

# Says which program is missing; the test counts as skipped then.
skip() {
    printf 'not run: %s; ./dev databases installs it\n' "$1"
    exit 0
}

server=""
for programs in /usr/lib/postgresql/*/bin; do
    version="$(basename "$(dirname "$programs")")"
    extensions="/usr/share/postgresql/$version/extension"
    if [[ -x $programs/initdb && -e $extensions/postgis.control && -e $extensions/ogr_fdw.control ]]; then
        server="$programs"
    fi
done
[[ -n $server ]] || skip "PostGIS with ogr_fdw is not there"
command -v ogr2ogr ogrinfo >/dev/null || skip "GDAL is not there"
/usr/bin/python3 -c "import fiona, geopandas" 2>/dev/null || skip "geopandas is not there"
[[ -x $duckdb/bin/duckdb ]] || skip "DuckDB is not there"
extension="$(find "$duckdb" -name spatial.duckdb_extension -print -quit)"
[[ -n $extension ]] || skip "DuckDB's extension spatial is not there"

# Nobody but the server's own user may start it, who may have no way into the build; names of sockets are short.
as_owner=()
if ((EUID == 0)); then
    as_owner=(runuser --user postgres --)
fi
rm -rf "$folder"
mkdir -p "$folder/home"
cluster="$folder/cluster"
mkdir "$cluster"
if ((EUID == 0)); then
    chown postgres "$cluster"
fi
if ((${#cluster} > 80)) || ! "${as_owner[@]}" test -w "$cluster"; then
    cluster="$("${as_owner[@]}" mktemp --directory)"
fi

# Where the server's user can read it, too.
cmake --install "$build" --component runtime --prefix "$cluster/driver" >/dev/null
cmake --install "$build" --component gdal --prefix "$cluster/driver" >/dev/null
driver="$(find "$cluster/driver" -name ogr_REPORTS.so -print -quit)"
[[ -n $driver ]] || skip "the driver for reports is not there"
GDAL_DRIVER_PATH="$(dirname "$driver")"
export GDAL_DRIVER_PATH

stop() {
    (cd / && "${as_owner[@]}" "$server/pg_ctl" --pgdata "$cluster/data" --mode immediate stop >/dev/null 2>&1) || true
    rm -rf "$cluster"
}
trap stop EXIT

cd /
"${as_owner[@]}" "$server/initdb" --pgdata "$cluster/data" --username reports --auth trust --encoding UTF8 --locale C --no-sync \
    >/dev/null
"${as_owner[@]}" "$server/pg_ctl" --pgdata "$cluster/data" --log "$cluster/log" --wait \
    --options "-c listen_addresses= -c unix_socket_directories=$cluster -c unix_socket_permissions=0777 -c fsync=off" \
    start >/dev/null
cd "$folder"

# Where INSTALL puts it.
export HOME="$folder/home"
platform="$("$duckdb/bin/duckdb" -noheader -list -c "PRAGMA platform")"
installed="$HOME/.duckdb/extensions/$(basename "$(dirname "$extension")")/$platform"
mkdir -p "$installed"
cp "$extension" "$installed/"

export PATH="$server:$duckdb/bin:$PATH" PGHOST="$cluster" PGUSER=reports
export REPORTGENERATOR_TEST_DATABASES=1
"$@"
