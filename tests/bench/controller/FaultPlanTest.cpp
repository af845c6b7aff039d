#include "FaultPlan.h"
#include "TestRegistry.h"

#include <QtTest>

#include <utility>

namespace
{

FaultPlan planOf(const char *line)
{
    FaultPlan plan;
    const auto answer = plan.run(line, 0.0);
    if (answer != std::optional<std::string>("sim ok"))
        qFatal("%s: %s", line, answer.value_or("not a fault").c_str());
    return plan;
}

} // namespace

class FaultPlanTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldStrikeAtTheKthCallOnly()
    {
        FaultPlan plan = planOf("sim fault fail 2 status active 256");
        QVERIFY(!plan.next("status active").isTrouble());
        QVERIFY(!plan.next("status progress").isTrouble());
        const FaultEffect effect = plan.next("status active");
        QVERIFY(!effect.executed);
        QCOMPARE(effect.result, std::optional<int>(256));
        QVERIFY(!plan.next("status active").isTrouble());
        QVERIFY(plan.pending().empty());
    }

    void shouldStrikeEveryTime()
    {
        FaultPlan plan = planOf("sim fault done-but-fail every \"\"");
        for (int i = 0; i < 3; ++i) {
            const FaultEffect effect = plan.next("anything");
            QVERIFY(effect.executed);
            QCOMPARE(effect.result, std::optional<int>(7));
        }
        QCOMPARE(plan.pending(), std::vector<std::string>{"sim fault done-but-fail every \"\""});
        plan.clear();
        QVERIFY(!plan.next("anything").isTrouble());
    }

    void shouldTakeNumbersUpToTheirLimitsOnly_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("taken");
        QTest::addColumn<QStringList>("refused");
        const auto row = [](const char *line, const char *taken, const char *refused) {
            QTest::newRow(line) << QString::fromLatin1(line)
                                << QString::fromLatin1(taken).split(QLatin1Char(' '))
                                << QString::fromLatin1(refused).split(QLatin1Char(' '));
        };
        row("sim fault fail %1 status", "1 2147483647", "0 -1 2147483648");
        row("sim fault fail 1 status %1", "-1 1 2147483647", "0");
        row("sim fault long 1 status %1", "0 100000", "-1 100001");
        row("sim fault delay 1 status %1", "0 600000", "-1 600001");
        row("sim fault delay 1 status %1 events", "0 600000", "-1 600001");
        row("sim fault disconnect %1", "0 3600", "-0.1 x");
    }

    void shouldTakeNumbersUpToTheirLimitsOnly()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, taken);
        QFETCH(QStringList, refused);
        const auto answer = [&line](const QString &number) {
            return QString::fromStdString(FaultPlan().run(line.arg(number).toStdString(), 0.0).value_or(""));
        };
        for (const QString &number : qAsConst(taken))
            QCOMPARE(answer(number), QStringLiteral("sim ok"));
        for (const QString &number : qAsConst(refused))
            QVERIFY2(answer(number).startsWith(QLatin1String("sim err ")), qPrintable(number));
    }

    void shouldTakeAThousandFaultsAtMost()
    {
        FaultPlan plan;
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(plan.run("sim fault fail 1 status", 0.0).value_or(""), std::string("sim ok"));
        QCOMPARE(plan.run("sim fault fail 1 status", 0.0).value_or(""),
                 std::string("sim err \"too many faults\""));
        QVERIFY(plan.next("status").isTrouble());
        QVERIFY(plan.pending().empty());
    }

    void shouldTakeAnswersWithEveryBlank()
    {
        QCOMPARE(planOf("sim fault answer 1 a b = no ").next("a b").answer,
                 std::optional<std::string>("no "));
        QCOMPARE(planOf("sim fault answer 1 a b = \" x \"").next("a b").answer,
                 std::optional<std::string>(" x "));
        QCOMPARE(planOf("sim fault answer 1 a b =").next("a b c").answer, std::optional<std::string>(""));
        QCOMPARE(planOf("sim fault long 1 a b 12").next("a b").answer,
                 std::optional<std::string>("xxxxxxxxxxxx"));
    }

    void shouldDelay()
    {
        const FaultEffect late = planOf("sim fault delay 1 status 250").next("status active");
        QCOMPARE(late.delayMilliseconds, 250);
        QVERIFY(late.executed && !late.runsEvents);
        QVERIFY(planOf("sim fault delay 1 status 250 events").next("status active").runsEvents);
    }

    void shouldDelayByTheLongestOfSeveralDelays()
    {
        for (const auto &[first, second] : {std::pair("250", "100"), std::pair("100", "250")}) {
            FaultPlan plan = planOf((std::string("sim fault delay 1 status ") + first).c_str());
            QCOMPARE(plan.run(std::string("sim fault delay 1 status ") + second + " events", 0.0),
                     std::optional<std::string>("sim ok"));
            const FaultEffect effect = plan.next("status active");
            QCOMPARE(effect.delayMilliseconds, 250);
            QVERIFY(effect.runsEvents);
        }
    }

    void shouldTakeTheTroubleThatWasAskedForFirst()
    {
        FaultPlan plan = planOf("sim fault fail 1 status 9");
        plan.run("sim fault answer 1 status = other", 0.0);
        plan.run("sim fault delay 1 status 30", 0.0);
        const FaultEffect effect = plan.next("status active");
        QVERIFY(!effect.executed);
        QCOMPARE(effect.result, std::optional<int>(9));
        QVERIFY(!effect.answer.has_value());
        QCOMPARE(effect.delayMilliseconds, 30);
    }

    void shouldDisconnectForAWhile()
    {
        FaultPlan plan = planOf("sim fault disconnect 2.5");
        QVERIFY(plan.isDisconnected(2.4));
        QVERIFY(!plan.isDisconnected(2.6));
        plan = planOf("sim fault disconnect");
        QVERIFY(plan.isDisconnected(1e9));
        plan.run("sim reconnect", 3.0);
        QVERIFY(!plan.isDisconnected(3.0));
    }

    void shouldRefuseWhatItCannotRead_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char *line :
             {"sim fault fail", "sim fault fail 0 a", "sim fault fail x a", "sim fault fail 1",
              "sim fault fail 1 a 0", "sim fault answer 1 a", "sim fault long 1 a", "sim fault long 1 a -1",
              "sim fault delay 1 a soon", "sim fault disconnect soon", "sim fault lose 1 a"})
            QTest::newRow(line) << QByteArray(line);
    }

    void shouldRefuseWhatItCannotRead()
    {
        QFETCH(QByteArray, line);
        const auto answer = FaultPlan().run(line.toStdString(), 0.0);
        QVERIFY(answer.has_value());
        QVERIFY(answer->find("sim err \"") == 0);
    }

    void shouldCountACallOnceThoughBothItsTextsMatch()
    {
        FaultPlan plan = planOf("sim fault fail 2 \"\"");
        QVERIFY(!plan.next("velmar2 get status active", "status active").isTrouble());
        QVERIFY(plan.next("velmar2 get status active", "status active").isTrouble());
        QVERIFY(
            planOf("sim fault fail 1 status").next("velmar2 get status active", "status active").isTrouble());
    }

    void shouldBoundTheirNumber()
    {
        FaultPlan plan;
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(plan.run("sim fault fail every a", 0.0), std::optional<std::string>("sim ok"));
        QCOMPARE(plan.run("sim fault fail every a", 0.0),
                 std::optional<std::string>("sim err \"too many faults\""));
    }

    void shouldLeaveOtherLinesToOthers()
    {
        QVERIFY(!FaultPlan().run("sim seed 1", 0.0));
        QVERIFY(!FaultPlan().run("sim fault restart", 0.0));
    }
};

ROOM_TEST_CLASS(FaultPlanTest)
#include "FaultPlanTest.moc"
