#include "WheelGuard.h"

#include "TestRegistry.h"
#include "WheelTurn.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

namespace
{

/// A list and a number box high up in a scroll area, in an active window whose focus is on a line edit.
struct WheelBench {
    WheelBench()
    {
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        for (QWidget *widget : std::initializer_list<QWidget *>{other, list, box})
            layout->addWidget(widget);
        layout->addSpacing(2000);
        list->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        list->setCurrentIndex(1);
        box->setValue(5.0);
        area.setWidget(content);
        area.resize(300, 200);
        area.show();
        area.activateWindow();
        isReady = QTest::qWaitForWindowActive(&area);
        other->setFocus();
    }

    bool isReady = false;
    QScrollArea area;
    QLineEdit *other = new QLineEdit;
    QComboBox *list = new QComboBox;
    QDoubleSpinBox *box = new QDoubleSpinBox;
};

} // namespace

class WheelGuardTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLetTheWheelScrollWhatLiesBehind()
    {
        WheelBench bench;
        QVERIFY(bench.isReady);
        WheelGuard::protect(bench.list);
        WheelGuard::protect(bench.box);
        int scrolled = 0;
        for (QWidget *widget : std::initializer_list<QWidget *>{bench.list, bench.box}) {
            turnWheelOver(widget, -1);
            QVERIFY(bench.other->hasFocus());
            QVERIFY(bench.area.verticalScrollBar()->value() > scrolled);
            scrolled = bench.area.verticalScrollBar()->value();
            bench.area.verticalScrollBar()->setValue(scrolled = 0);
        }
        QCOMPARE(bench.list->currentIndex(), 1);
        QCOMPARE(bench.box->value(), 5.0);
    }

    void shouldLetTheWheelChangeWhatHasTheFocus()
    {
        WheelBench bench;
        QVERIFY(bench.isReady);
        WheelGuard::protect(bench.list);
        WheelGuard::protect(bench.box);
        bench.list->setFocus();
        turnWheelOver(bench.list, -1);
        QCOMPARE(bench.list->currentIndex(), 2);
        bench.box->setFocus();
        turnWheelOver(bench.box, -1);
        QCOMPARE(bench.box->value(), 4.0);
        QCOMPARE(bench.area.verticalScrollBar()->value(), 0);
    }

    void shouldProtectAllOfAWindow()
    {
        WheelBench bench;
        QVERIFY(bench.isReady);
        WheelGuard::protectAll(&bench.area);
        turnWheelOver(bench.list, -1);
        QCOMPARE(bench.list->currentIndex(), 1);
        bench.area.verticalScrollBar()->setValue(0);
        turnWheelOver(bench.box, -1);
        QCOMPARE(bench.box->value(), 5.0);
    }

    void shouldLeaveOthersToTheWheel()
    {
        WheelBench bench;
        QVERIFY(bench.isReady);
        WheelGuard::protect(bench.list);
        turnWheelOver(bench.box, -1);
        QCOMPARE(bench.box->value(), 4.0);
    }
};

ROOM_TEST_CLASS(WheelGuardTest)
#include "WheelGuardTest.moc"
