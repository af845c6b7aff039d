#include "BackendVersions.h"
#include "BenchIOManager.h"
#include "ControllerProcess.h"
#include "ModalAnswer.h"
#include "RemoteController.h"
#include "RoomAdjustmentDlg2g.h"
#include "TestRegistry.h"

#include <QPushButton>
#include <QtTest>

namespace
{

BackendVersions currentVersions()
{
    BackendVersions versions;
    versions.interfaceMajor = 1;
    versions.interfaceMinor = 23;
    versions.interfacePatch = -1;
    return versions;
}

/// The dialog on a channel to a controller in another process.
struct Session {
    RemoteController link;
    BenchIOManager channel{link};
    QSignalSpy errors{&channel, &BenchIOManager::errorReported};
    BackendVersions versions = currentVersions();
    RoomAdjustmentDlg2g dialog{&channel, nullptr, &versions, QString()};
    ModalAnswer answer;

    explicit Session(quint16 port)
        : link(QStringLiteral("127.0.0.1"), port)
    {
        link.setRetryPause(std::chrono::milliseconds(20));
        link.open();
    }

    void click(const char *name)
    {
        QTest::mouseClick(dialog.findChild<QPushButton *>(QLatin1String(name)), Qt::LeftButton);
    }

    QStringList takeErrors()
    {
        QStringList messages;
        for (const QList<QVariant> &error : qAsConst(errors))
            messages << error.value(3).toString();
        errors.clear();
        return messages;
    }

    std::string rotation() { return link.ask("velmar2 get tracking extra_rotation").text; }
};

const QStringList everyFailure = {QStringLiteral("Error: Unable to check tracking status"),
                                  QStringLiteral("Error: Unable to set room adjustment rotation"),
                                  QStringLiteral("Error: Unable to set room adjustment translation"),
                                  QStringLiteral("Error: Unable to set room adjustment scaling"),
                                  QStringLiteral("Error: Unable to get number of cameras"),
                                  QStringLiteral("Error: Unable to start tracking")};

const std::string quarterTurn =
    "velmar2 get tracking extra_rotation 0.00000000 -1.00000000 0.00000000 1.00000000 "
    "0.00000000 0.00000000 0.00000000 0.00000000 1.00000000";

} // namespace

/// The controller's process goes away and comes back while the dialog is open.
class LostControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReportEveryCallOfALostController();
    void shouldWriteToTheControllerThatCameBack();
};

void LostControllerTest::shouldReportEveryCallOfALostController()
{
    ControllerProcess server;
    QVERIFY(server.start());
    Session session(server.port());
    QStringList reported;
    session.answer.then([&](QWidget *) {
        session.dialog.setRoomAngles(0.0, 0.0, 90.0);
        session.takeErrors();
        server.kill();
        session.click("btn_apply");
        reported = session.takeErrors();
        session.click("btn_ok");
    });
    QCOMPARE(session.dialog.update_and_exec(), int(QDialog::Accepted));
    QCOMPARE(reported, everyFailure);
    QVERIFY(session.answer.unexpected().isEmpty());
}

void LostControllerTest::shouldWriteToTheControllerThatCameBack()
{
    ControllerProcess server, again;
    QVERIFY(server.start());
    Session session(server.port());
    bool isBack = false;
    QStringList reported;
    session.answer.then([&](QWidget *) {
        session.dialog.setRoomAngles(0.0, 0.0, 90.0);
        server.kill();
        session.click("btn_apply");
        isBack = again.start(server.port()) && QTest::qWaitFor([&] { return session.link.isConnected(); });
        session.takeErrors();
        session.dialog.ondo_btn_apply_enable(true);
        session.click("btn_apply");
        reported = session.takeErrors();
        session.click("btn_ok");
    });
    QCOMPARE(session.dialog.update_and_exec(), int(QDialog::Accepted));
    QVERIFY(isBack);
    QCOMPARE(reported, QStringList());
    QCOMPARE(session.rotation(), quarterTurn);
    QCOMPARE(session.link.ask("velmar2 get status active").text,
             std::string("velmar2 get status active none"));
}

ROOM_TEST_CLASS(LostControllerTest)
#include "LostControllerTest.moc"
