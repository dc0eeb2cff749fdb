#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaObject>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

using REPORTGENERATOR::AnyType;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::SettingsNotifier;
using Support::PlainObject;
using Support::Text;

constexpr auto JOB = static_cast<ObjectTypes>(40);
constexpr auto JOB_HEADER = static_cast<ObjectTypes>(41);
constexpr auto TASK = static_cast<ObjectTypes>(42);

/// Makes the protected operation callable and notes its calls.
class OpenNotifier : public SettingsNotifier
{
public:
    void UnRegister(long long id) override
    {
        unregistered.push_back(id);
        SettingsNotifier::UnRegister(id);
    }

    std::vector<long long> unregistered;
};

/// A settings object that notes what it is offered and does as it is told.
class Offered : public PlainObject
{
public:
    explicit Offered(ObjectTypes type, bool* deleted = nullptr) : PlainObject(type), m_deleted(deleted) {}
    ~Offered() override
    {
        if (m_deleted != nullptr)
            *m_deleted = true;
    }

    bool SetXmlString(const QString& xml, bool checkRoot) override
    {
        fragments << xml;
        flags.push_back(checkRoot);
        resetsBefore = calls.reset;
        if (onOffer)
            onOffer();
        return takes;
    }

    void Reset() override
    {
        PlainObject::Reset();
        if (onReset)
            onReset();
    }

    bool HasData() const override
    {
        if (onHasData)
            onHasData();
        return PlainObject::HasData();
    }

    bool takes = true;
    std::function<void()> onReset;
    std::function<void()> onOffer;
    std::function<void()> onHasData;

    QStringList fragments;
    std::vector<bool> flags;
    int resetsBefore = 0;

private:
    bool* m_deleted;
};

/// A class of the library under a number of its own, without which only one fits into a notifier.
template <class T>
class Numbered : public T
{
public:
    explicit Numbered(long long id) { T::SetObjectId(id); }
};

RegisterCenter* NewCenter(IRGObject* object)
{
    auto* center = new RegisterCenter;
    center->RegisterInterface(object);
    return center;
}

template <class Object>
Object* Register(SettingsNotifier& notifier, Object* object)
{
    notifier.NotifyOnChanged(NewCenter(object));
    return object;
}

Offered* RegisterOffered(SettingsNotifier& notifier, ObjectTypes type)
{
    return Register(notifier, new Offered(type));
}

/// Notes both signals: "object 41" and "center 41".
class Heard
{
public:
    explicit Heard(SettingsNotifier& notifier)
    {
        QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                         [this](IRGObject* object) {
                             signalled << Text("object ") + QString::number(object->GetObjectId());
                         });
        QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                         [this](RegisterCenter* center) {
                             signalled << Text("center ") + QString::number(center->GetInterfaceId());
                         });
    }

    QStringList signalled;
};

/// Collects traces for the length of a test, and gives flag word and sink back afterwards.
class Traces
{
public:
    explicit Traces(unsigned int flags) : m_flags(ErrorHandler::Instance().GetFlags())
    {
        ErrorHandler::Instance().SetFlags(flags);
        SetTraceSink([this](const QString& text, const QString& source, int line) {
            entries << text + Text(" | ") + source + Text(" | ") + QString::number(line);
        });
    }
    ~Traces()
    {
        SetTraceSink(TraceSink());
        ErrorHandler::Instance().SetFlags(m_flags);
    }
    Traces(const Traces&) = delete;
    Traces& operator=(const Traces&) = delete;

    QStringList entries;

private:
    unsigned int m_flags;
};

