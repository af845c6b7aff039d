#include "FinePanel.h"
#include "TestRegistry.h"
#include "abcRoom.h"
#include "xyzWidget.h"

#include <Eigen/Geometry>

#include <QGroupBox>
#include <QMenu>
#include <QMetaMethod>
#include <QtTest>

#include <cmath>

namespace
{

constexpr double pi = 3.14159265358979323846;

} // namespace

class CooTransTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferItsSignalsAndSlotsByName();
    void shouldCarryTheRequiredTexts_data();
    void shouldCarryTheRequiredTexts();
    void shouldCarryTheRequiredToolTips();
    void shouldLimitItsBoxesAsRequired();
    void shouldHideWhatTheMenuOffersInstead();
    void shouldOfferThePlanesInTheMenuOfTheView();
    void shouldMakeNoCallWhenItIsBuilt();
    void shouldMoveThePendingRoomByTheTypedOffset();
    void shouldPreviewWhatStoringAndLoadingWouldShow();
    void shouldTakeThePreviewBackWithTheEdit();
    void shouldResetAndEnableApply();
    void shouldDoNothingInTheViewForTheScaling();
    void shouldSetAnglesLikeAUser();
    void shouldSetStepsAndDistanceByTheViewDistance();
    void shouldConnectTheViewEditors();
    void shouldMakeNoWindowOfWhatStandsAroundTheView();
};

void CooTransTest::shouldOfferItsSignalsAndSlotsByName()
{
    const QMetaObject &meta = CooTrans::staticMetaObject;
    for (const char *method :
         {"do_btn_apply_enable(bool)", "do_update_raDataAndControls()", "on_w_bodyMatchingButton_clicked()",
          "on_pushButton_att_clicked()", "on_doubleSpinBox_rz_valueChanged(double)",
          "on_doubleSpinBox_ry_valueChanged(double)", "on_doubleSpinBox_rx_valueChanged(double)",
          "on_doubleSpinBox_z_valueChanged(double)", "on_doubleSpinBox_y_valueChanged(double)",
          "on_doubleSpinBox_x_valueChanged(double)", "on_doubleSpinBox_scalingFactor_valueChanged(double)",
          "on_btn_resetScaling_clicked()", "on_btn_resetAngles_clicked()", "on_btn_resetVector_clicked()",
          "on_pushButton_helpView_clicked()", "adjustView()", "resetView()", "onEnableButtonApply()",
          "applyTrafo(bsMatrix)"})
        QVERIFY2(meta.indexOfMethod(method) >= 0, method);
}

void CooTransTest::shouldCarryTheRequiredTexts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *text) { QTest::newRow(name) << name << text; };
    row("label_x", "x [mm]");
    row("label_y", "y [mm]");
    row("label_z", "z [mm]");
    row("label_rx", "rx [deg]");
    row("label_ry", "ry [deg]");
    row("label_rz", "rz [deg]");
    row("label_scalingFactor", "factor");
    row("btn_resetVector", "Reset vector");
    row("btn_resetAngles", "Reset angles");
    row("btn_resetScaling", "Reset scaling");
    row("pushButton_att", "&Adjust");
    row("w_bodyMatchingButton", "&Start");
    row("w_bodyUndoButton", "Undo");
    row("w_bodyRedoButton", "Redo");
    row("w_showXYGridCheckBox", "show XY");
    row("w_showYZGridCheckBox", "show YZ");
    row("w_showXZGridCheckBox", "show XZ");
    row("w_longAxesCheckBox", "long axes");
    row("w_adjustViewButton", "Adjust view");
    row("w_resetViewButton", "Reset view");
    row("pushButton_helpView", "&Help");
}

void CooTransTest::shouldCarryTheRequiredTexts()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    FinePanel p;
    QCOMPARE(p.widget.findChild<QWidget *>(name)->property("text").toString(), text);
}

