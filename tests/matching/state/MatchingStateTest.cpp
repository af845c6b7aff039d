#include "MatchingState.h"
#include "TestRegistry.h"

#include <QtTest>

using Verdict = ToolSurvey::Verdict;

Q_DECLARE_METATYPE(ToolSurvey::Verdict)

namespace
{

const MatchingState::Rows filled{3, 3, true};

ToolSurvey surveyOf(Verdict verdict)
{
    ToolSurvey survey;
    survey.verdict = verdict;
    survey.toolCount = verdict == Verdict::Ready ? 2 : 0;
    return survey;
}

MatchingState openState(Verdict verdict = Verdict::Ready)
{
    MatchingState state;
    state.beginOpening();
    state.opened(surveyOf(verdict));
    return state;
}

} // namespace

class MatchingStateTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLetEverythingBeUsedByWhatTheToolsAllow_data();
    void shouldLetEverythingBeUsedByWhatTheToolsAllow();
    void shouldEnableByTheContentsOfTheLists();
    void shouldOfferNoToolBeforeItIsOpened();
    void shouldOfferMeasuringUntilTheToolIsLookedAt();
    void shouldNotOfferMeasuringDuringAMeasurement();
    void shouldLeaveMeasuringOfferedWhenTheControllerBegan();
    void shouldRecoverFromAFailedStart();
    void shouldNotStartTwice();
    void shouldBlockTheListsDuringASearch();
    void shouldOfferMeasuringAfterASearchOnlyWhenTheToolIsSeen();
    void shouldApplyOnlyWhatIsValid();
    void shouldTakeRecordsOnlyWhileItIsOpen();
    void shouldForgetMeasuringAtTheNextOpening();
};

void MatchingStateTest::shouldLetEverythingBeUsedByWhatTheToolsAllow_data()
{
    QTest::addColumn<Verdict>("verdict");
    QTest::addColumn<bool>("usable");
    QTest::addColumn<bool>("measures");
    QTest::newRow("too old") << Verdict::NotSupported << false << false;
    QTest::newRow("no tool") << Verdict::NotAvailable << false << false;
    QTest::newRow("no calibrated tip") << Verdict::NotCalibrated << true << false;
    QTest::newRow("ready") << Verdict::Ready << true << true;
}

void MatchingStateTest::shouldLetEverythingBeUsedByWhatTheToolsAllow()
{
    QFETCH(Verdict, verdict);
    QFETCH(bool, usable);
    QFETCH(bool, measures);
    MatchingState state;
    state.beginEvaluation();
    state.evaluated(true);
    state.beginOpening();
    state.opened(surveyOf(verdict));
    const MatchingState::Controls controls = state.controls(filled);
    for (const bool enabled : {controls.others, controls.lists, controls.save, controls.replace,
                               controls.clear, controls.apply, state.isOpen()})
        QCOMPARE(enabled, usable);
    QCOMPARE(controls.measure, measures);
    QCOMPARE(controls.progress, measures);
    QCOMPARE(state.verdict(), verdict);
}

void MatchingStateTest::shouldEnableByTheContentsOfTheLists()
{
    const MatchingState state = openState();
    const MatchingState::Controls empty = state.controls({0, 0, false});
    QVERIFY(empty.lists && !empty.save && !empty.clear && !empty.replace);
    QVERIFY(state.controls({1, 0, false}).save);
    QVERIFY(state.controls({0, 1, false}).clear);
    QVERIFY(!state.controls({1, 1, false}).replace);
    QVERIFY(state.controls({0, 1, true}).replace);
}

void MatchingStateTest::shouldOfferNoToolBeforeItIsOpened()
{
    const MatchingState state;
    QVERIFY(!state.controls(filled).measure);
    QVERIFY(!state.controls(filled).progress);
    QVERIFY(!state.controls(filled).apply);
    QCOMPARE(state.toolCount(), 0);
    QVERIFY(!state.isSearching() && !state.isToolReady() && !state.isOpen());
}

void MatchingStateTest::shouldOfferMeasuringUntilTheToolIsLookedAt()
{
    MatchingState state = openState();
    QVERIFY(state.controls(filled).measure);
    state.looked(false);
    QVERIFY(!state.controls(filled).measure);
    state.looked(true);
    QVERIFY(state.controls(filled).measure);
}

