#include "SimCoordinates.h"

#include "SimMachine.h"

#include <cstddef>

SimCoordinates::SimCoordinates(const SimMachine &machine)
    : m_base(machine.state.base)
    , m_turn(machine.state.extra.rotation.transposed())
    , m_shift(machine.state.extra.translation)
    , m_scaling(machine.state.extra.scaling)
{
    if (!machine.state.reference)
        return;
    const SimBody &body = machine.room.bodies.at(static_cast<std::size_t>(*machine.state.reference));
    m_tracking = body.tracked;
    m_reference = current(body.pose);
}

SimVector SimCoordinates::current(const SimVector &world) const
{
    return m_scaling * (m_turn * (m_base * world)) + m_shift;
}

SimPose SimCoordinates::current(const SimPose &world) const
{
    return {current(world.position), m_turn * m_base.rotation * world.rotation};
}

SimVector SimCoordinates::reported(const SimVector &world) const
{
    const SimVector here = current(world);
    return m_reference ? m_reference->rotation.transposed() * (here - m_reference->position) : here;
}

SimPose SimCoordinates::reported(const SimPose &world) const
{
    const SimPose here = current(world);
    return m_reference ? m_reference->inverse() * here : here;
}
