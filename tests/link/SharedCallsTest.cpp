#include "SharedCalls.h"

#include "ControllerCall.h"
#include "ControllerChannel.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

Q_DECLARE_METATYPE(Reply)
Q_DECLARE_METATYPE(Activity)

namespace
{

/// A scripted host and the channel to it.
struct Line {
    RecordingHost host;
    BackendVersions versions = interfaceVersion(1, 23);
    ControllerChannel channel{&host, &versions};
};

} // namespace

/// Every text is spelled here once more by hand: a slip in one place meets a contradiction in the other.
class SharedCallsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeOnlyTheExactWordsForAReply_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<Reply>("reply");
        QTest::newRow("yes") << QByteArray("yes") << Reply::Yes;
        QTest::newRow("no") << QByteArray("no") << Reply::No;
        QTest::newRow("capital") << QByteArray("Yes") << Reply::Other;
        QTest::newRow("blank behind") << QByteArray("no ") << Reply::Other;
        QTest::newRow("nothing") << QByteArray("") << Reply::Other;
    }
    void shouldTakeOnlyTheExactWordsForAReply()
    {
        // GIVEN
        QFETCH(QByteArray, answer);
        QFETCH(Reply, reply);
        Line line;
        line.host.setAnswer("tracking available", answer);
        // WHEN, THEN
        QVERIFY(SharedCalls::trackingAvailable(line.channel.silently()) == reply);
        QVERIFY(SharedCalls::replyOf(std::nullopt) == Reply::Failed);
    }

    void shouldTellWhatTheControllerIsDoing_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<Activity>("activity");
        QTest::newRow("nothing") << QByteArray("none") << Activity::None;
        QTest::newRow("measuring") << QByteArray("mea") << Activity::Measuring;
        QTest::newRow("calibrating") << QByteArray("cal") << Activity::Calibrating;
        QTest::newRow("error") << QByteArray("err") << Activity::Error;
        QTest::newRow("another word") << QByteArray("measuring") << Activity::Other;
    }
    void shouldTellWhatTheControllerIsDoing()
    {
        // GIVEN
        QFETCH(QByteArray, answer);
        QFETCH(Activity, activity);
        Line line;
        line.host.setAnswer("status active", answer);
        // WHEN, THEN
        QVERIFY(SharedCalls::activity(line.channel.silently()) == activity);
        line.host.failText("status active");
        QVERIFY(SharedCalls::activity(line.channel.silently()) == Activity::Failed);
    }

    void shouldSayTheRequiredWords()
    {
        // GIVEN
        Line line;
        const ControllerCall call = line.channel.silently();
        // WHEN
        QVERIFY(SharedCalls::startTracking(call));
        QVERIFY(SharedCalls::stopTracking(call));
        QCOMPARE(SharedCalls::numberOfCameras(call).value_or(-1), 4);
        QCOMPARE(SharedCalls::coordinateType(call).value_or(""), QByteArray("normal"));
        QCOMPARE(SharedCalls::extraScaling(call).value_or(-1.0), 1.0);
        // THEN
        QCOMPARE(line.host.calls(),
                 (QStringList{"command velmar2 tracking start", "command velmar2 tracking stop",
                              "read camera number_of_cameras", "read roomcal coordinate_type",
                              "read tracking extra_scaling"}));
    }

    void shouldReportWhatTheCallSays()
    {
        // GIVEN
        Line line;
        line.host.failFrom(1);
        // WHEN
        QVERIFY(!SharedCalls::startTracking(line.channel.reporting("no start")));
        QVERIFY(!SharedCalls::extraScaling(line.channel.silently()));
        // THEN
        QCOMPARE(line.host.reports(), QStringList("no start"));
    }

    void shouldWriteNoNegativeZeroAndEveryPart()
    {
        // GIVEN
        Line line;
        line.host.failCall(1);
        RoomTrafoData data;
        data.rotation[1] = -0.0;
        data.rotation[2] = -4e-9;
        data.rotation[3] = -6e-9;
        data.translation = {-0.0004, -0.0006, 1.5};
        data.scaling = 1.25;
        // WHEN
        SharedCalls::writeExtraTransformation(line.channel, data, {"no turn", "no shift", "no scale"});
        // THEN
        QCOMPARE(line.host.callsOf({"write"}),
                 (QStringList{"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 -0.00000001 "
                              "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000",
                              "write tracking extra_translation 0.000 -0.001 1.500",
                              "write tracking extra_scaling 1.25000"}));
        QCOMPARE(line.host.reports(), QStringList("no turn"));
    }
};

ROOM_TEST_CLASS(SharedCallsTest)
#include "SharedCallsTest.moc"
