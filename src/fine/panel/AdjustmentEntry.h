#pragma once

#include "AdjustmentFields.h"
#include "RoomEdits.h"

#include <optional>

/// What is entered on the fine page: the boxes, the record that they are stored in, and the line that says
/// what "Apply" will do.
///
/// Offsets are millimetres, angles degrees. The record is the dialog's.
class AdjustmentEntry
{
public:
    /// Form and record must outlive this.
    AdjustmentEntry(Ui::CooTransClass &ui, RoomTrafoData &record);

    [[nodiscard]] AdjustmentFields &fields() { return m_fields; }
    [[nodiscard]] const AdjustmentFields &fields() const { return m_fields; }

    /// False while the boxes are filled: then their changes are no edits.
    [[nodiscard]] bool isEdited() const { return m_armed; }

    /// The record is what the controller holds. Shows it, with room for any scaling until showScaling().
    void load();

    /// The controller's scaling, if it was read.
    void showScaling(std::optional<double> scaling);

    /// By the controller, as it was read or written last.
    [[nodiscard]] const RoomTrafoData &held() const { return m_held; }

    /// Takes the boxes into the record: groups that nobody edited keep the record's own numbers.
    void store();

    /// Fills the boxes with other values than those that were loaded.
    void show(const AdjustmentBoxes &values);

    /// Fills the boxes with the record, which the room shows.
    void showRecord();

    /// The record was replaced by one that nobody has written.
    void replaced() { m_edits.replaced(m_record); }

    [[nodiscard]] bool roomShowsRecord() const { return m_edits.roomShows(m_record); }

    /// True when offset and angles hold nothing that the record does not. The scaling is not part of it.
    [[nodiscard]] bool nothingUnsaved() const;

    [[nodiscard]] RoomPreview preview() const;

    /// Says below the picture what "Apply" will do to the controller, as far as it was read.
    void showChange();

private:
    Ui::CooTransClass &m_ui;
    RoomTrafoData &m_record;
    RoomTrafoData m_held;
    AdjustmentFields m_fields;
    RoomEdits m_edits;
    bool m_armed = true;
};
