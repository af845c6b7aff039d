#include "FitTrust.h"

#include "Decompositions.h"
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

Eigen::Vector3d column(const MatchingPoint &point)
{
    return {point[0], point[1], point[2]};
}

Eigen::Matrix3Xd columns(const MatchingPoints &points)
{
    Eigen::Matrix3Xd matrix(3, static_cast<Eigen::Index>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        matrix.col(static_cast<Eigen::Index>(i)) = column(points[i]);
    return matrix;
}

/// Of the eight corners of the box around the points the one farthest from their centre.
Eigen::Vector3d farthestCorner(const Eigen::Matrix3Xd &points)
{
    const Eigen::Vector3d low = points.rowwise().minCoeff(), high = points.rowwise().maxCoeff();
    const Eigen::Vector3d centre = points.rowwise().mean();
    Eigen::Vector3d farthest = centre;
    for (int i = 0; i < 8; ++i) {
        const Eigen::Vector3d corner(i & 1 ? low(0) : high(0), i & 2 ? low(1) : high(1),
                                     i & 4 ? low(2) : high(2));
        if ((corner - centre).norm() > (farthest - centre).norm())
            farthest = corner;
    }
    return farthest;
}

/// The sum of d_k^2 / f_k^2 by the principal axes: the eigenvectors of the points' covariance.
double leverageOf(const Eigen::Matrix3Xd &points, const Eigen::Vector3d &place)
{
    const Eigen::Vector3d centre = points.rowwise().mean();
    const Eigen::Matrix3Xd centred = points.colwise() - centre;
    const Decompositions::PrincipalAxes principal =
        Decompositions::principalAxes(centred * centred.transpose() / static_cast<double>(points.cols()));
    double sum = 0.0;
    for (Eigen::Index axis = 0; axis < 3; ++axis) {
        const Eigen::Vector3d away = principal.axes.col(axis).cross(place - centre);
        sum += away.squaredNorm() / (principal.values.sum() - principal.values(axis));
    }
    return sum;
}

/// The root mean square that a closed form fit leaves.
double umeyamaResidual(const MatchingPoints &references, const MatchingPoints &measured)
{
    const Eigen::Matrix3Xd fixed = columns(references);
    const Eigen::Matrix3Xd moving = columns(measured);
    const Eigen::Matrix4d fit = Decompositions::bestFit(moving, fixed);
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
    void shouldBlameAPointFromThreeTimesTheResidualOn();
    void shouldBlameAPointFromAHundredthOfAMillimetreOn();
    void shouldNameTheFirstOfPointsThatDisturbAlike();
    void shouldLeaveNoPointOutOfFour();
    void shouldTakeTheLargestDistanceOfManyPoints();
    void shouldExpectTheErrorsOfASquareByHand();
    void shouldExpectTheErrorsByThePrincipalAxes();
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

void FitTrustTest::shouldBlameAPointFromThreeTimesTheResidualOn()
{
    MatchingPoints measured = lifted(plate, 3, 8.0);
    measured[0][0] += 0.5;
    MatchingEvaluation evaluation = inTableOrder(plate, measured);
    const double restMm = FitTrust::of(plate, evaluation).withoutWorst->rmsMm;
    evaluation.rmsMm = 3.0 * restMm;
    QVERIFY(FitTrust::of(plate, evaluation).withoutWorst->stands);
    evaluation.rmsMm = 2.999 * restMm;
    QVERIFY(!FitTrust::of(plate, evaluation).withoutWorst->stands);
}

void FitTrustTest::shouldBlameAPointFromAHundredthOfAMillimetreOn()
{
    MatchingEvaluation evaluation = inTableOrder(plate, lifted(plate, 3, 0.05));
    evaluation.rmsMm = 0.01;
    QVERIFY(FitTrust::of(plate, evaluation).withoutWorst->stands);
    evaluation.rmsMm = 0.0099;
    QVERIFY(!FitTrust::of(plate, evaluation).withoutWorst->stands);
}

void FitTrustTest::shouldNameTheFirstOfPointsThatDisturbAlike()
{
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    evaluation.mapped = plate;

    const FitTrust trust = FitTrust::of(plate, evaluation);

    QVERIFY(trust.withoutWorst);
    QCOMPARE(trust.withoutWorst->pair, 0);
    QCOMPARE(trust.withoutWorst->rmsMm, 0.0);
}

void FitTrustTest::shouldLeaveNoPointOutOfFour()
{
    const MatchingPoints references = {{0, 0, 0}, {1000, 0, 0}, {0, 500, 0}, {0, 0, 100}};

    QVERIFY(!FitTrust::of(references, inTableOrder(references, lifted(references, 3, 9.0))).withoutWorst);
    MatchingPoints five = references;
    five.push_back({700, 300, 50});
    QVERIFY(FitTrust::of(five, inTableOrder(five, lifted(five, 3, 9.0))).withoutWorst);
}

void FitTrustTest::shouldTakeTheLargestDistanceOfManyPoints()
{
    PointSets sets(7);
    const int most = static_cast<int>(FitTrust::mostFits);
    for (const int count : {most, most + 1}) {
        const MatchingPoints references = asPoints(sets.box(count, 1000.0));
        MatchingEvaluation evaluation = inTableOrder(references, lifted(references, 42, 5.0));
        QCOMPARE(FitTrust::of(references, evaluation).withoutWorst->pair, 42);
        QVERIFY(FitTrust::of(references, evaluation).withoutWorst->stands);

        evaluation.distancesMm[17] = 2.0 * evaluation.distancesMm[42];

        QCOMPARE(FitTrust::of(references, evaluation).withoutWorst->pair, count > most ? 17 : 42);
    }
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
    QCOMPARE(trust.expected->corner, (MatchingPoint{100, 100, 0}));
}

void FitTrustTest::shouldExpectTheErrorsByThePrincipalAxes()
{
    PointSets sets(17);
    for (int trial = 0; trial < 100; ++trial) {
        const int count = sets.integer(4, 9);
        const MatchingPoints references = asPoints(sets.box(count, trial % 2 == 0 ? 1000.0 : 1.0));
        MatchingEvaluation evaluation = inTableOrder(references, references);
        evaluation.rmsMm = 1.5;

        const FitTrust trust = FitTrust::of(references, evaluation);

        QVERIFY(trust.expected);
        const Eigen::Vector3d corner = column(trust.expected->corner);
        const double centreMm = 1.5 / std::sqrt(count - 2.0);
        const double leverage = leverageOf(columns(references), corner);
        QVERIFY(std::abs(trust.expected->centreMm - centreMm) < 1e-12);
        QVERIFY(std::abs(trust.expected->cornerMm - centreMm * std::sqrt(1.0 + leverage / 3.0)) < 1e-9);
        QCOMPARE(corner, farthestCorner(columns(references)));
    }
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
        const Eigen::Matrix4d fit = Decompositions::bestFit(columns(measured), columns(plate));
        const Eigen::Vector3d corner = column(trust.expected->corner);
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
