#include "trafo3d.h"

#include "Decompositions.h"
#include "PointSets.h"
#include "TestRegistry.h"

#include <Eigen/Core>
#include <QtTest>

#include <cmath>

namespace
{

using RowMatrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

} // namespace

class LeastSquaresTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSolveASquareSystemByHand()
    {
        double M[4] = {3, 1, 4, 2}, b[2] = {5, 6}, x[2], rest = -1;
        QCOMPARE(trafo3d_lsqsolve(x, b, M, 2, 2, &rest), 0);
        QVERIFY(std::fabs(x[0] - 2.0) < 1e-13);
        QVERIFY(std::fabs(x[1] + 1.0) < 1e-13);
        QCOMPARE(rest, 0.0);
    }

    void shouldLeaveATriangularSystemAsItIs()
    {
        double unit[4] = {1, 0, 0, 1}, half[4] = {0.5, 4, 0, 0.25}, b[2] = {3, -4}, c[2] = {3, -4}, x[2];
        double rest = -1;
        QCOMPARE(trafo3d_lsqsolve(x, b, unit, 2, 2, &rest), 0);
        QCOMPARE(x[0], 3.0);
        QCOMPARE(x[1], -4.0);
        QCOMPARE(trafo3d_lsqsolve(x, c, half, 2, 2, &rest), 0);
        QCOMPARE(x[0], 134.0);
        QCOMPARE(x[1], -16.0);
    }

    void shouldReportTheLengthThatNoSolutionReaches()
    {
        double M[3] = {1, 1, 1}, b[3] = {1, 2, 6}, x[1], rest = -1;
        QCOMPARE(trafo3d_lsqsolve(x, b, M, 3, 1, &rest), 0);
        QVERIFY(std::fabs(x[0] - 3.0) < 1e-14);
        QVERIFY(std::fabs(rest - std::sqrt(14.0)) < 1e-14);
    }

    void shouldAgreeWithEigen()
    {
        PointSets sets(31);
        for (int trial = 0; trial < 2000; ++trial) {
            const int n = sets.integer(1, 10), m = n + sets.integer(0, 25);
            RowMatrix M = RowMatrix::NullaryExpr(m, n, [&sets]() { return sets.uniform(-3, 3); });
            Eigen::VectorXd b = Eigen::VectorXd::NullaryExpr(m, [&sets]() { return sets.uniform(-9, 9); });
            const Eigen::VectorXd expected = Decompositions::leastSquares(M, b);
            const double expectedRest = (M * expected - b).norm();
            Eigen::VectorXd x(n);
            double rest = -1;
            QCOMPARE(trafo3d_lsqsolve(x.data(), b.data(), M.data(), m, n, &rest), 0);
            QVERIFY((x - expected).norm() < 1e-6 * (1 + expected.norm()));
            QVERIFY(std::fabs(rest - expectedRest) < 1e-6);
        }
    }

    void shouldRefuseMoreThanTenColumns()
    {
        double M[144] = {}, b[12] = {}, x[12], rest = -7;
        QCOMPARE(trafo3d_lsqsolve(x, b, M, 12, 11, &rest), -1);
        QCOMPARE(rest, -7.0);
    }

    void shouldRefuseFewerRowsThanColumns()
    {
        double M[6] = {1, 2, 3, 6, 5, 4}, b[2] = {1, 2}, x[3], rest = -7;
        QCOMPARE(trafo3d_lsqsolve(x, b, M, 2, 3, &rest), -2);
    }

    void shouldRefuseAColumnOfZeros()
    {
        double M[6] = {1, 0, 2, 0, 3, 0}, b[3] = {1, 2, 3}, x[2], rest = -7;
        QCOMPARE(trafo3d_lsqsolve(x, b, M, 3, 2, &rest), -2);
    }

    void shouldSolveWithAZeroOnTheDiagonal()
    {
        double M[4] = {0, 1, 2, 0}, b[2] = {3, 4}, x[2], rest = -1;
        QCOMPARE(trafo3d_lsqsolve(x, b, M, 2, 2, &rest), 0);
        QVERIFY(std::fabs(x[0] - 2.0) < 1e-14 && std::fabs(x[1] - 3.0) < 1e-14);
    }
};

ROOM_TEST_CLASS(LeastSquaresTest)

#include "LeastSquaresTest.moc"
