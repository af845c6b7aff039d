#include "RenderArea.h"

#include "AxisAssigner.h"
#include "BackendVersions.h"
#include "Resources.h"

#include "TestRegistry.h"

#include <QPainter>
#include <QtTest>

#include <array>

#include <sys/mman.h>
#include <unistd.h>

namespace
{

constexpr int side = 300;
constexpr int centre = side / 2;
const QRect betweenTheArrows(160, 160, 120, 120);

QImage picture(const RenderArea &area)
{
    return const_cast<RenderArea &>(area).grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage onWhite(const char *resource)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawImage(0, 0, QImage(QLatin1String(resource)));
    return image;
}

/// How much the colour of an axis (0 red, 1 green, 2 blue) stands out, at the strongest pixel around a point.
int strength(const QImage &image, int x, int y, int color)
{
    int best = 0;
    for (int i = 0; i < 9; ++i) {
        const QColor pixel = image.pixelColor(x + i % 3 - 1, y + i / 3 - 1);
        const std::array<int, 3> parts{pixel.red(), pixel.green(), pixel.blue()};
        const int others = std::max(parts[static_cast<std::size_t>((color + 1) % 3)],
                                    parts[static_cast<std::size_t>((color + 2) % 3)]);
        best = std::max(best, parts[static_cast<std::size_t>(color)] - others);
    }
    return best;
}

bool isColored(const QImage &image, QPoint point, int color)
{
    return strength(image, point.x(), point.y(), color) > 80;
}

/// Where a direction's arrow starts, ends, no longer is, and where the two strokes of its head are.
struct Arrow {
    QPoint nearCentre;
    QPoint end;
    QPoint beyond;
    QPoint head1;
    QPoint head2;
};

const std::array<Arrow, 6> arrows{{
    {{135, 150}, {11, 150}, {5, 150}, {14, 146}, {14, 154}},
    {{165, 150}, {289, 150}, {295, 150}, {286, 146}, {286, 154}},
    {{150, 135}, {150, 11}, {150, 5}, {146, 14}, {154, 14}},
    {{150, 165}, {150, 289}, {150, 295}, {146, 286}, {154, 286}},
    {{139, 161}, {31, 269}, {25, 275}, {30, 264}, {36, 270}},
    {{161, 139}, {269, 31}, {275, 25}, {264, 30}, {270, 36}},
}};

} // namespace

Q_DECLARE_METATYPE(DirectionAxes)

Q_DECLARE_METATYPE(CoordinateType)

class RenderAreaTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { loadResources(); }

    void shouldBeAsLargeAsItsPictures()
    {
        const RenderArea area(side, nullptr, nullptr);
        QCOMPARE(area.minimumSize(), QSize(side, side));
        QCOMPARE(area.maximumSize(), QSize(side, side));
        QCOMPARE(area.coordinateType(), CoordinateType::Unknown);
    }

    void shouldLoadItsPicturesItself()
    {
        // GIVEN
        Q_CLEANUP_RESOURCE(room_adjustment);
        // WHEN
        const RenderArea area(side, nullptr, nullptr);
        // THEN
        QCOMPARE(area.minimumSize(), QSize(side, side));
    }

    void shouldDrawEachArrowFromTheCentreToItsEdge_data()
    {
        QTest::addColumn<CoordinateType>("type");
        QTest::addColumn<DirectionAxes>("axes");
        for (const CoordinateType type : {CoordinateType::Normal, CoordinateType::Powerwall,
                                          CoordinateType::PowerwallStanding, CoordinateType::MidCamera}) {
            const int n = int(type);
            AxisAssigner assigner;
            assigner.setCoordinateType(type);
            QTest::addRow("type %d", n) << type << assigner.directionAxes();
            QTest::addRow("type %d, positive axes only", n) << type << DirectionAxes{0, 2, 4, 0, 2, 4};
            QTest::addRow("type %d, negative axes only", n) << type << DirectionAxes{1, 3, 5, 1, 3, 5};
        }
    }

    void shouldDrawEachArrowFromTheCentreToItsEdge()
    {
        QFETCH(CoordinateType, type);
        QFETCH(DirectionAxes, axes);
        RenderArea area(side, nullptr, nullptr);
        area.setCoordinateType(type);
        area.setAxes(axes);

        const QImage image = picture(area);

        for (std::size_t i = 0; i < arrows.size(); ++i) {
            const int color = axes[i] / 2;
            const bool isPositive = axes[i] % 2 == 0;
            QVERIFY2(isColored(image, arrows[i].nearCentre, color), qPrintable(QString::number(i)));
            QVERIFY2(isColored(image, arrows[i].end, color), qPrintable(QString::number(i)));
            QVERIFY2(!isColored(image, arrows[i].beyond, color), qPrintable(QString::number(i)));
            QCOMPARE(isColored(image, arrows[i].head1, color), isPositive);
            QCOMPARE(isColored(image, arrows[i].head2, color), isPositive);
        }
    }

    void shouldDrawNegativeAxesThicker()
    {
        RenderArea area(side, nullptr, nullptr);
        area.setCoordinateType(CoordinateType::PowerwallStanding);
        area.setAxes({1, 0, 2, 3, 5, 4});
        const QImage image = picture(area);
        const auto inkAcross = [&image](int x) {
            int ink = 0;
            for (int y = centre - 4; y <= centre + 4; ++y)
                ink += std::max(0, image.pixelColor(x, y).red() - image.pixelColor(x, y).green());
            return ink;
        };
        // One pixel of pure red is 255; the line may lie between two rows of pixels.
        QVERIFY(inkAcross(60) > 600 && inkAcross(60) < 900);
        QVERIFY(inkAcross(265) > 180 && inkAcross(265) < 300);
    }

    void shouldShowTheEmptyRoomWithoutArrows_data()
    {
        QTest::addColumn<CoordinateType>("type");
        QTest::newRow("none") << CoordinateType::None;
        QTest::newRow("unknown") << CoordinateType::Unknown;
    }

    void shouldShowTheEmptyRoomWithoutArrows()
    {
        QFETCH(CoordinateType, type);
        RenderArea area(side, nullptr, nullptr);
        area.setCoordinateType(type);
        area.setAxes({1, 0, 2, 3, 4, 5});
        QCOMPARE(picture(area), onWhite(":/background.png"));
    }

    void shouldChooseThePictureOfTheType_data()
    {
        QTest::addColumn<CoordinateType>("type");
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QByteArray>("resource");
        QTest::newRow("normal") << CoordinateType::Normal << QString() << QByteArray(":/normal.png");
        QTest::newRow("powerwall") << CoordinateType::Powerwall << QString() << QByteArray(":/normal.png");
        QTest::newRow("standing") << CoordinateType::PowerwallStanding << QString()
                                  << QByteArray(":/powerwall_standing.png");
        QTest::newRow("middle camera")
            << CoordinateType::MidCamera << QString() << QByteArray(":/mid_camera.png");
        QTest::newRow("three in one")
            << CoordinateType::MidCamera << QStringLiteral("OKTAVO3") << QByteArray(":/mid_camera_okt3.png");
        QTest::newRow("other case") << CoordinateType::MidCamera << QStringLiteral("Oktavo3")
                                    << QByteArray(":/mid_camera.png");
        QTest::newRow("longer name") << CoordinateType::MidCamera << QStringLiteral("OKTAVO3 ")
                                     << QByteArray(":/mid_camera.png");
    }

    void shouldChooseThePictureOfTheType()
    {
        QFETCH(CoordinateType, type);
        QFETCH(QString, backend);
        QFETCH(QByteArray, resource);
        BackendVersions versions;
        versions.backendName = backend;
        RenderArea area(side, nullptr, &versions);
        area.setCoordinateType(type);
        QCOMPARE(picture(area).copy(betweenTheArrows), onWhite(resource.constData()).copy(betweenTheArrows));
    }

    void shouldDoWithARecordThatHasNoName_data()
    {
        QTest::addColumn<quint64>("behindTheNumbers");
        QTest::newRow("nothing") << quint64(0);
        QTest::newRow("a number") << quint64(7);
        QTest::newRow("numbers") << quint64(0x0000000700000007);
        QTest::newRow("no address") << ~quint64(0);
    }

    void shouldDoWithARecordThatHasNoName()
    {
        QFETCH(quint64, behindTheNumbers);
        struct {
            std::array<int, 6> numbers;
            quint64 next;
        } record{{0, 0, 0, 1, 24, -1}, behindTheNumbers};
        RenderArea area(side, nullptr, reinterpret_cast<const BackendVersions *>(&record));
        area.setCoordinateType(CoordinateType::MidCamera);
        QCOMPARE(picture(area).copy(betweenTheArrows), onWhite(":/mid_camera.png").copy(betweenTheArrows));
    }

    void shouldDoWithARecordAtTheEndOfTheMemory()
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        void *pages = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        QVERIFY(pages != MAP_FAILED);
        auto *behind = static_cast<char *>(pages) + page;
        QCOMPARE(mprotect(behind, page, PROT_NONE), 0);
        RenderArea area(side, nullptr, reinterpret_cast<const BackendVersions *>(behind - 6 * sizeof(int)));
        area.setCoordinateType(CoordinateType::MidCamera);
        QCOMPARE(picture(area).copy(betweenTheArrows), onWhite(":/mid_camera.png").copy(betweenTheArrows));
        munmap(pages, 2 * page);
    }

    void shouldDrawNoMoreThanItsSize()
    {
        RenderArea area(100, nullptr, nullptr);
        area.setCoordinateType(CoordinateType::None);
        const QImage image = picture(area);
        const QImage whole = onWhite(":/background.png");
        QCOMPARE(image.copy(0, 0, 100, 100), whole.copy(0, 0, 100, 100));
        QCOMPARE(image.pixelColor(200, 100), QColor(Qt::white));
        QVERIFY(whole.pixelColor(200, 100) != QColor(Qt::white));
    }
};

ROOM_TEST_CLASS(RenderAreaTest)
#include "RenderAreaTest.moc"
