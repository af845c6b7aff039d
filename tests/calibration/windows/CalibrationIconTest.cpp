#include "CalibrationIcon.h"

#include "TestRegistry.h"

#include <QPixmap>
#include <QtTest>

class CalibrationIconTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeThePictureOfATitleBar()
    {
        const QPixmap icon = calibrationIcon();
        QCOMPARE(QSizeF(icon.size()) / icon.devicePixelRatio(), QSizeF(16, 16));
    }

    void shouldBeTheSamePictureForEachWindow()
    {
        const QPixmap first = calibrationIcon();
        QCOMPARE(calibrationIcon().cacheKey(), first.cacheKey());
    }
};

ROOM_TEST_CLASS(CalibrationIconTest)

#include "CalibrationIconTest.moc"
