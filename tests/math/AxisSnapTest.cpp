#include "AxisSnap.h"

#include "MathSamples.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

using namespace MathSamples;

namespace
{

using Rows = std::array<double, 9>;

} // namespace

class AxisSnapTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldSnapOnlyWhenAllNineValuesAreNear_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("snapped");
        QTest::addColumn<bool>("near");
        QTest::newRow("zero") << 0.0 << 0.0 << true;
        QTest::newRow("negative zero") << -0.0 << 0.0 << true;
        QTest::newRow("just above zero") << 0.9e-6 << 0.0 << true;
        QTest::newRow("just below zero") << -0.9e-6 << 0.0 << true;
        QTest::newRow("the limit above zero") << 1e-6 << 1e-6 << false;
        QTest::newRow("the limit below zero") << -1e-6 << -1e-6 << false;
        QTest::newRow("just above one") << 1.0000009 << 1.0 << true;
        QTest::newRow("the limit above one") << 1.000001 << 1.000001 << false;
        QTest::newRow("just below one") << 0.9999991 << 1.0 << true;
        QTest::newRow("the limit below one") << 0.999999 << 0.999999 << false;
        QTest::newRow("just below minus one") << -1.0000009 << -1.0 << true;
        QTest::newRow("the limit below minus one") << -1.000001 << -1.000001 << false;
        QTest::newRow("just above minus one") << -0.9999991 << -1.0 << true;
        QTest::newRow("the limit above minus one") << -0.999999 << -0.999999 << false;
        QTest::newRow("a half") << 0.5 << 0.5 << false;
        QTest::newRow("infinity") << infinity << infinity << false;
    }
    void shouldSnapOnlyWhenAllNineValuesAreNear()
    {
        QFETCH(double, value);
        QFETCH(double, snapped);
        QFETCH(bool, near);
        for (std::size_t place = 0; place < 9; ++place) {
            Rows values = {1e-9, -1e-9, 1.0 + 1e-9, -0.0, 1.0 - 1e-9, -1.0 + 1e-9, -1.0, 1.0, 0.0};
            const Rows untouched = values;
            values[place] = value;
            snapAxisAligned(values);
            QCOMPARE(values[place], snapped);
            QCOMPARE(std::signbit(values[place]), near ? snapped < 0.0 : std::signbit(value));
            const std::size_t other = (place + 1) % 9;
            QCOMPARE(values[other], near ? std::round(untouched[other]) : untouched[other]);
        }
    }

    void shouldNotSnapWhenAValueIsNotANumber()
    {
        Rows values = {1.0 + 1e-9, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, notANumber};
        snapAxisAligned(values);
        QCOMPARE(values[0], 1.0 + 1e-9);
    }
};

ROOM_TEST_CLASS(AxisSnapTest)
#include "AxisSnapTest.moc"
