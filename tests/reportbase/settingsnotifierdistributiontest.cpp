// What a SettingsNotifier makes of a fragment: how it passes it on, to whom, and what becomes of objects that
// throw.

#include "support/expect.h"
#include "support/notified.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <gtest/gtest.h>

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <stdexcept>
#include <vector>

namespace {

using REPORTGENERATOR::AnyType;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::SettingsNotifier;
using Support::ExpectInvalid;
using Support::ExpectThrows;
using Support::Heard;
using Support::JOB;
using Support::JOB_HEADER;
using Support::NewCenter;
using Support::Numbered;
using Support::Offered;
using Support::Register;
using Support::RegisterOffered;
using Support::TASK;
using Support::Text;
using Support::Traces;

/// What the registered objects are offered for a text.
QString FragmentOf(const QString& xml)
{
    SettingsNotifier notifier;
    const Offered* object = RegisterOffered(notifier, JOB);
    EXPECT_NO_RG_THROW(notifier.SetSettings(xml, false));
    EXPECT_EQ(object->fragments.size(), 1);
    return object->fragments.value(0);
}

QString Wrapped(const char* xml)
{
    return Text("<Dummy>\n") + Text(xml) + Text("\n</Dummy>");
}

const char* const SCAN = "<ScanParameter><FrequencyRange><StartFrequency>1</StartFrequency>"
                         "<StopFrequency>2</StopFrequency></FrequencyRange>"
                         "<FrequencyStep>0.5</FrequencyStep></ScanParameter>";
const char* const ELLIPSE = "<Ellipse><MinRadius>1</MinRadius><MaxRadius>2</MaxRadius>"
                            "<Rotation>3</Rotation></Ellipse>";

} // namespace

// --- Fragments --------------------------------------------------------------------------------------------

TEST(SettingsNotifier, OneElementIsPassedAsItIs)
{
    for (const char* xml : {
             "<A></A>",
             "<A>1</A>",
             "<A x=\"1\">1</A>",
             "<A x=\"a/b>c\"><B/></A>",
             "  <A>1</A>",
             "\n<A>1</A>",
             "rubbish <A>1</A>",
             "<A>1</A><A>2</A>",
             "<Grüße>1</Grüße>",
         })
        EXPECT_TEXT(FragmentOf(Text(xml)), xml);
}

TEST(SettingsNotifier, TrailingBlanksDontDefeatTheSingleElement)
{
    EXPECT_TEXT(FragmentOf(Text("<A>1</A> ")), "<A>1</A> ");
    EXPECT_TEXT(FragmentOf(Text("<A>1</A>     ")), "<A>1</A>     ");
}

TEST(SettingsNotifier, TrailingLineBreakMakesTheFragmentWrapped)
{
    for (const char* xml :
         {"<A>1</A>\n", "<A>1</A>\r\n", "<A>1</A>\t", "<A>1</A>\n ", "<A>1</A> \n", "<A>1</A>\xc2\xa0"})
        EXPECT_TEXT(FragmentOf(Text(xml)), Wrapped(xml));
}

TEST(SettingsNotifier, SiblingsAreWrapped)
{
    EXPECT_TEXT(FragmentOf(Text("<A>1</A><B>2</B>")), Wrapped("<A>1</A><B>2</B>"));
    EXPECT_TEXT(FragmentOf(Text("<A x=\"1\">1</A>\n<B>2</B>")), Wrapped("<A x=\"1\">1</A>\n<B>2</B>"));
    EXPECT_TEXT(FragmentOf(Text("<A>1</A><a>2</a>")), Wrapped("<A>1</A><a>2</a>"));
    EXPECT_TEXT(FragmentOf(Text("<A>1</A><AB>2</AB>")), Wrapped("<A>1</A><AB>2</AB>"));
}

