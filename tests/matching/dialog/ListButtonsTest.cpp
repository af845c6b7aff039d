#include "FileChoice.h"
#include "OpenedDialog.h"
#include "PointFilePrompt.h"
#include "TestRegistry.h"

#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace
{

constexpr auto referenceTable = "tableWidget_referencePoints";
constexpr auto measuredTable = "tableWidget_measuredPoints";

QByteArray contentsOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

} // namespace

class ListButtonsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void shouldAddAndNormaliseReferencePoints();
    void shouldRefuseATextThatIsNoNumber();
    void shouldRefuseATypedTextAfterTheEditorHasGone();
    void shouldTakeATypedNumber();
    void shouldIgnoreCellsWhileClosed();
    void shouldRemoveAReferencePointOnlyAfterAYes();
    void shouldTellThatNothingIsSelected();
    void shouldRemoveAMeasuredPointOnlyAfterAYes();
    void shouldRemoveAMeasuredRowWithoutAPoint();
    void shouldClearTheMeasuredPointsOnlyAfterAYes();
    void shouldNotLetMeasuredPointsBeEdited();
    void shouldCheckTheRowAgainAfterTheQuestion();
    void shouldSurviveItsEndInsideAQuestion();
    void shouldLoadAFile();
    void shouldKeepThePointsForAnUnknownFormat();
    void shouldRefuseMorePointsThanAListHolds();
    void shouldKeepThePointsWhenNothingIsChosen();
    void shouldKeepLoadedPrecisionUntilTheListIsEdited();
    void shouldSaveAFile_data();
    void shouldSaveAFile();
    void shouldTellThatASaveFailed();
    void shouldHaveNothingToSave();
    void shouldSurviveItsEndInsideAFileDialog();
    void shouldBeUsableByKeyboard();

private:
    [[nodiscard]] QString path(const char *name) const { return m_directory->filePath(QLatin1String(name)); }
    void write(const char *name, const QByteArray &contents) const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

void ListButtonsTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    PointFilePrompt::forgetFolder();
}

void ListButtonsTest::write(const char *name, const QByteArray &contents) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(contents);
}

void ListButtonsTest::shouldAddAndNormaliseReferencePoints()
{
    OpenedDialog opened;
    opened.run([&] {
        QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
        opened.click("pushButton_addRefPoint");
        QCOMPARE(evaluated.count(), 1);
        QCOMPARE(opened.rows(referenceTable), 1);
        for (int column = 0; column < 3; ++column)
            QCOMPARE(opened.cell(referenceTable, 0, column), QStringLiteral("0.00"));
        auto *table = opened.find<QTableWidget>(referenceTable);
        QCOMPARE(table->rowHeight(0), 28);
        table->item(0, 1)->setText(QStringLiteral(" 12,345"));
        QCOMPARE(opened.cell(referenceTable, 0, 1), QStringLiteral("12.34"));
        QCOMPARE(evaluated.count(), 2);
    });
}

void ListButtonsTest::shouldRefuseATextThatIsNoNumber()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("pushButton_addRefPoint");
        QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
        opened.answers().thenPress(QMessageBox::Ok);
        opened.find<QTableWidget>(referenceTable)->item(0, 0)->setText(QStringLiteral("1,x y"));
        QCOMPARE(opened.cell(referenceTable, 0, 0), QStringLiteral("1.0"));
        QCOMPARE(opened.answers().boxes(), QStringList{QStringLiteral("Error|'1,x y' is not a number!")});
        QCOMPARE(evaluated.count(), 1);
    });
}

void ListButtonsTest::shouldRefuseATypedTextAfterTheEditorHasGone()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("pushButton_addRefPoint");
        auto *table = opened.find<QTableWidget>(referenceTable);
        table->setFocus();
        table->setCurrentCell(0, 2);
        opened.answers().thenPress(QMessageBox::Ok);
        table->editItem(table->item(0, 2));
        auto *editor = table->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        editor->setText(QStringLiteral("abc"));
        QTest::keyClick(editor, Qt::Key_Tab);
        QCOMPARE(opened.cell(referenceTable, 0, 2), QStringLiteral("0.00"));
        QTRY_COMPARE(opened.answers().boxes(), QStringList{QStringLiteral("Error|'abc' is not a number!")});
    });
}

