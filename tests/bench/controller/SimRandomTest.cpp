#include "SimRandom.h"

#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

namespace
{

bool isSame(const SimVector &a, const SimVector &b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

} // namespace

class SimRandomTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRepeatItselfFromASeed()
    {
        // GIVEN
        SimRandom random(7);
        const SimVector first = random.normal(1.0);
        const SimVector second = random.normal(1.0);
        // WHEN
        random.seed(7);
        // THEN
        QVERIFY(isSame(random.normal(1.0), first));
        QVERIFY(isSame(random.normal(1.0), second));
        random.seed(8);
        QVERIFY(!isSame(random.normal(1.0), first));
    }

    void shouldScatterAlikeAlongEachAxis()
    {
        // GIVEN
        constexpr int count = 20000;
        constexpr double sigma = 3.0;
        SimRandom random(11);
        SimVector sum;
        SimVector squares;
        // WHEN
        for (int i = 0; i < count; ++i) {
            const SimVector one = random.normal(sigma);
            sum = sum + one;
            squares = squares + SimVector{one.x * one.x, one.y * one.y, one.z * one.z};
        }
        // THEN
        for (const double mean : {sum.x / count, sum.y / count, sum.z / count})
            QVERIFY(std::fabs(mean) < 5.0 * sigma / std::sqrt(count));
        for (const double square : {squares.x / count, squares.y / count, squares.z / count})
            QVERIFY(std::fabs(std::sqrt(square) - sigma) < 0.03 * sigma);
    }

    void shouldNotScatterWithoutASigma()
    {
        // GIVEN
        SimRandom random;
        // WHEN, THEN
        QVERIFY(isSame(random.normal(0.0), SimVector()));
    }
};

ROOM_TEST_CLASS(SimRandomTest)
#include "SimRandomTest.moc"
