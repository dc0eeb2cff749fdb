#include <reportgenerator/reportbase/irgobject.h>

#include <reportgenerator/reportbase/forms/compression.h>
#include <reportgenerator/reportbase/forms/invalidvalues.h>
#include <reportgenerator/reportbase/forms/numbers.h>
#include <reportgenerator/reportbase/forms/taggedelements.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <typeinfo>
#include <utility>

namespace REPORTGENERATOR {

namespace {

constexpr qint32 ROOT_TAG = 1;

QString PlainMarker()
{
    return QStringLiteral("IRGObject");
}

QString CompressedMarker()
{
    return QStringLiteral("IRGObjectQCompress");
}

/// What `write` writes to a stream of the library's version.
template <class Write>
QByteArray WrittenBytes(Write&& write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setVersion(elements::STREAM_VERSION);
    write(stream);
    return buffer.data();
}

void ReadRootElement(IRGObject& object, QDataStream& stream)
{
    qint32 tag = 0;
    qint32 length = 0;
    stream >> tag >> length;
    object.SetBinary(stream, length);
}

} // namespace

const QString IRGObject::EMPTY_VERSION;

IRGObject::IRGObject()
{
    IRGObject::SetObjectType(AnyType);
}

IRGObject::IRGObject(ObjectTypes type)
{
    IRGObject::SetObjectType(type);
}

IRGObject::IRGObject(const IRGObject& other) = default;

IRGObject& IRGObject::operator=(const IRGObject& other) = default;

IRGObject::~IRGObject() = default;

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

bool IRGObject::GetBinary(QDataStream& /*stream*/, int /*tag*/, bool /*withTag*/) const
{
    if (GetValidate()) {
        RGException exception(messages::GetBinaryNotImplemented(m_objectType));
        TraceOrThrow(LogLevel::ERROR, exception, true, true);
    }
    return true;
}

void IRGObject::SetBinary(QDataStream& /*stream*/, int /*length*/)
{
    if (GetValidate()) {
        RGException exception(messages::SetBinaryNotImplemented(m_objectType));
        TraceOrThrow(LogLevel::ERROR, exception, true, true);
    }
}

bool IRGObject::SetXmlString(const QString& xml, bool checkRoot)
{
    TraceProgress(messages::LoadingXmlString);
    if (xml.isEmpty() || !xmltools::MayContainElement(xml, GetObjectName()))
        return false;
    Reset();
    if (checkRoot && !StartsWith(xml, GetObjectName())) {
        RGException exception(messages::UnsuitableXml(GetObjectName()));
        TraceOrThrow(LogLevel::ERROR, exception, true, true);
    }
    QXmlStreamReader reader(xml);
    return ReadElement(reader);
}

bool IRGObject::SetBinaryRepresentation(QByteArray& representation)
{
    TraceProgress(messages::LoadingBinaryArray);
    QDataStream stream(representation);
    stream.setVersion(elements::STREAM_VERSION);
    return SetBinaryRepresentation(stream);
}

bool IRGObject::SetBinaryRepresentation(QDataStream& stream)
{
    TraceProgress(messages::LoadingBinaryStream);
    stream.setVersion(elements::STREAM_VERSION);
    const QString marker = elements::ReadText(stream);
    const QString objectName = elements::ReadText(stream);
    Q_UNUSED(objectName) // An object of any name may be offered; its tags decide what is taken.
    if (marker == PlainMarker()) {
        ReadRootElement(*this, stream);
        return true;
    }
    if (marker == CompressedMarker()) {
        const QByteArray body = UncompressBinary(elements::ReadBytes(stream));
        QDataStream bodyStream(body);
        bodyStream.setVersion(elements::STREAM_VERSION);
        ReadRootElement(*this, bodyStream);
        return true;
    }
    return false;
}

bool IRGObject::MergeRGObject(const IRGObject& other)
{
    if (typeid(other) != typeid(*this)) {
        Trace(LogLevel::WARNING,
              messages::MergeTypeMismatch(GetObjectName(), typeid(other).name(), typeid(*this).name()));
        return false;
    }
    if (numbers::VersionFromText(GetVersion()) != numbers::VersionFromText(other.GetVersion())) {
        Trace(LogLevel::WARNING, messages::MergeVersionMismatch(GetObjectName()));
        return false;
    }
    const QString xml = other.GetXmlString();
    if (xml.isEmpty())
        return true;
    QXmlStreamReader reader(xml);
    if (!ReadXmlUntil(reader, GetObjectName()))
        return false;
    ProcessXml(reader);
    return true;
}

ObjectTypes IRGObject::GetObjectType() const
{
    return m_objectType;
}

const QString& IRGObject::GetObjectName() const
{
    return m_objectName;
}

void IRGObject::ProcessXml(QXmlStreamReader& reader)
{
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            break;
        if (token == QXmlStreamReader::StartElement)
            ProcessXmlStartElement(reader);
    }
    ReportXmlError(reader);
}

