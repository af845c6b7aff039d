#include "CoordinateText.h"

#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

namespace
{

/// Both as the library writes and reads it, zeros with their sign.
bool isAsWritten(double value)
{
    const QString text = QString::number(value, 'f', 2);
    const double number = text.toDouble(), shown = CoordinateText::shownNumber(value);
    const bool same = number == shown || (std::isnan(number) && std::isnan(shown));
    return CoordinateText::of(value) == text && same && std::signbit(number) == std::signbit(shown);
}

} // namespace

class CoordinateTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeWhatTheLibraryWritesAndReads_data()
    {
        QTest::addColumn<double>("value");
        for (const double value : {0.0,
                                   -0.0,
                                   0.005,
                                   0.015,
                                   0.025,
                                   1.005,
                                   -1.005,
                                   2.675,
                                   0.125,
                                   -0.125,
                                   0.375,
                                   99.995,
                                   999.995,
                                   -0.001,
                                   0.004999999999999999,
                                   1e-300,
                                   0.07,
                                   -12.3,
                                   1e5,
                                   999999.995,
                                   1e6 - 0.001,
                                   1e9 + 0.125,
                                   123456789.987,
                                   -1e15,
                                   1e22,
                                   1e300,
                                   std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN()})
            QTest::addRow("%.17g", value) << value;
    }

    void shouldBeWhatTheLibraryWritesAndReads()
    {
        QFETCH(double, value);
        QVERIFY(isAsWritten(value));
    }

    void shouldBeThatForNumbersOfAllSizes()
    {
        std::mt19937 random(541);
        std::uniform_real_distribution<double> mantissa(-1.0, 1.0), exponent(-6.0, 14.0);
        for (int trial = 0; trial < 20000; ++trial) {
            const double value = mantissa(random) * std::pow(10.0, exponent(random));
            QVERIFY2(isAsWritten(value), qPrintable(QString::number(value, 'g', 17)));
        }
    }

    /// And for the numbers next to them on both sides.
    void shouldBeThatInTheMiddleBetweenTwo()
    {
        std::mt19937 random(542);
        std::uniform_int_distribution<int> thousandths(-2000000, 2000000);
        for (int trial = 0; trial < 20000; ++trial) {
            const int hundredths = thousandths(random) / 10;
            const double middle = (10 * hundredths + 5) / 1000.0;
            for (const double value :
                 {middle, std::nextafter(middle, 1e9), std::nextafter(middle, -1e9), middle + 1e-9})
                QVERIFY2(isAsWritten(value), qPrintable(QString::number(value, 'g', 17)));
        }
    }
};

ROOM_TEST_CLASS(CoordinateTextTest)

#include "CoordinateTextTest.moc"
