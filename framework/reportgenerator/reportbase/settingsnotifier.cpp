#include <reportgenerator/reportbase/settingsnotifier.h>

#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/messages_p.h>

#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

// Known here only, so that a program can declare them itself.
Q_DECLARE_METATYPE(REPORTGENERATOR::IRGObject*)
Q_DECLARE_METATYPE(REPORTGENERATOR::RegisterCenter*)

namespace REPORTGENERATOR {

namespace {

// Where the trace says that it comes from, which is part of the interface.
constexpr const char* TRACE_SOURCE = "framework/reportgenerator/reportbase/settingsnotifier";
constexpr int TRACE_LINE = 110;
constexpr unsigned int TRACE_FLAG = 0x20;

/// A distribution that is going on: registered objects and receivers of signals are called, who may unregister
/// any of them or delete the notifier. What they take away lives on until the outermost distribution of the
/// notifier has returned from its calls.
class Distribution
{
public:
    explicit Distribution(const SettingsNotifier& notifier)
        : m_notifier(&notifier), m_outermost(OutermostOf(notifier)), m_around(current)
    {
        current = this;
    }
    ~Distribution()
    {
        current = m_around;
        qDeleteAll(m_removed);
    }
    Distribution(const Distribution& other) = delete;
    Distribution& operator=(const Distribution& other) = delete;

    bool IsNotifierAlive() const { return m_notifier != nullptr; }

    /// Makes room for so many centers of the notifier: to take one away, as destructors do, then needs no memory.
    static void Expect(const SettingsNotifier& notifier, std::size_t count)
    {
        Distribution* const outermost = OutermostOf(notifier);
        if (outermost && outermost->m_removed.capacity() < outermost->m_removed.size() + count)
            outermost->m_removed.reserve(2 * (outermost->m_removed.size() + count));
    }

    /// Deletes the center, at once unless the notifier is distributing.
    static void Delete(const SettingsNotifier& notifier, RegisterCenter* center)
    {
        Distribution* const outermost = OutermostOf(notifier);
        if (outermost)
            outermost->m_removed.push_back(center);
        else
            delete center;
    }

    /// The notifier is not used any more.
    static void Leave(const SettingsNotifier& notifier)
    {
        for (Distribution* distribution = current; distribution; distribution = distribution->m_around) {
            if (distribution->m_notifier == &notifier)
                distribution->m_notifier = nullptr;
        }
    }

private:
    /// The distribution of the notifier around all others of it; null when there is none.
    static Distribution* OutermostOf(const SettingsNotifier& notifier)
    {
        Distribution* distribution = current;
        while (distribution && distribution->m_notifier != &notifier)
            distribution = distribution->m_around;
        return distribution && distribution->m_outermost ? distribution->m_outermost : distribution;
    }

    /// Of the thread, in which its notifiers live.
    static thread_local Distribution* current;

