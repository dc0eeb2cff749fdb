#!/bin/sh
# Has REPORTTOOL set, show and compare a field that it has never heard of, in the folder SCRATCH.
set -eu

tool="$1"
scratch="$2"

expect() {
    if [ "$1" != "$2" ]; then
        printf 'expected\n%s\nbut it is\n%s\n' "$2" "$1" >&2
        exit 1
    fi
}

mkdir -p "$scratch"
cd "$scratch"
cat >lake.xml <<'XML'
<ReportBase><Area Version="1.0"><Name>Lake</Name>
<Coordinate><Longitude>9.5</Longitude><Latitude>47.5</Latitude></Coordinate></Area></ReportBase>
XML
"$tool" set lake.xml area.remark=Winter -o winter.xml
expect "$(grep -c '<Remark>Winter</Remark>' winter.xml)" 1
"$tool" convert winter.xml winter.bin --to compressed
expect "$("$tool" show winter.bin | sed -n 's/^ *remark: *//p')" '"Winter"'
expect "$("$tool" show --json winter.bin | grep -c '"remark": "Winter"')" 1
code=0
difference="$("$tool" diff lake.xml winter.bin)" || code=$?
expect "$code" 1
expect "$difference" '+ area.remark: "Winter"'
expect "$("$tool" grep 'area.remark = "Winter"' lake.xml winter.bin)" winter.bin
