#pragma once

#include <QList>
#include <QPluginLoader>
#include <QString>
#include <QStringList>

struct BackendVersions;
class IOManager;
class ModuleInterface;
class QAction;
class QWidget;

/// What a host hands over to a module before it asks for the actions.
struct ModuleSetting {
    IOManager *commands = nullptr;
    QWidget *parent = nullptr;
    BackendVersions *versions = nullptr;
    bool observerMode = false;
};

/// Where the module wants its actions: the menu's title, two ordering values and a flag.
struct ModulePlace {
    QString menuTitle;
    int orderA = 0;
    int orderB = 0;
    int flag = 0;
};

/// The module in its shared library, loaded and ended the way a host does it.
class ModuleLibrary
{
public:
    /// `file` is the shared library.
    explicit ModuleLibrary(const QString &file);
    ~ModuleLibrary();

    /// Loads the library and hands the setting over. False when it cannot be loaded or is no module.
    [[nodiscard]] bool load(const ModuleSetting &setting);

    /// Ends the subscriptions and the module's windows, deletes the module and lets go of the library.
    void unload();

    bool isLoaded() const { return m_module != nullptr; }

    /// Why load() failed.
    QString error() const { return m_error; }
    QString file() const { return m_file; }

    QString name() const;
    QString version() const;

    /// The module's actions; empty when it is not loaded or in observer mode.
    QList<QAction *> actions() const;

    /// To be asked after actions(), which is where the module decides it.
    ModulePlace place() const;

    /// Where the library is looked for: beside the executable of that folder, where the build tree has it,
    /// and where it is installed.
    static QStringList candidates(const QString &executableFolder);

    /// The first candidate that exists, else empty.
    static QString find(const QString &executableFolder);

private:
    [[nodiscard]] bool fail(const QString &error);

    QString m_file;
    QPluginLoader m_loader;
    ModuleInterface *m_module = nullptr;
    QString m_error;
};
