#include <reportcore/losing/losing.h>

#include <reportcore/losing/lostvalues.h>
#include <reportcore/walk.h>

#include <utility>

namespace ReportCore {

namespace {

class BinaryLosses
{
public:
    BinaryLosses(const QByteArray& bytes, const ReportFile& file)
        : m_bytes(bytes), m_values(file),
          m_walk(bytes, file.form.isBinaryFile, [this](const WireField& field) { Take(field); })
    {
    }

    Problems Find()
    {
        m_walk.Frame();
        m_isInBody = true;
        m_walk.Body();
        const Problems values = m_values.Find(m_bytes);
        m_losses.insert(m_losses.end(), values.begin(), values.end());
        return std::move(m_losses);
    }

private:
    void Take(const WireField& field)
    {
        if (!m_isInBody)
            return;
        const FilePlace place = {0, 0, field.bytes.Offset(), m_walk.IsCompressed()};
        if (field.kind == Kind::Tag) {
            // The first one is the report's own.
            if (m_isBehindRoot && IsUnknown(field))
                m_losses.push_back({QLatin1String(UNKNOWN_ELEMENT),
                                    QStringLiteral("element with tag %1").arg(TagText(field)), place,
                                    field.path->Text()});
            m_isBehindRoot = true;
        } else if (!field.path->IsEmpty() && !field.path->Last().field->HasObjects()) {
            TakeValue(field, place);
        }
    }

    void TakeValue(const WireField& field, const FilePlace& place)
    {
        if (field.kind == Kind::Utf8)
            m_values.TakeUtf8(*field.path, place, field.bytes.Bytes());
        else if (field.kind == Kind::Bool)
            m_values.TakeSwitch(*field.path, place, field.bytes.At(0) != 0);
    }

    /// The walk calls what it knows by its own name.
    static bool IsUnknown(const WireField& field)
    {
        return field.path->IsEmpty() || field.name != field.path->Last().field->WireLabel();
    }

    static QString TagText(const WireField& field)
    {
        constexpr int DIGITS = 8;
        constexpr int HEXADECIMAL = 16;
        return QStringLiteral("0x%1").arg(field.bytes.Word(), DIGITS, HEXADECIMAL, QLatin1Char('0'));
    }

    const QByteArray& m_bytes;
    LostValues m_values;
    Walk m_walk;
    bool m_isInBody = false;
    bool m_isBehindRoot = false;
    Problems m_losses;
};

} // namespace

Problems FindBinaryLosses(const QByteArray& bytes, const ReportFile& file)
{
    return BinaryLosses(bytes, file).Find();
}

} // namespace ReportCore
