#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QAction;
class QVariant;

/// What the host calls on a module, in the order of a binary contract. All calls come on the GUI thread.
class ModuleInterface
{
public:
    virtual ~ModuleInterface() = default;

    /// Ends every data subscription of the module; called before the command channel goes away.
    virtual void releaseRequests() = 0;

    /// Ends everything that the module has built.
    virtual void unload() = 0;

    virtual QString moduleName() = 0;
    virtual QString moduleVersion() = 0;

    /// The actions that the host puts into its menus. The module keeps their ownership.
    virtual QList<QAction *> actions() = 0;

    /// Hands a value over by name; unknown names are ignored. To be called before actions().
    virtual void setModuleProperty(const QString &name, const QVariant &value) = 0;
};

Q_DECLARE_INTERFACE(ModuleInterface, "org.velmar.velmar2.gui.Module/0.2.0")
