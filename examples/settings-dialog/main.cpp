// Hands XML fragments to three settings objects.
//
//     settings-dialog [--screenshot PICTURE.png] [FRAGMENT.xml...]
//
// The fragments are applied one after the other before the dialog is used. With --screenshot the dialog is
// shown on the screen, taken a picture of, and closed; the program ends with 1 when that fails or a fragment
// cannot be read.

#include "settingsdialog.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

#include <cstdio>

namespace {

constexpr int DRAWING_MILLISECONDS = 500;

bool ApplyFile(SettingsDialog& dialog, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        std::fprintf(stderr, "settings-dialog: cannot read %s: %s\n", path.toUtf8().constData(),
                     file.errorString().toUtf8().constData());
        return false;
    }
    dialog.SetFragment(QString::fromUtf8(file.readAll()));
    dialog.findChild<QPushButton*>(QStringLiteral("apply"))->click();
    return true;
}

/// What the X server shows, not what the dialog would draw.
void TakePicture(const SettingsDialog& dialog, const QString& path)
{
    const QPixmap picture = dialog.screen()->grabWindow(dialog.winId());
    if (!picture.isNull() && picture.save(path))
        return QCoreApplication::exit(0);
    std::fprintf(stderr, "settings-dialog: cannot take the picture %s\n", path.toUtf8().constData());
    QCoreApplication::exit(1);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Take a picture of the dialog and end."),
                                        QStringLiteral("PICTURE.png"));
    parser.addOption(screenshot);
    parser.addPositionalArgument(QStringLiteral("FRAGMENT.xml"), QStringLiteral("Fragments to apply."),
                                 QStringLiteral("[FRAGMENT.xml...]"));
    parser.process(application);

    SettingsDialog dialog;
    dialog.resize(900, 680);
    for (const QString& path : parser.positionalArguments()) {
        if (!ApplyFile(dialog, path))
            return 1;
    }
    dialog.show();
    QTimer drawing;
    drawing.setSingleShot(true);
    if (parser.isSet(screenshot)) {
        const QString path = parser.value(screenshot);
        QObject::connect(&drawing, &QTimer::timeout, &dialog, [&dialog, path] { TakePicture(dialog, path); });
        drawing.start(DRAWING_MILLISECONDS);
    }
    return QApplication::exec();
}
