#ifndef REPORTGDAL_WRITING_H
#define REPORTGDAL_WRITING_H

#include <reportcore/form.h>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <string>

namespace ReportGdal {

/// Where reports are written to: a folder, in which each has a file of its own, or the file of one report.
struct Target
{
    std::string name;
    bool isFolder = true;
    ReportCore::FileForm form;
};

/// Takes features and writes a report of each at once. Its fields are those that its user creates; they are matched by
/// their names, as `reporttool import` does.
class WrittenLayer final : public OGRLayer
{
public:
    WrittenLayer(const std::string& name, Target target);
    ~WrittenLayer() override;

    void ResetReading() override {}
    OGRFeature* GetNextFeature() override { return nullptr; }
    GIntBig GetFeatureCount(int /*isForced*/) override { return m_count; }
    OGRFeatureDefn* GetLayerDefn() override { return m_columns; }
    OGRErr CreateField(OGRFieldDefn* column, int isApproximate) override;
    int TestCapability(const char* capability) override;

protected:
    OGRErr ICreateFeature(OGRFeature* feature) override;

private:
    void Write(OGRFeature& feature);
    std::string NextName() const;

    OGRFeatureDefn* m_columns;
    Target m_target;
    GIntBig m_count = 0;
};

/// A file or a folder that reports are written to.
class WrittenDataset final : public GDALDataset
{
public:
    explicit WrittenDataset(Target target);

    int GetLayerCount() override { return m_layer ? 1 : 0; }
    OGRLayer* GetLayer(int index) override { return index == 0 ? m_layer.get() : nullptr; }
    int TestCapability(const char* capability) override;

protected:
    OGRLayer* ICreateLayer(const char* name, OGRSpatialReference* system, OGRwkbGeometryType type,
                           char** options) override;

private:
    Target m_target;
    std::unique_ptr<WrittenLayer> m_layer;
};

} // namespace ReportGdal

#endif
