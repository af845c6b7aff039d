#include "ControllerChannel.h"

#include "ControllerCall.h"

ControllerChannel::ControllerChannel(IOManager *commands, const BackendVersions *versions)
    : m_commands(commands)
    , m_versions(versions)
{
}

bool ControllerChannel::supports(ControllerFeature feature) const
{
    return ControllerVersion::supports(m_versions, feature);
}

ControllerCall ControllerChannel::silently() const
{
    return ControllerCall(m_commands);
}

ControllerCall ControllerChannel::reporting(const char *failure) const
{
    return ControllerCall(m_commands, failure);
}

void ControllerChannel::note(const char *message) const
{
    ControllerCall::report(m_commands, message);
}
