#include "ModalAnswer.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>

#include <functional>

using namespace std::chrono_literals;

namespace
{

/// A dialog that goes by its title.
struct Titled {
    explicit Titled(const QString &title) { dialog.setWindowTitle(title); }

    QDialog dialog;
};

int execTitled(const QString &title)
{
    Titled titled(title);
    return titled.dialog.exec();
}

int askWhether(const QString &text)
{
    return QMessageBox::question(nullptr, "Question", text, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No);
}

void accept(QWidget *window)
{
    qobject_cast<QDialog *>(window)->accept();
}

/// Does something when the event loop has gone round for some looks, each as far apart as a real one.
void afterSomeLooks(QObject *context, const std::function<void()> &action, int looks = 5)
{
    QTimer::singleShot(2, context, [context, action, looks] {
        if (looks > 1)
            afterSomeLooks(context, action, looks - 1);
        else
            action();
    });
}

} // namespace

class ModalAnswerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeItsStepsInOrder()
    {
        ModalAnswer answer;
        QStringList seen;
        const auto note = [&](const QString &step) {
            return [&seen, step](QWidget *window) {
                seen << step + window->windowTitle();
                accept(window);
            };
        };
        answer.then(note("first ")).then(note("second "));
        QVERIFY(!answer.isDone());
        QCOMPARE(execTitled("one"), int(QDialog::Accepted));
        QVERIFY(!answer.isDone());
        QCOMPARE(execTitled("two"), int(QDialog::Accepted));
        QVERIFY(answer.isDone());
        QCOMPARE(seen, (QStringList{"first one", "second two"}));
        QCOMPARE(answer.unexpected(), QStringList());
        QCOMPARE(answer.boxes(), QStringList());
    }

    void shouldPressTheButtonOfAMessageBox()
    {
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes).thenPress(QMessageBox::No);
        QCOMPARE(askWhether("Really?"), int(QMessageBox::Yes));
        QCOMPARE(askWhether("Sure?"), int(QMessageBox::No));
        QCOMPARE(answer.boxes(), (QStringList{"Question|Really?", "Question|Sure?"}));
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldCloseAndNoteABoxWithoutTheButton()
    {
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Retry);
        QCOMPARE(askWhether("Really?"), int(QMessageBox::No));
        QCOMPARE(answer.unexpected(), QStringList{"no such button: Really?"});
    }

    void shouldCloseAndNoteADialogInPlaceOfABox()
    {
        ModalAnswer answer;
        answer.thenPress(QMessageBox::Yes);
        QCOMPARE(execTitled("no box"), int(QDialog::Rejected));
        QCOMPARE(answer.unexpected(), QStringList{"no message box: no box"});
        QCOMPARE(answer.boxes(), QStringList());
    }

    void shouldCloseAndNoteWhatHasNoStep()
    {
        ModalAnswer answer;
        answer.then(accept);
        QCOMPARE(execTitled("expected"), int(QDialog::Accepted));
        QCOMPARE(execTitled("stray"), int(QDialog::Rejected));
        QVERIFY(askWhether("Stray?") != QMessageBox::Yes);
        QCOMPARE(answer.unexpected(), (QStringList{"stray|", "Question|Stray?"}));
        QCOMPARE(answer.boxes(), QStringList());
    }

    void shouldCloseAModalWindowThatIsNoDialog()
    {
        ModalAnswer answer;
        QWidget window;
        window.setWindowTitle("plain");
        window.setWindowModality(Qt::ApplicationModal);
        window.show();
        QTRY_VERIFY(!window.isVisible());
        QCOMPARE(answer.unexpected(), QStringList{"plain|"});
    }

    void shouldLookOnWhileAStepHasOpenedTheNextWindow()
    {
        ModalAnswer answer;
        answer.then([](QWidget *window) {
            window->setProperty("reply", askWhether("Inside?"));
            accept(window);
        });
        answer.thenPress(QMessageBox::Yes);
        Titled outer("outer");
        QCOMPARE(outer.dialog.exec(), int(QDialog::Accepted));
        QCOMPARE(outer.dialog.property("reply").toInt(), int(QMessageBox::Yes));
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldTakeAStepThatAStepHasAdded()
    {
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            answer.thenPress(QMessageBox::Yes);
            accept(window);
        });
        execTitled("one");
        QVERIFY(!answer.isDone());
        QCOMPARE(askWhether("Two?"), int(QMessageBox::Yes));
        QVERIFY(answer.isDone());
    }

    void shouldTakeOneStepForEachShowingOfAWindow()
    {
        ModalAnswer answer;
        int count = 0;
        Titled again("again");
        // The first step leaves it to the event loop to close the window.
        answer.then([&](QWidget *window) {
            ++count;
            afterSomeLooks(window, [window] { accept(window); });
        });
        answer.then([&](QWidget *window) {
            count += 10;
            accept(window);
        });
        again.dialog.exec();
        QCOMPARE(count, 1);
        again.dialog.exec();
        QCOMPARE(count, 11);
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldLeaveAloneWhatItIsTold()
    {
        ModalAnswer answer;
        answer.leaveAlone("quiet").then(accept);
        Titled quiet("quiet");
        int loud = QDialog::Rejected;
        bool wasLeft = false;
        afterSomeLooks(&quiet.dialog, [&] {
            wasLeft = quiet.dialog.isVisible() && !answer.isDone();
            loud = execTitled("loud");
            quiet.dialog.done(7);
        });
        QCOMPARE(quiet.dialog.exec(), 7);
        QVERIFY(wasLeft);
        QCOMPARE(loud, int(QDialog::Accepted));
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldCloseWhatStaysOpenTooLong_data()
    {
        QTest::addColumn<bool>("leftAlone");
        QTest::newRow("after its step") << false;
        QTest::newRow("left alone") << true;
    }
    void shouldCloseWhatStaysOpenTooLong()
    {
        // GIVEN
        QFETCH(bool, leftAlone);
        ModalAnswer answer;
        if (leftAlone)
            answer.leaveAlone("stuck");
        else
            answer.then([](QWidget *) {});
        Titled stuck("stuck");
        bool wasOpen = false;
        QTimer::singleShot(0, &stuck.dialog, [&] {
            TestClock::advance(100s); // a look in 10 ms at most
            wasOpen = stuck.dialog.isVisible();
            TestClock::advance(100s);
        });
        // WHEN
        const int result = stuck.dialog.exec();
        // THEN
        QVERIFY(wasOpen);
        QCOMPARE(result, int(QDialog::Rejected));
        QCOMPARE(answer.unexpected(), QStringList{"stuck|"});
    }

    void shouldNotTouchAWindowThatIsNotModal()
    {
        ModalAnswer answer;
        answer.then(accept);
        Titled plain("plain");
        plain.dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plain.dialog));
        QCOMPARE(execTitled("modal"), int(QDialog::Accepted));
        QVERIFY(plain.dialog.isVisible());
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
    }
};

ROOM_TEST_CLASS(ModalAnswerTest)

#include "ModalAnswerTest.moc"
