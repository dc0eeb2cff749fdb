#ifndef REPORTCORE_DIFFERENCES_H
#define REPORTCORE_DIFFERENCES_H

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QJsonValue>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace ReportCore {

/// How a field of one object differs from that of another.
enum class Change
{
    Changed,
    Removed, ///< only the left one has it
    Added    ///< only the right one has it
};

/// A value, an item of a list or a member object in which two objects differ.
struct Difference
{
    Change change = Change::Changed;

    // Where it stands in each; empty where it doesn't. An item may have another number on either side.

    FieldPath left = {};
    FieldPath right = {};

    // For people; of a member object in which nothing is set "empty".

    QString leftText = {};
    QString rightText = {};

    // For programs; null where there is none.

    QJsonValue leftJson = {};
    QJsonValue rightJson = {};
};

using Differences = std::vector<Difference>;

/// What differs by meaning in two objects of the class, in reading order: numbers count as they are written, with so many
/// decimals as the form has, and zero has no sign; it doesn't matter whether an empty text is null, nor which version of
/// the format was read. Lists are matched as sequences: an item that one of them has more is one difference.
Differences FindDifferences(const REPORTGENERATOR::IRGObject& left, const REPORTGENERATOR::IRGObject& right,
                            const ObjectInfo& info);

/// "! frequency.value: 121500000 -> 118000000", "- area.coordinate[3]: 8.5 47.25", "+ frequency.use: true".
QString DifferenceLine(const Difference& difference);

/// The same of all; items that come or go one behind the other are one line: "+ area.coordinate[1] to area.coordinate[4]".
QStringList DifferenceLines(const Differences& differences);

} // namespace ReportCore

#endif
