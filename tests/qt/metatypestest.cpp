#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/metatypes.h>
#include <reportgenerator/qt/points.h>

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaType>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtCore/QVariant>

// A program may need these too and declares them itself.
Q_DECLARE_METATYPE(REPORTGENERATOR::IRGObject*)
Q_DECLARE_METATYPE(REPORTGENERATOR::RegisterCenter*)

namespace {

using REPORTGENERATOR::AnyType;
using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::LogLevel;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::MinMax;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::RegisterMetaTypes;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ToText;
using REPORTGENERATOR::ValueMinMax;
using REPORTGENERATOR::WARNING;
namespace TaskType = REPORTGENERATOR::TaskType;
namespace MeasurementType = REPORTGENERATOR::MeasurementType;
namespace ResourceType = REPORTGENERATOR::ResourceType;
namespace detail = REPORTGENERATOR::detail;
using Support::Text;

template <class Type>
class QtMetaTypes : public testing::Test
{
};

using Classes = testing::Types<Area, ChannelSpacing, Coordinate, Double, Ellipse, Frequency,
                               FrequencyInformation, FrequencyListValue, FrequencyRangeOld, IFBandwidth,
                               MeasurementTime, ReportBase, ValueMinMax, ScanParameter, MinMax>;

struct ClassNames
{
    template <class Type>
    static std::string GetName(int)
    {
        const std::string text = ToText(Type()).toStdString();
        return text.substr(0, text.find('('));
    }
};
TYPED_TEST_SUITE(QtMetaTypes, Classes, ClassNames);

/// What the stream makes of a variant.
QVariant SentOn(const QVariant& variant)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << variant;
    QDataStream in(bytes);
    QVariant read;
    in >> read;
    EXPECT_EQ(in.status(), QDataStream::Ok);
    return read;
}

QString Debugged(const QVariant& variant)
{
    QString text;
    QDebug(&text).nospace() << variant;
    return text;
}

ReportBase LakeReport()
{
    ReportBase report;
    report.SetArea(Support::Lake());
    return report;
}

/// A signal of each kind in one thread, told in another.
class Station : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void Measured(const REPORTGENERATOR::ReportBase&);
    void Moved(REPORTGENERATOR::Coordinate, REPORTGENERATOR::TaskType::TaskTypeValue);
};

class Receiver : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void Take(const REPORTGENERATOR::ReportBase& report) { taken = report; }
    void TakePoint(REPORTGENERATOR::Coordinate point, REPORTGENERATOR::TaskType::TaskTypeValue type)
    {
        movedTo = point;
        movedBy = type;
    }

public: // NOLINT(readability-redundant-access-specifiers): no slots behind it
    ReportBase taken;
    Coordinate movedTo;
    TaskType::TaskTypeValue movedBy = TaskType::Other;
};

} // namespace

TYPED_TEST(QtMetaTypes, AreKnownByName)
{
    const std::string name = "REPORTGENERATOR::" + ClassNames::GetName<TypeParam>(0);
    EXPECT_NE(QMetaType::type(name.c_str()), 0) << name;
}

TYPED_TEST(QtMetaTypes, StandInVariants)
{
    const QVariant variant = QVariant::fromValue(TypeParam());
    ASSERT_TRUE(variant.canConvert<TypeParam>());
    EXPECT_TEXT(ToText(variant.value<TypeParam>()), ToText(TypeParam()));
    EXPECT_TRUE(Debugged(variant).contains(ToText(TypeParam()))) << Debugged(variant).toStdString();
    EXPECT_TEXT(ToText(SentOn(variant).value<TypeParam>()), ToText(TypeParam()));
}

TYPED_TEST(QtMetaTypes, AreComparedInVariantsWhereTheyCanBe)
{
    if constexpr (detail::IsComparable<TypeParam>) {
        EXPECT_TRUE(QVariant::fromValue(TypeParam()) == QVariant::fromValue(TypeParam()));
    } else {
        EXPECT_TRUE((std::is_same_v<TypeParam, ScanParameter> || std::is_same_v<TypeParam, MinMax>));
    }
}

