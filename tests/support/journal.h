#ifndef TESTS_SUPPORT_JOURNAL_H
#define TESTS_SUPPORT_JOURNAL_H

// What an operation did, in the order in which it did it: messages and calls in one list.
//
//     QStringList journal;
//     JournalObject object(journal);
//     object.SetLogger(std::make_shared<JournalLogger>(journal));
//     object.GetXmlString();
//     EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating xml string.", "Check", "GetXml"}));
//
// The journal must outlive object and logger.

#include "support/plainobject.h"

#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace Support {

/// Takes every message, without time.
class JournalLogger : public REPORTGENERATOR::Logger
{
public:
    explicit JournalLogger(QStringList& journal) : Logger(REPORTGENERATOR::INFO), m_journal(journal) {}

    using Logger::Trace;

    void Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool fatal) override
    {
        const char* names[] = {"ERROR: ", "WARNING: ", "INFO: "};
        m_journal << QLatin1String(fatal ? "FATAL " : "") + QLatin1String(names[level]) + text;
    }

    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    QStringList& m_journal;
};

/// A PlainObject that notes which of its operations are called.
class JournalObject : public PlainObject
{
public:
    explicit JournalObject(QStringList& journal) : m_journal(journal) {}

    using PlainObject::Check;

    void Reset() override
    {
        Note("Reset");
        PlainObject::Reset();
    }

    void Check() const override
    {
        Note("Check");
        PlainObject::Check();
    }

    void GetXml(QXmlStreamWriter& writer) const override
    {
        Note("GetXml");
        PlainObject::GetXml(writer);
    }

    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override
    {
        Note("GetBinary");
        return PlainObject::GetBinary(stream, tag, withTag);
    }

    void SetBinary(QDataStream& stream, int length) override
    {
        Note("SetBinary");
        PlainObject::SetBinary(stream, length);
    }

    void ProcessXmlStartElement(QXmlStreamReader& reader) override
    {
        Note("ProcessXmlStartElement");
        PlainObject::ProcessXmlStartElement(reader);
    }

private:
    void Note(const char* call) const { m_journal << QLatin1String(call); }

    QStringList& m_journal;
};

} // namespace Support

#endif
