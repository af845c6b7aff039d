#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class CalibrationRun;
class CameraStatus;
class IOManager;
class QGridLayout;
class QScrollArea;
class QSize;
struct BackendVersions;

/// The camera boxes of the progress dialog, row by row in a grid layout.
///
/// Building and refreshing ask the controller, and a call may let other events through: both end at once when
/// the grid is destroyed meanwhile.
class CameraGrid : public QObject
{
    Q_OBJECT

public:
    CameraGrid(QGridLayout *layout, IOManager *commands, const BackendVersions *versions, QObject *parent);

    /// The columns in which the boxes of this many cameras stand.
    static int columnsFor(int cameras);

    /// Asks for the number of cameras and makes a box for each, in place of those there were. When the number
    /// cannot be read, that is reported and everything stays as it is.
    void build();
    /// Makes the area that shows the grid as large as the boxes, or as the screen has room for.
    void fit(QScrollArea *area, const QSize &screen) const;
    void reset();
    /// Asks for the progress of every camera, as long as the run goes on.
    void refresh(const std::shared_ptr<CalibrationRun> &run);
    void markMostActive(const QString &message);
    void setTabNumbers(const QString &message);

private:
    void clear();
    bool addBox(int index, int columns);

    QGridLayout *m_layout;
    IOManager *m_commands;
    const BackendVersions *m_versions;
    QList<QPointer<CameraStatus>> m_boxes;
};
