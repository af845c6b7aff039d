#include "BenchWindow.h"

#include "BenchIOManager.h"
#include "BenchLanguage.h"
#include "CameraNotices.h"
#include "ControllerLink.h"
#include "ConversationView.h"
#include "DialogPlace.h"
#include "GuideWindow.h"
#include "LanguageMenu.h"
#include "ModalCompanion.h"
#include "RoomPanel.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

namespace
{

constexpr int reportShownMs = 15000;
constexpr int startWidth = 1000;
constexpr int largestStartHeight = 720;
constexpr int smallestStartHeight = 360;
const QSize roomSize(430, 720);
const QPoint startPosition(20, 20);

// What a dialog of the module and the frames of both windows need below this one.
constexpr int dialogHeight = 780;
constexpr int windowGap = 20;

/// The largest window that leaves nothing outside the screen, its frame included.
QSize roomBelow(const QRect &available)
{
    constexpr int frame = 40;
    return available.size() - QSize(2 * startPosition.x(), startPosition.y() + frame);
}

/// So low that a dialog of the module has its place below, if the screen is high enough.
QSize startSizeOn(const QRect &available)
{
    const int height = std::clamp(available.height() - dialogHeight, smallestStartHeight, largestStartHeight);
    return QSize(startWidth, height).boundedTo(roomBelow(available));
}

} // namespace

// NOLINTNEXTLINE(readability-function-size): builds the window
BenchWindow::BenchWindow(BenchIOManager &channel, const QString &plugin, bool observerMode, QWidget *parent)
    : QMainWindow(parent)
    , m_channel(channel)
    , m_controls(channel)
    , m_module(plugin)
    , m_observerMode(observerMode)
    , m_conversation(new ConversationView(channel.log(), this))
    , m_room(new RoomPanel(m_controls, this))
    , m_connectionLabel(new QLabel(this))
    , m_moduleLabel(new QLabel(this))
    , m_droppedLabel(new QLabel(this))
{
    setCentralWidget(m_conversation);
    m_droppedLabel->setObjectName(QStringLiteral("droppedLabel"));
    m_connectionLabel->setTextFormat(Qt::PlainText);
    m_moduleLabel->setTextFormat(Qt::PlainText); // the library's own words
    statusBar()->addPermanentWidget(m_droppedLabel);
    statusBar()->addPermanentWidget(m_moduleLabel);
    statusBar()->addPermanentWidget(m_connectionLabel);
    const QRect available = screen()->availableGeometry();
    resize(startSizeOn(available));
    move(available.topLeft() + startPosition);
    m_room->setWindowFlag(Qt::Window);
    m_room->resize(roomSize);
    fitRoom();
    m_companion = new ModalCompanion(m_room);
    new DialogPlace(this, m_conversation, m_room);
    new CameraNotices(m_channel, this);
    buildMenus();
    readVersion();
    showTexts();
    connect(&m_controls, &RoomControls::changed, this, &BenchWindow::readVersion);
    connect(&m_channel, &BenchIOManager::errorReported, this,
            [this](const QString &, const QString &, int, const QString &message) {
                statusBar()->showMessage(tr("Reported: %1").arg(message), reportShownMs);
            });
    connect(&m_channel.link(), &ControllerLink::framesDropped, this, [this](long count) {
        m_droppedFrames = count;
        showDropped();
    });
    connect(&m_channel.link(), &ControllerLink::connectionChanged, this, [this](bool, const QString &text) {
        m_connectionLabel->setText(m_channel.link().description());
        statusBar()->showMessage(text, reportShownMs);
        showState();
    });
}

BenchWindow::~BenchWindow()
{
    m_menus->clear();
    m_module.unload();
}

void BenchWindow::buildMenus()
{
    m_benchMenu = menuBar()->addMenu(QString());
    m_loadAction = m_benchMenu->addAction(QString(), this, &BenchWindow::loadModule);
    m_unloadAction = m_benchMenu->addAction(QString(), this, &BenchWindow::unloadModule);
    m_observerAction = m_benchMenu->addAction(QString());
    m_observerAction->setCheckable(true);
    m_observerAction->setChecked(m_observerMode);
    connect(m_observerAction, &QAction::toggled, this, [this](bool checked) { m_observerMode = checked; });
    m_benchMenu->addSeparator();
    m_roomAction = m_benchMenu->addAction(QString(), this, &BenchWindow::showRoom,
                                          QKeySequence(int(Qt::CTRL) | int(Qt::Key_R)));
    m_switchAction = m_benchMenu->addAction(QString(), m_companion, &ModalCompanion::switchWindow,
                                            QKeySequence(Qt::Key_F6));
    m_benchMenu->addSeparator();
    m_quitAction = m_benchMenu->addAction(QString(), this, &QWidget::close,
                                          QKeySequence(int(Qt::CTRL) | int(Qt::Key_Q)));
    m_helpMenu = menuBar()->addMenu(QString());
    m_measuringAction =
        m_helpMenu->addAction(QString(), this, &BenchWindow::showHelp, QKeySequence(Qt::Key_F1));
    m_measuringAction->setObjectName(QStringLiteral("helpOnMeasuring"));
    auto *roomHelp = new QShortcut(QKeySequence(Qt::Key_F1), m_room);
    connect(roomHelp, &QShortcut::activated, this, &BenchWindow::showHelp);
    m_menus = std::make_unique<ModuleMenus>(menuBar(), m_helpMenu->menuAction());
}

