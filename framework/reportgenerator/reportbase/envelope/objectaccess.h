#ifndef REPORTGENERATOR_ENVELOPE_OBJECTACCESS_H
#define REPORTGENERATOR_ENVELOPE_OBJECTACCESS_H

#include <reportgenerator/reportbase/envelope/fastpath.h>
#include <reportgenerator/reportbase/envelope/objectidentity.h>
#include <reportgenerator/reportbase/envelope/objectsettings.h>
#include <reportgenerator/reportbase/irgobject.h>

#include <typeinfo>

namespace REPORTGENERATOR {

/// What the library's own classes know of an object beyond its interface.
struct ObjectAccess
{
    /// The fast path of an object of exactly the class that has it, under the name that the class gives;
    /// null for other objects.
    static const FastPath* FastPathOf(const IRGObject& object)
    {
        const FastPath* const fastPath = object.m_identity->fastPath;
        return fastPath && !object.m_identity->isOwn && typeid(object) == *fastPath->type ? fastPath
                                                                                          : nullptr;
    }

    /// The same of an object that has been checked if it validates, to write it.
    static const FastPath* FastPathToWrite(const IRGObject& object)
    {
        const FastPath* const fastPath = FastPathOf(object);
        // The check has passed the settings on.
        if (fastPath && !Validates(object))
            fastPath->passSettings(object);
        return fastPath;
    }

    static bool HasIdentity(const IRGObject& object, const ObjectIdentity* identity)
    {
        return object.m_identity == identity;
    }

    /// The flag itself, where no derived class can have another answer.
    static bool Validates(const IRGObject& object) { return SettingsOf(object).Validates(); }

    static SettingsSlot SettingsOf(const IRGObject& object) { return SettingsSlot(object.m_settings); }

    /// Validate flag and logger, for members and items.
    static ObjectSettings SettingsToPass(const IRGObject& object)
    {
        const ObjectSettings held = SettingsOf(object).Get();
        return held.HasConverter() ? ObjectSettings(held.Validates(), held.GetLogger(), nullptr) : held;
    }

    /// Gives the object the validate flag and the logger of another one.
    static void PassSettings(const IRGObject& from, const IRGObject& to)
    {
        if (SettingsOf(to).Now() != SettingsOf(from).Now())
            PassOtherSettings(from, to);
    }

    /// Apart from the comparison, which mostly is all.
    Q_NEVER_INLINE static void PassOtherSettings(const IRGObject& from, const IRGObject& to)
    {
        PassSettings(SettingsOf(from).Get(), to);
    }

    /// The same of settings that are held. The object's version converter stays.
    static void PassSettings(const ObjectSettings& settings, const IRGObject& to)
    {
        const SettingsSlot slot = SettingsOf(to);
        if (slot.Holds(settings))
            return;
        if (!settings.HasConverter() && !slot.HasConverter()) {
            slot.Set(settings);
            return;
        }
        slot.Replace([&settings](const ObjectSettings& before) {
            return ObjectSettings(settings.Validates(), settings.GetLogger(), before.GetConverter());
        });
    }

    static std::shared_ptr<VersionConverterProxy> ConverterOf(const IRGObject& object)
    {
        return SettingsOf(object).Get().GetConverter();
    }

    static QString TextOf(const IRGObject& object, QXmlStreamReader& reader)
    {
        return object.GetTextValue(reader);
    }

    /// Throws if the reader has met malformed XML.
    static void ReportXmlError(const IRGObject& object, const QXmlStreamReader& reader)
    {
        object.ReportXmlError(reader);
    }

    /// Takes logger and converter away.
    static void KeepValidateOnly(const IRGObject& object)
    {
        const SettingsSlot slot = SettingsOf(object);
        if (slot.HasLoggerOrConverter())
            slot.Set(ObjectSettings(slot.Validates()));
    }
};

} // namespace REPORTGENERATOR

#endif
