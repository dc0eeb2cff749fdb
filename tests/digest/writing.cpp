#include "digest/writing.h"

#include "digest/reading.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QXmlStreamWriter>

#include <functional>

namespace Digest {
namespace {

using REPORTGENERATOR::IRGObject;
using Support::Choices;

constexpr int USUAL_TAG = 1;

// --- Writing

QByteArray OnStream(QDataStream::ByteOrder byteOrder, const std::function<void(QDataStream&)>& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream.setByteOrder(byteOrder);
    write(stream);
    return bytes + QByteArray::number(static_cast<int>(stream.status()));
}

/// The file is opened as text. Where that puts a CR before each LF they are taken out again; a CR of the text itself
/// stays.
QByteArray SavedXml(const IRGObject& object)
{
    Support::RemoveScratch();
    const bool saved = object.SaveXml(Support::ScratchPath());
    QByteArray content = Support::ReadScratch();
#ifdef Q_OS_WIN
    content.replace("\r\n", "\n");
#endif
    return QByteArray(saved ? "true " : "false ") + content;
}

QByteArray ByWriter(const IRGObject& object, bool isFormatted)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.setAutoFormatting(isFormatted);
    writer.setAutoFormattingIndent(2);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("Caller"));
    object.GetXml(writer);
    writer.writeEndDocument();
    // Of a text that can't be encoded Qt 5 writes what can be, Qt 6 nothing. That there is an error they both tell.
    return writer.hasError() ? QByteArray("error") : bytes;
}

QByteArray Tagged(const IRGObject& object, QDataStream::ByteOrder byteOrder, int tag, bool withTag)
{
    bool answer = false;
    const QByteArray bytes =
        OnStream(byteOrder, [&](QDataStream& stream) { answer = object.GetBinary(stream, tag, withTag); });
    return bytes + QByteArray(answer ? " true" : " false");
}

/// The frame, and what its data unpack to.
QByteArray Unpacked(const QByteArray& representation)
{
    if (representation.isEmpty())
        return representation;
    QDataStream stream(representation);
    stream.setVersion(QDataStream::Qt_4_6);
    QString marker;
    QString name;
    QByteArray packed;
    stream >> marker >> name >> packed;
    return marker.toUtf8() + ' ' + name.toUtf8() + ' ' +
           QByteArray::number(static_cast<int>(stream.status())) +
           QByteArray(stream.atEnd() ? " whole " : " more ") + packed.left(4) +
           IRGObject::UncompressBinary(packed);
}

QByteArray BinaryFile(const QByteArray& representation)
{
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream << representation;
    return file;
}

void DigestXml(Digests& digests, const IRGObject& object)
{
    digests.Attempt(Form::XmlString, [&] { return object.GetXmlString().toUtf8(); });
    digests.Attempt(Form::XmlFile, [&] { return SavedXml(object); });
    digests.Attempt(Form::XmlWriter, [&] { return ByWriter(object, true); });
    digests.Attempt(Form::XmlWriter, [&] { return ByWriter(object, false); });
}

void DigestBinary(Digests& digests, const Specimen& specimen)
{
    const IRGObject& object = specimen.Object();
    for (const QDataStream::ByteOrder order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
        constexpr int ODD_TAG = 0x11223344;
        digests.Attempt(Form::Body, [&] { return Tagged(object, order, USUAL_TAG, true); });
        digests.Attempt(Form::Body, [&] { return Tagged(object, order, ODD_TAG, false); });
        digests.Attempt(Form::Plain, [&] {
            return OnStream(order, [&](QDataStream& stream) { object.GetBinaryRepresentation(stream); });
        });
        if (specimen.HasBinaryForms())
            digests.Attempt(Form::Raw, [&] { return RawForm(specimen, order); });
    }
    digests.Attempt(Form::Plain, [&] { return object.GetBinaryRepresentationAsQByteArray(); });
    for (const int level : {-1, 0, 9}) {
        digests.Attempt(Form::Compressed, [&] {
            return Unpacked(object.GetCompressedBinaryRepresentationAsQByteArray(level));
        });
    }
    digests.Attempt(Form::BinaryFile, [&] {
        const QByteArray file = BinaryFile(object.GetBinaryRepresentationAsQByteArray());
        return file + ReadBinaryFile(*specimen.New(), file);
    });
}

QByteArray Checked(const IRGObject& object)
{
    object.Check();
    return "good";
}

// --- Damage

