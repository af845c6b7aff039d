#include "SimController.h"
#include "SimScript.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

struct Bench {
    SimController controller;

    void tell(std::initializer_list<const char *> lines)
    {
        for (const char *line : lines)
            QCOMPARE(SimScript(controller).run(line), std::string("sim ok"));
    }
    QString ask(const char *line) { return QString::fromStdString(controller.answer(line)); }
    QString value(const char *name)
    {
        return ask(("velmar2 get " + QByteArray(name)).constData()).mid(13 + int(qstrlen(name)));
    }

    /// The configured angle tool for 5 s.
    void prepare()
    {
        for (const char *line :
             {"velmar2 set roomcal type angle_no_wand", "velmar2 set roomcal duration 5.0"})
            QCOMPARE(ask(line), QStringLiteral("velmar2 ok"));
    }
    void start() { QCOMPARE(ask("velmar2 cal room start"), QStringLiteral("velmar2 ok")); }
};

} // namespace

class SimCalibrationTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGrowLinearlyAndEndAfterTheAfterWork();
    void shouldTakeAsLongForTheAfterWorkAsItIsTold();
    void shouldGiveEachStepTheToldDuration();
    void shouldMakeThePausesBetweenTheSteps();
    void shouldHoldTheProgressInAStall();
    void shouldStallAtOnceWhenTheFractionIsPassed();
    void shouldFollowACurve();
    void shouldShowTheProgressOfEachCamera();
    void shouldFailAtAFraction();
    void shouldNotFailWhenTheErrorWasTakenBack();
    void shouldTakeOverTheTroubleOfItsKindWhileItRuns();
    void shouldBeAsFarInOneLeapAsInSmallSteps_data();
    void shouldBeAsFarInOneLeapAsInSmallSteps();
    void shouldFailAtTheEnd_data();
    void shouldFailAtTheEnd();
    void shouldClearTheErrorAtTheNextStart();
    void shouldForgetTheResultWhenStopped();
    void shouldForgetTheResultBeforeWhenStartedAnew();
    void shouldAcceptOnce();
    void shouldChangeNothingWithoutAcceptance();
    void shouldNotOfferAResultOfAReflexScan();
    void shouldMoveOnWithEveryQuery();
    void shouldKeepSettingsOverARestart();
};

void SimCalibrationTest::shouldGrowLinearlyAndEndAfterTheAfterWork()
{
    Bench bench;
    bench.prepare();
    bench.start();
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    QCOMPARE(bench.value("status step_active"), QStringLiteral("cal 1"));
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.000000"));
    bench.controller.advance(1.75);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.350000"));
    QCOMPARE(bench.value("status step_progress"), QStringLiteral("1 0.350000"));
    QCOMPARE(bench.value("cal step_duration room s01"), QStringLiteral("5.000"));
    bench.controller.advance(3.26);
    QCOMPARE(bench.value("status progress"), QStringLiteral("1.000000"));
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(1.0);
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
    QCOMPARE(bench.value("status step_active"), QStringLiteral("none"));
    QCOMPARE(bench.value("status err"), QStringLiteral("0 \"\""));
}

void SimCalibrationTest::shouldTakeAsLongForTheAfterWorkAsItIsTold()
{
    Bench bench;
    bench.tell({"sim cal room afterwork 2.5"});
    bench.prepare();
    bench.start();
    bench.controller.advance(5.01);
    bench.controller.advance(2.0);
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(0.6);
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
}

void SimCalibrationTest::shouldGiveEachStepTheToldDuration()
{
    Bench bench;
    bench.tell({"sim cal reflex_scan steps 2", "sim cal reflex_scan duration 1.5"});
    QCOMPARE(bench.value("cal step_duration reflex_scan s01"), QStringLiteral("1.500"));
    QCOMPARE(bench.value("cal step_duration reflex_scan s02"), QStringLiteral("1.500"));
    QCOMPARE(bench.ask("velmar2 cal reflex_scan start"), QStringLiteral("velmar2 ok"));
    bench.controller.advance(1.4);
    QCOMPARE(bench.value("status step_active"), QStringLiteral("cal 1"));
    bench.controller.advance(0.2);
    QCOMPARE(bench.value("status step_active"), QStringLiteral("cal 2"));
}

