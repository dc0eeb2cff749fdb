#include <reportgenerator/reportbase/irgobject.h>

#include <reportgenerator/reportbase/codec/invalidvalues.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/reporting_p.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QDateTime>

#include <utility>

namespace REPORTGENERATOR {

const QString IRGObject::EMPTY_VERSION;

IRGObject::IRGObject() : IRGObject(AnyType) {}

// An object that delegates is destroyed when its constructor throws, with the identity that it has got.

IRGObject::IRGObject(ObjectTypes type) : IRGObject(NamelessIdentity())
{
    IRGObject::SetObjectType(type);
}

IRGObject::IRGObject(const ObjectIdentity& identity) : m_identity(&identity) {}

IRGObject::IRGObject(const IRGObject& other) : IRGObject(NamelessIdentity())
{
    IRGObject::operator=(other);
}

IRGObject& IRGObject::operator=(const IRGObject& other)
{
    if (this == &other)
        return *this;
    // A copy counts among those who hold logger and converter.
    const ObjectSettings settings = SettingsSlot(other.m_settings).Get();
    ObjectSettings copied(settings.Validates(), settings.GetLogger(), settings.GetConverter());
    if (m_identity->isOwn || other.m_identity->isOwn) {
        ObjectIdentity& own = OwnIdentity();
        own = *other.m_identity;
        own.isOwn = true;
    } else {
        m_identity = other.m_identity;
    }
    SettingsSlot(m_settings).Set(std::move(copied));
    return *this;
}

IRGObject::~IRGObject()
{
    if (m_identity->isOwn)
        delete m_identity;
    SettingsSlot(m_settings).SetAlone(ObjectSettings());
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
    const SettingsSlot slot(m_settings);
    if (validate != slot.Validates())
        slot.Replace([validate](const ObjectSettings& settings) { return settings.WithValidate(validate); });
}

bool IRGObject::GetValidate() const
{
    return ObjectAccess::Validates(*this);
}

void IRGObject::SetLogger(std::shared_ptr<Logger> logger) const
{
    if (logger == GetLogger())
        return;
    SettingsSlot(m_settings).Replace([&logger](const ObjectSettings& settings) {
        return ObjectSettings(settings.Validates(), logger, settings.GetConverter());
    });
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
    return SettingsSlot(m_settings).Get().GetLogger();
}

void IRGObject::InjectVersionConverter(std::shared_ptr<VersionConverterProxy> converter)
{
    TraceProgress(converter ? messages::InjectingVersionConverter : messages::RemovingVersionConverter);
    SettingsSlot(m_settings).Replace([&converter](const ObjectSettings& settings) {
        return ObjectSettings(settings.Validates(), settings.GetLogger(), converter);
    });
}

QString IRGObject::GetXmlTagName(ObjectTypes type)
{
    return ObjectTypesToName(type);
}

// Whoever calls the logger holds it: it may take itself away from the object meanwhile.

void IRGObject::Trace(LogLevel level, const QString& text) const
{
    if (const auto logger = GetLogger())
        logger->Trace(level, text, false);
}

void IRGObject::Trace(LogLevel level, const RGException& exception) const
{
    if (const auto logger = GetLogger())
        logger->Trace(level, exception, false);
}

void IRGObject::TraceOrThrow(LogLevel level, RGException& exception, bool fatal,
                             bool throwWithoutLogger) const
{
    if (GetLogger() ? fatal : throwWithoutLogger)
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
    if (const FastPath* fastPath = ObjectAccess::FastPathOf(*this)) {
        fastPath->passSettings(*this);
        return;
    }
    SetValidate(GetValidate());
    SetLogger(GetLogger());
}

bool IRGObject::PrepareToWrite() const
{
    // The check of a class with a fast path begins with it.
    if (!ObjectAccess::FastPathOf(*this) || !ObjectAccess::Validates(*this))
        ReapplySettings();
    if (!GetValidate())
        return true;
    Check();
    return HasData();
}

/// Spares the text when nobody listens.
void IRGObject::TraceProgress(QString (*message)(const QString& objectName)) const
{
    if (SettingsSlot(m_settings).HasLoggerOrConverter() && GetLogger())
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

} // namespace REPORTGENERATOR
