#include <gmock/gmock.h>

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

/// The windows under test need an application, a platform that needs no screen, and settings of their own.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The operating system's reasons are compared with what they are in English.
    qputenv("LC_ALL", "C.UTF-8");
    const QTemporaryDir settings;
    // Of the programs that the tests start.
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("reportgenerator"));
    QCoreApplication::setApplicationName(QStringLiteral("reportviewer-tests"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