void BenchWindow::offerLanguage(BenchLanguage &language)
{
    m_languageMenu = new LanguageMenu(language, this);
    menuBar()->insertMenu(menuBar()->actions().constLast(), m_languageMenu);
    auto *roomBar = new QMenuBar(m_room);
    m_roomLanguageMenu = new LanguageMenu(language, roomBar);
    roomBar->addMenu(m_roomLanguageMenu);
    m_room->layout()->setMenuBar(roomBar);
    showTexts();
}

/// All that the window says in the present language, but for what is shown for a moment.
void BenchWindow::showTexts()
{
    setWindowTitle(tr("Velmar Bench"));
    m_benchMenu->setTitle(tr("&Bench"));
    m_loadAction->setText(tr("&Load the module"));
    m_unloadAction->setText(tr("&Unload the module"));
    m_observerAction->setText(tr("&Observer mode at the next loading"));
    m_roomAction->setText(tr("Show the simulated &room"));
    m_switchAction->setText(tr("&Switch the window"));
    m_quitAction->setText(tr("&Quit"));
    m_helpMenu->setTitle(tr("&Help"));
    m_measuringAction->setText(tr("&How to measure points"));
    if (m_languageMenu != nullptr)
        m_languageMenu->setTitle(tr("&Language"));
    if (m_roomLanguageMenu != nullptr)
        m_roomLanguageMenu->setTitle(tr("Language")); // every letter is taken there
    m_connectionLabel->setText(m_channel.link().description());
    showDropped();
    showModuleState();
}

void BenchWindow::showDropped()
{
    m_droppedLabel->setVisible(m_droppedFrames > 0);
    m_droppedLabel->setText(tr("Frames dropped: %1").arg(m_droppedFrames));
    m_droppedLabel->setToolTip(tr("So many frames came faster than they could be handled."));
}

bool BenchWindow::loadModule()
{
    readVersion();
    const bool isLoaded = m_module.load({&m_channel, this, &m_versions, m_observerMode});
    if (isLoaded) {
        m_menus->clear();
        const QList<QAction *> actions = m_module.actions();
        m_menus->add(actions, m_module.place());
    } else {
        statusBar()->showMessage(tr("The module was not loaded: %1").arg(m_module.error()));
    }
    showModuleState();
    return isLoaded;
}

void BenchWindow::unloadModule()
{
    m_menus->clear();
    m_module.unload();
    showModuleState();
}

void BenchWindow::showModuleState()
{
    const bool isLoaded = m_module.isLoaded();
    m_loadAction->setEnabled(!isLoaded);
    m_unloadAction->setEnabled(isLoaded);
    m_moduleLabel->setText(isLoaded ? m_module.name() + QLatin1Char(' ') + m_module.version()
                                    : tr("no module loaded"));
}

void BenchWindow::retitleModule()
{
    if (m_module.isLoaded())
        m_menus->retitle(m_module.place().menuTitle);
    showModuleState();
}

void BenchWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    showTexts();
    // All windows get this event in turn; module and room know their new texts when all have had it.
    QTimer::singleShot(0, this, &BenchWindow::retitleModule);
    QTimer::singleShot(0, this, &BenchWindow::fitRoom);
}

void BenchWindow::setBackendName(const QString &name)
{
    m_backendName = name;
    readVersion();
}

/// As large as its texts need it, and inside the screen.
void BenchWindow::fitRoom()
{
    const QRect available = screen()->availableGeometry();
    m_room->resize(m_room->size().expandedTo(m_room->sizeHint()).boundedTo(roomBelow(available)));
    if (m_room->isVisible() && m_room->frameGeometry().right() > available.right())
        m_room->move(available.right() - m_room->frameGeometry().width(), m_room->y());
}

void BenchWindow::readVersion()
{
    m_versions.backendName = m_backendName.isEmpty() ? m_channel.link().description() : m_backendName;
    const auto version = m_controls.interfaceVersion();
    if (!version)
        return;
    m_versions.interfaceMajor = version->at(0);
    m_versions.interfaceMinor = version->at(1);
    m_versions.interfacePatch = version->at(2);
}

void BenchWindow::showState()
{
    readVersion();
    m_room->showState();
}

void BenchWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        showRoom();
}

void BenchWindow::showRoom()
{
    if (!m_room->isVisible()) {
        const int rightmost = screen()->availableGeometry().right() - m_room->width();
        m_room->move(std::min(frameGeometry().right() + windowGap, rightmost), frameGeometry().top());
    }
    m_room->show();
    m_room->raise();
}

void BenchWindow::closeEvent(QCloseEvent *event)
{
    m_room->hide();
    QMainWindow::closeEvent(event);
}

// It belongs to the room's window, since that one is above the dialogs of the module and so never blocked.
void BenchWindow::showHelp()
{
    if (m_guide.isNull())
        m_guide = new GuideWindow(m_room);
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}
