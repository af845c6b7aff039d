#include "ViewDrag.h"

#include "TestRegistry.h"
#include "ViewPose.h"

#include <QtTest>

#include <cmath>

namespace
{

constexpr double scaleUnit = 2.5;
const QPoint begin(100, 100);

bool isNear(const bsVector &left, const bsVector &right)
{
    return (left - right).length() < 1e-9;
}

} // namespace

class ViewDragTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldDoNothingWithoutAButton()
    {
        ViewPose pose;
        ViewDrag drag(pose);
        drag.startAt(begin);
        drag.to(begin + QPoint(10, 20), scaleUnit);
        QVERIFY(!drag.isOn());
        QVERIFY(pose.position() == bsVector(0.0, 0.0, -300.0));
    }

    void shouldPanWithControlAndTheLeftButton()
    {
        ViewPose pose;
        ViewDrag drag(pose);
        drag.startAt(begin);
        drag.press(Qt::LeftButton, Qt::ControlModifier);
        drag.to(begin + QPoint(10, 20), scaleUnit);
        QVERIFY(drag.isOn());
        QVERIFY(isNear(pose.position(), {25.0, -50.0, -300.0}));
    }

    void shouldZoomWithShiftAndTheLeftButton()
    {
        ViewPose pose;
        ViewDrag drag(pose);
        drag.startAt(begin);
        drag.press(Qt::LeftButton, Qt::ShiftModifier);
        drag.to(begin + QPoint(10, 20), scaleUnit);
        QVERIFY(isNear(pose.position(), {0.0, 0.0, -250.0}));
    }

    /// 20 pixels down are 20 degrees about x, 10 to the right are 10 degrees about y.
    void shouldRotateWithControlAndTheRightButton()
    {
        ViewPose pose;
        ViewDrag drag(pose);
        drag.startAt(begin);
        drag.press(Qt::RightButton, Qt::ControlModifier);
        drag.to(begin + QPoint(10, 20), scaleUnit);
        const double radians = std::acos(-1.0) / 180.0;
        QVERIFY(std::fabs(pose.matrix().at(0, 2) - std::sin(10.0 * radians)) < 1e-12);
        QVERIFY(std::fabs(pose.matrix().at(1, 2) + std::sin(20.0 * radians) * std::cos(10.0 * radians)) <
                1e-12);
        QVERIFY(pose.position() == bsVector(0.0, 0.0, -300.0));
    }

    void shouldIgnoreOtherButtonsAndKeys_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("left alone") << int(Qt::LeftButton) << int(Qt::NoModifier);
        QTest::newRow("left with Alt") << int(Qt::LeftButton) << int(Qt::AltModifier);
        QTest::newRow("right alone") << int(Qt::RightButton) << int(Qt::NoModifier);
        QTest::newRow("right with Shift") << int(Qt::RightButton) << int(Qt::ShiftModifier);
        QTest::newRow("middle with Ctrl") << int(Qt::MiddleButton) << int(Qt::ControlModifier);
    }
    void shouldIgnoreOtherButtonsAndKeys()
    {
        QFETCH(int, button);
        QFETCH(int, modifiers);
        ViewPose pose;
        ViewDrag drag(pose);
        drag.press(Qt::MouseButton(button), Qt::KeyboardModifiers(modifiers));
        QVERIFY(!drag.isOn());
    }

    void shouldGoOnFromWhereTheMouseIsAfterEachStep()
    {
        ViewPose pose;
        ViewDrag drag(pose);
        drag.startAt(begin);
        drag.press(Qt::LeftButton, Qt::ShiftModifier);
        drag.to(begin + QPoint(0, 20), scaleUnit);
        pose.save();
        drag.to(begin + QPoint(0, 30), scaleUnit);
        QVERIFY(isNear(pose.position(), {0.0, 0.0, -225.0}));
    }

    void shouldRotateUntilTheEndWhenAskedTo()
    {
        ViewPose pose;
        ViewDrag drag(pose);
        drag.rotate();
        QVERIFY(drag.isOn());
        drag.end();
        QVERIFY(!drag.isOn());
    }
};

ROOM_TEST_CLASS(ViewDragTest)
#include "ViewDragTest.moc"
