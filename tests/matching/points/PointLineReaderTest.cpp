#include "PointLineReader.h"

#include "TestRegistry.h"

#include <QBuffer>
#include <QtTest>

class PointLineReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBringLineByLine()
    {
        QBuffer buffer;
        buffer.setData("a longer one\n\nlast");
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        PointLineReader reader(buffer);
        QCOMPARE(reader.line(), "");
        for (const char *line : {"a longer one\n", "\n"}) {
            reader.next();
            QCOMPARE(reader.line(), line);
            QVERIFY(!reader.atEnd());
        }
        reader.next();
        QCOMPARE(reader.line(), "last");
        QVERIFY(reader.atEnd());
        reader.next();
        QCOMPARE(reader.line(), "");
        QVERIFY(reader.atEnd());
    }

    void shouldMeetTheEndBehindTheLastLineFeed()
    {
        QBuffer buffer;
        buffer.setData("only\n");
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        PointLineReader reader(buffer);
        reader.next();
        QVERIFY(!reader.atEnd());
        reader.next();
        QCOMPARE(reader.line(), "");
        QVERIFY(reader.atEnd());
    }

    void shouldDropWhatALongLineHoldsBeyondItsLimit_data()
    {
        QTest::addColumn<int>("length");
        for (const int length : {1022, 1023, 1024, 1025, 2045, 2046, 2047, 2048, 5000})
            QTest::newRow(qPrintable(QString::number(length))) << length;
    }

    void shouldDropWhatALongLineHoldsBeyondItsLimit()
    {
        QFETCH(int, length);
        const QByteArray first(length, 'x');
        QBuffer buffer;
        buffer.setData(first + "\nnext\n" + first);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        PointLineReader reader(buffer);
        reader.next();
        QCOMPARE(QByteArray(reader.line()), (first + "\n").left(1023));
        QVERIFY(!reader.atEnd());
        reader.next();
        QCOMPARE(reader.line(), "next\n");
        QVERIFY(!reader.atEnd());
        reader.next();
        QCOMPARE(QByteArray(reader.line()), first.left(1023));
        QVERIFY(reader.atEnd());
    }

    void shouldGiveUpALineThatDoesNotEndForMegabytes()
    {
        constexpr int limit = 16 * 1024 * 1024;
        for (const bool tooLong : {false, true}) {
            QBuffer buffer;
            buffer.setData(QByteArray(tooLong ? limit : limit - 1, 'x') + "\nnext\n");
            QVERIFY(buffer.open(QIODevice::ReadOnly));
            PointLineReader reader(buffer);
            reader.next();
            QCOMPARE(QByteArray(reader.line()), QByteArray(1023, 'x'));
            QCOMPARE(reader.isGivenUp(), tooLong);
            QCOMPARE(reader.atEnd(), tooLong);
            reader.next();
            QCOMPARE(reader.line(), tooLong ? "" : "next\n");
        }
    }
};

ROOM_TEST_CLASS(PointLineReaderTest)

#include "PointLineReaderTest.moc"
