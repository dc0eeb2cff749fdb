#ifndef REPORTCORE_WALK_H
#define REPORTCORE_WALK_H

#include <reportcore/byterange.h>
#include <reportcore/itemcounts.h>
#include <reportcore/problem.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <optional>

namespace ReportCore {

/// The bytes of compressed data with their prefix, which is how many they are when uncompressed; empty where there are
/// none. The array holds a compressed representation, or is a binary file that holds one.
ByteRange CompressedData(const QByteArray& bytes, bool isBinaryFile);

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
struct WireField
{
    Kind kind = Kind::Other;
    ByteRange bytes;
    int depth = 0;          ///< how many lengths and counts stand around it
    QString name = {};      ///< what it is, or of which element it is a part
    qint64 number = 0;      ///< which of several items of a list, from 1; 0 for what is none
    const char* fault = ""; ///< name of the problem; empty for a field that is as it should be
    QString faultText = {}; ///< what is wrong with it

    /// Of a report, which field or object it belongs to; empty for what belongs to none. Valid during the visit.
    const FieldPath* path = nullptr;

    bool IsFaulty() const { return *fault != '\0'; }
};

/// Walks a binary form field by field and hands each to the visitor.
///
/// No length is trusted: an element that claims more than there is gets what there is, and the field with the
/// claim is told to be faulty. The walk tells what the bytes are; what they mean to a report is the library's
/// to say.
class Walk
{
public:
    using Visitor = std::function<void(const WireField& field)>;

    /// The array, which must outlive the walk, holds a representation, or is a binary file that holds one.
    Walk(const QByteArray& bytes, bool isBinaryFile, Visitor visit);

    /// The fields around the report: marker, object name, compressed data.
    void Frame();

    /// The report's own fields; after `Frame`.
    void Body();

    /// What stands behind all of that; after `Frame`.
    void End();

    // After `Frame`:

    bool IsCompressed() const { return m_isCompressed; }

    /// All of the representation, without what is around it in a file.
    QByteArray RepresentationBytes() const { return m_representation.Bytes(); }

    /// Name of the object that was written.
    const QString& ObjectName() const { return m_objectName; }

    /// Root tag, root length and elements, uncompressed. Valid as long as the walk.
    QByteArray BodyBytes() const { return m_body.Bytes(); }

    /// Where these begin: in the array, or 0 where they were compressed.
    qint64 BodyOffset() const { return m_body.Offset(); }

    /// Whether a fault has come up so far.
    bool HasFault() const { return m_hasFault; }

private:
    std::optional<ByteRange> Counted(ByteRange& range, Kind kind, int depth, const QString& name,
                                     qint64 number = 0);
    ByteRange Text(ByteRange& range, Kind sizeKind, const QString& name, int depth);
    void Uncompress(ByteRange data, int depth);
    void Elements(ByteRange range, const ObjectInfo* object, int depth);
    void Element(ByteRange& range, const ObjectInfo* object, int depth);
    void Payload(ByteRange payload, const Field& type, int depth);
    void Value(ByteRange& payload, const Field& type, int depth);
    void Bool(ByteRange& payload, const Field& type, int depth);
    void Items(ByteRange& payload, const Field& list, int depth);
    void Visit(Kind kind, const ByteRange& bytes, int depth, const QString& name);
    void Visit(WireField field);
    void Fault(const ByteRange& bytes, int depth, const char* fault, const QString& text);
    void Behind(const ByteRange& bytes, int depth);

    Visitor m_visit;
    ByteRange m_all;
    bool m_isBinaryFile;
    bool m_isCompressed = false;
    bool m_hasFault = false;
    int m_depth = 0;
    FieldPath m_path;
    ItemCounts m_counts;
    QString m_objectName;
    QByteArray m_uncompressed;
    ByteRange m_representation;
    ByteRange m_body;
    ByteRange m_behindData;
    ByteRange m_behindRepresentation;
};

/// What a field is, without its kind: "bytes of longitude"; what is wrong with it stands behind: "bytes of
/// longitude: 12 claimed, 8 left".
QString Describe(const WireField& field);

/// A faulty field for those who don't see its bytes: "length of longitude: 12 claimed, 8 left".
QString DescribeFault(const WireField& field);

} // namespace ReportCore

#endif
