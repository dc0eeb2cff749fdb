#ifndef TESTS_SUPPORT_DEVICES_H
#define TESTS_SUPPORT_DEVICES_H

// Devices that aren't as good-natured as a QBuffer.

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

#include <algorithm>
#include <utility>

namespace Support {

/// Gives its bytes from front to back, a few at a time; takes what is written at its end.
class Sequential : public QIODevice
{
public:
    Sequential() = default;
    Sequential(const QByteArray& content, int chunk) : m_content(content), m_chunk(chunk) {}

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override
    {
        return std::min<qint64>(m_content.size(), m_chunk) + QIODevice::bytesAvailable();
    }
    const QByteArray& Content() const { return m_content; }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        const qint64 count = std::min<qint64>({size, m_content.size(), m_chunk});
        std::copy_n(m_content.constData(), count, data);
        m_content.remove(0, static_cast<int>(count));
        return count;
    }
    qint64 writeData(const char* data, qint64 size) override
    {
        m_content.append(data, static_cast<int>(size));
        return size;
    }

private:
    QByteArray m_content;
    int m_chunk = 0;
};

/// Takes no more than `limit` bytes.
class Limited : public QBuffer
{
public:
    explicit Limited(qint64 limit) : m_limit(limit) {}

protected:
    qint64 writeData(const char* data, qint64 size) override
    {
        const qint64 count = std::clamp<qint64>(m_limit - pos(), 0, size);
        return count > 0 ? QBuffer::writeData(data, count) : -1;
    }

private:
    qint64 m_limit;
};

/// What a device does from one of its bytes on.
enum class Fault : int
{
    GivesNothing, ///< 0 bytes, or takes none, though it isn't at its end
    Fails,        ///< -1
    Closes,       ///< is closed by itself
    StandsStill,  ///< refuses to seek
    Lies,         ///< says that it has sought, and doesn't
    Trickles      ///< one byte at a time
};

/// A device that is faulty from the byte `position` on.
template <class Device>
class Faulty : public Device
{
public:
    template <class... Arguments>
    Faulty(Fault fault, qint64 position, Arguments&&... arguments)
        : Device(std::forward<Arguments>(arguments)...), m_fault(fault), m_position(position)
    {
    }

    bool seek(qint64 position) override
    {
        const bool isFaulty = m_done >= m_position;
        if (isFaulty && m_fault == Fault::StandsStill)
            return false;
        if (isFaulty && m_fault == Fault::Lies)
            return true;
        m_done = position;
        return Device::seek(position);
    }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        return Transfer(size, [&](qint64 count) { return Device::readData(data, count); });
    }
    qint64 writeData(const char* data, qint64 size) override
    {
        return Transfer(size, [&](qint64 count) { return Device::writeData(data, count); });
    }

private:
    template <class Move>
    qint64 Transfer(qint64 size, Move&& move)
    {
        qint64 count = size;
        if (m_fault <= Fault::Closes)
            count = std::min(size, m_position - m_done);
        else if (m_fault == Fault::Trickles && m_done >= m_position)
            count = std::min<qint64>(size, 1);
        if (count <= 0 && size > 0) {
            if (m_fault == Fault::Closes)
                Device::close();
            return m_fault == Fault::GivesNothing ? 0 : -1;
        }
        const qint64 moved = move(count);
        m_done += std::max<qint64>(moved, 0);
        return moved;
    }

    Fault m_fault;
    qint64 m_position;
    qint64 m_done = 0;
};

} // namespace Support

#endif
