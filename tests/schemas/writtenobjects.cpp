// Writes what the tests of the schemas hold them against, into a folder:
//
//     written_objects COUNT FOLDER
//
//     written.xml      COUNT objects as the library writes them without validation, below an element Objects
//     valid.xml        COUNT objects as it writes them with validation
//     spoilt.jsonl     a line of JSON for XML in which a child is missing, comes twice or earlier, or bears another name, and
//                      whether the library reads that with validation; one for each class and child
//     binary.jsonl     a line of JSON for each of COUNT objects in its binary forms, and for each golden vector of one:
//                      its bytes, and what the library reads from them
//
// Of a number the line has the 64 bits, of a text the UTF-16, both as hexadecimal digits, since JSON cannot hold all of them.

#include "digest/objects.h"
#include "digest/reading.h"
#include "support/vectors.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <stdexcept>

namespace {

using Digest::Specimen;
using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ValueMinMax;

// --- What an object holds

constexpr int HEX = 16;
constexpr int HEX_DIGITS = 16;

QJsonValue Number(double number)
{
    if (std::isnan(number))
        return QStringLiteral("nan");
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return QStringLiteral("%1").arg(bits, HEX_DIGITS, HEX, QLatin1Char('0'));
}

QJsonValue Text(const QString& text)
{
    if (text.isNull())
        return {};
    QByteArray units;
    for (const QChar unit : text) {
        units += static_cast<char>(unit.unicode() >> 8U);
        units += static_cast<char>(unit.unicode() & 0xffU);
    }
    return QString::fromLatin1(units.toHex());
}

template <class Bounded>
QJsonObject BoundsOf(const Bounded& object)
{
    return {
        {QStringLiteral("value"), object.IsValueSet() ? Number(object.GetValue()) : QJsonValue()},
        {QStringLiteral("min"), object.IsMinSet() ? Number(object.GetMin()) : QJsonValue()},
        {QStringLiteral("max"), object.IsMaxSet() ? Number(object.GetMax()) : QJsonValue()},
    };
}

QJsonObject ValuesOf(const Frequency& frequency)
{
    QJsonObject values = BoundsOf(frequency);
    values[QStringLiteral("use")] = frequency.IsUseSet() ? QJsonValue(frequency.GetUse()) : QJsonValue();
    return values;
}

QJsonObject ValuesOf(const IFBandwidth& bandwidth)
{
    return BoundsOf(bandwidth);
}

QJsonObject ValuesOf(const Coordinate& coordinate)
{
    return {
        {QStringLiteral("longitude"),
         coordinate.IsLongitudeSet() ? Number(coordinate.GetLongitude()) : QJsonValue()},
        {QStringLiteral("latitude"),
         coordinate.IsLatitudeSet() ? Number(coordinate.GetLatitude()) : QJsonValue()},
    };
}

QJsonObject ValuesOf(const Area& area)
{
    QJsonArray coordinates;
    for (const Coordinate& coordinate : area.GetCoordinate())
        coordinates.append(ValuesOf(coordinate));
    return {
        {QStringLiteral("version"), Text(area.GetInitialVersionLoaded())},
        {QStringLiteral("name"), Text(area.GetName())},
        {QStringLiteral("coordinates"), coordinates},
        {QStringLiteral("scriptId"), area.IsScriptIDSet() ? Text(area.GetScriptID()) : QJsonValue()},
    };
}

QJsonObject ValuesOf(const ReportBase& report)
{
    return {
        {QStringLiteral("frequency"),
         report.IsFrequencySet() ? ValuesOf(report.GetFrequency()) : QJsonValue()},
        {QStringLiteral("ifBandwidth"),
         report.IsIFBandwidthSet() ? ValuesOf(report.GetIFBandwidth()) : QJsonValue()},
        {QStringLiteral("area"), report.IsAreaSet() ? ValuesOf(report.GetArea()) : QJsonValue()},
    };
}

template <class... T>
QJsonObject Described(const Specimen& specimen)
{
    QJsonObject line;
    const auto describe = [&](const auto* object) {
        if (object) {
            line[QStringLiteral("class")] = object->GetStaticObjectName();
            line[QStringLiteral("values")] = ValuesOf(*object);
        }
    };
    (describe(dynamic_cast<const T*>(&specimen.Object())), ...);
    return line;
}

/// A line with class and values.
QJsonObject Line(const QByteArray& name, const char* form, const QByteArray& bytes, const Specimen& specimen)
{
    QJsonObject line = Described<ReportBase, Frequency, IFBandwidth, Area, Coordinate>(specimen);
    line[QStringLiteral("name")] = QString::fromUtf8(name);
    line[QStringLiteral("form")] = QString::fromLatin1(form);
    line[QStringLiteral("bytes")] = QString::fromLatin1(bytes.toBase64());
    return line;
}

// --- Files

class Output
{
public:
    explicit Output(const QString& path) : m_file(path)
    {
        if (!m_file.open(QIODevice::WriteOnly))
            throw std::runtime_error("can't write " + path.toStdString());
    }

