#include <reportcore/inspect/inspector.h>

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/inspect/xmlinspector.h>

#include <utility>

namespace ReportCore {

std::unique_ptr<Inspector> Inspector::Of(const QByteArray& bytes, const FileForm& form, Visitor visit,
                                         Extent extent)
{
    if (form.IsBinary())
        return std::make_unique<BinaryInspector>(bytes, form.isBinaryFile, std::move(visit));
    return std::make_unique<XmlInspector>(bytes, std::move(visit), extent);
}

Inspector::Inspector(Visitor visit) : m_visit(std::move(visit)) {}

Inspector::~Inspector() = default;

} // namespace ReportCore
