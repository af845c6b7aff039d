#include "GridLines.h"

#include "EigenView.h"
#include "TestRegistry.h"

#include <QtTest>

#include <array>
#include <cmath>
#include <limits>

using namespace EigenView;

namespace
{

/// Whether the segment meets the view volume: Liang and Barsky's clipping of its parameter range.
bool isVisible(const Eigen::Matrix4d &clip, const Eigen::Vector4d &from, const Eigen::Vector4d &to)
{
    const Eigen::Vector4d a = clip * from;
    const Eigen::Vector4d b = clip * to;
    double begin = 0.0;
    double end = 1.0;
    for (int axis = 0; axis < 3; ++axis) {
        for (const double sign : {1.0, -1.0}) {
            const double atFrom = a(3) + sign * a(axis);
            const double atTo = b(3) + sign * b(axis);
            if (atFrom < 0.0 && atTo < 0.0)
                return false;
            const double crossing = atFrom / (atFrom - atTo);
            if (atFrom < 0.0)
                begin = std::max(begin, crossing);
            if (atTo < 0.0)
                end = std::min(end, crossing);
        }
    }
    return begin <= end;
}

bool contains(const GridLines &lines, double position)
{
    for (int i = 0; i < lines.count; ++i) {
        if (lines.at(i) == position)
            return true;
    }
    return false;
}

bsMatrix wholePlaneInView(double halfSize)
{
    bsMatrix clip;
    clip.at(0, 0) = clip.at(1, 1) = 0.9 / halfSize;
    return clip;
}

} // namespace

class GridLinesTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldGiveTheWholeGridWhenAllOfItIsSeen()
    {
        const GridWindow grid = visibleGrid(25000.0, 100.0, wholePlaneInView(25000.0));
        for (const GridLines &lines : {grid.alongX, grid.alongY}) {
            QCOMPARE(lines.count, 501);
            QCOMPARE(lines.first, -25000.0);
            QCOMPARE(lines.at(500), 25000.0);
        }
        QCOMPARE(grid.halfSize, 25000.0);
    }

    void shouldCutTheHalfSizeToAWholeNumberOnly()
    {
        const GridWindow grid = visibleGrid(250.9, 100.0, wholePlaneInView(250.0));
        QCOMPARE(grid.halfSize, 250.0);
        QCOMPARE(grid.alongX.first, -250.0);
        QCOMPARE(grid.alongX.count, 6);
        QCOMPARE(grid.alongX.at(5), 250.0);
        const GridWindow odd = visibleGrid(333.3, 100.0, wholePlaneInView(333.0));
        QCOMPARE(odd.alongY.first, -333.0);
        QCOMPARE(odd.alongY.at(odd.alongY.count - 1), 267.0);
    }

    void shouldLeaveOutOnlyWhatCannotBeSeen_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::addColumn<double>("distance");
        QTest::addColumn<bool>("fewer");
        QTest::newRow("from above") << 0.0 << 0.0 << 0.0 << 1500.0 << true;
        QTest::newRow("from far above") << 0.0 << 0.0 << 30.0 << 90000.0 << false;
        QTest::newRow("slanted") << -60.0 << 10.0 << 20.0 << 1500.0 << true;
        QTest::newRow("grazing") << -89.5 << 0.0 << 45.0 << 3000.0 << true;
        QTest::newRow("edge on") << -90.0 << 0.0 << 0.0 << 1500.0 << true;
        QTest::newRow("from below") << 130.0 << -35.0 << 0.0 << 4000.0 << true;
        QTest::newRow("inside the plane") << -80.0 << 0.0 << 0.0 << 0.0 << true;
    }
    void shouldLeaveOutOnlyWhatCannotBeSeen()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        QFETCH(double, distance);
        QFETCH(bool, fewer);
        const Eigen::Matrix4d clip = perspective(1000, 700) * motion(turn(x, y, z), {0.0, 0.0, -distance});
        const double h = 25000.0;
        const GridWindow grid = visibleGrid(h, 100.0, matrix(clip));
        int seen = 0;
        for (double line = -h; line <= h; line += 100.0) {
            const bool alongY = isVisible(clip, {line, -h, 0.0, 1.0}, {line, h, 0.0, 1.0});
            const bool alongX = isVisible(clip, {-h, line, 0.0, 1.0}, {h, line, 0.0, 1.0});
            QVERIFY(!alongY || contains(grid.alongY, line));
            QVERIFY(!alongX || contains(grid.alongX, line));
            seen += (alongY ? 1 : 0) + (alongX ? 1 : 0);
        }
        const int drawn = grid.alongX.count + grid.alongY.count;
        QVERIFY2(drawn <= seen * 5 / 4 + 12, qPrintable(QStringLiteral("%1 of %2").arg(drawn).arg(seen)));
        QCOMPARE(drawn < 1002, fewer);
    }

    void shouldGiveNothingForAPlaneBehindTheEye()
    {
        const Eigen::Matrix4d clip = perspective(1000, 700) * motion(turn(0.0, 0.0, 0.0), {0.0, 0.0, 500.0});
        const GridWindow grid = visibleGrid(25000.0, 100.0, matrix(clip));
        QCOMPARE(grid.alongX.count + grid.alongY.count, 0);
    }

    void shouldStayBoundedForHostileSizes_data()
    {
        QTest::addColumn<double>("halfSize");
        QTest::addColumn<double>("spacing");
        QTest::newRow("huge") << 1e300 << 100.0;
        QTest::newRow("fine") << 25000.0 << 1e-9;
        QTest::newRow("beyond double") << 1e300 << 1e-300;
        QTest::newRow("negative") << -100.0 << 100.0;
        QTest::newRow("very negative") << -1e300 << 100.0;
    }
    void shouldStayBoundedForHostileSizes()
    {
        QFETCH(double, halfSize);
        QFETCH(double, spacing);
        for (const bsMatrix &clip : {wholePlaneInView(1e7), wholePlaneInView(1e-3)}) {
            const GridWindow grid = visibleGrid(halfSize, spacing, clip);
            QVERIFY(grid.alongX.count >= 0 && grid.alongX.count <= 20001);
            QVERIFY(grid.alongY.count >= 0 && grid.alongY.count <= 20001);
            QVERIFY(grid.halfSize <= 1e7);
        }
    }

    void shouldDrawAsManyLinesAsFitAndNoMore()
    {
        const GridWindow most = visibleGrid(10000.0, 1.0, wholePlaneInView(10000.0));
        QCOMPARE(most.alongX.count, 20001);
        QCOMPARE(most.alongX.at(20000), 10000.0);
        const GridWindow tooMany = visibleGrid(10001.0, 1.0, wholePlaneInView(10001.0));
        QCOMPARE(tooMany.alongX.count, 20001);
        QCOMPARE(tooMany.alongY.count, 20001);
        QCOMPARE(visibleGrid(2e7, 1e6, wholePlaneInView(1e7)).halfSize, 1e7);
    }

    void shouldGiveNothingForSenselessNumbers()
    {
        const double bad = std::numeric_limits<double>::quiet_NaN();
        bsMatrix broken;
        broken.at(2, 1) = bad;
        for (const GridWindow &grid :
             {visibleGrid(bad, 100.0, {}), visibleGrid(100.0, bad, {}), visibleGrid(100.0, 0.0, {}),
              visibleGrid(100.0, -5.0, {}), visibleGrid(100.0, 10.0, broken),
              visibleGrid(std::numeric_limits<double>::infinity(), 100.0, {})}) {
            QCOMPARE(grid.halfSize, 0.0);
            for (const GridLines &lines : {grid.alongX, grid.alongY}) {
                QCOMPARE(lines.count, 0);
                QCOMPARE(lines.at(0), 0.0);
                QCOMPARE(lines.at(1), 0.0);
            }
        }
    }
};

ROOM_TEST_CLASS(GridLinesTest)
#include "GridLinesTest.moc"
