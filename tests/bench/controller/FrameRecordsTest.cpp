#include "FrameReader.h"
#include "SimController.h"
#include "SimScript.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

namespace
{

/// A measuring controller that is told what to do by lines.
struct Bench {
    SimController controller;

    explicit Bench(std::initializer_list<const char *> lines = {})
    {
        tell({"sim tool 1 noise 0"});
        tell(lines);
        ask("velmar2 tracking start");
    }
    void tell(std::initializer_list<const char *> lines)
    {
        for (const char *line : lines)
            QCOMPARE(SimScript(controller).run(line), std::string("sim ok"));
    }
    std::string ask(const char *line) { return controller.answer(line); }

    QString line(const char *kind)
    {
        for (const SimRecord &record : controller.frame()) {
            if (record.kind == kind)
                return QString::fromStdString(record.line);
        }
        return QString();
    }
    bool isMarked() { return readFrameLine(line("6dmt2"), 5).entries[0].blocks[3][0] == 1.0; }

    /// The number of frames that are marked in a row from the next one on.
    int markedFrames()
    {
        int count = 0;
        while (isMarked())
            ++count;
        return count;
    }
};

QStringList kindsOf(const std::vector<SimRecord> &records)
{
    QStringList kinds;
    for (const SimRecord &record : records)
        kinds << QString::fromStdString(record.kind);
    return kinds;
}

const QString identity =
    QStringLiteral("[1.000000 0.000000 0.000000 0.000000 1.000000 0.000000 0.000000 0.000000 1.000000]");
const QString zeros =
    QStringLiteral("[0.000 0.000 0.000][0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 "
                   "0.000000 0.000000 0.000000]");

} // namespace

class FrameRecordsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSendNothingUnlessMeasuring();
    void shouldKeepTheOrderOfTheKinds();
    void shouldPrintEveryLineToTheCharacter();
    void shouldShowWhatIsLost();
    void shouldShowButtonsAndJoystick();
    void shouldShowAClickInOneFrame();
    void shouldCountBodiesByTheFormatsThatExist();
    void shouldBeReadableByAnIndependentReader();
    void shouldCountFramesAndTime();
    void shouldRepeatItselfFromASeed();
    void shouldScatterAsAsked();
    void shouldScaleTheNoiseLikeTheRoom_data();
    void shouldScaleTheNoiseLikeTheRoom();
    void shouldMarkAMeasurementForItsDuration_data();
    void shouldMarkAMeasurementForItsDuration();
    void shouldMeasureTheTipWithinItsScatter();
    void shouldIgnoreASecondStart();
    void shouldRefuseASecondStartWhenStrict();
    void shouldEndEarlyWhenTheTipMoves();
    void shouldNotEndEarlyWithoutTheCheck();
    void shouldEndWhenTheToolIsLost();
    void shouldDropTheMeasurementWithTheTracking();
    void shouldStartFromTheToolItself();
    void shouldMoveTheTip();
    void shouldDamageRecords_data();
    void shouldDamageRecords();
    void shouldDropAndRepeatAndSwap();
    void shouldStayFarBelowTheLongestRecord();
};

void FrameRecordsTest::shouldSendNothingUnlessMeasuring()
{
    Bench bench;
    QVERIFY(!bench.controller.frame().empty());
    bench.ask("velmar2 tracking stop");
    QVERIFY(bench.controller.frame().empty());
}

void FrameRecordsTest::shouldKeepTheOrderOfTheKinds()
{
    Bench bench;
    QCOMPARE(kindsOf(bench.controller.frame()).join(QLatin1Char(' ')),
             QStringLiteral("fr ts 6dcal 6d 6dmt2 6dmt 6df2 6df"));
    bench.tell({"sim record formats first"});
    QCOMPARE(kindsOf(bench.controller.frame()).join(QLatin1Char(' ')),
             QStringLiteral("fr ts 6dcal 6d 6dmt 6df"));
    bench.tell({"sim record formats second"});
    QCOMPARE(kindsOf(bench.controller.frame()).join(QLatin1Char(' ')),
             QStringLiteral("fr ts 6dcal 6d 6dmt2 6df2"));
}

