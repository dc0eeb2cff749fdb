// What surrounds an object's own body: markers, compression, byte arrays and binary files.

#include <reportgenerator/reportbase/irgobject.h>

#include <reportgenerator/reportbase/forms/compression.h>
#include <reportgenerator/reportbase/forms/taggedelements.h>
#include <reportgenerator/reportbase/forms/taggedsinks.h>
#include <reportgenerator/reportbase/frames/objectaccess.h>
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

void ReadRootElement(IRGObject& object, QDataStream& stream)
{
    qint32 tag = 0;
    qint32 length = 0;
    stream >> tag >> length;
    object.SetBinary(stream, length);
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
    QDataStream stream(representation);
    stream.setVersion(wire::STREAM_VERSION);
    return SetBinaryRepresentation(stream);
}

bool IRGObject::SetBinaryRepresentation(QDataStream& stream)
{
    TraceProgress(messages::LoadingBinaryStream);
    stream.setVersion(wire::STREAM_VERSION);
    const QString marker = elements::ReadText(stream);
    const QString objectName = elements::ReadText(stream);
    Q_UNUSED(objectName) // An object of any name may be offered; its tags decide what is taken.
    if (marker == wire::PLAIN_MARKER) {
        ReadRootElement(*this, stream);
        return true;
    }
    if (marker == wire::COMPRESSED_MARKER) {
        const QByteArray body = UncompressBinary(elements::ReadBytes(stream));
        QDataStream bodyStream(body);
        bodyStream.setVersion(wire::STREAM_VERSION);
        ReadRootElement(*this, bodyStream);
        return true;
    }
    return false;
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
    return WrittenBytes([this](QDataStream& stream) { GetBinaryRepresentation(stream); });
}

void IRGObject::GetCompressedBinaryRepresentation(QDataStream& stream, int level) const
{
    TraceProgress(messages::GeneratingCompressedStream);
    if (GetValidate())
        Check();
    stream.setVersion(wire::STREAM_VERSION);
    const QByteArray body =
        WrittenBytes([this](QDataStream& inner) { GetBinary(inner, wire::ROOT_TAG, true); });
    stream << wire::COMPRESSED_MARKER.Text() << GetObjectName() << Compress(body, level);
}

QByteArray IRGObject::GetCompressedBinaryRepresentationAsQByteArray(int level) const
{
    TraceProgress(messages::GeneratingCompressedArray);
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
    return qCompress(data, level);
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
    const QByteArray bytes = UncompressBinary(data);
    QDataStream stream(bytes);
    stream.setVersion(wire::STREAM_VERSION);
    return elements::ReadText(stream);
}

} // namespace REPORTGENERATOR
