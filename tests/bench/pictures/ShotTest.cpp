#include "Shot.h"

#include "TestRegistry.h"

#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

namespace
{

constexpr int margin = 12; // around all windows

/// A window of one colour.
struct ColouredWindow : QWidget {
    ColouredWindow(Qt::GlobalColor colour, const QRect &place)
    {
        setWindowFlags(Qt::FramelessWindowHint);
        setGeometry(place);
        setPalette(QPalette(colour));
        show();
    }
};

bool isAt(const QImage &picture, const QPoint &place, Qt::GlobalColor colour)
{
    return picture.pixelColor(place) == QColor(colour);
}

} // namespace

class ShotTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowAPartOfAWindow()
    {
        // GIVEN
        ColouredWindow window(Qt::red, {50, 60, 90, 40});
        QWidget part(&window);
        part.setGeometry(20, 10, 30, 15);
        part.setAutoFillBackground(true);
        part.setPalette(QPalette(Qt::green));
        part.show();
        // WHEN, THEN
        QTRY_VERIFY(isAt(Shot::of(part), {0, 0}, Qt::green));
        QCOMPARE(Shot::of(part).size(), QSize(30, 15));
        QVERIFY(isAt(Shot::of(part), {29, 14}, Qt::green));
        QCOMPARE(Shot::of(window).size(), QSize(90, 40));
        QVERIFY(isAt(Shot::of(window), {19, 10}, Qt::red));
    }

    void shouldShowWhatStandsInFront()
    {
        // GIVEN
        const ColouredWindow behind(Qt::red, {50, 60, 90, 40});
        QTRY_VERIFY(isAt(Shot::of(behind), {80, 30}, Qt::red));
        // WHEN
        const ColouredWindow front(Qt::blue, {100, 60, 90, 40});
        // THEN
        QTRY_VERIFY(isAt(Shot::of(behind), {80, 30}, Qt::blue));
        QVERIFY(isAt(Shot::of(behind), {10, 30}, Qt::red));
    }

    void shouldShowAllWindows()
    {
        // GIVEN
        const ColouredWindow left(Qt::red, {50, 60, 90, 40});
        const ColouredWindow right(Qt::blue, {200, 80, 60, 50});
        // WHEN, THEN
        QTRY_VERIFY(isAt(Shot::ofAllWindows(), {margin, margin}, Qt::red));
        QTRY_VERIFY(isAt(Shot::ofAllWindows(), {margin + 150, margin + 20}, Qt::blue));
        QCOMPARE(Shot::ofAllWindows().size(), QSize(210 + 2 * margin, 70 + 2 * margin));
    }

    void shouldSaveTheSameFileEachTime()
    {
        // GIVEN
        const QTemporaryDir folder;
        const ColouredWindow window(Qt::red, {50, 60, 90, 40});
        QTRY_VERIFY(isAt(Shot::of(window), {45, 20}, Qt::red));
        const QImage picture = Shot::of(window);
        QFile one(folder.filePath(QStringLiteral("one.png")));
        QFile other(folder.filePath(QStringLiteral("other.png")));
        // WHEN
        QVERIFY(Shot::save(picture, one.fileName()));
        QVERIFY(Shot::save(picture, other.fileName()));
        // THEN
        QCOMPARE(QImage(one.fileName()).convertToFormat(QImage::Format_RGB32), picture);
        QVERIFY(one.open(QIODevice::ReadOnly));
        QVERIFY(other.open(QIODevice::ReadOnly));
        const QByteArray bytes = one.readAll();
        QCOMPARE(bytes, other.readAll());
        QVERIFY(bytes.startsWith("\x89PNG"));
        for (const char *chunk : {"tIME", "tEXt", "zTXt", "iTXt"})
            QVERIFY2(!bytes.contains(chunk), chunk);
    }

    void shouldSayWhenItCannotBeSaved()
    {
        QImage picture(2, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(!Shot::save(picture, QStringLiteral("/no/such/folder/picture.png")));
    }
};

ROOM_TEST_CLASS(ShotTest)
#include "ShotTest.moc"