    void Write(const QByteArray& bytes)
    {
        if (m_file.write(bytes) != bytes.size())
            throw std::runtime_error("can't write " + m_file.fileName().toStdString());
    }

    void Write(const QJsonObject& line) { Write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n'); }

private:
    QFile m_file;
};

// --- XML

/// The schema of the tests declares elements of these names, as a program does with those that it gives.
void Name(Specimen& specimen)
{
    if (auto* number = dynamic_cast<Double*>(&specimen.Object()))
        number->SetName(QStringLiteral("Threshold"));
    if (auto* value = dynamic_cast<ValueMinMax*>(&specimen.Object()))
        value->SetName(QStringLiteral("Level"));
}

/// Empty where the object is refused or has nothing to write.
QByteArray XmlOf(const Specimen& specimen, bool validate)
{
    specimen.Object().SetValidate(validate);
    try {
        return specimen.Object().GetXmlString().toUtf8();
    } catch (const RGException&) {
        return {};
    }
}

void WriteXml(int count, bool validate, const QString& path)
{
    Output output(path);
    output.Write("<Objects>");
    for (int number = 0, left = count; left > 0; ++number) {
        const std::unique_ptr<Specimen> specimen = Digest::Generated(number);
        Name(*specimen);
        const QByteArray xml = XmlOf(*specimen, validate);
        output.Write(xml);
        if (!xml.isEmpty())
            --left;
    }
    output.Write("\n</Objects>\n");
}

// --- Spoilt XML

/// A child on a line of its own, with its name.
const QRegularExpression& ChildPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^ +<(\\w+)>[^<]*</\\1>$"));
    return pattern;
}

struct Spoiling
{
    const char* name;
    void (*spoil)(QStringList& lines, int child, const QString& name);
};

constexpr Spoiling SPOILINGS[] = {
    {"missing", [](QStringList& lines, int child, const QString&) { lines.removeAt(child); }},
    {"twice", [](QStringList& lines, int child, const QString&) { lines.insert(child, lines.at(child)); }},
    {"renamed", [](QStringList& lines, int child,
                   const QString& name) { lines[child].replace(name, QStringLiteral("Extra")); }},
    {"earlier",
     [](QStringList& lines, int child, const QString&) {
         const QString before = lines.at(child - 1);
         if (ChildPattern().match(before).hasMatch() && before != lines.at(child))
             lines.swapItemsAt(child - 1, child);
     }},
};

/// Also false where nothing of the object's name is found.
bool IsRead(const Specimen& specimen, const QString& xml)
{
    const std::unique_ptr<Specimen> fresh = specimen.New();
    try {
        return fresh->Object().SetXmlString(xml, true);
    } catch (const RGException&) {
        return false;
    }
}

void WriteSpoilt(int count, const QString& path)
{
    Output output(path);
    QSet<QString> done;
    for (int number = 0; number < count; ++number) {
        const std::unique_ptr<Specimen> specimen = Digest::Generated(number);
        Name(*specimen);
        const QStringList lines = QString::fromUtf8(XmlOf(*specimen, true)).split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            const QString child = ChildPattern().match(lines.at(i)).captured(1);
            for (const Spoiling& spoiling : SPOILINGS) {
                const QString name =
                    QStringLiteral("%1:%2:%3")
                        .arg(specimen->Object().GetObjectName(), child, QLatin1String(spoiling.name));
                if (child.isEmpty() || done.contains(name))
                    continue;
                QStringList spoilt = lines;
                spoiling.spoil(spoilt, i, child);
                if (spoilt == lines)
                    continue;
                done.insert(name);
                const QString xml = spoilt.join(QLatin1Char('\n'));
                output.Write(QJsonObject{{QStringLiteral("name"), name},
                                         {QStringLiteral("xml"), xml},
                                         {QStringLiteral("read"), IsRead(*specimen, xml)}});
            }
        }
    }
}

