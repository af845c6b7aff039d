#include "PercentText.h"

#include "TestRegistry.h"

#include <QLabel>
#include <QProgressBar>
#include <QtTest>

class PercentTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowBesideTheBarWhatItWouldShowItself()
    {
        // GIVEN
        QProgressBar bar;
        QLabel label;
        bar.setRange(0, 200);
        bar.setValue(50);
        // WHEN
        showPercentBeside(&bar, &label);
        // THEN
        QVERIFY(!bar.isTextVisible());
        QCOMPARE(label.text(), QStringLiteral("25%"));
        bar.setValue(199);
        QCOMPARE(label.text(), QStringLiteral("99%"));
    }

    void shouldKeepRoomForTheLongestText()
    {
        // GIVEN
        QProgressBar bar;
        QLabel label;
        bar.setValue(1);
        // WHEN
        showPercentBeside(&bar, &label);
        // THEN
        QVERIFY(label.minimumWidth() >= label.fontMetrics().horizontalAdvance(QStringLiteral("100%")));
        const int width = label.minimumWidth();
        bar.setValue(100);
        QVERIFY(label.sizeHint().width() <= width);
    }
};

ROOM_TEST_CLASS(PercentTextTest)
#include "PercentTextTest.moc"
