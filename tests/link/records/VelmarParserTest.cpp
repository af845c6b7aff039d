#include "VelmarParser.h"
#include "AllocationCounter.h"
#include "RecordLine.h"
#include "TestRegistry.h"

#include <QtTest>

class VelmarParserTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginWithoutAnything();
    void shouldReadTheFrameCounter_data();
    void shouldReadTheFrameCounter();
    void shouldReadTheTimestamp_data();
    void shouldReadTheTimestamp();
    void shouldMoveTheCursorBehindWhatWasRead();
    void shouldBlankEveryBodyThatTheFrameDoesNotName();
    void shouldGrowTheBodyListToTheId();
    void shouldReadABody();
    void shouldReadCalibratedCountsAndSizeTheLists();
    void shouldClampTheSizesOfTheLists();
    void shouldEmptyTheListsForNothingCalibrated();
    void shouldKeepTheListsAtAReset();
    void shouldReadToolsOfTheFirstFormat();
    void shouldReadToolsOfTheSecondFormat();
    void shouldLetTheLastToolLineWin();
    void shouldSetTheToolCountToZeroForTheSecondFormat();
    void shouldRequireIdsInOrder_data();
    void shouldRequireIdsInOrder();
    void shouldReadHandheldsOfTheFirstFormat();
    void shouldReadHandheldsOfTheSecondFormat();
    void shouldStoreAtMostSixteenButtons();
    void shouldReadTheOtherKinds_data();
    void shouldReadTheOtherKinds();
    void shouldAllocateNothingOnceTheListsHaveTheirSize();
    void shouldReadEveryLineThatTheControllerSends();
};

void VelmarParserTest::shouldBeginWithoutAnything()
{
    const VelmarParser parser;
    QCOMPARE(parser.frameCounter(), 0U);
    QCOMPARE(parser.timestamp(), -1.0);
    QCOMPARE(parser.calibratedBodyCount(), -1);
    QCOMPARE(parser.calibratedGloveCount(), -1);
    QCOMPARE(parser.announcedHandhelds(), 0);
    QCOMPARE(parser.announcedTools(), 0);
    QCOMPARE(parser.bodyCount() + parser.handheldCount() + parser.measurementToolCount() +
                 parser.markerCount(),
             0);
}

void VelmarParserTest::shouldReadTheFrameCounter_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("result");
    QTest::addColumn<unsigned>("counter");
    QTest::newRow("decimal") << QByteArray("fr 601") << 1 << 601U;
    QTest::newRow("hexadecimal") << QByteArray("fr 0x10") << 1 << 16U;
    QTest::newRow("octal") << QByteArray("fr 010") << 1 << 8U;
    QTest::newRow("octal that ends early") << QByteArray("fr 08") << 1 << 0U;
    QTest::newRow("largest") << QByteArray("fr 4294967295") << 1 << 4294967295U;
    QTest::newRow("above the largest") << QByteArray("fr 4294967297") << 1 << 4294967295U;
    QTest::newRow("far above") << QByteArray("fr 99999999999999999999999") << 1 << 4294967295U;
    QTest::newRow("word") << QByteArray("fr abc") << 0 << 0U;
    QTest::newRow("nothing") << QByteArray("fr ") << 0 << 0U;
}

void VelmarParserTest::shouldReadTheFrameCounter()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QCOMPARE(parse(parser, "fr 5"), 1);
    QTEST(parse(parser, line), "result");
    QTEST(parser.frameCounter(), "counter");
}

void VelmarParserTest::shouldReadTheTimestamp_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("result");
    QTest::addColumn<double>("timestamp");
    QTest::newRow("real") << QByteArray("ts 36010.016667\r\n") << 1 << 36010.016667;
    QTest::newRow("exponent") << QByteArray("ts 1.5e3") << 1 << 1500.0;
    QTest::newRow("hexadecimal") << QByteArray("ts 0x1p4") << 1 << 16.0;
    QTest::newRow("comma ends it") << QByteArray("ts 1,5") << 1 << 1.0;
    QTest::newRow("word") << QByteArray("ts abc") << 0 << -1.0;
    QTest::newRow("nothing") << QByteArray("ts ") << 0 << -1.0;
}

void VelmarParserTest::shouldReadTheTimestamp()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QCOMPARE(parse(parser, "ts 7.5"), 1);
    QTEST(parse(parser, line), "result");
    QTEST(parser.timestamp(), "timestamp");
}

