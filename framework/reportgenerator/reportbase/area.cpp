#include <reportgenerator/reportbase/area.h>

#include <reportgenerator/reportbase/forms/fieldforms.h>
#include <reportgenerator/reportbase/forms/xmlnames.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/records/recordobject.h>

#include <algorithm>
#include <utility>

namespace REPORTGENERATOR {

/// The coordinates of one record. A copy has coordinates of its own, since even their const operations change
/// settings.
struct CoordinateList
{
    CoordinateList() = default;
    CoordinateList(const CoordinateList& other) : items(other.items) { items.detach(); }
    CoordinateList& operator=(const CoordinateList& other) = default;
    ~CoordinateList() = default;

    /// The coordinates, shared with no vector of a caller's. Those that had to be copied have lost their
    /// logger.
    const QVector<Coordinate>& Own()
    {
        items.detach();
        return items;
    }

    QVector<Coordinate> items;
};

bool operator==(const CoordinateList& left, const CoordinateList& right)
{
    return std::equal(left.items.cbegin(), left.items.cend(), right.items.cbegin(), right.items.cend());
}

struct AreaData : Record
{
    QString initialVersionLoaded;
    QString name;
    CoordinateList coordinates;
    QString scriptID;
};

namespace {

constexpr Field<AreaData, QString> NAME = {
    0, &AreaData::name, REPORTBASE_NAME("Name"), Place::Element, Written::Always, elements::Tag(0x8C9FBCA8)};

constexpr Field<AreaData, CoordinateList> COORDINATES = {1,
                                                         &AreaData::coordinates,
                                                         REPORTBASE_NAME("Coordinate"),
                                                         Place::Element,
                                                         Written::Always,
                                                         elements::Tag(0x6F69083F)};

constexpr Field<AreaData, QString> SCRIPT_ID = {2,
                                                &AreaData::scriptID,
                                                REPORTBASE_NAME("ScriptID"),
                                                Place::Element,
                                                Written::WhenSet,
                                                elements::Tag(0xC22211A9)};

constexpr auto TEXT_FIELDS = std::make_tuple(NAME, SCRIPT_ID);

constexpr qint32 VERSION_TAG = elements::Tag(0xCCFEDFA1);

/// Bytes of the tagged body of a coordinate with the shortest texts.
constexpr qint64 SHORTEST_COORDINATE_BODY = elements::WORD_SIZE + 2 * (3 * elements::WORD_SIZE + 8);

/// Bytes of the raw form of a coordinate.
constexpr qint64 RAW_COORDINATE = sizeof(quint8) + 2 * sizeof(double);

const QString& ModelVersion()
{
    static const QString version = QStringLiteral("1.0");
    return version;
}

} // namespace

template <>
struct Description<AreaData>
{
    static constexpr long long ID = 0x469B9976;
    static constexpr Name NAME = REPORTBASE_NAME("Area");
    static constexpr auto FIELDS = std::make_tuple(REPORTGENERATOR::NAME, COORDINATES, SCRIPT_ID);
};

template class RecordObject<AreaData>;

/// The coordinates that a reading has already given the area's validate flag and logger, so that it serves
/// the new ones only. Nothing is remembered from one reading to the next: the coordinates can be given others
/// meanwhile.
struct Area::Settled
{
    explicit Settled(Area& reader) : area(reader), outer(reader.m_settled) { area.m_settled = this; }
    ~Settled() { area.m_settled = outer; }
    Settled(const Settled& other) = delete;
    Settled& operator=(const Settled& other) = delete;

    /// How many from the front: all that were there, unless the area's settings or the list are others by
    /// now.
    int CountOf(const QVector<Coordinate>& items) const
    {
        const bool isSame = first == items.constData() && validate == area.GetValidate() &&
                            logger == area.GetLogger() && count <= items.size();
        return isSame ? count : 0;
    }

    void Remember(const QVector<Coordinate>& items)
    {
        hasBegun = true;
        first = items.constData();
        count = items.size();
        validate = area.GetValidate();
        logger = area.GetLogger();
    }

