#include "CalibrationAnswers.h"

#include "TestRegistry.h"

#include <QtTest>

#include <climits>

class CalibrationAnswersTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeInNoStepAtFirst()
    {
        QCOMPARE(StepProgress().step, 0);
        QVERIFY(!StepProgress().fraction);
    }

    void shouldReadTheAnnouncedPause_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("seconds");
        QTest::newRow("yes with seconds") << QByteArray("yes 5") << 5;
        QTest::newRow("fraction is dropped") << QByteArray("yes 7.9") << 7;
        QTest::newRow("yes and zero") << QByteArray("yes 0") << 0;
        QTest::newRow("no") << QByteArray("no") << 0;
        QTest::newRow("no with seconds") << QByteArray("no 5") << 0;
        QTest::newRow("yes alone") << QByteArray("yes") << 0;
        QTest::newRow("two blanks leave an empty second word") << QByteArray("yes  5") << 0;
        QTest::newRow("no number") << QByteArray("yes soon") << 0;
        QTest::newRow("decimal comma is no number") << QByteArray("yes 2,5") << 0;
        QTest::newRow("huge") << QByteArray("yes 1e300") << INT_MAX;
        QTest::newRow("not a number") << QByteArray("yes nan") << 0;
        QTest::newRow("blank first") << QByteArray(" yes 5") << 0;
        QTest::newRow("nothing") << QByteArray() << 0;
    }

    void shouldReadTheAnnouncedPause()
    {
        QFETCH(QByteArray, value);
        QTEST(CalibrationAnswers::announcedPause(value), "seconds");
    }

    void shouldReadWordsSixAndSevenOfAStepPause_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("seconds");
        const QByteArray start = "velmar2 get cal step_pause room s01 ";
        QTest::newRow("yes") << start + "yes 8" << 8;
        QTest::newRow("zero becomes five") << start + "yes 0" << 5;
        QTest::newRow("no number becomes five") << start + "yes" << 5;
        QTest::newRow("a fraction is no whole number") << start + "yes 2.5" << 5;
        QTest::newRow("no") << start + "no" << -1;
        QTest::newRow("yes is compared as a whole") << start + "yess 8" << -1;
        QTest::newRow("one word too few before it")
            << QByteArray("velmar2 get cal step_pause room yes 8") << -1;
        QTest::newRow("nothing") << QByteArray() << -1;
    }

    void shouldReadWordsSixAndSevenOfAStepPause()
    {
        QFETCH(QByteArray, answer);
        QTEST(CalibrationAnswers::stepPause(answer).value_or(-1), "seconds");
    }

    void shouldKnowTheStepsByTheirWholeText_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("step");
        const auto row = [](const char *value, CalibrationStep step) {
            QTest::newRow(value) << QByteArray(value) << int(step);
        };
        row("none", CalibrationStep::None);
        row("err", CalibrationStep::Error);
        row("cal 1", CalibrationStep::First);
        row("cal 2", CalibrationStep::Second);
        row("pause 1", CalibrationStep::PauseAfterFirst);
        row("pause 2", CalibrationStep::Other);
        row("cal 3", CalibrationStep::Other);
        row("none ", CalibrationStep::Other);
        row("error", CalibrationStep::Other);
    }

    void shouldKnowTheStepsByTheirWholeText()
    {
        QFETCH(QByteArray, value);
        QTEST(int(CalibrationAnswers::step(value)), "step");
    }

    void shouldScanTheStepProgress_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("step");
        QTest::addColumn<double>("fraction");
        QTest::newRow("usual") << QByteArray("1 0.350") << 1 << 0.35;
        QTest::newRow("leading and double blanks") << QByteArray("  2   0.5") << 2 << 0.5;
        QTest::newRow("text behind") << QByteArray("1 0.25 rest") << 1 << 0.25;
        QTest::newRow("a comma ends the number") << QByteArray("1 0,75") << 1 << 0.0;
        QTest::newRow("no fraction") << QByteArray("1") << 1 << -1.0;
        QTest::newRow("word for the fraction") << QByteArray("1 half") << 1 << -1.0;
        QTest::newRow("step beyond the int range") << QByteArray("99999999999999 1") << INT_MAX << 1.0;
    }

    void shouldScanTheStepProgress()
    {
        QFETCH(QByteArray, value);
        const std::optional<StepProgress> progress = CalibrationAnswers::stepProgress(value);
        QVERIFY(progress.has_value());
        QTEST(progress->step, "step");
        QTEST(progress->fraction.value_or(-1.0), "fraction");
    }

    void shouldFindNoStepProgressInNonsense()
    {
        QVERIFY(!CalibrationAnswers::stepProgress("none"));
        QVERIFY(!CalibrationAnswers::stepProgress(""));
    }

    void shouldReadTheRealNumberAtTheBeginning()
    {
        QCOMPARE(CalibrationAnswers::leadingReal("5.250").value_or(-1.0), 5.25);
        QCOMPARE(CalibrationAnswers::leadingReal("  12 s").value_or(-1.0), 12.0);
        QVERIFY(!CalibrationAnswers::leadingReal("five"));
        QVERIFY(!CalibrationAnswers::leadingReal(""));
    }

    void shouldTakeTheTextBetweenTheFirstTwoQuotes()
    {
        QCOMPARE(CalibrationAnswers::quotedText(R"(velmar2 get status err 17 "Angle tool not found.")"),
                 QByteArray("Angle tool not found."));
        QCOMPARE(CalibrationAnswers::quotedText(R"(a "b" c "d")"), QByteArray("b"));
        QCOMPARE(CalibrationAnswers::quotedText("\"at once\" 5"), QByteArray("at once"));
        QCOMPARE(CalibrationAnswers::quotedText("0 \"left open"), QByteArray("left open"));
        QCOMPARE(CalibrationAnswers::quotedText("no quotes"), QByteArray());
        QCOMPARE(CalibrationAnswers::quotedText(R"(0 "")"), QByteArray());
    }

    void shouldReadWordFiveAsTheProgressOfACamera()
    {
        const QByteArray start = "velmar2 get status camera_progress c01";
        QCOMPARE(CalibrationAnswers::cameraProgress(start + " 0.995"), 0.995F);
        QCOMPARE(CalibrationAnswers::cameraProgress(start + " 1"), 1.0F);
        QCOMPARE(CalibrationAnswers::cameraProgress(start + " none"), 0.0F);
        QCOMPARE(CalibrationAnswers::cameraProgress(start), 0.0F);
        QCOMPARE(CalibrationAnswers::cameraProgress("velmar2 err 5 \"no\" "), 0.0F);
    }

    void shouldReadWordSixAsTheSerialOfACamera()
    {
        QCOMPARE(CalibrationAnswers::cameraSerial("velmar2 get camera camera c01 bench_cam 00028"),
                 QByteArray("00028"));
        QCOMPARE(CalibrationAnswers::cameraSerial("velmar2 get camera camera c01 bench_cam"), QByteArray());
        QCOMPARE(CalibrationAnswers::cameraSerial("velmar2 get camera camera c01  00028"),
                 QByteArray("00028"));
    }
};

ROOM_TEST_CLASS(CalibrationAnswersTest)
#include "CalibrationAnswersTest.moc"
