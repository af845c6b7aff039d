#include "RoomEdits.h"

#include "AxisSnap.h"
#include "bsMatrix.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double comparedFactor = 100000.0;

std::array<double, 9> rotationRows(const RoomAngles &angles)
{
    std::array<double, 9> rows = controllerRows(rotationFromAngles(angles));
    snapAxisAligned(rows);
    return rows;
}

bool isFinite(const std::array<double, 9> &rows)
{
    return std::all_of(rows.begin(), rows.end(), [](double value) { return std::isfinite(value); });
}

bsMatrix finiteRotation(const std::array<double, 9> &rows)
{
    return isFinite(rows) ? rotationFromControllerRows(rows) : bsMatrix();
}

bsVector finiteOffset(const RoomTrafoData &record)
{
    const auto negated = [](double value) { return std::isfinite(value) ? -value : 0.0; };
    bsVector offset;
    offset.set(negated(record.translation[0]), negated(record.translation[1]),
               negated(record.translation[2]));
    return offset;
}

bool agreesInFiveDecimals(const std::array<double, 9> &a, const std::array<double, 9> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), [](double left, double right) {
        return std::trunc(left * comparedFactor) == std::trunc(right * comparedFactor);
    });
}

} // namespace

AdjustmentBoxes RoomEdits::boxesOf(const RoomTrafoData &record)
{
    AdjustmentBoxes boxes;
    for (std::size_t i = 0; i < 3; ++i)
        boxes.offset[i] = std::isfinite(record.translation[i]) ? 0.0 - record.translation[i] : 0.0;
    if (isFinite(record.rotation))
        boxes.angles = displayedAngles(record.rotation);
    boxes.scaling = std::isfinite(record.scaling) ? record.scaling : 1.0;
    return boxes;
}

void RoomEdits::loaded(const RoomTrafoData &record, const AdjustmentBoxes &boxes)
{
    shown(record, boxes);
    m_isReplaced = false;
}

void RoomEdits::replaced(const RoomTrafoData &record)
{
    m_loadedRecord = record;
    m_isReplaced = true;
}

void RoomEdits::shown(const RoomTrafoData &record, const AdjustmentBoxes &boxes)
{
    m_loadedRecord = record;
    m_baseline = boxes;
    m_scalingDiffers = false;
}

void RoomEdits::stored(const AdjustmentBoxes &boxes)
{
    m_baseline = boxes;
    m_scalingDiffers = false;
    m_isReplaced = false;
}

bool RoomEdits::keepsAngles(const AdjustmentBoxes &boxes) const
{
    return boxes.angles == m_baseline.angles;
}

RoomTrafoData RoomEdits::edited(const RoomTrafoData &record, const AdjustmentBoxes &boxes) const
{
    RoomTrafoData result = record;
    for (std::size_t i = 0; i < 3; ++i) {
        if (boxes.offset[i] != m_baseline.offset[i])
            result.translation[i] = -boxes.offset[i];
    }
    if (!keepsAngles(boxes))
        result.rotation = rotationRows(boxes.angles);
    if (m_scalingDiffers || boxes.scaling != m_baseline.scaling)
        result.scaling = boxes.scaling;
    return result;
}

bool RoomEdits::nothingUnsaved(const RoomTrafoData &record, const AdjustmentBoxes &boxes) const
{
    if (m_isReplaced)
        return false;
    if (boxes.offset == m_baseline.offset && keepsAngles(boxes))
        return true;
    for (std::size_t i = 0; i < 3; ++i) {
        if (-boxes.offset[i] != record.translation[i])
            return false;
    }
    return agreesInFiveDecimals(rotationRows(boxes.angles), record.rotation);
}

RoomPreview RoomEdits::preview(const RoomTrafoData &record, const AdjustmentBoxes &boxes) const
{
    const RoomTrafoData target = edited(record, boxes);
    const bsMatrix before = finiteRotation(m_loadedRecord.rotation);
    const bsMatrix relative = bsMatrix::product(before.transposed(), finiteRotation(target.rotation));
    RoomPreview result;
    if (target.rotation != m_loadedRecord.rotation)
        result.angles = displayedAngles(controllerRows(relative));
    result.position = finiteOffset(target) - finiteOffset(m_loadedRecord);
    if (target.rotation != m_loadedRecord.rotation)
        result.position = relative.transformPoint(finiteOffset(target)) - finiteOffset(m_loadedRecord);
    return result;
}
