#include <reportgdal/writing.h>

#include <reportgdal/areas.h>
#include <reportgdal/errors.h>
#include <reportgdal/files.h>

#include <reportcore/exporting/feature.h>
#include <reportcore/importing/importing.h>
#include <reportcore/reportwriting.h>
#include <reportgenerator/reflection/texts.h>

#include <cpl_conv.h>

#include <algorithm>
#include <utility>

namespace ReportGdal {

using ReportCore::ImportedFeature;
using ReportCore::ImportError;

namespace {

/// Names in a folder are in the order in which the reports have come.
constexpr int DIGITS = 6;

QString NameOf(const OGRFieldDefn& column)
{
    return QString::fromUtf8(column.GetNameRef());
}

/// Whether a report has a place for it, or has the same without being told.
bool IsKnown(const QString& name)
{
    const auto isName = [&name](const QString& other) {
        return name.compare(other, Qt::CaseInsensitive) == 0;
    };
    const std::vector<ReportCore::PropertyType>& types = ReportCore::PropertyTypes();
    return isName(QStringLiteral("file")) || isName(QStringLiteral("name")) ||
           std::any_of(types.begin(), types.end(),
                       [&isName](const ReportCore::PropertyType& type) { return isName(type.name); });
}

QVariant ValueOf(const OGRFeature& feature, int column)
{
    if (!feature.IsFieldSetAndNotNull(column))
        return QVariant();
    switch (feature.GetFieldDefnRef(column)->GetType()) {
    case OFTReal:
    case OFTInteger:
    case OFTInteger64:
        return feature.GetFieldAsDouble(column);
    default:
        return QString::fromUtf8(feature.GetFieldAsString(column));
    }
}

ImportedFeature ImportedFrom(const OGRFeature& feature)
{
    ImportedFeature imported;
    for (int i = 0; i < feature.GetFieldCount(); ++i)
        imported.properties.emplace_back(NameOf(*feature.GetFieldDefnRef(i)), ValueOf(feature, i));
    if (const OGRGeometry* const geometry = feature.GetGeometryRef())
        AddOutlines(*geometry, imported);
    return imported;
}

} // namespace

WrittenLayer::WrittenLayer(const std::string& name, Target target)
    : m_columns(new OGRFeatureDefn(name.c_str())), m_target(std::move(target))
{
    m_columns->Reference();
    m_columns->SetGeomType(wkbUnknown);
    m_columns->GetGeomFieldDefn(0)->SetSpatialRef(Wgs84().get());
    SetDescription(name.c_str());
}

WrittenLayer::~WrittenLayer()
{
    m_columns->Release();
}

OGRErr WrittenLayer::CreateField(OGRFieldDefn* column, int /*isApproximate*/)
{
    return Guarded<OGRErr>(OGRERR_FAILURE, [&] {
        const QString name = NameOf(*column);
        if (!IsKnown(name))
            Warn(QStringLiteral("reports have no field %1: it is not written").arg(ReportCore::Quoted(name)));
        m_columns->AddFieldDefn(column);
        return OGRERR_NONE;
    });
}

int WrittenLayer::TestCapability(const char* capability)
{
    return EQUAL(capability, OLCSequentialWrite) || EQUAL(capability, OLCCreateField) ||
           EQUAL(capability, OLCStringsAsUTF8) || EQUAL(capability, OLCFastFeatureCount);
}

OGRErr WrittenLayer::ICreateFeature(OGRFeature* feature)
{
    return Guarded<OGRErr>(OGRERR_FAILURE, [&] {
        Write(*feature);
        return OGRERR_NONE;
    });
}

void WrittenLayer::Write(OGRFeature& feature)
{
    const QString which = QStringLiteral("feature %1").arg(m_count + 1);
    try {
        if (!m_target.isFolder && m_count > 0)
            throw ImportError{QStringLiteral("a file holds one report; the name of a folder takes more")};
        const ImportedFeature imported = ImportedFrom(feature);
        WriteBytes(NextName(), ReportCore::WriteWhole(ReportCore::ReportOf(imported), m_target.form, -1));
        const QString name = ReportCore::LostNameOf(imported);
        if (!name.isEmpty())
            Warn(QStringLiteral("%1: without a geometry there is no area, and its name %2 is not kept")
                     .arg(which, ReportCore::Quoted(name)));
    } catch (const ImportError& error) {
        throw ImportError{QStringLiteral("%1: %2").arg(which, error.text)};
    } catch (const ReportCore::NotWritten& refused) {
        throw ReportCore::NotWritten{QStringLiteral("%1: %2").arg(which, refused.text)};
    }
    feature.SetFID(m_count++);
}

std::string WrittenLayer::NextName() const
{
    if (!m_target.isFolder)
        return m_target.name;
    const QString number = QStringLiteral("%1").arg(m_count + 1, DIGITS, 10, QLatin1Char('0'));
    const std::string base = CPLLaunderForFilename(GetDescription(), m_target.name.c_str());
    return NameIn(m_target.name, base + '-' + number.toStdString() + '.' + WordFor(m_target.form).data());
}

WrittenDataset::WrittenDataset(Target target) : m_target(std::move(target))
{
    SetDescription(m_target.name.c_str());
}

int WrittenDataset::TestCapability(const char* capability)
{
    return EQUAL(capability, ODsCCreateLayer) && !m_layer;
}

OGRLayer* WrittenDataset::ICreateLayer(const char* name, OGRSpatialReference* system,
                                       OGRwkbGeometryType /*type*/, char** /*options*/)
{
    return Guarded<OGRLayer*>(nullptr, [&]() -> OGRLayer* {
        if (m_layer)
            throw ImportError{QStringLiteral("reports have one layer only")};
        if (!IsWgs84(system))
            throw ImportError{
                QStringLiteral("reports have coordinates in WGS 84, not in %1; ogr2ogr converts "
                               "them with -t_srs EPSG:4326")
                    .arg(QString::fromUtf8(system->GetName()))};
        m_layer = std::make_unique<WrittenLayer>(name, m_target);
        return m_layer.get();
    });
}

} // namespace ReportGdal
