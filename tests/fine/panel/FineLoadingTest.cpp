#include "FinePanel.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QGroupBox>
#include <QtTest>

#include <algorithm>
#include <cmath>

class FineLoadingTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowTheRecordWhenItLoads();
    void shouldTellThatTheOldRoomIsGoneWhenItLoadsAgain();
    void shouldAskForToolAndScalingWhenItLoads();
    void shouldBeSilentWhenItLoads();
    void shouldWidenTheScalingOutsideFivePercent_data();
    void shouldWidenTheScalingOutsideFivePercent();
    void shouldDecideTheScalingByTheRecordWhenItCannotBeRead();
    void shouldNeitherShowNorKeepAScalingThatIsNoNumber_data();
    void shouldNeitherShowNorKeepAScalingThatIsNoNumber();
    void shouldShowARecordThatIsNoRotation();
    void shouldTurnTheRoomByNoMoreThanTheEditNearGimbalLock_data();
    void shouldTurnTheRoomByNoMoreThanTheEditNearGimbalLock();
};

void FineLoadingTest::shouldShowTheRecordWhenItLoads()
{
    FinePanel p;
    p.record.rotation = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    p.record.translation = {-1.5, 2.25, 0.0};
    p.host.setAnswer("tracking extra_scaling", "1.0123");

    p.widget.loadPage();

    QCOMPARE(p.box("doubleSpinBox_x")->value(), 1.5);
    QCOMPARE(p.box("doubleSpinBox_y")->value(), -2.25);
    QCOMPARE(p.box("doubleSpinBox_z")->text(), QString("0.00"));
    QCOMPARE(p.box("doubleSpinBox_rz")->value(), 90.0);
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->value(), 1.0123);
    QVERIFY(p.room()->isLoaded());
    // base = [R, -R t]: -R * (-1.5, 2.25, 0) = (2.25, 1.5, 0)
    QCOMPARE(p.room()->base().column(3).x, 2.25);
    QCOMPARE(p.room()->base().column(3).y, 1.5);
}

void FineLoadingTest::shouldTellThatTheOldRoomIsGoneWhenItLoadsAgain()
{
    FinePanel p;
    QVariantList told;
    QObject::connect(p.room(), &abcRoom::roomLoaded, [&](bool isLoaded) { told << isLoaded; });
    p.widget.loadPage();
    QCOMPARE(told, QVariantList({false, true}));
    told.clear();
    p.widget.loadPage();
    QCOMPARE(told, QVariantList({false, false, true}));
}

void FineLoadingTest::shouldAskForToolAndScalingWhenItLoads()
{
    FinePanel p;
    p.host.failText("measurementtool");
    p.widget.loadPage();
    QCOMPARE(p.host.calls(), QStringList({"read measurementtool available",
                                          "report Error: Unable to get info measurement tool available",
                                          "read tracking extra_scaling"}));
}

void FineLoadingTest::shouldBeSilentWhenItLoads()
{
    FinePanel p;
    p.record.translation = {5, 6, 7};
    p.host.setAnswer("tracking extra_scaling", "1.2");
    p.widget.loadPage();
    p.widget.resetAll();
    QCOMPARE(p.enable.count(), 0);
}

void FineLoadingTest::shouldWidenTheScalingOutsideFivePercent_data()
{
    QTest::addColumn<QByteArray>("controller");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("caption");
    const QString narrow = "Scaling (+/- 5%)";
    const QString wide = "Scaling";
    QTest::newRow("1.03") << QByteArray("1.03") << 0.95 << 1.05 << 1.03 << narrow;
    QTest::newRow("1.05") << QByteArray("1.05") << 0.95 << 1.05 << 1.05 << narrow;
    QTest::newRow("0.95") << QByteArray("0.95") << 0.95 << 1.05 << 0.95 << narrow;
    QTest::newRow("1.2") << QByteArray("1.2") << 0.1 << 2.0 << 1.2 << wide;
    QTest::newRow("0.949") << QByteArray("0.949") << 0.1 << 2.0 << 0.949 << wide;
}

