// Notifier, centers, proxy and converters when memory runs out: what is registered stays registered or is deleted, and
// all of them are of use afterwards.

#include "support/eachallocation.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/notified.h"
#include "support/recordclasses.h"

#include <reportgenerator/reportbase/converters.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::VersionConverterProxy;
using Support::EachAllocation;
using Support::FailOne;
using Support::JOB;
using Support::Offered;
using Support::OpenNotifier;
using Support::QtObject;
using Support::TASK;
using Support::Text;

class EachAllocationOfServices : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!EachAllocation::IsPossible())
            GTEST_SKIP() << EachAllocation::IMPOSSIBLE;
    }

    EachAllocation m_each;
};

// --- The notifier -----------------------------------------------------------------------------------------

TEST_F(EachAllocationOfServices, CentersAreTakenOverOrNot)
{
    m_each.Try("NotifyOnChanged", [](int number) {
        OpenNotifier notifier;
        auto center = std::make_unique<RegisterCenter>();
        center->RegisterInterface(new Frequency);
        const auto failure = FailOne(number, [&] { notifier.NotifyOnChanged(center.get()); });
        RegisterCenter* const expected = failure.threw ? nullptr : center.release();
        EXPECT_EQ(notifier.GetCenter(Frequency::id), expected);
        return failure;
    });
    m_each.Report();
}

TEST_F(EachAllocationOfServices, SettingsReachAllObjectsTheNextTime)
{
    const QString xml = Support::XmlOfOne<Frequency>() + Support::XmlOfOne<Area>();
    m_each.Try(
        "SetSettings",
        [&](int number) {
            OpenNotifier notifier;
            const Support::Heard heard(notifier);
            const Frequency* const frequency = Support::Register(notifier, new Frequency);
            const Area* const area = Support::Register(notifier, new Area);
            const auto failure = FailOne(number, [&] { notifier.SetSettings(xml, false); });
            notifier.SetSettings(xml, false);
            EXPECT_XML(*frequency, Support::XmlOfOne<Frequency>());
            EXPECT_XML(*area, Support::XmlOfOne<Area>());
            return failure;
        },
        QtObject::Reader);
    m_each.Report();
}

/// An object that has the notifier do something within its own call.
void TryWithinACall(EachAllocation& each, const char* name,
                    const std::function<void(std::unique_ptr<OpenNotifier>&)>& deed)
{
    each.Try(name, [&](int number) {
        auto notifier = std::make_unique<OpenNotifier>();
        bool isDeleted = false;
        Support::Register(*notifier, new Offered(TASK, &isDeleted));
        Offered* const job = Support::RegisterOffered(*notifier, JOB);
        job->onOffer = [&] { deed(notifier); };
        const auto failure = FailOne(number, [&] { notifier->SetSettings(Text("<A></A>"), false); });
        EXPECT_EQ(isDeleted, !notifier || notifier->GetCenter(TASK) == nullptr);
        return failure;
    });
}

TEST_F(EachAllocationOfServices, CentersThatAreTakenAwayWithinACallAreDeleted)
{
    TryWithinACall(m_each, "UnRegister", [](std::unique_ptr<OpenNotifier>& notifier) {
        notifier->UnRegister(TASK);
        notifier->UnRegister(JOB);
    });
    TryWithinACall(m_each, "destructor", [](std::unique_ptr<OpenNotifier>& notifier) { notifier.reset(); });
    TryWithinACall(m_each, "register and UnRegister", [](std::unique_ptr<OpenNotifier>& notifier) {
        notifier->UnRegister(TASK);
        for (int i = 0; i < 20; ++i) {
            auto center = std::make_unique<RegisterCenter>();
            center->RegisterInterface(new Frequency);
            notifier->NotifyOnChanged(center.get());
            static_cast<void>(center.release());
            notifier->UnRegister(Frequency::id);
        }
    });
    m_each.Report();
}

// --- The proxy --------------------------------------------------------------------------------------------

class Assigning : public REPORTGENERATOR::IXmlConverter
{
public:
    bool Upgrade(const IRGObject* from, IRGObject* to) override
    {
        *dynamic_cast<ReportBase*>(to) = *dynamic_cast<const ReportBase*>(from);
        return true;
    }
    bool Downgrade(const IRGObject* /*from*/, IRGObject* /*to*/) override { return false; }
};

