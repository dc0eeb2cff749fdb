#include "gdalrun.h"

#include "reporttool/samples.h"

#include <gtest/gtest.h>

namespace {

using GdalTest::Folder;
using GdalTest::Ids;
using GdalTest::Source;

/// Reads the bytes as a file and expects a row or a warning.
void ReadDamaged(const Folder& folder, const QByteArray& bytes, std::size_t& rows)
{
    const Source source("REPORTS:" + folder.Write("damaged", bytes));
    rows = Ids(source).size();
    EXPECT_EQ(rows + folder.Said().size(), 1U) << bytes.toHex().constData();
}

void CutEverywhere(const QByteArray& whole)
{
    const Folder folder;
    for (int size = 0; size < whole.size(); ++size) {
        std::size_t rows = 0;
        ReadDamaged(folder, whole.left(size), rows);
        EXPECT_EQ(rows, 0U) << size;
    }
}

/// The beginning is what decides whether the driver takes it, so that each damage goes both ways.
void ChangeEverywhere(const QByteArray& whole)
{
    const Folder folder;
    for (int i = 0; i < whole.size(); ++i) {
        for (const int change : {0x01, 0x80, 0xFF}) {
            QByteArray changed = whole;
            changed[i] = static_cast<char>(changed.at(i) ^ change);
            std::size_t rows = 0;
            ReadDamaged(folder, changed, rows);
        }
    }
}

TEST(GdalDamage, NoCutOfXmlHasARow)
{
    CutEverywhere(ToolTest::FullXml());
}

TEST(GdalDamage, NoCutOfABinaryFormHasARow)
{
    CutEverywhere(ToolTest::FullPlain());
    CutEverywhere(ToolTest::FullCompressed());
}

TEST(GdalDamage, ChangedBytesMakeARowOrAWarning)
{
    ChangeEverywhere(ToolTest::FullXml());
    ChangeEverywhere(ToolTest::FullPlain());
    ChangeEverywhere(ToolTest::FullCompressed());
}

} // namespace
