#include <reportgenerator/reflection/nearname.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::Place;

namespace {

/// How many characters must be replaced, added, left out or exchanged with their neighbour, whatever their case.
int DistanceOf(const QString& left, const QString& right)
{
    const QString a = left.toLower();
    const QString b = right.toLower();
    const auto width = static_cast<std::size_t>(b.size()) + 1;
    std::vector<int> before(width);
    std::vector<int> last(width);
    std::vector<int> row(width);
    for (std::size_t j = 0; j < width; ++j)
        row[j] = static_cast<int>(j);
    for (int i = 0; i < a.size(); ++i) {
        before = last;
        last = row;
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const auto column = static_cast<std::size_t>(j) + 1;
            const int replaced = last[column - 1] + (a.at(i) == b.at(j) ? 0 : 1);
            row[column] = std::min({replaced, last[column] + 1, row[column - 1] + 1});
            const bool isExchange = i > 0 && j > 0 && a.at(i) == b.at(j - 1) && a.at(i - 1) == b.at(j);
            if (isExchange)
                row[column] = std::min(row[column], before[column - 2] + 1);
        }
    }
    return row.back();
}

} // namespace

/// A short name is near another one when one character differs, a longer one when two do.
bool IsNear(const QString& name, const QString& known)
{
    constexpr int SHORT_NAME = 4;
    const int farthest = known.size() <= SHORT_NAME ? 1 : 2;
    // Comparing takes the product of the sizes.
    const auto difference = name.size() - known.size();
    if (difference > farthest || difference < -farthest)
        return false;
    return DistanceOf(name, known) <= farthest;
}

QString NearestOf(const QStringList& known, const QString& name)
{
    QString nearest;
    int distance = 0;
    for (const QString& candidate : known) {
        if (!IsNear(name, candidate))
            continue;
        const int found = DistanceOf(name, candidate);
        if (nearest.isNull() || found < distance) {
            nearest = candidate;
            distance = found;
        }
    }
    return nearest;
}

QString Suggestion(const QStringList& known, const QString& name)
{
    const QString nearest = NearestOf(known, name);
    return nearest.isNull() ? QString() : QStringLiteral(", did you mean '%1'?").arg(nearest);
}

QString NearestName(const ObjectInfo& info, Place place, const QString& name)
{
    QStringList known;
    for (const auto& field : info.All()) {
        if (field->Facts().place == place)
            known << field->Facts().elementName;
    }
    return NearestOf(known, name);
}

} // namespace ReportCore