void ListButtonsTest::shouldTakeATypedNumber()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("pushButton_addRefPoint");
        auto *table = opened.find<QTableWidget>(referenceTable);
        table->editItem(table->item(0, 0));
        auto *editor = table->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        editor->setText(QStringLiteral("7"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(opened.cell(referenceTable, 0, 0), QStringLiteral("7.00"));
        QVERIFY(opened.dialog().isVisible());
    });
}

void ListButtonsTest::shouldIgnoreCellsWhileClosed()
{
    OpenedDialog opened;
    opened.run([&] { opened.click("pushButton_addRefPoint"); });
    opened.find<QTableWidget>(referenceTable)->item(0, 0)->setText(QStringLiteral("abc"));
    QCOMPARE(opened.cell(referenceTable, 0, 0), QStringLiteral("abc"));
}

void ListButtonsTest::shouldRemoveAReferencePointOnlyAfterAYes()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.addReference({1, 0, 0});
        opened.addReference({2, 0, 0});
        opened.addReference({3, 0, 0});
        auto *table = opened.find<QTableWidget>(referenceTable);
        table->setCurrentCell(1, 2);
        opened.answers().thenPress(QMessageBox::No);
        opened.click("pushButton_removeRefPoint");
        QCOMPARE(table->rowCount(), 3);
        opened.answers().thenPress(QMessageBox::Yes);
        opened.click("pushButton_removeRefPoint");
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(opened.cell(referenceTable, 1, 0), QStringLiteral("3.00"));
        const QString question = QStringLiteral("Warning|Remove row 2?");
        QCOMPARE(opened.answers().boxes(), (QStringList{question, question}));
        QCOMPARE(opened.report(), QStringLiteral("Cannot evaluate the transformation : not enough points."));
    });
}

void ListButtonsTest::shouldTellThatNothingIsSelected()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("pushButton_removeRefPoint");
        opened.click("pushButton_addRefPoint");
        opened.answers().thenPress(QMessageBox::Ok);
        opened.click("pushButton_removeRefPoint");
        QCOMPARE(opened.answers().boxes(), QStringList{QStringLiteral("Remove|Nothing selected.")});
        QCOMPARE(opened.rows(referenceTable), 1);
    });
}

void ListButtonsTest::shouldRemoveAMeasuredPointOnlyAfterAYes()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.click("w_removeButton");
        opened.measure({1, 0, 0});
        opened.measure({2, 0, 0});
        opened.click("w_removeButton");
        opened.find<QTableWidget>(measuredTable)->selectRow(0);
        opened.answers().then([](QWidget *window) {
            auto *box = qobject_cast<QMessageBox *>(window);
            QCOMPARE(box->standardButton(box->defaultButton()), QMessageBox::No);
            QCOMPARE(box->icon(), QMessageBox::Warning);
            QTest::keyClick(box, Qt::Key_Return);
        });
        opened.click("w_removeButton");
        QCOMPARE(opened.rows(measuredTable), 2);
        opened.answers().thenPress(QMessageBox::Yes);
        opened.click("w_removeButton");
        QCOMPARE(opened.answers().boxes(), QStringList{QStringLiteral("Warning|Remove row 1?")});
        QCOMPARE(opened.rows(measuredTable), 1);
        QCOMPARE(opened.cell(measuredTable, 0, 0), QStringLiteral("2.00"));
        QVERIFY(!opened.isEnabled("w_replaceCheckBox"));
    });
}

void ListButtonsTest::shouldRemoveAMeasuredRowWithoutAPoint()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.measure({1, 0, 0});
        auto *table = opened.find<QTableWidget>(measuredTable);
        table->insertRow(1);
        for (int column = 0; column < 3; ++column)
            table->setItem(1, column, new QTableWidgetItem(QStringLiteral("7.00")));
        table->selectRow(1);
        opened.answers().thenPress(QMessageBox::Yes);
        opened.click("w_removeButton");
        QCOMPARE(opened.answers().boxes(), QStringList{QStringLiteral("Warning|Remove row 2?")});
        QCOMPARE(opened.rows(measuredTable), 1);
        QCOMPARE(opened.cell(measuredTable, 0, 0), QStringLiteral("1.00"));
    });
}

