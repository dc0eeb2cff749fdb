#include <reportpages/completion.h>

#include <reportgenerator/reflection/reportfields.h>

namespace ReportPages {

using ReportCore::Field;
using ReportCore::FieldKind;
using ReportCore::FieldPath;
using ReportCore::ObjectInfo;

namespace {

template <class Visit>
void VisitPaths(const ObjectInfo& info, FieldPath& path, const Visit& visit)
{
    for (const Field* field : info.InReadingOrder()) {
        path.Enter(*field);
        visit(*field, path);
        if (field->Kind() == FieldKind::List) {
            path.SetIndex(0);
            visit(*field, path);
        }
        if (field->HasObjects())
            VisitPaths(field->Object(), path, visit);
        path.Leave();
    }
}

} // namespace

QStringList FieldPaths()
{
    QStringList paths;
    FieldPath path;
    VisitPaths(ReportCore::ReportInfo(), path,
               [&paths](const Field& /*field*/, const FieldPath& at) { paths << at.Text(); });
    return paths;
}

QStringList Assignments()
{
    QStringList assignments;
    FieldPath path;
    VisitPaths(ReportCore::ReportInfo(), path, [&assignments](const Field& field, const FieldPath& at) {
        if (field.HasObjects() || field.Kind() == FieldKind::Version)
            return;
        const QString assignment = at.Text() + QLatin1Char('=');
        if (field.Kind() == FieldKind::Switch)
            assignments << assignment + QLatin1String("true") << assignment + QLatin1String("false");
        else
            assignments << assignment;
    });
    return assignments;
}

QString FunctionName(const QString& program)
{
    return QString(program).replace(QLatin1Char('-'), QLatin1Char('_'));
}

QString Quoted(const QString& text)
{
    return QLatin1Char('\'') + QString(text).replace(QLatin1Char('\''), QLatin1String("'\\''")) +
           QLatin1Char('\'');
}

QString QuotedList(const QStringList& texts)
{
    QStringList quoted;
    for (const QString& text : texts)
        quoted << Quoted(text);
    return quoted.join(QLatin1Char(' '));
}

QByteArray Filled(const char* script, const std::vector<std::pair<const char*, QString>>& texts)
{
    QString filled = QString::fromLatin1(script);
    for (const auto& [name, text] : texts)
        filled.replace(QLatin1Char('@') + QLatin1String(name) + QLatin1Char('@'), text);
    return filled.toUtf8();
}

QString Dashed(const QString& optionName)
{
    return (optionName.size() == 1 ? QLatin1String("-") : QLatin1String("--")) + optionName;
}

} // namespace ReportPages
