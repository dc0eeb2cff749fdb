// Writes what is installed beside the programs for those who sit at a terminal:
//
//     reportpages FOLDER PROGRAM VERSION                   reporttool's manual pages and completion
//     reportpages FOLDER NAME VERSION SUMMARY PROGRAM...   the manual page of another program, from its --help
//
// PROGRAM... are the words that start it.

#include <reportpages/completion.h>
#include <reportpages/manpage.h>

#include <reporttool/commands.h>
#include <reporttool/commands/list.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <cstdio>

namespace {

using ReportCore::UnusableFile;

constexpr char SUMMARY[] = "look into reports of radio monitoring, check, change and export them";

void Write(const QString& folder, const QString& name, const QByteArray& bytes)
{
    const QString path = QDir(folder).filePath(name);
    if (!QDir().mkpath(QFileInfo(path).path()))
        throw UnusableFile{path, QStringLiteral("its folder cannot be made")};
    ReportCore::WriteOutput(path, bytes);
}

void WritePage(const QString& folder, const ReportPages::PageFacts& facts, const QString& help)
{
    Write(folder, QStringLiteral("man/man1/%1.1").arg(facts.name), ReportPages::ManPageOf(facts, help));
}

void WriteTool(const QString& folder, const QString& program, const QString& version)
{
    const QString source = program + QLatin1Char(' ') + version;
    QStringList pages;
    for (const ReportTool::Command* command : ReportTool::COMMANDS) {
        const QString name = program + QLatin1Char('-') + QLatin1String(command->name);
        WritePage(folder, {name, QLatin1String(command->summary), source, {program}},
                  ReportTool::Parser(*command).HelpText());
        pages << name;
    }
    WritePage(folder, {program, QLatin1String(SUMMARY), source, pages}, ReportTool::GeneralHelp());

    Write(folder, QStringLiteral("bash-completion/completions/") + program,
          ReportPages::BashCompletion(program));
    Write(folder, QStringLiteral("zsh/site-functions/_") + program, ReportPages::ZshCompletion(program));
    Write(folder, QStringLiteral("fish/vendor_completions.d/%1.fish").arg(program),
          ReportPages::FishCompletion(program));
}

QString HelpOf(QStringList words)
{
    // Programs with windows need no screen for it.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString program = words.takeFirst();
    QProcess process;
    process.start(program, words << QStringLiteral("--help"));
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw UnusableFile{program, QStringLiteral("doesn't tell its help")};
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    if (arguments.size() != 4 && arguments.size() < 6) {
        std::fputs("reportpages takes FOLDER PROGRAM VERSION [SUMMARY COMMAND...]\n", stderr);
        return 2;
    }
    const QString& folder = arguments.at(1);
    const QString& name = arguments.at(2);
    const QString& version = arguments.at(3);
    // The help bears the name of the program that asks for it.
    QByteArray nameBytes = name.toUtf8();
    char* names[] = {nameBytes.data(), nullptr};
    int count = 1;
    const QCoreApplication application(count, names);
    try {
        if (arguments.size() == 4)
            WriteTool(folder, name, version);
        else
            WritePage(folder, {name, arguments.at(4), name + QLatin1Char(' ') + version, {}},
                      HelpOf(arguments.mid(5)));
    } catch (const UnusableFile& unusable) {
        std::fputs(qPrintable(unusable.file + QLatin1String(": ") + unusable.text + QLatin1Char('\n')),
                   stderr);
        return 2;
    }
    return 0;
}
