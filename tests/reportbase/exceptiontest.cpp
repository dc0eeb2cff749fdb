#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/conversionerrorexception.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/interfacenotsupportedexception.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTranslator>

#include <cstring>
#include <exception>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace {

using REPORTGENERATOR::Logger;
using REPORTGENERATOR::LogLevel;
using Support::NewLogger;
using Support::PlainObject;
using Support::Text;

template <typename ExceptionClass>
struct NameOf;

#define DEFINE_NAME_OF(ExceptionClass)                                                                       \
    template <>                                                                                              \
    struct NameOf<ExceptionClass>                                                                            \
    {                                                                                                        \
        static constexpr const char* NAME = #ExceptionClass;                                                 \
    }

DEFINE_NAME_OF(RGException);
DEFINE_NAME_OF(OutOfRangeException);
DEFINE_NAME_OF(InvalidXmlException);
DEFINE_NAME_OF(ConversionErrorException);
DEFINE_NAME_OF(IncompleteDefinitionException);
DEFINE_NAME_OF(InterfaceNotSupportedException);
DEFINE_NAME_OF(InterfaceAlreadyRegisteredException);
DEFINE_NAME_OF(BinaryParsingException);

#undef DEFINE_NAME_OF

/// Runs `statement` and hands what it throws to `look`.
template <typename Statement, typename Look>
void ExpectCaught(Statement statement, Look look)
{
    bool caught = false;
    try {
        statement();
    } catch (const ReportException& exception) {
        caught = true;
        look(exception);
    }
    EXPECT_TRUE(caught);
}

} // namespace

// --- The family --------------------------------------------------------------------------------------------

template <typename ExceptionClass>
class ExceptionFamily : public ::testing::Test
{
};

using ExceptionClasses =
    ::testing::Types<RGException, OutOfRangeException, InvalidXmlException, ConversionErrorException,
                     IncompleteDefinitionException, InterfaceNotSupportedException,
                     InterfaceAlreadyRegisteredException, BinaryParsingException>;
TYPED_TEST_SUITE(ExceptionFamily, ExceptionClasses);

TYPED_TEST(ExceptionFamily, StoresTextAndOwnClassName)
{
    const TypeParam exception(Text("Größe: 100 %1"));
    EXPECT_ERROR(exception, NameOf<TypeParam>::NAME, "Größe: 100 %1");
    const TypeParam withoutText{QString()};
    EXPECT_ERROR(withoutText, NameOf<TypeParam>::NAME, "");
}

TYPED_TEST(ExceptionFamily, DerivesFromRGExceptionAndNotFromTheStandardException)
{
    static_assert(std::is_base_of_v<ReportException, TypeParam>);
    static_assert(std::is_base_of_v<RGException, TypeParam>);
    static_assert(std::is_convertible_v<TypeParam*, RGException*>);
    static_assert(std::is_convertible_v<TypeParam*, ReportException*>);
    static_assert(!std::is_base_of_v<std::exception, TypeParam>);
    static_assert(std::has_virtual_destructor_v<TypeParam>);
    static_assert(sizeof(TypeParam) == sizeof(ReportException));
}

TYPED_TEST(ExceptionFamily, CanBeCopiedAndAssigned)
{
    static_assert(std::is_copy_constructible_v<TypeParam>);
    static_assert(std::is_copy_assignable_v<TypeParam>);
    const TypeParam original(Text("first"));
    const TypeParam copy(original);
    EXPECT_ERROR(copy, NameOf<TypeParam>::NAME, "first");

    TypeParam target(Text("second"));
    EXPECT_EQ(&(target = original), &target);
    EXPECT_ERROR(target, NameOf<TypeParam>::NAME, "first");
    const TypeParam& same = target;
    target = same;
    EXPECT_ERROR(target, NameOf<TypeParam>::NAME, "first");
}

TYPED_TEST(ExceptionFamily, KeepsItsNameWhenCopiedAsItsBase)
{
    const TypeParam original(Text("text"));
    const RGException sliced(original);
    EXPECT_ERROR(sliced, NameOf<TypeParam>::NAME, "text");
    EXPECT_TRUE(typeid(sliced) == typeid(RGException));

    RGException assigned(Text("other"));
    assigned = original;
    EXPECT_ERROR(assigned, NameOf<TypeParam>::NAME, "text");

    ReportException root;
    root = original;
    EXPECT_ERROR(root, NameOf<TypeParam>::NAME, "text");
}

TYPED_TEST(ExceptionFamily, CanBeThrownAndCaughtAsAnyOfItsBases)
{
    const auto throwIt = [] { throw TypeParam(Text("text")); };
    EXPECT_THROW(throwIt(), TypeParam);
    EXPECT_THROW(throwIt(), RGException);
    EXPECT_THROW(throwIt(), ReportException);
    ExpectCaught(throwIt, [](const ReportException& exception) {
        EXPECT_TRUE(typeid(exception) == typeid(TypeParam));
        EXPECT_ERROR(exception, NameOf<TypeParam>::NAME, "text");
    });
}

