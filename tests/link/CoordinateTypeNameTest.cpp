#include "CoordinateTypeName.h"

#include "TestRegistry.h"

#include <QtTest>

class CoordinateTypeNameTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldKnowTheControllersNames_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("type");
        QTest::newRow("normal") << QByteArray("normal") << int(CoordinateType::Normal);
        QTest::newRow("powerwall") << QByteArray("powerwall") << int(CoordinateType::Powerwall);
        QTest::newRow("standing") << QByteArray("powerwall_standing")
                                  << int(CoordinateType::PowerwallStanding);
        QTest::newRow("middle camera") << QByteArray("mid_camera") << int(CoordinateType::MidCamera);
        QTest::newRow("none") << QByteArray("none") << int(CoordinateType::None);
        QTest::newRow("another camera") << QByteArray("first_camera") << int(CoordinateType::Unknown);
        QTest::newRow("capital letter") << QByteArray("Normal") << int(CoordinateType::Unknown);
        QTest::newRow("blank behind") << QByteArray("normal ") << int(CoordinateType::Unknown);
        QTest::newRow("nothing") << QByteArray() << int(CoordinateType::Unknown);
    }
    void shouldKnowTheControllersNames()
    {
        QFETCH(QByteArray, name);
        QTEST(int(CoordinateTypeName::typeOf(name)), "type");
    }
};

ROOM_TEST_CLASS(CoordinateTypeNameTest)
#include "CoordinateTypeNameTest.moc"
