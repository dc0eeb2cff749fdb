#include <QtCore/QtGlobal>

#include <gdal.h>

#include <gmock/gmock.h>

namespace {

/// Qt tells of each damaged piece of compressed data, and the tests read thousands.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

} // namespace

/// As GDAL's programs: without an application of Qt's. What GDAL keeps is released.
int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    qInstallMessageHandler(DropMessage);
    const int result = RUN_ALL_TESTS();
    GDALDestroy();
    return result;
}
