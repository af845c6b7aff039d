#include "ModalWindow.h"

#include "ModalAnswer.h"
#include "TestRegistry.h"

#include <QPointer>
#include <QtTest>

#include <memory>

class ModalWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReturnTheResultOfTheWindow()
    {
        QWidget parent;
        ModalAnswer answer;
        constexpr int result = 7;
        answer.then([](QWidget *window) { qobject_cast<QDialog *>(window)->done(result); });
        ModalWindow<QDialog> window(&parent);
        QCOMPARE(window.exec(), result);
        QVERIFY(answer.isDone());
    }

    void shouldHandItsArgumentsToTheWindow()
    {
        QWidget parent;
        const ModalWindow<QDialog> window(&parent, Qt::Dialog | Qt::FramelessWindowHint);
        QCOMPARE(window->parentWidget(), &parent);
        QVERIFY(window->windowFlags().testFlag(Qt::FramelessWindowHint));
    }

    void shouldKeepTheWindowUntilItsEnd()
    {
        QWidget parent;
        QPointer<QDialog> seen;
        {
            ModalAnswer answer;
            answer.then([&seen](QWidget *active) {
                seen = qobject_cast<QDialog *>(active);
                seen->accept();
            });
            ModalWindow<QDialog> window(&parent);
            QCOMPARE(window.exec(), int(QDialog::Accepted));
            QVERIFY(bool(window));
            QCOMPARE(window.operator->(), seen.data());
        }
        QVERIFY(seen.isNull());
        QVERIFY(parent.children().isEmpty());
    }

    void shouldDeleteAWindowThatNeverRan()
    {
        QWidget parent;
        {
            const ModalWindow<QDialog> window(&parent);
            QCOMPARE(parent.children().size(), 1);
        }
        QVERIFY(parent.children().isEmpty());
    }

    void shouldRejectWhenTheWindowGoesWithItsParent()
    {
        auto parent = std::make_unique<QWidget>();
        ModalAnswer answer;
        answer.then([&parent](QWidget *window) {
            qobject_cast<QDialog *>(window)->setResult(QDialog::Accepted);
            parent.reset();
        });
        ModalWindow<QDialog> window(parent.get());
        QCOMPARE(window.exec(), int(QDialog::Rejected));
        QVERIFY(!window);
        QVERIFY(answer.isDone());
    }

    void shouldSurviveThatBothOfTwoWindowsGo()
    {
        auto parent = std::make_unique<QWidget>();
        int inner = QDialog::Accepted;
        ModalAnswer answer;
        answer.then([&](QWidget *active) {
            ModalWindow<QDialog> second(active);
            inner = second.exec();
        });
        answer.then([&parent](QWidget *) { parent.reset(); });
        ModalWindow<QDialog> first(parent.get());
        QCOMPARE(first.exec(), int(QDialog::Rejected));
        QCOMPARE(inner, int(QDialog::Rejected));
        QVERIFY(!first);
        QVERIFY(answer.isDone());
    }
};

ROOM_TEST_CLASS(ModalWindowTest)

#include "ModalWindowTest.moc"
