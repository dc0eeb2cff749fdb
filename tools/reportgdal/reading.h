#ifndef REPORTGDAL_READING_H
#define REPORTGDAL_READING_H

#include <reportgdal/reader.h>

#include <reportcore/files.h>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace ReportGdal {

/// The reports of some files as a table with the columns of `reporttool export`. One file is in memory at a time.
///
/// What has no row is told as a warning, or ends the reading where that is strict.
class ReportsLayer final : public OGRLayer, public OGRGetNextFeatureThroughRaw<ReportsLayer>
{
    DEFINE_GET_NEXT_FEATURE_THROUGH_RAW(ReportsLayer)

public:
    ReportsLayer(const std::string& name, std::vector<std::string> files, bool isStrict);
    ~ReportsLayer() override;

    void ResetReading() override;
    OGRFeature* GetFeature(GIntBig id) override;
    OGRFeatureDefn* GetLayerDefn() override { return m_columns; }
    int TestCapability(const char* capability) override;

private:
    OGRFeature* GetNextRawFeature();
    std::unique_ptr<OGRFeature> ReadNext();
    std::unique_ptr<OGRFeature> FeatureOf(std::size_t file, int report, const Reader& reader) const;
    void GoToNextFile();
    void PassOver(const ReportCore::UnusableFile& unusable, GIntBig id);

    OGRFeatureDefn* m_columns;
    std::vector<std::string> m_files;
    bool m_isStrict;
    std::set<GIntBig> m_told; ///< what a warning has been given of, since a table is read more than once

    // What comes next

    std::size_t m_file = 0;
    int m_report = 0;
    std::unique_ptr<Reader> m_reader;
};

/// A file or a folder of reports.
class ReportsDataset final : public GDALDataset
{
public:
    ReportsDataset(const std::string& name, std::vector<std::string> files, bool isStrict);

    int GetLayerCount() override { return 1; }
    OGRLayer* GetLayer(int index) override { return index == 0 ? &m_layer : nullptr; }

private:
    ReportsLayer m_layer;
};

} // namespace ReportGdal

#endif
