#include "SimScript.h"

#include "SimController.h"
#include "TestRegistry.h"

#include <QtTest>

#include <array>
#include <cmath>
#include <functional>
#include <vector>

using Holds = std::function<bool(const SimMachine &)>;

Q_DECLARE_METATYPE(Holds)

namespace
{

bool isAt(const SimPose &pose)
{
    const std::array<double, 3> degrees = pose.rotation.degrees();
    return length(pose.position - SimVector{1, 2, 3}) < 1e-9 && std::fabs(degrees[0] - 10.0) < 1e-9 &&
           std::fabs(degrees[1] - 20.0) < 1e-9 && std::fabs(degrees[2] - 30.0) < 1e-9;
}

} // namespace

class SimScriptTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAnswerControlLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("done") << QByteArray("sim tool 1 tip 1 2 3") << QByteArray("sim ok");
        QTest::newRow("blanks in a row") << QByteArray("sim  tool 1   tip 1 2 3") << QByteArray("sim ok");
        QTest::newRow("question") << QByteArray("sim get version") << QByteArray("sim get version 1 23 -1");
        QTest::newRow("refused") << QByteArray("sim tool 7 tip 1 2 3")
                                 << QByteArray("sim err \"no such tool\"");
        QTest::newRow("unknown") << QByteArray("sim dance") << QByteArray("sim err \"unknown control line\"");
        QTest::newRow("open quote") << QByteArray("sim cal room error 0.5 \"no")
                                    << QByteArray("sim err \"a quote is not closed\"");
        QTest::newRow("a request") << QByteArray("velmar2 tracking start")
                                   << QByteArray("sim err \"not a control line\"");
        QTest::newRow("too long") << QByteArray("sim ") + QByteArray(1000, 'x')
                                  << QByteArray("sim err \"line too long\"");
    }
    void shouldAnswerControlLines()
    {
        // GIVEN
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, answer);
        SimController controller;
        SimScript script(controller);
        // WHEN, THEN
        QCOMPARE(QByteArray::fromStdString(script.run(line.toStdString())), answer);
    }

    void shouldChangeTheControllersRoom()
    {
        // GIVEN
        SimController controller;
        SimScript script(controller);
        // WHEN
        script.run("sim tool 1 tip 1 2 3");
        // THEN
        QCOMPARE(controller.machine().room.tools[0].tip.y, 2.0);
    }

    void shouldChangeWhatTheLineNames_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<Holds>("holds");
        const auto row = [](const char *before, const char *line, const Holds &holds) {
            QTest::newRow(line) << QByteArray(before) << QByteArray(line) << holds;
        };
        const char *const nothing = "sim get version";
        row(nothing, "sim clock stepped", [](auto &m) { return m.state.clock == SimClock::Stepped; });
        row("sim clock stepped", "sim clock real", [](auto &m) { return m.state.clock == SimClock::Real; });
        row(nothing, "sim clock query 2.5",
            [](auto &m) { return m.state.clock == SimClock::Query && m.state.queryStepSeconds == 2.5; });
        row("sim clock query 2.5", "sim clock query", [](auto &m) {
            return m.state.clock == SimClock::Query &&
                   m.state.queryStepSeconds == SimState().queryStepSeconds;
        });
        row(nothing, "sim version 3 4 5", [](auto &m) {
            return m.state.versionMajor == 3 && m.state.versionMinor == 4 && m.state.versionThird == 5;
        });
        row(nothing, "sim available no", [](auto &m) { return !m.state.available; });
        row(nothing, "sim locked yes", [](auto &m) { return !m.state.changeable; });
        row("sim locked yes", "sim locked no", [](auto &m) { return m.state.changeable; });
        row(nothing, "sim strict on", [](auto &m) { return m.state.strict; });
        row(nothing, "sim angletool supported no", [](auto &m) { return !m.state.angleToolSupported; });
        row("sim ts jump 2", "sim ts jump -0.5", [](auto &m) { return m.state.timestampOffset == 36001.5; });
        row(nothing, "sim device 1 pose 1 2 3 10 20 30",
            [](auto &m) { return isAt(m.room.devices[0].pose); });
        row(nothing, "sim device 1 tracked no", [](auto &m) { return !m.room.devices[0].tracked; });
        row(nothing, "sim device 1 button 4 press",
            [](auto &m) { return m.room.devices[0].buttons[3].held; });
        row(nothing, "sim device 1 joystick 2 -0.5", [](auto &m) {
            return m.room.devices[0].joystick == std::vector<double>{0.0, -0.5};
        });
        row(nothing, "sim body 1 pose 1 2 3 10 20 30", [](auto &m) { return isAt(m.room.bodies[0].pose); });
        row(nothing, "sim body 1 tracked no", [](auto &m) { return !m.room.bodies[0].tracked; });
        row(nothing, "sim camera 2 pose 1 2 3 10 20 30",
            [](auto &m) { return isAt(m.room.cameras[1].pose); });
        row(nothing, "sim camera 2 room none",
            [](auto &m) { return !m.room.cameras[1].hasRoom && m.room.cameras[0].hasRoom; });
        row("sim camera 2 room none", "sim camera 2 room yes",
            [](auto &m) { return m.room.cameras[1].hasRoom; });
        row(nothing, "sim object pose 1 2 3 10 20 30", [](auto &m) { return isAt(m.room.workpiece.pose); });
        row(nothing, "sim object point 2 4 5 6", [](auto &m) {
            return length(m.room.workpiece.points[1].nominal - SimVector{4, 5, 6}) == 0.0;
        });
        row(nothing, "sim object point 7 4 5 6", [](auto &m) {
            return m.room.workpiece.points.size() == 7 && m.room.workpiece.points[6].name == "point 7" &&
                   length(m.room.workpiece.points[6].nominal - SimVector{4, 5, 6}) == 0.0;
        });
        row(nothing, "sim angletool pose 1 2 3 10 20 30",
            [](auto &m) { return isAt(m.room.angleTool.marker1); });
        row(nothing, "sim angletool size 1 2 3 4", [](auto &m) {
            return m.room.angleTool.distancesMm == std::array<double, 3>{1, 2, 3} &&
                   m.room.angleTool.heightMm == 4.0;
        });
        row(nothing, "sim angletool visible no", [](auto &m) { return !m.room.angleTool.visible; });
    }
    void shouldChangeWhatTheLineNames()
    {
        // GIVEN
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, line);
        QFETCH(Holds, holds);
        SimController controller;
        SimScript script(controller);
        script.run(before.toStdString());
        QVERIFY(!holds(controller.machine()));
        // WHEN, THEN
        QCOMPARE(QByteArray::fromStdString(script.run(line.toStdString())), QByteArray("sim ok"));
        QVERIFY(holds(controller.machine()));
    }

    void shouldTellControlLinesFromRequests()
    {
        // WHEN, THEN
        QVERIFY(SimScript::isControlLine("sim anything"));
        QVERIFY(!SimScript::isControlLine("simply"));
        QVERIFY(!SimScript::isControlLine("velmar2 get sim"));
    }
};

ROOM_TEST_CLASS(SimScriptTest)
#include "SimScriptTest.moc"