/// The application whose event loops deliver queued signals.
class Application
{
private:
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

template <class Exception>
void ExpectThrows(const std::function<void()>& run, const char* name, const char* text)
{
    try {
        run();
        ADD_FAILURE() << "nothing thrown";
    } catch (const ReportException& exception) {
        EXPECT_TRUE(typeid(exception) == typeid(Exception)) << typeid(exception).name();
        EXPECT_ERROR(exception, name, text);
    }
}

void ExpectInvalid(SettingsNotifier& notifier, const QString& xml, bool flag = false)
{
    ExpectThrows<InvalidXmlException>([&] { notifier.SetSettings(xml, flag); }, "InvalidXmlException",
                                      "Invalid XML-Fragment!");
}

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

// --- Meta-object ------------------------------------------------------------------------------------------

TEST(SettingsNotifier, MetaObjectHasTwoSignalsAndNothingMore)
{
    const SettingsNotifier notifier;
    const QMetaObject* meta = notifier.metaObject();
    EXPECT_STREQ(meta->className(), "REPORTGENERATOR::SettingsNotifier");
    EXPECT_EQ(meta->superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(meta->methodCount(), QObject::staticMetaObject.methodCount() + 2);
    EXPECT_EQ(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
    EXPECT_EQ(meta->enumeratorCount(), QObject::staticMetaObject.enumeratorCount());
    EXPECT_EQ(meta->classInfoCount(), 0);
    EXPECT_EQ(meta->constructorCount(), 0);

    const QMetaMethod first = meta->method(meta->methodOffset());
    EXPECT_EQ(first.methodSignature(), QByteArray("SettingsChanged(REPORTGENERATOR::IRGObject*)"));
    const QMetaMethod second = meta->method(meta->methodOffset() + 1);
    EXPECT_EQ(second.methodSignature(), QByteArray("SettingsChanged(REPORTGENERATOR::RegisterCenter*)"));
    for (const QMetaMethod& method : {first, second}) {
        EXPECT_EQ(method.methodType(), QMetaMethod::Signal);
        EXPECT_EQ(method.access(), QMetaMethod::Public);
        EXPECT_NE(method.parameterType(0), static_cast<int>(QMetaType::UnknownType));
    }
}

TEST(SettingsNotifier, IsFoundByTheMetaObjectOperations)
{
    SettingsNotifier notifier;
    QObject* object = &notifier;
    EXPECT_EQ(qobject_cast<SettingsNotifier*>(object), &notifier);
    EXPECT_TRUE(object->inherits("REPORTGENERATOR::SettingsNotifier"));
    EXPECT_EQ(notifier.qt_metacast("REPORTGENERATOR::SettingsNotifier"), &notifier);
    EXPECT_EQ(notifier.qt_metacast("SettingsNotifier"), nullptr);
    EXPECT_TEXT(SettingsNotifier::tr("x"), "x");
    EXPECT_EQ(notifier.parent(), nullptr);
}

// --- Registration -----------------------------------------------------------------------------------------

TEST(SettingsNotifier, FindsACenterByIdAndByKind)
{
    SettingsNotifier notifier;
    EXPECT_EQ(notifier.GetCenter(41LL), nullptr);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), nullptr);
    RegisterCenter* center = NewCenter(new Offered(JOB_HEADER));
    notifier.NotifyOnChanged(center);
    EXPECT_EQ(notifier.GetCenter(41LL), center);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), center);
    EXPECT_EQ(notifier.GetCenter(42LL), nullptr);
    EXPECT_EQ(notifier.GetCenter(TASK), nullptr);
    EXPECT_EQ(notifier.GetCenter(-1LL), nullptr);
}

TEST(SettingsNotifier, KindIsWidenedWithItsSign)
{
    SettingsNotifier notifier;
    auto* center = new RegisterCenter;
    notifier.NotifyOnChanged(center);
    EXPECT_EQ(notifier.GetCenter(-1LL), center) << "a center without object has the id -1";
    EXPECT_EQ(notifier.GetCenter(static_cast<ObjectTypes>(-1)), center);
    EXPECT_EQ(notifier.GetCenter(0xFFFFFFFFLL), nullptr);
}

TEST(SettingsNotifier, FilesACenterUnderTheObjectsOwnId)
{
    SettingsNotifier notifier;
    auto* center = new RegisterCenter;
    center->RegisterInterface(new Offered(JOB_HEADER), TASK);
    notifier.NotifyOnChanged(center);
    EXPECT_EQ(notifier.GetCenter(TASK), nullptr);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), center);
}

TEST(SettingsNotifier, CenterStaysUnderTheIdThatItWasRegisteredWith)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    Offered* object = RegisterOffered(notifier, JOB_HEADER);
    RegisterCenter* center = notifier.GetCenter(JOB_HEADER);
    RegisterOffered(notifier, TASK);
    object->SetObjectId(99);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), center);
    EXPECT_EQ(notifier.GetCenter(99LL), nullptr);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 99", "center 99", "object 42", "center 42"}));

    // The id is free for another object now.
    EXPECT_NO_RG_THROW(Register(notifier, new Offered(JOB)));
    const std::unique_ptr<RegisterCenter> again(NewCenter(new Offered(JOB_HEADER)));
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(again.get()); }, "InterfaceAlreadyRegisteredException",
        "Interface JobHeader already registered in SettingsNotifier");
}

