#include "trafo3d.h"

#include "AllocationCounter.h"
#include "LiteralFit.h"
#include "PointSets.h"
#include "TestLoad.h"
#include "TestRegistry.h"
#include "TransformChecks.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <cmath>

using namespace TransformChecks;

class RefinementTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReproduceAQuarterTurnAndAShift();
    void shouldLeaveEqualSetsUnchanged();
    void shouldReachTheResidualOfTheClosedForm();
    void shouldNeverEndWorseThanTheStartByMoreThanTheThreshold();
    void shouldAgreeWithTheLiteralFit_data();
    void shouldAgreeWithTheLiteralFit();
    void shouldWriteNothingOnFailure();
    void shouldRefuseCoincidingPoints_data();
    void shouldRefuseCoincidingPoints();
    void shouldRejectAStepWhoseSineExceedsOne();
    void shouldTryAStepTenTimes_data();
    void shouldTryAStepTenTimes();
    void shouldNeedThreeRowsForEachParameter();
    void shouldHoldTheThirdRotationWithFiveParameters();
    void shouldSettleTwoPairsWithFiveParametersAndAScale();
    void shouldFindAScaleAndDivideTheWholeTransform();
    void shouldFitMoreThanFiftyPairs_data();
    void shouldFitMoreThanFiftyPairs();
    void shouldTakeNoMemoryForUpToFiftyPairs();
    void shouldHandOutRigidTransformsOnly();
};

void RefinementTest::shouldReproduceAQuarterTurnAndAShift()
{
    const Points A = {0, 0, 0, 300, 0, 0, 0, 200, 0, 0, 0, 100, 50, 60, 70};
    Points B;
    for (std::size_t i = 0; i < A.size(); i += 3)
        B.insert(B.end(), {-A[i + 1] + 100, A[i] + 100, A[i + 2] + 100});
    Transform T;
    QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
    const Transform start = T;
    double rms = -1;
    QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), 5, &rms), 0);
    QCOMPARE(rms, 0.0);
    QCOMPARE(T, start);
    QCOMPARE(T, (Transform{0, 1, 0, -100, -1, 0, 0, 100, 0, 0, 1, -100, 0, 0, 0, 1}));
}

void RefinementTest::shouldLeaveEqualSetsUnchanged()
{
    PointSets sets(12);
    const Points A = sets.box(7, 1500);
    Transform T = identity;
    double rms = -1;
    QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, A.data(), A.data(), 7, &rms), 0);
    QCOMPARE(rms, 0.0);
    QCOMPARE(T, identity);
}

void RefinementTest::shouldReachTheResidualOfTheClosedForm()
{
    PointSets sets(13);
    int converged = 0;
    for (int trial = 0; trial < 6000; ++trial) {
        const Points A = sets.box(3 + trial % 48, sets.uniform(50, 5000));
        const Points B = sets.moved(A, sets.uniform(0, 5));
        if (widthOf(A) < 0.15) // the threshold of 0.001 mm ends the slow approach on a thin triangle early
            continue;
        Transform T;
        double rms = -1;
        QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
        if (trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), countOf(A), &rms) != 0)
            continue;
        ++converged;
        QVERIFY(std::fabs(rms - umeyamaRms(A, B)) < 0.001);
        QVERIFY(std::fabs(rms - rmsOf(Eigen::Map<const RowMatrix>(T.data()), A, B)) < 1e-9);
    }
    QVERIFY2(converged > 5700, qPrintable(QString::number(converged)));
}

void RefinementTest::shouldNeverEndWorseThanTheStartByMoreThanTheThreshold()
{
    PointSets sets(14);
    for (int trial = 0; trial < 2000; ++trial) {
        const Points A = sets.box(10, 1000);
        const Points B = sets.moved(A, 2.0);
        Transform T;
        QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
        const double before = rmsOf(Eigen::Map<const RowMatrix>(T.data()), A, B);
        double rms = -1;
        QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), 10, &rms), 0);
        QVERIFY(rms <= before + 0.001);
    }
}

void RefinementTest::shouldAgreeWithTheLiteralFit_data()
{
    QTest::addColumn<int>("dof");
    QTest::addColumn<bool>("withScale");
    QTest::addColumn<bool>("wrongPairs");
    QTest::newRow("rigid, right pairs") << 6 << false << false;
    QTest::newRow("rigid, wrong pairs") << 6 << false << true;
    QTest::newRow("five parameters") << 5 << false << false;
    QTest::newRow("with scale") << 6 << true << false;
    QTest::newRow("five parameters and scale, wrong pairs") << 5 << true << true;
}