void CooTransTest::shouldCarryTheRequiredToolTips()
{
    FinePanel p;
    for (const char *name : {"doubleSpinBox_x", "doubleSpinBox_y", "doubleSpinBox_z"})
        QCOMPARE(p.box(name)->toolTip(), QString("Vector for zero point offset"));
    for (const char *name : {"doubleSpinBox_rx", "doubleSpinBox_ry", "doubleSpinBox_rz"})
        QCOMPARE(p.box(name)->toolTip(),
                 QString("Rotation angles:\nrx (eta)    range [-180 deg .. +180 deg]\n"
                         "ry (theta) range [-  90 deg .. +  90 deg]\n"
                         "rz (phi)    range [-180 deg .. +180 deg]"));
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->toolTip(), QString("Scaling (+/- 5%)"));
    const QHash<QString, QString> tips = {
        {"btn_resetVector", "Reset x, y, z to 0.00"},
        {"btn_resetAngles", "Reset rx, ry, rz to 0.00"},
        {"btn_resetScaling", "Reset scaling factor to 1.000"},
        {"w_bodyMatchingButton", "Open room adjustment based on reference points"},
        {"pushButton_att", "Open adjust room coordinates to angle tool"},
        {"w_viewPositionXYZ", "Change view position"},
        {"w_viewOrientationXYZ", "Change view orientation"},
        {"w_adjustViewButton", "Adjust scaling of graphic view"},
        {"w_resetViewButton", "Reset graphic view to the default"},
        {"pushButton_helpView", "Show help on mouse controls in graphic view"}};
    for (auto tip = tips.begin(); tip != tips.end(); ++tip)
        QCOMPARE(p.widget.findChild<QWidget *>(tip.key())->toolTip(), tip.value());
    QCOMPARE(p.child<QGroupBox>("w_viewPositionXYZ")->title(), QString("View position"));
    QCOMPARE(p.child<QGroupBox>("w_viewOrientationXYZ")->title(), QString("View orientation"));
}

void CooTransTest::shouldLimitItsBoxesAsRequired()
{
    FinePanel p;
    for (const char *name : {"doubleSpinBox_x", "doubleSpinBox_y", "doubleSpinBox_z"}) {
        QCOMPARE(p.box(name)->minimum(), -999999.99);
        QCOMPARE(p.box(name)->maximum(), 999999.99);
        QCOMPARE(p.box(name)->singleStep(), 1.0);
        QCOMPARE(p.box(name)->decimals(), 2);
    }
    for (const char *name : {"doubleSpinBox_rx", "doubleSpinBox_ry", "doubleSpinBox_rz"}) {
        QCOMPARE(p.box(name)->minimum(), -180.0);
        QCOMPARE(p.box(name)->maximum(), 180.0);
        QCOMPARE(p.box(name)->singleStep(), 1.0);
        QCOMPARE(p.box(name)->decimals(), 2);
    }
    const QDoubleSpinBox *scaling = p.box("doubleSpinBox_scalingFactor");
    QCOMPARE(scaling->decimals(), 4);
    QCOMPARE(scaling->minimum(), 0.95);
    QCOMPARE(scaling->maximum(), 1.05);
    QCOMPARE(scaling->singleStep(), 0.001);
    QCOMPARE(scaling->value(), 1.0);
    QCOMPARE(p.box("doubleSpinBox_x")->text(), QString("0.00"));
}

void CooTransTest::shouldHideWhatTheMenuOffersInstead()
{
    FinePanel p;
    for (const char *name : {"w_bodyUndoButton", "w_bodyRedoButton", "w_showXYGridCheckBox",
                             "w_showYZGridCheckBox", "w_showXZGridCheckBox", "w_longAxesCheckBox"})
        QVERIFY2(p.child<QWidget>(name)->isHidden(), name);
    QCOMPARE(p.child<QWidget>("w_showXYGridCheckBox")->palette().color(QPalette::WindowText),
             QColor(150, 150, 0));
    QCOMPARE(p.child<QWidget>("w_showYZGridCheckBox")->palette().color(QPalette::WindowText),
             QColor(0, 150, 150));
    QCOMPARE(p.child<QWidget>("w_showXZGridCheckBox")->palette().color(QPalette::WindowText),
             QColor(150, 0, 150));
    QCOMPARE(p.room()->display().xyColor, QColor(150, 150, 0));
    QCOMPARE(p.room()->display().yzColor, QColor(0, 150, 150));
    QCOMPARE(p.room()->display().xzColor, QColor(150, 0, 150));
}

