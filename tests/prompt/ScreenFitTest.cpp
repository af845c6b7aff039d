#include "ScreenFit.h"

#include "TestRegistry.h"

#include <QScreen>
#include <QWidget>
#include <QtTest>

class ScreenFitTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLeaveAWindowThatFits()
    {
        QWidget window;
        window.resize(400, 300);
        fitToScreen(&window);
        QCOMPARE(window.size(), QSize(400, 300));
    }

    void shouldShrinkAWindowToTheScreenAndItsFrame()
    {
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        QWidget parent;
        QWidget window(&parent, Qt::Dialog);
        window.resize(screen * 2);
        fitToScreen(&window);
        QVERIFY(window.width() < screen.width());
        QVERIFY(window.height() < screen.height());
        QVERIFY(window.height() > screen.height() - 100);
    }

    void shouldNotGoBelowTheSmallestSize()
    {
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        QWidget window;
        window.setMinimumHeight(screen.height() + 10);
        fitToScreen(&window);
        QCOMPARE(window.height(), screen.height() + 10);
    }
};

ROOM_TEST_CLASS(ScreenFitTest)

#include "ScreenFitTest.moc"
