#include "SetHints.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace
{

using Factor = SetHints::Factor;
using Larger = SetHints::Larger;
using Values = std::vector<double>;

Values scaled(Values values, double factor)
{
    for (double &value : values)
        value *= factor;
    return values;
}

Values mirrored(Values values)
{
    for (std::size_t i = 1; i < values.size(); i += 3)
        values[i] = -values[i];
    return values;
}

/// A rectangle of three rows of four points, row by row: the first three lie on a line.
MatchingPoints rowByRow()
{
    MatchingPoints points;
    for (const double y : {0.0, 200.0, 400.0}) {
        for (const double x : {0.0, 150.0, 300.0, 450.0})
            points.push_back({x, y, 0.0});
    }
    return points;
}

/// The same points in an order whose first three do not.
MatchingPoints withACornerFirst()
{
    MatchingPoints points = rowByRow();
    std::swap(points[1], points[11]);
    return points;
}

Values flattened(Values values)
{
    for (std::size_t i = 2; i < values.size(); i += 3)
        values[i] = 0.0;
    return values;
}

} // namespace

Q_DECLARE_METATYPE(SetHints::Factor)
Q_DECLARE_METATYPE(MatchingPoints)

class SetHintsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayNothingOfPointsThatMatch_data();
    void shouldSayNothingOfPointsThatMatch();
    void shouldTellTheFactorBetweenTheSizes_data();
    void shouldTellTheFactorBetweenTheSizes();
    void shouldNotCompareTheSizesOfListsOfDifferentLength();
    void shouldRecogniseTheMirrorImage_data();
    void shouldRecogniseTheMirrorImage();
    void shouldWeighTheMisfitOfAMirrorImageByTheReferences();
    void shouldNotTakeForMirroredWhatFitsBothWays_data();
    void shouldNotTakeForMirroredWhatFitsBothWays();
    void shouldNotTakeForMirroredWhatCannotBegin_data();
    void shouldNotTakeForMirroredWhatCannotBegin();
    void shouldRecogniseTheMirrorImageOfPointsThatBeginOnALine();
    void shouldRecogniseTheMirrorImageWhereItGaveUpOnAllOthers();
    void shouldFindAPointThatWasMeasuredTwice();
    void shouldLeavePointsAloneThatAreMeantToBeClose();
    void shouldNotTakeARepeatedReferencePointForACloseOne();
    void shouldCountTheRowsThatAreStillZero();
    void shouldSayNothingOfCoordinatesThatAreNotFinite();
    void shouldKnowTheValuesOfTheFactors();
};

void SetHintsTest::shouldSayNothingOfPointsThatMatch_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 2, 3, 4, 6, 10, 20, 50, 100, 300})
        QTest::addRow("%d points", count) << count;
}

void SetHintsTest::shouldSayNothingOfPointsThatMatch()
{
    QFETCH(int, count);
    PointSets sets(301);
    for (int trial = 0; trial < 10; ++trial) {
        const Values references = sets.box(count, 3000);
        const SetHints hints =
            SetHints::of(asPoints(references), asPoints(sets.shuffled(sets.moved(references, 0.5))));
        QVERIFY(!hints.any());
    }
}

void SetHintsTest::shouldTellTheFactorBetweenTheSizes_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<SetHints::Factor>("expected");
    QTest::newRow("centimetres") << 10.0 << Factor::Ten;
    QTest::newRow("inches") << 25.4 << Factor::Inch;
    QTest::newRow("decimetres") << 100.0 << Factor::Hundred;
    QTest::newRow("metres") << 1000.0 << Factor::Thousand;
    QTest::newRow("no unit") << 17.0 << Factor::None;
    QTest::newRow("next to none") << 1.1 << Factor::None;
    QTest::newRow("feet") << 304.8 << Factor::None;
}

void SetHintsTest::shouldTellTheFactorBetweenTheSizes()
{
    QFETCH(double, factor);
    QFETCH(SetHints::Factor, expected);
    PointSets sets(302);
    for (const int count : {2, 3, 5, 20, 60}) {
        const Values values = sets.box(count, 1500);
        const MatchingPoints large = asPoints(sets.shuffled(sets.moved(values, 2)));
        const MatchingPoints small = asPoints(scaled(values, 1.0 / factor));
        const SetHints referencesSmall = SetHints::of(small, large),
                       measuredSmall = SetHints::of(large, small);
        QVERIFY(referencesSmall.factor == expected);
        QVERIFY(measuredSmall.factor == expected);
        if (expected == Factor::None)
            continue;
        QVERIFY(referencesSmall.larger == Larger::Measured);
        QVERIFY(measuredSmall.larger == Larger::References);
        QVERIFY(!referencesSmall.mirrored && referencesSmall.sameMeasured == -1);
    }
}

