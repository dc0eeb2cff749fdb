"""GDAL's own programs with the driver for reports: ogrinfo of every golden report is held against `reporttool show
--json`, and ogr2ogr takes reports there and back.

    programs.py REPORTTOOL FOLDER-OF-THE-PLUGIN PROJECT SCRATCH
"""

import json
import os
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

REPORTTOOL, PLUGINS, PROJECT, SCRATCH = (Path(argument).resolve() for argument in sys.argv[1:5])

# Golden files that hold good reports, of which a value would be another one than stands there.
LOSING = ["repeated_children.hex", "repeated_children.xml"]


def run(*command, code=0):
    """The output and the errors of a program that ends with the code, or with any."""
    environment = dict(os.environ, GDAL_DRIVER_PATH=str(PLUGINS), LC_ALL="C.UTF-8")
    done = subprocess.run(
        [str(word) for word in command], cwd=SCRATCH, env=environment, capture_output=True, encoding="utf-8")
    if code is not None and done.returncode != code:
        raise AssertionError(f"{command} ended with {done.returncode}: {done.stdout}{done.stderr}")
    return done.stdout, done.stderr


def rows(output):
    """What ogrinfo says of each feature: its values as texts by their names, its id as "id", its area as "area"."""
    found = []
    for line in output.splitlines():
        if match := re.fullmatch(r"OGRFeature\(.*\):(\d+)", line):
            found.append({"id": match[1], "area": None})
        elif match := re.fullmatch(r"  (\w+) \([A-Za-z()]+\) = (.*)", line):
            found[-1][match[1]] = None if match[2] == "(null)" else match[2]
        elif match := re.fullmatch(r"  ((?:MULTI)?(?:POINT|LINESTRING|POLYGON) .*)", line):
            found[-1]["area"] = match[1]
    return found


def bytes_of(golden):
    """What an annotated file stands for."""
    lines = golden.read_text(encoding="utf-8").splitlines()
    return bytes.fromhex("".join(line[6:53] for line in lines if line and not line.startswith("#")))


def text_of(number):
    return format(number, ".15g")


def area_of(points):
    """The well-known text of points that don't cross the antimeridian."""
    distinct = [point for i, point in enumerate(points) if i == 0 or point != points[i - 1]]
    while len(distinct) > 1 and distinct[0] == distinct[-1]:
        distinct.pop()
    if len(distinct) > 2:
        turned = sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(distinct, distinct[1:] + distinct[:1]))
        if turned < 0:
            distinct[1:] = distinct[:0:-1]
        distinct.append(distinct[0])
    text = ",".join(f"{text_of(x)} {text_of(y)}" for x, y in distinct)
    shape = {0: None, 1: "POINT ({})", 2: "LINESTRING ({})"}.get(len(distinct), "POLYGON (({}))")
    return shape and shape.format(text)


def row_of(file, report):
    """What ogrinfo has to say of a report, by what `show --json` says."""
    row = {"id": "0", "file": str(file)}
    for holder, names in {"frequency": ["value", "min", "max", "use"], "ifBandwidth": ["value", "min", "max"],
                          "area": ["name", "version", "scriptId"]}.items():
        values = report.get(holder) or {}
        for name in names:
            value = values.get(name)
            if isinstance(value, bool):
                value = str(int(value))
            elif isinstance(value, (int, float)):
                value = text_of(value)
            row[f"{holder}_{name}"] = value
    points = (report.get("area") or {}).get("coordinates") or []
    row["area"] = area_of([(point["longitude"], point["latitude"]) for point in points])
    return row


