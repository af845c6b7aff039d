#include "CameraStatus.h"
#include "ModalAnswer.h"
#include "QuickProgress.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

QStringList startOfRoom()
{
    return lines({"read cal type_desc room", "read cal number_of_steps room", "read cal step_pause room s01",
                  "read camera number_of_cameras", "command velmar2 get camera camera c01",
                  "command velmar2 get camera camera c02", "read status active",
                  "command velmar2 cal room start"});
}

QStringList onePoll()
{
    return lines({"read status active", "read status progress", "read status step_progress",
                  "read cal step_duration room s01"});
}

} // namespace

class CalibrationProgressDlgTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLookAsAgreedWithCameras()
    {
        CalibrationBench bench(1, 11, 0);
        const QuickProgress dialog(&bench);

        QCOMPARE(dialog.windowTitle(), QStringLiteral("Calibration Progress"));
        QVERIFY(!dialog.windowIcon().isNull());
        QVERIFY(dialog.hides("frame_name"));
        QVERIFY(!dialog.hides("frame_grid"));
        QCOMPARE(dialog.text("label_remaining_time"), QString());
        QCOMPARE(dialog.text("label_info"), QString());
        QCOMPARE(dialog.text("label_warning"), QString());
        QCOMPARE(dialog.text("label_name"), QStringLiteral("room calibration"));
        QCOMPARE(dialog.cancel()->text(), QStringLiteral("Cancel"));
        QVERIFY(!dialog.cancel()->autoDefault());
        QCOMPARE(dialog.findChild<QProgressBar *>(QStringLiteral("progressBar_overall"))->value(), 0);
        QCOMPARE(bench.host.calls(), QStringList());
    }

    void shouldOwnTheTimersOfPollAndWarning()
    {
        CalibrationBench bench(1, 11, 0);
        const CalibrationProgressDlg dialog(&bench.host, nullptr, &bench.versions, false);

        const auto timers = dialog.findChildren<QTimer *>();
        QCOMPARE(timers.size(), 2);
        QCOMPARE(timers.first()->interval(), 200);
        QVERIFY(!timers.first()->isSingleShot());
        QCOMPARE(timers.last()->interval(), 5000);
        QVERIFY(timers.last()->isSingleShot());
        QCOMPARE(timers.last()->timerType(), Qt::PreciseTimer);
        QVERIFY(!timers.first()->isActive());
        QVERIFY(!timers.last()->isActive());
    }

    void shouldDecideByTheVersionWhatItShows_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<int>("patch");
        QTest::addColumn<bool>("cameras");
        QTest::addColumn<bool>("time");
        QTest::newRow("1.3.9") << 1 << 3 << 9 << false << false;
        QTest::newRow("1.4.0") << 1 << 4 << 0 << false << true;
        QTest::newRow("1.4 unknown") << 1 << 4 << -1 << false << true;
        QTest::newRow("1.10.5") << 1 << 10 << 5 << false << true;
        QTest::newRow("1.11.0") << 1 << 11 << 0 << true << true;
        QTest::newRow("1.11 unknown") << 1 << 11 << -1 << true << true;
        QTest::newRow("1.11 invalid") << 1 << 11 << -2 << false << true;
        QTest::newRow("2.0.0") << 2 << 0 << 0 << true << true;
    }

    void shouldDecideByTheVersionWhatItShows()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(int, patch);
        QFETCH(bool, cameras);
        QFETCH(bool, time);
        CalibrationBench bench(major, minor, patch);
        endAfter(&bench, 7, "none");
        QuickProgress dialog(&bench);

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(dialog.hides("frame_name"), cameras);
        QCOMPARE(!dialog.hides("frame_grid"), cameras);
        QCOMPARE(dialog.findChildren<CameraStatus *>().size(), cameras ? 2 : 0);
        QCOMPARE(bench.host.calls().contains(QStringLiteral("read camera number_of_cameras")), cameras);
        const QString refresh = QStringLiteral("command velmar2 get status camera_progress c01");
        QCOMPARE(bench.host.calls().count(refresh), cameras ? 2 : 0);
        QCOMPARE(dialog.text("label_remaining_time"),
                 time ? QStringLiteral("remaining time: 3 seconds") : QString());
    }

    void shouldMakeExactlyTheseCalls()
    {
        CalibrationBench bench;
        endAfter(&bench, 3, "none");
        QuickProgress dialog(&bench);

        QCOMPARE(dialog.start(room), 1);

        const QStringList cameras = lines({"command velmar2 get status camera_progress c01",
                                           "command velmar2 get status camera_progress c02"});
        const QStringList expected =
            startOfRoom() + onePoll() + onePoll() + onePoll() + cameras + lines({"read status active"});
        QCOMPARE(bench.host.calls(), expected);
        QCOMPARE(dialog.overall(), 35);
        QCOMPARE(dialog.text("label_percent"), QStringLiteral("35%"));
        QCOMPARE(dialog.information(), QStringLiteral("room calibration"));
        const auto boxes = dialog.findChildren<CameraStatus *>();
        QCOMPARE(boxes[0]->findChild<QProgressBar *>()->value(), 35);
        QCOMPARE(boxes[1]->findChild<QProgressBar *>()->value(), 100);
    }

    void shouldRefreshTheCamerasOnEveryThirdTick()
    {
        CalibrationBench bench;
        endAfter(&bench, 9, "none");
        QuickProgress dialog(&bench);
        (void)dialog.start(room);
        QCOMPARE(bench.host.calls().count(poll), 1 + 10);
        QCOMPARE(bench.host.calls().count(QStringLiteral("command velmar2 get status camera_progress c02")),
                 3);
    }

    void shouldRefreshTheCamerasOnTheTickThatSeesTheEndToo_data()
    {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("success") << QByteArray("none");
        QTest::newRow("error") << QByteArray("err");
    }

    void shouldRefreshTheCamerasOnTheTickThatSeesTheEndToo()
    {
        QFETCH(QByteArray, end);
        CalibrationBench bench;
        endAfter(&bench, 2, end);
        QuickProgress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        if (end == "err")
            modal.thenPress(QMessageBox::Ok);

        QCOMPARE(dialog.start(room), end == "none" ? 1 : 0);

        const QStringList cameras = lines({"command velmar2 get status camera_progress c01",
                                           "command velmar2 get status camera_progress c02"});
        QCOMPARE(bench.host.calls().mid(bench.host.calls().size() - 2), cameras);
        QCOMPARE(bench.host.calls().count(cameras.first()), 1);
    }

    void shouldPollFiveTimesASecond()
    {
        // GIVEN
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        CalibrationProgressDlg dialog(&bench.host, nullptr, &bench.versions, false);
        int polls = 0;
        qint64 passedMs = 0;
        QTimer::singleShot(0, &dialog, [&] {
            const int before = bench.host.calls().count(poll);
            QElapsedTimer time;
            time.start();
            // WHEN
            TestClock::advance(2s);
            passedMs = time.elapsed(); // on a busy machine more than was put forward
            polls = bench.host.calls().count(poll) - before;
            dialog.reject();
        });
        (void)dialog.start(room);
        // THEN
        QVERIFY2(polls >= 9, qPrintable(QString::number(polls)));
        QVERIFY2(polls <= passedMs / 190 + 1, qPrintable(QString::number(polls)));
    }

    void shouldBeginEveryCameraAnewWhenTheirNumberCannotBeRead()
    {
        // GIVEN: boxes that are left from a run
        CalibrationBench bench(1, 11, 0);
        endAfter(&bench, 7, "none");
        QuickProgress dialog(&bench);
        QCOMPARE(dialog.start(room), 1);
        const auto boxes = dialog.findChildren<CameraStatus *>();
        QCOMPARE(boxes.size(), 2);
        for (CameraStatus *box : boxes)
            box->set_progressBar(40);
        // WHEN: a start that is refused, so that no camera is asked afterwards
        bench.host.failText(QStringLiteral("camera number_of_cameras"));
        bench.host.failText(QStringLiteral("velmar2 cal room start"));
        QCOMPARE(dialog.start(room), 0);
        // THEN
        QCOMPARE(dialog.findChildren<CameraStatus *>(), boxes);
        for (CameraStatus *box : boxes)
            QCOMPARE(box->findChild<QProgressBar *>()->value(), 0);
    }

    void shouldReturnZeroWhenTheStartIsRefused_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("error") << QByteArray("velmar2 err 12 \"calibration is running\"");
        QTest::newRow("ok with more") << QByteArray("velmar2 ok 1");
        QTest::newRow("other case") << QByteArray("Velmar2 ok");
    }

    void shouldReturnZeroWhenTheStartIsRefused()
    {
        QFETCH(QByteArray, answer);
        CalibrationBench bench;
        bench.set("velmar2 cal room start", answer);
        QuickProgress dialog(&bench);
        bool wasShown = false;
        bench.host.onCall([&](const QString &) { wasShown = wasShown || dialog.isVisible(); });

        QCOMPARE(dialog.start(room), 0);

        QCOMPARE(bench.host.calls(), startOfRoom());
        QVERIFY(!wasShown);
        TestClock::advance(100ms);
        QCOMPARE(bench.host.calls(), startOfRoom());
    }

    void shouldCountDownAnAnnouncedPauseFirst()
    {
        CalibrationBench bench;
        bench.set("cal step_pause room s01", "yes 3");
        endAfter(&bench, 1, "none");
        QuickProgress dialog(&bench);
        dialog.setCountdownTick(1h);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        QString title;
        QStringList callsBefore;
        modal.then([&](QWidget *window) {
            title = window->windowTitle();
            callsBefore = bench.host.calls();
            qobject_cast<QDialog *>(window)->accept();
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(title, QStringLiteral("Waiting"));
        QCOMPARE(callsBefore, startOfRoom().mid(0, 3));
    }

    void shouldStartNothingWhenTheFirstPauseIsCancelled()
    {
        CalibrationBench bench;
        bench.set("cal step_pause room s01", "yes 3");
        QuickProgress dialog(&bench);
        dialog.setCountdownTick(1h);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        modal.then([](QWidget *window) { window->close(); });

        QCOMPARE(dialog.start(room), 0);

        QCOMPARE(bench.host.calls(), startOfRoom().mid(0, 3));
        TestClock::advance(100ms);
        QCOMPARE(bench.host.count(), 3);
    }

    void shouldSendOneStopWhenCancelled_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("button") << 0;
        QTest::newRow("escape") << 1;
        QTest::newRow("close button") << 2;
        QTest::newRow("slot, twice") << 3;
    }

    void shouldSendOneStopWhenCancelled()
    {
        QFETCH(int, way);
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        QTimer::singleShot(30, &dialog, [&] {
            if (way == 0)
                QTest::mouseClick(dialog.cancel(), Qt::LeftButton);
            else if (way == 1)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else if (way == 2)
                dialog.close();
            else {
                dialog.reject();
                dialog.reject();
            }
        });

        QCOMPARE(dialog.start(room), 0);

        const QString stop = QStringLiteral("command velmar2 cal room stop");
        QCOMPARE(bench.host.calls().count(stop), 1);
        QCOMPARE(bench.host.calls().last(), stop);
        TestClock::advance(100ms);
        QCOMPARE(bench.host.calls().last(), stop);
        QVERIFY(!bench.host.calls().contains(QStringLiteral("command velmar2 tracking start")));
    }

    void shouldNotBeCancelledByEnter()
    {
        CalibrationBench bench;
        endAfter(&bench, 20, "none");
        QuickProgress dialog(&bench);
        QTimer::singleShot(5, &dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Return); });
        QCOMPARE(dialog.start(room), 1);
    }

    void shouldShowTheErrorAndSendNoStop()
    {
        CalibrationBench bench;
        bench.set("velmar2 get status err", R"(velmar2 get status err 17 "<u>Angle tool</u> not found.")");
        endAfter(&bench, 1, "err");
        QuickProgress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        int callsAtBox = 0;
        int callsLater = 0;
        modal.then([&](QWidget *window) {
            callsAtBox = bench.host.calls().size();
            TestClock::advance(100ms);
            callsLater = bench.host.calls().size();
            auto *box = qobject_cast<QMessageBox *>(window);
            QCOMPARE(box->windowTitle(), QStringLiteral("Calibration Error"));
            QCOMPARE(box->text(), QStringLiteral("<u>Angle tool</u> not found."));
            QCOMPARE(box->textFormat(), Qt::PlainText); // letter by letter
            QCOMPARE(box->icon(), QMessageBox::Critical);
            box->accept();
        });

        QCOMPARE(dialog.start(room), 0);

        QVERIFY(modal.isDone());
        QCOMPARE(callsLater, callsAtBox);
        QCOMPARE(bench.host.calls(),
                 startOfRoom() + onePoll() + lines({"read status active", "command velmar2 get status err"}));
    }

    void shouldWarnWhenTheProgressStandsStill()
    {
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        QString warning;
        QString afterwards = QStringLiteral("never looked");
        bool infoWasHidden = false;
        QTimer::singleShot(0, &dialog, [&] {
            [&] { QTRY_VERIFY(!dialog.text("label_warning").isEmpty()); }();
            warning = dialog.text("label_warning");
            infoWasHidden = !dialog.shows("label_info") && dialog.shows("label_warning");
            dialog.setStallInterval(1h);
            bench.set("status progress", "0.36");
            [&] { QTRY_COMPARE(dialog.overall(), 36); }();
            afterwards = dialog.text("label_warning");
            bench.set("status active", "none");
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(warning, QStringLiteral("<b><font color=red>Please move the wand in the view scope of ALL "
                                         "cameras!</font></b>"));
        QVERIFY(infoWasHidden);
        QCOMPARE(afterwards, QString());
    }

    void shouldMoveNothingWhenASentenceComesOrGoes()
    {
        // GIVEN
        CalibrationBench bench;
        QuickProgress dialog(&bench);
        dialog.show();
        const auto places = [&dialog] {
            QCoreApplication::sendPostedEvents();
            QList<QPoint> list;
            for (const char *name : {"progressBar_overall", "label_remaining_time", "pb_cancel"})
                list.append(dialog.findChild<QWidget *>(QLatin1String(name))->pos());
            return list;
        };
        auto *info = dialog.findChild<QLabel *>(QStringLiteral("label_info"));
        auto *warning = dialog.findChild<QLabel *>(QStringLiteral("label_warning"));
        info->show();
        warning->show();
        const QList<QPoint> before = places();
        // WHEN THEN
        info->hide();
        QCOMPARE(places(), before);
        warning->hide();
        QCOMPARE(places(), before);
        QVERIFY(dialog.findChild<QWidget *>(QStringLiteral("pb_cancel"))->y() > 0);
    }

    void shouldMoveNoBarWhenTheFramesOfCamerasGetThicker()
    {
        // GIVEN: the window of a calibration that runs
        CalibrationBench bench;
        endAfter(&bench, 60, "none");
        QuickProgress dialog(&bench);
        const auto places = [&dialog] {
            QCoreApplication::sendPostedEvents();
            QList<QRect> list;
            const auto bars = dialog.findChildren<QProgressBar *>();
            for (const QProgressBar *bar : bars)
                list.append({bar->mapTo(&dialog, QPoint(0, 0)), bar->size()});
            return list;
        };
        QList<QRect> before;
        QList<QRect> marked;
        QList<QRect> unmarked;
        QTimer::singleShot(5, &dialog, [&] {
            before = places();
            // WHEN
            dialog.onReceiveMostActiveChanges(QStringLiteral("0,2"));
            marked = places();
            dialog.onReceiveMostActiveChanges(QString());
            unmarked = places();
        });
        QCOMPARE(dialog.start(room), 1);
        // THEN
        QVERIFY(before.size() > 2);
        QVERIFY(before.first().width() > 0);
        QCOMPARE(marked, before);
        QCOMPARE(unmarked, before);
    }

    void shouldCountDownOverTheWindowThatIsSeen()
    {
        // GIVEN: the progress window is shown only after this pause
        CalibrationBench bench;
        bench.set("cal step_pause room s01", "yes 3");
        QWidget window;
        window.setGeometry(300, 200, 600, 500);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QuickProgress dialog(&bench, false, &window);
        dialog.setCountdownTick(1h);
        ModalAnswer modal;
        QRect waitingPlace;
        const QWidget *parent = nullptr;
        modal.then([&](QWidget *waiting) {
            waitingPlace = waiting->geometry();
            parent = waiting->parentWidget();
            waiting->close();
        });
        // WHEN
        QCOMPARE(dialog.start(room), 0);
        // THEN
        QCOMPARE(parent, &window);
        QVERIFY(window.geometry().contains(waitingPlace.center()));
    }

    void shouldNotWarnOutsideRoomCalibrations()
    {
        CalibrationBench bench;
        endAfter(&bench, 100, "none");
        QuickProgress dialog(&bench);
        QCOMPARE(dialog.start(QStringLiteral("reflex_scan")), 1);
        QCOMPARE(dialog.text("label_warning"), QString());
    }

    void shouldSayThatItCalculates()
    {
        CalibrationBench bench;
        bench.set("status progress", "1.0");
        bench.set("status step_progress", "1 1.0");
        endAfter(&bench, 100, "none");
        QuickProgress dialog(&bench);
        bool isShown = false;
        QTimer::singleShot(0, &dialog, [&] {
            [&] { QTRY_COMPARE(dialog.text("label_info"), QStringLiteral("calculating...")); }();
            isShown = dialog.shows("label_info");
        });

        QCOMPARE(dialog.start(room), 1);

        QVERIFY(isShown);
        QCOMPARE(dialog.text("label_warning"), QString());
        QCOMPARE(dialog.overall(), 100);
    }

    void shouldNotLetAReflexScanBeCancelled()
    {
        CalibrationBench bench;
        endAfter(&bench, 200, "none");
        QuickProgress dialog(&bench);
        Qt::WindowFlags flags;
        QTimer::singleShot(10, &dialog, [&] {
            flags = dialog.windowFlags();
            QVERIFY(!dialog.shows("pb_cancel"));
            QTest::keyClick(&dialog, Qt::Key_Escape);
            dialog.close();
            dialog.reject();
            QVERIFY(dialog.isVisible());
        });

        QCOMPARE(dialog.start(QStringLiteral("reflex_scan")), 1);

        QVERIFY(flags.testFlag(Qt::WindowTitleHint));
        QVERIFY(flags.testFlag(Qt::CustomizeWindowHint));
        QVERIFY(!flags.testFlag(Qt::WindowCloseButtonHint));
        QVERIFY(!bench.host.calls().contains(QStringLiteral("command velmar2 cal reflex_scan stop")));
        QCOMPARE(dialog.information(),
                 QStringLiteral("reflex scan\nCurrently this calibration cannot be interrupted!"));
    }

    void shouldHaveACloseButtonForOtherKinds()
    {
        CalibrationBench bench;
        endAfter(&bench, 1, "none");
        QuickProgress dialog(&bench);
        QCOMPARE(dialog.start(room), 1);
        QVERIFY(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::CustomizeWindowHint));
    }

    void shouldGoOnWithoutCamerasWhenTheyCannotBeCounted()
    {
        CalibrationBench bench;
        bench.host.failText(QStringLiteral("camera number_of_cameras"));
        endAfter(&bench, 3, "none");
        QuickProgress dialog(&bench);

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(bench.host.reports(), lines({"Error: Unable to get the number of cameras"}));
        QCOMPARE(dialog.findChildren<CameraStatus *>().size(), 0);
    }

    void shouldLayTheCamerasOutInRows_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("column");
        QTest::newRow("8") << 8 << 1 << 1;
        QTest::newRow("100") << 100 << 16 << 3;
        QTest::newRow("101") << 101 << 8 << 4;
    }

    void shouldLayTheCamerasOutInRows()
    {
        QFETCH(int, count);
        CalibrationBench bench;
        bench.set("camera number_of_cameras", QByteArray::number(count));
        endAfter(&bench, 1, "none");
        QuickProgress dialog(&bench);

        QCOMPARE(dialog.start(room), 1);

        auto *grid = dialog.findChild<QGridLayout *>(QStringLiteral("gridLayout_cam"));
        QCOMPARE(grid->count(), count);
        int row = -1;
        int column = -1;
        int rowSpan = 0;
        int columnSpan = 0;
        grid->getItemPosition(count - 1, &row, &column, &rowSpan, &columnSpan);
        QTEST(row, "row");
        QTEST(column, "column");
        auto *area = dialog.findChild<QScrollArea *>(QStringLiteral("scrollArea_cam"));
        if (count == 8)
            QVERIFY(area->minimumWidth() >= area->widget()->sizeHint().width());
        const QSize screenSize = dialog.screen()->size();
        QVERIFY(dialog.width() <= screenSize.width() && dialog.height() <= screenSize.height());
    }

    void shouldMarkTheMostActiveCamerasAndShowTabs()
    {
        CalibrationBench bench;
        endAfter(&bench, 30, "none");
        QuickProgress dialog(&bench);
        QTimer::singleShot(5, &dialog, [&] {
            QMetaObject::invokeMethod(&dialog, "onReceiveMostActiveChanges",
                                      Q_ARG(QString, QStringLiteral("1,10")));
            QMetaObject::invokeMethod(&dialog, "onReceiveCameraTabChanges",
                                      Q_ARG(QString, QStringLiteral("2,3,4")));
        });

        QCOMPARE(dialog.start(room), 1);

        const auto boxes = dialog.findChildren<CameraStatus *>();
        QVERIFY(!boxes[0]->isHighlighted());
        QVERIFY(boxes[1]->isHighlighted());
        QCOMPARE(boxes[0]->findChild<QLabel *>(QStringLiteral("label_tab"))->text(),
                 QStringLiteral("tab 03"));
        QCOMPARE(boxes[1]->findChild<QLabel *>(QStringLiteral("label_tab"))->text(),
                 QStringLiteral("tab 04"));
        dialog.onReceiveMostActiveChanges(QString());
        QVERIFY(!boxes[1]->isHighlighted());
    }

    void shouldKeepTheSlotsInTheirOrder()
    {
        const QMetaObject &meta = CalibrationProgressDlg::staticMetaObject;
        QStringList slotNames;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            slotNames.append(QString::fromLatin1(meta.method(i).methodSignature()));
        QCOMPARE(slotNames, lines({"update_cal_status()", "reject()", "accept()", "show_warning()",
                                   "update_cam_status()", "onReceiveCameraTabChanges(QString)",
                                   "onReceiveMostActiveChanges(QString)"}));
    }
};

ROOM_TEST_CLASS(CalibrationProgressDlgTest)
#include "CalibrationProgressDlgTest.moc"
