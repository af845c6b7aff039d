#include "RecordLine.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>
#include <limits>

namespace
{

/// The id of the record at a place of the kind's list.
using Ids = std::function<int(const VelmarParser &, int)>;

} // namespace

Q_DECLARE_METATYPE(Ids)

class VelmarParserDamageTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFailForANullCursor();
    void shouldFailForAnUnknownKind_data();
    void shouldFailForAnUnknownKind();
    void shouldFailForADamagedBodyLine_data();
    void shouldFailForADamagedBodyLine();
    void shouldKeepTheBodiesReadBeforeTheDamage();
    void shouldClearTheFlagsBeforeTheDamage();
    void shouldFailWhenAnyBlockIsDamaged_data();
    void shouldFailWhenAnyBlockIsDamaged();
    void shouldHoldCountsAboveTheCapOff_data();
    void shouldHoldCountsAboveTheCapOff();
    void shouldTakeACountAtTheCap();
    void shouldTakeANegativeCountForNone_data();
    void shouldTakeANegativeCountForNone();
    void shouldRefuseIdsOutsideTheCap_data();
    void shouldRefuseIdsOutsideTheCap();
    void shouldTakeAnyIdOfAKindWithoutARuleForIds_data();
    void shouldTakeAnyIdOfAKindWithoutARuleForIds();
    void shouldSaturateIntegers();
    void shouldGiveNullOutsideAList();
    void shouldReadNotANumberAndInfinityAsTheyAre();
};

void VelmarParserDamageTest::shouldFailForANullCursor()
{
    VelmarParser parser;
    QCOMPARE(parser.parseLine(nullptr), 0);
    char *nothing = nullptr;
    QCOMPARE(parser.parseLine(&nothing), 0);
}

void VelmarParserDamageTest::shouldFailForAnUnknownKind_data()
{
    QTest::addColumn<QByteArray>("line");
    for (const char *line :
         {"6dx 1", "6d", "fr", "fr1", " fr 1", "FR 1", "6dmt", "6dmt3 0", "", "x", "6dfr 0"})
        QTest::newRow(line[0] ? line : "empty") << QByteArray(line);
}

void VelmarParserDamageTest::shouldFailForAnUnknownKind()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QCOMPARE(parse(parser, line), 0);
}

void VelmarParserDamageTest::shouldFailForADamagedBodyLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("no count") << QByteArray("6d x");
    QTest::newRow("fewer records than counted") << "6d 2 [0 1.0][1 2 3]" + unitRotation;
    QTest::newRow("closing bracket missing at the end")
        << QByteArray("6d 1 [0 1.0][1 2 3][1 0 0 0 1 0 0 0 1");
    QTest::newRow("a number missing") << QByteArray("6d 1 [0 1.0][1 2 3][1 0 0 0 1 0 0 0]");
    QTest::newRow("a word for a number") << "6d 1 [0 1.0][1 two 3]" + unitRotation;
}

void VelmarParserDamageTest::shouldFailForADamagedBodyLine()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QCOMPARE(parse(parser, line), 0);
}

void VelmarParserDamageTest::shouldKeepTheBodiesReadBeforeTheDamage()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6d 2 [0 1.0][1 2 3]" + unitRotation + " [1 1.0][4 5"), 0);
    QCOMPARE(parser.bodyCount(), 2);
    QCOMPARE(parser.body(0)->location, (RecordLocation{1, 2, 3}));
    QCOMPARE(parser.body(1)->quality, 1.0);
    QCOMPARE(parser.body(1)->location, RecordLocation());
}

void VelmarParserDamageTest::shouldClearTheFlagsBeforeTheDamage()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dmt2 1 " + tool2("[0 1.0 2 2.5]", "[1 1]")), 1);
    QCOMPARE(parse(parser, "6dmt2 1 [0 1.0 2 2.5][1 2"), 0);
    QCOMPARE(parser.measurementTool(0)->flags, RecordButtons());
}