void VelmarParserTest::shouldMoveTheCursorBehindWhatWasRead()
{
    VelmarParser parser;
    QByteArray text("6d 1 [0 1.0][1 2 3]" + unitRotation + "\nfr 3");
    char *cursor = text.data();
    QCOMPARE(parser.parseLine(&cursor), 1);
    QCOMPARE(QByteArray(cursor), QByteArray("\nfr 3"));
    ++cursor;
    QCOMPARE(parser.parseLine(&cursor), 1);
    QCOMPARE(parser.frameCounter(), 3U);
    QCOMPARE(*cursor, '\0');
}

void VelmarParserTest::shouldBlankEveryBodyThatTheFrameDoesNotName()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6d 2 [0 1.0][1 2 3]" + unitRotation + " [1 1.0][4 5 6]" + unitRotation), 1);
    QCOMPARE(parse(parser, "6d 1 [1 0.5][7 8 9]" + unitRotation), 1);
    QCOMPARE(parser.bodyCount(), 2);
    QCOMPARE(parser.body(0)->quality, -1.0);
    QCOMPARE(parser.body(0)->location[0], 0.0);
    QCOMPARE(parser.body(1)->quality, 0.5);
    QCOMPARE(parse(parser, "6d 0"), 1);
    QCOMPARE(parser.bodyCount(), 2);
    QCOMPARE(parser.body(1)->id, 1);
    QCOMPARE(parser.body(1)->quality, -1.0);
    QCOMPARE(parser.body(1)->rotation[0], 0.0);
}

void VelmarParserTest::shouldGrowTheBodyListToTheId()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dcal 2"), 1);
    parser.resizeLists();
    QCOMPARE(parser.bodyCount(), 2);
    QCOMPARE(parse(parser, "6d 1 [5 1.0][1 2 3]" + unitRotation), 1);
    QCOMPARE(parser.bodyCount(), 6);
    for (int index = 2; index <= 4; ++index) {
        QCOMPARE(parser.body(index)->id, index);
        QCOMPARE(parser.body(index)->quality, -1.0);
        QCOMPARE(parser.body(index)->location, RecordLocation());
    }
    QCOMPARE(parser.body(5)->id, 5);
}

void VelmarParserTest::shouldReadABody()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6d 1 [0 0.75 9][1.5 -2.5 1e3][0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9]"), 1);
    QCOMPARE(parser.body(0)->quality, 0.75);
    QCOMPARE(parser.body(0)->location, (RecordLocation{1.5, -2.5, 1000.0}));
    QCOMPARE(parser.body(0)->rotation, (RecordRotation{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9}));
}

void VelmarParserTest::shouldReadCalibratedCountsAndSizeTheLists()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dcal 5"), 1);
    QCOMPARE(parse(parser, "glcal 2"), 1);
    QCOMPARE(parse(parser, "6df 1 [0 -1 0][0 0 0]" + unitRotation), 1);
    QCOMPARE(parse(parser, "6dmt 1 [0 -1 0][0 0 0]" + unitRotation), 1);
    parser.resizeLists();
    QCOMPARE(parser.bodyCount(), 3);
    QCOMPARE(parser.body(2)->id, 2);
    QCOMPARE(parser.body(2)->quality, -1.0);
    QCOMPARE(parser.gloveCount(), 2);
    QCOMPARE(parse(parser, "6dcal "), 0);
    QCOMPARE(parse(parser, "glcal none"), 0);
}

void VelmarParserTest::shouldClampTheSizesOfTheLists()
{
    VelmarParser parser;
    parser.resizeLists();
    QCOMPARE(parser.bodyCount(), 0);
    QCOMPARE(parse(parser, "6dcal 0"), 1);
    QCOMPARE(parse(parser, "6df 1 [0 -1 0][0 0 0]" + unitRotation), 1);
    parser.resizeLists();
    QCOMPARE(parser.bodyCount(), 0);
    QCOMPARE(parse(parser, "6dcal 2000000000"), 1);
    QCOMPARE(parse(parser, "glcal 99999999999"), 1);
    parser.resizeLists();
    QCOMPARE(parser.bodyCount(), 100000);
    QCOMPARE(parser.gloveCount(), 100000);
}

