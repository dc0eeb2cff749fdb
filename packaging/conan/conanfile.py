"""The libraries as a package of Conan 2, built from the tree in which this file stands."""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class ReportGeneratorRecipe(ConanFile):
    name = "reportgenerator"
    description = "Report data model of a radio-monitoring system"
    package_type = "shared-library"
    settings = "os", "compiler", "build_type", "arch"
    options = {"qt": [5, 6], "models": [True, False]}
    default_options = {"qt": 5, "models": True}

    # Version of Qt: the oldest and the first that is too new.
    qt_range = {"5": ">=5.15 <6", "6": ">=6.2 <7"}

    @property
    def _tree(self):
        return os.path.join(self.recipe_folder, "..", "..")

    @property
    def _suffix(self):
        """What the names of a build for Qt 6 end with."""
        return "" if self.options.qt == "5" else "-qt6"

    @property
    def _cmake_package(self):
        return "ReportGenerator" if self.options.qt == "5" else "ReportGeneratorQt6"

    def set_version(self):
        project = load(self, os.path.join(self._tree, "CMakeLists.txt"))
        self.version = re.search(r"^ *VERSION ([0-9.]+)$", project, re.MULTILINE).group(1)

    def export_sources(self):
        for part in ("CMakeLists.txt", "README.md", "CHANGELOG.md", "cmake/*", "docs/*", "examples/*", "framework/*",
                     "schemas/*"):
            copy(self, part, src=self._tree, dst=self.export_sources_folder)

    def requirements(self):
        # The headers have Qt's types in them.
        self.requires(f"qt/[{self.qt_range[str(self.options.qt)]}]", transitive_headers=True)

    def validate(self):
        check_min_cppstd(self, 17)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["REPORTGENERATOR_QT_MAJOR"] = str(self.options.qt)
        toolchain.cache_variables["REPORTGENERATOR_BUILD_MODELS"] = bool(self.options.models)
        for part in ("TESTS", "EXAMPLES", "TOOLS"):
            toolchain.cache_variables[f"REPORTGENERATOR_BUILD_{part}"] = False
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        components = self.cpp_info.components
        # CMake takes the package that the project installs itself, with its components and messages.
        self.cpp_info.set_property("cmake_find_mode", "none")
        components["reportbase"].builddirs = [os.path.join("lib", "cmake", self._cmake_package)]

        components["wendbase"].libs = ["wendbase" + self._suffix]
        components["wendbase"].requires = ["qt::qtCore"]
        components["reportbase"].libs = ["reportbase" + self._suffix]
        components["reportbase"].requires = ["wendbase", "qt::qtCore"]
        components["reportbase"].defines = [f"REPORTGENERATOR_QT_MAJOR={self.options.qt}"]
        if self.settings.os == "Windows":
            components["reportbase"].defines.append("NOGDI")
        components["reportbase"].set_property("pkg_config_name", "reportgenerator" + self._suffix)
        components["qt"].requires = ["reportbase"]
        if self.options.models:
            components["models"].libs = ["reportmodels" + self._suffix]
            components["models"].requires = ["reportbase"]
            components["models"].set_property("pkg_config_name", "reportgenerator-models" + self._suffix)
