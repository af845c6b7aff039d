#include "Resources.h"

#include "TestRegistry.h"

#include <QImage>
#include <QtTest>

class ResourcesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { loadResources(); }

    void shouldHoldEveryPictureInTwoDensities_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QSize>("size");
        const QSize square(300, 300);
        const QSize lamp(24, 24);
        const QSize mouse(210, 130);
        QTest::newRow("lock") << QStringLiteral(":/lock") << QSize(64, 64);
        QTest::newRow("angle tool") << QStringLiteral(":/att01") << QSize(380, 300);
        QTest::newRow("background") << QStringLiteral(":/background") << square;
        QTest::newRow("normal") << QStringLiteral(":/normal") << square;
        QTest::newRow("powerwall standing") << QStringLiteral(":/powerwall_standing") << square;
        QTest::newRow("middle camera") << QStringLiteral(":/mid_camera") << square;
        QTest::newRow("middle camera of three in one") << QStringLiteral(":/mid_camera_okt3") << square;
        QTest::newRow("rotation") << QStringLiteral(":/rotation") << mouse;
        QTest::newRow("zooming") << QStringLiteral(":/zooming") << mouse;
        QTest::newRow("panning") << QStringLiteral(":/panning") << mouse;
        QTest::newRow("grey") << QStringLiteral(":/grey") << lamp;
        QTest::newRow("green") << QStringLiteral(":/green") << lamp;
        QTest::newRow("red") << QStringLiteral(":/red") << lamp;
        QTest::newRow("transformation") << QStringLiteral("://transformation") << QSize(320, 230);
        QTest::newRow("point file") << QStringLiteral("://ref_point_format") << QSize(300, 190);
        QTest::newRow("icon") << QStringLiteral(":/images/icons/velmar_16x16") << QSize(16, 16);
    }

    void shouldHoldEveryPictureInTwoDensities()
    {
        QFETCH(QString, path);
        QFETCH(QSize, size);

        QCOMPARE(QImage(path + QLatin1String(".png")).size(), size);
        QCOMPARE(QImage(path + QLatin1String("@2x.png")).size(), 2 * size);
    }

    void shouldDrawTheLampsDifferentlyEvenWithoutColour()
    {
        const auto isSign = [](const char *path, int x, int y) {
            return qGray(QImage(QLatin1String(path)).pixel(x, y)) > 200;
        };
        QVERIFY(isSign(":/red.png", 9, 9));
        QVERIFY(!isSign(":/grey.png", 9, 9));
        QVERIFY(!isSign(":/green.png", 9, 9));
        QVERIFY(isSign(":/green.png", 11, 15));
        QVERIFY(!isSign(":/grey.png", 11, 15));
    }
};

ROOM_TEST_CLASS(ResourcesTest)
#include "ResourcesTest.moc"
