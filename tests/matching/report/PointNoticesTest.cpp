#include "PointNotices.h"

#include "FitTrust.h"
#include "MatchingEvaluation.h"
#include "ReferenceGeometry.h"
#include "SetHints.h"
#include "TestRegistry.h"

#include <QtTest>

#include <limits>

class PointNoticesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayNothingOfPointsThatAreFine()
    {
        QCOMPARE(PointNotices::ofLists(SetHints(), ReferenceGeometry()), QString());
        QCOMPARE(PointNotices::ofResult(MatchingEvaluation(), 1.5), QString());
        QCOMPARE(PointNotices::ofScaling(1.0), QString());
    }

    void shouldAskForMillimetresWithTheFactor_data()
    {
        QTest::addColumn<int>("factor");
        QTest::addColumn<QString>("told");
        QTest::newRow("inches") << int(SetHints::Factor::Inch)
                                << QStringLiteral("lie 25.4 times as far apart");
        QTest::newRow("metres") << int(SetHints::Factor::Thousand) << QStringLiteral("lie 1000 times as");
    }

    void shouldAskForMillimetresWithTheFactor()
    {
        QFETCH(int, factor);
        QFETCH(QString, told);
        SetHints hints;
        hints.factor = SetHints::Factor(factor);
        hints.larger = SetHints::Larger::Measured;
        const QString measured = PointNotices::ofLists(hints, {});
        QVERIFY(measured.startsWith(QStringLiteral("The measured points lie")));
        QVERIFY(measured.contains(told));
        QVERIFY(measured.endsWith(QStringLiteral("are both in millimetres?")));
        hints.larger = SetHints::Larger::References;
        QVERIFY(PointNotices::ofLists(hints, {}).startsWith(QStringLiteral("The reference points lie")));
    }

    void shouldNameTheRowsAsTheTablesCountThem()
    {
        SetHints hints;
        hints.sameMeasured = 0;
        hints.sameMeasuredToo = 4;
        ReferenceGeometry geometry;
        geometry.coinciding = ClosestPair{1, 2, 0.0};
        const QStringList lines = PointNotices::ofLists(hints, geometry).split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[0].startsWith(QStringLiteral("The measured points 1 and 5 are the same place.")));
        QVERIFY(lines[1].contains(QStringLiteral("the reference points 2 and 3 nearly coincide")));
    }

    void shouldNotJudgeRowsThatAreNotFilledInYet()
    {
        SetHints hints;
        hints.zeroReferences = 3;
        ReferenceGeometry geometry;
        geometry.nearlyOnLine = true;
        geometry.coinciding = ClosestPair{0, 1, 0.0};
        QCOMPARE(PointNotices::ofLists(hints, geometry),
                 QStringLiteral("3 reference points are still 0 0 0. Fill them in or remove them."));
    }

    void shouldTellAMirrorImage()
    {
        SetHints hints;
        hints.mirrored = true;
        QVERIFY(PointNotices::ofLists(hints, {}).contains(QStringLiteral("mirror image")));
    }

    void shouldTellThatOtherOrdersWereNotLookedFor()
    {
        MatchingEvaluation evaluation;
        evaluation.otherOrdersUnknown = true;
        QCOMPARE(PointNotices::ofResult(evaluation, 1.5),
                 QStringLiteral("Not checked, since the search was cancelled: whether another order of the "
                                "measured points fits equally well."));
    }

    void shouldTellAMisfitAboveTheLimitOnly()
    {
        MatchingEvaluation evaluation;
        evaluation.rmsMm = 1.5;
        QCOMPARE(PointNotices::ofResult(evaluation, 1.5), QString());
        evaluation.rmsMm = 1.6;
        const QString told = PointNotices::ofResult(evaluation, 1.5);
        QVERIFY(told.startsWith(QStringLiteral("The points do not fit")));
        QVERIFY(told.contains(QStringLiteral("1.5 mm")));
        QCOMPARE(PointNotices::ofResult(evaluation, std::numeric_limits<double>::infinity()), QString());
    }

    void shouldTellTheResidualWithoutTheWorstPoint()
    {
        FitTrust trust;
        trust.withoutWorst = FitTrust::WithoutWorst{3, 0.0249, false};
        QCOMPARE(PointNotices::ofWorst(trust, 0.03),
                 QStringLiteral("Residual error without point 4: 0.02 mm."));
        trust.withoutWorst->stands = true;
        QCOMPARE(
            PointNotices::ofWorst(trust, 1.0),
            QStringLiteral("Residual error without point 4: 0.02 mm. Check this point or measure it again."));
    }

    void shouldNotLeaveAPointOutOfTooFewOrOfAPerfectFit()
    {
        FitTrust trust;
        QCOMPARE(PointNotices::ofWorst(trust, 1.0), QString());
        trust.withoutWorst = FitTrust::WithoutWorst{3, 0.001, false};
        QCOMPARE(PointNotices::ofWorst(trust, 0.009), QString());
    }

    void shouldTellTheErrorsToBeExpected()
    {
        FitTrust trust;
        QCOMPARE(PointNotices::ofExpected(trust), QString());
        trust.expected = FitTrust::Expected{0.041, 0.126, {400.0, -250.5, 0.0}};
        QCOMPARE(
            PointNotices::ofExpected(trust),
            QStringLiteral("Expected error: 0.04 mm at the centre of the reference points, 0.13 mm at the "
                           "corner farthest from it (400.00, -250.50, 0.00)."));
    }

    void shouldTellAScalingThatTheControllerKeeps_data()
    {
        QTest::addColumn<double>("scaling");
        QTest::addColumn<QString>("told");
        QTest::newRow("larger") << 1.02 << QStringLiteral("The scaling 1.02000 of the room");
        QTest::newRow("last decimal") << 0.99999 << QStringLiteral("The scaling 0.99999 of the room");
        QTest::newRow("below the last decimal") << 1.000004 << QString();
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << QString();
    }

    void shouldTellAScalingThatTheControllerKeeps()
    {
        QFETCH(double, scaling);
        QFETCH(QString, told);
        const QString sentence = PointNotices::ofScaling(scaling);
        QCOMPARE(sentence.isEmpty(), told.isEmpty());
        QVERIFY(sentence.startsWith(told));
    }
};

ROOM_TEST_CLASS(PointNoticesTest)

#include "PointNoticesTest.moc"
