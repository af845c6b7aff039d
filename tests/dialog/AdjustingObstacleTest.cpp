#include "AdjustingObstacle.h"

#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"
#include "TrackingAccess.h"

#include <QtTest>

#include <memory>

namespace
{

using Kind = AdjustingObstacle::Kind;

const BackendVersions newest = interfaceVersion(1, 23);

void tellTwoRooms(RecordingHost &host)
{
    host.setAnswer("tracking available", "yes");
    host.setAnswer("camera number_of_cameras", "2");
    host.setAnswer("tracking has_room c01", "yes");
    host.setAnswer("tracking has_room c02", "yes");
}

} // namespace

class AdjustingObstacleTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldFindNoneWhereTwoCamerasHaveRooms()
    {
        RecordingHost host;
        tellTwoRooms(host);
        QCOMPARE(AdjustingObstacle::find(TrackingAccess(&host, &newest), this), Kind::None);
    }

    void shouldAskForNoCameraWhenTheControllerCannotTrack()
    {
        RecordingHost host;
        tellTwoRooms(host);
        host.setAnswer("tracking available", "no");
        QCOMPARE(AdjustingObstacle::find(TrackingAccess(&host, &newest), this), Kind::CannotTrack);
        QCOMPARE(host.count(), 1);
    }

    void shouldFindNoRoomWhereACameraHasNone()
    {
        RecordingHost host;
        tellTwoRooms(host);
        host.setAnswer("tracking has_room c02", "no");
        QCOMPARE(AdjustingObstacle::find(TrackingAccess(&host, &newest), this), Kind::NoRoom);
    }

    void shouldAskNothingMoreWhenTheOwnerIsDestroyedInACall()
    {
        RecordingHost host;
        tellTwoRooms(host);
        auto owner = std::make_unique<QObject>();
        host.onCall([&owner](const QString &) { owner.reset(); });
        (void)AdjustingObstacle::find(TrackingAccess(&host, &newest), owner.get());
        QVERIFY(!owner);
        QCOMPARE(host.count(), 1);
    }

    void shouldTellEachObstacleInASentenceOfItsOwn()
    {
        QStringList sentences;
        for (const Kind kind : {Kind::CannotTrack, Kind::NoRoom, Kind::TooOld, Kind::Locked})
            sentences.append(AdjustingObstacle::textOf(kind));
        QVERIFY(sentences.at(0).contains("cannot track"));
        QVERIFY(sentences.at(1).contains("no room calibration"));
        QVERIFY(sentences.at(2).contains("too old"));
        QVERIFY(sentences.at(3).contains("locked"));
        QCOMPARE(AdjustingObstacle::textOf(Kind::None), QString());
    }
};

ROOM_TEST_CLASS(AdjustingObstacleTest)
#include "AdjustingObstacleTest.moc"
