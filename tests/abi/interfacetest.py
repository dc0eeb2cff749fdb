#!/usr/bin/env python3
"""What scripts/interface.py finds, tried on a small library that is changed in one way at a time."""

import importlib.util
import subprocess
import tempfile
import unittest
from pathlib import Path

_spec = importlib.util.spec_from_file_location(
    "interface", Path(__file__).resolve().parents[2] / "scripts" / "interface.py")
interface = importlib.util.module_from_spec(_spec)
_spec.loader.exec_module(interface)

HEADER = """
namespace Radio {

enum Band { LOW = 0, HIGH = 1 };

class Receiver
{
public:
    Receiver();
    virtual ~Receiver();
    virtual void Tune(double frequency);
    virtual void Mute();
    int Level(Band band) const;
    static const int count;

protected:
    int m_gain;

private:
    double m_frequency;
};

class Scanner : public Receiver
{
public:
    void Mute() override;
};

int Strength(const Receiver& receiver);

} // namespace Radio
"""

SOURCE = """
#include "radio.h"

namespace Radio {

Receiver::Receiver() : m_gain(1), m_frequency(2) {}
Receiver::~Receiver() = default;
void Receiver::Tune(double frequency) { m_frequency = frequency; }
void Receiver::Mute() { m_gain = 0; }
int Receiver::Level(Band band) const { return m_gain + band; }
const int Receiver::count = 7;
void Scanner::Mute() { m_gain = -1; }
int Strength(const Receiver& receiver) { return receiver.Level(LOW); }

} // namespace Radio
"""


