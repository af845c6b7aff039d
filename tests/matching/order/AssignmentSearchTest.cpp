#include "AssignmentSearch.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cmath>
#include <limits>
#include <numeric>

namespace
{

using Outcome = AssignmentSearch::Outcome;
using Rival = AssignmentSearch::Rival;

/// References, and the same points measured in another order: reference i is measured point order[i].
struct Shuffled {
    Shuffled(PointSets &sets, const std::vector<double> &values, double sigmaMm)
        : references(asPoints(values))
        , order(references.size())
    {
        const MatchingPoints moved = asPoints(sets.moved(values, sigmaMm));
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), sets.generator());
        measured.resize(moved.size());
        for (std::size_t i = 0; i < moved.size(); ++i)
            measured[static_cast<std::size_t>(order[i])] = moved[i];
    }

    MatchingPoints references;
    MatchingPoints measured;
    PointOrder order;
};

std::vector<double> gridInRowOrder(int size)
{
    std::vector<double> values;
    for (int i = 0; i < size * size; ++i)
        values.insert(values.end(), {100.0 * (i % size), 100.0 * (i / size), 0.0});
    return values;
}

/// A grid whose first three points are not on a line.
std::vector<double> grid(int size)
{
    std::vector<double> values = gridInRowOrder(size);
    std::swap_ranges(values.begin() + 6, values.begin() + 9, values.end() - 3);
    return values;
}

std::vector<double> circle(int count)
{
    std::vector<double> values;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * std::acos(-1.0) * i / count;
        values.insert(values.end(), {900.0 * std::cos(angle), 900.0 * std::sin(angle), 0.0});
    }
    return values;
}

std::vector<double> cube()
{
    std::vector<double> values;
    for (int i = 0; i < 8; ++i)
        values.insert(values.end(), {i & 1 ? 400.0 : 0.0, i & 2 ? 400.0 : 0.0, i & 4 ? 400.0 : 0.0});
    return values;
}

} // namespace

class AssignmentSearchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindTheOrderOfShuffledPoints_data();
    void shouldFindTheOrderOfShuffledPoints();
    void shouldFindAnOrderOfSymmetricPoints_data();
    void shouldFindAnOrderOfSymmetricPoints();
    void shouldAnswerAtOnceWhenNoOrderIsValid_data();
    void shouldAnswerAtOnceWhenNoOrderIsValid();
    void shouldStayFastWhereManyReferencePointsAreEqual();
    void shouldStopWhenToldSo();
    void shouldAskOftenEnough();
    void shouldStopTheSearchForARivalWhenToldSo();
    void shouldKeepCopiesOfTheLists();
};

void AssignmentSearchTest::shouldFindTheOrderOfShuffledPoints_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("sigmaMm");
    for (const int count : {3, 4, 6, 7, 8, 10, 12, 20, 50, 70}) {
        for (const double sigmaMm : {0.0, 0.3, 3.0})
            QTest::addRow("%d points, %.1f mm", count, sigmaMm) << count << sigmaMm;
    }
}

void AssignmentSearchTest::shouldFindTheOrderOfShuffledPoints()
{
    QFETCH(int, count);
    QFETCH(double, sigmaMm);
    PointSets sets(71);
    int right = 0;
    for (int trial = 0; trial < 10; ++trial) {
        const Shuffled sample(sets, sets.box(count, 2000), sigmaMm);
        AssignmentSearch search(sample.references, sample.measured);
        const AssignmentSearch::Result result = search.run({});
        QVERIFY(result.outcome == Outcome::Found);
        QVERIFY(static_cast<double>(result.bestMm) <= 3.0 * sigmaMm + 1e-3);
        right += result.order == sample.order ? 1 : 0;
    }
    QVERIFY2(right >= (sigmaMm > 1.0 ? 8 : 10), qPrintable(QString::number(right)));
}

void AssignmentSearchTest::shouldFindAnOrderOfSymmetricPoints_data()
{
    QTest::addColumn<std::vector<double>>("values");
    QTest::newRow("cube") << cube();
    QTest::newRow("12-gon") << circle(12);
    QTest::newRow("grid of 25") << grid(5);
    QTest::newRow("grid of 49") << grid(7);
}

void AssignmentSearchTest::shouldFindAnOrderOfSymmetricPoints()
{
    QFETCH(std::vector<double>, values);
    PointSets sets(72);
    for (const double sigmaMm : {0.0, 0.3}) {
        const Shuffled sample(sets, values, sigmaMm);
        AssignmentSearch search(sample.references, sample.measured);
        const AssignmentSearch::Result result = search.run({});
        QVERIFY(result.outcome == Outcome::Found);
        OrderFit fit(sample.references, sample.measured);
        QVERIFY(fit.fit(result.order).rmsMm <= fit.fit(sample.order).rmsMm + 1e-3);
        QVERIFY(search.findRival(result, {}) == (sigmaMm > 0 ? search.findRival(result, {}) : Rival::Exists));
    }
}

