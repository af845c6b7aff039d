#include "CooTrans.h"
#include "AbcGLCanvas.h"
#include "BackendVersions.h"
#include "ModalAnswer.h"
#include "RecordingHost.h"
#include "TestRegistry.h"
#include "TrackingControl.h"
#include "abcRoom.h"
#include "bsMatrix.h"
#include "xyzWidget.h"

#include <Eigen/Geometry>

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMetaMethod>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>

namespace
{

constexpr double pi = 3.14159265358979323846;

class NotedTracking final : public TrackingControl
{
public:
    explicit NotedTracking(RecordingHost &host)
        : m_host(host)
    {
    }
    void stopTracking() override { m_host.reserved1(); }
    void startTracking() override { m_host.reserved2(); }

private:
    RecordingHost &m_host;
};

struct Panel {
    Panel()
        : versions{0, 0, 0, 1, 24, -1, QString()}
        , tracking(host)
        , widget(&host, &versions, &tracking, &record, nullptr)
        , enable(&widget, &CooTrans::do_btn_apply_enable)
    {
        widget.resize(1000, 640);
        widget.show();
    }

    template <typename Widget>
    Widget *child(const char *name)
    {
        Widget *found = widget.findChild<Widget *>(QString::fromLatin1(name));
        Q_ASSERT(found != nullptr);
        return found;
    }
    QDoubleSpinBox *box(const char *name) { return child<QDoubleSpinBox>(name); }
    void type(const char *name, const QString &text)
    {
        box(name)->setFocus();
        box(name)->selectAll();
        QTest::keyClicks(box(name), text);
        QTest::keyClick(box(name), Qt::Key_Return);
    }
    void click(const char *name) { QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton); }
    void loadAMovedRoomBesideABody()
    {
        host.setAnswer("tracking extra_translation", "10 0 0");
        host.setAnswer("tracking reference", "body b03");
        record.translation = {10, 0, 0};
        widget.loadPage();
    }
    AbcGLCanvas *view() { return widget.findChild<AbcGLCanvas *>(); }
    abcRoom *room() { return view()->room(); }

    RecordingHost host;
    BackendVersions versions;
    NotedTracking tracking;
    RoomTrafoData record;
    ModalAnswer answer;
    CooTrans widget;
    QSignalSpy enable;
};

Eigen::Matrix4d eigen(const bsMatrix &matrix)
{
    return Eigen::Map<const Eigen::Matrix4d>(matrix.data());
}

double difference(const bsMatrix &a, const bsMatrix &b)
{
    return (eigen(a) - eigen(b)).cwiseAbs().maxCoeff();
}

bsMatrix rigid(const Eigen::Matrix3d &rotation, const Eigen::Vector3d &translation)
{
    bsMatrix matrix;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            matrix.at(row, column) = rotation(row, column);
        matrix.at(row, 3) = translation(row);
    }
    return matrix;
}

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
    void shouldShowTheRecordWhenItLoads();
    void shouldAskForToolAndScalingWhenItLoads();
    void shouldBeSilentWhenItLoads();
    void shouldWidenTheScalingOutsideFivePercent_data();
    void shouldWidenTheScalingOutsideFivePercent();
    void shouldDecideTheScalingByTheRecordWhenItCannotBeRead();
    void shouldNeitherShowNorKeepAScalingThatIsNoNumber_data();
    void shouldNeitherShowNorKeepAScalingThatIsNoNumber();
    void shouldMoveThePendingRoomByTheTypedOffset();
    void shouldPreviewWhatStoringAndLoadingWouldShow();
    void shouldTakeThePreviewBackWithTheEdit();
    void shouldResetAndEnableApply();
    void shouldDoNothingInTheViewForTheScaling();
    void shouldSetAnglesLikeAUser();
    void shouldSetStepsAndDistanceByTheViewDistance();
    void shouldConnectTheViewEditors();
    void shouldTakeAFittedTransformationUnrounded();
    void shouldTakeAFittedHalfTurnAboutAnyAxis();
    void shouldAskBeforeMatchingWithUnsavedData();
    void shouldKeepTheMeasuringFrameAroundTheMatching();
    void shouldNotBeginASecondMeasuringFrame();
    void shouldPreviewFromAppliedEditsAfterTheMatching();
    void shouldReadEverythingAnewAfterTheAngleTool();
    void shouldShowARecordThatIsNoRotation();
    void shouldSayWhenTrackingIsNotAvailable();
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
    Panel p;
    QCOMPARE(p.widget.findChild<QWidget *>(name)->property("text").toString(), text);
}

