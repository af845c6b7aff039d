#include "LineBuffer.h"

#include "TestRegistry.h"

#include <QtTest>

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
};

ROOM_TEST_CLASS(LineBufferTest)
#include "LineBufferTest.moc"
