#!/usr/bin/env python3
"""Bills of materials (SPDX 2.3 as JSON): what a package ships, with checksums, and what that was linked with.

    sbom.py write INPUT OUTPUT     of what INPUT lists
    sbom.py debian OUTPUT TIME PACKAGE:PLACE DEB...
                                   of Debian packages, with the packages of this machine that their programs load;
                                   OUTPUT will be at that place in that package
    sbom.py check FILE ROOT...     whether FILE holds together and tells of every file; ROOT is PACKAGE=FOLDER or a .deb

INPUT is JSON:

    {
      "name": "reportgenerator-0.1.0",      of the whole
      "time": 1700000000,                   seconds since 1970, the same for the same sources
      "packages": [{                        what is shipped
        "name": "reportgenerator-windows", "version": "0.1.0",
        "root": "folder",                   all files below it, but for those of others and those left out
        "leave_out": ["doc/x.spdx.json"],   optional, such as the bill itself
        "supplier": "Name <address>",       optional, as is each of the following
        "purl": "pkg:deb/debian/...", "uses": ["Qt"]
      }],
      "components": [{                      what comes from others, by the name under which `uses` finds it
        "name": "Qt", "version": "5.15.8",
        "root": "folder", "files": ["bin/Qt5Core.dll"],   what is shipped of it, if anything
        "supplier": "...", "purl": "...", "uses": ["zlib"]
      }]
    }
"""

import collections
import datetime
import hashlib
import json
import re
import subprocess
import sys
import tempfile
import uuid
from pathlib import Path

TOOL = "Tool: reportgenerator-sbom"


class Problem(Exception):
    """What is wrong with an input or a bill."""


def run(*words):
    result = subprocess.run(words, capture_output=True, text=True)
    if result.returncode != 0:
        raise Problem(f"{' '.join(words)}: {result.stderr.strip()}")
    return result.stdout


# --- Writing


def identifier(*parts):
    """An SPDX identifier, in which only letters, digits, dots and hyphens may stand."""
    return "SPDXRef-" + "-".join(re.sub(r"[^A-Za-z0-9.]+", lambda m: "." if m[0] == "+" else "-", part).strip("-")
                                 for part in parts)


def party(text):
    match = re.fullmatch(r"(.+?) <(.+)>", text)
    return f"Organization: {match[1]} ({match[2]})" if match else f"Organization: {text}"


def plain_files(root):
    """All that is shipped below a folder; a link ships no contents."""
    return sorted(str(path.relative_to(root)) for path in Path(root).rglob("*") if path.is_file() and not path.is_symlink())


def checksums(path):
    data = Path(path).read_bytes()
    return {"SHA1": hashlib.sha1(data).hexdigest(), "SHA256": hashlib.sha256(data).hexdigest()}


def verification_code(files):
    sums = sorted(c["checksumValue"] for f in files for c in f["checksums"] if c["algorithm"] == "SHA1")
    return hashlib.sha1("".join(sums).encode()).hexdigest()


