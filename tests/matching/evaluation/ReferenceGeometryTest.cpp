#include "ReferenceGeometry.h"

#include "TestRegistry.h"

#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(MatchingPoints)

class ReferenceGeometryTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldJudge_data()
    {
        QTest::addColumn<MatchingPoints>("points");
        QTest::addColumn<bool>("line");
        QTest::addColumn<bool>("coinciding");
        QTest::addColumn<bool>("firstThree");
        const MatchingPoint o = {0, 0, 0}, x = {1000, 0, 0}, half = {500, 0, 0}, y = {0, 800, 0},
                            z = {0, 0, 600};
        QTest::newRow("corner") << MatchingPoints{o, x, y, z} << false << false << false;
        QTest::newRow("first three on a line") << MatchingPoints{o, half, x, y} << false << false << true;
        QTest::newRow("all on a line") << MatchingPoints{o, half, x, {200, 5, 5}} << true << false << true;
        QTest::newRow("on a line, far from the origin")
            << MatchingPoints{{5000, 5000, 0}, {5100, 5100, 1}, {5200, 5200, 0}, {5300, 5300, 1}} << true
            << false << true;
        QTest::newRow("flat triangle") << MatchingPoints{o, x, {500, 19, 0}} << true << false << true;
        QTest::newRow("low triangle") << MatchingPoints{o, x, {500, 21, 0}} << false << false << false;
        QTest::newRow("two coincide")
            << MatchingPoints{o, x, y, {1000.5, 0.5, 0.5}} << false << true << false;
        QTest::newRow("two nearly coincide")
            << MatchingPoints{o, x, y, {1000.7, 0.8, 0}} << false << false << false;
        QTest::newRow("first two equal") << MatchingPoints{o, o, x, y} << false << true << true;
        QTest::newRow("all equal") << MatchingPoints{x, x, x} << true << true << true;
        const double notNumber = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("not a number")
            << MatchingPoints(40, {notNumber, 0, notNumber}) << false << false << false;
        QTest::newRow("same x") << MatchingPoints{{0, 0, 0}, {0, 10, 0}, {0, 0, 10}, {0, 10, 10}} << false
                                << false << false;
    }

    void shouldJudge()
    {
        QFETCH(MatchingPoints, points);
        const ReferenceGeometry geometry = ReferenceGeometry::of(points);
        QTEST(geometry.nearlyOnLine, "line");
        QTEST(geometry.coinciding.has_value(), "coinciding");
        QTEST(geometry.firstThreeNearlyOnLine, "firstThree");
    }

    void shouldNameTheTwoThatCoincide()
    {
        const ReferenceGeometry geometry = ReferenceGeometry::of({{0, 0, 0}, {9, 9, 9}, {0.5, 0, 0}});
        QVERIFY(geometry.coinciding.has_value());
        QCOMPARE(geometry.coinciding->first, 0);
        QCOMPARE(geometry.coinciding->second, 2);
    }

    void shouldJudgeFewerThanThreePointsByTheirDistance()
    {
        QVERIFY(!ReferenceGeometry::of({}).coinciding);
        const ReferenceGeometry two = ReferenceGeometry::of({{1, 2, 3}, {1, 2, 3}});
        QVERIFY(two.coinciding && !two.nearlyOnLine && !two.firstThreeNearlyOnLine);
    }
};

ROOM_TEST_CLASS(ReferenceGeometryTest)

#include "ReferenceGeometryTest.moc"
