#include "Percentage.h"

#include "TestRegistry.h"

#include <QtTest>

#include <climits>
#include <limits>

class PercentageTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRoundEachInItsOwnWay_data()
    {
        QTest::addColumn<double>("fraction");
        QTest::addColumn<int>("floored");
        QTest::addColumn<int>("truncated");
        QTest::addColumn<int>("camera");
        QTest::newRow("none") << 0.0 << 0 << 0 << 0;
        QTest::newRow("just below one percent") << 0.0099 << 0 << 0 << 0;
        QTest::newRow("29 percent") << 0.29 << 28 << 28 << 29;
        QTest::newRow("99.5 percent") << 0.995 << 99 << 99 << 99;
        QTest::newRow("all") << 1.0 << 100 << 100 << 100;
        QTest::newRow("below zero") << -0.005 << -1 << 0 << 0;
        QTest::newRow("huge") << 1e30 << INT_MAX << INT_MAX << INT_MAX;
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 0 << 0 << 0;
    }

    void shouldRoundEachInItsOwnWay()
    {
        QFETCH(double, fraction);
        QTEST(Percentage::floored(fraction), "floored");
        QTEST(Percentage::truncated(fraction), "truncated");
        QTEST(Percentage::ofCamera(float(fraction)), "camera");
    }
};

ROOM_TEST_CLASS(PercentageTest)
#include "PercentageTest.moc"
