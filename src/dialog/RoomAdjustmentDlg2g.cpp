#include "RoomAdjustmentDlg2g.h"

#include "CoarseAdjustment.h"
#include "CooTrans.h"
#include "FirstControl.h"
#include "ObjectWatch.h"
#include "Prompt.h"
#include "Resources.h"
#include "ui_RoomAdjustmentDlg.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QTabBar>

namespace
{

constexpr int smallestWidth = 1000;
constexpr int smallestHeight = 700;
constexpr int angleToolKeys = int(Qt::ALT) | int(Qt::Key_A);

} // namespace

RoomAdjustmentDlg2g::RoomAdjustmentDlg2g(IOManager *commands, QWidget *parent, BackendVersions *versions,
                                         const QString &version)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::RoomAdjustmentDlgClass>())
    , m_controller(commands, versions)
    , m_records(m_controller, this, this)
    , m_cameras(this)
{
    loadResources();
    m_ui->setupUi(this);
    setModal(true); // run() shows the dialog before exec() would say so
    m_ui->tabWidget->removeTab(m_ui->tabWidget->indexOf(m_ui->tab_3));
    setAccessibleDescription(version);
    dropApplyShortcut();
    m_lockIcon = QIcon(QStringLiteral(":/lock.png"));
    buildPanels(commands, versions);
    m_fine->tellModuleVersion(version);
    beginFromKnownState();
    // Nobody hides a dialog that goes with its parent, and a record that came later would find nobody.
    if (parent != nullptr)
        connect(parent, &QObject::destroyed, this, &RoomAdjustmentDlg2g::endSubscriptions);
}

RoomAdjustmentDlg2g::~RoomAdjustmentDlg2g() = default;

void RoomAdjustmentDlg2g::buildPanels(IOManager *commands, BackendVersions *versions)
{
    m_fine = new CooTrans(commands, versions, this, &m_current, this);
    m_ui->tabWidget->insertTab(0, m_fine, QString());
    m_coarse = new CoarseAdjustment(commands, versions, this, this);
    m_coarse->setCameraModel(m_cameras.model());
    m_ui->tabWidget->insertTab(0, m_coarse, QString());
    setTabTexts();
    // The lists of axes would take the letter for the beginning of an entry.
    auto *angleTool = new QShortcut(QKeySequence(angleToolKeys), m_coarse);
    angleTool->setContext(Qt::WidgetWithChildrenShortcut);
    connect(angleTool, &QShortcut::activated, this, &RoomAdjustmentDlg2g::adjustToAngleTool);
    QWidget *last = previousInFocusChain(); // the panels came behind the buttons
    while (last->focusPolicy() == Qt::NoFocus)
        last = last->previousInFocusChain();
    setTabOrder(last, m_ui->btn_ok);
    setTabOrder(m_ui->btn_ok, m_ui->btn_apply);
    setTabOrder(m_ui->btn_apply, m_ui->btn_cancel);
    connect(m_fine, &CooTrans::do_btn_apply_enable, this, &RoomAdjustmentDlg2g::ondo_btn_apply_enable);
    connect(m_coarse, &CoarseAdjustment::do_btn_apply_enable, this,
            &RoomAdjustmentDlg2g::ondo_btn_apply_enable);
    connect(m_fine, &CooTrans::do_update_raDataAndControls, this,
            &RoomAdjustmentDlg2g::onUpdateRaDataAndControls);
}

void RoomAdjustmentDlg2g::setTabTexts()
{
    m_ui->tabWidget->setTabText(CoarseTab, tr("&Coarse"));
    m_ui->tabWidget->setTabText(FineTab, tr("&Fine"));
}

// "&Apply" would make Alt+A ambiguous, which belongs to the angle tool. In another language it may be free.
void RoomAdjustmentDlg2g::dropApplyShortcut()
{
    if (m_ui->btn_apply->shortcut() == QKeySequence(angleToolKeys))
        m_ui->btn_apply->setShortcut(QKeySequence());
}

void RoomAdjustmentDlg2g::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    dropApplyShortcut();
    setTabTexts();
    m_cameras.showTexts();
    showNotice(m_obstacle);
}

void RoomAdjustmentDlg2g::beginFromKnownState()
{
    m_locked = false;
    showLock();
    m_ui->tabWidget->setEnabled(true);
    m_ui->btn_ok->setEnabled(true);
    m_ui->btn_apply->setEnabled(false);
    m_ui->label_error->hide();
    m_ui->label_error->clear();
    m_fine->showTrackingAvailable(true);
    showNotice(Obstacle::None);
}

void RoomAdjustmentDlg2g::showLock()
{
    const QIcon usual = parentWidget() != nullptr ? parentWidget()->windowIcon() : QIcon();
    setWindowIcon(m_locked ? m_lockIcon : usual);
}

