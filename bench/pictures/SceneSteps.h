#pragma once

#include "EventSteps.h"
#include "Scene.h"

#include <QString>
#include <QStringList>

#include <functional>

class BenchIOManager;
class QWidget;

/// What the lines of a scene do in the running bench:
///
///     press KEY...               keys such as Shift+F5, one after another
///     click NAME                 into the middle of a button
///     point NAME X Y BUTTON      left or right, X and Y in hundredths of the widget
///     type NAME TEXT             replaces what stands in an editor
///     choose NAME INDEX          an entry of a list, from 0
///     tab INDEX                  a tab, from 0
///     rows NAME "1 2 3"...       adds rows to a table, as a spreadsheet's are pasted
///     row NAME N                 selects a row by its number, from 1
///     await NAME PROPERTY TEXT   goes on when the property of the widget holds the text
///     notify NAME SLOT TEXT      tells a window what a host tells it by this slot
///     pause SECONDS              lets what follows the wall clock come to rest
///     picture FILE               of the window in front; its name without the ending
///     picture FILE of NAME       of one widget
///     picture FILE of screen     of all windows
///
/// and every line that ScriptRunner knows. Names are object names, of what is visible in the window in front
/// or else in any other; "w_viewPositionXYZ/x/spinBox" is a way down from one to the next. Each line waits
/// until what it needs is there.
class SceneSteps
{
public:
    /// Where pictures are left, and whether a line's work has failed.
    struct Outcome {
        QString folder;
        QString error; ///< a sentence on the first failure
    };

    /// Window, channel and outcome must outlive the steps.
    SceneSteps(QWidget &window, BenchIOManager &channel, Outcome &outcome);

    /// The steps of a line; none when it is not understood.
    std::vector<EventSteps::Step> stepsOf(const Scene::Line &line) const;

private:
    using Deed = std::function<void(QWidget &)>;
    using Steps = std::vector<EventSteps::Step>;

    EventSteps::Step withWidget(const QString &name, const Deed &deed) const;
    Steps press(const QStringList &words) const;
    Steps click(const QStringList &words) const;
    Steps point(const QStringList &words) const;
    Steps type(const QStringList &words) const;
    Steps choose(const QStringList &words) const;
    Steps tab(const QStringList &words) const;
    Steps rows(const QStringList &words) const;
    Steps row(const QStringList &words) const;
    Steps await(const QStringList &words) const;
    Steps notify(const QStringList &words) const;
    Steps pause(const QStringList &words) const;
    Steps picture(const QStringList &words) const;
    Steps script(const QString &line) const;

    void fail(const QString &error) const;
    QWidget *front() const;
    QWidget *find(const QString &name) const;
    QWidget *findAnywhere(const QString &name) const;

    QWidget &m_window;
    BenchIOManager &m_channel;
    Outcome &m_outcome;
};
