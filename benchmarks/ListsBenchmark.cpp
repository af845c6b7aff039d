#include "BenchmarkLimits.h"
#include "BenchmarkTimes.h"
#include "PointFileSaving.h"
#include "PointLimit.h"
#include "TwoLists.h"
#include "WorkProgress.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <functional>

using namespace std::chrono_literals;

namespace
{

using BenchmarkTimes::Milliseconds;

/// How long the window may go without looking at its events.
constexpr Milliseconds largestGap = 100ms;

/// Two long lists in a window on the screen.
class LongLists
{
public:
    LongLists()
    {
        m_lists.references->resize(400, 600);
        m_lists.measured->move(400, 0);
        m_lists.window.show();
        QFile file(fileName());
        file.open(QIODevice::WriteOnly);
        for (std::size_t i = 1; i <= largestPointCount; ++i)
            file.write(QByteArray::number(qulonglong(i)) + " 1234.567 -0.987654 " +
                       QByteArray::number(0.0123 * static_cast<double>(i), 'f', 5) + '\n');
        file.close();
        load();
        PointRows rows(largestPointCount, PointRow{{1.2345, 2.3456, 3.4567}, {}});
        m_lists.lists.measuredList().replace(0, 0, rows);
    }

    [[nodiscard]] ListEditing &editing() { return *m_lists.editing; }

    void load() { editing().loadFile(fileName()); }

    void save()
    {
        const PointTable &table = m_lists.lists.referenceTable();
        PointFileSaving saving(m_directory.filePath(QStringLiteral("saved")), largestPointCount,
                               [&table](std::size_t row) { return table.texts(static_cast<int>(row)); });
        benchmark::DoNotOptimize(WorkProgress::doAll(saving, &m_lists.window, QStringLiteral("Saving")));
    }

    void edit()
    {
        QTableWidgetItem *item = m_lists.references->item(0, 0);
        item->setText(item->text() == QLatin1String("1.00") ? QStringLiteral("2.00")
                                                            : QStringLiteral("1.00"));
        editing().takeReferenceCell(*item);
    }

    void removeMeasured() { m_lists.lists.measuredList().replace(0, m_lists.measured->rowCount(), {}); }

    void removeReferences()
    {
        m_lists.lists.referenceList().replace(0, m_lists.references->rowCount(), {});
        m_lists.lists.referenceList().takeCells();
    }

private:
    [[nodiscard]] QString fileName() const { return m_directory.filePath(QStringLiteral("long.txt")); }

    QTemporaryDir m_directory;
    TwoLists m_lists;
};

/// The longest processor time between two looks at the events, until all that `work` has left to do is done.
Milliseconds longestGapOf(const std::function<void()> &work)
{
    Milliseconds longest{};
    Milliseconds last = BenchmarkTimes::usedTime();
    const auto look = [&longest, &last] {
        const Milliseconds now = BenchmarkTimes::usedTime();
        longest = std::max(longest, now - last);
        last = now;
    };
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, look);
    timer.start(0ms);
    work();
    look();
    for (int turn = 0; turn < 5; ++turn)
        QCoreApplication::processEvents();
    return longest;
}

void expectShortGaps(benchmark::State &state, const std::function<void()> &work)
{
    for (auto _ : state) {
        const Milliseconds gap = longestGapOf(work);
        state.SetIterationTime(0.001 * gap.count());
        BenchmarkLimits::expectAtMost(state, gap, largestGap);
    }
}

void gapOfLoading(benchmark::State &state)
{
    LongLists lists;
    expectShortGaps(state, [&lists] { lists.load(); });
}

void gapOfSaving(benchmark::State &state)
{
    LongLists lists;
    expectShortGaps(state, [&lists] { lists.save(); });
}

void gapOfTheFirstEdit(benchmark::State &state)
{
    LongLists lists;
    expectShortGaps(state, [&lists] { lists.edit(); });
}

void gapOfUndoingAnEdit(benchmark::State &state)
{
    LongLists lists;
    lists.edit();
    expectShortGaps(state, [&lists] { lists.editing().undo(); });
}

void gapOfRedoingAnEdit(benchmark::State &state)
{
    LongLists lists;
    lists.edit();
    lists.editing().undo();
    expectShortGaps(state, [&lists] { lists.editing().redo(); });
}

void gapOfUndoingALoad(benchmark::State &state)
{
    LongLists lists;
    expectShortGaps(state, [&lists] { lists.editing().undo(); });
}

void gapOfRedoingALoad(benchmark::State &state)
{
    LongLists lists;
    lists.editing().undo();
    expectShortGaps(state, [&lists] { lists.editing().redo(); });
}

void gapOfCopying(benchmark::State &state)
{
    LongLists lists;
    expectShortGaps(state, [&lists] { lists.editing().copyReferences(); });
}

void gapOfPasting(benchmark::State &state)
{
    LongLists lists;
    lists.editing().copyReferences();
    lists.removeReferences();
    expectShortGaps(state, [&lists] { lists.editing().pasteReferences(); });
}

void gapOfRemovingAllMeasured(benchmark::State &state)
{
    LongLists lists;
    expectShortGaps(state, [&lists] { lists.removeMeasured(); });
}

#define GAP(name) BENCHMARK(name)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond)
GAP(gapOfLoading);
GAP(gapOfSaving);
GAP(gapOfTheFirstEdit);
GAP(gapOfUndoingAnEdit);
GAP(gapOfRedoingAnEdit);
GAP(gapOfUndoingALoad);
GAP(gapOfRedoingALoad);
GAP(gapOfCopying);
GAP(gapOfPasting);
GAP(gapOfRemovingAllMeasured);

} // namespace
