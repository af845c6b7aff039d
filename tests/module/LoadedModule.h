#pragma once

#include "BuiltFiles.h"
#include "InterfaceVersion.h"
#include "ModuleInterface.h"
#include "RecordingHost.h"

#include <QAction>
#include <QPluginLoader>
#include <QVariant>
#include <QWidget>

/// The module in its library, loaded as a host that really unloads it does.
struct LoadedModule {
    LoadedModule()
        : loader(BuiltFiles::module())
    {
        loader.setLoadHints(loader.loadHints() & ~QLibrary::PreventUnloadHint);
        versions = interfaceVersion(1, 24);
        object = loader.instance();
        module = qobject_cast<ModuleInterface *>(object);
    }

    ~LoadedModule() { unload(); }

    void set(const char *name, const QVariant &value)
    {
        module->setModuleProperty(QString::fromLatin1(name), value);
    }

    void setAll(bool observerMode = false)
    {
        set("CommandManager", QVariant::fromValue(static_cast<IOManager *>(&host)));
        set("ModuleParent", QVariant::fromValue(&parent));
        set("BackendVersions", QVariant::fromValue(&versions));
        set("ObserverMode", observerMode);
    }

    /// False when the library stays loaded.
    bool unload()
    {
        if (module == nullptr)
            return true;
        module->releaseRequests();
        module->unload();
        module = nullptr;
        return loader.unload();
    }

    RecordingHost host;
    QWidget parent;
    BackendVersions versions;
    QPluginLoader loader;
    QObject *object = nullptr;
    ModuleInterface *module = nullptr;
};
