#include "MatchingNotices.h"

#include "FitTrust.h"
#include "MatchingEvaluation.h"
#include "TestRegistry.h"
#include "TwoLists.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollArea>
#include <QtTest>

namespace
{

/// The notices in a window of their own.
struct Shown {
    QScrollArea area;
    QLabel label;
    MatchingNotices notices{&area, &label};
};

/// A result with a residual of 20 mm.
MatchingEvaluation badFit()
{
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    evaluation.rmsMm = 20.0;
    evaluation.distancesMm = {20.0, 20.0, 20.0};
    return evaluation;
}

} // namespace

Q_DECLARE_METATYPE(MatchingPoints)

class MatchingNoticesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellWhyNothingCanBeMeasured()
    {
        // GIVEN
        Shown shown;
        // WHEN
        shown.notices.tellTools(ToolSurvey::Verdict::NotAvailable);
        // THEN
        QCOMPARE(shown.label.text(), QStringLiteral("The controller offers no measurement tool."));
    }

    void shouldTellThatNoDataArrivesUntilTheyDo()
    {
        // GIVEN
        Shown shown;
        // WHEN, THEN
        shown.notices.tellData(false);
        QVERIFY(shown.label.text().startsWith(QStringLiteral("No measurement data arrives")));
        shown.notices.tellData(true);
        QCOMPARE(shown.label.text(), QString());
    }

    void shouldTellWhatBecameOfTheLastEditing()
    {
        // GIVEN
        Shown shown;
        const TwoLists lists;
        QGuiApplication::clipboard()->setText(QStringLiteral("1 2 3\nno point\n4 5 6"));
        // WHEN
        lists.editing->pasteReferences();
        shown.notices.tellEditing(*lists.editing);
        // THEN
        QCOMPARE(
            shown.label.text(),
            QStringLiteral("These lines of the pasted text are not three numbers and were left out: 2."));
        lists.editing->undo();
        shown.notices.tellEditing(*lists.editing);
        QCOMPARE(shown.label.text(), QString());
    }

    void shouldTellAScalingOnlyWithAResult()
    {
        // GIVEN
        Shown shown;
        shown.notices.setScaling(1.02);
        QCOMPARE(shown.label.text(), QString());
        // WHEN
        shown.notices.tellResult(badFit(), FitTrust(), 100.0);
        // THEN
        QVERIFY(shown.label.text().contains(QStringLiteral("1.02")));
        shown.notices.forgetResult();
        QCOMPARE(shown.label.text(), QString());
    }

    void shouldTellAMisfitUnlessTheListsHaveExplainedIt_data()
    {
        QTest::addColumn<MatchingPoints>("measured");
        QTest::addColumn<bool>("explained");
        const MatchingPoints corner = {{0, 0, 0}, {100, 0, 0}, {0, 50, 0}, {0, 0, 20}};
        MatchingPoints inches = corner;
        for (MatchingPoint &point : inches) {
            for (double &coordinate : point)
                coordinate /= 25.4;
        }
        QTest::newRow("of one size") << corner << false;
        QTest::newRow("in inches") << inches << true;
    }
    void shouldTellAMisfitUnlessTheListsHaveExplainedIt()
    {
        // GIVEN
        QFETCH(MatchingPoints, measured);
        QFETCH(bool, explained);
        const MatchingPoints corner = {{0, 0, 0}, {100, 0, 0}, {0, 50, 0}, {0, 0, 20}};
        Shown shown;
        shown.notices.tellPoints(corner, measured);
        const QString ofLists = shown.label.text();
        // WHEN
        shown.notices.tellResult(badFit(), FitTrust(), 1.5);
        // THEN
        QCOMPARE(!ofLists.isEmpty(), explained);
        QCOMPARE(shown.label.text() == ofLists, explained);
    }
};

ROOM_TEST_CLASS(MatchingNoticesTest)
#include "MatchingNoticesTest.moc"
