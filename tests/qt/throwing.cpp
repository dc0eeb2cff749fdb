// A test of Qt Test in which the library throws: the handler tells what, which Qt Test doesn't know.

#include <reportgenerator/qt/points.h>
#include <reportgenerator/qt/standardexception.h>

#include <QtTest/QTest>

class Throwing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { REPORTGENERATOR::InstallTerminateHandler(); }
    void BeyondTheRange() { REPORTGENERATOR::MakeCoordinate(190.0, 47.5); }
};

QTEST_APPLESS_MAIN(Throwing)

#include "throwing.moc"
