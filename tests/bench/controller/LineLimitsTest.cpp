#include "Scenario.h"
#include "SimController.h"
#include "SimScript.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

const QString controlOk = QStringLiteral("sim ok");
const QString requestOk = QStringLiteral("velmar2 ok");

QString expected(const QString &what)
{
    return QStringLiteral("sim err \"expected: %1\"").arg(what);
}

QString answerTo(SimController &controller, const QString &line)
{
    const std::string text = line.toStdString();
    return QString::fromStdString(SimScript::isControlLine(text) ? SimScript(controller).run(text)
                                                                 : controller.answer(text));
}

QString problemOf(const QString &json)
{
    std::string error;
    const bool isRead = Scenario::parse(json.toStdString(), "room", &error).has_value();
    return isRead ? QString() : QString::fromStdString(error);
}

} // namespace

/// Every number that a line or a scenario takes, at its limits and just beyond.
class LineLimitsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeANumberUpToItsLimitsOnly_data();
    void shouldTakeANumberUpToItsLimitsOnly();
    void shouldReadALineUpToItsLength();
    void shouldTakeNoNumberBeyondItsLimitFromAScenario_data();
    void shouldTakeNoNumberBeyondItsLimitFromAScenario();
    void shouldTakeAsManyPointsAsTheWorkpieceMayHave();
    void shouldTakeLimitedNumbersOfThingsFromAScenario_data();
    void shouldTakeLimitedNumbersOfThingsFromAScenario();
};

void LineLimitsTest::shouldTakeANumberUpToItsLimitsOnly_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QStringList>("refused");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char *line, const char *taken, const char *refused, const QString &refusal) {
        QTest::newRow(line) << QString::fromLatin1(line) << QString::fromLatin1(taken).split(QLatin1Char(' '))
                            << QString::fromLatin1(refused).split(QLatin1Char(' ')) << refusal;
    };
    const auto control = [row](const char *line, const char *taken, const char *refused, const char *what) {
        row(line, taken, refused, expected(QString::fromLatin1(what)));
    };
    const QString badValue = QStringLiteral("velmar2 err 3 \"bad value\"");
    control("sim tool 1 move 1 2 3 %1", "0.001 1000000000", "0 -1", "x y z speed");
    control("sim tool 1 tremor %1", "0 1000", "-0.001 1000.001", "a number from 0 up");
    control("sim tool 1 noise %1", "0 1000", "-0.001 1000.001", "a number from 0 up");
    control("sim tool 1 duration %1", "0 3600", "-0.001 3600.001", "a number from 0 up");
    control("sim tool 1 tolerance %1", "0 1000000000", "-0.001 1000000001", "a number from 0 up");
    control("sim device 1 joystick 1 %1", "-1 1", "-1.001 1.001", "a number from -1 to 1");
    control("sim cal room steps %1", "1 20", "0 21", "a number of steps from 1 to 20");
    control("sim cal room pause 1 %1 5", "0 3600", "-1 3601", "announced and real seconds");
    control("sim cal room pause 1 5 %1", "0 3600", "-1 3601", "announced and real seconds");
    control("sim cal room duration %1", "0.1 3600", "0.09 3600.1", "seconds from 0.1 up");
    control("sim cal room stall %1 5", "0 1", "-0.01 1.01", "a fraction and seconds");
    control("sim cal room stall 0.5 %1", "0 3600", "-0.01 3600.01", "a fraction and seconds");
    control("sim cal room error %1 text", "0 1", "-0.01 1.01", "a fraction and a text");
    control("sim cal room afterwork %1", "0 3600", "-0.01 3600.01", "seconds");
    control("sim cal room curve %1 0.5", "0.001", "0 -1", "seconds that ascend from above 0");
    control("sim cal room curve 2 0.5 %1 1", "2.001", "2 1", "seconds that ascend from above 0");
    control("sim cal room camera 1 rate %1", "0 1000", "-0.1 1000.1", "a rate from 0 to 1000");
    control("sim clock query %1", "0 3600", "-0.1 3600.1", "seconds");
    control("sim seed %1", "0 2147483647", "-1 2147483648", "a whole number from 0 up");
    control("sim ts jump %1", "-5 999000000", "1000000001", "seconds");
    control("sim record drop 6d %1", "0 1000000", "-1 1000001", "a number of frames");
    control("sim record repeat 6d %1", "0 1000000", "-1 1000001", "a number of frames");
    control("sim record swap 6d 6df %1", "1 1000000", "0 1000001", "a number of frames");
    control("sim record cut 6d %1", "0 100000", "-1 100001", "a number of characters");
    control("sim record long 6d %1", "0 100000", "-1 100001", "a number of characters");
    control("sim record count 6d %1", "-2147483647 2147483647", "2147483648 1.5", "a whole number");
    row("velmar2 set tracking extra_scaling %1", "0.001 1000", "0 1000.001", badValue);
    row("velmar2 set roomcal angle %1 2 3", "0.001", "0 -1", badValue);
    row("velmar2 set roomcal angle 1 2 %1", "0.001", "0 -1", badValue);
    row("velmar2 set roomcal angle_height %1", "0 100", "-0.001", badValue);
    row("velmar2 set roomcal duration %1", "1 3600", "0.999 3600.001", badValue);
    row("velmar2 set tracking extra_rotation %1 0 0 0 1 0 0 0 1", "1 1.0004", "1.01 0.99", badValue);
}

