#ifndef REPORTGENERATOR_FRAMES_OBJECTACCESS_H
#define REPORTGENERATOR_FRAMES_OBJECTACCESS_H

#include <reportgenerator/reportbase/frames/directroad.h>
#include <reportgenerator/reportbase/frames/objectidentity.h>
#include <reportgenerator/reportbase/frames/objectsettings.h>
#include <reportgenerator/reportbase/irgobject.h>

#include <typeinfo>

namespace REPORTGENERATOR {

/// What the library's own classes know of an object beyond its interface.
struct ObjectAccess
{
    /// The direct road of an object of exactly the class that has it, under the name that the class gives;
    /// null for other objects.
    static const DirectRoad* RoadOf(const IRGObject& object)
    {
        const DirectRoad* const road = object.m_identity->road;
        return road && !object.m_identity->isOwn && typeid(object) == *road->type ? road : nullptr;
    }

    static bool HasIdentity(const IRGObject& object, const ObjectIdentity* identity)
    {
        return object.m_identity == identity;
    }

    /// The flag itself, where no derived class can have another answer.
    static bool Validates(const IRGObject& object)
    {
        return !object.m_settings || object.m_settings->validate;
    }

    /// Whether both have the same validate flag and logger because they point at the same ones.
    static bool ShareSettings(const IRGObject& left, const IRGObject& right)
    {
        return left.m_settings == right.m_settings;
    }

    /// Gives the object the validate flag and the logger of another one.
    static void PassSettings(const IRGObject& from, const IRGObject& to)
    {
        if (!ShareSettings(from, to))
            from.PassSettingsTo(to);
    }

    static std::shared_ptr<VersionConverterProxy> ConverterOf(const IRGObject& object)
    {
        return ObjectSettings::ConverterOf(object.m_settings);
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
        object.ReplaceSettings(ObjectSettings::Of(Validates(object), nullptr, nullptr));
    }
};

} // namespace REPORTGENERATOR

#endif
