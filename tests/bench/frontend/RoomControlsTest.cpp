#include "RoomControls.h"

#include "FakeController.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class RoomControlsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHoldTheTipAtAPointOfTheWorkpiece()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        const SimWorkpiece &workpiece = fake.room().workpiece;
        controls.touchPoint(3);
        const SimVector expected = workpiece.pose * workpiece.points.at(2).nominal;
        const SimVector tip = fake.room().tools.at(0).tip;
        QVERIFY(std::fabs(tip.x - expected.x) < 1e-9);
        QVERIFY(std::fabs(tip.y - expected.y) < 1e-9);
        QVERIFY(std::fabs(tip.z - expected.z) < 1e-9);
    }

    void shouldSaveTheNominalPointsForTheModule()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("two  blanks.txt"));
        controls.saveNominalPoints(file);
        QFile saved(file);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = saved.readAll().trimmed().split('\n');
        QCOMPARE(lines.size(), static_cast<int>(fake.room().workpiece.points.size()));
        const QStringList words = QString::fromLatin1(lines.at(1)).simplified().split(QLatin1Char(' '));
        QCOMPARE(words.value(1).toDouble(), fake.room().workpiece.points.at(1).nominal.x);
        QSignalSpy refused(&controls, &RoomControls::refused);
        controls.saveNominalPoints(folder.filePath(QStringLiteral("missing/points.txt")));
        QCOMPARE(refused.size(), 1);
    }

    void shouldWorkTheToolAndTheDevice()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        controls.pressToolButton();
        QVERIFY(fake.room().tools.at(0).buttons.at(0).isDown());
        controls.pressDeviceButton();
        QVERIFY(fake.room().devices.at(0).buttons.at(0).isDown());
        controls.setToolTracked(false);
        QVERIFY(!fake.room().tools.at(0).tracked);
        controls.setTremor(0.25);
        QCOMPARE(fake.room().tools.at(0).tremorMm, 0.25);
        QCOMPARE(controls.toolReading()->tremorMm, 0.25);
        QCOMPARE(controls.isAngleToolVisible(), std::optional<bool>(true));
        controls.setAngleToolVisible(false);
        QVERIFY(!fake.room().angleTool.visible);
        QCOMPARE(controls.isAngleToolVisible(), std::optional<bool>(false));
    }

    void shouldSetTheControllersState()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        controls.setLocked(true);
        QVERIFY(!fake.state().changeable);
        QCOMPARE(controls.isLocked(), std::optional<bool>(true));
        QCOMPARE(controls.isAvailable(), std::optional<bool>(true));
        controls.setAvailable(false);
        QVERIFY(!fake.state().available);
        QCOMPARE(controls.isAvailable(), std::optional<bool>(false));
        controls.setInterfaceVersion(0, 16, 2);
        QCOMPARE(controls.interfaceVersion(), (std::optional<std::array<int, 3>>({0, 16, 2})));
    }

    void shouldDisturbTheRoomCalibrationAndRepairIt()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        controls.stallCalibration(0.5, 6.5);
        controls.failCalibration(0.25, QStringLiteral("Angle tool not found."));
        const SimCalibrationKind &kind = fake.controller.machine().calibration.kinds.at("room");
        QCOMPARE(kind.stallFraction, 0.5);
        QCOMPARE(kind.stallSeconds, 6.5);
        QCOMPARE(kind.errorFraction.value_or(0.0), 0.25);
        QCOMPARE(kind.errorText, std::string("Angle tool not found."));
        controls.repairCalibration();
        QVERIFY(!kind.errorFraction.has_value());
        QCOMPARE(kind.stallSeconds, 0.0);
    }

    void shouldLetTheWantedCallFail()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        controls.failCall(2, QStringLiteral("status"));
        std::array<char, 256> answer = {};
        QCOMPARE(fake.channel.getParameter(answer.data(), "status active"), 0);
        QCOMPARE(fake.channel.getParameter(answer.data(), "tracking available"), 0);
        QVERIFY(fake.channel.getParameter(answer.data(), "status active") != 0);
        controls.failCall(1, QString());
        QVERIFY(fake.channel.getParameter(answer.data(), "tracking available") != 0);
        QCOMPARE(fake.channel.getParameter(answer.data(), "tracking available"), 0);
    }

    void shouldLoseTheConnectionForATime()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        controls.disconnectFor(2.0);
        std::array<char, 256> answer = {};
        QVERIFY(fake.channel.getParameter(answer.data(), "status active") != 0);
        fake.link.advance(2.5);
        QCOMPARE(fake.channel.getParameter(answer.data(), "status active"), 0);
    }

    void shouldSayThatALineWasRefused()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        QSignalSpy refused(&controls, &RoomControls::refused);
        QSignalSpy changed(&controls, &RoomControls::changed);
        controls.touchPoint(99);
        QCOMPARE(refused.size(), 1);
        QVERIFY(refused.constFirst().constFirst().toString().contains(QStringLiteral("touch 99")));
        QVERIFY(changed.isEmpty());
        QCOMPARE(controls.send(QStringLiteral("sim  seed 5")), QStringLiteral("sim ok"));
        QCOMPARE(changed.size(), 1);
    }

    void shouldTellWhatTheToolShows()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        fake.link.ask("velmar2 set tracking extra_translation -10 0 0");
        const auto reading = controls.toolReading();
        QVERIFY(reading.has_value());
        QCOMPARE(reading->tipMm, (std::array<double, 3>{90.0, 200.0, 300.0}));
        QVERIFY(reading->isTracked);
        QVERIFY(!reading->isMeasuring);
        controls.setToolTracked(false);
        QVERIFY(!controls.toolReading()->isTracked);
    }

    void shouldTellThatATipIsBeingMeasured()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        fake.link.ask("velmar2 tracking start");
        QCOMPARE(fake.link.ask("velmar2 measurementtool start_measurement b01").text,
                 std::string("velmar2 ok"));
        fake.link.frame();
        QVERIFY(controls.toolReading()->isMeasuring);
    }

    void shouldNameThePointsOfTheWorkpiece()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        QCOMPARE(controls.pointCount(), static_cast<int>(fake.room().workpiece.points.size()));
        const auto point = controls.point(2);
        QVERIFY(point.has_value());
        QCOMPARE(point->name, QString::fromStdString(fake.room().workpiece.points.at(1).name));
        QCOMPARE(point->nominalMm[0], fake.room().workpiece.points.at(1).nominal.x);
        QVERIFY(!controls.point(99).has_value());
    }
};

ROOM_TEST_CLASS(RoomControlsTest)

#include "RoomControlsTest.moc"
