#include "SimRequest.h"

#include "SimMachine.h"
#include "SimText.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

/// Everything that was matched, with bars between.
SimReply tell(SimMachine &, const SimArguments &arguments)
{
    std::string text;
    for (const int number : arguments.numbers)
        text += std::to_string(number) + "|";
    for (const std::string_view word : arguments.words)
        text += std::string(word) + "|";
    for (const std::string_view value : arguments.values)
        text += std::string(value) + "|";
    return SimReply::value(text);
}

SimReply done(SimMachine &, const SimArguments &)
{
    return SimReply::ok();
}

QString answer(const SimRequestTable &table, const QByteArray &line)
{
    SimMachine machine;
    const auto reply = table.answer(machine, SimText::words(std::string_view(line.constData())));
    return reply ? QString::fromStdString(reply->text) : QStringLiteral("no row");
}

} // namespace

class SimRequestTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldMatchPatterns_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("matched");
        QTest::newRow("word for word") << QByteArray("get status") << "";
        QTest::newRow("one word too many") << QByteArray("get status x") << "no row";
        QTest::newRow("one word too few") << QByteArray("get") << "no row";
        QTest::newRow("number") << QByteArray("tool 12 tip") << "12|";
        QTest::newRow("no number") << QByteArray("tool x tip") << "no row";
        QTest::newRow("letter and number") << QByteArray("room c03") << "3|";
        QTest::newRow("one digit only") << QByteArray("room c3") << "no row";
        QTest::newRow("another letter") << QByteArray("room b03") << "no row";
        QTest::newRow("five digits") << QByteArray("room c00003") << "no row";
        QTest::newRow("any word and the rest") << QByteArray("set it 1 2") << "it|1|2|";
        QTest::newRow("no rest") << QByteArray("set it") << "it|";
        QTest::newRow("empty word") << QByteArray("set  1") << "no row";
    }
    void shouldMatchPatterns()
    {
        // GIVEN
        QFETCH(QByteArray, line);
        QFETCH(QString, matched);
        const SimRequestTable table(
            {{{"get status", tell}, {"tool # tip", tell}}, {{"room c#", tell}, {"set * ...", tell}}});
        // WHEN, THEN
        QCOMPARE(answer(table, line), matched);
    }

    void shouldTakeTheFirstRowThatMatches()
    {
        // GIVEN
        const SimRequestTable table({{{"set none", done}, {"set *", tell}}});
        // WHEN, THEN
        QCOMPARE(answer(table, "set none"), QString());
        QCOMPARE(answer(table, "set some"), QStringLiteral("some|"));
    }

    void shouldAskTheGuardsBeforeTheRow()
    {
        // GIVEN
        const SimRequestTable table({{{"set it ...", done, {SimGuard::Unlocked, SimGuard::NotedMeasuring}}}});
        SimMachine machine;
        machine.state.activity = SimActivity::Measuring;
        // WHEN, THEN
        QVERIFY(table.answer(machine, {"set", "it", "1"})->kind == SimReply::Kind::Ok);
        QCOMPARE(int(machine.notes.size()), 1);
        QCOMPARE(machine.notes.front(), std::string("it ... was set while measuring"));
        machine.state.changeable = false;
        QCOMPARE(table.answer(machine, {"set", "it", "1"})->code, 13);
        QCOMPARE(int(machine.notes.size()), 1);
    }
};

ROOM_TEST_CLASS(SimRequestTest)
#include "SimRequestTest.moc"
