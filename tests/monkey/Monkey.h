#pragma once

#include "ModuleHost.h"
#include "Repertoire.h"
#include "Watchdog.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

class QFileDialog;
class QWidget;

/// Uses the module at random: mouse, wheel and keys on whatever window is on top, disabled places included,
/// while the controller measures, loses its tool, fails and answers nonsense.
///
/// It acts from the event loop, in whatever modal loop that is, until its number of events is used up; then
/// it closes every window. When it comes to a stand for minutes it tells seed, event and what it did last,
/// and ends the program.
class Monkey : public QObject
{
public:
    /// Files are only chosen in the folder.
    Monkey(ModuleHost &host, unsigned seed, int events, const QString &folder);

    /// Opens the dialog again and again until all events are done.
    void play();

    int done() const { return m_done; }
    int openings() const { return m_openings; }
    /// The classes of the windows that it has used.
    QStringList windows() const { return m_windows; }

private:
    void act();
    void actLater();
    void actOn(QWidget *window);
    void useController();
    void useWindow(QWidget *window);
    void useMouse(QWidget *window);
    void useFileDialog(QFileDialog *dialog);
    void pressKey(QWidget *window);
    void useView(QWidget *window);
    void drag(const QWidget *widget, const QPoint &from, const QPoint &to);
    void changeTab(QWidget *window);
    void closeAll();
    QWidget *pick(QWidget *window);
    QPoint somewhereOn(const QWidget *widget);
    void note(const QWidget *widget, const QString &what);
    void note(const QString &what);
    int upTo(int count) { return m_chance.upTo(count); }

    ModuleHost &m_host;
    Repertoire m_chance;
    int m_left;
    QString m_folder;
    bool m_tells; ///< writes each event to the standard error output
    Watchdog m_watchdog;
    int m_done = 0;
    int m_openings = 0;
    int m_busyLevel = 0; ///< the level of the event loop in which an event is under way
    QStringList m_windows;
};
