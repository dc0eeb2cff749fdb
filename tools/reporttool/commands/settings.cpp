#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/fragment.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/form.h>
#include <reportcore/texts.h>

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

#include <memory>
#include <vector>

namespace ReportTool {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::SettingsNotifier;

namespace {

constexpr char DESCRIPTION[] =
    "Hands a fragment of XML settings to one settings object of each of the library's classes, as\n"
    "an application does by a notifier, and tells which of them take an element of it, what they\n"
    "hold afterwards, and what nobody takes. Nothing is changed anywhere, which --dry-run stands\n"
    "for.\n"
    "\n"
    "Exit codes: 0 everything is taken, 1 an element is refused or something is taken by nobody,\n"
    "2 the fragment cannot be read or the command line is wrong.";

constexpr int INDENT = 4;

/// What has become of the settings that an object was offered.
class Offer
{
public:
    virtual ~Offer() = default;
    virtual IRGObject& Object() = 0;

    bool IsTaken() const { return m_isTaken; }

    /// Why not; null when there was nothing for the object.
    const QString& Refusal() const { return m_refusal; }

protected:
    bool m_isTaken = false;
    QString m_refusal;
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
            m_refusal = QStringLiteral("%1: %2").arg(refused.GetErrorName(), refused.GetErrorText());
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

void WriteIndented(const QString& xml, Console& console)
{
    for (const QString& line : xml.split(QLatin1Char('\n')))
        console.Output().Line(QString(INDENT, QLatin1Char(' ')) + ReportCore::Printable(line));
}

/// Tells what the object has made of the element that it found first. Returns whether that was good.
bool Tell(Offer& offer, Fragment& fragment, Console& console)
{
    const QString name = offer.Object().GetObjectName();
    const FragmentPart* const element = fragment.FindElement(name);
    if (!element)
        return true;
    if (!offer.IsTaken()) {
        console.Output().Line(QStringLiteral("%1 refuses %2: %3")
                                  .arg(name, element->Place(), ReportCore::Printable(offer.Refusal())));
        return false;
    }
    const QString xml = offer.Object().HasData() ? XmlOf(offer.Object()) : QString();
    if (xml.isEmpty()) {
        console.Output().Line(
            QStringLiteral("%1 takes %2 and has no data afterwards").arg(name, element->Place()));
        fragment.MarkTaken(*element, QStringLiteral("<%1/>").arg(name));
        return true;
    }
    console.Output().Line(QStringLiteral("%1 takes %2 and holds:").arg(name, element->Place()));
    WriteIndented(xml, console);
    fragment.MarkTaken(*element, xml);
    return true;
}

bool TellRest(const Fragment& fragment, Console& console)
{
    const std::vector<const FragmentPart*> rest = fragment.NotTaken();
    if (rest.empty())
        return true;
    console.Output().Line(QStringLiteral("Nobody takes:"));
    for (const FragmentPart* part : rest)
        console.Output().Line(
            QStringLiteral("    %1: %2").arg(part->Place(), ReportCore::Printable(part->path)));
    return false;
}

int DryRun(const QString& file, Console& console)
{
    const QString text = ReportCore::DecodeXml(ReportCore::ReadInput(file));
    Fragment fragment;
    try {
        fragment = Fragment::Parse(text);
    } catch (const FragmentError& error) {
        console.Complain(file, error.text);
        return EXIT_INVALID;
    }
    Settings settings;
    settings.Take(text);
    bool isGood = true;
    for (Offer* const offer : settings.Offers())
        isGood = Tell(*offer, fragment, console) && isGood;
    return TellRest(fragment, console) && isGood ? EXIT_GOOD : EXIT_INVALID;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("FRAGMENT", "File with XML settings; - stands for standard input.", "FRAGMENT");
    parser.AddSwitch("dry-run", "Only tell; must be given.");
    parser.AddExample("settings fragment.xml --dry-run", "Tell who would take what of a fragment.");
}

int RunSettings(const Parser& parser, Console& console)
{
    if (parser.Arguments().size() != 1)
        throw UsageError{QStringLiteral("settings takes one FRAGMENT")};
    if (!parser.Has("dry-run"))
        throw UsageError{QStringLiteral("settings can only be tried: --dry-run is missing")};
    return DryRun(parser.Arguments().first(), console);
}

} // namespace

const Command SETTINGS_COMMAND = {"settings", "FRAGMENT --dry-run", "tell who would take which settings",
                                  Declare, RunSettings};

} // namespace ReportTool
