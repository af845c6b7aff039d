#include "EventSteps.h"

#include "TestRegistry.h"

#include <QDialog>
#include <QSignalSpy>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

/// Comes back when so many keys have been typed by a slow hand; the event loop runs meanwhile.
void typeSlowly(int keys)
{
    constexpr int slowKeyMs = 25;
    QEventLoop loop;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &loop, [&] {
        if (--keys == 0)
            loop.quit();
    });
    hand.start(slowKeyMs);
    loop.exec();
}

} // namespace

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

    void shouldNotBeginAStepBeforeTheOneBeforeItHasEnded()
    {
        // GIVEN
        EventSteps steps(5s);
        QStringList seen;
        steps.add({QStringLiteral("slow"), [] { return true; },
                   [&seen] {
                       seen << QStringLiteral("slow begins");
                       typeSlowly(10);
                       seen << QStringLiteral("slow ends");
                   }});
        steps.add({QStringLiteral("next"), [] { return true; }, [&seen] { seen << QStringLiteral("next"); }});
        QSignalSpy finished(&steps, &EventSteps::finished);
        // WHEN
        steps.start();
        // THEN
        QVERIFY(finished.wait());
        QCOMPARE(seen, (QStringList{QStringLiteral("slow begins"), QStringLiteral("slow ends"),
                                    QStringLiteral("next")}));
    }

    void shouldNotBeDoneBeforeTheLastStepHasEnded()
    {
        EventSteps steps(5s);
        bool hasEnded = false;
        bool wasEnded = false;
        steps.add({QStringLiteral("slow"), [] { return true; },
                   [&hasEnded] {
                       typeSlowly(10);
                       hasEnded = true;
                   }});
        QObject::connect(&steps, &EventSteps::finished, &steps, [&] { wasEnded = hasEnded; });
        QSignalSpy finished(&steps, &EventSteps::finished);
        steps.start();
        QVERIFY(finished.wait());
        QVERIFY(wasEnded);
    }

    void shouldNameTheStepThatDoesNotEnd()
    {
        EventSteps steps(50ms);
        QEventLoop endless;
        steps.add({QStringLiteral("endless"), [] { return true; }, [&endless] { endless.exec(); }});
        steps.add({QStringLiteral("next"), [] { return true; }, [] {}});
        QSignalSpy failed(&steps, &EventSteps::failed);
        QObject::connect(&steps, &EventSteps::failed, &endless, &QEventLoop::quit);
        steps.start();
        QVERIFY(failed.wait());
        QCOMPARE(failed.constFirst().constFirst().toString(), QStringLiteral("endless"));
    }

    void shouldNameTheStepThatIsNeverReady()
    {
        EventSteps steps(50ms);
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