/// A character or byte in the middle of something is what a reader notices last.
int AnyPlace(int size, Choices& choices)
{
    return size == 0 ? 0 : static_cast<int>(choices.Word() % static_cast<quint64>(size));
}

QString Damaged(QString text, Choices& choices)
{
    const int place = AnyPlace(static_cast<int>(text.size()), choices);
    // Qt 5 and Qt 6 take different texts for a time: this one is cut off instead.
    const int stamp = static_cast<int>(text.indexOf(QLatin1String("<TimeStamp>")));
    if (stamp >= 0 && place >= stamp && place < text.indexOf(QLatin1String("</TimeStamp>")))
        return text.left(stamp);
    const QChar odd = QLatin1Char(choices.Of({'<', '>', '&', '"', '/', ' ', '0', 'x', '-', '.', ';', '='}));
    switch (choices.Below(4)) {
    case 1:
        return text.remove(place, 1);
    case 2:
        return text.insert(place, odd);
    case 3:
        return text.left(place);
    default:
        return text.replace(place, 1, odd);
    }
}

QByteArray Damaged(QByteArray bytes, Choices& choices)
{
    constexpr int BITS = 8;
    const int place = AnyPlace(static_cast<int>(bytes.size()), choices);
    const int bit = choices.Below(BITS);
    switch (choices.Below(4)) {
    case 1:
        return bytes.remove(place, 1);
    case 2:
        return bytes.insert(place, static_cast<char>(choices.Below(256)));
    case 3:
        return bytes.left(place);
    default:
        if (!bytes.isEmpty())
            bytes[place] = static_cast<char>(bytes.at(place) ^ (1 << bit));
        return bytes;
    }
}

/// Empty where even an object that doesn't validate refuses to write itself.
QString TextOf(const IRGObject& object)
{
    try {
        return object.GetXmlString();
    } catch (const RGException&) {
        return QString();
    }
}

std::unique_ptr<Specimen> NewFor(const Specimen& specimen, Choices& choices)
{
    std::unique_ptr<Specimen> fresh = specimen.New();
    fresh->Object().SetLogger(specimen.Object().GetLogger());
    fresh->Object().SetValidate(choices.Below(2) == 0);
    return fresh;
}

/// Also where the reader refused: an object keeps what was read so far.
void AddReading(Digests& digests, Form form, Specimen& specimen, const std::function<QByteArray()>& read)
{
    digests.Attempt(form, read);
    digests.Attempt(form, [&] { return Held(specimen); });
}

} // namespace

void DigestForms(Digests& digests, const Specimen& specimen)
{
    const IRGObject& object = specimen.Object();
    object.SetValidate(false);
    DigestXml(digests, object);
    DigestBinary(digests, specimen);

    // What is refused is refused alike by all who write.
    object.SetValidate(true);
    digests.Attempt(Form::Checks, [&] { return Checked(object); });
    digests.Attempt(Form::Checks, [&] { return object.GetXmlString().toUtf8(); });
    digests.Attempt(Form::Checks, [&] { return object.GetBinaryRepresentationAsQByteArray(); });
    object.SetValidate(false);
}

void DigestDamage(Digests& digests, const Specimen& specimen, Choices choices)
{
    constexpr int TIMES = 2;
    const QString xml = TextOf(specimen.Object());
    for (int i = 0; i < TIMES; ++i) {
        const QString damaged = Damaged(xml, choices);
        const std::unique_ptr<Specimen> fresh = NewFor(specimen, choices);
        const bool checkRoot = choices.Below(2) == 0;
        AddReading(digests, Form::ReadingXml, *fresh, [&] { return ReadXml(*fresh, damaged, checkRoot); });
    }
    if (!specimen.HasBinaryForms())
        return;

    const QByteArray plain = specimen.Object().GetBinaryRepresentationAsQByteArray();
    const QByteArray raw = RawForm(specimen, QDataStream::BigEndian);
    for (int i = 0; i < TIMES; ++i) {
        const QByteArray damaged = Damaged(plain, choices);
        const std::unique_ptr<Specimen> fresh = NewFor(specimen, choices);
        AddReading(digests, Form::ReadingBytes, *fresh, [&] { return ReadRepresentation(*fresh, damaged); });

        const QByteArray damagedRaw = Damaged(raw, choices);
        const std::unique_ptr<Specimen> another = NewFor(specimen, choices);
        AddReading(digests, Form::ReadingRaw, *another, [&] { return ReadRaw(*another, damagedRaw); });
    }
}

} // namespace Digest
