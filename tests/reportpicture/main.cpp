#include <gmock/gmock.h>

#include <QtGui/QGuiApplication>

/// Drawing texts needs an application, and a platform that needs no screen.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
