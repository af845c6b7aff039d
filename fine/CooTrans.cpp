#include "CooTrans.h"

#include "AbcGLCanvas.h"
#include "AbcMatchingDialog.h"
#include "AdjustToToolDlg.h"
#include "HelpDialog.h"
#include "Prompt.h"
#include "abcRoom.h"
#include "bsDoubleWidget.h"
#include "bsMatrix.h"
#include "ui_CooTrans.h"

#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QScopedValueRollback>

namespace
{

constexpr double viewUnits = 300.0;
constexpr double largestViewOffset = 999999.99;
constexpr double largestViewAngle = 360.0;
constexpr double narrowScalingMinimum = 0.95;
constexpr double narrowScalingMaximum = 1.05;
constexpr double wideScalingMinimum = 0.1;
constexpr double wideScalingMaximum = 2.0;

bool isNarrowScaling(double scaling)
{
    return scaling >= narrowScalingMinimum && scaling <= narrowScalingMaximum;
}

void colourText(QWidget *widget, const QColor &colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    widget->setPalette(palette);
}

} // namespace

CooTrans::CooTrans(IOManager *commands, BackendVersions *versions, TrackingControl *dialog,
                   RoomTrafoData *raData, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::CooTransClass>())
    , m_controller(commands, versions)
    , m_dialog(dialog)
    , m_raData(raData)
    , m_measuringFrame(m_controller, dialog)
{
    m_ui->setupUi(this);
    m_ui->label_notAvailable->hide();
    setLocale(QLocale::c());
    prepareEditors();
    buildView();
    orderTabs();
    buildViewMenu();
    colourPlanes();
    connectView();
    m_matchingDialog = new AbcMatchingDialog(commands, versions, this);
    m_angleToolDialog = new AdjustToToolDlg(commands, versions, this);
    connect(m_matchingDialog, &AbcMatchingDialog::applyTrafoRequest, this, &CooTrans::applyTrafo);
}

CooTrans::~CooTrans() = default;

void CooTrans::prepareEditors()
{
    for (xyzWidget *editor : {m_ui->w_viewPositionXYZ, m_ui->w_viewOrientationXYZ}) {
        const double limit = editor == m_ui->w_viewPositionXYZ ? largestViewOffset : largestViewAngle;
        editor->setXRange(-limit, limit);
        editor->setYRange(-limit, limit);
        editor->setZRange(-limit, limit);
    }
    for (QWidget *hidden : std::initializer_list<QWidget *>{
             m_ui->w_bodyUndoButton, m_ui->w_bodyRedoButton, m_ui->w_showXYGridCheckBox,
             m_ui->w_showYZGridCheckBox, m_ui->w_showXZGridCheckBox, m_ui->w_longAxesCheckBox})
        hidden->hide();
}

void CooTrans::buildView()
{
    m_view = new AbcGLCanvas(this, nullptr);
    m_view->setObjectName(QStringLiteral("w_view"));
    m_ui->viewStack->addWidget(m_view);
    m_ui->viewStack->setCurrentWidget(m_view);
}

/// The view and its editors stand between what the form knows: the left column and the buttons.
void CooTrans::orderTabs()
{
    QList<QWidget *> stops{m_ui->w_bodyMatchingButton, m_view};
    for (const xyzWidget *group : {m_ui->w_viewPositionXYZ, m_ui->w_viewOrientationXYZ}) {
        for (const QWidget *editor :
             std::initializer_list<const QWidget *>{group->xEditor(), group->yEditor(), group->zEditor()}) {
            for (const char *part : {"spinBox", "wheel"})
                stops << editor->findChild<QWidget *>(QLatin1String(part));
        }
    }
    stops << m_ui->w_adjustViewButton << m_ui->w_resetViewButton << m_ui->pushButton_helpView;
    for (int i = 1; i < stops.size(); ++i)
        setTabOrder(stops.at(i - 1), stops.at(i));
}

void CooTrans::buildViewMenu()
{
    m_viewMenu = new QMenu(this);
    const auto add = [this](void (CooTrans::*slot)(bool)) {
        QAction *action = m_viewMenu->addAction(QString());
        action->setCheckable(true);
        connect(action, &QAction::toggled, this, slot);
        return action;
    };
    add(&CooTrans::toggled_long_axes);
    m_viewMenu->addSeparator();
    add(&CooTrans::toggled_show_XY)->setChecked(true);
    add(&CooTrans::toggled_show_YZ);
    add(&CooTrans::toggled_show_XZ);
    setViewTexts();
    m_view->setContextMenu(m_viewMenu);
}

