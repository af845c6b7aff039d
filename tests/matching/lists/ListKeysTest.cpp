#include "ListKeys.h"

#include "ModalAnswer.h"
#include "TestRegistry.h"
#include "TwoLists.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QtTest>

namespace
{

/// Two reference points 1 and 2, two measured points 3 and 4, on the screen.
struct Shown : TwoLists {
    Shown()
    {
        refer({1.0, 2.0});
        measure({3.0, 4.0});
        measured->move(0, 200);
        ListKeys::connectTo(*editing, references, measured);
        window.show();
        window.activateWindow();
    }

    /// Presses the key while the table has the focus and its second row is selected.
    void press(QTableWidget *table, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTRY_VERIFY(window.isActiveWindow());
        table->setFocus();
        table->selectRow(1);
        QTest::keyClick(table, key, modifiers);
    }
};

} // namespace

class ListKeysTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRemoveFromTheTableWithTheFocus()
    {
        // GIVEN
        Shown shown;
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes).thenPress(QMessageBox::Yes);
        // WHEN, THEN
        shown.press(shown.measured, Qt::Key_Delete);
        QCOMPARE(TwoLists::firstCells(shown.measured), QStringList("3.00"));
        QCOMPARE(shown.references->rowCount(), 2);
        shown.press(shown.references, Qt::Key_Delete);
        QCOMPARE(TwoLists::firstCells(shown.references), QStringList("1.00"));
    }

    void shouldCopyFromTheTableWithTheFocus()
    {
        // GIVEN
        Shown shown;
        // WHEN, THEN
        shown.press(shown.references, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().trimmed(), QStringLiteral("2.00\t0.00\t0.00"));
        shown.press(shown.measured, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().trimmed(), QStringLiteral("4.00\t0.00\t0.00"));
    }

    void shouldPasteIntoTheReferencesOnly()
    {
        // GIVEN
        Shown shown;
        QGuiApplication::clipboard()->setText(QStringLiteral("7\t8\t9\n"));
        // WHEN
        shown.press(shown.measured, Qt::Key_V, Qt::ControlModifier);
        shown.press(shown.references, Qt::Key_V, Qt::ControlModifier);
        // THEN
        QCOMPARE(TwoLists::firstCells(shown.references), (QStringList{"1.00", "2.00", "7.00"}));
        QCOMPARE(shown.measured->rowCount(), 2);
    }

    void shouldUndoAndRedoWhereverTheFocusIs()
    {
        // GIVEN
        Shown shown;
        shown.editing->takeMeasured({5.0, 0.0, 0.0}, false);
        // WHEN, THEN
        shown.press(shown.references, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shown.measured->rowCount(), 2);
        shown.press(shown.references, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(TwoLists::firstCells(shown.measured), (QStringList{"3.00", "4.00", "5.00"}));
    }
};

ROOM_TEST_CLASS(ListKeysTest)
#include "ListKeysTest.moc"
