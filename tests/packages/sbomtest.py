#!/usr/bin/env python3
"""What scripts/sbom.py writes of a small listing, and what it finds wrong with a bill."""

import copy
import hashlib
import importlib.util
import tempfile
import unittest
from pathlib import Path

_spec = importlib.util.spec_from_file_location("sbom", Path(__file__).resolve().parents[2] / "scripts" / "sbom.py")
sbom = importlib.util.module_from_spec(_spec)
_spec.loader.exec_module(sbom)


class BillOfMaterials(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / "bin").mkdir()
        (self.root / "bin" / "radio.dll").write_bytes(b"radio")
        (self.root / "bin" / "tuner.dll").write_bytes(b"tuner")
        (self.root / "bill.spdx.json").write_bytes(b"{}")
        self.listing = {
            "name": "radio-0.1.0",
            "time": 1700000000,
            "packages": [{"name": "radio", "version": "0.1.0", "root": str(self.root), "leave_out": ["bill.spdx.json"],
                          "supplier": "The makers <makers@radio.example>", "uses": ["Tuner"]}],
            "components": [
                {"name": "Tuner", "version": "5.15.8", "root": str(self.root), "files": ["bin/tuner.dll"],
                 "purl": "pkg:generic/tuner@5.15.8", "uses": ["zip"]},
                {"name": "zip", "version": "1.2"},
            ],
        }
        self.bill = sbom.bill(self.listing)

    def package(self, name):
        return next(package for package in self.bill["packages"] if package["name"] == name)

    def file(self, name):
        return next(file for file in self.bill["files"] if file["fileName"] == name)

    def assert_wrong(self, words, bill=None, roots=None):
        with self.assertRaises(sbom.Problem) as caught:
            sbom.check(bill or self.bill, roots or {"radio": self.root})
        self.assertIn(words, str(caught.exception))

    def test_bill_of_a_listing_is_good(self):
        sbom.check(self.bill, {"radio": self.root})

    def test_document_tells_form_time_and_name(self):
        self.assertEqual(self.bill["spdxVersion"], "SPDX-2.3")
        self.assertEqual(self.bill["creationInfo"]["created"], "2023-11-14T22:13:20Z")
        self.assertEqual(self.bill["name"], "radio-0.1.0")

    def test_files_stand_with_their_makers(self):
        self.assertEqual([f["fileName"] for f in self.bill["files"]], ["./bin/radio.dll", "./bin/tuner.dll"])
        self.assertEqual(self.package("radio")["hasFiles"], [self.file("./bin/radio.dll")["SPDXID"]])
        self.assertEqual(self.package("Tuner")["hasFiles"], [self.file("./bin/tuner.dll")["SPDXID"]])

    def test_file_has_the_sums_of_its_contents(self):
        self.assertEqual(self.file("./bin/radio.dll")["checksums"], [
            {"algorithm": "SHA1", "checksumValue": hashlib.sha1(b"radio").hexdigest()},
            {"algorithm": "SHA256", "checksumValue": hashlib.sha256(b"radio").hexdigest()}])

    def test_verification_code_is_the_sum_of_sorted_sums(self):
        code = self.package("radio")["packageVerificationCode"]
        self.assertEqual(code["packageVerificationCodeValue"],
                         hashlib.sha1(hashlib.sha1(b"radio").hexdigest().encode()).hexdigest())
        self.assertEqual(code["packageVerificationCodeExcludedFiles"], ["./bill.spdx.json"])

    def test_parts_and_what_they_use_are_related(self):
        self.assertEqual(
            [(r["spdxElementId"], r["relationshipType"], r["relatedSpdxElement"]) for r in self.bill["relationships"]],
            [("SPDXRef-DOCUMENT", "DESCRIBES", "SPDXRef-Package-radio"),
             ("SPDXRef-Package-radio", "DEPENDS_ON", "SPDXRef-Package-Tuner"),
             ("SPDXRef-Package-Tuner", "DEPENDS_ON", "SPDXRef-Package-zip")])

    def test_same_listing_gives_the_same_bill(self):
        self.assertEqual(sbom.bill(self.listing), self.bill)

    def test_other_contents_give_another_namespace(self):
        (self.root / "bin" / "radio.dll").write_bytes(b"other")
        self.assertNotEqual(sbom.bill(self.listing)["documentNamespace"], self.bill["documentNamespace"])

    def test_unlisted_part_is_not_used(self):
        self.listing["packages"][0]["uses"] = ["Nothing"]
        with self.assertRaises(sbom.Problem) as caught:
            sbom.bill(self.listing)
        self.assertIn("uses Nothing, which is not listed", str(caught.exception))

    def test_missing_member_is_found(self):
        for name in ("spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo", "packages",
                     "relationships"):
            with self.subTest(name):
                bill = copy.deepcopy(self.bill)
                del bill[name]
                self.assert_wrong(f"no {name}", bill)

    def test_missing_member_of_a_package_is_found(self):
        for name in ("name", "versionInfo", "downloadLocation", "packageVerificationCode"):
            with self.subTest(name):
                bill = copy.deepcopy(self.bill)
                del bill["packages"][0][name]
                self.assert_wrong(f"no {name}", bill)

    def test_identifier_that_stands_twice_is_found(self):
        self.package("zip")["SPDXID"] = self.package("Tuner")["SPDXID"]
        self.assert_wrong("stands for 2 things")

    def test_identifier_of_other_letters_is_found(self):
        self.package("zip")["SPDXID"] = "SPDXRef-zip+"
        self.assert_wrong("is no identifier")

    def test_relationship_with_nothing_is_found(self):
        self.bill["relationships"][1]["relatedSpdxElement"] = "SPDXRef-Package-nothing"
        self.assert_wrong("SPDXRef-Package-nothing, which is nowhere")

    def test_part_that_nobody_uses_is_found(self):
        del self.bill["relationships"][2]
        self.assert_wrong("zip is neither shipped nor used")

    def test_file_of_two_packages_is_found(self):
        self.package("zip")["hasFiles"] = list(self.package("Tuner")["hasFiles"])
        self.package("zip")["filesAnalyzed"] = True
        self.package("zip")["packageVerificationCode"] = self.package("Tuner")["packageVerificationCode"]
        self.assert_wrong("is in 2 packages")

    def test_wrong_verification_code_is_found(self):
        self.package("radio")["packageVerificationCode"]["packageVerificationCodeValue"] = "0" * 40
        self.assert_wrong("the verification code of radio is wrong")

    def test_changed_file_is_found(self):
        (self.root / "bin" / "tuner.dll").write_bytes(b"other")
        self.assert_wrong("the SHA1 of ./bin/tuner.dll is another")

    def test_file_that_is_not_listed_is_found(self):
        (self.root / "more").write_bytes(b"more")
        self.assert_wrong("./more is not listed")

    def test_file_that_is_not_shipped_is_found(self):
        (self.root / "bin" / "radio.dll").unlink()
        self.assert_wrong("./bin/radio.dll is not shipped")

    def test_other_packages_than_the_listed_are_found(self):
        self.assert_wrong("shipped are ['other', 'radio'], listed ['radio']",
                          roots={"radio": self.root, "other": self.root})


if __name__ == "__main__":
    unittest.main()