void VelmarParserDamageTest::shouldFailWhenAnyBlockIsDamaged_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QList<QByteArray>>("blocks");
    const QByteArray place("[1 2 3]");
    const auto row = [&](const char *kind, const char *head, const QList<QByteArray> &further) {
        QTest::newRow(kind) << QByteArray(kind) << (QList<QByteArray>{head, place, unitRotation} + further);
    };
    row("6d", "[0 1.0]", {});
    row("6df", "[0 1.0 2]", {});
    row("6df2", "[0 1.0 2 1]", {"[0 1 0.5]"});
    row("6dmt", "[0 1.0 2]", {});
    row("6dmt2", "[0 1.0 2 2.5]", {"[0 1]", sixValues});
    row("6dmtr", "[0 1.0]", {});
    row("gl", "[0 1.0 1 3]", {sixValues});
    row("6dj", "[0 1.0]", {sixValues});
    row("6di", "[0 1.0]", {});
    QTest::newRow("3d") << QByteArray("3d") << QList<QByteArray>{"[0 1.0]", place};
}

void VelmarParserDamageTest::shouldFailWhenAnyBlockIsDamaged()
{
    QFETCH(QByteArray, kind);
    QFETCH(QList<QByteArray>, blocks);
    VelmarParser parser;
    QCOMPARE(parse(parser, kind + " 1 " + blocks.join()), 1);
    for (int damaged = 0; damaged < blocks.size(); ++damaged) {
        for (const QByteArray &damage : {QByteArray("[?]"), QByteArray()}) {
            QList<QByteArray> broken = blocks;
            broken[damaged] = damage;
            const QByteArray line = kind + " 1 " + broken.join();
            QVERIFY2(parse(parser, line) == 0, line.constData());
        }
    }
}

void VelmarParserDamageTest::shouldHoldCountsAboveTheCapOff_data()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char *kind : {"6d", "6df", "6df2", "6dmt", "6dmt2", "6dmtr", "gl", "6dj", "6di", "3d"})
        QTest::newRow(kind) << QByteArray(kind);
}

void VelmarParserDamageTest::shouldHoldCountsAboveTheCapOff()
{
    QFETCH(QByteArray, kind);
    VelmarParser parser;
    QCOMPARE(parse(parser, "6df 1 [0 1.0 1][0 0 0]" + unitRotation), 1);
    QCOMPARE(parse(parser, "6dmt 1 [0 1.0 1][0 0 0]" + unitRotation), 1);
    QCOMPARE(parse(parser, "6d 1 [1 0.5][1 2 3]" + unitRotation), 1);
    for (const char *count : {" 100001", " 2147483648", " 18446744073709551616"})
        QCOMPARE(parse(parser, kind + count), 0);
    QCOMPARE(parser.handheldCount(), 1);
    QCOMPARE(parser.announcedHandhelds(), 1);
    QCOMPARE(parser.measurementToolCount(), 1);
    QCOMPARE(parser.announcedTools(), kind == "6dmt2" ? 0 : 1);
    QCOMPARE(parser.bodyCount(), 2);
    QCOMPARE(parser.body(1)->quality, 0.5); // not even blanked
    QCOMPARE(parser.markerCount() + parser.gloveCount() + parser.jointCount() + parser.inertialCount(), 0);
}

void VelmarParserDamageTest::shouldTakeACountAtTheCap()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6df 100000 [0 1.0 1][1 2 3]" + unitRotation), 0);
    QCOMPARE(parser.announcedHandhelds(), 100000);
    QCOMPARE(parser.handheldCount(), 100000);
    QCOMPARE(parser.handheld(0)->location, (RecordLocation{1, 2, 3}));
}

void VelmarParserDamageTest::shouldTakeANegativeCountForNone_data()
{
    shouldHoldCountsAboveTheCapOff_data();
}

void VelmarParserDamageTest::shouldTakeANegativeCountForNone()
{
    QFETCH(QByteArray, kind);
    VelmarParser parser;
    QCOMPARE(parse(parser, kind + " -3"), 1);
    QCOMPARE(parse(parser, kind + " -99999999999999999999"), 1);
    QCOMPARE(parser.announcedHandhelds() + parser.announcedTools(), 0);
}