void VelmarParserTest::shouldEmptyTheListsForNothingCalibrated()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dcal 2"), 1);
    QCOMPARE(parse(parser, "glcal 3"), 1);
    parser.resizeLists();
    QCOMPARE(parser.bodyCount() + parser.gloveCount(), 5);
    QCOMPARE(parse(parser, "6dcal 0"), 1);
    QCOMPARE(parse(parser, "glcal 0"), 1);
    parser.resizeLists();
    QCOMPARE(parser.bodyCount() + parser.gloveCount(), 0);
}

void VelmarParserTest::shouldKeepTheListsAtAReset()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "fr 3"), 1);
    QCOMPARE(parse(parser, "ts 3.5"), 1);
    QCOMPARE(parse(parser, "6dcal 3"), 1);
    QCOMPARE(parse(parser, "glcal 2"), 1);
    QCOMPARE(parse(parser, "6df 1 [0 1 0][0 0 0]" + unitRotation), 1);
    QCOMPARE(parse(parser, "6dmt 1 [0 1 0][7 8 9]" + unitRotation), 1);
    QCOMPARE(parser.reset(), -1.0);
    QCOMPARE(parser.frameCounter(), 0U);
    QCOMPARE(parser.timestamp(), -1.0);
    QCOMPARE(parser.calibratedBodyCount(), -1);
    QCOMPARE(parser.calibratedGloveCount(), -1);
    QCOMPARE(parser.announcedHandhelds(), 0);
    QCOMPARE(parser.announcedTools(), 0);
    QCOMPARE(parser.measurementToolCount(), 1);
    QCOMPARE(parser.measurementTool(0)->location[2], 9.0);
}

void VelmarParserTest::shouldReadToolsOfTheFirstFormat()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dmt 2 [0 1.0 5][1 2 3]" + unitRotation + " [1 -1.0 58][0 0 0]" + unitRotation),
             1);
    QCOMPARE(parser.announcedTools(), 2);
    QCOMPARE(parser.measurementToolCount(), 2);
    const MeasurementToolRecord *tool = parser.measurementTool(0);
    QCOMPARE(tool->flagCount, 4);
    QCOMPARE(tool->flags, (RecordButtons{1, 0, 1, 0}));
    QCOMPARE(tool->location, (RecordLocation{1, 2, 3}));
    QCOMPARE(parser.measurementTool(1)->flags, (RecordButtons{0, 1, 0, 1}));
    QCOMPARE(parser.measurementTool(1)->quality, -1.0);
}

void VelmarParserTest::shouldReadToolsOfTheSecondFormat()
{
    VelmarParser parser;
    QCOMPARE(parse(parser,
                   "6dmt2 2 " + tool2("[0 1.0 4 2.5]", "[1 0 0 1]") + ' ' + tool2("[1 -1.0 1 2.5]", "[0]")),
             1);
    const MeasurementToolRecord *tool = parser.measurementTool(0);
    QCOMPARE(tool->flagCount, 4);
    QCOMPARE(tool->flags, (RecordButtons{1, 0, 0, 1}));
    QCOMPARE(tool->tipRadius, 2.5);
    QCOMPARE(tool->covariance, (std::array<double, 6>{0.1, 0.2, 0.3, 0.4, 0.5, 0.6}));
    QCOMPARE(parser.measurementTool(1)->flagCount, 1);
    QVERIFY(!parser.measurementTool(2));
}

void VelmarParserTest::shouldLetTheLastToolLineWin()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6dmt2 1 " + tool2("[0 1.0 6 2.5]", "[1 1 1 1 1 1]")), 1);
    QCOMPARE(parse(parser, "6dmt 1 [0 1.0 2][4 5 6]" + unitRotation), 1);
    const MeasurementToolRecord *tool = parser.measurementTool(0);
    QCOMPARE(tool->flags, (RecordButtons{0, 1}));
    QCOMPARE(tool->tipRadius, 0.0);
    QCOMPARE(tool->covariance, (std::array<double, 6>{}));
    QCOMPARE(tool->location, (RecordLocation{4, 5, 6}));
    QCOMPARE(parse(parser, "6dmt2 0"), 1);
    QCOMPARE(parser.measurementToolCount(), 0);
}

