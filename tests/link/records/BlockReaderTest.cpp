#include "BlockReader.h"
#include "TestRegistry.h"

#include <QByteArray>
#include <QObject>
#include <QtTest>

#include <array>

class BlockReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadByTheLettersAndIgnoreTheRest();
    void shouldAcceptAnyBlockForAnEmptyFormat();
    void shouldMoveBothRealDestinationsTogether();
    void shouldReadIntegersInBaseZero();
    void shouldReadRealsInTheCLocale();
    void shouldFail_data();
    void shouldFail();
    void shouldKeepWhatWasReadBeforeTheFailure();
    void shouldEndAnUnclosedBlockAtTheNextBracket();
    void shouldFailForANullPosition();
    void shouldStoreAtMostTheCapacityOfACountedBlock();
    void shouldReadACountedBlockEvenForNoValues();
    void shouldTakeNegativeCountsForNone();
    void shouldFailWhenACountedBlockIsTooShort();
    void shouldFailWithoutACountedBlockAndStoreNothing_data();
    void shouldFailWithoutACountedBlockAndStoreNothing();
};

void BlockReaderTest::shouldReadByTheLettersAndIgnoreTheRest()
{
    QByteArray line(" junk [1 0.5 7] behind");
    const QByteArray before = line;
    int id = 0;
    double quality = 0.0;
    char *behind = readBlock(line.data(), "id", &id, &quality);
    QCOMPARE(id, 1);
    QCOMPARE(quality, 0.5);
    QCOMPARE(QByteArray(behind), QByteArray(" behind"));
    QCOMPARE(line, before);
}

void BlockReaderTest::shouldAcceptAnyBlockForAnEmptyFormat()
{
    QByteArray line("[not a number][");
    QCOMPARE(QByteArray(readBlock(line.data(), "", nullptr, nullptr)), QByteArray("["));
}

void BlockReaderTest::shouldMoveBothRealDestinationsTogether()
{
    QByteArray line("[1.5 2.5 3 3.5 4.5]");
    int number = 0;
    std::array<double, 4> doubles{-1, -1, -1, -1};
    std::array<float, 4> floats{-1, -1, -1, -1};
    QVERIFY(readBlock(line.data(), "dfidf", &number, doubles.data(), floats.data()));
    QCOMPARE(number, 3);
    QCOMPARE(doubles, (std::array<double, 4>{1.5, -1, 3.5, -1}));
    QCOMPARE(floats, (std::array<float, 4>{-1, 2.5F, -1, 4.5F}));
}

void BlockReaderTest::shouldReadIntegersInBaseZero()
{
    QByteArray line("[0x10 010 08]");
    std::array<int, 4> numbers{-1, -1, -1, -1};
    QVERIFY(readBlock(line.data(), "iiii", numbers.data(), nullptr));
    QCOMPARE(numbers, (std::array<int, 4>{16, 8, 0, 8}));
}

void BlockReaderTest::shouldReadRealsInTheCLocale()
{
    QByteArray line("[1.25 1,75]");
    std::array<double, 2> reals{-1, -1};
    QVERIFY(readBlock(line.data(), "dd", nullptr, reals.data()));
    QCOMPARE(reals, (std::array<double, 2>{1.25, 1.0}));
}

void BlockReaderTest::shouldFail_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("no opening bracket") << QByteArray("1 2]") << QByteArray("i");
    QTest::newRow("no closing bracket") << QByteArray("[1 2") << QByteArray("i");
    QTest::newRow("closing bracket only before it") << QByteArray("] [1 2") << QByteArray("i");
    QTest::newRow("empty text") << QByteArray("") << QByteArray("");
    QTest::newRow("too few numbers") << QByteArray("[1]") << QByteArray("ii");
    QTest::newRow("a word") << QByteArray("[abc]") << QByteArray("d");
    QTest::newRow("empty block") << QByteArray("[]") << QByteArray("i");
    QTest::newRow("blank block") << QByteArray("[   ]") << QByteArray("d");
    QTest::newRow("unknown letter") << QByteArray("[1 2]") << QByteArray("ix");
    QTest::newRow("blank in the format") << QByteArray("[1 2]") << QByteArray("i i");
    QTest::newRow("sign alone") << QByteArray("[-]") << QByteArray("d");
}

void BlockReaderTest::shouldFail()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, format);
    const QByteArray before = line;
    std::array<int, 4> numbers{};
    std::array<double, 4> reals{};
    QVERIFY(readBlock(line.data(), format.constData(), numbers.data(), reals.data()) == nullptr);
    QCOMPARE(line, before);
}

