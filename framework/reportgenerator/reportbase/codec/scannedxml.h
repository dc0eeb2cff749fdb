#ifndef REPORTGENERATOR_CODEC_SCANNEDXML_H
#define REPORTGENERATOR_CODEC_SCANNEDXML_H

#include <reportgenerator/reportbase/codec/markupscanner.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QString>

class QXmlStreamReader;

namespace REPORTGENERATOR::scannedxml {

/// What there is too much of in a text.
MarkupScanner::Excess ExcessIn(const QString& xml);

/// Feeds a scanner with bytes whose encoding their beginning shows.
class ByteScanner
{
public:
    bool Feed(const char* next, const char* end);

    MarkupScanner::Excess Found() const { return m_scanner.Found(); }

private:
    bool FeedWide(const char* next, const char* end);

    MarkupScanner m_scanner;
    QByteArray m_start; ///< as long as it is too short to show the encoding
    int m_unitSize = 0;
    int m_lowestByte = 0;
    int m_index = 0; ///< within a unit
    char m_low = '\0';
    bool m_isAscii = true;
};

/// A device on its way to a reader: it fails where there is too much of something.
class ScannedDevice : public QIODevice
{
public:
    explicit ScannedDevice(QIODevice& device);

    /// Gives these bytes from now on.
    void GiveInstead(const QByteArray& bytes);

    MarkupScanner::Excess Found() const { return m_scanner.Found(); }

    bool isSequential() const override { return m_device->isSequential(); }
    bool atEnd() const override { return m_device->atEnd(); }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    QIODevice* m_device;
    QBuffer m_instead;
    ByteScanner m_scanner;
};

/// What there is too much of on the device of a reader.
MarkupScanner::Excess ExcessOn(const QXmlStreamReader& reader);

} // namespace REPORTGENERATOR::scannedxml

#endif
