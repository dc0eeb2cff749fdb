#!/usr/bin/env python3
"""Makes the reference: a site of the public headers and the pages, and the same as a file for Qt's help.

    make.py OUTPUT [--without-qch]

Doxygen reads copies of headers and pages, in which stands what it needs beside what people read. In a header a comment
is about all declarations up to the next empty line; in a page headings bear the anchors that links use. OUTPUT/html is
the site, OUTPUT/reportgenerator.qch the file.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent

# Folders with headers that are installed, all of them flat, below framework/.
HEADER_FOLDERS = ("reportgenerator/reportbase", "reportgenerator/qt", "reportgenerator/models", "wendbase")


def public_headers():
    for folder in HEADER_FOLDERS:
        for path in sorted((ROOT / "framework" / folder).glob("*.h")):
            if not path.name.endswith("_p.h") and path.name != "recordholder.h":
                yield path


def chapters():
    """The pages below the titles that the side tree has them under; those that nobody has named end the first one."""
    found = sorted(path.stem for path in (ROOT / "docs").glob("*.md"))
    result = {}
    for line in (HERE / "order.txt").read_text("utf-8").splitlines():
        if line.startswith("# "):
            names = result.setdefault(line[2:], [])
        elif line:
            if line not in found:
                sys.exit(f"reference/order.txt: there is no docs/{line}.md")
            found.remove(line)
            names.append(line)
    next(iter(result.values())).extend(found)
    return result


# --- Headers

COPYING = re.compile(r"(?:explicit )?(\w+)\(const \1& \w+\)|(\w+)& operator=\(const \2& \w+\)")
DESTRUCTOR = re.compile(r"\s*~\w+\(\)(?: override)?(?: = default)?;$")
OPENS_SCOPE = re.compile(r"(?:template <.*> )?(?:class|struct|enum|namespace|union|extern)\b")
DIRECTIVE = re.compile(r"\s*#")
ACCESS = re.compile(r"\s*(?:public|protected|private|Q_SIGNALS)\b.*:$")


def declarations(lines, start):
    """The first line of each declaration from `start` to the next empty line, and the line behind the last one."""
    firsts = []
    depth = 0
    begins = True
    index = start
    while index < len(lines):
        line = lines[index]
        text = line.strip()
        if depth == 0 and (not text or text.startswith(("}", "///")) or DIRECTIVE.match(line) or ACCESS.match(line)):
            break
        if begins and not text.startswith(("//", "template <")):
            firsts.append(index)
            begins = False
        depth += sum(map(text.count, "({")) - sum(map(text.count, ")}"))
        if depth == 0 and text.endswith((";", "}", "};")):
            begins = True
        index += 1
    return firsts, index


def group_declarations(lines):
    """Makes groups of the declarations that share a comment. Copying is described by a comment of its own."""
    result = []
    index = 0
    while index < len(lines):
        if not re.match(r"\s*/// ?(?!<)", lines[index]):
            result.append(lines[index])
            index += 1
            continue
        comment = index
        while index < len(lines) and lines[index].strip().startswith("///"):
            index += 1
        firsts, end = declarations(lines, index)
        if firsts and not OPENS_SCOPE.match(lines[firsts[0]].strip()):
            if not COPYING.match(lines[firsts[0]].strip()):
                end = next((first for first in firsts if COPYING.match(lines[first].strip())), end)
            firsts = [first for first in firsts if first < end]
            if len(firsts) > 1:
                # Said of each, since of a template's instances doxygen knows no group.
                for first in range(index, end):
                    starts = first in firsts or (lines[first].startswith("template <") and first + 1 in firsts)
                    if first > index and starts and not lines[first - 1].startswith("template <"):
                        result += lines[comment:index]
                    elif first == index:
                        result += ["///@{"] + lines[comment:index]
                    result.append(lines[first])
                result.append("///@}")
                index = end
                continue
        result += lines[comment:index]
    return result


def file_comment(lines, name):
    """The comment that stands by itself behind the includes tells what the header brings."""
    text = []
    for line in lines[:next((i for i, line in enumerate(lines) if line.startswith("namespace ")), 0)]:
        if re.match("//(?!/)", line):
            text.append(line[2:].removeprefix(" "))
        elif text:
            break
    return [f"/// @file {name}", f"/// @brief `#include <{name}>`", "///"] + [f"/// {line}".rstrip() for line in text]


def link_code(line):
    """Names in backticks become links, where something has this name."""
    def linked(match):
        return f"<tt>{match[1]}</tt>"
    return re.sub(r"`([A-Z]\w+(?:::\w+)*(?:\(\))?)`", linked, line) if line.strip().startswith("///") else line


def mark_code(text):
    """Indented lines of a comment are code, in which names become links."""
    block = re.compile(r"^( *///)\n((?:\1     .*\n(?:\1\n(?=\1     ))?)+)", re.M)

    def marked(match):
        return f"{match[1]}\n{match[1]} @code{{.cpp}}\n{match[2].replace('///     ', '/// ')}{match[1]} @endcode\n"
    return block.sub(marked, text)


def write_diagrams(folder):
    """Of each class that the diagram shows, what it is connected with. Returns the names."""
    folder.mkdir(parents=True, exist_ok=True)
    lines = (HERE / "holding.dot").read_text("utf-8").splitlines()
    edges = {line: set(re.findall(r"(\w+) -> (\w+)", line)[0]) for line in lines if "->" in line}
    names = set().union(*edges.values())
    for name in names:
        near = {name}
        while True:
            more = near.union(*(ends for ends in edges.values() if ends & near))
            if more == near:
                break
            near = more
        kept = []
        for line in lines:
            node = re.match(r" *(\w+) \[URL", line)
            if node and node[1] == name:
                line = line.replace("[", '[fillcolor="#bcd3e8", ')
            if line not in edges and not node or node and node[1] in near or edges.get(line, {None}) <= near:
                kept.append(line)
        (folder / f"holding_{name}.dot").write_text("\n".join(kept) + "\n", "utf-8")
    return names


def add_diagrams(lines, shown):
    """Puts the diagram below the description of each class that has one."""
    result = []
    for line in lines:
        match = re.match(r"class \w+_EXPORT (\w+)\b.*(?<!;)$", line)
        if match and match[1] in shown:
            result += ["///", f'/// @dotfile holding_{match[1]}.dot "Who holds whom, by value unless the arrow says otherwise"']
        result.append(line)
    return result


RECORD = re.compile(r"^(?:///[^\n]*\n)*struct \w+Data(?: : \w+)?\n\{\n(?:.*?\n)??\};\n", re.M | re.S)


def prepare_header(path, target, shown):
    name = path.relative_to(ROOT / "framework").as_posix()
    # How an object keeps its fields is nobody's concern.
    lines = RECORD.sub(lambda match: "\n" * match[0].count("\n"), path.read_text("utf-8")).split("\n")
    comment = file_comment(lines, name)
    lines = ["" if DESTRUCTOR.match(line) and "virtual" not in line else line for line in lines]
    lines = [link_code(line) for line in add_diagrams(group_declarations(lines), shown)]
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_text(mark_code("\n".join(comment + [""] + lines)), "utf-8")


# --- Pages

def slug(heading):
    """The anchor of a heading, as the hosts of repositories make it."""
    text = re.sub(r"[^\w\- ]", "", heading.replace("`", "").lower())
    return text.replace(" ", "-")


def label(page, anchor):
    return re.sub(r"\W", "_", f"{page}_{anchor}" if anchor else f"page_{page}")


def outside_code(text, change):
    """Applies a change to each line that is not in a block of code."""
    fenced = False
    result = []
    for line in text.split("\n"):
        if line.lstrip().startswith("```"):
            fenced = not fenced
            result.append(line)
        else:
            result.append(line if fenced else change(line))
    return "\n".join(result)


def class_links():
    """The names of classes and of the namespaces inside the library's, and what leads to each."""
    links = {}
    for path in public_headers():
        text = path.read_text("utf-8")
        space = re.search(r"^namespace (\w+)", text, re.M)
        for name in re.findall(r"^class (?:\w+_EXPORT )?(\w+)\b[^;]*$", text, re.M):
            links[name] = f"{space[1]}::{name}" if space else name
        for outer, name in re.findall(r"^namespace (\w+)::(\w+) \{", text, re.M):
            links[name] = f"{outer}::{name}"
    return links