TYPED_TEST(ExceptionFamily, ArrivesAsAPlainRGExceptionWithItsName)
{
    for (const bool withLogger : {true, false}) {
        const PlainObject object;
        const auto logger = NewLogger();
        if (withLogger)
            object.SetLogger(logger);
        TypeParam exception(Text("text"));
        ExpectCaught([&] { object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, true); },
                     [](const ReportException& caught) {
                         EXPECT_TRUE(typeid(caught) == typeid(RGException));
                         EXPECT_ERROR(caught, NameOf<TypeParam>::NAME, "text");
                     });
        const QString line = Text("FATAL ERROR: ") + Text(NameOf<TypeParam>::NAME) + Text(": text");
        EXPECT_LOG(logger, withLogger ? QStringList(line) : QStringList());
        EXPECT_ERROR(exception, NameOf<TypeParam>::NAME, "text");
    }
}

TEST(ReportException, DefaultHasNameAndUnknownError)
{
    const ReportException exception;
    EXPECT_ERROR(exception, "ReportException", "unknown error");
    static_assert(!std::is_base_of_v<std::exception, ReportException>);
    static_assert(std::has_virtual_destructor_v<ReportException>);
    static_assert(!std::is_base_of_v<RGException, ReportException>);
}

TEST(ReportException, CanBeCopiedAssignedAndThrown)
{
    static_assert(std::is_copy_constructible_v<ReportException>);
    static_assert(std::is_copy_assignable_v<ReportException>);
    const ReportException original;
    const ReportException copy(original);
    EXPECT_ERROR(copy, "ReportException", "unknown error");
    ReportException target(RGException(Text("text")));
    EXPECT_ERROR(target, "RGException", "text");
    EXPECT_EQ(&(target = original), &target);
    EXPECT_ERROR(target, "ReportException", "unknown error");
    EXPECT_THROW(throw ReportException(), ReportException);
}

TEST(ReportException, GettersReferToTheObjectsOwnTexts)
{
    const ReportException exception;
    static_assert(std::is_same_v<decltype(exception.GetErrorText()), const QString&>);
    static_assert(std::is_same_v<decltype(exception.GetErrorName()), const QString&>);
    EXPECT_EQ(&exception.GetErrorText(), &exception.GetErrorText());
    EXPECT_EQ(&exception.GetErrorName(), &exception.GetErrorName());
}

// --- Translation -------------------------------------------------------------------------------------------

namespace {

/// Puts "de:" in front of everything that QObject::tr asks for.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        return std::strcmp(context, "QObject") == 0 ? Text("de:") + Text(sourceText) : QString();
    }

    bool isEmpty() const override { return false; }
};

/// An application whose texts are translated, as long as the test runs.
class TranslatedApplication
{
public:
    TranslatedApplication() : m_application(m_argumentCount, m_arguments)
    {
        EXPECT_TRUE(QCoreApplication::installTranslator(&m_translator));
    }
    ~TranslatedApplication() { QCoreApplication::removeTranslator(&m_translator); }

private:
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    int m_argumentCount = 1;
    QCoreApplication m_application;
    MarkingTranslator m_translator;
};

} // namespace

TYPED_TEST(ExceptionFamily, NameCanBeTranslatedAndTheTextStays)
{
    const TranslatedApplication application;
    const TypeParam exception(Text("text"));
    EXPECT_ERROR(exception, Text("de:") + Text(NameOf<TypeParam>::NAME), "text");
}

TEST(ReportException, NameAndDefaultTextCanBeTranslated)
{
    {
        const TranslatedApplication application;
        EXPECT_ERROR(ReportException(), "de:ReportException", "de:unknown error");
    }
    EXPECT_ERROR(ReportException(), "ReportException", "unknown error");
}

// --- Trace and TraceOrThrow --------------------------------------------------------------------------------

namespace {

/// Notes the calls of both slots, slot 0 without going on to slot 1.
class SlotLogger : public Logger
{
public:
    struct Call
    {
        int slot;
        LogLevel level;
        QString text;
        bool fatal;
        const ReportException* exception;
    };

    SlotLogger() : Logger(REPORTGENERATOR::ERROR) {}

    void Trace(LogLevel level, const ReportException& exception, bool fatal) override
    {
        calls.push_back({0, level, exception.GetErrorText(), fatal, &exception});
    }
    void Trace(LogLevel level, const QString& text, bool fatal) override
    {
        calls.push_back({1, level, text, fatal, nullptr});
    }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

    std::vector<Call> calls;
};

constexpr LogLevel LEVELS[] = {REPORTGENERATOR::ERROR, REPORTGENERATOR::WARNING, REPORTGENERATOR::INFO};

} // namespace

TEST(Trace, WithoutLoggerDropsTheMessage)
{
    const PlainObject object;
    for (const LogLevel level : LEVELS) {
        EXPECT_NO_RG_THROW(object.Trace(level, Text("text")));
        EXPECT_NO_RG_THROW(object.Trace(level, RGException(Text("text"))));
    }
}

