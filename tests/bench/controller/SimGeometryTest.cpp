#include "SimGeometry.h"

#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

class SimGeometryTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheAnglesThatItWasMadeOf_data()
    {
        QTest::addColumn<double>("rx");
        QTest::addColumn<double>("ry");
        QTest::addColumn<double>("rz");
        QTest::newRow("none") << 0.0 << 0.0 << 0.0;
        QTest::newRow("about z") << 0.0 << 0.0 << 170.0;
        QTest::newRow("about all") << -17.25 << 41.5 << 174.75;
        QTest::newRow("obtuse") << 120.0 << -85.0 << -90.0;
    }

    void shouldGiveTheAnglesThatItWasMadeOf()
    {
        QFETCH(double, rx);
        QFETCH(double, ry);
        QFETCH(double, rz);
        const auto degrees = SimRotation::fromDegrees(rx, ry, rz).degrees();
        QVERIFY(std::fabs(degrees[0] - rx) < 1e-9);
        QVERIFY(std::fabs(degrees[1] - ry) < 1e-9);
        QVERIFY(std::fabs(degrees[2] - rz) < 1e-9);
    }

    void shouldPutTheWholeTurnIntoRxWhereTheOthersAreOne_data()
    {
        QTest::addColumn<double>("ry");
        QTest::addColumn<double>("rx");
        QTest::newRow("up") << 90.0 << 70.0;
        QTest::newRow("down") << -90.0 << -30.0;
    }

    void shouldPutTheWholeTurnIntoRxWhereTheOthersAreOne()
    {
        QFETCH(double, ry);
        QFETCH(double, rx);
        const auto degrees = SimRotation::fromDegrees(20.0, ry, 50.0).degrees();
        QVERIFY(std::fabs(degrees[0] - rx) < 1e-9);
        QVERIFY(std::fabs(degrees[1] - ry) < 1e-9);
        QCOMPARE(degrees[2], 0.0);
    }
};

ROOM_TEST_CLASS(SimGeometryTest)
#include "SimGeometryTest.moc"
