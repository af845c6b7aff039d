#include "CooTrans.h"

#include "AbcGLCanvas.h"
#include "AbcMatchingDialog.h"
#include "AdjustToToolDlg.h"
#include "HelpDialog.h"
#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "Prompt.h"
#include "RoomScene.h"
#include "abcRoom.h"
#include "bsMatrix.h"
#include "ui_CooTrans.h"

#include <QAction>
#include <QEvent>

CooTrans::CooTrans(IOManager *commands, BackendVersions *versions, TrackingControl *dialog,
                   RoomTrafoData *raData, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::CooTransClass>())
    , m_controller(commands, versions)
    , m_dialog(dialog)
    , m_raData(raData)
    , m_neutralRoom(std::make_shared<NeutralRoom>(m_controller, dialog))
    , m_entry(*m_ui, *raData)
{
    m_ui->setupUi(this);
    m_entry.fields().guardAgainstTheWheel();
    m_ui->label_notAvailable->hide();
    setLocale(QLocale::c());
    hideSwitches();
    m_scene = std::make_unique<RoomScene>(*m_ui, this);
    fillViewMenu();
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

void CooTrans::fillViewMenu()
{
    connect(m_scene->addSwitch(), &QAction::toggled, this, &CooTrans::toggled_long_axes);
    m_scene->addSeparator();
    QAction *showsXY = m_scene->addSwitch();
    connect(showsXY, &QAction::toggled, this, &CooTrans::toggled_show_XY);
    showsXY->setChecked(true);
    connect(m_scene->addSwitch(), &QAction::toggled, this, &CooTrans::toggled_show_YZ);
    connect(m_scene->addSwitch(), &QAction::toggled, this, &CooTrans::toggled_show_XZ);
    m_scene->showTexts();
}

void CooTrans::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    m_entry.fields().showScalingCaption();
    m_scene->showTexts();
    m_entry.showChange();
}

void CooTrans::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_scene->showWhetherItCanDraw();
}

void CooTrans::loadPage()
{
    loadRoom();
    m_entry.load();
    const ObjectWatch self(this);
    m_controller.checkTool();
    if (!self)
        return;
    const std::optional<double> scaling = m_controller.extraScaling();
    if (self)
        m_entry.showScaling(scaling);
}

void CooTrans::loadRoom()
{
    m_scene->load(*m_raData);
    adjustView();
    resetView();
}

bool CooTrans::nothingUnsaved() const
{
    return m_entry.nothingUnsaved();
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
    const RoomAngles angles = m_entry.fields().angles();
    rx = angles.eta;
    ry = angles.theta;
    rz = angles.phi;
}

void CooTrans::setAngles(double rx, double ry, double rz)
{
    m_entry.fields().setAngles({rx, ry, rz});
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
    if (!m_entry.isEdited())
        return;
    m_scene->showPosition(m_entry.preview());
    reportEdit();
}

void CooTrans::previewAngles()
{
    if (!m_entry.isEdited())
        return;
    m_scene->show(m_entry.preview());
    reportEdit();
}

void CooTrans::on_doubleSpinBox_scalingFactor_valueChanged(double /*value*/)
{
    if (m_entry.isEdited())
        reportEdit();
}

void CooTrans::on_btn_resetVector_clicked()
{
    AdjustmentBoxes values = m_entry.fields().values();
    values.offset = {};
    m_entry.show(values);
    previewOffset();
}

void CooTrans::on_btn_resetAngles_clicked()
{
    AdjustmentBoxes values = m_entry.fields().values();
    values.angles = RoomAngles();
    m_entry.show(values);
    previewAngles();
}

void CooTrans::on_btn_resetScaling_clicked()
{
    AdjustmentBoxes values = m_entry.fields().values();
    values.scaling = 1.0;
    m_entry.show(values);
    reportEdit();
}

void CooTrans::reportEdit()
{
    m_entry.showChange();
    onEnableButtonApply();
}

void CooTrans::onEnableButtonApply()
{
    emit do_btn_apply_enable(true);
}

void CooTrans::adjustView()
{
    m_entry.fields().setOffsetStep(m_scene->adjustView());
}

void CooTrans::resetView()
{
    m_scene->resetView();
}

void CooTrans::applyTrafo(const bsMatrix &matrix)
{
    m_entry.fields().setOffsetStep(m_scene->apply(matrix, *m_raData));
    m_entry.replaced();
    reportEdit();
}

void CooTrans::toggled_long_axes(bool show)
{
    m_scene->view()->showLongAxes(show);
}

void CooTrans::toggled_show_XY(bool show)
{
    m_scene->view()->showXYGrid(show);
}

void CooTrans::toggled_show_YZ(bool show)
{
    m_scene->view()->showYZGrid(show);
}

void CooTrans::toggled_show_XZ(bool show)
{
    m_scene->view()->showXZGrid(show);
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
    // A scaling that was only typed ends with the matching.
    m_matchingDialog->tellRoom(m_entry.held(), m_raData->scaling);
    m_matchingDialog->update_and_exec();
    if (!self)
        return;
    room->restoreReference();
    if (!self)
        return;
    // Edits that were applied since the last load: the next begin there.
    if (!m_entry.roomShowsRecord())
        m_scene->view()->room()->loadRoom(*m_raData);
    m_entry.showRecord();
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
