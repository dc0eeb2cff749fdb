#include <reporttool/showtext.h>

#include <reporttool/bounds.h>
#include <reporttool/textoutput.h>
#include <reporttool/texts.h>

#include <algorithm>

namespace ReportTool {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;

namespace {

constexpr int INDENT = 4;
constexpr int VALUE_COLUMN = 22;
constexpr int FIRST_POINTS = 4;

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

    void Heading(int depth, const char* name) { Row(depth, QLatin1String(name), QString()); }

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

QString OptionalNumber(bool isSet, double number)
{
    return isSet ? NumberText(number) : NotSet();
}

/// Value and bounds of a frequency or an IF bandwidth.
template <class Bounded>
void ShowBounded(const Bounded& object, Page& page)
{
    page.Row(2, "value", OptionalNumber(object.IsValueSet(), object.GetValue()));
    page.Row(2, "min", OptionalNumber(object.IsMinSet(), object.GetMin()));
    page.Row(2, "max", OptionalNumber(object.IsMaxSet(), object.GetMax()));
}

QString UseText(const Frequency& frequency)
{
    if (!frequency.IsUseSet())
        return NotSet();
    return frequency.GetUse() ? QStringLiteral("true") : QStringLiteral("false");
}

QString NameText(bool isSet, const QString& text)
{
    if (!isSet)
        return NotSet();
    return text.isNull() ? QStringLiteral("null") : Quoted(text);
}

QString PointText(const Coordinate& point)
{
    const QString text =
        QStringLiteral("%1 %2").arg(OptionalNumber(point.IsLongitudeSet(), point.GetLongitude()),
                                    OptionalNumber(point.IsLatitudeSet(), point.GetLatitude()));
    return IsValidPoint(point) ? text : text + QStringLiteral("  (invalid)");
}

QString RangeText(const Bounds& bounds, double low, double high)
{
    if (bounds.isEmpty)
        return QStringLiteral("none");
    return QStringLiteral("%1 to %2").arg(NumberText(low), NumberText(high));
}

void ShowPoints(const QVector<Coordinate>& points, bool withAllPoints, Page& page)
{
    using Count = decltype(points.size());
    const Count shown = withAllPoints ? points.size() : std::min<Count>(points.size(), FIRST_POINTS);
    for (Count i = 0; i < shown; ++i)
        page.Row(3, QString::number(i + 1), PointText(points.at(i)));
    if (shown < points.size())
        page.Row(3, "...", QStringLiteral("%1 more (--all shows them)").arg(points.size() - shown));
}

void ShowArea(const Area& area, bool withAllPoints, Page& page)
{
    const QVector<Coordinate>& points = area.GetCoordinate();
    const Bounds bounds = BoundsOf(points);
    page.Row(2, "name", NameText(area.IsNameSet(), area.GetName()));
    page.Row(2, "version",
             NameText(!area.GetInitialVersionLoaded().isEmpty(), area.GetInitialVersionLoaded()));
    page.Row(2, "script ID", NameText(area.IsScriptIDSet(), area.GetScriptID()));
    page.Row(2, "longitude", RangeText(bounds, bounds.west, bounds.east));
    page.Row(2, "latitude", RangeText(bounds, bounds.south, bounds.north));
    page.Row(2, "coordinates", area.IsCoordinateSet() ? QString::number(points.size()) : NotSet());
    ShowPoints(points, withAllPoints, page);
}

void ShowReport(const ReportBase& report, bool withAllPoints, Page& page)
{
    const QString notPresent = QStringLiteral("not present");
    if (report.IsFrequencySet()) {
        page.Heading(1, "frequency");
        ShowBounded(report.GetFrequency(), page);
        page.Row(2, "use", UseText(report.GetFrequency()));
    } else {
        page.Row(1, "frequency", notPresent);
    }
    if (report.IsIFBandwidthSet()) {
        page.Heading(1, "IF bandwidth");
        ShowBounded(report.GetIFBandwidth(), page);
    } else {
        page.Row(1, "IF bandwidth", notPresent);
    }
    if (report.IsAreaSet()) {
        page.Heading(1, "area");
        ShowArea(report.GetArea(), withAllPoints, page);
    } else {
        page.Row(1, "area", notPresent);
    }
}

void ShowProblems(const Problems& problems, Page& page)
{
    if (problems.empty()) {
        page.Row(1, "problems", QStringLiteral("none"));
        return;
    }
    page.Row(1, "problems", QString::number(problems.size()));
    for (const Problem& problem : problems) {
        const QString place = problem.line > 0 ? QStringLiteral(" (line %1)").arg(problem.line) : QString();
        page.Row(2, problem.name, Printable(problem.text) + place);
    }
}

} // namespace

void ShowText(const QString& name, const ReportFile& file, bool withAllPoints, TextOutput& output)
{
    Page page(output);
    page.Row(0, Printable(name), QString());
    page.Row(1, "form", FormText(file.form));
    page.Row(1, "size", QStringLiteral("%1 bytes").arg(file.size));
    page.Row(1, "name", file.objectName.isEmpty() ? QStringLiteral("none") : Quoted(file.objectName));
    ShowReport(file.report, withAllPoints, page);
    ShowProblems(file.problems, page);
}

} // namespace ReportTool
