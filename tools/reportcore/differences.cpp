#include <reportcore/differences.h>

#include <reportcore/reportjson.h>
#include <reportcore/sequences.h>

#include <reportgenerator/reflection/fieldtexts.h>
#include <reportgenerator/reportbase/codec/numbers.h>

#include <QtCore/QHash>

#include <algorithm>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

/// A number as it is written, without the sign of a zero.
QString NumberAsWritten(double number, int decimals)
{
    const QString text = REPORTGENERATOR::numbers::ToFixedText(number, {decimals, 0});
    const bool isNegativeZero =
        text.startsWith(QLatin1Char('-')) && std::all_of(text.begin() + 1, text.end(), [](QChar character) {
            return character == QLatin1Char('0') || character == QLatin1Char('.');
        });
    return isNegativeZero ? text.mid(1) : text;
}

/// A text that two values have in common when they mean the same; null for what isn't set.
QString MeaningOf(const IRGObject& parent, const Field& field)
{
    const QVariant value = field.ValueIn(parent);
    if (!value.isValid())
        return QString();
    if (field.Kind() == FieldKind::Number)
        return NumberAsWritten(value.toDouble(), field.Facts().decimals);
    return QLatin1String("") + value.toString();
}

bool IsCompared(const Field& field)
{
    return field.Kind() != FieldKind::Version;
}

/// The same for all that an object holds.
void AppendMeaning(const IRGObject& object, const ObjectInfo& info, QString& meaning)
{
    for (const auto& field : info.All()) {
        if (!IsCompared(*field))
            continue;
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i)
            AppendMeaning(field->ItemIn(object, i), field->Object(), meaning);
        const QString value = field->HasObjects() ? QString::number(count) : MeaningOf(object, *field);
        // The size in front keeps texts apart that hold such marks themselves.
        meaning +=
            (value.isNull() ? QStringLiteral("-") : QString::number(value.size())) + QLatin1Char(':') + value;
    }
}

using Numbers = QHash<QString, int>;

/// A number for each item, the same for items that mean the same.
std::vector<int> NumbersOf(const IRGObject& parent, const Field& list, Numbers& numbers)
{
    std::vector<int> sequence;
    const int count = list.CountIn(parent);
    for (int i = 0; i < count; ++i) {
        QString meaning;
        AppendMeaning(list.ItemIn(parent, i), list.Object(), meaning);
        const auto found = numbers.constFind(meaning);
        if (found != numbers.constEnd()) {
            sequence.push_back(*found);
            continue;
        }
        sequence.push_back(static_cast<int>(numbers.size()));
        numbers.insert(meaning, sequence.back());
    }
    return sequence;
}

class Comparison
{
public:
    Differences Take() { return std::move(m_differences); }

    void Compare(const IRGObject& left, const IRGObject& right, const ObjectInfo& info)
    {
        for (const Field* field : info.InReadingOrder()) {
            if (!IsCompared(*field))
                continue;
            m_left.Enter(*field);
            m_right.Enter(*field);
            if (field->Kind() == FieldKind::List)
                CompareLists(left, right, *field);
            else if (field->Kind() == FieldKind::Object)
                CompareMembers(left, right, *field);
            else
                CompareValues(left, right, *field);
            m_left.Leave();
            m_right.Leave();
        }
    }

private:
    void Add(Change change, const QString& leftText, const QJsonValue& leftJson, const QString& rightText,
             const QJsonValue& rightJson)
    {
        m_differences.push_back({change, change == Change::Added ? FieldPath() : m_left,
                                 change == Change::Removed ? FieldPath() : m_right, leftText, rightText,
                                 leftJson, rightJson});
    }

    void CompareValues(const IRGObject& left, const IRGObject& right, const Field& field)
    {
        const bool isInLeft = field.IsSetIn(left);
        const bool isInRight = field.IsSetIn(right);
        if (isInLeft == isInRight && MeaningOf(left, field) == MeaningOf(right, field))
            return;
        const Change change = !isInLeft ? Change::Added : isInRight ? Change::Changed : Change::Removed;
        const QVariant leftValue = field.ValueIn(left);
        const QVariant rightValue = field.ValueIn(right);
        Add(change, ValueText(leftValue), ValueToJson(leftValue), ValueText(rightValue),
            ValueToJson(rightValue));
    }

