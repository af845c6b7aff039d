#include "FitTrust.h"

#include "MatchingEvaluation.h"
#include "PointSets.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace
{

using Order = MatchingEvaluation::Order;

MatchingEvaluation inTableOrder(const MatchingPoints &references, const MatchingPoints &measured)
{
    return MatchingEvaluation::of(references, measured, Order::Preserved, {});
}

Eigen::Matrix3Xd columns(const MatchingPoints &points)
{
    Eigen::Matrix3Xd matrix(3, static_cast<Eigen::Index>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        matrix.col(static_cast<Eigen::Index>(i)) = Eigen::Vector3d(points[i][0], points[i][1], points[i][2]);
    return matrix;
}

/// The root mean square that a closed form fit leaves.
double umeyamaResidual(const MatchingPoints &references, const MatchingPoints &measured)
{
    const Eigen::Matrix3Xd fixed = columns(references);
    const Eigen::Matrix3Xd moving = columns(measured);
    const Eigen::Matrix4d fit = Eigen::umeyama(moving, fixed, false);
    const Eigen::Matrix3Xd mapped =
        (fit.topLeftCorner<3, 3>() * moving).colwise() + Eigen::Vector3d(fit.topRightCorner<3, 1>());
    return std::sqrt((mapped - fixed).colwise().squaredNorm().mean());
}

const MatchingPoints plate = {{0, 0, 0},   {1000, 0, 0},    {1000, 600, 0},
                              {0, 600, 0}, {500, 300, 200}, {200, 500, 100}};

MatchingPoints lifted(MatchingPoints points, std::size_t index, double mm)
{
    points[index][2] += mm;
    return points;
}

} // namespace

class FitTrustTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellTheResidualWithoutTheWorstPoint();
    void shouldCountPairsByTheReferencePoints();
    void shouldNotBlameAPointForNoiseOfAll();
    void shouldNotBlameAPointForRounding();
    void shouldLeaveNoPointOutOfFour();
    void shouldTakeTheLargestDistanceOfManyPoints();
    void shouldExpectTheErrorsOfASquareByHand();
    void shouldExpectTheErrorsThatTrialsShow();
    void shouldExpectNothingOfPointsOnALine();
    void shouldSayNothingOfAFailedMatching();
};

void FitTrustTest::shouldTellTheResidualWithoutTheWorstPoint()
{
    MatchingPoints measured = lifted(plate, 3, 8.0);
    measured[0][0] += 0.02;

    const FitTrust trust = FitTrust::of(plate, inTableOrder(plate, measured));

    MatchingPoints references = plate;
    references.erase(references.begin() + 3);
    measured.erase(measured.begin() + 3);
    QVERIFY(trust.withoutWorst);
    QCOMPARE(trust.withoutWorst->pair, 3);
    QVERIFY(std::abs(trust.withoutWorst->rmsMm - umeyamaResidual(references, measured)) < 1e-3);
    QVERIFY(trust.withoutWorst->rmsMm < 0.02);
    QVERIFY(trust.withoutWorst->stands);
}

void FitTrustTest::shouldCountPairsByTheReferencePoints()
{
    MatchingPoints measured = lifted(plate, 1, 8.0);
    std::rotate(measured.begin(), measured.begin() + 2, measured.end());

    const FitTrust trust = FitTrust::of(plate, MatchingEvaluation::of(plate, measured, Order::Searched, {}));

    QVERIFY(trust.withoutWorst);
    QCOMPARE(trust.withoutWorst->pair, 1);
}

void FitTrustTest::shouldNotBlameAPointForNoiseOfAll()
{
    PointSets sets(5);
    MatchingPoints measured = plate;
    for (MatchingPoint &point : measured)
        point = {point[0] + sets.noise(0.5), point[1] + sets.noise(0.5), point[2] + sets.noise(0.5)};

    const FitTrust trust = FitTrust::of(plate, inTableOrder(plate, measured));

    QVERIFY(trust.withoutWorst);
    QVERIFY(!trust.withoutWorst->stands);
}

void FitTrustTest::shouldNotBlameAPointForRounding()
{
    const MatchingPoints measured = lifted(plate, 3, 0.004);

    const FitTrust trust = FitTrust::of(plate, inTableOrder(plate, measured));

    QVERIFY(trust.withoutWorst);
    QVERIFY(!trust.withoutWorst->stands);
}

