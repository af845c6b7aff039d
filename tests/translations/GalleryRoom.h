#pragma once

#include "BackendVersions.h"
#include "BenchIOManager.h"
#include "LocalController.h"
#include "SimController.h"

#include <QStringList>
#include <QWidget>

#include <functional>

using Look = std::function<void(QWidget &)>;

/// The simulated controller and the host's window, and how the main windows are opened on them.
class GalleryRoom
{
public:
    GalleryRoom();

    /// Control lines and requests, each of which the controller must do.
    void tell(const QStringList &lines);
    /// What the host says of the controller's interface.
    void setVersion(int major, int minor);

    /// Each opens its dialog, looks at it and closes it; `then` are the looks at the modal windows that the
    /// look brings up. False when the dialog did not open, or other windows came.
    bool openMain(int tab, const Look &look, const QList<Look> &then = {});
    bool openMatching(const Look &look, const QList<Look> &then = {});
    bool openAngleTool(const Look &look, const QList<Look> &then = {});
    bool openProgress(const Look &look);

    /// Lets the controller and its records go on.
    void advance(double seconds) { m_link.advance(seconds); }
    /// Presses "Measure" with the tip at that point of the workpiece.
    void startMeasuring(QWidget &matching, int point);
    /// Gives the workpiece these points, enters them as reference points and measures them.
    void measure(QWidget &matching, const QStringList &points);

    BenchIOManager &channel() { return m_channel; }
    BackendVersions *versions() { return &m_versions; }
    QWidget *window() { return &m_window; }

private:
    static bool run(const std::function<void()> &open, const Look &look, const QList<Look> &then);

    SimController m_controller;
    LocalController m_link{m_controller};
    BenchIOManager m_channel{m_link};
    BackendVersions m_versions;
    QWidget m_window;
};

/// Lets the layouts and the pending changes of language settle.
void settle();
