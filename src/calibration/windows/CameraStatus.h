#pragma once

#include "CalibrationAccess.h"

#include <QGroupBox>
#include <QString>

#include <memory>

class IOManager;
struct BackendVersions;

namespace Ui
{
class CameraStatus;
}

/// The box of one camera in the progress dialog: its number, serial number, tab and calibration progress.
class CameraStatus : public QGroupBox
{
    Q_OBJECT

public:
    /// Asks the controller for the serial number. `index` counts from 0; the controller's camera numbers, and
    /// the box's title, from 1. Neither the channel nor the versions are owned.
    CameraStatus(IOManager *commands, QWidget *parent, const BackendVersions *versions, int index);
    ~CameraStatus() override;

    /// Marks the camera as the most active one.
    void highlight(bool isMostActive);
    bool isHighlighted() const { return m_isHighlighted; }
    void resetProgress(int percent);

public slots:
    void set_progressBar(int value);
    /// Tabs count from 0 here and from 1 on the screen.
    void set_tab_number(int value);
    /// Asks the controller how far the camera is. Full progress turns the bar green.
    void update_progressBar();

protected:
    void changeEvent(QEvent *event) override;

private:
    void showProgress(float fraction);
    void setBarStyle(const QString &style);
    void applyGroupStyle();
    void showTexts();

    std::unique_ptr<Ui::CameraStatus> m_ui;
    CalibrationAccess m_controller;
    int m_index;
    QString m_serial;
    int m_tabNumber = 0;
    bool m_isHighlighted = false;
};
