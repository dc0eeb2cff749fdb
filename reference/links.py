#!/usr/bin/env python3
"""Follows the links of a site, and of the pages in the source tree.

    links.py site FOLDER     every link leads to a file and an anchor of the site, and nothing is loaded from elsewhere
    links.py tree FOLDER     every link of the pages at the top, in docs/ and examples/ leads somewhere in the tree

Prints a line for each that doesn't, and fails when there is one.
"""

import html.parser
import pathlib
import re
import sys
import urllib.parse

sys.dont_write_bytecode = True
import make  # noqa: E402 pylint: disable=wrong-import-position

LOADED = {("script", "src"), ("img", "src"), ("link", "href"), ("iframe", "src"), ("object", "data"), ("embed", "src"),
          ("image", "xlink:href")}
FOLLOWED = {("a", "href"), ("area", "href"), ("a", "xlink:href")}


class Reader(html.parser.HTMLParser):
    """The links and anchors of a file."""

    def __init__(self):
        super().__init__()
        self.links = []
        self.anchors = set()

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name == "id" or (tag, name) == ("a", "name"):
                self.anchors.add(value)
            elif (tag, name) in LOADED | FOLLOWED and value is not None:
                self.links.append(((tag, name) in LOADED, value))

    handle_startendtag = handle_starttag


def read_site(folder):
    """Each file with its links and anchors."""
    found = {}
    for path in sorted(folder.rglob("*")):
        reader = Reader()
        if path.suffix in (".html", ".svg"):
            reader.feed(path.read_text("utf-8"))
        elif path.suffix == ".js":
            # Tree and search lead to pages too.
            text = path.read_text("utf-8")
            reader.links = [(False, link) for link in re.findall(r"""["']((?:\.\./)?\w+\.html(?:#\w+)?)["']""", text)]
        elif path.suffix == ".css":
            reader.links = [(True, link.strip("'\"")) for link in re.findall(r"url\(([^)]*)\)", path.read_text("utf-8"))]
        found[path.resolve()] = reader
    return found


def check_site(folder):
    site = read_site(folder)
    problems = []
    count = 0
    for path, reader in site.items():
        for loaded, link in reader.links:
            count += 1
            target = urllib.parse.urlsplit(link)
            if target.scheme in ("data", "javascript"):
                continue
            if target.scheme or target.netloc:
                if loaded:
                    problems.append(f"{path.name}: {link} is loaded from elsewhere")
                continue
            name = urllib.parse.unquote(target.path)
            # What a script or a diagram links is relative to the page that shows it, which stands beside.
            file = (path.parent / name).resolve() if name else path
            if file not in site:
                problems.append(f"{path.name}: {link} leads to no file")
            elif target.fragment and file.suffix == ".html" and target.fragment not in site[file].anchors:
                problems.append(f"{path.name}: {link} leads to no anchor")
    return problems, count


def tree_anchors(path):
    anchors = set()

    def collect(line):
        heading = re.match(r"#+ (.*)$", line)
        if heading:
            anchors.add(make.slug(heading[1]))
        return line

    make.outside_code(path.read_text("utf-8"), collect)
    return anchors


def check_tree(folder):
    problems = []
    links = []
    pages = [*folder.glob("*.md"), *(folder / "docs").rglob("*.md"),
             *(folder / "examples").rglob("*.md")]
    for page in pages:
        def collect(line, page=page):
            text = re.sub(r"`[^`]*`", "", line)
            links.extend((page, link) for link in re.findall(r"\[[^\]]*\]\(([^)\s]+)\)", text))
            return line

        make.outside_code(page.read_text("utf-8"), collect)
    for page, link in links:
        target = urllib.parse.urlsplit(link)
        if target.scheme:
            continue
        file = (page.parent / target.path).resolve() if target.path else page.resolve()
        if not file.exists():
            problems.append(f"{page.relative_to(folder)}: {link} leads to no file")
        elif target.fragment and (file.suffix != ".md" or target.fragment not in tree_anchors(file)):
            problems.append(f"{page.relative_to(folder)}: {link} leads to no heading")
    return problems, len(links)


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in ("site", "tree"):
        sys.exit(__doc__)
    check = check_site if sys.argv[1] == "site" else check_tree
    problems, count = check(pathlib.Path(sys.argv[2]).resolve())
    for problem in problems:
        print(problem, file=sys.stderr)
    print(f"{count} links, {len(problems)} of them lead nowhere")
    sys.exit(1 if problems or count == 0 else 0)


if __name__ == "__main__":
    main()
