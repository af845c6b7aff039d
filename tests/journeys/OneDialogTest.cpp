#include "SimCoordinates.h"
#include "TestRegistry.h"
#include "Traveller.h"

#include <QComboBox>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

constexpr int workpiecePoints = 6;
const QString startTracking = QStringLiteral("velmar2 tracking start");
const QString stopTracking = QStringLiteral("velmar2 tracking stop");
const QString neutralRotation =
    QStringLiteral("tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                   "0.00000000 0.00000000 0.00000000 1.00000000");
const QString tenDegreesAboutZ =
    QStringLiteral("tracking extra_rotation 0.98480775 -0.17364818 0.00000000 0.17364818 0.98480775 "
                   "0.00000000 0.00000000 0.00000000 1.00000000");
const QString discard = QStringLiteral("Room Adjustment|Discard changes?");
const QString calibrated =
    QStringLiteral("Calibration successful|Calibration successful!\nNew calibration is set to Controller.");

/// The answer of the controller, its question left out.
QString held(ModuleHost &host, const char *parameter)
{
    const QByteArray question = QByteArray("velmar2 get ") + parameter;
    return host.ask(question.constData()).mid(question.size() + 1);
}

void compareWithNobodyUnexpected(Traveller &traveller)
{
    QCOMPARE(traveller.omitted(), QStringList());
    QCOMPARE(traveller.guide().strangers(), QStringList());
    QCOMPARE(traveller.guide().stuck(), QStringList());
    QCOMPARE(traveller.guide().missed(), QStringList());
}

/// Calibrates with the angle tool, on the model that lies in the room unless another is picked.
void calibrate(Traveller &traveller)
{
    traveller.meet("AdjustToToolDlg", [&traveller] {
        traveller.followCalibration();
        traveller.answer(QMessageBox::Ok);
        traveller.click("pushButton_calibrate");
    });
    traveller.click("pushButton_att");
}

/// Loads the workpiece's nominal points, measures each and applies what was fitted.
void match(Traveller &traveller)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("workpiece.txt"));
    traveller.host().control(QStringLiteral("sim object save ") + file);
    traveller.meet("AbcMatchingDialog", [&] {
        traveller.chooseFile(file);
        traveller.click("w_loadButton");
        for (int point = 1; point <= workpiecePoints; ++point)
            traveller.measure(point);
        QCOMPARE(traveller.rows("tableWidget_referencePoints"), workpiecePoints);
        QCOMPARE(traveller.rows("tableWidget_measuredPoints"), workpiecePoints);
        traveller.click("w_applyButton");
    });
    traveller.click("w_bodyMatchingButton");
}

/// How far from its nominal place the controller now reports a point of the workpiece, in mm.
double distanceFromNominal(ModuleHost &host, int point)
{
    const SimMachine &machine = host.controller.machine();
    const SimVector nominal = machine.room.workpiece.points[static_cast<std::size_t>(point - 1)].nominal;
    const SimVector world = machine.room.workpiece.pose * nominal;
    return length(SimCoordinates(machine).reported(world) - nominal);
}

} // namespace

class OneDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldWriteWhatIsTypedOnTheFineTab()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        // WHEN
        traveller.open([&] {
            traveller.goToFine();
            traveller.type("doubleSpinBox_x", QStringLiteral("10"));
            traveller.type("doubleSpinBox_rz", QStringLiteral("10"));
            traveller.type("doubleSpinBox_scalingFactor", QStringLiteral("1.02"));
            traveller.click("btn_apply");
            traveller.click("btn_ok");
        });
        // THEN
        compareWithNobodyUnexpected(traveller);
        const QStringList written = {tenDegreesAboutZ,
                                     QStringLiteral("tracking extra_translation -10.000 0.000 0.000"),
                                     QStringLiteral("tracking extra_scaling 1.02000")};
        const QStringList restart = {startTracking, stopTracking};
        QCOMPARE(host.orders(), restart + written + restart + written);
        QCOMPARE(held(host, "tracking extra_scaling"), QStringLiteral("1.02000"));
        QCOMPARE(held(host, "status active"), QStringLiteral("none"));
        QCOMPARE(host.reports(), QStringList());
    }

    void shouldShowAgainWhatItWrote()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        traveller.open([&] {
            traveller.goToFine();
            traveller.type("doubleSpinBox_y", QStringLiteral("-12.5"));
            traveller.type("doubleSpinBox_rx", QStringLiteral("45"));
            traveller.click("btn_ok");
        });
        // WHEN
        double y = 0.0;
        double rx = 0.0;
        bool isApplyEnabled = true;
        traveller.open([&] {
            traveller.goToFine();
            y = traveller.value("doubleSpinBox_y");
            rx = traveller.value("doubleSpinBox_rx");
            isApplyEnabled = traveller.isEnabled("btn_apply");
        });
        // THEN
        compareWithNobodyUnexpected(traveller);
        QCOMPARE(y, -12.5);
        QCOMPARE(rx, 45.0);
        QVERIFY(!isApplyEnabled);
        QCOMPARE(traveller.guide().boxes(), QStringList());
    }

    void shouldRestoreWhatItFoundWhenCancelled()
    {
        // GIVEN
        ModuleHost host;
        host.control(QStringLiteral("velmar2 set tracking extra_translation 1.5 2.5 3.5"));
        Traveller traveller(host);
        traveller.answer(QMessageBox::Yes);
        // WHEN
        traveller.open([&] {
            traveller.goToFine();
            traveller.type("doubleSpinBox_x", QStringLiteral("10"));
            traveller.click("btn_apply");
            QCOMPARE(held(host, "tracking extra_translation"), QStringLiteral("-10.000 2.500 3.500"));
            traveller.click("btn_cancel");
        });
        // THEN
        compareWithNobodyUnexpected(traveller);
        QCOMPARE(traveller.guide().boxes(), QStringList{discard});
        QCOMPARE(held(host, "tracking extra_translation"), QStringLiteral("1.500 2.500 3.500"));
        QCOMPARE(held(host, "status active"), QStringLiteral("none"));
    }

    void shouldStayOpenWhenTheChangesAreToBeKept()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        traveller.answer(QMessageBox::No);
        double kept = 0.0;
        // WHEN
        traveller.open([&] {
            traveller.goToFine();
            traveller.type("doubleSpinBox_z", QStringLiteral("7"));
            traveller.press(Qt::Key_Escape);
            kept = traveller.value("doubleSpinBox_z");
            traveller.click("btn_ok");
        });
        // THEN
        compareWithNobodyUnexpected(traveller);
        QCOMPARE(kept, 7.0);
        QCOMPARE(held(host, "tracking extra_translation"), QStringLiteral("0.000 0.000 -7.000"));
    }

    void shouldAdjustInEveryWayOnTheSameDialog()
    {
        ModuleHost host;
        Traveller traveller(host);

        // The room is turned on the coarse tab: x up, and y to the right.
        traveller.open([&] {
            traveller.pick("comboBox_right", 2);
            traveller.pick("comboBox_top", 0);
            traveller.click("btn_apply");
            traveller.goToFine();
            QCOMPARE(traveller.value("doubleSpinBox_rx"), -90.0);
            QCOMPARE(traveller.value("doubleSpinBox_rz"), -90.0);
            traveller.click("btn_ok");
        });
        const QString coarse = held(host, "tracking extra_rotation");
        QVERIFY(coarse != neutralRotation.section(QLatin1Char(' '), 2));

        // The fine tab adds an offset, and the coarse tab still knows its axes afterwards.
        traveller.open([&] {
            QCOMPARE(traveller.find<QComboBox>("comboBox_right")->currentIndex(), 2);
            QCOMPARE(traveller.find<QComboBox>("comboBox_top")->currentIndex(), 0);
            traveller.goToFine();
            traveller.type("doubleSpinBox_x", QStringLiteral("250"));
            traveller.click("btn_apply");
            traveller.press(Qt::Key_F5);
            QCOMPARE(traveller.find<QComboBox>("comboBox_right")->currentIndex(), 2);
            traveller.click("btn_ok");
        });
        QCOMPARE(held(host, "tracking extra_translation"), QStringLiteral("-250.000 0.000 0.000"));
        QCOMPARE(held(host, "tracking extra_rotation"), coarse);

        // Six points of a workpiece, measured where they lie, give the room the workpiece's coordinates.
        traveller.open([&] {
            traveller.goToFine();
            match(traveller);
            traveller.click("btn_ok");
        });
        host.control(QStringLiteral("velmar2 tracking start"));
        for (int point = 1; point <= workpiecePoints; ++point)
            QVERIFY(distanceFromNominal(host, point) < 0.5);

        // A calibration with the angle tool takes all of that back.
        traveller.open([&] {
            traveller.goToFine();
            calibrate(traveller);
            QCOMPARE(traveller.value("doubleSpinBox_x"), 0.0);
            QCOMPARE(traveller.value("doubleSpinBox_rx"), 0.0);
            QCOMPARE(held(host, "status active"), QStringLiteral("mea"));
            traveller.click("btn_cancel");
        });
        QCOMPARE(traveller.guide().boxes(), QStringList{calibrated});
        QCOMPARE(held(host, "roomcal last_coordinate_type"), QStringLiteral("normal"));
        QCOMPARE(held(host, "roomcal duration"), QStringLiteral("30.0"));
        QCOMPARE(held(host, "tracking extra_translation"), QStringLiteral("0.000 0.000 0.000"));

        compareWithNobodyUnexpected(traveller);
        QCOMPARE(held(host, "status active"), QStringLiteral("none"));
        QCOMPARE(host.channel.subscriptionCount(), std::size_t(0));
        QCOMPARE(host.reports(), QStringList{QStringLiteral("calibration started")});
    }
};

ROOM_TEST_CLASS(OneDialogTest)

#include "OneDialogTest.moc"
