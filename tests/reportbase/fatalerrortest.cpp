// Operations that cannot go on report a fatal error and end there, whatever the logger does with the report.

#include "support/expect.h"
#include "support/plainobject.h"
#include "support/readererror.h"

#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/logger.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Logger;
using REPORTGENERATOR::LogLevel;
using Support::NewLogger;
using Support::PlainObject;
using Support::Text;

/// Notes the reports, then does something.
class ActingLogger : public Logger
{
public:
    ActingLogger(QStringList& reports, std::function<void()> act)
        : Logger(REPORTGENERATOR::INFO), m_reports(reports), m_act(std::move(act))
    {
    }

    using Logger::Trace;

    void Trace(LogLevel level, const QString& text, bool fatal) override
    {
        // Progress is not what these tests are about.
        if (level != REPORTGENERATOR::ERROR)
            return;
        m_reports.append((fatal ? Text("fatal ") : QString()) + text);
        const std::function<void()> act = m_act;
        act();
    }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    QStringList& m_reports;
    std::function<void()> m_act;
};

/// An operation that cannot go on.
struct Failure
{
    const char* name;
    QString text;
    std::function<std::unique_ptr<IRGObject>()> newObject;
    std::function<void(IRGObject&)> run;
};

std::unique_ptr<IRGObject> NewPlainObject()
{
    return std::make_unique<PlainObject>();
}

std::unique_ptr<IRGObject> NewCoordinate()
{
    return std::make_unique<Coordinate>();
}

void ReadFourBytesOfNone(IRGObject& object)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::ReadOnly);
    object.SetBinary(stream, 4);
}

void WriteBinary(IRGObject& object)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    object.GetBinary(stream, 1, true);
}

/// Reads on from the start tag.
void ReadMalformedChildren(IRGObject& object)
{
    QXmlStreamReader reader(Text("<AnyType><"));
    reader.readNextStartElement();
    object.ProcessXml(reader);
}

std::vector<Failure> Failures()
{
    return {
        {"RGException", Text("GetBinary is not implemented for object of type 80."), NewPlainObject,
         WriteBinary},
        {"RGException", Text("SetBinary is not implemented for object of type 80."), NewPlainObject,
         ReadFourBytesOfNone},
        {"RGException", Text("Unsuitable XML for AnyType!"), NewPlainObject,
         [](IRGObject& object) { object.SetXmlString(Text("<Other><AnyType/></Other>"), true); }},
        {"RGException", Support::ReaderError(Text("<Other><AnyType>")), NewPlainObject,
         [](IRGObject& object) { object.SetXmlString(Text("<Other><AnyType>"), false); }},
        {"RGException", Support::ReaderError(Text("</><AnyType>")), NewPlainObject,
         [](IRGObject& object) { object.SetXmlString(Text("</><AnyType>"), true); }},
        {"RGException", Support::ReaderError(Text("<AnyType><")), NewPlainObject, ReadMalformedChildren},
        {"BinaryParsingException",
         Text("Coordinate::SetBinary(...): Length error occurred during processing of binary representation"),
         NewCoordinate, ReadFourBytesOfNone},
        {"OutOfRangeException",
         Text("Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'."),
         NewCoordinate, [](IRGObject& object) { dynamic_cast<Coordinate&>(object).SetLongitude(200.0); }},
    };
}

/// Each failure with a logger that does something to the object when it gets the report.
void ExpectThrownWhateverTheLoggerDoes(const std::function<void(IRGObject&)>& act)
{
    for (const Failure& failure : Failures()) {
        SCOPED_TRACE(failure.text.toStdString());
        QStringList reports;
        const std::unique_ptr<IRGObject> object = failure.newObject();
        object->SetLogger(std::make_shared<ActingLogger>(reports, [&] { act(*object); }));
        EXPECT_RG_THROW(failure.run(*object), failure.name, failure.text);
        EXPECT_EQ(reports, QStringList(Text("fatal ") + Text(failure.name) + Text(": ") + failure.text));
    }
}

} // namespace

TEST(FatalError, IsThrownWithoutALogger)
{
    for (const Failure& failure : Failures()) {
        SCOPED_TRACE(failure.text.toStdString());
        const std::unique_ptr<IRGObject> object = failure.newObject();
        EXPECT_RG_THROW(failure.run(*object), failure.name, failure.text);
    }
}

TEST(FatalError, IsReportedAndThrown)
{
    ExpectThrownWhateverTheLoggerDoes([](IRGObject&) {});
}

TEST(FatalError, IsThrownAlsoWhenTheLoggerTakesItselfAway)
{
    ExpectThrownWhateverTheLoggerDoes([](IRGObject& object) { object.ResetLogger(); });
}

TEST(FatalError, IsThrownAlsoWhenTheLoggerTurnsValidationOff)
{
    ExpectThrownWhateverTheLoggerDoes([](IRGObject& object) { object.SetValidate(false); });
}

TEST(FatalError, IsReportedToTheFirstLoggerOnly)
{
    const auto second = NewLogger();
    ExpectThrownWhateverTheLoggerDoes([&](IRGObject& object) { object.SetLogger(second); });
    EXPECT_LOG(second, {});
}

TEST(FatalError, GivesWayToWhatTheLoggerThrows)
{
    for (const Failure& failure : Failures()) {
        SCOPED_TRACE(failure.text.toStdString());
        QStringList reports;
        const std::unique_ptr<IRGObject> object = failure.newObject();
        object->SetLogger(
            std::make_shared<ActingLogger>(reports, [] { throw std::runtime_error("the disk is full"); }));
        EXPECT_THROW(failure.run(*object), std::runtime_error);
        EXPECT_EQ(reports.size(), 1);
    }
}
