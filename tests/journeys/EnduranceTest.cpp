#include "Traveller.h"

#include "TestClock.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPixmapCache>
#include <QSet>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <functional>

using namespace std::chrono_literals;

namespace
{

constexpr int warmUp = 30;
constexpr int mostTurns = 1000;
constexpr int matchedPoints = 3;
constexpr int mostRounds = 4;
constexpr int warmUpOfTheHistory = 85; // a thousand changes of the lists are kept for "undo"
constexpr std::size_t residentBytesPerTurn = 2048;
constexpr std::size_t residentSlack = 8 * 1024 * 1024;

// Of a thousand turns, and of the few that show no more than how much a weighing varies.
constexpr std::size_t heapSlack = 64 * 1024;
constexpr std::size_t heapVariation = 24 * 1024;

// The graphics driver takes and gives back its buffers of half a megabyte when it likes. Blocks of that size
// are kept out of the heap that is weighed.
constexpr int largestHeapBlock = 256 * 1024;

// A cache of the toolkit that tidies itself up every half minute may be met at it.
constexpr int timerSlack = 1;

// The count of open files varies by one or two without any trend.
constexpr int fileSlack = 4;

/// A visit takes a tenth of a second, so that the usual run makes a few; ROOM_ENDURANCE_VISITS asks for more.
int sideWindowTurns()
{
    bool isGiven = false;
    const int turns = qEnvironmentVariableIntValue("ROOM_ENDURANCE_VISITS", &isGiven);
    return isGiven ? turns : 60;
}

std::size_t residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toULong() * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/// The objects whose timers fire while nobody does anything.
class TimerCensus : public QObject
{
public:
    int take()
    {
        qApp->installEventFilter(this);
        TestClock::advance(longerThanTheSlowestPoll);
        qApp->removeEventFilter(this);
        return m_receivers.size();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Timer)
            m_receivers.insert(watched);
        return false;
    }

private:
    static constexpr std::chrono::milliseconds longerThanTheSlowestPoll = 450ms;
    QSet<QObject *> m_receivers;
};

/// What must not grow with the number of turns.
struct Census {
    static Census take()
    {
        Census census;
        census.timers = TimerCensus().take();
        census.widgets = QApplication::allWidgets().size();
        const auto windows = QApplication::topLevelWidgets();
        for (const QWidget *window : windows)
            census.objects += window->findChildren<QObject *>().size();
        census.files =
            QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
        census.heap = mallinfo2().uordblks;
        census.resident = residentBytes();
        return census;
    }

    QString difference(const Census &before) const
    {
        return QStringLiteral("heap %1, resident %2 bytes; widgets %3, objects %4, timers %5, files %6")
            .arg(qlonglong(heap) - qlonglong(before.heap))
            .arg(qlonglong(resident) - qlonglong(before.resident))
            .arg(widgets - before.widgets)
            .arg(objects - before.objects)
            .arg(timers - before.timers)
            .arg(files - before.files);
    }

    bool isNear(const Census &before, std::size_t turns) const
    {
        const bool counts = widgets == before.widgets && objects == before.objects &&
                            timers <= before.timers + timerSlack && files <= before.files + fileSlack;
        if (TestLoad::isSanitized())
            return counts; // what is freed is held back, and what is not is found anyway
        return counts && heap < before.heap + std::max(heapVariation, heapSlack * turns / mostTurns) &&
               resident < before.resident + turns * residentBytesPerTurn + residentSlack;
    }

    int timers = 0;
    int widgets = 0;
    int objects = 0;
    int files = 0;
    std::size_t heap = 0;
    std::size_t resident = 0;
};

/// Each dialog is drawn: were it gone before that in some turns, what toolkit and driver keep of the first
/// drawing would come late and look like growth.
void waitForTheDrawing()
{
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
}

void openAndClose(ModuleHost &host)
{
    Traveller traveller(host);
    traveller.open(waitForTheDrawing);
    QCOMPARE(traveller.guide().strangers(), QStringList());
    QCOMPARE(host.channel.subscriptionCount(), std::size_t(0));
    host.channel.log().clear();
}