    const SettingsNotifier* m_notifier;
    Distribution* m_outermost; ///< null for the outermost one itself
    Distribution* m_around;
    std::vector<RegisterCenter*> m_removed;
};

thread_local Distribution* Distribution::current = nullptr;

} // namespace

SettingsNotifier::SettingsNotifier()
{
    qRegisterMetaType<REPORTGENERATOR::IRGObject*>("REPORTGENERATOR::IRGObject*");
    qRegisterMetaType<REPORTGENERATOR::RegisterCenter*>("REPORTGENERATOR::RegisterCenter*");
}

SettingsNotifier::~SettingsNotifier()
{
    // Taken out, since an object that is deleted may unregister others.
    const QMap<long long, RegisterCenter*> centers = std::exchange(m_centers, {});
    for (RegisterCenter* const center : centers)
        Distribution::Delete(*this, center);
    Distribution::Leave(*this);
}

void SettingsNotifier::NotifyOnChanged(RegisterCenter* center)
{
    const long long id = center->GetInterfaceId();
    if (m_centers.contains(id))
        throw InterfaceAlreadyRegisteredException(
            messages::InterfaceAlreadyRegistered(center->GetObjectName()));
    Distribution::Expect(*this, static_cast<std::size_t>(m_centers.size()) + 1);
    m_centers.insert(id, center);
}

void SettingsNotifier::UnRegister(long long id)
{
    if (RegisterCenter* const center = m_centers.take(id))
        Distribution::Delete(*this, center);
}

RegisterCenter* SettingsNotifier::GetCenter(long long id) const
{
    return m_centers.value(id, nullptr);
}

RegisterCenter* SettingsNotifier::GetCenter(ObjectTypes type) const
{
    return GetCenter(static_cast<long long>(type));
}

void SettingsNotifier::SetSettings(const QString& xml, bool checkRoot)
{
    const QString fragment = CheckXmlSyntax(xml) ? xml : AddDummyRoot(xml);
    // Whoever is called may register further centers; they take part from the next settings on. He may also
    // unregister some, which are left out at once. These aren't of a map that shares with the notifier's, so that
    // to unregister one needs no memory.
    const std::vector<std::pair<long long, RegisterCenter*>> centers(m_centers.constKeyValueBegin(),
                                                                     m_centers.constKeyValueEnd());
    const Distribution distribution(*this);
    Distribution::Expect(*this, centers.size());
    bool accepted = false;
    for (const auto& [id, center] : centers) {
        const auto isRegistered = [&, id = id, center = center] {
            return distribution.IsNotifierAlive() && GetCenter(id) == center;
        };
        IRGObject* object = isRegistered() ? center->GetInterface() : nullptr;
        if (!object)
            continue;
        try {
            object->Reset();
            if (!isRegistered() || !object->SetXmlString(fragment, checkRoot))
                continue;
            accepted = true;
            if (!isRegistered() || !object->HasData() || !isRegistered())
                continue;
            Q_EMIT SettingsChanged(object);
            if (isRegistered())
                Q_EMIT SettingsChanged(center);
        } catch (const RGException& exception) {
            if ((ErrorHandler::Instance().GetFlags() & TRACE_FLAG) != 0)
                _Q_Trace(messages::SetSettingsFailed(exception.GetErrorText()), TRACE_SOURCE, TRACE_LINE);
        }
    }
    if (!accepted)
        throw InvalidXmlException(messages::InvalidXmlFragment());
}

/// Whether the text is one element. It needn't be well-formed inside; that is found by the objects.
bool SettingsNotifier::CheckXmlSyntax(const QString& text)
{
    const QString firstTagName = GetFirstTagName(text);
    return !firstTagName.isEmpty() && firstTagName == GetLastTagName(text);
}

/// What stands behind the first '<', up to a blank or '>'.
QString SettingsNotifier::GetFirstTagName(const QString& text)
{
    const auto start = std::find(text.cbegin(), text.cend(), QLatin1Char('<'));
    if (start == text.cend())
        return QString();
    const auto isEnd = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('>'); };
    const auto end = std::find_if(start + 1, text.cend(), isEnd);
    return QString(start + 1, static_cast<int>(end - (start + 1)));
}

/// What stands between the last '/' and the '>' that ends the text, blanks behind it not counted. The text has a tag.
QString SettingsNotifier::GetLastTagName(const QString& text)
{
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' '); };
    const auto last = std::find_if_not(text.crbegin(), text.crend(), isBlank);
    if (*last != QLatin1Char('>'))
        return QString();
    QString name;
    for (auto c = last + 1; c != text.crend() && *c != QLatin1Char('/'); ++c)
        name.append(*c);
    Reverse(name);
    return name;
}

void SettingsNotifier::Reverse(QString& text)
{
    std::reverse(text.begin(), text.end());
}

/// Several elements one after the other become one document.
QString SettingsNotifier::AddDummyRoot(const QString& text)
{
    return QStringLiteral("<Dummy>\n") + text + QStringLiteral("\n</Dummy>");
}

} // namespace REPORTGENERATOR
