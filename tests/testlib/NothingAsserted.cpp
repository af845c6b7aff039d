#include "TestRegistry.h"

#include <QtTest>

/// Run by a test of its own, which expects that the first two functions fail and the others pass.
class NothingAsserted : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayNothing() {}

    void shouldAskWhatIsNeverCalled()
    {
        const auto neverCalled = [] { QVERIFY(false); };
        Q_UNUSED(neverCalled)
    }

    void shouldVerify() { QVERIFY(true); }

    void shouldCompare_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("one") << 1;
        QTest::newRow("two, silently") << 2;
    }

    void shouldCompare()
    {
        QFETCH(int, number);
        if (number == 1)
            QCOMPARE(number, 1);
    }

    void shouldSkip() { QSKIP("does not claim to have shown anything"); }
};

ROOM_TEST_CLASS(NothingAsserted)

#include "NothingAsserted.moc"
