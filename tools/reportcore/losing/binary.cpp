#include <reportcore/losing/losing.h>

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/losing/lostvalues.h>

#include <utility>

namespace ReportCore {

namespace {

class BinaryLosses
{
public:
    BinaryLosses(const QByteArray& bytes, const ReportFile& file)
        : m_bytes(bytes), m_values(file),
          m_inspector(bytes, file.form.isBinaryFile, [this](const WireField& field) { Take(field); })
    {
    }

    Problems Find()
    {
        m_inspector.Envelope();
        m_inspector.Body();
        const Problems values = m_values.Find(m_bytes);
        m_losses.insert(m_losses.end(), values.begin(), values.end());
        return std::move(m_losses);
    }

private:
    void Take(const WireField& field)
    {
        const FilePlace place = m_inspector.PlaceOf(field.begin);
        if (field.role == Event::Role::Unknown)
            m_losses.push_back({QLatin1String(UNKNOWN_ELEMENT),
                                QStringLiteral("element with tag %1").arg(TagText(field)), place,
                                field.path->Text()});
        else if (field.role == Event::Role::Value && field.kind == Kind::Utf8)
            m_values.TakeUtf8(*field.path, place, field.bytes.Bytes());
        else if (field.role == Event::Role::Value && field.kind == Kind::Bool)
            m_values.TakeSwitch(*field.path, place, field.bytes.At(0) != 0);
    }

    static QString TagText(const WireField& field)
    {
        constexpr int DIGITS = 8;
        constexpr int HEXADECIMAL = 16;
        return QStringLiteral("0x%1").arg(field.bytes.Word(), DIGITS, HEXADECIMAL, QLatin1Char('0'));
    }

    const QByteArray& m_bytes;
    LostValues m_values;
    BinaryInspector m_inspector;
    Problems m_losses;
};

} // namespace

Problems FindBinaryLosses(const QByteArray& bytes, const ReportFile& file)
{
    return BinaryLosses(bytes, file).Find();
}

} // namespace ReportCore
