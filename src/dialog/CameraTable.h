#pragma once

#include <QCoreApplication>

#include <array>

class TrackingAccess;
class QStandardItemModel;

/// The table of the cameras and their positions, one row per camera: its name, then x, y and z in millimetres
/// with two decimals.
class CameraTable
{
    Q_DECLARE_TR_FUNCTIONS(RoomAdjustmentDlg2g)

public:
    /// The model belongs to the owner.
    explicit CameraTable(QObject *owner);

    [[nodiscard]] QStandardItemModel *model() const { return m_model; }

    /// The headers in the present language.
    void showTexts() const;

    /// Reads all cameras anew; without their number the table is left empty. Controllers that do not tell
    /// are not asked, and the table stays. When the owner is destroyed in a call, and the access with it,
    /// nothing more is asked.
    void fill(const TrackingAccess &controller) const;

private:
    void setCamera(int row, const std::array<double, 3> &position) const;

    QStandardItemModel *m_model;
};