void RefinementTest::shouldAgreeWithTheLiteralFit()
{
    QFETCH(int, dof);
    QFETCH(bool, withScale);
    QFETCH(bool, wrongPairs);
    PointSets sets(15);
    int successes = 0, failures = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        const Points A = sets.box(4 + trial % 9, 2000);
        const Points moved = sets.moved(A, 1.0);
        const Points B = wrongPairs ? sets.shuffled(moved) : moved;
        Transform T, L;
        QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()),
                 LiteralFit::start(L.data(), A.data(), B.data()));
        double rms = -1, literalRms = -1;
        const int code =
            trafo3d_opttrafo_n(T.data(), dof, nullptr, withScale, A.data(), B.data(), countOf(A), &rms);
        const int literal =
            LiteralFit::refine(L.data(), dof, withScale, A.data(), B.data(), countOf(A), &literalRms);
        QCOMPARE(code, literal);
        code == 0 ? ++successes : ++failures;
        QVERIFY(std::fabs(rms - literalRms) < 1e-6);
        for (std::size_t i = 0; i < T.size(); ++i)
            QVERIFY(std::fabs(T[i] - L[i]) < 1e-5);
    }
    QVERIFY(wrongPairs ? failures > 300 : successes > 1500);
}

void RefinementTest::shouldWriteNothingOnFailure()
{
    PointSets sets(16);
    int codes[4] = {0, 0, 0, 0};
    for (int trial = 0; trial < 2000; ++trial) {
        const Points A = sets.box(8, 2000);
        const Points B = sets.shuffled(sets.moved(A, 0.3));
        Transform T;
        QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
        const Transform start = T;
        double rms = -77;
        const int code = trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), 8, &rms);
        ++codes[-code];
        QCOMPARE(T == start, code != 0);
        QCOMPARE(std::equal_to<double>()(rms, -77.0), code != 0);
    }
    QVERIFY(codes[0] > 100 && codes[3] > 100);
}

void RefinementTest::shouldRefuseCoincidingPoints_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 3, 4, 7, 10, 13, 50, 60})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void RefinementTest::shouldRefuseCoincidingPoints()
{
    QFETCH(int, count);
    Points A, B;
    for (int i = 0; i < count; ++i) {
        A.insert(A.end(), {1, 2, 3});
        B.insert(B.end(), {77.7, 0.1, 1000.0 / 3.0});
    }
    Transform T = identity;
    double rms = -77;
    QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), count, &rms), -1);
    QCOMPARE(T, identity);
    QCOMPARE(rms, -77.0);
}

void RefinementTest::shouldRejectAStepWhoseSineExceedsOne()
{
    // A start that is half a turn off on a flat set: the first steps overshoot every sine.
    const Points A = {0, 0, 0, 1000, 0, 0, 0, 1000, 0, 1000, 1000, 1};
    const Points B = {1000, 1000, 0, 0, 1000, 0, 1000, 0, 0, 0, 0, 1};
    const double step[7] = {101, 0, 0, 0, 0, 0, 0};
    Transform T;
    trafo3d_applyparams(T.data(), identity.data(), step);
    QVERIFY(std::isnan(T[5]));
    T = identity;
    double rms = -77;
    const int code = trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), 4, &rms);
    QVERIFY(code == 0 || T == identity);
    QVERIFY(!std::isnan(rms));
    for (const double value : T)
        QVERIFY(std::isfinite(value));
}

void RefinementTest::shouldTryAStepTenTimes_data()
{
    QTest::addColumn<double>("sine");
    QTest::addColumn<int>("code");
    QTest::newRow("the tenth is below 1") << 400.0 << 0;
    QTest::newRow("the eleventh would be") << 800.0 << -2;
}

void RefinementTest::shouldTryAStepTenTimes()
{
    // Two points close to the x axis are to move away from it in another direction: that asks for a turn
    // about x whose sine is the ratio of the two distances, and each trial halves it.
    QFETCH(double, sine);
    const double width = 0.001;
    const Points A = {500, 0, 0, -500, 0, 0, 0, 0, sine * width, 0, 0, -sine * width};
    const Points B = {500, 0, 0, -500, 0, 0, 0, width, 0, 0, -width, 0};
    Transform T = identity;
    double rms = -77;
    QTEST(trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), 4, &rms), "code");
}

void RefinementTest::shouldNeedThreeRowsForEachParameter()
{
    PointSets sets(17);
    const Points A = sets.box(2, 100), B = sets.box(2, 100);
    Transform T = identity;
    double rms = -77, scale = -77;
    QCOMPARE(trafo3d_opttrafo(T.data(), &scale, A.data(), B.data(), 2, &rms), -1);
    QCOMPARE(trafo3d_opttrafo_n(T.data(), 5, nullptr, 0, A.data(), B.data(), 1, &rms), -1);
    QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, nullptr, nullptr, 0, &rms), -1);
    QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, nullptr, nullptr, -3, &rms), -1);
    QCOMPARE(T, identity);
    QCOMPARE(scale, -77.0);
}

void RefinementTest::shouldHoldTheThirdRotationWithFiveParameters()
{
    const Points B = {100, 0, 0, 0, 100, 0, -100, 0, 0, 0, -100, 0};
    Points A;
    const double s = std::sin(0.02), c = std::cos(0.02);
    for (std::size_t i = 0; i < B.size(); i += 3)
        A.insert(A.end(), {c * B[i] - s * B[i + 1], s * B[i] + c * B[i + 1], 7.0});
    Transform T = identity;
    double rms = -1;
    QCOMPARE(trafo3d_opttrafo_n(T.data(), 5, nullptr, 0, A.data(), B.data(), 4, &rms), 0);
    QVERIFY(std::fabs(rms - 200 * std::sin(0.01)) < 1e-3);
    QVERIFY(std::fabs(T[1]) < 1e-9 && std::fabs(T[11] - 7.0) < 1e-3);
    QCOMPARE(trafo3d_opttrafo_n(T.data(), 6, nullptr, 0, A.data(), B.data(), 4, &rms), 0);
    QVERIFY(rms < 1e-3);
    QVERIFY(std::fabs(T[4] - s) < 1e-5);
}

