// The bytes of support/composedinput.h.

#include "support/composedinput.h"
#include "support/oddvalues.h"
#include "support/records.h"

#include <reportgenerator/reportbase/records/raw.h>
#include <reportgenerator/reportbase/schema/reportbaseschema.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>
#include <type_traits>
#include <vector>

namespace Support {
namespace {

using REPORTGENERATOR::AreaData;
using REPORTGENERATOR::BIT_OF_VERSION;
using REPORTGENERATOR::CoordinateData;
using REPORTGENERATOR::FormatVersion;
using REPORTGENERATOR::FrequencyData;
using REPORTGENERATOR::IFBandwidthData;
using REPORTGENERATOR::ItemList;
using REPORTGENERATOR::Member;
using REPORTGENERATOR::PresenceBit;
using REPORTGENERATOR::ReportBaseData;
using REPORTGENERATOR::ScalarField;
using REPORTGENERATOR::Schema;

/// A bit for each field of a record.
template <class Data>
constexpr int ALL_BITS = (1 << std::tuple_size_v<std::decay_t<decltype(Schema<Data>::FIELDS)>>)-1;

/// Lays out elements as the library does, but for an oddity now and then.
class BytesComposer
{
public:
    BytesComposer(Choices& choices, Order order, int oddEvery)
        : m_choices(choices), m_order(order), m_oddEvery(oddEvery)
    {
    }

    bool Odd() { return m_oddEvery > 0 && m_choices.OneIn(m_oddEvery); }

    QByteArray Int32(qint64 value) const;
    QByteArray Text(const QString& text);
    QByteArray Array(const QByteArray& bytes);
    QByteArray Elements(Kind kind);
    QByteArray Raw(Kind kind, bool singlePrecision);

private:
    using Payloads = std::vector<std::pair<qint64, QByteArray>>;

    qint64 OddLength(qint64 length);
    QByteArray Element(qint64 tag, const QByteArray& payload);
    QByteArray Joined(Payloads payloads);
    QByteArray Number(double limit, int decimals);
    QByteArray Utf8();
    QByteArray Float(double value, bool singlePrecision) const;

    template <class Data>
    QByteArray ElementsOf();
    template <class Data, class T>
    void Add(Payloads& payloads, const ScalarField<Data, T, PresenceBit>& field);
    template <class Data>
    void Add(Payloads& payloads, const FormatVersion<Data>& field);
    template <class Data, class Item>
    void Add(Payloads& payloads, const ItemList<Data, Item>& field);
    template <class Data, class Object>
    void Add(Payloads& payloads, const Member<Data, Object>& field);

    template <class Data>
    int AnyFlags();
    template <class Data>
    QByteArray RawOf(int flags, bool singlePrecision);
    template <class Data, class T>
    QByteArray RawField(const ScalarField<Data, T, PresenceBit>& field, bool isSet, bool singlePrecision);
    template <class Data>
    QByteArray RawField(const FormatVersion<Data>& field, bool isSet, bool singlePrecision);
    template <class Data, class Item>
    QByteArray RawField(const ItemList<Data, Item>& field, bool isSet, bool singlePrecision);
    template <class Data, class Object>
    QByteArray RawField(const Member<Data, Object>& field, bool isSet, bool singlePrecision);

