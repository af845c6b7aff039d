#include "bsPose.h"

#include "MathSamples.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

using namespace MathSamples;

class bsPoseTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartAsTheIdentity()
    {
        const bsPose pose;
        QVERIFY(pose.position == bsVector());
        QVERIFY(pose.orientation == bsQuaternion());
        QCOMPARE(pose.extra, 0.0);
        QVERIFY(!pose.matrix().differs(bsMatrix::identityMatrix()));
    }

    void shouldGiveItsMatrix()
    {
        bsPose pose;
        pose.position.set(1.0, -2.0, 3.0);
        pose.orientation = bsQuaternion::fromAxisAngle(40.0, {1.0, 1.0, 0.0});
        Eigen::Affine3d expected = Eigen::Translation3d(1.0, -2.0, 3.0) * turn(40.0, {1.0, 1.0, 0.0});
        QVERIFY((eigen(pose.matrix()) - expected.matrix()).cwiseAbs().maxCoeff() < 1e-15);
    }

    void shouldDeriveTheOrientationAnewWhenAssigned()
    {
        bsPose source;
        source.position.set(7.0, 8.0, 9.0);
        source.orientation = {-0.5, -0.5, -0.5, -0.5};
        source.extra = 42.0;
        bsPose target;
        target = source;
        QVERIFY(target.position == source.position);
        QVERIFY(target.orientation == bsQuaternion(0.5, 0.5, 0.5, 0.5));
        QCOMPARE(target.extra, 42.0);
    }

    void shouldKeepTheOrientationWhenCopied()
    {
        bsPose source;
        source.orientation = {-0.5, -0.5, -0.5, -0.5};
        const bsPose copy(source);
        QVERIFY(copy.orientation == source.orientation);
    }
};

ROOM_TEST_CLASS(bsPoseTest)
#include "bsPoseTest.moc"