void RefinementTest::shouldSettleTwoPairsWithFiveParametersAndAScale()
{
    // As many numbers as parameters: turned a little about x and y, and stretched.
    const Eigen::Matrix3d turn = (Eigen::AngleAxisd(0.03, Eigen::Vector3d::UnitX()) *
                                  Eigen::AngleAxisd(-0.02, Eigen::Vector3d::UnitY()))
                                     .toRotationMatrix();
    const Points B = {10, 20, 500, -30, 40, -700};
    Points A(6);
    Eigen::Map<Eigen::Matrix3Xd>(A.data(), 3, 2) =
        (1.02 * turn * Eigen::Map<const Eigen::Matrix3Xd>(B.data(), 3, 2)).colwise() +
        Eigen::Vector3d(5, 6, -7);
    Transform T = identity;
    double rms = -1, scale = -1;
    QCOMPARE(trafo3d_opttrafo_n(T.data(), 5, &scale, 1, A.data(), B.data(), 2, &rms), 0);
    QVERIFY(rms < 1e-3);
    QVERIFY(std::fabs(scale - 1.02) < 1e-5);
}

void RefinementTest::shouldFindAScaleAndDivideTheWholeTransform()
{
    PointSets sets(18);
    const Points B = sets.box(9, 800);
    Points A = sets.moved(B, 0.0);
    for (double &value : A)
        value *= 1.02;
    const Eigen::Matrix4d expected = umeyamaFit(A, B, true);
    Transform start;
    QCOMPARE(trafo3d_3trafo(start.data(), A.data(), B.data()), 0);
    double rms = -1, scale = -1;
    Transform T = start;
    T[12] = T[15] = 9.0;
    QCOMPARE(trafo3d_opttrafo(T.data(), &scale, A.data(), B.data(), 9, &rms), 0);
    QCOMPARE(T[12] + T[15], 18.0);
    QVERIFY(std::fabs(scale - 1.02) < 1e-5);
    QVERIFY(std::fabs(std::hypot(T[0], T[1], T[2]) - 1.0) < 1e-12);
    for (int axis = 0; axis < 3; ++axis)
        QVERIFY(std::fabs(T[static_cast<std::size_t>(4 * axis + 3)] - expected(axis, 3) / 1.02) < 0.01);
    // Any flag but 1 frees the scale without taking it out.
    T = start;
    scale = -1;
    QCOMPARE(trafo3d_opttrafo_n(T.data(), 6, &scale, 2, A.data(), B.data(), 9, &rms), 0);
    QCOMPARE(scale, -1.0);
    QVERIFY(std::fabs(std::hypot(T[0], T[1], T[2]) - 1.02) < 1e-5);
}

void RefinementTest::shouldFitMoreThanFiftyPairs_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {49, 50, 51, 52, 53, 60, 200, 5000})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void RefinementTest::shouldFitMoreThanFiftyPairs()
{
    QFETCH(int, count);
    PointSets sets(19);
    const Points A = sets.box(count, 2000);
    const Points B = sets.moved(A, 1.0);
    Transform T;
    double rms = -1;
    QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
    QCOMPARE(trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), count, &rms), 0);
    QVERIFY(std::fabs(rms - umeyamaRms(A, B)) < 0.001);
}

void RefinementTest::shouldTakeNoMemoryForUpToFiftyPairs()
{
    if (TestLoad::isSanitized())
        QSKIP("The sanitizer takes memory by itself.");
    PointSets sets(21);
    const Points A = sets.box(60, 2000);
    const Points B = sets.moved(A, 1.0);
    double rms = -1;
    for (const int count : {3, 4, 13, 50, 60}) {
        Transform T;
        QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
        const std::size_t before = AllocationCounter::count();
        const int code = trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), count, &rms);
        const bool tookMemory = AllocationCounter::count() != before;
        QCOMPARE(code, 0);
        QCOMPARE(tookMemory, count > 50);
    }
}

void RefinementTest::shouldHandOutRigidTransformsOnly()
{
    PointSets sets(20);
    for (int trial = 0; trial < 3000; ++trial) {
        const Points A = sets.box(6, 2000);
        const Points B = sets.shuffled(sets.moved(A, 1.0));
        Transform T;
        double rms;
        QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
        QVERIFY(leanOf(T) < 1e-9);
        trafo3d_opttrafo(T.data(), nullptr, A.data(), B.data(), 6, &rms);
        QVERIFY(leanOf(T) < 1e-9);
    }
}

ROOM_TEST_CLASS(RefinementTest)

#include "RefinementTest.moc"
