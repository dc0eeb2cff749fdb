// A column of bytes becomes rows of values, whatever is in it.

#include "arrays.h"

#include "support/vectors.h"

#include <columns/columnbuilder.h>
#include <columns/decoding.h>
#include <columns/directreading.h>
#include <columns/rowbuilder.h>

#include <reportcore/reportfile.h>

#include <gmock/gmock.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <stdexcept>

namespace {

using namespace ColumnTest;
using namespace ReportColumns;
using REPORTGENERATOR::RecordAccess;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportBaseData;
using Support::LoadVector;
using Support::LoadXmlVector;
using testing::ElementsAre;
using testing::HasSubstr;

QByteArray Complete(const char* ending)
{
    return LoadVector(QStringLiteral("reportbase/frequency_bandwidth_area.") + QLatin1String(ending)).Data();
}

bool IsPaddedWithZeros(const Buffer& buffer)
{
    const auto* const bytes = static_cast<const char*>(buffer.Data());
    const std::size_t blocks = buffer.Size() / Buffer::ALIGNMENT + 1;
    const std::size_t end =
        buffer.Size() % Buffer::ALIGNMENT == 0 ? buffer.Size() : blocks * Buffer::ALIGNMENT;
    return std::all_of(bytes + buffer.Size(), bytes + end, [](char byte) { return byte == 0; });
}

QByteArray CompleteXml()
{
    return LoadXmlVector(QStringLiteral("reportbase/frequency_bandwidth_area.xml")).toUtf8();
}

DecodeOptions InOneBatch()
{
    DecodeOptions options;
    options.batchRows = 0;
    return options;
}

Taken DecodedRows(const std::vector<std::optional<QByteArray>>& values)
{
    const Given given(values);
    const auto batches = Decode(given.Input(), InOneBatch());
    EXPECT_EQ(batches.size(), 1U);
    return Taken(batches.front());
}

TEST(ColumnsDecoding, EachFormGivesTheSameValues)
{
    const Taken rows = DecodedRows({CompleteXml(), Complete("hex"), Complete("zhex")});
    ASSERT_EQ(rows.Rows(), 3);
    for (std::int64_t row = 0; row < 3; ++row) {
        EXPECT_EQ(rows.Number("frequency_value", row), 121500000.0);
        EXPECT_EQ(rows.Number("frequency_min", row), 117975000.0);
        EXPECT_EQ(rows.Number("frequency_max", row), 137000000.0);
        EXPECT_EQ(rows.Switch("frequency_use", row), true);
        EXPECT_EQ(rows.Number("ifBandwidth_value", row), 8333.33);
        EXPECT_EQ(rows.Number("ifBandwidth_min", row), std::nullopt);
        EXPECT_EQ(rows.Number("ifBandwidth_max", row), std::nullopt);
        EXPECT_EQ(rows.Text("area_name", row), "Z\xC3\xBCrichsee");
        EXPECT_EQ(rows.Text("area_version", row), "1.0");
        EXPECT_EQ(rows.Text("area_scriptId", row), "VHF-1215");
        EXPECT_THAT(*rows.Points(row), ElementsAre(8.54, 47.36, 8.685, 47.258));
        EXPECT_EQ(rows.Text("problem", row), std::nullopt);
    }
}

TEST(ColumnsDecoding, AreaIsWellKnownBinary)
{
    const Taken rows = DecodedRows({Complete("hex")});
    EXPECT_EQ(QByteArray::fromStdString(*rows.Text("area", 0)).toHex(),
              QByteArray("0102000000" // little-endian, a line
                         "02000000"   // of two points
                         "14ae47e17a142140ae47e17a14ae4740"
                         "1f85eb51b85e21401b2fdd2406a14740"));
}

TEST(ColumnsDecoding, WhatIsNotSetIsNull)
{
    const Taken rows = DecodedRows({LoadXmlVector(QStringLiteral("reportbase/frequency_only.xml")).toUtf8()});
    EXPECT_TRUE(rows.Number("frequency_value", 0).has_value());
    for (const char* column :
         {"ifBandwidth_value", "area_name", "area_version", "area_scriptId", "area", "points", "problem"})
        EXPECT_FALSE(IsThere(rows.Column(column), 0)) << column;
}

TEST(ColumnsDecoding, EachInputIsOneRowWhateverItIs)
{
    const QByteArray good = Complete("hex");
    const Taken rows = DecodedRows({std::nullopt, QByteArray("rubbish"), good, QByteArray(""),
                                    good.chopped(1), good + "x", CompleteXml().replace("47.36", "97.36"),
                                    "<a>" + CompleteXml() + CompleteXml() + "</a>"});
    ASSERT_EQ(rows.Rows(), 8);
    EXPECT_EQ(rows.Text("problem", 0), std::nullopt);
    EXPECT_EQ(rows.Text("problem", 1), "UnknownForm: not a report in any known form");
    EXPECT_EQ(rows.Text("problem", 2), std::nullopt);
    EXPECT_EQ(rows.Text("problem", 3), "UnknownForm: not a report in any known form (empty)");
    EXPECT_TRUE(rows.Text("problem", 4).has_value());
    EXPECT_THAT(*rows.Text("problem", 5), HasSubstr("TrailingData"));
    EXPECT_THAT(*rows.Text("problem", 6), HasSubstr("area.coordinate[1].latitude"));
    EXPECT_EQ(rows.Text("problem", 7), "SecondReport: 2 reports in one document");
    for (const std::int64_t row : {0, 1, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(rows.Number("frequency_value", row), std::nullopt) << row;
        EXPECT_EQ(rows.Points(row), std::nullopt) << row;
    }
    EXPECT_EQ(rows.Number("frequency_value", 2), 121500000.0);
}

TEST(ColumnsDecoding, ProblemsBeyondTheFirstAreCounted)
{
    const QByteArray xml = CompleteXml().replace("47.36", "97.36").replace("47.25", "97.25");
    EXPECT_THAT(*DecodedRows({xml}).Text("problem", 0), HasSubstr("coordinate[1].latitude"));
    EXPECT_THAT(*DecodedRows({xml}).Text("problem", 0), testing::EndsWith(", and 1 more"));
}

// --- The fast path beside the thorough one

std::string RowOf(const ReportBaseData& data)
{
    RowBuilder rows{ColumnChoice()};
    rows.AppendReport(data);
    return Taken(std::make_shared<const ColumnValues>(rows.Finish())).Row(0);
}

/// What is read directly must be good, and the same, to those who look at each byte.
bool ReadsDirectlyAsThoroughly(const QByteArray& bytes)
{
    ReportBaseData direct;
    if (!ReadDirectly(bytes.constData(), static_cast<std::size_t>(bytes.size()), direct))
        return false;
    const ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    EXPECT_TRUE(file.IsGood()) << bytes.toPercentEncoding().toStdString();
    RecordAccess::Init(file.report);
    EXPECT_EQ(RowOf(direct), RowOf(*RecordAccess::Get(file.report)));
    return true;
}

std::vector<QByteArray> GoldenReports()
{
    std::vector<QByteArray> all;
    for (const QString& path : Support::VectorFiles()) {
        if (path.startsWith(QLatin1String("reportbase/")) && path.endsWith(QLatin1String(".xml")))
            all.push_back(LoadXmlVector(path).toUtf8());
        else if (path.startsWith(QLatin1String("reportbase/")) && !path.endsWith(QLatin1String(".raw.hex")) &&
                 path.endsWith(QLatin1String("hex")))
            all.push_back(LoadVector(path).Data());
    }
    return all;
}

TEST(ColumnsDecoding, WhatTheLibraryWritesIsReadDirectly)
{
    for (const QByteArray& bytes : {CompleteXml(), Complete("hex"), Complete("zhex")}) {
        const ReportBase report = ReportCore::ReadReport(bytes).report;
        QByteArray file(4, '\0');
        const QByteArray plain = report.GetBinaryRepresentationAsQByteArray();
        file[2] = static_cast<char>(plain.size() / 256);
        file[3] = static_cast<char>(plain.size() % 256);
        EXPECT_TRUE(ReadsDirectlyAsThoroughly(report.GetXmlString().toUtf8()));
        EXPECT_TRUE(ReadsDirectlyAsThoroughly(plain));
        EXPECT_TRUE(ReadsDirectlyAsThoroughly(file + plain));
        EXPECT_TRUE(ReadsDirectlyAsThoroughly(report.GetCompressedBinaryRepresentationAsQByteArray(9)));
    }
}

TEST(ColumnsDecoding, WhatIsReadDirectlyIsGood)
{
    int direct = 0;
    int count = 0;
    for (const QByteArray& golden : GoldenReports()) {
        direct += ReadsDirectlyAsThoroughly(golden) ? 1 : 0;
        ++count;
        for (int i = 0; i < golden.size(); ++i) {
            ReadsDirectlyAsThoroughly(golden.left(i));
            for (const int bit : {0, 4, 5, 7}) {
                QByteArray changed = golden;
                changed[i] = static_cast<char>(changed.at(i) ^ (1 << bit));
                ReadsDirectlyAsThoroughly(changed);
            }
        }
    }
    EXPECT_GE(count, 15);
    EXPECT_GE(direct, 3);
}

// --- Layouts

TEST(ColumnsDecoding, TakesPartOfAnArray)
{
    const Given given({QByteArray("rubbish"), std::nullopt, Complete("hex"), QByteArray("more")});
    ArrowArray part = given.Array();
    part.offset = 1;
    part.length = 2;
    const Taken rows(Decode(BytesInput(given.Schema(), part, "the column"), InOneBatch()).front());
    ASSERT_EQ(rows.Rows(), 2);
    EXPECT_EQ(rows.Text("problem", 0), std::nullopt);
    EXPECT_EQ(rows.Number("frequency_value", 0), std::nullopt);
    EXPECT_EQ(rows.Number("frequency_value", 1), 121500000.0);
}

TEST(ColumnsDecoding, TakesWideOffsets)
{
    const QByteArray bytes = CompleteXml();
    const std::int64_t ends[] = {0, 0, bytes.size()};
    const unsigned char validity[] = {0b10};
    const void* buffers[] = {validity, ends, bytes.constData()};
    ArrowSchema schema = {};
    schema.format = "U";
    ArrowArray array = {};
    array.length = 2;
    array.null_count = -1;
    array.n_buffers = 3;
    array.buffers = buffers;
    const Taken rows(Decode(BytesInput(schema, array, "the column"), InOneBatch()).front());
    EXPECT_EQ(rows.Number("frequency_value", 0), std::nullopt);
    EXPECT_EQ(rows.Number("frequency_value", 1), 121500000.0);
}

TEST(ColumnsDecoding, TakesViews)
{
    const QByteArray bytes = "xx" + CompleteXml();
    const struct View
    {
        std::int32_t size;
        char begin[4];
        std::int32_t buffer;
        std::int32_t place;
    } views[] = {{3, {'a', 'b', 'c', 0}, 0, 0}, {static_cast<std::int32_t>(bytes.size()) - 2, {}, 0, 2}};
    const std::int64_t sizes[] = {bytes.size()};
    const void* buffers[] = {nullptr, views, bytes.constData(), sizes};
    ArrowSchema schema = {};
    schema.format = "vz";
    ArrowArray array = {};
    array.length = 2;
    array.n_buffers = 4;
    array.buffers = buffers;
    const Taken rows(Decode(BytesInput(schema, array, "the column"), InOneBatch()).front());
    EXPECT_EQ(rows.Text("problem", 0), "UnknownForm: not a report in any known form");
    EXPECT_EQ(rows.Number("frequency_value", 1), 121500000.0);
}

TEST(ColumnsDecoding, RefusesOtherTypes)
{
    ArrowSchema schema = {};
    schema.format = "l";
    const ArrowArray array = {};
    EXPECT_THROW(BytesInput(schema, array, "the column"), std::invalid_argument);
    ArrowSchema words = {};
    schema.format = "i";
    schema.dictionary = &words;
    EXPECT_THROW(BytesInput(schema, array, "the column"), std::invalid_argument);
}

TEST(ColumnsDecoding, BuffersAreAlignedAndOutliveWhatMadeThem)
{
    auto values = Decode(Given({Complete("hex"), std::nullopt}).Input(), InOneBatch());
    OwnedSchema schema;
    OwnedArray array;
    ExportSchema(ColumnChoice().Type(), schema.Get());
    ExportArray(values.front(), array.Get());
    values.clear();
    // Whoever moves a child out of the array keeps its buffers.
    const OwnedArray child(*array->children[0]);
    EXPECT_EQ(array->children[0]->release, nullptr);
    array = OwnedArray();
    EXPECT_EQ(static_cast<const double*>(child->buffers[1])[0], 121500000.0);
    for (const int buffer : {0, 1})
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(child->buffers[buffer]) % 64, 0U);
}

TEST(ColumnsDecoding, NothingOfABatchIsInTheNext)
{
    const std::vector<std::optional<QByteArray>> values = {
        Complete("hex"), Complete("hex"), QByteArray("<ReportBase/>"),
        std::nullopt,    QByteArray("?"), QByteArray("<ReportBase/>")};
    DecodeOptions options;
    options.threads = 1;
    options.batchRows = 2;
    const auto batches = Decode(Given(values).Input(), options);
    ASSERT_EQ(batches.size(), 3U);
    for (std::size_t batch = 0; batch < batches.size(); ++batch) {
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(2 * batch);
        const auto alone = Decode(Given({first, first + 2}).Input(), InOneBatch());
        const Taken rows(batches[batch]);
        const Taken expected(alone.front());
        for (const std::int64_t row : {0, 1})
            EXPECT_EQ(rows.Row(row), expected.Row(row));
        for (std::size_t i = 0; i < batches[batch]->children.size(); ++i) {
            const ColumnValues& column = batches[batch]->children[i];
            EXPECT_EQ(column.nulls, alone.front()->children[i].nulls);
            for (const Buffer& buffer : column.buffers)
                EXPECT_TRUE(IsPaddedWithZeros(buffer));
        }
    }
}

TEST(ColumnsDecoding, BatchesKeepTheOrderOfTheRowsInAllThreads)
{
    std::vector<std::optional<QByteArray>> values;
    for (int i = 0; i < 1000; ++i)
        values.emplace_back("<ReportBase><Frequency>" + QByteArray::number(i + 1) +
                            ".00</Frequency></ReportBase>");
    const Given given(values);
    DecodeOptions options;
    options.threads = 4;
    options.batchRows = 7;
    std::int64_t row = 0;
    for (const SharedValues& batch : Decode(given.Input(), options)) {
        const Taken rows(batch);
        EXPECT_LE(rows.Rows(), 7);
        for (std::int64_t i = 0; i < rows.Rows(); ++i)
            EXPECT_EQ(rows.Number("frequency_value", i), static_cast<double>(++row));
    }
    EXPECT_EQ(row, 1000);
}

// --- Files

TEST(ColumnsDecoding, EachFileIsOneRow)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.xml")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(CompleteXml());
    file.close();
    const std::string path = folder.path().toStdString();
    DecodeOptions options;
    options.columns = ColumnChoice({"frequency_value", "problem"});
    options.batchRows = 2;
    const auto source = DecodeFiles({path + "/a.xml", path + "/none.xml", path}, options);
    const Taken first(source->Next(), source->Type());
    EXPECT_EQ(first.Rows(), 2);
    EXPECT_EQ(first.Text("file", 0), path + "/a.xml");
    EXPECT_EQ(first.Number("frequency_value", 0), 121500000.0);
    EXPECT_EQ(first.Text("file", 1), path + "/none.xml");
    EXPECT_THAT(*first.Text("problem", 1), testing::StartsWith("UnusableFile: "));
    const Taken second(source->Next(), source->Type());
    EXPECT_EQ(second.Text("file", 0), path);
    EXPECT_THAT(*second.Text("problem", 0), testing::StartsWith("UnusableFile: "));
    EXPECT_EQ(source->Next(), nullptr);
}

