// Reads an input of a shape that was thought out to be slow, of so many pieces. `./dev scaling` counts the
// instructions that this takes for one number of pieces and for twice as many.
//
//     shapes                   list the shapes
//     shapes NAME PIECES       read one

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/settingsnotifier.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QTemporaryFile>
#include <QtCore/QtEndian>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

/// A subclass is read by Qt's reader and streams in every case.
class DerivedReport : public ReportBase
{
};

QByteArray Repeated(int count, const std::function<QByteArray(int)>& piece)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += piece(i);
    return all;
}

QByteArray Repeated(int count, const char* piece)
{
    return QByteArray(piece).repeated(count);
}

QByteArray InReport(const QByteArray& content)
{
    return "<ReportBase>" + content + "</ReportBase>";
}

QByteArray InArea(const QByteArray& content)
{
    return InReport("<Area Version=\"1.0\"><Name>N</Name>" + content + "</Area>");
}

constexpr const char* POINT =
    "<Coordinate><Longitude>1.000000</Longitude><Latitude>2.000000</Latitude></Coordinate>";

QByteArray Word(qint32 word)
{
    char bytes[sizeof(word)];
    qToBigEndian(word, bytes);
    return QByteArray(bytes, sizeof(word));
}

QByteArray Element(quint32 tag, const QByteArray& payload)
{
    return Word(static_cast<qint32>(tag)) + Word(static_cast<qint32>(payload.size())) + payload;
}

constexpr quint32 AREA = 0xa838be37;
constexpr quint32 AREA_NAME = 0x8c9fbca8;
constexpr quint32 AREA_COORDINATES = 0x6f69083f;
constexpr quint32 FREQUENCY = 0xcf452ada;
constexpr quint32 FREQUENCY_VALUE = 0x8aff57b3;
constexpr quint32 LONGITUDE = 0x247e7491;
constexpr quint32 LATITUDE = 0xcb2f4b76;
constexpr quint32 UNKNOWN = 0x11223344;

QByteArray Counted(const QByteArray& bytes)
{
    return Word(static_cast<qint32>(bytes.size())) + bytes;
}

QByteArray PointBody(const QByteArray& extra)
{
    return Counted(Element(LONGITUDE, Counted("1.000000")) + Element(LATITUDE, Counted("2.000000")) + extra);
}

/// What a callgrind run counts.
[[gnu::noinline]] void Measured(const std::function<void()>& read)
{
    try {
        read();
    } catch (const RGException& exception) {
        std::printf("%s\n", qPrintable(exception.GetErrorText()));
    }
}

void ReadString(const QByteArray& xml)
{
    const QString text = QString::fromUtf8(xml);
    Measured([&text] {
        ReportBase report;
        report.SetValidate(false);
        report.SetXmlString(text, false);
    });
}

void ReadFile(const QByteArray& xml)
{
    QTemporaryFile file;
    if (!file.open() || file.write(xml) != xml.size() || !file.reset())
        std::abort();
    Measured([&file] {
        DerivedReport report;
        report.SetValidate(false);
        static_cast<IRGObject&>(report).LoadXml(&file);
    });
}

template <class Report>
void ReadBody(const QByteArray& body)
{
    Measured([&body] {
        Report report;
        report.SetValidate(false);
        QDataStream stream(body);
        stream.setVersion(QDataStream::Qt_4_6);
        report.SetBinary(stream, static_cast<int>(body.size()));
    });
}

void ReadRaw(const QByteArray& raw)
{
    Measured([&raw] {
        DerivedReport report;
        report.SetValidate(false);
        QDataStream stream(raw);
        stream.setVersion(QDataStream::Qt_4_6);
        report.SetVersionSpecificBinaryWithoutValidation(stream);
    });
}

void ReadSettings(const QByteArray& xml)
{
    REPORTGENERATOR::SettingsNotifier notifier;
    auto* center = new REPORTGENERATOR::RegisterCenter;
    center->RegisterInterface(new ChannelSpacing);
    notifier.NotifyOnChanged(center);
    const QString text = QString::fromUtf8(xml);
    Measured([&] { notifier.SetSettings(text, false); });
}

struct Shape
{
    const char* name;
    int pieces;
    std::function<QByteArray(int)> make;
    std::function<void(const QByteArray&)> read;
};

