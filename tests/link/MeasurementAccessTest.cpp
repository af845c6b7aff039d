#include "MeasurementAccess.h"

#include "DoomedAccess.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

using Operation = std::function<void(const MeasurementAccess &)>;

const BackendVersions current = interfaceVersion(1, 23);

} // namespace

Q_DECLARE_METATYPE(Operation)

/// Every text is spelled here once more by hand: a slip in one place meets a contradiction in the other.
class MeasurementAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayTheRequiredWords_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QStringList>("expected");

        const auto row = [](const char *name, const Operation &operation, const QStringList &expected) {
            QTest::newRow(name) << operation << expected;
        };
        row("extra transformation", [](const MeasurementAccess &c) { (void)c.extraTransformation(); },
            {"read tracking extra_translation", "read tracking extra_rotation",
             "read tracking extra_scaling"});
        row("neutral extra transformation",
            [](const MeasurementAccess &c) { c.setNeutralExtraTransformation(); },
            {"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
             "0.00000000 "
             "0.00000000 0.00000000 1.00000000",
             "write tracking extra_translation 0.000 0.000 0.000", "write tracking extra_scaling 1.00000"});
        row("restore extra transformation",
            [](const MeasurementAccess &c) { c.restoreExtraTransformation(RoomTrafoData()); },
            {"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
             "0.00000000 "
             "0.00000000 0.00000000 1.00000000",
             "write tracking extra_translation 0.000 0.000 0.000", "write tracking extra_scaling 1.00000"});
        row("reference", [](const MeasurementAccess &c) { (void)c.referenceTarget(); },
            {"read tracking reference"});
        row("unset reference", [](const MeasurementAccess &c) { (void)c.unsetReferenceTarget(); },
            {"write tracking reference none"});
        row("restore reference",
            [](const MeasurementAccess &c) { (void)c.restoreReferenceTarget("body b07"); },
            {"write tracking reference body b07"});
        row("tool check", [](const MeasurementAccess &c) { c.checkTool(); },
            {"read measurementtool available"});
        row("tool available", [](const MeasurementAccess &c) { (void)c.toolAvailable(); },
            {"read measurementtool available"});
        row("tools", [](const MeasurementAccess &c) { (void)c.numberOfTools(); },
            {"read measurementtool number_of_tools"});
        row("tip", [](const MeasurementAccess &c) { (void)c.tipIsCalibrated(2); },
            {"read measurementtool tip_calibrated b02"});
        row("duration", [](const MeasurementAccess &c) { (void)c.duration(2); },
            {"read measurementtool measurement_duration b02"});
        row("tolerance", [](const MeasurementAccess &c) { (void)c.tipTolerance(2); },
            {"read measurementtool measurement_tip_tolerance b02"});
        row("start measurement", [](const MeasurementAccess &c) { c.startMeasurement(10); },
            {"command velmar2 measurementtool start_measurement b10"});
    }

    void shouldSayTheRequiredWords()
    {
        QFETCH(Operation, operation);
        QFETCH(QStringList, expected);
        // GIVEN
        RecordingHost host;
        const MeasurementAccess controller(&host, &current);
        // WHEN
        operation(controller);
        // THEN
        QCOMPARE(host.calls(), expected);
    }

    void shouldReportAFailureInTheRequiredWords_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QStringList>("expected");

        const auto row = [](const char *name, const Operation &operation, const QStringList &expected) {
            QTest::newRow(name) << operation << expected;
        };
        row("scaling", [](const MeasurementAccess &c) { (void)c.extraScaling(); }, {});
        row("tool available", [](const MeasurementAccess &c) { (void)c.toolAvailable(); }, {});
        row("quiet tip", [](const MeasurementAccess &c) { (void)c.tipIsCalibratedQuietly(1); }, {});
        row("duration", [](const MeasurementAccess &c) { (void)c.duration(1); }, {});
        row("extra transformation", [](const MeasurementAccess &c) { (void)c.extraTransformation(); },
            {"Error: Unable to get info extra translation"});
        row("neutral extra transformation",
            [](const MeasurementAccess &c) { c.setNeutralExtraTransformation(); },
            {"Error: Unable to set extra rotation default", "Error: Unable to set extra translation default",
             "Error: Unable to set extra scaling default"});
        row("restore extra transformation",
            [](const MeasurementAccess &c) { c.restoreExtraTransformation(RoomTrafoData()); },
            {"Error: Unable to set extra rotation", "Error: Unable to set extra translation",
             "Error: Unable to set extra scaling"});
        row("reference", [](const MeasurementAccess &c) { (void)c.referenceTarget(); },
            {"Error: Unable to get info reference target"});
        row("unset reference", [](const MeasurementAccess &c) { (void)c.unsetReferenceTarget(); },
            {"Error: Unable to unset reference target"});
        row("restore reference",
            [](const MeasurementAccess &c) { (void)c.restoreReferenceTarget("body b07"); },
            {"Error: Unable to restore reference target"});
        row("tool check", [](const MeasurementAccess &c) { c.checkTool(); },
            {"Error: Unable to get info measurement tool available"});
        row("tools", [](const MeasurementAccess &c) { (void)c.numberOfTools(); },
            {"Error : Unable to get number of measurement tools"});
        row("tip", [](const MeasurementAccess &c) { (void)c.tipIsCalibrated(1); },
            {"Error : Unable to get info of tip calibration"});
        row("tolerance", [](const MeasurementAccess &c) { (void)c.tipTolerance(1); },
            {"Error : Unable to get tip tolerance of measurement tool"});
        row("start measurement", [](const MeasurementAccess &c) { c.startMeasurement(1); },
            {"Error : Unable to start measurement tool measurement"});
    }

    void shouldReportAFailureInTheRequiredWords()
    {
        QFETCH(Operation, operation);
        QFETCH(QStringList, expected);
        // GIVEN
        RecordingHost host;
        host.failFrom(1);
        const MeasurementAccess controller(&host, &current);
        // WHEN
        operation(controller);
        // THEN
        QCOMPARE(host.reports(), expected);
    }

    void shouldPassFormatsAndValuesUnformatted()
    {
        RecordingHost host;
        const MeasurementAccess controller(&host, &current);

        controller.restoreExtraTransformation(RoomTrafoData());
        (void)controller.restoreReferenceTarget("body b01");
        controller.startMeasurement(1);

        QCOMPARE(host.formats(),
                 QStringList({"tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f",
                              "tracking extra_translation %.3f %.3f %.3f", "tracking extra_scaling %.5f",
                              "tracking reference %s", "velmar2 measurementtool start_measurement b%02d"}));
    }

    void shouldNeverUseTheValueOfAFailedRead()
    {
        RecordingHost host;
        host.failFrom(1);
        const MeasurementAccess controller(&host, &current);

        QCOMPARE(controller.toolAvailable(), Reply::Failed);
        QVERIFY(!controller.extraScaling());
        QCOMPARE(controller.numberOfTools(), 0);
        QCOMPARE(controller.duration(1), 1.0);
        QCOMPARE(controller.tipTolerance(1), 1.5);
        QCOMPARE(controller.referenceTarget(), QByteArray());
        QVERIFY(!controller.unsetReferenceTarget());
        QVERIFY(!controller.restoreReferenceTarget("body b01"));
        QVERIFY(!controller.tipIsCalibrated(1));
        QVERIFY(!controller.tipIsCalibratedQuietly(1));
    }

    void shouldFailEverywhereWithoutAChannel()
    {
        const MeasurementAccess controller(nullptr, &current);

        QCOMPARE(controller.toolAvailable(), Reply::Failed);
        QCOMPARE(controller.numberOfTools(), 0);
        QVERIFY(!controller.extraTransformation());
        QVERIFY(!controller.unsetReferenceTarget());
        controller.checkTool();
        controller.startMeasurement(1);
        controller.setNeutralExtraTransformation();
        controller.restoreExtraTransformation(RoomTrafoData());
    }

    void shouldBoundTheNumberOfTools()
    {
        RecordingHost host;
        const MeasurementAccess controller(&host, &current);

        host.setAnswer("measurementtool number_of_tools", "2000000000");
        QCOMPARE(controller.numberOfTools(), 1000);
        host.setAnswer("measurementtool number_of_tools", "-3");
        QCOMPARE(controller.numberOfTools(), 0);
    }

    void shouldTakeALongNameOfTheReferenceTarget()
    {
        RecordingHost host;
        const QByteArray endless(1000, 'n');
        host.setAnswer("tracking reference", endless);

        QCOMPARE(MeasurementAccess(&host, &current).referenceTarget(), endless);
    }

    void shouldStopReadingTheExtraTransformationAtTheFirstFailure_data()
    {
        QTest::addColumn<int>("failing");
        QTest::addColumn<QString>("report");
        QTest::newRow("translation") << 1 << "Error: Unable to get info extra translation";
        QTest::newRow("rotation") << 2 << "Error: Unable to get info extra rotation";
        QTest::newRow("scaling") << 3 << "Error: Unable to get info extra scaling";
    }

    void shouldStopReadingTheExtraTransformationAtTheFirstFailure()
    {
        QFETCH(int, failing);
        QFETCH(QString, report);
        RecordingHost host;
        host.failCall(failing);

        QVERIFY(!MeasurementAccess(&host, &current).extraTransformation());

        QCOMPARE(host.count(), failing);
        QCOMPARE(host.reports(), QStringList{report});
    }

    void shouldFinishAnOperationThoughTheHostDestroysIt_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::newRow("reading") << Operation(
            [](const MeasurementAccess &c) { (void)c.extraTransformation(); });
        QTest::newRow("neutral") << Operation(
            [](const MeasurementAccess &c) { c.setNeutralExtraTransformation(); });
        QTest::newRow("restoring") << Operation(
            [](const MeasurementAccess &c) { c.restoreExtraTransformation(RoomTrafoData()); });
    }

    void shouldFinishAnOperationThoughTheHostDestroysIt()
    {
        QFETCH(Operation, operation);
        const QStringList calls = callsOfSafe<MeasurementAccess>(current, operation);

        QVERIFY(calls.size() > 1);
        QCOMPARE(callsOfDoomed<MeasurementAccess>(current, operation), calls);
    }
};

ROOM_TEST_CLASS(MeasurementAccessTest)
#include "MeasurementAccessTest.moc"