void CooTrans::setViewTexts()
{
    const QStringList texts = {tr("Long axes"), QString(), tr("Show XY plane"), tr("Show YZ plane"),
                               tr("Show XZ plane")};
    for (int i = 0; i < m_viewMenu->actions().size(); ++i)
        m_viewMenu->actions().at(i)->setText(texts.value(i));
    m_view->setAccessibleName(tr("Room in 3D"));
}

void CooTrans::colourPlanes()
{
    QColor xy(150, 150, 0);
    QColor yz(0, 150, 150);
    QColor xz(150, 0, 150);
    colourText(m_ui->w_showXYGridCheckBox, xy);
    colourText(m_ui->w_showYZGridCheckBox, yz);
    colourText(m_ui->w_showXZGridCheckBox, xz);
    m_view->setXYGridColor(xy);
    m_view->setYZGridColor(yz);
    m_view->setXZGridColor(xz);
}

void CooTrans::connectView()
{
    xyzWidget *orientation = m_ui->w_viewOrientationXYZ;
    xyzWidget *position = m_ui->w_viewPositionXYZ;
    connect(orientation, &xyzWidget::valueChanged, m_view, &AbcGLCanvas::rotateView);
    connect(m_view, &AbcGLCanvas::rotateViewRequest, orientation, &xyzWidget::adjustValues);
    connect(orientation, &xyzWidget::xyzEditingBegin, m_view, &AbcGLCanvas::rotateViewBegin);
    connect(orientation, &xyzWidget::xyzEditingFinished, m_view, &AbcGLCanvas::rotateViewEnd);
    connect(orientation, &xyzWidget::xyzEditingFinished, m_view, &AbcGLCanvas::storeViewRequest);
    connect(position, &xyzWidget::valueChanged, m_view, &AbcGLCanvas::translateView);
    connect(m_view, &AbcGLCanvas::translateViewRequest, position, &xyzWidget::adjustValues);
    connect(position, &xyzWidget::xyzEditingFinished, m_view, &AbcGLCanvas::storeViewRequest);
    connect(m_view, &AbcGLCanvas::storeViewRequest, m_view, &AbcGLCanvas::saveCurrentView);
    connect(m_view, &AbcGLCanvas::storeViewRequest, orientation, &xyzWidget::reset);
    connect(m_view, &AbcGLCanvas::storeViewRequest, position, &xyzWidget::reset);
    connect(m_ui->w_adjustViewButton, &QPushButton::clicked, this, &CooTrans::adjustView);
    connect(m_ui->w_resetViewButton, &QPushButton::clicked, this, &CooTrans::resetView);
    connect(m_view, &AbcGLCanvas::canUndo, m_ui->w_bodyUndoButton, &QPushButton::setEnabled);
    connect(m_view, &AbcGLCanvas::canRedo, m_ui->w_bodyRedoButton, &QPushButton::setEnabled);
    connect(m_ui->w_bodyUndoButton, &QPushButton::clicked, m_view, &AbcGLCanvas::undo);
    connect(m_ui->w_bodyRedoButton, &QPushButton::clicked, m_view, &AbcGLCanvas::redo);
}

void CooTrans::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showScalingCaption();
    setViewTexts();
}

void CooTrans::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_view->canDraw())
        m_ui->viewStack->setCurrentWidget(m_ui->label_noView);
}

std::array<QDoubleSpinBox *, 3> CooTrans::offsetBoxes() const
{
    return {m_ui->doubleSpinBox_x, m_ui->doubleSpinBox_y, m_ui->doubleSpinBox_z};
}

std::array<QDoubleSpinBox *, 3> CooTrans::angleBoxes() const
{
    return {m_ui->doubleSpinBox_rx, m_ui->doubleSpinBox_ry, m_ui->doubleSpinBox_rz};
}

AdjustmentBoxes CooTrans::boxes() const
{
    AdjustmentBoxes values;
    for (std::size_t i = 0; i < 3; ++i)
        values.offset[i] = offsetBoxes()[i]->value();
    getAngles(values.angles.eta, values.angles.theta, values.angles.phi);
    values.scaling = m_ui->doubleSpinBox_scalingFactor->value();
    return values;
}