    Choices& m_choices;
    Order m_order;
    int m_oddEvery;
};

QByteArray Streamed(Order order, const std::function<void(QDataStream&)>& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream.setByteOrder(order == Order::BigEndian ? QDataStream::BigEndian : QDataStream::LittleEndian);
    write(stream);
    return bytes;
}

QByteArray BytesComposer::Int32(qint64 value) const
{
    return Streamed(m_order, [value](QDataStream& stream) { stream << static_cast<qint32>(value); });
}

QByteArray BytesComposer::Float(double value, bool singlePrecision) const
{
    return Streamed(m_order, [value, singlePrecision](QDataStream& stream) {
        stream.setFloatingPointPrecision(singlePrecision ? QDataStream::SinglePrecision
                                                         : QDataStream::DoublePrecision);
        stream << value;
    });
}

qint64 BytesComposer::OddLength(qint64 length)
{
    constexpr qint64 MOST = std::numeric_limits<qint32>::max();
    return m_choices.Of({length + 1, length - 1, length + 4, length - 4, length + 8, qint64(0), qint64(-1),
                         qint64(-8), -length, -length - 8, MOST, MOST - 31, -MOST - 1, length * 2,
                         qint64(0xffff), length + 1000});
}

/// A serialised text, rarely of a size that is none of a text.
QByteArray BytesComposer::Text(const QString& text)
{
    if (!Odd())
        return Streamed(m_order, [&text](QDataStream& stream) { stream << text; });
    const QByteArray bytes = Streamed(m_order, [&text](QDataStream& stream) { stream << text; });
    return Int32(OddLength(bytes.size() - 4)) + bytes.mid(4);
}

QByteArray BytesComposer::Array(const QByteArray& bytes)
{
    if (!Odd())
        return Streamed(m_order, [&bytes](QDataStream& stream) { stream << bytes; });
    return Int32(OddLength(bytes.size())) + bytes;
}

QByteArray BytesComposer::Element(qint64 tag, const QByteArray& payload)
{
    const qint64 length = Odd() ? OddLength(payload.size()) : payload.size();
    return Int32(tag) + Int32(length) + payload;
}

/// The elements, rarely in another order, repeated, left out, with unknown ones between them.
QByteArray BytesComposer::Joined(Payloads payloads)
{
    if (Odd())
        std::reverse(payloads.begin(), payloads.end());
    if (Odd() && !payloads.empty())
        payloads.push_back(payloads.front());
    if (Odd() && !payloads.empty())
        payloads.pop_back();
    if (Odd() && !payloads.empty())
        payloads.erase(payloads.begin());
    QByteArray bytes;
    for (const auto& payload : payloads) {
        if (Odd())
            bytes += Element(m_choices.Of({Tag::UNKNOWN, Tag::FREQUENCY_USE, Tag::AREA_NAME, 0LL, 1LL}),
                             QByteArray(m_choices.Below(9), 'x'));
        bytes += Element(payload.first, payload.second);
    }
    if (Odd())
        bytes += QByteArray(m_choices.Below(9), '\0');
    return bytes;
}

QByteArray BytesComposer::Number(double limit, int decimals)
{
    if (Odd())
        return Array(m_choices.OneIn(8) ? QByteArray() : AnyNumberText(m_choices).toUtf8());
    return Array(QByteArray::number(NumberWithin(limit, m_choices), 'f', decimals));
}

QByteArray BytesComposer::Utf8()
{
    if (!Odd())
        return Array(PlainText(m_choices).toUtf8());
    switch (m_choices.Below(4)) {
    case 0:
        return Array(QByteArray("a\xff\xc0\x80\xed\xa0\x80z"));
    case 1:
        return Array(QByteArray("a\0b", 3));
    case 2:
        return Array(QByteArray("\xef\xbb\xbf\xef\xbb\xbfz"));
    default:
        return Array(AnyText(m_choices).toUtf8());
    }
}

template <class Data, class T>
void BytesComposer::Add(Payloads& payloads, const ScalarField<Data, T, PresenceBit>& field)
{
    constexpr double USUAL = 1e9;
    if (!field.isMandatory && m_choices.Below(2) == 0)
        return;
    QByteArray payload;
    if constexpr (std::is_same_v<T, double>)
        payload = Number(field.range.IsUnbounded() ? USUAL : field.range.high, field.format.decimals);
    else if constexpr (std::is_same_v<T, bool>)
        payload = QByteArray(1, Odd() ? '\x7f' : static_cast<char>(m_choices.Below(2)));
    else
        payload = Utf8();
    payloads.emplace_back(field.setBy.tag, payload);
}

template <class Data>
void BytesComposer::Add(Payloads& payloads, const FormatVersion<Data>& field)
{
    payloads.emplace_back(field.tag, Text(Odd() ? AnyVersionText(m_choices) : field.model.Text()));
}

template <class Data, class Item>
void BytesComposer::Add(Payloads& payloads, const ItemList<Data, Item>& field)
{
    const int count = m_choices.Below(4);
    QByteArray bytes = Int32(Odd() ? OddLength(count) : count);
    for (int i = 0; i < count; ++i) {
        const QByteArray item = ElementsOf<typename Item::RecordData>();
        bytes += Int32(Odd() ? OddLength(item.size()) : item.size()) + item;
    }
    payloads.emplace_back(field.setBy.tag, bytes);
}

template <class Data, class Object>
void BytesComposer::Add(Payloads& payloads, const Member<Data, Object>& field)
{
    if (m_choices.Below(4) != 3)
        payloads.emplace_back(field.setBy.tag, ElementsOf<typename Object::RecordData>());
}

template <class Data>
QByteArray BytesComposer::ElementsOf()
{
    Payloads payloads;
    ForEachField(Schema<Data>::FIELDS, [&](const auto& field) { Add(payloads, field); });
    return Joined(payloads);
}

QByteArray BytesComposer::Elements(Kind kind)
{
    switch (kind) {
    case Kind::Report:
        return ElementsOf<ReportBaseData>();
    case Kind::Area:
        return ElementsOf<AreaData>();
    case Kind::Coordinate:
        return ElementsOf<CoordinateData>();
    case Kind::Frequency:
        return ElementsOf<FrequencyData>();
    case Kind::Bandwidth:
        break;
    }
    return ElementsOf<IFBandwidthData>();
}

/// What must be set is there whatever its bit says.
template <class Data, class T>
QByteArray BytesComposer::RawField(const ScalarField<Data, T, PresenceBit>& field, bool isSet,
                                   bool singlePrecision)
{
    if (!isSet && !field.isMandatory)
        return {};
    if constexpr (std::is_same_v<T, double>)
        return Float(AnyNumber(m_choices), singlePrecision);
    else if constexpr (std::is_same_v<T, bool>)
        return QByteArray(1, static_cast<char>(m_choices.Below(3)));
    else
        return Text(Odd() ? AnyText(m_choices) : PlainText(m_choices));
}

template <class Data>
QByteArray BytesComposer::RawField(const FormatVersion<Data>& field, bool /*isSet*/, bool /*singlePrecision*/)
{
    return Text(Odd() ? AnyVersionText(m_choices) : field.model.Text());
}

template <class Data, class Item>
QByteArray BytesComposer::RawField(const ItemList<Data, Item>& /*field*/, bool /*isSet*/,
                                   bool singlePrecision)
{
    using ItemData = typename Item::RecordData;
    const int count = m_choices.Below(4);
    QByteArray bytes = Int32(Odd() ? OddLength(count) : count);
    for (int i = 0; i < count; ++i)
        bytes += RawOf<ItemData>(Odd() ? AnyFlags<ItemData>() : ALL_BITS<ItemData>, singlePrecision);
    return bytes;
}

template <class Data, class Object>
QByteArray BytesComposer::RawField(const Member<Data, Object>& /*field*/, bool isSet, bool singlePrecision)
{
    using MemberData = typename Object::RecordData;
    return isSet ? RawOf<MemberData>(AnyFlags<MemberData>(), singlePrecision) : QByteArray();
}

template <class Data>
int BytesComposer::AnyFlags()
{
    constexpr int ALL_FLAGS = 256;
    return m_choices.Below(Odd() ? ALL_FLAGS : ALL_BITS<Data> + 1);
}

template <class Data>
QByteArray BytesComposer::RawOf(int flags, bool singlePrecision)
{
    QByteArray bytes(1, static_cast<char>(flags));
    ForEachFieldByBit(Schema<Data>::FIELDS, [&](const auto& field) {
        const bool isSet = BitOf(field) != BIT_OF_VERSION && (flags >> BitOf(field) & 1) != 0;
        bytes += RawField(field, isSet, singlePrecision);
    });
    return bytes;
}

QByteArray BytesComposer::Raw(Kind kind, bool singlePrecision)
{
    switch (kind) {
    case Kind::Report:
        return RawOf<ReportBaseData>(AnyFlags<ReportBaseData>(), singlePrecision);
    case Kind::Area:
        return RawOf<AreaData>(AnyFlags<AreaData>(), singlePrecision);
    case Kind::Coordinate:
        return RawOf<CoordinateData>(AnyFlags<CoordinateData>(), singlePrecision);
    case Kind::Frequency:
        return RawOf<FrequencyData>(AnyFlags<FrequencyData>(), singlePrecision);
    case Kind::Bandwidth:
        break;
    }
    return RawOf<IFBandwidthData>(AnyFlags<IFBandwidthData>(), singlePrecision);
}

int AnyOddness(Choices& choices)
{
    return choices.Of({0, 100, 100, 30, 8});
}

/// Four bytes of the input become another number.
void ChangeNumber(QByteArray& bytes, int place, Choices& choices)
{
    const QByteArray number = Streamed(Order::BigEndian, [&choices](QDataStream& stream) {
        stream << choices.Of({0, 1, -1, 4, 8, -8, 0x7fffffff, -0x7fffffff - 1, 0x10000, 255});
    });
    bytes.replace(place, std::min<int>(static_cast<int>(bytes.size()) - place, 4), number);
}

/// What an object of the kind writes by `write`.
QByteArray OwnBytes(Kind kind, Choices& choices, const std::function<QByteArray(const Traveller&)>& write)
{
    CodePath codePath(Way::Plain);
    const std::unique_ptr<Traveller> traveller = codePath.New(kind);
    Arrange(codePath, *traveller, choices);
    traveller->Object().SetValidate(false);
    return write(*traveller);
}

} // namespace

QByteArray Mutated(QByteArray bytes, Choices& choices)
{
    for (int i = choices.Below(3) + 1; i > 0; --i) {
        const int size = static_cast<int>(bytes.size());
        const int place = choices.Below(size + 1);
        const int length = choices.Below(std::min(size - place, 12) + 1);
        switch (choices.Below(7)) {
        case 0:
            if (place < size)
                bytes[place] = static_cast<char>(choices.Word());
            break;
        case 1:
            if (place < size)
                bytes[place] = static_cast<char>(bytes.at(place) ^ (1 << choices.Below(8)));
            break;
        case 2:
            bytes.remove(place, length);
            break;
        case 3:
            bytes.insert(place, bytes.mid(place, length));
            break;
        case 4:
            bytes.insert(place, QByteArray(length, static_cast<char>(choices.Word())));
            break;
        case 5:
            ChangeNumber(bytes, place, choices);
            break;
        default:
            bytes.truncate(place);
            break;
        }
    }
    return bytes;
}

QByteArray ComposeElements(Kind kind, Order order, Choices& choices)
{
    const int oddEvery = AnyOddness(choices);
    const QByteArray elements = BytesComposer(choices, order, oddEvery).Elements(kind);
    return choices.OneIn(8) ? Mutated(elements, choices) : elements;
}

QByteArray ComposeRepresentation(Kind kind, bool compressed, Choices& choices)
{
    const int form = choices.Below(8);
    if (form < 2) {
        const QByteArray own = OwnBytes(kind, choices, [compressed](const Traveller& traveller) {
            return compressed ? traveller.Object().GetCompressedBinaryRepresentationAsQByteArray(-1)
                              : traveller.Object().GetBinaryRepresentationAsQByteArray();
        });
        return form == 1 ? Mutated(own, choices) : own;
    }
    const int oddEvery = AnyOddness(choices);
    BytesComposer composer(choices, Order::BigEndian, oddEvery);
    const QByteArray elements = ComposeElements(kind, Order::BigEndian, choices);
    const qint64 length = composer.Odd() ? elements.size() + choices.Below(9) - 4 : elements.size();
    QByteArray body = composer.Int32(composer.Odd() ? choices.Below(3) : 1);
    body += composer.Int32(length) + elements;
    body += QByteArray(composer.Odd() ? choices.Below(9) : 0, '\0');
    const QString usualMarker =
        compressed ? QStringLiteral("IRGObjectQCompress") : QStringLiteral("IRGObject");
    const QString marker =
        composer.Odd() ? choices.Of({QStringLiteral("IRGObject"), QStringLiteral("IRGObjectQCompress"),
                                     QStringLiteral("irgobject"), QStringLiteral("IRGObjec"), QString(),
                                     QStringLiteral("IRGObjectX")})
                       : usualMarker;
    const QString name = composer.Odd() ? AnyText(choices) : NameOf(kind);
    QByteArray data = body;
    if (compressed) {
        data = qCompress(body, choices.Of({-1, 0, 9}));
        if (composer.Odd())
            data.replace(0, 4, composer.Int32(choices.Of({0, 1, 100, 1 << 20, 0x7fffffff, -1})));
        if (composer.Odd())
            data = Mutated(data, choices);
        data = composer.Array(data);
    }
    QByteArray representation = composer.Text(marker);
    representation += composer.Text(name);
    return representation + data;
}

QByteArray ComposeBinaryFile(const QByteArray& representation, Choices& choices)
{
    return BytesComposer(choices, Order::BigEndian, choices.Of({0, 0, 4})).Array(representation);
}

QByteArray ComposeRaw(Kind kind, Order order, bool singlePrecision, Choices& choices)
{
    const int oddEvery = AnyOddness(choices);
    const QByteArray raw = BytesComposer(choices, order, oddEvery).Raw(kind, singlePrecision);
    return choices.OneIn(8) ? Mutated(raw, choices) : raw;
}

} // namespace Support
