#include "FinePanel.h"
#include "TestRegistry.h"
#include "abcRoom.h"
#include "xyzWidget.h"

#include <Eigen/Geometry>

#include <QMenu>
#include <QStackedWidget>
#include <QtTest>

namespace
{

constexpr double radians = 3.14159265358979323846 / 180.0;

Eigen::Vector3d unit(int axis)
{
    return Eigen::Vector3d::Unit(axis);
}

Eigen::Matrix3d turn(double degrees, int axis)
{
    return Eigen::AngleAxisd(degrees * radians, unit(axis)).toRotationMatrix();
}

/// Which of long axes and the planes XY, YZ and XZ the room shows.
QList<bool> shown(FinePanel &p)
{
    const RoomDisplay &display = p.room()->display();
    return {display.longAxes, display.showXY, display.showYZ, display.showXZ};
}

/// The spin boxes of an editor group, in the order x, y, z.
QDoubleSpinBox *partOf(FinePanel &p, const char *group, int axis)
{
    const std::array<const char *, 3> names{"x", "y", "z"};
    auto *editor = p.child<xyzWidget>(group)->findChild<QWidget *>(names.at(std::size_t(axis)));
    return editor->findChild<QDoubleSpinBox *>("spinBox");
}

void typeInto(QDoubleSpinBox *box, const char *text)
{
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
}

/// A movement of the mouse over the view with a button that was pressed elsewhere.
void moveMouse(FinePanel &p, const QPoint &to)
{
    QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(p.view(), &move);
}

Eigen::Matrix4d viewOf(FinePanel &p)
{
    return eigen(p.view()->viewPose().matrix());
}

} // namespace

/// Every box, entry and editor of the fine panel by itself.
class FineControlsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPreviewEveryBoxByItself_data();
    void shouldPreviewEveryBoxByItself();
    void shouldSwitchEveryEntryOfTheMenuByItself_data();
    void shouldSwitchEveryEntryOfTheMenuByItself();
    void shouldStepEveryOffsetByTheUnitOfTheView();
    void shouldFindTheDistanceOfTheViewByItsButton();
    void shouldLimitEveryEditorOfTheView();
    void shouldMoveTheViewByEveryEditorOfItsPosition();
    void shouldTurnTheViewByEveryEditorOfItsOrientation();
    void shouldShowThePictureWhereItCanBeDrawn();
};

void FineControlsTest::shouldPreviewEveryBoxByItself_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("axis");
    QTest::addColumn<bool>("isOffset");
    int axis = 0;
    for (const char *name : {"x", "y", "z"})
        QTest::newRow(name) << QStringLiteral("doubleSpinBox_") + name << axis++ << true;
    axis = 0;
    for (const char *name : {"rx", "ry", "rz"})
        QTest::newRow(name) << QStringLiteral("doubleSpinBox_") + name << axis++ << false;
}

void FineControlsTest::shouldPreviewEveryBoxByItself()
{
    QFETCH(QString, name);
    QFETCH(int, axis);
    QFETCH(bool, isOffset);
    FinePanel p;
    p.widget.loadPage();

    p.type(qPrintable(name), "40");

    Eigen::Matrix4d expected = Eigen::Matrix4d::Identity();
    if (isOffset)
        expected.topRightCorner<3, 1>() = 40.0 * unit(axis);
    else
        expected.topLeftCorner<3, 3>() = turn(40.0, axis);
    QVERIFY((eigen(p.room()->pendingMatrix()) - expected).cwiseAbs().maxCoeff() < 1e-12);
    QVERIFY(p.enable.count() > 0);
    QVERIFY(p.enable.last().first().toBool());
}

void FineControlsTest::shouldSwitchEveryEntryOfTheMenuByItself_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("place");
    QTest::newRow("long axes") << "Long axes" << 0;
    QTest::newRow("XY") << "Show XY plane" << 1;
    QTest::newRow("YZ") << "Show YZ plane" << 2;
    QTest::newRow("XZ") << "Show XZ plane" << 3;
}

void FineControlsTest::shouldSwitchEveryEntryOfTheMenuByItself()
{
    QFETCH(QString, text);
    QFETCH(int, place);
    FinePanel p;
    QList<bool> expected{false, true, false, false};
    QCOMPARE(shown(p), expected);
    const auto allActions = p.widget.findChild<QMenu *>()->actions();
    for (QAction *action : allActions) {
        if (action->text() != text)
            continue;
        action->trigger();
        expected[place] = !expected[place];
        QCOMPARE(shown(p), expected);
        action->trigger();
    }
    expected[place] = !expected[place];
    QCOMPARE(shown(p), expected);
}

