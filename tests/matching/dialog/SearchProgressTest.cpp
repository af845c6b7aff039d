#include "SearchProgress.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

/// A window in front of which a search is shown.
struct Searching {
    Searching()
    {
        window.setWindowTitle(QStringLiteral("Match"));
        window.show();
        progress.start();
    }

    [[nodiscard]] QProgressDialog *display() const
    {
        return window.findChild<QProgressDialog *>(QStringLiteral("searchProgress"));
    }

    QWidget window;
    SearchProgress progress{&window};
};

} // namespace

class SearchProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowNothingAtFirst()
    {
        // GIVEN
        const Searching searching;
        // THEN
        QVERIFY(searching.display() == nullptr);
    }

    void shouldShowASearchThatGoesOn()
    {
        // GIVEN
        const Searching searching;
        // WHEN
        QTRY_VERIFY(searching.display() != nullptr && searching.display()->isVisible());
        // THEN
        QCOMPARE(searching.display()->windowTitle(), QStringLiteral("Match"));
        QCOMPARE(searching.display()->labelText(),
                 QStringLiteral("Searching for the best order of the measured points ..."));
        QVERIFY(searching.display()->isModal());
    }

    void shouldSpareAShortSearchItsDisplay()
    {
        // GIVEN
        QElapsedTimer time;
        time.start();
        const Searching searching;
        // WHEN
        while (searching.display() == nullptr && time.elapsed() < 1000)
            TestClock::advance(10ms);
        // THEN: a fifth of a second, of which a timer may take off a twentieth
        QVERIFY(searching.display() != nullptr);
        QVERIFY(time.elapsed() >= 190);
    }

    void shouldTellThatTheUserCancels()
    {
        // GIVEN
        const Searching searching;
        const QSignalSpy cancelled(&searching.progress, &SearchProgress::cancelled);
        QTRY_VERIFY(searching.display() != nullptr && searching.display()->isVisible());
        // WHEN
        QTest::mouseClick(searching.display()->findChild<QPushButton *>(), Qt::LeftButton);
        // THEN
        QCOMPARE(cancelled.count(), 1);
    }

    void shouldEndTheDisplayWithTheSearchAndSayNothing()
    {
        // GIVEN
        Searching searching;
        const QSignalSpy cancelled(&searching.progress, &SearchProgress::cancelled);
        QTRY_VERIFY(searching.display() != nullptr && searching.display()->isVisible());
        // WHEN
        searching.progress.stop();
        // THEN
        QVERIFY(!searching.display()->isVisible());
        QTRY_VERIFY(searching.display() == nullptr);
        QCOMPARE(cancelled.count(), 0);
    }
};

ROOM_TEST_CLASS(SearchProgressTest)
#include "SearchProgressTest.moc"