void SimCalibrationTest::shouldMakeThePausesBetweenTheSteps()
{
    Bench bench;
    bench.tell({"sim cal room steps 2", "sim cal room pause 1 3 2.5", "sim cal room pause 2 4 1"});
    bench.prepare();
    QCOMPARE(bench.value("cal number_of_steps room"), QStringLiteral("2"));
    QCOMPARE(bench.value("cal step_pause room s01"), QStringLiteral("yes 3"));
    QCOMPARE(bench.value("cal step_pause room s02"), QStringLiteral("yes 4"));
    bench.start();
    bench.controller.advance(2.5);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.250000"));
    bench.controller.advance(2.6);
    QCOMPARE(bench.value("status step_active"), QStringLiteral("pause 1"));
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.500000"));
    bench.controller.advance(2.5);
    QCOMPARE(bench.value("status step_active"), QStringLiteral("cal 2"));
    bench.controller.advance(4.95);
    QCOMPARE(bench.value("status step_progress"), QStringLiteral("2 1.000000"));
    bench.controller.advance(1.0);
    QCOMPARE(bench.value("status step_active"), QStringLiteral("none"));
}

void SimCalibrationTest::shouldHoldTheProgressInAStall()
{
    Bench bench;
    bench.tell({"sim cal room stall 0.4 6"});
    bench.prepare();
    bench.start();
    bench.controller.advance(2.5);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.400000"));
    bench.controller.advance(5.0);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.400000"));
    bench.controller.advance(1.0);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.500000"));
}

void SimCalibrationTest::shouldStallAtOnceWhenTheFractionIsPassed()
{
    Bench bench;
    bench.prepare();
    bench.start();
    bench.controller.advance(2.5);
    bench.tell({"sim cal room stall 0 2"});
    bench.controller.advance(1.5);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.500000"));
    bench.controller.advance(1.0);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.600000"));
}

void SimCalibrationTest::shouldFollowACurve()
{
    Bench bench;
    bench.tell({"sim cal room curve 1 0.5 2 0.5 3 1"});
    bench.prepare();
    bench.start();
    bench.controller.advance(0.5);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.250000"));
    bench.controller.advance(1.0);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.500000"));
    bench.controller.advance(1.0);
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.750000"));
    bench.controller.advance(1.5);
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
}

void SimCalibrationTest::shouldShowTheProgressOfEachCamera()
{
    Bench bench;
    bench.tell({"sim cal room camera 2 rate 0.5", "sim cal room camera 3 rate 4"});
    bench.prepare();
    bench.start();
    bench.controller.advance(2.0);
    QCOMPARE(bench.value("status camera_progress c01"), QStringLiteral("0.400"));
    QCOMPARE(bench.value("status camera_progress c02"), QStringLiteral("0.200"));
    QCOMPARE(bench.value("status camera_progress c03"), QStringLiteral("1.000"));
}

void SimCalibrationTest::shouldFailAtAFraction()
{
    Bench bench;
    bench.tell({"sim cal room error 0.5 \"Too few markers.\""});
    bench.prepare();
    bench.start();
    bench.controller.advance(2.4);
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(0.2);
    QCOMPARE(bench.value("status active"), QStringLiteral("err"));
    QCOMPARE(bench.value("status step_active"), QStringLiteral("err"));
    QCOMPARE(bench.ask("velmar2 get status err"),
             QStringLiteral("velmar2 get status err 16 \"Too few markers.\""));
}

void SimCalibrationTest::shouldNotFailWhenTheErrorWasTakenBack()
{
    Bench bench;
    bench.tell({"sim cal room error 0.5 \"Too few markers.\"", "sim cal room error none"});
    bench.prepare();
    bench.start();
    bench.controller.advance(2.6);
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(10.0);
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
}

