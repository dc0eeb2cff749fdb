#ifndef TESTS_SUPPORT_TRANSCRIPT_H
#define TESTS_SUPPORT_TRANSCRIPT_H

// What can be seen of a run, line by line, so that two runs can be compared.
//
//     Transcript transcript;
//     transcript.Note("returned", object.SetXmlString(xml, false));
//     transcript.Note("name", area.GetName());             // null differs from empty, every code unit counts
//     transcript.Note("longitude", point.GetLongitude());  // every bit counts
//     std::string where = DifferenceOf(left, right);       // empty when they are the same
//
// What Qt prints while a `QtMessages` lives is noted too.

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtGlobal>

#include <string>

namespace Support {

class Transcript
{
public:
    void Note(const char* what, bool value);
    void Note(const char* what, int value) { Note(what, static_cast<qint64>(value)); }
    void Note(const char* what, qint64 value);
    void Note(const char* what, double value);
    void Note(const char* what, const char* value);
    void Note(const char* what, const QString& value);
    void Note(const char* what, const QByteArray& value);

    /// A line that tells what the next ones are about.
    void Heading(const char* what);

    const std::string& Text() const { return m_text; }

private:
    void Begin(const char* what);

    std::string m_text;
};

/// The first line in which the two differ, with some lines before it; empty when there is none.
std::string DifferenceOf(const std::string& left, const std::string& right);

/// While it lives, Qt's messages go into the transcript. One at a time.
class QtMessages
{
public:
    explicit QtMessages(Transcript& transcript);
    ~QtMessages();
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;

private:
    QtMessageHandler m_previous;
};

} // namespace Support

#endif
