#include "PointTable.h"

#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest>

namespace
{

PointRow row(double x, const QString &text = QString())
{
    return {{x, 0.0, -0.5}, {text, QString(), QString()}};
}

/// A table of points of which the first cells show 1.00, 2.00 and 3.00.
struct Filled {
    Filled() { points.replaceRows(0, 0, {row(1.0), row(2.0), row(3.0)}); }

    QTableWidget table{0, 3};
    PointTable points{&table, PointTable::Cells::Editable};
};

} // namespace

class PointTableTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowTwoDecimalsOrWhatWasTyped()
    {
        // GIVEN
        Filled one;
        // WHEN
        one.points.replaceRows(1, 1, {row(2.005, QStringLiteral("2.005"))});
        // THEN
        QCOMPARE(one.table.item(0, 0)->text(), QStringLiteral("1.00"));
        QCOMPARE(one.table.item(0, 2)->text(), QStringLiteral("-0.50"));
        QCOMPARE(one.points.texts().at(1).at(0), QStringLiteral("2.005"));
        QCOMPARE(one.points.points().at(1).at(0), 2.005);
    }

    void shouldSayNothingOfItsOwnChanges()
    {
        // GIVEN
        Filled one;
        const QSignalSpy changed(&one.table, &QTableWidget::itemChanged);
        const QSignalSpy moved(&one.table, &QTableWidget::currentCellChanged);
        // WHEN
        one.points.replaceRows(0, 1, {row(5.0), row(6.0)});
        one.points.setText(1, 0, QStringLiteral("7"));
        one.points.mark(1, QStringLiteral("why"));
        one.points.moveCursorTo(2);
        // THEN
        QCOMPARE(changed.count(), 0);
        QCOMPARE(moved.count(), 0);
        QCOMPARE(one.table.currentRow(), 2);
    }

    void shouldSelectNothingWhereRowsHaveGone()
    {
        // GIVEN
        Filled one;
        one.table.selectRow(2);
        QCOMPARE(one.points.selectedRow(), 2);
        // WHEN
        one.points.replaceRows(0, 1, {});
        // THEN
        QCOMPARE(one.points.selectedRow(), -1);
        QCOMPARE(one.points.rowCount(), 2);
    }

    void shouldReadARowAsItsCellsShowIt()
    {
        // GIVEN
        Filled one;
        one.points.setText(1, 1, QStringLiteral("4.25"));
        // WHEN
        const PointRow read = one.points.row(1);
        // THEN
        QCOMPARE(read.point, (MatchingPoint{2.0, 4.25, -0.5}));
        QVERIFY(read.texts[0].isNull());
        QCOMPARE(read.texts[1], QStringLiteral("4.25"));
    }

    void shouldReadCellsOfOthersToo()
    {
        // GIVEN
        Filled one;
        one.table.insertRow(3);
        one.table.setItem(3, 0, new QTableWidgetItem(QStringLiteral("8.5")));
        one.table.setItem(3, 1, new QTableWidgetItem(QStringLiteral("none")));
        // WHEN, THEN
        QCOMPARE(one.points.points().at(3), (MatchingPoint{8.5, 0.0, 0.0}));
        QCOMPARE(one.points.texts().at(3), (ReferencePointFile::Row{"8.5", "none", QString()}));
    }

    void shouldMarkOneRowAtATime()
    {
        // GIVEN
        Filled one;
        one.points.mark(0, QStringLiteral("first"));
        // WHEN
        one.points.mark(2, QStringLiteral("third"));
        // THEN
        QVERIFY(one.table.item(0, 0)->toolTip().isEmpty());
        QVERIFY(!one.table.item(0, 0)->font().bold());
        QCOMPARE(one.table.item(2, 1)->toolTip(), QStringLiteral("third"));
        QVERIFY(one.table.item(2, 1)->font().bold());
        QVERIFY(!one.table.item(2, 0)->icon().isNull());
        one.points.clearMark();
        QVERIFY(one.table.item(2, 1)->toolTip().isEmpty());
        QVERIFY(one.table.item(2, 0)->icon().isNull());
    }

    void shouldLetTypingGoIntoTheLastRow()
    {
        // GIVEN
        Filled one;
        one.table.show();
        one.table.activateWindow();
        QTRY_VERIFY(one.table.isActiveWindow());
        one.table.selectRow(0);
        // WHEN
        one.points.beginTypingIntoLastRow();
        // THEN
        QCOMPARE(one.points.selectedRow(), -1);
        QCOMPARE(one.table.currentRow(), 2);
        QTRY_VERIFY(one.table.hasFocus());
    }
};

ROOM_TEST_CLASS(PointTableTest)
#include "PointTableTest.moc"
