#pragma once

#include <QTimer>
#include <QVector>
#include <QWidget>

#include <memory>
#include <optional>

class PointButtons;
class QLabel;
class RoomControls;
struct ToolReading;

namespace Ui
{
class RoomPanel;
}

/// The simulated room for a person: where the tool's tip is held, its buttons, what the controller's state
/// is, how the next calibration goes, which calls fail; and live what the tool shows, in room coordinates.
class RoomPanel : public QWidget
{
    Q_OBJECT

public:
    /// The controls must outlive the panel.
    explicit RoomPanel(RoomControls &controls, QWidget *parent = nullptr);
    ~RoomPanel() override;

    /// So large that no page scrolls.
    QSize sizeHint() const override;

public slots:
    /// Takes over what the controller and its room are now: points, tool, angle tool, version, lock,
    /// availability.
    void showState();

    /// Asks for the tool's reading and shows it.
    void showReading();

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_savePointsButton_clicked();
    void on_toolButton_clicked();
    void on_deviceButton_clicked();
    void on_trackedBox_toggled(bool checked);
    void on_tremorBox_valueChanged(double value);
    void on_versionBox_activated(int index);
    void on_lockedBox_toggled(bool checked);
    void on_availableBox_toggled(bool checked);
    void on_lineEdit_returnPressed();
    void on_sendButton_clicked();
    void on_angleToolBox_toggled(bool checked);
    void on_coordinateTypeBox_activated(int index);
    void on_stallButton_clicked();
    void on_errorButton_clicked();
    void on_repairButton_clicked();
    void on_callButton_clicked();
    void on_lostButton_clicked();

private:
    void setVersion(const QString &version);
    void showCoordinateType();
    void showTools();
    void showOtherReadings();
    QString stateText(const std::optional<ToolReading> &reading) const;
    void showMessage(const QString &text);
    void touch(int point);

    std::unique_ptr<Ui::RoomPanel> m_ui;
    RoomControls &m_controls;
    std::unique_ptr<PointButtons> m_points;
    QTimer m_readingTimer;
    QVector<QLabel *> m_toolCaptions; ///< of the tools behind the first
    QVector<QLabel *> m_toolLabels;
};
