#pragma once

#include "ControllerTrafo.h"
#include "EventSteps.h"

#include <QObject>
#include <QString>

class BenchIOManager;
class BenchWindow;
class QTextStream;

/// The main job, done as a user does it, with keys and clicks: opens the dialog with Shift+F5, goes to the
/// tab "&Fine", adds 10 degrees to rz and 250 mm to x, presses "&Apply" and closes with OK.
///
/// It leaves pictures of the screen in a folder, writes the controller's extra transformation before and
/// after and every call to a stream, and checks that the controller holds what was asked for.
class MainJob : public QObject
{
    Q_OBJECT

public:
    static constexpr double rzDegrees = 10.0;
    static constexpr double xMm = 250.0;

    /// Window, channel and stream must outlive the job.
    MainJob(BenchWindow &window, BenchIOManager &channel, const QString &folder, QTextStream &out,
            QObject *parent = nullptr);

    /// Begins; the event loop must run.
    void start();

    /// What the controller must hold in the end: what it held before with the job's changes. Whatever the
    /// boxes of the dialog set, they set with two decimals: all three angles, and x.
    static ControllerTrafo wanted(const ControllerTrafo &before);

signals:
    /// The process's exit code: 0 only when everything was done and the controller holds what was asked for.
    void finished(int exitCode);

private:
    void addSteps(const ControllerTrafo &before);
    void addTyping(const QString &name, const QString &text);
    void addClick(const QString &name);
    void addPicture(const QString &name);
    void conclude();
    void giveUp(const QString &reason);
    void writeCalls();
    void takePicture(const QString &name);

    BenchWindow &m_window;
    BenchIOManager &m_channel;
    QString m_folder;
    QTextStream &m_out;
    EventSteps m_steps;
    ControllerTrafo m_wanted;
    bool m_arePicturesSaved = true;
};