// --- Binary forms

QByteArray BinaryFile(const QByteArray& representation)
{
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream << representation;
    return file;
}

std::unique_ptr<Specimen> Fresh(const Specimen& specimen)
{
    std::unique_ptr<Specimen> fresh = specimen.New();
    fresh->Object().SetValidate(false);
    return fresh;
}

void WriteForms(Output& output, int number, const Specimen& specimen)
{
    const QByteArray name = "generated " + QByteArray::number(number);
    const QByteArray plain = specimen.Object().GetBinaryRepresentationAsQByteArray();
    const QByteArray compressed = specimen.Object().GetCompressedBinaryRepresentationAsQByteArray(-1);
    const std::unique_ptr<Specimen> tagged = Fresh(specimen);
    Digest::ReadRepresentation(*tagged, plain);
    output.Write(Line(name, "plain", plain, *tagged));
    output.Write(Line(name, "compressed", compressed, *tagged));
    output.Write(Line(name, "file", BinaryFile(number % 4 == 0 ? plain : compressed), *tagged));

    const QByteArray bytes = Digest::RawForm(specimen, QDataStream::BigEndian);
    const std::unique_ptr<Specimen> raw = Fresh(specimen);
    Digest::ReadRaw(*raw, bytes);
    output.Write(Line(name, "raw", bytes, *raw));
}

/// The path of the vector that an object was read from without validation, or nothing.
QString PathOfVector(const Digest::Golden& golden)
{
    static const QByteArray end = ".hex without validation";
    static const QByteArray endOfCompressed = ".zhex without validation";
    if (!golden.name.endsWith(end) && !golden.name.endsWith(endOfCompressed))
        return {};
    return QString::fromUtf8(golden.name.left(golden.name.indexOf(' ')));
}

/// A line for each vector. One that the library refuses, or knows nothing to do with, has no values.
void WriteGolden(Output& output)
{
    Digest::ForEachGolden([&](Digest::Golden& golden) {
        const QString path = PathOfVector(golden);
        if (path.isEmpty())
            return;
        bool isRead = false;
        try {
            const bool isRaw = golden.form == Digest::Form::ReadingRaw;
            isRead = golden.read(*golden.specimen).startsWith("true") || isRaw;
        } catch (const RGException&) {
            isRead = false;
        }
        const char* form = path.endsWith(QLatin1String(".zhex"))      ? "compressed"
                           : path.endsWith(QLatin1String(".raw.hex")) ? "raw"
                                                                      : "plain";
        QJsonObject line = Line(path.toUtf8(), form, Support::LoadVector(path).Data(), *golden.specimen);
        if (!isRead)
            line[QStringLiteral("values")] = QJsonValue();
        output.Write(line);
    });
}

void WriteBinary(int count, const QString& path)
{
    Output output(path);
    WriteGolden(output);
    for (int number = 0, left = count; left > 0; ++number) {
        const std::unique_ptr<Specimen> specimen = Digest::Generated(number);
        if (!specimen->HasBinaryForms())
            continue;
        WriteForms(output, number, *specimen);
        --left;
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // What Qt remarks on damaged data is no concern of the library.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    try {
        const int count = argc == 3 ? QByteArray(argv[1]).toInt() : 0;
        if (count <= 0)
            throw std::invalid_argument("written_objects COUNT FOLDER");
        const QDir folder(QString::fromLocal8Bit(argv[2]));
        if (!folder.mkpath(QStringLiteral(".")))
            throw std::runtime_error("can't make the folder");
        WriteXml(count, false, folder.filePath(QStringLiteral("written.xml")));
        WriteXml(count, true, folder.filePath(QStringLiteral("valid.xml")));
        WriteSpoilt(count, folder.filePath(QStringLiteral("spoilt.jsonl")));
        WriteBinary(count, folder.filePath(QStringLiteral("binary.jsonl")));
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "written_objects: %s\n", exception.what());
        return EXIT_FAILURE;
    } catch (const RGException& exception) {
        std::fprintf(stderr, "written_objects: %s\n", exception.GetErrorText().toUtf8().constData());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