/// Of what an opening begins with.
void RoomAdjustmentDlg2g::disableAdjusting()
{
    m_ui->tabWidget->setEnabled(false);
    m_ui->btn_ok->setEnabled(false);
}

void RoomAdjustmentDlg2g::showNotice(Obstacle obstacle)
{
    m_obstacle = obstacle;
    m_ui->label_notice->setText(AdjustingObstacle::textOf(obstacle));
    m_ui->label_notice->setVisible(obstacle != Obstacle::None);
}

int RoomAdjustmentDlg2g::update_and_exec()
{
    if (isVisible()) {
        raise();
        activateWindow();
        return 0;
    }
    // Hidden by the host, it may still have to wait for the end of a window that it has opened.
    const ObjectWatch running(this, m_isRunning);
    ObjectWatch preparing(this, m_busy);
    if (!running || !preparing)
        return 0;
    const bool ready = prepareOpening();
    if (!preparing)
        return 0;
    preparing.release();
    m_open = ready;
    focusTheFirstControl();
    return run();
}

/// exec() alone would not survive that the host destroys the dialog in the calls that its showing makes, and
/// would leave it on the screen when the host hides and shows it, or when the application ends.
int RoomAdjustmentDlg2g::run()
{
    const ObjectWatch self(this);
    setResult(Rejected);
    show();
    while (self && isVisible()) {
        m_records.forgetHiding();
        (void)exec();
        if (self && !m_records.wasHidden())
            leaveUnasked();
    }
    return self ? result() : int(Rejected);
}

/// The way out when the application ends: nobody can be asked any more, so nothing is written.
void RoomAdjustmentDlg2g::leaveUnasked()
{
    const ObjectWatch self(this);
    stopTracking();
    if (self)
        reject();
}

// The host may destroy the dialog in any call: from here on each sequence of calls looks after every one
// whether anybody is left.
bool RoomAdjustmentDlg2g::prepareOpening()
{
    m_open = false;
    m_fineHasBegun = false;
    m_ui->tabWidget->setCurrentIndex(CoarseTab);
    beginFromKnownState();
    const ObjectWatch self(this);
    const Obstacle obstacle = AdjustingObstacle::find(m_controller, this);
    if (!self)
        return false;
    if (obstacle != Obstacle::None) {
        refuse(obstacle);
        return false;
    }
    m_cameras.fill(m_controller);
    if (self)
        readLock();
    if (self)
        prepareAdjusting();
    if (!self)
        return false;
    m_ui->btn_apply->setEnabled(false);
    setMinimumSize(smallestWidth, smallestHeight);
    startTracking();
    return true;
}

void RoomAdjustmentDlg2g::refuse(Obstacle obstacle)
{
    m_fine->showTrackingAvailable(false);
    disableAdjusting();
    showNotice(obstacle);
}

void RoomAdjustmentDlg2g::focusTheFirstControl()
{
    QWidget *control = firstControlOf(m_coarse);
    (control != nullptr ? control : m_ui->btn_cancel)->setFocus();
}

void RoomAdjustmentDlg2g::readLock()
{
    const ObjectWatch self(this);
    const bool locked = m_controller.supports(ControllerFeature::CameraTable) &&
                        m_controller.configurationChangeable() == Reply::No;
    if (!self || !locked)
        return;
    m_locked = true;
    showLock();
    disableAdjusting();
    showNotice(Obstacle::Locked);
}

void RoomAdjustmentDlg2g::prepareAdjusting()
{
    if (!m_controller.supports(ControllerFeature::ExtraTransformation)) {
        disableAdjusting();
        showNotice(Obstacle::TooOld);
        return;
    }
    m_fine->resetAll();
    loadTransformation();
}

void RoomAdjustmentDlg2g::loadTransformation()
{
    const ObjectWatch self(this);
    const RoomTrafoData held = m_controller.roomAdjustment();
    if (!self)
        return;
    m_current = held;
    m_opening = held;
    m_fine->loadPage();
    if (self)
        m_coarse->updatePanel();
}

int RoomAdjustmentDlg2g::dataReceived(const char *kind, const char *record)
{
    return m_ui->tabWidget->currentIndex() == FineTab ? m_fine->dataReceived(kind, record) : 0;
}

void RoomAdjustmentDlg2g::requesterNotice() {}

void RoomAdjustmentDlg2g::getRoomAngles(double &rx, double &ry, double &rz)
{
    m_fine->getAngles(rx, ry, rz);
}

void RoomAdjustmentDlg2g::setRoomAngles(double rx, double ry, double rz)
{
    m_fine->setAngles(rx, ry, rz);
}

void RoomAdjustmentDlg2g::stopTracking()
{
    m_controller.stopTrackingIfMeasuring();
}

