#include "CameraGrid.h"
#include "CalibrationBench.h"
#include "CameraStatus.h"

#include "TestRegistry.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

namespace
{

/// A grid of eight boxes in an area that is not limited by anything.
struct Shown {
    Shown()
    {
        area.setWidget(new QWidget);
        area.setWidgetResizable(true);
        auto *layout = new QGridLayout(area.widget());
        bench.set("camera number_of_cameras", "8");
        grid = new CameraGrid(layout, &bench.host, &bench.versions, &area);
        grid->build();
    }

    /// The least size of the area on a screen of this size.
    QSize fitted(const QSize &screen)
    {
        grid->fit(&area, screen);
        return area.minimumSize();
    }

    CalibrationBench bench;
    QScrollArea area;
    CameraGrid *grid = nullptr;
};

} // namespace

class CameraGridTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldWidenFromAHundredAndOneCamerasOn()
    {
        QCOMPARE(CameraGrid::columnsFor(0), 6);
        QCOMPARE(CameraGrid::columnsFor(1), 6);
        QCOMPARE(CameraGrid::columnsFor(100), 6);
        QCOMPARE(CameraGrid::columnsFor(101), 12);
    }

    void shouldNeedRoomForAScrollBarOnlyWhereItScrolls()
    {
        // GIVEN
        Shown shown;
        const QSize huge(100000, 100000);
        const QSize wanted = shown.fitted(huge);
        const int barWidth = shown.area.verticalScrollBar()->sizeHint().width();
        const int barHeight = shown.area.horizontalScrollBar()->sizeHint().height();
        QVERIFY(barWidth > 0 && barHeight > 0);
        // WHEN: the screen is exactly high and wide enough, then one pixel too low or too narrow
        const int enough = int(std::ceil(wanted.height() / 0.7));
        QCOMPARE(shown.fitted(QSize(huge.width(), enough)), wanted);
        const int wideEnough = int(std::ceil(wanted.width() / 0.95));
        QCOMPARE(int(wideEnough * 0.95), wanted.width());
        QCOMPARE(shown.fitted(QSize(wideEnough, huge.height())), wanted);
        const QSize low = shown.fitted(QSize(huge.width(), enough - 2));
        const QSize narrow = shown.fitted(QSize(int(wanted.width() / 0.95) - 2, huge.height()));
        // THEN
        QCOMPARE(low.width(), wanted.width() + barWidth);
        QVERIFY(low.height() < wanted.height());
        QCOMPARE(narrow.height(), wanted.height() + barHeight);
        QVERIFY(narrow.width() < wanted.width());
    }

    void shouldCountTheCamerasAnewWhenItIsBuiltAgain()
    {
        // GIVEN
        Shown shown;
        shown.bench.set("camera number_of_cameras", "3");
        // WHEN
        shown.grid->build();
        shown.grid->markMostActive(QStringLiteral("0,2"));
        // THEN
        QList<bool> marked;
        const auto boxes = shown.area.findChildren<CameraStatus *>();
        for (const CameraStatus *box : boxes)
            marked.append(box->isHighlighted());
        QCOMPARE(marked, QList<bool>({true, false, true}));
    }

    void shouldKeepEveryBarWhereItIsWhenFramesGetThicker()
    {
        // GIVEN
        Shown shown;
        shown.area.resize(900, 400);
        shown.area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&shown.area));
        const auto places = [&shown] {
            QCoreApplication::sendPostedEvents();
            QList<QRect> rectangles;
            const auto bars = shown.area.widget()->findChildren<QWidget *>();
            for (const QWidget *bar : bars) {
                const QPoint place = bar->mapTo(shown.area.widget(), QPoint(0, 0));
                rectangles.append(QRect(place, bar->size()));
            }
            return rectangles;
        };
        const QList<QRect> before = places();
        // WHEN
        shown.grid->markMostActive(QStringLiteral("0,3,7"));
        // THEN
        QVERIFY(before.size() > 8);
        QCOMPARE(places(), before);
        shown.grid->markMostActive(QStringLiteral("1"));
        QCOMPARE(places(), before);
    }
};

ROOM_TEST_CLASS(CameraGridTest)
#include "CameraGridTest.moc"
