#include "Prompt.h"

#include "ModalAnswer.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QPointer>
#include <QtTest>

#include <memory>

namespace
{

QMessageBox::StandardButton ask(QWidget *parent, const QString &text = "Text")
{
    return Prompt::ask(parent, QMessageBox::Warning, "Title", text, QMessageBox::Yes | QMessageBox::No,
                       QMessageBox::No);
}

} // namespace

class PromptTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReturnTheButtonThatWasPressed()
    {
        QWidget parent;
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes).thenPress(QMessageBox::No);
        QCOMPARE(ask(&parent), QMessageBox::Yes);
        QCOMPARE(ask(&parent), QMessageBox::No);
        QCOMPARE(answer.boxes(), QStringList({"Title|Text", "Title|Text"}));
        QVERIFY(parent.children().isEmpty());
    }

    void shouldTakeTheDefaultButtonOnEnter()
    {
        QWidget parent;
        ModalAnswer answer;
        answer.then([](QWidget *box) { QTest::keyClick(box, Qt::Key_Return); });
        QCOMPARE(ask(&parent), QMessageBox::No);
        QVERIFY(answer.isDone());
    }

    /// What a controller sends may look like formatted text; it is shown letter by letter.
    void shouldShowTextsAsTheyAre()
    {
        const QString text = "<b>bold</b> &amp; <img src=\"picture.png\">";
        QWidget parent;
        QString shown;
        auto format = Qt::AutoText;
        ModalAnswer answer;
        answer.then([&](QWidget *box) {
            const auto *label = box->findChild<QLabel *>("qt_msgbox_label");
            shown = label->text();
            format = label->textFormat();
            qobject_cast<QDialog *>(box)->reject();
        });
        ask(&parent, text);
        QVERIFY(answer.isDone());
        QCOMPARE(shown, text);
        QCOMPARE(format, Qt::PlainText);
    }

    void shouldTellNoButtonWhenTheParentIsDestroyedMeanwhile()
    {
        auto parent = std::make_unique<QWidget>();
        ModalAnswer answer;
        answer.then([&parent](QWidget *) { parent.reset(); });
        QCOMPARE(ask(parent.get()), QMessageBox::NoButton);
        QVERIFY(answer.isDone());
    }
};

ROOM_TEST_CLASS(PromptTest)

#include "PromptTest.moc"