def bill(listing):
    """The document of a listing."""
    packages, files, relationships = [], [], []
    shipped = listing.get("packages", [])
    components = listing.get("components", [])
    if not shipped:
        raise Problem("nothing is shipped")
    ids = {part["name"]: identifier("Package", part["name"]) for part in shipped + components}
    if len(set(ids.values())) != len(shipped + components):
        raise Problem("two parts have one name")

    def relate(subject, kind, other):
        relationships.append({"spdxElementId": subject, "relationshipType": kind, "relatedSpdxElement": other})

    taken = collections.defaultdict(set)
    for component in components:
        taken[component.get("root")].update(component.get("files", []))

    for part in shipped + components:
        own = part in shipped
        names = plain_files(part["root"]) if own else part.get("files", [])
        left_out = set(part.get("leave_out", []))
        if own:
            names = [name for name in names if name not in left_out | taken[part["root"]]]
        entry = {
            "SPDXID": ids[part["name"]],
            "name": part["name"],
            "versionInfo": part["version"],
            "downloadLocation": "NOASSERTION",
            "filesAnalyzed": bool(names),
            "licenseConcluded": "NOASSERTION",
            "licenseDeclared": "NOASSERTION",
            "copyrightText": "NOASSERTION",
        }
        if part.get("supplier"):
            entry["supplier"] = party(part["supplier"])
        if part.get("purl"):
            entry["externalRefs"] = [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                                      "referenceLocator": part["purl"]}]
        entries = []
        for name in names:
            sums = checksums(Path(part["root"]) / name)
            entries.append({
                "SPDXID": identifier("File", part["name"], name),
                "fileName": f"./{name}",
                "checksums": [{"algorithm": kind, "checksumValue": value} for kind, value in sums.items()],
                "licenseConcluded": "NOASSERTION",
                "copyrightText": "NOASSERTION",
            })
        if entries:
            entry["hasFiles"] = [f["SPDXID"] for f in entries]
            entry["packageVerificationCode"] = {"packageVerificationCodeValue": verification_code(entries)}
            if left_out:
                entry["packageVerificationCode"]["packageVerificationCodeExcludedFiles"] = [
                    f"./{name}" for name in sorted(left_out)]
        packages.append(entry)
        files += entries
        if own:
            relate("SPDXRef-DOCUMENT", "DESCRIBES", entry["SPDXID"])
        for name in sorted(part.get("uses", [])):
            if name not in ids:
                raise Problem(f"{part['name']} uses {name}, which is not listed")
            relate(entry["SPDXID"], "DEPENDS_ON", ids[name])

    document = {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": listing["name"],
        "creationInfo": {
            "created": datetime.datetime.fromtimestamp(listing["time"], datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ"),
            "creators": [TOOL],
        },
        "packages": packages,
        "files": files,
        "relationships": relationships,
    }
    # A name of its own for each contents.
    document["documentNamespace"] = f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, json.dumps(document, sort_keys=True))}"
    return document


def write(document, path):
    Path(path).write_text(json.dumps(document, indent=1, ensure_ascii=False) + "\n", encoding="utf-8")


# --- Debian packages


def needed(path):
    """The libraries that a program or library names, or None if it is neither."""
    with open(path, "rb") as file:
        if file.read(4) != b"\x7fELF":
            return None
    return re.findall(r"\(NEEDED\).*\[(.+)\]", run("readelf", "--dynamic", "--wide", str(path)))


class Machine:
    """The libraries of this machine and the packages that they belong to."""

    def __init__(self):
        self.paths = {}
        for name, path in re.findall(r"^\s+(\S+) \(.*\) => (/\S+)$", run("ldconfig", "-p"), re.MULTILINE):
            self.paths.setdefault(name, path)
        self.owners = {}

    def owner(self, library):
        """The package of a library, as dpkg-query calls it."""
        if library not in self.owners:
            path = Path(self.paths.get(library) or "/lib64/" + library)
            places = {str(path), str(path.resolve())}
            # dpkg remembers some places as they were before /lib became a link.
            places |= {place.removeprefix("/usr") for place in places} | {"/usr" + place for place in places}
            result = subprocess.run(["dpkg-query", "--search", *sorted(places)], capture_output=True, text=True)
            if not result.stdout:
                raise Problem(f"no package has {library}")
            self.owners[library] = result.stdout.splitlines()[0].split(": ")[0].split(",")[0]
        return self.owners[library]

    def component(self, package):
        form = "${Package}\\n${Version}\\n${Architecture}\\n${Maintainer}\\n"
        name, version, architecture, maintainer = run("dpkg-query", "--show", f"--showformat={form}", package).splitlines()
        return {"name": name, "version": version, "supplier": maintainer,
                "purl": f"pkg:deb/debian/{name}@{version.replace('+', '%2B').replace(':', '%3A')}?arch={architecture}"}


