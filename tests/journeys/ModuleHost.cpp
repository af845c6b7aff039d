#include "ModuleHost.h"

#include "BuiltFiles.h"
#include "ModuleInterface.h"

#include <QAction>
#include <QFile>
#include <QVariant>
#include <QtTest>

ModuleHost::ModuleHost()
    : ModuleHost(Setup())
{
}

ModuleHost::ModuleHost(const Setup &setup)
    : m_loader(BuiltFiles::module())
{
    control(QStringLiteral("sim clock query 3"));
    control(QStringLiteral("sim version %1 %2 %3").arg(setup.major).arg(setup.minor).arg(setup.patch));
    versions.interfaceMajor = setup.major;
    versions.interfaceMinor = setup.minor;
    versions.interfacePatch = setup.patch;
    m_loader.setLoadHints(m_loader.loadHints() & ~QLibrary::PreventUnloadHint);
    m_module = qobject_cast<ModuleInterface *>(m_loader.instance());
    if (m_module == nullptr)
        qFatal("%s", qPrintable(m_loader.errorString()));
    const auto set = [this](const char *name, const QVariant &value) {
        m_module->setModuleProperty(QString::fromLatin1(name), value);
    };
    set("CommandManager", QVariant::fromValue(static_cast<IOManager *>(&channel)));
    set("ModuleParent", QVariant::fromValue(&parent));
    set("BackendVersions", QVariant::fromValue(&versions));
    set("ObserverMode", setup.observerMode);
}

ModuleHost::~ModuleHost()
{
    unload();
}

QAction *ModuleHost::action() const
{
    const QList<QAction *> actions = m_module->actions();
    return actions.isEmpty() ? nullptr : actions.constFirst();
}

bool ModuleHost::unload()
{
    if (m_module == nullptr)
        return true;
    m_module->releaseRequests();
    m_module->unload();
    m_module = nullptr;
    return m_loader.unload();
}

bool ModuleHost::isLibraryMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libroomadjustment2g.so");
}

void ModuleHost::control(const QString &line)
{
    const bool isRequest = line.startsWith(QLatin1String("velmar2 "));
    const std::string text = line.toStdString();
    const std::string answer = isRequest ? controller.answer(text) : channel.control(text);
    const std::string expected = isRequest ? "velmar2 ok" : "sim ok";
    QVERIFY2(answer == expected, (text + ": " + answer).c_str());
}

QString ModuleHost::ask(const char *line)
{
    return QString::fromStdString(controller.answer(line));
}

QStringList ModuleHost::orders() const
{
    QStringList found;
    for (const CallRecord &call : channel.log().calls()) {
        const bool isQuestion = call.text.rfind("velmar2 get ", 0) == 0;
        if (call.operation == "setParameter" || (call.operation == "sendCommand" && !isQuestion))
            found << QString::fromStdString(call.text);
    }
    return found;
}

QStringList ModuleHost::reports() const
{
    QStringList found;
    for (const CallRecord &call : channel.log().calls()) {
        if (call.operation == "reportError")
            found << QString::fromStdString(call.text);
    }
    return found;
}
