#include "ControllerVersion.h"

#include "InterfaceVersion.h"
#include "TestRegistry.h"

#include <QtTest>

class ControllerVersionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFollowTheVersionRule_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<int>("patch");
        QTest::addColumn<bool>("passes");
        QTest::newRow("1.18.0") << 1 << 18 << 0 << true;
        QTest::newRow("1.18.7") << 1 << 18 << 7 << true;
        QTest::newRow("1.18, third not known") << 1 << 18 << -1 << true;
        QTest::newRow("1.18.-2") << 1 << 18 << -2 << false;
        QTest::newRow("1.17.99") << 1 << 17 << 99 << false;
        QTest::newRow("1.19.-2") << 1 << 19 << -2 << true;
        QTest::newRow("1.2 is less than 1.18") << 1 << 2 << 0 << false;
        QTest::newRow("2.0") << 2 << 0 << -2 << true;
        QTest::newRow("0.99") << 0 << 99 << 0 << false;
    }

    void shouldFollowTheVersionRule()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(int, patch);
        QFETCH(bool, passes);
        const BackendVersions version = interfaceVersion(major, minor, patch);

        QCOMPARE(ControllerVersion::isAtLeast(&version, 1, 18), passes);
        QVERIFY(!ControllerVersion::isAtLeast(nullptr, 0, 0));
    }

    void shouldKnowTheThresholdOfEveryFeature_data()
    {
        QTest::addColumn<int>("feature");
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::newRow("camera table") << int(ControllerFeature::CameraTable) << 0 << 9;
        QTest::newRow("extra transformation") << int(ControllerFeature::ExtraTransformation) << 0 << 16;
        QTest::newRow("tracking availability") << int(ControllerFeature::TrackingAvailability) << 0 << 17;
        QTest::newRow("has room") << int(ControllerFeature::HasRoomQuery) << 1 << 18;
        QTest::newRow("last coordinate type") << int(ControllerFeature::LastCoordinateType) << 1 << 9;
        QTest::newRow("point measurement") << int(ControllerFeature::PointMeasurement) << 1 << 3;
        QTest::newRow("calibration duration") << int(ControllerFeature::CalibrationDuration) << 0 << 12;
        QTest::newRow("step duration") << int(ControllerFeature::StepDuration) << 1 << 4;
        QTest::newRow("camera progress") << int(ControllerFeature::CameraProgress) << 1 << 11;
        QTest::newRow("angle tool") << int(ControllerFeature::AngleToolCalibration) << 1 << 23;
    }

    void shouldKnowTheThresholdOfEveryFeature()
    {
        QFETCH(int, feature);
        QFETCH(int, major);
        QFETCH(int, minor);
        const auto wanted = static_cast<ControllerFeature>(feature);
        const BackendVersions exact = interfaceVersion(major, minor, -1);
        const BackendVersions before = interfaceVersion(major, minor - 1, 9);

        QVERIFY(ControllerVersion::supports(&exact, wanted));
        QVERIFY(!ControllerVersion::supports(&before, wanted));
    }
};

ROOM_TEST_CLASS(ControllerVersionTest)
#include "ControllerVersionTest.moc"
