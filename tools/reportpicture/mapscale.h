#ifndef REPORTPICTURE_MAPSCALE_H
#define REPORTPICTURE_MAPSCALE_H

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>

#include <reportcore/exporting/geometry.h>

namespace ReportPicture {

/// Of a sphere as large as the earth.
constexpr double KILOMETRES_OF_DEGREE = 111.195;

/// Where on a picture a place on the earth is: degrees of latitude are as long everywhere, degrees of longitude as they
/// are in the middle of the map.
class MapScale
{
public:
    /// A map of at least this box, in degrees, that fills the frame.
    MapScale(const QRectF& box, const QRectF& frame);

    QPointF At(const ReportCore::Point& point) const;
    ReportCore::Point PointAt(const QPointF& place) const;

    // The same place on the earth is as large on maps that were moved. Their middle is never beyond the poles.

    /// What is shown moves by so many pixels.
    MapScale MovedBy(const QPointF& pixels) const;

    /// Enlarged around a place in the frame, which keeps showing the same point as far as that can be.
    MapScale Enlarged(double factor, const QPointF& around) const;

    /// Another frame, with the same point in its middle.
    MapScale WithFrame(const QRectF& frame) const;

    // What the frame shows

    double West() const { return m_west; }
    double East() const { return m_west + m_frame.width() / m_pixelsOfLongitude; }
    double South() const { return m_north - m_frame.height() / m_pixelsOfLatitude; }
    double North() const { return m_north; }

    const QRectF& Frame() const { return m_frame; }

    /// In the middle of the map.
    double PixelsOfKilometre() const { return m_pixelsOfLatitude / KILOMETRES_OF_DEGREE; }

private:
    MapScale WithMiddleOnEarth() const;

    QRectF m_frame;
    double m_west = 0.0;
    double m_north = 0.0;
    double m_pixelsOfLongitude = 0.0;
    double m_pixelsOfLatitude = 0.0;
};

/// The largest of 1, 2 and 5, times a power of ten, that is not above the value.
double RoundStep(double value);

/// The distance of lines on a map that shows so many degrees.
double GraticuleStep(double degrees);

// Texts for people: "9.5° E", "0°", "180°", "50 km".

QString LongitudeText(double degrees);
QString LatitudeText(double degrees);
QString LengthText(double kilometres);

} // namespace ReportPicture

#endif