TEST(SettingsNotifier, SelfClosingLastElementMakesTheFragmentWrapped)
{
    for (const char* xml : {"<A/>", "<A />", "<A x=\"1\"/>", "<A>1</A><A/>", "<A>1</A><B/>"})
        EXPECT_TEXT(FragmentOf(Text(xml)), Wrapped(xml));
}

TEST(SettingsNotifier, TextWithoutTwoEqualTagNamesIsWrapped)
{
    for (const char* xml : {"", " ", "text", "<", ">", "<>", "</>", "<A>", "A>", "<A>1</A> text", "<A>1</A",
                            "<A\n>1</A>", "<A\tx=\"1\">1</A>", "<A>1</A >", "< A>1</A>",
                            "<!-- note --><A>1</A>", "<?xml version=\"1.0\"?><A>1</A>"})
        EXPECT_TEXT(FragmentOf(Text(xml)), Wrapped(xml));
}

TEST(SettingsNotifier, NamesAreTakenFromTheTextAlone)
{
    // Both names of the first are "A", though it is no element: what it is worth is for the objects to say.
    EXPECT_TEXT(FragmentOf(Text("<A /A>")), "<A /A>");
    EXPECT_TEXT(FragmentOf(Text("/A> <A")), Wrapped("/A> <A"));
}

TEST(SettingsNotifier, LongTagNameIsReadWhole)
{
    const QString name(1001, QLatin1Char('n'));
    const QString xml = Text("<") + name + Text(">1</") + name + Text(">");
    EXPECT_TEXT(FragmentOf(xml), xml);
    const QString even = Text("<n") + name + Text(">1</n") + name + Text(">");
    EXPECT_TEXT(FragmentOf(even), even);
    const QString palindromeOnly = Text("<abc>1</cba>");
    EXPECT_TEXT(FragmentOf(palindromeOnly), Wrapped("<abc>1</cba>"));
}

TEST(SettingsNotifier, HugeFragmentIsLookedAtInTimeThatGrowsWithItsLength)
{
    // Neither a name without an end nor blanks or a name before a '>' cost more than one pass.
    const QString million(1000000, QLatin1Char('n'));
    EXPECT_TRUE(FragmentOf(Text("<") + million).startsWith(Text("<Dummy>\n<n")));
    EXPECT_TRUE(FragmentOf(million + Text(">")).startsWith(Text("<Dummy>\n")));
    const QString blanks(1000000, QLatin1Char(' '));
    EXPECT_EQ(FragmentOf(Text("<A></A>") + blanks).size(), 1000007);
    EXPECT_TRUE(FragmentOf(blanks).startsWith(Text("<Dummy>\n ")));
}

TEST(SettingsNotifier, FlagIsPassedOnUnchanged)
{
    SettingsNotifier notifier;
    const Offered* object = RegisterOffered(notifier, JOB);
    notifier.SetSettings(Text("<A></A>"), true);
    notifier.SetSettings(Text("<A/>"), true);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(object->flags, (std::vector<bool>{true, true, false}));
}

// --- Distribution -----------------------------------------------------------------------------------------

TEST(SettingsNotifier, OffersInAscendingOrderOfIdsAndSignalsObjectBeforeCenter)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, TASK);
    RegisterOffered(notifier, JOB);
    auto* negative = new Offered(JOB_HEADER);
    negative->SetObjectId(-7);
    Register(notifier, negative);
    auto* large = new Offered(AnyType);
    large->SetObjectId(0x7fffffffffffffffLL);
    Register(notifier, large);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled,
              Support::Lines({"object -7", "center -7", "object 40", "center 40", "object 42", "center 42",
                              "object 9223372036854775807", "center 9223372036854775807"}));
}

TEST(SettingsNotifier, SignalsFollowEachObjectBeforeTheNextIsOffered)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    Offered* second = RegisterOffered(notifier, TASK);
    QStringList before;
    second->onReset = [&] { before = heard.signalled; };
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(before, Support::Lines({"object 40", "center 40"}));
}