void CooTrans::showBoxes(const AdjustmentBoxes &values)
{
    const QScopedValueRollback<bool> disarmed(m_armed, false);
    for (std::size_t i = 0; i < 3; ++i)
        offsetBoxes()[i]->setValue(values.offset[i]);
    m_ui->doubleSpinBox_rx->setValue(values.angles.eta);
    m_ui->doubleSpinBox_ry->setValue(values.angles.theta);
    m_ui->doubleSpinBox_rz->setValue(values.angles.phi);
    m_ui->doubleSpinBox_scalingFactor->setValue(values.scaling);
}

void CooTrans::loadPage()
{
    loadRoom();
    m_ui->doubleSpinBox_scalingFactor->setRange(wideScalingMinimum, wideScalingMaximum);
    loadControls();
    m_controller.checkMeasurementTool();
    loadScaling();
}

void CooTrans::loadRoom()
{
    m_view->room()->loadRoom(*m_raData);
    adjustView();
    resetView();
}

void CooTrans::loadControls()
{
    showBoxes(RoomEdits::boxesOf(*m_raData));
    m_edits.loaded(*m_raData, boxes());
}

void CooTrans::loadScaling()
{
    const QScopedValueRollback<bool> disarmed(m_armed, false);
    QDoubleSpinBox *box = m_ui->doubleSpinBox_scalingFactor;
    const double scaling = m_controller.extraScaling().value_or(m_raData->scaling);
    box->setRange(wideScalingMinimum, wideScalingMaximum);
    box->setValue(scaling);
    m_wideScaling = !isNarrowScaling(scaling);
    if (!m_wideScaling)
        box->setRange(narrowScalingMinimum, narrowScalingMaximum);
    showScalingCaption();
    m_edits.loaded(*m_raData, boxes());
    if (scaling != m_raData->scaling)
        m_edits.scalingDiffers();
}

void CooTrans::showScalingCaption()
{
    const QString caption = m_wideScaling ? tr("Scaling") : tr("Scaling (+/- 5%)");
    m_ui->groupBox_scaling->setTitle(caption);
    m_ui->doubleSpinBox_scalingFactor->setToolTip(caption);
}

void CooTrans::storeToRaData()
{
    const AdjustmentBoxes values = boxes();
    *m_raData = m_edits.edited(*m_raData, values);
    m_edits.stored(values);
}

bool CooTrans::nothingUnsaved() const
{
    return m_edits.nothingUnsaved(*m_raData, boxes());
}

void CooTrans::resetAll()
{
    showBoxes(AdjustmentBoxes());
}

void CooTrans::showTrackingAvailable(bool available)
{
    m_ui->label_notAvailable->setHidden(available);
}

void CooTrans::getAngles(double &rx, double &ry, double &rz) const
{
    rx = m_ui->doubleSpinBox_rx->value();
    ry = m_ui->doubleSpinBox_ry->value();
    rz = m_ui->doubleSpinBox_rz->value();
}

void CooTrans::setAngles(double rx, double ry, double rz)
{
    m_ui->doubleSpinBox_rx->setValue(rx);
    m_ui->doubleSpinBox_ry->setValue(ry);
    m_ui->doubleSpinBox_rz->setValue(rz);
}

void CooTrans::openAngleTool()
{
    m_ui->pushButton_att->click();
}

int CooTrans::dataReceived(const char *kind, const char *record)
{
    return m_matchingDialog->isVisible() ? m_matchingDialog->dataReceived(kind, record) : 0;
}

void CooTrans::previewOffset()
{
    if (!m_armed)
        return;
    showPendingPosition(m_edits.preview(*m_raData, boxes()));
    onEnableButtonApply();
}

void CooTrans::previewAngles()
{
    if (!m_armed)
        return;
    const RoomPreview preview = m_edits.preview(*m_raData, boxes());
    m_view->rotateRoom(preview.angles.eta, preview.angles.theta, preview.angles.phi);
    showPendingPosition(preview);
    onEnableButtonApply();
}

void CooTrans::showPendingPosition(const RoomPreview &preview)
{
    m_view->translateRoom(preview.position.x, preview.position.y, preview.position.z);
}

void CooTrans::on_doubleSpinBox_x_valueChanged(double /*value*/)
{
    previewOffset();
}

void CooTrans::on_doubleSpinBox_y_valueChanged(double /*value*/)
{
    previewOffset();
}

