#include "support/expect.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QRegularExpressionMatch>

#include <algorithm>
#include <exception>
#include <string>
#include <typeinfo>

namespace Support {
namespace {

template <typename Value>
std::string Shown(const Value& value)
{
    return ::testing::PrintToString(value);
}

std::string Described(const ReportException& exception)
{
    return std::string(typeid(exception).name()) + " with name " + Shown(exception.GetErrorName()) +
           " and text " + Shown(exception.GetErrorText());
}

/// What `run` threw when it is none of the library's exceptions, which pass out; empty when it came back.
std::string ThrownByOthers(const std::function<void()>& run)
{
    try {
        run();
    } catch (const ReportException&) {
        throw;
    } catch (const std::exception& exception) {
        return std::string("a std::exception: ") + exception.what();
    } catch (...) {
        return "something that is no ReportException";
    }
    return {};
}

/// The statement that a macro has wrapped as "[&] { statement; }".
std::string Unwrapped(const char* lambda)
{
    const std::string text = lambda;
    const std::size_t begin = text.find('{');
    const std::size_t end = text.rfind(';');
    if (begin == std::string::npos || end == std::string::npos || end < begin + 2)
        return text;
    return text.substr(begin + 2, end - begin - 2);
}

std::string Indented(const QStringList& lines)
{
    std::string text = lines.isEmpty() ? "    (no lines)\n" : "";
    for (const QString& line : lines)
        text += "    " + line.toStdString() + "\n";
    return text;
}

} // namespace

QString Text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

std::shared_ptr<REPORTGENERATOR::ListLogger> NewLogger(REPORTGENERATOR::LogLevel level)
{
    return std::make_shared<REPORTGENERATOR::ListLogger>(level);
}

QStringList Lines(std::initializer_list<const char*> lines)
{
    QStringList list;
    for (const char* line : lines)
        list << Text(line);
    return list;
}

::testing::AssertionResult SameText(const char* actualExpression, const char* expectedExpression,
                                    const QString& actual, const QString& expected)
{
    if (actual == expected)
        return ::testing::AssertionSuccess();

    const auto difference = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    return ::testing::AssertionFailure()
           << actualExpression << " differs from " << expectedExpression << " from character "
           << (difference.first - actual.begin()) << " on\n  actual    " << Shown(actual) << "\n  expected  "
           << Shown(expected);
}

::testing::AssertionResult XmlIs(const char* objectExpression, const char* expectedExpression,
                                 const REPORTGENERATOR::IRGObject& object, const QString& expected)
{
    const std::string expression = std::string(objectExpression) + ".GetXmlString()";
    try {
        return SameText(expression.c_str(), expectedExpression, object.GetXmlString(), expected);
    } catch (const ReportException& exception) {
        return ::testing::AssertionFailure() << expression << " threw " << Described(exception);
    }
}

::testing::AssertionResult LogIs(const char* loggerExpression, const char*,
                                 REPORTGENERATOR::ListLogger& logger, const QStringList& expected)
{
    const QStringList actual = LinesWithoutTime(logger);
    if (actual == expected)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << loggerExpression << " holds other lines\n  actual\n"
                                         << Indented(actual) << "  expected\n"
                                         << Indented(expected);
}

::testing::AssertionResult LogIs(const char* loggerExpression, const char* expectedExpression,
                                 const std::shared_ptr<REPORTGENERATOR::ListLogger>& logger,
                                 const QStringList& expected)
{
    if (!logger)
        return ::testing::AssertionFailure() << loggerExpression << " is empty";
    return LogIs(loggerExpression, expectedExpression, *logger, expected);
}

QStringList LinesWithoutTime(REPORTGENERATOR::ListLogger& logger)
{
    static const QRegularExpression timeStamp(
        QStringLiteral("^(0[1-9]|[12][0-9]|3[01])\\.(0[1-9]|1[0-2])\\.[0-9]{4} "
                       "([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]\\.[0-9]{3} - "));

    QStringList lines;
    for (const QString& entry : logger.GetLogEntryList()) {
        const QRegularExpressionMatch match = timeStamp.match(entry);
        lines << (match.hasMatch() ? entry.mid(match.capturedLength())
                                   : QStringLiteral("(no time stamp) ") + entry);
    }
    return lines;
}

::testing::AssertionResult ErrorIs(const char* exceptionExpression, const char*, const char*,
                                   const ReportException& exception, const QString& name, const QString& text)
{
    if (exception.GetErrorName() == name && exception.GetErrorText() == text)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << exceptionExpression << " is " << Described(exception) << "\n  expected name " << Shown(name)
           << " and text " << Shown(text);
}

::testing::AssertionResult ThrowsRg(const char* statement, const char*, const char*,
                                    const std::function<void()>& run, const QString& name,
                                    const QString& text)
{
    std::string other;
    try {
        other = ThrownByOthers(run);
    } catch (const ReportException& exception) {
        if (typeid(exception) == typeid(RGException) && exception.GetErrorName() == name &&
            exception.GetErrorText() == text)
            return ::testing::AssertionSuccess();
        other = Described(exception);
    }
    return ::testing::AssertionFailure()
           << Unwrapped(statement) << "\n  threw     " << (other.empty() ? "nothing" : other)
           << "\n  expected  " << typeid(RGException).name() << " with name " << Shown(name) << " and text "
           << Shown(text);
}

::testing::AssertionResult ThrowsNoRg(const char* statement, const std::function<void()>& run)
{
    std::string thrown;
    try {
        thrown = ThrownByOthers(run);
    } catch (const ReportException& exception) {
        thrown = Described(exception);
    }
    if (thrown.empty())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << Unwrapped(statement) << "\n  threw " << thrown;
}

} // namespace Support