// --- Streams

OwnedStream StreamOf(const char* format, const std::vector<QByteArray>& values)
{
    std::vector<SharedValues> batches;
    for (const QByteArray& value : values) {
        BytesBuilder column;
        column.Append(value.constData(), static_cast<std::size_t>(value.size()));
        batches.push_back(std::make_shared<const ColumnValues>(column.Finish()));
    }
    ArrowArrayStream stream = {};
    ExportStream(SourceOf({format, "", true}, std::move(batches)), &stream);
    return OwnedStream(stream);
}

TEST(ColumnsDecoding, StreamsAreDecodedArrayByArray)
{
    const auto source = DecodeStream(StreamOf("z", {CompleteXml(), QByteArray("rubbish")}), {});
    const Taken first(source->Next(), source->Type());
    EXPECT_EQ(first.Number("frequency_value", 0), 121500000.0);
    const Taken second(source->Next(), source->Type());
    EXPECT_EQ(second.Text("problem", 0), "UnknownForm: not a report in any known form");
    EXPECT_EQ(source->Next(), nullptr);
}

TEST(ColumnsDecoding, StreamsOfOtherTypesAreRefusedAtOnce)
{
    EXPECT_THROW(DecodeStream(StreamOf("l", {}), {}), std::invalid_argument);
}

