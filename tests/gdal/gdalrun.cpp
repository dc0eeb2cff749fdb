#include "gdalrun.h"

#include <reportgdal/driver.h>

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace GdalTest {

namespace {

constexpr char FOLDER[] = "/vsimem/reports";

void CPL_STDCALL Collect(CPLErr kind, CPLErrorNum /*number*/, const char* text)
{
    auto* const said = static_cast<Lines*>(CPLGetErrorHandlerUserData());
    if (kind >= CE_Warning)
        said->push_back((kind == CE_Warning ? "Warning: " : "Failure: ") + std::string(text));
}

template <class Visit>
void ForEachFeature(const Source& source, Visit&& visit)
{
    if (!source.Dataset()) {
        ADD_FAILURE() << "nothing was opened";
        return;
    }
    source.Layer().ResetReading();
    while (const OGRFeatureUniquePtr feature{source.Layer().GetNextFeature()})
        visit(*feature);
}

} // namespace

Folder::Folder()
{
    ReportGdal::RegisterDriver();
    VSIMkdir(FOLDER, 0777);
    CPLPushErrorHandlerEx(Collect, &m_said);
}

Folder::~Folder()
{
    CPLPopErrorHandler();
    VSIRmdirRecursive(FOLDER);
}

std::string Folder::Path(const std::string& name) const
{
    return name.empty() ? FOLDER : FOLDER + ('/' + name);
}

std::string Folder::Write(const std::string& name, const QByteArray& bytes) const
{
    const std::string path = Path(name);
    VSIMkdirRecursive(CPLGetPath(path.c_str()), 0777);
    VSILFILE* const file = VSIFOpenL(path.c_str(), "wb");
    const auto size = static_cast<size_t>(bytes.size());
    if (!file || VSIFWriteL(bytes.constData(), 1, size, file) != size || VSIFCloseL(file) != 0)
        ADD_FAILURE() << path;
    return path;
}

Lines Folder::Said() const
{
    Lines said;
    said.swap(m_said);
    return said;
}

QByteArray ContentOf(const std::string& path)
{
    GByte* bytes = nullptr;
    vsi_l_offset size = 0;
    if (VSIIngestFile(nullptr, path.c_str(), &bytes, &size, -1) == 0) {
        ADD_FAILURE() << path;
        return {};
    }
    const QByteArray content(reinterpret_cast<const char*>(bytes), static_cast<int>(size));
    VSIFree(bytes);
    return content;
}

Lines NamesIn(const std::string& folder)
{
    const CPLStringList entries(VSIReadDir(folder.c_str()));
    Lines names(entries.List(), entries.List() + entries.Count());
    std::sort(names.begin(), names.end());
    return names;
}

Source::Source(const std::string& name, std::initializer_list<const char*> options, unsigned access)
{
    CPLStringList list;
    for (const char* const option : options)
        list.AddString(option);
    const char* const drivers[] = {"REPORTS", nullptr};
    m_dataset.reset(GDALDataset::Open(name.c_str(), GDAL_OF_VECTOR | access, drivers, list.List(), nullptr));
}

Lines Cells(const Source& source, const char* column)
{
    Lines cells;
    ForEachFeature(source, [&](const OGRFeature& feature) {
        const int index = feature.GetFieldIndex(column);
        cells.emplace_back(feature.IsFieldSetAndNotNull(index) ? feature.GetFieldAsString(index) : "(null)");
    });
    return cells;
}

Lines Areas(const Source& source)
{
    Lines areas;
    ForEachFeature(source, [&](const OGRFeature& feature) {
        const OGRGeometry* const area = feature.GetGeometryRef();
        areas.push_back(area ? area->exportToWkt() : "(null)");
    });
    return areas;
}

std::vector<GIntBig> Ids(const Source& source)
{
    std::vector<GIntBig> ids;
    ForEachFeature(source, [&](const OGRFeature& feature) { ids.push_back(feature.GetFID()); });
    return ids;
}

QByteArray AreaXml(std::initializer_list<const char*> points)
{
    QByteArray xml = "<ReportBase><Area Version=\"1.0\"><Name>A</Name>";
    for (const QByteArray point : points) {
        const auto blank = point.indexOf(' ');
        xml += "<Coordinate><Longitude>" + point.left(blank) + "</Longitude><Latitude>" +
               point.mid(blank + 1) + "</Latitude></Coordinate>";
    }
    return xml + "</Area></ReportBase>";
}

} // namespace GdalTest
