#include "support/choices.h"

namespace Support {

Choices::Choices(quint64 seed) : m_isBySeed(true), m_state(seed) {}

Choices::Choices(const QByteArray& bytes) : m_isBySeed(false), m_bytes(bytes) {}

int Choices::Below(int count)
{
    constexpr int ONE_BYTE = 256;
    constexpr int TWO_BYTES = ONE_BYTE * ONE_BYTE;
    if (count <= 1)
        return 0;
    const quint64 bits = Bits(count <= ONE_BYTE ? 1 : count <= TWO_BYTES ? 2 : 4);
    return static_cast<int>(bits % static_cast<quint64>(count));
}

quint64 Choices::Word()
{
    return Bits(sizeof(quint64));
}

/// So many bytes of the input; with a seed always a whole word of the generator (SplitMix64).
quint64 Choices::Bits(int bytes)
{
    constexpr int BITS_OF_BYTE = 8;
    if (m_isBySeed) {
        m_state += Q_UINT64_C(0x9e3779b97f4a7c15);
        quint64 bits = m_state;
        bits = (bits ^ (bits >> 30)) * Q_UINT64_C(0xbf58476d1ce4e5b9);
        bits = (bits ^ (bits >> 27)) * Q_UINT64_C(0x94d049bb133111eb);
        return bits ^ (bits >> 31);
    }
    quint64 bits = 0;
    for (int i = 0; i < bytes && m_position < m_bytes.size(); ++i)
        bits = bits << BITS_OF_BYTE | static_cast<unsigned char>(m_bytes.at(m_position++));
    return bits;
}

} // namespace Support
