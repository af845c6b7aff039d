#include "NeutralRoom.h"

#include "TrackingControl.h"

#include <QList>

#include <algorithm>

namespace
{

/// The controller counts as neutral by the sums of its numbers, not element by element.
bool isNeutral(const RoomTrafoData &data)
{
    const auto &t = data.translation;
    const auto &r = data.rotation;
    return t[0] + t[1] + t[2] == 0.0 && r[1] + r[2] + r[3] + r[5] + r[6] + r[7] == 0.0 &&
           r[0] + r[4] + r[8] == 3.0 && data.scaling == 1.0;
}

bool hasTwoWords(const QByteArray &target)
{
    const QList<QByteArray> words = target.split(' ');
    return std::count_if(words.begin(), words.end(),
                         [](const QByteArray &word) { return !word.isEmpty(); }) == 2;
}

} // namespace

NeutralRoom::NeutralRoom(const MeasurementAccess &controller, TrackingControl *tracking)
    : m_controller(controller)
    , m_tracking(tracking)
{
}

void NeutralRoom::stopTracking()
{
    if (m_tracking != nullptr)
        m_tracking->stopTracking();
}

void NeutralRoom::startTracking()
{
    if (m_tracking != nullptr)
        m_tracking->startTracking();
}

void NeutralRoom::prepareTransformation()
{
    m_savedTransformation = RoomTrafoData();
    if (m_hasEnded || !m_controller.supports(ControllerFeature::ExtraTransformation))
        return;
    m_savedTransformation = m_controller.extraTransformation().value_or(RoomTrafoData());
    if (isNeutral(m_savedTransformation) || m_tracking == nullptr)
        return;
    stopTracking();
    if (!m_hasEnded)
        m_controller.setNeutralExtraTransformation();
    startTracking();
}

void NeutralRoom::prepareReference()
{
    if (m_hasEnded)
        return;
    m_savedReference = m_controller.referenceTarget();
    if (m_savedReference.isEmpty())
        return;
    stopTracking();
    if (!m_hasEnded && m_controller.unsetReferenceTarget())
        startTracking();
}

void NeutralRoom::restoreReference()
{
    if (!hasTwoWords(m_savedReference))
        return;
    stopTracking();
    if (!m_hasEnded && m_controller.restoreReferenceTarget(m_savedReference))
        startTracking();
}

void NeutralRoom::restoreTransformation()
{
    if (isNeutral(m_savedTransformation) || !m_controller.supports(ControllerFeature::ExtraTransformation) ||
        m_tracking == nullptr)
        return;
    stopTracking();
    if (!m_hasEnded)
        m_controller.restoreExtraTransformation(m_savedTransformation);
    startTracking();
}

void NeutralRoom::end()
{
    m_hasEnded = true;
    m_tracking = nullptr;
}
