#include "RoomChangeText.h"

#include "RoomChange.h"
#include "TestRegistry.h"

#include <QtTest>

Q_DECLARE_METATYPE(bsVector)

class RoomChangeTextTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayNothingWhenNothingChanges()
    {
        // WHEN, THEN
        QCOMPARE(RoomChangeText::of(RoomChange()), QString());
    }

    void shouldSayEverythingInOneLine()
    {
        // GIVEN
        RoomChange change;
        change.movedMm = 12.3456;
        change.turnedDegrees = 0.25;
        change.axis = {0.0, 1.0, 0.0};
        change.scalingAfter = 1.02;
        // WHEN, THEN
        QCOMPARE(RoomChangeText::of(change),
                 QStringLiteral("With \"Apply\": The zero point moves by 12.346 mm. The axes turn by 0.250 "
                                "degrees about y. The scaling changes from 1.00000 to 1.02000."));
    }

    void shouldNameAnAxisOrItsDirection_data()
    {
        QTest::addColumn<bsVector>("axis");
        QTest::addColumn<QString>("name");
        QTest::newRow("x") << bsVector{1.0, 0.0, 0.0} << QStringLiteral("x");
        QTest::newRow("z") << bsVector{0.0, 0.0, 1.0} << QStringLiteral("z");
        QTest::newRow("nearly z") << bsVector{0.0008, 0.0, 0.99999968} << QStringLiteral("z");
        QTest::newRow("less near z") << bsVector{0.002, 0.0, 0.999998}
                                     << QStringLiteral("(0.00, 0.00, 1.00)");
        QTest::newRow("slanted") << bsVector{0.6, -0.8, 0.0} << QStringLiteral("(0.60, -0.80, 0.00)");
    }
    void shouldNameAnAxisOrItsDirection()
    {
        // GIVEN
        QFETCH(bsVector, axis);
        QFETCH(QString, name);
        RoomChange change;
        change.turnedDegrees = 90.0;
        change.axis = axis;
        // WHEN, THEN
        QCOMPARE(RoomChangeText::of(change),
                 QStringLiteral("With \"Apply\": The axes turn by 90.000 degrees about ") + name +
                     QStringLiteral("."));
    }
};

ROOM_TEST_CLASS(RoomChangeTextTest)
#include "RoomChangeTextTest.moc"
