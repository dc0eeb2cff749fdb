#include "support/expect.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/converters.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTimeZone>
#include <QtCore/QXmlStreamReader>

#include <stdexcept>

// The examples of the pages in docs/, and what README and pages say of each other and of the library.

namespace {

using REPORTGENERATOR::Double;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ValueMinMax;
using Support::Text;

QString ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw std::runtime_error("cannot read " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

/// A place in the source tree.
QString InTree(const QString& path)
{
    return Text(REPORTGENERATOR_TEST_VECTORS "/../../") + path;
}

QString Page(const char* name)
{
    return ReadFile(InTree(Text("docs/") + Text(name)));
}

/// All pages, by their places in the tree.
QStringList Pages()
{
    QStringList pages = QDir(InTree(QString())).entryList({Text("*.md")});
    for (const QString& name : QDir(InTree(Text("docs"))).entryList({Text("*.md")}))
        pages << Text("docs/") + name;
    return pages;
}

/// The fenced blocks of a language, each without the line feed at its end.
QStringList Blocks(const QString& page, const char* language)
{
    const QString opening = Text("\n```") + Text(language) + Text("\n");
    const QString closing = Text("\n```\n");
    QStringList blocks;
    auto start = page.indexOf(opening);
    while (start >= 0) {
        start += opening.size();
        const auto end = page.indexOf(closing, start);
        if (end < 0)
            throw std::runtime_error("a block without end");
        blocks << page.mid(start, end - start);
        start = page.indexOf(opening, end);
    }
    return blocks;
}

/// The lines of a page that stand in no fenced block.
QStringList Prose(const QString& page)
{
    QStringList prose;
    bool isFenced = false;
    for (const QString& line : page.split(QLatin1Char('\n'))) {
        if (line.startsWith(Text("```")))
            isFenced = !isFenced;
        else if (!isFenced)
            prose << line;
    }
    return prose;
}

/// The lines that say something, without what they are indented by.
QStringList TrimmedLines(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty())
            lines << line.trimmed();
    }
    return lines;
}

/// The name by which a link reaches a heading.
QString Anchor(QString heading)
{
    heading = heading.toLower();
    heading.remove(QRegularExpression(Text("[^a-z0-9 _-]")));
    return heading.replace(QLatin1Char(' '), QLatin1Char('-'));
}

QStringList Anchors(const QString& page)
{
    QStringList anchors;
    for (const QString& line : Prose(page)) {
        if (line.startsWith(QLatin1Char('#')))
            anchors << Anchor(line.section(QLatin1Char(' '), 1));
    }
    return anchors;
}

/// What is wrong with a link in the page, empty when nothing is.
QString LinkProblem(const QString& page, const QString& path, const QString& anchor)
{
    const QFileInfo target(path.isEmpty() ? InTree(page) : QFileInfo(InTree(page)).path() + Text("/") + path);
    if (!target.exists())
        return page + Text(": no ") + path;
    if (!anchor.isEmpty() && !Anchors(ReadFile(target.filePath())).contains(anchor))
        return page + Text(": no section ") + anchor + Text(" in ") + path;
    return QString();
}

QString RootName(const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    return reader.name().toString();
}

/// What an object writes that has read the text.
QString WrittenAgain(IRGObject& object, const QString& xml)
{
    EXPECT_NO_RG_THROW(EXPECT_TRUE(object.SetXmlString(xml, true)));
    return object.GetXmlString();
}

template <class T>
QString WrittenAgain(const QString& xml)
{
    T object;
    return WrittenAgain(object, xml);
}

/// Its element bears its own name, not the object name, so that its holder hands it the reader.
QString WrittenAgainByValueMinMax(const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    ValueMinMax value;
    value.SetName(reader.name().toString());
    value.ReadValuesFromXml(reader);
    return value.GetXmlString();
}

QString WrittenAgainByDouble(const QString& xml)
{
    Double number;
    number.SetName(RootName(xml));
    return WrittenAgain(number, xml);
}

/// It cannot read the empty mode that it writes; the time is read as far as that.
QString WrittenAgainByMeasurementTime(const QString& xml)
{
    MeasurementTime time;
    EXPECT_RG_THROW(time.SetXmlString(xml, true), "RGException",
                    "'MeasurementTime': Invalid MeasurementModeType '-1'.");
    time.SetMeasurementMode(MeasurementTime::Continuous);
    return time.GetXmlString();
}

