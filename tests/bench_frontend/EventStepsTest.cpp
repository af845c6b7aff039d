#include "EventSteps.h"

#include "TestRegistry.h"

#include <QDialog>
#include <QSignalSpy>
#include <QtTest>

using namespace std::chrono_literals;

class EventStepsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDoTheStepsInTheirOrder()
    {
        EventSteps steps(5s);
        QStringList done;
        for (const char *name : {"first", "second", "third"}) {
            const QString text = QString::fromLatin1(name);
            steps.add({text, [] { return true; }, [&done, text] { done << text; }});
        }
        QSignalSpy finished(&steps, &EventSteps::finished);
        steps.start();
        QVERIFY(finished.wait());
        QCOMPARE(done,
                 (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}));
    }

    void shouldGoOnInsideAModalDialogThatAStepHasOpened()
    {
        EventSteps steps(5s);
        QDialog dialog;
        steps.add({QStringLiteral("open"), [] { return true; }, [&dialog] { dialog.exec(); }});
        steps.add({QStringLiteral("close"), [&dialog] { return dialog.isVisible(); },
                   [&dialog] { dialog.accept(); }});
        QSignalSpy finished(&steps, &EventSteps::finished);
        steps.start();
        QVERIFY(finished.wait());
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    }

    void shouldNameTheStepThatIsNeverReady()
    {
        EventSteps steps(100ms);
        bool isDone = false;
        steps.add({QStringLiteral("ready"), [] { return true; }, [] {}});
        steps.add({QStringLiteral("never"), [] { return false; }, [&isDone] { isDone = true; }});
        QSignalSpy failed(&steps, &EventSteps::failed);
        QSignalSpy finished(&steps, &EventSteps::finished);
        steps.start();
        QVERIFY(failed.wait());
        QCOMPARE(failed.constFirst().constFirst().toString(), QStringLiteral("never"));
        QVERIFY(!isDone);
        QVERIFY(finished.isEmpty());
    }
};

ROOM_TEST_CLASS(EventStepsTest)

#include "EventStepsTest.moc"