class Programs(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        shutil.rmtree(SCRATCH, ignore_errors=True)
        SCRATCH.mkdir(parents=True)

    def test_formats_name_the_driver(self):
        output, _ = run("ogrinfo", "--formats")
        self.assertIn("REPORTS -vector- (rw+v): Reports of radio monitoring", output)
        # It is none of those for pictures.
        self.assertNotIn("REPORTS", run("gdalinfo", "--formats")[0])
        output, _ = run("gdalinfo", "--format", "REPORTS")
        self.assertIn("Connection prefix: REPORTS:", output)

    def test_golden_files(self):
        folder = PROJECT / "tests/vectors/reportbase"
        goldens = sorted([*folder.glob("*"), *folder.glob("read/*"), *folder.glob("malformed/*"),
                          *PROJECT.glob("examples/reports/*.xml")])
        count = 0
        for golden in goldens:
            if golden.suffix not in (".xml", ".hex", ".zhex") or golden.name.endswith(".raw.hex"):
                continue
            count += 1
            with self.subTest(golden.name):
                file = Path(f"{golden.parent.name}-{golden.name}")
                content = golden.read_bytes() if golden.suffix == ".xml" else bytes_of(golden)
                (SCRATCH / file).write_bytes(content)
                output, errors = run("ogrinfo", "-ro", "-al", "-q", f"REPORTS:{file}")
                report, = json.loads(run(REPORTTOOL, "show", "--json", file, code=None)[0])
                self.assertFalse(golden.parent.name == "malformed" and report["valid"])
                if report["valid"] and golden.name not in LOSING:
                    self.assertEqual(rows(output), [row_of(file, report)])
                    self.assertEqual(errors, "")
                else:
                    self.assertEqual(rows(output), [])
                    told = "would be lost: " if report["valid"] else report["problems"][0]["text"]
                    self.assertRegex(errors, f"^Warning 1: {file}: .*{re.escape(told)}.*; it has no row\n$")
        self.assertGreater(count, 30)

    def test_geopackage_and_back(self):
        examples = PROJECT / "examples/reports"
        run("ogr2ogr", "there.gpkg", examples)
        output, _ = run("ogrinfo", "-so", "there.gpkg", "reports")
        self.assertIn("Geometry: Unknown (any)", output)
        self.assertIn("frequency_value: Real (0.0)", output)
        self.assertIn("frequency_use: Integer(Boolean) (0.0)", output)
        run("ogr2ogr", "-f", "REPORTS", "-dsco", "FORM=compressed", "back", "there.gpkg")
        names = sorted(path.name for path in (SCRATCH / "back").iterdir())
        self.assertEqual(names, [f"reports-00000{i}.compressed" for i in (1, 2, 3)])
        before = rows(run("ogrinfo", "-ro", "-al", "-q", examples)[0])
        after = rows(run("ogrinfo", "-ro", "-al", "-q", "back")[0])
        self.assertEqual(len(before), 3)
        for left, right in zip(before, after):
            self.assertNotEqual(left.pop("file"), right.pop("file"))
            self.assertEqual(left, right)
        # The examples have closed rings that run either way; by meaning nothing else has changed.
        _, errors = run(REPORTTOOL, "check", "--strict", "-r", "back")
        self.assertEqual(errors, "3 files: 3 good, 0 invalid, 0 unreadable\n")

    def test_bad_file_among_others(self):
        shutil.copytree(PROJECT / "examples/reports", SCRATCH / "reports")
        (SCRATCH / "reports/cut.xml").write_text("<ReportBase><Frequency>")
        _, errors = run("ogr2ogr", "rows.gpkg", "reports")
        self.assertEqual(
            errors, "Warning 1: reports/cut.xml: 1:24: RGException: Premature end of document.; it has no row\n")
        self.assertIn("Feature Count: 3", run("ogrinfo", "-so", "rows.gpkg", "reports")[0])
        _, errors = run("ogr2ogr", "strict.gpkg", "reports", "-oo", "STRICT=YES", code=1)
        self.assertIn("ERROR 1: reports/cut.xml: 1:24: RGException: Premature end of document.\n", errors)

    def test_folder_that_is_not_empty_stays(self):
        shutil.copytree(PROJECT / "examples/reports", SCRATCH / "reports")
        before = {path: path.read_bytes() for path in (SCRATCH / "reports").iterdir()}
        _, errors = run("ogr2ogr", "-f", "REPORTS", "reports", PROJECT / "examples/reports", code=1)
        self.assertIn("ERROR 1: reports: the folder is not empty", errors)
        self.assertEqual({path: path.read_bytes() for path in (SCRATCH / "reports").iterdir()}, before)

    def test_other_coordinate_systems_are_converted_by_ogr2ogr(self):
        run("ogr2ogr", "-t_srs", "EPSG:25832", "utm.gpkg", PROJECT / "examples/reports/airband_emergency_lake.xml")
        _, errors = run("ogr2ogr", "-f", "REPORTS", "lake.xml", "utm.gpkg", code=1)
        self.assertIn("reports have coordinates in WGS 84, not in ETRS89 / UTM zone 32N", errors)
        run("ogr2ogr", "-f", "REPORTS", "-t_srs", "EPSG:4326", "lake.xml", "utm.gpkg")
        report, = json.loads(run(REPORTTOOL, "show", "--json", "lake.xml")[0])
        self.assertEqual(report["area"]["coordinates"][0], {"longitude": 8.84, "latitude": 47.655})

    def test_others_keep_their_files(self):
        (SCRATCH / "table").mkdir()
        run(REPORTTOOL, "export", PROJECT / "examples/reports/airband_emergency_lake.xml", "--to", "csv", "-o",
            "table/table.csv")
        for name, driver in {"table/table.csv": "CSV", "table": "CSV", "a.geojson": "GeoJSON", "a.kml": "LIBKML",
                             "a.gpx": "GPX", "a.gml": "GML"}.items():
            if driver != "CSV":
                run("ogr2ogr", "-f", "KML" if driver == "LIBKML" else driver, name, "table/table.csv",
                    *(["-sql", "SELECT area_name AS name FROM \"table\""] if driver == "GPX" else []),
                    *(["-nlt", "MULTILINESTRING"] if driver == "GPX" else []))
            output, _ = run("ogrinfo", "-ro", name)
            self.assertRegex(output, f"using driver `(Lib)?{driver}' successful")

    def test_sql(self):
        output, _ = run("ogr2ogr", "-f", "CSV", "/vsistdout/", PROJECT / "examples/reports", "-sql",
                        "SELECT area_name, frequency_value FROM reports WHERE frequency_value > 100e6")
        self.assertEqual(output, 'area_name,frequency_value\n"Bodensee: Untersee, Überlinger See, Obersee",121500000\n')
        output, _ = run("ogrinfo", "-ro", "-q", PROJECT / "examples/reports", "reports", "-spat", "0", "55", "1", "56")
        self.assertEqual([row["id"] for row in rows(output)], ["2"])


if __name__ == "__main__":
    missing = [program for program in ("ogrinfo", "ogr2ogr") if not shutil.which(program)]
    if missing:
        print(f"not run: {missing[0]} is not installed (gdal-bin)")
    else:
        unittest.main(argv=sys.argv[:1], verbosity=2)