QString IRGObject::GetXmlString() const
{
    TraceProgress(messages::GeneratingXmlString);
    if (GetValidate())
        Check();
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    GetXml(writer);
    return xml;
}

void IRGObject::GetBinaryRepresentation(QDataStream& stream) const
{
    TraceProgress(messages::GeneratingBinaryStream);
    if (GetValidate())
        Check();
    stream.setVersion(elements::STREAM_VERSION);
    stream << PlainMarker() << GetObjectName();
    GetBinary(stream, ROOT_TAG, true);
}

QByteArray IRGObject::GetBinaryRepresentationAsQByteArray() const
{
    TraceProgress(messages::GeneratingBinaryArray);
    return WrittenBytes([this](QDataStream& stream) { GetBinaryRepresentation(stream); });
}

void IRGObject::GetCompressedBinaryRepresentation(QDataStream& stream, int level) const
{
    TraceProgress(messages::GeneratingCompressedStream);
    if (GetValidate())
        Check();
    stream.setVersion(elements::STREAM_VERSION);
    const QByteArray body = WrittenBytes([this](QDataStream& inner) { GetBinary(inner, ROOT_TAG, true); });
    stream << CompressedMarker() << GetObjectName() << Compress(body, level);
}

QByteArray IRGObject::GetCompressedBinaryRepresentationAsQByteArray(int level) const
{
    TraceProgress(messages::GeneratingCompressedArray);
    return WrittenBytes(
        [this, level](QDataStream& stream) { GetCompressedBinaryRepresentation(stream, level); });
}

bool IRGObject::LoadXml(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw RGException(messages::CantOpenForReading(path));
    return LoadXml(&file);
}

bool IRGObject::LoadXml(QFile* file)
{
    Reset();
    if (m_versionConverter && m_versionConverter->CanUseProxy(file, this)) {
        Trace(LogLevel::INFO, messages::LoadingXmlFileWithConverter(GetObjectName(), file->fileName()));
        file->QIODevice::reset();
        return m_versionConverter->LoadXml(file);
    }
    Trace(LogLevel::INFO, messages::LoadingXmlFile(GetObjectName(), file->fileName()));
    QXmlStreamReader reader(file);
    return ReadElement(reader);
}

bool IRGObject::LoadBinary(QFile* file)
{
    Trace(LogLevel::INFO, messages::LoadingBinaryFile(GetObjectName(), file->fileName()));
    Reset();
    QDataStream stream(file);
    stream.setVersion(elements::STREAM_VERSION);
    QByteArray representation = elements::ReadBytes(stream);
    // A file that begins with neither marker leaves a reset object and counts as loaded all the same.
    SetBinaryRepresentation(representation);
    if (GetValidate())
        Check();
    return true;
}

bool IRGObject::SaveXml(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    file.write(GetXmlString().toUtf8());
    return true;
}

void IRGObject::SetValidate(bool validate) const
{
    m_validate = validate;
}

bool IRGObject::GetValidate() const
{
    return m_validate;
}

void IRGObject::SetLogger(std::shared_ptr<Logger> logger) const
{
    m_logger = std::move(logger);
}

void IRGObject::ResetLogger() const
{
    m_logger.reset();
}

const QString& IRGObject::GetVersion() const
{
    return EMPTY_VERSION;
}

