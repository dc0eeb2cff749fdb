#!/usr/bin/env python3
"""What the reference is made with finds what is wrong.

    parts.py REFERENCE SCRATCH
"""

import pathlib
import re
import shutil
import subprocess
import sys
import unittest

REFERENCE, SCRATCH = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
sys.dont_write_bytecode = True
sys.path.insert(0, str(REFERENCE))
import links  # noqa: E402 pylint: disable=wrong-import-position
import make  # noqa: E402 pylint: disable=wrong-import-position


def fresh(name):
    folder = SCRATCH / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


class Headers(unittest.TestCase):
    def test_a_comment_is_about_all_declarations_up_to_the_next_empty_line(self):
        lines = ["    /// The bound.", "    double GetMin() const;", "    void SetMin(double min);", "", "    int Other();"]
        self.assertEqual(make.group_declarations(lines), [
            "///@{", "    /// The bound.", "    double GetMin() const;", "    /// The bound.", "    void SetMin(double min);",
            "///@}", "", "    int Other();"])

    def test_a_comment_is_about_a_function_with_a_body_and_the_next(self):
        lines = ["/// Both.", "inline int One()", "{", "    return f(1);", "}", "template <class T>", "int Two();"]
        self.assertEqual(make.group_declarations(lines), [
            "///@{", "/// Both.", "inline int One()", "{", "    return f(1);", "}", "/// Both.", "template <class T>",
            "int Two();", "///@}"])

    def test_copying_is_not_described_by_the_constructor_above(self):
        lines = ["    /// Nothing set.", "    Area();", "    Area(const Area& other);", "    Area& operator=(const Area& other);"]
        self.assertEqual(make.group_declarations(lines), lines)

    def test_the_members_of_a_class_are_not_described_by_its_comment(self):
        lines = ["/// A pair.", "struct Pair", "{", "    int one;", "    int two;", "};"]
        self.assertEqual(make.group_declarations(lines), lines)

    def test_a_record_is_left_out_and_lines_keep_their_numbers(self):
        text = "/// The record.\nstruct AData : Base\n{\n};\n\nclass A\n{\n    int x;\n};\n"
        self.assertEqual(make.RECORD.sub(lambda match: "\n" * match[0].count("\n"), text),
                         "\n\n\n\n\nclass A\n{\n    int x;\n};\n")

    def test_indented_lines_are_code(self):
        self.assertEqual(make.mark_code("/// Text.\n///\n///     int x;\n///\n///     int y;\n///\n/// Text.\n"),
                         "/// Text.\n///\n/// @code{.cpp}\n/// int x;\n///\n/// int y;\n/// @endcode\n///\n/// Text.\n")


class Diagram(unittest.TestCase):
    def test_what_a_class_holds_by_value_is_in_the_diagram(self):
        edges = set(re.findall(r"(\w+) -> (\w+)", (REFERENCE / "holding.dot").read_text("utf-8")))
        classes = make.class_links()
        held = set()
        for path in make.public_headers():
            text = path.read_text("utf-8")
            for name, body in re.findall(r"^class \w+_EXPORT (\w+)\b[^;{]*\n\{\n(.*?)^\};", text, re.M | re.S):
                held |= {(name, kind) for kind in re.findall(r"^    (\w+) m_\w+;", body, re.M) if kind in classes}
        # The diagram has the classes that people use in place of their base.
        for base, derived in ("FrequencyHolder", "FrequencyInformation"), ("FrequencyHolder", "FrequencyListValue"):
            held |= {(derived, kind) for name, kind in held if name == base}
        held = {edge for edge in held if edge[0] != "FrequencyHolder"}
        self.assertIn(("ScanParameter", "FrequencyRangeOld"), held)
        self.assertLessEqual(held, edges)


class Pages(unittest.TestCase):
    def test_anchors_are_those_of_the_hosts(self):
        self.assertEqual(make.slug("What `show --json` writes"), "what-show---json-writes")
        self.assertEqual(make.slug("Reports in Qt's views"), "reports-in-qts-views")

    def test_code_is_left_alone(self):
        self.assertEqual(make.outside_code("# a\n```sh\n# b\n```\n# c", lambda line: line.upper()), "# A\n```sh\n# b\n```\n# C")


class Links(unittest.TestCase):
    def problems_of(self, name, text):
        folder = fresh(name)
        (folder / "index.html").write_text(text, "utf-8")
        (folder / "other.html").write_text('<p id="there">x</p>', "utf-8")
        return links.check_site(folder)[0]

    def test_good_links_are_followed(self):
        self.assertEqual(self.problems_of("good", '<a href="other.html#there">x</a><a href="https://example.org/">x</a>'), [])

    def test_a_missing_file_is_found(self):
        self.assertEqual(self.problems_of("file", '<a href="none.html">x</a>'), ["index.html: none.html leads to no file"])

    def test_a_missing_anchor_is_found(self):
        self.assertEqual(self.problems_of("anchor", '<a href="other.html#here">x</a>'),
                         ["index.html: other.html#here leads to no anchor"])

    def test_what_is_loaded_from_elsewhere_is_found(self):
        self.assertEqual(self.problems_of("elsewhere", '<script src="https://example.org/x.js"></script>'),
                         ["index.html: https://example.org/x.js is loaded from elsewhere"])

    def test_wrong_links_of_pages_are_found(self):
        folder = fresh("tree")
        (folder / "docs").mkdir()
        (folder / "CHANGELOG.md").write_text("# Changes\n", "utf-8")
        (folder / "README.md").write_text("[a](docs/a.md#one) [b](docs/a.md#two) [c](docs/none.md) `[d](none)`\n", "utf-8")
        (folder / "docs/a.md").write_text("# One\n```\n# Two\n[e](none)\n```\n", "utf-8")
        self.assertEqual(links.check_tree(folder), (
            ["README.md: docs/a.md#two leads to no heading", "README.md: docs/none.md leads to no file"], 3))


@unittest.skipUnless(shutil.which("doxygen"), "doxygen is not installed")
class Doxygen(unittest.TestCase):
    def errors_of(self, name, text):
        folder = fresh(name)
        (folder / "input/diagrams").mkdir(parents=True)
        (folder / "header.h").write_text(text, "utf-8")
        program = ("import pathlib, sys; sys.path.insert(0, sys.argv[1]); import make; folder = pathlib.Path(sys.argv[2]); "
                   "make.run_doxygen(folder, [folder / 'header.h'], {'HTML_OUTPUT': 'html', 'HAVE_DOT': 'NO', "
                   "'USE_MDFILE_AS_MAINPAGE': ''})")
        done = subprocess.run([sys.executable, "-B", "-c", program, str(REFERENCE), str(folder)], capture_output=True,
                              text=True, check=False)
        self.assertEqual(done.returncode == 0, not done.stderr, done.stderr)
        return done.stderr

    def test_a_described_class_is_good(self):
        self.assertEqual(self.errors_of("described", "/// @file\n\n/// A.\nclass A\n{\npublic:\n    /// F.\n    void F();\n};\n"), "")

    def test_a_function_without_a_comment_is_found(self):
        self.assertIn("F() (function) of class A is not documented",
                      self.errors_of("silent", "/// @file\n\n/// A.\nclass A\n{\npublic:\n    void F();\n};\n"))

    def test_a_name_that_is_none_is_found(self):
        self.assertIn("unable to resolve reference to 'B'", self.errors_of("name", "/// @file\n\n/// See @ref B.\nclass A\n{\n};\n"))


unittest.main(argv=sys.argv[:1], verbosity=2)
