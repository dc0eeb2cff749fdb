#ifndef TESTS_SUPPORT_DEVICES_H
#define TESTS_SUPPORT_DEVICES_H

// Devices that aren't as good-natured as a QBuffer.

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

#include <algorithm>

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

} // namespace Support

#endif
