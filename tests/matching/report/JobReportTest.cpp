#include "JobReport.h"

#include "JobRecord.h"
#include "TestRegistry.h"

#include <QTimeZone>
#include <QtTest>

namespace
{

/// Three corners measured in another order by a tool whose room is turned by a quarter about z and shifted.
JobRecord recordOfCorners()
{
    JobRecord record;
    record.time = QDateTime({2026, 3, 5}, {14, 7, 9}, QTimeZone(3600));
    record.moduleVersion = QStringLiteral("v2.0.14");
    record.conditions = {2, 1.5, 0.25};
    record.references = {{0, 0, 0}, {400, 0, 0}, {0, 300.125, -0.0}};
    record.measured = {{100, 600, -50}, {100, 200, -50}, {-200.125, 200, -50}};
    record.evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    record.evaluation.order = {1, 0, 2};
    record.evaluation.distancesMm = {0.5, 0.1, 0.0};
    record.evaluation.rmsMm = 0.3;
    bsMatrix &matrix = record.evaluation.roomFromReference;
    matrix.setColumn(0, {0, 1, 0}, 0);
    matrix.setColumn(1, {-1, 0, 0}, 0);
    matrix.setColumn(3, {100, 200, -50}, 1);
    record.scaling = 1.02;
    record.before.translation = {1.5, -0.0, -2.25};
    record.before.rotation = {0.8, -0.6, 0, 0.6, 0.8, 0, 0, 0, 1};
    record.before.scaling = 1.02;
    record.notices = QStringList{QStringLiteral("The first."), QStringLiteral("The second.")};
    return record;
}

} // namespace

class JobReportTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginWithTheScalingOfNoChange() { QCOMPARE(JobRecord().scaling, 1.0); }

    void shouldTellEverythingOfAJob()
    {
        QCOMPARE(
            JobReport::of(recordOfCorners()),
            QStringLiteral("Room adjustment based on reference points\n"
                           "Date and time: 2026-03-05T14:07:09+01:00\n"
                           "Module version: v2.0.14\n"
                           "Measurement tool: M2\n"
                           "Duration of a measurement: 1.5 s\n"
                           "Tip tolerance: 0.25 mm\n"
                           "\n"
                           "Reference points: number, x, y, z in mm\n"
                           "1 0 0 0\n"
                           "2 400 0 0\n"
                           "3 0 300.125 0\n"
                           "\n"
                           "Measured points: number, x, y, z in mm\n"
                           "1 100 600 -50\n"
                           "2 100 200 -50\n"
                           "3 -200.125 200 -50\n"
                           "\n"
                           "Pairs: reference point, measured point, distance in mm\n"
                           "1 2 0.5\n"
                           "2 1 0.1\n"
                           "3 3 0\n"
                           "Order of the points: searched\n"
                           "Residual error: 0.3 mm\n"
                           "\n"
                           "Transformation that the controller gets\n"
                           "Rotation, row by row: 0.00000000 -1.00000000 0.00000000 1.00000000 0.00000000 "
                           "0.00000000 0.00000000 0.00000000 1.00000000\n"
                           "Translation in mm: -200.000 100.000 50.000\n"
                           "Scaling: 1.02000\n"
                           "\n"
                           "Transformation of the controller before\n"
                           "Rotation, row by row: 0.80000000 -0.60000000 0.00000000 0.60000000 0.80000000 "
                           "0.00000000 0.00000000 0.00000000 1.00000000\n"
                           "Translation in mm: 1.500 0.000 -2.250\n"
                           "Scaling: 1.02000\n"
                           "\n"
                           "Notices\n"
                           "The first.\n"
                           "The second.\n"));
    }

    void shouldSayThatTheOrderWasGivenAndNothingWasNoticed()
    {
        JobRecord record = recordOfCorners();
        record.order = MatchingEvaluation::Order::Preserved;
        record.notices.clear();
        const QString report = JobReport::of(record);
        QVERIFY(report.contains(QStringLiteral("\nOrder of the points: preserved\n")));
        QVERIFY(report.endsWith(QStringLiteral("\n\nNotices: none\n")));
    }

    void shouldMakeALongReportInPieces()
    {
        // GIVEN
        constexpr std::size_t points = 2000;
        JobRecord record = recordOfCorners();
        record.references.assign(points, {1.5, 2, 3});
        record.measured.assign(points, {4, 5, 6});
        record.evaluation.order.assign(points, 7);
        record.evaluation.distancesMm.assign(points, 0.25);
        JobReport report(record);
        QCOMPARE(report.percent(), 0);
        int written = 0;
        int pieces = 1;
        // WHEN
        for (; report.doPiece(); ++pieces) {
            const int lines = report.text().count(QLatin1Char('\n'));
            QVERIFY(lines - written <= 520);
            written = lines;
        }
        // THEN
        QVERIFY(pieces >= 12);
        QCOMPARE(report.percent(), 100);
        QVERIFY(!report.doPiece());
        const QStringList lines = report.text().split(QLatin1Char('\n'));
        for (std::size_t number : {std::size_t{1}, std::size_t{500}, std::size_t{501}, points}) {
            QCOMPARE(lines.count(QStringLiteral("%1 1.5 2 3").arg(number)), 1);
            QCOMPARE(lines.count(QStringLiteral("%1 4 5 6").arg(number)), 1);
            QCOMPARE(lines.count(QStringLiteral("%1 8 0.25").arg(number)), 1);
        }
        QCOMPARE(JobReport::of(record), report.text());
    }

    void shouldKeepEveryDigit_data()
    {
        QTest::addColumn<double>("coordinate");
        QTest::addColumn<QString>("text");
        QTest::newRow("a third") << 1.0 / 3.0 << QStringLiteral("0.3333333333333333");
        QTest::newRow("single precision") << double(12.34f) << QStringLiteral("12.34000015258789");
        QTest::newRow("large") << 1e21 << QStringLiteral("1000000000000000000000");
        QTest::newRow("small") << -1.25e-7 << QStringLiteral("-0.000000125");
    }

    void shouldKeepEveryDigit()
    {
        QFETCH(double, coordinate);
        QFETCH(QString, text);
        JobRecord record = recordOfCorners();
        record.measured[1][2] = coordinate;
        QVERIFY(JobReport::of(record).contains(QStringLiteral("\n2 100 200 %1\n").arg(text)));
    }
};

ROOM_TEST_CLASS(JobReportTest)

#include "JobReportTest.moc"
