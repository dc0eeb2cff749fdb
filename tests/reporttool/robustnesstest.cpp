#include "samples.h"

#include "support/expect.h"

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/reportfile.h>

#include <gtest/gtest.h>

#include <QtCore/QVector>

namespace {

using ReportCore::BinaryInspector;
using ReportCore::Event;
using ReportCore::FileForm;
using ReportCore::Form;
using ReportCore::ReadReport;
using ReportCore::Recognise;
using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;

/// Qt tells each time that compressed data are damaged; here they are so some thousand times.
class ToolRobustness : public testing::Test
{
protected:
    void SetUp() override
    {
        m_handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }
    void TearDown() override { qInstallMessageHandler(m_handler); }

private:
    QtMessageHandler m_handler = nullptr;
};

QVector<QByteArray> AllForms()
{
    return {FullXml(), FullPlain(), FullCompressed(), InFile(FullPlain()), InFile(FullCompressed())};
}

/// The bytes of all fields, one behind the other. Of compressed data only what stands around them.
QByteArray WalkedBytes(const QByteArray& bytes, bool isBinaryFile)
{
    QByteArray walked;
    BinaryInspector inspector(bytes, isBinaryFile,
                              [&walked](const Event& field) { walked += field.bytes.Bytes(); });
    inspector.Envelope();
    if (!inspector.IsCompressed())
        inspector.Body();
    inspector.End();
    return walked;
}

void ExpectCompleteWalk(const QByteArray& bytes)
{
    const FileForm form = Recognise(bytes);
    if (form.form == Form::Plain || form.form == Form::Compressed) {
        EXPECT_BYTES(WalkedBytes(bytes, form.isBinaryFile), bytes);
    }
}

TEST_F(ToolRobustness, EveryTruncationIsAProblemAndNoneACrash)
{
    for (const QByteArray& whole : AllForms()) {
        EXPECT_TRUE(ReadReport(whole).IsGood());
        for (int size = 0; size < whole.size(); ++size) {
            const QByteArray part = whole.left(size);
            EXPECT_FALSE(ReadReport(part).IsGood()) << size << " of " << whole.size();
            ExpectCompleteWalk(part);
        }
    }
}

TEST_F(ToolRobustness, EveryFlippedBitIsSurvivedAndEveryByteWalkedOnce)
{
    for (const QByteArray& whole : AllForms()) {
        for (int bit = 0; bit < whole.size() * 8; ++bit) {
            QByteArray damaged = whole;
            damaged[bit / 8] = static_cast<char>(static_cast<uchar>(damaged.at(bit / 8)) ^ (1U << (bit % 8)));
            const ReportCore::ReportFile file = ReadReport(damaged);
            EXPECT_EQ(file.size, damaged.size());
            ExpectCompleteWalk(damaged);
        }
    }
}

TEST_F(ToolRobustness, EveryWordMayBeHugeOrNegative)
{
    for (const QByteArray& whole : AllForms()) {
        for (int i = 0; i + 4 <= whole.size(); ++i) {
            for (const char* word : {"\x7F\xFF\xFF\xFF", "\x80\x00\x00\x01", "\xFF\xFF\xFF\xFF"}) {
                QByteArray damaged = whole;
                damaged.replace(i, 4, word, 4);
                EXPECT_EQ(ReadReport(damaged).size, whole.size());
                ExpectCompleteWalk(damaged);
            }
        }
    }
}

TEST_F(ToolRobustness, FormIsRecognisedByTheContent)
{
    struct
    {
        QByteArray bytes;
        Form form;
        bool isBinaryFile;
    } const rows[] = {
        {FullXml(), Form::Xml, false},
        {"<", Form::Xml, false},
        {FullPlain(), Form::Plain, false},
        {FullCompressed(), Form::Compressed, false},
        {InFile(FullPlain()), Form::Plain, true},
        {InFile(FullCompressed()), Form::Compressed, true},
        {InFile(InFile(FullPlain())), Form::Unknown, false},
        {InFile(FullXml()), Form::Unknown, false},
        {FullPlain().mid(1), Form::Unknown, false},
        {FullPlain().left(21), Form::Unknown, false},
        {FullPlain().left(22), Form::Plain, false},
        {QByteArray(), Form::Unknown, false},
        {QByteArray(100, '\0'), Form::Unknown, false},
        {QByteArray(100, '\xFF'), Form::Unknown, false},
        // A size like "<" in UTF-32, and the marker behind it: bytes, not XML.
        {QByteArray("\0\0\0<", 4) + FullPlain(), Form::Plain, true},
    };
    for (const auto& row : rows) {
        const FileForm form = Recognise(row.bytes);
        EXPECT_EQ(form.form, row.form) << ::testing::PrintToString(row.bytes.left(30));
        EXPECT_EQ(form.isBinaryFile, row.isBinaryFile) << ::testing::PrintToString(row.bytes.left(30));
    }
}

TEST_F(ToolRobustness, FieldsOfAnUncompressedReportAreThoseOfThePlainOne)
{
    QByteArray walked;
    const QByteArray bytes = FullCompressed();
    BinaryInspector inspector(bytes, false, [&walked](const Event& field) { walked += field.bytes.Bytes(); });
    inspector.Envelope();
    walked.clear();
    inspector.Body();
    EXPECT_BYTES(walked, ToolTest::FullBody());
}

} // namespace
