#pragma once

#include <QList>

class QAction;
class QMenu;
class QMenuBar;
struct ModulePlace;

/// Puts a module's actions where the module wants them in a menu bar.
///
/// Actions of one menu stand in the order of their two ordering values, the first one first. A flag other
/// than 0 asks for a separator above them.
class ModuleMenus
{
public:
    /// New menus come before the action `before` of the menu bar (at the end when it is null).
    ModuleMenus(QMenuBar *bar, QAction *before);

    void add(const QList<QAction *> &actions, const ModulePlace &place);

    /// The menu that was made for the module changes its title.
    void retitle(const QString &title);

    /// Takes everything out again, and the menus that were made for it.
    void clear();

private:
    QMenu *menu(const QString &title);
    static QAction *firstAbove(const QMenu *menu, const ModulePlace &place);

    QMenuBar *m_bar;
    QAction *m_before;
    QList<QMenu *> m_menus;
};
