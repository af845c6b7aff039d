#pragma once

#include <QCoreApplication>

class QObject;
class TrackingAccess;

/// What keeps the room from being adjusted, and the sentence that tells the user.
class AdjustingObstacle
{
    Q_DECLARE_TR_FUNCTIONS(RoomAdjustmentDlg2g)

public:
    enum class Kind { None, CannotTrack, NoRoom, TooOld, Locked };

    /// What of the controller's state keeps the room from being adjusted at all: CannotTrack, NoRoom or None.
    /// `owner` is whom the access goes with; when that is destroyed in a call, nothing more is asked.
    [[nodiscard]] static Kind find(const TrackingAccess &controller, const QObject *owner);

    /// Empty for None.
    [[nodiscard]] static QString textOf(Kind kind);
};
