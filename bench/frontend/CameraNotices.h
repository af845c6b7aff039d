#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <vector>

class BenchIOManager;
class QWidget;

/// Tells the module's progress window about the cameras while a calibration runs, as a front-end does.
///
/// Any visible top-level widget with the slots onReceiveCameraTabChanges(QString) and
/// onReceiveMostActiveChanges(QString) is told: once the tab (from 0, four cameras on each) of every camera,
/// and then, whenever they change, the cameras (from 0) whose calibration has advanced the most since the
/// last look. Both messages are lists with commas. The controller is asked past the log of calls, and never
/// while it answers a call of the module.
class CameraNotices : public QObject
{
    Q_OBJECT

public:
    /// The channel must outlive this object.
    explicit CameraNotices(BenchIOManager &channel, QObject *parent = nullptr);

public slots:
    void look();

private:
    std::vector<double> progress() const;
    QString mostActive(const std::vector<double> &now) const;
    void tellTabs(std::size_t cameras);

    BenchIOManager &m_channel;
    QPointer<QWidget> m_receiver;
    std::vector<double> m_progress;
    QString m_told;
    QTimer m_timer;
};