void MatchingStateTest::shouldNotOfferMeasuringDuringAMeasurement()
{
    MatchingState state = openState();
    state.beginStart();
    QVERIFY(!state.controls(filled).measure);
    state.started();
    state.looked(true);
    QVERIFY(!state.controls(filled).measure);
    state.measured(0.5);
    state.looked(true);
    QVERIFY(!state.controls(filled).measure);
    state.measured(0.0);
    QVERIFY(!state.controls(filled).measure);
    state.looked(true);
    QVERIFY(state.controls(filled).measure);
}

void MatchingStateTest::shouldLeaveMeasuringOfferedWhenTheControllerBegan()
{
    MatchingState state = openState();
    state.looked(true);
    state.measured(0.5);
    state.looked(true);
    QVERIFY(state.controls(filled).measure);
}

void MatchingStateTest::shouldRecoverFromAFailedStart()
{
    MatchingState state = openState();
    state.beginStart();
    state.started();
    state.measured(0.0); // the end of a measurement that never was
    state.looked(true);
    QVERIFY(state.controls(filled).measure);
}

void MatchingStateTest::shouldNotStartTwice()
{
    MatchingState state = openState();
    QVERIFY(state.canStart());
    state.beginStart();
    QVERIFY(!state.canStart());
    state.started();
    QVERIFY(state.canStart());
}

void MatchingStateTest::shouldBlockTheListsDuringASearch()
{
    MatchingState state = openState();
    state.beginEvaluation();
    state.searchGoesOn();
    const MatchingState::Controls controls = state.controls(filled);
    QVERIFY(controls.others && controls.progress);
    QVERIFY(!controls.lists && !controls.save && !controls.replace && !controls.clear && !controls.apply);
    QVERIFY(state.isSearching());
    QVERIFY(!state.takesRecords());
    QVERIFY(!state.canStart());
    state.evaluated(true);
    QVERIFY(state.controls(filled).lists);
    QVERIFY(state.controls(filled).apply);
    QVERIFY(state.takesRecords());
}

void MatchingStateTest::shouldOfferMeasuringAfterASearchOnlyWhenTheToolIsSeen()
{
    MatchingState state = openState();
    state.searchGoesOn();
    state.looked(true);
    QVERIFY(!state.controls(filled).measure);
    state.evaluated(true);
    QVERIFY(!state.controls(filled).measure);
    state.looked(true);
    QVERIFY(state.controls(filled).measure);
}

void MatchingStateTest::shouldApplyOnlyWhatIsValid()
{
    MatchingState state = openState();
    QVERIFY(!state.controls(filled).apply);
    state.evaluated(true);
    QVERIFY(state.controls(filled).apply);
    state.beginEvaluation();
    QVERIFY(!state.controls(filled).apply);
    state.evaluated(false);
    QVERIFY(!state.controls(filled).apply);
}

void MatchingStateTest::shouldTakeRecordsOnlyWhileItIsOpen()
{
    MatchingState state;
    QVERIFY(!state.takesRecords());
    state.beginOpening();
    QVERIFY(!state.takesRecords());
    state.opened(surveyOf(Verdict::Ready));
    QVERIFY(state.takesRecords());
    QCOMPARE(state.toolCount(), 2);
    state.beginOpening();
    QVERIFY(!state.takesRecords());
    state.opened(surveyOf(Verdict::Ready));
    state.closed();
    QVERIFY(!state.takesRecords());
    QVERIFY(!openState(Verdict::NotAvailable).takesRecords());
}

void MatchingStateTest::shouldForgetMeasuringAtTheNextOpening()
{
    MatchingState state = openState();
    state.measured(0.5);
    state.closed();
    state.beginOpening();
    QCOMPARE(state.toolCount(), 0);
    QVERIFY(!state.isToolReady());
    state.opened(surveyOf(Verdict::Ready));
    state.looked(false);
    state.looked(true);
    QVERIFY(state.controls(filled).measure);
}

ROOM_TEST_CLASS(MatchingStateTest)

#include "MatchingStateTest.moc"
