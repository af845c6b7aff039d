#include "SimRandom.h"

#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <random>
#include <vector>

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

    void shouldTakeNormalNumbersInPairsFromUniformOnes()
    {
        // GIVEN: as Box and Muller have it, a pair is the two coordinates of a place in the plane
        std::mt19937_64 engine(5);
        const auto uniform = [&engine] { return (static_cast<double>(engine() >> 11U) + 0.5) * 0x1p-53; };
        std::vector<double> expected;
        for (int pair = 0; pair < 3; ++pair) {
            const double radius = std::sqrt(-2.0 * std::log(uniform()));
            const double angle = 2.0 * std::acos(-1.0) * uniform();
            expected.insert(expected.end(), {radius * std::cos(angle), radius * std::sin(angle)});
        }
        SimRandom random(5);
        // WHEN
        const SimVector first = random.normal(2.0);
        const SimVector second = random.normal(2.0);
        // THEN
        const double drawn[] = {first.x, first.y, first.z, second.x, second.y, second.z};
        for (std::size_t i = 0; i < expected.size(); ++i)
            QVERIFY(std::fabs(drawn[i] - 2.0 * expected[i]) < 1e-12);
    }

    void shouldForgetTheSecondOfAPairWithANewSeed()
    {
        // GIVEN
        SimRandom random(9);
        QVERIFY(std::isfinite(random.normal(1.0).x)); // three numbers: the fourth waits
        // WHEN
        random.seed(7);
        // THEN
        QVERIFY(isSame(random.normal(1.0), SimRandom(7).normal(1.0)));
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