void CooTrans::on_doubleSpinBox_z_valueChanged(double /*value*/)
{
    previewOffset();
}

void CooTrans::on_doubleSpinBox_rx_valueChanged(double /*value*/)
{
    previewAngles();
}

void CooTrans::on_doubleSpinBox_ry_valueChanged(double /*value*/)
{
    previewAngles();
}

void CooTrans::on_doubleSpinBox_rz_valueChanged(double /*value*/)
{
    previewAngles();
}

void CooTrans::on_doubleSpinBox_scalingFactor_valueChanged(double /*value*/)
{
    if (m_armed)
        onEnableButtonApply();
}

void CooTrans::on_btn_resetVector_clicked()
{
    AdjustmentBoxes values = boxes();
    values.offset = {};
    showBoxes(values);
    previewOffset();
}

void CooTrans::on_btn_resetAngles_clicked()
{
    AdjustmentBoxes values = boxes();
    values.angles = RoomAngles();
    showBoxes(values);
    previewAngles();
}

void CooTrans::on_btn_resetScaling_clicked()
{
    AdjustmentBoxes values = boxes();
    values.scaling = 1.0;
    showBoxes(values);
    onEnableButtonApply();
}

void CooTrans::onEnableButtonApply()
{
    emit do_btn_apply_enable(true);
}

void CooTrans::adjustView()
{
    const double distance = m_view->getBestZValue();
    const double unit = distance / viewUnits;
    m_ui->w_viewPositionXYZ->setSingleStep(unit);
    for (QDoubleSpinBox *box : offsetBoxes())
        box->setSingleStep(unit);
    m_view->setScaleUnit(unit);
    m_view->setViewPosition(bsVector(0.0, 0.0, -distance));
}

void CooTrans::resetView()
{
    m_view->setViewOrientation(bsMatrix::identityMatrix());
    m_view->setViewPosition(bsVector(0.0, 0.0, -viewUnits * m_view->scaleUnit()));
}

void CooTrans::rotateRoom(const bsMatrix &rotation)
{
    bsMatrix snapped = rotation;
    snapped.setColumn(3, bsVector(), 1.0);
    snapAxisAligned(snapped);
    m_view->rotateRoom(snapped);
}

void CooTrans::applyTrafo(const bsMatrix &matrix)
{
    m_view->room()->loadRoom(RoomTrafoData());
    adjustView();
    resetView();
    rotateRoom(matrix);
    const bsVector position = matrix.column(3);
    m_view->translateRoom(position.x, position.y, position.z);
    m_view->saveCurrentRoom();
    m_view->room()->getTransformation(*m_raData, true);
    onEnableButtonApply();
}

void CooTrans::toggled_long_axes(bool show)
{
    m_view->showLongAxes(show);
}

void CooTrans::toggled_show_XY(bool show)
{
    m_view->showXYGrid(show);
}

void CooTrans::toggled_show_YZ(bool show)
{
    m_view->showYZGrid(show);
}

void CooTrans::toggled_show_XZ(bool show)
{
    m_view->showXZGrid(show);
}

bool CooTrans::discardsUnsaved()
{
    const QPointer<CooTrans> self(this);
    const auto answer = Prompt::ask(this, QMessageBox::Warning, tr("Room Adjustment"),
                                    tr("You have unsaved data. Save changes?\n\n"
                                       "(If yes press 'Apply' and re-open matching)"),
                                    QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (self.isNull() || answer == QMessageBox::Yes || answer == QMessageBox::NoButton)
        return false;
    loadRoom();
    return true;
}

void CooTrans::on_w_bodyMatchingButton_clicked()
{
    if (!nothingUnsaved() && !discardsUnsaved())
        return;
    m_measuringFrame.prepareTransformation();
    m_measuringFrame.prepareReference();
    const QPointer<CooTrans> self(this);
    m_matchingDialog->update_and_exec();
    if (self.isNull())
        return;
    m_measuringFrame.restoreReference();
    loadControls();
    m_measuringFrame.restoreTransformation();
}

void CooTrans::on_pushButton_att_clicked()
{
    const QPointer<CooTrans> self(this);
    m_angleToolDialog->openAndExec();
    if (!self.isNull())
        emit do_update_raDataAndControls();
}

void CooTrans::on_pushButton_helpView_clicked()
{
    const QPointer<HelpDialog> help = new HelpDialog(this);
    help->exec();
    delete help.data();
}