class Page:
    """A page of the tree, with the name that it has in the site."""

    def __init__(self, path, name, site):
        self.path = path
        self.name = name
        self.site = site
        self.classes = class_links()

    def link(self, match):
        text, target = match[1], match[2]
        if re.match(r"\w+:", target):
            return match[0]
        path, _, anchor = target.partition("#")
        resolved = (self.path.parent / path).resolve() if path else self.path
        if resolved in self.site:
            return f"[{text}](@ref {label(self.site[resolved], anchor)})"
        if resolved.suffix in (".png", ".svg"):
            return match[0]
        if not resolved.exists():
            sys.exit(f"{self.path.relative_to(ROOT)}: no {target}")
        # What is no page of the site stands in the source tree, and is named.
        return f"{text} (`{resolved.relative_to(ROOT)}`)" if text != str(resolved.relative_to(ROOT)) else f"`{text}`"

    def line(self, line):
        heading = re.match(r"(#+) (.*)$", line)
        if heading:
            top = len(heading[1]) == 1
            return f"{line} {{#{label(self.name, '' if top else slug(heading[2]))}}}"
        return self.text_line(line)

    def code(self, text):
        name = text.strip("`").removesuffix("<Data>")
        return f'<tt>@ref {self.classes[name]} "{name}"</tt>' if name in self.classes else text

    def text_line(self, line):
        parts = re.split(r"(`[^`]*`)", line)
        parts = [self.code(part) if part.startswith("`") else part.replace("@", "\\@") for part in parts]
        return re.sub(r"\[([^\]]*)\]\(([^)\s]+)\)", self.link, "".join(parts))

    def prepare(self, target):
        text = self.path.read_text("utf-8")
        if self.name == "readme":
            # The front page has the project's name already.
            text = re.sub(r"^# .*", "# README", text, count=1)
        target.write_text(outside_code(text, self.line), "utf-8")


