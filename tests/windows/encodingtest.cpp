// Encodings that an XML file may declare are those that Qt has codecs for, which on Windows are fewer.

#include "support/expect.h"
#include "support/scratchfile.h"

#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>

#include <utility>

namespace {

using REPORTGENERATOR::ReportBase;

void WriteDeclaring(const char* encoding, const QByteArray& name)
{
    Support::WriteScratch(QByteArray("<?xml version=\"1.0\" encoding=\"") + encoding +
                          "\"?><ReportBase><Area Version=\"1.0\"><Name>" + name +
                          "</Name></Area></ReportBase>");
}

TEST(DeclaredEncoding, OfUsAsciiIsRefused)
{
    WriteDeclaring("us-ascii", "Zurich");
    ReportBase report;
    EXPECT_RG_THROW(report.LoadXml(Support::ScratchPath()), "RGException",
                    "Encoding us-ascii is unsupported");
}

TEST(DeclaredEncoding, OfUnicodeAndOfWesternEuropeIsRead)
{
    for (const auto& [encoding, name] : {std::pair<const char*, QByteArray>("UTF-8", "Z\xC3\xBCrich"),
                                         std::pair<const char*, QByteArray>("ISO-8859-1", "Z\xFCrich"),
                                         std::pair<const char*, QByteArray>("windows-1252", "Z\xFCrich")}) {
        WriteDeclaring(encoding, name);
        ReportBase report;
        report.SetValidate(false);
        EXPECT_TRUE(report.LoadXml(Support::ScratchPath())) << encoding;
        EXPECT_TEXT(report.GetArea().GetName(), "Zürich");
    }
}

} // namespace
