#include "RotationCosts.h"

#include "Decompositions.h"
#include "PointSets.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

Eigen::Matrix3Xd matrixOf(const MatchingPoints &points)
{
    Eigen::Matrix3Xd matrix(3, static_cast<Eigen::Index>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        matrix.col(static_cast<Eigen::Index>(i)) << points[i][0], points[i][1], points[i][2];
    return matrix;
}

/// Points around the origin; for some kinds thin along an axis.
MatchingPoints centred(PointSets &sets, int count, int kind)
{
    Eigen::Matrix3Xd points = matrixOf(asPoints(sets.box(count, sets.uniform(1, 5))));
    if (kind > 0)
        points.row(0) *= 1e-3;
    if (kind > 1)
        points.row(1) *= 1e-3;
    points = (points.colwise() - points.rowwise().mean().eval()).eval();
    MatchingPoints result;
    for (Eigen::Index i = 0; i < points.cols(); ++i)
        result.push_back({points(0, i), points(1, i), points(2, i)});
    return result;
}

MatchingPoints scaled(MatchingPoints points, double factor)
{
    for (MatchingPoint &point : points)
        point = {factor * point[0], factor * point[1], factor * point[2]};
    return points;
}

Eigen::Quaterniond randomTurn(PointSets &sets)
{
    return Eigen::Quaterniond(sets.noise(1), sets.noise(1), sets.noise(1), sets.noise(1)).normalized();
}

RotationCell::Quaternion asQuaternion(const Eigen::Quaterniond &q)
{
    return {q.w(), q.x(), q.y(), q.z()};
}

Eigen::Matrix3Xd ordered(const Eigen::Matrix3Xd &points, const std::vector<int> &order)
{
    Eigen::Matrix3Xd result(3, points.cols());
    for (std::size_t i = 0; i < order.size(); ++i)
        result.col(static_cast<Eigen::Index>(i)) = points.col(order[i]);
    return result;
}

/// The rotation that leaves the least, by singular values.
Eigen::Matrix3d bestRotation(const Eigen::Matrix3Xd &a, const Eigen::Matrix3Xd &b)
{
    return Decompositions::nearestRotation(a * b.transpose());
}

} // namespace

class RotationCostsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAddUpToTheSquaredDistances()
    {
        PointSets sets(511);
        for (int trial = 0; trial < 100; ++trial) {
            const int count = sets.integer(1, 12);
            const MatchingPoints references = centred(sets, count, 0), measured = centred(sets, count, 0);
            const RotationCosts costs(references, measured);
            const Eigen::Quaterniond q = randomTurn(sets);
            std::vector<double> filled(references.size() * references.size());
            costs.fill(filled, RotationCell::matrixOf(asQuaternion(q)), AllowedPairs(count));
            const Eigen::Matrix3Xd rest = matrixOf(references) - q.toRotationMatrix() * matrixOf(measured);
            double sum = costs.total();
            for (int i = 0; i < count; ++i)
                sum += filled[static_cast<std::size_t>(i * count + i)];
            QVERIFY(std::fabs(sum - rest.squaredNorm()) < 1e-9);
        }
    }

    void shouldBoundWhatATurnAwayFromTheBestRotationCosts_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("space") << 0;
        QTest::newRow("plane") << 1;
        QTest::newRow("line") << 2;
    }

    void shouldBoundWhatATurnAwayFromTheBestRotationCosts()
    {
        QFETCH(int, kind);
        PointSets sets(512);
        double closest = 0.0;
        for (int trial = 0; trial < 2000; ++trial) {
            const int count = sets.integer(3, 12);
            const MatchingPoints references = centred(sets, count, kind);
            const MatchingPoints measured = trial % 2 ? references : centred(sets, count, kind);
            const RotationCosts costs(references, measured);
            const Eigen::Matrix3Xd a = matrixOf(references), b = matrixOf(measured);
            const Eigen::Matrix3d best = bestRotation(a, b);
            const Eigen::Quaterniond centre =
                trial % 3
                    ? randomTurn(sets)
                    : Eigen::Quaterniond(best) *
                          Eigen::Quaterniond(Eigen::AngleAxisd(0.1, randomTurn(sets).vec().normalized()));
            const Eigen::Vector3d v = (centre.conjugate() * Eigen::Quaterniond(best)).vec();
            const RotationCell::Matrix weighting =
                costs.turnWeights(RotationCell::matrixOf(asQuaternion(centre)));
            const Eigen::Matrix3d weights = Eigen::Map<const Eigen::Matrix3d>(weighting.data());
            const double loss =
                (a - centre.toRotationMatrix() * b).squaredNorm() - (a - best * b).squaredNorm();
            const double bound = 4.0 * v.dot(weights * v);
            QVERIFY2(loss <= bound * (1.0 + 1e-9) + 1e-12, qPrintable(QString::number(loss / bound)));
            closest = std::max(closest, loss / bound);
        }
        // A list that is laid on itself loses what the bound says.
        QVERIFY2(closest > 0.99, qPrintable(QString::number(closest)));
    }

    void shouldComeCloserToTheBestRotation_data()
    {
        QTest::addColumn<double>("extent");
        QTest::newRow("usual") << 1.0;
        QTest::newRow("small and far away") << 1e-5;
    }

    void shouldComeCloserToTheBestRotation()
    {
        QFETCH(double, extent);
        PointSets sets(513);
        for (int trial = 0; trial < 300; ++trial) {
            const int count = sets.integer(3, 20);
            const MatchingPoints references = scaled(centred(sets, count, 0), extent),
                                 measured = scaled(centred(sets, count, 0), extent);
            std::vector<int> order(references.size());
            std::iota(order.begin(), order.end(), 0);
            std::shuffle(order.begin(), order.end(), sets.generator());
            const RotationCosts costs(references, measured);
            const Eigen::Quaterniond from = randomTurn(sets);
            const RotationCell::Quaternion q = costs.improved(asQuaternion(from), order);
            const Eigen::Matrix3Xd a = matrixOf(references), b = ordered(matrixOf(measured), order);
            const Eigen::Matrix3d to = Eigen::Quaterniond(q[0], q[1], q[2], q[3]).toRotationMatrix();
            const double before = (a - from.toRotationMatrix() * b).squaredNorm();
            const double after = (a - to * b).squaredNorm();
            const double least = (a - bestRotation(a, b) * b).squaredNorm();
            const double rounding = 1e-9 * extent * extent;
            QVERIFY(after <= before + rounding);
            QVERIFY(after - least <= 0.5 * (before - least) + rounding);
            QVERIFY(std::fabs(std::hypot(std::hypot(q[0], q[1]), std::hypot(q[2], q[3])) - 1.0) < 1e-12);
        }
    }

    void shouldExpectNoLossWhereAListHasNoExtent()
    {
        const RotationCosts costs(MatchingPoints(4, MatchingPoint{0, 0, 0}),
                                  asPoints({1, 0, 0, -1, 0, 0, 0, 2, 0, 0, -2, 0}));
        QCOMPARE(costs.turnWeights({1, 0, 0, 0, 1, 0, 0, 0, 1}), RotationCell::Matrix{});
    }
};

ROOM_TEST_CLASS(RotationCostsTest)

#include "RotationCostsTest.moc"
