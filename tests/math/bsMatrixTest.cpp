#include "bsMatrix.h"

#include "MathSamples.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <map>
#include <random>

using namespace MathSamples;

namespace
{

bsMatrix counting()
{
    bsMatrix m;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            m.at(row, column) = 10.0 * row + column;
    }
    return m;
}

Eigen::Matrix3d halfTurn(const Eigen::Vector3d &axis)
{
    const Eigen::Vector3d n = axis.normalized();
    return 2.0 * n * n.transpose() - Eigen::Matrix3d::Identity();
}

} // namespace

class bsMatrixTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartAsTheIdentity()
    {
        QVERIFY(eigen(bsMatrix()) == Eigen::Matrix4d::Identity());
        QVERIFY(eigen(bsMatrix::identityMatrix()) == Eigen::Matrix4d::Identity());
        QCOMPARE(&bsMatrix::identityMatrix(), &bsMatrix::identityMatrix());
    }

    void shouldStoreColumnByColumn()
    {
        const bsMatrix m = counting();
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column)
                QCOMPARE(m.data()[row + 4 * column], 10.0 * row + column);
        }
    }

    void shouldBecomeZeroAndIdentity()
    {
        bsMatrix m = counting();
        m.setZero();
        QVERIFY(eigen(m) == Eigen::Matrix4d::Zero());
        m.setIdentity();
        QVERIFY(eigen(m) == Eigen::Matrix4d::Identity());
    }

    void shouldMultiply()
    {
        bsMatrix a = counting();
        a.at(2, 1) = -0.75;
        const bsMatrix b = matrix(rotation(10.0, 20.0, 30.0), {4.0, 5.0, 6.0});
        const Eigen::Matrix4d expected = eigen(a) * eigen(b);
        QVERIFY((eigen(bsMatrix::product(a, b)) - expected).cwiseAbs().maxCoeff() < 1e-12);
        a.postMultiply(b);
        QVERIFY((eigen(a) - expected).cwiseAbs().maxCoeff() < 1e-12);
    }

    void shouldMultiplyByItself()
    {
        bsMatrix m = counting();
        const Eigen::Matrix4d expected = eigen(m) * eigen(m);
        m.postMultiply(m);
        QVERIFY(eigen(m) == expected);
    }

    void shouldSumProductsFromTheFirstOn()
    {
        bsMatrix row;
        row.setZero();
        row.at(0, 0) = 1e16;
        row.at(0, 1) = 1.0;
        row.at(0, 2) = -1e16;
        row.at(0, 3) = 1.0;
        bsMatrix ones;
        for (int k = 0; k < 4; ++k)
            ones.at(k, 0) = 1.0;
        QCOMPARE(bsMatrix::product(row, ones).at(0, 0), 1.0);
    }

    void shouldTransformPoints()
    {
        const bsMatrix m = matrix(rotation(0.0, 0.0, 90.0), {1.0, 2.0, 3.0});
        const bsVector p = m.transformPoint({10.0, 20.0, 30.0});
        QVERIFY((p - bsVector(-19.0, 12.0, 33.0)).length() < 1e-12);
    }

    void shouldDivideByTheHomogeneousElementUnlessItIsZero()
    {
        bsMatrix m;
        m.at(3, 3) = 4.0;
        QVERIFY(m.transformPoint({4.0, -8.0, 2.0}) == bsVector(1.0, -2.0, 0.5));
        m.at(3, 3) = 0.0;
        QVERIFY(m.transformPoint({4.0, -8.0, 2.0}) == bsVector(4.0, -8.0, 2.0));
    }

    void shouldInvertARigidMotion()
    {
        const bsMatrix original = matrix(rotation(12.0, -34.0, 56.0), {100.0, -200.0, 300.0});
        bsMatrix inverse = original;
        inverse.invertRigid();
        QVERIFY((eigen(inverse) - eigen(original).inverse()).cwiseAbs().maxCoeff() < 1e-12);
        inverse.invertRigid();
        QVERIFY((eigen(inverse) - eigen(original)).cwiseAbs().maxCoeff() < 1e-12);
    }

    void shouldTreatTheBottomRowAsRequiredWhenInverting()
    {
        bsMatrix m = counting();
        m.invertRigid();
        QCOMPARE(m.at(0, 1), 10.0);
        QCOMPARE(m.at(0, 3), -(0.0 * 3.0 + 10.0 * 13.0 + 20.0 * 23.0));
        QCOMPARE(m.at(3, 0), 0.0);
        QCOMPARE(m.at(3, 1), 0.0);
        QCOMPARE(m.at(3, 2), 0.0);
        QCOMPARE(m.at(3, 3), 33.0);
    }

    void shouldNotInvertAScaledMatrix()
    {
        bsMatrix m = matrix(2.0 * Eigen::Matrix3d::Identity(), {1.0, 0.0, 0.0});
        m.invertRigid();
        QCOMPARE(m.at(0, 0), 2.0);
        QCOMPARE(m.at(0, 3), -2.0);
    }

    void shouldTranspose() { QVERIFY(eigen(counting().transposed()) == eigen(counting()).transpose()); }

    void shouldReadAndWriteColumns()
    {
        bsMatrix m = counting();
        QVERIFY(m.column(2) == bsVector(2.0, 12.0, 22.0));
        m.setColumn(1, {7.0, 8.0, 9.0}, 5.0);
        QVERIFY(m.column(1) == bsVector(7.0, 8.0, 9.0));
        QCOMPARE(m.at(3, 1), 5.0);
        QVERIFY(m.column(0) == bsVector(0.0, 10.0, 20.0));
    }

    void shouldDifferFromOneTenMillionthOn()
    {
        for (int i = 0; i < 16; ++i) {
            bsMatrix m;
            double &element = m.at(i % 4, i / 4);
            const double original = element;
            element = original + 5e-8;
            QVERIFY(!m.differs(bsMatrix()));
            element = original - 5e-8;
            QVERIFY(!m.differs(bsMatrix()));
            element = original + 1.5e-7;
            QVERIFY(m.differs(bsMatrix()));
            element = notANumber;
            QVERIFY(m.differs(bsMatrix()));
            QVERIFY(m.differs(m));
        }
    }

    void shouldDifferAtTheToleranceItself()
    {
        bsMatrix m;
        m.at(0, 1) = 1e-7;
        QVERIFY(m.differs(bsMatrix()));
        QVERIFY(bsMatrix().differs(m));
    }

    void shouldRotateLikeItsQuaternion()
    {
        const Eigen::Quaterniond q = turn(77.0, {1.0, -2.0, 0.5});
        const bsMatrix m = bsMatrix::fromQuaternion({q.x(), q.y(), q.z(), q.w()});
        QVERIFY(distance(m, q.toRotationMatrix()) < 1e-15);
        QVERIFY(m.column(3) == bsVector());
        QCOMPARE(m.at(3, 3), 1.0);
    }

    void shouldUseTheQuaternionAsGiven()
    {
        const bsMatrix m = bsMatrix::fromQuaternion({2.0, 0.0, 0.0, 0.0});
        QCOMPARE(m.at(0, 0), 1.0);
        QCOMPARE(m.at(1, 1), -7.0);
    }

    void shouldGiveTheQuaternionOfARotation_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::newRow("small") << 1e-3 << 1.0 << 2.0 << 3.0;
        QTest::newRow("quarter") << 90.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("large") << 170.0 << -1.0 << 2.0 << 1.0;
    }
    void shouldGiveTheQuaternionOfARotation()
    {
        QFETCH(double, degrees);
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        const Eigen::Quaterniond expected = turn(degrees, {x, y, z});
        const bsQuaternion q = matrix(expected.toRotationMatrix()).toQuaternion();
        QVERIFY((Eigen::Vector4d(q.x, q.y, q.z, q.w) - expected.coeffs()).cwiseAbs().maxCoeff() < 1e-12);
    }

    void shouldTakeTheRequiredBranchesForExactHalfTurns()
    {
        const auto diagonal = [](double x, double y, double z) {
            return matrix(Eigen::Vector3d(x, y, z).asDiagonal().toDenseMatrix());
        };
        QVERIFY(diagonal(1.0, -1.0, -1.0).toQuaternion() == bsQuaternion(1.0, 0.0, 0.0, 0.0));
        QVERIFY(diagonal(-1.0, 1.0, -1.0).toQuaternion() == bsQuaternion(0.0, 1.0, 0.0, 0.0));
        QVERIFY(diagonal(-1.0, -1.0, 1.0).toQuaternion() == bsQuaternion(0.0, 0.0, 1.0, 0.0));
        Eigen::Matrix3d swap;
        swap << 0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, -1.0;
        const bsQuaternion slanted = matrix(swap).toQuaternion();
        QVERIFY(slanted == bsQuaternion(2.0 * 0.5 / std::sqrt(2.0), 0.25 / (0.5 / std::sqrt(2.0)), 0.0, 0.0));
    }

    void shouldChooseTheBranchByTheDiagonal_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::addColumn<char>("branch");
        QTest::newRow("trace above minus one") << -0.4 << -0.3 << -0.2 << 'w';
        QTest::newRow("trace of minus one") << -1.0 << 0.0 << 0.0 << 'z';
        QTest::newRow("x largest") << 0.5 << -1.0 << -1.0 << 'x';
        QTest::newRow("y largest") << -1.0 << 0.5 << -1.0 << 'y';
        QTest::newRow("z largest") << -1.0 << -1.0 << 0.5 << 'z';
        QTest::newRow("x above y only") << -0.5 << -1.0 << -0.25 << 'z';
        QTest::newRow("x above z only") << -0.5 << -0.25 << -1.0 << 'y';
        QTest::newRow("x and y equal") << -0.25 << -0.25 << -1.0 << 'y';
        QTest::newRow("x and z equal") << -0.25 << -1.0 << -0.25 << 'z';
        QTest::newRow("y and z equal") << -1.0 << -0.25 << -0.25 << 'z';
    }
    void shouldChooseTheBranchByTheDiagonal()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        QFETCH(char, branch);
        Eigen::Matrix3d m;
        m << x, 1.0, 10.0, 2.0, y, 100.0, 20.0, 200.0, z;
        const std::map<char, Eigen::Vector4d> fourfold = {
            {'w', {100.0, -10.0, 1.0, 1.0 + x + y + z}},
            {'x', {1.0 + x - y - z, 3.0, 30.0, 100.0}},
            {'y', {3.0, 1.0 - x + y - z, 300.0, -10.0}},
            {'z', {30.0, 300.0, 1.0 - x - y + z, 1.0}},
        };
        const int place = QByteArray("xyzw").indexOf(branch);
        const Eigen::Vector4d expected = fourfold.at(branch) * 0.5 / std::sqrt(fourfold.at(branch)(place));
        const bsQuaternion q = matrix(m).toQuaternion();
        QVERIFY((Eigen::Vector4d(q.x, q.y, q.z, q.w) - expected).cwiseAbs().maxCoeff() < 1e-10);
    }

    void shouldTakeTheLaterBranchForEqualDiagonals()
    {
        Eigen::Matrix3d cycle = -Eigen::Matrix3d::Identity() / 3.0;
        cycle(0, 1) = cycle(1, 0) = cycle(0, 2) = cycle(2, 0) = cycle(1, 2) = cycle(2, 1) = 2.0 / 3.0;
        cycle(2, 2) = cycle(1, 1) = cycle(0, 0) = -0.34;
        const bsQuaternion q = matrix(cycle).toQuaternion();
        const double s = 0.5 / std::sqrt(-0.34 + (1.0 + 0.34 + 0.34));
        QVERIFY(q == bsQuaternion(4.0 / 3.0 * s, 4.0 / 3.0 * s, 0.25 / s, 0.0));
    }

    void shouldNotNormalizeTheQuaternion()
    {
        const bsQuaternion q = matrix(4.0 * Eigen::Matrix3d::Identity()).toQuaternion();
        QCOMPARE(q.w, std::sqrt(13.0) / 2.0);
    }

    void shouldKeepHalfTurnsAboutAnyAxisAsOrientation()
    {
        std::mt19937 random(20240607);
        std::normal_distribution<double> gauss;
        double worst = 0.0;
        int lostByTheOtherConversion = 0;
        for (int i = 0; i < 2000; ++i) {
            const Eigen::Matrix3d r = halfTurn({gauss(random), gauss(random), gauss(random)});
            worst = std::max(worst, distance(bsMatrix::fromQuaternion(matrix(r).toOrientation()), r));
            const bsMatrix plain = bsMatrix::fromQuaternion(matrix(r).toQuaternion());
            lostByTheOtherConversion += distance(plain, r) <= 1e-6 ? 0 : 1;
        }
        QVERIFY2(worst <= 1e-6, qPrintable(QString::number(worst)));
        QVERIFY(lostByTheOtherConversion > 0);
    }

    void shouldKeepAlmostHalfTurnsAsOrientation()
    {
        for (double gap = 1.0; gap > 1e-17; gap /= 7.0) {
            for (const Eigen::Vector3d &axis :
                 {Eigen::Vector3d(1.0, 0.0, 0.0), Eigen::Vector3d(0.0, 1.0, 1.0),
                  Eigen::Vector3d(-1.0, 2.0, 5.0), Eigen::Vector3d(0.0, 0.0, 1.0)}) {
                const Eigen::Matrix3d r = turn(180.0 - gap, axis).toRotationMatrix();
                QVERIFY(distance(bsMatrix::fromQuaternion(matrix(r).toOrientation()), r) <= 1e-6);
            }
        }
    }

    void shouldLoseNothingOfAnAlmostHalfTurnAsOrientation()
    {
        std::mt19937 random(20261122);
        std::normal_distribution<double> gauss;
        for (double gap = 0.1; gap > 1e-9; gap /= 1.7) {
            const Eigen::Matrix3d r =
                turn(180.0 - gap, {gauss(random), gauss(random), gauss(random)}).toRotationMatrix();
            QVERIFY(distance(bsMatrix::fromQuaternion(matrix(r).toOrientation()), r) <= 2e-9);
        }
    }

    /// The plain conversion is kept where it gives the matrix back to a billionth, and only there.
    void shouldConvertOtherwiseFromABillionthOn()
    {
        std::mt19937 random(20261123);
        std::normal_distribution<double> gauss;
        int barelyKept = 0;
        int barelyReplaced = 0;
        for (int i = 0; i < 20000; ++i) {
            const double gap = 0.001 + 0.05 * (i % 100);
            const Eigen::Matrix3d r =
                turn(180.0 - gap, {gauss(random), gauss(random), gauss(random)}).toRotationMatrix();
            const bsQuaternion plain = matrix(r).toQuaternion();
            const Eigen::Matrix3d back = eigen(bsMatrix::fromQuaternion(plain)).topLeftCorner<3, 3>();
            const double miss = (back - r).cwiseAbs().maxCoeff();
            const bsQuaternion taken = matrix(r).toOrientation();
            const bool isPlain =
                taken.x == plain.x && taken.y == plain.y && taken.z == plain.z && taken.w == plain.w;
            QCOMPARE(isPlain, miss <= 1e-9);
            barelyKept += miss <= 1e-9 && miss > 0.8e-9 ? 1 : 0;
            barelyReplaced += miss > 1e-9 && miss < 1.2e-9 ? 1 : 0;
        }
        QVERIFY(barelyKept > 0);
        QVERIFY(barelyReplaced > 0);
    }

    void shouldKeepEveryAxisAlignedRotationAsOrientation()
    {
        int count = 0;
        for (double eta = 0.0; eta < 360.0; eta += 90.0) {
            for (double theta = 0.0; theta < 360.0; theta += 90.0) {
                for (double phi = 0.0; phi < 360.0; phi += 90.0) {
                    const Eigen::Matrix3d r = rotation(eta, theta, phi);
                    QVERIFY(distance(bsMatrix::fromQuaternion(matrix(r).toOrientation()), r) <= 1e-6);
                    ++count;
                }
            }
        }
        QCOMPARE(count, 64);
    }

    void shouldMakeTheOrientationOfBlurredAxesExact()
    {
        const double noise = 5e-7;
        Eigen::Matrix3d blurred;
        blurred << noise, -1.0 + noise, -noise, 1.0 - noise, -noise, noise, noise, -noise, 1.0 + noise;
        const bsQuaternion q = matrix(blurred).toOrientation();
        QCOMPARE(q.z, std::sqrt(0.5));
        QCOMPARE(q.w, std::sqrt(0.5));
        QCOMPARE(q.x, 0.0);
        QCOMPARE(q.y, 0.0);
    }

    void shouldKeepThePlainQuaternionWhereItLeadsBack()
    {
        for (double degrees = 5.0; degrees < 178.0; degrees += 11.5) {
            bsMatrix m = matrix(turn(degrees, {-3.0, 1.0, -2.0}).toRotationMatrix(), {100.0, -200.0, 300.0});
            QVERIFY(m.toOrientation() == m.toQuaternion());
            m.at(3, 0) = m.at(3, 1) = m.at(3, 2) = 0.5;
            QVERIFY(m.toOrientation() == m.toQuaternion());
        }
    }

    void shouldGiveTheNearestOrientationForABlurredRotation_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::newRow("small turn") << 20.0 << 1.0 << -2.0 << 3.0;
        QTest::newRow("large, mostly about x") << 170.0 << 5.0 << -2.0 << 1.0;
        QTest::newRow("large, mostly about y") << 170.0 << -1.0 << 5.0 << 2.0;
        QTest::newRow("large, mostly about z") << 170.0 << 2.0 << 1.0 << -5.0;
        QTest::newRow("half, almost about x") << 180.0 << 1.0 << -0.004 << 0.002;
        QTest::newRow("half, almost about y") << 180.0 << -0.002 << 1.0 << 0.004;
        QTest::newRow("half, almost about z") << 180.0 << 0.004 << 0.002 << -1.0;
    }
    void shouldGiveTheNearestOrientationForABlurredRotation()
    {
        QFETCH(double, degrees);
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        const Eigen::Matrix3d r = turn(degrees, {x, y, z}).toRotationMatrix();
        Eigen::Matrix3d blurred = r;
        for (int i = 0; i < 9; ++i)
            blurred(i / 3, i % 3) += (i % 2 == 0 ? 1e-4 : -1e-4) * (1.0 + 0.1 * i);
        const bsQuaternion q = matrix(blurred).toOrientation();
        QVERIFY(std::abs(Eigen::Vector4d(q.x, q.y, q.z, q.w).norm() - 1.0) < 1e-12);
        QVERIFY(distance(bsMatrix::fromQuaternion(q), r) < 1e-3);
    }

    void shouldGiveAUnitOrientationForAMatrixThatIsNoRotation()
    {
        const bsQuaternion scaled = matrix(3.0 * rotation(20.0, 0.0, 0.0)).toOrientation();
        QVERIFY(std::abs(scaled.w) <= 1.0);
        QVERIFY(std::abs(std::hypot(std::hypot(scaled.x, scaled.y), std::hypot(scaled.z, scaled.w)) - 1.0) <
                1e-12);
        bsMatrix zero;
        zero.setZero();
        QVERIFY(zero.toOrientation() == bsQuaternion());
    }

    void shouldGiveTheIdentityOrientationForValuesThatAreNotFinite()
    {
        for (const double bad : {notANumber, infinity, -infinity}) {
            for (int i = 0; i < 9; ++i) {
                bsMatrix m = matrix(rotation(10.0, 20.0, 30.0));
                m.at(i % 3, i / 3) = bad;
                QVERIFY(m.toOrientation() == bsQuaternion());
                QVERIFY(!m.isFinite());
            }
        }
        QVERIFY(matrix(1e300 * rotation(10.0, 20.0, 30.0)).toOrientation().isFinite());
    }

    void shouldGiveTheIdentityOrientationWhenTheValuesAreTooLargeToAddUp()
    {
        const bsMatrix huge = matrix(1.7e308 * Eigen::Matrix3d::Identity());
        QVERIFY(huge.isFinite());
        QVERIFY(huge.toOrientation() == bsQuaternion());
    }

    void shouldSnapNothingButTheRotation()
    {
        bsMatrix m = matrix(rotation(0.0, 0.0, 90.0), {1e-9, 2.0, 3.0});
        for (int column = 0; column < 3; ++column)
            m.at(3, column) = 4.0 + column;
        snapAxisAligned(m);
        QVERIFY(m.column(3) == bsVector(1e-9, 2.0, 3.0));
        for (int column = 0; column < 3; ++column)
            QCOMPARE(m.at(3, column), 4.0 + column);
    }
};

ROOM_TEST_CLASS(bsMatrixTest)
#include "bsMatrixTest.moc"
