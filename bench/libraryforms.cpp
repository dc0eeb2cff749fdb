// What the library's objects write and read, through nothing but their public operations.

#include "contenders.h"
#include "files.h"
#include "libraryobjects.h"
#include "peerwire.h"
#include "streams.h"
#include "suite.h"
#include "workload.h"

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace Bench {

namespace {

using REPORTGENERATOR::ReportBase;

template <bool VALIDATE>
void AddXml(Suite& suite)
{
    suite.AddForm(
        "xml", LIBRARY<VALIDATE>, [](const ReportBase& report) { return report.GetXmlString(); },
        [](const QString& xml) {
            ReportBase report = EmptyReport(VALIDATE);
            report.SetXmlString(xml, false);
            return report;
        });
}

qsizetype NumberOfCoordinates(const ReportBase& report)
{
    return report.IsAreaSet() ? report.GetArea().GetCoordinate().size() : 0;
}

template <bool VALIDATE>
void AddFile(Suite& suite)
{
    suite.AddForm(
        "file", LIBRARY<VALIDATE>,
        [](const ReportBase& report) {
            const WrittenFile file{PathFor(LIBRARY<VALIDATE>.name, NumberOfCoordinates(report))};
            report.SaveXml(file.path);
            return file;
        },
        [](const WrittenFile& file) {
            ReportBase report = EmptyReport(VALIDATE);
            report.LoadXml(file.path);
            return report;
        });
}

template <bool VALIDATE>
ReportBase ReadBinary(QByteArray bytes)
{
    ReportBase report = EmptyReport(VALIDATE);
    report.SetBinaryRepresentation(bytes);
    return report;
}

template <bool VALIDATE>
void AddPlain(Suite& suite)
{
    suite.AddForm(
        "plain", LIBRARY<VALIDATE>,
        [](const ReportBase& report) { return report.GetBinaryRepresentationAsQByteArray(); },
        ReadBinary<VALIDATE>);
}

template <bool VALIDATE>
void AddCompressed(Suite& suite)
{
    for (const CompressedForm& form : COMPRESSED_FORMS) {
        suite.AddForm(
            form.name, LIBRARY<VALIDATE>,
            [level = form.level](const ReportBase& report) {
                return report.GetCompressedBinaryRepresentationAsQByteArray(level);
            },
            ReadBinary<VALIDATE>, form.largest);
    }
}

template <bool VALIDATE>
void AddTagged(Suite& suite)
{
    suite.AddForm("tagged", LIBRARY<VALIDATE>,
                  WriteToStream([](QDataStream& stream, const ReportBase& report) {
                      report.GetBinary(stream, ROOT_TAG, true);
                  }),
                  ReadFromStream([](QDataStream& stream) {
                      qint32 tag = 0;
                      qint32 length = 0;
                      stream >> tag >> length;
                      ReportBase report = EmptyReport(VALIDATE);
                      report.SetBinary(stream, length);
                      return report;
                  }));
}

template <bool VALIDATE>
void AddRaw(Suite& suite)
{
    suite.AddForm("raw", LIBRARY<VALIDATE>, WriteToStream([](QDataStream& stream, const ReportBase& report) {
                      report.GetVersionSpecificBinaryWithoutValidation(stream);
                  }),
                  ReadFromStream([](QDataStream& stream) {
                      ReportBase report = EmptyReport(VALIDATE);
                      report.SetVersionSpecificBinaryWithoutValidation(stream);
                      return report;
                  }));
}

/// The XML form through a writer and a reader of the caller's.
void AddXmlStreams(Suite& suite)
{
    const Contender<ReportBase> caller{"library_stream", MakeReport<true>, ValuesOf};
    suite.AddForm(
        "xml", caller,
        [](const ReportBase& report) {
            QString text;
            QXmlStreamWriter writer(&text);
            writer.setAutoFormatting(true);
            report.GetXml(writer);
            return text;
        },
        [](const QString& xml) {
            QXmlStreamReader reader(xml);
            reader.readNextStartElement();
            ReportBase report;
            report.ProcessXml(reader);
            return report;
        });
}

template <bool VALIDATE>
void AddForms(Suite& suite)
{
    AddXml<VALIDATE>(suite);
    AddFile<VALIDATE>(suite);
    AddPlain<VALIDATE>(suite);
    AddCompressed<VALIDATE>(suite);
    AddTagged<VALIDATE>(suite);
    AddRaw<VALIDATE>(suite);
}

} // namespace

void AddLibraryForms(Suite& suite)
{
    AddForms<true>(suite);
    AddForms<false>(suite);
    AddXmlStreams(suite);
}

} // namespace Bench
