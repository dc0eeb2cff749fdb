#ifndef REPORTGENERATOR_QT_FILES_H
#define REPORTGENERATOR_QT_FILES_H

#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QString>

// Files of any form, in a call each that either does it all or throws `RGException`.
//
//     ReportBase report = LoadReport(QStringLiteral("today.xml"));
//     SaveFile(report, QStringLiteral("today.bin"), FileForm::Compressed);

namespace REPORTGENERATOR {

/// What a file holds.
enum class FileForm
{
    Xml,        ///< the XML text in UTF-8, with the platform's line ends, as `IRGObject::SaveXml` writes it
    Plain,      ///< the plain representation
    Compressed, ///< the compressed representation
    Binary      ///< a binary file, as `IRGObject::LoadBinary` reads it, of the compressed representation
};

namespace detail {

constexpr QDataStream::Version FILE_STREAM_VERSION = QDataStream::Qt_4_6;

/// zlib's own level.
constexpr int DEFAULT_COMPRESSION = -1;

/// So many bytes tell what a file holds: the size of a byte array, and a marker.
constexpr qint64 HEAD_SIZE = 64;

/// What a representation consists of.
struct RepresentationParts
{
    explicit RepresentationParts(const QByteArray& representation) : stream(representation)
    {
        stream.setVersion(FILE_STREAM_VERSION);
        stream >> marker;
    }

    QDataStream stream; ///< stands behind the marker
    QString marker;     ///< null when there is none
};

/// The markers, as objects of all classes write them.
inline QString PlainMarker()
{
    return RepresentationParts(ReportBase().GetBinaryRepresentationAsQByteArray()).marker;
}

inline QString CompressedMarker()
{
    return RepresentationParts(
               ReportBase().GetCompressedBinaryRepresentationAsQByteArray(DEFAULT_COMPRESSION))
        .marker;
}

inline bool BeginsRepresentation(const QByteArray& bytes)
{
    const QString marker = RepresentationParts(bytes).marker;
    return !marker.isNull() && (marker == PlainMarker() || marker == CompressedMarker());
}

/// The byte array that a binary file consists of, null when it is cut off.
inline QByteArray BinaryFileContent(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(FILE_STREAM_VERSION);
    QByteArray content;
    stream >> content;
    return content;
}

/// Whether the root element, which begins with a tag and a length, is all there.
inline bool IsWholeRoot(const QByteArray& root)
{
    QDataStream stream(root);
    qint32 tag = 0;
    qint32 length = 0;
    stream >> tag >> length;
    return stream.status() == QDataStream::Ok && length >= 0 && length <= stream.device()->bytesAvailable();
}

inline bool HoldsData(const IRGObject& object)
{
    const auto* const report = dynamic_cast<const ReportBase*>(&object);
    return report ? report->AnyData() : object.HasData();
}

/// Whether all of a representation has got into the object, which has read it without an error: neither does the end of
/// the bytes within a field count as one, nor that compressed data are damaged or belong to another object.
inline bool IsAllRead(const QByteArray& representation, const IRGObject& object)
{
    RepresentationParts parts(representation);
    QString name;
    parts.stream >> name;
    const bool isPlain = parts.marker == PlainMarker();
    if (isPlain && !IsWholeRoot(representation.mid(static_cast<int>(parts.stream.device()->pos()))))
        return false;
    if (HoldsData(object))
        return true;
    QByteArray data;
    if (!isPlain)
        parts.stream >> data;
    return name == object.GetObjectName() && (isPlain || IsWholeRoot(IRGObject::UncompressBinary(data)));
}

inline void LoadRepresentation(IRGObject& object, QByteArray bytes, const QString& path)
{
    object.Reset();
    if (!object.SetBinaryRepresentation(bytes) || !IsAllRead(bytes, object))
        throw RGException(QStringLiteral("'%1' is damaged or holds no %2").arg(path, object.GetObjectName()));
    if (object.GetValidate())
        object.Check();
}

inline QByteArray WrittenForm(const IRGObject& object, FileForm form)
{
    if (form == FileForm::Xml)
        return object.GetXmlString().toUtf8();
    if (form == FileForm::Plain)
        return object.GetBinaryRepresentationAsQByteArray();
    const QByteArray compressed = object.GetCompressedBinaryRepresentationAsQByteArray(DEFAULT_COMPRESSION);
    if (form == FileForm::Compressed)
        return compressed;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(FILE_STREAM_VERSION);
    stream << compressed;
    return bytes;
}

} // namespace detail

/// Loads an object from a file, whatever its form.
///
/// Throws `RGException`: "Can't open file for reading: '%1'", which leaves the object untouched; "'%1' is damaged or
/// holds no %2" (%2 is the object name) when it is a binary form that can't be read or one of another object;
/// "'%1' holds no %2" when it is XML without the element; and what reading and, when the object validates, checking it
/// throw. The object then holds what was read so far.
inline void LoadFile(IRGObject& object, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RGException(QStringLiteral("Can't open file for reading: '%1'").arg(path));
    const QByteArray head = file.peek(detail::HEAD_SIZE);
    if (detail::BeginsRepresentation(head))
        detail::LoadRepresentation(object, file.readAll(), path);
    else if (detail::BeginsRepresentation(head.mid(sizeof(qint32))))
        detail::LoadRepresentation(object, detail::BinaryFileContent(file.readAll()), path);
    else if (!object.LoadXml(&file))
        throw RGException(QStringLiteral("'%1' holds no %2").arg(path, object.GetObjectName()));
}

/// A report from a file, whatever its form, checked. Throws as `LoadFile`. For a report that may be incomplete, give
/// `LoadFile` one that doesn't validate.
inline ReportBase LoadReport(const QString& path)
{
    ReportBase report;
    LoadFile(report, path);
    return report;
}

/// Writes an object to a file, which holds either all of it or what it held before: the bytes are complete before the
/// file is touched, and take its place when they are written.
///
/// Throws `RGException`: what the object throws when it is incomplete or has no such form; "%1: there is nothing to
/// write" (%1 is the object name) for one whose form is empty; and "Can't write '%1': %2" with the system's reason.
inline void SaveFile(const IRGObject& object, const QString& path, FileForm form = FileForm::Xml)
{
    const QByteArray bytes = detail::WrittenForm(object, form);
    if (bytes.isEmpty())
        throw RGException(QStringLiteral("%1: there is nothing to write").arg(object.GetObjectName()));
    QSaveFile file(path);
    const bool isText = form == FileForm::Xml;
    if (!file.open(isText ? QIODevice::WriteOnly | QIODevice::Text : QIODevice::WriteOnly) ||
        file.write(bytes) != static_cast<qint64>(bytes.size()) || !file.commit())
        throw RGException(QStringLiteral("Can't write '%1': %2").arg(path, file.errorString()));
}

} // namespace REPORTGENERATOR

#endif