void FrameRecordsTest::shouldPrintEveryLineToTheCharacter()
{
    Bench bench({"sim tool 1 noise 0"});
    QCOMPARE(bench.line("fr"), QStringLiteral("fr 1"));
    QCOMPARE(bench.line("ts"), QStringLiteral("ts 36000.033333"));
    QCOMPARE(bench.line("6dcal"), QStringLiteral("6dcal 3"));
    QCOMPARE(bench.line("6d"), QStringLiteral("6d 1 [0 1.000][50.000 60.000 70.000]") + identity);
    QCOMPARE(bench.line("6dmt"), QStringLiteral("6dmt 1 [0 1.000 0][100.000 200.000 300.000]") + identity);
    QCOMPARE(bench.line("6dmt2"), QStringLiteral("6dmt2 1 [0 1.000 4 2.500][100.000 200.000 300.000]") +
                                      identity +
                                      QStringLiteral("[0 0 0 0][0.0000 0.0000 0.0000 0.0000 0.0000 0.0000]"));
    QCOMPARE(bench.line("6df"), QStringLiteral("6df 1 [0 1.000 0][500.000 0.000 1000.000]") + identity);
    QCOMPARE(bench.line("6df2"), QStringLiteral("6df2 1 [0 1.000 4 2][500.000 0.000 1000.000]") + identity +
                                     QStringLiteral("[0 0 0 0 0.00 0.00]"));
    bench.tell({"sim tool 1 noise 0.1"});
    QVERIFY(bench.line("6dmt2").endsWith(QStringLiteral("[0.0100 0.0000 0.0000 0.0100 0.0000 0.0100]")));
}

void FrameRecordsTest::shouldShowWhatIsLost()
{
    Bench bench({"sim tool 1 tracked no", "sim device 1 tracked no", "sim body 1 tracked no",
                 "sim tool 1 button 1 press", "sim device 1 button 1 press"});
    QCOMPARE(bench.line("6d"), QStringLiteral("6d 0"));
    QCOMPARE(bench.line("6dmt"), QStringLiteral("6dmt 1 [0 -1.000 0]") + zeros);
    QCOMPARE(bench.line("6dmt2"), QStringLiteral("6dmt2 1 [0 -1.000 4 2.500]") + zeros +
                                      QStringLiteral("[0 0 0 0][0.0000 0.0000 0.0000 0.0000 0.0000 0.0000]"));
    QCOMPARE(bench.line("6df"), QStringLiteral("6df 1 [0 -1.000 0]") + zeros);
    QCOMPARE(bench.line("6df2"),
             QStringLiteral("6df2 1 [0 -1.000 4 2]") + zeros + QStringLiteral("[0 0 0 0 0.00 0.00]"));
}

void FrameRecordsTest::shouldShowButtonsAndJoystick()
{
    Bench bench({"sim device 1 button 2 press", "sim device 1 joystick 2 -1", "sim tool 1 button 3 press"});
    QVERIFY(bench.line("6df2").endsWith(QStringLiteral("[0 1 0 0 0.00 -1.00]")));
    QVERIFY(bench.line("6df").startsWith(QStringLiteral("6df 1 [0 1.000 2]")));
    QVERIFY(bench.line("6dmt").startsWith(QStringLiteral("6dmt 1 [0 1.000 8]")));
    QVERIFY(bench.line("6dmt2").contains(QStringLiteral("[0 0 0 1]")));
    bench.tell({"sim device 1 button 2 release"});
    QVERIFY(bench.line("6df2").endsWith(QStringLiteral("[0 0 0 0 0.00 -1.00]")));
}

void FrameRecordsTest::shouldShowAClickInOneFrame()
{
    Bench bench({"sim tool 1 button 1 click"});
    QVERIFY(bench.line("6dmt2").contains(QStringLiteral("[0 1 0 0]")));
    QVERIFY(bench.line("6dmt2").contains(QStringLiteral("[0 0 0 0]")));
}

void FrameRecordsTest::shouldCountBodiesByTheFormatsThatExist()
{
    Bench bench({"sim record formats second"});
    QCOMPARE(bench.line("6dcal"), QStringLiteral("6dcal 1"));
}

