#include "AdjustmentEntry.h"

#include "RoomChange.h"
#include "RoomChangeText.h"
#include "ui_CooTrans.h"

#include <QScopedValueRollback>

#include <cmath>

AdjustmentEntry::AdjustmentEntry(Ui::CooTransClass &ui, RoomTrafoData &record)
    : m_ui(ui)
    , m_record(record)
    , m_fields(ui)
{
}

void AdjustmentEntry::show(const AdjustmentBoxes &values)
{
    const QScopedValueRollback<bool> disarmed(m_armed, false);
    m_fields.show(values);
}

void AdjustmentEntry::load()
{
    m_held = m_record;
    m_fields.widenScaling();
    show(RoomEdits::boxesOf(m_record));
    m_edits.loaded(m_record, m_fields.values());
}

void AdjustmentEntry::showScaling(std::optional<double> read)
{
    const double scaling = read.value_or(m_record.scaling);
    const QScopedValueRollback<bool> disarmed(m_armed, false);
    m_fields.showScaling(scaling);
    m_edits.loaded(m_record, m_fields.values());
    if (std::isfinite(scaling) && scaling != m_record.scaling)
        m_edits.scalingDiffers();
    if (std::isfinite(scaling))
        m_held.scaling = scaling;
    showChange();
}

void AdjustmentEntry::store()
{
    const AdjustmentBoxes values = m_fields.values();
    m_record = m_edits.edited(m_record, values);
    m_edits.stored(values);
    m_held = m_record; // the dialog writes it now
    showChange();
}

void AdjustmentEntry::showRecord()
{
    show(RoomEdits::boxesOf(m_record));
    m_edits.shown(m_record, m_fields.values());
    showChange();
}

bool AdjustmentEntry::nothingUnsaved() const
{
    return m_edits.nothingUnsaved(m_record, m_fields.values());
}

RoomPreview AdjustmentEntry::preview() const
{
    return m_edits.preview(m_record, m_fields.values());
}

void AdjustmentEntry::showChange()
{
    const RoomTrafoData applied = m_edits.edited(m_record, m_fields.values());
    m_ui.label_change->setText(RoomChangeText::of(RoomChange::between(m_held, applied)));
}
