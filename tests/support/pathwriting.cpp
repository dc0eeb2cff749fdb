// The ways of writing of support/pathforms.h.

#include "support/devices.h"
#include "support/oddvalues.h"
#include "support/pathforms.h"
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

void NoteStream(CodePath& codePath, const QDataStream& stream)
{
    codePath.Note("stream status", static_cast<int>(stream.status()));
    codePath.Note("stream version", stream.version());
    codePath.Note("byte order", static_cast<int>(stream.byteOrder()));
    codePath.Note("precision", static_cast<int>(stream.floatingPointPrecision()));
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
void WriteOn(CodePath& codePath, QIODevice* device, Choices& choices,
             const std::function<void(QDataStream&)>& write)
{
    QDataStream stream(device);
    Configure(stream, choices);
    if (choices.Below(2) == 1)
        stream << qint16(7);
    codePath.Attempt("write on stream", [&] { write(stream); });
    NoteStream(codePath, stream);
    if (device != nullptr)
        codePath.Note("position", device->pos());
    stream << qint16(9);
    NoteStream(codePath, stream);
}

void WriteOnBuffer(CodePath& codePath, QBuffer& buffer, QIODevice::OpenMode mode, qint64 position,
                   Choices& choices, const std::function<void(QDataStream&)>& write)
{
    buffer.open(mode);
    buffer.seek(position);
    WriteOn(codePath, &buffer, choices, write);
    codePath.Note("content", buffer.data());
}

void WriteOnSomething(CodePath& codePath, Choices& choices, const std::function<void(QDataStream&)>& write)
{
    constexpr int SOME_BYTES = 700;
    QBuffer buffer;
    switch (choices.Below(12)) {
    case 5: {
        buffer.setData(QByteArray(SOME_BYTES, 'x'));
        WriteOnBuffer(codePath, buffer, QIODevice::ReadWrite, choices.Below(SOME_BYTES), choices, write);
        break;
    }
    case 6: {
        buffer.setData(QByteArray("before"));
        WriteOnBuffer(codePath, buffer, QIODevice::WriteOnly | QIODevice::Append, 0, choices, write);
        break;
    }
    case 7: {
        Sequential device;
        device.open(QIODevice::WriteOnly);
        WriteOn(codePath, &device, choices, write);
        codePath.Note("content", device.Content());
        break;
    }
    case 8: {
        Limited device(choices.Below(SOME_BYTES));
        WriteOnBuffer(codePath, device, QIODevice::WriteOnly, 0, choices, write);
        break;
    }
    case 9: {
        QFile file(ScratchPath());
        file.open(QIODevice::WriteOnly);
        WriteOn(codePath, &file, choices, write);
        file.close();
        codePath.Note("content", ReadScratch());
        break;
    }
    case 10:
        WriteOn(codePath, nullptr, choices, write);
        break;
    case 11:
        WriteOnBuffer(codePath, buffer, QIODevice::ReadOnly, 0, choices, write);
        break;
    default:
        WriteOnBuffer(codePath, buffer, QIODevice::WriteOnly, 0, choices, write);
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

void WriteOn(CodePath& codePath, const IRGObject& object, QXmlStreamWriter& writer, Choices& choices)
{
    Configure(writer, choices);
    WriteBefore(writer, choices.Below(9));
    codePath.Attempt("write by writer", [&] { object.GetXml(writer); });
    codePath.Note("writer has an error", writer.hasError());
    if (choices.OneIn(4))
        codePath.Attempt("write again", [&] { object.GetXml(writer); });
    WriteAfter(writer, choices.Below(4));
    codePath.Note("writer has an error", writer.hasError());
}

void WriteByWriter(CodePath& codePath, const IRGObject& object, Choices& choices)
{
    constexpr int SOME_BYTES = 300;
    switch (choices.Below(6)) {
    case 0: {
        QString text = choices.OneIn(4) ? QStringLiteral("before") : QString();
        QXmlStreamWriter writer(&text);
        WriteOn(codePath, object, writer, choices);
        codePath.Note("text", text);
        break;
    }
    case 1: {
        QByteArray bytes;
        QXmlStreamWriter writer(&bytes);
        WriteOn(codePath, object, writer, choices);
        codePath.Note("bytes", bytes);
        break;
    }
    case 2: {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&buffer);
        WriteOn(codePath, object, writer, choices);
        codePath.Note("position", buffer.pos());
        codePath.Note("bytes", buffer.data());
        break;
    }
    case 3: {
        Sequential device;
        device.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&device);
        WriteOn(codePath, object, writer, choices);
        codePath.Note("bytes", device.Content());
        break;
    }
    case 4: {
        Limited device(choices.Below(SOME_BYTES));
        device.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&device);
        WriteOn(codePath, object, writer, choices);
        codePath.Note("bytes", device.data());
        break;
    }
    default: {
        QXmlStreamWriter writer;
        WriteOn(codePath, object, writer, choices);
        break;
    }
    }
}