void SetHintsTest::shouldNotCompareTheSizesOfListsOfDifferentLength()
{
    PointSets sets(303);
    const Values values = sets.box(9, 1500);
    MatchingPoints small = asPoints(scaled(values, 0.1));
    small.pop_back();
    QVERIFY(SetHints::of(asPoints(values), small).factor == Factor::None);
}

void SetHintsTest::shouldRecogniseTheMirrorImage_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {4, 5, 8, 20, 50, 100})
        QTest::addRow("%d points", count) << count;
}

void SetHintsTest::shouldRecogniseTheMirrorImage()
{
    QFETCH(int, count);
    PointSets sets(304);
    int recognised = 0;
    for (int trial = 0; trial < 20; ++trial) {
        const Values references = sets.box(count, 2000);
        const Values measured = sets.shuffled(sets.moved(references, 0.3));
        QVERIFY(!SetHints::of(asPoints(references), asPoints(measured)).mirrored);
        recognised += SetHints::of(asPoints(references), asPoints(mirrored(measured))).mirrored ? 1 : 0;
    }
    // Four or five points are nearly flat at times.
    QVERIFY2(recognised >= (count < 8 ? 15 : 20), qPrintable(QString::number(recognised)));
}

void SetHintsTest::shouldWeighTheMisfitOfAMirrorImageByTheReferences()
{
    // A list that is larger by a factor misses by that share of its extent less one; a fiftieth of the
    // references' own extent is allowed.
    PointSets sets(307);
    for (int trial = 0; trial < 10; ++trial) {
        const Values references = sets.box(10, 2000);
        const auto isMirrored = [&](double factor) {
            return SetHints::of(asPoints(references), asPoints(scaled(mirrored(references), factor)))
                .mirrored;
        };
        QVERIFY(isMirrored(1.0198));
        QVERIFY(!isMirrored(1.0202));
        QVERIFY(isMirrored(0.9802));
        QVERIFY(!isMirrored(0.9798));
    }
}

void SetHintsTest::shouldNotTakeForMirroredWhatFitsBothWays_data()
{
    QTest::addColumn<MatchingPoints>("references");
    PointSets sets(305);
    QTest::newRow("triangle") << asPoints(sets.box(3, 1000));
    QTest::newRow("flat") << asPoints(flattened(sets.box(12, 1000)));
    Values cube;
    for (int i = 0; i < 8; ++i)
        cube.insert(cube.end(), {i & 1 ? 400.0 : 0.0, i & 2 ? 400.0 : 0.0, i & 4 ? 400.0 : 0.0});
    QTest::newRow("cube") << asPoints(cube);
    QTest::newRow("one place") << MatchingPoints(5, {300, 200, 100});
    QTest::newRow("line") << MatchingPoints{{0, 0, 0}, {100, 0, 0}, {250, 0, 0}, {700, 0, 0}};
}

void SetHintsTest::shouldNotTakeForMirroredWhatFitsBothWays()
{
    QFETCH(MatchingPoints, references);
    MatchingPoints measured = references;
    for (MatchingPoint &point : measured)
        point[2] = 50.0 - point[2];
    QVERIFY(!SetHints::of(references, measured).mirrored);
}

void SetHintsTest::shouldNotTakeForMirroredWhatCannotBegin_data()
{
    QTest::addColumn<MatchingPoints>("references");
    QTest::addColumn<MatchingPoints>("measured");
    QTest::newRow("references that begin on a line") << rowByRow() << withACornerFirst();
    QTest::newRow("measured points that do") << withACornerFirst() << rowByRow();
    QTest::newRow("both") << rowByRow() << rowByRow();
}

void SetHintsTest::shouldNotTakeForMirroredWhatCannotBegin()
{
    QFETCH(MatchingPoints, references);
    QFETCH(MatchingPoints, measured);
    QVERIFY(!SetHints::of(references, measured).any());
}

void SetHintsTest::shouldRecogniseTheMirrorImageOfPointsThatBeginOnALine()
{
    const MatchingPoints references = {{0, 0, 0}, {500, 0, 0}, {0, 400, 0}, {250, 0, 0}, {0, 0, 300}};
    const MatchingPoints measured = {{0, 0, 0}, {-250, 0, 0}, {-500, 0, 0}, {0, 0, 300}, {0, 400, 0}};
    QVERIFY(SetHints::of(references, measured).mirrored);
}

