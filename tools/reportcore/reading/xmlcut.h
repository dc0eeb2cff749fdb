#ifndef REPORTCORE_READING_XMLCUT_H
#define REPORTCORE_READING_XMLCUT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {

/// The report's element, cut out of its document.
struct XmlCut
{
    /// In UTF-8, without comments; null where the document isn't as simple as that. It may share the bytes of the
    /// document, which must outlive it.
    QByteArray element;
    QString rootName;
};

/// Cuts the only report out of a document in UTF-8 that is sound around it. Reading the element alone then leads to the
/// same report as reading the document. Whether the element itself is sound, its reader says; only comments have been
/// looked at.
XmlCut CutReport(const QByteArray& bytes);

} // namespace ReportCore

#endif
