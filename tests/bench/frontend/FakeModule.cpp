#include "FakeModule.h"

#include "BackendVersions.h"
#include "IOManager.h"

#include <QAction>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QVariant>

#include <cmath>

namespace
{

void addEditor(QWidget *page, const QString &name)
{
    auto *box = new QDoubleSpinBox(page);
    box->setObjectName(name);
    box->setRange(-1000.0, 1000.0);
    box->setLocale(QLocale::c());
    page->layout()->addWidget(box);
}

QPushButton *addButton(QDialog *dialog, const QString &name, const QString &text)
{
    auto *button = new QPushButton(text, dialog);
    button->setObjectName(name);
    button->setAutoDefault(false);
    dialog->layout()->addWidget(button);
    return button;
}

} // namespace

FakeModule::FakeModule() = default;
FakeModule::~FakeModule() = default;

void FakeModule::unload()
{
    m_dialog.reset();
    m_actions.clear();
}

QList<QAction *> FakeModule::actions()
{
    if (m_actions.isEmpty() && !m_given.value(QStringLiteral("ObserverMode")).toBool())
        build();
    return m_actions;
}

void FakeModule::build()
{
    m_dialog = std::make_unique<QDialog>();
    auto *layout = new QVBoxLayout(m_dialog.get());
    auto *tabs = new QTabWidget(m_dialog.get());
    layout->addWidget(tabs);
    tabs->addTab(new QWidget(tabs), QStringLiteral("&Coarse"));
    auto *page = new QWidget(tabs);
    new QVBoxLayout(page);
    addEditor(page, QStringLiteral("doubleSpinBox_x"));
    addEditor(page, QStringLiteral("doubleSpinBox_rz"));
    tabs->addTab(page, QStringLiteral("&Fine"));
    connect(addButton(m_dialog.get(), QStringLiteral("btn_apply"), QStringLiteral("&Apply")),
            &QPushButton::clicked, this, &FakeModule::write);
    connect(addButton(m_dialog.get(), QStringLiteral("btn_ok"), QStringLiteral("OK")), &QPushButton::clicked,
            m_dialog.get(), &QDialog::accept);
    auto *action = new QAction(QStringLiteral("Room a&djustment"), this);
    action->setShortcut(QKeySequence(QStringLiteral("Shift+F5")));
    connect(action, &QAction::triggered, m_dialog.get(), &QDialog::exec);
    m_actions << action;
}

void FakeModule::write()
{
    const double angle = m_dialog->findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinBox_rz"))->value() /
                         57.29577951308232;
    const double x = m_dialog->findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinBox_x"))->value();
    m_commands->setParameter("tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f",
                             std::cos(angle), -std::sin(angle), 0.0, std::sin(angle), std::cos(angle), 0.0,
                             0.0, 0.0, 1.0);
    m_commands->setParameter("tracking extra_translation %.3f %.3f %.3f", -x, 0.0, 0.0);
}

void FakeModule::setModuleProperty(const QString &name, const QVariant &value)
{
    m_given[name] = value;
    if (name == QLatin1String("CommandManager"))
        m_commands = value.value<IOManager *>();
}
