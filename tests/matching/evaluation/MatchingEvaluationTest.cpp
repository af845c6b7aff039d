#include "MatchingEvaluation.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

namespace
{

using Outcome = MatchingEvaluation::Outcome;
using Order = MatchingEvaluation::Order;

MatchingEvaluation evaluated(const MatchingPoints &references, const MatchingPoints &measured,
                             Order order = Order::Searched)
{
    return MatchingEvaluation::of(references, measured, order, {});
}

bool close(const bsVector &left, const MatchingPoint &right, double distanceMm)
{
    return (left - bsVector(right[0], right[1], right[2])).length() < distanceMm;
}

const MatchingPoints corner = {{0, 0, 0}, {1000, 0, 0}, {0, 500, 0}};

/// The corner turned by 90 degrees about z and moved, last point first.
const MatchingPoints cornerShuffled = {{-400, 200, 50}, {100, 200, 50}, {100, 1200, 50}};

} // namespace

class MatchingEvaluationTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldNeedThreeReferencePoints();
    void shouldNeedAsManyMeasuredPoints();
    void shouldFindTheOrderAndMapThePoints();
    void shouldMatchInTableOrderWithALargeResidual();
    void shouldReportACollinearStart();
    void shouldReportARefinementThatFails();
    void shouldReportThatNoOrderIsValid();
    void shouldSearchNoOrderOfTooManyPoints();
    void shouldReportACancelledSearch();
    void shouldKeepASureOrderWhenTheSearchForAnotherIsCancelled();
    void shouldHandOutTheRoomFromTheReference();
    void shouldNameTheWorstPair_data();
    void shouldNameTheWorstPair();
    void shouldMeasureTheWorstPairByTheMedian();
    void shouldNotNameAWorstPairForRounding();
    void shouldSayWhenAnotherOrderFits();
    void shouldNotLookForOtherOrdersInTableOrder();
    void shouldGiveTheResidualOfTheDistances();
};

void MatchingEvaluationTest::shouldNeedThreeReferencePoints()
{
    QVERIFY(evaluated({}, {}).outcome == Outcome::NotEnoughPoints);
    const MatchingEvaluation evaluation = evaluated({{0, 0, 0}, {1, 0, 0}}, corner);
    QVERIFY(evaluation.outcome == Outcome::NotEnoughPoints);
    QCOMPARE(evaluation.rmsMm, 0.0);
    QCOMPARE(evaluation.code, 0);
    QCOMPARE(evaluation.worstPair, -1);
    QVERIFY(!evaluation.otherOrderFits && !evaluation.otherOrdersUnknown);
}

void MatchingEvaluationTest::shouldNeedAsManyMeasuredPoints()
{
    QVERIFY(evaluated(corner, {}).outcome == Outcome::CountsDiffer);
    QVERIFY(evaluated(corner, {{0, 0, 0}, {1, 0, 0}}).outcome == Outcome::CountsDiffer);
    MatchingPoints more = corner;
    more.push_back({1, 2, 3});
    QVERIFY(evaluated(corner, more).outcome == Outcome::CountsDiffer);
}

void MatchingEvaluationTest::shouldFindTheOrderAndMapThePoints()
{
    const MatchingEvaluation evaluation = evaluated(corner, cornerShuffled);
    QVERIFY(evaluation.outcome == Outcome::Matched);
    QCOMPARE(evaluation.code, 0);
    QCOMPARE(evaluation.order, (PointOrder{1, 2, 0}));
    QVERIFY(evaluation.rmsMm < 1e-9);
    QCOMPARE(evaluation.mapped.size(), corner.size());
    for (std::size_t i = 0; i < corner.size(); ++i) {
        QVERIFY(evaluation.distancesMm[i] < 1e-9);
        QVERIFY(std::fabs(evaluation.mapped[i][0] - corner[i][0]) < 1e-9);
    }
    QVERIFY(!evaluation.otherOrderFits);
}

void MatchingEvaluationTest::shouldMatchInTableOrderWithALargeResidual()
{
    const MatchingEvaluation evaluation = evaluated(corner, cornerShuffled, Order::Preserved);
    QVERIFY(evaluation.outcome == Outcome::Matched);
    QCOMPARE(evaluation.order, (PointOrder{0, 1, 2}));
    QVERIFY(evaluation.rmsMm > 100.0);
}

void MatchingEvaluationTest::shouldReportACollinearStart()
{
    const MatchingPoints line = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 5, 0}};
    const MatchingPoints measured = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 5, 0}};
    const MatchingEvaluation evaluation = evaluated(line, measured, Order::Preserved);
    QVERIFY(evaluation.outcome == Outcome::StartFailed);
    QCOMPARE(evaluation.code, -1);
    QVERIFY(evaluation.order.empty());
}

