#include "CameraMessages.h"

#include "TestRegistry.h"

#include <QtTest>

class CameraMessagesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindACameraAsAWholeEntry()
    {
        const QString message = QStringLiteral("10,2, 3,04");
        QVERIFY(CameraMessages::holdsCamera(message, 10));
        QVERIFY(CameraMessages::holdsCamera(message, 2));
        QVERIFY(!CameraMessages::holdsCamera(message, 1));
        QVERIFY(!CameraMessages::holdsCamera(message, 0));
        QVERIFY(!CameraMessages::holdsCamera(message, 3));
        QVERIFY(!CameraMessages::holdsCamera(message, 4));
        QVERIFY(!CameraMessages::holdsCamera(QString(), 0));
    }

    void shouldReadATabForEachCamera()
    {
        const auto tabs = CameraMessages::tabs(QStringLiteral("0,,1,x,-1,2147483647, 7"));
        const std::vector<std::optional<int>> expected{0, {}, 1, {}, {}, {}, 7};
        QVERIFY(tabs == expected);
    }
};

ROOM_TEST_CLASS(CameraMessagesTest)
#include "CameraMessagesTest.moc"