TEST(SettingsNotifier, SignalsCarryTheRegisteredPointers)
{
    SettingsNotifier notifier;
    RegisterCenter* center = NewCenter(new Offered(JOB));
    notifier.NotifyOnChanged(center);
    IRGObject* heardObject = nullptr;
    RegisterCenter* heardCenter = nullptr;
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject* object) { heardObject = object; });
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter* changed) { heardCenter = changed; });
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heardObject, center->GetInterface());
    EXPECT_EQ(heardCenter, center);
}

TEST(SettingsNotifier, SignalsComeWhenTheObjectHoldsItsNewSettings)
{
    SettingsNotifier notifier;
    const auto* ellipse = Register(notifier, new Numbered<Ellipse>(1));
    std::vector<double> rotations;
    const auto note = [&] { rotations.push_back(ellipse->GetRotation()); };
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged), note);
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged), note);
    notifier.SetSettings(Text(ELLIPSE), true);
    EXPECT_EQ(rotations, (std::vector<double>{3.0, 3.0}));
}

TEST(SettingsNotifier, EveryObjectIsResetBeforeItsOfferAlsoOneThatTakesNothing)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    Offered* taking = RegisterOffered(notifier, JOB);
    Offered* passing = RegisterOffered(notifier, TASK);
    passing->takes = false;
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(taking->calls.reset, 1);
    EXPECT_EQ(taking->resetsBefore, 1);
    EXPECT_EQ(passing->calls.reset, 1);
    EXPECT_EQ(passing->resetsBefore, 1);
    EXPECT_EQ(passing->fragments.size(), 1);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
}

TEST(SettingsNotifier, ObjectWithoutDataCountsAsTakingButIsNotSignalled)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB)->hasData = false;
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(heard.signalled, QStringList());
}

TEST(SettingsNotifier, FragmentThatNoObjectTakesIsInvalidAfterAllWereOffered)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    Offered* first = RegisterOffered(notifier, JOB);
    Offered* second = RegisterOffered(notifier, TASK);
    first->takes = false;
    second->takes = false;
    ExpectInvalid(notifier, Text("<A></A>"));
    EXPECT_EQ(first->calls.reset, 1);
    EXPECT_EQ(second->calls.reset, 1);
    EXPECT_EQ(first->fragments.size(), 1);
    EXPECT_EQ(second->fragments.size(), 1);
    EXPECT_EQ(heard.signalled, QStringList());
}

TEST(SettingsNotifier, EmptyRegistryTakesNothing)
{
    SettingsNotifier notifier;
    ExpectInvalid(notifier, Text("<A></A>"));
    ExpectInvalid(notifier, QString());
    ExpectInvalid(notifier, Text("<A></A>"), true);
}

TEST(SettingsNotifier, DistributesSiblingsAmongTheLibrarysObjects)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    const auto* scan = Register(notifier, new Numbered<ScanParameter>(2));
    const auto* ellipse = Register(notifier, new Numbered<Ellipse>(1));
    auto* spacing = Register(notifier, new Numbered<REPORTGENERATOR::ChannelSpacing>(3));
    spacing->SetSameDistance(true);

    EXPECT_NO_RG_THROW(notifier.SetSettings(Text(SCAN) + Text("\n") + Text(ELLIPSE), false));
    EXPECT_EQ(scan->GetStepFrequency(), 0.5);
    EXPECT_EQ(ellipse->GetRotation(), 3.0);
    EXPECT_FALSE(spacing->AnyData()) << "reset, though not in the fragment";
    EXPECT_EQ(heard.signalled, Support::Lines({"object 1", "center 1", "object 2", "center 2"}));
}

