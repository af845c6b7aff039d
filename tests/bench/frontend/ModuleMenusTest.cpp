#include "ModuleMenus.h"

#include "ModuleLibrary.h"
#include "TestRegistry.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

namespace
{

QStringList texts(const QList<QAction *> &actions)
{
    QStringList list;
    for (const QAction *action : actions)
        list << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return list;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(','));
}

} // namespace

class ModuleMenusTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPutTheMenuBeforeTheHelp()
    {
        QMainWindow window;
        QMenuBar *bar = window.menuBar();
        bar->addMenu(QStringLiteral("Bench"));
        const QMenu *help = bar->addMenu(QStringLiteral("Help"));
        ModuleMenus menus(bar, help->menuAction());
        QAction action(QStringLiteral("one"));
        menus.add({&action}, {QStringLiteral("&Tracking"), 15, 300, 0});
        QCOMPARE(texts(bar->actions()), words("Bench,&Tracking,Help"));
        QCOMPARE(texts(bar->actions().at(1)->menu()->actions()), words("one"));
    }

    void shouldChangeTheTitleOfTheModulesMenu()
    {
        QMainWindow window;
        ModuleMenus menus(window.menuBar(), nullptr);
        menus.retitle(QStringLiteral("none yet"));
        QAction action(QStringLiteral("one"));
        menus.add({&action}, {QStringLiteral("&Tracking"), 15, 300, 0});
        menus.retitle(QStringLiteral("&Verfolgung"));
        QCOMPARE(texts(window.menuBar()->actions()), words("&Verfolgung"));
    }

    void shouldOrderTheActionsOfAMenu()
    {
        QMainWindow window;
        ModuleMenus menus(window.menuBar(), nullptr);
        QAction last(QStringLiteral("last"));
        QAction first(QStringLiteral("first"));
        QAction middle(QStringLiteral("middle"));
        menus.add({&last}, {QStringLiteral("M"), 15, 300, 0});
        menus.add({&first}, {QStringLiteral("M"), 3, 900, 0});
        menus.add({&middle}, {QStringLiteral("M"), 15, 2, 0});
        QCOMPARE(window.menuBar()->actions().size(), 1);
        QCOMPARE(texts(window.menuBar()->actions().at(0)->menu()->actions()), words("first,middle,last"));
    }

    void shouldSeparateWhatAsksForIt()
    {
        QMainWindow window;
        ModuleMenus menus(window.menuBar(), nullptr);
        QAction one(QStringLiteral("one"));
        QAction two(QStringLiteral("two"));
        menus.add({&one}, {QStringLiteral("M"), 1, 1, 0});
        menus.add({&two}, {QStringLiteral("M"), 2, 1, 1});
        QCOMPARE(texts(window.menuBar()->actions().at(0)->menu()->actions()), words("one,-,two"));
    }

    void shouldMakeNoMenuForNothing()
    {
        QMainWindow window;
        ModuleMenus menus(window.menuBar(), nullptr);
        menus.add({}, {QStringLiteral("M"), 1, 1, 0});
        QVERIFY(window.menuBar()->actions().isEmpty());
    }

    void shouldTakeEverythingOutAgain()
    {
        QMainWindow window;
        ModuleMenus menus(window.menuBar(), nullptr);
        QAction one(QStringLiteral("one"));
        menus.add({&one}, {QStringLiteral("M"), 1, 1, 0});
        menus.clear();
        QVERIFY(window.menuBar()->actions().isEmpty());
        menus.add({&one}, {QStringLiteral("M"), 1, 1, 0});
        QCOMPARE(window.menuBar()->actions().size(), 1);
    }
};

ROOM_TEST_CLASS(ModuleMenusTest)

#include "ModuleMenusTest.moc"
