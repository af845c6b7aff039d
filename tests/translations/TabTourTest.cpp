#include "TabTour.h"

#include "TestRegistry.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace
{

/// A window with a row of three buttons.
struct Row {
    Row()
    {
        auto *layout = new QHBoxLayout(&window);
        for (QPushButton *button : {&first, &second, &third}) {
            button->setAutoDefault(false);
            layout->addWidget(button);
        }
    }

    QStringList faults()
    {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window) ? TabTour::faults(window) : QStringList("not active");
    }

    QWidget window;
    QPushButton first;
    QPushButton second;
    QPushButton third;
};

} // namespace

class TabTourTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindNothingWrongWithARowInItsOrder()
    {
        Row row;
        QCOMPARE(row.faults(), QStringList());
        QCOMPARE(TabTour::stops(row.window), (QList<QWidget *>{&row.first, &row.second, &row.third}));
    }

    void shouldPassOverWhatIsDisabledOrHidden()
    {
        Row row;
        row.first.setEnabled(false);
        row.third.hide();
        QCOMPARE(row.faults(), QStringList());
        QCOMPARE(TabTour::stops(row.window), QList<QWidget *>{&row.second});
    }

    void shouldHoldWhatChangesTheWindowMeanwhile()
    {
        // GIVEN
        Row row;
        QTimer timer(&row.window);
        QObject::connect(&timer, &QTimer::timeout, &row.second,
                         [&row] { row.second.setEnabled(!row.second.isEnabled()); });
        row.window.show();
        row.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&row.window));
        timer.start(0);
        // WHEN
        const QStringList faults = TabTour::faults(row.window);
        // THEN
        QCOMPARE(faults, QStringList());
        QVERIFY(timer.isActive());
    }

    void shouldFindAWrongOrder()
    {
        Row row;
        QWidget::setTabOrder(&row.second, &row.first);
        QVERIFY(!row.faults().isEmpty());
    }

    void shouldFindAControlInNoLayout()
    {
        Row row;
        QPushButton stray(&row.window);
        const QStringList faults = row.faults();
        QVERIFY(faults.contains(QStringLiteral("QPushButton  stands in no layout")));
    }

    void shouldFindAWindowThatCannotBeUsedByKeyboard()
    {
        Row row;
        for (QPushButton *button : {&row.first, &row.second, &row.third})
            button->setEnabled(false);
        QVERIFY(!row.faults().isEmpty());
    }

    void shouldNotTakeTheFocusOfADisabledControlForOne()
    {
        Row row;
        QCOMPARE(row.faults(), QStringList());
        row.second.setFocus();
        QCOMPARE(TabTour::focus(row.window), &row.second);
        row.window.setEnabled(false);
        QVERIFY(TabTour::focus(row.window) == nullptr);
    }
};

ROOM_TEST_CLASS(TabTourTest)

#include "TabTourTest.moc"
