// The ways of writing of support/roadforms.h.

#include "support/devices.h"
#include "support/oddvalues.h"
#include "support/roadforms.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QXmlStreamWriter>

namespace Support {
namespace {

using REPORTGENERATOR::IRGObject;

constexpr int STREAM_VERSION = 12;
const QString ROOT = QStringLiteral("Root");

// --- Streams

void NoteStream(Road& road, const QDataStream& stream)
{
    road.Note("stream status", static_cast<int>(stream.status()));
    road.Note("stream version", stream.version());
    road.Note("byte order", static_cast<int>(stream.byteOrder()));
    road.Note("precision", static_cast<int>(stream.floatingPointPrecision()));
}

void Configure(QDataStream& stream, Choices& choices)
{
    stream.setVersion(STREAM_VERSION);
    if (choices.OneIn(4))
        stream.setVersion(AnyStreamVersion(choices));
    if (choices.OneIn(4))
        stream.setByteOrder(QDataStream::LittleEndian);
    if (choices.OneIn(4))
        stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    if (choices.OneIn(16))
        stream.setStatus(choices.Of({QDataStream::ReadPastEnd, QDataStream::WriteFailed}));
}

/// Writes something before and behind, as a caller does who writes several things into one stream.
void WriteOn(Road& road, QIODevice* device, Choices& choices, const std::function<void(QDataStream&)>& write)
{
    QDataStream stream(device);
    Configure(stream, choices);
    if (choices.Below(2) == 1)
        stream << qint16(7);
    road.Attempt("write on stream", [&] { write(stream); });
    NoteStream(road, stream);
    if (device != nullptr)
        road.Note("position", device->pos());
    stream << qint16(9);
    NoteStream(road, stream);
}

void WriteOnBuffer(Road& road, QBuffer& buffer, QIODevice::OpenMode mode, qint64 position, Choices& choices,
                   const std::function<void(QDataStream&)>& write)
{
    buffer.open(mode);
    buffer.seek(position);
    WriteOn(road, &buffer, choices, write);
    road.Note("content", buffer.data());
}

void WriteOnSomething(Road& road, Choices& choices, const std::function<void(QDataStream&)>& write)
{
    constexpr int SOME_BYTES = 700;
    QBuffer buffer;
    switch (choices.Below(12)) {
    case 5: {
        buffer.setData(QByteArray(SOME_BYTES, 'x'));
        WriteOnBuffer(road, buffer, QIODevice::ReadWrite, choices.Below(SOME_BYTES), choices, write);
        break;
    }
    case 6: {
        buffer.setData(QByteArray("before"));
        WriteOnBuffer(road, buffer, QIODevice::WriteOnly | QIODevice::Append, 0, choices, write);
        break;
    }
    case 7: {
        Sequential device;
        device.open(QIODevice::WriteOnly);
        WriteOn(road, &device, choices, write);
        road.Note("content", device.Content());
        break;
    }
    case 8: {
        Limited device(choices.Below(SOME_BYTES));
        WriteOnBuffer(road, device, QIODevice::WriteOnly, 0, choices, write);
        break;
    }
    case 9: {
        QFile file(ScratchPath());
        file.open(QIODevice::WriteOnly);
        WriteOn(road, &file, choices, write);
        file.close();
        road.Note("content", ReadScratch());
        break;
    }
    case 10:
        WriteOn(road, nullptr, choices, write);
        break;
    case 11:
        WriteOnBuffer(road, buffer, QIODevice::ReadOnly, 0, choices, write);
        break;
    default:
        WriteOnBuffer(road, buffer, QIODevice::WriteOnly, 0, choices, write);
        break;
    }
}

// --- Writers

void Configure(QXmlStreamWriter& writer, Choices& choices)
{
    writer.setAutoFormatting(choices.Below(2) == 0);
    if (choices.OneIn(3))
        writer.setAutoFormattingIndent(choices.Of({0, 1, 2, 8, -1, -2}));
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    if (choices.OneIn(4))
        writer.setCodec(choices.Of({"ISO-8859-1", "UTF-16", "UTF-16BE", "Windows-1252"}));
#endif
}

void WriteBefore(QXmlStreamWriter& writer, int form)
{
    switch (form) {
    case 1:
        writer.writeStartDocument();
        break;
    case 2:
        writer.writeStartElement(ROOT);
        break;
    case 3:
        writer.writeStartElement(ROOT);
        writer.writeAttribute(QStringLiteral("a"), QStringLiteral("b"));
        break;
    case 4:
        writer.writeStartElement(ROOT);
        writer.writeCharacters(QStringLiteral("text"));
        break;
    case 5:
        writer.writeStartElement(QStringLiteral("urn:x"), ROOT);
        break;
    case 6:
        writer.writeDefaultNamespace(QStringLiteral("urn:x"));
        writer.writeStartElement(QStringLiteral("urn:x"), ROOT);
        break;
    case 7:
        writer.writeComment(QStringLiteral("before"));
        break;
    case 8:
        writer.writeStartElement(ROOT);
        writer.writeStartElement(ROOT);
        writer.writeEmptyElement(ROOT);
        break;
    default:
        break;
    }
}

void WriteAfter(QXmlStreamWriter& writer, int form)
{
    switch (form) {
    case 0:
        writer.writeTextElement(QStringLiteral("After"), QStringLiteral("x"));
        break;
    case 1:
        writer.writeCharacters(QStringLiteral("after"));
        break;
    case 2:
        writer.writeEndElement();
        break;
    default:
        break;
    }
    writer.writeEndDocument();
}

void WriteOn(Road& road, const IRGObject& object, QXmlStreamWriter& writer, Choices& choices)
{
    Configure(writer, choices);
    WriteBefore(writer, choices.Below(9));
    road.Attempt("write by writer", [&] { object.GetXml(writer); });
    road.Note("writer has an error", writer.hasError());
    if (choices.OneIn(4))
        road.Attempt("write again", [&] { object.GetXml(writer); });
    WriteAfter(writer, choices.Below(4));
    road.Note("writer has an error", writer.hasError());
}

void WriteByWriter(Road& road, const IRGObject& object, Choices& choices)
{
    constexpr int SOME_BYTES = 300;
    switch (choices.Below(6)) {
    case 0: {
        QString text = choices.OneIn(4) ? QStringLiteral("before") : QString();
        QXmlStreamWriter writer(&text);
        WriteOn(road, object, writer, choices);
        road.Note("text", text);
        break;
    }
    case 1: {
        QByteArray bytes;
        QXmlStreamWriter writer(&bytes);
        WriteOn(road, object, writer, choices);
        road.Note("bytes", bytes);
        break;
    }
    case 2: {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&buffer);
        WriteOn(road, object, writer, choices);
        road.Note("position", buffer.pos());
        road.Note("bytes", buffer.data());
        break;
    }
    case 3: {
        Sequential device;
        device.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&device);
        WriteOn(road, object, writer, choices);
        road.Note("bytes", device.Content());
        break;
    }
    case 4: {
        Limited device(choices.Below(SOME_BYTES));
        device.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&device);
        WriteOn(road, object, writer, choices);
        road.Note("bytes", device.data());
        break;
    }
    default: {
        QXmlStreamWriter writer;
        WriteOn(road, object, writer, choices);
        break;
    }
    }
}

