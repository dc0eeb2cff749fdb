#include <reportpicture/mapscale.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ReportPicture {

using ReportCore::HALF_TURN;
using ReportCore::POLE;

namespace {

/// Lines across a map.
constexpr double LINES = 6.0;

/// Beyond these, steps of 10 and 20 degrees don't meet the antimeridian and the poles.
constexpr double WIDE_STEPS[] = {360.0, 180.0, 90.0, 45.0, 30.0, 15.0, 10.0};

/// Digits of numbers that come out of a calculation.
constexpr int DIGITS = 10;

QString NumberText(double number)
{
    return QString::number(number, 'g', DIGITS);
}

QString DegreesText(double degrees, QChar positive, QChar negative)
{
    QString text = NumberText(std::abs(degrees)) + QChar(0xB0);
    if (degrees == 0.0 || std::abs(degrees) == HALF_TURN)
        return text;
    return text + QLatin1Char(' ') + (degrees < 0.0 ? negative : positive);
}

} // namespace

MapScale::MapScale(const QRectF& box, const QRectF& frame) : m_frame(frame)
{
    const QPointF centre = box.center();
    const double narrowing = ReportCore::Narrowing(centre.y());
    m_pixelsOfLatitude = std::min(frame.height() / box.height(), frame.width() / (box.width() * narrowing));
    m_pixelsOfLongitude = m_pixelsOfLatitude * narrowing;
    m_west = centre.x() - frame.width() / 2.0 / m_pixelsOfLongitude;
    m_north = centre.y() + frame.height() / 2.0 / m_pixelsOfLatitude;
}

QPointF MapScale::At(const ReportCore::Point& point) const
{
    return {m_frame.left() + (point.longitude - m_west) * m_pixelsOfLongitude,
            m_frame.top() + (m_north - point.latitude) * m_pixelsOfLatitude};
}

ReportCore::Point MapScale::PointAt(const QPointF& place) const
{
    return {m_west + (place.x() - m_frame.left()) / m_pixelsOfLongitude,
            m_north - (place.y() - m_frame.top()) / m_pixelsOfLatitude};
}

MapScale MapScale::MovedBy(const QPointF& pixels) const
{
    MapScale moved = *this;
    moved.m_west -= pixels.x() / m_pixelsOfLongitude;
    moved.m_north += pixels.y() / m_pixelsOfLatitude;
    return moved.WithMiddleOnEarth();
}

MapScale MapScale::WithMiddleOnEarth() const
{
    MapScale scale = *this;
    const double halfHeight = m_frame.height() / 2.0 / m_pixelsOfLatitude;
    scale.m_north = std::clamp(m_north - halfHeight, -POLE, POLE) + halfHeight;
    return scale;
}

MapScale MapScale::Enlarged(double factor, const QPointF& around) const
{
    MapScale enlarged = *this;
    enlarged.m_pixelsOfLongitude *= factor;
    enlarged.m_pixelsOfLatitude *= factor;
    const ReportCore::Point kept = PointAt(around);
    enlarged.m_west = kept.longitude - (around.x() - m_frame.left()) / enlarged.m_pixelsOfLongitude;
    enlarged.m_north = kept.latitude + (around.y() - m_frame.top()) / enlarged.m_pixelsOfLatitude;
    return enlarged.WithMiddleOnEarth();
}

MapScale MapScale::WithFrame(const QRectF& frame) const
{
    const ReportCore::Point middle = PointAt(m_frame.center());
    MapScale scale = *this;
    scale.m_frame = frame;
    scale.m_west = middle.longitude - frame.width() / 2.0 / m_pixelsOfLongitude;
    scale.m_north = middle.latitude + frame.height() / 2.0 / m_pixelsOfLatitude;
    return scale;
}

double RoundStep(double value)
{
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double digit : {5.0, 2.0}) {
        if (digit * power <= value)
            return digit * power;
    }
    return power;
}

double GraticuleStep(double degrees)
{
    const double step = degrees / LINES;
    const auto* const wide = std::find_if(std::begin(WIDE_STEPS), std::end(WIDE_STEPS),
                                          [step](double each) { return each <= step; });
    return wide == std::end(WIDE_STEPS) ? RoundStep(step) : *wide;
}

QString LongitudeText(double degrees)
{
    return DegreesText(ReportCore::Within(degrees), QLatin1Char('E'), QLatin1Char('W'));
}

QString LatitudeText(double degrees)
{
    return DegreesText(degrees, QLatin1Char('N'), QLatin1Char('S'));
}

QString LengthText(double kilometres)
{
    return kilometres < 1.0 ? NumberText(kilometres * 1e3) + QStringLiteral(" m")
                            : NumberText(kilometres) + QStringLiteral(" km");
}

} // namespace ReportPicture