void FitTrustTest::shouldLeaveNoPointOutOfFour()
{
    const MatchingPoints references = {{0, 0, 0}, {1000, 0, 0}, {0, 500, 0}, {0, 0, 100}};

    QVERIFY(!FitTrust::of(references, inTableOrder(references, lifted(references, 3, 9.0))).withoutWorst);
}

void FitTrustTest::shouldTakeTheLargestDistanceOfManyPoints()
{
    PointSets sets(7);
    const MatchingPoints references = asPoints(sets.box(static_cast<int>(FitTrust::mostFits) + 1, 1000.0));

    const FitTrust trust = FitTrust::of(references, inTableOrder(references, lifted(references, 42, 5.0)));

    QVERIFY(trust.withoutWorst);
    QCOMPARE(trust.withoutWorst->pair, 42);
    QVERIFY(trust.withoutWorst->stands);
}

/// Four points at (+-100, 0, 0) and (0, +-100, 0): f = 70.711 about x and about y, 100 about z. The corner
/// (100, 100, 0) is 100 from x and from y and 141.42 from z: 2 + 2 + 2 = 6, so its error is sqrt(3) times
/// that of the centre.
void FitTrustTest::shouldExpectTheErrorsOfASquareByHand()
{
    const MatchingPoints references = {{100, 0, 0}, {0, 100, 0}, {-100, 0, 0}, {0, -100, 0}};
    MatchingEvaluation evaluation = inTableOrder(references, references);
    evaluation.rmsMm = 2.0;

    const FitTrust trust = FitTrust::of(references, evaluation);

    QVERIFY(trust.expected);
    QCOMPARE(trust.expected->centreMm, 2.0 / std::sqrt(2.0));
    QCOMPARE(trust.expected->cornerMm, std::sqrt(6.0));
    QCOMPARE(std::abs(trust.expected->corner[0]), 100.0);
    QCOMPARE(std::abs(trust.expected->corner[1]), 100.0);
}

void FitTrustTest::shouldExpectTheErrorsThatTrialsShow()
{
    PointSets sets(16);
    const Eigen::Vector3d centre = columns(plate).rowwise().mean();
    double centreSquares = 0.0;
    double cornerSquares = 0.0;
    double centreExpected = 0.0;
    double cornerExpected = 0.0;
    for (int trial = 0; trial < 2000; ++trial) {
        MatchingPoints measured = plate;
        for (MatchingPoint &point : measured)
            point = {point[0] + sets.noise(0.5), point[1] + sets.noise(0.5), point[2] + sets.noise(0.5)};
        const FitTrust trust = FitTrust::of(plate, inTableOrder(plate, measured));
        QVERIFY(trust.expected);
        const Eigen::Matrix4d fit = Eigen::umeyama(columns(measured), columns(plate), false);
        const Eigen::Vector3d corner(trust.expected->corner[0], trust.expected->corner[1],
                                     trust.expected->corner[2]);
        centreSquares += ((fit * centre.homogeneous()).head<3>() - centre).squaredNorm();
        cornerSquares += ((fit * corner.homogeneous()).head<3>() - corner).squaredNorm();
        centreExpected += trust.expected->centreMm * trust.expected->centreMm;
        cornerExpected += trust.expected->cornerMm * trust.expected->cornerMm;
    }
    QVERIFY(std::abs(centreSquares / centreExpected - 1.0) < 0.1);
    QVERIFY(std::abs(cornerSquares / cornerExpected - 1.0) < 0.1);
}

void FitTrustTest::shouldExpectNothingOfPointsOnALine()
{
    const MatchingPoints line = {{0, 0, 0}, {100, 0, 0}, {300, 0, 0}, {900, 0, 0}};
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    evaluation.rmsMm = 1.0;
    evaluation.mapped = line;

    QVERIFY(!FitTrust::of(line, evaluation).expected);
}

void FitTrustTest::shouldSayNothingOfAFailedMatching()
{
    const FitTrust trust = FitTrust::of(plate, inTableOrder(plate, {}));
    QVERIFY(!trust.expected);
    QVERIFY(!trust.withoutWorst);
}

ROOM_TEST_CLASS(FitTrustTest)

#include "FitTrustTest.moc"
