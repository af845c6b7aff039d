#include "ModuleLibrary.h"

#include "BackendVersions.h"
#include "IOManager.h"
#include "ModuleInterface.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QVariant>
#include <QWidget>

namespace
{

const QLatin1String libraryName("libroomadjustment2g.so");

QString tr(const char *text)
{
    return QCoreApplication::translate("ModuleLibrary", text);
}

} // namespace

ModuleLibrary::ModuleLibrary(const QString &file)
    : m_file(file)
    , m_loader(file)
{
    // Qt keeps a plug-in in memory by default; a host that unloads it really wants it gone.
    m_loader.setLoadHints(m_loader.loadHints() & ~QLibrary::PreventUnloadHint);
}

ModuleLibrary::~ModuleLibrary()
{
    unload();
}

bool ModuleLibrary::load(const ModuleSetting &setting)
{
    if (isLoaded())
        return true;
    if (m_loader.fileName().isEmpty())
        return fail(tr("The library %1 was not found.").arg(m_file.isEmpty() ? libraryName : m_file));
    QObject *instance = m_loader.instance();
    if (instance == nullptr)
        return fail(m_loader.errorString());
    m_module = qobject_cast<ModuleInterface *>(instance);
    if (m_module == nullptr) {
        m_loader.unload();
        return fail(tr("%1 holds no module for this front-end.").arg(m_file));
    }
    m_module->setModuleProperty(QStringLiteral("CommandManager"), QVariant::fromValue(setting.commands));
    m_module->setModuleProperty(QStringLiteral("ModuleParent"), QVariant::fromValue(setting.parent));
    m_module->setModuleProperty(QStringLiteral("BackendVersions"), QVariant::fromValue(setting.versions));
    m_module->setModuleProperty(QStringLiteral("ObserverMode"), setting.observerMode);
    m_error.clear();
    return true;
}

bool ModuleLibrary::fail(const QString &error)
{
    m_error = error;
    return false;
}

void ModuleLibrary::unload()
{
    if (!isLoaded())
        return;
    m_module->releaseRequests();
    m_module->unload();
    m_module = nullptr;
    m_loader.unload();
}

QString ModuleLibrary::name() const
{
    return isLoaded() ? m_module->moduleName() : QString();
}

QString ModuleLibrary::version() const
{
    return isLoaded() ? m_module->moduleVersion() : QString();
}

QList<QAction *> ModuleLibrary::actions() const
{
    return isLoaded() ? m_module->actions() : QList<QAction *>();
}

ModulePlace ModuleLibrary::place() const
{
    if (!isLoaded())
        return {};
    const QObject *object = const_cast<QPluginLoader &>(m_loader).instance();
    return {object->property("menuTitle").toString(), object->property("menuOrderA").toInt(),
            object->property("menuOrderB").toInt(), object->property("menuFlag").toInt()};
}

QStringList ModuleLibrary::candidates(const QString &executableFolder)
{
    const QDir folder(executableFolder);
    QStringList files;
    for (const char *place : {".", "../../module", ROOM_MODULES_FROM_PROGRAMS})
        files << QDir::cleanPath(
            folder.absoluteFilePath(QLatin1String(place) + QLatin1Char('/') + libraryName));
    return files;
}

QString ModuleLibrary::find(const QString &executableFolder)
{
    const auto files = candidates(executableFolder);
    for (const QString &file : files) {
        if (QFileInfo(file).isFile())
            return file;
    }
    return {};
}
