#pragma once

#include "ModuleHost.h"
#include "WindowGuide.h"

#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>

/// A person who uses the module with mouse and keyboard, and goes on with whatever still can be done.
///
/// Widgets are named by their object names and looked for in the modal window on top. What cannot be done,
/// because the window is not there or the widget is disabled, is noted and left out.
class Traveller
{
public:
    explicit Traveller(ModuleHost &host);

    /// Triggers the module's action, does `inside` when its dialog is open, and closes it unless that did.
    void open(const std::function<void()> &inside);

    /// Does `inside` in the next window of that class, and closes it unless that did.
    void meet(const char *className, const std::function<void()> &inside);

    /// Presses a button of the next message box.
    void answer(int standardButton) { m_guide.planAnswer(standardButton); }

    bool click(const char *name);
    /// Replaces the whole text of a number box or of a line and leaves it.
    bool type(const char *name, const QString &text);
    /// Takes an entry from a combo box.
    bool pick(const char *name, int index);
    bool press(int key, int modifiers = 0);
    /// Goes to a tab of the main dialog by its key.
    void goToFine();
    /// Replaces the text of a table's cell.
    bool typeCell(const char *table, int row, int column, const QString &text);

    /// Gives this file to the next dialog that asks for one.
    void chooseFile(const QString &name);

    /// Lets a calibration run to its end without waiting between two looks at it.
    void followCalibration();

    /// Touches point n (from 1) of the workpiece with the measurement tool and measures there.
    void measure(int point);

    /// The widget of that name; null when there is none.
    template <typename Widget>
    Widget *find(const char *name) const
    {
        const QWidget *window = topWindow();
        const auto found = window == nullptr
                               ? QList<Widget *>()
                               : window->template findChildren<Widget *>(QString::fromLatin1(name));
        for (Widget *widget : found) {
            if (widget->window() == window)
                return widget;
        }
        return nullptr;
    }
    double value(const char *spinBox) const;
    bool isEnabled(const char *name) const;
    int rows(const char *table) const;

    /// What was done last: "opening", or the name of the widget.
    const QString &stage() const { return m_stage; }

    /// What could not be done.
    const QStringList &omitted() const { return m_omitted; }

    WindowGuide &guide() { return m_guide; }
    ModuleHost &host() { return m_host; }

private:
    static QWidget *topWindow();
    bool isReady(const QWidget *widget, const char *name);
    void leave(QWidget *window);

    ModuleHost &m_host;
    WindowGuide m_guide;
    QString m_stage;
    QStringList m_omitted;
};