TEST_F(EachAllocationOfServices, AProxyRegistersAndLoadsTheNextTime)
{
    const Support::TemporaryFolder folder;
    const QString path =
        folder.Write("old.xml", "<ReportBase Version=\"0.9\"><Frequency>5</Frequency></ReportBase>");
    m_each.Try(
        "LoadXml",
        [&](int number) {
            ReportBase older;
            ReportBase newer;
            const auto load = [&] {
                const auto proxy = std::make_shared<VersionConverterProxy>();
                proxy->RegisterRootClass(Text("ReportBase"), Text("0.9"), &older);
                proxy->RegisterRootClass(Text("ReportBase"), Text("1.0"), &newer);
                proxy->InjectXmlConverter(std::make_unique<Assigning>());
                newer.InjectVersionConverter(proxy);
                return newer.LoadXml(path);
            };
            const auto failure = FailOne(number, load);
            EXPECT_TRUE(load());
            EXPECT_XML(newer, "\n<ReportBase>\n    <Frequency>5.00</Frequency>\n</ReportBase>");
            return failure;
        },
        QtObject::Reader);
    m_each.Report();
}

TEST_F(EachAllocationOfServices, AProxyThatHasFailedToLoadLoadsTheNextTime)
{
    const Support::TemporaryFolder folder;
    const QString path =
        folder.Write("old.xml", "<ReportBase Version=\"0.9\"><Frequency>5</Frequency></ReportBase>");
    m_each.Try(
        "LoadXml",
        [&](int number) {
            ReportBase older;
            ReportBase newer;
            const auto proxy = std::make_shared<VersionConverterProxy>();
            proxy->RegisterRootClass(Text("ReportBase"), Text("0.9"), &older);
            proxy->RegisterRootClass(Text("ReportBase"), Text("1.0"), &newer);
            proxy->InjectXmlConverter(std::make_unique<Assigning>());
            newer.InjectVersionConverter(proxy);
            const auto failure = FailOne(number, [&] { newer.LoadXml(path); });
            EXPECT_TRUE(newer.LoadXml(path));
            EXPECT_XML(newer, "\n<ReportBase>\n    <Frequency>5.00</Frequency>\n</ReportBase>");
            return failure;
        },
        QtObject::Reader);
    m_each.Report();
}

// --- Texts and bytes --------------------------------------------------------------------------------------

/// The function gives what it should or throws.
template <class Result>
void TryFunction(EachAllocation& each, const char* name, const Result& expected,
                 const std::function<Result()>& function)
{
    each.Try(name, [&](int number) {
        Result result;
        const auto failure = FailOne(number, [&] { result = function(); });
        if (!failure.threw) {
            EXPECT_EQ(result, expected);
        }
        return failure;
    });
}

TEST_F(EachAllocationOfServices, ConversionsGiveAllOrNothing)
{
    const QDateTime noon(QDate(2026, 11, 22), QTime(12, 0), Qt::UTC);
    const QString text = Text("2026-11-22T12:00:00.000Z");
    TryFunction<QString>(m_each, "ToString", text, [&] { return Converters::ToString(noon); });
    TryFunction<QDateTime>(m_each, "ToDateTime", noon, [&] { return Converters::ToDateTime(text); });
    TryFunction<QString>(m_each, "ToUrl", Text("file:////a b"),
                         [] { return Converters::ToUrl(Text("/a b")); });
    TryFunction<QString>(m_each, "ToValidXmlString", Text("ab"),
                         [] { return Converters::ToValidXmlString(Text("a\vb")); });
    m_each.Report();
}

TEST_F(EachAllocationOfServices, CompressionGivesAllOrNothing)
{
    const QString text = Text("text");
    const QByteArray bytes = QByteArray(1000, 'b');
    const QByteArray compressedText = IRGObject::Compress(text, 9);
    const QByteArray compressedBytes = IRGObject::Compress(bytes, 9);
    TryFunction<QByteArray>(m_each, "Compress(QString)", compressedText,
                            [&] { return IRGObject::Compress(text, 9); });
    TryFunction<QByteArray>(m_each, "Compress(QByteArray)", compressedBytes,
                            [&] { return IRGObject::Compress(bytes, 9); });
    TryFunction<QString>(m_each, "UncompressString", text,
                         [&] { return IRGObject::UncompressString(compressedText); });
    m_each.Report();
}

} // namespace
