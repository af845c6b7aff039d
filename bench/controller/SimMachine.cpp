#include "SimMachine.h"

#include "RoomCalibrationResult.h"
#include "SimReply.h"

void SimMachine::advance(double seconds)
{
    state.seconds += seconds;
    room.move(seconds);
    calibration.advance(seconds);
    if (calibration.phase() == SimCalibration::Phase::Finished)
        finishCalibration();
    else if (calibration.phase() == SimCalibration::Phase::Failed)
        failCalibration(SimReply::calibrationFailed(calibration.errorText()));
}

/// The end of the after-work: the room calibration checks the angle tool and offers its result; other kinds
/// just end.
void SimMachine::finishCalibration()
{
    calibration.conclude();
    state.activity = SimActivity::None;
    if (calibration.kind() != "room")
        return;
    if (const std::optional<SimReply> error = calibrationFault(room, state.roomCalibration))
        failCalibration(*error);
    else
        state.newCalibration = SimNewCalibration{baseFromAngleTool(room, state.startedCoordinateType),
                                                 state.startedCoordinateType};
}

void SimMachine::failCalibration(const SimReply &error)
{
    calibration.conclude();
    state.activity = SimActivity::Error;
    state.errorCode = error.code;
    state.errorText = error.text;
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