TEST(MetaTypes, VariantsCompareTheObjects)
{
    const QVariant report = QVariant::fromValue(LakeReport());
    EXPECT_TRUE(report == QVariant::fromValue(LakeReport()));
    EXPECT_FALSE(report == QVariant::fromValue(ReportBase()));
    EXPECT_TRUE(SentOn(report) == report);
}

TEST(MetaTypes, EnumerationsStandInVariants)
{
    EXPECT_EQ(SentOn(QVariant::fromValue(TaskType::Pool)).value<TaskType::TaskTypeValue>(), TaskType::Pool);
    EXPECT_EQ(SentOn(QVariant::fromValue(AnyType)).value<ObjectTypes>(), AnyType);
    EXPECT_EQ(SentOn(QVariant::fromValue(WARNING)).value<LogLevel>(), WARNING);
    EXPECT_EQ(
        SentOn(QVariant::fromValue(MeasurementType::AMPos)).value<MeasurementType::MeasurementTypeValue>(),
        MeasurementType::AMPos);
    EXPECT_EQ(SentOn(QVariant::fromValue(MeasurementType::SubSensorCW))
                  .value<MeasurementType::SubSensorTypeValue>(),
              MeasurementType::SubSensorCW);
    EXPECT_EQ(SentOn(QVariant::fromValue(ResourceType::KT530)).value<ResourceType::ResourceTypeValue>(),
              ResourceType::KT530);
    EXPECT_EQ(
        SentOn(QVariant::fromValue(MeasurementTime::Periodic)).value<MeasurementTime::MeasurementModeType>(),
        MeasurementTime::Periodic);
    EXPECT_TRUE(QVariant::fromValue(TaskType::Pool) == QVariant::fromValue(TaskType::Pool));
    EXPECT_FALSE(QVariant::fromValue(TaskType::Pool) == QVariant::fromValue(TaskType::Search));
    EXPECT_TRUE(Debugged(QVariant::fromValue(TaskType::Pool)).contains(Text("Pool")));
}

TEST(MetaTypes, SettingsKeepObjects)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(Text("settings.ini"));
    QSettings(path, QSettings::IniFormat).setValue(Text("report"), QVariant::fromValue(LakeReport()));
    const QSettings settings(path, QSettings::IniFormat);
    EXPECT_TRUE(settings.value(Text("report")).value<ReportBase>() == LakeReport());
}

TEST(MetaTypes, QueuedSignalsArrive)
{
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    QThread thread;
    Receiver receiver;
    receiver.moveToThread(&thread);
    Station station;
    QObject::connect(&station, &Station::Measured, &receiver, &Receiver::Take);
    // By their names too, which Qt looks up.
    QObject::connect(
        &station, SIGNAL(Moved(REPORTGENERATOR::Coordinate, REPORTGENERATOR::TaskType::TaskTypeValue)),
        &receiver, SLOT(TakePoint(REPORTGENERATOR::Coordinate, REPORTGENERATOR::TaskType::TaskTypeValue)),
        Qt::QueuedConnection);
    thread.start();
    Q_EMIT station.Measured(LakeReport());
    Q_EMIT station.Moved(MakeCoordinate(1, 2), TaskType::Pool);
    QMetaObject::invokeMethod(
        &receiver, [&thread] { thread.quit(); }, Qt::QueuedConnection);
    ASSERT_TRUE(thread.wait(20000));
    EXPECT_TRUE(receiver.taken == LakeReport());
    EXPECT_TRUE(receiver.movedTo == MakeCoordinate(1, 2));
    EXPECT_EQ(receiver.movedBy, TaskType::Pool);
}

TEST(MetaTypes, RegisteringOnceMoreDoesNothing)
{
    const int id = QMetaType::type("REPORTGENERATOR::Area");
    RegisterMetaTypes();
    EXPECT_EQ(QMetaType::type("REPORTGENERATOR::Area"), id);
}

#include "metatypestest.moc"