void SaveXml(CodePath& codePath, const IRGObject& object, Choices& choices)
{
    const int form = choices.Below(4);
    if (form == 0)
        RemoveScratch();
    else
        WriteScratch(QByteArray(form == 1 ? 10000 : 1, 'x'));
    const QString path = form == 3 ? MissingPath() : ScratchPath();
    codePath.Attempt("save", [&] { codePath.Note("saved", object.SaveXml(path)); });
    codePath.Note("file", ReadScratch());
}

int AnyLevel(Choices& choices)
{
    return choices.Of({-1, 0, 1, 6, 9, 9, -2, 10, 1000});
}

int AnyTag(Choices& choices)
{
    return choices.Of({1, 0, -1, 0x11223344});
}

void Merge(CodePath& codePath, Traveller& traveller, Choices& choices)
{
    const std::unique_ptr<Traveller> other = traveller.New();
    Arrange(codePath, *other, choices);
    other->Object().SetLogger(codePath.Logger(1));
    const int form = choices.Below(4);
    IRGObject& target = form < 2 ? traveller.Object() : other->Object();
    const IRGObject& source = form == 1 || form == 2 ? traveller.Object() : other->Object();
    codePath.Attempt("merge", [&] { codePath.Note("merged", target.MergeRGObject(source)); });
    other->NoteState(codePath.Transcript());
}

} // namespace

void Write(Writing writing, CodePath& codePath, Traveller& traveller, Choices choices)
{
    const IRGObject& object = traveller.Object();
    switch (writing) {
    case Writing::XmlString:
        codePath.Attempt("text", [&] { codePath.Note("text", object.GetXmlString()); });
        break;
    case Writing::XmlFile:
        SaveXml(codePath, object, choices);
        break;
    case Writing::XmlWriter:
        WriteByWriter(codePath, object, choices);
        break;
    case Writing::PlainArray:
        codePath.Attempt("plain",
                         [&] { codePath.Note("bytes", object.GetBinaryRepresentationAsQByteArray()); });
        break;
    case Writing::PlainStream:
        WriteOnSomething(codePath, choices,
                         [&](QDataStream& stream) { object.GetBinaryRepresentation(stream); });
        break;
    case Writing::CompressedArray: {
        const int level = AnyLevel(choices);
        codePath.Attempt("compressed", [&] {
            codePath.Note("bytes", object.GetCompressedBinaryRepresentationAsQByteArray(level));
        });
        break;
    }
    case Writing::CompressedStream: {
        const int level = AnyLevel(choices);
        WriteOnSomething(codePath, choices, [&](QDataStream& stream) {
            object.GetCompressedBinaryRepresentation(stream, level);
        });
        break;
    }
    case Writing::Body: {
        const int tag = AnyTag(choices);
        const bool withTag = choices.Below(2) == 0;
        WriteOnSomething(codePath, choices, [&](QDataStream& stream) {
            codePath.Note("written", object.GetBinary(stream, tag, withTag));
        });
        break;
    }
    case Writing::Raw:
        WriteOnSomething(codePath, choices, [&](QDataStream& stream) { traveller.WriteRaw(stream); });
        break;
    case Writing::Check:
        codePath.Attempt("check, logging only", [&] { object.Check(true); });
        codePath.Attempt("check", [&] { object.Check(); });
        break;
    case Writing::Merge:
        Merge(codePath, traveller, choices);
        break;
    }
}

void WriteMainForms(CodePath& codePath, Traveller& traveller)
{
    const IRGObject& object = traveller.Object();
    object.SetLogger(nullptr);
    object.SetValidate(false);
    codePath.Attempt("text", [&] { codePath.Note("text", object.GetXmlString()); });
    codePath.Attempt("plain", [&] { codePath.Note("bytes", object.GetBinaryRepresentationAsQByteArray()); });
    codePath.Attempt("raw", [&] {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(STREAM_VERSION);
        traveller.WriteRaw(stream);
        codePath.Note("bytes", bytes);
    });
}

} // namespace Support
