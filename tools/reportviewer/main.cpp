#include <reportviewer/commandline.h>
#include <reportviewer/document.h>
#include <reportviewer/mainwindow.h>
#include <reportviewer/noticebar.h>
#include <reportviewer/problempane.h>
#include <reportviewer/treepane.h>

#include <reportcore/filenames.h>

#include <QtCore/QTextStream>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

using ReportViewer::CommandLine;

constexpr int EXIT_USAGE = 2;

/// The environment's choice of a screen.
constexpr char PLATFORM[] = "QT_QPA_PLATFORM";

void Print(FILE* stream, const QString& text)
{
    QTextStream(stream) << text << '\n';
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

/// Whether it is there.
bool ChooseField(ReportViewer::MainWindow& window, const CommandLine& line)
{
    const QModelIndex index = window.Model().IndexOf(line.field, REPORTGENERATOR::ReportModel::ValueColumn);
    if (index.isValid()) {
        window.Tree().setCurrentIndex(index);
        return true;
    }
    const QString text = QStringLiteral("the report has no %1").arg(line.field);
    window.Notice().Say(text);
    if (!line.picture.isEmpty())
        Print(stderr, QStringLiteral("reportviewer: ") + text);
    return false;
}

void Prepare(ReportViewer::MainWindow& window, const CommandLine& line)
{
    const auto opened = std::make_shared<QMetaObject::Connection>();
    const auto showWhatIsAskedFor = [&window, line, opened] {
        // Once, and not after each change.
        QObject::disconnect(*opened);
        if (!line.field.isEmpty() && !ChooseField(window, line) && !line.picture.isEmpty()) {
            QCoreApplication::exit(EXIT_USAGE);
            return;
        }
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
    if (!line.picture.isEmpty())
        window.RememberNoFiles();
    Prepare(window, line);
    window.show();
    window.Open(line.names);
    return QCoreApplication::exec();
}

/// Of an application that lives for this alone. It takes out of the arguments what is for itself.
template <class Application>
CommandLine ParseWithoutScreen(int argc, char** argv)
{
    std::vector<char*> arguments(argv, argv + argc + 1);
    const Application application(argc, arguments.data());
    return ReportViewer::ParseCommandLine(QCoreApplication::arguments());
}

/// What needs no window.
int Answer(const CommandLine& line)
{
    switch (line.request) {
    case CommandLine::Request::Help:
        Print(stdout, line.text.trimmed());
        return 0;
    case CommandLine::Request::Version:
        Print(stdout, QStringLiteral("reportviewer %1").arg(QCoreApplication::applicationVersion()));
        return 0;
    default:
        Print(stderr, QStringLiteral("reportviewer: %1").arg(line.text));
        return EXIT_USAGE;
    }
}

} // namespace

int main(int argc, char** argv)
{
    ReportCore::KeepOddFileNames();
    QCoreApplication::setOrganizationName(QStringLiteral("reportgenerator"));
    QCoreApplication::setApplicationName(QStringLiteral("reportviewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(REPORTVIEWER_VERSION));
    CommandLine line = ParseWithoutScreen<QCoreApplication>(argc, argv);
    if (line.request == CommandLine::Request::Wrong) {
        // It may be one of Qt's own options.
        const QByteArray platform = qgetenv(PLATFORM);
        qputenv(PLATFORM, "offscreen");
        line = ParseWithoutScreen<QApplication>(argc, argv);
        if (platform.isNull())
            qunsetenv(PLATFORM);
        else
            qputenv(PLATFORM, platform);
    }
    if (line.request != CommandLine::Request::Open)
        return Answer(line);
    const QApplication application(argc, argv);
    return Show(line);
}
