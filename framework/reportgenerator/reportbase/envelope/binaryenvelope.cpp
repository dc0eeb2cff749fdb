// What surrounds an object's own body: markers, compression, byte arrays and binary files.

#include <reportgenerator/reportbase/irgobject.h>

#include <reportgenerator/reportbase/codec/byterange.h>
#include <reportgenerator/reportbase/codec/compression.h>
#include <reportgenerator/reportbase/codec/taggedelements.h>
#include <reportgenerator/reportbase/codec/taggedsinks.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/reporting_p.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>

namespace REPORTGENERATOR {

namespace {

/// What `write` writes to a stream of the library's version.
template <class Write>
QByteArray WrittenBytes(Write&& write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setVersion(wire::STREAM_VERSION);
    write(stream);
    return buffer.data();
}

/// A stream of the library's version on bytes. One that Qt makes of the bytes loses its buffer when this can't be
/// opened for want of memory.
class StreamOfBytes
{
public:
    explicit StreamOfBytes(const QByteArray& bytes) : m_stream(&m_buffer)
    {
        m_buffer.setData(bytes);
        m_buffer.open(QIODevice::ReadOnly);
        m_stream.setVersion(wire::STREAM_VERSION);
    }

    QDataStream& Get() { return m_stream; }

private:
    QBuffer m_buffer;
    QDataStream m_stream;
};

/// Marker and name of a representation, as a stream of the library's version writes them, in one buffer.
void PutHead(ElementBytes& sink, const Name& marker, const IRGObject& object)
{
    sink.Text(marker.Text());
    sink.Text(object.GetObjectName());
}

/// Reads a root element past Qt's stream. Returns false, with the object untouched, for whatever is odd.
bool ReadRootOnFastPath(const FastPath& fastPath, IRGObject& object, ByteRange range)
{
    qint32 tag = 0;
    qint32 length = 0;
    ByteRange body = {};
    return range.TakeWord(tag) && range.TakeWord(length) && length > 0 && range.TakePart(length, body) &&
           fastPath.readBody(object, body.next, body.Left());
}

void ReadRootElement(IRGObject& object, QDataStream& stream)
{
    qint32 tag = 0;
    qint32 length = 0;
    stream >> tag >> length;
    object.SetBinary(stream, length);
}

/// Reads what compressed data hold.
void ReadCompressed(IRGObject& object, const QByteArray& data)
{
    const QByteArray body = IRGObject::UncompressBinary(data);
    const FastPath* const fastPath = ObjectAccess::FastPathOf(object);
    if (fastPath && ReadRootOnFastPath(*fastPath, object, {body.constData(), body.constData() + body.size()}))
        return;
    ReadRootElement(object, StreamOfBytes(body).Get());
}

/// Returns false, with the object untouched, for an unknown marker.
bool ReadRepresentation(IRGObject& object, QDataStream& stream)
{
    const QString marker = elements::ReadText(stream);
    const QString objectName = elements::ReadText(stream);
    Q_UNUSED(objectName) // An object of any name may be offered; its tags decide what is taken.
    if (marker == wire::PLAIN_MARKER)
        ReadRootElement(object, stream);
    else if (marker == wire::COMPRESSED_MARKER)
        ReadCompressed(object, elements::ReadBytes(stream));
    else
        return false;
    return true;
}

/// Reads a representation past Qt's stream. Returns false, with the object untouched, for whatever is odd.
bool ReadOnFastPath(const FastPath& fastPath, IRGObject& object, const QByteArray& representation)
{
    ByteRange range = {representation.constData(), representation.constData() + representation.size()};
    ByteRange marker = {};
    ByteRange objectName = {};
    if (!range.TakeText(marker) || !range.TakeText(objectName))
        return false;
    if (marker.HoldsText(wire::PLAIN_MARKER))
        return ReadRootOnFastPath(fastPath, object, range);
    ByteRange data = {};
    if (!marker.HoldsText(wire::COMPRESSED_MARKER) || !range.TakeCounted(data))
        return false;
    ReadCompressed(object, QByteArray::fromRawData(data.next, static_cast<int>(data.Left())));
    return true;
}

/// Puts the root element, in one go or by a stream.
void PutRootElement(Buffer<QByteArray>& out, const IRGObject& object)
{
    const FastPath* const fastPath = ObjectAccess::FastPathToWrite(object);
    if (fastPath && fastPath->writeBody(object, wire::ROOT_TAG, true, out))
        return;
    const QByteArray element =
        WrittenBytes([&object](QDataStream& stream) { object.GetBinary(stream, wire::ROOT_TAG, true); });
    out.Append(element.constData(), element.size());
}

QByteArray RootElement(const IRGObject& object)
{
    Buffer<QByteArray> out;
    PutRootElement(out, object);
    return std::move(out).Take();
}

} // namespace

bool IRGObject::GetBinary(QDataStream& /*stream*/, int /*tag*/, bool /*withTag*/) const
{
    if (GetValidate())
        reporting::Throw(*this, RGException(messages::GetBinaryNotImplemented(m_identity->type)));
    return true;
}

void IRGObject::SetBinary(QDataStream& /*stream*/, int /*length*/)
{
    if (GetValidate())
        reporting::Throw(*this, RGException(messages::SetBinaryNotImplemented(m_identity->type)));
}

bool IRGObject::SetBinaryRepresentation(QByteArray& representation)
{
    TraceProgress(messages::LoadingBinaryArray);
    const FastPath* const fastPath = ObjectAccess::FastPathOf(*this);
    if (!fastPath)
        return SetBinaryRepresentation(StreamOfBytes(representation).Get());
    TraceProgress(messages::LoadingBinaryStream);
    return ReadOnFastPath(*fastPath, *this, representation) ||
           ReadRepresentation(*this, StreamOfBytes(representation).Get());
}

bool IRGObject::SetBinaryRepresentation(QDataStream& stream)
{
    TraceProgress(messages::LoadingBinaryStream);
    stream.setVersion(wire::STREAM_VERSION);
    return ReadRepresentation(*this, stream);
}

void IRGObject::GetBinaryRepresentation(QDataStream& stream) const
{
    TraceProgress(messages::GeneratingBinaryStream);
    if (GetValidate())
        Check();
    stream.setVersion(wire::STREAM_VERSION);
    stream << wire::PLAIN_MARKER.Text() << GetObjectName();
    GetBinary(stream, wire::ROOT_TAG, true);
}

QByteArray IRGObject::GetBinaryRepresentationAsQByteArray() const
{
    TraceProgress(messages::GeneratingBinaryArray);
    if (ObjectAccess::FastPathOf(*this)) {
        TraceProgress(messages::GeneratingBinaryStream);
        if (GetValidate())
            Check();
        Buffer<QByteArray> out;
        ElementBytes sink(out);
        PutHead(sink, wire::PLAIN_MARKER, *this);
        PutRootElement(out, *this);
        return std::move(out).Take();
    }
    return WrittenBytes([this](QDataStream& stream) { GetBinaryRepresentation(stream); });
}

void IRGObject::GetCompressedBinaryRepresentation(QDataStream& stream, int level) const
{
    TraceProgress(messages::GeneratingCompressedStream);
    if (GetValidate())
        Check();
    stream.setVersion(wire::STREAM_VERSION);
    const QByteArray body = RootElement(*this);
    stream << wire::COMPRESSED_MARKER.Text() << GetObjectName() << Compress(body, level);
}

QByteArray IRGObject::GetCompressedBinaryRepresentationAsQByteArray(int level) const
{
    TraceProgress(messages::GeneratingCompressedArray);
    if (ObjectAccess::FastPathOf(*this)) {
        TraceProgress(messages::GeneratingCompressedStream);
        if (GetValidate())
            Check();
        Buffer<QByteArray> out;
        ElementBytes sink(out);
        PutHead(sink, wire::COMPRESSED_MARKER, *this);
        sink.Bytes(Compress(RootElement(*this), level));
        return std::move(out).Take();
    }
    return WrittenBytes(
        [this, level](QDataStream& stream) { GetCompressedBinaryRepresentation(stream, level); });
}

bool IRGObject::LoadBinary(QFile* file)
{
    Trace(LogLevel::INFO, messages::LoadingBinaryFile(GetObjectName(), file->fileName()));
    Reset();
    QDataStream stream(file);
    stream.setVersion(wire::STREAM_VERSION);
    QByteArray representation = elements::ReadBytes(stream);
    // A file that begins with neither marker leaves a reset object and counts as loaded all the same.
    SetBinaryRepresentation(representation);
    if (GetValidate())
        Check();
    return true;
}

int IRGObject::skipCurrentElement(QDataStream& stream, int length, int /*unused*/) const
{
    return elements::Skip(stream, length);
}

QByteArray IRGObject::Compress(const QByteArray& data, int level)
{
    return compression::Compress(data, level);
}

QByteArray IRGObject::Compress(const QString& text, int level)
{
    return Compress(WrittenBytes([&text](QDataStream& stream) { stream << text; }), level);
}

QByteArray IRGObject::UncompressBinary(const QByteArray& data)
{
    return compression::Uncompress(data);
}

QString IRGObject::UncompressString(const QByteArray& data)
{
    return elements::ReadText(StreamOfBytes(UncompressBinary(data)).Get());
}

} // namespace REPORTGENERATOR
