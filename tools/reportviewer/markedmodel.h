#ifndef REPORTVIEWER_MARKEDMODEL_H
#define REPORTVIEWER_MARKEDMODEL_H

#include <reportviewer/contents.h>

#include <reportgenerator/models/reportmodel.h>

namespace ReportViewer {

/// A report whose rows show what problems their fields have: by an icon, a colour and a tool tip. What holds such a field
/// has the icon and a tool tip, too.
class MarkedModel : public REPORTGENERATOR::ReportModel
{
public:
    MarkedModel();

    /// Problems of the report that is shown, or of its file. Views are to be painted again.
    void SetContents(const ContentsPointer& contents) { m_contents = contents; }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    ContentsPointer m_contents;
};

} // namespace ReportViewer

#endif
