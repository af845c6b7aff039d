#pragma once

#include "AxisAssigner.h"
#include "TrackingAccess.h"

#include <QWidget>

#include <memory>

class QStandardItemModel;
class RenderArea;
class RoomAngleExchange;

namespace Ui
{
class CoarseAdjustment;
}

/// The panel that turns the room coordinate system in steps of 90 degrees, by assigning its axes to the right
/// and the upward direction in a picture of the room.
///
/// A change by the user is handed to the RoomAngleExchange and announced by do_btn_apply_enable(true);
/// programmed changes are silent. Controller, versions and exchange are not owned and may be null.
class CoarseAdjustment : public QWidget
{
    Q_OBJECT

public:
    CoarseAdjustment(IOManager *commands, BackendVersions *versions, RoomAngleExchange *angles,
                     QWidget *parent = nullptr);
    ~CoarseAdjustment() override;

    /// The table of the cameras, which the panel only shows. Not owned.
    void setCameraModel(QStandardItemModel *model);

    /// Asks the controller for the coordinate type and shows the assignment of the room's present angles.
    void updatePanel();

    /// Shows the assignment of the room's present angles; the controller is not asked.
    void recompute();

signals:
    void do_btn_apply_enable(bool enable);

protected slots:
    void resizeEvent(QResizeEvent *event) override;
    void on_comboBox_top_currentIndexChanged(int index);
    void on_comboBox_right_currentIndexChanged(int index);
    void on_pushButton_reset_clicked();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildTable();
    void fitColumns();
    void fillComboBoxes();
    void showRoomAngles();
    void showAssignment();
    void showState();
    void colorAxes();
    void handOver();
    QString notice() const;

    std::unique_ptr<Ui::CoarseAdjustment> m_ui;
    TrackingAccess m_controller;
    RoomAngleExchange *m_angles;
    AxisAssigner m_assigner;
    bool m_isInitialised = false;
    bool m_isKnownType = true;
    bool m_hasQuarterAngles = true;
    RenderArea *m_picture;
};