QByteArray Attributes(int count)
{
    return InReport("<Frequency" +
                    Repeated(count, [](int i) { return " a" + QByteArray::number(i) + "=\"\""; }) +
                    ">1</Frequency>");
}

QByteArray Namespaces(int count)
{
    return InReport(
        "<p:a xmlns:p=\"u\">" +
        Repeated(count, [](int i) { return "<p:a xmlns:n" + QByteArray::number(i) + "=\"u\">"; }) +
        Repeated(count, "</p:a>") + "</p:a>");
}

QByteArray DefaultAttributes(int count)
{
    return "<!DOCTYPE ReportBase [<!ATTLIST Frequency" +
           Repeated(count, [](int i) { return " a" + QByteArray::number(i) + " CDATA \"\""; }) + ">]>" +
           InReport("<Frequency>1</Frequency>");
}

QByteArray Entities(int count)
{
    return "<!DOCTYPE ReportBase [" +
           Repeated(count, [](int i) { return "<!ENTITY e" + QByteArray::number(i) + " \"v\">"; }) + "]>" +
           InArea("<ScriptID>" + Repeated(count, [](int i) { return "&e" + QByteArray::number(i) + ";"; }) +
                  "</ScriptID>");
}

std::vector<Shape> Shapes()
{
    const auto inReport = [](const char* piece) {
        return [piece](int count) { return InReport(Repeated(count, piece)); };
    };
    const auto text = [](const char* piece) {
        return [piece](int count) { return InArea("<ScriptID>" + Repeated(count, piece) + "</ScriptID>"); };
    };
    const auto nested = [](const char* open, const char* close) {
        return [open, close](int count) { return InReport(Repeated(count, open) + Repeated(count, close)); };
    };
    const auto digits = [](int count) {
        return InReport("<Frequency>" + Repeated(count, "7") + "</Frequency>");
    };
    const auto points = [](int count) { return InArea(Repeated(count, POINT)); };
    const auto pointsAndUnknown = [](int count) {
        return InReport("<Area Version=\"1.0\"><Name>N</Name>" + Repeated(count, POINT) + "</Area>" +
                        Repeated(count, "<x/>"));
    };
    const auto areas = inReport("<Area Version=\"1.0\"><Name>N</Name><Coordinate><Longitude>1</Longitude>"
                                "<Latitude>2</Latitude></Coordinate></Area>");
    const auto unknownElements = [](int count) {
        return Repeated(count, [](int) { return Element(UNKNOWN, QByteArray()); });
    };
    const auto binaryPoints = [](int count) {
        return Element(AREA,
                       Element(AREA_NAME, Counted("N")) +
                           Element(AREA_COORDINATES, Word(count) + PointBody(QByteArray()).repeated(count)));
    };
    const auto oddPoints = [](int count) {
        return Element(AREA,
                       Element(AREA_COORDINATES,
                               Word(count) + PointBody(Element(UNKNOWN, QByteArray())).repeated(count)));
    };
    const auto emptyPoints = [](int count) {
        return Element(AREA, Element(AREA_COORDINATES, Word(count) + Word(0).repeated(count)));
    };
    const auto binaryAreas = [](int count) {
        return Element(AREA, Element(AREA_COORDINATES, Word(1) + PointBody(QByteArray()))).repeated(count);
    };
    const auto lists = [](int count) {
        return Element(AREA, Element(AREA_COORDINATES, Word(1) + PointBody(QByteArray())).repeated(count));
    };
    const auto rawPoints = [](int count) {
        const QByteArray point = QByteArray(1, 3) + QByteArray(16, '\0');
        return QByteArray(1, 4) + QByteArray(1, 2) + Counted(QByteArray("\0001\0.\0000", 6)) + Word(-1) +
               Word(count) + point.repeated(count);
    };
    return {
        {"points", 1000, points, ReadFile},
        {"points-direct", 1000, points, ReadString},
        {"points-odd", 1000, [points](int n) { return points(n) + "<!-- -->"; }, ReadString},
        {"points-and-unknown", 1000, pointsAndUnknown, ReadString},
        {"points-and-unknown-derived", 1000, pointsAndUnknown, ReadFile},
        {"areas", 1000, areas, ReadString},
        {"areas-derived", 1000, areas, ReadFile},
        {"attributes", 1000, Attributes, ReadString},
        {"attributes-file", 1000, Attributes, ReadFile},
        {"default-attributes", 1000, DefaultAttributes, ReadString},
        {"namespaces-nested", 1000, Namespaces, ReadString},
        {"nested-unknown", 2000, nested("<a>", "</a>"), ReadString},
        {"nested-unknown-names", 2000, nested("<a><b>", "</b></a>"), ReadFile},
        {"siblings", 5000, inReport("<a/>"), ReadString},
        {"siblings-known", 2000, inReport("<Frequency>1</Frequency>"), ReadString},
        {"siblings-in-area", 2000,
         [](int n) { return InReport("<Area><Name>N</Name>" + Repeated(n, "<x/>") + "</Area>"); },
         ReadString},
        {"name-again", 5000, inReport("<ReportBase"), ReadString},
        {"name-again-closed", 2000, inReport("<ReportBase>"), ReadString},
        {"name-without-end", 5000, [](int n) { return Repeated(n, "<ReportBase"); }, ReadString},
        {"long-element-name", 20000, [](int n) { return InReport("<" + Repeated(n, "a") + "/>"); },
         ReadString},
        {"comments", 2000, inReport("<!-- c -->"), ReadString},
        {"comment-long", 20000, [](int n) { return InReport("<!-- " + Repeated(n, "c") + " -->"); },
         ReadString},
        {"comments-in-text", 2000, text("t<!-- c -->"), ReadString},
        {"cdata", 2000, text("<![CDATA[t]]>"), ReadString},
        {"instructions", 2000, inReport("<?p i?>"), ReadString},
        {"references", 5000, text("&amp;"), ReadString},
        {"character-references", 5000, text("&#65;"), ReadString},
        {"entities", 500, Entities, ReadString},
        {"unknown-entities", 2000, text("&e;"), ReadString},
        {"text-long", 50000, text("t"), ReadString},
        {"text-long-file", 50000, text("t"), ReadFile},
        {"digits", 20000, digits, ReadString},
        {"digits-file", 20000, digits, ReadFile},
        {"settings-siblings", 2000, [](int n) { return Repeated(n, "<a/>"); }, ReadSettings},
        {"settings-slashes", 20000, [](int n) { return "<a>" + Repeated(n, "/ ") + ">"; }, ReadSettings},
        {"binary-unknown", 5000, unknownElements, ReadBody<ReportBase>},
        {"binary-unknown-derived", 5000, unknownElements, ReadBody<DerivedReport>},
        {"binary-points", 1000, binaryPoints, ReadBody<ReportBase>},
        {"binary-points-derived", 1000, binaryPoints, ReadBody<DerivedReport>},
        {"binary-points-odd", 1000, oddPoints, ReadBody<ReportBase>},
        {"binary-points-empty", 1000, emptyPoints, ReadBody<ReportBase>},
        {"binary-areas", 1000, binaryAreas, ReadBody<ReportBase>},
        {"binary-areas-derived", 1000, binaryAreas, ReadBody<DerivedReport>},
        {"binary-lists", 1000, lists, ReadBody<ReportBase>},
        {"binary-lists-derived", 1000, lists, ReadBody<DerivedReport>},
        {"binary-digits", 20000,
         [](int n) { return Element(FREQUENCY, Element(FREQUENCY_VALUE, Counted(QByteArray(n, '7')))); },
         ReadBody<ReportBase>},
        {"binary-values", 2000,
         [](int n) { return Element(FREQUENCY, Element(FREQUENCY_VALUE, Counted("1")).repeated(n)); },
         ReadBody<ReportBase>},
        {"raw-points", 1000, rawPoints, ReadRaw},
    };
}

} // namespace

int main(int argc, char** argv)
{
    for (const Shape& shape : Shapes()) {
        if (argc < 3)
            std::printf("%s %d\n", shape.name, shape.pieces);
        else if (std::strcmp(argv[1], shape.name) == 0)
            return shape.read(shape.make(std::atoi(argv[2]))), 0;
    }
    return argc < 3 ? 0 : 2;
}
