#include "HideWatch.h"

#include "ModalAnswer.h"
#include "ModalWindow.h"
#include "TestRegistry.h"

#include <QDialog>
#include <QtTest>

#include <memory>

class HideWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldEndTheDialogWithTheWindowBehindIt()
    {
        QWidget window;
        auto *panel = new QWidget(&window);
        window.show();
        ModalAnswer answer;
        answer.then([&](QWidget *) { window.hide(); });
        ModalWindow<QDialog> dialog(panel);
        dialog->setResult(QDialog::Accepted);
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QVERIFY(dialog->isHidden());
        QVERIFY(answer.isDone());
    }

    void shouldEndEveryWindowInFrontOfTheHiddenOne()
    {
        QWidget window;
        window.show();
        ModalAnswer answer;
        answer.then([&](QWidget *front) {
            answer.then([&](QWidget *) { window.hide(); });
            ModalWindow<QDialog>(front).exec();
        });
        ModalWindow<QDialog>(&window).exec();
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldNotCountAMinimisedWindow()
    {
        QWidget window;
        window.show();
        QDialog dialog(&window);
        const HideWatch watch(&dialog);
        dialog.show();
        QHideEvent minimised;
        QSpontaneKeyEvent::setSpontaneous(&minimised);
        qApp->notify(&window, &minimised);
        QVERIFY(dialog.isVisible());
    }

    void shouldTellWhetherTheWindowWasHiddenBefore()
    {
        QWidget window;
        QDialog dialog(&window);
        QVERIFY(!HideWatch(&dialog).isHidden()); // never shown
        window.show();
        QVERIFY(!HideWatch(&dialog).isHidden());
        window.hide();
        QVERIFY(HideWatch(&dialog).isHidden());
        QDialog alone;
        QVERIFY(!HideWatch(&alone).isHidden());
    }

    void shouldSurviveBothEnds()
    {
        auto window = std::make_unique<QWidget>();
        window->show();
        auto *dialog = new QDialog(window.get());
        const HideWatch watch(dialog);
        window.reset();
        QVERIFY(!watch.isHidden());
    }
};

ROOM_TEST_CLASS(HideWatchTest)

#include "HideWatchTest.moc"
