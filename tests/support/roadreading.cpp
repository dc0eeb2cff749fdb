// The ways of reading of support/roadforms.h.

#include "support/devices.h"
#include "support/oddvalues.h"
#include "support/roadforms.h"
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

void NoteStream(Road& road, QDataStream& stream)
{
    road.Note("stream status", static_cast<int>(stream.status()));
    road.Note("stream version", stream.version());
    road.Note("byte order", static_cast<int>(stream.byteOrder()));
    road.Note("precision", static_cast<int>(stream.floatingPointPrecision()));
    if (stream.device() == nullptr)
        return;
    road.Note("position", stream.device()->pos());
    road.Note("at end", stream.atEnd());
    road.Note("left", stream.device()->isReadable() ? stream.device()->readAll() : QByteArray());
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

void ReadOn(Road& road, QIODevice* device, Choices& choices, const std::function<void(QDataStream&)>& read)
{
    QDataStream stream(device);
    Configure(stream, choices);
    road.Attempt("read from stream", [&] { read(stream); });
    NoteStream(road, stream);
}

void ReadOnSomething(Road& road, const QByteArray& bytes, Choices& choices,
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
        ReadOn(road, &device, settings, read);
        break;
    }
    case 7: {
        QBuffer buffer;
        const QByteArray before = QByteArray("before").repeated(choices.Below(40));
        buffer.setData(before + bytes + QByteArray("behind"));
        buffer.open(QIODevice::ReadOnly);
        buffer.seek(choices.OneIn(4) ? choices.Below(static_cast<int>(buffer.size()) + 1) : before.size());
        ReadOn(road, &buffer, settings, read);
        break;
    }
    case 8: {
        WriteScratch(bytes);
        QFile file(ScratchPath());
        file.open(choices.Below(2) == 0 ? QIODevice::ReadOnly : QIODevice::ReadOnly | QIODevice::Text);
        ReadOn(road, &file, settings, read);
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
        ReadOn(road, &buffer, settings, read);
        break;
    }
    case 10:
        ReadOn(road, nullptr, settings, read);
        break;
    case 11: {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(choices.Below(2) == 0 ? QIODevice::WriteOnly : QIODevice::ReadWrite);
        ReadOn(road, &buffer, settings, read);
        break;
    }
    default: {
        QDataStream stream(bytes);
        Configure(stream, settings);
        road.Attempt("read from array", [&] { read(stream); });
        NoteStream(road, stream);
        break;
    }
    }
}

// --- Readers

void NoteToken(Road& road, const QXmlStreamReader& reader)
{
    road.Note("token", static_cast<int>(reader.tokenType()));
    road.Note("name", reader.qualifiedName().toString());
    road.Note("text", reader.text().toString());
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        road.Note("attribute",
                  attribute.qualifiedName().toString() + QLatin1Char('=') + attribute.value().toString());
}

void NoteReader(Road& road, const QXmlStreamReader& reader)
{
    NoteToken(road, reader);
    road.Note("at end", reader.atEnd());
    road.Note("line", static_cast<qint64>(reader.lineNumber()));
    road.Note("column", static_cast<qint64>(reader.columnNumber()));
    road.Note("offset", static_cast<qint64>(reader.characterOffset()));
    road.Note("error", static_cast<int>(reader.error()));
    road.Note("error string", reader.errorString());
}

