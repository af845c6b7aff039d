#include "AssertionCounter.h"

#include "TestRegistry.h"

#include <QtTest>

#include <functional>
#include <thread>

using Assertion = std::function<void()>;
Q_DECLARE_METATYPE(Assertion)

class AssertionCounterTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSeeEveryKindOfAssertion_data()
    {
        QTest::addColumn<Assertion>("assertion");
        const auto row = [](const char *name, const Assertion &assertion) {
            QTest::newRow(name) << assertion;
        };
        row("verify", [] { QVERIFY(true); });
        row("verify with a text", [] { QVERIFY2(true, "text"); });
        row("bool", [] { QCOMPARE(true, true); });
        row("int", [] { QCOMPARE(1, 1); });
        row("unsigned", [] { QCOMPARE(1U, 1U); });
        row("size", [] { QCOMPARE(std::size_t(1), std::size_t(1)); });
        row("double", [] { QCOMPARE(1.0, 1.0); });
        row("float", [] { QCOMPARE(1.0F, 1.0F); });
        row("letters", [] { QCOMPARE("a", "a"); });
        row("string", [] { QCOMPARE(QStringLiteral("a"), QStringLiteral("a")); });
        row("latin string", [] { QCOMPARE(QStringLiteral("a"), QLatin1String("a")); });
        row("bytes", [] { QCOMPARE(QByteArray("a"), QByteArray("a")); });
        row("list", [] { QCOMPARE(QStringList{"a"}, QStringList{"a"}); });
        row("numbers", [] { QCOMPARE(QList<int>{1}, QList<int>{1}); });
        row("pointer", [] { QCOMPARE(static_cast<QObject *>(nullptr), nullptr); });
        row("in the end", [] { QTRY_VERIFY(true); });
        row("equal in the end", [] { QTRY_COMPARE(1, 1); });
        row("under a name\nof two lines", [] { QVERIFY(true); });
        row("in a thread", [] { std::thread([] { QVERIFY(true); }).join(); });
    }

    void shouldSeeEveryKindOfAssertion()
    {
        // GIVEN
        QFETCH(Assertion, assertion);
        const QByteArray function =
            QByteArray("shouldSeeEveryKindOfAssertion(") + QTest::currentDataTag() + ')';
        const bool wasSeenBefore = AssertionCounter::hasSeen(function);
        // WHEN
        assertion();
        const bool wasSeen = AssertionCounter::hasSeen(function);
        // THEN
        QVERIFY(!wasSeenBefore);
        QVERIFY(wasSeen);
    }

    void shouldBlameOnlyWhatPassedInSilence()
    {
        QVERIFY(AssertionCounter::hasSeen("shouldSeeEveryKindOfAssertion(int)"));
        const QByteArray log = "Totals\n"
                               "PASS   : ThisTest::initTestCase()\n"
                               "PASS   : ThisTest::shouldSeeEveryKindOfAssertion(int)\n"
                               "PASS   : ThisTest::shouldSeeEveryKindOfAssertion(under a name\n"
                               "of two lines)\n"
                               "PASS   : ThisTest::shouldSeeEveryKindOfAssertion(other)\n"
                               "FAIL!  : ThisTest::shouldFail() text\n"
                               "SKIP   : ThisTest::shouldSkip() text\n"
                               "PASS   : ThisTest::shouldPass()\n"
                               "PASS   : ThisTest::cleanupTestCase()\n";
        QCOMPARE(AssertionCounter::passedWithoutAssertion(log),
                 (QList<QByteArray>{"shouldSeeEveryKindOfAssertion(other)", "shouldPass()"}));
    }
};

ROOM_TEST_CLASS(AssertionCounterTest)

#include "AssertionCounterTest.moc"
