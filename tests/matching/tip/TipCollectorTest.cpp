#include "TipCollector.h"
#include "TestRegistry.h"

#include <QObject>
#include <QtTest>

#include <cmath>
#include <limits>

using Outcome = TipCollector::Outcome;

class TipCollectorTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheMeanOfAStillTip();
    void shouldJudgeByTheStandardDeviationInSpace();
    void shouldAcceptASpreadOfExactlyTheTolerance();
    void shouldRejectATipThatMoved();
    void shouldTellAnEarlyEnd();
    void shouldGiveNothingWithoutSamples();
    void shouldGiveNothingWhileNoTimePassed();
    void shouldTakeOneSampleForADurationOfZero();
    void shouldGiveNothingWhenTheTimeRunsBackwards();
    void shouldNotAcceptNumbersThatAreNone();
    void shouldBeginAnewAfterTheJudgement();
    void shouldKeepAPlausibleMeanForManySamplesFarAway();
};

void TipCollectorTest::shouldGiveTheMeanOfAStillTip()
{
    TipCollector tip;
    tip.add(10.0, {1, 2, 3});
    QCOMPARE(tip.elapsed(), 0.0);
    tip.add(10.5, {2, 2, 3});
    tip.add(11.0, {3, 2, 3});
    QCOMPARE(tip.elapsed(), 1.0);
    QCOMPARE(tip.count(), std::size_t(3));
    const TipCollector::Judgement result = tip.finish(1.0, 1.5);
    QCOMPARE(result.outcome, Outcome::Point);
    QCOMPARE(result.mean, (MatchingPoint{2, 2, 3}));
}

void TipCollectorTest::shouldJudgeByTheStandardDeviationInSpace()
{
    // Two points at distance 2 * (1, 2, 2): each is 3 mm from the mean.
    TipCollector tip;
    tip.add(0.0, {1, 2, 2});
    tip.add(2.0, {-1, -2, -2});
    const TipCollector::Judgement result = tip.finish(1.0, 5.0);
    QCOMPARE(result.variance, 9.0);
    QCOMPARE(result.standardDeviation, 3.0);
    QCOMPARE(result.outcome, Outcome::Point);
}

void TipCollectorTest::shouldAcceptASpreadOfExactlyTheTolerance()
{
    TipCollector tip;
    tip.add(0.0, {1.5, 0, 0});
    tip.add(1.0, {-1.5, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::Point);
}

void TipCollectorTest::shouldRejectATipThatMoved()
{
    TipCollector tip;
    tip.add(0.0, {1.6, 0, 0});
    tip.add(1.0, {-1.6, 0, 0});
    const TipCollector::Judgement result = tip.finish(1.0, 1.5);
    QCOMPARE(result.outcome, Outcome::TipMoved);
    QVERIFY(std::fabs(result.variance - 2.56) < 1e-12);
    QVERIFY(std::fabs(result.standardDeviation - 1.6) < 1e-12);
}

void TipCollectorTest::shouldTellAnEarlyEnd()
{
    TipCollector tip;
    tip.add(0.0, {0, 0, 0});
    tip.add(0.9, {0, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::EndedEarly);
}

void TipCollectorTest::shouldGiveNothingWithoutSamples()
{
    TipCollector tip;
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::Nothing);
    QCOMPARE(tip.finish(0.0, 1.5).outcome, Outcome::Nothing);
    QCOMPARE(tip.finish(-1.0, 1.5).outcome, Outcome::Nothing);
}

void TipCollectorTest::shouldGiveNothingWhileNoTimePassed()
{
    TipCollector tip;
    tip.add(5.0, {0, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::Nothing);
}

void TipCollectorTest::shouldTakeOneSampleForADurationOfZero()
{
    TipCollector tip;
    tip.add(5.0, {1, 2, 3});
    const TipCollector::Judgement result = tip.finish(0.0, 0.0);
    QCOMPARE(result.outcome, Outcome::Point);
    QCOMPARE(result.mean, (MatchingPoint{1, 2, 3}));
    QCOMPARE(result.variance, 0.0);
}

void TipCollectorTest::shouldGiveNothingWhenTheTimeRunsBackwards()
{
    TipCollector tip;
    tip.add(5.0, {0, 0, 0});
    tip.add(4.0, {0, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::Nothing);
}

void TipCollectorTest::shouldNotAcceptNumbersThatAreNone()
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    TipCollector tip;
    tip.add(0.0, {0, none, 0});
    tip.add(1.0, {0, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::TipMoved);
    tip.add(none, {0, 0, 0});
    tip.add(1.0, {0, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::Nothing);
}

void TipCollectorTest::shouldBeginAnewAfterTheJudgement()
{
    TipCollector tip;
    tip.add(0.0, {0, 0, 0});
    tip.add(1.0, {100, 0, 0});
    QCOMPARE(tip.finish(1.0, 1.5).outcome, Outcome::TipMoved);
    QCOMPARE(tip.count(), std::size_t(0));
    QCOMPARE(tip.elapsed(), 0.0);
    tip.add(10.0, {1, 1, 1});
    tip.add(11.0, {1, 1, 1});
    QCOMPARE(tip.finish(1.0, 1.5).mean, (MatchingPoint{1, 1, 1}));
}

void TipCollectorTest::shouldKeepAPlausibleMeanForManySamplesFarAway()
{
    TipCollector tip;
    for (int i = 0; i < 600; ++i)
        tip.add(i / 60.0, {5000.0 + (i % 2 == 0 ? 0.25 : -0.25), -3000.0, 1e5});
    const TipCollector::Judgement result = tip.finish(1.0, 1.5);
    QCOMPARE(result.outcome, Outcome::Point);
    QVERIFY(std::fabs(result.mean[0] - 5000.0) < 1e-9);
    QVERIFY(std::fabs(result.standardDeviation - 0.25) < 1e-9);
}

ROOM_TEST_CLASS(TipCollectorTest)

#include "TipCollectorTest.moc"
