#ifndef REPORTCORE_IMPORTING_IMPORTING_H
#define REPORTCORE_IMPORTING_IMPORTING_H

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <utility>
#include <vector>

namespace ReportCore {

/// What cannot be imported; the text is for people.
struct ImportError
{
    QString text;
};

/// One outline of a geometry.
struct ImportedPart
{
    Points points = {};

    /// What of it no area can hold: holes, for example; empty where there is nothing.
    QString hindrance = {};
};

/// What a file of another program holds of one report.
struct ImportedFeature
{
    /// In the file, from 1 on.
    std::size_t number = 0;

    /// The part of the feature that this one was made of, from 1 on; 0 of a whole one.
    std::size_t part = 0;

    /// The name that the format itself has a place for; null where there is none.
    QString name = {};

    /// By name, in the order of the file. Null ones are not set.
    std::vector<std::pair<QString, QVariant>> properties = {};

    std::vector<ImportedPart> parts = {};

    /// Why no report can be made of any part of it; empty where there is no reason.
    QString hindrance = {};
};

using ImportedFeatures = std::vector<ImportedFeature>;

/// A file of another program.
struct ImportInput
{
    QByteArray bytes = {};
    QString name = {}; ///< empty where it has none

    /// Between the cells of a table; null where it is to be found out.
    QChar separator = {};
};

/// A format of other programs that reports are made of.
struct ImportFormat
{
    const char* name;
    const char* summary; ///< one line

    /// The features without their numbers, those too of which no report can be made. Throws `ImportError` for bytes that
    /// are not in this format.
    ImportedFeatures (*read)(const ImportInput& input);

    bool hasSeparator = false; ///< whether it is a table
};

// One for each format, in a file of its own.

ImportedFeatures ReadGeoJson(const ImportInput& input);
ImportedFeatures ReadCsv(const ImportInput& input);
ImportedFeatures ReadKml(const ImportInput& input);
ImportedFeatures ReadGpx(const ImportInput& input);

/// In the order in which the help names them.
const std::vector<ImportFormat>& ImportFormats();

/// The features of a file with their numbers. Throws `ImportError` for bytes that are not in the format.
ImportedFeatures ReadFeatures(const ImportFormat& format, const ImportInput& input);

/// A feature for each part of those that have several.
ImportedFeatures Parted(const ImportedFeatures& features);

/// The report of a feature: its properties by their names, whatever their case; of an area without name, the name that
/// the format has a place for. Properties that no report has are passed over. The points stand in the area as they stand
/// in the file. Throws `ImportError` and `RGException`.
REPORTGENERATOR::ReportBase ReportOf(const ImportedFeature& feature);

/// The name that a report does not keep, since without a geometry it has no area; empty where there is none.
QString LostNameOf(const ImportedFeature& feature);

} // namespace ReportCore

#endif
