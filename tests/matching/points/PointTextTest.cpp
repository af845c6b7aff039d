#include "PointText.h"

#include "CoordinateText.h"
#include "TestRegistry.h"

#include <QtTest>

#include <memory>

namespace
{

std::unique_ptr<PointText> readAll(const QString &text, std::size_t room = 100)
{
    auto reading = std::make_unique<PointText>(text, room);
    while (reading->doPiece()) {
    }
    return reading;
}

QString shown(const PointRow &row, std::size_t axis)
{
    return row.texts[axis].isNull() ? CoordinateText::of(row.point[axis]) : row.texts[axis];
}

QString joined(const PointRows &rows)
{
    QString text;
    for (const PointRow &row : rows)
        text += shown(row, 0) + '|' + shown(row, 1) + '|' + shown(row, 2) + '/';
    return text;
}

} // namespace

class PointTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldWriteWhatSpreadsheetsTake()
    {
        QCOMPARE(PointText::write({{"1.00", "-2.50", "3.00"}, {"4.00", "5.00", "6.00"}}),
                 QString("1.00\t-2.50\t3.00\n4.00\t5.00\t6.00\n"));
        QCOMPARE(PointText::write({}), QString());
    }

    void shouldReadThreeNumbersPerLine_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("rows");
        QTest::newRow("tabs") << "1.5\t-2\t3\n4\t5\t6\n"
                              << "1.50|-2.00|3.00/4.00|5.00|6.00/";
        QTest::newRow("no last line break") << "1\t2\t3"
                                            << "1.00|2.00|3.00/";
        QTest::newRow("carriage returns") << "1\t2\t3\r\n4\t5\t6\r\n"
                                          << "1.00|2.00|3.00/4.00|5.00|6.00/";
        QTest::newRow("semicolons") << "1;2;3"
                                    << "1.00|2.00|3.00/";
        QTest::newRow("semicolons and blanks") << " 1 ; 2; 3 "
                                               << "1.00|2.00|3.00/";
        QTest::newRow("blanks") << "  1   2 3 "
                                << "1.00|2.00|3.00/";
        QTest::newRow("decimal commas") << "1,5\t2,25\t-0,125"
                                        << "1.50|2.25|-0.12/";
        QTest::newRow("empty lines") << "\n1 2 3\n\n  \n4 5 6\n\n"
                                     << "1.00|2.00|3.00/4.00|5.00|6.00/";
        QTest::newRow("nothing") << ""
                                 << "";
    }

    void shouldReadThreeNumbersPerLine()
    {
        QFETCH(QString, text);
        QFETCH(QString, rows);
        const auto read = readAll(text);
        QCOMPARE(joined(read->rows()), rows);
        QVERIFY(read->linesNotRead().empty());
    }

    void shouldKeepATextOnlyWhereTheNumberWouldShowAnother()
    {
        const auto read = readAll("1,5\t+2\t-007.1");
        const PointRow &row = read->rows().at(0);
        QCOMPARE(row.point, (MatchingPoint{1.5, 2.0, -7.1}));
        QVERIFY(row.texts[0].isNull());
        QCOMPARE(row.texts[1], QString("+2.00"));
        QCOMPARE(row.texts[2], QString("-007.10"));
    }

    void shouldHandItsRowsOver()
    {
        const auto read = readAll("1 2 3");
        QCOMPARE(joined(read->takeRows()), QString("1.00|2.00|3.00/"));
        QVERIFY(read->rows().empty());
    }

    void shouldNameTheLinesThatItCouldNotRead_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("two numbers") << "1\t2";
        QTest::newRow("four numbers") << "1\t2\t3\t4";
        QTest::newRow("an empty cell") << "1\t\t3";
        QTest::newRow("a word") << "x\ty\tz";
        QTest::newRow("thousands") << "1.234,5\t2\t3";
        QTest::newRow("several points") << "1.2.3 4 5";
        QTest::newRow("decimal commas between commas") << "1,5,2,5,3,5";
        QTest::newRow("an exponent") << "1e3 2 3";
    }

    void shouldNameTheLinesThatItCouldNotRead()
    {
        QFETCH(QString, line);
        const auto read = readAll("1 2 3\n\n" + line + "\n4 5 6\n" + line);
        QCOMPARE(joined(read->rows()), QString("1.00|2.00|3.00/4.00|5.00|6.00/"));
        QCOMPARE(read->linesNotRead(), (std::vector<int>{3, 5}));
    }

    void shouldTellThatThereIsNoRoom()
    {
        QVERIFY(!readAll("1 2 3\n4 5 6\n", 2)->isTooLong());
        QVERIFY(readAll("1 2 3\n4 5 6\n", 1)->isTooLong());
        QVERIFY(!readAll("no number\n", 0)->isTooLong());
    }

    void shouldReadALongTextInPieces()
    {
        PointText reading(QString("1 2 3\n").repeated(2000), 2000);
        QCOMPARE(reading.percent(), 0);
        QVERIFY(reading.doPiece());
        QCOMPARE(reading.percent(), 25);
        while (reading.doPiece()) {
        }
        QCOMPARE(reading.percent(), 100);
        QCOMPARE(reading.rows().size(), std::size_t{2000});
    }
};

ROOM_TEST_CLASS(PointTextTest)

#include "PointTextTest.moc"
