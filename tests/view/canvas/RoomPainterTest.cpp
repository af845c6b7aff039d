#include "AbcGLCanvas.h"

#include "CountingCanvas.h"
#include "EigenView.h"
#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QImage>
#include <QVector3D>
#include <QtTest>

#include <array>
#include <cmath>

using namespace EigenView;

namespace
{

constexpr double scale = 3.0;

/// What the canvas shows, and where a point of the room must be in it.
class Picture
{
public:
    explicit Picture(AbcGLCanvas &canvas)
        : m_image(canvas.grabFrameBuffer().convertToFormat(QImage::Format_RGB32))
        , m_clip(perspective(m_image.width(), m_image.height()) * eigen(canvas.viewPose().matrix()))
    {
    }

    [[nodiscard]] const QImage &image() const { return m_image; }

    [[nodiscard]] QPoint pixel(double x, double y, double z) const
    {
        const Eigen::Vector4d p = m_clip * Eigen::Vector4d(x, y, z, 1.0);
        return {static_cast<int>(std::floor((p(0) / p(3) + 1.0) / 2.0 * m_image.width())),
                static_cast<int>(std::floor((1.0 - p(1) / p(3)) / 2.0 * m_image.height()))};
    }

    [[nodiscard]] QColor color(double x, double y, double z) const
    {
        return m_image.pixelColor(pixel(x, y, z));
    }

    /// The pixels of a colour in the neighbourhood of a point, one pixel to each side.
    [[nodiscard]] int near(const QColor &color, double x, double y, double z) const
    {
        return count(QRect(pixel(x, y, z) - QPoint(1, 1), QSize(3, 3)),
                     [&](const QColor &c) { return c == color; });
    }

    /// Where a text must stand whose base line begins at this point.
    [[nodiscard]] QRect textPlace(double x, double y, double z) const
    {
        const int size = m_image.height() / 20;
        return {pixel(x, y, z) - QPoint(2, size), QSize(size + 2, size + 4)};
    }

    template <typename Test>
    [[nodiscard]] int count(const QRect &part, Test test) const
    {
        int result = 0;
        const QRect inside = part & m_image.rect();
        for (int y = inside.top(); y <= inside.bottom(); ++y) {
            for (int x = inside.left(); x <= inside.right(); ++x)
                result += test(m_image.pixelColor(x, y)) ? 1 : 0;
        }
        return result;
    }

    template <typename Test>
    [[nodiscard]] int count(Test test) const
    {
        return count(m_image.rect(), test);
    }

private:
    QImage m_image;
    Eigen::Matrix4d m_clip;
};

bool isRed(const QColor &c)
{
    return c.red() > 150 && c.green() == 0 && c.blue() == 0;
}

bool isDarkRed(const QColor &c)
{
    return c.red() > 20 && c.red() < 130 && c.green() == 0 && c.blue() == 0;
}

bool isGreen(const QColor &c)
{
    return c.red() == 0 && c.green() > 110 && c.blue() == 0;
}

bool isBlue(const QColor &c)
{
    return c.red() == 0 && c.green() == 0 && c.blue() > 110;
}

bool isWhite(const QColor &c)
{
    return c.red() > 200 && c.green() > 200 && c.blue() > 200;
}

/// Text is smoothed, so grey as such would also fit the edges of white text.
bool isGrey(const QColor &c)
{
    return c.red() > 60 && c.red() < 110 && c.red() == c.green() && c.red() == c.blue();
}

void showScene(CountingCanvas &canvas, const RoomTrafoData &room = {}, double distance = 400.0)
{
    canvas.room()->loadRoom(room);
    canvas.setScaleUnit(scale);
    canvas.setViewPosition({0.0, 0.0, -distance});
    showCanvas(canvas, {800, 600});
}

/// A canvas whose context somebody has used before.
class MeddledCanvas : public CountingCanvas
{
public:
    /// Of front and back, before anything was painted.
    [[nodiscard]] std::array<GLint, 2> polygonModes() const { return m_polygonModes; }

protected:
    void initializeGL() override
    {
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        glShadeModel(GL_FLAT);
        glDepthFunc(GL_ALWAYS);
        glClearDepth(0.5);
        glClearColor(1.0F, 0.5F, 0.0F, 0.5F);
        CountingCanvas::initializeGL();
        glGetIntegerv(GL_POLYGON_MODE, m_polygonModes.data());
    }

private:
    std::array<GLint, 2> m_polygonModes{};
};

RoomTrafoData translated(double x, double y, double z)
{
    RoomTrafoData data;
    data.translation = {x, y, z};
    return data;
}

} // namespace

class RoomPainterTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldBeBlackWithoutARoom()
    {
        CountingCanvas canvas;
        canvas.showXYGrid(true);
        canvas.showLongAxes(true);
        showCanvas(canvas, {800, 600});
        const Picture picture(canvas);
        QCOMPARE(picture.count([](const QColor &c) { return c != Qt::black; }), 0);
        const int density = qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ? 2 : 1;
        QCOMPARE(picture.image().width(), 800 * density);
    }

    void shouldDrawTheAxesInTheirColours()
    {
        CountingCanvas canvas;
        showScene(canvas);
        const Picture front(canvas);
        for (const double part : {0.2, 0.5, 0.75, 1.1}) {
            QVERIFY(isRed(front.color(30.0 * scale * part, 0.0, 0.0)));
            QVERIFY(isGreen(front.color(0.0, 30.0 * scale * part, 0.0)));
        }
        QCOMPARE(front.color(30.0 * scale * 1.22, 0.0, 0.0), QColor(Qt::black));
        QCOMPARE(front.color(-30.0, 0.0, 0.0), QColor(Qt::black));
        canvas.setViewOrientation(matrix(motion(turn(0.0, -90.0, 0.0), {0.0, 0.0, 0.0})));
        const Picture side(canvas);
        for (const double part : {0.5, 1.1})
            QVERIFY(isBlue(side.color(0.0, 0.0, 30.0 * scale * part)));
    }

    void shouldDrawShaftAndHeadInTheirWidths()
    {
        CountingCanvas canvas;
        showScene(canvas, translated(0.0, 0.0, -1e6));
        const Picture picture(canvas);
        const double length = 30.0 * scale;
        QVERIFY(isRed(picture.color(length / 2.0, length / 80.0 * 0.6, 0.0)));
        QCOMPARE(picture.color(length / 2.0, length / 80.0 * 2.0, 0.0), QColor(Qt::black));
        QVERIFY(isRed(picture.color(length * 1.02, length / 10.0 * 0.8, 0.0)));
        QCOMPARE(picture.color(length * 1.02, length / 10.0 * 1.1, 0.0), QColor(Qt::black));
        QCOMPARE(picture.color(length * 1.15, length / 10.0 * 0.8, 0.0), QColor(Qt::black));
    }

    void shouldEndTheArrowsInAPoint()
    {
        // GIVEN: an eye at the end of the x axis, whose head is a fifth as long as the shaft
        CountingCanvas canvas;
        showScene(canvas, translated(0.0, 0.0, -1e6));
        const double end = 30.0 * scale * 1.2;
        canvas.setViewPosition({-end, 0.0, -30.0});
        // WHEN
        const Picture picture(canvas);
        // THEN: half a millimetre before the end the head is a quarter of a millimetre thick
        QVERIFY(picture.color(end - 0.5, 0.1, 0.0) != QColor(Qt::black));
        QCOMPARE(picture.color(end - 0.5, 0.5, 0.0), QColor(Qt::black));
    }

    void shouldMarkTheTransformedRoomWithAWhiteT()
    {
        CountingCanvas canvas;
        showScene(canvas);
        const Picture picture(canvas);
        const int inPlace = picture.count(picture.textPlace(-5.0 * scale, scale, 0.0), isWhite);
        QVERIFY2(inPlace >= 10, qPrintable(QString::number(inPlace)));
        QCOMPARE(picture.count(isWhite), inPlace);
    }

    void shouldMarkTheUntransformedRoomWithAGreyO()
    {
        CountingCanvas canvas;
        showScene(canvas, translated(60.0, -40.0, 20.0));
        const Picture picture(canvas);
        const QRect place = picture.textPlace(60.0 - 5.0 * scale, -40.0 - 5.0 * scale, 20.0);
        QVERIFY(picture.count(place, isGrey) >= 10);
        QCOMPARE(picture.count(place, isWhite), 0);
        const QRect atTheOrigin = picture.textPlace(-5.0 * scale, -5.0 * scale, 0.0);
        QCOMPARE(picture.count(atTheOrigin, isGrey), 0);
    }

    void shouldDrawTheUntransformedAxesDarkerAndShorter()
    {
        CountingCanvas canvas;
        showScene(canvas, translated(20.0, -50.0, 0.0));
        const Picture picture(canvas);
        QVERIFY(isDarkRed(picture.color(20.0 + 12.0 * scale, -50.0, 0.0)));
        QVERIFY(isDarkRed(picture.color(20.0 + 27.0 * scale, -50.0, 0.0)));
        QCOMPARE(picture.color(20.0 + 30.5 * scale, -50.0, 0.0), QColor(Qt::black));
        QVERIFY(isRed(picture.color(30.0 * scale, 0.0, 0.0)));
    }

    void shouldMoveOnlyTheTransformedRoomByAPendingEdit()
    {
        CountingCanvas canvas;
        showScene(canvas, translated(0.0, 0.0, -50.0));
        canvas.translateRoom(0.0, 60.0, 0.0);
        canvas.rotateRoom(0.0, 0.0, 180.0);
        const Picture picture(canvas);
        QVERIFY(isRed(picture.color(-50.0, 60.0, 0.0)));
        QVERIFY(isDarkRed(picture.color(50.0, 0.0, -50.0)));
        const QRect place = picture.textPlace(5.0 * scale, 60.0 - scale, 0.0);
        QVERIFY(picture.count(place, isWhite) >= 10);
    }

    void shouldKeepWhatIsSeenWhenAnEditIsCommitted()
    {
        CountingCanvas canvas;
        showScene(canvas, translated(30.0, -20.0, 10.0));
        canvas.showXYGrid(true);
        canvas.translateRoom(15.0, 25.0, 5.0);
        canvas.rotateRoom(20.0, -30.0, 40.0);
        const QImage pending = Picture(canvas).image();
        canvas.saveCurrentRoom();
        const QImage committed = Picture(canvas).image();
        int different = 0;
        for (int y = 0; y < pending.height(); ++y) {
            for (int x = 0; x < pending.width(); ++x)
                different += pending.pixel(x, y) != committed.pixel(x, y) ? 1 : 0;
        }
        QVERIFY2(different < 100, qPrintable(QString::number(different)));
    }

    void shouldDrawEachGridInItsPlaneAndColour_data()
    {
        QTest::addColumn<int>("plane");
        QTest::addColumn<QColor>("color");
        QTest::newRow("XY") << 0 << QColor(255, 255, 0);
        QTest::newRow("YZ") << 1 << QColor(0, 255, 255);
        QTest::newRow("XZ") << 2 << QColor(255, 0, 255);
    }
    void shouldDrawEachGridInItsPlaneAndColour()
    {
        QFETCH(int, plane);
        QFETCH(QColor, color);
        CountingCanvas canvas;
        showScene(canvas, {}, 900.0);
        const Eigen::Quaterniond views[] = {turn(0.0, 0.0, 0.0), turn(0.0, -90.0, 0.0), turn(90.0, 0.0, 0.0)};
        canvas.setViewOrientation(matrix(motion(views[plane], {0.0, 0.0, 0.0})));
        const auto inPlane = [plane](double a, double b) {
            const Eigen::Vector3d points[] = {{a, b, 0.0}, {0.0, a, b}, {a, 0.0, b}};
            return points[plane];
        };
        const Picture without(canvas);
        QCOMPARE(without.count([&](const QColor &c) { return c == color; }), 0);
        if (plane == 0)
            canvas.showXYGrid(true);
        else if (plane == 1)
            canvas.showYZGrid(true);
        else
            canvas.showXZGrid(true);
        const Picture picture(canvas);
        for (const double line : {-300.0, -200.0, 200.0, 300.0}) {
            for (const double between : {-250.0, 150.0}) {
                const Eigen::Vector3d p = inPlane(line, between);
                const Eigen::Vector3d q = inPlane(between, line);
                QVERIFY(picture.near(color, p.x(), p.y(), p.z()) >= 2);
                QVERIFY(picture.near(color, q.x(), q.y(), q.z()) >= 2);
            }
        }
        const Eigen::Vector3d cell = inPlane(250.0, -150.0);
        QCOMPARE(picture.near(QColor(Qt::black), cell.x(), cell.y(), cell.z()), 9);
    }

    void shouldTakeANewGridColour()
    {
        CountingCanvas canvas;
        showScene(canvas, {}, 900.0);
        canvas.showXYGrid(true);
        QColor color(150, 150, 10);
        canvas.setXYGridColor(color);
        const Picture picture(canvas);
        QVERIFY(picture.near(color, 250.0, 200.0, 0.0) >= 2);
    }

    void shouldEndTheGridAtItsExtent()
    {
        CountingCanvas canvas;
        showScene(canvas, {}, 900.0);
        canvas.room()->display().gridExtent = 250.5 / scale;
        canvas.showXYGrid(true);
        const Picture picture(canvas);
        const QColor yellow(255, 255, 0);
        QVERIFY(picture.near(yellow, -250.0, 20.0, 0.0) >= 2);
        QVERIFY(picture.near(yellow, 250.0, 20.0, 0.0) >= 2);
        QVERIFY(picture.near(yellow, 20.0, 150.0, 0.0) >= 2);
        QCOMPARE(picture.near(yellow, 256.0, 150.0, 0.0), 0);
        QCOMPARE(picture.near(yellow, 20.0, 200.0, 0.0), 0);
    }

    void shouldDashTheLongAxes()
    {
        CountingCanvas canvas;
        showScene(canvas);
        canvas.setLongAxesFactor(0.4);
        canvas.showLongAxes(true);
        const double half = 30.0 * scale * scale * 0.4;
        const Picture picture(canvas);
        const QPoint end = picture.pixel(-half, 0.0, 0.0);
        const QPoint origin = picture.pixel(0.0, 0.0, 0.0);
        const QRect line(end.x(), end.y() - 1, origin.x() - end.x(), 3);
        const int red = picture.count(line, [](const QColor &c) { return c == QColor(255, 0, 0); });
        QVERIFY2(std::abs(red - line.width() / 2) <= line.width() / 8, qPrintable(QString::number(red)));
        const QRect beyond(end.x() - 60, end.y() - 1, 58, 3);
        QCOMPARE(picture.count(beyond, [](const QColor &c) { return c != Qt::black; }), 0);
        QVERIFY(picture.near(QColor(0, 255, 0), 0.0, -half + 2.0, 0.0) > 0 ||
                picture.near(QColor(0, 255, 0), 0.0, -half + 5.0, 0.0) > 0);
    }

    void shouldDashEachLongAxisInItsColour_data()
    {
        QTest::addColumn<int>("axis");
        QTest::addColumn<QColor>("color");
        QTest::newRow("x") << 0 << QColor(255, 0, 0);
        QTest::newRow("y") << 1 << QColor(0, 255, 0);
        QTest::newRow("z") << 2 << QColor(0, 0, 255);
    }

    void shouldDashEachLongAxisInItsColour()
    {
        QFETCH(int, axis);
        QFETCH(QColor, color);
        CountingCanvas canvas;
        showScene(canvas);
        canvas.rotateView(30.0, 40.0, 0.0); // so that none points at the viewer
        canvas.setLongAxesFactor(0.4);
        canvas.showLongAxes(true);
        const Picture picture(canvas);
        int seen = 0;
        for (double part = 0.55; part < 0.95; part += 0.01) {
            const double along = -30.0 * scale * scale * 0.4 * part;
            seen += picture.near(color, axis == 0 ? along : 0.0, axis == 1 ? along : 0.0,
                                 axis == 2 ? along : 0.0);
        }
        QVERIFY(seen > 10);
    }

    void shouldDrawThinLinesWhateverWidthWasSetBefore_data()
    {
        QTest::addColumn<bool>("isGrid");
        QTest::newRow("grid") << true;
        QTest::newRow("long axes") << false;
    }

    void shouldDrawThinLinesWhateverWidthWasSetBefore()
    {
        QFETCH(bool, isGrid);
        CountingCanvas canvas;
        showScene(canvas);
        canvas.setLongAxesFactor(0.4);
        canvas.showXYGrid(isGrid);
        canvas.showLongAxes(!isGrid);
        const QImage thin = Picture(canvas).image();
        canvas.makeCurrent();
        glLineWidth(5.0F);
        canvas.updateGL();
        QCOMPARE(Picture(canvas).image(), thin);
    }

    void shouldPaintTheSameWhateverWasSetBeforeItsFirstPicture()
    {
        // GIVEN
        CountingCanvas plain;
        showScene(plain, translated(20.0, -50.0, 0.0));
        plain.showXYGrid(true);
        MeddledCanvas meddled;
        // WHEN
        showScene(meddled, translated(20.0, -50.0, 0.0));
        meddled.showXYGrid(true);
        // THEN
        QCOMPARE(Picture(meddled).image(), Picture(plain).image());
        QCOMPARE(meddled.polygonModes(), (std::array<GLint, 2>{GL_FILL, GL_FILL}));
    }

    void shouldNotDrawATextBehindTheEye()
    {
        CountingCanvas canvas;
        showScene(canvas);
        canvas.setViewPosition({0.0, 0.0, 400.0});
        const Picture picture(canvas);
        QCOMPARE(picture.count([](const QColor &c) { return c != Qt::black; }), 0);
    }

    void shouldTellWhatIsBehindTheEyeWhereverItLooks_data()
    {
        QTest::addColumn<double>("xDegrees");
        QTest::addColumn<double>("yDegrees");
        QTest::addColumn<QVector3D>("position");
        QTest::addColumn<bool>("isSeen");
        QTest::newRow("along x, the text before the eye") << 0.0 << -90.0 << QVector3D(0, 0, 50) << true;
        QTest::newRow("along x, the text behind the eye") << 0.0 << 90.0 << QVector3D(0, 0, -50) << false;
        QTest::newRow("along y, the text before the eye") << -90.0 << 0.0 << QVector3D(150, 0, 10) << true;
        QTest::newRow("along y, the text behind the eye") << 90.0 << 0.0 << QVector3D(150, 0, -10) << false;
    }

    void shouldTellWhatIsBehindTheEyeWhereverItLooks()
    {
        // GIVEN: the origin behind or before an eye that looks along an axis, and the text on its other side,
        // from the origin 150 along x and 30 along y
        QFETCH(double, xDegrees);
        QFETCH(double, yDegrees);
        QFETCH(QVector3D, position);
        QFETCH(bool, isSeen);
        CountingCanvas canvas;
        showScene(canvas);
        canvas.setScaleUnit(30.0);
        canvas.setViewOrientation(matrix(motion(turn(xDegrees, yDegrees, 0.0), {0.0, 0.0, 0.0})));
        canvas.setViewPosition({position.x(), position.y(), position.z()});
        // WHEN
        const Picture picture(canvas);
        // THEN
        QCOMPARE(picture.count(isWhite) >= 10, isSeen);
    }

    void shouldDrawOnlyTheTransformedRoomWhenTheLoadedOneIsNoNumber()
    {
        CountingCanvas canvas;
        showScene(canvas, translated(0.0, 0.0, 1e6));
        const QImage onlyTransformed = Picture(canvas).image();
        RoomTrafoData broken;
        broken.rotation.fill(std::nan(""));
        canvas.room()->loadRoom(broken);
        const Picture picture(canvas);
        QVERIFY(isRed(picture.color(50.0, 0.0, 0.0)));
        QCOMPARE(picture.image(), onlyTransformed);
    }
};

ROOM_TEST_CLASS(RoomPainterTest)
#include "RoomPainterTest.moc"
