#include "ModalAnswer.h"
#include "QuickProgress.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QLCDNumber>
#include <QMessageBox>
#include <QProgressBar>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

/// With pauses between the steps; a countdown does not run out.
class Progress : public QuickProgress
{
public:
    explicit Progress(CalibrationBench *bench)
        : QuickProgress(bench, true)
    {
        setCountdownTick(1h);
    }
};

/// The answers to "status step_active", one after another; the last one stays.
void answerSteps(CalibrationBench *bench, const QList<QByteArray> &steps)
{
    auto next = std::make_shared<int>(0);
    bench->host.onCall([=](const QString &line) {
        if (line == QLatin1String("read status step_active"))
            bench->set("status step_active", steps[std::min(int(steps.size()) - 1, (*next)++)]);
    });
}

void acceptWaiting(QWidget *window)
{
    [&] { QCOMPARE(window->windowTitle(), QStringLiteral("Waiting")); }();
    qobject_cast<QDialog *>(window)->accept();
}

} // namespace

class TwoStepCalibrationTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCountBothPausesWithTheFirstStepsTime()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        answerSteps(&bench, {"cal 1", "pause 1", "cal 2", "none"});
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        QList<int> seconds;
        const auto note = [&](QWidget *window) {
            seconds.append(window->findChild<QLCDNumber *>()->intValue());
            acceptWaiting(window);
        };
        modal.then(note).then(note);

        QCOMPARE(dialog.start(room), 1);

        QVERIFY(modal.isDone());
        QCOMPARE(seconds, (QList<int>{8, 8}));
        const QStringList round = lines({"read status step_active", "read status progress",
                                         "read status step_progress", "read cal step_duration room s01"});
        QCOMPARE(bench.host.calls(),
                 lines({"read cal type_desc room", "read cal number_of_steps room",
                        "read cal step_pause room s01", "command velmar2 get cal step_pause room s01",
                        "command velmar2 get cal step_pause room s02", "read status active",
                        "command velmar2 cal room start"}) +
                     round + lines({"read status step_active"}) + round + lines({"read status step_active"}));
        QCOMPARE(dialog.information(), QStringLiteral("room calibration is a 2 step calibration."));
    }

    void shouldEndWithoutAStopWhenThePauseIsCancelled()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        answerSteps(&bench, {"cal 1", "pause 1"});
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        modal.then(acceptWaiting).then([](QWidget *window) { window->close(); });

        QCOMPARE(dialog.start(room), 0);

        QVERIFY(!bench.host.calls().contains(QStringLiteral("command velmar2 cal room stop")));
        const int count = bench.host.count();
        TestClock::advance(100ms);
        QCOMPARE(bench.host.count(), count);
    }

    void shouldNotPollDuringThePause()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        answerSteps(&bench, {"pause 1", "none"});
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        int before = 0;
        int after = -1;
        modal.then(acceptWaiting).then([&](QWidget *window) {
            before = bench.host.count();
            TestClock::advance(100ms);
            dialog.update_cal_status();
            after = bench.host.count();
            acceptWaiting(window);
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(after, before);
    }

    void shouldBeStoppedDuringThePause()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        answerSteps(&bench, {"pause 1"});
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        bool isLeftOpen = true;
        modal.then(acceptWaiting).then([&](QWidget *waiting) {
            dialog.reject();
            isLeftOpen = waiting->isVisible();
        });

        QCOMPARE(dialog.start(room), 0);

        QVERIFY(!isLeftOpen);

        QCOMPARE(bench.host.calls().count(QStringLiteral("command velmar2 cal room stop")), 1);
    }

    void shouldClearAnErrorWithTracking()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        bench.set("velmar2 get status err", "velmar2 get status err 5 \"too dark\"");
        answerSteps(&bench, {"err"});
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        modal.then(acceptWaiting).thenPress(QMessageBox::Ok);

        QCOMPARE(dialog.start(room), 0);

        QCOMPARE(modal.boxes(), lines({"Calibration Error|too dark"}));
        QCOMPARE(bench.host.calls().mid(7),
                 lines({"read status step_active", "command velmar2 get status err",
                        "command velmar2 tracking start", "command velmar2 tracking stop"}));
    }

    void shouldTreatAPauseThatIsNotAnnouncedAsOneStep()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "no");
        bench.host.onCall([&](const QString &line) {
            if (line == QLatin1String("command velmar2 cal room start"))
                bench.set("status active", "none");
        });
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        modal.then(acceptWaiting);

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(bench.host.calls().last(), QStringLiteral("read status active"));
        QCOMPARE(dialog.information(), QStringLiteral("room calibration"));
    }

    void shouldRunTheCountdownOutInShortenedTime()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 4", "yes 3");
        answerSteps(&bench, {"cal 1", "pause 1", "cal 2", "none"});
        Progress dialog(&bench);
        dialog.setCountdownTick(2ms);
        QCOMPARE(dialog.start(room), 1);
    }

    void shouldCountNoFasterThanInTheTicksItIsGiven()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        answerSteps(&bench, {"none"});
        Progress dialog(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        int seconds = -1;
        modal.then([&](QWidget *window) {
            TestClock::advance(1100ms); // of an hour
            seconds = window->findChild<QLCDNumber *>()->intValue();
            acceptWaiting(window);
        });

        QCOMPARE(dialog.start(room), 1);

        QCOMPARE(seconds, 8);
    }

    /// Before the first step the countdown stands over the window behind, and outlives what it counts for.
    void shouldLeaveNoCountdownOpenWhenItIsDestroyedDuringTheFirstPause()
    {
        // GIVEN
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        QWidget window;
        window.show();
        auto *dialog = new QuickProgress(&bench, true, &window);
        dialog->setCountdownTick(1h);
        ModalAnswer modal;
        bool isLeftOpen = true;
        modal.then([&](QWidget *waiting) {
            delete dialog;
            isLeftOpen = waiting->isVisible();
            waiting->close();
        });
        // WHEN
        QCOMPARE(dialog->start(room), 0);
        // THEN
        QVERIFY(modal.isDone());
        QVERIFY(!isLeftOpen);
    }

    void shouldBearItsDestructionDuringThePause()
    {
        CalibrationBench bench(1, 10);
        bench.setTwoSteps("yes 8", "yes 3");
        answerSteps(&bench, {"pause 1"});
        auto *dialog = new Progress(&bench);
        ModalAnswer modal;
        modal.leaveAlone(progressTitle);
        modal.then(acceptWaiting).then([&](QWidget *) { delete dialog; });

        QCOMPARE(dialog->start(room), 0);

        QVERIFY(modal.isDone());
    }
};

ROOM_TEST_CLASS(TwoStepCalibrationTest)
#include "TwoStepCalibrationTest.moc"
