#include "ToolSampler.h"
#include "TestRegistry.h"

#include <QByteArray>
#include <QtTest>

using Event = ToolSampler::Event;

namespace
{

QByteArray line(int flags, const char *position = "[1 2 3]", const char *quality = "1.0")
{
    return "6dmt 1 [0 " + QByteArray(quality) + ' ' + QByteArray::number(flags) + ']' + position +
           "[1 0 0 0 1 0 0 0 1]";
}

Event eventAfter(ToolSampler &sampler, const QByteArray &record)
{
    if (!sampler.decode(record.constData()))
        return Event::Ignored;
    sampler.watchButtons();
    return sampler.sample(0).event;
}

} // namespace

class ToolSamplerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldIgnoreEverythingWithoutASelectedTool();
    void shouldIgnoreIndicesOutsideTheList();
    void shouldGoThroughAMeasurement();
    void shouldStartOncePerPress();
    void shouldTakeThePointWhileAButtonIsHeld();
    void shouldBeginAnewAtEachOpening();
    void shouldForgetTheSamplesOfAnotherTool();
    void shouldKeepTheSamplesWhenAStartIsRequested();
    void shouldAcceptRecordsOfAnyTextBelowItsBuffer();
};

void ToolSamplerTest::shouldIgnoreEverythingWithoutASelectedTool()
{
    ToolSampler sampler;
    QCOMPARE(sampler.selectedTool(), ToolSampler::noTool);
    QCOMPARE(eventAfter(sampler, line(1)), Event::Ignored);
    QVERIFY(!sampler.isTracked());
    QCOMPARE(sampler.toolCount(), 1);
}

void ToolSamplerTest::shouldIgnoreIndicesOutsideTheList()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    QVERIFY(sampler.decode(line(1).constData()));
    QCOMPARE(sampler.sample(1).event, Event::Ignored);
    QCOMPARE(sampler.sample(-1).event, Event::Ignored);
}

void ToolSamplerTest::shouldGoThroughAMeasurement()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    sampler.setLimits(0.5, 0.1);
    QVERIFY(sampler.decode("ts 10"));
    QCOMPARE(eventAfter(sampler, line(0)), Event::Ended);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
    QCOMPARE(eventAfter(sampler, line(1)), Event::FirstSample);
    QVERIFY(sampler.isTracked());
    QVERIFY(sampler.decode("ts 10.5"));
    const ToolSampler::Step second = sampler.sample(0);
    QCOMPARE(second.event, Event::Sampled);
    QCOMPARE(second.elapsed, 0.5);
    QVERIFY(sampler.decode(line(0).constData()));
    const ToolSampler::Step last = sampler.sample(0);
    QCOMPARE(last.event, Event::Ended);
    QCOMPARE(last.judgement.outcome, TipCollector::Outcome::Point);
    QCOMPARE(last.judgement.mean, (MatchingPoint{1, 2, 3}));
    QCOMPARE(sampler.sample(0).judgement.outcome, TipCollector::Outcome::Nothing);
}

void ToolSamplerTest::shouldStartOncePerPress()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
    QCOMPARE(eventAfter(sampler, line(2)), Event::Ended);
    QCOMPARE(eventAfter(sampler, "ts 1"), Event::Ended);
    QCOMPARE(eventAfter(sampler, line(2 + 4)), Event::StartRequested);
    QCOMPARE(eventAfter(sampler, line(0)), Event::Ended);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
    sampler.selectTool(1);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
}

void ToolSamplerTest::shouldTakeThePointWhileAButtonIsHeld()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    sampler.setLimits(0.0, 1.5);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
    QCOMPARE(eventAfter(sampler, line(2 + 1)), Event::FirstSample);
    QVERIFY(sampler.decode(line(2).constData()));
    sampler.watchButtons();
    const ToolSampler::Step end = sampler.sample(0);
    QCOMPARE(end.event, Event::Ended);
    QCOMPARE(end.judgement.outcome, TipCollector::Outcome::Point);
}

void ToolSamplerTest::shouldBeginAnewAtEachOpening()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
    sampler.restart();
    QCOMPARE(eventAfter(sampler, "ts 1"), Event::Ignored); // what the last opening saw is gone
    QVERIFY(!sampler.isTracked());
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
}

void ToolSamplerTest::shouldForgetTheSamplesOfAnotherTool()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    sampler.setLimits(0.0, 1.5);
    QCOMPARE(eventAfter(sampler, line(1)), Event::FirstSample);
    sampler.selectTool(2);
    QVERIFY(!sampler.isTracked());
    sampler.selectTool(1);
    QVERIFY(sampler.decode(line(0).constData()));
    QCOMPARE(sampler.sample(0).judgement.outcome, TipCollector::Outcome::Nothing);
}

void ToolSamplerTest::shouldKeepTheSamplesWhenAStartIsRequested()
{
    ToolSampler sampler;
    sampler.selectTool(1);
    sampler.setLimits(0.0, 1.5);
    QCOMPARE(eventAfter(sampler, line(1)), Event::FirstSample);
    QCOMPARE(eventAfter(sampler, line(2)), Event::StartRequested);
    QVERIFY(sampler.decode(line(0, "[9 9 9]", "-1.0").constData()));
    QCOMPARE(sampler.sample(0).judgement.outcome, TipCollector::Outcome::Point);
}

void ToolSamplerTest::shouldAcceptRecordsOfAnyTextBelowItsBuffer()
{
    ToolSampler sampler;
    QVERIFY(!sampler.decode(nullptr));
    QVERIFY(!sampler.decode(""));
    QByteArray text("ts 1");
    text += QByteArray(10239 - text.size(), ' ');
    QVERIFY(sampler.decode(text.constData()));
    text += ' ';
    QVERIFY(!sampler.decode(text.constData()));
}

ROOM_TEST_CLASS(ToolSamplerTest)

#include "ToolSamplerTest.moc"
