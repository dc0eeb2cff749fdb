#include <reportpicture/painters.h>

#include <reportpicture/map.h>

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#ifdef REPORTPICTURE_SVG
#    include <reportcore/exporting/xmlpieces.h>

#    include <QtSvg/QSvgGenerator>
#endif

#include <vector>

namespace ReportPicture {

using ReportCore::Exporter;
using ReportCore::ExportPiece;
using ReportCore::Feature;
using ReportCore::PictureSize;

namespace {

/// A picture is drawn when all that belongs on it is known.
class Picture : public Exporter
{
public:
    explicit Picture(PictureSize size) : m_size(size.width, size.height) {}

    QByteArray Add(const ExportPiece& piece) override
    {
        m_features.push_back(piece.feature);
        return QByteArray();
    }

    void End(const Write& write) override
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        Draw(buffer);
        write(buffer.data());
    }

protected:
    virtual void Draw(QBuffer& buffer) = 0;

    void DrawMap(QPainter& painter) const { Map(m_features, m_size).Draw(painter); }

    QSize Size() const { return m_size; }

private:
    QSize m_size;
    std::vector<Feature> m_features;
};

class Png : public Picture
{
public:
    using Picture::Picture;

protected:
    void Draw(QBuffer& buffer) override
    {
        QImage image(Size(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        DrawMap(painter);
        painter.end();
        image.save(&buffer, "PNG");
    }
};

#ifdef REPORTPICTURE_SVG
class Svg : public Picture
{
public:
    using Picture::Picture;

    QByteArray Add(const ExportPiece& piece) override
    {
        ExportPiece writable = piece;
        writable.feature.file = ReportCore::XmlText(piece.feature.file);
        writable.feature.name = ReportCore::XmlText(piece.feature.name);
        return Picture::Add(writable);
    }

protected:
    void Draw(QBuffer& buffer) override
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(Size());
        generator.setViewBox(QRect(QPoint(0, 0), Size()));
        generator.setTitle(QStringLiteral("Areas of reports"));
        QPainter painter(&generator);
        DrawMap(painter);
        painter.end();
    }
};

std::unique_ptr<Exporter> MakeSvg(PictureSize size)
{
    return std::make_unique<Svg>(size);
}
#endif

std::unique_ptr<Exporter> MakePng(PictureSize size)
{
    return std::make_unique<Png>(size);
}

} // namespace

ReportCore::Painters AllPainters()
{
    ReportCore::Painters painters;
    painters.png = MakePng;
#ifdef REPORTPICTURE_SVG
    painters.svg = MakeSvg;
#endif
    return painters;
}

} // namespace ReportPicture
