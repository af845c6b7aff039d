#include "RotationBound.h"

#include "Decompositions.h"
#include "PointSets.h"
#include "TestRegistry.h"

#include <Eigen/LU>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace
{

Eigen::Matrix3Xd centred(const MatchingPoints &list)
{
    Eigen::Matrix3Xd matrix(3, static_cast<Eigen::Index>(list.size()));
    for (std::size_t i = 0; i < list.size(); ++i)
        matrix.col(static_cast<Eigen::Index>(i)) << list[i][0], list[i][1], list[i][2];
    return matrix.colwise() - matrix.rowwise().mean().eval();
}

bool nearlyEqual(const MatchingPoints &list, const Eigen::Matrix3Xd &matrix)
{
    double most = 0.0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const Eigen::Vector3d point(list[i][0], list[i][1], list[i][2]);
        most = std::max(most, (point - matrix.col(static_cast<Eigen::Index>(i))).norm());
    }
    return static_cast<Eigen::Index>(list.size()) == matrix.cols() && most < 1e-14;
}

double largestOf(const MatchingPoints &list)
{
    double largest = 0.0;
    for (const MatchingPoint &point : list) {
        for (const double coordinate : point)
            largest = std::max(largest, std::fabs(coordinate));
    }
    return largest;
}

/// The least sum of squares over all rotations for the first `pairs` pairs, by singular values.
double leastSquares(const Eigen::Matrix3Xd &a, const Eigen::Matrix3Xd &b, int pairs)
{
    const Eigen::Matrix3d M = a.leftCols(pairs) * b.leftCols(pairs).transpose();
    const Eigen::Vector3d s = Decompositions::singularValues(M);
    const double lambda = s(0) + s(1) + (M.determinant() < 0 ? -s(2) : s(2));
    return a.leftCols(pairs).squaredNorm() + b.leftCols(pairs).squaredNorm() - 2.0 * lambda;
}

/// How far beside the least sum of squares the bound may stand.
struct Closeness {
    double above;
    double below;
};

/// Where the bound excludes what it must not, or the other way round; empty when it does neither.
QString faultOf(const MatchingPoints &references, const MatchingPoints &measured,
                const std::function<Closeness(double squares)> &closeness)
{
    const RotationBound bound(references, measured);
    const Eigen::Matrix3Xd a = centred(references) / bound.unitMm(), b = centred(measured) / bound.unitMm();
    RotationBound::Moments moments;
    for (int pair = 0; pair < int(references.size()); ++pair) {
        moments = bound.extended(moments, pair, pair);
        const double least = leastSquares(a, b, pair + 1);
        const auto [above, below] = closeness(moments.squares);
        if (bound.exceeds(moments, least + above) || !bound.exceeds(moments, least - below))
            return QStringLiteral("excludes wrongly at pair %1").arg(pair);
        // Of up to two pairs it is exact, of more the eighth step of an approximation.
        const double estimateError = std::fabs(RotationBound::estimate(moments) - least);
        if (!(estimateError < (pair < 2 ? 1e-9 : 2.5e-3) * moments.squares))
            return QStringLiteral("estimates badly at pair %1").arg(pair);
    }
    return {};
}

} // namespace

class RotationBoundTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldMeasureFromTheCentreInItsUnit();
    void shouldLeaveRoomForRoundingInASumAndLittleMore();
    void shouldExcludeJustBelowTheLeastSquaresAndNeverAbove();
    void shouldExcludeAsCloselyWhereverThePointsLie_data();
    void shouldExcludeAsCloselyWhereverThePointsLie();
    void shouldNeverExcludeWhatFitsExactly_data();
    void shouldNeverExcludeWhatFitsExactly();
    void shouldEstimateTheSquaresOfPointsWithoutExtent();
    void shouldBoundByLengthsWhatAllOrdersLeave();
};

void RotationBoundTest::shouldMeasureFromTheCentreInItsUnit()
{
    PointSets sets(65);
    for (int trial = 0; trial < 50; ++trial) {
        const int count = sets.integer(3, 12);
        const MatchingPoints references = asPoints(sets.box(count, 2000));
        const MatchingPoints measured = asPoints(sets.moved(sets.box(count, 10), 0.0));
        const RotationBound bound(references, measured);
        QVERIFY(nearlyEqual(bound.centredReferences(), centred(references) / bound.unitMm()));
        QVERIFY(nearlyEqual(bound.centredMeasured(), centred(measured) / bound.unitMm()));
        // A power of two above the largest of all coordinates.
        const double largest = std::max(largestOf(references), largestOf(measured));
        QCOMPARE(bound.unitMm(), std::exp2(std::floor(std::log2(largest)) + 1.0));
    }
}

/// A residual that was rounded down to single precision may have been greater by the sixteen-millionth part.
void RotationBoundTest::shouldLeaveRoomForRoundingInASumAndLittleMore()
{
    PointSets sets(67);
    for (int trial = 0; trial < 50; ++trial) {
        const int count = sets.integer(3, 30);
        const RotationBound bound(asPoints(sets.box(count, 2000)), asPoints(sets.box(count, 2000)));
        const double rmsMm = sets.uniform(0.1, 100);
        const double exact = count * std::pow(rmsMm / bound.unitMm(), 2);
        QVERIFY(bound.sumWithin(rmsMm) > exact * (1.0 + 2.0 / 16777216));
        QVERIFY(bound.sumWithin(rmsMm) < exact * (1.0 + 1e-6));
        // What fits exactly is off by the rounding of its coordinates.
        QVERIFY(bound.sumWithin(0.0) > count * 4e-12 * 4e-12);
        QVERIFY(bound.sumWithin(0.0) < count * 5e-12 * 5e-12);
    }
}

