#include "PointMeasuring.h"

#include "InterfaceVersion.h"
#include "MatchingState.h"
#include "OpenedDialog.h"
#include "TestRegistry.h"

#include <QtTest>

#include <memory>
#include <vector>

namespace
{

/// A measuring with tool 1 that was opened on a scripted host.
struct Opened {
    Opened()
    {
        measuring = std::make_unique<PointMeasuring>(&host, &versions, state, nullptr);
        state.opened(measuring->open());
        measuring->selectTool(1);
        QObject::connect(measuring.get(), &PointMeasuring::ended, measuring.get(),
                         [this](const TipCollector::Judgement &judgement) { ends.push_back(judgement); });
        host.clear();
    }

    int frame(double time, const QByteArray &flags, const MatchingPoint &tip = {}, double quality = 1.0)
    {
        const QByteArray stamp = "ts " + QByteArray::number(time);
        measuring->dataReceived("ts", stamp.constData());
        return measuring->dataReceived("6dmt2", OpenedDialog::toolRecord(tip, quality, flags).constData());
    }

    RecordingHost host;
    BackendVersions versions = interfaceVersion(1, 23);
    MatchingState state;
    std::unique_ptr<PointMeasuring> measuring;
    std::vector<TipCollector::Judgement> ends;
};

const QByteArray resting = "0 0 0 0";
const QByteArray measures = "1 0 0 0";
const QByteArray pressed = "0 1 0 0";

} // namespace

class PointMeasuringTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFollowAMeasurementToItsPoint()
    {
        Opened o;
        const QSignalSpy sampled(o.measuring.get(), &PointMeasuring::sampled);
        QCOMPARE(o.frame(1.0, measures, {1, 2, 3}), 0);
        QCOMPARE(sampled.count(), 0);
        QCOMPARE(o.frame(1.5, measures, {1, 2, 3.5}), 0);
        QCOMPARE(o.frame(2.0, measures, {1, 2, 4}), 0);
        QCOMPARE(sampled.count(), 4); // the time's record counts as well as the tool's
        QCOMPARE(sampled.last().first().toDouble(), 1.0);
        QVERIFY(o.measuring->isTracked());
        QVERIFY(o.ends.empty());
        o.frame(2.1, resting);
        QCOMPARE(o.ends.size(), std::size_t(1));
        QVERIFY(o.ends[0].outcome == TipCollector::Outcome::Point);
        QCOMPARE(o.ends[0].mean[2], 3.5);
    }

    void shouldAskForAMeasurementWhenAButtonIsPressed()
    {
        Opened o;
        const QSignalSpy asked(o.measuring.get(), &PointMeasuring::startRequested);
        o.frame(1.0, resting);
        QCOMPARE(asked.count(), 0);
        o.frame(1.1, pressed);
        o.frame(1.2, pressed);
        QCOMPARE(asked.count(), 1);
    }

    void shouldTellTheControllerAndTheWindowHowItMeasures()
    {
        Opened o;
        o.host.setAnswer("measurementtool measurement_duration b01", "2.5");
        o.host.setAnswer("measurementtool measurement_tip_tolerance b01", "0.75");
        const QSignalSpy starting(o.measuring.get(), &PointMeasuring::starting);
        const QSignalSpy known(o.measuring.get(), &PointMeasuring::durationKnown);
        o.measuring->start();
        QCOMPARE(starting.count(), 1);
        QCOMPARE(known.count(), 1);
        QCOMPARE(known.first().first().toDouble(), 2.5);
        QCOMPARE(o.host.calls(), QStringList({"read measurementtool measurement_duration b01",
                                              "read measurementtool measurement_tip_tolerance b01",
                                              "command velmar2 measurementtool start_measurement b01"}));
        const MeasuringConditions conditions = o.measuring->conditions();
        QCOMPARE(conditions.tool, 1);
        QCOMPARE(conditions.durationSeconds, 2.5);
        QCOMPARE(conditions.toleranceMm, 0.75);
        QVERIFY(o.state.canStart());
    }

    void shouldNotStartWithoutAToolOrWhileItStarts()
    {
        Opened o;
        o.measuring->selectTool(ToolSampler::noTool);
        o.measuring->start();
        QCOMPARE(o.host.calls(), QStringList());
        QVERIFY(!o.measuring->isTracked());
        o.measuring->selectTool(1);
        o.host.onCall([&o](const QString &) { o.measuring->start(); });
        o.measuring->start();
        QCOMPARE(o.host.callsOf({"command"}).size(), 1);
    }

    void shouldRefuseWhatCannotBeDecodedAndLeaveWhatIsNotForIt()
    {
        Opened o;
        const QSignalSpy sampled(o.measuring.get(), &PointMeasuring::sampled);
        QCOMPARE(o.measuring->dataReceived("6dmt2", nullptr), -2);
        const QByteArray record = OpenedDialog::toolRecord({}, 1.0, measures);
        QCOMPARE(o.measuring->dataReceived("6dmt 1", record.constData()), 0);
        o.state.searchGoesOn();
        o.frame(1.0, measures);
        o.frame(1.5, measures);
        o.state.evaluated(false);
        o.state.closed();
        o.frame(2.0, measures);
        o.frame(2.5, measures);
        QCOMPARE(sampled.count(), 0);
    }

    void shouldForgetItsSamplesWhenAskedTo()
    {
        Opened o;
        o.frame(1.0, measures);
        o.frame(2.5, measures);
        o.measuring->drop();
        o.frame(2.6, resting);
        QCOMPARE(o.ends.size(), std::size_t(1));
        QVERIFY(o.ends[0].outcome == TipCollector::Outcome::Nothing);
    }

    void shouldSurviveItsEndInAnyCallAndSignal_data()
    {
        QTest::addColumn<int>("call");
        QTest::newRow("duration") << 1;
        QTest::newRow("tolerance") << 2;
        QTest::newRow("start") << 3;
    }

    void shouldSurviveItsEndInAnyCallAndSignal()
    {
        QFETCH(int, call);
        Opened o;
        o.host.onCall([&o, call](const QString &) {
            if (o.host.count() == call)
                o.measuring.reset();
        });
        o.measuring->start();
        QVERIFY(!o.measuring);
        QCOMPARE(o.host.count(), call);
        QVERIFY(!o.state.canStart()); // nobody is left who would say that it has started
    }
};

ROOM_TEST_CLASS(PointMeasuringTest)

#include "PointMeasuringTest.moc"