void MatchingEvaluationTest::shouldReportARefinementThatFails()
{
    PointSets sets(91);
    int failed = 0;
    for (int trial = 0; trial < 50; ++trial) {
        const std::vector<double> values = sets.box(8, 1000);
        const MatchingEvaluation evaluation =
            evaluated(asPoints(values), asPoints(sets.shuffled(values)), Order::Preserved);
        if (evaluation.outcome != Outcome::RefinementFailed)
            continue;
        ++failed;
        QVERIFY(evaluation.code == -2 || evaluation.code == -3);
        QVERIFY(evaluation.mapped.empty());
    }
    QVERIFY(failed > 10);
}

void MatchingEvaluationTest::shouldReportThatNoOrderIsValid()
{
    const MatchingPoints line = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    QVERIFY(evaluated(line, corner).outcome == Outcome::NoValidOrder);
    QVERIFY(evaluated(corner, line).outcome == Outcome::NoValidOrder);
}

void MatchingEvaluationTest::shouldSearchNoOrderOfTooManyPoints()
{
    PointSets sets(87);
    const std::vector<double> values = sets.box(1001, 1000);
    const MatchingPoints references = asPoints(values), measured = asPoints(sets.moved(values, 0.3));
    const auto of = [&](MatchingEvaluation::Order order) {
        return MatchingEvaluation::of(references, measured, order, {}).outcome;
    };
    QVERIFY(of(MatchingEvaluation::Order::Searched) == Outcome::TooManyPoints);
    QVERIFY(of(MatchingEvaluation::Order::Preserved) == Outcome::Matched);
}

void MatchingEvaluationTest::shouldReportACancelledSearch()
{
    PointSets sets(92);
    const MatchingEvaluation evaluation = MatchingEvaluation::of(
        asPoints(sets.box(20, 1000)), asPoints(sets.box(20, 1000)), Order::Searched, []() { return false; });
    QVERIFY(evaluation.outcome == Outcome::Cancelled);
    QVERIFY(evaluation.order.empty());
    QVERIFY(!evaluation.roomFromReference.differs(bsMatrix::identityMatrix()));
}

void MatchingEvaluationTest::shouldKeepASureOrderWhenTheSearchForAnotherIsCancelled()
{
    PointSets sets(97);
    const std::vector<double> values = sets.box(12, 1000);
    const MatchingPoints references = asPoints(values),
                         measured = asPoints(sets.shuffled(sets.moved(values, 120)));
    const MatchingEvaluation whole = evaluated(references, measured);
    QVERIFY(whole.outcome == Outcome::Matched && !whole.otherOrdersUnknown && !whole.otherOrderFits);
    int cancelled = 0, unknown = 0;
    MatchingEvaluation cut;
    for (int questions = 0; cut.outcome != Outcome::Matched || cut.otherOrdersUnknown; ++questions) {
        int left = questions;
        cut = MatchingEvaluation::of(references, measured, Order::Searched, [&left]() { return left-- > 0; });
        cancelled += cut.outcome == Outcome::Cancelled ? 1 : 0;
        if (cut.outcome == Outcome::Cancelled)
            continue;
        unknown += cut.otherOrdersUnknown ? 1 : 0;
        QCOMPARE(cut.order, whole.order);
        QCOMPARE(cut.rmsMm, whole.rmsMm);
    }
    QVERIFY(cancelled > 10);
    QVERIFY(unknown > 10);
    QCOMPARE(cut.otherOrderFits, whole.otherOrderFits);
}

void MatchingEvaluationTest::shouldHandOutTheRoomFromTheReference()
{
    PointSets sets(93);
    for (int trial = 0; trial < 50; ++trial) {
        const std::vector<double> values = sets.box(7, 1000);
        const MatchingPoints references = asPoints(values), measured = asPoints(sets.moved(values, 0.1));
        const MatchingEvaluation evaluation = evaluated(references, measured);
        QVERIFY(evaluation.outcome == Outcome::Matched);
        for (std::size_t i = 0; i < references.size(); ++i) {
            const bsVector reference(references[i][0], references[i][1], references[i][2]);
            const auto partner = static_cast<std::size_t>(evaluation.order[i]);
            QVERIFY(close(evaluation.roomFromReference.transformPoint(reference), measured[partner], 1.0));
        }
        QCOMPARE(evaluation.roomFromReference.at(3, 3), 1.0);
        QCOMPARE(evaluation.roomFromReference.at(3, 0), 0.0);
    }
}

