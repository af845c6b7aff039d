#include "AbcGLCanvas.h"

#include "CountingCanvas.h"
#include "EigenView.h"
#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QImage>
#include <QtTest>

using namespace EigenView;

namespace
{

/// Draws every line of the XY grid, seen or not, on top of what the canvas draws.
class WholeGridCanvas : public CountingCanvas
{
public:
    void drawWholeGrid() { m_wholeGrid = true; }

protected:
    void paintGL() override
    {
        CountingCanvas::paintGL();
        if (!m_wholeGrid)
            return;
        glPushMatrix();
        glMultMatrixd(viewPose().matrix().data());
        glDisable(GL_LIGHTING);
        glColor3ub(255, 255, 0);
        const double half = 5000.0 * scaleUnit();
        glBegin(GL_LINES);
        for (double line = -half; line <= half; line += 100.0) {
            glVertex3d(line, -half, 0.0);
            glVertex3d(line, half, 0.0);
        }
        for (double line = -half; line <= half; line += 100.0) {
            glVertex3d(-half, line, 0.0);
            glVertex3d(half, line, 0.0);
        }
        glEnd();
        glPopMatrix();
    }

private:
    bool m_wholeGrid = false;
};

QImage picture(const Eigen::Quaterniond &orientation, double distance, bool wholeGrid)
{
    WholeGridCanvas canvas;
    RoomTrafoData far;
    far.translation = {0.0, 0.0, 1e6}; // keeps the untransformed frame out of the picture
    canvas.room()->loadRoom(far);
    canvas.setViewPosition({0.0, 0.0, -distance});
    canvas.setViewOrientation(matrix(motion(orientation, {0.0, 0.0, 0.0})));
    if (wholeGrid)
        canvas.drawWholeGrid();
    else
        canvas.showXYGrid(true);
    showCanvas(canvas, {700, 500});
    return canvas.grabFrameBuffer().convertToFormat(QImage::Format_RGB32);
}

int coloured(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == qRgb(255, 255, 0) ? 1 : 0;
    }
    return count;
}

} // namespace

class CanvasGridTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldShowThePixelsOfTheWholeGrid_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::addColumn<double>("distance");
        QTest::newRow("from above") << 0.0 << 0.0 << 0.0 << 1500.0;
        QTest::newRow("turned") << 0.0 << 0.0 << 33.0 << 900.0;
        QTest::newRow("slanted") << -60.0 << 10.0 << 20.0 << 1500.0;
        QTest::newRow("grazing") << -88.0 << 0.0 << 45.0 << 3000.0;
        QTest::newRow("from below") << 130.0 << -35.0 << 0.0 << 4000.0;
        QTest::newRow("with its end in sight") << -30.0 << 20.0 << 10.0 << 40000.0;
    }
    void shouldShowThePixelsOfTheWholeGrid()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        QFETCH(double, distance);
        const QImage whole = picture(turn(x, y, z), distance, true);
        QVERIFY(coloured(whole) > 500);
        QCOMPARE(picture(turn(x, y, z), distance, false), whole);
    }
};

ROOM_TEST_CLASS(CanvasGridTest)
#include "CanvasGridTest.moc"
