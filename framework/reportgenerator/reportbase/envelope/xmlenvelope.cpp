// What surrounds an object's own element: strings and files, merging, and the walk through the children.

#include <reportgenerator/reportbase/irgobject.h>

#include <reportgenerator/reportbase/codec/numbers.h>
#include <reportgenerator/reportbase/codec/scannedxml.h>
#include <reportgenerator/reportbase/codec/xmltools.h>
#include <reportgenerator/reportbase/envelope/elementtext.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/reporting_p.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <typeinfo>

namespace REPORTGENERATOR {

namespace {

/// A reader asks the file for so many bytes at a time.
constexpr qint64 READER_BLOCK = 8192;

/// Reads the rest of a file past Qt's reader, which would leave it at its end too. Returns whether it was read.
/// Otherwise the file stays where it is; of one that doesn't go back `scanned` gives what it held.
bool ReadOnFastPath(const FastPath& fastPath, IRGObject& object, QFile& file,
                    scannedxml::ScannedDevice& scanned)
{
    if (file.isSequential() || !file.isReadable() || file.isTransactionStarted())
        return false;
    const qint64 start = file.pos();
    if (start > file.size())
        return false;
    const QByteArray xml = file.readAll();
    // A reader stops with the block in which the element ends.
    const bool endsWithElement = xml.endsWith('>') || (xml.endsWith(">\n") && xml.size() % READER_BLOCK != 1);
    if (endsWithElement && file.error() == QFileDevice::NoError && fastPath.readXmlBytes(object, xml))
        return true;
    if (!file.seek(start))
        scanned.GiveInstead(xml);
    return false;
}

/// What the object writes to a writer of the library's settings.
QString WrittenXml(const IRGObject& object)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    object.GetXml(writer);
    return xml;
}

/// Hands each piece of the text of the element that the reader stands on to `take`. The last one counts.
template <class Take>
void WalkText(QXmlStreamReader& reader, Take&& take)
{
    take(reader.text());
    while (xmltools::ReadNext(reader) && !reader.isEndElement()) {
        if (reader.isCharacters())
            take(reader.text());
    }
}

} // namespace

bool IRGObject::SetXmlString(const QString& xml, bool checkRoot)
{
    TraceProgress(messages::LoadingXmlString);
    const FastPath* const fastPath = ObjectAccess::FastPathOf(*this);
    if (fastPath && fastPath->readXml(*this, xml))
        return true;
    if (xml.isEmpty() || !xmltools::MayContainElement(xml, GetObjectName()))
        return false;
    Reset();
    if (const auto excess = scannedxml::ExcessIn(xml); excess != MarkupScanner::Excess::None)
        reporting::Throw(*this, RGException(messages::TooMuchMarkup(excess)));
    if (checkRoot && !StartsWith(xml, GetObjectName()))
        reporting::Throw(*this, RGException(messages::UnsuitableXml(GetObjectName())));
    QXmlStreamReader reader(xml);
    return ReadElement(reader);
}

bool IRGObject::MergeRGObject(const IRGObject& other)
{
    if (typeid(other) != typeid(*this)) {
        Trace(LogLevel::WARNING,
              messages::MergeTypeMismatch(GetObjectName(), typeid(other).name(), typeid(*this).name()));
        return false;
    }
    if (numbers::VersionFromText(GetVersion()) != numbers::VersionFromText(other.GetVersion())) {
        Trace(LogLevel::WARNING, messages::MergeVersionMismatch(GetObjectName()));
        return false;
    }
    const QString xml = other.GetXmlString();
    if (xml.isEmpty())
        return true;
    QXmlStreamReader reader(xml);
    if (!ReadXmlUntil(reader, GetObjectName()))
        return false;
    ProcessXml(reader);
    return true;
}

void IRGObject::ProcessXml(QXmlStreamReader& reader)
{
    xmltools::ForEachChild(reader, [&] { ProcessXmlStartElement(reader); });
    ReportXmlError(reader);
}

QString IRGObject::GetXmlString() const
{
    TraceProgress(messages::GeneratingXmlString);
    if (GetValidate())
        Check();
    QString xml;
    const FastPath* const fastPath = ObjectAccess::FastPathToWrite(*this);
    return fastPath && fastPath->writeXml(*this, xml) ? xml : WrittenXml(*this);
}

bool IRGObject::LoadXml(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw RGException(messages::CantOpenForReading(path));
    return LoadXml(&file);
}

bool IRGObject::LoadXml(QFile* file)
{
    Reset();
    // Held until it has returned: a converter that assigns this object takes the proxy away from it.
    const std::shared_ptr<VersionConverterProxy> proxy = ObjectAccess::ConverterOf(*this);
    if (proxy && proxy->CanUseProxy(file, this)) {
        Trace(LogLevel::INFO, messages::LoadingXmlFileWithConverter(GetObjectName(), file->fileName()));
        file->QIODevice::reset();
        return proxy->LoadXml(file);
    }
    Trace(LogLevel::INFO, messages::LoadingXmlFile(GetObjectName(), file->fileName()));
    scannedxml::ScannedDevice scanned(*file);
    const FastPath* const fastPath = ObjectAccess::FastPathOf(*this);
    if (fastPath && ReadOnFastPath(*fastPath, *this, *file, scanned))
        return true;
    QXmlStreamReader reader(&scanned);
    return ReadElement(reader);
}

bool IRGObject::SaveXml(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    if (!ObjectAccess::FastPathOf(*this)) {
        file.write(GetXmlString().toUtf8());
        return true;
    }
    TraceProgress(messages::GeneratingXmlString);
    if (GetValidate())
        Check();
    QByteArray xml;
    const FastPath* const fastPath = ObjectAccess::FastPathToWrite(*this);
    file.write(fastPath && fastPath->writeXmlBytes(*this, xml) ? xml : WrittenXml(*this).toUtf8());
    return true;
}

QString IRGObject::GetTextValue(QXmlStreamReader& reader) const
{
    QString text;
    WalkText(reader, [&](const auto& piece) { text = piece.toString(); });
    ReportXmlError(reader);
    return text;
}

void ReadElementText(const IRGObject& object, QXmlStreamReader& reader, double& value)
{
    value = 0.0;
    WalkText(reader, [&](const auto& piece) { value = numbers::FromText(piece); });
    ObjectAccess::ReportXmlError(object, reader);
}

bool IRGObject::ReadXmlUntil(QXmlStreamReader& reader, const QString& name) const
{
    while (xmltools::ReadNext(reader)) {
        if (reader.isStartElement() && reader.name() == name)
            return true;
    }
    ReportXmlError(reader);
    return false;
}

bool IRGObject::StartsWith(const QString& xml, const QString& name) const
{
    QXmlStreamReader reader(xml);
    while (xmltools::ReadNext(reader)) {
        if (reader.isStartElement())
            return reader.name() == name;
    }
    ReportXmlError(reader);
    return false;
}

/// Reads the first element of the object's name; the steps that all ways of loading XML share.
bool IRGObject::ReadElement(QXmlStreamReader& reader)
{
    if (!ReadXmlUntil(reader, GetObjectName()))
        return false;
    ProcessXml(reader);
    if (GetValidate())
        Check();
    return true;
}

void IRGObject::ReportXmlError(const QXmlStreamReader& reader) const
{
    if (const auto excess = scannedxml::ExcessOn(reader); excess != MarkupScanner::Excess::None)
        reporting::Throw(*this, RGException(messages::TooMuchMarkup(excess)));
    if (reader.hasError())
        reporting::Throw(*this, RGException(reader.errorString()));
}

} // namespace REPORTGENERATOR
