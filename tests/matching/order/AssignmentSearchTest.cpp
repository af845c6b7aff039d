#include "AssignmentSearch.h"

#include "PlainLoop.h"
#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <ctime>
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
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column)
            values.insert(values.end(), {100.0 * column, 100.0 * row, 0.0});
    }
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
    void shouldGiveTheLoopsResultForHugeCoordinates_data();
    void shouldGiveTheLoopsResultForHugeCoordinates();
    void shouldEndWhereTheTreeDoesNot_data();
    void shouldEndWhereTheTreeDoesNot();
    void shouldEndWhereTheBestOrdersAreNotValid_data();
    void shouldEndWhereTheBestOrdersAreNotValid();
    void shouldGoOnWhereTheBestOrderCannotStart();
    void shouldAskWhileItLooksForAStart();
    void shouldRefuseMorePointsThanMemoryAllows();
    void shouldStopWhenToldSo();
    void shouldAskOftenEnough();
    void shouldStopTheSearchForARivalWhenToldSo();
    void shouldKnowARivalWhereTwoPointsAreEqual_data();
    void shouldKnowARivalWhereTwoPointsAreEqual();
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
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::vector<double> wideReferences = good, wideMeasured = good;
        wideReferences[12 + axis] = 2e158;
        wideMeasured[12 + axis] = 5e156;
        QTest::addRow("references that lie too far apart along %d", int(axis)) << wideReferences << good;
        QTest::addRow("measured points that lie too far apart along %d", int(axis)) << good << wideMeasured;
    }
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

void AssignmentSearchTest::shouldGiveTheLoopsResultForHugeCoordinates_data()
{
    QTest::addColumn<double>("referenceScale");
    QTest::addColumn<double>("measuredScale");
    QTest::newRow("both large") << 1e100 << 1e100;
    QTest::newRow("squares overflow") << 1e156 << 1e156;
    QTest::newRow("far beyond") << 1e300 << 1e300;
    QTest::newRow("at the end of the numbers") << 3e305 << 3e305;
    QTest::newRow("references beyond") << 1e160 << 1.0;
    QTest::newRow("measured points beyond") << 1.0 << 1e160;
    QTest::newRow("tiny") << 1e-200 << 1e-200;
}

void AssignmentSearchTest::shouldGiveTheLoopsResultForHugeCoordinates()
{
    QFETCH(double, referenceScale);
    QFETCH(double, measuredScale);
    PointSets sets(79);
    for (int trial = 0; trial < 3; ++trial) {
        std::vector<double> references = sets.box(6, 1000), measured = sets.shuffled(references);
        for (double &value : references)
            value *= referenceScale;
        for (double &value : measured)
            value *= measuredScale;
        const PlainLoop loop(asPoints(references), asPoints(measured));
        AssignmentSearch search(asPoints(references), asPoints(measured));
        for (const AssignmentSearch::Result &result : {search.runTree({}), search.run({})}) {
            QCOMPARE(result.outcome == Outcome::Found, loop.found);
            QCOMPARE(result.order, loop.order);
        }
    }
}

void AssignmentSearchTest::shouldEndWhereTheTreeDoesNot_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("noise of the spacing") << 0;
    QTest::newRow("all wrong") << 1;
    QTest::newRow("half filled") << 2;
    QTest::newRow("inches") << 3;
}

void AssignmentSearchTest::shouldEndWhereTheTreeDoesNot()
{
    QFETCH(int, kind);
    PointSets sets(80);
    std::vector<double> values = sets.box(20, 1000);
    std::vector<double> measured =
        kind == 1 ? sets.box(20, 1000) : sets.moved(values, kind == 0 ? 200.0 : 0.3);
    if (kind == 2)
        std::fill(values.begin() + 30, values.end(), 0.0);
    for (double &value : values)
        value /= kind == 3 ? 25.4 : 1.0;
    measured = sets.shuffled(measured);
    AssignmentSearch search(asPoints(values), asPoints(measured));
    int left = 200;
    QVERIFY(search.runTree([&left]() { return left-- > 0; }).outcome == Outcome::Cancelled);
    const AssignmentSearch::Result result = search.run({});
    QVERIFY(result.outcome == Outcome::Found);
    const Rival rival = search.findRival(result, {});
    QVERIFY(rival == Rival::None || rival == Rival::Exists);
    // Nothing that exchanges two partners may be better.
    OrderFit fit(asPoints(values), asPoints(measured));
    PointOrder order = result.order;
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            std::swap(order[i], order[j]);
            const OrderFit::Result other = fit.fit(order);
            QVERIFY(!other.isValid() || static_cast<float>(other.rmsMm) >= result.bestMm);
            std::swap(order[i], order[j]);
        }
    }
}

void AssignmentSearchTest::shouldEndWhereTheBestOrdersAreNotValid_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("halfFilled");
    QTest::newRow("all wrong") << 1045U << 30 << false;
    QTest::newRow("half filled") << 1005U << 20 << true;
    QTest::newRow("half filled, others") << 1017U << 20 << true;
}

