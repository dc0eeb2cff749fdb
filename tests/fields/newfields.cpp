// Takes the fields that docs/adding-a-field.md adds through every form, both ways. Ends with 0 when all is as expected.

#include <reportgenerator/qt/everything.h>
#include <reportgenerator/reportbase/frequencyinformation.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>

#include <iostream>

using REPORTGENERATOR::Area;
using REPORTGENERATOR::EqualAsWritten;
using REPORTGENERATOR::FileForm;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::LoadReport;
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::OptionalRemark;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::SaveFile;
using REPORTGENERATOR::ToText;

namespace {

int failures = 0;

void Expect(bool isTrue, const char* what)
{
    if (!isTrue) {
        std::cerr << "not true: " << what << "\n";
        ++failures;
    }
}

#define EXPECT(condition) Expect(condition, #condition)

const QString REMARK = QStringLiteral("Winter");

void TryTheRemarkOfAnArea()
{
    const Area bare = MakeArea(QStringLiteral("Lake"), {{9.5, 47.5}});
    Area area = bare;
    EXPECT(!area.IsRemarkSet() && area.GetRemark().isNull());
    area.SetRemark(REMARK);
    EXPECT(area != bare);
    EXPECT(!EqualAsWritten(area, bare));
    EXPECT(qHash(area) != qHash(bare));
    EXPECT(OptionalRemark(area) == REMARK);
    EXPECT(ToText(area) ==
           QStringLiteral("Area(name: \"Lake\", coordinates: 1 [(9.5, 47.5)], remark: \"Winter\")"));

    ReportBase report;
    report.SetArea(area);
    EXPECT(report.GetXmlString() ==
           QStringLiteral("\n<ReportBase>\n    <Area Version=\"1.0\">\n        <Name>Lake</Name>\n"
                          "        <Coordinate>\n            <Longitude>9.500000</Longitude>\n"
                          "            <Latitude>47.500000</Latitude>\n        </Coordinate>\n"
                          "        <Remark>Winter</Remark>\n    </Area>\n</ReportBase>"));
    // Tag, length, the size of the text, and the text.
    EXPECT(report.GetBinaryRepresentationAsQByteArray().endsWith(QByteArray::fromHex("3d5a7e14"
                                                                                     "0000000a"
                                                                                     "00000006") +
                                                                 "Winter"));

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("report"));
    for (const FileForm form : {FileForm::Xml, FileForm::Plain, FileForm::Compressed, FileForm::Binary}) {
        SaveFile(report, path, form);
        const ReportBase read = LoadReport(path);
        EXPECT(read == report);
        EXPECT(read.GetArea().GetRemark() == REMARK);
    }

    // The stream operators have the raw form.
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    stream << report;
    buffer.seek(0);
    ReportBase read;
    stream >> read;
    EXPECT(stream.status() == QDataStream::Ok && read == report && read.GetArea().GetRemark() == REMARK);

    area.ResetRemark();
    EXPECT(area == bare);
}

void TryTheOffsetOfAnInformation()
{
    FrequencyInformation bare;
    bare.SetFrequency(121500000.0);
    FrequencyInformation information = bare;
    information.SetOffset(8333.33);
    EXPECT(information != bare);
    EXPECT(!EqualAsWritten(information, bare));
    EXPECT(information.GetXmlString() ==
           QStringLiteral("\n<FrequencyInformation>\n    <Frequency>121500000.00</Frequency>\n"
                          "    <Offset>8333.33</Offset>\n</FrequencyInformation>"));
    EXPECT(!bare.GetXmlString().contains(QStringLiteral("Offset")));
    EXPECT(ToText(information) ==
           QStringLiteral("FrequencyInformation(frequency: 121500000, offset: 8333.33)"));

    FrequencyInformation read;
    EXPECT(read.SetXmlString(information.GetXmlString(), true));
    EXPECT(read == information);
    read.Reset();
    EXPECT(read == FrequencyInformation());

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << information;
    QDataStream in(bytes);
    in >> read;
    EXPECT(in.status() == QDataStream::Ok && read == information);
}

} // namespace

int main()
{
    try {
        TryTheRemarkOfAnArea();
        TryTheOffsetOfAnInformation();
    } catch (const RGException& exception) {
        std::cerr << exception << "\n";
        return 1;
    }
    return failures == 0 ? 0 : 1;
}
