#include "bsQuaternion.h"

#include "MathSamples.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

using namespace MathSamples;

namespace
{

constexpr double bsQuaternion::*components[] = {&bsQuaternion::x, &bsQuaternion::y, &bsQuaternion::z,
                                                &bsQuaternion::w};

double distance(const bsQuaternion &q, const Eigen::Quaterniond &expected)
{
    return (Eigen::Vector4d(q.x, q.y, q.z, q.w) - expected.coeffs()).cwiseAbs().maxCoeff();
}

} // namespace

class bsQuaternionTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartAsTheIdentity()
    {
        QVERIFY(bsQuaternion() == bsQuaternion(0.0, 0.0, 0.0, 1.0));
        QVERIFY(bsQuaternion::identity() == bsQuaternion());
    }

    void shouldTurnAboutAnAxis_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::newRow("quarter about x") << 90.0 << 1.0 << 0.0 << 0.0;
        QTest::newRow("backwards about y") << -30.0 << 0.0 << 1.0 << 0.0;
        QTest::newRow("half about z") << 180.0 << 0.0 << 0.0 << 1.0;
        QTest::newRow("slanted axis that is not of length one") << 47.5 << 3.0 << -4.0 << 12.0;
        QTest::newRow("more than a turn") << 400.0 << 0.0 << 1.0 << 1.0;
    }
    void shouldTurnAboutAnAxis()
    {
        QFETCH(double, degrees);
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        const Eigen::Quaterniond expected = turn(degrees, {x, y, z});
        QVERIFY(distance(bsQuaternion::fromAxisAngle(degrees, {x, y, z}), expected) < 1e-15);
    }

    void shouldBeTheIdentityAboutAnAxisWithoutLength()
    {
        const bsQuaternion q = bsQuaternion::fromAxisAngle(60.0, {0.0, 0.0, 0.0});
        QVERIFY(q == bsQuaternion());
    }

    void shouldMultiplyAsHamiltonDid()
    {
        const bsQuaternion i(1.0, 0.0, 0.0, 0.0);
        const bsQuaternion j(0.0, 1.0, 0.0, 0.0);
        const bsQuaternion k(0.0, 0.0, 1.0, 0.0);
        QVERIFY(i * j == k);
        QVERIFY(j * k == i);
        QVERIFY(k * i == j);
        QVERIFY(j * i == bsQuaternion(0.0, 0.0, -1.0, 0.0));
        QVERIFY(i * i == bsQuaternion(0.0, 0.0, 0.0, -1.0));
    }

    void shouldMultiplyInTheGivenOrder()
    {
        const bsQuaternion product = bsQuaternion::fromAxisAngle(25.0, {1.0, 2.0, 3.0}) *
                                     bsQuaternion::fromAxisAngle(-70.0, {0.0, 1.0, -1.0});
        const Eigen::Quaterniond expected = turn(25.0, {1.0, 2.0, 3.0}) * turn(-70.0, {0.0, 1.0, -1.0});
        QVERIFY(distance(product, expected) < 1e-15);
    }

    void shouldNormalizeProducts()
    {
        const bsQuaternion product = bsQuaternion(0.0, 0.0, 0.0, 3.0) * bsQuaternion(4.0, 0.0, 0.0, 0.0);
        QVERIFY(product == bsQuaternion(1.0, 0.0, 0.0, 0.0));
    }

    void shouldCombineThreeAnglesInTheOrderXYZ()
    {
        const Eigen::Quaterniond expected =
            turn(10.0, {1.0, 0.0, 0.0}) * turn(-20.0, {0.0, 1.0, 0.0}) * turn(135.0, {0.0, 0.0, 1.0});
        QVERIFY(distance(bsQuaternion::fromAngles(10.0, -20.0, 135.0), expected) < 1e-15);
    }

    void shouldBecomeTheIdentityWhenItHasNoLength()
    {
        bsQuaternion q(0.9e-7, 0.0, 0.0, 0.0);
        q.normalize();
        QVERIFY(q == bsQuaternion());
    }

    void shouldNormalizeFromTheShortestLengthOn()
    {
        bsQuaternion q(0.0, -1e-7, 0.0, 0.0);
        q.normalize();
        QVERIFY(distance(q, {0.0, 0.0, -1.0, 0.0}) < 1e-15);
    }

    void shouldNormalizeToLengthOne()
    {
        bsQuaternion q(1.0, -1.0, 1.0, -1.0);
        q.normalize();
        QVERIFY(q == bsQuaternion(0.5, -0.5, 0.5, -0.5));
    }

    void shouldCompareEveryComponent()
    {
        const bsQuaternion q(1.0, 2.0, 3.0, 4.0);
        QVERIFY(!(q != bsQuaternion(1.0, 2.0, 3.0, 4.0)));
        for (double bsQuaternion::*component : components) {
            bsQuaternion other = q;
            other.*component += 1e-12;
            QVERIFY(other != q);
        }
    }

    void shouldTellWhetherEveryComponentIsFinite()
    {
        QVERIFY(bsQuaternion().isFinite());
        for (double bsQuaternion::*component : components) {
            for (const double bad : {notANumber, infinity, -infinity}) {
                bsQuaternion q;
                q.*component = bad;
                QVERIFY(!q.isFinite());
            }
        }
    }
};

ROOM_TEST_CLASS(bsQuaternionTest)
#include "bsQuaternionTest.moc"
