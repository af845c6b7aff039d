#pragma once

#include "BackendVersions.h"
#include "RecordingHost.h"

#include <QStringList>

#include <initializer_list>

/// A scripted host that knows a room calibration of one step, which begins when it is told to.
///
/// "status active" becomes "cal" at the start; what follows is up to the test.
class CalibrationBench
{
public:
    explicit CalibrationBench(int major = 1, int minor = 23, int patch = 0);

    void set(const char *text, const QByteArray &answer);
    /// Makes a calibration kind have two steps with these words as answers for their pauses.
    void setTwoSteps(const QByteArray &firstPause, const QByteArray &secondPause);

    RecordingHost host;
    BackendVersions versions;
};

QStringList lines(std::initializer_list<const char *> texts);