void VelmarParserDamageTest::shouldRefuseIdsOutsideTheCap_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("6d below") << "6d 1 [-1 1.0][1 2 3]" + unitRotation;
    QTest::newRow("6d at the cap") << "6d 1 [100000 1.0][1 2 3]" + unitRotation;
    QTest::newRow("6d far above") << "6d 1 [4294967296 1.0][1 2 3]" + unitRotation;
}

void VelmarParserDamageTest::shouldRefuseIdsOutsideTheCap()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QCOMPARE(parse(parser, line), 0);
    QCOMPARE(parser.bodyCount(), 0);
}

void VelmarParserDamageTest::shouldTakeAnyIdOfAKindWithoutARuleForIds_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<Ids>("ids");
    const QByteArray place = "[1 2 3]" + unitRotation;
    const QByteArray further = place + "[1 2 3 4 5 6]";
    QTest::newRow("3d") << QByteArray("3d 3 [-1 1.0][1 2 3][100000 1.0][1 2 3][7 1.0][1 2 3]")
                        << Ids([](const VelmarParser &p, int i) { return p.marker(i)->id; });
    QTest::newRow("6dmtr") << "6dmtr 3 [-1 1.0]" + place + "[100000 1.0]" + place + "[7 1.0]" + place
                           << Ids([](const VelmarParser &p, int i) { return p.toolReference(i)->id; });
    QTest::newRow("6di") << "6di 3 [-1 1.0]" + place + "[100000 1.0]" + place + "[7 1.0]" + place
                         << Ids([](const VelmarParser &p, int i) { return p.inertial(i)->id; });
    QTest::newRow("6dj") << "6dj 3 [-1 1.0]" + further + "[100000 1.0]" + further + "[7 1.0]" + further
                         << Ids([](const VelmarParser &p, int i) { return p.joint(i)->id; });
    QTest::newRow("gl") << "gl 3 [-1 1.0 0 5]" + further + "[100000 1.0 0 5]" + further + "[7 1.0 0 5]" +
                               further
                        << Ids([](const VelmarParser &p, int i) { return p.glove(i)->id; });
}

void VelmarParserDamageTest::shouldTakeAnyIdOfAKindWithoutARuleForIds()
{
    QFETCH(QByteArray, line);
    QFETCH(Ids, ids);
    VelmarParser parser;
    QCOMPARE(parse(parser, line), 1);
    QCOMPARE(ids(parser, 0), -1);
    QCOMPARE(ids(parser, 1), 100000);
    QCOMPARE(ids(parser, 2), 7);
}

void VelmarParserDamageTest::shouldSaturateIntegers()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dcal 4294967297"), 1);
    QCOMPARE(parser.calibratedBodyCount(), std::numeric_limits<int>::max());
    QCOMPARE(parse(parser, "glcal -4294967297"), 1);
    QCOMPARE(parser.calibratedGloveCount(), std::numeric_limits<int>::min());
}

void VelmarParserDamageTest::shouldGiveNullOutsideAList()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6d 1 [0 1.0][1 2 3]" + unitRotation), 1);
    QVERIFY(parser.body(0));
    QVERIFY(!parser.body(1));
    QVERIFY(!parser.body(-1));
    QVERIFY(!parser.measurementTool(0));
    QVERIFY(!parser.handheld(std::numeric_limits<int>::max()));
}

void VelmarParserDamageTest::shouldReadNotANumberAndInfinityAsTheyAre()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6d 1 [0 nan][inf -INFINITY 0x1p3]" + unitRotation), 1);
    QVERIFY(qIsNaN(parser.body(0)->quality));
    QVERIFY(qIsInf(parser.body(0)->location[0]));
    QVERIFY(parser.body(0)->location[1] < 0.0);
    QCOMPARE(parser.body(0)->location[2], 8.0);
}

ROOM_TEST_CLASS(VelmarParserDamageTest)

#include "VelmarParserDamageTest.moc"
