#include "BuiltFiles.h"
#include "FaultTable.h"
#include "RequiredReports.h"

#include "TestLoad.h"
#include "TestRegistry.h"

#include <QFile>
#include <QtTest>

#include <algorithm>

namespace
{

constexpr std::size_t commaStride = 7;

// Every call fails in a run of its own, since the table of the documents comes from it. Nonsense and the end
// of the module come to a part of the calls, to others in each journey: the accesses and the dialogs are
// asked for each by tests of their own.
constexpr int nonsensePart = 3;
constexpr int endPart = 6;

/// Answers that no controller gives, one after another.
QString garbage(std::size_t index)
{
    static const QStringList texts = {QString(), QStringLiteral("no "), QStringLiteral("velmar2 OK"),
                                      QStringLiteral("1,5 x nan inf 1e999"),
                                      QStringLiteral("yes\"\"%s%n c99")};
    return texts.at(static_cast<int>(index % static_cast<std::size_t>(texts.size())));
}

QString failure(std::size_t index)
{
    return QStringLiteral("sim fault fail %1 \"\"").arg(index + 1);
}

QString nonsense(std::size_t index)
{
    const QString text = garbage(index);
    const QString line = QStringLiteral("sim fault answer %1 \"\" =").arg(index + 1);
    return text.isEmpty() ? line : line + QStringLiteral(" \"") + text + QLatin1Char('"');
}

QString place(const SweptRun &baseline, std::size_t index)
{
    return QStringLiteral("call %1 (%2): %3")
        .arg(index + 1)
        .arg(baseline.calls[index].stage, QString::fromStdString(baseline.calls[index].call.text));
}

/// What of a run is not as it must be; empty when nothing is.
QStringList complaints(const SweptRun &baseline, std::size_t index, const SweptRun &run,
                       const std::optional<QString> &required)
{
    QStringList found;
    if (!required)
        return {QStringLiteral("nobody has said what must be reported")};
    if (index >= run.calls.size())
        return {QStringLiteral("the call was not reached")};
    for (std::size_t i = 0; i < index; ++i) {
        if (run.calls[i].call.text != baseline.calls[i].call.text)
            found << QStringLiteral("another way already at call %1").arg(i + 1);
    }
    QStringList reports = run.calls[index].reports;
    for (const QString &report : baseline.calls[index].reports)
        reports.removeOne(report);
    const QStringList wanted = required->isEmpty() ? QStringList() : QStringList{*required};
    if (reports != wanted)
        found << QStringLiteral("reported: ") + reports.join(QStringLiteral("; "));
    if (!run.stuck.isEmpty())
        found << QStringLiteral("did not close: ") + run.stuck.join(QStringLiteral("; "));
    if (!run.lost.isEmpty())
        found << QStringLiteral("lost: ") + run.lost.join(QStringLiteral("; "));
    if (run.subscriptions != 0)
        found << QStringLiteral("subscriptions were left");
    if (run.stateAfter.value(QStringLiteral("activity")) == QLatin1String("cal"))
        found << QStringLiteral("a calibration was left running");
    if (!run.opensAgain)
        found << QStringLiteral("cannot be adjusted at the next opening");
    return found;
}

/// The same for a run in which the host has ended the module.
QStringList complaintsAboutTheEnd(const SweptRun &run)
{
    QStringList found;
    if (!run.stuck.isEmpty())
        found << QStringLiteral("did not close: ") + run.stuck.join(QStringLiteral("; "));
    if (run.subscriptions != 0)
        found << QStringLiteral("subscriptions were left");
    if (!run.opensAgain)
        found << QStringLiteral("cannot be adjusted at the next opening");
    return found;
}

/// What of the controller's state nonsense may change in a way of its own.
QString leftByNonsense(const QString &call)
{
    static const QMap<QString, QString> aspects = {
        // It is no target of two words, which alone could be set again.
        {QStringLiteral("tracking reference"), QStringLiteral("reference target")},
        // Nobody sees that the target was not unset: the points are measured relative to it.
        {QStringLiteral("tracking reference none"), QStringLiteral("extra translation")},
        // It stands in the list, and the user chooses it.
        {QStringLiteral("roomcal available_coordinate_type t02"), QStringLiteral("room calibration")}};
    return aspects.value(call);
}

/// Nonsense is taken for a failure or does no harm: the controller is left as after the one or as without it.
QStringList complaintsAboutTheState(const SweptRun &baseline, std::size_t index, const SweptRun &failed,
                                    const SweptRun &fooled)
{
    QStringList found;
    const QString allowed = leftByNonsense(QString::fromStdString(baseline.calls[index].call.text));
    for (auto it = fooled.stateAfter.begin(); it != fooled.stateAfter.end(); ++it) {
        const QString &aspect = it.key();
        if (aspect != allowed && it.value() != baseline.stateAfter.value(aspect) &&
            it.value() != failed.stateAfter.value(aspect))
            found << QStringLiteral("left %1 %2").arg(aspect, it.value());
    }
    return found;
}

std::size_t stride()
{
    constexpr std::size_t everywhere = SWEEP_STRIDE;
    return qEnvironmentVariableIsSet("ROOM_EXPECT_DECIMAL_COMMA") ? std::max(commaStride, everywhere)
                                                                  : everywhere;
}

/// Whether this run asks for the call; the journeys, which begin alike, ask for different ones.
bool isInPart(std::size_t call, int journey, int part)
{
    return (static_cast<int>(call / stride()) + journey) % TestLoad::stride(part) == 0;
}

/// The complaints, with where they belong in front.
QStringList placed(const QString &where, const QStringList &complaints)
{
    QStringList list;
    for (const QString &complaint : complaints)
        list << where + complaint;
    return list;
}

} // namespace

class FaultSweepTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSurviveEveryFailingCall_data()
    {
        QTest::addColumn<int>("journey");
        for (std::size_t i = 0; i < journeys().size(); ++i)
            QTest::newRow(journeys()[i].name) << static_cast<int>(i);
    }

    void shouldSurviveEveryFailingCall()
    {
        // GIVEN
        QFETCH(int, journey);
        const Journey &way = journeys()[static_cast<std::size_t>(journey)];
        const SweptRun baseline = SweptRun::go(way, QString());
        QVERIFY(baseline.calls.size() > 20);
        QCOMPARE(baseline.stuck + baseline.lost, QStringList());
        QCOMPARE(baseline.keepsakes, way.keepsakes);
        QVERIFY(baseline.opensAgain);
        QStringList found;
        int runs = 0;
        for (std::size_t k = 0; k < baseline.calls.size(); k += stride()) {
            // WHEN
            const SweptRun failed = SweptRun::go(way, failure(k));
            // THEN
            found << placed(place(baseline, k) + QStringLiteral(" fails: "),
                            complaints(baseline, k, failed, RequiredReports::onFailure(baseline.calls, k)));
            m_table.add(baseline, k, failed);
            ++runs;
            if (!isInPart(k, journey, nonsensePart))
                continue;
            // WHEN
            const SweptRun fooled = SweptRun::go(way, nonsense(k));
            // THEN
            found << placed(place(baseline, k) + QStringLiteral(" answers nonsense: "),
                            complaints(baseline, k, fooled, RequiredReports::onGarbage(baseline.calls, k)) +
                                complaintsAboutTheState(baseline, k, failed, fooled));
            ++runs;
        }
        qInfo("%d calls, every %d. of them: %d runs", static_cast<int>(baseline.calls.size()),
              static_cast<int>(stride()), runs);
        QVERIFY2(found.isEmpty(), qPrintable(QLatin1Char('\n') + found.join(QLatin1Char('\n'))));
    }

    void shouldEndWithTheModuleInEveryCall_data() { shouldSurviveEveryFailingCall_data(); }

    void shouldEndWithTheModuleInEveryCall()
    {
        // GIVEN
        QFETCH(int, journey);
        const Journey &way = journeys()[static_cast<std::size_t>(journey)];
        const SweptRun baseline = SweptRun::go(way, QString());
        QStringList found;
        for (std::size_t k = 0; k < baseline.calls.size(); k += stride()) {
            if (!isInPart(k, journey, endPart))
                continue;
            // WHEN
            const SweptRun run = SweptRun::endInside(way, k);
            // THEN
            found << placed(place(baseline, k) + QStringLiteral(" ends the module: "),
                            complaintsAboutTheEnd(run));
        }
        QVERIFY2(found.isEmpty(), qPrintable(QLatin1Char('\n') + found.join(QLatin1Char('\n'))));
    }

    void shouldLeaveWhatTheDocumentsSay()
    {
        if (stride() != 1)
            QSKIP("the table needs every call");
        QFile output(BuiltFiles::build() + "/fault-table.md");
        QVERIFY(output.open(QIODevice::WriteOnly));
        output.write(m_table.asMarkdown().toUtf8());
        output.close();
        QVERIFY2(m_table.asMarkdown() ==
                     FaultTable::inDocument(BuiltFiles::sources() + "/docs/host-integration.md"),
                 qPrintable("the document holds another table than " + output.fileName()));
    }

private:
    FaultTable m_table;
};

ROOM_TEST_CLASS(FaultSweepTest)

#include "FaultSweepTest.moc"