TEST(SettingsNotifier, SecondObjectOfAKindIsRefusedByItsName)
{
    SettingsNotifier notifier;
    RegisterCenter* first = NewCenter(new Offered(JOB_HEADER));
    notifier.NotifyOnChanged(first);
    const std::unique_ptr<RegisterCenter> second(NewCenter(new Offered(JOB_HEADER)));
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(second.get()); }, "InterfaceAlreadyRegisteredException",
        "Interface JobHeader already registered in SettingsNotifier");
    EXPECT_EQ(notifier.GetCenter(41LL), first);
}

TEST(SettingsNotifier, SameCenterTwiceIsRefusedAndStaysRegistered)
{
    SettingsNotifier notifier;
    RegisterCenter* center = NewCenter(new Offered(TASK));
    notifier.NotifyOnChanged(center);
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(center); }, "InterfaceAlreadyRegisteredException",
        "Interface Task already registered in SettingsNotifier");
    EXPECT_EQ(notifier.GetCenter(TASK), center);
}

TEST(SettingsNotifier, RefusalNamesTheNewObject)
{
    SettingsNotifier notifier;
    Register(notifier, new Ellipse);
    const std::unique_ptr<RegisterCenter> second(NewCenter(new ScanParameter));
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(second.get()); }, "InterfaceAlreadyRegisteredException",
        "Interface ScanParameter already registered in SettingsNotifier");

    auto* empty = new RegisterCenter;
    notifier.NotifyOnChanged(empty);
    RegisterCenter another;
    ExpectThrows<InterfaceAlreadyRegisteredException>([&] { notifier.NotifyOnChanged(&another); },
                                                      "InterfaceAlreadyRegisteredException",
                                                      "Interface  already registered in SettingsNotifier");
}

TEST(SettingsNotifier, UnregisteringDeletesCenterAndObject)
{
    bool deleted = false;
    bool otherDeleted = false;
    OpenNotifier notifier;
    Register(notifier, new Offered(JOB, &deleted));
    Register(notifier, new Offered(TASK, &otherDeleted));
    notifier.UnRegister(39);
    EXPECT_FALSE(deleted);
    EXPECT_NE(notifier.GetCenter(JOB), nullptr);
    notifier.UnRegister(40);
    EXPECT_TRUE(deleted);
    EXPECT_FALSE(otherDeleted);
    EXPECT_EQ(notifier.GetCenter(JOB), nullptr);
    EXPECT_NE(notifier.GetCenter(TASK), nullptr);
    notifier.UnRegister(40);

    EXPECT_NO_RG_THROW(RegisterOffered(notifier, JOB));
    EXPECT_NE(notifier.GetCenter(JOB), nullptr);
}

TEST(SettingsNotifier, DeletesCentersAndObjectsAtItsEnd)
{
    bool deleted[3] = {false, false, false};
    std::unique_ptr<SettingsNotifier> notifier = std::make_unique<OpenNotifier>();
    Register(*notifier, new Offered(JOB, &deleted[0]));
    Register(*notifier, new Offered(JOB_HEADER, &deleted[1]));
    Register(*notifier, new Offered(TASK, &deleted[2]));
    EXPECT_FALSE(deleted[0] || deleted[1] || deleted[2]);
    notifier.reset();
    EXPECT_TRUE(deleted[0] && deleted[1] && deleted[2]);
}

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

// --- Changes from within a handler ------------------------------------------------------------------------

TEST(SettingsNotifier, CenterRegisteredByAHandlerIsServedTheNextTime)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    Offered* added = nullptr;
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged), [&](IRGObject*) {
        if (added == nullptr)
            added = RegisterOffered(notifier, TASK);
    });
    notifier.SetSettings(Text("<A></A>"), false);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->calls.reset, 0);
    EXPECT_EQ(added->fragments, QStringList());
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));

    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(added->fragments.size(), 1);
    EXPECT_EQ(heard.signalled,
              Support::Lines({"object 40", "center 40", "object 40", "center 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, HandlerMayUnregisterAnObjectThatHasBeenServed)
{
    bool deleted = false;
    OpenNotifier notifier;
    Register(notifier, new Offered(JOB, &deleted));
    const Offered* last = RegisterOffered(notifier, TASK);
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject* object) {
                         if (object->GetObjectId() == 42)
                             notifier.UnRegister(40);
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_TRUE(deleted);
    EXPECT_EQ(notifier.GetCenter(JOB), nullptr);
    EXPECT_EQ(last->fragments.size(), 1);
}

TEST(SettingsNotifier, ObjectThatAHandlerUnregistersIsNotServedAnyMore)
{
    bool deleted = false;
    OpenNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    Register(notifier, new Offered(JOB_HEADER, &deleted));
    RegisterOffered(notifier, TASK);
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter* center) {
                         if (center->GetInterfaceId() == 40)
                             notifier.UnRegister(41);
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_TRUE(deleted);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, ObjectThatItsOwnHandlerUnregistersIsSignalledWithoutItsCenter)
{
    OpenNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    RegisterOffered(notifier, TASK);
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject* object) {
                         if (object->GetObjectId() == 40)
                             notifier.UnRegister(40);
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, HandlerMayReplaceAnObjectThatIsYetToBeServed)
{
    OpenNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    RegisterOffered(notifier, TASK);
    // Made before the old center goes, so that it has another place in memory.
    std::unique_ptr<RegisterCenter> center(NewCenter(new Offered(TASK)));
    const auto* replacement = static_cast<const Offered*>(center->GetInterface());
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter* changed) {
                         if (changed->GetInterfaceId() != 40 || !center)
                             return;
                         notifier.UnRegister(42);
                         notifier.NotifyOnChanged(center.release());
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(replacement->fragments, QStringList()) << "registered by a handler, served the next time";
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(replacement->fragments.size(), 1);
}

TEST(SettingsNotifier, HandlerMaySetSettingsAgain)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    const Offered* object = RegisterOffered(notifier, JOB);
    bool again = true;
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter*) {
                         if (!again)
                             return;
                         again = false;
                         notifier.SetSettings(Text("<B></B>"), true);
                     });
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(object->fragments, Support::Lines({"<A></A>", "<B></B>"}));
    EXPECT_EQ(heard.signalled.size(), 4);
}

