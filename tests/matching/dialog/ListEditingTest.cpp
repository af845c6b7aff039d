#include "ListEditing.h"

#include "OpenedDialog.h"
#include "TestRegistry.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableWidget>
#include <QtTest>

namespace
{

constexpr auto referenceTable = "tableWidget_referencePoints";
constexpr auto measuredTable = "tableWidget_measuredPoints";

void clickRowNumber(QTableWidget *table, int row)
{
    const QHeaderView *header = table->verticalHeader();
    const QPoint place(header->width() / 2,
                       header->sectionViewportPosition(row) + header->sectionSize(row) / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

int selectedRow(const QTableWidget *table)
{
    const QModelIndexList selected = table->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

} // namespace

/// What keys and clicks do to the lists of an opened dialog.
class ListEditingTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSelectTheRowWhoseNumberIsClicked_data() { addTables(); }
    void shouldSelectTheRowWhoseNumberIsClicked()
    {
        QFETCH(QByteArray, tableName);
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            addPoints(opened, 3);
            auto *table = opened.find<QTableWidget>(tableName.constData());
            // WHEN
            clickRowNumber(table, 1);
            // THEN
            QCOMPARE(selectedRow(table), 1);
            table->clearSelection();
            table->selectRow(2);
            QCOMPARE(selectedRow(table), 2);
        });
    }

