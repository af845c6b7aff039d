#pragma once

#include "RoomAngles.h"
#include "RoomTrafoData.h"
#include "bsVector.h"

#include <array>

/// What the fine panel's boxes show: zero point offset in mm, room angles in degrees, scaling factor.
struct AdjustmentBoxes {
    std::array<double, 3> offset = {0.0, 0.0, 0.0};
    RoomAngles angles;
    double scaling = 1.0;
};

/// An edit of the room, relative to the room as it was loaded.
struct RoomPreview {
    RoomAngles angles;
    bsVector position;
};

/// The rules between the boxes of the fine panel and the transformation record.
///
/// The boxes are rounded to two decimals (the scaling to four), the record is not. Each of x, y and z by
/// itself, the three angles together, and the scaling is a group: a group whose boxes still hold what the
/// last load or store put there keeps the record's own numbers, so that nothing is lost by merely looking at
/// it; an edited group follows the boxes.
class RoomEdits
{
public:
    /// The boxes that show a record, before the boxes' own rounding: the negated translation, the displayed
    /// angles.
    static AdjustmentBoxes boxesOf(const RoomTrafoData &record);

    /// The controller's record was loaded into the room and shown; `boxes` are the boxes' values after their
    /// rounding.
    void loaded(const RoomTrafoData &record, const AdjustmentBoxes &boxes);

    /// The room was replaced by one that looks like this record, which nobody has written yet; the boxes do
    /// not show it yet.
    void replaced(const RoomTrafoData &record);
    /// The room looks like this record and the boxes show it, whether it is written or not.
    void shown(const RoomTrafoData &record, const AdjustmentBoxes &boxes);
    /// Whether the room looks like this record where nothing is edited.
    bool roomShows(const RoomTrafoData &record) const { return m_loadedRecord == record; }

    /// The scaling box shows another factor than the record: it counts as edited.
    void scalingDiffers() { m_scalingDiffers = true; }

    /// The record with the edited groups replaced: translation = -offset, the rotation of the angles, the
    /// scaling.
    RoomTrafoData edited(const RoomTrafoData &record, const AdjustmentBoxes &boxes) const;

    /// The boxes were taken into the record.
    void stored(const AdjustmentBoxes &boxes);

    /// Whether offset and angles hold nothing that is not written: no record has replaced the loaded one
    /// since, and either the boxes still hold what the last load or store put there, or -offset equals the
    /// record's translation exactly and the rotation of the angles equals the record's in five decimals,
    /// truncated. The scaling is not part of it.
    bool nothingUnsaved(const RoomTrafoData &record, const AdjustmentBoxes &boxes) const;

    /// The edit with which the loaded room looks as it would after storing the boxes and a fresh load.
    ///
    /// With the loaded rotation and offset (R0, o0) and the new ones (R1, o1) it is Q = transposed(R0) * R1
    /// and Q * o1 - o0. Values that are not finite count as neutral.
    RoomPreview preview(const RoomTrafoData &record, const AdjustmentBoxes &boxes) const;

private:
    bool keepsAngles(const AdjustmentBoxes &boxes) const;

    RoomTrafoData m_loadedRecord;
    AdjustmentBoxes m_baseline;
    bool m_scalingDiffers = false;
    bool m_isReplaced = false; ///< by a record that was not stored since
};