def debian(debs, seconds, own_place, folder):
    """The listing of Debian packages, which are unpacked below `folder`. The bill itself goes to a place in one."""
    own_package, _, own_file = own_place.partition(":")
    machine = Machine()
    packages, own_libraries, programs = {}, {}, {}
    for deb in debs:
        name, version, architecture, maintainer, source = (
            run("dpkg-deb", "--field", str(deb), field).strip()
            for field in ("Package", "Version", "Architecture", "Maintainer", "Source"))
        root = Path(folder) / name
        run("dpkg-deb", "--extract", str(deb), str(root))
        depends = run("dpkg-deb", "--field", str(deb), "Depends").strip()
        packages[name] = {"name": name, "version": version, "supplier": maintainer, "root": str(root),
                          "purl": f"pkg:deb/{source}/{name}@{version}?arch={architecture}",
                          "uses": set(re.findall(r"(?:^|, )([a-z0-9.+-]+)", depends)),
                          "leave_out": [own_file] if name == own_package else []}
        for file in plain_files(root):
            libraries = needed(root / file)
            if libraries is not None:
                programs.setdefault(name, set()).update(libraries)
                own_libraries[Path(file).name] = name
        for path in root.rglob("*.so.*"):
            own_libraries[path.name] = name

    # Of the dependencies those among the packages themselves; what they load of others tell the programs.
    for package in packages.values():
        package["uses"] &= packages.keys()

    components, uses = {}, collections.defaultdict(set)

    def follow(user, library):
        """Notes who has a library that `user` names, and what that loads in turn."""
        if library in own_libraries:
            if own_libraries[library] != user:
                uses[user].add(own_libraries[library])
            return
        owner = machine.owner(library)
        if owner not in components:
            components[owner] = machine.component(owner)
        name = components[owner]["name"]
        if name != user:
            uses[user].add(name)
        if library not in followed:
            followed.add(library)
            for further in needed(machine.paths.get(library, "/lib64/" + library)) or []:
                follow(name, further)

    followed = set()
    for name, libraries in programs.items():
        for library in sorted(libraries):
            follow(name, library)
    for part in list(packages.values()) + list(components.values()):
        part["uses"] = sorted(set(part.get("uses", ())) | uses[part["name"]])
    version = next(iter(packages.values()))["version"]
    return {"name": f"reportgenerator-{version}-debian", "time": seconds,
            "packages": [packages[name] for name in sorted(packages)],
            "components": sorted(components.values(), key=lambda part: part["name"])}


# --- Checking


def require(entry, names, what):
    for name in names:
        if entry.get(name) in (None, "", []):
            raise Problem(f"{what} has no {name}")


