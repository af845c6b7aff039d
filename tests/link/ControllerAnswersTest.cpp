#include "CalibrationAccess.h"
#include "ControllerAccess.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <array>

namespace
{

const BackendVersions current = interfaceVersion(1, 23);

} // namespace

class ControllerAnswersTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCompareWholeAnswersOnly_data();
    void shouldCompareWholeAnswersOnly();
    void shouldReadTheRotationOnlyWhenAllNineNumbersConvert_data();
    void shouldReadTheRotationOnlyWhenAllNineNumbersConvert();
    void shouldTakeMissingCameraCoordinatesAsZero_data();
    void shouldTakeMissingCameraCoordinatesAsZero();
    void shouldSurviveAnswersOfAThousandCharacters();
    void shouldNeverUseTheValueOfAFailedRead();
    void shouldStopReadingTheExtraTransformationAtTheFirstFailure_data();
    void shouldStopReadingTheExtraTransformationAtTheFirstFailure();
    void shouldTellWhatTheControllerIsDoing_data();
    void shouldTellWhatTheControllerIsDoing();
    void shouldTellWhetherACameraHasARoom_data();
    void shouldTellWhetherACameraHasARoom();
    void shouldMapEveryCoordinateType_data();
    void shouldMapEveryCoordinateType();
    void shouldAskForTheCurrentTypeWhenTheLastIsNone();
    void shouldNotAskFurtherWhenTheLastTypeCannotBeRead();
};

void ControllerAnswersTest::shouldCompareWholeAnswersOnly_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("expected");
    QTest::newRow("no") << QByteArray("no") << int(Reply::No);
    QTest::newRow("yes") << QByteArray("yes") << int(Reply::Yes);
    QTest::newRow("no and a blank") << QByteArray("no ") << int(Reply::Other);
    QTest::newRow("NO") << QByteArray("NO") << int(Reply::Other);
    QTest::newRow("nothing") << QByteArray("") << int(Reply::Other);
    QTest::newRow("none") << QByteArray("none") << int(Reply::Other);
}

void ControllerAnswersTest::shouldCompareWholeAnswersOnly()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, expected);
    RecordingHost host;
    host.setAnswer("tracking available", answer);

    QCOMPARE(int(ControllerAccess(&host, &current).trackingAvailable()), expected);
}

void ControllerAnswersTest::shouldReadTheRotationOnlyWhenAllNineNumbersConvert_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("taken");
    QTest::newRow("nine numbers") << QByteArray("0.5 0 0 0 1 0 0 0 1") << true;
    QTest::newRow("further numbers are left alone") << QByteArray("0.5 0 0 0 1 0 0 0 1 7") << true;
    QTest::newRow("eight numbers") << QByteArray("0.5 0 0 0 1 0 0 0") << false;
    QTest::newRow("two blanks") << QByteArray("0.5  0 0 0 1 0 0 0 1") << false;
    QTest::newRow("a word") << QByteArray("0.5 0 0 0 one 0 0 0 1") << false;
    QTest::newRow("a comma") << QByteArray("0,5 0 0 0 1 0 0 0 1") << false;
    QTest::newRow("nothing") << QByteArray("") << false;
}

void ControllerAnswersTest::shouldReadTheRotationOnlyWhenAllNineNumbersConvert()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, taken);
    RecordingHost host;
    host.setAnswer("tracking extra_rotation", answer);
    host.setAnswer("tracking extra_translation", "1.5 2.5 -3.5");

    const RoomTrafoData data = ControllerAccess(&host, &current).roomAdjustment();

    QCOMPARE(data.rotation[0], taken ? 0.5 : 1.0);
    QCOMPARE(data.translation, (std::array<double, 3>{1.5, 2.5, -3.5}));
}

void ControllerAnswersTest::shouldTakeMissingCameraCoordinatesAsZero_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::newRow("all") << QByteArray("1.5 2.5 3.5 1 0 0 0 1 0 0 0 1") << 1.5 << 2.5 << 3.5;
    QTest::newRow("two") << QByteArray("1.5 2.5") << 1.5 << 2.5 << 0.0;
    QTest::newRow("none") << QByteArray("none") << 0.0 << 0.0 << 0.0;
    QTest::newRow("nothing") << QByteArray("") << 0.0 << 0.0 << 0.0;
}

void ControllerAnswersTest::shouldTakeMissingCameraCoordinatesAsZero()
{
    QFETCH(QByteArray, answer);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    RecordingHost host;
    host.setAnswer("tracking room c01", answer);

    QCOMPARE(ControllerAccess(&host, &current).positionOfCamera(1), (std::array<double, 3>{x, y, z}));
}

void ControllerAnswersTest::shouldSurviveAnswersOfAThousandCharacters()
{
    RecordingHost host;
    const QByteArray endless(1000, 'n');
    for (const char *text : {"tracking available", "tracking extra_rotation", "tracking reference",
                             "roomcal coordinate_type", "tracking room c01"})
        host.setAnswer(text, endless);
    const ControllerAccess controller(&host, &current);

    QCOMPARE(controller.trackingAvailable(), Reply::Other);
    QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
    QCOMPARE(controller.referenceTarget(), endless);
    QCOMPARE(controller.coordinateType(), CoordinateType::Unknown);
    QCOMPARE(controller.roomOfCamera(1), CameraRoom::Present);
}

