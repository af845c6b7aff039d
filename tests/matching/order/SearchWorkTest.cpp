#include "AssignmentSearch.h"
#include "PointSets.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

namespace
{

using Search = AssignmentSearch::Result (AssignmentSearch::*)(const AssignmentSearch::GoOn &);

/// What makes the order hard to find.
enum class Kind {
    Fitting,
    SpacingNoise,
    SomeNoise,
    AllWrong,
    OneTwice,
    HalfFilled,
    HalfMoved,
    NeighboursClose,
    MostlyOnALine
};

std::vector<double> measuredAs(Kind kind, PointSets &sets, const std::vector<double> &references)
{
    if (kind == Kind::AllWrong)
        return sets.box(static_cast<int>(references.size() / 3), 1000);
    const double sigmaMm = kind == Kind::SpacingNoise ? 200.0 : kind == Kind::SomeNoise ? 50.0 : 0.3;
    std::vector<double> measured = sets.moved(references, sigmaMm);
    if (kind == Kind::OneTwice)
        std::copy_n(measured.begin(), 3, measured.begin() + 15);
    const bool halfMoved = kind == Kind::HalfMoved || kind == Kind::NeighboursClose;
    for (std::size_t i = 0; halfMoved && i < measured.size() / 2; i += 3)
        measured[i] += 300.0;
    for (std::size_t i = 6; kind == Kind::MostlyOnALine && i < measured.size(); ++i)
        measured[i] = i % 3 == 0 ? measured[i] : 0.0;
    return measured;
}

AssignmentSearch searchOf(Kind kind, int count)
{
    PointSets sets(711);
    std::vector<double> references = sets.box(count, 1000);
    const std::vector<double> measured = measuredAs(kind, sets, references);
    if (kind == Kind::HalfFilled)
        std::fill(references.begin() + 3 * (count / 2), references.end(), 0.0);
    if (kind == Kind::NeighboursClose) {
        std::copy_n(references.begin(), 3, references.begin() + 3);
        references[3] += 0.01;
    }
    return {asPoints(references), asPoints(sets.shuffled(measured))};
}

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Search)

/// How much work a search is, counted in its questions whether to go on: each stands for as many steps.
class SearchWorkTest : public QObject
{
    Q_OBJECT

private slots:
    /// More would be slower than it was, fewer would answer to Cancel later than it did.
    void shouldTakeTheStepsThatTheSetDeserves_data()
    {
        QTest::addColumn<Search>("walk");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("questions");
        const Search tree = &AssignmentSearch::runTree, rotations = &AssignmentSearch::runRotations,
                     both = &AssignmentSearch::run;
        QTest::newRow("tree, noise of the spacing") << tree << Kind::SpacingNoise << 12 << 63;
        QTest::newRow("rotations, half moved") << rotations << Kind::HalfMoved << 30 << 98;
        QTest::newRow("both, noise of the spacing") << both << Kind::SpacingNoise << 30 << 200;
        // What is counted depends on no locale, nor on who watches.
        if (!TestLoad::isFull())
            return;
        QTest::newRow("tree, all wrong") << tree << Kind::AllWrong << 12 << 31;
        QTest::newRow("tree, a point twice") << tree << Kind::OneTwice << 20 << 6;
        QTest::newRow("tree, half filled") << tree << Kind::HalfFilled << 8 << 4;
        QTest::newRow("tree, mostly on a line") << tree << Kind::MostlyOnALine << 9 << 7;
        QTest::newRow("tree, fitting") << tree << Kind::Fitting << 50 << 0;
        QTest::newRow("rotations, fitting") << rotations << Kind::Fitting << 30 << 66;
        QTest::newRow("rotations, many fitting") << rotations << Kind::Fitting << 105 << 5422;
        QTest::newRow("rotations, noise of the spacing") << rotations << Kind::SpacingNoise << 30 << 192;
        QTest::newRow("rotations, noise") << rotations << Kind::SomeNoise << 50 << 284;
        QTest::newRow("rotations, all wrong") << rotations << Kind::AllWrong << 30 << 208;
        QTest::newRow("rotations, a point twice") << rotations << Kind::OneTwice << 50 << 271;
        QTest::newRow("rotations, half filled") << rotations << Kind::HalfFilled << 30 << 192;
        QTest::newRow("both, noise") << both << Kind::SomeNoise << 50 << 295;
        QTest::newRow("both, a point twice") << both << Kind::OneTwice << 50 << 281;
        QTest::newRow("both, half moved") << both << Kind::HalfMoved << 50 << 389;
    }
    void shouldTakeTheStepsThatTheSetDeserves()
    {
        // GIVEN
        QFETCH(Search, walk);
        QFETCH(Kind, kind);
        QFETCH(int, count);
        QFETCH(int, questions);
        AssignmentSearch search = searchOf(kind, count);
        int asked = 0;
        // WHEN
        const AssignmentSearch::Result result = (search.*walk)([&asked] { return ++asked < 20000; });
        // THEN
        QVERIFY(result.outcome == AssignmentSearch::Outcome::Found);
        QVERIFY2(std::abs(asked - questions) <= questions / 20, qPrintable(QString::number(asked)));
    }