/// The refinements of many orders that fit a little better end without a result, so that many are within the
/// limit wherever a cell of rotations is cut.
void AssignmentSearchTest::shouldEndWhereTheBestOrdersAreNotValid()
{
    QFETCH(unsigned, seed);
    QFETCH(int, count);
    QFETCH(bool, halfFilled);
    PointSets sets(seed);
    std::vector<double> references = sets.box(count, 1000);
    const std::vector<double> measured = halfFilled ? sets.moved(references, 0.3) : sets.box(count, 1000);
    if (halfFilled)
        std::fill(references.begin() + 3 * (count / 2), references.end(), 0.0);
    AssignmentSearch search(asPoints(references), asPoints(sets.shuffled(measured)));
    int questions = 0;
    const AssignmentSearch::Result result = search.run([&questions]() { return ++questions < 2500; });
    QVERIFY2(result.outcome == Outcome::Found, qPrintable(QString::number(questions)));
}

/// Three measured points lie on a line exactly, and the references that they fit do not quite.
void AssignmentSearchTest::shouldGoOnWhereTheBestOrderCannotStart()
{
    PointSets sets(84);
    for (int trial = 0; trial < 5; ++trial) {
        MatchingPoints measured = asPoints(sets.box(7, 500));
        for (std::size_t i = 0; i < 3; ++i)
            measured[i] = {128.0 * static_cast<double>(i * i), 0.0, 0.0};
        MatchingPoints references = measured;
        references[1][1] = 1.0;
        const PlainLoop loop(references, measured);
        QVERIFY(loop.found && loop.best > 10.0F);
        AssignmentSearch search(references, measured);
        for (const AssignmentSearch::Result &result :
             {search.runTree({}), search.runRotations({}), search.run({})}) {
            QVERIFY(result.outcome == Outcome::Found);
            QCOMPARE(result.order, loop.order);
            QCOMPARE(result.bestMm, loop.best);
        }
    }
}

void AssignmentSearchTest::shouldAskWhileItLooksForAStart()
{
    std::vector<double> line;
    for (int i = 0; i < 200; ++i)
        line.insert(line.end(), {10.0 * i, 20.0 * i, 0.0});
    PointSets sets(81);
    AssignmentSearch search(asPoints(sets.box(200, 1000)), asPoints(line));
    int questions = 0;
    QVERIFY(search.run([&questions]() { return ++questions < 7; }).outcome == Outcome::Cancelled);
    QCOMPARE(questions, 7);
    QVERIFY(search.run({}).outcome == Outcome::NoValidOrder);
}

void AssignmentSearchTest::shouldRefuseMorePointsThanMemoryAllows()
{
    PointSets sets(82);
    const MatchingPoints list = asPoints(sets.box(static_cast<int>(AssignmentSearch::mostPoints) + 1, 1000));
    QVERIFY(AssignmentSearch(list, list).run({}).outcome == Outcome::TooManyPoints);
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
    constexpr int mostQuestions = 300;
    const std::clock_t begin = std::clock();
    int questions = 0;
    (void)search.run([&]() { return ++questions < mostQuestions; });
    QCOMPARE(questions, mostQuestions);
    const double secondsOfProcessor = double(std::clock() - begin) / CLOCKS_PER_SEC;
    QVERIFY2(secondsOfProcessor < mostQuestions * 0.1, qPrintable(QString::number(secondsOfProcessor)));
}

void AssignmentSearchTest::shouldStopTheSearchForARivalWhenToldSo()
{
    PointSets sets(77);
    AssignmentSearch search(asPoints(sets.box(12, 1000)), asPoints(sets.box(12, 1000)));
    const AssignmentSearch::Result result = search.run({});
    QVERIFY(result.outcome == Outcome::Found);
    QVERIFY(search.findRival(result, []() { return false; }) == Rival::Cancelled);
}

void AssignmentSearchTest::shouldKnowARivalWhereTwoPointsAreEqual_data()
{
    QTest::addColumn<bool>("inReferences");
    QTest::addColumn<bool>("inMeasured");
    QTest::newRow("no") << false << false;
    QTest::newRow("reference points") << true << false;
    QTest::newRow("measured points") << false << true;
    QTest::newRow("both") << true << true;
}

/// One of the two points lies far from where it is expected, so that nothing else fits as well.
void AssignmentSearchTest::shouldKnowARivalWhereTwoPointsAreEqual()
{
    QFETCH(bool, inReferences);
    QFETCH(bool, inMeasured);
    PointSets sets(83);
    for (int trial = 0; trial < 5; ++trial) {
        Shuffled sample(sets, sets.box(7, 1000), 0.0);
        if (inReferences)
            sample.references[6] = sample.references[5];
        if (inMeasured)
            sample.measured[6] = sample.measured[5];
        const PlainLoop loop(sample.references, sample.measured);
        AssignmentSearch search(sample.references, sample.measured);
        const AssignmentSearch::Result result = search.run({});
        QVERIFY(result.outcome == Outcome::Found);
        QCOMPARE(result.order, loop.order);
        QCOMPARE(result.bestMm, loop.best);
        QVERIFY(search.findRival(result, {}) == (inReferences || inMeasured ? Rival::Exists : Rival::None));
    }
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
