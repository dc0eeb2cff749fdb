#include <reportgenerator/reportbase/settingsnotifier.h>

#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/messages_p.h>

#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <algorithm>

// Known here only, so that a program can declare them itself.
Q_DECLARE_METATYPE(REPORTGENERATOR::IRGObject*)
Q_DECLARE_METATYPE(REPORTGENERATOR::RegisterCenter*)

namespace REPORTGENERATOR {

namespace {

// Where the trace says that it comes from, which is part of the interface.
constexpr const char* TRACE_SOURCE = "framework/reportgenerator/reportbase/settingsnotifier";
constexpr int TRACE_LINE = 110;
constexpr unsigned int TRACE_FLAG = 0x20;

} // namespace

SettingsNotifier::SettingsNotifier()
{
    qRegisterMetaType<REPORTGENERATOR::IRGObject*>("REPORTGENERATOR::IRGObject*");
    qRegisterMetaType<REPORTGENERATOR::RegisterCenter*>("REPORTGENERATOR::RegisterCenter*");
}

SettingsNotifier::~SettingsNotifier()
{
    qDeleteAll(m_centers);
}

void SettingsNotifier::NotifyOnChanged(RegisterCenter* center)
{
    const long long id = center->GetInterfaceId();
    if (m_centers.contains(id))
        throw InterfaceAlreadyRegisteredException(
            messages::InterfaceAlreadyRegistered(center->GetObjectName()));
    m_centers.insert(id, center);
}

void SettingsNotifier::UnRegister(long long id)
{
    delete m_centers.take(id);
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
    // A receiver of a signal may register further centers; they take part from the next settings on. It may
    // also unregister some, which are gone at once.
    const QMap<long long, RegisterCenter*> centers = m_centers;
    bool accepted = false;
    for (auto entry = centers.cbegin(); entry != centers.cend(); ++entry) {
        RegisterCenter* center = entry.value();
        const auto isRegistered = [&] { return GetCenter(entry.key()) == center; };
        IRGObject* object = isRegistered() ? center->GetInterface() : nullptr;
        if (!object)
            continue;
        try {
            object->Reset();
            if (!object->SetXmlString(fragment, checkRoot))
                continue;
            accepted = true;
            if (!object->HasData())
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

/// What stands between the last '/' and the '>' that ends the text, blanks behind it not counted.
QString SettingsNotifier::GetLastTagName(const QString& text)
{
    const auto isBlank = [](QChar c) { return c == QLatin1Char(' '); };
    const auto last = std::find_if_not(text.crbegin(), text.crend(), isBlank);
    if (last == text.crend() || *last != QLatin1Char('>'))
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
