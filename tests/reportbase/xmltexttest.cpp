// Texts that XML cannot hold as they stand, in a string and in a file.

#include "support/expect.h"
#include "support/files.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;

struct Row
{
    const char* what;
    QString name;
    const char* written;
};

const Row ROWS[] = {
    {"nothing but a character that XML does not allow", QString(QChar(1)), ""},
    {"an empty text", QStringLiteral(""), ""},
    {"markup", QStringLiteral("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c'"},
    {"a character that is dropped", QStringLiteral("a\u000bb"), "ab"},
    {"characters of several bytes", QStringLiteral("Z\u00fcrich \u20ac"), "Z\xC3\xBCrich \xE2\x82\xAC"},
    {"a character of two units", QStringLiteral("\U0001F4E1"), "\xF0\x9F\x93\xA1"},
};

TEST(XmlText, IsTheSameInAStringAndInAFile)
{
    for (const Row& row : ROWS) {
        SCOPED_TRACE(row.what);
        Coordinate point;
        point.SetLongitude(1.0);
        point.SetLatitude(2.0);
        Area area;
        area.SetName(row.name);
        area.AppendCoordinate(point);
        const QByteArray expected = QByteArray("\n<Area Version=\"1.0\">\n    <Name>") + row.written +
                                    "</Name>\n    <Coordinate>\n        <Longitude>1.000000</Longitude>"
                                    "\n        <Latitude>2.000000</Latitude>\n    </Coordinate>\n</Area>";
        EXPECT_XML(area, QString::fromUtf8(expected));
        const Support::TemporaryFolder folder;
        EXPECT_TRUE(area.SaveXml(folder.Path("area.xml")));
        EXPECT_EQ(folder.Read("area.xml"), expected);
    }
}

TEST(XmlText, OfANullTextLeavesItNull)
{
    Area area;
    area.SetValidate(false);
    EXPECT_XML(area, "\n<Area Version=\"1.0\">\n    <Name></Name>\n</Area>");
    area.GetBinaryRepresentationAsQByteArray();
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.GetScriptID().isNull());

    const QString xml;
    EXPECT_FALSE(area.SetXmlString(xml, true));
    EXPECT_TRUE(xml.isNull());
}

} // namespace
