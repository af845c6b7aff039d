#include "CameraRooms.h"

#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"
#include "TrackingAccess.h"

#include <QtTest>

#include <memory>

namespace
{

/// The last version that is asked for the rooms themselves, and the first that tells whether a camera has
/// one.
const BackendVersions older = interfaceVersion(1, 17);
const BackendVersions newer = interfaceVersion(1, 18);

QString cameraName(int camera)
{
    return QStringLiteral("c%1").arg(camera, 2, 10, QLatin1Char('0'));
}

/// A controller with a camera for each letter: r has a room, n has none, f does not answer.
void tellRooms(RecordingHost &host, const QString &cameras)
{
    host.setAnswer("camera number_of_cameras", QByteArray::number(cameras.size()));
    for (int i = 0; i < cameras.size(); ++i) {
        const QString room = "tracking room " + cameraName(i + 1);
        const QString hasRoom = "tracking has_room " + cameraName(i + 1);
        const bool has = cameras[i] == 'r';
        host.setAnswer(room, has ? "0 0 2500 1 0 0 0 1 0 0 0 1" : "none");
        host.setAnswer(hasRoom, has ? "yes" : "no");
        if (cameras[i] == 'f') {
            host.failText(room);
            host.failText(hasRoom);
        }
    }
}

} // namespace

class CameraRoomsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeOnlyATellingNoneOfAnOlderControllerForNoRoom_data()
    {
        QTest::addColumn<QString>("cameras");
        QTest::addColumn<bool>("haveRooms");
        QTest::newRow("all have rooms") << "rrrr" << true;
        QTest::newRow("one has none") << "rrnr" << false;
        QTest::newRow("one does not answer") << "rfrr" << true;
        QTest::newRow("none answers") << "ffff" << true;
        QTest::newRow("one does not answer, another has none") << "frrn" << false;
        QTest::newRow("one has none, the next does not answer") << "nf" << false;
        QTest::newRow("no cameras") << "" << true;
    }

    void shouldTakeOnlyATellingNoneOfAnOlderControllerForNoRoom()
    {
        QFETCH(QString, cameras);
        RecordingHost host;
        tellRooms(host, cameras);

        QTEST(camerasHaveRooms(TrackingAccess(&host, &older), this), "haveRooms");

        QStringList asked{"read camera number_of_cameras"};
        for (int camera = 1; camera <= cameras.size(); ++camera)
            asked << "read tracking room " + cameraName(camera);
        QCOMPARE(host.calls(), asked);
    }

    void shouldNeedTwoRoomsThatANewerControllerTells_data()
    {
        QTest::addColumn<QString>("cameras");
        QTest::addColumn<bool>("haveRooms");
        QTest::addColumn<int>("asked");
        QTest::newRow("the first two have rooms") << "rrrr" << true << 2;
        QTest::newRow("the first and the last") << "rnnr" << true << 4;
        QTest::newRow("one does not answer") << "rfr" << true << 3;
        QTest::newRow("one of two does not answer") << "rf" << false << 2;
        QTest::newRow("none answers") << "ffff" << false << 4;
        QTest::newRow("one room") << "nrnn" << false << 4;
        QTest::newRow("no cameras") << "" << false << 0;
    }

    void shouldNeedTwoRoomsThatANewerControllerTells()
    {
        QFETCH(QString, cameras);
        QFETCH(int, asked);
        RecordingHost host;
        tellRooms(host, cameras);

        QTEST(camerasHaveRooms(TrackingAccess(&host, &newer), this), "haveRooms");

        QCOMPARE(host.count(), 1 + asked);
    }

    void shouldFindNoRoomsWithoutTheNumberOfCameras()
    {
        RecordingHost host;
        host.failCall(1);

        QVERIFY(!camerasHaveRooms(TrackingAccess(&host, &older), this));

        QCOMPARE(host.calls(), QStringList({"read camera number_of_cameras",
                                            "report Error: Unable to get number of cameras"}));
    }

    void shouldAskNothingMoreWhenTheOwnerIsDestroyedInACall_data()
    {
        QTest::addColumn<bool>("isNewer");
        QTest::addColumn<int>("call");
        QTest::newRow("number of cameras") << true << 1;
        QTest::newRow("first camera") << true << 2;
        QTest::newRow("first camera of an older controller") << false << 2;
    }

    void shouldAskNothingMoreWhenTheOwnerIsDestroyedInACall()
    {
        QFETCH(bool, isNewer);
        QFETCH(int, call);
        RecordingHost host;
        tellRooms(host, "rrr");
        auto owner = std::make_unique<QObject>();
        host.onCall([&owner, left = call](const QString &) mutable {
            if (--left == 0)
                owner.reset();
        });

        QVERIFY(!camerasHaveRooms(TrackingAccess(&host, isNewer ? &newer : &older), owner.get()));

        QVERIFY(!owner);
        QCOMPARE(host.count(), call);
    }
};

ROOM_TEST_CLASS(CameraRoomsTest)
#include "CameraRoomsTest.moc"
