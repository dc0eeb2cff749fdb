#ifndef TESTS_REPORTTOOL_TOOLRUN_H
#define TESTS_REPORTTOOL_TOOLRUN_H

// Runs the built programs as a user does, and keeps what they read and write in a folder of its own.
//
//     Scratch scratch;
//     const QString path = scratch.Write("report.xml", "<ReportBase/>");
//     const ToolRun run = RunTool({"check", path});
//     EXPECT_EQ(run.exitCode, 0);
//     EXPECT_TEXT(run.Output(), "");

#include "support/expect.h"

#include <QtCore/QByteArray>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <initializer_list>

namespace ToolTest {

/// A program's arguments: literals in UTF-8 and texts, mixed.
class Argument
{
public:
    Argument(const char* utf8) : m_text(QString::fromUtf8(utf8)) {} // NOLINT(google-explicit-constructor)
    Argument(const QString& text) : m_text(text) {}                 // NOLINT(google-explicit-constructor)

    const QString& Text() const { return m_text; }

private:
    QString m_text;
};

using Arguments = std::initializer_list<Argument>;

/// How a program ended, and what it wrote.
struct ToolRun
{
    int exitCode = -1; ///< -1 when it crashed or did not start
    QByteArray output;
    QByteArray errors;

    QString Output() const { return QString::fromUtf8(output); }
    QString Errors() const { return QString::fromUtf8(errors); }
};

/// Where and with what a program runs.
struct Surroundings
{
    QByteArray input = {};
    QString folder = {};
    QString locale = {};
};

/// In which the operating system gives its reasons in English.
inline Surroundings PlainLocale(const QByteArray& input = {}, const QString& folder = {})
{
    return {input, folder, QStringLiteral("C")};
}

ToolRun RunProgram(const QString& program, const QStringList& arguments, const Surroundings& surroundings);

#ifdef Q_OS_UNIX
/// What happens to a program that writes to a pipe whose reader has gone: its signal, or the error where it ignores that.
enum class BrokenPipe
{
    Signal,
    Error
};

/// The same with such a pipe for its output.
ToolRun RunOnBrokenPipe(const QString& program, const QStringList& arguments,
                        const Surroundings& surroundings, BrokenPipe outcome);
#endif

ToolRun RunTool(Arguments arguments, const Surroundings& surroundings = {});

/// A folder that vanishes with the object.
class Scratch
{
public:
    Scratch();

    QString Path(const char* name) const;
    QString Folder() const { return m_folder.path(); }

    /// Writes a file and returns its path.
    QString Write(const char* name, const QByteArray& bytes) const;

    /// What a file holds; a failed expectation and nothing if it cannot be read.
    QByteArray Read(const char* name) const;

    /// The names of all files.
    QStringList Names() const;

private:
    QTemporaryDir m_folder;
};

/// The error lines of a run that failed because of a file or of the command line: `text` behind the
/// program's name, and nothing else.
::testing::AssertionResult Complains(const char* runExpression, const char* textExpression,
                                     const ToolRun& run, const QString& text);

} // namespace ToolTest

/// The run ended with 2, wrote nothing to standard output, and this one line, after "reporttool: ", to
/// standard error.
#define EXPECT_UNUSABLE(run, text) EXPECT_PRED_FORMAT2(::ToolTest::Complains, run, ::Support::Text(text))

#endif
