#include "RecordFaults.h"

#include "TestRegistry.h"

#include <QtTest>

#include <functional>

using Damage = RecordFaults::Damage;
using Change = std::function<void(Damage &)>;

Q_DECLARE_METATYPE(Change)

namespace
{

std::vector<SimRecord> frame()
{
    return {{"fr", "fr 7"}, {"6d", "6d 2 [0 1.000][1 2 3] [1 1.000][4 5 6]"}, {"ts", "ts 1.0"}};
}

QStringList lines(const std::vector<SimRecord> &records)
{
    QStringList texts;
    for (const SimRecord &record : records)
        texts << QString::fromStdString(record.line);
    return texts;
}

} // namespace

class RecordFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLeaveAFrameAloneAtFirst()
    {
        // GIVEN
        RecordFaults faults;
        // WHEN, THEN
        QCOMPARE(lines(faults.apply(frame())), lines(frame()));
    }

    void shouldDamageTheLinesOfAKind_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("line");
        QTest::newRow("cut") << Change([](Damage &d) { d.cutAfter = 9; }) << "6d 2 [0 1";
        QTest::newRow("without a bracket")
            << Change([](Damage &d) { d.withoutBracket = true; }) << "6d 2 [0 1.000[1 2 3] [1 1.000][4 5 6]";
        QTest::newRow("another count")
            << Change([](Damage &d) { d.count = 9; }) << "6d 9 [0 1.000][1 2 3] [1 1.000][4 5 6]";
        const auto recount = [](const char *text) {
            return Change([text](Damage &d) {
                d.text = text;
                d.count = 12;
            });
        };
        QTest::newRow("a longer count") << recount("6dmt2 345 [0]") << "6dmt2 12 [0]";
        QTest::newRow("a count at the end") << recount("6dcal 3") << "6dcal 12";
        QTest::newRow("a count where none is") << recount("ts") << "ts 12";
        QTest::newRow("another text") << Change([](Damage &d) { d.text = "6d x"; }) << "6d x";
    }
    void shouldDamageTheLinesOfAKind()
    {
        // GIVEN
        QFETCH(Change, change);
        QFETCH(QString, line);
        RecordFaults faults;
        change(faults.of("6d"));
        // WHEN, THEN
        QCOMPARE(lines(faults.apply(frame())), (QStringList{"fr 7", line, "ts 1.0"}));
        faults.clear();
        QCOMPARE(lines(faults.apply(frame())), lines(frame()));
    }

    void shouldDropAndRepeatForSoManyFrames()
    {
        // GIVEN
        RecordFaults faults;
        faults.of("fr").dropFrames = 1;
        faults.of("ts").repeatFrames = 2;
        // WHEN, THEN
        QCOMPARE(lines(faults.apply({{"fr", "a"}, {"ts", "b"}})), (QStringList{"b", "b"}));
        QCOMPARE(lines(faults.apply({{"fr", "a"}, {"ts", "b"}})), (QStringList{"a", "b", "b"}));
        QCOMPARE(lines(faults.apply({{"fr", "a"}, {"ts", "b"}})), (QStringList{"a", "b"}));
    }

    void shouldExchangeTwoKinds()
    {
        // GIVEN
        RecordFaults faults;
        faults.swap("fr", "ts", 1);
        // WHEN, THEN
        QCOMPARE(lines(faults.apply({{"fr", "a"}, {"6d", "x"}, {"ts", "b"}})), (QStringList{"b", "x", "a"}));
        QCOMPARE(lines(faults.apply({{"fr", "a"}, {"ts", "b"}})), (QStringList{"a", "b"}));
    }

    void shouldEndExchangesTooWhenCleared()
    {
        // GIVEN
        RecordFaults faults;
        faults.swap("fr", "ts", 3);
        faults.swap("fr", "6d", 3);
        // WHEN
        faults.clear();
        // THEN
        QCOMPARE(lines(faults.apply(frame())), lines(frame()));
    }

    void shouldKeepTheFormatsWhenCleared()
    {
        // GIVEN
        RecordFaults faults;
        faults.formats = RecordFaults::Formats::Second;
        // WHEN
        faults.clear();
        // THEN
        QVERIFY(!faults.exists("6dmt"));
    }

    void shouldKnowWhichFormatsExist()
    {
        // GIVEN
        RecordFaults faults;
        // WHEN
        faults.formats = RecordFaults::Formats::Second;
        // THEN
        QVERIFY(faults.exists("6dmt2"));
        QVERIFY(!faults.exists("6dmt"));
        QVERIFY(faults.exists("6d"));
        faults.formats = RecordFaults::Formats::First;
        QVERIFY(!faults.exists("6df2"));
        QVERIFY(faults.exists("6df"));
    }

    void shouldExchangeAtMostAHundredTimesAtOnceAndThenAgain()
    {
        // GIVEN
        RecordFaults faults;
        for (int i = 0; i < 101; ++i)
            faults.swap("fr", "ts", 1); // a hundred of them are taken: as if there were none
        // WHEN, THEN
        QCOMPARE(lines(faults.apply(frame())), lines(frame()));
        faults.swap("fr", "ts", 1);
        QVERIFY(lines(faults.apply(frame())) != lines(frame()));
        QCOMPARE(lines(faults.apply(frame())), lines(frame()));
    }
};

ROOM_TEST_CLASS(RecordFaultsTest)
#include "RecordFaultsTest.moc"
