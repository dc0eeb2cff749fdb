#ifndef REPORTGENERATOR_RECORDS_ITEMTEXTS_H
#define REPORTGENERATOR_RECORDS_ITEMTEXTS_H

#include <reportgenerator/reportbase/codec/fixednumbers.h>
#include <reportgenerator/reportbase/codec/xmlsinks.h>
#include <reportgenerator/reportbase/records/recordaccess.h>

#include <QtCore/QVarLengthArray>

#include <array>
#include <cstring>
#include <tuple>

namespace REPORTGENERATOR {

/// Writes the items of a list whose fields all are numbers in elements of their own: the first one tag by
/// tag, and the others by copying what stands around its numbers.
template <class Container, class Data>
class ItemTexts
{
public:
    using Unit = typename XmlText<Container>::Unit;

    explicit ItemTexts(XmlText<Container>& sink) : m_sink(sink) {}

    /// `count` items will come, this one included.
    void WriteFirst(const Name& name, const Data& data, qint64 count)
    {
        const qint64 begin = m_sink.Out().Size();
        m_sink.Start(name);
        std::size_t index = 0;
        ForEachField(Schema<Data>::FIELDS, [&](const auto& field) {
            m_sink.Element(field.name, field.In(data), field.format);
            m_pieces[index++] = {m_sink.ValueBegin(), m_sink.ValueEnd()};
        });
        m_sink.End(name);
        Learn(begin);
        m_sink.Out().Room((count - 1) * UsualSize());
    }

    /// Returns false, with nothing written, for a number that takes a longer way.
    bool Write(const Data& data)
    {
        Unit* out = m_sink.Out().Room(m_around.size() + qint64(FIELDS) * numbers::MAX_FIXED);
        const Unit* around = m_around.constData();
        std::size_t index = 0;
        const bool isWritten = AllOfFields(Schema<Data>::FIELDS, [&](const auto& field) {
            out = Copy(around, m_pieces[index++], out);
            out = numbers::WriteFixed(out, field.In(data), field.format.decimals);
            return out != nullptr;
        });
        if (isWritten)
            m_sink.Out().SetEnd(Copy(around, m_pieces[FIELDS], out));
        return isWritten;
    }

private:
    static constexpr std::size_t FIELDS = std::tuple_size_v<std::decay_t<decltype(Schema<Data>::FIELDS)>>;

    /// Part of the text around the numbers: at first where a number begins and ends.
    struct Piece
    {
        qint64 begin;
        qint64 end;
    };

    static Unit* Copy(const Unit* around, const Piece& piece, Unit* out)
    {
        const qint64 size = piece.end - piece.begin;
        std::memcpy(out, around + piece.begin, std::size_t(size) * sizeof(Unit));
        return out + size;
    }

    /// Takes the item that begins there apart.
    void Learn(qint64 begin)
    {
        const Unit* const text = m_sink.Out().Begin();
        qint64 next = begin;
        for (std::size_t i = 0; i <= FIELDS; ++i) {
            const qint64 end = i < FIELDS ? m_pieces[i].begin : m_sink.Out().Size();
            const qint64 behindNumber = i < FIELDS ? m_pieces[i].end : end;
            m_pieces[i] = {m_around.size(), m_around.size() + end - next};
            m_around.append(text + next, static_cast<int>(end - next));
            next = behindNumber;
        }
    }

    /// Of an item whose numbers have a sign and three digits before the point.
    qint64 UsualSize() const
    {
        qint64 size = m_around.size();
        ForEachField(Schema<Data>::FIELDS, [&size](const auto& field) { size += 5 + field.format.decimals; });
        return size;
    }

    static constexpr int ROOM_AROUND = 256;

    XmlText<Container>& m_sink;
    std::array<Piece, FIELDS + 1> m_pieces = {};
    QVarLengthArray<Unit, ROOM_AROUND> m_around;
};

} // namespace REPORTGENERATOR

#endif
