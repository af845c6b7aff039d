#include "SimMachine.h"

#include "RoomCalibrationResult.h"

void SimMachine::advance(double seconds)
{
    state.seconds += seconds;
    room.move(seconds);
    calibration.advance(seconds);
    if (calibration.phase() == SimCalibration::Phase::Finished)
        finishCalibration(*this);
    else if (calibration.phase() == SimCalibration::Phase::Failed)
        failCalibration(*this, {16, calibration.errorText()});
}

void SimMachine::restart()
{
    dropMeasurements();
    calibration.stop();
    state.newCalibration.reset();
    state.activity = SimActivity::None;
    state.errorCode = 0;
    state.errorText.clear();
    state.frameNumber = 0;
}

void SimMachine::dropMeasurements()
{
    for (SimTool &tool : room.tools)
        tool.measurement.drop();
}
