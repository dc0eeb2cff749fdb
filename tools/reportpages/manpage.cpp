#include <reportpages/manpage.h>

#include <QtCore/QRegularExpression>

#include <utility>
#include <vector>

namespace ReportPages {

namespace {

constexpr char EXIT_CODES[] = "Exit codes";
constexpr char ENVIRONMENT[] = "Environment: ";

/// What Qt says of the argument that is the command itself.
constexpr char THIS_COMMAND[] = "This command.";

struct ListItem
{
    QString label;
    QString text;
};

using ListItems = std::vector<ListItem>;

/// A piece of help with a title, without it.
struct Section
{
    QString title;
    QStringList lines;
};

// --- Roff

/// The length of lines in the file; the reader's own breaks them anew.
constexpr int LINE_LENGTH = 80;

/// Text as it is to be seen: no character of it is a command.
QString Escaped(const QString& text)
{
    static const std::pair<const char*, const char*> REPLACEMENTS[] = {
        {"\\", "\\e"}, {"-", "\\-"}, {"'", "\\(aq"}, {"`", "\\(ga"}, {"^", "\\(ha"}, {"~", "\\(ti"}};
    QString escaped = text;
    for (const auto& [character, replacement] : REPLACEMENTS)
        escaped.replace(QLatin1String(character), QLatin1String(replacement));
    return escaped;
}

/// A line that begins with a dot would be a command.
QString Guarded(const QString& line)
{
    return line.startsWith(QLatin1Char('.')) ? QLatin1String("\\&") + line : line;
}

/// Text in lines.
QString Filled(const QString& text)
{
    QStringList lines;
    QString line;
    for (const QString& word : Escaped(text).split(QLatin1Char(' '))) {
        if (!line.isEmpty() && line.size() + 1 + word.size() > LINE_LENGTH) {
            lines << Guarded(line);
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    return (lines << Guarded(line)).join(QLatin1Char('\n'));
}

class Roff
{
public:
    void Title(const PageFacts& facts)
    {
        Line(QStringLiteral(".TH %1 1 \"\" \"%2\" \"User Commands\"")
                 .arg(Escaped(facts.name.toUpper()), Escaped(facts.source)));
        // Names of commands and options are not to be broken.
        Line(QStringLiteral(".nh\n.ad l"));
    }

    void Heading(const QString& title) { Line(QStringLiteral(".SH ") + title.toUpper()); }

    void Paragraph(const QString& text)
    {
        Line(QStringLiteral(".PP"));
        Line(Filled(text));
    }

    /// Behind a heading, which begins a paragraph by itself.
    void Text(const QString& text) { Line(Filled(text)); }

    void Item(const ListItem& item)
    {
        Line(QStringLiteral(".TP"));
        Line(LabelOf(item.label));
        Line(item.text.isEmpty() ? QStringLiteral("\\&") : Filled(item.text));
    }

    void Synopsis(const QString& usage)
    {
        const QString program = usage.section(QLatin1Char(' '), 0, 0);
        Line(QStringLiteral("\\fB%1\\fR%2").arg(Escaped(program), Escaped(usage.mid(program.size()))));
    }

    void SeeAlso(const QStringList& names)
    {
        QStringList pages;
        for (const QString& name : names)
            pages << QStringLiteral("\\fB%1\\fR(1)").arg(Escaped(name));
        Line(pages.join(QLatin1String(",\n")));
    }

    QByteArray Bytes() const { return m_text.toUtf8(); }

private:
    void Line(const QString& text) { m_text += text + QLatin1Char('\n'); }

    /// Bold, but for the names of values: --to <form>.
    static QString LabelOf(const QString& label)
    {
        QString text = Escaped(label);
        static const QRegularExpression VALUE(QStringLiteral("<([^>]*)>"));
        text.replace(VALUE, QStringLiteral("\\fR<\\fI\\1\\fR>\\fB"));
        return QStringLiteral("\\fB%1\\fR").arg(text);
    }

    QString m_text;
};

// --- Help

bool IsIndented(const QString& line)
{
    return line.startsWith(QLatin1String("  "));
}

/// Lines of two columns: what something is called, and what there is to say of it, in several lines too.
ListItems ItemsOf(const QStringList& lines)
{
    static const QRegularExpression COLUMNS(QStringLiteral("^(  \\S.*?\\s{2,})\\S"));
    int column = 0;
    for (const QString& line : lines) {
        const QRegularExpressionMatch match = COLUMNS.match(line);
        if (column == 0 && match.hasMatch())
            column = static_cast<int>(match.capturedLength(1));
    }
    ListItems items;
    for (const QString& line : lines) {
        const bool hasText = line.size() > column && line.at(column - 1).isSpace();
        const QString label = (hasText ? line.left(column) : line).trimmed();
        const QString text = hasText ? line.mid(column).trimmed() : QString();
        if (label.isEmpty() && !items.empty())
            items.back().text += QLatin1Char(' ') + text;
        else
            items.push_back({label, text});
    }
    return items;
}

/// The help behind "Usage:", taken apart at the titles that Qt writes; the first section is the description.
std::vector<Section> SectionsOf(const QStringList& lines)
{
    std::vector<Section> sections(1);
    for (const QString& line : lines) {
        const bool isTitle = line == QLatin1String("Options:") || line == QLatin1String("Arguments:") ||
                             line == QLatin1String("Examples:");
        if (isTitle)
            sections.push_back({line.chopped(1), {}});
        else
            sections.back().lines << line;
    }
    return sections;
}

std::vector<QStringList> ParagraphsOf(const QStringList& lines)
{
    std::vector<QStringList> paragraphs(1);
    for (const QString& line : lines) {
        if (!line.isEmpty())
            paragraphs.back() << line;
        else if (!paragraphs.back().isEmpty())
            paragraphs.emplace_back();
    }
    if (paragraphs.back().isEmpty())
        paragraphs.pop_back();
    return paragraphs;
}

// --- The description

void WriteExitCodes(const QString& text, Roff& roff)
{
    roff.Heading(QStringLiteral("Exit status"));
    static const QRegularExpression CODE(QStringLiteral("(?:^|, )([0-9]) "));
    const QString codes = text.section(QLatin1String(": "), 1);
    QRegularExpressionMatchIterator matches = CODE.globalMatch(codes);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const auto end = matches.hasNext() ? matches.peekNext().capturedStart() : codes.size();
        const QString meaning = codes.mid(match.capturedEnd(), end - match.capturedEnd());
        // What is said of all codes stands behind the last one.
        const QString first = meaning.section(QLatin1String(". "), 0, 0);
        roff.Item({match.captured(1), first.endsWith(QLatin1Char('.')) ? first.chopped(1) : first});
        if (first.size() < meaning.size())
            roff.Paragraph(meaning.mid(first.size() + 2));
    }
}

void WriteParagraph(const QStringList& lines, bool isFirst, Roff& roff)
{
    QStringList text;
    QStringList list;
    for (const QString& line : lines)
        (IsIndented(line) ? list : text) << line;
    const QString joined = text.join(QLatin1Char(' '));
    if (joined.startsWith(QLatin1String(EXIT_CODES))) {
        WriteExitCodes(joined, roff);
        return;
    }
    if (joined.startsWith(QLatin1String(ENVIRONMENT))) {
        roff.Heading(QStringLiteral("Environment"));
        roff.Text(joined.mid(static_cast<int>(sizeof(ENVIRONMENT)) - 1));
        return;
    }
    if (joined == QLatin1String("Forms:") || joined == QLatin1String("Formats:"))
        roff.Heading(joined.chopped(1));
    else if (isFirst)
        roff.Text(joined);
    else if (!joined.isEmpty())
        roff.Paragraph(joined);
    for (const ListItem& item : ItemsOf(list))
        roff.Item(item);
}

/// Paragraphs that become sections come behind the others.
void WriteDescription(const std::vector<QStringList>& paragraphs, Roff& roff)
{
    const auto isSection = [](const QStringList& lines) {
        for (const char* title : {EXIT_CODES, ENVIRONMENT, "Forms:", "Formats:"}) {
            if (lines.first().startsWith(QLatin1String(title)))
                return true;
        }
        return false;
    };
    roff.Heading(QStringLiteral("Description"));
    bool isFirst = true;
    for (const QStringList& lines : paragraphs) {
        if (isSection(lines))
            continue;
        WriteParagraph(lines, isFirst, roff);
        isFirst = false;
    }
    for (const QStringList& lines : paragraphs) {
        if (isSection(lines))
            WriteParagraph(lines, false, roff);
    }
}

// --- The other sections

ListItems ExamplesOf(const QStringList& lines)
{
    ListItems items;
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1String("      ")) && !items.empty())
            items.back().text = line.trimmed();
        else if (!line.isEmpty())
            items.push_back({line.trimmed(), {}});
    }
    return items;
}