void CooTransTest::shouldOfferThePlanesInTheMenuOfTheView()
{
    FinePanel p;
    const QMenu *menu = p.widget.findChild<QMenu *>();
    QStringList texts;
    const auto allActions = menu->actions();
    for (const QAction *action : allActions)
        texts << (action->isSeparator() ? QString("---") : action->text());
    QCOMPARE(texts, QStringList({"Long axes", "---", "Show XY plane", "Show YZ plane", "Show XZ plane"}));
    QVERIFY(menu->actions().at(2)->isChecked());
    QVERIFY(p.room()->display().showXY);
    QVERIFY(!p.room()->display().showYZ);
    menu->actions().at(0)->trigger();
    menu->actions().at(2)->trigger();
    menu->actions().at(3)->trigger();
    menu->actions().at(4)->trigger();
    QVERIFY(p.room()->display().longAxes);
    QVERIFY(!p.room()->display().showXY);
    QVERIFY(p.room()->display().showYZ);
    QVERIFY(p.room()->display().showXZ);
}

void CooTransTest::shouldMakeNoCallWhenItIsBuilt()
{
    FinePanel p;
    QCOMPARE(p.host.calls(), QStringList());
}

void CooTransTest::shouldMoveThePendingRoomByTheTypedOffset()
{
    FinePanel p;
    p.record.translation = {-3.0, 0.0, 0.0};
    p.widget.loadPage();

    p.type("doubleSpinBox_x", "13");

    QCOMPARE(p.room()->pendingMatrix().column(3).x, 10.0);
    QVERIFY(p.enable.count() > 0);
    QCOMPARE(p.enable.last().first().toBool(), true);
}

void CooTransTest::shouldPreviewWhatStoringAndLoadingWouldShow()
{
    FinePanel p;
    p.record.rotation = {0.98480775, -0.17364818, 0, 0.17364818, 0.98480775, 0, 0, 0, 1};
    p.record.translation = {100.123, -20.5, 33.0};
    p.widget.loadPage();
    p.type("doubleSpinBox_ry", "-25.5");
    p.type("doubleSpinBox_y", "444.25");
    p.type("doubleSpinBox_rx", "90");
    const bsMatrix previewed = p.room()->transformation();

    p.widget.storeToRaData();
    p.widget.loadPage();

    QVERIFY(difference(p.room()->transformation(), previewed) < 1e-6);
    QVERIFY(difference(p.room()->pendingMatrix(), bsMatrix()) == 0.0);
}

void CooTransTest::shouldTakeThePreviewBackWithTheEdit()
{
    FinePanel p;
    p.record.translation = {-1.234, 0.0, 0.0};
    p.widget.loadPage();
    p.type("doubleSpinBox_rz", "30");
    p.type("doubleSpinBox_x", "9");
    p.type("doubleSpinBox_rz", "0");
    p.type("doubleSpinBox_x", "1.23");

    QVERIFY(difference(p.room()->pendingMatrix(), bsMatrix()) == 0.0);
    QVERIFY(p.widget.nothingUnsaved());
    p.widget.storeToRaData();
    QCOMPARE(p.record.translation[0], -1.234);
}

void CooTransTest::shouldResetAndEnableApply()
{
    FinePanel p;
    p.record.rotation = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    p.record.translation = {-1, -2, -3};
    p.record.scaling = 1.03;
    p.host.setAnswer("tracking extra_scaling", "1.03");
    p.widget.loadPage();

    p.click("btn_resetVector");
    QCOMPARE(p.box("doubleSpinBox_z")->value(), 0.0);
    QCOMPARE(p.enable.count(), 1);
    p.click("btn_resetAngles");
    QCOMPARE(p.box("doubleSpinBox_rz")->value(), 0.0);
    QCOMPARE(p.enable.count(), 2);
    p.click("btn_resetScaling");
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->value(), 1.0);
    QCOMPARE(p.enable.count(), 3);
    QVERIFY(difference(p.room()->transformation(), bsMatrix()) < 1e-12);
    p.click("btn_resetVector");
    QCOMPARE(p.enable.count(), 4);
    p.widget.storeToRaData();
    QCOMPARE(p.record, RoomTrafoData());
}

