#include "PointButtons.h"

#include "FakeController.h"
#include "RoomControls.h"
#include "TestRegistry.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace
{

/// The buttons of a workpiece with so many points, between two line edits.
struct Panel {
    explicit Panel(int points)
    {
        setPoints(points);
        buttons.showState();
    }

    void setPoints(int points)
    {
        auto &list = fake.room().workpiece.points;
        list.clear();
        for (int i = 1; i <= points; ++i)
            list.push_back({"hole " + std::to_string(i), {10.0 * i, -0.5, 0.004}});
    }

    QPushButton *button(int point) const
    {
        return widget.findChild<QPushButton *>(QStringLiteral("pointButton%1").arg(point));
    }

    FakeController fake;
    RoomControls controls{fake.channel};
    QWidget widget;
    QGridLayout *layout = new QGridLayout(&widget);
    QLineEdit before{&widget};
    QLineEdit behind{&widget};
    PointButtons buttons{controls, layout, &before, &behind};
};

} // namespace

class PointButtonsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldStandInRowsOfThree()
    {
        // GIVEN
        const Panel panel(4);
        // THEN
        QVERIFY(panel.layout->itemAtPosition(0, 2) != nullptr);
        QCOMPARE(panel.layout->itemAtPosition(0, 2)->widget(), panel.button(3));
        QCOMPARE(panel.layout->itemAtPosition(1, 0)->widget(), panel.button(4));
        QVERIFY(panel.button(5) == nullptr);
    }

    void shouldTellNumberNameAndPlace()
    {
        // GIVEN
        const Panel panel(10);
        // THEN
        QCOMPARE(panel.button(9)->text(), QStringLiteral("Point &9"));
        QCOMPARE(panel.button(10)->text(), QStringLiteral("Point 10"));
        QCOMPARE(panel.button(2)->toolTip(), QStringLiteral("hole 2, nominally at 20.00, -0.50, 0.00"));
    }

    void shouldSayWhichPointWasClicked()
    {
        // GIVEN
        Panel panel(3);
        const QSignalSpy clicked(&panel.buttons, &PointButtons::clicked);
        panel.widget.show();
        // WHEN
        QTest::mouseClick(panel.button(3), Qt::LeftButton);
        // THEN
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).toInt(), 3);
    }

    void shouldFollowTheNumberOfPoints()
    {
        // GIVEN
        Panel panel(3);
        // WHEN
        panel.setPoints(2);
        panel.buttons.showState();
        // THEN
        QVERIFY(panel.button(2) != nullptr);
        QVERIFY(panel.button(3) == nullptr);
    }

    void shouldBeReachedByTheTabulatorInTheirOrder()
    {
        // GIVEN
        const Panel panel(2);
        // THEN
        QCOMPARE(panel.before.nextInFocusChain(), panel.button(1));
        QCOMPARE(panel.button(1)->nextInFocusChain(), panel.button(2));
        QCOMPARE(panel.button(2)->nextInFocusChain(), &panel.behind);
    }
};

ROOM_TEST_CLASS(PointButtonsTest)
#include "PointButtonsTest.moc"
