#ifndef TESTS_SUPPORT_EXPECT_H
#define TESTS_SUPPORT_EXPECT_H

// The assertions that most tests are written with.
//
//     EXPECT_XML(frequency, "\n<Frequency>1.00</Frequency>");      what GetXmlString() gives; UTF-8 or a
//     QString EXPECT_TEXT(area.GetName(), "Zürich");                       a QString with a UTF-8 literal or
//     a QString auto logger = NewLogger();                                   a ListLogger(INFO)
//     EXPECT_LOG(logger, {"INFO: Frequency: Generating xml string."});
//     EXPECT_LOG(logger, {});                                      nothing logged
//     EXPECT_RG_THROW(frequency.Check(), "OutOfRangeException", "Frequency: Please set Value properly.");
//     EXPECT_NO_RG_THROW(frequency.Check());
//     EXPECT_ERROR(exception, "RGException", "text");              name and text of an exception at hand
//
// EXPECT_TEXT compares the characters only: a null string equals an empty one. Where the difference counts,
// test isNull() as well.
//
// EXPECT_LOG compares all lines of the logger, without the time stamp in front of each ("dd.MM.yyyy
// hh:mm:ss.zzz - "), whose shape it checks. It does not empty the logger: use logger->Reset(true).
//
// EXPECT_RG_THROW asks for an exception whose class is RGException and no other: the library throws every
// error as a plain RGException, the derived classes only give it their name. A statement that holds a comma
// outside of parentheses doesn't fit into the macro; put parentheses around it or make it a lambda first.
//
// The library's exceptions are no std::exception. A statement that may throw belongs into one of the macros,
// because GoogleTest shows an escaped one without its text.

#include "support/printers.h"

#include <reportgenerator/reportbase/listlogger.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <initializer_list>
#include <memory>
#include <type_traits>

class ReportException;

namespace REPORTGENERATOR {
class IRGObject;
}

namespace Support {

/// The text of a UTF-8 literal. A literal may hold NUL bytes only at its end.
QString Text(const char* utf8);
inline QString Text(const QString& text)
{
    return text;
}

std::shared_ptr<REPORTGENERATOR::ListLogger>
NewLogger(REPORTGENERATOR::LogLevel level = REPORTGENERATOR::INFO);

QStringList Lines(std::initializer_list<const char*> lines);
template <typename List, std::enable_if_t<std::is_convertible_v<List, QStringList>, int> = 0>
QStringList Lines(const List& lines)
{
    return lines;
}

::testing::AssertionResult SameText(const char* actualExpression, const char* expectedExpression,
                                    const QString& actual, const QString& expected);

::testing::AssertionResult XmlIs(const char* objectExpression, const char* expectedExpression,
                                 const REPORTGENERATOR::IRGObject& object, const QString& expected);

::testing::AssertionResult LogIs(const char* loggerExpression, const char* expectedExpression,
                                 REPORTGENERATOR::ListLogger& logger, const QStringList& expected);
::testing::AssertionResult LogIs(const char* loggerExpression, const char* expectedExpression,
                                 const std::shared_ptr<REPORTGENERATOR::ListLogger>& logger,
                                 const QStringList& expected);

/// The logger's lines without their time stamps. A line without a well-formed time stamp comes back as it is,
/// with "(no time stamp) " in front.
QStringList LinesWithoutTime(REPORTGENERATOR::ListLogger& logger);

::testing::AssertionResult ErrorIs(const char* exceptionExpression, const char* nameExpression,
                                   const char* textExpression, const ReportException& exception,
                                   const QString& name, const QString& text);

::testing::AssertionResult ThrowsRg(const char* statement, const char* nameExpression,
                                    const char* textExpression, const std::function<void()>& run,
                                    const QString& name, const QString& text);

::testing::AssertionResult ThrowsNoRg(const char* statement, const std::function<void()>& run);

} // namespace Support

#define EXPECT_TEXT(actual, expected)                                                                        \
    EXPECT_PRED_FORMAT2(::Support::SameText, ::Support::Text(actual), ::Support::Text(expected))

#define EXPECT_XML(object, expected) EXPECT_PRED_FORMAT2(::Support::XmlIs, object, ::Support::Text(expected))

#define EXPECT_LOG(logger, ...) EXPECT_PRED_FORMAT2(::Support::LogIs, logger, ::Support::Lines(__VA_ARGS__))

#define EXPECT_ERROR(exception, errorName, errorText)                                                        \
    EXPECT_PRED_FORMAT3(::Support::ErrorIs, exception, ::Support::Text(errorName), ::Support::Text(errorText))

#define EXPECT_RG_THROW(statement, errorName, errorText)                                                     \
    EXPECT_PRED_FORMAT3(                                                                                     \
        ::Support::ThrowsRg, [&] { statement; }, ::Support::Text(errorName), ::Support::Text(errorText))

#define EXPECT_NO_RG_THROW(statement) EXPECT_PRED_FORMAT1(::Support::ThrowsNoRg, [&] { statement; })

#endif
