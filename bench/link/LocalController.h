#pragma once

#include "ControllerLink.h"
#include "SimScript.h"

#include <QElapsedTimer>
#include <QTimer>

class SimController;

/// The link to a simulated controller of the same process.
///
/// With the real clock a timer makes a frame every 1/60 s, so that the controller's time is the wall clock's.
/// With the stepped clock nothing moves but by advance() and frame(). With the clock per query every question
/// for activity moves the controller, and frames come from frame() alone.
class LocalController : public ControllerLink
{
    Q_OBJECT

public:
    /// The controller must outlive the link.
    explicit LocalController(SimController &controller, QObject *parent = nullptr);

    LinkAnswer ask(const std::string &line) override;
    void subscribe(const std::set<std::string> &kinds) override;
    double time() const override;
    QString description() const override;
    bool isConnected() const override { return true; }

    /// Makes one frame and hands its records out.
    void frame();

    /// Makes as many frames as fit into the time, rounded to the nearest.
    void advance(double seconds);

private:
    void tick();

    SimController &m_controller;
    SimScript m_script;
    QTimer m_timer;
    QElapsedTimer m_wallClock;
    double m_owedSeconds = 0.0;
};
