#include "CalibrationRun.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"

#include "TestRegistry.h"

#include <QtTest>

#include <memory>

namespace
{

using State = CalibrationPoll::State;

QStringList lines(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromLatin1(text));
    return list;
}

} // namespace

class CalibrationRunTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHaveSeenNothingAtFirst()
    {
        const CalibrationPoll poll;
        QVERIFY(poll.state == CalibrationPoll::State::Unchanged);
        QVERIFY(!poll.firstStepIsComplete);
    }

    void init()
    {
        m_versions = BackendVersions();
        m_versions = interfaceVersion(1, 4, 0);
        m_host = std::make_unique<RecordingHost>();
        set("cal type_desc room", "\"room calibration\"");
        set("cal number_of_steps room", "1");
        set("cal step_pause room s01", "no");
        set("cal step_duration room s01", "5.000");
        set("status progress", "0.29");
        set("status step_progress", "1 0.35");
        set("status step_active", "cal 1");
    }

    void shouldAskForDescriptionStepsAndPause()
    {
        set("cal step_pause room s01", "yes 7");
        CalibrationRun run = newRun(false);

        run.prepare("room");

        QCOMPARE(m_host->calls(), lines({"read cal type_desc room", "read cal number_of_steps room",
                                         "read cal step_pause room s01"}));
        QCOMPARE(run.description(), QByteArray("\"room calibration\""));
        QCOMPARE(run.steps(), 1);
        QCOMPARE(run.pauseSeconds(), 7);
    }

    void shouldAskForBothPausesOfTwoSteps()
    {
        set("cal number_of_steps room", "2");
        setPause(1, "yes 8");
        setPause(2, "yes 0");
        CalibrationRun run = newRun(true);

        run.prepare("room");

        QCOMPARE(m_host->calls(),
                 lines({"read cal type_desc room", "read cal number_of_steps room",
                        "read cal step_pause room s01", "command velmar2 get cal step_pause room s01",
                        "command velmar2 get cal step_pause room s02"}));
        QCOMPARE(run.steps(), 2);
        QCOMPARE(run.pauseSeconds(), 8);
        QCOMPARE(run.pauseOfSecondStep(), 5);
    }

    void shouldFallBackToOneStepWhenAPauseIsNotAnnounced_data()
    {
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<QByteArray>("second");
        QTest::addColumn<int>("calls");
        QTest::addColumn<int>("pause");
        QTest::newRow("first") << QByteArray("no") << QByteArray("yes 5") << 4 << 3;
        QTest::newRow("second") << QByteArray("yes 8") << QByteArray("no") << 5 << 8;
    }

    void shouldFallBackToOneStepWhenAPauseIsNotAnnounced()
    {
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, second);
        set("cal number_of_steps room", "2");
        set("cal step_pause room s01", "yes 3");
        setPause(1, first);
        setPause(2, second);
        CalibrationRun run = newRun(true);

        run.prepare("room");

        QCOMPARE(run.steps(), 1);
        QTEST(m_host->count(), "calls");
        QTEST(run.pauseSeconds(), "pause");
        QVERIFY(run.begin());
        m_host->clear();
        (void)run.poll();
        QCOMPARE(m_host->calls(), lines({"read status active"}));
    }

    void shouldNotAskForPausesBetweenStepsWithoutSupport()
    {
        set("cal number_of_steps room", "2");
        CalibrationRun run = newRun(false);

        run.prepare("room");

        QCOMPARE(m_host->count(), 3);
        QCOMPARE(run.steps(), 2);
    }

    void shouldStopTrackingBeforeTheStartOnlyWhenTheControllerIsBusy_data()
    {
        QTest::addColumn<QByteArray>("activity");
        QTest::addColumn<bool>("stops");
        QTest::newRow("idle") << QByteArray("none") << false;
        QTest::newRow("in error") << QByteArray("err") << false;
        QTest::newRow("measuring") << QByteArray("mea") << true;
        QTest::newRow("calibrating") << QByteArray("cal") << true;
        QTest::newRow("something else") << QByteArray("none ") << true;
    }

    void shouldStopTrackingBeforeTheStartOnlyWhenTheControllerIsBusy()
    {
        QFETCH(QByteArray, activity);
        QFETCH(bool, stops);
        CalibrationRun run = newRun(false);
        run.prepare("room");
        set("status active", activity);
        m_host->clear();

        QVERIFY(run.begin());

        QStringList expected = lines({"read status active", "command velmar2 cal room start"});
        if (stops)
            expected.insert(1, QStringLiteral("command velmar2 tracking stop"));
        QCOMPARE(m_host->calls(), expected);
        QVERIFY(run.isGoingOn());
    }

    void shouldNotGoOnWhenTheStartIsRefused()
    {
        CalibrationRun run = newRun(false);
        run.prepare("room");
        set("velmar2 cal room start", "velmar2 err 21 \"tracking is running\"");

        QVERIFY(!run.begin());

        m_host->clear();
        QVERIFY(run.poll().state == State::Unchanged);
        QCOMPARE(m_host->calls(), QStringList());
    }

    void shouldReadAnActivityAnswer_data()
    {
        QTest::addColumn<QByteArray>("activity");
        QTest::addColumn<int>("state");
        QTest::newRow("none") << QByteArray("none") << int(State::Done);
        QTest::newRow("err") << QByteArray("err") << int(State::Failed);
        QTest::newRow("cal") << QByteArray("cal") << int(State::Running);
        QTest::newRow("mea") << QByteArray("mea") << int(State::Unchanged);
        QTest::newRow("none with a blank") << QByteArray("none ") << int(State::Unchanged);
        QTest::newRow("nothing") << QByteArray() << int(State::Unchanged);
    }

    void shouldReadAnActivityAnswer()
    {
        QFETCH(QByteArray, activity);
        CalibrationRun run = startedRun("room", false);
        set("status active", activity);

        const CalibrationPoll poll = run.poll();

        QTEST(int(poll.state), "state");
        QCOMPARE(run.isGoingOn(), poll.state != State::Done && poll.state != State::Failed);
    }

    void shouldReadAStepAnswer_data()
    {
        QTest::addColumn<QByteArray>("step");
        QTest::addColumn<int>("state");
        QTest::newRow("none") << QByteArray("none") << int(State::Done);
        QTest::newRow("err") << QByteArray("err") << int(State::Failed);
        QTest::newRow("cal 1") << QByteArray("cal 1") << int(State::Running);
        QTest::newRow("cal 2") << QByteArray("cal 2") << int(State::Running);
        QTest::newRow("pause 1") << QByteArray("pause 1") << int(State::Pause);
        QTest::newRow("pause 2") << QByteArray("pause 2") << int(State::Unchanged);
        QTest::newRow("cal") << QByteArray("cal") << int(State::Unchanged);
    }

    void shouldReadAStepAnswer()
    {
        QFETCH(QByteArray, step);
        CalibrationRun run = startedRun("room", true);
        set("status step_active", step);

        const CalibrationPoll poll = run.poll();

        QTEST(int(poll.state), "state");
        QCOMPARE(m_host->calls().value(0), QStringLiteral("read status step_active"));
    }

    void shouldAskForProgressStepAndDuration()
    {
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");

        const CalibrationPoll poll = run.poll();

        QCOMPARE(m_host->calls(), lines({"read status active", "read status progress",
                                         "read status step_progress", "read cal step_duration room s01"}));
        QCOMPARE(poll.overallPercent.value_or(-1), 28);
        QCOMPARE(poll.remainingSeconds.value_or(-1), 3);
        QVERIFY(!poll.firstStepIsComplete);
    }

    void shouldNotAskForTheDurationBeforeOneFour()
    {
        m_versions.interfaceMinor = 3;
        m_versions.interfacePatch = 9;
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");

        QVERIFY(!run.poll().remainingSeconds);

        QCOMPARE(m_host->calls(),
                 lines({"read status active", "read status progress", "read status step_progress"}));
    }

    void shouldAlwaysAskForTheDurationOfTheFirstStep()
    {
        CalibrationRun run = startedRun("room", true);
        set("status step_active", "cal 2");
        set("status step_progress", "2 0.5");

        (void)run.poll();

        QCOMPARE(m_host->calls(), lines({"read status step_active", "read status progress",
                                         "read status step_progress", "read cal step_duration room s01"}));
    }

    void shouldNoteStandstillOfRoomCalibrationsOnly()
    {
        CalibrationRun room = startedRun("room", false);
        set("status active", "cal");
        QCOMPARE(room.poll().hasMoved.value_or(false), true);
        QCOMPARE(room.poll().hasMoved.value_or(true), false);
        set("status progress", "0.2899");
        QCOMPARE(room.poll().hasMoved.value_or(true), false);
        set("status progress", "0.30");
        QCOMPARE(room.poll().hasMoved.value_or(false), true);

        CalibrationRun other = startedRun("reflex_scan", false);
        set("status active", "cal");
        QVERIFY(!other.poll().hasMoved);
    }

    void shouldBeginItsStandstillAtZero()
    {
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        set("status progress", "0.0");
        QCOMPARE(run.poll().hasMoved.value_or(true), false);
    }

    void shouldNotSeeAStandstillInAFailedRead()
    {
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        m_host->failText(QStringLiteral("status progress"));

        const CalibrationPoll poll = run.poll();

        QVERIFY(!poll.hasMoved);
        QVERIFY(!poll.overallPercent);
        QCOMPARE(poll.remainingSeconds.value_or(-1), 3);
        QCOMPARE(m_host->reports(), QStringList());
    }

    void shouldDropTheFractionOfTheRemainingSeconds_data()
    {
        QTest::addColumn<QByteArray>("fraction");
        QTest::addColumn<int>("seconds");
        QTest::newRow("begun") << QByteArray("0.0") << 5;
        QTest::newRow("just begun") << QByteArray("0.01") << 4;
        QTest::newRow("over") << QByteArray("1.0") << 0;
        QTest::newRow("more than over") << QByteArray("1.5") << -2;
    }

    void shouldDropTheFractionOfTheRemainingSeconds()
    {
        // GIVEN: a step of five seconds
        QFETCH(QByteArray, fraction);
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        // WHEN
        set("status step_progress", "1 " + fraction);
        // THEN
        QTEST(run.poll().remainingSeconds.value_or(-1000), "seconds");
    }

    void shouldIgnoreNumbersThatAreNone()
    {
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        set("status progress", "nan");
        set("status step_progress", "1 inf");

        const CalibrationPoll poll = run.poll();

        QVERIFY(!poll.overallPercent);
        QVERIFY(!poll.remainingSeconds);
    }

    void shouldSeeTheFirstStepComplete_data()
    {
        QTest::addColumn<QByteArray>("progress");
        QTest::addColumn<QByteArray>("step");
        QTest::addColumn<bool>("complete");
        QTest::newRow("complete") << QByteArray("1") << QByteArray("1 1") << true;
        QTest::newRow("99.9 percent") << QByteArray("0.999") << QByteArray("1 1") << false;
        QTest::newRow("another step") << QByteArray("1") << QByteArray("2 1") << false;
        QTest::newRow("no step") << QByteArray("1") << QByteArray("none") << false;
        QTest::newRow("step without a fraction") << QByteArray("1") << QByteArray("1") << true;
    }

    void shouldSeeTheFirstStepComplete()
    {
        QFETCH(QByteArray, progress);
        QFETCH(QByteArray, step);
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        set("status progress", progress);
        set("status step_progress", step);

        QTEST(run.poll().firstStepIsComplete, "complete");
    }

    void shouldTruncateTheProgressOfTwoSteps()
    {
        CalibrationRun run = startedRun("room", true);
        set("status progress", "-0.005");
        QCOMPARE(run.poll().overallPercent.value_or(-1), 0);
    }

    void shouldFetchTheErrorAndClearItAfterTwoSteps()
    {
        set("velmar2 get status err", R"(velmar2 get status err 17 "Angle tool not found.")");
        CalibrationRun one = startedRun("room", false);
        QCOMPARE(one.fetchError(), QByteArray("Angle tool not found."));
        QCOMPARE(m_host->calls(), lines({"command velmar2 get status err"}));

        CalibrationRun two = startedRun("room", true);
        QCOMPARE(two.fetchError(), QByteArray("Angle tool not found."));
        QCOMPARE(m_host->calls(), lines({"command velmar2 get status err", "command velmar2 tracking start",
                                         "command velmar2 tracking stop"}));
    }

    void shouldBeStoppedOnceUnlessItCannotBeInterrupted()
    {
        CalibrationRun run = startedRun("room", false);
        QVERIFY(run.canBeStopped());
        run.stop();
        QCOMPARE(m_host->calls(), lines({"command velmar2 cal room stop"}));
        QVERIFY(!run.canBeStopped());
        QVERIFY(run.poll().state == State::Unchanged);

        CalibrationRun scan = startedRun("reflex_scan", false);
        QVERIFY(!scan.canBeStopped());
    }

    void shouldGoOnOnlyAfterAPauseIsOver()
    {
        CalibrationRun run = startedRun("room", true);
        set("status step_active", "pause 1");
        QVERIFY(run.poll().state == State::Pause);
        QVERIFY(run.poll().state == State::Unchanged);
        QVERIFY(run.canBeStopped());
        run.resume();
        QVERIFY(run.poll().state == State::Pause);
        run.end();
        run.resume();
        QVERIFY(!run.isGoingOn());
    }

    void shouldAskNothingMoreOnceItEndedWhileACallWaits_data()
    {
        QTest::addColumn<QString>("during");
        QTest::addColumn<int>("calls");
        QTest::newRow("activity") << QStringLiteral("read status active") << 1;
        QTest::newRow("progress") << QStringLiteral("read status progress") << 2;
        QTest::newRow("step") << QStringLiteral("read status step_progress") << 3;
        QTest::newRow("duration") << QStringLiteral("read cal step_duration room s01") << 4;
    }

    void shouldAskNothingMoreOnceItEndedWhileACallWaits()
    {
        QFETCH(QString, during);
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        m_host->onCall([&](const QString &line) {
            if (line == during)
                run.end();
        });

        QVERIFY(run.poll().state == State::Unchanged);

        QTEST(m_host->count(), "calls");
    }

    void shouldLeaveOthersTheirTurnWhenItsEndWasTold_data()
    {
        QTest::addColumn<QByteArray>("activity");
        QTest::newRow("success") << QByteArray("none");
        QTest::newRow("error") << QByteArray("err");
    }

    void shouldLeaveOthersTheirTurnWhenItsEndWasTold()
    {
        QFETCH(QByteArray, activity);
        CalibrationRun run = startedRun("room", false);
        set("status active", activity);
        (void)run.poll();
        QVERIFY(!run.isGoingOn());
        QVERIFY(!run.canBeStopped());
        QVERIFY(run.isInUse());
        m_host->clear();
        QVERIFY(run.poll().state == State::Unchanged);
        QCOMPARE(m_host->calls(), QStringList());
        QVERIFY(run.takeTurn());
        QVERIFY(run.keepsTurn());
        run.giveTurn();
        run.end();
        QVERIFY(!run.isInUse());
        QVERIFY(!run.takeTurn());
    }

    void shouldNotAskTwiceAtATime()
    {
        CalibrationRun run = startedRun("room", false);
        set("status active", "cal");
        int nested = 0;
        m_host->onCall([&](const QString &) {
            ++nested;
            QVERIFY(run.poll().state == State::Unchanged);
            QVERIFY(!run.takeTurn());
        });

        QVERIFY(run.poll().state == State::Running);

        QCOMPARE(nested, 4);
    }