void LineLimitsTest::shouldTakeANumberUpToItsLimitsOnly()
{
    // GIVEN
    QFETCH(QString, line);
    QFETCH(QStringList, taken);
    QFETCH(QStringList, refused);
    QFETCH(QString, refusal);
    // WHEN, THEN
    for (const QString &number : qAsConst(taken)) {
        SimController controller;
        const QString answer = answerTo(controller, line.arg(number));
        QVERIFY2(answer == controlOk || answer == requestOk, qPrintable(line.arg(number)));
    }
    for (const QString &number : qAsConst(refused)) {
        SimController controller;
        QCOMPARE(answerTo(controller, line.arg(number)), refusal);
    }
}

void LineLimitsTest::shouldReadALineUpToItsLength()
{
    // GIVEN
    SimController controller;
    const auto sized = [](const char *begin, int size) {
        return QString::fromLatin1(begin).leftJustified(size, QLatin1Char('x'));
    };
    // WHEN, THEN
    QCOMPARE(answerTo(controller, sized("sim ", 1000)), QStringLiteral("sim err \"unknown control line\""));
    QCOMPARE(answerTo(controller, sized("sim ", 1001)), QStringLiteral("sim err \"line too long\""));
    QCOMPARE(answerTo(controller, sized("velmar2 ", 1000)),
             QStringLiteral("velmar2 err 1 \"unknown command\""));
    QCOMPARE(answerTo(controller, sized("velmar2 ", 1001)),
             QStringLiteral("velmar2 err 6 \"line too long\""));
}

void LineLimitsTest::shouldTakeNoNumberBeyondItsLimitFromAScenario_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QStringList>("refused");
    const auto row = [](const char *json, const char *taken, const char *refused) {
        QTest::newRow(json) << QString::fromLatin1(json) << QString::fromLatin1(taken).split(QLatin1Char(' '))
                            << QString::fromLatin1(refused).split(QLatin1Char(' '));
    };
    row(R"({"seed": %1})", "0 2147483647", "-1 2147483648");
    row(R"({"controller": {"extra": {"scaling": %1}}})", "0.001 1000", "0.0009 1000.1");
    row(R"({"controller": {"reference": %1}})", "0 1", "-1 51");
    row(R"({"cameras": [{"rate": %1}]})", "0 1000", "-0.1 1000.1");
    row(R"({"tools": [{"tremor": %1}]})", "0 1000", "-0.1 1000.1");
    row(R"({"tools": [{"noise": %1}]})", "0 1000", "-0.1 1000.1");
    row(R"({"tools": [{"duration": %1}]})", "0 3600", "-0.1 3600.1");
    row(R"({"tools": [{"tolerance": %1}]})", "0 1000000000", "-0.1 1000000001");
    row(R"({"tools": [{"tipRadius": %1}]})", "0 1000", "-0.1 1000.1");
    row(R"({"devices": [{"buttons": %1}]})", "0 16", "-1 17");
    row(R"({"devices": [{"joystick": %1}]})", "0 16", "-1 17");
    row(R"({"angleTool": {"height": %1}})", "0 1000000000", "-0.1 1000000001");
}

void LineLimitsTest::shouldTakeNoNumberBeyondItsLimitFromAScenario()
{
    // GIVEN
    QFETCH(QString, json);
    QFETCH(QStringList, taken);
    QFETCH(QStringList, refused);
    // WHEN, THEN
    for (const QString &number : qAsConst(taken))
        QCOMPARE(problemOf(json.arg(number)), QString());
    for (const QString &number : qAsConst(refused))
        QVERIFY2(!problemOf(json.arg(number)).isEmpty(), qPrintable(number));
}

void LineLimitsTest::shouldTakeAsManyPointsAsTheWorkpieceMayHave()
{
    // GIVEN
    SimController controller;
    const QString line = QStringLiteral("sim object point %1 1 2 3");
    const QString refusal = QStringLiteral("sim err \"no such point\"");
    QCOMPARE(answerTo(controller, line.arg(0)), refusal);
    QCOMPARE(answerTo(controller, line.arg(8)), refusal); // six are there
    // WHEN
    for (int number = 7; number <= 200; ++number)
        QCOMPARE(answerTo(controller, line.arg(number)), controlOk);
    // THEN
    QCOMPARE(answerTo(controller, line.arg(201)), refusal);
    QCOMPARE(controller.machine().room.workpiece.points.size(), std::size_t(200));
    QCOMPARE(controller.machine().room.workpiece.points.back().name, std::string("point 200"));
}

void LineLimitsTest::shouldTakeLimitedNumbersOfThingsFromAScenario_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<int>("most");
    QTest::newRow("cameras") << QStringLiteral(R"({"cameras": [%1]})") << 99;
    QTest::newRow("tools") << QStringLiteral(R"({"tools": [%1]})") << 16;
    QTest::newRow("devices") << QStringLiteral(R"({"devices": [%1]})") << 16;
    QTest::newRow("bodies") << QStringLiteral(R"({"bodies": [%1]})") << 50;
    QTest::newRow("points") << QStringLiteral(R"({"workpiece": {"points": [%1]}})") << 200;
}

void LineLimitsTest::shouldTakeLimitedNumbersOfThingsFromAScenario()
{
    // GIVEN
    QFETCH(QString, json);
    QFETCH(int, most);
    QStringList things;
    for (int i = 0; i < most; ++i)
        things << QStringLiteral("{}");
    // WHEN, THEN
    QCOMPARE(problemOf(json.arg(things.join(QLatin1Char(',')))), QString());
    things << QStringLiteral("{}");
    QVERIFY(!problemOf(json.arg(things.join(QLatin1Char(',')))).isEmpty());
}

ROOM_TEST_CLASS(LineLimitsTest)
#include "LineLimitsTest.moc"
