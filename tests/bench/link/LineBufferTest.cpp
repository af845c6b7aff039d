#include "LineBuffer.h"

#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <ctime>

namespace
{

/// The processor time, in seconds, that taking so many short lines needs which arrived at once: the least of
/// some runs.
double secondsToTake(int lines)
{
    const QByteArray bytes = QByteArray("x\n").repeated(lines);
    double least = 1e9;
    for (int run = 0; run < 5; ++run) {
        timespec before{};
        timespec after{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &before);
        LineBuffer buffer;
        buffer.append(bytes);
        while (buffer.take()) {
        }
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &after);
        least = std::min(least, double(after.tv_sec - before.tv_sec) +
                                    1e-9 * double(after.tv_nsec - before.tv_nsec));
    }
    return least;
}

} // namespace

class LineBufferTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheLinesInTheirOrder()
    {
        LineBuffer buffer;
        buffer.append("first\r\n\nthi");
        QCOMPARE(buffer.take().value(), QByteArray("first"));
        QCOMPARE(buffer.take().value(), QByteArray(""));
        QVERIFY(!buffer.take().has_value());
        QCOMPARE(buffer.size(), 3);
        buffer.append("rd\nfourth\n");
        QCOMPARE(buffer.take().value(), QByteArray("third"));
        QCOMPARE(buffer.take().value(), QByteArray("fourth"));
        QVERIFY(!buffer.take().has_value());
        QVERIFY(buffer.isEmpty());
    }

    void shouldKeepNothingOfWhatWasTakenOrCleared()
    {
        LineBuffer buffer;
        buffer.append("taken\nwithout an end");
        buffer.take();
        buffer.clear();
        QVERIFY(buffer.isEmpty());
        buffer.append("new\n");
        QCOMPARE(buffer.take().value(), QByteArray("new"));
    }

    void shouldGiveTheSameLinesHoweverTheBytesArrive_data()
    {
        QTest::addColumn<int>("piece");
        for (const int piece : {1, 2, 7, 1000})
            QTest::addRow("%d", piece) << piece;
    }

    void shouldGiveTheSameLinesHoweverTheBytesArrive()
    {
        QFETCH(int, piece);
        QByteArray bytes;
        for (int i = 0; i < 500; ++i)
            bytes += QByteArray(i % 17, 'x') + QByteArray::number(i) + "\n";
        LineBuffer buffer;
        QByteArray together;
        for (int i = 0; i < bytes.size(); i += piece) {
            buffer.append(bytes.mid(i, piece));
            if (const auto line = buffer.take()) // one at most, so that some stay behind
                together += *line + "\n";
        }
        while (const auto line = buffer.take())
            together += *line + "\n";
        QCOMPARE(together, bytes);
    }

    /// Megabytes of short lines that arrive at once must not be shifted for each of them.
    void shouldNeedNoMoreTimeForALineHoweverManyFollow()
    {
        constexpr int few = 5000;
        constexpr int factor = 20;
        const double ratio = secondsToTake(factor * few) / secondsToTake(few);
        QVERIFY2(ratio < 4 * factor, QByteArray::number(ratio));
    }
};

ROOM_TEST_CLASS(LineBufferTest)
#include "LineBufferTest.moc"
