// Rows of values become the bytes that the library writes.

#include "arrays.h"

#include "support/vectors.h"

#include <columns/decoding.h>
#include <columns/encoding.h>

#include <reportcore/reportfile.h>

#include <gmock/gmock.h>

#include <stdexcept>

namespace {

using namespace ColumnTest;
using namespace ReportColumns;
using ReportCore::Form;
using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using testing::ElementsAre;

Coordinate PointOf(double longitude, double latitude)
{
    Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

ReportBase Lake(double frequency, const QString& name)
{
    ReportBase report;
    report.GetFrequency().SetValue(frequency);
    report.GetFrequency().SetUse(false);
    report.GetIFBandwidth().SetMax(25000.0);
    report.GetIFBandwidth().SetValue(8330.0);
    Area area;
    area.SetName(name);
    area.SetScriptID(QStringLiteral("S-1"));
    for (int i = 0; i < 5; ++i)
        area.AppendCoordinate(PointOf(9.0 + i * i * 0.123456, 47.0 - i * 0.5));
    report.SetArea(area);
    return report;
}

std::vector<ReportBase> Reports()
{
    ReportBase frequencyOnly;
    frequencyOnly.GetFrequency().SetValue(0.25);
    return {Lake(121500000.0, QStringLiteral("Lake")), frequencyOnly, ReportBase(),
            Lake(1.005, QString::fromUtf8("Z\xC3\xBCrichsee <&> \xF0\x9D\x84\x9E")),
            Lake(2.0, QStringLiteral("a\tb"))};
}

/// What the library writes.
QByteArray Written(const ReportBase& report, Form form, int level)
{
    if (form == Form::Xml)
        return report.GetXmlString().toUtf8();
    return form == Form::Plain ? report.GetBinaryRepresentationAsQByteArray()
                               : report.GetCompressedBinaryRepresentationAsQByteArray(level);
}

SharedValues DecodedReports(const std::vector<std::optional<QByteArray>>& values)
{
    DecodeOptions options;
    options.batchRows = 0;
    return Decode(Given(values).Input(), options).front();
}

EncodeOptions As(Form form, int level = -1)
{
    EncodeOptions options;
    options.form.form = form;
    options.level = level;
    options.batchRows = 0;
    return options;
}

std::vector<std::optional<QByteArray>> Encoded(const Taken& rows, const EncodeOptions& options)
{
    const auto batches = Encode(rows.Schema(), rows.Array(), options);
    EXPECT_EQ(batches.size(), 1U);
    return ValuesOf(batches.front());
}

TEST(ColumnsEncoding, BytesAreThoseOfTheLibrary)
{
    std::vector<std::optional<QByteArray>> plain;
    for (const ReportBase& report : Reports())
        plain.emplace_back(Written(report, Form::Plain, -1));
    const Taken rows(DecodedReports(plain));
    for (const Form form : {Form::Xml, Form::Plain, Form::Compressed}) {
        for (const int level : {-1, 0, 1, 9}) {
            std::vector<std::optional<QByteArray>> expected;
            for (const auto& bytes : plain) {
                const ReportBase report = ReportCore::ReadReport(*bytes).report;
                // A row that says nothing stands for no report.
                expected.emplace_back();
                if (report.IsFrequencySet())
                    expected.back() = Written(report, form, level);
            }
            EXPECT_EQ(Encoded(rows, As(form, level)), expected);
        }
    }
}

TEST(ColumnsEncoding, RowsWithProblemsAreRefusedOrSkipped)
{
    const QByteArray good = Written(Lake(5.0, QStringLiteral("Lake")), Form::Plain, -1);
    const Taken rows(DecodedReports({good, std::nullopt, QByteArray("rubbish"), good}));
    EncodeOptions options = As(Form::Plain);
    try {
        Encode(rows.Schema(), rows.Array(), options);
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "row 2: it has a problem");
    }
    options.skipsRefused = true;
    EXPECT_THAT(Encoded(rows, options), ElementsAre(good, std::nullopt, std::nullopt, good));
}

/// The message for rows in which a number was changed.
std::string RefusalOf(const char* column, double number, bool ofPoints = false)
{
    const QByteArray good = Written(Lake(5.0, QStringLiteral("Lake")), Form::Plain, -1);
    const Taken rows(DecodedReports({good, good}));
    const ArrowArray& array =
        ofPoints ? *rows.Column("points").children[0]->children[1] : rows.Column(column);
    // Nobody else looks at them.
    const_cast<double*>(static_cast<const double*>(array.buffers[1]))[1] = number;
    try {
        Encode(rows.Schema(), rows.Array(), As(Form::Plain));
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "";
}

TEST(ColumnsEncoding, WhatASetterRefusesIsRefused)
{
    EXPECT_EQ(RefusalOf("", 90.5, true),
              "row 0: OutOfRangeException: Parameters for m_latitude are not set within range (-90, 90) in "
              "'Coordinate'.");
    EXPECT_EQ(RefusalOf("frequency_value", 90.5), "");
}

TEST(ColumnsEncoding, ColumnsThatAreNotThereAreNull)
{
    const QByteArray good = Written(Lake(5.0, QStringLiteral("Lake")), Form::Plain, -1);
    DecodeOptions options;
    options.columns = ColumnChoice({"frequency_value", "problem"});
    const Taken rows(Decode(Given({good}).Input(), options).front(), options.columns.Type());
    ReportBase expected;
    expected.GetFrequency().SetValue(5.0);
    EXPECT_THAT(Encoded(rows, As(Form::Xml)), ElementsAre(Written(expected, Form::Xml, -1)));
}

TEST(ColumnsEncoding, WhatTheLibraryRefusesIsRefused)
{
    const QByteArray good = Written(Lake(5.0, QStringLiteral("Lake")), Form::Plain, -1);
    DecodeOptions options;
    options.columns = ColumnChoice({"frequency_min", "area_name"});
    const Taken rows(Decode(Given({good}).Input(), options).front(), options.columns.Type());
    EXPECT_THROW(Encode(rows.Schema(), rows.Array(), As(Form::Xml)), std::invalid_argument);
}

TEST(ColumnsEncoding, OtherTypesAreRefused)
{
    const Taken rows(DecodedReports({}));
    OwnedSchema schema;
    ColumnType type = ColumnChoice().Type();
    type.children.front().format = "l";
    ExportSchema(type, schema.Get());
    EXPECT_THROW(Encode(*schema, rows.Array(), As(Form::Plain)), std::invalid_argument);
    EXPECT_THROW(Encode(*rows.Schema().children[0], rows.Array(), As(Form::Plain)), std::invalid_argument);
}

TEST(ColumnsEncoding, RowsOfStreamsAreCountedThrough)
{
    const QByteArray good = Written(Lake(5.0, QStringLiteral("Lake")), Form::Plain, -1);
    ArrowArrayStream stream = {};
    ExportStream(SourceOf(ColumnChoice().Type(),
                          {DecodedReports({good, good}), DecodedReports({good, QByteArray("no")})}),
                 &stream);
    const auto encoded = EncodeStream(OwnedStream(stream), As(Form::Plain));
    EXPECT_THAT(ValuesOf(encoded->Next()), ElementsAre(good, good));
    try {
        encoded->Next();
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "row 3: it has a problem");
    }
}

} // namespace
