#include "MatchingLists.h"

#include "TestRegistry.h"

#include <QTableWidget>
#include <QtTest>

class MatchingListsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLetOnlyReferencesBeTyped()
    {
        // GIVEN
        QTableWidget references(0, 3);
        QTableWidget measured(0, 3);
        MatchingLists lists(&references, &measured);
        // WHEN
        lists.referenceList().replace(0, 0, {PointRow{{1.0, 2.0, 3.0}, {}}});
        lists.measuredList().replace(0, 0, {PointRow{{4.0, 5.0, 6.0}, {}}});
        // THEN
        QVERIFY(references.item(0, 1)->flags() & Qt::ItemIsEditable);
        QVERIFY(!(measured.item(0, 1)->flags() & Qt::ItemIsEditable));
    }

    void shouldKeepBothListsApart()
    {
        // GIVEN
        QTableWidget references(0, 3);
        QTableWidget measured(0, 3);
        MatchingLists lists(&references, &measured);
        // WHEN
        lists.measuredList().replace(0, 0, {PointRow{{4.0, 5.0, 6.0}, {}}});
        // THEN
        QVERIFY(lists.references().empty());
        QCOMPARE(lists.measured(), (MatchingPoints{{4.0, 5.0, 6.0}}));
        QCOMPARE(lists.referenceTable().rowCount(), 0);
        QCOMPARE(lists.measuredTable().rowCount(), 1);
        QCOMPARE(measured.item(0, 2)->text(), QStringLiteral("6.00"));
    }
};

ROOM_TEST_CLASS(MatchingListsTest)
#include "MatchingListsTest.moc"