void SimCalibrationTest::shouldTakeOverTheTroubleOfItsKindWhileItRuns()
{
    Bench bench;
    bench.prepare();
    bench.start();
    bench.controller.advance(1.0);
    bench.tell({"sim cal reflex_scan error 0.1 \"of another kind\"", "sim cal room afterwork 3"});
    bench.controller.advance(4.1);
    bench.controller.advance(2.8);
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(0.2);
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
    bench.start();
    bench.controller.advance(1.0);
    bench.tell({"sim cal room error 0.4 \"Too dark.\""});
    bench.controller.advance(0.9);
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(0.2);
    QCOMPARE(bench.value("status active"), QStringLiteral("err"));
    QVERIFY(bench.value("status err").endsWith(QLatin1String("\"Too dark.\"")));
}

void SimCalibrationTest::shouldBeAsFarInOneLeapAsInSmallSteps_data()
{
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char *name, const QString &lines) {
        QTest::newRow(name) << lines.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    };
    row("plain", QString());
    row("steps and pauses",
        QStringLiteral("sim cal room steps 3;sim cal room pause 1 2 1.5;sim cal room pause 2 3 2.5"));
    row("a stall", QStringLiteral("sim cal room stall 0.3 2;sim cal room afterwork 0.75"));
    row("a curve", QStringLiteral("sim cal room steps 2;sim cal room curve 1 0.25 3 0.5 4 1"));
}

/// The time does not care into how many parts it is cut.
void SimCalibrationTest::shouldBeAsFarInOneLeapAsInSmallSteps()
{
    QFETCH(QStringList, lines);
    for (double leap = 0.5; leap < 25.0; leap += 1.5) {
        Bench leaping, stepping;
        for (Bench *bench : {&leaping, &stepping}) {
            for (const QString &line : qAsConst(lines))
                bench->tell({line.toLatin1().constData()});
            bench->prepare();
            bench->start();
        }
        leaping.controller.advance(leap);
        for (int i = 0; i < 20; ++i)
            stepping.controller.advance(leap / 20);
        for (const char *question : {"status active", "status step_active", "status step_progress"})
            QCOMPARE(leaping.value(question), stepping.value(question));
    }
}

void SimCalibrationTest::shouldFailAtTheEnd_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QString>("error");
    QTest::newRow("hidden angle tool") << QByteArray("sim angletool visible no") << QByteArray()
                                       << QStringLiteral("17 \"Angle tool not found.\"");
    QTest::newRow("other type") << QByteArray() << QByteArray("velmar2 set roomcal type angle_wand")
                                << QStringLiteral("18 \"Wrong calibration type.\"");
    QTest::newRow("other height") << QByteArray() << QByteArray("velmar2 set roomcal angle_height 55.6")
                                  << QStringLiteral("19 \"Angle tool does not match.\"");
    QTest::newRow("other distance") << QByteArray("sim angletool size 278 83.6 163 55") << QByteArray()
                                    << QStringLiteral("19 \"Angle tool does not match.\"");
    QTest::newRow("half a millimetre")
        << QByteArray("sim angletool size 278 83.5 163 55") << QByteArray() << QStringLiteral("0 \"\"");
}

void SimCalibrationTest::shouldFailAtTheEnd()
{
    QFETCH(QByteArray, control);
    QFETCH(QByteArray, request);
    QFETCH(QString, error);
    Bench bench;
    bench.prepare();
    if (!control.isEmpty())
        bench.tell({control.constData()});
    if (!request.isEmpty())
        bench.ask(request.constData());
    bench.start();
    bench.controller.advance(5.9);
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    bench.controller.advance(0.2);
    QCOMPARE(bench.value("status err"), error);
    QCOMPARE(bench.value("status active"),
             error.startsWith(QLatin1Char('0')) ? QStringLiteral("none") : QStringLiteral("err"));
}

void SimCalibrationTest::shouldClearTheErrorAtTheNextStart()
{
    Bench bench;
    bench.tell({"sim angletool visible no"});
    bench.prepare();
    bench.start();
    bench.controller.advance(7.0);
    QCOMPARE(bench.value("status active"), QStringLiteral("err"));
    bench.ask("velmar2 tracking start");
    QCOMPARE(bench.value("status err"), QStringLiteral("0 \"\""));
    QCOMPARE(bench.value("status active"), QStringLiteral("mea"));
}

