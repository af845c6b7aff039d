#include "AppliedTransformation.h"

#include "TestRegistry.h"
#include "bsMatrix.h"

#include <Eigen/Geometry>

#include <QtTest>

class AppliedTransformationTest : public QObject
{
    Q_OBJECT

private slots:
    /// The controller reports s R^T p + t: it must report each measured point at its reference point.
    void shouldMakeTheControllerReportTheReferencePoints()
    {
        const Eigen::Matrix3d turn =
            Eigen::AngleAxisd(2.1, Eigen::Vector3d(0.3, -0.8, 0.5).normalized()).toRotationMatrix();
        const Eigen::Vector3d shift(120.5, -900.25, 33.125);
        bsMatrix roomFromReference;
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column)
                roomFromReference.at(row, column) = turn(row, column);
            roomFromReference.at(row, 3) = shift(row);
        }

        const RoomTrafoData data = appliedTransformation(roomFromReference, 1.0);

        const Eigen::Matrix<double, 3, 3, Eigen::RowMajor> rotation(data.rotation.data());
        const Eigen::Vector3d translation(data.translation.data());
        for (const Eigen::Vector3d &reference : {Eigen::Vector3d(0, 0, 0), Eigen::Vector3d(400, -20, 1000)}) {
            const Eigen::Vector3d measured = turn * reference + shift;
            QVERIFY((rotation.transpose() * measured + translation - reference).norm() < 1e-9);
        }
    }

    void shouldLeaveTheScalingAndTellNothingOfNothing()
    {
        RoomTrafoData expected;
        expected.scaling = 1.02;
        QVERIFY(appliedTransformation(bsMatrix(), 1.02) == expected);
    }
};

ROOM_TEST_CLASS(AppliedTransformationTest)

#include "AppliedTransformationTest.moc"
