#include <reportcore/linting/linting.h>

#include <cmath>

namespace ReportCore {

bool IsFiniteNumber(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number);
}

Problem NoNumber(const FilePlace& place, const FieldPath& path, const QString& text)
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    const QString words = isNumber ? QStringLiteral("%1 is no finite number")
                                   : QStringLiteral("%1 is no number and reads as 0");
    return {QLatin1String(NOT_A_NUMBER), words.arg(path.Last().field->Name()), place, path.Text(),
            QLatin1String("") + text};
}

} // namespace ReportCore
