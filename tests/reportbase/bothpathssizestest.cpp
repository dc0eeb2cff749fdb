// Sizes around which buffers grow: the library's own classes and their subclasses write and read the same.

#include "support/expect.h"
#include "support/pathforms.h"
#include "support/paths.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using Support::Choices;
using Support::CodePath;
using Support::Kind;
using Support::Traveller;
using Support::Writing;

QVector<Coordinate> Points(int count)
{
    Choices choices(static_cast<quint64>(count));
    QVector<Coordinate> points(count);
    for (Coordinate& point : points)
        Support::Fill(point, choices);
    return points;
}

/// Writes in all forms and reads what was written back into the same object and into a fresh one.
void WriteAndRead(CodePath& codePath, Traveller& traveller)
{
    const Choices plain{QByteArray()};
    const REPORTGENERATOR::IRGObject& object = traveller.Object();
    const QString xml = object.GetXmlString();
    const QByteArray bytes = object.GetBinaryRepresentationAsQByteArray();
    codePath.Note("text", xml);
    codePath.Note("bytes", bytes);
    Support::Write(Writing::XmlFile, codePath, traveller, plain);
    Support::Write(Writing::XmlWriter, codePath, traveller, plain);
    Support::Write(Writing::Body, codePath, traveller, plain);
    Support::Write(Writing::CompressedArray, codePath, traveller, plain);
    Support::Write(Writing::Raw, codePath, traveller, plain);
    Support::ReadXmlString(codePath, traveller, xml, true);
    Support::ReadArray(codePath, traveller, bytes);
    const auto fresh = traveller.New();
    Support::ReadXmlFile(codePath, *fresh, xml.toUtf8(), plain);
    fresh->NoteState(codePath.Transcript());
    Support::ReadStream(codePath, *fresh, bytes, plain);
    Support::ReadByReader(codePath, *fresh, xml, plain);
    fresh->NoteState(codePath.Transcript());
}

std::string DifferenceOfArea(const QString& name, int points)
{
    return Support::Difference(Kind::Area, [&](CodePath& codePath, Traveller& traveller) {
        auto& area = dynamic_cast<Area&>(traveller.Object());
        area.SetName(name);
        area.SetCoordinate(Points(points));
        WriteAndRead(codePath, traveller);
    });
}

TEST(BothPathsSizes, MakeNoDifferenceForTexts)
{
    for (const char* piece : {"a", "\xc3\xa4", "&", "\xf0\x9f\x93\xa1", "\xef\xbf\xbd"}) {
        for (const int count : {1, 31, 32, 127, 128, 255, 256, 1023, 1024, 4095, 4096, 8192, 70000}) {
            const QString name = QString::fromUtf8(piece).repeated(count);
            ASSERT_EQ(DifferenceOfArea(name, 1), "") << count << " times " << piece;
        }
    }
}

TEST(BothPathsSizes, MakeNoDifferenceForLists)
{
    for (const int count : {1, 2, 3, 4, 7, 8, 9, 15, 16, 17, 31, 33, 63, 64, 65, 100, 129, 500})
        ASSERT_EQ(DifferenceOfArea(QStringLiteral("list"), count), "") << count;
}

/// Every position of a character that takes several bytes against the ends of a reader's blocks.
TEST(BothPathsSizes, MakeNoDifferenceForWhereATextStands)
{
    for (int shift = 0; shift < 40; ++shift) {
        const QString name = QString(8180 + shift, QLatin1Char('x')) + QStringLiteral("\u00e4\U0001f4e1&");
        ASSERT_EQ(DifferenceOfArea(name, 1), "") << shift;
    }
}

/// A reader takes a file in blocks and stops in the one in which the object ends.
TEST(BothPathsSizes, MakeNoDifferenceForWhereAFileIsLeft)
{
    constexpr quint64 WAYS_TO_OPEN = 20;
    Area area;
    area.SetName(QStringLiteral("first"));
    area.SetCoordinate(Points(1));
    for (const int behind : {100, 8000, 30000}) {
        const QByteArray file =
            "<List>" + area.GetXmlString().toUtf8() + QByteArray(behind, ' ') + QByteArray("</List>");
        for (quint64 seed = 0; seed < WAYS_TO_OPEN; ++seed) {
            const std::string difference =
                Support::Difference(Kind::Area, [&](CodePath& codePath, Traveller& traveller) {
                    Support::ReadXmlFile(codePath, traveller, file, Choices(seed));
                });
            ASSERT_EQ(difference, "") << behind << " bytes, seed " << seed;
        }
    }
}

TEST(BothPathsSizes, MakeNoDifferenceForAReport)
{
    const std::string difference =
        Support::Difference(Kind::Report, [](CodePath& codePath, Traveller& traveller) {
            auto& report = dynamic_cast<ReportBase&>(traveller.Object());
            report.GetFrequency().SetValue(121500000.0);
            report.GetFrequency().SetMin(121000000.0);
            report.GetFrequency().SetMax(122000000.0);
            report.GetFrequency().SetUse(true);
            report.GetIFBandwidth().SetValue(8333.33);
            report.GetIFBandwidth().SetMax(10000.0);
            report.GetArea().SetName(QStringLiteral("Lake region"));
            report.GetArea().SetScriptID(QStringLiteral("script-7"));
            report.GetArea().SetCoordinate(Points(1000));
            WriteAndRead(codePath, traveller);
        });
    EXPECT_EQ(difference, "");
}

} // namespace
