#ifndef REPORTCORE_REPORTDOCUMENT_H
#define REPORTCORE_REPORTDOCUMENT_H

#include <reportcore/problem.h>
#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace ReportCore {

/// The reports of a file: those of a document in XML, or the one of a binary form. They are read one by one.
///
/// A document that is not well-formed has one, which has its problems: nobody knows what else there is.
class ReportDocument
{
public:
    /// The bytes must outlive it.
    explicit ReportDocument(const QByteArray& bytes);

    /// 1 where there is no report at all: reading it tells of that.
    int Count() const;

    // Of one of them, counted from 0. Places are those in the document.

    ReportFile Read(int index) const;

    /// What is lost when it is written again, of the report itself.
    Problems LossesOf(int index, const ReportFile& file) const;

    /// What is lost with the document around it: elements and the other reports.
    Problems LossesBeside(int index) const;

private:
    /// A report in a document of its own.
    struct Part
    {
        QByteArray bytes;
        FilePlace place;      ///< of the report in it
        FilePlace wholePlace; ///< of the report in the file
    };

    bool IsDivided() const { return m_parts.size() > 1; }
    static Problems Moved(Problems problems, const Part& part);

    const QByteArray& m_bytes;
    QString m_rootName;
    std::vector<Part> m_parts; ///< of a document with several
};

} // namespace ReportCore

#endif
