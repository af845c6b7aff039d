#pragma once

#include "AdjustingObstacle.h"
#include "CameraTable.h"
#include "Requester.h"
#include "RoomAngleExchange.h"
#include "RoomTrafoData.h"
#include "ShownSubscription.h"
#include "TrackingAccess.h"
#include "TrackingControl.h"

#include <QDialog>
#include <QIcon>

#include <memory>

class CooTrans;
class CoarseAdjustment;

namespace Ui
{
class RoomAdjustmentDlgClass;
}

/// The room adjustment dialog: the frame of the coarse and the fine panel, and their exchange with the
/// controller.
///
/// One dialog serves every opening; update_and_exec() reads everything anew. While it is open the controller
/// measures. "Apply" and OK write the extra transformation, Cancel restores what was found at opening.
/// Failures of the controller are reported to the host and the dialog carries on.
class RoomAdjustmentDlg2g : public QDialog, public Requester, public TrackingControl, public RoomAngleExchange
{
    Q_OBJECT

public:
    /// Nothing is owned; all pointers may be null. `version` is the version text of the module. No controller
    /// call is made here.
    RoomAdjustmentDlg2g(IOManager *commands, QWidget *parent, BackendVersions *versions,
                        const QString &version);
    ~RoomAdjustmentDlg2g() override;

    int dataReceived(const char *kind, const char *record) override;
    void requesterNotice() override;

    void getRoomAngles(double &rx, double &ry, double &rz) override;
    void setRoomAngles(double rx, double ry, double rz) override;

    void stopTracking() override;
    void startTracking() override;

    /// Ends the subscriptions of a dialog that is going to be destroyed; it may be destroyed meanwhile.
    void endSubscriptions() { m_records.end(); }
    /// The host has ended all subscriptions by itself; none is ended a second time.
    void subscriptionsReleased() { m_records.forget(); }

    void done(int result) override;
    void setVisible(bool visible) override;

public slots:
    /// Reads the controller's state, starts tracking and runs the dialog modally; returns the result of
    /// exec(). While the dialog is visible it is only raised, and 0 is returned; so it is, without anything
    /// else, while an opening that the host has hidden has not come to its end.
    int update_and_exec();
    void onDataChanged(bool changed);
    void ondo_btn_apply_enable(bool enable);
    void onUpdateRaDataAndControls();
    void on_btn_ok_clicked();
    void on_btn_apply_clicked();
    void on_btn_cancel_clicked();
    void on_tabWidget_currentChanged(int index);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum Tab { CoarseTab = 0, FineTab = 1 };
    using Obstacle = AdjustingObstacle::Kind;

    void setTabTexts();
    void buildPanels(IOManager *commands, BackendVersions *versions);
    void dropApplyShortcut();
    void adjustToAngleTool();
    void beginFromKnownState();
    void showLock();
    void disableAdjusting();
    void showNotice(Obstacle obstacle);
    bool prepareOpening();
    void refuse(Obstacle obstacle);
    int run();
    void leaveUnasked();
    void focusTheFirstControl();
    void beginFineTab();
    void readLock();
    void prepareAdjusting();
    void loadTransformation();
    void writeEdits();
    void writeCurrent();
    /// False when the user wants to keep the dialog open, or when it was destroyed meanwhile.
    bool cancel();
    bool undoChanges();
    bool confirmsDiscarding();

    std::unique_ptr<Ui::RoomAdjustmentDlgClass> m_ui;
    TrackingAccess m_controller;
    ShownSubscription m_records;
    CameraTable m_cameras;
    CoarseAdjustment *m_coarse = nullptr;
    CooTrans *m_fine = nullptr;
    RoomTrafoData m_current;
    RoomTrafoData m_opening;
    QIcon m_lockIcon;
    Obstacle m_obstacle = Obstacle::None;
    bool m_locked = false;
    bool m_open = false;
    bool m_isRunning = false;
    bool m_fineHasBegun = false; ///< in this opening
    bool m_busy = false; ///< a sequence of controller calls is running: the host may let events through
};
