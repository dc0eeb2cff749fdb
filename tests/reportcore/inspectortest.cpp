// What stands in a file is the same in whichever form, and so are the events that tell of it.

#include "reporttool/samples.h"

#include "support/expect.h"
#include "support/recordelements.h"

#include <reportcore/form.h>
#include <reportcore/inspect/inspector.h>

#include <gtest/gtest.h>

#include <QtCore/QStringList>

namespace {

using ReportCore::Event;
using ReportCore::Inspector;
using Support::Element;
using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;
using ToolTest::Plain;

/// What the visitor makes of each event; null texts are left out.
template <typename Text>
QStringList TextsOf(const QByteArray& bytes, const Text& text)
{
    QStringList texts;
    const auto take = [&](const Event& event) {
        const QString each = text(event);
        if (!each.isNull())
            texts << each;
    };
    Inspector::Of(bytes, ReportCore::Recognise(bytes), take)->Run();
    return texts;
}

/// Their order is that of the form.
QString ValuesIn(const QByteArray& bytes)
{
    QStringList values = TextsOf(bytes, [](const Event& event) {
        return event.role == Event::Role::Value ? event.path->Text() + QLatin1Char('=') + event.value
                                                : QString();
    });
    values.sort();
    return values.join(QLatin1Char('\n'));
}

QString ObjectsIn(const QByteArray& bytes)
{
    QStringList objects = TextsOf(bytes, [](const Event& event) {
        return event.role == Event::Role::Object ? QLatin1Char('/') + event.path->Text() : QString();
    });
    objects.sort();
    return objects.join(QLatin1Char(' '));
}

QString UnknownIn(const QByteArray& bytes)
{
    return TextsOf(bytes,
                   [](const Event& event) {
                       return event.role == Event::Role::Unknown
                                  ? event.path->Text() + QStringLiteral(": ") + Subject(event)
                                  : QString();
                   })
        .join(QLatin1Char('\n'));
}

TEST(Inspector, FindsTheSameValuesInEachForm)
{
    for (const QByteArray& bytes : {FullXml(), FullPlain(), FullCompressed(), InFile(FullPlain())}) {
        EXPECT_TEXT(ValuesIn(bytes), "area.coordinate[1].latitude=47.360000\n"
                                     "area.coordinate[1].longitude=8.540000\n"
                                     "area.coordinate[2].latitude=47.258000\n"
                                     "area.coordinate[2].longitude=8.685000\n"
                                     "area.name=Z\xC3\xBCrichsee\n"
                                     "area.scriptId=VHF-1215\n"
                                     "area.version=1.0\n"
                                     "frequency.max=137000000.00\n"
                                     "frequency.min=117975000.00\n"
                                     "frequency.use=true\n"
                                     "frequency.value=121500000.00\n"
                                     "ifBandwidth.value=8333.33");
    }
}

/// In binary forms a list is an element of its own around its items.
TEST(Inspector, FindsTheSameObjectsInEachForm)
{
    EXPECT_TEXT(ObjectsIn(FullXml()),
                "/ /area /area.coordinate[1] /area.coordinate[2] /frequency /ifBandwidth");
    for (const QByteArray& bytes : {FullPlain(), FullCompressed(), InFile(FullPlain())})
        EXPECT_TEXT(
            ObjectsIn(bytes),
            "/ /area /area.coordinate /area.coordinate[1] /area.coordinate[2] /frequency /ifBandwidth");
}

TEST(Inspector, NamesWhatNobodyKnowsAsItsFormDoes)
{
    EXPECT_TEXT(UnknownIn("<ReportBase><Antenna/><Area><Pier/></Area></ReportBase>"),
                ": element 'Antenna'\narea: element 'Pier'");
    EXPECT_TEXT(UnknownIn(Plain(Element(7, {}) + Support::AreaElement(Element(0x12345678, {})))),
                ": element with tag 0x00000007\narea: element with tag 0x12345678");
}

} // namespace
