#include <reportcore/exporting/exporter.h>

#include <utility>

namespace ReportCore {

ExportPiece Exporter::Prepare(Feature feature) const
{
    return {std::move(feature), QByteArray()};
}

void Exporter::End(const Write& /*write*/) {}

} // namespace ReportCore