void SaveXml(Road& road, const IRGObject& object, Choices& choices)
{
    const int form = choices.Below(4);
    if (form == 0)
        RemoveScratch();
    else
        WriteScratch(QByteArray(form == 1 ? 10000 : 1, 'x'));
    const QString path = form == 3 ? MissingPath() : ScratchPath();
    road.Attempt("save", [&] { road.Note("saved", object.SaveXml(path)); });
    road.Note("file", ReadScratch());
}

int AnyLevel(Choices& choices)
{
    return choices.Of({-1, 0, 1, 6, 9, 9, -2, 10, 1000});
}

int AnyTag(Choices& choices)
{
    return choices.Of({1, 0, -1, 0x11223344});
}

void Merge(Road& road, Traveller& traveller, Choices& choices)
{
    const std::unique_ptr<Traveller> other = traveller.New();
    Arrange(road, *other, choices);
    other->Object().SetLogger(road.Logger(1));
    const int form = choices.Below(4);
    IRGObject& target = form < 2 ? traveller.Object() : other->Object();
    const IRGObject& source = form == 1 || form == 2 ? traveller.Object() : other->Object();
    road.Attempt("merge", [&] { road.Note("merged", target.MergeRGObject(source)); });
    other->NoteState(road.Transcript());
}

} // namespace

void Write(Writing writing, Road& road, Traveller& traveller, Choices choices)
{
    const IRGObject& object = traveller.Object();
    switch (writing) {
    case Writing::XmlString:
        road.Attempt("text", [&] { road.Note("text", object.GetXmlString()); });
        break;
    case Writing::XmlFile:
        SaveXml(road, object, choices);
        break;
    case Writing::XmlWriter:
        WriteByWriter(road, object, choices);
        break;
    case Writing::PlainArray:
        road.Attempt("plain", [&] { road.Note("bytes", object.GetBinaryRepresentationAsQByteArray()); });
        break;
    case Writing::PlainStream:
        WriteOnSomething(road, choices, [&](QDataStream& stream) { object.GetBinaryRepresentation(stream); });
        break;
    case Writing::CompressedArray: {
        const int level = AnyLevel(choices);
        road.Attempt("compressed", [&] {
            road.Note("bytes", object.GetCompressedBinaryRepresentationAsQByteArray(level));
        });
        break;
    }
    case Writing::CompressedStream: {
        const int level = AnyLevel(choices);
        WriteOnSomething(road, choices, [&](QDataStream& stream) {
            object.GetCompressedBinaryRepresentation(stream, level);
        });
        break;
    }
    case Writing::Body: {
        const int tag = AnyTag(choices);
        const bool withTag = choices.Below(2) == 0;
        WriteOnSomething(road, choices, [&](QDataStream& stream) {
            road.Note("written", object.GetBinary(stream, tag, withTag));
        });
        break;
    }
    case Writing::Raw:
        WriteOnSomething(road, choices, [&](QDataStream& stream) { traveller.WriteRaw(stream); });
        break;
    case Writing::Check:
        road.Attempt("check, logging only", [&] { object.Check(true); });
        road.Attempt("check", [&] { object.Check(); });
        break;
    case Writing::Merge:
        Merge(road, traveller, choices);
        break;
    }
}

void WriteMainForms(Road& road, Traveller& traveller)
{
    const IRGObject& object = traveller.Object();
    object.SetLogger(nullptr);
    object.SetValidate(false);
    road.Attempt("text", [&] { road.Note("text", object.GetXmlString()); });
    road.Attempt("plain", [&] { road.Note("bytes", object.GetBinaryRepresentationAsQByteArray()); });
    road.Attempt("raw", [&] {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(STREAM_VERSION);
        traveller.WriteRaw(stream);
        road.Note("bytes", bytes);
    });
}

} // namespace Support