void CooTransTest::shouldCarryTheRequiredToolTips()
{
    Panel p;
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
    Panel p;
    for (const char *name : {"doubleSpinBox_x", "doubleSpinBox_y", "doubleSpinBox_z"}) {
        QCOMPARE(p.box(name)->minimum(), -999999.99);
        QCOMPARE(p.box(name)->maximum(), 999999.99);
        QCOMPARE(p.box(name)->decimals(), 2);
    }
    for (const char *name : {"doubleSpinBox_rx", "doubleSpinBox_ry", "doubleSpinBox_rz"}) {
        QCOMPARE(p.box(name)->minimum(), -180.0);
        QCOMPARE(p.box(name)->maximum(), 180.0);
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
    Panel p;
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
    Panel p;
    const QMenu *menu = p.widget.findChild<QMenu *>();
    QStringList texts;
    for (const QAction *action : menu->actions())
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
    Panel p;
    QCOMPARE(p.host.calls(), QStringList());
}

void CooTransTest::shouldShowTheRecordWhenItLoads()
{
    Panel p;
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

void CooTransTest::shouldAskForToolAndScalingWhenItLoads()
{
    Panel p;
    p.host.failText("measurementtool");
    p.widget.loadPage();
    QCOMPARE(p.host.calls(), QStringList({"read measurementtool available",
                                          "report Error: Unable to get info measurement tool available",
                                          "read tracking extra_scaling"}));
}

void CooTransTest::shouldBeSilentWhenItLoads()
{
    Panel p;
    p.record.translation = {5, 6, 7};
    p.host.setAnswer("tracking extra_scaling", "1.2");
    p.widget.loadPage();
    p.widget.resetAll();
    QCOMPARE(p.enable.count(), 0);
}

void CooTransTest::shouldWidenTheScalingOutsideFivePercent_data()
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

void CooTransTest::shouldWidenTheScalingOutsideFivePercent()
{
    QFETCH(QByteArray, controller);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(QString, caption);
    Panel p;
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

void CooTransTest::shouldDecideTheScalingByTheRecordWhenItCannotBeRead()
{
    Panel p;
    p.host.failText("tracking extra_scaling");
    p.record.scaling = 1.2;
    p.widget.loadPage();
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->value(), 1.2);
    QCOMPARE(p.child<QGroupBox>("groupBox_scaling")->title(), QString("Scaling"));
}

void CooTransTest::shouldNeitherShowNorKeepAScalingThatIsNoNumber_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("not a number") << QByteArray("nan");
    QTest::newRow("infinite") << QByteArray("inf");
}

void CooTransTest::shouldNeitherShowNorKeepAScalingThatIsNoNumber()
{
    QFETCH(QByteArray, answer);
    Panel p;
    p.record.scaling = 1.02;
    p.host.setAnswer("tracking extra_scaling", answer);
    p.widget.loadPage();
    QCOMPARE(p.box("doubleSpinBox_scalingFactor")->value(), 1.0);
    QCOMPARE(p.child<QGroupBox>("groupBox_scaling")->title(), QString("Scaling (+/- 5%)"));
    p.widget.storeToRaData();
    QCOMPARE(p.record.scaling, 1.02);
}

void CooTransTest::shouldMoveThePendingRoomByTheTypedOffset()
{
    Panel p;
    p.record.translation = {-3.0, 0.0, 0.0};
    p.widget.loadPage();

    p.type("doubleSpinBox_x", "13");

    QCOMPARE(p.room()->pendingMatrix().column(3).x, 10.0);
    QVERIFY(p.enable.count() > 0);
    QCOMPARE(p.enable.last().first().toBool(), true);
}

void CooTransTest::shouldPreviewWhatStoringAndLoadingWouldShow()
{
    Panel p;
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
    Panel p;
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
    Panel p;
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
    Panel p;
    p.widget.loadPage();
    p.type("doubleSpinBox_scalingFactor", "1.02");
    QVERIFY(difference(p.room()->transformation(), bsMatrix()) == 0.0);
    QVERIFY(p.enable.count() > 0);
    p.widget.storeToRaData();
    QCOMPARE(p.record.scaling, 1.02);
}

void CooTransTest::shouldSetAnglesLikeAUser()
{
    Panel p;
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
    Panel p;
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
    Panel p;
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

void CooTransTest::shouldTakeAFittedTransformationUnrounded()
{
    Panel p;
    p.record.scaling = 1.02;
    p.widget.loadPage();
    const Eigen::Matrix3d rotation =
        Eigen::AngleAxisd(0.7654321, Eigen::Vector3d(0.1, -0.7, 0.4).normalized()).toRotationMatrix();
    const Eigen::Vector3d translation(12.3456789, -987.654321, 0.001234);

    p.widget.applyTrafo(rigid(rotation, translation));

    // The record holds the inverse of the matrix, its rotation read column by column.
    const Eigen::Vector3d inverse = -rotation.transpose() * translation;
    for (int i = 0; i < 3; ++i)
        QVERIFY(std::abs(p.record.translation[std::size_t(i)] - inverse(i)) < 1e-9);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            QVERIFY(std::abs(p.record.rotation[std::size_t(3 * row + column)] - rotation(row, column)) <
                    1e-12);
    }
    QCOMPARE(p.record.scaling, 1.02);
    QVERIFY(p.enable.count() > 0);
}

void CooTransTest::shouldTakeAFittedHalfTurnAboutAnyAxis()
{
    Panel p;
    std::srand(4711);
    for (int i = 0; i < 500; ++i) {
        const Eigen::Vector3d axis = Eigen::Vector3d::Random().normalized();
        const Eigen::Matrix3d rotation = Eigen::AngleAxisd(pi, axis).toRotationMatrix();
        p.widget.applyTrafo(rigid(rotation, Eigen::Vector3d::Zero()));
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column)
                QVERIFY(std::abs(p.record.rotation[std::size_t(3 * row + column)] - rotation(row, column)) <
                        1e-6);
        }
    }
}