void RotationBoundTest::shouldExcludeJustBelowTheLeastSquaresAndNeverAbove()
{
    PointSets sets(61);
    for (int trial = 0; trial < 3000; ++trial) {
        const int count = sets.integer(3, 30);
        QCOMPARE(faultOf(asPoints(sets.box(count, 2000)), asPoints(sets.box(count, 2000)),
                         [](double) {
                             return Closeness{1e-12, 1e-6};
                         }),
                 QString());
    }
}

void RotationBoundTest::shouldExcludeAsCloselyWhereverThePointsLie_data()
{
    QTest::addColumn<double>("placeMm");
    QTest::addColumn<double>("spreadMm");
    QTest::newRow("small and far away") << 1e6 << 10.0;
    QTest::newRow("as large as can be") << 0.0 << 1e9;
    QTest::newRow("tiny") << 0.0 << 1e-6;
}

/// The points are centred in units of the largest coordinate, and then may be small numbers.
void RotationBoundTest::shouldExcludeAsCloselyWhereverThePointsLie()
{
    QFETCH(double, placeMm);
    QFETCH(double, spreadMm);
    PointSets sets(64);
    for (int trial = 0; trial < 300; ++trial) {
        const int count = sets.integer(3, 30);
        std::vector<double> values = sets.box(count, spreadMm);
        for (double &value : values)
            value += placeMm;
        QCOMPARE(faultOf(asPoints(values), asPoints(sets.box(count, spreadMm)),
                         [](double squares) {
                             return Closeness{1e-6 * squares, 1e-6 * squares};
                         }),
                 QString());
    }
}

void RotationBoundTest::shouldNeverExcludeWhatFitsExactly_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("space") << 0;
    QTest::newRow("plane") << 1;
    QTest::newRow("line") << 2;
    QTest::newRow("one place") << 3;
    QTest::newRow("mostly one place") << 4;
}

void RotationBoundTest::shouldNeverExcludeWhatFitsExactly()
{
    QFETCH(int, kind);
    PointSets sets(62);
    for (int trial = 0; trial < 3000; ++trial) {
        const int count = sets.integer(3, 50);
        std::vector<double> values = sets.box(count, sets.uniform(1, 3000));
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::size_t axis = i % 3;
            if (static_cast<int>(axis) >= 3 - kind || (kind == 4 && i > 5))
                values[i] = values[axis];
        }
        const MatchingPoints references = asPoints(values), measured = asPoints(sets.moved(values, 0.0));
        const RotationBound bound(references, measured);
        const double slack = 4e-12;
        RotationBound::Moments moments;
        for (int pair = 0; pair < count; ++pair) {
            moments = bound.extended(moments, pair, pair);
            QVERIFY(!bound.exceeds(moments, count * slack * slack));
        }
    }
}

void RotationBoundTest::shouldEstimateTheSquaresOfPointsWithoutExtent()
{
    PointSets sets(66);
    const RotationBound bound(MatchingPoints(4, MatchingPoint{1, 2, 3}), asPoints(sets.box(4, 100)));
    RotationBound::Moments moments;
    for (int pair = 0; pair < 4; ++pair) {
        moments = bound.extended(moments, pair, pair);
        QCOMPARE(RotationBound::estimate(moments), moments.squares);
    }
}

void RotationBoundTest::shouldBoundByLengthsWhatAllOrdersLeave()
{
    PointSets sets(63);
    for (int trial = 0; trial < 40; ++trial) {
        const int count = 6;
        const MatchingPoints references = asPoints(sets.box(count, 100));
        const MatchingPoints measured = asPoints(sets.moved(sets.box(count, 100), 0));
        const RotationBound bound(references, measured);
        const Eigen::Matrix3Xd a = centred(references) / bound.unitMm(),
                               b = centred(measured) / bound.unitMm();
        // Two pairs are taken: 0 with 3 and 4 with 1; the best order of the rest by lengths, tried out.
        const std::vector<char> referenceTaken = {1, 0, 0, 0, 1, 0}, measuredTaken = {0, 1, 0, 1, 0, 0};
        const std::vector<int> freeReferences = {1, 2, 3, 5};
        std::vector<int> freeMeasured = {0, 2, 4, 5};
        double least = 1e300;
        do {
            double sum = 0.0;
            for (std::size_t k = 0; k < freeMeasured.size(); ++k)
                sum += std::pow(a.col(freeReferences[k]).norm() - b.col(freeMeasured[k]).norm(), 2);
            least = std::min(least, sum);
        } while (std::next_permutation(freeMeasured.begin(), freeMeasured.end()));
        QVERIFY(std::fabs(bound.lengthRest(referenceTaken, measuredTaken) - least) < 1e-12);
    }
}

ROOM_TEST_CLASS(RotationBoundTest)

#include "RotationBoundTest.moc"