TEST(Trace, SendsTextsToTheTextOperationAsNotFatal)
{
    const auto logger = std::make_shared<SlotLogger>();
    const PlainObject object;
    object.SetLogger(logger);
    for (const LogLevel level : LEVELS) {
        object.Trace(level, Text("text"));
        ASSERT_EQ(logger->calls.size(), 1u);
        EXPECT_EQ(logger->calls[0].slot, 1);
        EXPECT_EQ(logger->calls[0].level, level);
        EXPECT_TEXT(logger->calls[0].text, "text");
        EXPECT_FALSE(logger->calls[0].fatal);
        logger->calls.clear();
    }
}

TEST(Trace, SendsExceptionsToTheExceptionOperationAsNotFatal)
{
    const auto logger = std::make_shared<SlotLogger>();
    const PlainObject object;
    object.SetLogger(logger);
    const OutOfRangeException exception(Text("text"));
    for (const LogLevel level : LEVELS) {
        EXPECT_NO_RG_THROW(object.Trace(level, exception));
        ASSERT_EQ(logger->calls.size(), 1u);
        EXPECT_EQ(logger->calls[0].slot, 0);
        EXPECT_EQ(logger->calls[0].level, level);
        EXPECT_EQ(logger->calls[0].exception, &exception);
        EXPECT_FALSE(logger->calls[0].fatal);
        logger->calls.clear();
    }
}

TEST(Trace, AddsNothingToTheText)
{
    const auto logger = NewLogger();
    const PlainObject object;
    object.SetLogger(logger);
    object.Trace(REPORTGENERATOR::INFO, Text(": begins with a colon"));
    object.Trace(REPORTGENERATOR::WARNING, OutOfRangeException(Text("too far")));
    object.Trace(REPORTGENERATOR::ERROR, RGException(Text("wrong")));
    EXPECT_LOG(logger, {"INFO: : begins with a colon", "WARNING: OutOfRangeException: too far",
                        "ERROR: RGException: wrong"});
}

TEST(TraceOrThrow, LogsThenThrowsWhenFatalAndNeverAsksForTheOtherFlagWithALogger)
{
    struct Row
    {
        bool fatal;
        bool throwWithoutLogger;
        bool throws;
    };
    const Row rows[] = {{true, true, true}, {true, false, true}, {false, true, false}, {false, false, false}};
    for (const Row& row : rows) {
        for (const LogLevel level : LEVELS) {
            SCOPED_TRACE(::testing::Message()
                         << row.fatal << row.throwWithoutLogger << " at level " << level);
            const auto logger = std::make_shared<SlotLogger>();
            const PlainObject object;
            object.SetLogger(logger);
            BinaryParsingException exception(Text("text"));
            if (row.throws)
                EXPECT_RG_THROW(object.TraceOrThrow(level, exception, row.fatal, row.throwWithoutLogger),
                                "BinaryParsingException", "text");
            else
                EXPECT_NO_RG_THROW(object.TraceOrThrow(level, exception, row.fatal, row.throwWithoutLogger));
            ASSERT_EQ(logger->calls.size(), 1u);
            EXPECT_EQ(logger->calls[0].slot, 0);
            EXPECT_EQ(logger->calls[0].level, level);
            EXPECT_EQ(logger->calls[0].exception, &exception);
            EXPECT_EQ(logger->calls[0].fatal, row.fatal);
        }
    }
}

TEST(TraceOrThrow, WithoutLoggerThrowsOnlyWhenAskedTo)
{
    const PlainObject object;
    for (const LogLevel level : LEVELS) {
        for (const bool fatal : {true, false}) {
            OutOfRangeException exception(Text("text"));
            EXPECT_RG_THROW(object.TraceOrThrow(level, exception, fatal, true), "OutOfRangeException",
                            "text");
            EXPECT_NO_RG_THROW(object.TraceOrThrow(level, exception, fatal, false));
        }
    }
}

TEST(TraceOrThrow, WritesFatalInFrontOfTheLevelOnlyWhenItThrows)
{
    const auto logger = NewLogger();
    const PlainObject object;
    object.SetLogger(logger);
    RGException exception(Text("text"));
    EXPECT_NO_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, false, true));
    EXPECT_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, true), "RGException",
                    "text");
    EXPECT_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::WARNING, exception, true, false), "RGException",
                    "text");
    EXPECT_LOG(logger, {"ERROR: RGException: text", "FATAL ERROR: RGException: text",
                        "FATAL WARNING: RGException: text"});
    EXPECT_TRUE(logger->HasErrors());
}

TEST(TraceOrThrow, ThrowsAlsoWhenTheLoggerDropsTheMessage)
{
    const auto logger = NewLogger(REPORTGENERATOR::ERROR);
    const PlainObject object;
    object.SetLogger(logger);
    RGException exception(Text("text"));
    EXPECT_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::INFO, exception, true, false), "RGException",
                    "text");
    EXPECT_NO_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::INFO, exception, false, true));
    EXPECT_LOG(logger, {});
}

TEST(TraceOrThrow, DoesNotAskTheValidateFlag)
{
    const PlainObject object;
    object.SetValidate(false);
    RGException exception(Text("text"));
    EXPECT_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, true), "RGException",
                    "text");
}
