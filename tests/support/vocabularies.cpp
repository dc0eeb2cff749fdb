#include "support/vocabularies.h"

#include <QtCore/QChar>
#include <QtCore/QLatin1Char>

#include <limits>

namespace Support {

std::vector<int> NumbersAround(const std::vector<int>& others)
{
    using Limits = std::numeric_limits<int>;
    std::vector<int> numbers = {
        Limits::min(), Limits::min() + 1, Limits::max(), Limits::max() - 1, -65536, -256, 64, 256, 65536};
    numbers.insert(numbers.end(), others.begin(), others.end());
    for (int number = -2; number <= 60; ++number)
        numbers.push_back(number);
    return numbers;
}

std::vector<QString> NearMisses(const QString& name)
{
    const QChar blank = QLatin1Char(' ');
    return {name.toLower(), name.toUpper(),  blank + name,
            name + blank,   name.chopped(1), name + QChar(QChar::Null)};
}

} // namespace Support
