#include "PointItem.h"

#include "TestRegistry.h"

#include <QTableWidget>
#include <QtTest>

class PointItemTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowItsNumberWithTwoDecimals()
    {
        PointItem item;
        item.show(-12.345678, {});
        QCOMPARE(item.text(), QString("-12.35"));
        QCOMPARE(item.typedText(), QString());
        QCOMPARE(item.shownNumber(), -12.35);
        QCOMPARE(item.textAlignment(), int(Qt::AlignRight | Qt::AlignVCenter));
    }

    void shouldShowWhatWasTyped()
    {
        PointItem item;
        item.show(7.5, {});
        item.setText("007.50");
        QCOMPARE(item.text(), QString("007.50"));
        QCOMPARE(item.typedTextBefore(), QString());
        item.setText("8");
        QCOMPARE(item.typedTextBefore(), QString("007.50"));
        QCOMPARE(item.shownNumber(), 8.0);
        item.setText("no number");
        QCOMPARE(item.shownNumber(), 0.0);
    }

    void shouldGoBackToItsNumber()
    {
        PointItem item;
        item.show(1.0, "typed");
        QCOMPARE(item.text(), QString("typed"));
        item.show(2.0, {});
        QCOMPARE(item.text(), QString("2.00"));
        QCOMPARE(item.shownNumber(), 2.0);
        item.showText("2.00");
        QVERIFY(item.typedText().isNull());
        item.showText("2.0");
        QCOMPARE(item.typedText(), QString("2.0"));
    }

    void shouldNotTellThatATextItShowsWasTypedAgain()
    {
        QTableWidget table(1, 1);
        auto *item = new PointItem;
        item->show(5.0, {});
        table.setItem(0, 0, item);
        QSignalSpy changed(&table, &QTableWidget::itemChanged);
        item->setText("5.00");
        QVERIFY(changed.isEmpty());
        item->setText("6");
        QCOMPARE(changed.count(), 1);
    }

    void shouldKnowItsOwnKind()
    {
        QTableWidgetItem other;
        PointItem item;
        QCOMPARE(PointItem::from(&item), &item);
        QCOMPARE(PointItem::from(&other), nullptr);
        QCOMPARE(PointItem::from(nullptr), nullptr);
    }
};

ROOM_TEST_CLASS(PointItemTest)

#include "PointItemTest.moc"