/// Four heaps of eight points: the heaps fit in their places only when mirrored. In each the points have so
/// many orders that the search for one which fits without a mirror gives up.
void SetHintsTest::shouldRecogniseTheMirrorImageWhereItGaveUpOnAllOthers()
{
    const MatchingPoints places = {{0, 0, 0}, {1000, 0, 0}, {0, 1400, 0}, {0, 0, 1900}};
    MatchingPoints references, measured;
    for (int corner = 0; corner < 8; ++corner) {
        for (const MatchingPoint &place : places) {
            references.push_back({place[0] + 30.0 * (corner & 1), place[1] + 30.0 * (corner >> 1 & 1),
                                  place[2] + 30.0 * (corner >> 2)});
            measured.push_back({-references.back()[0], references.back()[1], references.back()[2]});
        }
    }
    QVERIFY(SetHints::of(references, measured).mirrored);
}

void SetHintsTest::shouldFindAPointThatWasMeasuredTwice()
{
    PointSets sets(306);
    for (const double apartMm : {0.0, 0.4, 2.0}) {
        const Values references = sets.box(12, 1500);
        MatchingPoints measured = asPoints(sets.shuffled(sets.moved(references, 0.3)));
        measured[9] = measured[4];
        measured[9][1] += apartMm;
        const SetHints hints = SetHints::of(asPoints(references), measured);
        QCOMPARE(hints.sameMeasured, 4);
        QCOMPARE(hints.sameMeasuredToo, 9);
        QVERIFY(hints.any() && !hints.mirrored);
        // It may be the first of the list.
        std::swap(measured[0], measured[4]);
        QCOMPARE(SetHints::of(asPoints(references), measured).sameMeasured, 0);
        QVERIFY(SetHints::of(asPoints(references), measured).any());
        // Already while points are still missing.
        measured.pop_back();
        QCOMPARE(SetHints::of(asPoints(references), measured).sameMeasuredToo, 9);
    }
}

void SetHintsTest::shouldLeavePointsAloneThatAreMeantToBeClose()
{
    const MatchingPoints references = {{0, 0, 0}, {2, 0, 0}, {500, 0, 0}, {0, 700, 0}};
    MatchingPoints measured = references;
    QCOMPARE(SetHints::of(references, measured).sameMeasured, -1);
    QCOMPARE(SetHints::of(references, measured).sameMeasuredToo, -1);
    measured[3] = {500, 0.1, 0};
    QCOMPARE(SetHints::of(references, measured).sameMeasured, 2);
    QCOMPARE(SetHints::of(references, measured).sameMeasuredToo, 3);
}

void SetHintsTest::shouldNotTakeARepeatedReferencePointForACloseOne()
{
    const MatchingPoints measured = {{0, 0, 0}, {500, 0, 0}, {0, 700, 0}, {0, 700, 1}, {0, 0, 900}};
    MatchingPoints references = {{10, 0, 0}, {500, 0, 0}, {10, 0, 0}, {0, 700, 0}, {10, 0, 0}};
    QCOMPARE(SetHints::of(references, measured).sameMeasured, 2);
    QCOMPARE(SetHints::of(references, measured).sameMeasuredToo, 3);
    references[2] = {10, 0, 1.5};
    QCOMPARE(SetHints::of(references, measured).sameMeasured, -1);
}

void SetHintsTest::shouldCountTheRowsThatAreStillZero()
{
    const MatchingPoints measured = {{1, 2, 3}, {400, 5, 6}, {7, 800, 9}, {50, 60, 700}};
    MatchingPoints references = measured;
    references[2] = {0, 0, 0};
    QCOMPARE(SetHints::of(references, measured).zeroReferences, 1);
    QVERIFY(!SetHints::of(references, measured).any());
    references[3] = {0, -0.0, 0};
    QCOMPARE(SetHints::of(references, measured).zeroReferences, 2);
    QVERIFY(SetHints::of(references, measured).any());
    QCOMPARE(SetHints::of(references, {}).zeroReferences, 2);
}

void SetHintsTest::shouldSayNothingOfCoordinatesThatAreNotFinite()
{
    MatchingPoints references(5, MatchingPoint{0, 0, 0}), measured = references;
    QVERIFY(SetHints::of(references, measured).any());
    measured[2][1] = std::numeric_limits<double>::infinity();
    QVERIFY(!SetHints::of(references, measured).any());
    references[0][0] = std::nan("");
    QVERIFY(!SetHints::of(references, {}).any());
}

void SetHintsTest::shouldKnowTheValuesOfTheFactors()
{
    QCOMPARE(SetHints::valueOf(Factor::None), 1.0);
    QCOMPARE(SetHints::valueOf(Factor::Ten), 10.0);
    QCOMPARE(SetHints::valueOf(Factor::Inch), 25.4);
    QCOMPARE(SetHints::valueOf(Factor::Hundred), 100.0);
    QCOMPARE(SetHints::valueOf(Factor::Thousand), 1000.0);
}

ROOM_TEST_CLASS(SetHintsTest)

#include "SetHintsTest.moc"