void ListButtonsTest::shouldClearTheMeasuredPointsOnlyAfterAYes()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.measure({1, 0, 0});
        opened.measure({2, 0, 0});
        opened.answers().thenPress(QMessageBox::No).thenPress(QMessageBox::Yes);
        opened.click("pushButton_clearMeaPoints");
        QCOMPARE(opened.rows(measuredTable), 2);
        opened.click("pushButton_clearMeaPoints");
        QCOMPARE(opened.rows(measuredTable), 0);
        const QString question = QStringLiteral("Warning|Remove all measured points?");
        QCOMPARE(opened.answers().boxes(), (QStringList{question, question}));
        QVERIFY(!opened.isEnabled("pushButton_clearMeaPoints"));
        opened.dialog().on_pushButton_clearMeaPoints_clicked();
    });
}

void ListButtonsTest::shouldNotLetMeasuredPointsBeEdited()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.measure({1, 0, 0});
        const auto *table = opened.find<QTableWidget>(measuredTable);
        for (int column = 0; column < 3; ++column)
            QVERIFY(!(table->item(0, column)->flags() & Qt::ItemIsEditable));
    });
}

void ListButtonsTest::shouldCheckTheRowAgainAfterTheQuestion()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.measure({1, 0, 0});
        opened.find<QTableWidget>(measuredTable)->selectRow(0);
        opened.answers().then([&](QWidget *question) {
            opened.answers().thenPress(QMessageBox::Yes);
            // The list is emptied by another question while this one is open.
            QTimer::singleShot(0, &opened.dialog(), [&opened, question] {
                opened.dialog().on_pushButton_clearMeaPoints_clicked();
                qobject_cast<QMessageBox *>(question)->button(QMessageBox::Yes)->click();
            });
        });
        opened.click("w_removeButton");
        QCOMPARE(opened.rows(measuredTable), 0);
    });
}

void ListButtonsTest::shouldSurviveItsEndInsideAQuestion()
{
    for (const char *button : {"pushButton_clearMeaPoints", "pushButton_removeRefPoint", "pushButton_help"}) {
        OpenedDialog opened;
        opened.run([&] {
            opened.measure({1, 0, 0});
            opened.addReference({1, 2, 3});
            opened.answers().then(
                [&](QWidget *) { QTimer::singleShot(0, qApp, [&opened] { opened.destroy(); }); });
            opened.click(button);
        });
        opened.destroy();
    }
}

void ListButtonsTest::shouldLoadAFile()
{
    write("points.txt", "# my points\n1 0 0 0\n2 100.5 0 0\n3 0 200 -0.25");
    OpenedDialog opened;
    opened.run([&] {
        opened.addReference({9, 9, 9});
        FileChoice choice;
        choice.name = path("points.txt");
        opened.answers().then(std::ref(choice));
        QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
        opened.click("w_loadButton");
        QCOMPARE(choice.title, QStringLiteral("Open reference points file..."));
        QCOMPARE(choice.directory, QDir::homePath());
        QCOMPARE(choice.filters,
                 (QStringList{QStringLiteral("Text files (*.txt)"), QStringLiteral("All files (*.*)")}));
        QCOMPARE(opened.rows(referenceTable), 3);
        QCOMPARE(opened.cell(referenceTable, 1, 0), QStringLiteral("100.50"));
        QCOMPARE(opened.cell(referenceTable, 2, 2), QStringLiteral("-0.25"));
        QCOMPARE(opened.find<QTableWidget>(referenceTable)->rowHeight(2), 28);
        QCOMPARE(evaluated.count(), 1);
        QVERIFY(opened.isEnabled("pushButton_save"));
    });
}

