#include "MeasuringSigns.h"

#include "LargeDisplay.h"
#include "TestClock.h"
#include "TestRegistry.h"

#include <QCheckBox>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

/// The signs with the widgets of a window of their own.
struct Signs {
    QWidget window;
    QCheckBox sounds{&window};
    QCheckBox larger{&window};
    LargeDisplay display{&window};
    MeasuringSigns signs{&sounds, &larger, &display, &window};
    QSignalSpy beeps{window.findChild<MeasuringSounds *>(), &MeasuringSounds::beep};
};

} // namespace

class MeasuringSignsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { MeasuringSounds::turnOn(true); }

    void shouldTellHowFarThingsAre()
    {
        Signs s;
        s.signs.showCount(3, 6);
        QCOMPARE(s.display.text(), QStringLiteral("3 of 6 points measured"));
        s.signs.showMeasuring(4, 6, 45);
        QCOMPARE(s.display.text(), QStringLiteral("Point 4 of 6: 45 %"));
        QCOMPARE(s.beeps.count(), 0);
        s.signs.pointTaken(4, 6, 0.0249);
        QCOMPARE(s.display.text(), QStringLiteral("Point 4 of 6: 0.02 mm"));
        QCOMPARE(s.beeps.count(), 1);
        s.signs.measurementFailed(5, 6);
        QCOMPARE(s.display.text(), QStringLiteral("Point 5 of 6: failed"));
        TestClock::advance(2s);
        QCOMPARE(s.beeps.count(), 3);
    }

    void shouldHaveSomebodyWhoMakesTheSounds()
    {
        QWidget window;
        QCheckBox sounds(&window);
        QCheckBox larger(&window);
        LargeDisplay display(&window);
        const MeasuringSigns signs(&sounds, &larger, &display, &window);
        const auto *beeping = signs.findChild<MeasuringSounds *>();
        // Tells whether anybody listened.
        QVERIFY(QObject::disconnect(beeping, &MeasuringSounds::beep, nullptr, nullptr));
    }

    void shouldShowTheLargeDisplayOnlyWhenAskedTo()
    {
        Signs s;
        s.window.show();
        QVERIFY(!s.display.isVisible());
        s.larger.click();
        QVERIFY(s.display.isVisible());
        s.larger.click();
        QVERIFY(!s.display.isVisible());
    }

    void shouldKeepForTheNextWindowThatSoundsAreOff()
    {
        Signs s;
        QVERIFY(s.sounds.isChecked());
        s.sounds.click();
        s.signs.pointTaken(1, 3, 0.0);
        QCOMPARE(s.beeps.count(), 0);
        Signs next;
        QVERIFY(!next.sounds.isChecked());
        next.sounds.click();
        QVERIFY(!s.sounds.isChecked());
        s.signs.refresh();
        QVERIFY(s.sounds.isChecked());
    }
};

ROOM_TEST_CLASS(MeasuringSignsTest)

#include "MeasuringSignsTest.moc"