void ControllerAnswersTest::shouldNeverUseTheValueOfAFailedRead()
{
    RecordingHost host;
    host.failFrom(1);
    const ControllerAccess controller(&host, &current);

    QVERIFY(!controller.numberOfCameras());
    QVERIFY(!controller.extraScaling());
    QCOMPARE(controller.numberOfMeasurementTools(), 0);
    QCOMPARE(controller.measurementDuration(1), 1.0);
    QCOMPARE(controller.tipTolerance(1), 1.5);
    QCOMPARE(controller.referenceTarget(), QByteArray());
    QCOMPARE(controller.positionOfCamera(1), (std::array<double, 3>{0.0, 0.0, 0.0}));
    QVERIFY(!controller.tipIsCalibrated(1));
    QVERIFY(!controller.tipIsCalibratedQuietly(1));
}

void ControllerAnswersTest::shouldStopReadingTheExtraTransformationAtTheFirstFailure_data()
{
    QTest::addColumn<int>("failing");
    QTest::addColumn<QString>("report");
    QTest::newRow("translation") << 1 << "Error: Unable to get info extra translation";
    QTest::newRow("rotation") << 2 << "Error: Unable to get info extra rotation";
    QTest::newRow("scaling") << 3 << "Error: Unable to get info extra scaling";
}

void ControllerAnswersTest::shouldStopReadingTheExtraTransformationAtTheFirstFailure()
{
    QFETCH(int, failing);
    QFETCH(QString, report);
    RecordingHost host;
    host.failCall(failing);

    QVERIFY(!ControllerAccess(&host, &current).extraTransformation());

    QCOMPARE(host.count(), failing);
    QCOMPARE(host.reports(), QStringList{report});
}

void ControllerAnswersTest::shouldTellWhatTheControllerIsDoing_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("expected");
    QTest::newRow("measuring") << QByteArray("mea") << int(Activity::Measuring);
    QTest::newRow("calibrating") << QByteArray("cal") << int(Activity::Calibrating);
    QTest::newRow("error") << QByteArray("err") << int(Activity::Error);
    QTest::newRow("none") << QByteArray("none") << int(Activity::None);
    QTest::newRow("only the beginning of a word") << QByteArray("me") << int(Activity::Other);
    QTest::newRow("more than the word") << QByteArray("mea ") << int(Activity::Other);
    QTest::newRow("nothing") << QByteArray("") << int(Activity::Other);
}

void ControllerAnswersTest::shouldTellWhatTheControllerIsDoing()
{
    QFETCH(QByteArray, answer);
    RecordingHost host;
    host.setAnswer("status active", answer);

    QTEST(int(CalibrationAccess(&host, &current).activity()), "expected");
}

void ControllerAnswersTest::shouldTellWhetherACameraHasARoom_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("expected");
    QTest::newRow("position and rotation")
        << QByteArray("1.5 2.5 3.5 1 0 0 0 1 0 0 0 1") << int(CameraRoom::Present);
    QTest::newRow("none") << QByteArray("none") << int(CameraRoom::None);
    QTest::newRow("more than none") << QByteArray("none 1") << int(CameraRoom::Present);
    QTest::newRow("nothing") << QByteArray("") << int(CameraRoom::Present);
}

void ControllerAnswersTest::shouldTellWhetherACameraHasARoom()
{
    QFETCH(QByteArray, answer);
    RecordingHost host;
    host.setAnswer("tracking room c01", answer);

    QTEST(int(ControllerAccess(&host, &current).roomOfCamera(1)), "expected");
}

void ControllerAnswersTest::shouldMapEveryCoordinateType_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("code");
    QTest::newRow("normal") << QByteArray("normal") << 0;
    QTest::newRow("powerwall") << QByteArray("powerwall") << 1;
    QTest::newRow("powerwall_standing") << QByteArray("powerwall_standing") << 2;
    QTest::newRow("mid_camera") << QByteArray("mid_camera") << 3;
    QTest::newRow("none") << QByteArray("none") << 5;
    QTest::newRow("first_camera") << QByteArray("first_camera") << -1;
    QTest::newRow("nothing") << QByteArray("") << -1;
}

void ControllerAnswersTest::shouldMapEveryCoordinateType()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, code);
    RecordingHost host;
    host.setAnswer("roomcal coordinate_type", answer);
    const BackendVersions old = interfaceVersion(1, 8, 0);

    QCOMPARE(int(ControllerAccess(&host, &old).coordinateType()), code);
    QCOMPARE(host.calls(), QStringList({"read roomcal coordinate_type"}));
}

void ControllerAnswersTest::shouldAskForTheCurrentTypeWhenTheLastIsNone()
{
    RecordingHost host;
    host.setAnswer("roomcal last_coordinate_type", "none");
    host.setAnswer("roomcal coordinate_type", "powerwall");

    QCOMPARE(ControllerAccess(&host, &current).coordinateType(), CoordinateType::Powerwall);
    QCOMPARE(host.calls(),
             QStringList({"read roomcal last_coordinate_type", "read roomcal coordinate_type"}));
}

void ControllerAnswersTest::shouldNotAskFurtherWhenTheLastTypeCannotBeRead()
{
    RecordingHost host;
    host.failCall(1);

    QCOMPARE(ControllerAccess(&host, &current).coordinateType(), CoordinateType::Unknown);
    QCOMPARE(host.calls(), QStringList({"read roomcal last_coordinate_type",
                                        "report Error: Cannot require room calibration coordinate type."}));
}

ROOM_TEST_CLASS(ControllerAnswersTest)
#include "ControllerAnswersTest.moc"