void CooTransTest::shouldDoNothingInTheViewForTheScaling()
{
    FinePanel p;
    p.widget.loadPage();
    p.type("doubleSpinBox_scalingFactor", "1.02");
    QVERIFY(difference(p.room()->transformation(), bsMatrix()) == 0.0);
    QVERIFY(p.enable.count() > 0);
    p.widget.storeToRaData();
    QCOMPARE(p.record.scaling, 1.02);
}

void CooTransTest::shouldSetAnglesLikeAUser()
{
    FinePanel p;
    p.widget.loadPage();
    p.widget.setAngles(90.0, 0.0, -90.0);
    double rx = 0;
    double ry = 0;
    double rz = 0;
    p.widget.getAngles(rx, ry, rz);
    QCOMPARE(rx, 90.0);
    QCOMPARE(ry, 0.0);
    QCOMPARE(rz, -90.0);
    QVERIFY(p.enable.count() > 0);
    const Eigen::Matrix3d expected = (Eigen::AngleAxisd(pi / 2, Eigen::Vector3d::UnitX()) *
                                      Eigen::AngleAxisd(-pi / 2, Eigen::Vector3d::UnitZ()))
                                         .toRotationMatrix();
    QVERIFY((eigen(p.room()->pendingMatrix()).topLeftCorner<3, 3>() - expected).cwiseAbs().maxCoeff() <
            1e-12);
}

void CooTransTest::shouldSetStepsAndDistanceByTheViewDistance()
{
    FinePanel p;
    p.record.translation = {-100000.0, 0.0, 0.0};
    p.widget.loadPage();
    const double distance = p.view()->getBestZValue();
    QVERIFY(distance > 900.0);
    QCOMPARE(p.room()->unitSize(), distance / 300.0);
    QCOMPARE(p.box("doubleSpinBox_x")->singleStep(), distance / 300.0);
    QCOMPARE(p.box("doubleSpinBox_z")->singleStep(), distance / 300.0);
    QCOMPARE(p.child<xyzWidget>("w_viewPositionXYZ")->singleStep(), distance / 300.0);
    QCOMPARE(p.view()->viewPose().position().z, -distance);
}

void CooTransTest::shouldConnectTheViewEditors()
{
    FinePanel p;
    p.widget.loadPage();
    auto *position = p.child<xyzWidget>("w_viewPositionXYZ");
    auto *orientation = p.child<xyzWidget>("w_viewOrientationXYZ");
    const double before = p.view()->viewPose().position().x;
    position->setXValue(12.5);
    QCOMPARE(p.view()->viewPose().position().x, before + 12.5);
    emit position->xyzEditingFinished();
    QCOMPARE(position->xValue(), 0.0);
    QCOMPARE(p.view()->viewPose().position().x, before + 12.5);
    position->setXValue(1.0);
    QCOMPARE(p.view()->viewPose().position().x, before + 13.5);
    orientation->setYValue(90.0);
    QVERIFY(std::abs(p.view()->viewPose().orientation().y - std::sqrt(0.5)) < 1e-12);
    emit orientation->xyzEditingFinished();
    QCOMPARE(orientation->yValue(), 0.0);
    p.click("w_resetViewButton");
    QCOMPARE(p.view()->viewPose().orientation().y, 0.0);
    QCOMPARE(p.view()->viewPose().position().x, 0.0);
}

/// Each window of the window system tells of its end by a dozen messages. Those of some forty in one go
/// exceed what the X library bears while it waits for a descriptor; it then gives up the host's connection.
void CooTransTest::shouldMakeNoWindowOfWhatStandsAroundTheView()
{
    // GIVEN
    FinePanel p;
    // WHEN
    p.widget.show();
    // THEN
    QVERIFY(p.view()->internalWinId() != 0);
    QStringList windows;
    const auto widgets = p.widget.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->internalWinId() != 0 && !widget->isWindow())
            windows.append(widget->objectName());
    }
    windows.sort();
    QCOMPARE(windows.join(QLatin1Char(' ')), QString(" label_noView w_view"));
}

ROOM_TEST_CLASS(CooTransTest)
#include "CooTransTest.moc"
