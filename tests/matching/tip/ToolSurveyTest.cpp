#include "ToolSurvey.h"

#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <memory>

using Verdict = ToolSurvey::Verdict;

Q_DECLARE_METATYPE(Verdict)

namespace
{

const BackendVersions current = interfaceVersion(1, 23);

/// Two tools, of which the second has a calibrated tip.
void offerTwoTools(RecordingHost &host)
{
    host.setAnswer("measurementtool available", "yes");
    host.setAnswer("measurementtool number_of_tools", "2");
    host.setAnswer("measurementtool tip_calibrated b01", "no");
    host.setAnswer("measurementtool tip_calibrated b02", "yes");
}

} // namespace

class ToolSurveyTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindTheToolsWithACalibratedTip()
    {
        // GIVEN
        RecordingHost host;
        offerTwoTools(host);
        // WHEN
        const ToolSurvey survey = surveyTools(MeasurementAccess(&host, &current));
        // THEN
        QVERIFY(survey.verdict == Verdict::Ready);
        QCOMPARE(survey.toolCount, 2);
        QCOMPARE(survey.calibrated, std::vector<int>{2});
        QCOMPARE(host.reports(), QStringList());
    }

    void shouldSayWhyNothingCanBeMeasured_data()
    {
        QTest::addColumn<QString>("question");
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<Verdict>("verdict");
        QTest::newRow("no tool") << "measurementtool available" << QByteArray("no") << Verdict::NotAvailable;
        QTest::newRow("no number of tools")
            << "measurementtool number_of_tools" << QByteArray("0") << Verdict::NotCalibrated;
        QTest::newRow("no calibrated tip")
            << "measurementtool tip_calibrated b02" << QByteArray("no") << Verdict::NotCalibrated;
    }
    void shouldSayWhyNothingCanBeMeasured()
    {
        // GIVEN
        QFETCH(QString, question);
        QFETCH(QByteArray, answer);
        QFETCH(Verdict, verdict);
        RecordingHost host;
        offerTwoTools(host);
        host.setAnswer(question, answer);
        // WHEN
        const ToolSurvey survey = surveyTools(MeasurementAccess(&host, &current));
        // THEN
        QVERIFY(survey.verdict == verdict);
        QVERIFY(survey.calibrated.empty());
    }

    void shouldAskAnOldControllerNothing()
    {
        // GIVEN
        RecordingHost host;
        offerTwoTools(host);
        const BackendVersions old = interfaceVersion(0, 1);
        // WHEN
        const ToolSurvey survey = surveyTools(MeasurementAccess(&host, &old));
        // THEN
        QVERIFY(survey.verdict == Verdict::NotSupported);
        QCOMPARE(host.calls(), QStringList());
    }

    void shouldEndInTheCallInWhichItsOwnerIsGone_data()
    {
        QTest::addColumn<int>("call");
        for (int call = 1; call <= 5; ++call)
            QTest::addRow("call %d", call) << call;
    }
    void shouldEndInTheCallInWhichItsOwnerIsGone()
    {
        // GIVEN
        QFETCH(int, call);
        RecordingHost host;
        offerTwoTools(host);
        auto controller = std::make_unique<MeasurementAccess>(&host, &current);
        host.onCall([&controller, left = call](const QString &) mutable {
            if (--left == 0)
                controller.reset();
        });
        // WHEN
        (void)surveyTools(*controller, [&controller] { return controller != nullptr; });
        // THEN
        QVERIFY(!controller);
        QCOMPARE(host.count(), call);
    }
};

ROOM_TEST_CLASS(ToolSurveyTest)
#include "ToolSurveyTest.moc"
