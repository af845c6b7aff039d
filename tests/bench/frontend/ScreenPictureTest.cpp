#include "ScreenPicture.h"

#include "TestRegistry.h"

#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

namespace
{

/// A window of 60 x 40 in red.
struct RedWindow : QWidget {
    RedWindow()
    {
        setWindowFlags(Qt::FramelessWindowHint);
        setGeometry(50, 50, 60, 40);
        setPalette(QPalette(Qt::red));
        show();
    }
};

bool isRed(const QPixmap &picture)
{
    const QImage image = picture.toImage();
    return image.pixelColor(image.rect().center()) == QColor(Qt::red);
}

} // namespace

class ScreenPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowTheWindowsWithAMargin()
    {
        // GIVEN
        RedWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // WHEN, THEN
        QTRY_VERIFY(isRed(screenPicture()));
        QCOMPARE(screenPicture().size(), QSize(60 + 2 * 12, 40 + 2 * 12));
    }

    void shouldSaveThePicture()
    {
        // GIVEN
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("picture.png"));
        RedWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // WHEN
        QVERIFY(saveScreenPicture(file));
        // THEN
        QCOMPARE(QImage(file).size(), QSize(84, 64));
    }

    void shouldSayWhenItCannotBeSaved()
    {
        // GIVEN
        RedWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // WHEN, THEN
        QVERIFY(!saveScreenPicture(QStringLiteral("/no/such/folder/picture.png")));
    }
};

ROOM_TEST_CLASS(ScreenPictureTest)
#include "ScreenPictureTest.moc"
