#include "ControllerTrafo.h"

#include "FakeController.h"
#include "TestRegistry.h"

#include <QtTest>

#include <limits>

class ControllerTrafoTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadWhatTheControllerHolds()
    {
        FakeController fake;
        fake.link.ask("velmar2 set tracking extra_rotation 0 -1 0 1 0 0 0 0 1");
        fake.link.ask("velmar2 set tracking extra_translation 1.5 -2 3");
        fake.link.ask("velmar2 set tracking extra_scaling 1.02");
        const auto trafo = ControllerTrafo::read(fake.link);
        QVERIFY(trafo.has_value());
        QCOMPARE(trafo->rotation, (std::array<double, 9>{0, -1, 0, 1, 0, 0, 0, 0, 1}));
        QCOMPARE(trafo->translationMm, (std::array<double, 3>{1.5, -2, 3}));
        QCOMPARE(trafo->scaling, 1.02);
    }

    void shouldNotReadPastTheFaultsIntoTheLog()
    {
        FakeController fake;
        const int before = fake.channel.log().rowCount();
        QVERIFY(ControllerTrafo::read(fake.link).has_value());
        QCOMPARE(fake.channel.log().rowCount(), before);
    }

    void shouldTellNearFromFar()
    {
        const ControllerTrafo neutral;
        ControllerTrafo other;
        other.translationMm[1] = 4e-4;
        other.rotation[3] = 9e-8;
        QVERIFY(neutral.isNear(other));
        other.translationMm[1] = 6e-4;
        QVERIFY(!neutral.isNear(other));
        other = neutral;
        other.rotation[3] = 2e-7;
        QVERIFY(!neutral.isNear(other));
        other = neutral;
        other.scaling = 1.00001;
        QVERIFY(!neutral.isNear(other));
        other.scaling = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(!neutral.isNear(other));
    }

    void shouldPrintWithAPoint()
    {
        ControllerTrafo trafo;
        trafo.translationMm = {-250.0, 0.5, 1234.0};
        QVERIFY(trafo.asText().contains(QStringLiteral("translation -250.000 0.500 1234.000")));
        QVERIFY(trafo.asText().contains(QStringLiteral("scaling     1.00000")));
    }
};

ROOM_TEST_CLASS(ControllerTrafoTest)

#include "ControllerTrafoTest.moc"
