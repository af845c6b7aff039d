#pragma once

#include "Requester.h"
#include "SimGeometry.h"

#include <string>

class BenchIOManager;

/// Listens to the reported tip of one tool, as long as it lives.
class TipRecorder : public Requester
{
public:
    /// Tools count from 1. The channel must outlive the recorder.
    TipRecorder(BenchIOManager &channel, int tool);
    virtual ~TipRecorder();
    TipRecorder(const TipRecorder &) = delete;
    TipRecorder &operator=(const TipRecorder &) = delete;

    int dataReceived(const char *kind, const char *record) override;
    void requesterNotice() override {}

    /// How many frames have shown the tool tracked.
    int count() const { return m_count; }

    /// The mean of these positions; there must be at least one.
    SimVector mean() const { return (1.0 / m_count) * m_sum; }

private:
    BenchIOManager &m_channel;
    int m_tool;
    std::string m_kind; ///< of the two formats the one that came first
    int m_count = 0;
    SimVector m_sum;
};
