// What all objects have.

#include "apart.h"
#include "classes.h"
#include "errors.h"
#include "forms.h"
#include "signed.h"
#include "values.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <pybind11/stl.h>

#include <string>

namespace Python {

namespace py = pybind11;

using REPORTGENERATOR::IRGObject;

namespace {

namespace words {
#include "words.inc"
} // namespace words

using Class = py::class_<AnyObject>;

QString TextOf(const py::object& value)
{
    QString text;
    FromPython(value, text);
    return text;
}

/// A function that is called with a class and makes an object of it.
template <class Function, class... Extra>
void AddClassMethod(Class& base, const char* name, Function&& function, const Extra&... extra)
{
    const py::cpp_function plain(std::forward<Function>(function), py::name(name), py::scope(base),
                                 py::arg("cls"), extra...);
    base.attr(name) = py::reinterpret_steal<py::object>(PyClassMethod_New(plain.ptr()));
}

py::object NewOf(const py::object& cls, bool validate)
{
    return cls(py::arg("validate") = validate);
}

QString TargetOf(const py::object& path)
{
    return TextOf(py::module_::import("reportgenerator._files").attr("_target")(path));
}

void AddReading(Class& base)
{
    base.def(
        "parse_xml",
        [](const AnyObject& self, const py::object& text, bool checkRoot) {
            ReadXml(self, TextOf(text), checkRoot);
        },
        py::arg("text"), py::kw_only(), py::arg("check_root") = true,
        Signed("parse_xml", "(self, text, *, check_root=True)",
               "Reads the object from its element in `text`: from the root element, or, without "
               "`check_root`, from the first one found "
               "anywhere in it. What was set before is reset. When it fails, the object stays as it was: "
               "without the "
               "element, when the root element has another name, for malformed XML, and for what the check "
               "finds when "
               "validating.")
            .c_str());
    base.def(
        "parse_bytes", [](const AnyObject& self, const py::object& data) { ReadBytes(self, BytesOf(data)); },
        py::arg("data"),
        Signed(
            "parse_bytes", "(self, data)",
            "Reads into this object, which stays as it was when that fails, whatever form the bytes are in.")
            .c_str());
    // For the package: what the library's own operations do, which return whether the element was found.
    base.def(
        "_take_xml",
        [](const AnyObject& self, const py::object& text, bool checkRoot) {
            return ApartAndBack(self, [xml = TextOf(text), checkRoot](IRGObject& object) {
                return object.SetXmlString(xml, checkRoot);
            });
        },
        py::arg("text"), py::arg("check_root"));
    base.def(
        "_load_xml",
        [](const AnyObject& self, const py::object& path) {
            return ApartAndBack(self,
                                [path = TextOf(path)](IRGObject& object) { return object.LoadXml(path); });
        },
        py::arg("path"));
    AddClassMethod(
        base, "from_xml",
        [](const py::object& cls, const py::object& text, bool checkRoot, bool validate) {
            const py::object made = NewOf(cls, validate);
            ReadXml(made.cast<const AnyObject&>(), TextOf(text), checkRoot);
            return made;
        },
        py::arg("text"), py::kw_only(), py::arg("check_root") = true, py::arg("validate") = true,
        Signed("from_xml", "(cls, text, *, check_root=True, validate=True)",
               "A new object of its element in the text; see `parse_xml`.")
            .c_str());
    AddClassMethod(
        base, "from_bytes",
        [](const py::object& cls, const py::object& data, bool validate) {
            const py::object made = NewOf(cls, validate);
            ReadBytes(made.cast<const AnyObject&>(), BytesOf(data));
            return made;
        },
        py::arg("data"), py::kw_only(), py::arg("validate") = true,
        Signed(
            "from_bytes", "(cls, data, *, validate=True)",
            "A new object of bytes in any form: XML, plain, compressed, or a binary file of one of these.\n\n"
            "What is wrong with a report is an error whose `problems` tell all of it. Without `validate` it "
            "is "
            "logged as a "
            "warning, and the report is what could be read.")
            .c_str());
    AddClassMethod(
        base, "read",
        [](const py::object& cls, const py::object& path, bool validate) {
            const py::object data = py::module_::import("reportgenerator._files").attr("_contents")(path);
            return cls.attr("from_bytes")(data, py::arg("validate") = validate);
        },
        py::arg("path"), py::kw_only(), py::arg("validate") = true,
        Signed("read", "(cls, path, *, validate=True)",
               "A new object of a file in any form; see `from_bytes`.")
            .c_str());
}

void AddWriting(Class& base)
{
    base.def(
        "to_xml",
        [](const AnyObject& self) {
            const auto copy = self.NewCopy();
            return ToPython(Apart(*copy, [](const IRGObject& object) { return object.GetXmlString(); }));
        },
        Signed("to_xml", "(self)", words::GetXmlString).c_str());
    base.def(
        "to_bytes",
        [](const AnyObject& self, const std::string& form, std::optional<int> level) {
            return ToPython(Write(self, WantedForm(form, level)));
        },
        py::arg("form") = "plain", py::kw_only(), py::arg("level") = py::none(),
        Signed("to_bytes", "(self, form='plain', *, level=None)",
               "The object in a form: \"xml\", \"plain\", \"compressed\", or \"file\" for a binary file.\n\n"
               "`level` is zlib's, 0 to 9, or -1 for its default; with one a binary file holds a compressed "
               "representation. "
               "Checks the object first when validating.")
            .c_str());
    base.def(
        "write",
        [](const AnyObject& self, const py::object& path, const std::string& form, std::optional<int> level) {
            const WantedForm wanted(form, level);
            WriteFile(self, TargetOf(path), wanted);
        },
        py::arg("path"), py::arg("form") = "xml", py::kw_only(), py::arg("level") = py::none(),
        Signed(
            "write", "(self, path, form='xml', *, level=None)",
            "Puts the object in a form (see `to_bytes`) in place of what the file holds.\n\n"
            "Until all is written it stands in a temporary file beside it, so that a failure leaves the old "
            "file "
            "as it is. "
            "When validating, a report is read back first, and one of which the form would lose something is "
            "refused.")
            .c_str());
}

void AddOperations(Class& base)
{
    base.def(
        "check",
        [](const AnyObject& self, const std::string& form) {
            return ListOf(Check(self, WantedForm(form, std::nullopt)));
        },
        py::arg("form") = "xml",
        Signed(
            "check", "(self, form='xml')",
            "What the library's check says of the object: a list of `Problem`, empty when it is good. Of a "
            "report each has its "
            "place in what would be written in the given form.")
            .c_str());
    base.def(
        "has_data", [](const AnyObject& self) { return self.Access().HasData(); },
        Signed("has_data", "(self)", words::HasData).c_str());
    base.def(
        "reset",
        [](const AnyObject& self) {
            ++self.Changes();
            self.Access().Reset();
        },
        Signed("reset", "(self)", words::Reset).c_str());
    base.def(
        "merge",
        [](const AnyObject& self, const AnyObject& other) {
            const std::shared_ptr<IRGObject> added = other.NewCopy();
            return ApartAndBack(self, [&added](IRGObject& object) { return object.MergeRGObject(*added); });
        },
        py::arg("other"), Signed("merge", "(self, other)", words::MergeRGObject).c_str());
}

void AddIdentity(Class& base)
{
    base.def_property(
        "validate", [](const AnyObject& self) { return self.Access().GetValidate(); },
        [](const AnyObject& self, bool validate) { self.Access().SetValidate(validate); },
        words::SetValidate);
    base.def_property_readonly(
        "object_name", [](const AnyObject& self) { return ToPython(self.Access().GetObjectName()); },
        words::GetObjectName);
    base.def_property_readonly(
        "object_id", [](const AnyObject& self) { return self.Access().GetObjectId(); }, words::GetObjectId);
    base.def_property_readonly(
        "object_type",
        [](const AnyObject& self) {
            const py::object kinds = py::module_::import("reportgenerator._vocabularies").attr("ObjectType");
            return kinds(static_cast<int>(self.Access().GetObjectType()));
        },
        words::GetObjectType);
    base.def_property_readonly(
        "version", [](const AnyObject& self) { return ToPython(self.Access().GetVersion()); },
        words::GetVersion);
}

} // namespace

void BindBase(py::module_& module)
{
    Class base(module, "IRGObject", words::IRGObject);
    AddReading(base);
    AddWriting(base);
    AddOperations(base);
    AddIdentity(base);
    module.def(
        "check_bytes",
        [](const py::object& data, bool isStrict) { return ListOf(CheckBytes(BytesOf(data), isStrict)); },
        py::arg("data"), py::kw_only(), py::arg("strict") = false,
        Signed("check_bytes", "(data, *, strict=False)",
               "All that is wrong with a report in any form: a list of `Problem`, empty when it is good.")
            .c_str());
}

} // namespace Python
