#include <reportviewer/commandline.h>
#include <reportviewer/document.h>
#include <reportviewer/mainwindow.h>
#include <reportviewer/problempane.h>
#include <reportviewer/treepane.h>

#include <reportcore/filenames.h>

#include <QtCore/QTextStream>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

using ReportViewer::CommandLine;

constexpr int EXIT_USAGE = 2;

void Print(FILE* stream, const QString& text)
{
    QTextStream(stream) << text << '\n';
}

/// Help and version need no screen.
bool NeedsScreen(int argc, char** argv)
{
    return std::none_of(argv + 1, argv + argc, [](const char* argument) {
        return std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "-h") == 0 ||
               std::strcmp(argument, "--version") == 0;
    });
}

void TakePicture(ReportViewer::MainWindow& window, const QString& file)
{
    // What has come up until now is painted first.
    QTimer::singleShot(0, &window, [&window, file] {
        const bool isSaved = window.grab().save(file);
        if (!isSaved)
            Print(stderr, QStringLiteral("reportviewer: %1: cannot be written").arg(file));
        QCoreApplication::exit(isSaved ? 0 : EXIT_USAGE);
    });
}

void Prepare(ReportViewer::MainWindow& window, const CommandLine& line)
{
    const auto opened = std::make_shared<QMetaObject::Connection>();
    const auto showWhatIsAskedFor = [&window, line, opened] {
        // Once, and not after each change.
        QObject::disconnect(*opened);
        if (!line.field.isEmpty())
            window.Tree().setCurrentIndex(
                window.Model().IndexOf(line.field, REPORTGENERATOR::ReportModel::ValueColumn));
        if (line.showsProblem)
            window.Problems().ChooseNext(1);
        if (!line.picture.isEmpty())
            TakePicture(window, line.picture);
    };
    *opened = QObject::connect(&window.Shown(), &ReportViewer::Document::ContentsChanged, &window,
                               showWhatIsAskedFor);
    if (!line.picture.isEmpty()) {
        QObject::connect(&window.Shown(), &ReportViewer::Document::OpeningFailed, &window,
                         [](const QString& /*name*/, const QString& text) {
                             Print(stderr, QStringLiteral("reportviewer: ") + text);
                             QCoreApplication::exit(EXIT_USAGE);
                         });
    }
}

int Show(const CommandLine& line)
{
    ReportViewer::MainWindow window;
    Prepare(window, line);
    window.show();
    window.Open(line.names);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    if (!NeedsScreen(argc, argv))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ReportCore::KeepOddFileNames();
    QCoreApplication::setOrganizationName(QStringLiteral("reportgenerator"));
    QCoreApplication::setApplicationName(QStringLiteral("reportviewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(REPORTVIEWER_VERSION));
    const CommandLine line = ReportViewer::ParseCommandLine(QCoreApplication::arguments());
    switch (line.request) {
    case CommandLine::Request::Help:
        Print(stdout, line.text.trimmed());
        return 0;
    case CommandLine::Request::Version:
        Print(stdout, QStringLiteral("reportviewer %1").arg(QCoreApplication::applicationVersion()));
        return 0;
    case CommandLine::Request::Wrong:
        Print(stderr, QStringLiteral("reportviewer: %1").arg(line.text));
        return EXIT_USAGE;
    case CommandLine::Request::Open:
        break;
    }
    return Show(line);
}