void VelmarParserTest::shouldSetTheToolCountToZeroForTheSecondFormat()
{
    for (const char *line : {"6dmt2 0", "6dmt2 x", "6dmt2 100001", "6dmt2 1 [5 1.0 0 0]"}) {
        VelmarParser parser;
        QCOMPARE(parse(parser, "6dmt 1 [0 1.0 0][4 5 6]" + unitRotation), 1);
        QCOMPARE(parser.announcedTools(), 1);
        parse(parser, line);
        QCOMPARE(parser.announcedTools(), 0);
    }
}

void VelmarParserTest::shouldRequireIdsInOrder_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("6df") << "6df 1 [1 1 0][0 0 0]" + unitRotation;
    QTest::newRow("6df2") << "6df2 1 [1 1 1 0][0 0 0]" + unitRotation + "[1]";
    QTest::newRow("6dmt") << "6dmt 1 [1 1 0][0 0 0]" + unitRotation;
    QTest::newRow("6dmt2") << "6dmt2 1 " + tool2("[1 1 1 0]", "[1]");
    QTest::newRow("6dmt, the second record")
        << "6dmt 2 [0 1 0][0 0 0]" + unitRotation + "[0 1 0][0 0 0]" + unitRotation;
}

void VelmarParserTest::shouldRequireIdsInOrder()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QCOMPARE(parse(parser, line), 0);
}

void VelmarParserTest::shouldReadHandheldsOfTheFirstFormat()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6df 1 [0 1.0 -14][500 0 1000]" + unitRotation), 1); // all bits but 0, 2 and 3
    QCOMPARE(parser.announcedHandhelds(), 1);
    QCOMPARE(parser.handheldCount(), 1);
    QCOMPARE(parser.handheld(0)->buttonCount, 4);
    QCOMPARE(parser.handheld(0)->buttons, (RecordButtons{0, 1, 0, 0}));
    QCOMPARE(parser.handheld(0)->location, (RecordLocation{500, 0, 1000}));
}

void VelmarParserTest::shouldReadHandheldsOfTheSecondFormat()
{
    VelmarParser parser;
    QCOMPARE(parse(parser, "6df 2 [0 1 0][0 0 0]" + unitRotation + "[1 1 0][0 0 0]" + unitRotation), 1);
    QCOMPARE(parse(parser, "6df2 1 [0 1.0 4 2][500 0 1000]" + unitRotation + "[0 1 0 0 0.00 -1.00]"), 1);
    QCOMPARE(parser.announcedHandhelds(), 2);
    QCOMPARE(parser.handheldCount(), 1);
    const HandheldRecord *device = parser.handheld(0);
    QCOMPARE(device->buttonCount, 4);
    QCOMPARE(device->joystickCount, 2);
    QCOMPARE(device->buttons, (RecordButtons{0, 1}));
    QCOMPARE(device->joysticks[1], -1.0);
    QCOMPARE(parse(parser, "6df 1 [0 1 0][0 0 0]" + unitRotation), 1);
    QCOMPARE(device->joystickCount, 0);
    QCOMPARE(device->joysticks, decltype(device->joysticks)());
}

void VelmarParserTest::shouldStoreAtMostSixteenButtons()
{
    VelmarParser parser;
    const QByteArray values("[1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 0.5]");
    QCOMPARE(parse(parser, "6df2 1 [0 1.0 18 1][0 0 0]" + unitRotation + values), 1);
    QCOMPARE(parser.handheld(0)->buttonCount, 16);
    QCOMPARE(parser.handheld(0)->buttons.back(), 16);
    QCOMPARE(parser.handheld(0)->joysticks[0], 0.5);
    QCOMPARE(parse(parser, "6df2 1 [0 1.0 2147483647 2147483647][0 0 0]" + unitRotation + values), 0);
    QCOMPARE(parse(parser, "6df2 1 [0 1.0 -5 -2147483648][0 0 0]" + unitRotation + "[]"), 1);
    QCOMPARE(parser.handheld(0)->buttons, RecordButtons());
    QCOMPARE(parser.handheld(0)->buttonCount, 0);
    QCOMPARE(parse(parser, "6df2 1 [0 1.0 0 0][0 0 0]" + unitRotation), 0);
}

