#ifndef REPORTCORE_INSPECT_BINARYINSPECTOR_H
#define REPORTCORE_INSPECT_BINARYINSPECTOR_H

#include <reportcore/inspect/event.h>
#include <reportcore/inspect/filerange.h>
#include <reportcore/inspect/itemcounts.h>
#include <reportcore/problem.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <optional>

namespace ReportCore {

/// The bytes of compressed data with their prefix, which is how many they are when uncompressed; empty where there are
/// none. The array holds a compressed representation, or is a binary file that holds one.
FileRange CompressedData(const QByteArray& bytes, bool isBinaryFile);

/// What the bytes of a field are.
enum class Kind
{
    Tag,
    Length,
    SizeOfBytes,
    SizeOfUtf8,
    SizeOfUtf16,
    Count,
    Prefix,
    Utf8,
    Utf16,
    Bool,
    Other
};

/// Whether it is a number of bytes that follow, with a value that stands for none at all.
bool IsSize(Kind kind);

/// Whether the word is that value.
bool IsNull(Kind kind, quint32 word);

/// One field of a binary form.
struct WireField : Event
{
    Kind kind = Kind::Other;
    FileRange bytes = {};
    QString name = {}; ///< what it is, or of which element it is a part
    qint64 number = 0; ///< which of several items of a list, from 1; 0 for what is none
};

/// Goes through a binary form field by field and hands each to the visitor. Those around the report have no role.
///
/// No length is trusted: an element that claims more than there is gets what there is, and the field with the
/// claim is told to be faulty. The inspector tells what the bytes are; what they mean to a report is the library's
/// to say.
class BinaryInspector
{
public:
    using Visitor = std::function<void(const WireField& field)>;

    /// The array, which must outlive the inspector, holds a representation, or is a binary file that holds one.
    BinaryInspector(const QByteArray& bytes, bool isBinaryFile, Visitor visit);

    /// The fields around the report: marker, object name, compressed data.
    void Envelope();

    /// The report's own fields; after `Envelope`.
    void Body();

    /// What stands behind all of that; after `Envelope`.
    void End();

    // After `Envelope`:

    bool IsCompressed() const { return m_isCompressed; }

    /// All of the representation, without what is around it in a file.
    QByteArray RepresentationBytes() const { return m_representation.Bytes(); }

    /// Name of the object that was written.
    const QString& ObjectName() const { return m_objectName; }

    /// Root tag, root length and elements, uncompressed. Valid as long as the inspector.
    QByteArray BodyBytes() const { return m_body.Bytes(); }

    /// Where these begin: in the array, or 0 where they were compressed.
    qint64 BodyOffset() const { return m_body.Offset(); }

    /// Whether a fault has come up so far.
    bool HasFault() const { return m_hasFault; }

    /// Whether the fields that come up are the report's own.
    bool IsInBody() const { return m_isInBody; }

    /// The place of a byte of the body.
    FilePlace PlaceOf(qint64 offset) const { return {0, 0, offset, m_isCompressed}; }

private:
    std::optional<FileRange> Counted(FileRange& range, Kind kind, int depth, const QString& name,
                                     qint64 number = 0);
    FileRange Text(FileRange& range, Kind sizeKind, const QString& name, int depth);
    void Uncompress(FileRange data, int depth);
    void Elements(FileRange range, const ObjectInfo* object, int depth);
    void Element(FileRange& range, const ObjectInfo* object, int depth);
    void Payload(FileRange payload, const Field& type, int depth);
    void Value(FileRange& payload, const Field& type, int depth);
    void Bool(FileRange& payload, const Field& type, int depth);
    void Items(FileRange& payload, const Field& list, int depth);
    void Visit(Kind kind, const FileRange& bytes, int depth, const QString& name);
    void Visit(WireField field);
    void GiveRole(WireField& field) const;
    void Fault(const FileRange& bytes, int depth, const char* fault, const QString& text);
    void Behind(const FileRange& bytes, int depth);

    Visitor m_visit;
    FileRange m_all;
    bool m_isBinaryFile;
    bool m_isCompressed = false;
    bool m_hasFault = false;
    bool m_isInBody = false;
    bool m_isUnknown = false; ///< of the element whose tag comes up
    int m_depth = 0;
    FieldPath m_path;
    ItemCounts m_counts;
    QString m_objectName;
    QByteArray m_uncompressed;
    FileRange m_representation;
    FileRange m_body;
    FileRange m_behindData;
    FileRange m_behindRepresentation;
};

/// What a field is, without its kind: "bytes of longitude"; what is wrong with it stands behind: "bytes of
/// longitude: 12 claimed, 8 left".
QString Describe(const WireField& field);

/// A faulty field for those who don't see its bytes: "length of longitude: 12 claimed, 8 left".
QString DescribeFault(const WireField& field);

} // namespace ReportCore

#endif
