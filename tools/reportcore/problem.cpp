#include <reportcore/problem.h>

#include <reportcore/texts.h>

namespace ReportCore {

namespace {

constexpr int HEXADECIMAL = 16;
constexpr int LONGEST_VALUE = 80;

QString OffsetText(const FilePlace& place)
{
    return QStringLiteral("0x") + QString::number(place.offset, HEXADECIMAL);
}

} // namespace

QString PlaceCode(const FilePlace& place)
{
    if (place.line > 0)
        return QStringLiteral("%1:%2").arg(place.line).arg(place.column);
    if (place.offset < 0)
        return QString();
    return place.isUncompressed ? QStringLiteral("uncompressed:") + OffsetText(place) : OffsetText(place);
}

QString PlaceText(const FilePlace& place)
{
    if (place.line > 0)
        return QStringLiteral("line %1, column %2").arg(place.line).arg(place.column);
    if (place.offset < 0)
        return QString();
    const QString text = QStringLiteral("offset ") + OffsetText(place);
    return place.isUncompressed ? text + QStringLiteral(" of the uncompressed data") : text;
}

QString FieldText(const Problem& problem)
{
    if (problem.value.isNull())
        return problem.path;
    const QString value = problem.value.size() > LONGEST_VALUE
                              ? Quoted(problem.value.left(LONGEST_VALUE)) + QStringLiteral("...")
                              : Quoted(problem.value);
    return problem.path.isEmpty() ? value : QStringLiteral("%1 = %2").arg(problem.path, value);
}

QString ProblemLine(const Problem& problem)
{
    const QString place = PlaceCode(problem.place);
    const QString field = FieldText(problem);
    return (place.isEmpty() ? QString() : place + QStringLiteral(": ")) + problem.name +
           QStringLiteral(": ") + Printable(problem.text) +
           (field.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(field));
}

} // namespace ReportCore