void ListButtonsTest::shouldKeepThePointsForAnUnknownFormat()
{
    write("empty.txt", "");
    OpenedDialog opened;
    opened.run([&] {
        opened.addReference({9, 9, 9});
        FileChoice choice;
        choice.name = path("empty.txt");
        opened.answers().then(std::ref(choice)).thenPress(QMessageBox::Ok);
        opened.click("w_loadButton");
        QCOMPARE(opened.answers().boxes(),
                 QStringList{QStringLiteral("Error loading file|Unknown format !")});
        QCOMPARE(opened.rows(referenceTable), 1);
    });
}

void ListButtonsTest::shouldRefuseMorePointsThanAListHolds()
{
    const QByteArray hundredThousand = QByteArray("1 1 2 3\n").repeated(100000);
    write("full.txt", hundredThousand);
    write("long.txt", hundredThousand + "1 9 9 9\n");
    OpenedDialog opened;
    opened.run([&] {
        const QString notice =
            QStringLiteral("A list holds 100000 points at most; there would be more. The list is as it was.");
        FileChoice full(path("full.txt"));
        FileChoice tooLong(path("long.txt"));
        opened.answers().leaveAlone(opened.dialog().windowTitle()); // loading may or may not take long
        opened.answers().then(std::ref(full)).then(std::ref(tooLong));
        opened.click("w_loadButton");
        QCOMPARE(opened.rows(referenceTable), 100000);
        QVERIFY(!opened.notice().contains(notice));
        QVERIFY(!opened.notice().contains(notice));
        opened.click("pushButton_addRefPoint");
        QVERIFY(opened.notice().startsWith(notice));
        QCOMPARE(opened.rows(referenceTable), 100000);
        opened.find<QTableWidget>(referenceTable)->item(7, 0)->setText(QStringLiteral("5"));
        QVERIFY(!opened.notice().contains(notice));
        opened.click("w_loadButton");
        QVERIFY(opened.notice().startsWith(notice));
        QCOMPARE(opened.rows(referenceTable), 100000);
        QCOMPARE(opened.cell(referenceTable, 7, 0), QStringLiteral("5.00"));
    });
}

void ListButtonsTest::shouldKeepThePointsWhenNothingIsChosen()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.addReference({9, 9, 9});
        FileChoice loading;
        FileChoice saving;
        opened.answers().then(std::ref(loading)).then(std::ref(saving));
        QSignalSpy evaluated(&opened.dialog(), &AbcMatchingDialog::updateRequest);
        opened.click("w_loadButton");
        opened.click("pushButton_save");
        QCOMPARE(saving.title, QStringLiteral("Save reference points"));
        QCOMPARE(saving.directory, QDir::homePath());
        QCOMPARE(saving.filters, QStringList{QStringLiteral("Text file (*.txt)")});
        QVERIFY(evaluated.isEmpty());
        QCOMPARE(opened.rows(referenceTable), 1);
    });
}

void ListButtonsTest::shouldKeepLoadedPrecisionUntilTheListIsEdited()
{
    // The third decimals are lost in the cells; the residual tells which numbers were used.
    write("points.txt", "1 0.004 0 0\n2 1000.004 0 0\n3 0.004 1000 0\n");
    OpenedDialog opened;
    opened.run([&] {
        opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
        for (const MatchingPoint &point : {MatchingPoint{0, 0, 0}, {1000, 0, 0}, {0, 1000, 0}})
            opened.measure(point);
        double shift = 0.0;
        const QObject receiver;
        connect(&opened.dialog(), &AbcMatchingDialog::applyTrafoRequest, &receiver,
                [&shift](const bsMatrix &matrix) { shift = matrix.at(0, 3); });
        FileChoice choice;
        choice.name = path("points.txt");
        opened.answers().then(std::ref(choice));
        opened.click("w_loadButton");
        opened.dialog().apply();
        QVERIFY(qAbs(shift + 0.004) < 1e-4);
    });
    opened.run([&] {
        double shift = 1.0;
        const QObject receiver;
        connect(&opened.dialog(), &AbcMatchingDialog::applyTrafoRequest, &receiver,
                [&shift](const bsMatrix &matrix) { shift = matrix.at(0, 3); });
        opened.find<QTableWidget>(referenceTable)->item(0, 2)->setText(QStringLiteral("0"));
        opened.dialog().apply();
        QVERIFY(qAbs(shift) < 1e-6);
    });
}

