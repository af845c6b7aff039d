#pragma once

#include "AdjustmentEntry.h"
#include "MeasurementAccess.h"
#include "NeutralRoom.h"

#include <QWidget>

#include <memory>

class AbcMatchingDialog;
class AdjustToToolDlg;
class RoomScene;
class TrackingControl;
class bsMatrix;

namespace Ui
{
class CooTransClass;
}

/// The "Fine" page: zero point offset, rotation angles and scaling by numbers, previewed in the room in 3D.
///
/// The panel edits the dialog's transformation record, which it neither owns nor writes to the controller.
/// Offsets are millimetres, angles degrees. It also opens the two other ways of adjusting the room, the
/// matching of reference points and the angle tool, and around the former keeps the controller's room
/// neutral.
class CooTrans : public QWidget
{
    Q_OBJECT

public:
    /// Nothing is owned; commands, versions and dialog may be null. `raData` must outlive the panel. No
    /// controller call is made here.
    CooTrans(IOManager *commands, BackendVersions *versions, TrackingControl *dialog, RoomTrafoData *raData,
             QWidget *parent);
    ~CooTrans() override;

    /// Shows the record: loads it into the room, fills the boxes and asks the controller for the scaling and
    /// the measurement tool. Silent towards the dialog.
    void loadPage();

    /// Takes the boxes into the record: groups that nobody edited keep the record's own numbers.
    void storeToRaData() { m_entry.store(); }

    /// True when offset and angles hold nothing that the record does not. The scaling is not part of it.
    bool nothingUnsaved() const;

    /// Offset and angles 0, scaling 1, silently.
    void resetAll() { m_entry.show(AdjustmentBoxes()); }

    /// Goes into the reports that the matching hands out.
    void tellModuleVersion(const QString &version);

    /// Puts the keyboard on x, with its number selected.
    void beginEntry();

    /// Tells the user on the page whether the controller can track.
    void showTrackingAvailable(bool available);

    void getAngles(double &rx, double &ry, double &rz) const;
    /// Sets rx, ry and rz in this order; each is handled like a user's edit.
    void setAngles(double rx, double ry, double rz);

    /// Clicks "Adjust" of the angle tool, which does nothing while it is disabled.
    void openAngleTool();

    /// Hands a measurement record to the matching dialog while it is open; 0 otherwise.
    int dataReceived(const char *kind, const char *record);

signals:
    void do_btn_apply_enable(bool enable);
    void do_update_raDataAndControls();

public slots:
    void on_w_bodyMatchingButton_clicked();
    void on_pushButton_att_clicked();
    void on_doubleSpinBox_rz_valueChanged(double /*value*/) { previewAngles(); }
    void on_doubleSpinBox_ry_valueChanged(double /*value*/) { previewAngles(); }
    void on_doubleSpinBox_rx_valueChanged(double /*value*/) { previewAngles(); }
    void on_doubleSpinBox_z_valueChanged(double /*value*/) { previewOffset(); }
    void on_doubleSpinBox_y_valueChanged(double /*value*/) { previewOffset(); }
    void on_doubleSpinBox_x_valueChanged(double /*value*/) { previewOffset(); }
    void on_doubleSpinBox_scalingFactor_valueChanged(double value);
    void on_btn_resetScaling_clicked();
    void on_btn_resetAngles_clicked();
    void on_btn_resetVector_clicked();
    void on_pushButton_helpView_clicked();
    void adjustView();
    void resetView();
    void onEnableButtonApply();
    /// Takes a fitted transformation (reference coordinates to measured ones) into room and record.
    void applyTrafo(const bsMatrix &matrix);
    void toggled_long_axes(bool show);
    void toggled_show_XY(bool show);
    void toggled_show_YZ(bool show);
    void toggled_show_XZ(bool show);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void hideSwitches();
    void fillViewMenu();
    void loadRoom();
    void previewOffset();
    void previewAngles();
    void reportEdit();
    bool mayDiscardUnsaved();
    void matchPoints();

    std::unique_ptr<Ui::CooTransClass> m_ui;
    MeasurementAccess m_controller;
    TrackingControl *m_dialog;
    RoomTrafoData *m_raData;
    std::shared_ptr<NeutralRoom> m_neutralRoom; ///< outlives the panel while it waits for an answer
    AdjustmentEntry m_entry;
    std::unique_ptr<RoomScene> m_scene;
    AbcMatchingDialog *m_matchingDialog = nullptr;
    AdjustToToolDlg *m_angleToolDialog = nullptr;
    bool m_isMatching = false;
};
