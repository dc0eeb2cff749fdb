// A report that is loaded through a version converter: each call of an override, a logger or the converter is
// the one in which somebody does something to the proxy or to its objects.

#include "support/calls.h"
#include "support/files.h"
#include "support/recordclasses.h"

#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::VersionConverterProxy;
using Support::CallingLogger;
using Support::g_calls;
using Support::Text;

using Report = Support::Overridden<ReportBase>;

struct Foreign
{
};

class CallingConverter : public REPORTGENERATOR::IXmlConverter
{
public:
    bool Upgrade(const IRGObject* from, IRGObject* to) override
    {
        g_calls.Note();
        const auto* source = dynamic_cast<const Report*>(from);
        auto* target = dynamic_cast<Report*>(to);
        if (source == nullptr || target == nullptr)
            return false;
        *target = *source;
        g_calls.Note();
        return true;
    }
    bool Downgrade(const IRGObject* from, IRGObject* to) override { return Upgrade(from, to); }
};

/// A report of two versions.
struct Versions
{
    Versions()
    {
        for (Report* const report : {&older, &newer}) {
            report->SetValidate(false);
            report->SetLogger(std::make_shared<CallingLogger>());
        }
        proxy->RegisterRootClass(Text("ReportBase"), Text("0.9"), &older);
        proxy->RegisterRootClass(Text("ReportBase"), Text("1.0"), &newer);
        proxy->InjectXmlConverter(std::make_unique<CallingConverter>());
        newer.InjectVersionConverter(proxy);
    }

    bool Load() { return static_cast<IRGObject&>(newer).LoadXml(path); }

    Support::TemporaryFolder folder;
    QString path = folder.Write("report.xml", "<ReportBase Version=\"0.9\"><Frequency>1</Frequency><Area>"
                                              "<Name>N</Name></Area></ReportBase>");
    Report older;
    Report newer;
    std::shared_ptr<VersionConverterProxy> proxy = std::make_shared<VersionConverterProxy>();
};

struct Deed
{
    const char* name;
    std::function<void(Versions&)> run;
};

const Deed DEEDS[] = {
    {"throws", [](Versions&) { throw RGException(Text("thrown")); }},
    {"throws what is foreign", [](Versions&) { throw Foreign(); }},
    {"loads again", [](Versions& versions) { versions.Load(); }},
    {"resets both",
     [](Versions& versions) {
         versions.older.Reset();
         versions.newer.Reset();
     }},
    {"assigns both",
     [](Versions& versions) {
         versions.older = Report();
         versions.newer = Report();
     }},
    {"takes the proxy away",
     [](Versions& versions) {
         versions.newer.InjectVersionConverter(nullptr);
         versions.proxy.reset();
     }},
    {"takes the converter away",
     [](Versions& versions) {
         if (versions.proxy)
             versions.proxy->InjectXmlConverter(nullptr);
     }},
    {"gives another converter",
     [](Versions& versions) { versions.proxy->InjectXmlConverter(std::make_unique<CallingConverter>()); }},
    {"registers other roots",
     [](Versions& versions) {
         for (int i = 0; i < 100; ++i)
             versions.proxy->RegisterRootClass(Text("Other") + QString::number(i), Text("1"),
                                               &versions.older);
     }},
    {"removes the file", [](Versions& versions) { QFile::remove(versions.path); }},
};

TEST(VersionConverterProxyCalls, MayDoAnythingWhicheverOfThemItIs)
{
    int tried = 0;
    for (const Deed& deed : DEEDS) {
        bool goesOn = true;
        for (int number = 1; goesOn && !HasFailure(); ++number) {
            SCOPED_TRACE(testing::Message() << deed.name << ", call " << number);
            Versions versions;
            g_calls.Await(number, [&] { deed.run(versions); });
            try {
                versions.Load();
            } catch (const RGException&) {
            } catch (const Foreign&) {
            }
            goesOn = g_calls.HaveCome();
            tried += goesOn;
            // Whatever has become of them, all are of use.
            Versions other;
            versions.newer.InjectVersionConverter(other.proxy);
            EXPECT_TRUE(other.Load());
            EXPECT_EQ(other.newer.GetFrequency().GetValue(), 1.0);
            versions.newer.InjectVersionConverter(nullptr);
            versions.path = other.path;
            EXPECT_TRUE(versions.Load());
            EXPECT_EQ(versions.newer.GetFrequency().GetValue(), 1.0);
        }
    }
    EXPECT_GT(tried, 100);
    RecordProperty("calls", tried);
}

} // namespace
