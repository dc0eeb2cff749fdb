#include <reportcore/conditionwords.h>

#include <reportcore/condition.h>

#include <reportgenerator/reflection/texts.h>

namespace ReportCore {

namespace {

bool IsNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || QStringLiteral("._[]+-").contains(character);
}

} // namespace

Word Words::Take()
{
    Word word = m_next;
    Advance();
    return word;
}

bool Words::TakeIf(WordKind kind, const char* text)
{
    const bool isIt = m_next.kind == kind && m_next.text == QLatin1String(text);
    if (isIt)
        Advance();
    return isIt;
}

void Words::Expected(const char* what) const
{
    const QString found = m_next.kind == WordKind::End ? QStringLiteral("nothing follows")
                                                       : QStringLiteral("not %1").arg(Quoted(m_next.text));
    throw ConditionError{QStringLiteral("%1 is expected, %2").arg(QLatin1String(what), found), m_next.column};
}

QChar Words::At(int position) const
{
    return position < m_text.size() ? m_text.at(position) : QChar();
}

void Words::Advance()
{
    while (At(m_position).isSpace())
        ++m_position;
    m_next = {WordKind::End, QString(), m_position + 1};
    const QChar first = At(m_position);
    if (m_position >= m_text.size())
        return;
    if (first == QLatin1Char('"') || first == QLatin1Char('\''))
        TakeString(first);
    else if (IsNameCharacter(first) && !IsRangeSign())
        TakeName();
    else
        TakeSign();
}

bool Words::IsRangeSign() const
{
    return At(m_position) == QLatin1Char('.') && At(m_position + 1) == QLatin1Char('.');
}

/// A backslash takes the meaning from the quote or backslash behind it, and stays in front of anything else.
void Words::TakeString(QChar quote)
{
    m_next.kind = WordKind::String;
    for (++m_position; m_position < m_text.size(); ++m_position) {
        if (At(m_position) == quote) {
            ++m_position;
            return;
        }
        const bool isEscape = At(m_position) == QLatin1Char('\\') &&
                              (At(m_position + 1) == quote || At(m_position + 1) == QLatin1Char('\\'));
        if (isEscape)
            ++m_position;
        m_next.text += At(m_position);
    }
    throw ConditionError{QStringLiteral("the text that begins here has no end"), m_next.column};
}

void Words::TakeName()
{
    m_next.kind = WordKind::Name;
    while (m_position < m_text.size() && IsNameCharacter(At(m_position)) && !IsRangeSign())
        m_next.text += At(m_position++);
}

void Words::TakeSign()
{
    m_next.kind = WordKind::Sign;
    m_next.text = At(m_position++);
    const bool isPair = (m_next.text == QLatin1String(".") && At(m_position) == QLatin1Char('.')) ||
                        (QStringLiteral("!<>").contains(m_next.text) && At(m_position) == QLatin1Char('='));
    if (isPair)
        m_next.text += At(m_position++);
}

} // namespace ReportCore
