#include "ListEditing.h"

#include "ModalAnswer.h"
#include "TestRegistry.h"
#include "TwoLists.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using Removal = void (ListEditing::*)();
Q_DECLARE_METATYPE(Removal)

class ListEditingTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAddAPointOfZerosAndTakeTheCells()
    {
        // GIVEN
        TwoLists one;
        one.refer({1.004});
        const QSignalSpy changed(one.editing, &ListEditing::changed);
        // WHEN
        one.editing->addReference();
        // THEN
        QCOMPARE(one.lists.references(), (MatchingPoints{{1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}}));
        QCOMPARE(changed.count(), 1);
    }

    void shouldRemoveTheSelectedReferenceAfterAYes_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<QStringList>("left");
        QTest::newRow("yes") << int(QMessageBox::Yes) << QStringList("2.00");
        QTest::newRow("no") << int(QMessageBox::No) << QStringList{"1.00", "2.00"};
    }
    void shouldRemoveTheSelectedReferenceAfterAYes()
    {
        // GIVEN
        QFETCH(int, button);
        QFETCH(QStringList, left);
        TwoLists one;
        one.refer({1.0, 2.0});
        one.references->selectRow(0);
        ModalAnswer answer;
        answer.thenPress(button);
        // WHEN
        one.editing->removeSelectedReference();
        // THEN
        QCOMPARE(TwoLists::firstCells(one.references), left);
    }

    void shouldRemoveNothingWhenTheRowHasGoneMeanwhile_data()
    {
        QTest::addColumn<Removal>("remove");
        QTest::newRow("reference") << Removal(&ListEditing::removeSelectedReference);
        QTest::newRow("measured") << Removal(&ListEditing::removeSelectedMeasured);
    }
    void shouldRemoveNothingWhenTheRowHasGoneMeanwhile()
    {
        // GIVEN: the last of two rows in each list
        QFETCH(Removal, remove);
        TwoLists one;
        one.refer({1.0, 2.0});
        one.measure({1.0, 2.0});
        one.references->selectRow(1);
        one.measured->selectRow(1);
        const QSignalSpy changed(one.editing, &ListEditing::changed);
        // WHEN: while the box is open, it goes
        ModalAnswer answer;
        answer.then([&](QWidget *box) {
            one.refer({1.0});
            one.measure({1.0});
            qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click();
        });
        (one.editing->*remove)();
        // THEN
        QVERIFY(answer.isDone());
        QCOMPARE(changed.count(), 0);
        QCOMPARE(TwoLists::firstCells(one.references), QStringList("1.00"));
        QCOMPARE(TwoLists::firstCells(one.measured), QStringList("1.00"));
    }

    void shouldReplaceTheSelectedMeasuredPointOnlyIfAsked()
    {
        // GIVEN
        TwoLists one;
        one.measure({1.0, 2.0});
        one.measured->selectRow(0);
        // WHEN
        one.editing->takeMeasured({3.0, 0.0, 0.0}, false);
        one.measured->selectRow(0);
        one.editing->takeMeasured({4.0, 0.0, 0.0}, true);
        // THEN
        QCOMPARE(TwoLists::firstCells(one.measured), (QStringList{"4.00", "2.00", "3.00"}));
    }

    void shouldTakeATypedNumberAndRefuseWhatIsNone()
    {
        // GIVEN
        TwoLists one;
        one.refer({1.0});
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Ok);
        // WHEN
        one.references->item(0, 1)->setText(QStringLiteral("2,5"));
        one.editing->takeReferenceCell(*one.references->item(0, 1));
        one.references->item(0, 2)->setText(QStringLiteral("much"));
        one.editing->takeReferenceCell(*one.references->item(0, 2));
        // THEN
        QCOMPARE(answer.boxes(), QStringList("Error|'much' is not a number!"));
        QCOMPARE(one.lists.references(), (MatchingPoints{{1.0, 2.5, 0.0}}));
    }

    void shouldUndoAndRedoEveryKindOfChange()
    {
        // GIVEN
        TwoLists one;
        one.refer({1.0});
        one.measure({2.0});
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes);
        // WHEN
        one.editing->takeMeasured({3.0, 0.0, 0.0}, false);
        one.editing->addReference();
        one.editing->clearMeasured();
        // THEN
        QCOMPARE(one.measured->rowCount(), 0);
        one.editing->undo();
        QCOMPARE(TwoLists::firstCells(one.measured), (QStringList{"2.00", "3.00"}));
        one.editing->undo();
        QCOMPARE(TwoLists::firstCells(one.references), QStringList("1.00"));
        one.editing->undo();
        QCOMPARE(TwoLists::firstCells(one.measured), QStringList("2.00"));
        one.editing->redo();
        QCOMPARE(TwoLists::firstCells(one.measured), (QStringList{"2.00", "3.00"}));
    }

    void shouldUndoNothingWhileTheListsMayNotBeChanged()
    {
        // GIVEN
        TwoLists one;
        one.editing->addReference();
        one.references->setEnabled(false);
        // WHEN
        one.editing->undo();
        // THEN
        QVERIFY(!one.editing->mayChange());
        QCOMPARE(one.references->rowCount(), 1);
    }

    void shouldCopyTheSelectedRowOrAll()
    {
        // GIVEN
        TwoLists one;
        one.refer({1.0, 2.0});
        // WHEN, THEN
        one.editing->copyReferences();
        QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1Char('\n')), 2);
        one.references->selectRow(1);
        one.editing->copyReferences();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("2.00\t0.00\t0.00\n"));
    }

    void shouldTellWhichPastedLinesWereNotRead()
    {
        // GIVEN
        TwoLists one;
        const QSignalSpy told(one.editing, &ListEditing::noticeChanged);
        QGuiApplication::clipboard()->setText(QStringLiteral("1\t2\t3\nx y z\n4\t5\t6\n"));
        // WHEN
        one.editing->pasteReferences();
        // THEN
        QCOMPARE(TwoLists::firstCells(one.references), (QStringList{"1.00", "4.00"}));
        QVERIFY(one.editing->notice().endsWith(QStringLiteral("were left out: 2.")));
        QVERIFY(!told.isEmpty());
        one.editing->addReference();
        QCOMPARE(one.editing->notice(), QString());
    }

    void shouldPasteInOneStepWhatIsShownAndUndoIt()
    {
        // GIVEN
        TwoLists one;
        one.refer({7.0});
        QGuiApplication::clipboard()->setText(QStringLiteral("1,255\t+2\t-007.1\n3 4 5\n"));
        // WHEN
        one.editing->pasteReferences();
        // THEN
        QCOMPARE(one.references->item(1, 1)->text(), QStringLiteral("+2.00"));
        QCOMPARE(one.references->item(1, 2)->text(), QStringLiteral("-007.10"));
        QCOMPARE(one.lists.references(), (MatchingPoints{{7, 0, 0}, {1.25, 2, -7.1}, {3, 4, 5}}));
        one.editing->undo();
        QCOMPARE(one.lists.references(), (MatchingPoints{{7, 0, 0}}));
        one.editing->redo();
        QCOMPARE(one.lists.references(), (MatchingPoints{{7, 0, 0}, {1.25, 2, -7.1}, {3, 4, 5}}));
        QCOMPARE(one.references->item(1, 1)->text(), QStringLiteral("+2.00"));
    }

    void shouldPasteNothingWhenReadingIsCancelled()
    {
        // GIVEN
        TwoLists one;
        one.refer({7.0});
        constexpr int moreThanIsReadWithoutAWindow = 3000000;
        QGuiApplication::clipboard()->setText(
            QStringLiteral("no number\n").repeated(moreThanIsReadWithoutAWindow));
        ModalAnswer answer;
        answer.then([](QWidget *window) { QTest::keyClick(window, Qt::Key_Escape); });
        // WHEN
        one.editing->pasteReferences();
        // THEN
        QVERIFY(answer.isDone());
        QCOMPARE(TwoLists::firstCells(one.references), (QStringList{"7.00"}));
        QCOMPARE(one.editing->notice(), QString());
    }

    void shouldReplaceTheReferencesByThoseOfAFile()
    {
        // GIVEN
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("points.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("1 7.125 8 9\n");
        file.close();
        TwoLists one;
        one.refer({1.0, 2.0});
        // WHEN
        one.editing->loadFile(file.fileName());
        // THEN
        QCOMPARE(one.lists.references(), (MatchingPoints{{7.125, 8.0, 9.0}}));
        one.editing->undo();
        QCOMPARE(TwoLists::firstCells(one.references), (QStringList{"1.00", "2.00"}));
    }

    void shouldKeepTheReferencesWhenAFileHasAnotherFormat()
    {
        // GIVEN
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("letter.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Dear reader\n");
        file.close();
        TwoLists one;
        one.refer({1.0});
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Ok);
        // WHEN
        one.editing->loadFile(file.fileName());
        // THEN
        QCOMPARE(answer.boxes(), QStringList("Error loading file|Unknown format !"));
        QCOMPARE(TwoLists::firstCells(one.references), QStringList("1.00"));
    }

    void shouldTellThatNothingIsToSave()
    {
        // GIVEN
        TwoLists one;
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Ok);
        // WHEN
        one.editing->save();
        // THEN
        QCOMPARE(answer.boxes(), QStringList("Save|Nothing to save."));
    }
};

ROOM_TEST_CLASS(ListEditingTest)
#include "ListEditingTest.moc"
