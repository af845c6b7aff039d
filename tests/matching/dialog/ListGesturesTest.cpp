#include "FileChoice.h"
#include "OpenedDialog.h"
#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QClipboard>
#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <initializer_list>
#include <utility>

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

constexpr auto product = "AbcMatchingDialog"; // the context of its texts

QString removeRowTwo()
{
    return spoken(product, "Warning") + "|" + spoken(product, "Remove row %1?").arg(2);
}

/// The first line of a report.
QString reportTitle()
{
    return spoken(product, "Transformation evaluation report :\nResidual error : %1").section("\n", 0, 0);
}

QString leftOut(const QString &lines)
{
    return spoken("ListReport", "These lines of the pasted text are not three numbers and were left out: %1.")
        .arg(lines);
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(OpenedDialog &)>)

/// What keys and clicks do to the lists of an opened dialog.
class ListGesturesTest : public QObject
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
            QCOMPARE(opened.answers().boxes(), QStringList{removeRowTwo()});
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
            opened.press(table, Qt::Key_Delete);
            QCOMPARE(table->rowCount(), 3);
            opened.press(table, Qt::Key_Delete);
            QCOMPARE(table->rowCount(), 2);
            QCOMPARE(opened.cell(tableName.constData(), 1, 0), QString("3.00"));
            QCOMPARE(opened.answers().boxes(), (QStringList{removeRowTwo(), removeRowTwo()}));
        });
    }

    void shouldTellByTheDeleteKeyThatNothingIsSelected()
    {
        OpenedDialog opened;
        opened.run([&] {
            opened.click("pushButton_addRefPoint");
            opened.answers().thenPress(QMessageBox::Ok);
            opened.press(opened.find<QTableWidget>(referenceTable), Qt::Key_Delete);
            QCOMPARE(opened.answers().boxes(),
                     QStringList{spoken(product, "Remove") + "|" + spoken(product, "Nothing selected.")});
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

    void shouldUndoAndRedoEveryChangeOfTheReferencePoints_data();
    void shouldUndoAndRedoEveryChangeOfTheReferencePoints();
    void shouldUndoAndRedoEveryChangeOfTheMeasuredPoints_data();
    void shouldUndoAndRedoEveryChangeOfTheMeasuredPoints();

    void shouldUndoTheWholeWayBack()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 4);
            QVERIFY(opened.report().startsWith(reportTitle()));
            QVERIFY(opened.isEnabled("w_applyButton"));
            for (int i = 0; i < 16; ++i)
                press(opened, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(opened.rows(referenceTable), 0);
            QCOMPARE(opened.rows(measuredTable), 0);
            QVERIFY(!opened.isEnabled("w_applyButton"));
            for (int i = 0; i < 16; ++i)
                press(opened, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QCOMPARE(opened.cell(referenceTable, 3, 0), QString("4.00"));
            QVERIFY(opened.isEnabled("w_applyButton"));
        });
    }

    void shouldKeepTheHistoryOverAClosing()
    {
        OpenedDialog opened;
        opened.run([&] { addPoints(opened, 1); });
        opened.run([&] {
            press(opened, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(opened.rows(measuredTable), 0);
        });
    }

    void shouldGiveLoadedPointsTheirPrecisionBack()
    {
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            loadFinePoints(opened);
            const QString report = opened.report();
            QVERIFY(!report.contains("Residual error : 0\n"));
            // WHEN
            opened.find<QTableWidget>(referenceTable)->item(2, 2)->setText("0");
            opened.click("pushButton_addRefPoint");
            press(opened, Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(opened.report() != report);
            press(opened, Qt::Key_Z, Qt::ControlModifier);
            // THEN
            QCOMPARE(opened.report(), report);
        });
    }

    void shouldNotUndoWhileNothingCanBeChanged()
    {
        OpenedDialog opened;
        opened.run([&] { addPoints(opened, 1); });
        opened.host().setAnswer("measurementtool available", "no");
        opened.run([&] {
            press(opened, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(opened.rows(measuredTable), 1);
        });
    }

    void shouldCopyTheSelectedRowOrAll_data() { addTables(); }
    void shouldCopyTheSelectedRowOrAll()
    {
        QFETCH(QByteArray, tableName);
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 3);
            auto *table = opened.find<QTableWidget>(tableName.constData());
            table->setFocus();
            opened.press(table, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QGuiApplication::clipboard()->text(),
                     QString("1.00\t1.00\t0.00\n2.00\t4.00\t0.00\n3.00\t9.00\t0.00\n"));
            table->selectRow(1);
            opened.press(table, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QGuiApplication::clipboard()->text(), QString("2.00\t4.00\t0.00\n"));
        });
    }

    void shouldAppendPastedRowsAndNameTheLinesItCouldNotRead()
    {
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            addPoints(opened, 1);
            QGuiApplication::clipboard()->setText("x\ty\tz\n1,5\t2\t3\n\n4;5\n6 7 8\n");
            auto *table = opened.find<QTableWidget>(referenceTable);
            table->setFocus();
            QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
            // WHEN
            opened.press(table, Qt::Key_V, Qt::ControlModifier);
            // THEN
            QCOMPARE(contents(opened, referenceTable),
                     (QStringList{"1.00 1.00 0.00", "1.50 2.00 3.00", "6.00 7.00 8.00"}));
            QCOMPARE(evaluated.count(), 1);
            QVERIFY(opened.notice().startsWith(leftOut("1, 4")));
            press(opened, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(opened.rows(referenceTable), 1);
            QVERIFY(!opened.notice().contains(leftOut("1, 4")));
        });
    }

    void shouldPasteNothingThatIsNoPoint()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 1);
            QGuiApplication::clipboard()->setText("one\ntwo\n");
            QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
            auto *table = opened.find<QTableWidget>(referenceTable);
            table->setFocus();
            opened.press(table, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(opened.rows(referenceTable), 1);
            QVERIFY(evaluated.isEmpty());
            QVERIFY(opened.notice().contains(leftOut("1, 2")));
        });
    }

    void shouldLoadAFileThatIsDropped()
    {
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            addPoints(opened, 1);
            QTemporaryDir folder;
            QFile file(folder.filePath("points.txt"));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("1 1 2 3\n2 4 5 6\n");
            file.close();
            // WHEN
            QVERIFY(drop(opened, {QUrl::fromLocalFile(file.fileName())}));
            // THEN
            QTRY_COMPARE(contents(opened, referenceTable), (QStringList{"1.00 2.00 3.00", "4.00 5.00 6.00"}));
            press(opened, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(opened.rows(referenceTable), 1);
        });
    }

    void shouldRefuseOtherDrops_data()
    {
        QTest::addColumn<QList<QUrl>>("urls");
        QTest::newRow("no file") << QList<QUrl>();
        QTest::newRow("two files") << QList<QUrl>{QUrl("file:///a.txt"), QUrl("file:///b.txt")};
        QTest::newRow("another machine") << QList<QUrl>{QUrl("http://host/points.txt")};
    }

    void shouldRefuseOtherDrops()
    {
        QFETCH(QList<QUrl>, urls);
        OpenedDialog opened;
        opened.run([&] { QVERIFY(!drop(opened, urls)); });
    }

    void shouldRefuseADropWhileNothingCanBeChanged()
    {
        OpenedDialog opened;
        opened.host().setAnswer("measurementtool available", "no");
        opened.run([&] { QVERIFY(!drop(opened, {QUrl("file:///a.txt")})); });
    }

    void shouldUndoInsideAnOpenEditorOnly()
    {
        OpenedDialog opened;
        opened.run([&] {
            addPoints(opened, 1);
            auto *table = opened.find<QTableWidget>(referenceTable);
            table->setFocus();
            table->editItem(table->item(0, 0));
            QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
            QTest::keyClicks(QApplication::focusWidget(), "5");
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(opened.rows(measuredTable), 1);
            QCOMPARE(qobject_cast<QLineEdit *>(QApplication::focusWidget())->text(), QString("1.00"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        });
    }

private:
    using Script = std::function<void(OpenedDialog &)>;

    static void addChanges(std::initializer_list<std::pair<const char *, Script>> changes)
    {
        QTest::addColumn<Script>("change");
        for (const auto &[name, change] : changes)
            QTest::newRow(name) << change;
    }

    static void press(OpenedDialog &opened, Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        opened.press(&opened.dialog(), key, modifiers);
    }

    /// Drags files to the window and drops them where it takes them. Returns whether it does.
    static bool drop(OpenedDialog &opened, const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        const QPoint place(5, 5);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&opened.dialog(), &enter);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        drop.ignore();
        QApplication::sendEvent(&opened.dialog(), &drop);
        return enter.isAccepted() && drop.isAccepted();
    }

    static QStringList contents(OpenedDialog &opened, const char *tableName)
    {
        QStringList rows;
        for (int row = 0; row < opened.rows(tableName); ++row)
            rows += opened.cell(tableName, row, 0) + ' ' + opened.cell(tableName, row, 1) + ' ' +
                    opened.cell(tableName, row, 2);
        return rows;
    }

    /// A change is done, taken back and done again; the report follows each time.
    static void checkUndo(const char *tableName, const Script &change)
    {
        OpenedDialog opened;
        opened.run([&] {
            // GIVEN
            addPoints(opened, 4);
            const QStringList before = contents(opened, tableName);
            const QString reportBefore = opened.report();
            change(opened);
            const QStringList after = contents(opened, tableName);
            const QString reportAfter = opened.report();
            QVERIFY(after != before);
            for (int round = 0; round < 2; ++round) {
                // WHEN
                QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
                press(opened, Qt::Key_Z, Qt::ControlModifier);
                // THEN
                QCOMPARE(contents(opened, tableName), before);
                QCOMPARE(opened.report(), reportBefore);
                QCOMPARE(evaluated.count(), 1);
                // WHEN
                press(opened, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
                // THEN
                QCOMPARE(contents(opened, tableName), after);
                QCOMPARE(opened.report(), reportAfter);
            }
        });
    }

    static void load(OpenedDialog &opened, const QByteArray &text)
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("points.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        FileChoice choice(file.fileName());
        opened.answers().then(std::ref(choice));
        opened.click("w_loadButton");
    }

    /// Points whose third decimals no cell shows, and which are measured without them.
    static void loadFinePoints(OpenedDialog &opened)
    {
        opened.find<QAbstractButton>("w_orderCheckBox")->setChecked(true);
        for (const MatchingPoint &point : {MatchingPoint{0, 0, 0}, {1000, 0, 0}, {0, 1000, 0}})
            opened.measure(point);
        load(opened, "1 -0.004 0 0\n2 1000.004 0 0\n3 0 1000 0\n");
    }

    static void addTables()
    {
        QTest::addColumn<QByteArray>("tableName");
        QTest::newRow("reference points") << QByteArray(referenceTable);
        QTest::newRow("measured points") << QByteArray(measuredTable);
    }

    /// Reference points 1 1 0, 2 4 0 and so on, and the same points measured, in their order.
    static void addPoints(OpenedDialog &opened, int count)
    {
        opened.find<QAbstractButton>("w_orderCheckBox")->setChecked(true);
        for (int i = 1; i <= count; ++i) {
            opened.addReference({double(i), double(i * i), 0});
            opened.measure({double(i), double(i * i), 0});
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

void ListGesturesTest::shouldUndoAndRedoEveryChangeOfTheReferencePoints_data()
{
    addChanges({
        {"added", [](OpenedDialog &opened) { opened.click("pushButton_addRefPoint"); }},
        {"removed",
         [](OpenedDialog &opened) {
             clickRowNumber(opened.find<QTableWidget>(referenceTable), 1);
             opened.answers().thenPress(QMessageBox::Yes);
             opened.click("pushButton_removeRefPoint");
         }},
        {"typed",
         [](OpenedDialog &opened) {
             opened.find<QTableWidget>(referenceTable)->item(1, 1)->setText("007,5");
         }},
        {"typed, and no number",
         [](OpenedDialog &opened) {
             opened.answers().thenPress(QMessageBox::Ok);
             opened.find<QTableWidget>(referenceTable)->item(3, 0)->setText("abc");
         }},
        {"loaded, shorter", [](OpenedDialog &opened) { load(opened, "1 1 2 3\n2 4 5 6\n3 7 8 8\n"); }},
        {"loaded, longer",
         [](OpenedDialog &opened) { load(opened, "1 1 2 3\n1 2 2 2\n1 3 3 3\n1 4 4 5\n1 5 5 5\n"); }},
        {"pasted",
         [](OpenedDialog &opened) {
             QGuiApplication::clipboard()->setText("1 2 3\n4 5 6\n");
             auto *table = opened.find<QTableWidget>(referenceTable);
             table->setFocus();
             opened.press(table, Qt::Key_V, Qt::ControlModifier);
         }},
        {"loaded, empty", [](OpenedDialog &opened) { load(opened, "(1) 1 2 3"); }},
    });
}

void ListGesturesTest::shouldUndoAndRedoEveryChangeOfTheReferencePoints()
{
    QFETCH(Script, change);
    checkUndo(referenceTable, change);
}

void ListGesturesTest::shouldUndoAndRedoEveryChangeOfTheMeasuredPoints_data()
{
    addChanges({
        {"measured",
         [](OpenedDialog &opened) {
             opened.measure({7, 8, 9});
         }},
        {"replaced",
         [](OpenedDialog &opened) {
             opened.find<QTableWidget>(measuredTable)->selectRow(1);
             opened.find<QAbstractButton>("w_replaceCheckBox")->click();
             opened.measure({7, 8, 9});
         }},
        {"removed",
         [](OpenedDialog &opened) {
             opened.find<QTableWidget>(measuredTable)->selectRow(0);
             opened.answers().thenPress(QMessageBox::Yes);
             opened.click("w_removeButton");
         }},
        {"cleared",
         [](OpenedDialog &opened) {
             opened.answers().thenPress(QMessageBox::Yes);
             opened.click("pushButton_clearMeaPoints");
         }},
    });
}

void ListGesturesTest::shouldUndoAndRedoEveryChangeOfTheMeasuredPoints()
{
    QFETCH(Script, change);
    checkUndo(measuredTable, change);
}

ROOM_TEST_CLASS(ListGesturesTest)

#include "ListGesturesTest.moc"