void VelmarParserTest::shouldReadTheOtherKinds_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("result");
    const QByteArray place = "[1 2 3]" + unitRotation;
    QTest::newRow("3d") << QByteArray("3d 2 [7 1.0][1 2 3] [3 1.0][4 5 6]") << 1;
    QTest::newRow("3d without location") << QByteArray("3d 1 [7 1.0]") << 0;
    QTest::newRow("6dmtr") << "6dmtr 1 [0 1.0]" + place << 1;
    QTest::newRow("6dmtr without rotation") << QByteArray("6dmtr 1 [0 1.0][1 2 3]") << 0;
    QTest::newRow("6di") << "6di 1 [4 1.0 0.1]" + place << 1;
    QTest::newRow("6dj") << "6dj 1 [0 1.0]" + place + sixValues << 1;
    QTest::newRow("6dj without its values") << "6dj 1 [0 1.0]" + place << 0;
    QTest::newRow("gl") << "gl 1 [1 1.0 1 3]" + place + sixValues << 1;
    QTest::newRow("gl without its numbers") << "gl 1 [1 1.0]" + place + sixValues << 0;
    for (const char *empty :
         {"3d 0", "6dmtr 0", "6di 0", "6dj 0", "gl 0", "6df 0", "6df2 0", "6dmt 0", "6dmt2 0"})
        QTest::newRow(empty) << QByteArray(empty) << 1;
}

void VelmarParserTest::shouldReadTheOtherKinds()
{
    QFETCH(QByteArray, line);
    VelmarParser parser;
    QTEST(parse(parser, line), "result");
    if (parser.markerCount() == 2) {
        QCOMPARE(parser.marker(0)->id, 7);
        QCOMPARE(parser.marker(1)->location, (RecordLocation{4, 5, 6}));
    }
    if (parser.gloveCount() == 1 && parser.glove(0)->id == 1) {
        QCOMPARE(parser.glove(0)->side, 1);
        QCOMPARE(parser.glove(0)->fingerCount, 3);
        QCOMPARE(parser.glove(0)->values[5], 0.6);
    }
    if (parser.inertialCount() == 1) {
        QCOMPARE(parser.inertial(0)->id, 4);
        QCOMPARE(parser.inertial(0)->location, (RecordLocation{1, 2, 3}));
    }
}

void VelmarParserTest::shouldAllocateNothingOnceTheListsHaveTheirSize()
{
    QByteArray bodies("6d 30");
    QByteArray tools("6dmt2 4");
    for (int id = 0; id < 30; ++id)
        bodies += " [" + QByteArray::number(id) + " 1.000][1.5 2.5 3.5]" + unitRotation;
    for (int id = 0; id < 4; ++id)
        tools += ' ' + tool2('[' + QByteArray::number(id) + " 1.0 4 2.5]", "[1 0 0 0]");
    const QByteArray noTools("6dmt2 0");
    VelmarParser parser;
    QCOMPARE(parse(parser, bodies), 1);
    QCOMPARE(parse(parser, tools), 1);
    std::array<QByteArray, 4> lines{bodies, noTools, tools, QByteArray("6d 0")};
    for (QByteArray &line : lines)
        line.detach();
    const std::size_t before = AllocationCounter::count();
    int parsed = 0;
    for (QByteArray &line : lines) {
        char *cursor = line.data();
        parsed += parser.parseLine(&cursor);
    }
    QCOMPARE(AllocationCounter::count(), before);
    QCOMPARE(parsed, 4);
    VelmarParser fresh;
    QCOMPARE(parse(fresh, bodies), 1);
    QVERIFY(AllocationCounter::count() > before);
}

void VelmarParserTest::shouldReadEveryLineThatTheControllerSends()
{
    VelmarParser parser;
    const QByteArray place = "[50.000 60.000 70.000]" + unitRotation;
    for (const QByteArray &line :
         {QByteArray("fr 601"), QByteArray("ts 36010.016667"), QByteArray("6dcal 4"),
          "6d 1 [0 1.000]" + place, "6dmt 2 [0 1.000 1]" + place + " [1 -1.000 0]" + place,
          "6df 1 [0 1.000 2]" + place, "6df2 1 [0 1.000 4 2]" + place + "[0 1 0 0 0.00 -1.00]"})
        QVERIFY2(parse(parser, line) == 1, line.constData());
    QCOMPARE(parser.frameCounter(), 601U);
    QCOMPARE(parser.timestamp(), 36010.016667);
    QCOMPARE(parser.measurementTool(0)->flags[0], 1);
    QCOMPARE(parser.handheld(0)->buttons[1], 1);
}

ROOM_TEST_CLASS(VelmarParserTest)

#include "VelmarParserTest.moc"