def check(document, roots):
    """Raises a Problem unless the document holds together and tells of the files below `roots`, and of no others."""
    require(document, ("spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo", "packages",
                       "relationships"), "the document")
    if document["spdxVersion"] != "SPDX-2.3" or document["dataLicense"] != "CC0-1.0":
        raise Problem("the document is no SPDX 2.3")
    if not re.fullmatch(r"[a-z][a-z0-9+.-]*:[^#\s]+", document["documentNamespace"]):
        raise Problem("the document's namespace is no URI")
    require(document["creationInfo"], ("created", "creators"), "the creation")
    if not re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", document["creationInfo"]["created"]):
        raise Problem("the time of creation is none")

    elements = [document] + document["packages"] + document.get("files", [])
    for element in elements:
        if not re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", element.get("SPDXID", "")):
            raise Problem(f"'{element.get('SPDXID')}' is no identifier")
    for name, count in collections.Counter(element["SPDXID"] for element in elements).items():
        if count > 1:
            raise Problem(f"{name} stands for {count} things")
    known = {element["SPDXID"] for element in elements}
    for relationship in document["relationships"]:
        require(relationship, ("spdxElementId", "relationshipType", "relatedSpdxElement"), "a relationship")
        for end in ("spdxElementId", "relatedSpdxElement"):
            if relationship[end] not in known:
                raise Problem(f"a relationship names {relationship[end]}, which is nowhere")
    described = {r["relatedSpdxElement"] for r in document["relationships"] if r["relationshipType"] == "DESCRIBES"}
    reached = set(described)
    while True:
        further = {r["relatedSpdxElement"] for r in document["relationships"]
                   if r["relationshipType"] == "DEPENDS_ON" and r["spdxElementId"] in reached} - reached
        if not further:
            break
        reached |= further

    files = {f["SPDXID"]: f for f in document.get("files", [])}
    owned = collections.Counter()
    for package in document["packages"]:
        what = package.get("name", "a package")
        require(package, ("name", "versionInfo", "downloadLocation"), what)
        if package["SPDXID"] not in reached:
            raise Problem(f"{what} is neither shipped nor used by what is")
        own = package.get("hasFiles", [])
        if package.get("filesAnalyzed", True) != bool(own):
            raise Problem(f"{what} doesn't tell whether its files are listed")
        for name in own:
            if name not in files:
                raise Problem(f"{what} has {name}, which is nowhere")
        owned.update(own)
        if own:
            require(package, ("packageVerificationCode",), what)
            if package["packageVerificationCode"]["packageVerificationCodeValue"] != verification_code(
                    [files[name] for name in own]):
                raise Problem(f"the verification code of {what} is wrong")
    for name, entry in files.items():
        require(entry, ("fileName", "checksums"), name)
        if owned[name] != 1:
            raise Problem(f"{name} is in {owned[name]} packages")
        if "SHA1" not in {c["algorithm"] for c in entry["checksums"]}:
            raise Problem(f"{name} has no SHA1")

    shipped = {p["name"]: p for p in document["packages"] if p["SPDXID"] in described}
    if roots.keys() != shipped.keys():
        raise Problem(f"shipped are {sorted(roots)}, listed {sorted(shipped)}")
    for name, root in roots.items():
        package = shipped[name]
        left_out = package.get("packageVerificationCode", {}).get("packageVerificationCodeExcludedFiles", [])
        expected = {f"./{file}" for file in plain_files(root)} - set(left_out)
        listed = {files[file]["fileName"]: files[file] for file in package.get("hasFiles", [])}
        # What others made is listed as theirs.
        for other in document["packages"]:
            if other["SPDXID"] not in described:
                listed |= {files[file]["fileName"]: files[file] for file in other.get("hasFiles", [])
                           if files[file]["fileName"] in expected}
        for file in sorted(expected ^ listed.keys()):
            raise Problem(f"{name}: {file} is {'not listed' if file in expected else 'not shipped'}")
        for file, entry in listed.items():
            sums = checksums(Path(root) / file)
            for checksum in entry["checksums"]:
                if sums.get(checksum["algorithm"]) != checksum["checksumValue"]:
                    raise Problem(f"{name}: the {checksum['algorithm']} of {file} is another")


def main(words):
    try:
        with tempfile.TemporaryDirectory() as folder:
            if words[:1] == ["write"] and len(words) == 3:
                write(bill(json.loads(Path(words[1]).read_text(encoding="utf-8"))), words[2])
            elif words[:1] == ["debian"] and len(words) > 4:
                write(bill(debian(words[4:], int(words[2]), words[3], folder)), words[1])
            elif words[:1] == ["check"] and len(words) > 2:
                roots = {}
                for root in words[2:]:
                    name, _, place = root.partition("=")
                    if root.endswith(".deb"):
                        name = run("dpkg-deb", "--field", root, "Package").strip()
                        place = Path(folder) / name
                        run("dpkg-deb", "--extract", root, str(place))
                    roots[name] = place
                check(json.loads(Path(words[1]).read_text(encoding="utf-8")), roots)
            else:
                print(__doc__, file=sys.stderr)
                return 2
        return 0
    except (Problem, OSError, ValueError) as problem:
        print(f"sbom: {problem}", file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
