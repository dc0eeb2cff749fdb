// Objects of the library in a notifier: each call of an override or a logger is the one in which somebody does
// something to the notifier or to its objects.

#include "support/calls.h"
#include "support/notified.h"
#include "support/recordclasses.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::ReportBase;
using Support::CallingLogger;
using Support::g_calls;
using Support::OpenNotifier;
using Support::Overridden;
using Support::Text;

struct Foreign
{
};

/// Three objects in a notifier.
struct Registry
{
    Registry()
    {
        Fill<Frequency>();
        Fill<Area>();
        Fill<ReportBase>();
    }
    ~Registry() { delete notifier; }
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    template <class T>
    void Fill()
    {
        auto* object = new Overridden<T>();
        object->SetLogger(std::make_shared<CallingLogger>());
        Support::Register(*notifier, object);
    }

    /// Null when it isn't there any more.
    template <class T>
    Overridden<T>* Find() const
    {
        const auto* center = notifier ? notifier->GetCenter(T::id) : nullptr;
        return center ? dynamic_cast<Overridden<T>*>(center->GetInterface()) : nullptr;
    }

    void Distribute() const
    {
        notifier->SetSettings(Support::XmlOfOne<Frequency>() + Support::XmlOfOne<Area>() +
                                  Support::XmlOfOne<ReportBase>(),
                              false);
    }

    void DeleteNotifier()
    {
        delete notifier;
        notifier = nullptr;
    }

    OpenNotifier* notifier = new OpenNotifier;
};

struct Deed
{
    const char* name;
    std::function<void(Registry&)> run;
};

template <class T>
void Assign(Registry& registry)
{
    if (auto* object = registry.Find<T>())
        *object = Overridden<T>();
}

const Deed DEEDS[] = {
    {"throws", [](Registry&) { throw RGException(Text("thrown")); }},
    {"throws what is foreign", [](Registry&) { throw Foreign(); }},
    {"unregisters the frequency", [](Registry& registry) { registry.notifier->UnRegister(Frequency::id); }},
    {"unregisters the area", [](Registry& registry) { registry.notifier->UnRegister(Area::id); }},
    {"unregisters the report", [](Registry& registry) { registry.notifier->UnRegister(ReportBase::id); }},
    {"deletes the notifier", [](Registry& registry) { registry.DeleteNotifier(); }},
    {"sets settings again", [](Registry& registry) { registry.Distribute(); }},
    {"assigns all",
     [](Registry& registry) {
         Assign<Frequency>(registry);
         Assign<Area>(registry);
         Assign<ReportBase>(registry);
     }},
    {"registers another",
     [](Registry& registry) {
         Support::Register(*registry.notifier, new Overridden<REPORTGENERATOR::Coordinate>());
     }},
};

template <class T>
void ExpectSettings(const Registry& registry)
{
    if (auto* object = registry.Find<T>()) {
        EXPECT_XML(*object, Support::XmlOfOne<T>());
    }
}

TEST(SettingsNotifierCalls, MayDoAnythingWhicheverOfThemItIs)
{
    int tried = 0;
    for (const Deed& deed : DEEDS) {
        bool goesOn = true;
        for (int number = 1; goesOn && !HasFailure(); ++number) {
            SCOPED_TRACE(testing::Message() << deed.name << ", call " << number);
            Registry registry;
            g_calls.Await(number, [&] { deed.run(registry); });
            try {
                registry.Distribute();
            } catch (const RGException&) {
            } catch (const Foreign&) {
            }
            goesOn = g_calls.HaveCome();
            tried += goesOn;
            if (registry.Find<Frequency>())
                registry.Distribute();
            if (registry.Find<Frequency>()) {
                ExpectSettings<Frequency>(registry);
                ExpectSettings<Area>(registry);
                ExpectSettings<ReportBase>(registry);
            }
        }
    }
    EXPECT_GT(tried, 100);
    RecordProperty("calls", tried);
}

} // namespace