// --- Connections ------------------------------------------------------------------------------------------

TEST(SettingsNotifier, SignalsCanBeConnectedByTheirText)
{
    SettingsNotifier notifier;
    SettingsNotifier relay;
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*))));
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*))));
    Heard heard(relay);
    RegisterOffered(notifier, JOB);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
}

TEST(SettingsNotifier, SignalsAreReachedByTheirIndexes)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    IRGObject* object = RegisterOffered(notifier, JOB);
    RegisterCenter* center = notifier.GetCenter(JOB);
    const QMetaObject* meta = notifier.metaObject();
    EXPECT_TRUE(meta->method(meta->methodOffset())
                    .invoke(&notifier, Qt::DirectConnection, Q_ARG(REPORTGENERATOR::IRGObject*, object)));
    EXPECT_TRUE(
        meta->method(meta->methodOffset() + 1)
            .invoke(&notifier, Qt::DirectConnection, Q_ARG(REPORTGENERATOR::RegisterCenter*, center)));
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
}

TEST(SettingsNotifier, QueuedSignalsWaitForTheEventLoop)
{
    const Application application;
    SettingsNotifier notifier;
    SettingsNotifier relay;
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), Qt::QueuedConnection));
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)),
                                 Qt::QueuedConnection));
    Heard heard(relay);
    RegisterOffered(notifier, TASK);
    RegisterOffered(notifier, JOB);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled, QStringList());
    QCoreApplication::sendPostedEvents(&relay);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, SignalsReachAnotherThreadThroughItsEventLoop)
{
    const Application application;
    QThread thread;
    SettingsNotifier notifier;
    SettingsNotifier relay;
    QObject listener;
    relay.moveToThread(&thread);
    listener.moveToThread(&thread);
    IRGObject* object = RegisterOffered(notifier, JOB);
    RegisterCenter* center = notifier.GetCenter(JOB);

    // By text to the relay, by pointer to the listener.
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*))));
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*))));
    std::vector<IRGObject*> objects;
    std::vector<RegisterCenter*> centers;
    int inThread = 0;
    const auto onObject = [&](IRGObject* changed) {
        objects.push_back(changed);
        inThread += QThread::currentThread() == &thread ? 1 : 0;
    };
    const auto onCenter = [&](RegisterCenter* changed) {
        centers.push_back(changed);
        inThread += QThread::currentThread() == &thread ? 1 : 0;
    };
    for (SettingsNotifier* sender : {&relay, &notifier}) {
        EXPECT_TRUE(QObject::connect(sender, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                                     &listener, onObject));
        EXPECT_TRUE(QObject::connect(sender, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                                     &listener, onCenter));
    }

    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_TRUE(objects.empty());
    EXPECT_TRUE(centers.empty());

    // The loop ends once what has been posted to it before is delivered.
    QMetaObject::invokeMethod(
        &listener, [&thread] { thread.quit(); }, Qt::QueuedConnection);
    thread.start();
    thread.wait();
    EXPECT_EQ(objects, (std::vector<IRGObject*>{object, object}));
    EXPECT_EQ(centers, (std::vector<RegisterCenter*>{center, center}));
    EXPECT_EQ(inThread, 4);
}