void BlockReaderTest::shouldKeepWhatWasReadBeforeTheFailure()
{
    QByteArray line("[7 0.25 x]");
    std::array<int, 2> numbers{};
    std::array<double, 1> reals{};
    QVERIFY(!readBlock(line.data(), "idi", numbers.data(), reals.data()));
    QCOMPARE(numbers[0], 7);
    QCOMPARE(reals[0], 0.25);
}

void BlockReaderTest::shouldEndAnUnclosedBlockAtTheNextBracket()
{
    QByteArray line("[1 2 [3 4] rest");
    std::array<int, 3> numbers{};
    QVERIFY(readBlock(line.data(), "ii", numbers.data(), nullptr));
    QCOMPARE(numbers, (std::array<int, 3>{1, 2, 0}));
    QVERIFY(!readBlock(line.data(), "iii", numbers.data(), nullptr));
    QCOMPARE(line, QByteArray("[1 2 [3 4] rest"));
}

void BlockReaderTest::shouldFailForANullPosition()
{
    QVERIFY(readBlock(nullptr, "", nullptr, nullptr) == nullptr);
    QVERIFY(readCountedBlock(nullptr, 0, 0, nullptr) == nullptr);
}

void BlockReaderTest::shouldStoreAtMostTheCapacityOfACountedBlock()
{
    QByteArray line("[1 2 3 0.5 1.5 2.5] rest");
    std::array<int, 3> ints{-1, -1, -1};
    std::array<double, 3> reals{-1, -1, -1};
    char *behind = readCountedBlock(line.data(), 2, 3, ints.data(), 3, reals.data());
    QCOMPARE(QByteArray(behind), QByteArray(" rest"));
    QCOMPARE(ints, (std::array<int, 3>{1, 2, -1}));
    QCOMPARE(reals, (std::array<double, 3>{0.5, 1.5, -1}));
}

void BlockReaderTest::shouldReadACountedBlockEvenForNoValues()
{
    QByteArray present("[] rest");
    std::array<int, 2> ints{-1, -1};
    QCOMPARE(QByteArray(readCountedBlock(present.data(), 2, 0, ints.data())), QByteArray(" rest"));
    QCOMPARE(ints, (std::array<int, 2>{0, 0}));
    QByteArray absent("rest");
    QVERIFY(!readCountedBlock(absent.data(), 2, 0, ints.data()));
}

void BlockReaderTest::shouldTakeNegativeCountsForNone()
{
    QByteArray line("[4 5]");
    std::array<int, 2> ints{-1, -1};
    std::array<double, 2> reals{-1, -1};
    QVERIFY(readCountedBlock(line.data(), 2, -2147483647, ints.data(), -1, reals.data()));
    QCOMPARE(ints, (std::array<int, 2>{0, 0}));
    QCOMPARE(reals, (std::array<double, 2>{0, 0}));
}

void BlockReaderTest::shouldFailWhenACountedBlockIsTooShort()
{
    QByteArray line("[1 2 3]");
    std::array<int, 2> ints{};
    std::array<double, 2> reals{};
    QVERIFY(!readCountedBlock(line.data(), 2, 2147483647, ints.data()));
    QVERIFY(!readCountedBlock(line.data(), 2, 2, ints.data(), 2, reals.data()));
    QCOMPARE(line, QByteArray("[1 2 3]"));
}

void BlockReaderTest::shouldFailWithoutACountedBlockAndStoreNothing_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("intCount");
    QTest::newRow("integers without a block") << QByteArray("1 2 3") << 1;
    QTest::newRow("reals without a block") << QByteArray("1 2 3") << 0;
    QTest::newRow("integers in an unclosed block") << QByteArray("[1 2 3") << 1;
    QTest::newRow("reals in an unclosed block") << QByteArray("[1 2 3") << 0;
}

void BlockReaderTest::shouldFailWithoutACountedBlockAndStoreNothing()
{
    QFETCH(QByteArray, line);
    QFETCH(int, intCount);
    const QByteArray before = line;
    std::array<int, 2> ints{};
    std::array<double, 2> reals{};
    QVERIFY(!readCountedBlock(line.data(), 2, intCount, ints.data(), 2, reals.data()));
    QCOMPARE(line, before);
    QCOMPARE(ints, (std::array<int, 2>{0, 0}));
    QCOMPARE(reals, (std::array<double, 2>{0, 0}));
}

ROOM_TEST_CLASS(BlockReaderTest)

#include "BlockReaderTest.moc"