QString WrittenAgainByItsClass(const QString& xml)
{
    using Write = QString (*)(const QString&);
    static const struct
    {
        const char* element;
        Write write;
    } CLASSES[] = {
        {"ReportBase", WrittenAgain<REPORTGENERATOR::ReportBase>},
        {"FrequencyInformation", WrittenAgain<REPORTGENERATOR::FrequencyInformation>},
        {"Value", WrittenAgain<REPORTGENERATOR::FrequencyListValue>},
        {"FrequencyRange", WrittenAgain<REPORTGENERATOR::FrequencyRangeOld>},
        {"ScanParameter", WrittenAgain<REPORTGENERATOR::ScanParameter>},
        {"ChannelSpacing", WrittenAgain<REPORTGENERATOR::ChannelSpacing>},
        {"Ellipse", WrittenAgain<REPORTGENERATOR::Ellipse>},
        {"MeasurementTime", WrittenAgainByMeasurementTime},
        {"Threshold", WrittenAgainByDouble},
        {"Level", WrittenAgainByValueMinMax},
    };
    const QString element = RootName(xml);
    for (const auto& row : CLASSES) {
        if (element == Text(row.element))
            return row.write(xml);
    }
    return Text("nobody's element: ") + element;
}

} // namespace

TEST(Documentation, ExamplesOfTheXmlFormAreReadAndWrittenAgain)
{
    const QStringList examples = Blocks(Page("xml.md"), "xml");
    EXPECT_EQ(examples.size(), 11);
    for (const QString& example : examples)
        EXPECT_EQ(WrittenAgainByItsClass(example), Text("\n") + example);
}

TEST(Documentation, ExamplesOfTheBinaryFormsAreGoldenVectors)
{
    const QStringList examples = Blocks(Page("binary.md"), "text");
    ASSERT_EQ(examples.size(), 2);
    const QString vectors = Text(REPORTGENERATOR_TEST_VECTORS "/reportbase/frequency_bandwidth_area");
    EXPECT_EQ(examples[0] + Text("\n"), ReadFile(vectors + Text(".hex")));
    EXPECT_EQ(examples[1] + Text("\n"), ReadFile(vectors + Text(".raw.hex")));
}

TEST(Documentation, OtherLinesOfTheReadmeStandInWhatIsCompiledElsewhere)
{
    const QString readme = ReadFile(InTree(Text("README.md")));
    const auto expectLines = [](const QStringList& blocks, const char* page, const char* language) {
        const QStringList known = TrimmedLines(Blocks(Page(page), language).join(QLatin1Char('\n')));
        const QStringList shown = TrimmedLines(blocks.join(QLatin1Char('\n')));
        EXPECT_FALSE(shown.isEmpty());
        for (const QString& line : shown)
            EXPECT_TRUE(known.contains(line)) << line.toStdString();
    };
    expectLines(Blocks(readme, "cpp").mid(1), "using.md", "cpp");
    expectLines(Blocks(readme, "cmake"), "install.md", "cmake");
}

TEST(Documentation, LinksOfThePagesLeadSomewhere)
{
    const QRegularExpression link(Text("\\]\\(([^)#]*)(?:#([^)]*))?\\)"));
    const QStringList pages = Pages();
    EXPECT_GT(pages.size(), 1);
    int links = 0;
    for (const QString& page : pages) {
        auto matches = link.globalMatch(Prose(ReadFile(InTree(page))).join(QLatin1Char('\n')));
        while (matches.hasNext()) {
            const auto match = matches.next();
            EXPECT_EQ(LinkProblem(page, match.captured(1), match.captured(2)), QString());
            ++links;
        }
    }
    EXPECT_GT(links, 0);
}

TEST(Documentation, ReleasesTakeFortyLinesOfTheChangelogAtMost)
{
    const QStringList releases = ReadFile(InTree(Text("CHANGELOG.md"))).split(Text("\n## ")).mid(1);
    EXPECT_FALSE(releases.isEmpty());
    for (const QString& release : releases)
        EXPECT_LE(release.count(QLatin1Char('\n')), 40)
            << release.section(QLatin1Char('\n'), 0, 0).toStdString();
}

#ifdef Q_OS_LINUX
TEST(Documentation, SavingToAFullDiskGivesTrue)
{
    const ReportBase report;
    EXPECT_TRUE(report.SaveXml(Text("/dev/full")));
}
#endif

TEST(Documentation, MembersOfAnAssignedReportKeepTheirSettingsUntilTheNextOperation)
{
    ReportBase lenient;
    lenient.SetValidate(false);
    lenient.GetArea();
    ReportBase strict;
    strict = lenient;

    EXPECT_NO_RG_THROW(strict.GetArea().SetName(QString()));
    strict.SetValidate(strict.GetValidate());
    EXPECT_RG_THROW(strict.GetArea().SetName(QString()), "OutOfRangeException",
                    "Area: Please set Name properly (origin: Setter).");
}

TEST(Documentation, LocalTimeThatAChangeOfTheClocksSkipsKeepsItsDigits)
{
    const QTimeZone zone("Europe/Berlin");
    ASSERT_TRUE(zone.isValid());
    const QDateTime skipped(QDate(2014, 3, 30), QTime(2, 30), zone);
    EXPECT_FALSE(skipped.isValid());
    EXPECT_FALSE(skipped.isNull());
    EXPECT_EQ(Converters::ToString(skipped), Text("2014-03-30T02:30:00.000Z"));
}
