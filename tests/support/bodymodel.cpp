#include "support/bodymodel.h"

#include "support/states.h"

#include <cstddef>
#include <cstdint>

namespace Support {
namespace {

constexpr int BITS_OF_NUMBER = 32;
constexpr int SIGN_BIT = 31;

/// What a stream of version 12 does: a read beyond the end gives 0 or nothing, and ends at the end. Its status
/// becomes bad then, as by a text of an odd size and by skipping backwards.
class ModelStream
{
public:
    explicit ModelStream(const QByteArray& bytes) : m_bytes(bytes.toStdString()) {}

    bool AtEnd() const { return m_position == m_bytes.size(); }
    bool IsGood() const { return m_isGood; }

    std::uint32_t Unsigned()
    {
        if (Left() < 4) {
            End();
            return 0;
        }
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i)
            number = number << 8 | static_cast<unsigned char>(m_bytes[m_position++]);
        return number;
    }

    std::int64_t Signed()
    {
        const std::int64_t number = Unsigned();
        return number >= (std::int64_t(1) << SIGN_BIT) ? number - (std::int64_t(1) << BITS_OF_NUMBER)
                                                       : number;
    }

    bool Bool()
    {
        if (AtEnd()) {
            End();
            return false;
        }
        return m_bytes[m_position++] != 0;
    }

    std::string ByteArray() { return Taken(Unsigned()); }

    /// A text of ASCII characters; others come out as '?'.
    std::string Text()
    {
        const std::uint32_t size = Unsigned();
        if (size != NULL_SIZE && size % 2 != 0) {
            m_isGood = false;
            return {};
        }
        const std::string utf16 = Taken(size);
        std::string text;
        for (std::size_t i = 0; i + 1 < utf16.size(); i += 2)
            text += utf16[i] == 0 ? utf16[i + 1] : '?';
        return text;
    }

    void Skip(std::int64_t count)
    {
        // The -1 with which a stream refuses looks to it like one byte back.
        if (count < -1)
            m_isGood = false;
        else if (count > static_cast<std::int64_t>(Left()))
            End();
        else if (count > 0)
            m_position += static_cast<std::size_t>(count);
    }

private:
    static constexpr std::uint32_t NULL_SIZE = 0xffffffff;

    std::size_t Left() const { return m_bytes.size() - m_position; }

    void End()
    {
        m_position = m_bytes.size();
        m_isGood = false;
    }

    std::string Taken(std::uint32_t size)
    {
        if (size == NULL_SIZE)
            return {};
        if (size > Left()) {
            End();
            return {};
        }
        const std::string taken = m_bytes.substr(m_position, size);
        m_position += size;
        return taken;
    }

    std::string m_bytes;
    std::size_t m_position = 0;
    bool m_isGood = true;
};

double NumberOf(const std::string& utf8)
{
    return QString::fromUtf8(utf8.c_str()).toDouble();
}

struct BoundsModel
{
    FrequencyState state;
    bool knowsUse = true;

    bool Read(std::int64_t tag, ModelStream& stream)
    {
        if (tag == 1321946712)
            state.min = NumberOf(stream.ByteArray());
        else if (tag == 1854789621)
            state.max = NumberOf(stream.ByteArray());
        else if (tag == -1962977357)
            state.value = NumberOf(stream.ByteArray());
        else if (tag == -1439054031 && knowsUse)
            state.use = stream.Bool();
        else
            return false;
        return true;
    }

    std::string Description() const
    {
        return knowsUse ? Describe(state) : Describe(BandwidthState{state.value, state.min, state.max});
    }
};

struct CoordinateModel
{
    CoordinateState state;

    bool Read(std::int64_t tag, ModelStream& stream)
    {
        if (tag == 0x247e7491)
            state.longitude = NumberOf(stream.ByteArray());
        else if (tag == -886092938)
            state.latitude = NumberOf(stream.ByteArray());
        else
            return false;
        return true;
    }

    std::string Description() const { return Describe(state); }
};

template <class Model>
Prediction Predicted(Model model, const QByteArray& bytes)
{
    ModelStream stream(bytes);
    Prediction prediction;
    if (stream.Text() != "IRGObject") {
        prediction.description = model.Description();
        return prediction;
    }
    stream.Text();
    stream.Signed();
    std::int64_t remaining = stream.Signed();
    while (remaining > 0 && stream.IsGood() && !stream.AtEnd()) {
        const std::int64_t tag = stream.Signed();
        const std::int64_t length = stream.Signed();
        remaining -= 8 + length;
        if (!model.Read(tag, stream))
            stream.Skip(length);
    }
    prediction.isAccepted = remaining == 0;
    prediction.hasLengthError = remaining != 0;
    prediction.description = model.Description();
    return prediction;
}

} // namespace

Prediction PredictedFor(const QString& folder, const QByteArray& bytes)
{
    if (folder == QLatin1String("coordinate"))
        return Predicted(CoordinateModel(), bytes);
    BoundsModel model;
    model.knowsUse = folder == QLatin1String("frequency");
    return Predicted(model, bytes);
}

} // namespace Support
