#include "BenchWindow.h"

#include "BuiltFiles.h"
#include "FakeController.h"
#include "GuideWindow.h"
#include "RoomPanel.h"
#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTextBrowser>
#include <QtTest>

namespace
{

QStringList menuTitles(const BenchWindow &window)
{
    QStringList titles;
    const auto allActions = window.menuBar()->actions();
    for (const QAction *action : allActions)
        titles << action->text();
    return titles;
}

QStringList titles(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(','));
}

/// The X server ignores a wish that is older than the last one it followed. Each wish brings a newer time.
bool becomesActive(QWidget *window)
{
    return QTest::qWaitFor([window] {
        window->activateWindow();
        return QApplication::activeWindow() == window;
    });
}

const QString fakeModule = BuiltFiles::fakeModule();

/// The bench's window with the keyboard.
struct ActiveBench {
    ActiveBench()
        : window(fake.channel, fakeModule, false)
    {
        window.show();
        window.activateWindow();
        isActive = QTest::qWaitForWindowActive(&window);
    }

    /// What F1 opens.
    GuideWindow *guide()
    {
        QTest::keyClick(window.windowHandle(), Qt::Key_F1);
        return window.findChild<GuideWindow *>();
    }

    FakeController fake;
    BenchWindow window;
    bool isActive = false;
};

} // namespace

class BenchWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferTheModulesActionInItsMenu()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        QCOMPARE(menuTitles(window), titles("&Bench,&Help"));
        QVERIFY(window.loadModule());
        QCOMPARE(menuTitles(window), titles("&Bench,&Tracking,&Help"));
        window.unloadModule();
        QCOMPARE(menuTitles(window), titles("&Bench,&Help"));
        QVERIFY(!window.module().isLoaded());
    }

    void shouldOfferNothingInObserverMode()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, true);
        QVERIFY(window.loadModule());
        QCOMPARE(menuTitles(window), titles("&Bench,&Help"));
    }

    void shouldSayThatTheModuleIsMissing()
    {
        FakeController fake;
        BenchWindow window(fake.channel, QStringLiteral("missing.so"), false);
        QVERIFY(!window.loadModule());
        QVERIFY(window.statusBar()->currentMessage().contains(QStringLiteral("missing.so")));
    }

    void shouldKeepTheModulesVersionRecordUpToDate()
    {
        FakeController fake;
        fake.link.ask("sim version 1 17 -1");
        BenchWindow window(fake.channel, fakeModule, false);
        QCOMPARE(window.versions().interfaceMajor, 1);
        QCOMPARE(window.versions().interfaceMinor, 17);
        QCOMPARE(window.versions().interfacePatch, -1);
        RoomControls controls(fake.channel);
        controls.setInterfaceVersion(0, 9, 3);
        QVERIFY(window.loadModule());
        QCOMPARE(window.versions().interfaceMajor, 0);
        QCOMPARE(window.versions().interfaceMinor, 9);
        QCOMPARE(window.versions().interfacePatch, 3);
    }

    void shouldTellTheModuleTheNameOfTheBackend()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        const QString description = window.versions().backendName;
        QCOMPARE(description, fake.link.description());
        window.setBackendName(QStringLiteral("OKTAVO3"));
        QCOMPARE(window.versions().backendName, QStringLiteral("OKTAVO3"));
        fake.link.ask("sim version 1 17 -1");
        QVERIFY(window.loadModule());
        QCOMPARE(window.versions().backendName, QStringLiteral("OKTAVO3"));
        window.setBackendName(QString());
        QCOMPARE(window.versions().backendName, description);
    }

    void shouldTakeOverWhatWasChangedPastIt()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        fake.link.ask("sim version 0 16 2");
        fake.link.ask("sim locked yes");
        window.showState();
        QCOMPARE(window.versions().interfaceMinor, 16);
        QCOMPARE(window.versions().interfacePatch, 2);
        QVERIFY(window.roomPanel()->findChild<QCheckBox *>(QStringLiteral("lockedBox"))->isChecked());
    }

    void shouldShowAReportedError()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        fake.channel.reportError("standard", "VELMAR3", 1, "Error: something");
        QVERIFY(window.statusBar()->currentMessage().contains(QStringLiteral("Error: something")));
    }

    void shouldCountTheDroppedFramesInTheStatusBar()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        window.show();
        const auto *label = window.statusBar()->findChild<QLabel *>(QStringLiteral("droppedLabel"));
        QVERIFY(!label->isVisible());
        emit fake.link.framesDropped(17);
        QVERIFY(label->isVisible());
        QCOMPARE(label->text(), QStringLiteral("Frames dropped: 17"));
    }

    /// The names of a library and of a controller are not the bench's own.
    void shouldShowNamesInTheStatusBarAsTheyAre()
    {
        FakeController fake;
        const BenchWindow window(fake.channel, fakeModule, false);
        const auto labels = window.statusBar()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        int names = 0;
        for (const QLabel *label : labels) {
            if (label->objectName() == QLatin1String("droppedLabel"))
                continue;
            ++names;
            QCOMPARE(label->textFormat(), Qt::PlainText);
        }
        QCOMPARE(names, 2);
    }

    void shouldShowTheGuideWithoutBlockingAnything()
    {
        ActiveBench bench;
        QVERIFY(bench.isActive);
        GuideWindow *guide = bench.guide();
        QVERIFY(guide != nullptr);
        QTRY_VERIFY(guide->isVisible());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        const QString text = guide->findChild<QTextBrowser *>()->toPlainText();
        for (const char *part : {"nominal", "Shift+F5", "Start", "Load", "Point 1", "Apply", "F6"})
            QVERIFY2(text.contains(QLatin1String(part)), part);
    }

    void shouldShowTheGuideInTheRoomWhileADialogIsOpen()
    {
        // GIVEN
        ActiveBench bench;
        QVERIFY(bench.isActive);
        BenchWindow &window = bench.window;
        QDialog dialog(&window);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(becomesActive(window.roomPanel()));
        // WHEN
        QTest::keyClick(window.roomPanel()->windowHandle(), Qt::Key_F1);
        // THEN
        auto *guide = window.findChild<GuideWindow *>();
        QVERIFY(guide != nullptr);
        QTRY_COMPARE(QApplication::activeWindow(), guide);
        QTest::keyPress(guide->windowHandle(), Qt::Key_Escape); // is gone before the key is up
        QTRY_VERIFY(window.findChild<GuideWindow *>() == nullptr);
    }

    void shouldLeaveTheGuideUsableWhenADialogOpens()
    {
        ActiveBench bench;
        QVERIFY(bench.isActive);
        BenchWindow &window = bench.window;
        GuideWindow *guide = bench.guide();
        QVERIFY(guide != nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(guide));
        QDialog dialog(&window);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(becomesActive(guide));
        QTest::keyPress(guide->windowHandle(), Qt::Key_Escape); // is gone before the key is up
        QTRY_VERIFY(window.findChild<GuideWindow *>() == nullptr);
    }

    void shouldLeaveTheConversationInSightWhenADialogOpens()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QDialog dialog(&window);
        dialog.resize(1000, 700);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(!dialog.geometry().intersects(window.frameGeometry()));
        QVERIFY(!dialog.geometry().intersects(window.roomPanel()->frameGeometry()));
    }

    void shouldStayOnTheScreenWithALargerFont()
    {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSizeF(2.0 * before.pointSizeF());
        QApplication::setFont(large);
        {
            ActiveBench bench;
            QVERIFY(bench.isActive);
            BenchWindow &window = bench.window;
            QVERIFY(bench.guide() != nullptr);
            const QRect screen = window.screen()->availableGeometry();
            QVERIFY(screen.contains(window.frameGeometry()));
            QVERIFY(screen.contains(window.roomPanel()->frameGeometry()));
            QVERIFY(screen.contains(window.findChild<GuideWindow *>()->frameGeometry()));
        }
        QApplication::setFont(before);
    }

    void shouldWidenTheSimulatedRoomForLongerTexts()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QWidget *room = window.roomPanel();
        room->resize(room->minimumSizeHint());
        room->move(window.screen()->availableGeometry().right() - room->width(), 0);
        const int before = room->width();
        const TestLanguage german("de");
        QTRY_VERIFY(room->width() >= room->sizeHint().width());
        QVERIFY(room->width() > before);
        QVERIFY(window.screen()->availableGeometry().contains(room->frameGeometry()));
    }

    void shouldOpenTheSimulatedRoomBesideItself()
    {
        FakeController fake;
        BenchWindow window(fake.channel, fakeModule, false);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.roomPanel()->isVisible());
        QVERIFY(window.roomPanel()->isWindow());
        QVERIFY(!window.frameGeometry().intersects(window.roomPanel()->frameGeometry()));
        window.close();
        QVERIFY(!window.roomPanel()->isVisible());
    }
};

ROOM_TEST_CLASS(BenchWindowTest)

#include "BenchWindowTest.moc"
