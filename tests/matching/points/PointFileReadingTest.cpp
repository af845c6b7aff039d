#include "PointFileReading.h"

#include "TestRegistry.h"

#include <QTemporaryFile>
#include <QtTest>

class PointFileReadingTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadALongFileInPieces()
    {
        // GIVEN
        QTemporaryFile file;
        writePoints(file, 100000);
        PointFileReading reading(file.fileName());
        // WHEN
        QVector<int> percents;
        while (reading.doPiece())
            percents.append(reading.percent());
        // THEN
        QVERIFY(percents.size() > 5);
        QVERIFY(std::is_sorted(percents.begin(), percents.end()));
        QVERIFY(percents.first() > 0 && percents.first() < 30);
        QCOMPARE(reading.percent(), 100);
        QVERIFY(reading.result() == PointFileReading::Result::Loaded);
        QCOMPARE(reading.takePoints().size(), std::size_t{100000});
    }

    void shouldRefuseMorePointsThanAListHolds()
    {
        QTemporaryFile file;
        writePoints(file, 100001);
        PointFileReading reading(file.fileName());
        while (reading.doPiece()) {
        }
        QVERIFY(reading.result() == PointFileReading::Result::TooManyPoints);
    }

    /// A file of a gigabyte that occupies nothing, and whose zeros are no line.
    void shouldGiveAHoleUpQuickly()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("1 1 2 3\n");
        QVERIFY(file.resize(qint64(1) << 30));
        file.close();
        PointFileReading reading(file.fileName());
        while (reading.doPiece()) {
        }
        QVERIFY(reading.percent() < 5);
        QVERIFY(reading.result() == PointFileReading::Result::UnknownFormat);
    }

    void shouldHaveReadTheWholeOfASmallFile()
    {
        for (const QByteArray &content : {QByteArray(), QByteArray("x")}) {
            QTemporaryFile file;
            QVERIFY(file.open());
            file.write(content);
            file.close();
            PointFileReading reading(file.fileName());
            QCOMPARE(reading.percent(), 0);
            while (reading.doPiece()) {
            }
            QCOMPARE(reading.percent(), content.isEmpty() ? 0 : 100);
        }
    }

    void shouldHaveNothingToReadWithoutAFile()
    {
        PointFileReading reading(QStringLiteral("/no/such/file"));
        QVERIFY(!reading.doPiece());
        QVERIFY(reading.result() == PointFileReading::Result::NotOpened);
    }

private:
    static void writePoints(QTemporaryFile &file, int count)
    {
        QVERIFY(file.open());
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += "1 " + QByteArray::number(i) + " 2 3\n";
        QCOMPARE(file.write(text), qint64(text.size()));
        file.close();
    }
};

ROOM_TEST_CLASS(PointFileReadingTest)

#include "PointFileReadingTest.moc"
