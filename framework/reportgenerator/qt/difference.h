#ifndef REPORTGENERATOR_QT_DIFFERENCE_H
#define REPORTGENERATOR_QT_DIFFERENCE_H

#include <reportgenerator/qt/optional.h>
#include <reportgenerator/qt/totext.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>

// Where two objects differ, for messages of tests. What QCOMPARE shows of two areas of a thousand points doesn't tell
// the point in which they differ; this does:
//
//     QVERIFY2(read == report, qPrintable(Difference(read, report)));
//     EXPECT_TRUE(read == report) << Difference(read, report).toStdString();
//
// A difference is a line: a path as `reporttool` has it, the left side, and the right side, as in
// "area.coordinate[500]: (9.5, 47.5) and (9.5, 47.6)". Coordinates count from 1.

namespace REPORTGENERATOR {

namespace detail {

/// Of more coordinates than these the number is told.
constexpr int SHOWN_DIFFERENCES = 5;

inline QString DifferenceLine(const QString& path, const QString& left, const QString& right)
{
    return path + QStringLiteral(": ") + left + QStringLiteral(" and ") + right;
}

inline QString TextOrUnset(bool isSet, const QString& text)
{
    return isSet ? text : QStringLiteral("not set");
}

/// Of a field of two areas, behind the path of these.
inline void AddDifference(QStringList& lines, const QString& path, const Area& left, const Area& right,
                          const Field<Area, QString>& field)
{
    const bool isLeftSet = field.IsSetIn(left);
    const bool isRightSet = field.IsSetIn(right);
    if (isLeftSet != isRightSet || (isLeftSet && field.In(left) != field.In(right)))
        lines.append(DifferenceLine(path + QLatin1String(field.path),
                                    TextOrUnset(isLeftSet, QuotedText(field.In(left))),
                                    TextOrUnset(isRightSet, QuotedText(field.In(right)))));
}

inline void AddDifference(QStringList& lines, const QString& path, const Area& leftArea,
                          const Area& rightArea, const PointsField& /*field*/)
{
    const QVector<Coordinate>& left = leftArea.GetCoordinate();
    const QVector<Coordinate>& right = rightArea.GetCoordinate();
    const int leftCount = static_cast<int>(left.size());
    const int rightCount = static_cast<int>(right.size());
    if (leftCount != rightCount)
        lines.append(DifferenceLine(path + QStringLiteral("coordinates"), QString::number(leftCount),
                                    QString::number(rightCount)));
    int found = 0;
    for (int i = 0; i < std::min(leftCount, rightCount); ++i) {
        if (left.at(i) == right.at(i))
            continue;
        if (++found <= SHOWN_DIFFERENCES)
            lines.append(DifferenceLine(path + QStringLiteral("coordinate[%1]").arg(i + 1),
                                        ItemText(left.at(i)), ItemText(right.at(i))));
    }
    if (found > SHOWN_DIFFERENCES)
        lines.append(QStringLiteral("%1coordinate: %2 more").arg(path).arg(found - SHOWN_DIFFERENCES));
}

inline QStringList DifferencesOf(const Area& left, const Area& right, const QString& path)
{
    QStringList lines;
    ForEachField(left, [&](const auto& field) { AddDifference(lines, path, left, right, field); });
    // The comparison asks, of the right side, whether the coordinates that are there are set.
    if (lines.isEmpty() && left != right)
        lines.append(DifferenceLine(path + QStringLiteral("coordinates"), ToText(left), ToText(right)));
    return lines;
}

template <class Member>
void AddMemberDifference(QStringList& lines, const char* path, bool isLeftSet, const Member& left,
                         bool isRightSet, const Member& right)
{
    if (isLeftSet != isRightSet || (isLeftSet && left != right))
        lines.append(DifferenceLine(QLatin1String(path), TextOrUnset(isLeftSet, ToText(left)),
                                    TextOrUnset(isRightSet, ToText(right))));
}

} // namespace detail

/// What the objects are, in a line; empty when they are equal.
template <class Object>
QString Difference(const Object& left, const Object& right)
{
    return left == right ? QString() : ToText(left) + QStringLiteral(" and ") + ToText(right);
}

/// The fields and coordinates that differ, a line each, but no more than five coordinates; empty when the areas are
/// equal.
inline QString Difference(const Area& left, const Area& right)
{
    return left == right ? QString() : detail::DifferencesOf(left, right, QString()).join(QLatin1Char('\n'));
}

/// The members that differ, and of areas that both carry what differs in these; empty when the reports are equal.
inline QString Difference(const ReportBase& left, const ReportBase& right)
{
    QStringList lines;
    detail::AddMemberDifference(lines, "frequency", left.IsFrequencySet(), left.GetFrequency(),
                                right.IsFrequencySet(), right.GetFrequency());
    detail::AddMemberDifference(lines, "ifBandwidth", left.IsIFBandwidthSet(), left.GetIFBandwidth(),
                                right.IsIFBandwidthSet(), right.GetIFBandwidth());
    if (!left.IsAreaSet() || !right.IsAreaSet())
        detail::AddMemberDifference(lines, "area", left.IsAreaSet(), left.GetArea(), right.IsAreaSet(),
                                    right.GetArea());
    else if (left.GetArea() != right.GetArea())
        lines += detail::DifferencesOf(left.GetArea(), right.GetArea(), QStringLiteral("area."));
    return lines.join(QLatin1Char('\n'));
}

} // namespace REPORTGENERATOR

#endif
