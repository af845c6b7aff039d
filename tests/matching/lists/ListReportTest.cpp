#include "ListReport.h"

#include "TestRegistry.h"

#include <QtTest>

#include <numeric>

class ListReportTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellHowManyPointsAListHolds()
    {
        // WHEN, THEN
        QCOMPARE(ListReport::tooManyPoints(),
                 QStringLiteral(
                     "A list holds 100000 points at most; there would be more. The list is as it was."));
    }

    void shouldNameTheFirstTenLines_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("numbers");
        QTest::newRow("one") << 1 << QStringLiteral("1");
        QTest::newRow("ten") << 10 << QStringLiteral("1, 2, 3, 4, 5, 6, 7, 8, 9, 10");
        QTest::newRow("eleven") << 11 << QStringLiteral("1, 2, 3, 4, 5, 6, 7, 8, 9, 10, ...");
    }
    void shouldNameTheFirstTenLines()
    {
        // GIVEN
        QFETCH(int, count);
        QFETCH(QString, numbers);
        std::vector<int> lines(static_cast<std::size_t>(count));
        std::iota(lines.begin(), lines.end(), 1);
        // WHEN, THEN
        QCOMPARE(ListReport::notRead(lines),
                 QStringLiteral("These lines of the pasted text are not three numbers and were left out: ") +
                     numbers + QStringLiteral("."));
    }

    void shouldNameTheFileThatWasNotSaved()
    {
        // WHEN, THEN
        QCOMPARE(ListReport::notSaved(QStringLiteral("/a/100%1.txt")),
                 QStringLiteral("The reference points could not be saved in \"/a/100%1.txt\". An older file "
                                "of that name is as it was."));
    }
};

ROOM_TEST_CLASS(ListReportTest)
#include "ListReportTest.moc"
