#include "MatchingReport.h"

#include "MatchingEvaluation.h"
#include "TestRegistry.h"

#include <QtTest>

using Outcome = MatchingEvaluation::Outcome;

Q_DECLARE_METATYPE(Outcome)

class MatchingReportTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellWhyThereIsNoResult_data()
    {
        QTest::addColumn<Outcome>("outcome");
        QTest::addColumn<QString>("text");
        QTest::newRow("few points") << Outcome::NotEnoughPoints
                                    << "Cannot evaluate the transformation : not enough points.";
        QTest::newRow("counts") << Outcome::CountsDiffer
                                << "Cannot evaluate the transformation : number of reference and measured "
                                   "points is different.";
        QTest::newRow("no order") << Outcome::NoValidOrder << "No valid permutation to match transformation.";
        QTest::newRow("many points") << Outcome::TooManyPoints
                                     << "The order of more than 1000 points is not searched. Measure in the "
                                        "order of the table and check \"preserve order of points\".";
        QTest::newRow("no start") << Outcome::StartFailed
                                  << "Error when calculating matching transformation (trafo3d_3trafo) : -3";
        QTest::newRow("no end") << Outcome::RefinementFailed
                                << "Error when optimizing matching transformation (trafo3d_opttrafo) : -3";
    }
    void shouldTellWhyThereIsNoResult()
    {
        // GIVEN
        QFETCH(Outcome, outcome);
        QFETCH(QString, text);
        MatchingEvaluation evaluation;
        evaluation.outcome = outcome;
        evaluation.code = -3;
        // WHEN, THEN
        QCOMPARE(MatchingReport::report(evaluation), text);
    }

    void shouldTellALongResultInPieces()
    {
        // GIVEN
        constexpr int points = 1201;
        MatchingEvaluation evaluation;
        evaluation.outcome = Outcome::Matched;
        evaluation.order.assign(points, 0);
        evaluation.mapped.assign(points, {1.0, 2.0, 3.0});
        evaluation.distancesMm.assign(points, 0.5);
        // WHEN
        QStringList pieces;
        for (int i = 0; i < MatchingReport::pieceCount(evaluation); ++i)
            pieces << MatchingReport::piece(evaluation, i);
        // THEN
        QCOMPARE(pieces.size(), 3);
        QStringList expected{"Transformation evaluation report :", "Residual error : 0"};
        for (int i = 1; i <= points; ++i)
            expected << QStringLiteral(" Point %1 -> 1 : (1.00, 2.00, 3.00) ; distance to reference point = "
                                       "0.50")
                            .arg(i);
        expected << "All values are in [mm]";
        QCOMPARE(pieces.join(QString()), expected.join(QLatin1Char('\n')));
        QCOMPARE(MatchingReport::report(evaluation), pieces.join(QString()));
    }

    void shouldTellAResultPointByPoint()
    {
        // GIVEN
        MatchingEvaluation evaluation;
        evaluation.outcome = Outcome::Matched;
        evaluation.rmsMm = 0.25;
        evaluation.order = {1, 0};
        evaluation.mapped = {{1.0, -2.346, 0.0}, {100.0, 0.004, 5.0}};
        evaluation.distancesMm = {0.126, 12.0};
        // WHEN, THEN
        QCOMPARE(MatchingReport::report(evaluation),
                 QStringLiteral("Transformation evaluation report :\nResidual error : 0.25\n"
                                " Point 1 -> 2 : (1.00, -2.35, 0.00) ; distance to reference point = 0.13\n"
                                " Point 2 -> 1 : (100.00, 0.00, 5.00) ; distance to reference point = 12.00\n"
                                "All values are in [mm]"));
    }

    void shouldTellWhyNothingCanBeMeasured()
    {
        // GIVEN
        using Verdict = ToolSurvey::Verdict;
        // WHEN, THEN
        QCOMPARE(
            MatchingReport::noTool(Verdict::NotSupported),
            QStringLiteral("This controller does not support measuring points with a measurement tool."));
        QCOMPARE(MatchingReport::noTool(Verdict::NotAvailable),
                 QStringLiteral("The controller offers no measurement tool."));
        QCOMPARE(MatchingReport::noTool(Verdict::NotCalibrated), QString());
        QCOMPARE(MatchingReport::noTool(Verdict::Ready), QString());
    }

    void shouldCountThePointsOnceThereAreSome()
    {
        // WHEN, THEN
        QCOMPARE(MatchingReport::measuredOf(0, 0), QString());
        QCOMPARE(MatchingReport::measuredOf(0, 6), QStringLiteral("0 of 6 points measured"));
        QCOMPARE(MatchingReport::measuredOf(2, 0), QStringLiteral("2 of 0 points measured"));
        QCOMPARE(MatchingReport::measuredOf(2, 6), QStringLiteral("2 of 6 points measured"));
    }

    void shouldTellHowFarTheTipMoved()
    {
        // WHEN, THEN
        QCOMPARE(MatchingReport::tipMoved(),
                 QStringLiteral("Measurement failed :\nTip moved too much during measurement"));
        QCOMPARE(MatchingReport::tipMoved(4.0, 2.0),
                 QStringLiteral("Measurement failed :\nTip moved too much during measurement:\n\to Variance "
                                "= 4.00\n\to Standard deviation = 2.00"));
        QVERIFY(MatchingReport::worstRow(7.504).contains(QStringLiteral(", 7.50 mm,")));
    }
};

ROOM_TEST_CLASS(MatchingReportTest)
#include "MatchingReportTest.moc"
