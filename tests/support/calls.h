#ifndef TESTS_SUPPORT_CALLS_H
#define TESTS_SUPPORT_CALLS_H

// Whom the library calls: loggers, devices and overrides that do something at their n-th call, whichever of
// them it is that is called then.
//
//     g_calls.Await(3, [&] { report = ReportBase(); });
//     report.SetLogger(std::make_shared<CallingLogger>());
//     report.Check(true);
//     EXPECT_TRUE(g_calls.HaveCome());

#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <memory>
#include <utility>

namespace Support {

class Calls
{
public:
    /// Has `deed` done at the call of this number, counted from 1.
    void Await(int number, std::function<void()> deed)
    {
        m_left = number;
        m_deed = std::move(deed);
    }

    /// Whether there have been so many. No deed is done any more.
    bool HaveCome()
    {
        m_deed = nullptr;
        return m_left <= 0;
    }

    void Note()
    {
        if (--m_left == 0 && m_deed)
            m_deed();
    }

private:
    int m_left = 0;
    std::function<void()> m_deed;
};

inline Calls g_calls;

class CallingLogger : public REPORTGENERATOR::Logger
{
public:
    CallingLogger() : Logger(REPORTGENERATOR::INFO) {}

    void Trace(REPORTGENERATOR::LogLevel, const ReportException&, bool) override { g_calls.Note(); }
    void Trace(REPORTGENERATOR::LogLevel, const QString&, bool) override { g_calls.Note(); }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}
};

/// A buffer or a file that calls for each piece of data and each change of its position.
template <class Device>
class Calling : public Device
{
public:
    using Device::Device;

    bool seek(qint64 position) override
    {
        g_calls.Note();
        return Device::seek(position);
    }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        g_calls.Note();
        return Device::readData(data, size);
    }
    qint64 writeData(const char* data, qint64 size) override
    {
        g_calls.Note();
        return Device::writeData(data, size);
    }
};

/// A class whose operations are called before they are what they were.
template <class T>
class Overridden : public T
{
public:
    Overridden() = default;
    explicit Overridden(const T& other) : T(other) {}

    bool HasData() const override
    {
        g_calls.Note();
        return T::HasData();
    }
    void Reset() override
    {
        g_calls.Note();
        T::Reset();
    }
    void Check(bool logOnly) const override
    {
        g_calls.Note();
        T::Check(logOnly);
    }
    void Check() const override
    {
        g_calls.Note();
        T::Check();
    }
    void GetXml(QXmlStreamWriter& writer) const override
    {
        g_calls.Note();
        T::GetXml(writer);
    }
    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override
    {
        g_calls.Note();
        return T::GetBinary(stream, tag, withTag);
    }
    void SetBinary(QDataStream& stream, int length) override
    {
        g_calls.Note();
        T::SetBinary(stream, length);
    }
    void ProcessXml(QXmlStreamReader& reader) override
    {
        g_calls.Note();
        T::ProcessXml(reader);
    }
    void SetValidate(bool validate) const override
    {
        g_calls.Note();
        T::SetValidate(validate);
    }
    bool GetValidate() const override
    {
        g_calls.Note();
        return T::GetValidate();
    }
    void SetLogger(std::shared_ptr<REPORTGENERATOR::Logger> logger) const override
    {
        g_calls.Note();
        T::SetLogger(std::move(logger));
    }
    const QString& GetObjectName() const override
    {
        g_calls.Note();
        return T::GetObjectName();
    }
    const QString& GetVersion() const override
    {
        g_calls.Note();
        return T::GetVersion();
    }

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override
    {
        g_calls.Note();
        T::ProcessXmlStartElement(reader);
    }
};

} // namespace Support

#endif
