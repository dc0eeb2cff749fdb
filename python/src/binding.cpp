#include "binding.h"

namespace Python {

namespace py = pybind11;

namespace {

const Property* Find(const std::vector<Property>& properties, const std::string& name)
{
    for (const Property& property : properties) {
        if (name == property.name)
            return &property;
    }
    return nullptr;
}

/// script_id: scriptId.
QString KeyOf(const char* name)
{
    QString key;
    bool isNext = false;
    for (const QChar character : QString::fromLatin1(name)) {
        if (character != QLatin1Char('_'))
            key += isNext ? character.toUpper() : character;
        isNext = character == QLatin1Char('_');
    }
    return key;
}

/// A list of many is told by its size.
std::string ValueText(const py::object& value)
{
    constexpr py::ssize_t MOST_SHOWN = 4;
    if (py::hasattr(value, "tolist")) {
        const auto size = static_cast<py::ssize_t>(py::len(value));
        if (size > MOST_SHOWN)
            return "<" + std::to_string(size) + " of them>";
        return py::repr(value.attr("tolist")()).cast<std::string>();
    }
    if (py::isinstance(value, py::module_::import("enum").attr("Enum")))
        return py::type::of(value).attr("__name__").cast<std::string>() + "." +
               value.attr("name").cast<std::string>();
    return py::repr(value).cast<std::string>();
}

} // namespace

std::string FactsOf(const char* className, const char* fieldName)
{
    const ReportCore::ObjectInfo* const object = ReportCore::FindObject(QString::fromLatin1(className));
    const ReportCore::Field* const field = object ? object->FindName(KeyOf(fieldName)) : nullptr;
    if (!field)
        return "\n\nNone stands for a value that is not set.";
    const ReportCore::FieldFacts& facts = field->Facts();
    std::string text;
    if (facts.kind == ReportCore::FieldKind::Number) {
        if (facts.unit == REPORTGENERATOR::Unit::Hertz)
            text += "In Hz. ";
        else if (facts.unit == REPORTGENERATOR::Unit::Degrees)
            text += "In degrees. ";
        if (!facts.range.IsUnbounded())
            text +=
                QStringLiteral("Within [%1, %2]. ").arg(facts.range.low).arg(facts.range.high).toStdString();
    } else if (facts.kind == ReportCore::FieldKind::List) {
        text += "As an array of (n, 2) numbers in degrees, longitude first, with NaN for what is not set. ";
    }
    if (facts.isMandatory)
        text += "Must be set. ";
    return "\n\n" + text + "None while it is not set.";
}

void SetAll(const std::vector<Property>& properties, const AnyObject& self, const py::dict& values)
{
    for (const auto& [key, value] : values) {
        const auto name = key.cast<std::string>();
        const Property* const property = Find(properties, name);
        if (!property || !property->set)
            throw py::type_error("there is no property '" + name + "' to set");
    }
    for (const Property& property : properties) {
        if (!values.contains(property.name))
            continue;
        const py::object value = values[property.name];
        if (!value.is_none())
            property.set(self, value);
    }
}

std::string Representation(const std::vector<Property>& properties, py::handle self, const char* className)
{
    const auto& object = self.cast<const AnyObject&>();
    std::string text;
    for (const Property& property : properties) {
        if (!property.IsData())
            continue;
        const py::object value = property.get(object);
        if (value.is_none())
            continue;
        text += (text.empty() ? "" : ", ") + std::string(property.name) + "=" + ValueText(value);
    }
    if (!object.Access().GetValidate())
        text += text.empty() ? "validate=False" : ", validate=False";
    return std::string(className) + "(" + text + ")";
}

bool AreAllEqual(const std::vector<Property>& properties, const AnyObject& left, const AnyObject& right)
{
    for (const Property& property : properties) {
        if (property.IsData() && !property.get(left).equal(property.get(right)))
            return false;
    }
    return true;
}

} // namespace Python