void NoteRest(Road& road, QXmlStreamReader& reader)
{
    constexpr int ENOUGH = 40;
    for (int i = 0; i < ENOUGH && !reader.atEnd(); ++i) {
        reader.readNext();
        NoteToken(road, reader);
    }
    NoteReader(road, reader);
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

void ReadBy(Road& road, Traveller& traveller, QXmlStreamReader& reader, Choices& choices)
{
    Resolver resolver;
    if (choices.OneIn(8))
        reader.setEntityResolver(&resolver);
    if (choices.OneIn(8))
        reader.setNamespaceProcessing(false);
    MoveToObject(reader, traveller.Object().GetObjectName(), 15 - choices.Below(16));
    const int times = choices.OneIn(4) ? 2 : 1;
    for (int i = 0; i < times; ++i) {
        road.Attempt("read by reader", [&] { traveller.Object().ProcessXml(reader); });
        NoteReader(road, reader);
        if (i + 1 < times)
            MoveToObject(reader, traveller.Object().GetObjectName(), 3);
    }
    NoteRest(road, reader);
    reader.setEntityResolver(nullptr);
}

/// Text mode, as LoadXml opens files itself, and other ways in which a caller may have opened the file.
void LoadXml(Road& road, IRGObject& object, QFile& file, Choices& choices)
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
    road.Attempt("load file", [&] { road.Note("loaded", object.LoadXml(&file)); });
    road.Note("file is open", file.isOpen());
    road.Note("position", file.pos());
    road.Note("file error", static_cast<int>(file.error()));
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

void ReadXmlString(Road& road, Traveller& traveller, const QString& xml, bool checkRoot)
{
    road.Attempt("read text", [&] { road.Note("taken", traveller.Object().SetXmlString(xml, checkRoot)); });
}

void ReadXmlFile(Road& road, Traveller& traveller, const QByteArray& file, Choices choices)
{
    WriteScratch(file);
    IRGObject& object = traveller.Object();
    if (choices.OneIn(16)) {
        road.Attempt("load missing", [&] { road.Note("loaded", object.LoadXml(MissingPath())); });
    } else if (choices.Below(2) == 0) {
        road.Attempt("load path", [&] { road.Note("loaded", object.LoadXml(ScratchPath())); });
    } else {
        QFile device(ScratchPath());
        LoadXml(road, object, device, choices);
    }
    road.Note("file is as it was", ReadScratch() == file);
}

void ReadByReader(Road& road, Traveller& traveller, const QByteArray& document, Choices choices)
{
    switch (choices.Below(6)) {
    case 3: {
        QBuffer buffer;
        buffer.setData(document);
        buffer.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&buffer);
        ReadBy(road, traveller, reader, choices);
        road.Note("position", buffer.pos());
        break;
    }
    case 4: {
        Sequential device(document, choices.Of({1, 7, 100}));
        device.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&device);
        ReadBy(road, traveller, reader, choices);
        road.Note("not asked for", device.Content());
        break;
    }
    case 5: {
        // The rest comes when the reader has already said that it is missing.
        const int first = choices.Below(static_cast<int>(document.size()) + 1);
        QXmlStreamReader reader(document.left(first));
        ReadBy(road, traveller, reader, choices);
        reader.addData(document.mid(first));
        ReadBy(road, traveller, reader, choices);
        break;
    }
    default: {
        QXmlStreamReader reader(document);
        ReadBy(road, traveller, reader, choices);
        break;
    }
    }
}

void ReadByReader(Road& road, Traveller& traveller, const QString& document, Choices choices)
{
    QXmlStreamReader reader(document);
    ReadBy(road, traveller, reader, choices);
}

void ReadArray(Road& road, Traveller& traveller, const QByteArray& representation)
{
    QByteArray array = representation;
    road.Attempt("read array",
                 [&] { road.Note("taken", traveller.Object().SetBinaryRepresentation(array)); });
    road.Note("array is as it was", array == representation);
}

void ReadStream(Road& road, Traveller& traveller, const QByteArray& representation, Choices choices)
{
    ReadOnSomething(road, representation, choices, [&](QDataStream& stream) {
        road.Note("taken", traveller.Object().SetBinaryRepresentation(stream));
    });
}

void ReadBinaryFile(Road& road, Traveller& traveller, const QByteArray& file, Choices choices)
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
    road.Attempt("load binary", [&] { road.Note("loaded", traveller.Object().LoadBinary(&device)); });
    road.Note("file is open", device.isOpen());
    road.Note("position", device.pos());
    road.Note("file error", static_cast<int>(device.error()));
}

void ReadBody(Road& road, Traveller& traveller, const QByteArray& bytes, int length, Choices choices)
{
    ReadOnSomething(road, bytes, choices,
                    [&](QDataStream& stream) { traveller.Object().SetBinary(stream, length); });
}

void ReadRaw(Road& road, Traveller& traveller, const QByteArray& bytes, Choices choices)
{
    ReadOnSomething(road, bytes, choices, [&](QDataStream& stream) { traveller.ReadRaw(stream); });
}

void WithCompanions(Road& road, Traveller& traveller, Choices choices, const std::function<void()>& read)
{
    const bool hasRecord = traveller.Places()[0] != nullptr;
    const std::unique_ptr<Traveller> sharing = traveller.New();
    const bool isSharing = choices.OneIn(4);
    const auto before = hasRecord ? traveller.Places() : std::array<const void*, 3>{};
    if (isSharing)
        sharing->Assign(traveller);
    const bool isWatched = choices.OneIn(8);
    if (isWatched)
        road.Logger(0)->Watch([&] { traveller.NoteFlags(road.Transcript()); });
    read();
    road.Logger(0)->Watch(nullptr);
    if (isSharing) {
        road.Transcript().Heading("what shared the record");
        sharing->NoteState(road.Transcript());
    }
    if (hasRecord) {
        const std::array<const void*, 3> after = traveller.Places();
        for (std::size_t i = 0; i < before.size(); ++i)
            road.Note("member stays where it was", before[i] == after[i]);
    }
}

} // namespace Support