    Area& area;
    Settled* outer;
    bool hasBegun = false;
    const Coordinate* first = nullptr;
    int count = 0;
    bool validate = true;
    std::shared_ptr<Logger> logger;
};

Area::Area() = default;

Area::Area(const Area& other) : RecordObject(other)
{
    Area::SetValidate(other.GetValidate());
}

Area& Area::operator=(const Area& other)
{
    RecordObject::operator=(other);
    return *this;
}

Area::~Area() = default;

bool Area::operator==(const Area& other) const
{
    if (!IsInitialized() && !other.IsInitialized())
        return true;
    if (GetVersion() != other.GetVersion())
        return false;
    // Private to the two: comparing coordinates may make their records.
    const AreaData& left = *m_data;
    const AreaData& right = *other.m_data;
    if (!IsFieldEqual(left, right, NAME) || !IsFieldEqual(left, right, SCRIPT_ID))
        return false;
    // Only the other side's flag counts: an area whose own flag is clear has no coordinates to compare.
    if (!other.IsCoordinateSet())
        return left.coordinates.items.isEmpty();
    return left.coordinates == right.coordinates;
}

bool Area::operator!=(const Area& other) const
{
    return !(*this == other);
}

bool Area::AnyData() const
{
    const AreaData* data = m_data.constData();
    return data && (!data->name.isNull() || !data->coordinates.items.isEmpty() || !data->scriptID.isNull());
}

bool Area::HasData() const
{
    const AreaData* data = m_data.constData();
    return data && !data->name.isNull() && !data->coordinates.items.isEmpty();
}

QString Area::GetName() const
{
    InitData();
    return m_data.constData()->name;
}

void Area::SetName(QString name)
{
    StoreText(NAME, name);
}

bool Area::IsNameSet() const
{
    return IsSet(m_data, NAME);
}

void Area::ResetName()
{
    ResetField(m_data, NAME);
}

bool Area::IsValidName(const QString& name) const
{
    return IsAdmitted(NAME, name);
}

QString Area::GetDefaultName() const
{
    return QString();
}

const QVector<Coordinate>& Area::GetCoordinate() const
{
    InitData();
    return m_data->coordinates.items;
}

QVector<Coordinate>& Area::GetCoordinate()
{
    InitData();
    SetFlag(*m_data, COORDINATES.Mask());
    return m_data->coordinates.items;
}

void Area::SetCoordinate(const QVector<Coordinate>& coordinates)
{
    InitData();
    m_data->coordinates.items = coordinates;
    m_data->coordinates.Own();
    SetFlag(*m_data, COORDINATES.Mask());
}

void Area::AppendCoordinate(const Coordinate& item)
{
    InitData();
    const bool isComplete = item.HasData();
    if (isComplete || !GetValidate()) {
        CoordinateList& coordinates = m_data->coordinates;
        coordinates.Own();
        coordinates.items.append(item);
        SetFlag(*m_data, COORDINATES.Mask());
    }
    if (!isComplete) {
        IncompleteDefinitionException exception(messages::IncompleteCoordinateAppended(GetObjectName()));
        reporting::Questionable(*this, exception);
    }
}

bool Area::IsCoordinateSet() const
{
    return IsSet(m_data, COORDINATES);
}

void Area::ResetCoordinate()
{
    ResetField(m_data, COORDINATES);
}

bool Area::IsValidCoordinate(const QVector<Coordinate>& /*coordinates*/) const
{
    return true;
}

bool Area::IsValidCoordinate(const Coordinate& /*coordinate*/) const
{
    return true;
}

QString Area::GetScriptID() const
{
    InitData();
    return m_data.constData()->scriptID;
}

void Area::SetScriptID(QString scriptID)
{
    StoreText(SCRIPT_ID, scriptID);
}

bool Area::IsScriptIDSet() const
{
    return IsSet(m_data, SCRIPT_ID);
}

void Area::ResetScriptID()
{
    ResetField(m_data, SCRIPT_ID);
}

bool Area::IsValidScriptID(const QString& scriptID) const
{
    return IsAdmitted(SCRIPT_ID, scriptID);
}

QString Area::GetDefaultScriptID() const
{
    return QString();
}

const QString& Area::GetVersion() const
{
    InitData();
    return ModelVersion();
}

QString Area::GetInitialVersionLoaded() const
{
    InitData();
    return m_data.constData()->initialVersionLoaded;
}

void Area::Check(bool logOnly) const
{
    ReapplySettings();
    InitData();
    const AreaData& data = *m_data.constData();
    CheckField(*this, data, NAME, logOnly);
    CheckField(*this, data, COORDINATES, logOnly);
    for (const Coordinate& coordinate : data.coordinates.items)
        coordinate.Check(logOnly);
    CheckField(*this, data, SCRIPT_ID, logOnly);
}

void Area::GetXml(QXmlStreamWriter& writer) const
{
    if (!PrepareToWrite())
        return;
    InitData();
    const AreaData& data = *m_data.constData();
    writer.writeStartElement(GetObjectName());
    writer.writeAttribute(VERSION_ATTRIBUTE.Text(), ModelVersion());
    WriteXmlField(writer, data, NAME);
    for (const Coordinate& coordinate : data.coordinates.items) {
        if (!coordinate.HasData()) {
            IncompleteDefinitionException exception(messages::IncompleteCoordinateWritten(GetObjectName()));
            reporting::Questionable(*this, exception);
        }
        if (IsCoordinateSet())
            coordinate.GetXml(writer);
    }
    WriteXmlField(writer, data, SCRIPT_ID);
    writer.writeEndElement();
}

bool Area::GetBinary(QDataStream& stream, int tag, bool withTag) const
{
    if (!PrepareToWrite())
        return false;
    InitData();
    const AreaData& data = *m_data.constData();
    elements::WriteBody(stream, tag, withTag, [&] {
        elements::WriteElement(stream, VERSION_TAG, [&] { stream << ModelVersion(); });
        WriteFieldElement(stream, data, NAME);
        elements::WriteElement(stream, COORDINATES.tag, [&] { WriteCoordinates(stream); });
        WriteFieldElement(stream, data, SCRIPT_ID);
    });
    return true;
}

void Area::WriteCoordinates(QDataStream& stream) const
{
    const QVector<Coordinate>& coordinates = m_data.constData()->coordinates.items;
    stream << static_cast<qint32>(coordinates.size());
    if (!IsCoordinateSet())
        return;
    for (const Coordinate& coordinate : coordinates)
        coordinate.GetBinary(stream, COORDINATES.tag, false);
}

void Area::SetBinary(QDataStream& stream, int length)
{
    ReapplySettings();
    InitData();
    RecordObject::Reset();
    const auto store = [this](const auto& field, const QString& text) { StoreText(field, text); };
    elements::ReadBody(*this, stream, length, [&](qint32 tag, qint32 /*payloadLength*/) {
        if (tag == VERSION_TAG) {
            ApplyLoadedVersion(elements::ReadText(stream));
            return true;
        }
        if (tag == COORDINATES.tag) {
            ReadCoordinates(stream);
            return true;
        }
        return ReadFieldElement(stream, tag, TEXT_FIELDS, store);
    });
    SettleCoordinates();
}

void Area::ReadCoordinates(QDataStream& stream)
{
    qint32 count = 0;
    stream >> count;
    ReserveCoordinates(count, elements::BytesLeft(stream) / SHORTEST_COORDINATE_BODY);
    for (qint32 i = 0; i < count; ++i) {
        if (!elements::HasWord(stream))
            elements::ThrowLengthError(*this);
        qint32 length = 0;
        stream >> length;
        Coordinate coordinate;
        PassSettingsTo(coordinate);
        coordinate.SetBinary(stream, length);
        AppendCoordinate(coordinate);
    }
}

/// Makes room for a list that is read at once; `possible` is what the input can hold at most.
void Area::ReserveCoordinates(qint32 count, qint64 possible)
{
    QVector<Coordinate>& coordinates = m_data->coordinates.items;
    if (coordinates.isEmpty() && count > 0)
        coordinates.reserve(static_cast<int>(std::min<qint64>(count, possible)));
}

void Area::ProcessXml(QXmlStreamReader& reader)
{
    InitData();
    ApplyLoadedVersion(xmltools::VersionAttribute(reader));
    const Settled settled(*this);
    IRGObject::ProcessXml(reader);
    // Without a child nothing has been passed on, and nothing has come that would need it.
    if (settled.hasBegun)
        SettleCoordinates();
}

void Area::ProcessXmlStartElement(QXmlStreamReader& reader)
{
    InitData();
    SettleCoordinates();
    if (reader.name() == COORDINATES.name.Latin1()) {
        Coordinate coordinate;
        PassSettingsTo(coordinate);
        coordinate.ProcessXml(reader);
        AppendCoordinate(coordinate);
        return;
    }
    const bool isText = ReadXmlElement(
        reader.name(), TEXT_FIELDS, [&] { return GetTextValue(reader); },
        [this](const auto& field, const QString& text) { StoreText(field, text); });
    if (isText)
        return;
    if (IsLoadedVersionOlder()) {
        xmltools::SkipElement(reader);
        return;
    }
    // The unknown element is not skipped: its end ends this area's reading.
    InvalidXmlException exception(messages::UnknownTag(reader.name().toString(), GetObjectName()));
    reporting::Questionable(*this, exception);
}

void Area::SetValidate(bool validate) const
{
    RecordObject::SetValidate(validate);
    if (!IsInitialized())
        return;
    for (const Coordinate& coordinate : m_data->coordinates.Own())
        coordinate.SetValidate(validate);
}

void Area::SetLogger(std::shared_ptr<Logger> logger) const
{
    RecordObject::SetLogger(logger);
    if (!IsInitialized())
        return;
    for (const Coordinate& coordinate : m_data->coordinates.Own())
        coordinate.SetLogger(logger);
}

void Area::GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const
{
    InitData();
    const AreaData& data = *m_data;
    stream << data.flags << ModelVersion() << data.name << static_cast<qint32>(data.coordinates.items.size());
    if (IsCoordinateSet()) {
        for (const Coordinate& coordinate : data.coordinates.items)
            coordinate.GetVersionSpecificBinaryWithoutValidation(stream);
    }
    if (IsScriptIDSet())
        stream << data.scriptID;
}

void Area::SetVersionSpecificBinaryWithoutValidation(QDataStream& stream)
{
    InitData();
    stream >> m_data->flags;
    ApplyLoadedVersion(elements::ReadText(stream));
    m_data->name = elements::ReadText(stream);
    qint32 count = 0;
    stream >> count;
    ReserveCoordinates(count, elements::BytesLeft(stream) / RAW_COORDINATE);
    bool isLast = false;
    for (qint32 i = 0; i < count && !isLast; ++i) {
        // The first one that is missing is offered like the others: it reads as an empty one.
        isLast = elements::AtEnd(stream);
        Coordinate coordinate;
        PassSettingsTo(coordinate);
        coordinate.SetVersionSpecificBinaryWithoutValidation(stream);
        AppendCoordinate(coordinate);
    }
    if (IsScriptIDSet())
        m_data->scriptID = elements::ReadText(stream);
}

/// Stores a text that is not null, or any text when not validating.
template <class FieldOfData>
void Area::StoreText(const FieldOfData& field, const QString& text)
{
    InitData();
    if (!IsAdmitted(field, text)) {
        OutOfRangeException exception(messages::PleaseSetProperlyInSetter(GetObjectName(), field.name));
        reporting::Questionable(*this, exception);
    }
    StoreField(*m_data, field, text);
}

void Area::PassSettingsTo(const Coordinate& coordinate) const
{
    coordinate.SetValidate(GetValidate());
    coordinate.SetLogger(GetLogger());
}

/// Applied for each child that is read: within one reading only the new coordinates are looked at.
void Area::SettleCoordinates() const
{
    const QVector<Coordinate>& items = m_data->coordinates.Own();
    int count = m_settled ? m_settled->CountOf(items) : 0;
    for (; count < items.size(); ++count)
        PassSettingsTo(items.at(count));
    if (m_settled)
        m_settled->Remember(items);
}

/// Data of an older version start from an empty area.
void Area::ApplyLoadedVersion(const QString& version)
{
    m_data->initialVersionLoaded = version;
    if (IsLoadedVersionOlder())
        Reset();
}

bool Area::IsLoadedVersionOlder() const
{
    return numbers::VersionFromText(ModelVersion()) >
           numbers::VersionFromText(m_data.constData()->initialVersionLoaded);
}

} // namespace REPORTGENERATOR
