#include "SimArguments.h"

#include "TestRegistry.h"

#include <QtTest>

class SimArgumentsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadExactlySoManyNumbers()
    {
        // GIVEN
        SimArguments arguments;
        arguments.values = {"1", "-2.5", "3e2"};
        // WHEN, THEN
        QVERIFY(arguments.reals(3) == std::vector<double>({1.0, -2.5, 300.0}));
        QVERIFY(!arguments.reals(2));
        QVERIFY(!arguments.reals(4));
    }

    void shouldReadNothingUnlessAllAreNumbers()
    {
        // GIVEN
        SimArguments arguments;
        arguments.values = {"1", "2,5"};
        // WHEN, THEN
        QVERIFY(!arguments.reals(2));
    }

    void shouldCountFromOneIntoAList_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("index");
        QTest::newRow("before the first") << 0 << -1;
        QTest::newRow("the first") << 1 << 0;
        QTest::newRow("the last") << 3 << 2;
        QTest::newRow("behind the last") << 4 << -1;
    }
    void shouldCountFromOneIntoAList()
    {
        // GIVEN
        QFETCH(int, number);
        QFETCH(int, index);
        SimArguments arguments;
        arguments.numbers = {7, number};
        // WHEN
        const std::optional<std::size_t> found = arguments.index(1, 3);
        // THEN
        QCOMPARE(found ? static_cast<int>(*found) : -1, index);
    }
};

ROOM_TEST_CLASS(SimArgumentsTest)
#include "SimArgumentsTest.moc"
