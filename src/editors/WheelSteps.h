#pragma once

/// Counts the whole steps by which a thumb wheel with 361 positions, 0 to 360, is turned.
///
/// A wheel that wraps jumps from one end of its range to the other: more than half of it in one go counts as
/// a turn across the end.
class WheelSteps
{
public:
    /// The steps from the last place to this one, negative for a turn back; a part of a step is dropped.
    [[nodiscard]] int to(double place);

    /// The wheel was set to this place, not turned.
    void startFrom(double place) { m_place = place; }

private:
    double m_place = 0.0;
};