TEST(SettingsNotifier, OneElementSatisfiesTheRootCheckButSiblingsDoNot)
{
    Traces traces(0);
    SettingsNotifier notifier;
    Heard heard(notifier);
    const auto* ellipse = Register(notifier, new Numbered<Ellipse>(1));
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text(ELLIPSE), true));
    EXPECT_EQ(heard.signalled, Support::Lines({"object 1", "center 1"}));
    EXPECT_TRUE(ellipse->HasData());

    ExpectInvalid(notifier, Text(ELLIPSE) + Text(SCAN), true);
    ExpectInvalid(notifier, Text(ELLIPSE) + Text("\n"), true);
    EXPECT_EQ(heard.signalled.size(), 2);
    EXPECT_FALSE(ellipse->AnyData());
}

TEST(SettingsNotifier, EmptyElementIsTakenWithoutASignal)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    Register(notifier, new Numbered<Ellipse>(1));
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<Ellipse/>"), false));
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<Ellipse></Ellipse>"), true));
    EXPECT_EQ(heard.signalled, QStringList());
}

TEST(SettingsNotifier, CenterWithoutAnObjectIsPassedOver)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    notifier.NotifyOnChanged(new RegisterCenter);
    ExpectInvalid(notifier, Text("<A></A>"));
    EXPECT_EQ(traces.entries, QStringList());

    const Offered* object = RegisterOffered(notifier, JOB);
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(object->fragments.size(), 1);
    ASSERT_NE(notifier.GetCenter(-1LL), nullptr);
    EXPECT_EQ(notifier.GetCenter(-1LL)->GetInterface(), nullptr);
}

// --- Objects that throw -----------------------------------------------------------------------------------

TEST(SettingsNotifier, ObjectThatThrowsIsTracedAndTheOthersAreServed)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Heard heard(notifier);
    Register(notifier, new Numbered<Ellipse>(1));
    Register(notifier, new Numbered<ScanParameter>(2));
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<Ellipse><Step>1</Step></Ellipse>") + Text(SCAN), false));
    EXPECT_EQ(traces.entries,
              Support::Lines({"SettingsNotifier::SetSettings: Unknown Tag 'Step' in 'Ellipse'. | "
                              "framework/reportgenerator/reportbase/settingsnotifier | 110"}));
    EXPECT_EQ(heard.signalled, Support::Lines({"object 2", "center 2"}));
}

TEST(SettingsNotifier, TraceTellsWhySiblingsFailTheRootCheck)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Register(notifier, new Numbered<Ellipse>(1));
    Register(notifier, new Numbered<ScanParameter>(2));
    ExpectInvalid(notifier, Text(ELLIPSE) + Text(SCAN), true);
    const QString place = Text(" | framework/reportgenerator/reportbase/settingsnotifier | 110");
    EXPECT_EQ(
        traces.entries,
        QStringList({Text("SettingsNotifier::SetSettings: Unsuitable XML for Ellipse!") + place,
                     Text("SettingsNotifier::SetSettings: Unsuitable XML for ScanParameter!") + place}));
}

TEST(SettingsNotifier, OnlyTheTraceFlagTurnsTracingOn)
{
    for (const unsigned int flags : {0x20U, 0x21U, 0x30U, 0xFFFFFFFFU, 0x0U, 0x1FU, 0x40U, 0xFFFFFFDFU}) {
        Traces traces(flags);
        SettingsNotifier notifier;
        RegisterOffered(notifier, JOB)->onOffer = [] { throw RGException(Text("broken")); };
        ExpectInvalid(notifier, Text("<A></A>"));
        const bool expected = (flags & 0x20U) != 0;
        EXPECT_EQ(traces.entries,
                  expected ? Support::Lines({"SettingsNotifier::SetSettings: broken | "
                                             "framework/reportgenerator/reportbase/settingsnotifier | 110"})
                           : QStringList())
            << flags;
    }
}

TEST(SettingsNotifier, NothingIsTracedWithoutAnException)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Offered* object = RegisterOffered(notifier, JOB);
    notifier.SetSettings(Text("<A></A>"), false);
    object->takes = false;
    ExpectInvalid(notifier, Text("<A></A>"));
    EXPECT_EQ(traces.entries, QStringList());
}

