#pragma once

#include "ModuleHost.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <random>

class QFileDialog;
class QWidget;

/// Uses the module at random: mouse, wheel and keys on whatever window is on top, while the controller
/// measures, loses its tool, fails and answers nonsense.
///
/// It acts from the event loop, in whatever modal loop that is, until its number of events is used up; then
/// it closes every window.
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
    void useController();
    void useWindow(QWidget *window);
    void useFileDialog(QFileDialog *dialog);
    void pressKey(QWidget *widget);
    void clickSomewhere(QWidget *widget, Qt::MouseButton button);
    void turnWheel(QWidget *widget);
    void closeAll();
    QWidget *pick(QWidget *window);
    int upTo(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }

    ModuleHost &m_host;
    std::mt19937 m_random;
    int m_left;
    QString m_folder;
    int m_done = 0;
    int m_openings = 0;
    QStringList m_windows;
};
