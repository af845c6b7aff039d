#include "ViewPose.h"

#include "EigenView.h"
#include "TestRegistry.h"

#include <QtTest>

#include <limits>

using namespace EigenView;

class ViewPoseTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartInFrontOfTheRoom()
    {
        const ViewPose pose;
        QVERIFY(pose.position() == bsVector(0.0, 0.0, -300.0));
        QVERIFY(pose.orientation() == bsQuaternion());
    }

    void shouldTurnRelativeToTheSavedOrientation()
    {
        ViewPose pose;
        pose.rotate(10.0, 20.0, 30.0);
        pose.save();
        pose.rotate(80.0, 0.0, 0.0);
        pose.rotate(-40.0, 5.0, 70.0);
        const Eigen::Quaterniond expected = turn(-40.0, 5.0, 70.0) * turn(10.0, 20.0, 30.0);
        QVERIFY(agree(eigen(pose.matrix()), motion(expected, {0.0, 0.0, -300.0})));
    }

    void shouldMoveRelativeToTheSavedPosition()
    {
        ViewPose pose;
        pose.translate(1.0, 2.0, 3.0);
        pose.translate(10.0, 20.0, 30.0);
        QVERIFY(pose.position() == bsVector(10.0, 20.0, -270.0));
        pose.save();
        pose.translate(1.0, 1.0, 1.0);
        QVERIFY(pose.position() == bsVector(11.0, 21.0, -269.0));
    }

    void shouldSaveAPositionThatIsSet()
    {
        ViewPose pose;
        pose.setPosition({5.0, 6.0, 7.0});
        pose.translate(1.0, 1.0, 1.0);
        QVERIFY(pose.position() == bsVector(6.0, 7.0, 8.0));
    }

    void shouldSaveWhatIsSetAbsolutely()
    {
        ViewPose pose;
        pose.setPosition({5.0, 6.0, 7.0});
        pose.setOrientation(matrix(motion(turn(0.0, 90.0, 0.0), {100.0, 0.0, 0.0})));
        QVERIFY(pose.position() == bsVector(5.0, 6.0, 7.0));
        pose.rotate(0.0, 0.0, 0.0);
        pose.translate(0.0, 0.0, 0.0);
        QVERIFY(agree(eigen(pose.matrix()), motion(turn(0.0, 90.0, 0.0), {5.0, 6.0, 7.0})));
    }

    void shouldMultiplyFromTheRightAndSave()
    {
        ViewPose pose;
        pose.rotate(15.0, 25.0, 35.0);
        const Eigen::Matrix4d step = motion(turn(-60.0, 10.0, 5.0), {7.0, 8.0, 9.0});
        pose.transform(matrix(step));
        pose.rotate(0.0, 0.0, 0.0);
        QVERIFY(agree(eigen(pose.matrix()), motion(turn(15.0, 25.0, 35.0), {0.0, 0.0, -300.0}) * step));
    }

    void shouldSurviveHalfTurns()
    {
        for (double angle = 0.0; angle < 360.0; angle += 7.0) {
            const Eigen::Matrix4d half = motion(turn(angle, 180.0, 0.0), {0.0, 0.0, 0.0});
            ViewPose pose;
            pose.setPosition({});
            pose.transform(matrix(half));
            QVERIFY(agree(eigen(pose.matrix()), half, 1e-6));
        }
    }

    void shouldIgnoreWhatIsNotFinite()
    {
        const double bad[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()};
        for (const double value : bad) {
            ViewPose pose;
            bsMatrix m;
            m.at(0, 1) = value;
            pose.rotate(value, 0.0, 0.0);
            pose.translate(0.0, value, 0.0);
            pose.setPosition({0.0, 0.0, value});
            pose.setOrientation(m);
            pose.transform(m);
            QVERIFY(pose.position() == bsVector(0.0, 0.0, -300.0));
            QVERIFY(pose.orientation() == bsQuaternion());
        }
    }
};

ROOM_TEST_CLASS(ViewPoseTest)
#include "ViewPoseTest.moc"
