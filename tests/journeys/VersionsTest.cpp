#include "Traveller.h"

#include "TestRegistry.h"

#include <QMessageBox>
#include <QtTest>

namespace
{

const QString available = QStringLiteral("tracking available");
const QString cameras = QStringLiteral("camera number_of_cameras");
const QStringList rooms = {QStringLiteral("tracking room c01"), QStringLiteral("tracking room c02"),
                           QStringLiteral("tracking room c03"), QStringLiteral("tracking room c04")};
const QStringList twoRooms = {QStringLiteral("tracking has_room c01"),
                              QStringLiteral("tracking has_room c02")};
const QString lock = QStringLiteral("config is_changeable");
const QStringList adjustment = {QStringLiteral("tracking extra_rotation"),
                                QStringLiteral("tracking extra_translation"),
                                QStringLiteral("tracking extra_scaling")};
const QStringList page = adjustment + QStringList{QStringLiteral("measurementtool available"),
                                                  QStringLiteral("tracking extra_scaling")};
const QString lastType = QStringLiteral("roomcal last_coordinate_type");
const QString type = QStringLiteral("roomcal coordinate_type");
const QString start = QStringLiteral("velmar2 tracking start");
const QStringList stop = {QStringLiteral("status active"), QStringLiteral("velmar2 tracking stop")};

/// What was said to the controller, subscriptions and control lines left out.
QStringList conversation(const ModuleHost &host)
{
    QStringList texts;
    for (const CallRecord &call : host.channel.log().calls()) {
        const QString operation = QString::fromStdString(call.operation);
        if (operation.startsWith(QLatin1String("get")) || operation == QLatin1String("sendCommand") ||
            operation == QLatin1String("setParameter"))
            texts << QString::fromStdString(call.text);
    }
    return texts;
}

ModuleHost::Setup version(int major, int minor)
{
    ModuleHost::Setup setup;
    setup.major = major;
    setup.minor = minor;
    return setup;
}

} // namespace

class VersionsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskOnlyWhatTheControllerKnows_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<bool>("isAdjustable");
        QTest::addColumn<QStringList>("opening");
        const QStringList table = QStringList{cameras} + rooms + QStringList{lock};
        const QStringList oldest = QStringList{cameras} + rooms;
        QTest::newRow("0.8") << 0 << 8 << false << oldest;
        QTest::newRow("0.9: camera table") << 0 << 9 << false << oldest + table;
        QTest::newRow("0.15") << 0 << 15 << false << oldest + table;
        QTest::newRow("0.16: adjustment") << 0 << 16 << true << oldest + table + page + QStringList{type};
        QTest::newRow("0.17: availability")
            << 0 << 17 << true << QStringList{available} + oldest + table + page + QStringList{type};
        QTest::newRow("1.8") << 1 << 8 << true
                             << QStringList{available} + oldest + table + page + QStringList{type};
        const QStringList knowsLastType =
            QStringList{available} + oldest + table + page + QStringList{lastType, type};
        QTest::newRow("1.9: last type") << 1 << 9 << true << knowsLastType;
        QTest::newRow("1.17") << 1 << 17 << true << knowsLastType;
        const QStringList newest =
            QStringList{available, cameras} + twoRooms + table + page + QStringList{lastType, type};
        QTest::newRow("1.18: rooms by question") << 1 << 18 << true << newest;
        QTest::newRow("1.24") << 1 << 24 << true << newest;
    }

    void shouldAskOnlyWhatTheControllerKnows()
    {
        // GIVEN
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(bool, isAdjustable);
        QFETCH(QStringList, opening);
        ModuleHost host(version(major, minor));
        Traveller traveller(host);
        bool isFineEnabled = !isAdjustable;
        // WHEN
        traveller.open([&] { isFineEnabled = traveller.isEnabled("doubleSpinBox_x"); });
        // THEN
        const QStringList closing = (isAdjustable ? adjustment : QStringList()) + stop;
        QCOMPARE(conversation(host), opening + QStringList{start} + closing);
        QCOMPARE(isFineEnabled, isAdjustable);
        QCOMPARE(host.reports(), QStringList());
        QCOMPARE(traveller.guide().boxes(), QStringList());
    }

    void shouldAdjustOnlyWhatTheControllerCanBeToldOf_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<QString>("translation");
        const QString old = QStringLiteral("0.000 0.000 0.000");
        const QString moved = QStringLiteral("-10.000 0.000 0.000");
        QTest::newRow("0.8") << 0 << 8 << old;
        QTest::newRow("0.10") << 0 << 10 << old;
        QTest::newRow("0.16") << 0 << 16 << moved;
        QTest::newRow("0.17") << 0 << 17 << moved;
        QTest::newRow("1.17") << 1 << 17 << moved;
        QTest::newRow("1.18") << 1 << 18 << moved;
        QTest::newRow("1.24") << 1 << 24 << moved;
    }

    void shouldAdjustOnlyWhatTheControllerCanBeToldOf()
    {
        // GIVEN
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(QString, translation);
        ModuleHost host(version(major, minor));
        Traveller traveller(host);
        // WHEN
        traveller.open([&] {
            traveller.goToFine();
            traveller.type("doubleSpinBox_x", QStringLiteral("10"));
            traveller.click("btn_ok");
        });
        // THEN
        host.control(QStringLiteral("sim version 1 24 -1"));
        QCOMPARE(host.ask("velmar2 get tracking extra_translation"),
                 QStringLiteral("velmar2 get tracking extra_translation ") + translation);
    }

    void shouldMatchPointsFromItsVersionOn_data()
    {
        QTest::addColumn<int>("minor");
        QTest::addColumn<bool>("isEnabled");
        QTest::newRow("1.2") << 2 << false;
        QTest::newRow("1.3") << 3 << true;
    }

    void shouldMatchPointsFromItsVersionOn()
    {
        // GIVEN
        QFETCH(int, minor);
        QFETCH(bool, isEnabled);
        ModuleHost host(version(1, minor));
        Traveller traveller(host);
        bool wasEnabled = !isEnabled;
        traveller.meet("AbcMatchingDialog", [&] {
            wasEnabled = traveller.isEnabled("w_loadButton");
            traveller.click("w_closeButton");
        });
        // WHEN
        traveller.open([&] {
            traveller.goToFine();
            traveller.click("w_bodyMatchingButton");
            traveller.click("btn_cancel");
        });
        // THEN
        QCOMPARE(wasEnabled, isEnabled);
        QCOMPARE(host.reports(), QStringList());
    }

    void shouldCalibrateWithTheAngleToolFromItsVersionOn_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<QString>("box");
        const QString tooOld = QStringLiteral("VELMAR3|This function is not supported by the Controller!");
        QTest::newRow("0.16") << 0 << 16 << tooOld;
        QTest::newRow("1.18") << 1 << 18 << tooOld;
        QTest::newRow("1.22") << 1 << 22 << tooOld;
        QTest::newRow("1.23") << 1 << 23
                              << QStringLiteral("Calibration successful|Calibration successful!\nNew "
                                                "calibration is set to Controller.");
    }

    void shouldCalibrateWithTheAngleToolFromItsVersionOn()
    {
        // GIVEN
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(QString, box);
        ModuleHost host(version(major, minor));
        Traveller traveller(host);
        traveller.meet("AdjustToToolDlg", [&] {
            traveller.followCalibration();
            traveller.answer(QMessageBox::Ok);
            traveller.click("pushButton_calibrate");
        });
        // WHEN
        traveller.open([&] {
            traveller.press(Qt::Key_A, Qt::AltModifier);
            traveller.click("btn_cancel");
        });
        // THEN
        QCOMPARE(traveller.guide().boxes(), QStringList{box});
    }
};

ROOM_TEST_CLASS(VersionsTest)

#include "VersionsTest.moc"