void AssignmentSearchTest::shouldAnswerAtOnceWhenNoOrderIsValid_data()
{
    QTest::addColumn<std::vector<double>>("references");
    QTest::addColumn<std::vector<double>>("measured");
    PointSets sets(73);
    const std::vector<double> good = sets.box(25, 1000);
    std::vector<double> line, place, notNumber = good, infinite = good;
    for (int i = 0; i < 25; ++i) {
        line.insert(line.end(), {10.0 * i, 20.0 * i, 0.0});
        place.insert(place.end(), {0.0, 0.0, 0.0});
    }
    notNumber[40] = std::numeric_limits<double>::quiet_NaN();
    infinite[40] = std::numeric_limits<double>::infinity();
    QTest::newRow("grid in row order") << gridInRowOrder(5) << gridInRowOrder(5);
    QTest::newRow("measured on a line") << good << line;
    QTest::newRow("references at one place") << place << good;
    QTest::newRow("measured at one place") << good << place;
    QTest::newRow("reference that is no number") << notNumber << good;
    QTest::newRow("measured point at infinity") << good << infinite;
}

void AssignmentSearchTest::shouldAnswerAtOnceWhenNoOrderIsValid()
{
    QFETCH(std::vector<double>, references);
    QFETCH(std::vector<double>, measured);
    AssignmentSearch search(asPoints(references), asPoints(measured));
    const AssignmentSearch::Result result = search.run([]() { return false; });
    QVERIFY(result.outcome == Outcome::NoValidOrder);
    QVERIFY(result.order.empty());
}

void AssignmentSearchTest::shouldStayFastWhereManyReferencePointsAreEqual()
{
    PointSets sets(74);
    for (int trial = 0; trial < 3; ++trial) {
        Shuffled sample(sets, sets.box(12, 1500), 0.3);
        std::fill(sample.references.begin() + 4, sample.references.end(), MatchingPoint{0, 0, 0});
        AssignmentSearch search(sample.references, sample.measured);
        int questions = 0;
        const AssignmentSearch::Result result = search.run([&questions]() { return ++questions < 100000; });
        QVERIFY(result.outcome != Outcome::Cancelled);
        QVERIFY(result.outcome == Outcome::NoValidOrder || search.findRival(result, {}) == Rival::Exists);
    }
}

void AssignmentSearchTest::shouldStopWhenToldSo()
{
    PointSets sets(75);
    AssignmentSearch search(asPoints(sets.box(30, 1000)), asPoints(sets.box(30, 1000)));
    int questions = 0;
    const AssignmentSearch::Result result = search.run([&questions]() { return ++questions < 50; });
    QVERIFY(result.outcome == Outcome::Cancelled);
    QVERIFY(result.order.empty());
    QCOMPARE(questions, 50);
}

void AssignmentSearchTest::shouldAskOftenEnough()
{
    PointSets sets(76);
    AssignmentSearch search(asPoints(sets.box(50, 1000)), asPoints(sets.box(50, 1000)));
    QElapsedTimer clock;
    clock.start();
    qint64 last = 0, longest = 0;
    int questions = 0;
    (void)search.run([&]() {
        const qint64 now = clock.elapsed();
        longest = std::max(longest, now - last);
        last = now;
        return ++questions < 300;
    });
    QCOMPARE(questions, 300);
    QVERIFY2(clock.elapsed() < 300 * 100, qPrintable(QString::number(longest)));
}

void AssignmentSearchTest::shouldStopTheSearchForARivalWhenToldSo()
{
    PointSets sets(77);
    AssignmentSearch search(asPoints(sets.box(12, 1000)), asPoints(sets.box(12, 1000)));
    const AssignmentSearch::Result result = search.run({});
    QVERIFY(result.outcome == Outcome::Found);
    QVERIFY(search.findRival(result, []() { return false; }) == Rival::Cancelled);
}

void AssignmentSearchTest::shouldKeepCopiesOfTheLists()
{
    PointSets sets(78);
    Shuffled sample(sets, sets.box(9, 1000), 0.3);
    AssignmentSearch search(sample.references, sample.measured);
    sample.references.clear();
    sample.measured.clear();
    QCOMPARE(search.run({}).order, sample.order);
}

ROOM_TEST_CLASS(AssignmentSearchTest)

#include "AssignmentSearchTest.moc"
