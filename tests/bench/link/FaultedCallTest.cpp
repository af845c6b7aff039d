#include "FaultedCall.h"
#include "ControllerLink.h"
#include "TestRegistry.h"

#include <QTimer>
#include <QtTest>

namespace
{

/// A controller that answers every call with "velmar2 ok" and counts them.
struct Counted {
    int calls = 0;

    LinkAnswer operator()()
    {
        ++calls;
        return {true, "velmar2 ok"};
    }
};

} // namespace

class FaultedCallTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHandTheAnswerOn()
    {
        // GIVEN
        FaultPlan plan;
        Counted controller;
        // WHEN
        const FaultedAnswer answer =
            FaultedCall(plan, "velmar2 tracking start").answer(0.0, std::ref(controller));
        // THEN
        QVERIFY(answer.arrived);
        QVERIFY(!answer.result);
        QCOMPARE(answer.text, std::string("velmar2 ok"));
    }

    void shouldApplyTheFault_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<int>("calls");
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("line");
        const auto row = [](const char *name, const char *fault, int calls, int result, const char *text,
                            const char *line) {
            QTest::newRow(name) << QString::fromLatin1(fault) << calls << result << QString::fromLatin1(text)
                                << QString::fromLatin1(line);
        };
        const char *refusal = "velmar2 err 9 \"fault on request\"";
        row("failing", "sim fault fail 1 velmar2 9", 0, 9, refusal, refusal);
        row("failing though done", "sim fault done-but-fail 1 velmar2", 1, 7, "velmar2 ok",
            "velmar2 err 7 \"fault on request\"");
        row("garbled", "sim fault answer 1 velmar2 = velmar2 OK", 0, 0, "velmar2 OK", "velmar2 OK");
        row("too long", "sim fault long 1 velmar2 5", 1, 0, "xxxxx", "xxxxx");
        row("one call too early", "sim fault fail 2 velmar2 9", 1, -1, "velmar2 ok", "velmar2 ok");
    }
    void shouldApplyTheFault()
    {
        // GIVEN
        QFETCH(QString, fault);
        QFETCH(int, calls);
        QFETCH(int, result);
        QFETCH(QString, text);
        QFETCH(QString, line);
        FaultPlan plan;
        QCOMPARE(plan.run(fault.toStdString(), 0.0).value_or(""), std::string("sim ok"));
        const FaultedCall call(plan, "velmar2 tracking start");
        Counted controller;
        // WHEN
        const FaultedAnswer answer = call.answer(0.0, std::ref(controller));
        // THEN
        QCOMPARE(controller.calls, calls);
        QVERIFY(answer.arrived);
        QCOMPARE(answer.result.value_or(-1), result);
        QCOMPARE(QString::fromStdString(answer.text), text);
        QCOMPARE(QString::fromStdString(call.answerLine(0.0, std::ref(controller))), line);
    }

    void shouldReachNobodyWhileDisconnected()
    {
        // GIVEN
        FaultPlan plan;
        plan.disconnect(10.0, 2.0);
        const FaultedCall call(plan, "velmar2 tracking start");
        Counted controller;
        // WHEN
        const FaultedAnswer during = call.answer(11.9, std::ref(controller));
        // THEN
        QVERIFY(!during.arrived);
        QCOMPARE(during.text, std::string("disconnected"));
        QCOMPARE(controller.calls, 0);
        QVERIFY(call.answer(12.1, std::ref(controller)).arrived);
    }

    void shouldTellThatNoAnswerCame()
    {
        // GIVEN
        FaultPlan plan;
        // WHEN
        const FaultedAnswer answer = FaultedCall(plan, "velmar2 tracking start").answer(0.0, [] {
            return LinkAnswer{false, "gone"};
        });
        // THEN
        QVERIFY(!answer.arrived);
        QCOMPARE(answer.text, std::string("gone"));
    }

    void shouldBeStruckByThePrefixOfEitherText()
    {
        // GIVEN
        FaultPlan plan;
        plan.run("sim fault fail 1 tracking extra_scaling", 0.0);
        Counted controller;
        // WHEN
        FaultedCall(plan, "velmar2 get tracking extra_scaling", "tracking extra_scaling")
            .answer(0.0, std::ref(controller));
        // THEN
        QCOMPARE(controller.calls, 0);
        QVERIFY(plan.pending().empty());
    }

    void shouldRunEventsDuringADelayOnlyWhenAsked_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<bool>("seen");
        QTest::newRow("without events") << QStringLiteral("sim fault delay 1 velmar2 20") << false;
        QTest::newRow("with events") << QStringLiteral("sim fault delay 1 velmar2 20 events") << true;
    }
    void shouldRunEventsDuringADelayOnlyWhenAsked()
    {
        // GIVEN
        QFETCH(QString, fault);
        QFETCH(bool, seen);
        FaultPlan plan;
        plan.run(fault.toStdString(), 0.0);
        bool isSeen = false;
        QTimer::singleShot(0, this, [&isSeen] { isSeen = true; });
        const FaultedCall call(plan, "velmar2 tracking start");
        // WHEN
        call.wait();
        // THEN
        QCOMPARE(isSeen, seen);
        QCOMPARE(call.delayMilliseconds(), 20);
        QTRY_VERIFY(isSeen);
    }
};

ROOM_TEST_CLASS(FaultedCallTest)
#include "FaultedCallTest.moc"
