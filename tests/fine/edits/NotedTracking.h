#pragma once

#include "RecordingHost.h"
#include "TrackingControl.h"

/// Notes among the host's calls when the panel stops and starts tracking.
class NotedTracking final : public TrackingControl
{
public:
    explicit NotedTracking(RecordingHost &host)
        : m_host(host)
    {
    }
    void stopTracking() override { m_host.reserved1(); }
    void startTracking() override { m_host.reserved2(); }

private:
    RecordingHost &m_host;
};