    void shouldLookForARivalAsLongAsTheSetDeserves_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("questions");
        QTest::addColumn<bool>("exists");
        QTest::newRow("fitting") << Kind::Fitting << 50 << 0 << false;
        QTest::newRow("noise of the spacing") << Kind::SpacingNoise << 50 << 12 << true;
        if (!TestLoad::isFull())
            return;
        QTest::newRow("noise") << Kind::SomeNoise << 30 << 20 << true;
        QTest::newRow("more noise") << Kind::SomeNoise << 50 << 16 << true;
        QTest::newRow("half moved") << Kind::HalfMoved << 20 << 53 << false;
        QTest::newRow("two neighbours close") << Kind::NeighboursClose << 20 << 7 << true;
        QTest::newRow("more half moved") << Kind::HalfMoved << 30 << 13 << true;
    }
    void shouldLookForARivalAsLongAsTheSetDeserves()
    {
        // GIVEN
        QFETCH(Kind, kind);
        QFETCH(int, count);
        QFETCH(int, questions);
        QFETCH(bool, exists);
        AssignmentSearch search = searchOf(kind, count);
        const AssignmentSearch::Result found = search.run({});
        int asked = 0;
        // WHEN
        const AssignmentSearch::Rival rival = search.findRival(found, [&asked] { return ++asked < 20000; });
        // THEN
        QVERIFY(rival == (exists ? AssignmentSearch::Rival::Exists : AssignmentSearch::Rival::None));
        QVERIFY2(std::abs(asked - questions) <= questions / 20, qPrintable(QString::number(asked)));
    }

    /// Both ways go through all orders that may be the best.
    void shouldEndAtTheSameOrderBothWays_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<int>("count");
        QTest::newRow("fitting") << Kind::Fitting << 30;
        QTest::newRow("noise of the spacing") << Kind::SpacingNoise << 12;
        QTest::newRow("noise") << Kind::SomeNoise << 20;
        QTest::newRow("all wrong") << Kind::AllWrong << 12;
        QTest::newRow("a point twice") << Kind::OneTwice << 20;
        QTest::newRow("half moved") << Kind::HalfMoved << 12;
    }
    void shouldEndAtTheSameOrderBothWays()
    {
        // GIVEN
        QFETCH(Kind, kind);
        QFETCH(int, count);
        AssignmentSearch search = searchOf(kind, count);
        // WHEN
        const AssignmentSearch::Result byTree = search.runTree({}), byRotations = search.runRotations({});
        // THEN
        QVERIFY(byTree.outcome == AssignmentSearch::Outcome::Found);
        QCOMPARE(byRotations.order, byTree.order);
        QCOMPARE(byRotations.bestMm, byTree.bestMm);
    }
};

ROOM_TEST_CLASS(SearchWorkTest)
#include "SearchWorkTest.moc"
