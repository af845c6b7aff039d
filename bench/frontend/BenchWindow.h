#pragma once

#include "BackendVersions.h"
#include "ModuleLibrary.h"
#include "ModuleMenus.h"
#include "RoomControls.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class BenchIOManager;
class BenchLanguage;
class ConversationView;
class GuideWindow;
class ModalCompanion;
class QLabel;
class QMenu;
class RoomPanel;

/// The small front-end: the menus with the module's action, the conversation with the controller, and beside
/// it a window with the simulated room that stays usable while the module's dialogs are open.
class BenchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// The channel must outlive the window. `plugin` is the module's library.
    BenchWindow(BenchIOManager &channel, const QString &plugin, bool observerMode, QWidget *parent = nullptr);

    /// Offers the language in the menu bars of this window and of the simulated room, which stays usable
    /// while a dialog of the module is open. The language must outlive the window; to be called once.
    void offerLanguage(BenchLanguage &language);

    ~BenchWindow() override;

    /// The name that the module reads, in place of a description of the controller; to be called before the
    /// module is loaded.
    void setBackendName(const QString &name);

    /// Loads the module and shows its actions. False when that fails; the window then says why.
    bool loadModule();
    void unloadModule();

    /// Takes over what the controller is now, when it was changed past this window.
    void showState();

    const ModuleLibrary &module() const { return m_module; }
    RoomPanel *roomPanel() const { return m_room; }
    ConversationView *conversation() const { return m_conversation; }

    /// The record that the module reads; it follows the controller's interface version.
    const BackendVersions &versions() const { return m_versions; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildMenus();
    void showTexts();
    void readVersion();
    void showDropped();
    void showModuleState();
    void retitleModule();
    void showRoom();
    void fitRoom();
    void showHelp();

    BenchIOManager &m_channel;
    RoomControls m_controls;
    QString m_backendName; ///< empty: a description of the controller
    BackendVersions m_versions;
    ModuleLibrary m_module;
    bool m_observerMode;
    ConversationView *m_conversation;
    RoomPanel *m_room;
    ModalCompanion *m_companion = nullptr;
    QLabel *m_connectionLabel;
    QLabel *m_moduleLabel;
    QLabel *m_droppedLabel;
    long m_droppedFrames = 0;
    QMenu *m_benchMenu = nullptr;
    QAction *m_loadAction = nullptr;
    QAction *m_unloadAction = nullptr;
    QAction *m_observerAction = nullptr;
    QAction *m_roomAction = nullptr;
    QAction *m_switchAction = nullptr;
    QAction *m_quitAction = nullptr;
    QMenu *m_helpMenu = nullptr;
    QAction *m_measuringAction = nullptr;
    QPointer<GuideWindow> m_guide;
    QMenu *m_languageMenu = nullptr;
    QMenu *m_roomLanguageMenu = nullptr;
    std::unique_ptr<ModuleMenus> m_menus;
};
