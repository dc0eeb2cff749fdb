#ifndef REPORTVIEWER_FORMS_H
#define REPORTVIEWER_FORMS_H

#include <reportcore/form.h>

#include <QtCore/QString>

#include <vector>

namespace ReportViewer {

/// A form in which reports are saved.
struct NamedForm
{
    ReportCore::FileForm form;
    const char* name; ///< for people: "Compressed"
};

const std::vector<NamedForm>& AllForms();

/// Null for what can only be read.
const NamedForm* FindForm(const ReportCore::FileForm& form);

/// For people, of every file.
QString FormText(const ReportCore::FileForm& form);

/// For people: "1 byte", "2 bytes".
QString BytesText(qint64 count);

/// As file dialogs take it: "XML (*.xml)".
QString FilterOf(const NamedForm& form);

} // namespace ReportViewer

#endif
