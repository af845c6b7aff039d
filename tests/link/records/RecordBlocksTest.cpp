#include "RecordBlocks.h"

#include "TestRegistry.h"

#include <QtTest>

using namespace RecordBlocks;

namespace
{

/// A line that is read, and where the reading stands.
struct Text {
    explicit Text(const char *text)
        : bytes(text)
        , cursor(bytes.data())
    {
    }

    [[nodiscard]] QByteArray rest() const { return QByteArray(cursor); }

    QByteArray bytes;
    char *cursor;
};

} // namespace

class RecordBlocksTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadACount_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("succeeds");
        QTest::addColumn<int>("count");
        QTest::newRow("some") << QByteArray(" 3 [") << true << 3;
        QTest::newRow("negative") << QByteArray("-2") << true << 0;
        QTest::newRow("octal") << QByteArray("010") << true << 8;
        QTest::newRow("the most") << QByteArray("100000") << true << 100000;
        QTest::newRow("one too many") << QByteArray("100001") << false << 7;
        QTest::newRow("no number") << QByteArray("many") << false << 7;
    }
    void shouldReadACount()
    {
        // GIVEN
        QFETCH(QByteArray, text);
        QFETCH(bool, succeeds);
        QFETCH(int, count);
        Text line(text.constData());
        int read = 7;
        // WHEN, THEN
        QCOMPARE(readCount(&line.cursor, &read), succeeds);
        QCOMPARE(read, count);
    }

    void shouldReadIdAndQualityAndWhatFollows()
    {
        // GIVEN
        Text line("[4 0.75 9 2.5][1 2 3]");
        MarkerRecord record;
        Head head;
        // WHEN
        QVERIFY(readHead(&line.cursor, "idid", anyId, record, head));
        // THEN
        QCOMPARE(record.id, 4);
        QCOMPARE(record.quality, 0.75);
        QCOMPARE(head.ints[1], 9);
        QCOMPARE(head.reals[1], 2.5);
        QCOMPARE(line.rest(), QByteArray("[1 2 3]"));
    }

    void shouldStoreNothingForAnotherId()
    {
        // GIVEN
        Text line("[4 0.75]");
        MarkerRecord record;
        Head head;
        // WHEN, THEN
        QVERIFY(!readHead(&line.cursor, "id", 3, record, head));
        QCOMPARE(record.id, 0);
        QCOMPARE(record.quality, -1.0);
    }

    void shouldReadLocationAndRotation()
    {
        // GIVEN
        Text line("[1 2 3][1 0 0 0 0 -1 0 1 0] 5");
        BodyRecord record;
        // WHEN
        QVERIFY(readPlace(&line.cursor, record));
        // THEN
        QCOMPARE(record.location, (RecordLocation{1, 2, 3}));
        QCOMPARE(record.rotation, (RecordRotation{1, 0, 0, 0, 0, -1, 0, 1, 0}));
        QCOMPARE(line.rest(), QByteArray(" 5"));
    }

    void shouldStayBeforeABlockThatFails()
    {
        // GIVEN
        Text line("[1 2][1 2 3]");
        MarkerRecord record;
        // WHEN, THEN
        QVERIFY(!readLocation(&line.cursor, record));
        QCOMPARE(line.rest(), QByteArray("[1 2][1 2 3]"));
        QVERIFY(!moveBehind(&line.cursor, nullptr));
        QVERIFY(moveBehind(&line.cursor, line.cursor + 5));
        QCOMPARE(line.rest(), QByteArray("[1 2 3]"));
    }
};

ROOM_TEST_CLASS(RecordBlocksTest)
#include "RecordBlocksTest.moc"
