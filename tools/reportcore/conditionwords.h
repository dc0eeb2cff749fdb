#ifndef REPORTCORE_CONDITIONWORDS_H
#define REPORTCORE_CONDITIONWORDS_H

#include <QtCore/QString>

namespace ReportCore {

enum class WordKind
{
    End,
    Name,   ///< path, keyword or number
    String, ///< in quotes
    Sign
};

struct Word
{
    WordKind kind = WordKind::End;
    QString text; ///< of a string without quotes
    int column = 1;
};

/// Cuts the text of a condition into words. Throws `ConditionError`.
class Words
{
public:
    explicit Words(const QString& text) : m_text(text) { Advance(); }

    const Word& Next() const { return m_next; }
    Word Take();
    bool TakeIf(WordKind kind, const char* text);

    /// Something else than the next word; throws `ConditionError`.
    [[noreturn]] void Expected(const char* what) const;

private:
    QChar At(int position) const;
    void Advance();
    bool IsRangeSign() const;
    void TakeString(QChar quote);
    void TakeName();
    void TakeSign();

    const QString m_text;
    int m_position = 0;
    Word m_next;
};

} // namespace ReportCore

#endif
