#include <reporttool/showtext.h>

#include <reporttool/textoutput.h>

#include <reportcore/areapoints.h>
#include <reportcore/bounds.h>

#include <reportgenerator/reflection/fieldtexts.h>
#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <QtCore/QStringList>

#include <algorithm>

namespace ReportTool {

using ReportCore::Bounds;
using ReportCore::Field;
using ReportCore::FieldKind;
using ReportCore::FileForm;
using ReportCore::Form;
using ReportCore::NumberText;
using ReportCore::ObjectInfo;
using ReportCore::Printable;
using ReportCore::Problem;
using ReportCore::Problems;
using ReportCore::Quoted;
using ReportCore::ReportFile;
using REPORTGENERATOR::IRGObject;

namespace {

constexpr int INDENT = 4;
constexpr int VALUE_COLUMN = 22;
constexpr int FIRST_ITEMS = 4;

const QString& NotSet()
{
    static const QString text = QStringLiteral("not set");
    return text;
}

/// Lines of the shape "    name:       value".
class Page
{
public:
    explicit Page(TextOutput& output) : m_output(output) {}

    void Row(int depth, const QString& name, const QString& value)
    {
        const QString label = QString(depth * INDENT, QLatin1Char(' ')) + name + QLatin1Char(':');
        m_output.Line(value.isEmpty() ? label : label.leftJustified(VALUE_COLUMN) + QLatin1Char(' ') + value);
    }

    void Row(int depth, const char* name, const QString& value) { Row(depth, QLatin1String(name), value); }

private:
    TextOutput& m_output;
};

QString FormText(const FileForm& form)
{
    const QString representation = form.form == Form::Compressed ? QStringLiteral("compressed representation")
                                                                 : QStringLiteral("plain representation");
    switch (form.form) {
    case Form::Unknown:
        return QStringLiteral("unknown");
    case Form::Xml:
        return QStringLiteral("XML");
    default:
        return form.isBinaryFile ? QStringLiteral("binary file with a ") + representation : representation;
    }
}

/// The values of an item in one line.
QString ItemLine(const IRGObject& item, const ObjectInfo& info)
{
    const QString text = ReportCore::ItemText(item, info);
    const auto& fields = info.All();
    const bool isGood = std::all_of(fields.begin(), fields.end(),
                                    [&item](const auto& field) { return field->IsGoodIn(item); });
    return isGood ? text : text + QStringLiteral("  (invalid)");
}

QString RangeText(const Bounds& bounds, double low, double high)
{
    if (bounds.isEmpty)
        return QStringLiteral("none");
    return QStringLiteral("%1 to %2").arg(NumberText(low), NumberText(high));
}

void ShowItems(const IRGObject& parent, const Field& list, int depth, bool withAllItems, Page& page)
{
    const int count = list.CountIn(parent);
    const int shown = withAllItems ? count : std::min(count, FIRST_ITEMS);
    for (int i = 0; i < shown; ++i)
        page.Row(depth, QString::number(i + 1), ItemLine(list.ItemIn(parent, i), list.Object()));
    if (shown < count)
        page.Row(depth, "...", QStringLiteral("%1 more (--all shows them)").arg(count - shown));
}

void ShowList(const IRGObject& parent, const Field& list, int depth, bool withAllItems, Page& page)
{
    if (ReportCore::HoldsPoints(list)) {
        const Bounds bounds = ReportCore::BoundsOf(parent, list);
        page.Row(depth, "longitude", RangeText(bounds, bounds.west, bounds.east));
        page.Row(depth, "latitude", RangeText(bounds, bounds.south, bounds.north));
    }
    const QString count = QString::number(list.CountIn(parent));
    page.Row(depth, list.Label(), list.IsSetIn(parent) ? count : NotSet());
    ShowItems(parent, list, depth + 1, withAllItems, page);
}

void ShowFields(const IRGObject& object, const ObjectInfo& info, int depth, bool withAllItems, Page& page);

void ShowMember(const IRGObject& parent, const Field& member, int depth, bool withAllItems, Page& page)
{
    if (!member.IsSetIn(parent)) {
        page.Row(depth, member.Label(), QStringLiteral("not present"));
        return;
    }
    page.Row(depth, member.Label(), QString());
    ShowFields(member.ItemIn(parent, 0), member.Object(), depth + 1, withAllItems, page);
}

void ShowFields(const IRGObject& object, const ObjectInfo& info, int depth, bool withAllItems, Page& page)
{
    for (const Field* field : info.InReadingOrder()) {
        if (field->Kind() == FieldKind::List)
            ShowList(object, *field, depth, withAllItems, page);
        else if (field->Kind() == FieldKind::Object)
            ShowMember(object, *field, depth, withAllItems, page);
        else
            page.Row(depth, field->Label(), ReportCore::ValueText(field->ValueIn(object)));
    }
}

/// " (line 12, column 7: area.name)"
QString Where(const Problem& problem)
{
    QStringList parts = {ReportCore::PlaceText(problem.place), ReportCore::FieldText(problem)};
    parts.removeAll(QString());
    return parts.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(parts.join(QLatin1String(": ")));
}

void ShowProblems(const Problems& problems, Page& page)
{
    if (problems.empty()) {
        page.Row(1, "problems", QStringLiteral("none"));
        return;
    }
    page.Row(1, "problems", QString::number(problems.size()));
    for (const Problem& problem : problems)
        page.Row(2, problem.name, Printable(problem.text) + Where(problem));
}

} // namespace

void ShowText(const QString& name, const ReportFile& file, bool withAllPoints, TextOutput& output)
{
    Page page(output);
    page.Row(0, Printable(name), QString());
    page.Row(1, "form", FormText(file.form));
    page.Row(1, "size", QStringLiteral("%1 bytes").arg(file.size));
    page.Row(1, "name", file.objectName.isEmpty() ? QStringLiteral("none") : Quoted(file.objectName));
    ShowFields(file.report, ReportCore::ReportInfo(), 1, withAllPoints, page);
    ShowProblems(file.problems, page);
}

} // namespace ReportTool
