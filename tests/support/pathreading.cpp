// The ways of reading of support/pathforms.h.

#include "support/devices.h"
#include "support/oddvalues.h"
#include "support/pathforms.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>

namespace Support {
namespace {

using REPORTGENERATOR::IRGObject;

constexpr int STREAM_VERSION = 12;

// --- Streams

void NoteStream(CodePath& codePath, QDataStream& stream)
{
    codePath.Note("stream status", static_cast<int>(stream.status()));
    codePath.Note("stream version", stream.version());
    codePath.Note("byte order", static_cast<int>(stream.byteOrder()));
    codePath.Note("precision", static_cast<int>(stream.floatingPointPrecision()));
    if (stream.device() == nullptr)
        return;
    codePath.Note("position", stream.device()->pos());
    codePath.Note("at end", stream.atEnd());
    codePath.Note("left", stream.device()->isReadable() ? stream.device()->readAll() : QByteArray());
}

/// Byte order and precision are the first two choices, so that the input can be made to suit them.
void Configure(QDataStream& stream, Choices& choices)
{
    stream.setVersion(STREAM_VERSION);
    if (choices.OneIn(4))
        stream.setByteOrder(QDataStream::LittleEndian);
    if (choices.OneIn(4))
        stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    if (choices.OneIn(4))
        stream.setVersion(AnyStreamVersion(choices));
    if (choices.OneIn(16))
        stream.setStatus(choices.Of({QDataStream::ReadPastEnd, QDataStream::ReadCorruptData}));
    if (choices.OneIn(16))
        stream.startTransaction();
}

void ReadOn(CodePath& codePath, QIODevice* device, Choices& choices,
            const std::function<void(QDataStream&)>& read)
{
    QDataStream stream(device);
    Configure(stream, choices);
    codePath.Attempt("read from stream", [&] { read(stream); });
    NoteStream(codePath, stream);
}

void ReadOnSomething(CodePath& codePath, const QByteArray& bytes, Choices& choices,
                     const std::function<void(QDataStream&)>& read)
{
    // The two that the stream's settings are made of come first.
    Choices settings = choices;
    choices.Below(4);
    choices.Below(4);
    switch (choices.Below(12)) {
    case 6: {
        Sequential device(bytes, choices.Of({1, 3, 16, 1000}));
        device.open(QIODevice::ReadOnly);
        ReadOn(codePath, &device, settings, read);
        break;
    }
    case 7: {
        QBuffer buffer;
        const QByteArray before = QByteArray("before").repeated(choices.Below(40));
        buffer.setData(before + bytes + QByteArray("behind"));
        buffer.open(QIODevice::ReadOnly);
        buffer.seek(choices.OneIn(4) ? choices.Below(static_cast<int>(buffer.size()) + 1) : before.size());
        ReadOn(codePath, &buffer, settings, read);
        break;
    }
    case 8: {
        WriteScratch(bytes);
        QFile file(ScratchPath());
        file.open(choices.Below(2) == 0 ? QIODevice::ReadOnly : QIODevice::ReadOnly | QIODevice::Text);
        ReadOn(codePath, &file, settings, read);
        break;
    }
    case 9: {
        // What was pushed back stands in the device's own buffer.
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        const QByteArray first = buffer.read(choices.Below(5));
        for (int i = static_cast<int>(first.size()) - 1; i >= 0; --i)
            buffer.ungetChar(first.at(i));
        ReadOn(codePath, &buffer, settings, read);
        break;
    }
    case 10:
        ReadOn(codePath, nullptr, settings, read);
        break;
    case 11: {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(choices.Below(2) == 0 ? QIODevice::WriteOnly : QIODevice::ReadWrite);
        ReadOn(codePath, &buffer, settings, read);
        break;
    }
    default: {
        QDataStream stream(bytes);
        Configure(stream, settings);
        codePath.Attempt("read from array", [&] { read(stream); });
        NoteStream(codePath, stream);
        break;
    }
    }
}

// --- Readers

void NoteToken(CodePath& codePath, const QXmlStreamReader& reader)
{
    codePath.Note("token", static_cast<int>(reader.tokenType()));
    codePath.Note("name", reader.qualifiedName().toString());
    codePath.Note("text", reader.text().toString());
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        codePath.Note("attribute",
                      attribute.qualifiedName().toString() + QLatin1Char('=') + attribute.value().toString());
}

void NoteReader(CodePath& codePath, const QXmlStreamReader& reader)
{
    NoteToken(codePath, reader);
    codePath.Note("at end", reader.atEnd());
    codePath.Note("line", static_cast<qint64>(reader.lineNumber()));
    codePath.Note("column", static_cast<qint64>(reader.columnNumber()));
    codePath.Note("offset", static_cast<qint64>(reader.characterOffset()));
    codePath.Note("error", static_cast<int>(reader.error()));
    codePath.Note("error string", reader.errorString());
}

void NoteRest(CodePath& codePath, QXmlStreamReader& reader)
{
    constexpr int ENOUGH = 40;
    for (int i = 0; i < ENOUGH && !reader.atEnd(); ++i) {
        reader.readNext();
        NoteToken(codePath, reader);
    }
    NoteReader(codePath, reader);
}

/// Resolves what a document doesn't define.
class Resolver : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString& name) override { return QLatin1Char('4') + name.mid(1); }
};