void MatchingEvaluationTest::shouldNameTheWorstPair_data()
{
    QTest::addColumn<double>("offMm");
    QTest::addColumn<int>("worst");
    QTest::newRow("none stands out") << 0.0 << -1;
    QTest::newRow("one stands out") << 30.0 << 4;
}

void MatchingEvaluationTest::shouldNameTheWorstPair()
{
    QFETCH(double, offMm);
    QFETCH(int, worst);
    PointSets sets(94);
    const std::vector<double> values = sets.box(20, 1000);
    MatchingPoints measured = asPoints(values);
    for (std::size_t i = 0; i < measured.size(); ++i)
        measured[i][i % 3] += i % 2 ? 0.5 : -0.5;
    measured[4][2] += offMm;
    QCOMPARE(evaluated(asPoints(values), measured).worstPair, worst);
    QCOMPARE(evaluated(asPoints(values), measured, Order::Preserved).worstPair, worst);
}

/// Where the points lie in the lists, and whether their number is even or odd, does not count.
void MatchingEvaluationTest::shouldMeasureTheWorstPairByTheMedian()
{
    PointSets sets(98);
    int named = 0, unnamed = 0;
    for (int trial = 0; trial < 300; ++trial) {
        const std::vector<double> values = sets.box(sets.integer(4, 9), 1000);
        MatchingPoints measured = asPoints(values);
        for (MatchingPoint &point : measured)
            point[2] += sets.noise(sets.integer(0, 2) == 0 ? 10.0 : 0.5);
        const MatchingEvaluation evaluation = evaluated(asPoints(values), measured, Order::Preserved);
        std::vector<double> ascending = evaluation.distancesMm;
        std::sort(ascending.begin(), ascending.end());
        const std::size_t half = ascending.size() / 2;
        const double median =
            ascending.size() % 2 == 1 ? ascending[half] : (ascending[half - 1] + ascending[half]) / 2.0;
        const bool standsOut = ascending.back() > 3.0 * median;
        QCOMPARE(evaluation.worstPair >= 0, standsOut);
        if (standsOut)
            QCOMPARE(evaluation.distancesMm[static_cast<std::size_t>(evaluation.worstPair)],
                     ascending.back());
        ++(standsOut ? named : unnamed);
    }
    QVERIFY(named > 30 && unnamed > 30);
}

void MatchingEvaluationTest::shouldNotNameAWorstPairForRounding()
{
    PointSets sets(95);
    for (int trial = 0; trial < 50; ++trial) {
        const std::vector<double> values = sets.box(9, 1000);
        QCOMPARE(evaluated(asPoints(values), asPoints(sets.moved(values, 0.0))).worstPair, -1);
    }
}

void MatchingEvaluationTest::shouldSayWhenAnotherOrderFits()
{
    const MatchingPoints square = {{0, 0, 0}, {400, 0, 0}, {400, 400, 0}, {0, 400, 0}};
    QVERIFY(evaluated(square, square).otherOrderFits);
    MatchingPoints known = square, measured = square;
    known.push_back({100, 0, 300});
    measured.push_back({100, 0, 300});
    QVERIFY(!evaluated(known, measured).otherOrderFits);
    // Two points so close that the noise decides.
    known.push_back({100, 0.02, 300});
    measured.push_back({100, 0.02, 300});
    QVERIFY(evaluated(known, measured).otherOrderFits);
}

void MatchingEvaluationTest::shouldNotLookForOtherOrdersInTableOrder()
{
    const MatchingPoints square = {{0, 0, 0}, {400, 0, 0}, {400, 400, 0}, {0, 400, 0}};
    QVERIFY(!evaluated(square, square, Order::Preserved).otherOrderFits);
}

void MatchingEvaluationTest::shouldGiveTheResidualOfTheDistances()
{
    PointSets sets(96);
    const std::vector<double> values = sets.box(15, 1000);
    const MatchingEvaluation evaluation =
        evaluated(asPoints(values), asPoints(sets.shuffled(sets.moved(values, 1))));
    double sum = 0.0;
    for (const double distance : evaluation.distancesMm)
        sum += distance * distance;
    QVERIFY(std::fabs(std::sqrt(sum / 15) - evaluation.rmsMm) < 1e-9);
    QVERIFY(evaluation.rmsMm > 0.5);
}

ROOM_TEST_CLASS(MatchingEvaluationTest)

#include "MatchingEvaluationTest.moc"
