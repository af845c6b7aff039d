#include "CooTrans.h"

#include "AbcGLCanvas.h"
#include "AbcMatchingDialog.h"
#include "AdjustToToolDlg.h"
#include "HelpDialog.h"
#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "Prompt.h"
#include "RoomChange.h"
#include "RoomChangeText.h"
#include "TextColor.h"
#include "ViewControls.h"
#include "abcRoom.h"
#include "bsMatrix.h"
#include "ui_CooTrans.h"

#include <QEvent>
#include <QMenu>
#include <QScopedValueRollback>

#include <cmath>

namespace
{

constexpr double viewUnits = 300.0;

} // namespace

CooTrans::CooTrans(IOManager *commands, BackendVersions *versions, TrackingControl *dialog,
                   RoomTrafoData *raData, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::CooTransClass>())
    , m_controller(commands, versions)
    , m_dialog(dialog)
    , m_raData(raData)
    , m_neutralRoom(std::make_shared<NeutralRoom>(m_controller, dialog))
    , m_fields(*m_ui)
{
    m_ui->setupUi(this);
    m_fields.guardAgainstTheWheel();
    m_ui->label_notAvailable->hide();
    setLocale(QLocale::c());
    hideSwitches();
    buildView();
    buildViewMenu();
    colorPlanes();
    connect(m_ui->w_adjustViewButton, &QPushButton::clicked, this, &CooTrans::adjustView);
    connect(m_ui->w_resetViewButton, &QPushButton::clicked, this, &CooTrans::resetView);
    m_matchingDialog = new AbcMatchingDialog(commands, versions, this);
    m_angleToolDialog = new AdjustToToolDlg(commands, versions, this);
    connect(m_matchingDialog, &AbcMatchingDialog::applyTrafoRequest, this, &CooTrans::applyTrafo);
}

CooTrans::~CooTrans()
{
    m_neutralRoom->end();
}

void CooTrans::hideSwitches()
{
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
    m_viewControls = std::make_unique<ViewControls>(*m_ui, m_view);
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

void CooTrans::colorPlanes()
{
    QColor xy(150, 150, 0);
    QColor yz(0, 150, 150);
    QColor xz(150, 0, 150);
    colorText(m_ui->w_showXYGridCheckBox, xy, {QPalette::WindowText}, {QPalette::All});
    colorText(m_ui->w_showYZGridCheckBox, yz, {QPalette::WindowText}, {QPalette::All});
    colorText(m_ui->w_showXZGridCheckBox, xz, {QPalette::WindowText}, {QPalette::All});
    m_view->setXYGridColor(xy);
    m_view->setYZGridColor(yz);
    m_view->setXZGridColor(xz);
}

void CooTrans::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_fields.showScalingCaption();
    setViewTexts();
    showChange();
}

void CooTrans::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_view->canDraw())
        m_ui->viewStack->setCurrentWidget(m_ui->label_noView);
}

void CooTrans::showBoxes(const AdjustmentBoxes &values)
{
    const QScopedValueRollback<bool> disarmed(m_armed, false);
    m_fields.show(values);
}

void CooTrans::loadPage()
{
    m_held = *m_raData;
    loadRoom();
    m_fields.widenScaling();
    loadControls();
    const ObjectWatch self(this);
    m_controller.checkTool();
    if (!self)
        return;
    const std::optional<double> scaling = m_controller.extraScaling();
    if (self)
        loadScaling(scaling.value_or(m_raData->scaling));
}

void CooTrans::loadRoom()
{
    // Who follows the room hears that the old one is gone, and then of the new one.
    if (m_view->room()->isLoaded())
        m_view->room()->resetRoom();
    m_view->room()->loadRoom(*m_raData);
    adjustView();
    resetView();
}

void CooTrans::loadControls()
{
    showBoxes(RoomEdits::boxesOf(*m_raData));
    m_edits.loaded(*m_raData, m_fields.values());
}

void CooTrans::loadScaling(double scaling)
{
    const QScopedValueRollback<bool> disarmed(m_armed, false);
    m_fields.showScaling(scaling);
    m_edits.loaded(*m_raData, m_fields.values());
    if (std::isfinite(scaling) && scaling != m_raData->scaling)
        m_edits.scalingDiffers();
    if (std::isfinite(scaling))
        m_held.scaling = scaling;
    showChange();
}

void CooTrans::storeToRaData()
{
    const AdjustmentBoxes values = m_fields.values();
    *m_raData = m_edits.edited(*m_raData, values);
    m_edits.stored(values);
    m_held = *m_raData; // the dialog writes it now
    showChange();
}

bool CooTrans::nothingUnsaved() const
{
    return m_edits.nothingUnsaved(*m_raData, m_fields.values());
}

void CooTrans::resetAll()
{
    showBoxes(AdjustmentBoxes());
}

