#include "ControlLines.h"

#include "SimRoom.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

SimArguments values(std::initializer_list<std::string_view> words)
{
    SimArguments arguments;
    arguments.values = words;
    return arguments;
}

} // namespace

class ControlLinesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadAPose()
    {
        // WHEN
        const auto pose = ControlLines::pose(values({"1", "2", "3", "0", "0", "90"}));
        // THEN
        QVERIFY(pose.has_value());
        QCOMPARE(pose->position.y, 2.0);
        QVERIFY(length(pose->rotation * SimVector{1, 0, 0} - SimVector{0, 1, 0}) < 1e-9);
        QVERIFY(!ControlLines::pose(values({"1", "2", "3"})));
    }

    void shouldReadATruth()
    {
        // WHEN, THEN
        QCOMPARE(ControlLines::truth(values({"yes"})).value(), true);
        QCOMPARE(ControlLines::truth(values({"off"})).value(), false);
        QVERIFY(!ControlLines::truth(values({"maybe"})));
        QVERIFY(!ControlLines::truth(values({"yes", "yes"})));
    }

    void shouldReadNumbersWithinTheirBounds()
    {
        // WHEN, THEN
        QCOMPARE(ControlLines::number(values({"1.5"}), 0.0, 1.5).value(), 1.5);
        QVERIFY(!ControlLines::number(values({"1.6"}), 0.0, 1.5));
        QVERIFY(!ControlLines::number(values({"-0.1"}), 0.0, 1.5));
        QCOMPARE(ControlLines::count(values({"3"}), 3, 5).value(), 3);
        QVERIFY(!ControlLines::count(values({"2"}), 3, 5));
        QVERIFY(!ControlLines::count(values({"6"}), 3, 5));
        QVERIFY(!ControlLines::count(values({"3.5"}), 3, 5));
    }

    void shouldOperateAButton()
    {
        // GIVEN
        SimButton button;
        // WHEN, THEN
        QVERIFY(ControlLines::operate(button, "press").kind == SimReply::Kind::Ok);
        QVERIFY(button.held);
        QVERIFY(ControlLines::operate(button, "release").kind == SimReply::Kind::Ok);
        QVERIFY(!button.isDown());
        QVERIFY(ControlLines::operate(button, "click").kind == SimReply::Kind::Ok);
        QVERIFY(button.clicked);
        QCOMPARE(ControlLines::operate(button, "kick").text,
                 std::string("expected: press, release or click"));
    }
};

ROOM_TEST_CLASS(ControlLinesTest)
#include "ControlLinesTest.moc"
