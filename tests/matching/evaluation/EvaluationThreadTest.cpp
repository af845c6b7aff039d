#include "EvaluationThread.h"
#include "TestRegistry.h"

#include <QDir>
#include <QSet>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

#include <cmath>
#include <random>

using Order = MatchingEvaluation::Order;
using Outcome = MatchingEvaluation::Outcome;

namespace
{

MatchingPoints points(std::size_t count, unsigned seed)
{
    std::minstd_rand random(seed);
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    MatchingPoints list(count);
    for (MatchingPoint &point : list)
        point = {coordinate(random), coordinate(random), coordinate(random)};
    return list;
}

/// Points so far away that rounding leaves no order less likely than the others: a search for theirs does not
/// end.
MatchingPoints farAway(std::size_t count)
{
    MatchingPoints list = points(count, 2);
    for (MatchingPoint &point : list)
        point[0] += 1e15;
    return list;
}

/// The numbers of the program's threads. One that has ended stays among them for a moment.
QSet<QString> threads()
{
    const QStringList names =
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return {names.begin(), names.end()};
}

} // namespace

class EvaluationThreadTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAnswerAtOnceWhatIsQuick();
    void shouldMapTheMeasuredPointsToTheReferences();
    void shouldGoOnWithWhatTakesLong();
    void shouldGoOnWithLongListsInTheirOrder();
    void shouldForgetACancelledRun();
    void shouldReplaceARunByTheNext();
    void shouldEndWithItsOwner();
};

void EvaluationThreadTest::shouldAnswerAtOnceWhatIsQuick()
{
    EvaluationThread run;
    const MatchingPoints list = points(12, 1);
    const auto evaluation = run.start(list, list, Order::Searched);
    QVERIFY(evaluation.has_value());
    QCOMPARE(evaluation->outcome, Outcome::Matched);
    QVERIFY(!run.isRunning());
    QCOMPARE(run.start({}, {}, Order::Preserved)->outcome, Outcome::NotEnoughPoints);
}

void EvaluationThreadTest::shouldMapTheMeasuredPointsToTheReferences()
{
    EvaluationThread run;
    const MatchingPoints references = points(5, 3);
    MatchingPoints measured = references;
    for (MatchingPoint &point : measured)
        point[0] += 500.0;
    const auto evaluation = run.start(references, measured, Order::Preserved);
    QVERIFY(evaluation.has_value());
    QCOMPARE(evaluation->mapped.size(), references.size());
    for (std::size_t i = 0; i < references.size(); ++i)
        QVERIFY(std::abs(evaluation->mapped[i][0] - references[i][0]) < 1e-6);
}

void EvaluationThreadTest::shouldGoOnWithWhatTakesLong()
{
    EvaluationThread run;
    std::vector<MatchingEvaluation> results;
    connect(&run, &EvaluationThread::finished, this, [&](const MatchingEvaluation &evaluation) {
        QCOMPARE(QThread::currentThread(), thread());
        QVERIFY(!run.isRunning());
        results.push_back(evaluation);
    });
    // The number of points for which unrelated sets take longer than a moment depends on the machine.
    for (std::size_t count = 40; count < 200; count += 40) {
        const auto evaluation = run.start(points(count, 1), points(count, 2), Order::Searched);
        if (evaluation)
            continue;
        QVERIFY(run.isRunning());
        QTRY_VERIFY_WITH_TIMEOUT(!results.empty(), 120000);
        QVERIFY(results.front().outcome == Outcome::Matched ||
                results.front().outcome == Outcome::NoValidOrder);
        return;
    }
    QFAIL("no search took long");
}

void EvaluationThreadTest::shouldGoOnWithLongListsInTheirOrder()
{
    EvaluationThread run;
    std::vector<MatchingEvaluation> results;
    connect(&run, &EvaluationThread::finished, this,
            [&](const MatchingEvaluation &evaluation) { results.push_back(evaluation); });
    constexpr std::size_t count = 10001;
    MatchingPoints list = points(count, 1), measured = list;
    for (MatchingPoint &point : measured)
        point[0] += 500.0;
    QVERIFY(!run.start(list, measured, Order::Preserved));
    QVERIFY(run.isRunning());
    QTRY_COMPARE(results.size(), std::size_t{1});
    QCOMPARE(results.front().outcome, Outcome::Matched);
    QCOMPARE(results.front().order.size(), count);
    QVERIFY(std::abs(results.front().mapped.front()[0] - list.front()[0]) < 1e-6);
    // What is refused is told at once.
    QCOMPARE(run.start(list, points(count + 1, 1), Order::Preserved)->outcome, Outcome::CountsDiffer);
    QCOMPARE(run.start(list, list, Order::Searched)->outcome, Outcome::TooManyPoints);
    // So is a list that is only just not long.
    list.pop_back();
    QCOMPARE(run.start(list, list, Order::Preserved)->outcome, Outcome::Matched);
}

void EvaluationThreadTest::shouldForgetACancelledRun()
{
    EvaluationThread run;
    QSignalSpy finished(&run, &EvaluationThread::finished);
    QVERIFY(!run.start(points(30, 1), farAway(30), Order::Searched));
    QCOMPARE(run.cancel().outcome, Outcome::Cancelled); // it would never end by itself
    QVERIFY(!run.isRunning());
    QCoreApplication::processEvents();
    QVERIFY(finished.isEmpty());
    QCOMPARE(run.cancel().outcome, Outcome::Cancelled);
}

void EvaluationThreadTest::shouldReplaceARunByTheNext()
{
    EvaluationThread run;
    QSignalSpy finished(&run, &EvaluationThread::finished);
    QVERIFY(!run.start(points(30, 1), farAway(30), Order::Searched));
    const MatchingPoints list = points(5, 1);
    QCOMPARE(run.start(list, list, Order::Searched)->outcome, Outcome::Matched);
    QVERIFY(!run.isRunning());
    QCoreApplication::processEvents();
    QVERIFY(finished.isEmpty());
}

void EvaluationThreadTest::shouldEndWithItsOwner()
{
    const QSet<QString> before = threads();
    QSet<QString> begun;
    {
        EvaluationThread run;
        QVERIFY(!run.start(points(30, 1), farAway(30), Order::Searched));
        begun = threads() - before;
        QCOMPARE(begun.size(), 1);
    }
    QTRY_VERIFY(!threads().intersects(begun)); // it would never end by itself
}

ROOM_TEST_CLASS(EvaluationThreadTest)

#include "EvaluationThreadTest.moc"
