#include "ListChange.h"

#include "PointList.h"
#include "TestRegistry.h"

#include <QTableWidget>
#include <QtTest>

namespace
{

PointRow row(double x)
{
    return {{x, 0.0, 0.0}, {}};
}

/// A list with the rows 1, 2 and 3.004, which shows two decimals only.
struct Filled {
    Filled()
    {
        list.replace(0, 0, {row(1.0), row(2.0), row(3.004)});
        list.setFiner(true);
    }

    QTableWidget table{0, 3};
    PointList list{&table, PointTable::Cells::Editable};
};

QString firstCoordinates(const PointList &list)
{
    QStringList texts;
    for (const MatchingPoint &point : list.points())
        texts << QString::number(point[0]);
    return texts.join(QLatin1Char(' '));
}

} // namespace

class ListChangeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPutRowsInThePlaceOfOthersAndBack_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("added");
        QTest::addColumn<QString>("expected");
        QTest::newRow("removed") << 1 << 1 << 0 << "1 3.004";
        QTest::newRow("inserted") << 1 << 0 << 1 << "1 8 2 3.004";
        QTest::newRow("replaced") << 0 << 2 << 1 << "8 3.004";
    }
    void shouldPutRowsInThePlaceOfOthersAndBack()
    {
        // GIVEN
        QFETCH(int, first);
        QFETCH(int, removed);
        QFETCH(int, added);
        QFETCH(QString, expected);
        Filled one;
        const PointRows rows(static_cast<std::size_t>(added), row(8.0));
        ListChange change(one.list, first, one.list.rows(first, removed), rows, ListChange::Points::AsGiven);
        // WHEN, THEN
        change.redo();
        QCOMPARE(firstCoordinates(one.list), expected);
        change.undo();
        QCOMPARE(firstCoordinates(one.list), QStringLiteral("1 2 3.004"));
        QCOMPARE(one.table.rowCount(), 3);
    }

    void shouldGiveDecimalsBackThatNoCellShows()
    {
        // GIVEN
        Filled one;
        ListChange change(one.list, 0, one.list.rows(0, 1), {row(8.0)}, ListChange::Points::FromCells);
        // WHEN
        change.redo();
        // THEN
        QCOMPARE(firstCoordinates(one.list), QStringLiteral("8 2 3"));
        QVERIFY(!one.list.isFiner());
        change.undo();
        QCOMPARE(firstCoordinates(one.list), QStringLiteral("1 2 3.004"));
        QVERIFY(one.list.isFiner());
    }

    void shouldLeadTheCursorToNewRowsOnly()
    {
        // GIVEN
        Filled one;
        one.table.setCurrentCell(0, 0);
        ListChange change(one.list, 2, {}, {row(8.0)}, ListChange::Points::AsGiven);
        // WHEN, THEN
        change.redo();
        QCOMPARE(one.table.currentRow(), 2);
        one.table.setCurrentCell(0, 0);
        change.undo();
        QCOMPARE(one.table.currentRow(), 0);
    }
};

ROOM_TEST_CLASS(ListChangeTest)
#include "ListChangeTest.moc"