void CooTransTest::shouldAskBeforeMatchingWithUnsavedData()
{
    Panel p;
    p.widget.loadPage();
    p.type("doubleSpinBox_x", "5");
    p.host.clear();
    p.answer.then([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box != nullptr);
        QCOMPARE(box->windowTitle(), QString("Room Adjustment"));
        QCOMPARE(
            box->text(),
            QString("You have unsaved data. Save changes?\n\n(If yes press 'Apply' and re-open matching)"));
        QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    p.click("w_bodyMatchingButton");
    QCOMPARE(p.host.calls(), QStringList());
    QCOMPARE(p.box("doubleSpinBox_x")->value(), 5.0);

    p.answer.thenPress(QMessageBox::No).then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QVERIFY(p.answer.isDone());
    QCOMPARE(p.box("doubleSpinBox_x")->value(), 0.0);
    QVERIFY(difference(p.room()->transformation(), bsMatrix()) == 0.0);
    QCOMPARE(p.answer.unexpected(), QStringList());
}

void CooTransTest::shouldKeepTheMeasuringFrameAroundTheMatching()
{
    Panel p;
    p.loadAMovedRoomBesideABody();
    p.host.clear();
    int before = 0;
    p.answer.then([&](QWidget *matching) {
        before = p.host.callsOf({"write"}).size();
        QCOMPARE(p.host.callsOf({"write"}).last(), QString("write tracking reference none"));
        matching->close();
    });

    p.click("w_bodyMatchingButton");

    QCOMPARE(before, 4);
    QCOMPARE(
        p.host.callsOf({"write"}).mid(before),
        QStringList({"write tracking reference body b03",
                     "write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                     "0.00000000 0.00000000 0.00000000 1.00000000",
                     "write tracking extra_translation 10.000 0.000 0.000",
                     "write tracking extra_scaling 1.00000"}));
    QCOMPARE(p.host.callsOf({"reserved"}),
             QStringList({"reserved 1", "reserved 2", "reserved 1", "reserved 2", "reserved 1", "reserved 2",
                          "reserved 1", "reserved 2"}));
}

void CooTransTest::shouldNotBeginASecondMeasuringFrame()
{
    Panel p;
    p.loadAMovedRoomBesideABody();
    QStringList before;
    QStringList after;
    p.answer.then([&](QWidget *matching) {
        before = p.host.calls();
        QVERIFY(QMetaObject::invokeMethod(&p.widget, "on_w_bodyMatchingButton_clicked"));
        after = p.host.calls();
        matching->close();
    });

    p.click("w_bodyMatchingButton");

    QVERIFY(!before.isEmpty());
    QCOMPARE(after, before);
    QVERIFY(p.host.calls().contains("write tracking reference body b03"));
    QVERIFY(p.host.calls().contains("write tracking extra_translation 10.000 0.000 0.000"));
    p.answer.then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QVERIFY(p.answer.isDone());
}

void CooTransTest::shouldPreviewFromAppliedEditsAfterTheMatching()
{
    Panel p;
    p.record.rotation = {0.98480775, -0.17364818, 0, 0.17364818, 0.98480775, 0, 0, 0, 1};
    p.widget.loadPage();
    p.type("doubleSpinBox_x", "1000");
    p.type("doubleSpinBox_rz", "35");
    p.widget.storeToRaData();
    p.answer.then([](QWidget *matching) { matching->close(); });
    p.click("w_bodyMatchingButton");
    QVERIFY(p.answer.isDone());

    p.type("doubleSpinBox_x", "2000");

    QCOMPARE(p.room()->pendingMatrix().column(3).x, 1000.0);
    const bsMatrix previewed = p.room()->transformation();
    p.widget.storeToRaData();
    p.widget.loadPage();
    QVERIFY(difference(p.room()->transformation(), previewed) < 1e-6);
}

void CooTransTest::shouldReadEverythingAnewAfterTheAngleTool()
{
    Panel p;
    p.widget.loadPage();
    const QSignalSpy readAnew(&p.widget, &CooTrans::do_update_raDataAndControls);
    bool wasOpen = false;
    p.answer.then([&](QWidget *angleTool) {
        wasOpen = angleTool->inherits("AdjustToToolDlg") && readAnew.isEmpty();
        angleTool->close();
    });
    p.widget.openAngleTool();
    QVERIFY(wasOpen);
    QCOMPARE(readAnew.count(), 1);
}

void CooTransTest::shouldShowARecordThatIsNoRotation()
{
    Panel p;
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

void CooTransTest::shouldSayWhenTrackingIsNotAvailable()
{
    Panel p;
    auto *label = p.child<QLabel>("label_notAvailable");
    QVERIFY(label->isHidden());
    p.widget.showTrackingAvailable(false);
    QVERIFY(label->isVisible());
    p.widget.showTrackingAvailable(true);
    QVERIFY(label->isHidden());
}

ROOM_TEST_CLASS(CooTransTest)
#include "CooTransTest.moc"
