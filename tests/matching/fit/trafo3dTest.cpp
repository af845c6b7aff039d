#include "trafo3d.h"

#include "LiteralFit.h"
#include "PointSets.h"
#include "TestRegistry.h"
#include "TransformChecks.h"

#include <QtTest>

#include <cmath>

using namespace TransformChecks;

class trafo3dTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRefuseDegenerateTriples_data();
    void shouldRefuseDegenerateTriples();
    void shouldStartWithTheFirstPairExactAndTheSecondInDirection();
    void shouldStartFromPointsOneMillimetreApart();
    void shouldStartWithARotationForTriplesCollinearUpToRounding();
    void shouldApplyEachParameterInItsUnit();
    void shouldScaleOnlyTheRotationBlock();
    void shouldTransformPointsInPlace();
    void shouldTransformNothingForACountOfZeroOrBelow();
};

void trafo3dTest::shouldRefuseDegenerateTriples_data()
{
    QTest::addColumn<Points>("triple");
    QTest::newRow("first two equal") << Points{1, 2, 3, 1, 2, 3, 4, 5, 7};
    QTest::newRow("first and third equal") << Points{1, 2, 3, 4, 5, 7, 1, 2, 3};
    QTest::newRow("last two equal") << Points{1, 2, 3, 4, 5, 7, 4, 5, 7};
    QTest::newRow("all equal") << Points{1, 2, 3, 1, 2, 3, 1, 2, 3};
    QTest::newRow("collinear") << Points{0, 0, 0, 100, 0, 0, 200, 0, 0};
    QTest::newRow("collinear aslant") << Points{1, 1, 1, 2, 3, 4, 3, 5, 7};
}

void trafo3dTest::shouldRefuseDegenerateTriples()
{
    QFETCH(Points, triple);
    const Points good = {0, 0, 0, 100, 0, 0, 0, 50, 0};
    Transform T = identity;
    QCOMPARE(trafo3d_3trafo(T.data(), triple.data(), good.data()), -1);
    QCOMPARE(trafo3d_3trafo(T.data(), good.data(), triple.data()), -1);
    QCOMPARE(T, identity);
}

void trafo3dTest::shouldStartWithTheFirstPairExactAndTheSecondInDirection()
{
    const Points A = {10, 20, 30, 110, 20, 30, 10, 70, 30};
    const Points B = {0, 0, 0, 0, 0, 40, 0, -90, 15};
    Transform T;
    QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
    Points mapped(9);
    trafo3d_transformpoints(mapped.data(), T.data(), B.data(), 3);
    const Points expected = {10, 20, 30, 50, 20, 30, 25, 110, 30};
    for (std::size_t i = 0; i < mapped.size(); ++i)
        QVERIFY(std::fabs(mapped[i] - expected[i]) < 1e-12);
}

void trafo3dTest::shouldStartFromPointsOneMillimetreApart()
{
    const Points A = {0, 0, 0, 1, 0, 0, 0, 1, 0}, B = {5, 5, 5, 5, 6, 5, 5, 5, 6};
    Transform T;
    QCOMPARE(trafo3d_3trafo(T.data(), A.data(), B.data()), 0);
    QCOMPARE(T, (Transform{0, 1, 0, -5, 0, 0, 1, -5, 1, 0, 0, -5, 0, 0, 0, 1}));
}

void trafo3dTest::shouldStartWithARotationForTriplesCollinearUpToRounding()
{
    PointSets sets(11);
    const Points good = {0, 0, 0, 100, 0, 0, 0, 50, 0};
    int passed = 0;
    for (int trial = 0; trial < 20000; ++trial) {
        Points triple(9);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double from = 0.01 * sets.integer(-200000, 200000);
            const double along = 0.01 * sets.integer(-20000, 20000);
            triple[axis] = from;
            triple[3 + axis] = from + along;
            triple[6 + axis] = from + 3 * along;
        }
        Transform T, L;
        const int code = trafo3d_3trafo(T.data(), good.data(), triple.data());
        QCOMPARE(code, LiteralFit::start(L.data(), good.data(), triple.data()));
        if (code != 0)
            continue;
        ++passed;
        QVERIFY2(leanOf(T) < 1e-9, qPrintable(QString::number(leanOf(T))));
    }
    QVERIFY(passed > 10000);
}

void trafo3dTest::shouldApplyEachParameterInItsUnit()
{
    const double s = 0.01, c = std::sqrt(1 - s * s);
    const Transform expected[7] = {{1, 0, 0, 5, 0, c, -s, 6, 0, s, c, 7, 0, 0, 0, 1},
                                   {c, 0, s, 5, 0, 1, 0, 6, -s, 0, c, 7, 0, 0, 0, 1},
                                   {c, -s, 0, 5, s, c, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1},
                                   {1, 0, 0, 5.1, 0, 1, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1},
                                   {1, 0, 0, 5, 0, 1, 0, 6.1, 0, 0, 1, 7, 0, 0, 0, 1},
                                   {1, 0, 0, 5, 0, 1, 0, 6, 0, 0, 1, 7.1, 0, 0, 0, 1},
                                   {1.001, 0, 0, 5, 0, 1.001, 0, 6, 0, 0, 1.001, 7, 0, 0, 0, 1}};
    const Transform base = {1, 0, 0, 5, 0, 1, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1};
    for (std::size_t parameter = 0; parameter < 7; ++parameter) {
        double step[7] = {0, 0, 0, 0, 0, 0, 0};
        step[parameter] = 1.0;
        Transform T;
        QCOMPARE(trafo3d_applyparams(T.data(), base.data(), step), 0);
        for (std::size_t i = 0; i < T.size(); ++i)
            QVERIFY(std::fabs(T[i] - expected[parameter][i]) < 1e-15);
    }
}

void trafo3dTest::shouldScaleOnlyTheRotationBlock()
{
    const Transform base = {0, -2, 0, 10, 2, 0, 0, 20, 0, 0, 2, 30, 0.5, 0.25, 0.125, 3};
    const double step[7] = {0, 0, 0, 10, -20, 30, 500};
    Transform T = base;
    trafo3d_applyparams(T.data(), T.data(), step);
    QCOMPARE(T, (Transform{0, -3, 0, 11, 3, 0, 0, 18, 0, 0, 3, 33, 0.5, 0.25, 0.125, 3}));
}

void trafo3dTest::shouldTransformPointsInPlace()
{
    const Transform T = {0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 30, 9, 9, 9, 9};
    Points points = {1, 2, 3, -4, 5, -6};
    trafo3d_transformpoints(points.data(), T.data(), points.data(), 2);
    QCOMPARE(points, (Points{8, 21, 33, 5, 16, 24}));
}

void trafo3dTest::shouldTransformNothingForACountOfZeroOrBelow()
{
    double untouched[3] = {7, 8, 9};
    const double points[3] = {1, 2, 3};
    trafo3d_transformpoints(untouched, identity.data(), points, 0);
    trafo3d_transformpoints(untouched, identity.data(), points, -4);
    QCOMPARE(untouched[0] + untouched[1] + untouched[2], 24.0);
}

ROOM_TEST_CLASS(trafo3dTest)

#include "trafo3dTest.moc"
