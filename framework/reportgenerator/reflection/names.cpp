#include <reportgenerator/reflection/names.h>

#include <QtCore/QStringList>

#include <algorithm>
#include <iterator>

namespace ReportCore {

namespace {

/// A field whose bytes are called otherwise than by the rule.
struct WireLabel
{
    const char* name;
    const char* label;
};

constexpr WireLabel WIRE_LABELS[] = {{"ScriptID", "script identifier"}};

/// Whether a new word begins here: with a capital letter that follows a small one or stands in front of one.
bool BeginsWord(const QString& name, int index)
{
    if (index == 0 || !name.at(index).isUpper())
        return index == 0;
    const bool isBeforeSmall = index + 1 < name.size() && name.at(index + 1).isLower();
    return name.at(index - 1).isLower() || isBeforeSmall;
}

QStringList WordsOf(const QString& name)
{
    QStringList words;
    for (int i = 0; i < name.size(); ++i) {
        if (BeginsWord(name, i))
            words << QString();
        words.last() += name.at(i);
    }
    return words;
}

bool IsAbbreviation(const QString& word)
{
    return word.size() > 1 && word == word.toUpper();
}

} // namespace

QString KeyOf(const QString& name)
{
    QString key;
    for (const QString& word : WordsOf(name))
        key += key.isEmpty() ? word.toLower() : word.at(0) + word.mid(1).toLower();
    return key;
}

QString LabelOf(const QString& name)
{
    QStringList words = WordsOf(name);
    for (QString& word : words) {
        if (!IsAbbreviation(word))
            word = word.toLower();
    }
    return words.join(QLatin1Char(' '));
}

QString WireLabelOf(const QString& name)
{
    const auto* const found =
        std::find_if(std::begin(WIRE_LABELS), std::end(WIRE_LABELS),
                     [&name](const WireLabel& row) { return name == QLatin1String(row.name); });
    return found == std::end(WIRE_LABELS) ? LabelOf(name) : QString(QLatin1String(found->label));
}

QString PluralOf(const QString& name)
{
    return name + QLatin1Char('s');
}

} // namespace ReportCore
