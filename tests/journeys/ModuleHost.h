#pragma once

#include "BackendVersions.h"
#include "BenchIOManager.h"
#include "LocalController.h"
#include "SimController.h"

#include <QPluginLoader>
#include <QStringList>
#include <QWidget>

class ModuleInterface;
class QAction;

/// A host that loads the module's library as it is shipped, on a simulated controller of this process.
///
/// The clock moves with the questions for activity, and frames come only when they are asked for: nothing
/// depends on how fast the computer is. The library is really unloaded in the end.
class ModuleHost
{
public:
    struct Setup {
        int major = 1;
        int minor = 24;
        int patch = -1;
        bool observerMode = false;
    };

    ModuleHost();
    explicit ModuleHost(const Setup &setup);
    ~ModuleHost();
    ModuleHost(const ModuleHost &) = delete;
    ModuleHost &operator=(const ModuleHost &) = delete;

    /// Null when the library could not be loaded.
    ModuleInterface *module() const { return m_module; }

    /// The module's first action; null when it has none.
    QAction *action() const;

    /// Ends everything as a host does that goes on without the module. False when the library stays loaded.
    bool unload();

    /// Whether the library is part of this process.
    static bool isLibraryMapped();

    /// Runs a control line or a request; fails the test unless it is answered with "ok".
    void control(const QString &line);

    /// The controller's answer, past the log and the faults.
    QString ask(const char *line);

    /// The texts of the calls that change something at the controller, in their order.
    QStringList orders() const;

    /// The messages of the error reports, in their order.
    QStringList reports() const;

    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};
    BackendVersions versions;
    QWidget parent;

private:
    QPluginLoader m_loader;
    ModuleInterface *m_module = nullptr;
};