    void shouldRemoveTheRowWhoseNumberWasClicked()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 3);
            clickRowNumber(opened.find<QTableWidget>(referenceTable), 1);
            opened.answers().thenPress(QMessageBox::Yes);
            opened.click("pushButton_removeRefPoint");
            QCOMPARE(opened.answers().boxes(), QStringList{"Warning|Remove row 2?"});
            QCOMPARE(opened.cell(referenceTable, 1, 0), QString("3.00"));
        });
    }

    void shouldEditCellByCellWhereRowsAreSelected()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 2);
            auto *table = opened.find<QTableWidget>(referenceTable);
            table->setFocus();
            QTRY_VERIFY(table->hasFocus());
            table->setCurrentCell(0, 1);
            type(table, "4", Qt::Key_Return);
            QCOMPARE(opened.cell(referenceTable, 0, 0), QString("1.00"));
            QTRY_COMPARE(opened.cell(referenceTable, 0, 1), QString("4.00"));
            QCOMPARE(opened.cell(referenceTable, 0, 2), QString("0.00"));
        });
    }

    void shouldLeadTheCursorToARowThatIsAdded()
    {
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            addPoints(opened, 2);
            auto *table = opened.find<QTableWidget>(referenceTable);
            table->selectRow(0);
            // WHEN
            opened.click("pushButton_addRefPoint");
            // THEN
            QCOMPARE(selectedRow(table), -1);
            QTRY_VERIFY(table->hasFocus());
            type(table, "7", Qt::Key_Tab);
            QTRY_COMPARE(opened.cell(referenceTable, 2, 0), QString("7.00"));
            type(table, "8", Qt::Key_Return);
            QTRY_COMPARE(opened.cell(referenceTable, 2, 1), QString("8.00"));
        });
    }

    void shouldKeepTheNewestRowInSight_data() { addTables(); }
    void shouldKeepTheNewestRowInSight()
    {
        QFETCH(QByteArray, tableName);
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 30);
            const auto *table = opened.find<QTableWidget>(tableName.constData());
            QVERIFY(isInSight(table, 29));
            QVERIFY(!isInSight(table, 0));
        });
    }

    void shouldKeepTheSelectedRowInSightWhenTheWindowGetsLower_data() { addTables(); }
    void shouldKeepTheSelectedRowInSightWhenTheWindowGetsLower()
    {
        QFETCH(QByteArray, tableName);
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            addPoints(opened, 30);
            opened.dialog().resize(660, 1000);
            auto *table = opened.find<QTableWidget>(tableName.constData());
            table->scrollToTop();
            const int last = table->rowAt(table->viewport()->height() - 1) - 1;
            table->selectRow(last);
            QVERIFY(isInSight(table, last));
            // WHEN
            opened.dialog().resize(opened.dialog().minimumSizeHint());
            // THEN
            QTRY_VERIFY(isInSight(table, last));
        });
    }

    void shouldBringAReplacedPointIntoSight()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 30);
            auto *table = opened.find<QTableWidget>(measuredTable);
            table->selectRow(2);
            opened.find<QAbstractButton>("w_replaceCheckBox")->click();
            table->scrollToBottom();
            opened.measure({7, 7, 7});
            QCOMPARE(opened.cell(measuredTable, 2, 0), QString("7.00"));
            QVERIFY(isInSight(table, 2));
        });
    }

    void shouldRemoveByTheDeleteKeyAfterAYes_data() { addTables(); }
    void shouldRemoveByTheDeleteKeyAfterAYes()
    {
        QFETCH(QByteArray, tableName);
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 3);
            auto *table = opened.find<QTableWidget>(tableName.constData());
            table->setFocus();
            table->selectRow(1);
            opened.answers().thenPress(QMessageBox::No).thenPress(QMessageBox::Yes);
            QTest::keyClick(table, Qt::Key_Delete);
            QCOMPARE(table->rowCount(), 3);
            QTest::keyClick(table, Qt::Key_Delete);
            QCOMPARE(table->rowCount(), 2);
            QCOMPARE(opened.cell(tableName.constData(), 1, 0), QString("3.00"));
            QCOMPARE(opened.answers().boxes(),
                     (QStringList{"Warning|Remove row 2?", "Warning|Remove row 2?"}));
        });
    }

    void shouldTellByTheDeleteKeyThatNothingIsSelected()
    {
        OpenedDialog opened;
        opened.run([&] {
            opened.click("pushButton_addRefPoint");
            opened.answers().thenPress(QMessageBox::Ok);
            QTest::keyClick(opened.find<QTableWidget>(referenceTable), Qt::Key_Delete);
            QCOMPARE(opened.answers().boxes(), QStringList{"Remove|Nothing selected."});
        });
    }

    void shouldLeaveTheDeleteKeyToAnOpenEditor()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 1);
            auto *table = opened.find<QTableWidget>(referenceTable);
            table->editItem(table->item(0, 0));
            auto *editor = table->viewport()->findChild<QLineEdit *>();
            QVERIFY(editor);
            QTRY_VERIFY(editor->hasFocus());
            QTest::keyClick(editor, Qt::Key_Home);
            QTest::keyClick(editor, Qt::Key_Delete);
            QCOMPARE(editor->text(), QString(".00"));
            QTest::keyClick(editor, Qt::Key_Escape);
        });
    }

private:
    static void addTables()
    {
        QTest::addColumn<QByteArray>("tableName");
        QTest::newRow("reference points") << QByteArray(referenceTable);
        QTest::newRow("measured points") << QByteArray(measuredTable);
    }

    /// Reference points 1 0 0, 2 0 0 and so on, and the same points measured, in their order.
    static void addPoints(OpenedDialog &opened, int count)
    {
        opened.find<QAbstractButton>("w_orderCheckBox")->setChecked(true);
        for (int i = 1; i <= count; ++i) {
            opened.addReference({double(i), 0, 0});
            opened.measure({double(i), 0, 0});
        }
    }

    /// Types where the focus is: into the table's current cell, or into the editor that is open.
    static void type(QTableWidget *table, const QString &text, Qt::Key end)
    {
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTRY_VERIFY(table->isAncestorOf(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), end);
    }

    static bool isInSight(const QTableWidget *table, int row)
    {
        return table->viewport()->rect().contains(table->visualItemRect(table->item(row, 0)));
    }
};

ROOM_TEST_CLASS(ListEditingTest)

#include "ListEditingTest.moc"