void FineLoadingTest::shouldWidenTheScalingOutsideFivePercent()
{
    QFETCH(QByteArray, controller);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(QString, caption);
    FinePanel p;
    p.host.setAnswer("tracking extra_scaling", controller);
    p.record.scaling = controller.toDouble();

    for (int opening = 0; opening < 2; ++opening) {
        p.widget.loadPage();
        const QDoubleSpinBox *box = p.box("doubleSpinBox_scalingFactor");
        QCOMPARE(box->minimum(), minimum);
        QCOMPARE(box->maximum(), maximum);
        QCOMPARE(box->value(), value);
        QCOMPARE(box->toolTip(), caption);
        QCOMPARE(p.child<QGroupBox>("groupBox_scaling")->title(), caption);
    }
}

void FineLoadingTest::shouldDecideTheScalingByTheRecordWhenItCannotBeRead()
{
    FinePanel p;
    p.host.failText("tracking extra_scaling");
    p.record.scaling = 1.2;
    p.widget.loadPage();
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->value(), 1.2);
    QCOMPARE(p.child<QGroupBox>("groupBox_scaling")->title(), QString("Scaling"));
}

void FineLoadingTest::shouldNeitherShowNorKeepAScalingThatIsNoNumber_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("not a number") << QByteArray("nan");
    QTest::newRow("infinite") << QByteArray("inf");
}

void FineLoadingTest::shouldNeitherShowNorKeepAScalingThatIsNoNumber()
{
    QFETCH(QByteArray, answer);
    FinePanel p;
    p.record.scaling = 1.02;
    p.host.setAnswer("tracking extra_scaling", answer);
    p.widget.loadPage();
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->value(), 1.0);
    QCOMPARE(p.child<QGroupBox>("groupBox_scaling")->title(), QString("Scaling (+/- 5%)"));
    p.widget.storeToRaData();
    QCOMPARE(p.record.scaling, 1.02);
}

void FineLoadingTest::shouldShowARecordThatIsNoRotation()
{
    FinePanel p;
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, 7.0, 0.0}) {
        p.record.rotation.fill(value);
        p.record.translation.fill(value);
        p.record.scaling = value;
        p.widget.loadPage();
        p.type("doubleSpinBox_rx", "5");
        p.type("doubleSpinBox_x", "5");
        QTest::qWait(1);
        for (int i = 0; i < 16; ++i)
            QVERIFY(std::isfinite(p.room()->pendingMatrix().data()[i]));
    }
    p.record = RoomTrafoData();
    p.widget.loadPage();
    QVERIFY(difference(p.room()->transformation(), bsMatrix()) == 0.0);
}

void FineLoadingTest::shouldTurnTheRoomByNoMoreThanTheEditNearGimbalLock_data()
{
    QTest::addColumn<QList<double>>("answer");
    // Rx(40) Ry(+-90) Rz(25), written with eight decimals after a fit with some noise in the last ones
    QTest::newRow("up") << QList<double>{2e-8,  -1e-8,       1.0,        0.90630779, 0.42261826,
                                         -3e-8, -0.42261826, 0.90630779, 1e-8};
    QTest::newRow("down") << QList<double>{1e-8, 3e-8,       -1.0,       -0.25881905, 0.96592583,
                                           2e-8, 0.96592583, 0.25881905, -1e-8};
}

void FineLoadingTest::shouldTurnTheRoomByNoMoreThanTheEditNearGimbalLock()
{
    QFETCH(QList<double>, answer);
    FinePanel p;
    std::copy(answer.begin(), answer.end(), p.record.rotation.begin());
    p.widget.loadPage();
    const double edited = p.box("doubleSpinBox_rx")->value() + 0.01;

    p.type("doubleSpinBox_rx", QString::number(edited, 'f', 2));

    const Eigen::Matrix3d turned = eigen(p.room()->pendingMatrix()).topLeftCorner<3, 3>();
    const double degrees = std::acos(std::min(1.0, (turned.trace() - 1.0) / 2.0)) * 57.29577951308232;
    QVERIFY2(degrees < 0.03, qPrintable(QString::number(degrees)));
}

ROOM_TEST_CLASS(FineLoadingTest)
#include "FineLoadingTest.moc"