void IRGObject::SetObjectType(ObjectTypes type)
{
    m_objectType = type;
    m_objectId = type;
    m_objectName = ObjectTypesToName(type);
    if (m_objectName.isEmpty())
        m_objectName = ObjectTypesToName(AnyType);
}

void IRGObject::SetObjectName(const QString& name)
{
    m_objectName = name;
}

void IRGObject::ProcessXmlStartElement(QXmlStreamReader& /*reader*/) {}

long long IRGObject::GetObjectId() const
{
    return m_objectId;
}

std::shared_ptr<Logger> IRGObject::GetLogger() const
{
    return m_logger;
}

void IRGObject::InjectVersionConverter(std::shared_ptr<VersionConverterProxy> converter)
{
    TraceProgress(converter ? messages::InjectingVersionConverter : messages::RemovingVersionConverter);
    m_versionConverter = std::move(converter);
}

QString IRGObject::GetXmlTagName(ObjectTypes type)
{
    return ObjectTypesToName(type);
}

void IRGObject::Trace(LogLevel level, const QString& text) const
{
    if (m_logger)
        m_logger->Trace(level, text, false);
}

void IRGObject::Trace(LogLevel level, const RGException& exception) const
{
    if (m_logger)
        m_logger->Trace(level, exception, false);
}

void IRGObject::TraceOrThrow(LogLevel level, RGException& exception, bool fatal,
                             bool throwWithoutLogger) const
{
    const bool throws = m_logger ? fatal : throwWithoutLogger;
    if (m_logger)
        m_logger->Trace(level, exception, fatal);
    // Catchers rely on the exact type, so that a derived exception is cut down to it on purpose.
    if (throws)
        throw RGException(exception);
}

int IRGObject::skipCurrentElement(QDataStream& stream, int length, int /*unused*/) const
{
    // A stream refuses a negative length too, but not without printing.
    return length < 0 ? -1 : static_cast<int>(stream.skipRawData(length));
}

QByteArray IRGObject::Compress(const QByteArray& data, int level)
{
    return qCompress(data, level);
}

QByteArray IRGObject::Compress(const QString& text, int level)
{
    return Compress(WrittenBytes([&text](QDataStream& stream) { stream << text; }), level);
}

QByteArray IRGObject::UncompressBinary(const QByteArray& data)
{
    return compression::Uncompress(data);
}

QString IRGObject::UncompressString(const QByteArray& data)
{
    const QByteArray bytes = UncompressBinary(data);
    QDataStream stream(bytes);
    stream.setVersion(elements::STREAM_VERSION);
    return elements::ReadText(stream);
}

void IRGObject::SetObjectId(long long id)
{
    m_objectId = id;
}

void IRGObject::ReapplySettings() const
{
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

QString IRGObject::GetTextValue(QXmlStreamReader& reader) const
{
    QString text = reader.text().toString();
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::EndElement) {
        // Each piece replaces the one before: readers of this form have always taken the last piece.
        if (reader.isCharacters())
            text = reader.text().toString();
    }
    ReportXmlError(reader);
    return text;
}

bool IRGObject::ReadXmlUntil(QXmlStreamReader& reader, const QString& name) const
{
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == name)
            return true;
    }
    ReportXmlError(reader);
    return false;
}

/// Spares the text when nobody listens.
void IRGObject::TraceProgress(QString (*message)(const QString& objectName)) const
{
    if (m_logger)
        Trace(LogLevel::INFO, message(GetObjectName()));
}

bool IRGObject::StartsWith(const QString& xml, const QString& name) const
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            return reader.name() == name;
    }
    ReportXmlError(reader);
    return false;
}

/// Reads the first element of the object's name; the steps that all ways of loading XML share.
bool IRGObject::ReadElement(QXmlStreamReader& reader)
{
    if (!ReadXmlUntil(reader, GetObjectName()))
        return false;
    ProcessXml(reader);
    if (GetValidate())
        Check();
    return true;
}

void IRGObject::ReportXmlError(const QXmlStreamReader& reader) const
{
    if (!reader.hasError())
        return;
    RGException exception(reader.errorString());
    TraceOrThrow(LogLevel::ERROR, exception, true, true);
}

} // namespace REPORTGENERATOR