class Interface(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.released = cls.describe("released")

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @classmethod
    def describe(cls, name, changes=(), version="0.1.0", soname="libradio.so.0.1"):
        """The description of the library after `changes`, pairs of texts in header or source."""
        header, source = HEADER, SOURCE
        for old, new in changes:
            if (header + source).count(old) != 1:
                raise AssertionError(f"'{old}' doesn't stand once in the library")
            header, source = header.replace(old, new), source.replace(old, new)
        folder = Path(cls.folder.name) / name
        folder.mkdir()
        (folder / "radio.h").write_text(header)
        (folder / "radio.cpp").write_text(source)
        subprocess.run(["g++", "-std=c++17", "-g", "-O0", "-shared", "-fPIC", f"-Wl,-soname,{soname}", "radio.cpp", "-o",
                        "libradio.so"], cwd=folder, check=True)
        return interface.Description(interface.describe(folder / "libradio.so", folder, version))

    def changed(self, *changes, **options):
        name = self.id().rsplit(".", 1)[-1]
        return interface.judge(self.released, self.describe(name, changes, **options))

    def assert_refused(self, outcome, *sentences):
        words, good = outcome
        self.assertFalse(good, words)
        for sentence in sentences:
            self.assertIn(f"  {sentence}", words)
        self.assertIn("break programs that are linked with 0.1.0", words[-1])

    def assert_told(self, outcome, *sentences):
        words, good = outcome
        self.assertTrue(good, words)
        self.assertEqual([f"  {sentence}" for sentence in sentences], words[:-1])

    def test_same_library_has_no_changes(self):
        self.assertEqual(self.changed(), (["the interface is that of 0.1.0"], True))

    def test_removed_function_is_refused(self):
        self.assert_refused(
            self.changed(("int Strength(const Receiver& receiver);", ""),
                         ("int Strength(const Receiver& receiver) { return receiver.Level(LOW); }", "")),
            "the function Radio::Strength(Radio::Receiver const&) is gone")

    def test_removed_member_function_is_refused(self):
        self.assert_refused(
            self.changed(("    int Level(Band band) const;", ""),
                         ("int Receiver::Level(Band band) const { return m_gain + band; }", ""),
                         ("receiver.Level(LOW)", "0")),
            "the function Radio::Receiver::Level(Radio::Band) const is gone")

    def test_other_parameters_are_another_function(self):
        self.assert_refused(
            self.changed(("Level(Band band) const;", "Level(Band band, int step) const;"),
                         ("Receiver::Level(Band band) const {", "Receiver::Level(Band band, int) const {"),
                         ("receiver.Level(LOW)", "receiver.Level(LOW, 1)")),
            "the function Radio::Receiver::Level(Radio::Band) const is gone",
            "the function Radio::Receiver::Level(Radio::Band, int) const is new")

    def test_other_return_type_is_refused(self):
        self.assert_refused(
            self.changed(("int Strength(const Receiver& receiver);", "double Strength(const Receiver& receiver);"),
                         ("int Strength(const Receiver& receiver) {", "double Strength(const Receiver& receiver) {")),
            "the function Radio::Strength(Radio::Receiver const&) was of type int and is of type double")

    def test_other_type_of_variable_is_refused(self):
        self.assert_refused(
            self.changed(("static const int count;", "static const long count;"),
                         ("const int Receiver::count", "const long Receiver::count")),
            "the variable Radio::Receiver::count was of type const int and is of type const long int")

    def test_order_of_virtual_table_is_kept(self):
        self.assert_refused(
            self.changed(("    virtual void Tune(double frequency);\n    virtual void Mute();",
                          "    virtual void Mute();\n    virtual void Tune(double frequency);")),
            "entry 2 in the virtual table of class Radio::Receiver was Tune(double) -> void and is Mute() -> void",
            "entry 3 in the virtual table of class Radio::Receiver was Mute() -> void and is Tune(double) -> void")

    def test_new_entry_of_virtual_table_is_refused_even_at_its_end(self):
        self.assert_refused(
            self.changed(("    virtual void Mute();", "    virtual void Mute();\n    virtual void Stop();"),
                         ("const int Receiver::count = 7;", "const int Receiver::count = 7;\nvoid Receiver::Stop() {}")),
            "the virtual table of class Radio::Receiver has a new entry 4, Stop() -> void, a place that derived classes "
            "of programs use for their own")

    def test_virtual_function_that_is_no_longer_virtual_is_refused(self):
        self.assert_refused(
            self.changed(("virtual void Tune", "void Tune")),
            "entry 2 in the virtual table of class Radio::Receiver was Tune(double) -> void and is Mute() -> void")

    def test_grown_class_is_refused(self):
        self.assert_refused(
            self.changed(("    double m_frequency;", "    double m_frequency;\n    double m_width = 0;")),
            "an object of class Radio::Receiver took 24 bytes and takes 32",
            "class Radio::Receiver has a new field at byte 24, double m_width",
            "an object of class Radio::Scanner took 24 bytes and takes 32")

    def test_moved_field_is_refused(self):
        self.assert_refused(
            self.changed(("    int m_gain;", "    int m_offset = 0;\n    int m_gain;")),
            "the field m_gain of class Radio::Receiver is called m_offset now",
            "class Radio::Receiver has a new field at byte 12, int m_gain")

    def test_other_base_is_refused(self):
        outcome = self.changed(("class Scanner : public Receiver", "struct Empty {};\n\nclass Scanner : public Empty, public Receiver"))
        self.assert_refused(outcome, "the bases of class Radio::Scanner were ['base 0 Radio::Receiver'] and are "
                                     "['base 0 Radio::Empty', 'base 0 Radio::Receiver']")

    def test_other_number_of_enumeration_is_refused(self):
        self.assert_refused(
            self.changed(("LOW = 0, HIGH = 1", "LOW = 0, MIDDLE = 1, HIGH = 2")),
            "HIGH of the enumeration Radio::Band was 1 and is 2",
            "MIDDLE of the enumeration Radio::Band is new")

    def test_other_soname_is_refused(self):
        self.assert_refused(self.changed(soname="libradio.so.0.2"),
                            "the soname was libradio.so.0.1 and is libradio.so.0.2")

    def test_added_function_is_told(self):
        self.assert_told(
            self.changed(("int Strength(const Receiver& receiver);",
                          "int Strength(const Receiver& receiver);\nint Noise();"),
                         ("const int Receiver::count = 7;", "const int Receiver::count = 7;\nint Noise() { return 3; }")),
            "the function Radio::Noise() is new")

    def test_added_override_is_told(self):
        outcome = self.changed(
            ("    void Mute() override;", "    void Mute() override;\n    void Tune(double frequency) override;"),
            ("void Scanner::Mute()", "void Scanner::Tune(double) {}\nvoid Scanner::Mute()"))
        self.assert_told(
            outcome,
            "the function Radio::Scanner::Tune(double) is new",
            "class Radio::Scanner overrides Tune(double) -> void; programs that name the class call its base's until "
            "they are compiled again")

    def test_added_class_and_value_are_told(self):
        self.assert_told(
            self.changed(("LOW = 0, HIGH = 1", "LOW = 0, HIGH = 1, HIGHEST = 2"),
                         ("int Strength(const Receiver& receiver);",
                          "int Strength(const Receiver& receiver);\nclass Meter\n{\npublic:\n    int Read() const;\n};"),
                         ("const int Receiver::count = 7;",
                          "const int Receiver::count = 7;\nint Meter::Read() const { return 4; }")),
            "the function Radio::Meter::Read() const is new",
            "the class Radio::Meter is new",
            "HIGHEST of the enumeration Radio::Band is new")

    def test_renamed_private_field_is_nobodys_business(self):
        changes = ("    double m_frequency;", "    double m_tuned;"), ("m_frequency(2)", "m_tuned(2)"), (
            "{ m_frequency = frequency; }", "{ m_tuned = frequency; }")
        self.assertEqual(self.changed(*changes), (["the interface is that of 0.1.0"], True))

    GROWN = ("    double m_frequency;", "    double m_frequency;\n    double m_width = 0;")

    def test_new_patch_version_may_not_break(self):
        words, good = self.changed(self.GROWN, version="0.1.1")
        self.assertFalse(good)
        self.assertIn("raise the minor version", words[-1])

    def test_new_minor_version_before_1_may_break_under_its_own_soname(self):
        words, good = self.changed(self.GROWN, version="0.2.0", soname="libradio.so.0.2")
        self.assertTrue(good)
        self.assertIn("  an object of class Radio::Receiver took 24 bytes and takes 32", words)
        self.assertTrue(words[-1].startswith("version 0.2.0 may break programs of 0.1.0"))

    def test_new_minor_version_with_the_old_soname_is_refused(self):
        words, good = self.changed(self.GROWN, version="0.2.0")
        self.assertFalse(good)
        self.assertIn("needs a soname of its own", words[-1])

    def test_version_before_the_described_one_is_refused(self):
        words, good = self.changed(version="0.0.9")
        self.assertFalse(good)
        self.assertEqual(words[-1], "version 0.0.9 is older than the described release 0.1.0")

    def test_from_1_on_only_a_new_major_version_may_break(self):
        self.assertEqual(interface.interface_version("1.2.0"), interface.interface_version("1.3.0"))
        self.assertLess(interface.interface_version("1.3.0"), interface.interface_version("2.0.0"))
        self.assertLess(interface.interface_version("0.9.1"), interface.interface_version("1.0.0"))

    def test_library_without_debug_information_is_no_interface(self):
        folder = Path(self.folder.name) / "stripped"
        folder.mkdir()
        (folder / "radio.h").write_text(HEADER)
        (folder / "radio.cpp").write_text(SOURCE)
        subprocess.run(["g++", "-std=c++17", "-shared", "-fPIC", "radio.cpp", "-o", "libradio.so"], cwd=folder, check=True)
        with self.assertRaises(interface.Problem):
            interface.describe(folder / "libradio.so", folder, "0.1.0")


if __name__ == "__main__":
    unittest.main()