void FineControlsTest::shouldStepEveryOffsetByTheUnitOfTheView()
{
    FinePanel p;
    p.widget.loadPage(); // seen from 900 mm, and a unit is a three-hundredth of it
    for (const char *name : {"doubleSpinBox_x", "doubleSpinBox_y", "doubleSpinBox_z"}) {
        QTest::keyClick(p.box(name), Qt::Key_Up);
        QCOMPARE(p.box(name)->value(), 3.0);
    }
    for (const char *name : {"doubleSpinBox_rx", "doubleSpinBox_ry", "doubleSpinBox_rz"}) {
        QTest::keyClick(p.box(name), Qt::Key_Down);
        QCOMPARE(p.box(name)->value(), -1.0);
    }
}

void FineControlsTest::shouldFindTheDistanceOfTheViewByItsButton()
{
    FinePanel p;
    p.widget.loadPage();
    p.view()->setViewPosition({10.0, 20.0, -12.0});
    p.click("w_adjustViewButton");
    QCOMPARE(p.view()->viewPose().position().z, -900.0);
    QCOMPARE(p.view()->viewPose().position().x, 0.0);
}

void FineControlsTest::shouldLimitEveryEditorOfTheView()
{
    FinePanel p;
    for (int axis = 0; axis < 3; ++axis) {
        const QDoubleSpinBox *position = partOf(p, "w_viewPositionXYZ", axis);
        QCOMPARE(position->minimum(), -999999.99);
        QCOMPARE(position->maximum(), 999999.99);
        QVERIFY(!position->wrapping());
        const QDoubleSpinBox *orientation = partOf(p, "w_viewOrientationXYZ", axis);
        QCOMPARE(orientation->minimum(), -360.0);
        QCOMPARE(orientation->maximum(), 360.0);
        QVERIFY(!orientation->wrapping());
    }
}

void FineControlsTest::shouldMoveTheViewByEveryEditorOfItsPosition()
{
    FinePanel p;
    p.widget.loadPage();
    for (int axis = 0; axis < 3; ++axis) {
        QDoubleSpinBox *box = partOf(p, "w_viewPositionXYZ", axis);
        Eigen::Matrix4d expected = viewOf(p);
        for (int edit = 0; edit < 2; ++edit) {
            typeInto(box, "12");
            moveMouse(p, QPoint(0, 10 + 10 * edit)); // turns nothing
            expected.topRightCorner<3, 1>() += 12.0 * unit(axis);
            QVERIFY((viewOf(p) - expected).cwiseAbs().maxCoeff() < 1e-12);
            QTest::keyClick(box, Qt::Key_Return);
            QCOMPARE(box->value(), 0.0);
            QVERIFY((viewOf(p) - expected).cwiseAbs().maxCoeff() < 1e-12);
        }
    }
}

void FineControlsTest::shouldTurnTheViewByEveryEditorOfItsOrientation()
{
    for (int axis = 0; axis < 3; ++axis) {
        FinePanel p;
        p.widget.loadPage();
        QDoubleSpinBox *box = partOf(p, "w_viewOrientationXYZ", axis);
        typeInto(box, "30");
        QVERIFY((viewOf(p).topLeftCorner<3, 3>() - turn(30.0, axis)).cwiseAbs().maxCoeff() < 1e-12);
        // while the edit is on, the mouse turns the view too, from where it was saved last
        moveMouse(p, QPoint(0, 10));
        QVERIFY((viewOf(p).topLeftCorner<3, 3>() - turn(10.0, 0)).cwiseAbs().maxCoeff() < 1e-12);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->value(), 0.0);
        moveMouse(p, QPoint(0, 50));
        QVERIFY((viewOf(p).topLeftCorner<3, 3>() - turn(10.0, 0)).cwiseAbs().maxCoeff() < 1e-12);
        // the end of an edit saves the view: the next begins there
        typeInto(box, "20");
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->value(), 0.0);
        QVERIFY((viewOf(p).topLeftCorner<3, 3>() - turn(20.0, axis) * turn(10.0, 0)).cwiseAbs().maxCoeff() <
                1e-12);
    }
}

void FineControlsTest::shouldShowThePictureWhereItCanBeDrawn()
{
    FinePanel p;
    QVERIFY(p.view()->canDraw());
    QVERIFY(p.view()->isVisible());
    QVERIFY(!p.child<QWidget>("label_noView")->isVisible());
}

ROOM_TEST_CLASS(FineControlsTest)
#include "FineControlsTest.moc"
