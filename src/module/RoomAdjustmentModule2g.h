#pragma once

#include "ModuleInterface.h"

#include <QObject>

class IOManager;
class RoomAdjustmentDlg2g;
struct BackendVersions;

/// The plug-in's one object: it offers the host the action "Room adjustment" and owns the dialog behind it.
///
/// The host sets the four properties "CommandManager", "ModuleParent", "BackendVersions" and "ObserverMode"
/// and then asks for the actions. The dialog is built on that first request; what is set later does not reach
/// it.
class RoomAdjustmentModule2g : public QObject, public ModuleInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.velmar.Velmar2.RoomAdjustmentModule")
    Q_INTERFACES(ModuleInterface)
    // clazy:excludeall=qproperty-without-notify -- set once, when the action is built
    /// Where the host puts the action: title of the menu, two ordering values and a flag.
    Q_PROPERTY(QString menuTitle READ menuTitle)
    Q_PROPERTY(int menuOrderA READ menuOrderA)
    Q_PROPERTY(int menuOrderB READ menuOrderB)
    Q_PROPERTY(int menuFlag READ menuFlag)

public:
    RoomAdjustmentModule2g();
    ~RoomAdjustmentModule2g() override;

    void releaseRequests() override;
    void unload() override;
    QString moduleName() override;
    QString moduleVersion() override;
    QList<QAction *> actions() override;
    void setModuleProperty(const QString &name, const QVariant &value) override;

    QString menuTitle() const { return m_menuTitle; }
    int menuOrderA() const { return m_menuOrderA; }
    int menuOrderB() const { return m_menuOrderB; }
    int menuFlag() const { return m_menuFlag; }

    /// Follows the dialog's change of language.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildAction();
    void setTexts();
    void setParentWidget(QWidget *widget);

    QWidget *m_parentWidget = nullptr; ///< null again when the host destroys it
    QList<QAction *> m_actions;
    QAction *m_action = nullptr;
    int m_menuOrderA = 0;
    QString m_menuTitle;
    int m_menuOrderB = 0;
    RoomAdjustmentDlg2g *m_dialog = nullptr; ///< null again when the host destroys it with its parent widget
    int m_menuFlag = 0;
    IOManager *m_commands = nullptr;
    BackendVersions *m_versions = nullptr;
    bool m_observerMode = false;
};
