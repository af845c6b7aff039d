#pragma once

#include "ModuleInterface.h"

#include <QObject>
#include <QVariantMap>

#include <memory>

class IOManager;
class QDialog;

/// A small module: its dialog has the widgets that the main job uses, and writes rz and x to the controller.
class FakeModule : public QObject, public ModuleInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.velmar.test.FakeModule")
    Q_INTERFACES(ModuleInterface)
    Q_PROPERTY(QString menuTitle READ menuTitle CONSTANT)
    Q_PROPERTY(int menuOrderA READ menuOrderA CONSTANT)
    Q_PROPERTY(int menuOrderB READ menuOrderB CONSTANT)
    Q_PROPERTY(int menuFlag READ menuFlag CONSTANT)
    // Asked for after what changes it, so that nobody needs to be told.
    Q_PROPERTY(QVariantMap given READ given) // clazy:exclude=qproperty-without-notify

public:
    FakeModule();
    ~FakeModule() override;

    void releaseRequests() override { m_given[QStringLiteral("released")] = true; }
    void unload() override;
    QString moduleName() override { return QStringLiteral("Fake"); }
    QString moduleVersion() override { return QStringLiteral("v1.2.3"); }
    QList<QAction *> actions() override;
    void setModuleProperty(const QString &name, const QVariant &value) override;

    QString menuTitle() const { return QStringLiteral("&Tracking"); }
    int menuOrderA() const { return 3; }
    int menuOrderB() const { return 4; }
    int menuFlag() const { return 0; }
    QVariantMap given() const { return m_given; }

private:
    void build();
    void write();

    std::unique_ptr<QDialog> m_dialog;
    QList<QAction *> m_actions;
    QVariantMap m_given;
    IOManager *m_commands = nullptr;
};