    void CompareMembers(const IRGObject& left, const IRGObject& right, const Field& field)
    {
        const bool isInLeft = field.IsSetIn(left);
        const bool isInRight = field.IsSetIn(right);
        if (!isInLeft && !isInRight)
            return;
        const auto sizeBefore = m_differences.size();
        // Of the side without one a new object stands for it, in which nothing is set.
        Compare(*field.CopyOf(left, 0), *field.CopyOf(right, 0), field.Object());
        if (isInLeft != isInRight && m_differences.size() == sizeBefore)
            Add(isInLeft ? Change::Removed : Change::Added, Empty(isInLeft), QJsonValue(), Empty(isInRight),
                QJsonValue());
    }

    static QString Empty(bool isThere) { return isThere ? QStringLiteral("empty") : QString(); }

    void CompareLists(const IRGObject& left, const IRGObject& right, const Field& list)
    {
        Numbers numbers;
        const std::vector<int> leftNumbers = NumbersOf(left, list, numbers);
        const std::vector<int> rightNumbers = NumbersOf(right, list, numbers);
        int leftNext = 0;
        int rightNext = 0;
        std::vector<CommonRun> runs = FindCommonRuns(leftNumbers, rightNumbers);
        runs.push_back({static_cast<int>(leftNumbers.size()), static_cast<int>(rightNumbers.size()), 0});
        for (const CommonRun& run : runs) {
            CompareItems(left, right, list, {leftNext, rightNext, 0}, run);
            leftNext = run.left + run.size;
            rightNext = run.right + run.size;
        }
    }

    /// The items from `begin` up to `end`, none of which are equal: as many as both have count as changed.
    void CompareItems(const IRGObject& left, const IRGObject& right, const Field& list,
                      const CommonRun& begin, const CommonRun& end)
    {
        const int changed = std::min(end.left - begin.left, end.right - begin.right);
        for (int i = 0; i < changed; ++i) {
            m_left.SetIndex(begin.left + i);
            m_right.SetIndex(begin.right + i);
            Compare(list.ItemIn(left, begin.left + i), list.ItemIn(right, begin.right + i), list.Object());
        }
        for (int i = begin.left + changed; i < end.left; ++i) {
            m_left.SetIndex(i);
            const IRGObject& item = list.ItemIn(left, i);
            Add(Change::Removed, ItemText(item, list.Object()), FieldsToJson(item, list.Object()), QString(),
                QJsonValue());
        }
        for (int i = begin.right + changed; i < end.right; ++i) {
            m_right.SetIndex(i);
            const IRGObject& item = list.ItemIn(right, i);
            Add(Change::Added, QString(), QJsonValue(), ItemText(item, list.Object()),
                FieldsToJson(item, list.Object()));
        }
    }

    FieldPath m_left;
    FieldPath m_right;
    Differences m_differences;
};

/// The path by which it is named.
const FieldPath& PathOf(const Difference& difference)
{
    return difference.change == Change::Added ? difference.right : difference.left;
}

/// "- area.coordinate[3]"
QString PathLine(const Difference& difference)
{
    const QString path = PathOf(difference).Text();
    switch (difference.change) {
    case Change::Removed:
        return QStringLiteral("- ") + path;
    case Change::Added:
        return QStringLiteral("+ ") + path;
    case Change::Changed:
        break;
    }
    return QStringLiteral("! ") + path;
}

/// Whether they are items that stand behind each other in a list, and both come or both go.
bool AreNeighbours(const Difference& left, const Difference& right)
{
    const FieldPath& before = PathOf(left);
    const FieldPath& behind = PathOf(right);
    return left.change != Change::Changed && left.change == right.change && before.IsItem() &&
           behind.IsItem() && before.Parent() == behind.Parent() &&
           before.Last().field == behind.Last().field && before.Last().index + 1 == behind.Last().index;
}

} // namespace

Differences FindDifferences(const IRGObject& left, const IRGObject& right, const ObjectInfo& info)
{
    Comparison comparison;
    comparison.Compare(left, right, info);
    return comparison.Take();
}

QString DifferenceLine(const Difference& difference)
{
    const QString begin = PathLine(difference) + QLatin1String(": ");
    switch (difference.change) {
    case Change::Removed:
        return begin + difference.leftText;
    case Change::Added:
        return begin + difference.rightText;
    case Change::Changed:
        break;
    }
    return begin + difference.leftText + QLatin1String(" -> ") + difference.rightText;
}

QStringList DifferenceLines(const Differences& differences)
{
    QStringList lines;
    for (auto first = differences.begin(); first != differences.end();) {
        auto last = first;
        while (last + 1 != differences.end() && AreNeighbours(*last, *(last + 1)))
            ++last;
        lines << (first == last ? DifferenceLine(*first)
                                : PathLine(*first) + QLatin1String(" to ") + PathOf(*last).Text());
        first = last + 1;
    }
    return lines;
}

} // namespace ReportCore
