#include <reporttool/settingstrial.h>

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <algorithm>
#include <memory>

namespace ReportTool {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::SettingsNotifier;

namespace {

/// What has become of the settings that an object was offered.
class Offer
{
public:
    virtual ~Offer() = default;
    virtual IRGObject& Object() = 0;

    bool IsTaken() const { return m_isTaken; }

    /// Why not, by name and text of the exception; null when there was nothing for the object.
    const QString& RefusalName() const { return m_refusalName; }
    const QString& RefusalText() const { return m_refusalText; }

protected:
    bool m_isTaken = false;
    QString m_refusalName;
    QString m_refusalText;
};

/// A settings object that remembers that. It has an id of its own, since a notifier files one object under an id.
template <class Base>
class Setting final : public Base, public Offer
{
public:
    explicit Setting(long long number) { this->SetObjectId(number); }

    IRGObject& Object() override { return *this; }

    bool SetXmlString(const QString& xml, bool checkRoot) override
    {
        try {
            m_isTaken = Base::SetXmlString(xml, checkRoot);
            return m_isTaken;
        } catch (const RGException& refused) {
            m_refusalName = refused.GetErrorName();
            m_refusalText = refused.GetErrorText();
            throw;
        }
    }
};

/// A notifier with an object of each class.
class Settings
{
public:
    Settings()
    {
        namespace rg = REPORTGENERATOR;
        Register<rg::ScanParameter, rg::FrequencyRangeOld, rg::ChannelSpacing, rg::MeasurementTime,
                 rg::FrequencyInformation, rg::FrequencyListValue, rg::Ellipse, rg::Double, rg::ValueMinMax,
                 rg::ReportBase, rg::Frequency, rg::IFBandwidth, rg::Area, rg::Coordinate>();
    }

    void Take(const QString& fragment)
    {
        try {
            m_notifier.SetSettings(fragment, false);
        } catch (const RGException&) {
            // Nobody has taken anything, which the offers tell in full.
        }
    }

    const std::vector<Offer*>& Offers() const { return m_offers; }

private:
    template <class... Classes>
    void Register()
    {
        (RegisterOne<Classes>(), ...);
    }

    template <class Class>
    void RegisterOne()
    {
        auto setting = std::make_unique<Setting<Class>>(static_cast<long long>(m_offers.size()) + 1);
        m_offers.push_back(setting.get());
        auto center = std::make_unique<RegisterCenter>();
        center->RegisterInterface(setting.release());
        m_notifier.NotifyOnChanged(center.get());
        // The notifier has taken it over.
        static_cast<void>(center.release());
    }

    SettingsNotifier m_notifier;
    std::vector<Offer*> m_offers;
};

/// What the object writes, without checking it.
QString XmlOf(IRGObject& object)
{
    object.SetValidate(false);
    return object.GetXmlString().trimmed();
}

/// What has become of the element that the object found first, which there is.
Outcome OutcomeOf(Offer& offer, const FragmentPart& element)
{
    Outcome outcome;
    outcome.object = offer.Object().GetObjectName();
    outcome.element = &element;
    outcome.isTaken = offer.IsTaken();
    outcome.refusalName = offer.RefusalName();
    outcome.refusalText = offer.RefusalText();
    if (offer.IsTaken() && offer.Object().HasData())
        outcome.xml = XmlOf(offer.Object());
    return outcome;
}

} // namespace

bool Outcomes::AreGood() const
{
    return rest.empty() &&
           std::all_of(offers.begin(), offers.end(), [](const Outcome& outcome) { return outcome.isTaken; });
}

Outcomes TrySettings(const QString& text, Fragment& fragment)
{
    Settings settings;
    settings.Take(text);
    Outcomes outcomes;
    for (Offer* const offer : settings.Offers()) {
        const FragmentPart* const element = fragment.FindElement(offer->Object().GetObjectName());
        if (!element)
            continue;
        const Outcome outcome = OutcomeOf(*offer, *element);
        if (outcome.isTaken)
            fragment.MarkTaken(*element, outcome.xml.isEmpty() ? QStringLiteral("<%1/>").arg(outcome.object)
                                                               : outcome.xml);
        outcomes.offers.push_back(outcome);
    }
    outcomes.rest = fragment.NotTaken();
    return outcomes;
}

} // namespace ReportTool