/// Moves to where the object is to read: usually its first element.
void MoveToObject(QXmlStreamReader& reader, const QString& name, int place)
{
    switch (place) {
    case 0: // before the document
        return;
    case 1:
        reader.readNext();
        return;
    case 2: // the first element, whatever its name
        reader.readNextStartElement();
        return;
    default:
        break;
    }
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == name)
            return;
    }
}

void ReadBy(CodePath& codePath, Traveller& traveller, QXmlStreamReader& reader, Choices& choices)
{
    Resolver resolver;
    if (choices.OneIn(8))
        reader.setEntityResolver(&resolver);
    if (choices.OneIn(8))
        reader.setNamespaceProcessing(false);
    MoveToObject(reader, traveller.Object().GetObjectName(), 15 - choices.Below(16));
    const int times = choices.OneIn(4) ? 2 : 1;
    for (int i = 0; i < times; ++i) {
        codePath.Attempt("read by reader", [&] { traveller.Object().ProcessXml(reader); });
        NoteReader(codePath, reader);
        if (i + 1 < times)
            MoveToObject(reader, traveller.Object().GetObjectName(), 3);
    }
    NoteRest(codePath, reader);
    reader.setEntityResolver(nullptr);
}

/// Text mode, as LoadXml opens files itself, and other ways in which a caller may have opened the file.
void LoadXml(CodePath& codePath, IRGObject& object, QFile& file, Choices& choices)
{
    switch (choices.Below(10)) {
    case 6:
        file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        break;
    case 7:
        file.open(QIODevice::ReadWrite);
        file.seek(choices.Below(40));
        break;
    case 8: // not open
        break;
    case 9:
        file.open(QIODevice::WriteOnly | QIODevice::Append);
        break;
    default:
        file.open(choices.Below(2) == 0 ? QIODevice::ReadOnly | QIODevice::Text : QIODevice::ReadOnly);
        break;
    }
    codePath.Attempt("load file", [&] { codePath.Note("loaded", object.LoadXml(&file)); });
    codePath.Note("file is open", file.isOpen());
    codePath.Note("position", file.pos());
    codePath.Note("file error", static_cast<int>(file.error()));
}

} // namespace

bool IsLittleEndian(Choices choices)
{
    return choices.OneIn(4);
}

bool IsSinglePrecision(Choices choices)
{
    choices.OneIn(4);
    return choices.OneIn(4);
}

void ReadXmlString(CodePath& codePath, Traveller& traveller, const QString& xml, bool checkRoot)
{
    codePath.Attempt("read text",
                     [&] { codePath.Note("taken", traveller.Object().SetXmlString(xml, checkRoot)); });
}

void ReadXmlFile(CodePath& codePath, Traveller& traveller, const QByteArray& file, Choices choices)
{
    WriteScratch(file);
    IRGObject& object = traveller.Object();
    if (choices.OneIn(16)) {
        codePath.Attempt("load missing", [&] { codePath.Note("loaded", object.LoadXml(MissingPath())); });
    } else if (choices.Below(2) == 0) {
        codePath.Attempt("load path", [&] { codePath.Note("loaded", object.LoadXml(ScratchPath())); });
    } else {
        QFile device(ScratchPath());
        LoadXml(codePath, object, device, choices);
    }
    codePath.Note("file is as it was", ReadScratch() == file);
}

