#include "PictureComparison.h"
#include "TestRegistry.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

namespace
{

constexpr QRgb grey = 0xffefefef;

/// A window with a frame and a text.
QImage window(const QString &text, const QPoint &place = {20, 40}, int frame = 10)
{
    QImage picture(200, 100, QImage::Format_RGB32);
    picture.fill(grey);
    QPainter painter(&picture);
    painter.drawRect(frame, frame, 180, 80);
    painter.drawText(place, text);
    return picture;
}

} // namespace

class PictureComparisonTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindNoDifferenceBetweenEqualPictures()
    {
        QCOMPARE(PictureComparison::visibleDifference(window("Apply 250"), window("Apply 250")),
                 std::optional<QString>());
    }

    void shouldOverlookWhatNobodySees()
    {
        QImage other = window("Apply 250");
        other.setPixel(100, 70, 0xffd8d8d8);
        for (int x = 0; x < other.width(); ++x)
            other.setPixel(x, 5, 0xffececec);
        QCOMPARE(PictureComparison::visibleDifference(window("Apply 250"), other), std::optional<QString>());
    }

    void shouldSeeAnotherPicture_data()
    {
        QTest::addColumn<QImage>("other");
        QTest::newRow("another word") << window("Cancel 250");
        QTest::newRow("another digit") << window("Apply 260");
        QTest::newRow("a moved text") << window("Apply 250", {24, 40});
        QTest::newRow("a moved frame") << window("Apply 250", {20, 40}, 13);
        QTest::newRow("no text") << window(QString());
        QTest::newRow("another size") << window("Apply 250").copy(0, 0, 200, 99);
        QTest::newRow("no picture") << QImage();
    }
    void shouldSeeAnotherPicture()
    {
        QFETCH(QImage, other);
        const auto difference = PictureComparison::visibleDifference(window("Apply 250"), other);
        QVERIFY(difference.has_value());
        QVERIFY(!difference->isEmpty());
    }

    void shouldSayWhereTheDifferenceIs()
    {
        QImage other = window("Apply 250");
        for (int x = 120; x < 128; ++x)
            for (int y = 60; y < 68; ++y)
                other.setPixel(x, y, 0xff0000ff);
        QCOMPARE(PictureComparison::visibleDifference(window("Apply 250"), other).value_or(QString()),
                 QString("they differ within 8 x 8 pixels at 120, 60"));
    }
};

ROOM_TEST_CLASS(PictureComparisonTest)

#include "PictureComparisonTest.moc"
