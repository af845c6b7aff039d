#include "RoomAdjustmentModule2g.h"

#include "BackendVersions.h"
#include "IOManager.h"
#include "ObjectWatch.h"
#include "RoomAdjustmentDlg2g.h"

#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QVariant>
#include <QWidget>

#include <utility>

namespace
{

constexpr int orderA = 15;
constexpr int orderB = 300;
constexpr int flag = 0;

QWidget *widgetOf(const QVariant &value)
{
    auto *object = value.value<QObject *>();
    if (object == nullptr)
        object = value.value<QWidget *>();
    return object != nullptr && object->isWidgetType() ? static_cast<QWidget *>(object) : nullptr;
}

} // namespace

RoomAdjustmentModule2g::RoomAdjustmentModule2g() = default;

RoomAdjustmentModule2g::~RoomAdjustmentModule2g() = default;

void RoomAdjustmentModule2g::releaseRequests()
{
    auto *dialog = qobject_cast<RoomAdjustmentDlg2g *>(m_dialog);
    if (dialog == nullptr || m_commands == nullptr)
        return;
    const ObjectWatch watch(dialog);
    m_commands->releaseRequester(dialog);
    if (watch)
        dialog->subscriptionsReleased();
}

void RoomAdjustmentModule2g::unload()
{
    RoomAdjustmentDlg2g *dialog = std::exchange(m_dialog, nullptr);
    m_actions.clear();
    const ObjectWatch watch(dialog);
    if (watch)
        dialog->endSubscriptions(); // while it is whole: the host may do anything in these calls
    if (watch)
        delete dialog;
}

QString RoomAdjustmentModule2g::moduleName()
{
    return tr("GUI Room Adjustment");
}

QString RoomAdjustmentModule2g::moduleVersion()
{
    return QStringLiteral("v" ROOM_VERSION);
}

QList<QAction *> RoomAdjustmentModule2g::actions()
{
    if (m_actions.isEmpty() && !m_observerMode)
        buildAction();
    return m_actions;
}

void RoomAdjustmentModule2g::buildAction()
{
    m_dialog = new RoomAdjustmentDlg2g(m_commands, m_parentWidget, m_versions, moduleVersion());
    m_menuOrderB = orderB;
    m_menuOrderA = orderA;
    m_menuFlag = flag;
    m_action = new QAction(this);
    setTexts();
    m_dialog->installEventFilter(this);
    connect(m_dialog, &QObject::destroyed, this, [this, dialog = m_dialog] {
        if (m_dialog == dialog)
            m_dialog = nullptr;
    });
    connect(m_action, &QAction::triggered, m_dialog, &RoomAdjustmentDlg2g::update_and_exec);
    m_actions.append(m_action);
}

void RoomAdjustmentModule2g::setTexts()
{
    m_menuTitle = tr("&Tracking");
    m_action->setText(tr("Room a&djustment"));
    m_action->setShortcut(QKeySequence(tr("Shift+F5")));
    m_action->setStatusTip(tr("Perform the room adjustment incl. COOTrans"));
    m_action->setWhatsThis(tr("Adjust the room coordinate system"));
}

bool RoomAdjustmentModule2g::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && watched == m_dialog)
        setTexts();
    return QObject::eventFilter(watched, event);
}

/// The host may destroy the widget; what is built after that has no parent.
void RoomAdjustmentModule2g::setParentWidget(QWidget *widget)
{
    if (m_parentWidget != nullptr)
        m_parentWidget->disconnect(this);
    m_parentWidget = widget;
    if (m_parentWidget != nullptr)
        connect(m_parentWidget, &QObject::destroyed, this, [this] { m_parentWidget = nullptr; });
}

void RoomAdjustmentModule2g::setModuleProperty(const QString &name, const QVariant &value)
{
    if (name == QLatin1String("CommandManager"))
        m_commands = value.value<IOManager *>();
    else if (name == QLatin1String("ModuleParent"))
        setParentWidget(widgetOf(value));
    else if (name == QLatin1String("BackendVersions"))
        m_versions = value.value<BackendVersions *>();
    else if (name == QLatin1String("ObserverMode"))
        m_observerMode = value.toBool();
}
