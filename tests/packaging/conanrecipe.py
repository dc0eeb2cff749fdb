"""The recipe for Conan as far as it can be tried without Conan: it runs with stand-ins for what it imports, and is held
against the project. Arguments: the tree, its build folder, the major version of Qt there, whether the models are built."""

import pathlib
import re
import sys
import types
import unittest

tree = pathlib.Path(sys.argv[1])
build = pathlib.Path(sys.argv[2])
qt = sys.argv[3]
with_models = sys.argv[4] == "ON"
suffix = "" if qt == "5" else "-qt6"
project = (tree / "CMakeLists.txt").read_text()
cache = (build / "CMakeCache.txt").read_text()


class Record:
    """Takes every call, and keeps what is set."""

    def __init__(self, *arguments):
        self.cache_variables = {}
        self.properties = {}
        self.libs, self.requires, self.defines, self.builddirs = [], [], [], []

    def set_property(self, name, value):
        self.properties[name] = value

    def generate(self):
        last_generated.append(self)


class Components(dict):
    def __missing__(self, name):
        self[name] = Record()
        return self[name]


copied, required, last_generated = [], [], []


def module(name, **content):
    sys.modules[name] = types.ModuleType(name)
    vars(sys.modules[name]).update(content)


module("conan", ConanFile=object)
module("conan.tools")
module("conan.tools.build", check_min_cppstd=lambda recipe, standard: None)
module("conan.tools.cmake", CMake=Record, CMakeDeps=Record, CMakeToolchain=Record, cmake_layout=lambda recipe: None)
module("conan.tools.files", copy=lambda recipe, pattern, src, dst: copied.append(pattern),
       load=lambda recipe, path: pathlib.Path(path).read_text())
sys.path.insert(0, str(tree / "packaging/conan"))
sys.dont_write_bytecode = True
import conanfile  # noqa: E402  needs the stand-ins


def cached(name):
    return re.search(rf"^{name}:\w+=(.*)$", cache, re.MULTILINE).group(1)


def recipe(**options):
    made = conanfile.ReportGeneratorRecipe()
    made.recipe_folder = str(tree / "packaging/conan")
    made.export_sources_folder = ""
    chosen = {**made.default_options, **options}
    made.options = types.SimpleNamespace(**{name: value if isinstance(value, bool) else str(value)
                                            for name, value in chosen.items()})
    made.settings = types.SimpleNamespace(os="Linux")
    made.cpp_info = Record()
    made.cpp_info.components = Components()
    made.requires = lambda name, **traits: required.append((name, traits))
    return made


class Recipe(unittest.TestCase):
    def test_bears_name_version_and_description_of_the_project(self):
        made = recipe()
        made.set_version()
        self.assertEqual(made.version, cached("CMAKE_PROJECT_VERSION"))
        self.assertEqual(made.description, cached("CMAKE_PROJECT_DESCRIPTION"))
        self.assertEqual(made.name, "reportgenerator")

    def test_has_the_defaults_of_the_project(self):
        major = re.search(r'set\(REPORTGENERATOR_QT_MAJOR (\d) CACHE', project).group(1)
        models = re.search(r'option\(REPORTGENERATOR_BUILD_MODELS "[^"]*" (\w+)\)', project).group(1)
        self.assertEqual(recipe().default_options, {"qt": int(major), "models": models == "ON"})

    def test_sets_options_that_the_project_has(self):
        for models in True, False:
            recipe(qt=6, models=models).generate()
            variables = last_generated[-2].cache_variables
            for name in variables:
                self.assertRegex(cache, rf"(?m)^{name}:")
            self.assertEqual(variables["REPORTGENERATOR_QT_MAJOR"], "6")
            self.assertEqual(variables["REPORTGENERATOR_BUILD_MODELS"], models)

    def test_asks_for_the_versions_of_qt_that_the_project_takes(self):
        minima = re.findall(r"set\(REPORTGENERATOR_QT_MINIMUM ([0-9.]+)\)", project)
        self.assertEqual(len(minima), 2)
        for major, minimum in zip((5, 6), minima):
            recipe(qt=major).requirements()
            self.assertEqual(required[-1], (f"qt/[>={minimum} <{major + 1}]", {"transitive_headers": True}))

    def test_takes_the_sources_that_the_project_configures(self):
        recipe().export_sources()
        for pattern in copied:
            self.assertTrue(list(tree.glob(pattern)), pattern)
        folders = {pattern.split("/")[0] for pattern in copied}
        # What stands in a condition is left out by the options that the recipe sets.
        configured = set(re.findall(r"(?m)^(?:add_subdirectory|include)\((\w+)/", project))
        self.assertIn("framework", configured)
        self.assertLessEqual(configured, folders)
        installed = set(re.findall(r"\{PROJECT_SOURCE_DIR\}/([\w.]+)", (tree / "cmake/Install.cmake").read_text())) - {"tools"}
        self.assertLessEqual(installed, folders)

    def test_has_the_components_of_the_cmake_package(self):
        made = recipe(qt=qt, models=with_models)
        made.package_info()
        components = made.cpp_info.components
        package = "ReportGenerator" if qt == "5" else "ReportGeneratorQt6"
        config = (build / f"{package}Config.cmake").read_text()
        named = re.search(rf'set\({package}_components "([^"]*)"\)', config).group(1).split(";")
        self.assertEqual(set(components), {"wendbase", *named})
        self.assertEqual(made.cpp_info.properties, {"cmake_find_mode": "none"})
        self.assertEqual([component.builddirs for component in components.values() if component.builddirs],
                         [[f"lib/cmake/{package}"]])

    def test_links_what_pkg_config_links(self):
        made = recipe(qt=qt, models=with_models)
        made.package_info()
        for name in ("reportbase", "models") if with_models else ("reportbase",):
            component = made.cpp_info.components[name]
            described = (build / f"{component.properties['pkg_config_name']}.pc").read_text()
            libs = component.libs + [lib for other in component.requires if name == "reportbase" and "::" not in other
                                     for lib in made.cpp_info.components[other].libs]
            self.assertEqual(libs, re.findall(r" -l(\S+)", described))
            self.assertEqual(component.defines, re.findall(r" -D(\S+)", described))


unittest.main(argv=sys.argv[:1])
