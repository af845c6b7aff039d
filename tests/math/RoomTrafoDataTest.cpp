#include "RoomTrafoData.h"

#include "TestRegistry.h"

#include <QtTest>

class RoomTrafoDataTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartNeutral()
    {
        const RoomTrafoData data;
        const std::array<double, 3> origin = {0.0, 0.0, 0.0};
        const std::array<double, 9> identity = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
        QVERIFY(data.translation == origin);
        QVERIFY(data.rotation == identity);
        QCOMPARE(data.scaling, 1.0);
    }

    void shouldCompareEveryNumber()
    {
        QVERIFY(RoomTrafoData() == RoomTrafoData());
        for (std::size_t i = 0; i < 13; ++i) {
            RoomTrafoData other;
            double &number = i < 3 ? other.translation[i] : i < 12 ? other.rotation[i - 3] : other.scaling;
            number += 1e-12;
            QVERIFY(other != RoomTrafoData());
        }
    }
};

ROOM_TEST_CLASS(RoomTrafoDataTest)
#include "RoomTrafoDataTest.moc"