void ReadByReader(CodePath& codePath, Traveller& traveller, const QByteArray& document, Choices choices)
{
    switch (choices.Below(6)) {
    case 3: {
        QBuffer buffer;
        buffer.setData(document);
        buffer.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&buffer);
        ReadBy(codePath, traveller, reader, choices);
        codePath.Note("position", buffer.pos());
        break;
    }
    case 4: {
        Sequential device(document, choices.Of({1, 7, 100}));
        device.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&device);
        ReadBy(codePath, traveller, reader, choices);
        codePath.Note("not asked for", device.Content());
        break;
    }
    case 5: {
        // The rest comes when the reader has already said that it is missing.
        const int first = choices.Below(static_cast<int>(document.size()) + 1);
        QXmlStreamReader reader(document.left(first));
        ReadBy(codePath, traveller, reader, choices);
        reader.addData(document.mid(first));
        ReadBy(codePath, traveller, reader, choices);
        break;
    }
    default: {
        QXmlStreamReader reader(document);
        ReadBy(codePath, traveller, reader, choices);
        break;
    }
    }
}

void ReadByReader(CodePath& codePath, Traveller& traveller, const QString& document, Choices choices)
{
    QXmlStreamReader reader(document);
    ReadBy(codePath, traveller, reader, choices);
}

void ReadArray(CodePath& codePath, Traveller& traveller, const QByteArray& representation)
{
    QByteArray array = representation;
    codePath.Attempt("read array",
                     [&] { codePath.Note("taken", traveller.Object().SetBinaryRepresentation(array)); });
    codePath.Note("array is as it was", array == representation);
}

void ReadStream(CodePath& codePath, Traveller& traveller, const QByteArray& representation, Choices choices)
{
    ReadOnSomething(codePath, representation, choices, [&](QDataStream& stream) {
        codePath.Note("taken", traveller.Object().SetBinaryRepresentation(stream));
    });
}

void ReadBinaryFile(CodePath& codePath, Traveller& traveller, const QByteArray& file, Choices choices)
{
    WriteScratch(file);
    QFile device(ScratchPath());
    switch (choices.Below(8)) {
    case 5:
        device.open(QIODevice::ReadOnly | QIODevice::Text);
        break;
    case 6:
        device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        device.seek(choices.Below(8));
        break;
    case 7:
        if (choices.Below(2) == 1)
            device.open(QIODevice::WriteOnly | QIODevice::Append);
        break;
    default:
        device.open(QIODevice::ReadOnly);
        break;
    }
    codePath.Attempt("load binary", [&] { codePath.Note("loaded", traveller.Object().LoadBinary(&device)); });
    codePath.Note("file is open", device.isOpen());
    codePath.Note("position", device.pos());
    codePath.Note("file error", static_cast<int>(device.error()));
}

void ReadBody(CodePath& codePath, Traveller& traveller, const QByteArray& bytes, int length, Choices choices)
{
    ReadOnSomething(codePath, bytes, choices,
                    [&](QDataStream& stream) { traveller.Object().SetBinary(stream, length); });
}

void ReadRaw(CodePath& codePath, Traveller& traveller, const QByteArray& bytes, Choices choices)
{
    ReadOnSomething(codePath, bytes, choices, [&](QDataStream& stream) { traveller.ReadRaw(stream); });
}

void WithCompanions(CodePath& codePath, Traveller& traveller, Choices choices,
                    const std::function<void()>& read)
{
    const bool hasRecord = traveller.Places()[0] != nullptr;
    const std::unique_ptr<Traveller> sharing = traveller.New();
    const bool isSharing = choices.OneIn(4);
    const auto before = hasRecord ? traveller.Places() : std::array<const void*, 3>{};
    if (isSharing)
        sharing->Assign(traveller);
    const bool isWatched = choices.OneIn(8);
    if (isWatched)
        codePath.Logger(0)->Watch([&] { traveller.NoteFlags(codePath.Transcript()); });
    read();
    codePath.Logger(0)->Watch(nullptr);
    if (isSharing) {
        codePath.Transcript().Heading("what shared the record");
        sharing->NoteState(codePath.Transcript());
    }
    if (hasRecord) {
        const std::array<const void*, 3> after = traveller.Places();
        for (std::size_t i = 0; i < before.size(); ++i)
            codePath.Note("member stays where it was", before[i] == after[i]);
    }
}

} // namespace Support
