"""Builds an example with the package, runs it and compares what it prints."""

import io
import os

from conan import ConanFile
from conan.errors import ConanException
from conan.tools.build import can_run
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import load


class ReportGeneratorTest(ConanFile):
    settings = "os", "compiler", "build_type", "arch"

    def requirements(self):
        self.requires(self.tested_reference_str)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        options = self.dependencies["reportgenerator"].options
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["REPORTGENERATOR_PACKAGE"] = \
            "ReportGenerator" if options.qt == "5" else "ReportGeneratorQt6"
        toolchain.cache_variables["REPORTGENERATOR_COMPONENTS"] = \
            "reportbase;qt;models" if options.models else "reportbase;qt"
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def test(self):
        if not can_run(self):
            return
        output = io.StringIO()
        self.run(os.path.join(self.cpp.build.bindir, "report-writer"), stdout=output, env="conanrun")
        expected = load(self, os.path.join(self.recipe_folder, "../../../tests/examples/report-writer.txt"))
        if output.getvalue() != expected:
            raise ConanException(f"report-writer printed\n{output.getvalue()}")