def first_paragraph(path):
    """What a page begins with below its title and pictures, unless it leads to something."""
    paragraphs = re.split(r"\n\n+", path.read_text("utf-8"))
    first = next(text for text in paragraphs if not text.startswith(("#", "!")))
    return "" if first.startswith("```") or first.endswith(":") else first


def prepare_pages(folder):
    """Writes the pages in the order in which the side tree has them."""
    folder.mkdir(parents=True, exist_ok=True)
    tree = chapters()
    site = {ROOT / "docs" / f"{name}.md": name for names in tree.values() for name in names}
    beside = {ROOT / "README.md": "readme", ROOT / "examples/problems/README.md": "problems",
              ROOT / "CHANGELOG.md": "changelog"}
    site.update(beside)
    for path, name in site.items():
        Page(path, name, site).prepare(folder / f"{name}.md")
    front = (HERE / "front.md").read_text("utf-8")
    written = ["front", "readme"]
    contents = f"- @ref {label('readme', '')}\n"
    for number, (title, names) in enumerate(tree.items()):
        lines = [f"# {title} {{#chapter_{number}}}", ""]
        for name in names:
            path = ROOT / "docs" / f"{name}.md"
            text = Page(path, name, site).text_line(first_paragraph(path))
            lines += [f"@subpage {label(name, '')}", "", text, ""]
        (folder / f"chapter{number}.md").write_text("\n".join(lines), "utf-8")
        contents += f"- @ref chapter_{number}\n"
        written.append(f"chapter{number}")
    contents += f"- @ref examples\n- @ref {label('problems', '')}\n- @ref {label('changelog', '')}\n"
    (folder / "front.md").write_text(front + "\n## All pages\n\n" + contents, "utf-8")
    shutil.copy(HERE / "examples.md", folder)
    written += ["examples", "problems", "changelog"]
    written += [name for name in site.values() if name not in written]
    return [folder / f"{name}.md" for name in written]


# --- Doxygen

def version():
    return re.search(r"^ *VERSION ([0-9.]+)$", (ROOT / "CMakeLists.txt").read_text("utf-8"), re.M)[1]


def setting(value):
    """A value as doxygen reads it: paths may have blanks."""
    if isinstance(value, list):
        return " ".join(setting(one) for one in value)
    return f'"{value}"' if isinstance(value, pathlib.Path) else value


def run_doxygen(output, inputs, settings):
    settings = {
        "PROJECT_NUMBER": version(),
        "OUTPUT_DIRECTORY": output,
        "INPUT": inputs,
        "STRIP_FROM_PATH": output / "input",
        "STRIP_FROM_INC_PATH": output / "input/framework",
        "DOTFILE_DIRS": [HERE, output / "input/diagrams"],
        "IMAGE_PATH": ROOT / "docs",
        "EXAMPLE_PATH": ROOT / "examples",
        "LAYOUT_FILE": HERE / "layout.xml",
        "HTML_EXTRA_STYLESHEET": HERE / "style.css",
        **settings,
    }
    lines = [f"{key} = {setting(value)}" for key, value in {"@INCLUDE": HERE / "Doxyfile", **settings}.items()]
    doxyfile = output / "Doxyfile"
    doxyfile.write_text("\n".join(lines) + "\n", "utf-8")
    done = subprocess.run(["doxygen", doxyfile], cwd=output, stdout=subprocess.DEVNULL, check=False)
    if done.returncode != 0:
        sys.exit("reference: doxygen is not content")
    for page in (output / settings["HTML_OUTPUT"]).glob("*.html"):
        say_once(page)
    mend_tree(output / settings["HTML_OUTPUT"])


