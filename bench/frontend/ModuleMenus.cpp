#include "ModuleMenus.h"

#include "ModuleLibrary.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace
{

constexpr const char *orderA = "benchOrderA";
constexpr const char *orderB = "benchOrderB";

} // namespace

ModuleMenus::ModuleMenus(QMenuBar *bar, QAction *before)
    : m_bar(bar)
    , m_before(before)
{
}

void ModuleMenus::add(const QList<QAction *> &actions, const ModulePlace &place)
{
    if (actions.isEmpty())
        return;
    QMenu *target = menu(place.menuTitle);
    QAction *above = firstAbove(target, place);
    if (place.flag != 0)
        target->insertSeparator(above);
    for (QAction *action : actions) {
        action->setProperty(orderA, place.orderA);
        action->setProperty(orderB, place.orderB);
        target->insertAction(above, action);
    }
}

void ModuleMenus::retitle(const QString &title)
{
    if (m_menus.size() == 1)
        m_menus.constFirst()->setTitle(title);
}

void ModuleMenus::clear()
{
    qDeleteAll(m_menus);
    m_menus.clear();
}

QMenu *ModuleMenus::menu(const QString &title)
{
    for (QMenu *known : std::as_const(m_menus)) {
        if (known->title() == title)
            return known;
    }
    auto *made = new QMenu(title, m_bar);
    m_bar->insertMenu(m_before, made);
    m_menus << made;
    return made;
}

QAction *ModuleMenus::firstAbove(const QMenu *menu, const ModulePlace &place)
{
    const auto entries = menu->actions();
    for (QAction *action : entries) {
        if (std::pair(action->property(orderA).toInt(), action->property(orderB).toInt()) >
            std::pair(place.orderA, place.orderB))
            return action;
    }
    return nullptr;
}
