// Validate flag and logger of an area reach its coordinates when a reading begins, whatever came before.

#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ListLogger;
using Support::ReadElement;

Coordinate At(double longitude, double latitude)
{
    Coordinate coordinate;
    coordinate.SetLongitude(longitude);
    coordinate.SetLatitude(latitude);
    return coordinate;
}

/// Two points, settled by a reading.
Area Read(bool validate, const std::shared_ptr<ListLogger>& logger)
{
    Area area;
    area.SetValidate(validate);
    area.SetLogger(logger);
    ReadElement(area, QStringLiteral("<Area Version=\"1.0\"><Name>N</Name>"
                                     "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                                     "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Coordinate>"
                                     "</Area>"));
    return area;
}

/// The ways of reading that neither make nor reset anything on their way to the first child.
std::vector<std::pair<const char*, std::function<void(Area&)>>> WaysToRead()
{
    return {
        {"ProcessXml",
         [](Area& area) {
             ReadElement(area, QStringLiteral("<Area Version=\"1.0\"><Name>M</Name></Area>"));
         }},
        {"MergeRGObject",
         [](Area& area) {
             Area other;
             other.SetName(QStringLiteral("M"));
             other.SetValidate(false);
             area.MergeRGObject(other);
         }},
    };
}

void ExpectSettled(const Area& area)
{
    EXPECT_GT(area.GetCoordinate().size(), 0);
    for (const Coordinate& coordinate : area.GetCoordinate()) {
        EXPECT_EQ(coordinate.GetValidate(), area.GetValidate());
        EXPECT_EQ(coordinate.GetLogger(), area.GetLogger());
    }
}

TEST(AreaSettling, CoordinatesThatWereAssignedGetTheSettingsOfTheirNewArea)
{
    for (const auto& [name, read] : WaysToRead()) {
        SCOPED_TRACE(name);
        Area area;
        area.SetValidate(false);
        area.SetLogger(Support::NewLogger());
        {
            const Area validating = Read(true, Support::NewLogger());
            area = validating;
        }
        read(area);
        ExpectSettled(area);
        EXPECT_NO_RG_THROW(area.GetCoordinate()[0].SetLongitude(200.0));
    }
}

TEST(AreaSettling, CoordinatesLoseTheLoggerThatTheirAreaHasLost)
{
    for (const auto& [name, read] : WaysToRead()) {
        SCOPED_TRACE(name);
        const auto logger = Support::NewLogger();
        Area area = Read(false, logger);
        area.SetLogger(logger);
        area.ResetLogger();
        read(area);
        ExpectSettled(area);
        logger->Reset(true);
        area.GetCoordinate()[1].SetLatitude(95.0);
        EXPECT_LOG(logger, {});
    }
}

TEST(AreaSettling, CoordinatesThatWereChangedThroughAHeldListAreServedAgain)
{
    for (const auto& [name, read] : WaysToRead()) {
        SCOPED_TRACE(name);
        Area area = Read(false, nullptr);
        area.SetLogger(Support::NewLogger());
        QVector<Coordinate>& held = area.GetCoordinate();
        read(area);
        held[0].SetValidate(true);
        held[1].SetLogger(Support::NewLogger());
        read(area);
        ExpectSettled(area);
    }
}

TEST(AreaSettling, CoordinatesThatWereAppendedToAHeldListAreServed)
{
    for (const auto& [name, read] : WaysToRead()) {
        SCOPED_TRACE(name);
        Area area = Read(false, nullptr);
        area.SetLogger(Support::NewLogger());
        QVector<Coordinate>& held = area.GetCoordinate();
        read(area);
        held = {At(5.0, 6.0), At(7.0, 8.0)};
        held.append(At(9.0, 10.0));
        read(area);
        ExpectSettled(area);
        EXPECT_EQ(held.size(), 3);
    }
}

/// Takes the logger away from the area whose warning it is given.
class LoggerThatLeaves : public REPORTGENERATOR::Logger
{
public:
    explicit LoggerThatLeaves(Area& area) : Logger(REPORTGENERATOR::WARNING), m_area(area) {}

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel level, const QString& /*text*/, bool /*fatal*/) override
    {
        if (level == REPORTGENERATOR::WARNING)
            m_area.ResetLogger();
    }
    bool HasErrors() const override { return false; }
    void Reset(bool /*clearEntries*/) override {}

private:
    Area& m_area;
};

TEST(AreaSettling, ALoggerThatIsTakenAwayWithinAReadingIsTakenFromTheCoordinatesToo)
{
    Area area;
    area.SetValidate(false);
    const auto logger = std::make_shared<LoggerThatLeaves>(area);
    area.SetLogger(logger);
    // The second coordinate is incomplete: its warning takes the logger away.
    ReadElement(area, QStringLiteral("<Area Version=\"1.0\">"
                                     "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                                     "<Coordinate><Longitude>3</Longitude></Coordinate>"
                                     "<Name>N</Name></Area>"));
    EXPECT_EQ(area.GetLogger(), nullptr);
    ExpectSettled(area);
}

/// Leaves one coordinate in the area whose warning it is given, and that one without a logger.
class LoggerThatShortens : public REPORTGENERATOR::Logger
{
public:
    explicit LoggerThatShortens(Area& area) : Logger(REPORTGENERATOR::WARNING), m_area(area) {}

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel, const QString&, bool) override
    {
        QVector<Coordinate>& points = m_area.GetCoordinate();
        points.resize(1);
        points[0].ResetLogger();
    }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    Area& m_area;
};

TEST(AreaSettling, AListThatIsShortenedInItsPlaceWithinAReadingIsServedFromItsBeginning)
{
    // The list stays in its place unless the incomplete one has made it grow.
    for (int points = 2; points < 10; ++points) {
        SCOPED_TRACE(points);
        Area area;
        area.SetValidate(false);
        area.SetLogger(std::make_shared<LoggerThatShortens>(area));
        QString xml = QStringLiteral("<Area Version=\"1.0\">");
        for (int i = 0; i < points; ++i)
            xml += QStringLiteral("<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>");
        ReadElement(area, xml + QStringLiteral("<Coordinate><Longitude>3</Longitude></Coordinate>"
                                               "<Name>N</Name></Area>"));
        EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
        ExpectSettled(area);
    }
}

/// Lets a test read single children.
class OpenArea : public Area
{
public:
    using Area::ProcessXmlStartElement;
};

TEST(AreaSettling, AChildThatIsReadByItselfIsAReadingOfItsOwn)
{
    OpenArea area;
    area.SetValidate(false);
    area.SetLogger(Support::NewLogger());
    area.SetCoordinate({At(1.0, 2.0), At(3.0, 4.0)});
    for (int i = 0; i < 2; ++i) {
        std::as_const(area).GetCoordinate().at(i).SetValidate(true);
        std::as_const(area).GetCoordinate().at(i).SetLogger(nullptr);
        QXmlStreamReader reader(QStringLiteral("<Name>N</Name>"));
        ASSERT_TRUE(reader.readNextStartElement());
        area.ProcessXmlStartElement(reader);
        ExpectSettled(area);
    }
}

TEST(AreaSettling, AnElementWithoutChildrenLeavesTheCoordinatesAlone)
{
    Area area;
    area.SetValidate(false);
    area.SetCoordinate({At(1.0, 2.0)});
    const auto logger = Support::NewLogger();
    area.GetCoordinate()[0].SetLogger(logger);
    ReadElement(area, QStringLiteral("<Area Version=\"1.0\"/>"));
    EXPECT_EQ(std::as_const(area).GetCoordinate().at(0).GetLogger(), logger);
}

} // namespace
