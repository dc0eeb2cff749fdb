#ifndef REPORTCORE_INSPECT_BINARYINSPECTOR_H
#define REPORTCORE_INSPECT_BINARYINSPECTOR_H

#include <reportcore/inspect/inspector.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ReportCore {

/// The bytes of compressed data with their prefix, which is how many they are when uncompressed; empty where there are
/// none. The array holds a compressed representation, or is a binary file that holds one.
FileRange CompressedData(const QByteArray& bytes, bool isBinaryFile);

/// Goes through a binary form field by field. Those around the report have no role.
///
/// No length is trusted: an element that claims more than there is gets what there is, and the field with the
/// claim is told to be faulty.
class BinaryInspector : public Inspector
{
public:
    /// The array, which must outlive the inspector, holds a representation, or is a binary file that holds one.
    BinaryInspector(const QByteArray& bytes, bool isBinaryFile, Visitor visit);

    /// `Envelope` and `Body`.
    void Run() override;

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

    FilePlace PlaceOf(qint64 position) const override
    {
        return {0, 0, position, m_isCompressed && m_isInBody};
    }

private:
    std::optional<FileRange> Counted(FileRange& range, Event::Kind kind, int depth, const QString& name,
                                     qint64 number = 0);
    FileRange CountedText(FileRange& range, Event::Kind sizeKind, int depth, const QString& name);
    void Uncompress(FileRange data, int depth);
    void Elements(FileRange range, const ObjectInfo* object, int depth);
    void Element(FileRange& range, const ObjectInfo* object, int depth);
    void Payload(FileRange payload, const Field& type, int depth);
    void Bool(FileRange& payload, int depth, const QString& name);
    void Items(FileRange& payload, const Field& list, int depth);
    Event FieldOf(Event::Kind kind, const FileRange& bytes, int depth, const QString& name) const;
    void HandOut(Event::Kind kind, const FileRange& bytes, int depth, const QString& name);
    void Fault(const FileRange& bytes, int depth, const char* fault, const QString& text);
    void Behind(const FileRange& bytes, int depth);

    FileRange m_all;
    bool m_isBinaryFile;
    bool m_isCompressed = false;
    bool m_isInBody = false;
    int m_depth = 0;
    FieldPath m_path;
    QString m_objectName;
    QByteArray m_uncompressed;
    FileRange m_representation;
    FileRange m_body;
    FileRange m_behindData;
    FileRange m_behindRepresentation;
};

} // namespace ReportCore

#endif