private:
    void set(const char *text, const QByteArray &answer)
    {
        m_host->setAnswer(QString::fromLatin1(text), answer);
    }

    void setPause(int step, const QByteArray &words)
    {
        const QString command =
            QStringLiteral("velmar2 get cal step_pause room s%1").arg(step, 2, 10, QLatin1Char('0'));
        m_host->setAnswer(command, command.toLatin1() + ' ' + words);
    }

    CalibrationRun newRun(bool pausesBetweenSteps)
    {
        return CalibrationRun(CalibrationAccess(m_host.get(), &m_versions), pausesBetweenSteps);
    }

    /// With two steps when there are pauses between steps.
    CalibrationRun startedRun(const QByteArray &kind, bool pausesBetweenSteps)
    {
        if (pausesBetweenSteps) {
            set("cal number_of_steps room", "2");
            setPause(1, "yes 5");
            setPause(2, "yes 6");
        }
        set("status active", "none");
        CalibrationRun run = newRun(pausesBetweenSteps);
        run.prepare(kind);
        [&] { QVERIFY(run.begin()); }();
        m_host->clear();
        return run;
    }

    BackendVersions m_versions;
    std::unique_ptr<RecordingHost> m_host;
};

ROOM_TEST_CLASS(CalibrationRunTest)
#include "CalibrationRunTest.moc"
