#pragma once

#include "AngleTools.h"
#include "CalibrationAccess.h"

#include <QDialog>

#include <array>
#include <memory>

class IOManager;
class QDoubleSpinBox;
struct BackendVersions;

namespace Ui
{
class AdjustToToolDlg;
}

/// Sets up the room calibration with an angle tool, runs it and makes the controller adopt the result.
///
/// Neither the channel nor the versions are owned. Nothing is asked before the first opening. While the
/// dialog is open, or a calibration runs, it may be destroyed together with its parent.
class AdjustToToolDlg : public QDialog
{
    Q_OBJECT

public:
    AdjustToToolDlg(IOManager *commands, const BackendVersions *versions, QWidget *parent);
    ~AdjustToToolDlg() override;

    /// Reads the controller's settings, shows them and runs the dialog modally; returns the dialog's result.
    /// Returns 0 at once while the dialog is open already, and when the host hides the window behind it.
    int openAndExec();

public slots:
    void on_pushButton_exit_clicked();
    void on_pushButton_calibrate_clicked();
    /// Puts the model's values into the fields, which only the expert model lets the user edit.
    void on_comboBox_md_currentIndexChanged(const QString &arg1);
    void keyPressEvent(QKeyEvent *event) override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void keepValuesReadable();
    void nameExpert();
    static int indexOf(const QString &model);
    void showCoordinateTypes(const AngleToolSettings &settings);
    void showTool(const AngleToolSettings &settings);
    void selectModel(const QString &name);
    std::array<QDoubleSpinBox *, 4> fields() const;
    void calibrate();
    double setUpCalibration();
    int runCalibration();
    void takeOver(double oldDurationSeconds);
    void giveUp(double oldDurationSeconds);

    std::unique_ptr<Ui::AdjustToToolDlg> m_ui;
    IOManager *m_commands;
    const BackendVersions *m_versions;
    CalibrationAccess m_controller;
    bool m_isCalibrating = false;
};