SUMMARY = re.compile(r'<tr class="memdesc:\w+(?: inherit \w+)?"><td class="mdescLeft">.*?</td><td class="mdescRight">(.*?)</td></tr>\n')


def say_once(page):
    """In a summary a comment stands at the first of the declarations that share it."""
    text = page.read_text("utf-8")
    said = None

    def once(match):
        nonlocal said
        before, said = said, re.sub(r"<a href=[^>]*>More...</a>", "", match[1])
        return "" if said == before else match[0]

    page.write_text(SUMMARY.sub(once, text), "utf-8")


LINK = re.compile(r'"(\w+\.html)#(\w+)"')


def mend_tree(folder):
    """The side tree leads to enumerators without a description, which have no anchor, and then to the page alone."""
    anchors = {page.name: set(re.findall(r'\b(?:id|name)="(\w+)"', page.read_text("utf-8")))
               for page in folder.glob("*.html")}

    def is_dead(match):
        return match[2] not in anchors.get(match[1], set())

    for script in folder.glob("*.js"):
        lines = []
        for line in script.read_text("utf-8").splitlines():
            link = LINK.search(line)
            # What the tree shows, and where it shows what.
            if link and is_dead(link):
                if script.name.startswith("navtreeindex"):
                    continue
                line = line.replace(link[0], f'"{link[1]}"')
            lines.append(line)
        script.write_text("\n".join(lines) + "\n", "utf-8")


def help_generator():
    """Qt's own, by the name that belongs to a version where there are several; none where it is missing."""
    for name in ("/usr/lib/qt5/bin/qhelpgenerator", "qhelpgenerator-qt5", "qhelpgenerator"):
        # The name that chooses among versions is there without any of them.
        found = shutil.which(name)
        if found and pathlib.Path(found).resolve().name != "qtchooser":
            return found
    return None


def make_help(output, generator):
    project = output / "help/index.qhp"
    # Qt Creator asks for names as they stand in a program.
    text = re.sub(r'( id="[^"]*?)_[0-9a-f]*"', r'\1"', project.read_text("utf-8"))
    project.write_text(text, "utf-8")
    # The generator asks for a folder of its own.
    runtime = output / "input/runtime"
    runtime.mkdir(mode=0o700, parents=True, exist_ok=True)
    done = subprocess.run([generator, project, "-o", output / "reportgenerator.qch"], check=False, capture_output=True,
                          text=True, env={**os.environ, "XDG_RUNTIME_DIR": str(runtime)})
    if done.returncode != 0:
        sys.exit(f"reference: {done.stdout}{done.stderr}")


def main():
    arguments = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    arguments.add_argument("output", type=pathlib.Path)
    arguments.add_argument("--without-qch", action="store_true")
    options = arguments.parse_args()
    output = options.output.resolve()
    for folder in ("input", "html", "help"):
        shutil.rmtree(output / folder, ignore_errors=True)
    inputs = prepare_pages(output / "input/pages")
    inputs.append(shutil.copy(HERE / "namespaces.h", output / "input/pages/namespaces.h"))
    shown = write_diagrams(output / "input/diagrams")
    for path in public_headers():
        target = output / "input" / path.relative_to(ROOT)
        prepare_header(path, target, shown)
        inputs.append(target)
    run_doxygen(output, inputs, {"HTML_OUTPUT": "html"})
    if not options.without_qch:
        generator = help_generator()
        if not generator:
            sys.exit("reference: no qhelpgenerator")
        # Qt's help has a tree and a search of its own.
        run_doxygen(output, inputs, {
            "HTML_OUTPUT": "help", "GENERATE_TREEVIEW": "NO", "SEARCHENGINE": "NO", "DOT_IMAGE_FORMAT": "png",
            "GENERATE_QHP": "YES",
        })
        make_help(output, generator)


if __name__ == "__main__":
    main()
