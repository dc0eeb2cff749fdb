#include <reportgdal/reading.h>

#include <reportgdal/areas.h>
#include <reportgdal/errors.h>
#include <reportgdal/files.h>

#include <reportcore/exporting/feature.h>
#include <reportgenerator/reflection/texts.h>

#include <cpl_conv.h>

#include <utility>

namespace ReportGdal {

using ReportCore::Feature;
using ReportCore::FieldKind;
using ReportCore::PropertyTypes;
using ReportCore::UnusableFile;

namespace {

constexpr int FILE_COLUMN = 0;
constexpr int FIRST_PROPERTY = 1;
constexpr int AREA_COLUMN = 0; ///< of those with geometries

/// The first reports of files bear the numbers of these, so that they stay small.
constexpr int BITS_OF_FILE = 32;

GIntBig IdOf(std::size_t file, int report)
{
    return (static_cast<GIntBig>(report) << BITS_OF_FILE) + static_cast<GIntBig>(file);
}

void SetType(OGRFieldDefn& column, FieldKind kind)
{
    if (kind == FieldKind::Number)
        column.SetType(OFTReal);
    if (kind == FieldKind::Switch) {
        column.SetType(OFTInteger);
        column.SetSubType(OFSTBoolean);
    }
}

OGRFeatureDefn* MakeColumns(const std::string& name)
{
    auto* const columns = new OGRFeatureDefn(name.c_str());
    columns->Reference();
    OGRFieldDefn file("file", OFTString);
    columns->AddFieldDefn(&file);
    for (const ReportCore::PropertyType& type : PropertyTypes()) {
        OGRFieldDefn column(type.name.toUtf8().constData(), OFTString);
        SetType(column, type.kind);
        columns->AddFieldDefn(&column);
    }
    // What an area looks like differs from one report to the next.
    columns->SetGeomType(wkbUnknown);
    columns->GetGeomFieldDefn(AREA_COLUMN)->SetName("area");
    columns->GetGeomFieldDefn(AREA_COLUMN)->SetSpatialRef(Wgs84().get());
    return columns;
}

void SetValue(OGRFeature& feature, int column, const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Double:
        feature.SetField(column, value.toDouble());
        break;
    case QMetaType::Bool:
        feature.SetField(column, value.toBool() ? 1 : 0);
        break;
    case QMetaType::QString:
        feature.SetField(column, ReportCore::ToUtf8(value.toString()).constData());
        break;
    default:
        feature.SetFieldNull(column);
    }
}

/// The name of the folder, or of the file without what stands behind its dot.
std::string LayerName(const std::string& name)
{
    const std::string base = CPLGetBasename(name.c_str());
    return base.empty() || base == "." || base == ".." ? "reports" : base;
}

} // namespace

ReportsLayer::ReportsLayer(const std::string& name, std::vector<std::string> files, bool isStrict)
    : m_columns(MakeColumns(name)), m_files(std::move(files)), m_isStrict(isStrict)
{
    SetDescription(name.c_str());
}

ReportsLayer::~ReportsLayer()
{
    m_columns->Release();
}

void ReportsLayer::ResetReading()
{
    m_file = 0;
    m_report = 0;
    m_reader.reset();
}

OGRFeature* ReportsLayer::GetNextRawFeature()
{
    return Guarded<OGRFeature*>(nullptr, [this] { return ReadNext().release(); });
}

OGRFeature* ReportsLayer::GetFeature(GIntBig id)
{
    return Guarded<OGRFeature*>(nullptr, [this, id]() -> OGRFeature* {
        const auto file = static_cast<std::size_t>(id & ((GIntBig(1) << BITS_OF_FILE) - 1));
        const auto report = static_cast<int>(id >> BITS_OF_FILE);
        if (id < 0 || file >= m_files.size())
            return nullptr;
        const Reader reader(m_files[file]);
        return report < reader.Count() ? FeatureOf(file, report, reader).release() : nullptr;
    });
}

int ReportsLayer::TestCapability(const char* capability)
{
    return EQUAL(capability, OLCRandomRead) || EQUAL(capability, OLCStringsAsUTF8) ||
           EQUAL(capability, OLCIgnoreFields);
}

std::unique_ptr<OGRFeature> ReportsLayer::ReadNext()
{
    while (m_file < m_files.size()) {
        const GIntBig id = IdOf(m_file, m_report);
        try {
            if (!m_reader)
                m_reader = std::make_unique<Reader>(m_files[m_file]);
            if (m_report < m_reader->Count())
                return FeatureOf(m_file, m_report++, *m_reader);
            GoToNextFile();
        } catch (const UnusableFile& unusable) {
            if (!m_reader)
                GoToNextFile();
            PassOver(unusable, id);
        }
    }
    return nullptr;
}

std::unique_ptr<OGRFeature> ReportsLayer::FeatureOf(std::size_t file, int report, const Reader& reader) const
{
    const Feature values = ReportCore::FeatureOf(QString(), reader.Report(report));
    auto feature = std::make_unique<OGRFeature>(m_columns);
    feature->SetFID(IdOf(file, report));
    feature->SetField(FILE_COLUMN, ReportCore::ToUtf8(TextOf(m_files[file])).constData());
    for (std::size_t i = 0; i < values.values.size(); ++i)
        SetValue(*feature, FIRST_PROPERTY + static_cast<int>(i), values.values[i]);
    if (m_columns->IsGeometryIgnored() == 0) {
        std::unique_ptr<OGRGeometry> area = GeometryFor(ReportCore::GeometryOf(values.outline));
        if (area)
            area->assignSpatialReference(m_columns->GetGeomFieldDefn(AREA_COLUMN)->GetSpatialRef());
        feature->SetGeometryDirectly(area.release());
    }
    return feature;
}

void ReportsLayer::GoToNextFile()
{
    ++m_file;
    m_report = 0;
    m_reader.reset();
}

void ReportsLayer::PassOver(const UnusableFile& unusable, GIntBig id)
{
    if (m_isStrict) {
        m_file = m_files.size();
        throw unusable;
    }
    if (m_told.insert(id).second)
        Warn(QStringLiteral("%1; it has no row").arg(LineOf(unusable)));
}

ReportsDataset::ReportsDataset(const std::string& name, std::vector<std::string> files, bool isStrict)
    : m_layer(LayerName(name), std::move(files), isStrict)
{
}

} // namespace ReportGdal
