#include "CameraStatus.h"
#include "ModalAnswer.h"
#include "QuickProgress.h"

#include "TestRegistry.h"

#include <QMessageBox>
#include <QtTest>

namespace
{

const QString lastOfPreparing = QStringLiteral("read cal step_pause room s01");

} // namespace

class CalibrationProgressLifeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRefuseToStartWhileItRuns()
    {
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        int second = -1;
        int callsOfIt = -1;
        QTimer::singleShot(0, &dialog, [&] {
            const int before = bench.host.count();
            second = dialog.start(QStringLiteral("reflex_scan"));
            callsOfIt = bench.host.count() - before;
            bench.set("status active", "none");
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(second, 0);
        QCOMPARE(callsOfIt, 0);
    }

    void shouldStartAfreshAfterItsEnd()
    {
        CalibrationBench bench;
        endAfter(&bench, 5, "none"); // six ticks: the cameras' turn is not at the next one
        QuickProgress dialog(&bench);
        QCOMPARE(dialog.start(room), 1);
        QCOMPARE(dialog.overall(), 35);
        QCOMPARE(dialog.findChildren<CameraStatus *>().size(), 2);
        bench.set("camera number_of_cameras", "1");
        bench.host.clear();
        int overallAtStart = -1;
        bench.host.onCall([&](const QString &line) {
            if (line != QLatin1String("command velmar2 cal room start"))
                return;
            overallAtStart = dialog.overall();
            bench.set("status active", "none");
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(overallAtStart, 0);
        QCOMPARE(dialog.findChildren<CameraStatus *>().size(), 1);
        QCOMPARE(bench.host.calls(), lines({"read cal type_desc room", "read cal number_of_steps room",
                                            "read cal step_pause room s01", "read camera number_of_cameras",
                                            "command velmar2 get camera camera c01", "read status active",
                                            "command velmar2 cal room start", "read status active"}));
    }

    void shouldKeepItsTextsWhenTheLanguageChanges()
    {
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        QStringList before;
        QStringList after;
        const auto texts = [&] {
            return QStringList{dialog.text("label_warning"), dialog.text("label_remaining_time"),
                               dialog.text("label_name")};
        };
        QTimer::singleShot(0, &dialog, [&] {
            [&] { QTRY_VERIFY(!dialog.text("label_warning").isEmpty()); }();
            before = texts();
            QEvent change(QEvent::LanguageChange);
            QApplication::sendEvent(&dialog, &change);
            after = texts();
            bench.set("status active", "none");
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(before.at(1), QStringLiteral("remaining time: 3 seconds"));
        QCOMPARE(after, before);
    }

    void shouldBearItsDestructionByItsOwnStop()
    {
        CalibrationBench bench;
        const QPointer<QWidget> parent = new QWidget;
        auto *dialog = new QuickProgress(&bench, false, parent);
        bench.host.onCall([&](const QString &line) {
            if (line == QLatin1String("command velmar2 cal room start"))
                bench.set("status active", "cal");
            if (line == QLatin1String("command velmar2 cal room stop"))
                delete parent.data();
        });
        QTimer::singleShot(0, dialog, &CalibrationProgressDlg::reject);

        QCOMPARE(dialog->start(room), 0);

        QVERIFY(parent.isNull());
        QCOMPARE(bench.host.calls().last(), QStringLiteral("command velmar2 cal room stop"));
    }

    void shouldNotPollBeforeTheStartOrAfterTheEnd()
    {
        CalibrationBench bench;
        endAfter(&bench, 1, "none");
        QuickProgress dialog(&bench);
        for (int i = 0; i < 3; ++i) {
            dialog.update_cal_status();
            dialog.update_cam_status();
        }
        QCOMPARE(bench.host.calls(), QStringList());
        QCOMPARE(dialog.start(room), 1);
        const int count = bench.host.count();
        for (int i = 0; i < 3; ++i) {
            dialog.update_cal_status();
            dialog.update_cam_status();
        }
        QCOMPARE(bench.host.count(), count);
    }

    void shouldBearEventsInsideEveryCall()
    {
        CalibrationBench bench;
        int depth = 0;
        int deepest = 0;
        int polls = 0;
        bench.host.onCall([&](const QString &line) {
            deepest = std::max(deepest, ++depth);
            if (line == QLatin1String("command velmar2 cal room start"))
                bench.set("status active", "cal");
            if (line == poll && ++polls == 6)
                bench.set("status active", "none");
            QTest::qWait(5);
            --depth;
        });
        QuickProgress dialog(&bench);

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(deepest, 1);
    }

    void shouldNotTurnACancellationIntoASuccess()
    {
        CalibrationBench bench;
        int polls = 0;
        QuickProgress dialog(&bench);
        bench.host.onCall([&](const QString &line) {
            if (line == poll && ++polls == 4) {
                bench.set("status active", "none");
                dialog.reject();
            }
            if (line == QLatin1String("command velmar2 cal room start"))
                bench.set("status active", "cal");
        });

        QCOMPARE(dialog.start(room), 0);

        QCOMPARE(bench.host.calls().count(QStringLiteral("command velmar2 cal room stop")), 1);
        QCOMPARE(bench.host.calls().last(), QStringLiteral("command velmar2 cal room stop"));
    }

    void shouldBearItsDestructionInsideEveryCall()
    {
        const int callsOfARun = 17;
        const int callsOfPreparing = 3; // they are made in one go
        for (int k = 1; k <= callsOfARun; ++k) {
            CalibrationBench bench;
            endAfter(&bench, 3, "none");
            auto *parent = new QWidget;
            auto *dialog = new QuickProgress(&bench, false, parent);
            QPointer<QWidget> guard(parent);
            // one more layer than endAfter(): the host takes the parent away while it answers
            bool started = false;
            int polls = 0;
            bench.host.onCall([&](const QString &line) {
                if (line == QLatin1String("command velmar2 cal room start")) {
                    bench.set("status active", "cal");
                    started = true;
                }
                if (started && line == poll && ++polls > 3)
                    bench.set("status active", "none");
                if (bench.host.count() == k)
                    delete guard.data();
            });

            QCOMPARE(dialog->start(room), 0);

            QVERIFY2(guard.isNull(), qPrintable(QString::number(k)));
            QCOMPARE(bench.host.count(), std::max(k, callsOfPreparing));
        }
    }

    void shouldBearItsDestructionWhileItsErrorIsShown()
    {
        CalibrationBench bench;
        endAfter(&bench, 1, "err");
        const QPointer<QWidget> parent = new QWidget;
        auto *dialog = new QuickProgress(&bench, false, parent);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        modal.then([&](QWidget *) { delete parent.data(); });

        QCOMPARE(dialog->start(room), 0);

        QVERIFY(parent.isNull());
        QVERIFY(modal.isDone());
    }

    void shouldCancelTheCalibrationWhenTheApplicationEnds()
    {
        // GIVEN
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        int result = -1;
        QTimer::singleShot(0, &dialog, [&] {
            // WHEN
            QTimer::singleShot(0, &dialog, &QCoreApplication::quit);
            result = dialog.start(room);
        });
        QCoreApplication::exec();
        // THEN
        QCOMPARE(result, 0);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(bench.host.calls().last(), QStringLiteral("command velmar2 cal room stop"));
    }

    void shouldCancelTheCalibrationWhenTheHostHidesIt()
    {
        // GIVEN
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        // WHEN
        QTimer::singleShot(0, &dialog, &QWidget::hide);
        // THEN
        QCOMPARE(dialog.start(room), 0);
        QCOMPARE(bench.host.calls().last(), QStringLiteral("command velmar2 cal room stop"));
    }

    void shouldCancelTheCalibrationWhenTheWindowBehindIsHiddenInACall_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<bool>("isStarted");
        QTest::newRow("before a pause") << lastOfPreparing << false;
        QTest::newRow("before the start") << QStringLiteral("read camera number_of_cameras") << false;
        QTest::newRow("in the start") << QStringLiteral("command velmar2 cal room start") << true;
        QTest::newRow("in a poll") << QStringLiteral("read status progress") << true;
    }

    void shouldCancelTheCalibrationWhenTheWindowBehindIsHiddenInACall()
    {
        // GIVEN
        QFETCH(QString, call);
        QFETCH(bool, isStarted);
        CalibrationBench bench;
        QWidget window;
        window.show();
        bench.host.onCall([&](const QString &line) {
            if (line == QLatin1String("command velmar2 cal room start"))
                bench.set("status active", "cal");
            if (line == call)
                window.hide();
        });
        QuickProgress dialog(&bench, false, &window);
        // WHEN
        const int result = dialog.start(room);
        // THEN
        QCOMPARE(result, 0);
        QVERIFY(!dialog.isVisible());
        const QStringList calls = bench.host.calls();
        QCOMPARE(calls.contains(QStringLiteral("command velmar2 cal room start")), isStarted);
        QCOMPARE(calls.count(QStringLiteral("command velmar2 cal room stop")), isStarted ? 1 : 0);
        // Who has not got to the cameras yet does not ask for them any more.
        QCOMPARE(calls.contains(QStringLiteral("read camera number_of_cameras")), call != lastOfPreparing);
    }

    void shouldLeaveAReflexScanToItselfWhenTheApplicationEnds()
    {
        // GIVEN
        CalibrationBench bench;
        endAfter(&bench, 1000000, "none");
        QuickProgress dialog(&bench);
        int result = -1;
        QTimer::singleShot(0, &dialog, [&] {
            // WHEN
            QTimer::singleShot(0, &dialog, &QCoreApplication::quit);
            result = dialog.start(QStringLiteral("reflex_scan"));
        });
        QCoreApplication::exec();
        // THEN
        QCOMPARE(result, 0);
        QVERIFY(!dialog.isVisible());
        QVERIFY(!bench.host.calls().contains(QStringLiteral("command velmar2 cal reflex_scan stop")));
    }

    void shouldEndAtAnyFailure()
    {
        CalibrationBench reference;
        endAfter(&reference, 6, "none");
        QuickProgress whole(&reference);
        (void)whole.start(room);
        const int calls = reference.host.count();
        QVERIFY(calls > 20);
        for (int k = 1; k <= calls; ++k) {
            CalibrationBench bench;
            bench.host.failCall(k);
            endAfter(&bench, 6, "none");
            QuickProgress dialog(&bench);
            const bool startFails = k == 8;

            QCOMPARE(dialog.start(room), startFails ? 0 : 1);

            QCOMPARE(bench.host.reports(),
                     k == 4 ? lines({"Error: Unable to get the number of cameras"}) : QStringList());
        }
    }

    void shouldEndWhenEveryCallFailsFromOneOn()
    {
        for (int k = 1; k <= 30; ++k) {
            CalibrationBench bench;
            bench.host.failFrom(k);
            endAfter(&bench, 1000000, "none");
            QuickProgress dialog(&bench);
            QTimer::singleShot(40, &dialog, &CalibrationProgressDlg::reject);
            QCOMPARE(dialog.start(room), 0);
            QCOMPARE(bench.host.calls().count(QStringLiteral("command velmar2 cal room stop")),
                     k <= 8 ? 0 : 1);
        }
    }
};

ROOM_TEST_CLASS(CalibrationProgressLifeTest)
#include "CalibrationProgressLifeTest.moc"