void matchAndForget(Traveller &traveller)
{
    traveller.meet("MatchingHelp", [] {});
    traveller.click("pushButton_help");
    for (int point = 0; point < matchedPoints; ++point) {
        traveller.click("pushButton_addRefPoint");
        traveller.typeCell("tableWidget_referencePoints", point, point, QStringLiteral("500"));
        traveller.measure(point + 1);
    }
    traveller.meet("FitPictureWindow", [] {});
    traveller.click("pushButton_picture");
    const QTemporaryDir folder;
    for (const char *button : {"pushButton_save", "pushButton_saveReport"}) {
        traveller.chooseFile(folder.filePath(QString::fromLatin1(button)));
        traveller.click(button);
    }
    traveller.answer(QMessageBox::Yes);
    traveller.click("pushButton_clearMeaPoints");
    for (int point = 0; point < matchedPoints; ++point) {
        if (auto *table = traveller.find<QTableWidget>("tableWidget_referencePoints"))
            table->selectRow(0);
        traveller.answer(QMessageBox::Yes);
        traveller.click("pushButton_removeRefPoint");
    }
}

/// Every window that a person can open, and one result. Tells whether every step could be made.
bool visitEverySideWindow(ModuleHost &host)
{
    Traveller traveller(host);
    traveller.open([&] {
        traveller.goToFine();
        traveller.meet("HelpDialog", [] {});
        traveller.click("pushButton_helpView");
        traveller.meet("AbcMatchingDialog", [&] { matchAndForget(traveller); });
        traveller.click("w_bodyMatchingButton");
        traveller.meet("AdjustToToolDlg", [&] {
            traveller.followCalibration();
            traveller.answer(QMessageBox::Ok);
            traveller.click("pushButton_calibrate");
        });
        traveller.click("pushButton_att");
    });
    host.channel.log().clear();
    return traveller.omitted().isEmpty() && traveller.guide().strangers().isEmpty() &&
           traveller.guide().missed().isEmpty();
}

void loadAndUnload()
{
    ModuleHost host;
    QVERIFY(host.action() != nullptr);
    openAndClose(host);
    QVERIFY(host.unload());
    QVERIFY(!ModuleHost::isLibraryMapped());
    QCoreApplication::processEvents(); // what is deleted later goes now
}

/// What grows with the turns does so in every round of them. What toolkit or driver keep for a while, some
/// hundred kilobytes on a busy machine, comes in one round and goes in another.
bool staysFlat(int turns, const char *what, const std::function<void()> &takeTurn)
{
    Census before = Census::take();
    for (int round = 0; round < mostRounds; ++round) {
        for (int i = 0; i < turns; ++i)
            takeTurn();
        const Census after = Census::take();
        qInfo("%d %s: %s", turns, what, qPrintable(after.difference(before)));
        if (after.isNear(before, turns))
            return true;
        before = after;
    }
    return false;
}

} // namespace

class EnduranceTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        mallopt(M_MMAP_THRESHOLD, largestHeapBlock);
        // The toolkit keeps the look of every list with colors of its own under a name that no later list
        // has, and takes up to a minute to forget it: some kilobytes for each dialog that was drawn.
        QPixmapCache::setCacheLimit(0);
    }

    void shouldNotGrowHoweverOftenItIsOpened()
    {
        const int turns = TestLoad::sweepShare(mostTurns);
        ModuleHost host;
        for (int i = 0; i < warmUp; ++i)
            openAndClose(host);
        QVERIFY(staysFlat(turns, "openings", [&host] { openAndClose(host); }));
    }

    void shouldNotGrowHoweverOftenTheSideWindowsAreVisited()
    {
        const int turns = TestLoad::share(sideWindowTurns());
        ModuleHost host;
        for (int i = 0; i < TestLoad::share(warmUpOfTheHistory); ++i)
            (void)visitEverySideWindow(host);
        int visits = 0;
        int wholeVisits = 0;
        QVERIFY(staysFlat(turns, "visits", [&] {
            ++visits;
            wholeVisits += visitEverySideWindow(host) ? 1 : 0;
        }));
        QVERIFY(10 * wholeVisits >= 8 * visits); // on a busy machine a button may once be met too early
    }

    void shouldLeaveNothingBehindHoweverOftenItIsUnloaded()
    {
        const int turns = TestLoad::sweepShare(mostTurns);
        for (int i = 0; i < warmUp; ++i)
            loadAndUnload();
        QVERIFY(staysFlat(turns, "unloads", loadAndUnload));
    }
};

ROOM_TEST_CLASS(EnduranceTest)

#include "EnduranceTest.moc"