void ListButtonsTest::shouldSaveAFile_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("with ending") << QStringLiteral("ref.txt") << QByteArray("ref.txt");
    QTest::newRow("without ending") << QStringLiteral("ref") << QByteArray("ref.txt");
    QTest::newRow("blank behind") << QStringLiteral("ref.txt ") << QByteArray("ref.txt");
    QTest::newRow("capital ending") << QStringLiteral("points.TXT") << QByteArray("points.TXT.txt");
}

void ListButtonsTest::shouldSaveAFile()
{
    QFETCH(QString, chosen);
    QFETCH(QByteArray, written);
    OpenedDialog opened;
    opened.run([&] {
        opened.addReference({1.5, -2, 3});
        opened.addReference({-0.25, 1000000, 0});
        FileChoice choice;
        choice.name = m_directory->path() + QLatin1Char('/') + chosen;
        opened.answers().then(std::ref(choice));
        opened.click("pushButton_save");
        QCOMPARE(contentsOf(path(written.constData())),
                 QByteArray("1 1.50 -2.00 3.00\n2 -0.25 1000000.00 0.00\n"));
    });
}

void ListButtonsTest::shouldTellThatASaveFailed()
{
    OpenedDialog opened;
    opened.run([&] {
        // GIVEN
        opened.addReference({1, 2, 3});
        const QString pipe = path("pipe.txt");
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        // WHEN
        FileChoice refused(pipe);
        opened.answers().then(std::ref(refused));
        opened.click("pushButton_save");
        // THEN
        QCOMPARE(opened.notice(),
                 QStringLiteral("The reference points could not be saved in \"%1\". An older file of that "
                                "name is as it was.")
                     .arg(pipe));
        FileChoice taken(path("taken"));
        opened.answers().then(std::ref(taken));
        opened.click("pushButton_save");
        QCOMPARE(opened.notice(), QString());
    });
}

void ListButtonsTest::shouldHaveNothingToSave()
{
    OpenedDialog opened;
    opened.run([&] {
        opened.answers().thenPress(QMessageBox::Ok);
        opened.dialog().on_pushButton_save_clicked();
        QCOMPARE(opened.answers().boxes(), QStringList{QStringLiteral("Save|Nothing to save.")});
    });
}

void ListButtonsTest::shouldSurviveItsEndInsideAFileDialog()
{
    for (const char *button : {"w_loadButton", "pushButton_save"}) {
        OpenedDialog opened;
        opened.run([&] {
            opened.addReference({1, 2, 3});
            opened.answers().then(
                [&](QWidget *) { QTimer::singleShot(0, qApp, [&opened] { opened.destroy(); }); });
            opened.click(button);
        });
        opened.destroy();
    }
}

void ListButtonsTest::shouldBeUsableByKeyboard()
{
    OpenedDialog opened;
    opened.run([&] {
        QVERIFY(QTest::qWaitForWindowActive(&opened.dialog()));
        opened.press(&opened.dialog(), Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(opened.rows(referenceTable), 1);
        opened.press(&opened.dialog(), Qt::Key_P, Qt::AltModifier);
        QTRY_VERIFY(opened.find<QCheckBox>("w_orderCheckBox")->isChecked());
        auto *table = opened.find<QTableWidget>(referenceTable);
        table->setFocus();
        QTest::keyClicks(table, QStringLiteral("4"));
        auto *editor = table->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(opened.cell(referenceTable, 0, 0), QStringLiteral("4.00"));
        opened.press(table, Qt::Key_Tab);
        QVERIFY(!table->hasFocus());
        opened.frame(1.0, false, {0, 0, 0});
        QTRY_VERIFY(opened.isEnabled("w_measureButton"));
        opened.host().clear();
        opened.press(&opened.dialog(), Qt::Key_M, Qt::AltModifier);
        QTRY_COMPARE(opened.host().calls().size(), 3);
    });
}

ROOM_TEST_CLASS(ListButtonsTest)

#include "ListButtonsTest.moc"
