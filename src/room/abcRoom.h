#pragma once

#include "RoomDisplay.h"
#include "bsMatrix.h"
#include "bsPose.h"

#include <QObject>

#include <cstdint>
#include <deque>

struct RoomTrafoData;

/// The room coordinate system that the user adjusts.
///
/// Its transformation is base * current * pending: the room as the controller reported it, the product of all
/// committed edits and the one edit in progress. Millimetres and degrees. It also keeps the settings with
/// which it is drawn; changing those signals nothing.
class abcRoom : public QObject
{
    Q_OBJECT

public:
    explicit abcRoom(QObject *owner);

    /// Forgets the loaded room, every edit and the history.
    void resetRoom();

    /// Resets, then takes the controller's transformation as the base. Always true.
    ///
    /// With the rotation R and the translation t the base becomes [R, -R * t]; the scaling is no part of it.
    bool loadRoom(const RoomTrafoData &data);

    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    [[nodiscard]] bool isModified() const { return m_modified; }

    /// Sets the pending position, absolute. Values that are not finite change nothing.
    void setPendingPosition(double x, double y, double z);

    /// Sets the pending orientation Rx(eta) * Ry(theta) * Rz(phi). Angles that are not finite change nothing.
    void setPendingOrientation(double eta, double theta, double phi);
    void setPendingOrientation(const bsQuaternion &orientation);

    /// Sets the pending orientation to the rotation of a matrix; half turns about any axis keep their axis.
    void setPendingOrientationMatrix(const bsMatrix &rotation);

    /// Makes the pending edit part of the current transformation. False, and nothing changed, without an
    /// edit.
    bool commit();

    /// Go one committed step back or forth; nothing happens at the end of the history. The pending edit
    /// stays.
    void undo();
    void redo();

    [[nodiscard]] bool canUndo() const { return !m_undoList.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redoList.empty(); }

    /// The number of steps that can be undone; 0, the value at the start, means no limit.
    [[nodiscard]] std::uint64_t maxUndo() const { return m_maxUndo; }
    void setMaxUndo(std::uint64_t steps) { m_maxUndo = steps; }

    [[nodiscard]] const bsMatrix &base() const { return m_base; }
    [[nodiscard]] const bsMatrix &current() const { return m_current; }

    /// For changing the current transformation directly; the next commit makes a step of it.
    bsMatrix &current() { return m_current; }

    /// The pending edit as a matrix.
    [[nodiscard]] bsMatrix pendingMatrix() const { return m_pending.matrix(); }

    /// base * current * pending.
    [[nodiscard]] bsMatrix transformation() const;

    /// Writes translation and rotation in the controller's order and leaves the scaling.
    ///
    /// `currentOnly` gives the committed edits alone, inverted; else base * current, not inverted.
    void getTransformation(RoomTrafoData &data, bool currentOnly) const;

    /// Where the origin of the untransformed room stands in the drawn room, in millimetres.
    [[nodiscard]] bsVector roomOriginInView() const;

    [[nodiscard]] double unitSize() const { return m_display.unitSize; }
    void setUnitSize(double millimetres) { m_display.unitSize = millimetres; }
    [[nodiscard]] const RoomDisplay &display() const { return m_display; }
    RoomDisplay &display() { return m_display; }

signals:
    void roomModified(bool modified);
    void roomLoaded(bool loaded);

private:
    void clearPending();
    void step(std::deque<bsMatrix> &from, std::deque<bsMatrix> &to);
    void setModified();

    bsMatrix m_base;
    bsMatrix m_current;
    bsMatrix m_saved;
    bsPose m_pending;
    std::deque<bsMatrix> m_undoList;
    std::deque<bsMatrix> m_redoList;
    std::uint64_t m_maxUndo = 0;
    bool m_modified = false;
    bool m_loaded = false;
    RoomDisplay m_display;
};
