#ifndef REPORTGDAL_READER_H
#define REPORTGDAL_READER_H

#include <reportcore/reportdocument.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>

#include <optional>
#include <string>

namespace ReportGdal {

/// The reports of a file, one after the other.
class Reader
{
public:
    /// Reads the file. Throws `UnusableFile`.
    explicit Reader(const std::string& name);
    ~Reader() = default;
    Reader(const Reader& other) = delete;
    Reader& operator=(const Reader& other) = delete;

    int Count() const { return m_document ? m_document->Count() : 1; }

    /// One of them, counted from 0. Throws `UnusableFile` for one with problems, and for one of which a value reads as another
    /// one than stands there.
    REPORTGENERATOR::ReportBase Report(int index) const;

private:
    std::string m_name;
    QByteArray m_bytes;
    ReportCore::ReportFile m_first;

    /// Where the first one has not shown that there is no other.
    std::optional<ReportCore::ReportDocument> m_document;
};

} // namespace ReportGdal

#endif