void RoomAdjustmentDlg2g::startTracking()
{
    m_controller.startTracking();
}

void RoomAdjustmentDlg2g::onDataChanged(bool changed)
{
    m_ui->btn_apply->setEnabled(changed);
}

void RoomAdjustmentDlg2g::ondo_btn_apply_enable(bool enable)
{
    m_ui->btn_apply->setEnabled(enable);
}

void RoomAdjustmentDlg2g::onUpdateRaDataAndControls()
{
    loadTransformation();
}

void RoomAdjustmentDlg2g::on_btn_apply_clicked()
{
    const ObjectWatch self(this, m_busy);
    if (self)
        writeEdits();
    if (self)
        startTracking();
}

void RoomAdjustmentDlg2g::on_btn_ok_clicked()
{
    const ObjectWatch self(this, m_busy);
    if (self)
        writeEdits();
    if (self)
        accept();
}

/// Leaves tracking stopped.
void RoomAdjustmentDlg2g::writeEdits()
{
    m_fine->storeToRaData();
    const ObjectWatch self(this);
    stopTracking();
    if (self)
        writeCurrent();
    if (self)
        m_cameras.fill(m_controller);
    if (!self)
        return;
    if (m_ui->btn_apply->hasFocus())
        m_ui->btn_ok->setFocus(); // a disabled button passes the focus on, here to "Cancel"
    m_ui->btn_apply->setEnabled(false);
}

void RoomAdjustmentDlg2g::writeCurrent()
{
    m_controller.writeRoomAdjustment(m_current);
}

void RoomAdjustmentDlg2g::on_btn_cancel_clicked()
{
    cancel();
}

bool RoomAdjustmentDlg2g::cancel()
{
    const ObjectWatch self(this, m_busy);
    if (!self || !undoChanges() || !self)
        return false;
    stopTracking();
    if (!self)
        return false;
    reject();
    return true;
}

/// Asks whether changes may be lost, and writes what was found at opening if the controller holds something
/// else. False when the user wants to keep the dialog open.
bool RoomAdjustmentDlg2g::undoChanges()
{
    if (!m_ui->tabWidget->isEnabled())
        return true;
    const ObjectWatch self(this);
    const RoomTrafoData held = m_controller.roomAdjustment();
    if (!self)
        return false;
    const bool changed = held != m_opening;
    if ((changed || !m_fine->nothingUnsaved()) && !confirmsDiscarding())
        return false;
    if (changed) {
        m_current = m_opening;
        writeCurrent();
    }
    return true;
}

bool RoomAdjustmentDlg2g::confirmsDiscarding()
{
    return Prompt::ask(this, QMessageBox::Warning, tr("Room Adjustment"), tr("Discard changes?"),
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void RoomAdjustmentDlg2g::on_tabWidget_currentChanged(int index)
{
    if (m_open && index == CoarseTab)
        m_coarse->recompute();
    else if (m_open && !m_ui->tabWidget->tabBar()->hasFocus()) // there the arrow keys go on among the tabs
        beginFineTab();
}

/// Once in an opening: afterwards the tab keeps the control that was used last.
void RoomAdjustmentDlg2g::beginFineTab()
{
    if (m_fineHasBegun)
        return;
    m_fineHasBegun = true;
    m_fine->beginEntry();
}

void RoomAdjustmentDlg2g::keyPressEvent(QKeyEvent *event)
{
    const bool isCoarse = m_ui->tabWidget->currentIndex() == CoarseTab;
    if (event->key() == Qt::Key_Escape) {
        cancel();
    } else if (event->key() == Qt::Key_F5 && event->modifiers() == Qt::NoModifier) {
        m_ui->tabWidget->setCurrentIndex(isCoarse ? FineTab : CoarseTab);
        if (isCoarse)
            beginFineTab();
    } else if ((event->key() | int(event->modifiers())) == angleToolKeys) {
        adjustToAngleTool();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void RoomAdjustmentDlg2g::adjustToAngleTool()
{
    m_ui->tabWidget->setCurrentIndex(FineTab);
    m_fine->openAngleTool();
}

void RoomAdjustmentDlg2g::done(int result)
{
    const ObjectWatch self(this);
    hide(); // with its calls: QDialog::done() would go on with a dialog that the host has destroyed
    if (self)
        QDialog::done(result);
}

void RoomAdjustmentDlg2g::setVisible(bool visible)
{
    m_records.follow([&] { QDialog::setVisible(visible); });
}

void RoomAdjustmentDlg2g::showEvent(QShowEvent *event)
{
    adjustSize();
    QDialog::showEvent(event);
    m_records.note(true, *event);
}

void RoomAdjustmentDlg2g::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    m_records.note(false, *event);
}

void RoomAdjustmentDlg2g::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!isVisible() || cancel());
}
