#include <reportcore/problem.h>

#include <reportgenerator/reflection/texts.h>

#include <tuple>

namespace ReportCore {

namespace {

constexpr int HEXADECIMAL = 16;
constexpr int LONGEST_VALUE = 80;

/// The first characters of a text; a character may take two units.
QString FirstCharacters(const QString& text, int count)
{
    int end = 0;
    while (count > 0 && end < text.size()) {
        const bool isPair =
            text.at(end).isHighSurrogate() && end + 1 < text.size() && text.at(end + 1).isLowSurrogate();
        end += isPair ? 2 : 1;
        --count;
    }
    return text.left(end);
}

QString OffsetText(const FilePlace& place)
{
    return QStringLiteral("0x") + QString::number(place.offset, HEXADECIMAL);
}

} // namespace

bool StandsBefore(const Problem& left, const Problem& right)
{
    const auto key = [](const Problem& problem) {
        return std::make_tuple(problem.place.line, problem.place.column, problem.place.offset);
    };
    return key(left) < key(right);
}

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
    const QString shown = FirstCharacters(problem.value, LONGEST_VALUE);
    const QString value =
        shown.size() < problem.value.size() ? Quoted(shown) + QStringLiteral("...") : Quoted(shown);
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
