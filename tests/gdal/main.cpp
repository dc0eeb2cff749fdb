#include <gdal.h>

#include <gmock/gmock.h>

/// As GDAL's programs: without an application of Qt's. What GDAL keeps is released.
int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    const int result = RUN_ALL_TESTS();
    GDALDestroy();
    return result;
}
