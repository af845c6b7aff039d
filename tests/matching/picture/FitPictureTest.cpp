#include "FitPicture.h"

#include "TestRegistry.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include <algorithm>

namespace
{

const MatchingPoints plate = {{0, 0, 0}, {1000, 0, 0}, {1000, 600, 0}, {0, 600, 0}};

MatchingEvaluation matched()
{
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    evaluation.mapped = plate;
    evaluation.mapped[2][0] -= 3.0;
    evaluation.distancesMm = {0, 0, 3, 0};
    evaluation.order = {0, 1, 2, 3};
    return evaluation;
}

QPalette paletteOf(const QColor &base, const QColor &text)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, QColor(60, 140, 230));
    return palette;
}

QImage grabbed(FitPicture &picture)
{
    picture.resize(520, 400);
    return picture.grab().toImage();
}

/// How many pixels of a square about the place are clearly not background.
int drawnAbout(const QImage &image, const FitSketch::Place &place, int halfSide, const QColor &base)
{
    int drawn = 0;
    for (int y = int(place.y) - halfSide; y <= int(place.y) + halfSide; ++y) {
        for (int x = int(place.x) - halfSide; x <= int(place.x) + halfSide; ++x)
            drawn += qAbs(qGray(image.pixel(x, y)) - qGray(base.rgb())) > 60 ? 1 : 0;
    }
    return drawn;
}

/// The plate in its measures: crosses of 12 pixels, discs of 8, the ring about the worst point of 26,
/// numbers 10 to the right and above, the texts 8 pixels from the border.
QImage drawnByHand(const FitSketch &sketch, bool isSure, const QFont &font, int worstPair,
                   const QString &error)
{
    const QColor blue(60, 140, 230);
    QImage image(520, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    int number = 0;
    for (const FitSketch::Pair &pair : sketch.pairs) {
        const double x = pair.reference.x;
        const double y = pair.reference.y;
        const QPointF measured(pair.mapped.x, pair.mapped.y);
        painter.setPen(QPen(blue, 2, isSure ? Qt::SolidLine : Qt::DashLine));
        painter.setBrush(isSure ? QBrush(blue) : QBrush());
        painter.drawLine(QPointF(x, y), measured);
        painter.drawEllipse(measured, 4, 4);
        painter.setPen(QPen(Qt::black, 2));
        painter.drawLine(QPointF(x - 6, y), QPointF(x + 6, y));
        painter.drawLine(QPointF(x, y - 6), QPointF(x, y + 6));
        painter.drawText(QPointF(x + 10, y - 10), QString::number(++number));
    }
    const FitSketch::Place worst = sketch.pairs[std::size_t(worstPair)].reference;
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(error);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(worst.x, worst.y), 13, 13);
    const double left = std::max(std::min(worst.x - width / 2.0, 520.0 - width), 0.0);
    painter.drawText(QPointF(left, worst.y + 13 + metrics.height()), error);
    painter.setPen(Qt::black);
    QString legend = QStringLiteral("Errors are drawn %1 times as large.").arg(sketch.enlargement);
    if (!isSure)
        legend += QStringLiteral("\nBroken lines: another order of the points fits as well.");
    painter.drawText(QRect(8, 8, 504, 384), Qt::AlignLeft | Qt::AlignTop, legend);
    painter.drawText(QRect(8, 8, 504, 384), Qt::AlignLeft | Qt::AlignBottom,
                     QString::fromUtf8("x\u2192 y\u2191"));
    return image;
}

} // namespace

class FitPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDrawEveryPointOnAnyPalette_data();
    void shouldDrawEveryPointOnAnyPalette();
    void shouldSetOffTheWorstPoint();
    void shouldDrawInBrokenLinesWhatIsNotSure();
    void shouldStartWithTheWidestView();
    void shouldShowAnotherSide();
    void shouldDrawEverythingInItsMeasures_data();
    void shouldDrawEverythingInItsMeasures();
};

void FitPictureTest::shouldDrawEveryPointOnAnyPalette_data()
{
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(30, 30, 34) << QColor(Qt::white);
}

