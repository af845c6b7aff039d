#include "RotationCell.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <cmath>

namespace
{

Eigen::Quaterniond turn(const RotationCell::Quaternion &q)
{
    return Eigen::Quaterniond(q[0], q[1], q[2], q[3]).normalized();
}

Eigen::Quaterniond randomTurn(PointSets &sets)
{
    return Eigen::Quaterniond(sets.noise(1), sets.noise(1), sets.noise(1), sets.noise(1)).normalized();
}

/// v of the turn from one rotation to another, in the frame that is rotated.
Eigen::Vector3d turnBetween(const Eigen::Quaterniond &from, const Eigen::Quaterniond &to)
{
    return (from.conjugate() * to).vec();
}

RotationCell::Matrix positive(PointSets &sets, Eigen::Matrix3d &weights)
{
    Eigen::Matrix3d root;
    for (int i = 0; i < 9; ++i)
        root(i / 3, i % 3) = sets.noise(1) * (i % 3 == 0 ? 20.0 : 1.0);
    weights = root * root.transpose();
    RotationCell::Matrix result;
    for (std::size_t i = 0; i < 9; ++i)
        result[i] = weights(static_cast<Eigen::Index>(i) / 3, static_cast<Eigen::Index>(i) % 3);
    return result;
}

const RotationCell::Matrix unit = {1, 0, 0, 0, 1, 0, 0, 0, 1};

} // namespace

class RotationCellTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldMakeTheMatrixOfAQuaternion()
    {
        PointSets sets(501);
        for (int trial = 0; trial < 100; ++trial) {
            const Eigen::Quaterniond q = randomTurn(sets);
            const double length = sets.uniform(0.1, 10);
            const RotationCell::Matrix matrix =
                RotationCell::matrixOf({length * q.w(), length * q.x(), length * q.y(), length * q.z()});
            for (int i = 0; i < 9; ++i)
                QVERIFY(std::fabs(matrix[static_cast<std::size_t>(i)] - q.toRotationMatrix()(i / 3, i % 3)) <
                        1e-12);
        }
    }

    /// Goes down to the half that is meant to hold a rotation: it must be one of the two, at every size, and
    /// no farther from the centre than the cell says.
    void shouldHoldEveryRotationInOneOfItsHalves()
    {
        PointSets sets(502);
        for (int trial = 0; trial < 500; ++trial) {
            const Eigen::Quaterniond wanted = randomTurn(sets);
            Eigen::Matrix3d weights;
            const RotationCell::Matrix weighting = trial % 2 ? unit : positive(sets, weights);
            if (trial % 2)
                weights = Eigen::Matrix3d::Identity();
            std::vector<RotationCell> cells;
            for (const RotationCell &cell : RotationCell::all())
                cells.push_back(cell);
            for (int depth = 0; depth < 12; ++depth) {
                std::vector<RotationCell> within, halves;
                for (const RotationCell &cell : cells) {
                    const Eigen::Vector3d v = turnBetween(turn(cell.centre()), wanted);
                    if (v.dot(weights * v) <= cell.spread(weighting) * (1.0 + 1e-12))
                        within.push_back(cell);
                }
                QVERIFY(!within.empty());
                for (const RotationCell &cell : within) {
                    for (const RotationCell &half : cell.halves(weighting))
                        halves.push_back(half);
                }
                cells = halves;
            }
        }
    }

    void shouldBoundTheTurnsOfAllThatItWasCutFrom()
    {
        PointSets sets(503);
        for (int trial = 0; trial < 300; ++trial) {
            Eigen::Matrix3d weights;
            const RotationCell::Matrix weighting = positive(sets, weights);
            RotationCell cell = RotationCell::all()[static_cast<std::size_t>(sets.integer(0, 3))];
            for (int depth = sets.integer(0, 9); depth > 0; --depth)
                cell = cell.halves(weighting)[static_cast<std::size_t>(sets.integer(0, 1))];
            // The centres of all parts lie in the cell.
            std::vector<RotationCell> parts = {cell};
            for (int depth = 0; depth < 6; ++depth) {
                std::vector<RotationCell> halves;
                for (const RotationCell &part : parts) {
                    for (const RotationCell &half : part.halves(unit))
                        halves.push_back(half);
                }
                parts = halves;
            }
            double widest = 0.0;
            for (const RotationCell &part : parts) {
                const Eigen::Vector3d v = turnBetween(turn(cell.centre()), turn(part.centre()));
                widest = std::max(widest, v.dot(weights * v));
            }
            QVERIFY(widest <= cell.spread(weighting));
            QVERIFY(widest >= 0.1 * cell.spread(weighting));
        }
    }
};

ROOM_TEST_CLASS(RotationCellTest)

#include "RotationCellTest.moc"
