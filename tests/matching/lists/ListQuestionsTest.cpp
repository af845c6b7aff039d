#include "ListQuestions.h"

#include "FileChoice.h"
#include "ModalAnswer.h"
#include "PiecewiseWork.h"
#include "TestRegistry.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace
{

class TwoPieces : public PiecewiseWork
{
public:
    [[nodiscard]] bool doPiece() override { return --m_left > 0; }
    [[nodiscard]] int percent() const override { return 50; }
    [[nodiscard]] int left() const { return m_left; }

private:
    int m_left = 2;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(const ListQuestions &)>)

class ListQuestionsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCountRowsFromOne()
    {
        // GIVEN
        QWidget window;
        const ListQuestions questions(&window);
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes).thenPress(QMessageBox::No);
        // WHEN, THEN
        QVERIFY(questions.shallRemoveRow(0));
        QVERIFY(!questions.shallRemoveRow(4));
        QCOMPARE(answer.boxes(), (QStringList{"Warning|Remove row 1?", "Warning|Remove row 5?"}));
    }

    void shouldAskBeforeAllMeasuredPointsGo()
    {
        // GIVEN
        QWidget window;
        const ListQuestions questions(&window);
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes);
        // WHEN, THEN
        QVERIFY(questions.shallRemoveAllMeasured());
        QCOMPARE(answer.boxes(), QStringList("Warning|Remove all measured points?"));
    }

    void shouldTellWhatIsWrong_data()
    {
        using Tell = std::function<void(const ListQuestions &)>;
        QTest::addColumn<Tell>("tell");
        QTest::addColumn<QString>("box");
        QTest::newRow("nothing selected")
            << Tell(&ListQuestions::tellNothingIsSelected) << QStringLiteral("Remove|Nothing selected.");
        QTest::newRow("nothing to save")
            << Tell(&ListQuestions::tellNothingIsToSave) << QStringLiteral("Save|Nothing to save.");
        QTest::newRow("no number") << Tell([](const ListQuestions &one) { one.tellIsNoNumber("1%1"); })
                                   << QStringLiteral("Error|'1%1' is not a number!");
        QTest::newRow("unknown format") << Tell(&ListQuestions::tellFormatIsUnknown)
                                        << QStringLiteral("Error loading file|Unknown format !");
    }
    void shouldTellWhatIsWrong()
    {
        // GIVEN
        QFETCH(std::function<void(const ListQuestions &)>, tell);
        QFETCH(QString, box);
        QWidget window;
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Ok);
        // WHEN
        tell(ListQuestions(&window));
        // THEN
        QCOMPARE(answer.boxes(), QStringList(box));
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldAskForFilesUnderTheirTitles()
    {
        // GIVEN
        QWidget window;
        const ListQuestions questions(&window);
        const QTemporaryDir folder;
        FileChoice loading;
        FileChoice saving(folder.filePath(QStringLiteral("new.txt")));
        ModalAnswer answer;
        answer.then(std::ref(loading)).then(std::ref(saving));
        // WHEN, THEN
        QCOMPARE(questions.fileToLoad(), QString());
        QCOMPARE(loading.title, QStringLiteral("Open reference points file..."));
        QCOMPARE(loading.filters, (QStringList{"Text files (*.txt)", "All files (*.*)"}));
        QCOMPARE(questions.fileToSave(), folder.filePath(QStringLiteral("new.txt")));
        QCOMPARE(saving.title, QStringLiteral("Save reference points"));
        QCOMPARE(saving.filters, QStringList("Text file (*.txt)"));
    }

    void shouldReadEverything()
    {
        // GIVEN
        QWidget window;
        TwoPieces reading;
        // WHEN, THEN
        QVERIFY(ListQuestions(&window).readAll(reading));
        QCOMPARE(reading.left(), 0);
    }
};

ROOM_TEST_CLASS(ListQuestionsTest)
#include "ListQuestionsTest.moc"
