// Comparisons that fail, each with what the two objects are.

#include <reportgenerator/qt/everything.h>

#include <QtTest/QTest>

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::ReportBase;
namespace TaskType = REPORTGENERATOR::TaskType;

namespace {

Frequency MakeFrequency(double value)
{
    Frequency frequency;
    frequency.SetValue(value);
    return frequency;
}

ReportBase ReportOf(const Area& area)
{
    ReportBase report;
    report.SetArea(area);
    return report;
}

} // namespace

class Comparing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Frequencies() { QCOMPARE(MakeFrequency(121500000.0), MakeFrequency(121500000.004)); }

    void SetAndUnset()
    {
        Frequency unset;
        unset.SetMin(0.0);
        Frequency set = unset;
        set.SetValue(0.0);
        QCOMPARE(unset, set);
    }

    void LongAreas()
    {
        const Area before = MakeArea(QStringLiteral("Lake"), {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}});
        const Area after = MakeArea(QStringLiteral("Lake"), {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10.5}});
        QCOMPARE(ReportOf(after), ReportOf(before));
    }

    void Ellipses()
    {
        Ellipse ellipse;
        ellipse.SetRotation(30.0);
        QCOMPARE(ellipse, Ellipse());
    }

    void Enumerations() { QCOMPARE(TaskType::Pool, TaskType::GetInvalidTaskType()); }
};

QTEST_APPLESS_MAIN(Comparing)

#include "comparing.moc"
