#ifndef TESTS_GDAL_GDALRUN_H
#define TESTS_GDAL_GDALRUN_H

// Reports in memory, and what GDAL makes of them by the driver.
//
//     const Folder folder;
//     folder.Write("lake.xml", "<ReportBase/>");
//     const Source source(folder.Path("lake.xml"));
//     EXPECT_EQ(Cells(source, "file"), ...);
//     EXPECT_EQ(folder.Said(), Lines({}));

#include <QtCore/QByteArray>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace GdalTest {

using Lines = std::vector<std::string>;

/// A folder in memory, which bears the same name in each test. Collects what GDAL says while it lives.
class Folder
{
public:
    Folder();
    ~Folder();
    Folder(const Folder& other) = delete;
    Folder& operator=(const Folder& other) = delete;

    std::string Path(const std::string& name = {}) const;
    std::string Write(const std::string& name, const QByteArray& bytes) const;

    /// "Warning: ..." and "Failure: ...", since the last time.
    Lines Said() const;

private:
    mutable Lines m_said;
};

/// All that is in a file of GDAL's; fails the test where there is none.
QByteArray ContentOf(const std::string& path);

/// The names of the files in a folder, sorted.
Lines NamesIn(const std::string& folder);

/// What the driver makes of a name; nothing where it doesn't take it.
class Source
{
public:
    explicit Source(const std::string& name, std::initializer_list<const char*> options = {},
                    unsigned access = GDAL_OF_READONLY);

    GDALDataset* Dataset() const { return m_dataset.get(); }
    OGRLayer& Layer() const { return *m_dataset->GetLayer(0); }

private:
    GDALDatasetUniquePtr m_dataset;
};

// Of all features that the filters of the layer let through

/// The texts of a column; "(null)" where there is none.
Lines Cells(const Source& source, const char* column);

/// The areas as well-known text; "(null)" where there is none.
Lines Areas(const Source& source);

std::vector<GIntBig> Ids(const Source& source);

/// A report in XML with an area of these points, "longitude latitude" each.
QByteArray AreaXml(std::initializer_list<const char*> points);

} // namespace GdalTest

#endif
