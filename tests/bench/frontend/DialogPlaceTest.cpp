#include "DialogPlace.h"

#include "TestRegistry.h"

#include <QDialog>
#include <QMainWindow>
#include <QtTest>

namespace
{

/// A window with a list that fills it, and a neighbour at its right.
struct Windows {
    Windows()
    {
        window.setCentralWidget(&list);
        window.setGeometry(20, 40, 500, 300);
        neighbour.setGeometry(560, 40, 200, 500);
        window.show();
        neighbour.show();
        isShown = QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(&neighbour);
    }
    ~Windows() { list.setParent(nullptr); }

    QMainWindow window;
    QWidget list;
    QWidget neighbour;
    bool isShown = false;
    DialogPlace place{&window, &list, &neighbour};
};

} // namespace

class DialogPlaceTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindThePlaceThatCoversNothing_data()
    {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<QSize>("dialog");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("below") << QSize(1600, 1200) << QSize(1000, 700) << QPoint(20, 428);
        QTest::newRow("right of the neighbour") << QSize(2200, 800) << QSize(700, 700) << QPoint(1488, 20);
        QTest::newRow("lowest") << QSize(1480, 1125) << QSize(1000, 700) << QPoint(0, 425);
        QTest::newRow("no room") << QSize(1480, 800) << QSize(1000, 700) << QPoint(-1, -1);
        QTest::newRow("larger than the screen") << QSize(1480, 1200) << QSize(1600, 700) << QPoint(-1, -1);
    }

    void shouldFindThePlaceThatCoversNothing()
    {
        QFETCH(QSize, screen);
        QFETCH(QSize, dialog);
        QFETCH(QPoint, corner);
        const QVector<QRect> taken{QRect(20, 20, 1000, 400), QRect(1050, 20, 430, 400)};
        QCOMPARE(DialogPlace::find(dialog, QRect(QPoint(0, 0), screen), taken).value_or(QPoint(-1, -1)),
                 corner);
    }

    void shouldOpenADialogWhereItCoversNeither()
    {
        Windows windows;
        QVERIFY(windows.isShown);
        QDialog dialog(&windows.window);
        dialog.resize(450, 400);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QTRY_VERIFY(!dialog.frameGeometry().intersects(windows.window.frameGeometry()));
        QVERIFY(!dialog.frameGeometry().intersects(windows.neighbour.frameGeometry()));
    }

    void shouldLeaveADialogThatHasBeenMoved()
    {
        Windows windows;
        QVERIFY(windows.isShown);
        QDialog dialog(&windows.window);
        dialog.setGeometry(60, 80, 450, 400);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.geometry().topLeft(), QPoint(60, 80));
    }
};

ROOM_TEST_CLASS(DialogPlaceTest)

#include "DialogPlaceTest.moc"