void FrameRecordsTest::shouldBeReadableByAnIndependentReader()
{
    Bench bench(
        {"sim tool 1 tip -1.5 22.25 3", "sim tool 1 button 2 press", "sim body 1 pose 10 20 30 0 0 90"});
    const FrameLine tool = readFrameLine(bench.line("6dmt2"), 5);
    QVERIFY(tool.isWellFormed);
    QCOMPARE(tool.numbers, QVector<double>{1.0});
    QCOMPARE(tool.entries.size(), 1);
    QCOMPARE(tool.entries[0].blocks[0], (QVector<double>{0, 1, 4, 2.5}));
    QCOMPARE(tool.entries[0].blocks[1], (QVector<double>{-1.5, 22.25, 3}));
    QCOMPARE(tool.entries[0].blocks[2].size(), 9);
    QCOMPARE(tool.entries[0].blocks[3], (QVector<double>{0, 0, 1, 0}));
    QCOMPARE(tool.entries[0].blocks[4].size(), 6);
    const FrameLine body = readFrameLine(bench.line("6d"), 3);
    QVERIFY(body.isWellFormed);
    QCOMPARE(body.entries[0].blocks[1], (QVector<double>{10, 20, 30}));
    QCOMPARE(body.entries[0].blocks[2], (QVector<double>{0, -1, 0, 1, 0, 0, 0, 0, 1}));
    for (const auto &kind : {std::make_pair("6df", 3), std::make_pair("6df2", 4), std::make_pair("6dmt", 3)})
        QVERIFY(readFrameLine(bench.line(kind.first), kind.second).isWellFormed);
}

void FrameRecordsTest::shouldCountFramesAndTime()
{
    Bench bench;
    for (int i = 0; i < 600; ++i)
        bench.controller.frame();
    QCOMPARE(bench.line("fr"), QStringLiteral("fr 601"));
    bench.tell({"sim ts jump -20000"});
    QCOMPARE(bench.line("ts"), QStringLiteral("ts 16010.033333"));
    QVERIFY(std::fabs(bench.controller.time() - 602.0 / 60.0) < 1e-9);
}

void FrameRecordsTest::shouldRepeatItselfFromASeed()
{
    const auto lines = [](const char *seed) {
        Bench bench({"sim tool 1 noise 0.3", "sim tool 1 tremor 0.2", seed});
        QStringList list;
        for (int i = 0; i < 50; ++i)
            list << bench.line("6dmt2");
        return list;
    };
    QCOMPARE(lines("sim seed 5"), lines("sim seed 5"));
    QVERIFY(lines("sim seed 5") != lines("sim seed 6"));
}

void FrameRecordsTest::shouldScatterAsAsked()
{
    constexpr int count = 4000;
    Bench bench({"sim tool 1 noise 0.4", "sim tool 1 tremor 0.3", "sim tool 1 tip 0 0 0"});
    double sum = 0.0, squares = 0.0;
    for (int i = 0; i < count; ++i) {
        const FrameLine frame = readFrameLine(bench.line("6dmt"), 3);
        for (const double value : frame.entries[0].blocks[1]) {
            sum += value;
            squares += value * value;
        }
    }
    const double n = 3.0 * count;
    QVERIFY(std::fabs(sum / n) < 4.0 * 0.5 / std::sqrt(n));
    QVERIFY(std::fabs(std::sqrt(squares / n) - 0.5) < 4.0 * 0.5 / std::sqrt(2.0 * n));
}

void FrameRecordsTest::shouldScaleTheNoiseLikeTheRoom_data()
{
    QTest::addColumn<double>("scaling");
    QTest::newRow("smaller") << 0.5;
    QTest::newRow("larger") << 4.0;
}

// The noise is that of the raw coordinates: what scales them scales it.
void FrameRecordsTest::shouldScaleTheNoiseLikeTheRoom()
{
    QFETCH(double, scaling);
    const auto tipOf = [](double factor, double *variance) {
        Bench bench({"sim tool 1 tip 0 0 0", "sim tool 1 noise 50", "sim seed 7"});
        bench.ask("velmar2 set tracking extra_scaling " + QByteArray::number(factor));
        const FrameEntry tool = readFrameLine(bench.line("6dmt2"), 5).entries[0];
        *variance = tool.blocks[4][0];
        return tool.blocks[1];
    };
    double variance = 0.0;
    double scaledVariance = 0.0;
    const QVector<double> tip = tipOf(1.0, &variance);
    const QVector<double> scaled = tipOf(scaling, &scaledVariance);
    constexpr double roundingMm = 0.005;
    for (int i = 0; i < 3; ++i) {
        QVERIFY(std::abs(tip[i]) > 1.0);
        QVERIFY2(std::abs(scaled[i] - scaling * tip[i]) < roundingMm, qPrintable(QString::number(scaled[i])));
    }
    QCOMPARE(variance, 2500.0);
    QCOMPARE(scaledVariance, 2500.0 * scaling * scaling);
}