TEST(SettingsNotifier, TracedTextIsTakenLiterally)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    RegisterOffered(notifier, JOB)->onOffer = [] { throw RGException(Text("%1 %s %n 'ü'")); };
    ExpectInvalid(notifier, Text("<A></A>"));
    EXPECT_EQ(traces.entries,
              Support::Lines({"SettingsNotifier::SetSettings: %1 %s %n 'ü' | "
                              "framework/reportgenerator/reportbase/settingsnotifier | 110"}));
}

TEST(SettingsNotifier, DerivedExceptionIsTracedToo)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    RegisterOffered(notifier, JOB)->onOffer = [] { throw BinaryParsingException(Text("damaged")); };
    ExpectInvalid(notifier, Text("<A></A>"));
    EXPECT_EQ(traces.entries.size(), 1);
    EXPECT_TRUE(traces.entries.value(0).startsWith(Text("SettingsNotifier::SetSettings: damaged | ")));
}

TEST(SettingsNotifier, ObjectThatThrowsFromItsResetIsNotOffered)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Heard heard(notifier);
    Offered* object = RegisterOffered(notifier, JOB);
    object->onReset = [] { throw RGException(Text("reset")); };
    RegisterOffered(notifier, TASK);
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(object->fragments, QStringList());
    EXPECT_EQ(traces.entries.size(), 1);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 42", "center 42"}));
}

TEST(SettingsNotifier, ObjectThatThrowsWhenAskedForDataHasTakenTheFragment)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB)->onHasData = [] { throw RGException(Text("data")); };
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(traces.entries.size(), 1);
    EXPECT_EQ(heard.signalled, QStringList());
}

TEST(SettingsNotifier, MalformedFragmentIsTracedForEachObjectThatIsMetInIt)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Register(notifier, new Numbered<Ellipse>(1));
    Register(notifier, new Numbered<ScanParameter>(2));
    ExpectInvalid(notifier, Text("<Ellipse>"));
    EXPECT_EQ(traces.entries.size(), 1);
}

TEST(SettingsNotifier, FragmentOfTooManyAttributesIsTraced)
{
    const Traces traces(0x20);
    SettingsNotifier notifier;
    Register(notifier, new Ellipse);
    QString fragment = Text("<Ellipse><Axis");
    for (int i = 0; i <= 256; ++i)
        fragment += Text(" a%1=''").arg(i);
    ExpectInvalid(notifier, fragment + Text("/></Ellipse>"));
    ASSERT_EQ(traces.entries.size(), 1);
    EXPECT_TRUE(
        traces.entries.at(0).contains(Text("An element has more than 256 attributes or namespaces.")));
}

TEST(SettingsNotifier, XmlDeclarationMakesTheFragmentUnreadable)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Register(notifier, new Numbered<Ellipse>(1));
    ExpectInvalid(notifier, Text("<?xml version=\"1.0\"?>") + Text(ELLIPSE));
    EXPECT_EQ(traces.entries.size(), 1);
}

TEST(SettingsNotifier, ExceptionsOfOtherTypesPassOut)
{
    Traces traces(0x20);
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    Offered* throwing = RegisterOffered(notifier, JOB_HEADER);
    const Offered* last = RegisterOffered(notifier, TASK);
    const auto set = [&] { notifier.SetSettings(Text("<A></A>"), false); };

    throwing->onOffer = [] { throw std::runtime_error("other"); };
    EXPECT_THROW(set(), std::runtime_error);
    throwing->onOffer = [] { throw 5; };
    EXPECT_THROW(set(), int);

    // The root of the family is no RGException.
    throwing->onOffer = [] { throw ReportException(); };
    ExpectThrows<ReportException>(set, "ReportException", "unknown error");

    EXPECT_EQ(traces.entries, QStringList());
    EXPECT_EQ(last->calls.reset, 0);
    EXPECT_EQ(heard.signalled.size(), 6) << "the first object was signalled each time";
}
