#include "LargeDisplay.h"

#include "TestRegistry.h"

#include <QFontMetricsF>
#include <QImage>
#include <QtTest>

namespace
{

const QString usual = QStringLiteral("Point 4 of 6: 0.02 mm");

/// The rows and columns between which a picture differs from its background.
QRect inkOf(const QImage &picture)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAbs(qGray(picture.pixel(x, y)) - qGray(picture.pixel(0, 0))) > 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

QImage pictureOf(LargeDisplay &display)
{
    return display.grab().toImage();
}

} // namespace

class LargeDisplayTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFillItsPlaceWithTheTextAndCutNothing_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("narrow and high") << QSize(300, 200);
        QTest::newRow("wide and low") << QSize(1000, 60);
        QTest::newRow("large") << QSize(1800, 150);
    }

    void shouldFillItsPlaceWithTheTextAndCutNothing()
    {
        QFETCH(QSize, size);
        LargeDisplay display;
        display.resize(size);
        display.say([] { return usual; });
        const QImage picture = pictureOf(display);
        const QRect ink = inkOf(picture);
        QVERIFY(ink.left() > 0 && ink.right() < picture.width() - 1);
        QVERIFY(ink.top() > 0 && ink.bottom() < picture.height() - 1);
        const double scale = picture.devicePixelRatio();
        QVERIFY(ink.width() > 0.85 * scale * size.width() || ink.height() > 0.5 * scale * size.height());
    }

    void shouldLeaveTwoPixelsAroundTheText()
    {
        // GIVEN
        LargeDisplay display;
        display.say([] { return usual; });
        QFont font = display.font();
        font.setPixelSize(100);
        const QFontMetricsF metrics(font);
        const QSize enough(qCeil(metrics.horizontalAdvance(usual)) + 4, qCeil(metrics.height()) + 4);
        const auto letters = [&display](const QSize &size) {
            display.resize(size);
            return display.largestFont().pixelSize();
        };
        // THEN
        QCOMPARE(letters(enough), 100);
        QVERIFY(letters(enough - QSize(2, 0)) < 100);
        QVERIFY(letters(enough - QSize(0, 2)) < 100);
    }

    void shouldHaveLettersForThreeMetresWhereverItFits()
    {
        LargeDisplay display;
        display.resize(640, display.minimumSizeHint().height());
        display.say([] { return usual; });
        // 10 minutes of arc at 3 m are 8.7 mm, 33 pixels of 0.26 mm.
        QVERIFY(QFontMetrics(display.largestFont()).capHeight() >= 33);
    }

    void shouldBeReadableOnLightAndDark_data()
    {
        QTest::addColumn<QColor>("base");
        QTest::addColumn<QColor>("text");
        QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
        QTest::newRow("dark") << QColor(35, 35, 35) << QColor(Qt::white);
    }

    void shouldBeReadableOnLightAndDark()
    {
        QFETCH(QColor, base);
        QFETCH(QColor, text);
        LargeDisplay display;
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        display.setPalette(palette);
        display.resize(600, 80);
        display.say([] { return usual; });
        const QImage picture = pictureOf(display);
        QCOMPARE(QColor(picture.pixel(0, 0)), base);
        QVERIFY(!inkOf(picture).isEmpty());
    }

    void shouldTellScreenReadersAndFollowTheLanguage()
    {
        LargeDisplay display;
        QString words = usual;
        display.say([&words] { return words; });
        QCOMPARE(display.accessibleDescription(), usual);
        words = QStringLiteral("Punkt 4 von 6: 0.02 mm");
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&display, &change);
        QCOMPARE(display.accessibleDescription(), words);
    }

    void shouldShowNothingBeforeThereIsSomething()
    {
        LargeDisplay display;
        display.resize(600, 80);
        QCOMPARE(display.text(), QString());
        QVERIFY(inkOf(pictureOf(display)).isEmpty());
    }
};

ROOM_TEST_CLASS(LargeDisplayTest)

#include "LargeDisplayTest.moc"