void WriteList(const Section& section, Roff& roff)
{
    QStringList lines = section.lines;
    lines.removeAll(QString());
    const ListItems items = section.title == QLatin1String("Examples") ? ExamplesOf(lines) : ItemsOf(lines);
    roff.Heading(section.title);
    for (const ListItem& item : items) {
        if (item.text != QLatin1String(THIS_COMMAND))
            roff.Item(item);
    }
}

} // namespace

QByteArray ManPageOf(const PageFacts& facts, const QString& help)
{
    static const QRegularExpression USAGE(QStringLiteral("^Usage: (?:\\S*/)?(\\S+)"));
    QStringList lines = help.split(QLatin1Char('\n'));
    QString usage = lines.takeFirst();
    usage.replace(USAGE, QStringLiteral("\\1"));
    const std::vector<Section> sections = SectionsOf(lines);

    Roff roff;
    roff.Title(facts);
    roff.Heading(QStringLiteral("Name"));
    roff.Text(QStringLiteral("%1 - %2").arg(facts.name, facts.summary));
    roff.Heading(QStringLiteral("Synopsis"));
    roff.Synopsis(usage);
    WriteDescription(ParagraphsOf(sections.front().lines), roff);
    for (std::size_t i = 1; i < sections.size(); ++i)
        WriteList(sections[i], roff);
    if (!facts.seeAlso.isEmpty()) {
        roff.Heading(QStringLiteral("See also"));
        roff.SeeAlso(facts.seeAlso);
    }
    return roff.Bytes();
}

} // namespace ReportPages