void FitPictureTest::shouldDrawEveryPointOnAnyPalette()
{
    QFETCH(QColor, base);
    QFETCH(QColor, text);
    FitPicture picture;
    picture.setPalette(paletteOf(base, text));
    picture.show(plate, matched(), -1);

    const QImage image = grabbed(picture);

    const FitSketch sketch = FitSketch::of(plate, matched().mapped, FitSketch::Along::Z, 520, 400);
    for (const FitSketch::Pair &pair : sketch.pairs)
        QVERIFY(drawnAbout(image, pair.reference, 6, base) > 15);
    QVERIFY(drawnAbout(image, sketch.pairs[2].mapped, 3, base) > 15);
    QCOMPARE(image.pixelColor(260, 200), base);
}

void FitPictureTest::shouldSetOffTheWorstPoint()
{
    FitPicture picture;
    picture.setPalette(paletteOf(Qt::white, Qt::black));
    picture.show(plate, matched(), -1);
    const FitSketch::Place worst =
        FitSketch::of(plate, matched().mapped, FitSketch::Along::Z, 520, 400).pairs[2].reference;
    const int without = drawnAbout(grabbed(picture), worst, 16, Qt::white);

    picture.show(plate, matched(), 2);

    const QImage image = grabbed(picture);
    QVERIFY(drawnAbout(image, worst, 16, Qt::white) > without + 40);
    // A ring: what stands in it stays in sight.
    QCOMPARE(image.pixelColor(int(worst.x) + 7, int(worst.y) + 7), QColor(Qt::white));
    QCOMPARE(image.pixelColor(int(worst.x) - 7, int(worst.y) + 7), QColor(Qt::white));
}

void FitPictureTest::shouldDrawInBrokenLinesWhatIsNotSure()
{
    FitPicture picture;
    picture.show(plate, matched(), -1);
    const QImage sure = grabbed(picture);
    MatchingEvaluation unsure = matched();
    unsure.otherOrderFits = true;

    picture.show(plate, unsure, -1);

    const FitSketch::Place place =
        FitSketch::of(plate, matched().mapped, FitSketch::Along::Z, 520, 400).pairs[2].mapped;
    const QPoint centre(int(place.x), int(place.y));
    QVERIFY(sure.pixelColor(centre) != grabbed(picture).pixelColor(centre));
}

void FitPictureTest::shouldStartWithTheWidestView()
{
    FitPicture picture;
    const MatchingPoints upright = {{0, 0, 0}, {0, 500, 0}, {0, 0, 700}};
    MatchingEvaluation evaluation = matched();
    evaluation.mapped = upright;
    picture.show(upright, evaluation, -1);
    QVERIFY(picture.view() == FitSketch::Along::X);
}

void FitPictureTest::shouldShowAnotherSide()
{
    FitPicture picture;
    picture.show(plate, matched(), -1);
    const QImage fromAbove = grabbed(picture);

    picture.setView(FitSketch::Along::Y);

    QVERIFY(grabbed(picture) != fromAbove);
}

void FitPictureTest::shouldDrawEverythingInItsMeasures_data()
{
    QTest::addColumn<bool>("isSure");
    QTest::addColumn<int>("worstPair");
    QTest::addColumn<double>("distanceMm");
    QTest::addColumn<QString>("error");
    QTest::newRow("sure") << true << 2 << 3.0 << "3.00 mm";
    QTest::newRow("not sure") << false << 2 << 3.0 << "3.00 mm";
    QTest::newRow("a long text at the left") << true << 3 << 1e12 << "1000000000000.00 mm";
    QTest::newRow("a long text at the right") << true << 1 << 1e12 << "1000000000000.00 mm";
}

void FitPictureTest::shouldDrawEverythingInItsMeasures()
{
    // GIVEN
    QFETCH(bool, isSure);
    QFETCH(int, worstPair);
    QFETCH(double, distanceMm);
    QFETCH(QString, error);
    FitPicture picture;
    picture.setPalette(paletteOf(Qt::white, Qt::black));
    MatchingEvaluation evaluation = matched();
    evaluation.otherOrderFits = !isSure;
    evaluation.distancesMm[std::size_t(worstPair)] = distanceMm;
    const FitSketch sketch = FitSketch::of(plate, evaluation.mapped, FitSketch::Along::Z, 520, 400);
    // WHEN
    picture.show(plate, evaluation, worstPair);
    const QImage drawn = grabbed(picture).convertToFormat(QImage::Format_RGB32);
    // THEN
    QCOMPARE(drawn, drawnByHand(sketch, isSure, picture.font(), worstPair, error));
}

ROOM_TEST_CLASS(FitPictureTest)

#include "FitPictureTest.moc"