void CooTrans::tellModuleVersion(const QString &version)
{
    m_matchingDialog->tellModuleVersion(version);
}

void CooTrans::beginEntry()
{
    m_ui->doubleSpinBox_x->setFocus();
    m_ui->doubleSpinBox_x->selectAll();
}

void CooTrans::showTrackingAvailable(bool available)
{
    m_ui->label_notAvailable->setHidden(available);
}

void CooTrans::getAngles(double &rx, double &ry, double &rz) const
{
    const RoomAngles angles = m_fields.angles();
    rx = angles.eta;
    ry = angles.theta;
    rz = angles.phi;
}

void CooTrans::setAngles(double rx, double ry, double rz)
{
    m_fields.setAngles({rx, ry, rz});
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
    showPendingPosition(m_edits.preview(*m_raData, m_fields.values()));
    reportEdit();
}

void CooTrans::previewAngles()
{
    if (!m_armed)
        return;
    const RoomPreview preview = m_edits.preview(*m_raData, m_fields.values());
    m_view->rotateRoom(preview.angles.eta, preview.angles.theta, preview.angles.phi);
    showPendingPosition(preview);
    reportEdit();
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
        reportEdit();
}

void CooTrans::on_btn_resetVector_clicked()
{
    AdjustmentBoxes values = m_fields.values();
    values.offset = {};
    showBoxes(values);
    previewOffset();
}

void CooTrans::on_btn_resetAngles_clicked()
{
    AdjustmentBoxes values = m_fields.values();
    values.angles = RoomAngles();
    showBoxes(values);
    previewAngles();
}

void CooTrans::on_btn_resetScaling_clicked()
{
    AdjustmentBoxes values = m_fields.values();
    values.scaling = 1.0;
    showBoxes(values);
    reportEdit();
}

void CooTrans::reportEdit()
{
    showChange();
    onEnableButtonApply();
}

void CooTrans::showChange()
{
    const RoomTrafoData applied = m_edits.edited(*m_raData, m_fields.values());
    m_ui->label_change->setText(RoomChangeText::of(RoomChange::between(m_held, applied)));
}

void CooTrans::onEnableButtonApply()
{
    emit do_btn_apply_enable(true);
}

void CooTrans::adjustView()
{
    const double distance = m_view->getBestZValue();
    const double unit = distance / viewUnits;
    m_viewControls->setUnit(unit);
    m_fields.setOffsetStep(unit);
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
    m_view->room()->resetRoom();
    m_view->room()->loadRoom(RoomTrafoData());
    adjustView();
    resetView();
    rotateRoom(matrix);
    const bsVector position = matrix.column(3);
    m_view->translateRoom(position.x, position.y, position.z);
    m_view->saveCurrentRoom();
    m_view->room()->getTransformation(*m_raData, true);
    m_edits.replaced(*m_raData);
    reportEdit();
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

/// Whether the user gives up what was not applied.
bool CooTrans::mayDiscardUnsaved()
{
    const ObjectWatch self(this);
    const auto answer = Prompt::ask(this, QMessageBox::Warning, tr("Room Adjustment"),
                                    tr("You have unsaved data. Save changes?\n\n"
                                       "(If yes press 'Apply' and re-open matching)"),
                                    QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return self && answer != QMessageBox::Yes && answer != QMessageBox::NoButton;
}

void CooTrans::on_w_bodyMatchingButton_clicked()
{
    // A second run would take the neutral room of the first for the controller's own.
    const ObjectWatch self(this, m_isMatching);
    if (self)
        matchPoints();
}

void CooTrans::matchPoints()
{
    if (!nothingUnsaved()) {
        if (!mayDiscardUnsaved())
            return;
        loadRoom();
    }
    const ObjectWatch self(this);
    const std::shared_ptr<NeutralRoom> room = m_neutralRoom;
    room->prepareTransformation();
    room->prepareReference();
    if (!self)
        return;
    m_matchingDialog->tellRoom(m_held,
                               m_raData->scaling); // a scaling that was only typed ends with the matching
    m_matchingDialog->update_and_exec();
    if (!self)
        return;
    room->restoreReference();
    if (!self)
        return;
    if (!m_edits.roomShows(*m_raData))
        m_view->room()->loadRoom(*m_raData); // edits were applied since the last load: the next begin there
    showBoxes(RoomEdits::boxesOf(*m_raData));
    m_edits.shown(*m_raData, m_fields.values());
    showChange();
    room->restoreTransformation();
}

void CooTrans::on_pushButton_att_clicked()
{
    const ObjectWatch self(this);
    m_angleToolDialog->openAndExec();
    if (self)
        emit do_update_raDataAndControls();
}

void CooTrans::on_pushButton_helpView_clicked()
{
    ModalWindow<HelpDialog>(this).exec();
}