void FrameRecordsTest::shouldMarkAMeasurementForItsDuration_data()
{
    QTest::addColumn<QByteArray>("duration");
    QTest::addColumn<int>("frames");
    QTest::newRow("nothing") << QByteArray("0") << 2;
    QTest::newRow("a quarter") << QByteArray("0.25") << 17;
    QTest::newRow("between two frames") << QByteArray("0.33") << 22;
    QTest::newRow("one second") << QByteArray("1") << 62;
}

void FrameRecordsTest::shouldMarkAMeasurementForItsDuration()
{
    QFETCH(QByteArray, duration);
    QFETCH(int, frames);
    Bench bench({("sim tool 1 duration " + duration).constData()});
    QVERIFY(!bench.isMarked());
    QCOMPARE(bench.ask("velmar2 measurementtool start_measurement b01"), std::string("velmar2 ok"));
    QCOMPARE(bench.markedFrames(), frames);
    QVERIFY((frames - 1) / 60.0 >= duration.toDouble());
}

void FrameRecordsTest::shouldMeasureTheTipWithinItsScatter()
{
    constexpr double sigma = 0.2;
    Bench bench;
    bench.tell({"sim tool 1 noise 0.2", "sim tool 1 tip 10 20 30", "sim tool 1 duration 2"});
    bench.ask("velmar2 measurementtool start_measurement b01");
    QVector<QVector<double>> samples;
    for (FrameLine frame = readFrameLine(bench.line("6dmt2"), 5); frame.entries[0].blocks[3][0] == 1.0;
         frame = readFrameLine(bench.line("6dmt2"), 5))
        samples << frame.entries[0].blocks[1];
    const double n = samples.size();
    QCOMPARE(samples.size(), 122);
    double squares = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        double sum = 0.0;
        for (const QVector<double> &sample : qAsConst(samples))
            sum += sample[axis];
        QVERIFY(std::fabs(sum / n - 10.0 * (axis + 1)) < 4.0 * sigma / std::sqrt(n));
        for (const QVector<double> &sample : qAsConst(samples))
            squares += (sample[axis] - sum / n) * (sample[axis] - sum / n);
    }
    QVERIFY(std::fabs(std::sqrt(squares / n) - std::sqrt(3.0) * sigma) < 0.2 * sigma);
}

void FrameRecordsTest::shouldIgnoreASecondStart()
{
    Bench bench;
    bench.ask("velmar2 measurementtool start_measurement b01");
    QCOMPARE(bench.ask("velmar2 measurementtool start_measurement b01"), std::string("velmar2 ok"));
    QVERIFY(bench.isMarked());
    QCOMPARE(bench.ask("velmar2 measurementtool start_measurement b01"), std::string("velmar2 ok"));
    QCOMPARE(bench.markedFrames(), 61);
}

void FrameRecordsTest::shouldRefuseASecondStartWhenStrict()
{
    Bench bench({"sim strict on"});
    bench.ask("velmar2 measurementtool start_measurement b01");
    QCOMPARE(bench.ask("velmar2 measurementtool start_measurement b01"),
             std::string("velmar2 err 42 \"measurement is running\""));
    bench.tell({"sim tool 1 tracked no"});
    QCOMPARE(bench.ask("velmar2 measurementtool start_measurement b01"),
             std::string("velmar2 err 41 \"tool not tracked\""));
    bench.tell({"sim tool 1 tracked yes", "sim tool 1 calibrated no"});
    QCOMPARE(bench.ask("velmar2 measurementtool start_measurement b01"),
             std::string("velmar2 err 43 \"tip not calibrated\""));
}

void FrameRecordsTest::shouldEndEarlyWhenTheTipMoves()
{
    Bench bench({"sim tool 1 tip 0 0 0", "sim tool 1 tolerance 1.5"});
    bench.ask("velmar2 measurementtool start_measurement b01");
    for (int i = 0; i < 10; ++i)
        QVERIFY(bench.isMarked());
    bench.tell({"sim tool 1 tip 100 0 0"});
    QVERIFY(bench.isMarked()); // the frame that shows the movement
    QVERIFY(!bench.isMarked());
    // two positions 2.9 mm apart have the standard deviation 1.45 mm
    bench.tell({"sim tool 1 tip 0 0 0", "sim tool 1 duration 0"});
    bench.ask("velmar2 measurementtool start_measurement b01");
    QVERIFY(bench.isMarked());
    bench.tell({"sim tool 1 tip 2.9 0 0"});
    QVERIFY(bench.isMarked());
}