int FailingSchema(ArrowArrayStream* /*stream*/, ArrowSchema* /*out*/)
{
    return 5;
}

const char* Failure(ArrowArrayStream* /*stream*/)
{
    return "the disk is gone";
}

TEST(ColumnsDecoding, FailuresOfAStreamAreTold)
{
    ArrowArrayStream stream = {};
    stream.get_schema = FailingSchema;
    stream.get_last_error = Failure;
    stream.release = [](ArrowArrayStream* released) { released->release = nullptr; };
    try {
        DecodeStream(OwnedStream(stream), {});
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "the disk is gone");
    }
}

TEST(ColumnsDecoding, StreamsHandOutWhatTheyHaveAndTheirFailures)
{
    ArrowArrayStream stream = {};
    ExportStream(DecodeStream(StreamOf("z", {QByteArray("rubbish")}), {}), &stream);
    const OwnedStream owned(stream);
    ArrowArrayStream* const out = const_cast<ArrowArrayStream*>(&*owned);
    OwnedSchema schema;
    EXPECT_EQ(out->get_schema(out, schema.Get()), 0);
    EXPECT_STREQ(schema->format, "+s");
    OwnedArray array;
    EXPECT_EQ(out->get_next(out, array.Get()), 0);
    EXPECT_EQ(array->length, 1);
    OwnedArray end;
    EXPECT_EQ(out->get_next(out, end.Get()), 0);
    EXPECT_TRUE(end.IsEmpty());
}

} // namespace
