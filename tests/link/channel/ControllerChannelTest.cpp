#include "ControllerChannel.h"

#include "ControllerCall.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

class ControllerChannelTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReportOnlyWhatIsToBeReported()
    {
        RecordingHost host;
        host.failFrom(1);
        const ControllerChannel channel(&host, nullptr);
        const auto write = [](IOManager &io) { return io.setParameter("roomcal type angle_no_wand"); };

        QVERIFY(!channel.silently().succeeds(write));
        QCOMPARE(host.reports(), QStringList());
        QVERIFY(!channel.reporting("Error: refused").succeeds(write));
        QCOMPARE(host.reports(), QStringList{"Error: refused"});
    }

    void shouldNoteForTheHost()
    {
        RecordingHost host;
        ControllerChannel(&host, nullptr).note("calibration started");
        QCOMPARE(host.calls(), QStringList{"report calibration started"});
    }

    void shouldTellTheFeaturesOfItsVersion()
    {
        const BackendVersions young = interfaceVersion(1, 18);
        const BackendVersions old = interfaceVersion(1, 17);
        QVERIFY(ControllerChannel(nullptr, &young).supports(ControllerFeature::HasRoomQuery));
        QVERIFY(!ControllerChannel(nullptr, &old).supports(ControllerFeature::HasRoomQuery));
        QVERIFY(!ControllerChannel(nullptr, nullptr).supports(ControllerFeature::HasRoomQuery));
    }

    void shouldBearThatThereIsNoHost()
    {
        const ControllerChannel channel(nullptr, nullptr);
        channel.note("calibration started");
        QVERIFY(!channel.reporting("Error: refused").succeeds([](IOManager &) { return 0; }));
    }
};

ROOM_TEST_CLASS(ControllerChannelTest)
#include "ControllerChannelTest.moc"