void FrameRecordsTest::shouldNotEndEarlyWithoutTheCheck()
{
    Bench bench({"sim tool 1 tip 0 0 0", "sim tool 1 check off", "sim tool 1 move 1000 0 0 200"});
    bench.ask("velmar2 measurementtool start_measurement b01");
    QCOMPARE(bench.markedFrames(), 62);
}

void FrameRecordsTest::shouldEndWhenTheToolIsLost()
{
    Bench bench;
    bench.ask("velmar2 measurementtool start_measurement b01");
    QVERIFY(bench.isMarked());
    bench.tell({"sim tool 1 tracked no"});
    QVERIFY(bench.line("6dmt2").contains(QStringLiteral("[0 -1.000 4 2.500]")));
    bench.tell({"sim tool 1 tracked yes"});
    QVERIFY(!bench.isMarked());
}

void FrameRecordsTest::shouldDropTheMeasurementWithTheTracking()
{
    Bench bench;
    bench.ask("velmar2 measurementtool start_measurement b01");
    QVERIFY(bench.isMarked());
    bench.ask("velmar2 tracking stop");
    bench.ask("velmar2 tracking start");
    QVERIFY(!bench.isMarked());
}

void FrameRecordsTest::shouldStartFromTheToolItself()
{
    Bench bench;
    bench.tell({"sim tool 1 measure"});
    QCOMPARE(bench.markedFrames(), 62);
    bench.ask("velmar2 tracking stop");
    QCOMPARE(SimScript(bench.controller).run("sim tool 1 measure"), std::string("sim err \"not measuring\""));
}

void FrameRecordsTest::shouldMoveTheTip()
{
    Bench bench({"sim tool 1 tip 0 0 0", "sim tool 1 move 30 40 0 60"});
    bench.controller.advance(0.5);
    QVERIFY(bench.line("6dmt").contains(QStringLiteral("[18.600 24.800 0.000]")));
    bench.controller.advance(10.0);
    QVERIFY(bench.line("6dmt").contains(QStringLiteral("[30.000 40.000 0.000]")));
    bench.tell({"sim object pose 1000 0 0 0 0 90", "sim object point 2 1 2 3", "sim tool 1 touch 2"});
    QVERIFY(bench.line("6dmt").contains(QStringLiteral("[998.000 1.000 3.000]")));
}

void FrameRecordsTest::shouldDamageRecords_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QString>("damaged");
    const auto row = [](const char *control, const char *damaged) {
        QTest::newRow(control) << QByteArray(control) << QString::fromLatin1(damaged);
    };
    const QByteArray rest = "[50.000 60.000 70.000]" + identity.toLatin1();
    row("sim record cut 6d 9", "6d 1 [0 1");
    row("sim record nobracket 6d", ("6d 1 [0 1.000" + rest).constData());
    row("sim record count 6d -7", ("6d -7 [0 1.000]" + rest).constData());
    row("sim record text 6d = \"6d one  [body\"", "6d one  [body");
    row("sim record long 6d 140", ("6d 1 [0 1.000]" + rest).leftJustified(140, 'x').constData());
}

void FrameRecordsTest::shouldDamageRecords()
{
    QFETCH(QByteArray, control);
    QFETCH(QString, damaged);
    Bench bench({control.constData()});
    QCOMPARE(bench.line("6d"), damaged);
    bench.tell({"sim record clear"});
    QVERIFY(bench.line("6d").endsWith(identity));
}

void FrameRecordsTest::shouldDropAndRepeatAndSwap()
{
    Bench bench({"sim record drop ts 1", "sim record repeat 6d 1", "sim record swap 6dmt2 6df 1"});
    QCOMPARE(kindsOf(bench.controller.frame()).join(QLatin1Char(' ')),
             QStringLiteral("fr 6dcal 6d 6d 6df 6dmt 6df2 6dmt2"));
    QCOMPARE(kindsOf(bench.controller.frame()).join(QLatin1Char(' ')),
             QStringLiteral("fr ts 6dcal 6d 6dmt2 6dmt 6df2 6df"));
}

void FrameRecordsTest::shouldStayFarBelowTheLongestRecord()
{
    Bench bench;
    bench.controller.machine().room.bodies.resize(50);
    bench.controller.machine().room.tools.resize(16);
    for (const SimRecord &record : bench.controller.frame())
        QVERIFY(record.line.size() < 10240);
}

ROOM_TEST_CLASS(FrameRecordsTest)
#include "FrameRecordsTest.moc"
