#include "PointList.h"

#include "TestRegistry.h"

#include <QTableWidget>
#include <QtTest>

namespace
{

PointRows rows(const MatchingPoints &points)
{
    PointRows rows;
    for (const MatchingPoint &point : points)
        rows.push_back({point, {}});
    return rows;
}

} // namespace

class PointListTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPutRowsInThePlaceOfOthers_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("added");
        QTest::addColumn<QString>("expected");
        QTest::newRow("append") << 3 << 0 << 1 << "1 2 3 11";
        QTest::newRow("insert") << 1 << 0 << 2 << "1 11 12 2 3";
        QTest::newRow("remove") << 1 << 1 << 0 << "1 3";
        QTest::newRow("remove all") << 0 << 3 << 0 << "";
        QTest::newRow("replace one") << 2 << 1 << 1 << "1 2 11";
        QTest::newRow("fewer for more") << 0 << 2 << 1 << "11 3";
        QTest::newRow("more for fewer") << 1 << 1 << 3 << "1 11 12 13 3";
        QTest::newRow("more than exist") << 2 << 5 << 1 << "1 2 11";
        QTest::newRow("behind the end") << 9 << 1 << 1 << "1 2 3 11";
    }

    void shouldPutRowsInThePlaceOfOthers()
    {
        // GIVEN
        QFETCH(int, first);
        QFETCH(int, count);
        QFETCH(int, added);
        QTableWidget table(0, 3);
        PointList list(&table, PointTable::Cells::Editable);
        list.replace(0, 0, rows({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}}));
        const MatchingPoints all = {{11, 0, 0}, {12, 0, 0}, {13, 0, 0}};
        // WHEN
        list.replace(first, count, rows(MatchingPoints(all.begin(), all.begin() + added)));
        // THEN
        QStringList points, cells;
        for (const MatchingPoint &point : list.points())
            points += QString::number(point[0]);
        for (int row = 0; row < table.rowCount(); ++row)
            cells += table.item(row, 0)->text();
        QTEST(points.join(' '), "expected");
        QCOMPARE(cells.join(' ').remove(".00"), points.join(' '));
    }

    void shouldLoseWhatNoCellShowsWhenTheCellsAreTaken()
    {
        QTableWidget table(0, 3);
        PointList list(&table, PointTable::Cells::Editable);
        list.replace(0, 0, rows({{1.2345, 0, -0.006}}));
        QCOMPARE(list.points().front(), (MatchingPoint{1.2345, 0, -0.006}));
        QCOMPARE(list.rows(0, 1).front().point, (MatchingPoint{1.2345, 0, -0.006}));
        list.takeCells();
        QCOMPARE(list.points().front(), (MatchingPoint{1.23, 0, -0.01}));
    }

    void shouldTakeRowsThatWerePutInFromOutside()
    {
        QTableWidget table(1, 3);
        table.setItem(0, 1, new QTableWidgetItem("4.5"));
        PointList list(&table, PointTable::Cells::Editable);
        QVERIFY(list.points().empty());
        list.takeCells();
        QCOMPARE(list.points(), (MatchingPoints{{0, 4.5, 0}}));
        QCOMPARE(list.rows(0, 1).front().texts[1], QString("4.5"));
    }

    void shouldBeSilent()
    {
        QTableWidget table(0, 3);
        PointList list(&table, PointTable::Cells::Editable);
        QSignalSpy changed(&table, &QTableWidget::itemChanged);
        QSignalSpy cells(&table, &QTableWidget::cellChanged);
        list.replace(0, 0, rows({{1, 2, 3}}));
        list.replace(0, 1, rows({{4, 5, 6}}));
        list.table().setText(0, 0, "7");
        QVERIFY(changed.isEmpty() && cells.isEmpty());
        QCOMPARE(table.item(0, 0)->text(), QString("7"));
    }

    void shouldKeepTheSelectionWhereRowsAreAdded()
    {
        QTableWidget table(0, 3);
        PointList list(&table, PointTable::Cells::ReadOnly);
        list.replace(0, 0, rows({{1, 2, 3}, {4, 5, 6}}));
        table.selectRow(1);
        list.replace(2, 0, rows({{7, 8, 9}}));
        QCOMPARE(list.table().selectedRow(), 1);
        list.replace(0, 1, {});
        QCOMPARE(list.table().selectedRow(), -1);
    }
};

ROOM_TEST_CLASS(PointListTest)

#include "PointListTest.moc"