void SimCalibrationTest::shouldForgetTheResultWhenStopped()
{
    Bench bench;
    bench.prepare();
    bench.start();
    bench.controller.advance(5.5);
    QCOMPARE(bench.ask("velmar2 cal room stop"), QStringLiteral("velmar2 ok"));
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.000000"));
    bench.controller.advance(5.0);
    QCOMPARE(bench.ask("velmar2 roomcal accept_new_calibration"),
             QStringLiteral("velmar2 err 31 \"no new calibration\""));
    bench.start();
    QCOMPARE(bench.ask("velmar2 cal reflex_scan stop"),
             QStringLiteral("velmar2 err 22 \"another calibration is running\""));
}

void SimCalibrationTest::shouldForgetTheResultBeforeWhenStartedAnew()
{
    Bench bench;
    bench.prepare();
    bench.start();
    bench.controller.advance(5.1);
    bench.controller.advance(1.1);
    QVERIFY(bench.controller.machine().state.newCalibration.has_value());
    bench.start();
    QCOMPARE(bench.ask("velmar2 cal room stop"), QStringLiteral("velmar2 ok"));
    QCOMPARE(bench.ask("velmar2 roomcal accept_new_calibration"),
             QStringLiteral("velmar2 err 31 \"no new calibration\""));
}

void SimCalibrationTest::shouldAcceptOnce()
{
    Bench bench;
    bench.prepare();
    bench.ask("velmar2 set roomcal coordinate_type powerwall");
    bench.start();
    bench.ask("velmar2 set roomcal coordinate_type normal");
    bench.controller.advance(7.0);
    QCOMPARE(bench.value("roomcal last_coordinate_type"), QStringLiteral("none"));
    QCOMPARE(bench.ask("velmar2 roomcal accept_new_calibration"), QStringLiteral("velmar2 ok"));
    QCOMPARE(bench.value("roomcal last_coordinate_type"), QStringLiteral("powerwall"));
    QCOMPARE(bench.ask("velmar2 roomcal accept_new_calibration"),
             QStringLiteral("velmar2 err 31 \"no new calibration\""));
}

void SimCalibrationTest::shouldChangeNothingWithoutAcceptance()
{
    Bench bench;
    bench.prepare();
    const QString before = bench.value("tracking room c01");
    bench.start();
    bench.controller.advance(7.0);
    QCOMPARE(bench.value("tracking room c01"), before);
    bench.ask("velmar2 roomcal accept_new_calibration");
    QVERIFY(bench.value("tracking room c01") != before);
}

void SimCalibrationTest::shouldNotOfferAResultOfAReflexScan()
{
    Bench bench;
    QCOMPARE(bench.ask("velmar2 cal reflex_scan start"), QStringLiteral("velmar2 ok"));
    bench.controller.advance(7.0);
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
    QCOMPARE(bench.value("status err"), QStringLiteral("0 \"\""));
    QVERIFY(bench.ask("velmar2 roomcal accept_new_calibration").startsWith(QStringLiteral("velmar2 err 31")));
}

void SimCalibrationTest::shouldMoveOnWithEveryQuery()
{
    Bench bench;
    bench.tell({"sim clock query 0.5"});
    bench.prepare();
    bench.start();
    QCOMPARE(bench.value("status active"), QStringLiteral("cal"));
    QCOMPARE(bench.value("status step_active"), QStringLiteral("cal 1"));
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.200000"));
    int polls = 2;
    while (bench.value("status active") == QLatin1String("cal"))
        ++polls;
    QCOMPARE(polls, 11);
}

void SimCalibrationTest::shouldKeepSettingsOverARestart()
{
    Bench bench;
    bench.ask("velmar2 set tracking extra_scaling 1.5");
    bench.prepare();
    bench.start();
    bench.tell({"sim fault restart"});
    QCOMPARE(bench.value("status active"), QStringLiteral("none"));
    QCOMPARE(bench.value("status progress"), QStringLiteral("0.000000"));
    QCOMPARE(bench.value("tracking extra_scaling"), QStringLiteral("1.50000"));
    QCOMPARE(bench.value("roomcal duration"), QStringLiteral("5.0"));
}

ROOM_TEST_CLASS(SimCalibrationTest)
#include "SimCalibrationTest.moc"
