#include <reportgenerator/reportbase/irgobject.h>

#include <reportgenerator/reportbase/forms/invalidvalues.h>
#include <reportgenerator/reportbase/frames/objectaccess.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/reporting_p.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QDateTime>

#include <utility>

namespace REPORTGENERATOR {

const QString IRGObject::EMPTY_VERSION;

IRGObject::IRGObject() : IRGObject(AnyType) {}

IRGObject::IRGObject(ObjectTypes type) : m_identity(&NamelessIdentity())
{
    IRGObject::SetObjectType(type);
}

IRGObject::IRGObject(const ObjectIdentity& identity) : m_identity(&identity) {}

IRGObject::IRGObject(const IRGObject& other)
    : m_identity(other.m_identity->isOwn ? new ObjectIdentity(*other.m_identity) : other.m_identity),
      m_settings(ObjectSettings::CopyOf(other.m_settings))
{
}

IRGObject& IRGObject::operator=(const IRGObject& other)
{
    if (this == &other)
        return *this;
    if (m_identity->isOwn || other.m_identity->isOwn) {
        ObjectIdentity& own = OwnIdentity();
        own = *other.m_identity;
        own.isOwn = true;
    } else {
        m_identity = other.m_identity;
    }
    ReplaceSettings(ObjectSettings::CopyOf(other.m_settings));
    return *this;
}

IRGObject::~IRGObject()
{
    if (m_identity->isOwn)
        delete m_identity;
    ObjectSettings::Release(m_settings);
}

void IRGObject::Check(bool /*logOnly*/) const
{
    Check();
}

bool IRGObject::IsValid(float value) const
{
    return value != INVALID_FLOAT;
}

bool IRGObject::IsValid(bool /*value*/) const
{
    return true;
}

bool IRGObject::IsValid(unsigned int value) const
{
    return value != INVALID_UNSIGNED_INT;
}

bool IRGObject::IsValid(long long value) const
{
    return value != INVALID_LONG_LONG;
}

bool IRGObject::IsValid(const QDateTime& value) const
{
    return !value.isNull();
}

bool IRGObject::IsValid(const QString& value) const
{
    return !value.isEmpty();
}

bool IRGObject::IsValid(double value) const
{
    return value != INVALID_DOUBLE;
}

bool IRGObject::IsValid(int value) const
{
    return value != INVALID_INT;
}

void IRGObject::SetInvalid(float& value) const
{
    value = INVALID_FLOAT;
}

void IRGObject::SetInvalid(unsigned int& value) const
{
    value = INVALID_UNSIGNED_INT;
}

void IRGObject::SetInvalid(long long& value) const
{
    value = INVALID_LONG_LONG;
}

void IRGObject::SetInvalid(QString& value) const
{
    value.clear();
}

void IRGObject::SetInvalid(double& value) const
{
    value = INVALID_DOUBLE;
}

void IRGObject::SetInvalid(int& value) const
{
    value = INVALID_INT;
}

ObjectTypes IRGObject::GetObjectType() const
{
    return m_identity->type;
}

const QString& IRGObject::GetObjectName() const
{
    return m_identity->name;
}

void IRGObject::SetValidate(bool validate) const
{
    if (validate != ObjectAccess::Validates(*this))
        ReplaceSettings(ObjectSettings::Of(validate, ObjectSettings::LoggerOf(m_settings),
                                           ObjectSettings::ConverterOf(m_settings)));
}

bool IRGObject::GetValidate() const
{
    return ObjectAccess::Validates(*this);
}

void IRGObject::SetLogger(std::shared_ptr<Logger> logger) const
{
    if (logger != ObjectSettings::LoggerOf(m_settings))
        ReplaceSettings(ObjectSettings::Of(ObjectAccess::Validates(*this), std::move(logger),
                                           ObjectSettings::ConverterOf(m_settings)));
}

void IRGObject::ResetLogger() const
{
    IRGObject::SetLogger(nullptr);
}

const QString& IRGObject::GetVersion() const
{
    return EMPTY_VERSION;
}

void IRGObject::SetObjectType(ObjectTypes type)
{
    const ObjectIdentity* const ofKind = IdentityOfKind(type);
    if (ofKind && !m_identity->isOwn) {
        m_identity = ofKind;
        return;
    }
    ObjectIdentity& own = OwnIdentity();
    own.type = type;
    own.id = type;
    own.name = ofKind ? ofKind->name : ObjectTypesToName(AnyType);
}

void IRGObject::SetObjectName(const QString& name)
{
    if (name != m_identity->name || name.isNull() != m_identity->name.isNull())
        OwnIdentity().name = name;
}

void IRGObject::ProcessXmlStartElement(QXmlStreamReader& /*reader*/) {}

long long IRGObject::GetObjectId() const
{
    return m_identity->id;
}

std::shared_ptr<Logger> IRGObject::GetLogger() const
{
    return ObjectSettings::LoggerOf(m_settings);
}

void IRGObject::InjectVersionConverter(std::shared_ptr<VersionConverterProxy> converter)
{
    TraceProgress(converter ? messages::InjectingVersionConverter : messages::RemovingVersionConverter);
    ReplaceSettings(ObjectSettings::Of(ObjectAccess::Validates(*this), ObjectSettings::LoggerOf(m_settings),
                                       std::move(converter)));
}

QString IRGObject::GetXmlTagName(ObjectTypes type)
{
    return ObjectTypesToName(type);
}

// Whoever calls the logger holds it: it may take itself away from the object meanwhile.

void IRGObject::Trace(LogLevel level, const QString& text) const
{
    if (const auto logger = ObjectSettings::LoggerOf(m_settings))
        logger->Trace(level, text, false);
}

void IRGObject::Trace(LogLevel level, const RGException& exception) const
{
    if (const auto logger = ObjectSettings::LoggerOf(m_settings))
        logger->Trace(level, exception, false);
}

void IRGObject::TraceOrThrow(LogLevel level, RGException& exception, bool fatal,
                             bool throwWithoutLogger) const
{
    if (ObjectSettings::LoggerOf(m_settings) ? fatal : throwWithoutLogger)
        reporting::Throw(*this, exception, level);
    Trace(level, exception);
}

void IRGObject::SetObjectId(long long id)
{
    if (id != m_identity->id)
        OwnIdentity().id = id;
}

void IRGObject::ReapplySettings() const
{
    if (const DirectRoad* road = ObjectAccess::RoadOf(*this)) {
        road->passSettings(*this);
        return;
    }
    SetValidate(GetValidate());
    SetLogger(GetLogger());
}

bool IRGObject::PrepareToWrite() const
{
    ReapplySettings();
    if (!GetValidate())
        return true;
    Check();
    return HasData();
}

/// Spares the text when nobody listens.
void IRGObject::TraceProgress(QString (*message)(const QString& objectName)) const
{
    if (ObjectSettings::LoggerOf(m_settings))
        Trace(LogLevel::INFO, message(GetObjectName()));
}

/// What is changed has its own name, kind and id from then on.
ObjectIdentity& IRGObject::OwnIdentity()
{
    if (!m_identity->isOwn) {
        auto own = std::make_unique<ObjectIdentity>(*m_identity);
        own->isOwn = true;
        m_identity = own.release();
    }
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): one's own is not made as a constant
    return const_cast<ObjectIdentity&>(*m_identity);
}

/// Validate flag and logger; the version converter stays.
void IRGObject::PassSettingsTo(const IRGObject& other) const
{
    if (ObjectSettings::ConverterOf(m_settings) || ObjectSettings::ConverterOf(other.m_settings)) {
        other.ReplaceSettings(ObjectSettings::Of(ObjectAccess::Validates(*this),
                                                 ObjectSettings::LoggerOf(m_settings),
                                                 ObjectSettings::ConverterOf(other.m_settings)));
        return;
    }
    ObjectSettings::Retain(m_settings);
    other.ReplaceSettings(m_settings);
}

/// Takes settings over that have been retained.
void IRGObject::ReplaceSettings(const ObjectSettings* settings) const
{
    ObjectSettings::Release(std::exchange(m_settings, settings));
}

} // namespace REPORTGENERATOR
