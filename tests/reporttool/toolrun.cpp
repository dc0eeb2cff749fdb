#include "toolrun.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>

#ifdef Q_OS_UNIX
#    include <csignal>
#    include <functional>
#    include <unistd.h>
#endif

namespace ToolTest {

namespace {

constexpr int PATIENCE_IN_MS = 60 * 1000;
constexpr int TRIES = 3;
constexpr int UNUSABLE = 2;

QProcessEnvironment EnvironmentFor(const QString& locale)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!locale.isEmpty())
        environment.insert(QStringLiteral("LC_ALL"), locale);
    return environment;
}

ToolRun Finish(QProcess& process, const QString& program, const QStringList& arguments,
               const Surroundings& surroundings)
{
    process.setProcessEnvironment(EnvironmentFor(surroundings.locale));
    process.setWorkingDirectory(surroundings.folder);
    // On a busy machine Wine can't start a program now and then.
    for (int left = TRIES; left > 0; --left) {
        process.start(program, arguments);
        if (process.waitForStarted(PATIENCE_IN_MS))
            break;
    }
    process.write(surroundings.input);
    process.closeWriteChannel();
    ToolRun run;
    if (!process.waitForFinished(PATIENCE_IN_MS)) {
        ADD_FAILURE() << program.toStdString() << " did not run: " << process.errorString().toStdString();
        return run;
    }
    if (process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

#ifdef Q_OS_UNIX
/// A process that does something before it becomes the program.
class PreparedProcess : public QProcess
{
public:
    explicit PreparedProcess(const std::function<void()>& prepare) : m_prepare(prepare)
    {
#    if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        setChildProcessModifier(m_prepare);
#    endif
    }

#    if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
protected:
    void setupChildProcess() override { m_prepare(); }
#    endif

private:
    const std::function<void()> m_prepare;
};
#endif

} // namespace

ToolRun RunProgram(const QString& program, const QStringList& arguments, const Surroundings& surroundings)
{
    QProcess process;
    return Finish(process, program, arguments, surroundings);
}

#ifdef Q_OS_UNIX
ToolRun RunOnBrokenPipe(const QString& program, const QStringList& arguments,
                        const Surroundings& surroundings, BrokenPipe outcome)
{
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe(ends), 0);
    close(ends[0]);
    PreparedProcess process([writer = ends[1], outcome] {
        dup2(writer, STDOUT_FILENO);
        std::signal(SIGPIPE, outcome == BrokenPipe::Error ? SIG_IGN : SIG_DFL);
    });
    const ToolRun run = Finish(process, program, arguments, surroundings);
    close(ends[1]);
    return run;
}
#endif

ToolRun RunTool(Arguments arguments, const Surroundings& surroundings)
{
    QStringList texts;
    for (const Argument& argument : arguments)
        texts << argument.Text();
    return RunProgram(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), texts, surroundings);
}

Scratch::Scratch()
{
    EXPECT_TRUE(m_folder.isValid());
}

QString Scratch::Path(const char* name) const
{
    return m_folder.filePath(QString::fromUtf8(name));
}

QString Scratch::Write(const char* name, const QByteArray& bytes) const
{
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name;
    EXPECT_EQ(file.write(bytes), bytes.size()) << name;
    return Path(name);
}

QByteArray Scratch::Read(const char* name) const
{
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

QStringList Scratch::Names() const
{
    return QDir(Folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                    QDir::Name);
}

::testing::AssertionResult Complains(const char* runExpression, const char* /*textExpression*/,
                                     const ToolRun& run, const QString& text)
{
    const QString expected = QStringLiteral("reporttool: %1\n").arg(text);
    if (run.exitCode == UNUSABLE && run.output.isEmpty() && run.Errors() == expected)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << runExpression << " ended with " << run.exitCode << ", wrote "
           << ::testing::PrintToString(run.output) << "\nand told " << ::testing::PrintToString(run.Errors())
           << "\ninstead of " << ::testing::PrintToString(expected);
}

} // namespace ToolTest
