#include "AnswerReadings.h"

#include "AnswerHost.h"
#include "AnswerTexts.h"
#include "CalibrationRun.h"
#include "ControllerAccess.h"
#include "MeasuringFrame.h"
#include "Requirement.h"
#include "ToolSurvey.h"
#include "TrackingControl.h"
#include "Transcript.h"

#include <algorithm>

namespace
{

constexpr int mostAsked = 1000;

bool saysWhole(const AnswerHost::Answer &told, const char *text)
{
    return !told.fails && told.text == text;
}

void checkReply(const AnswerHost::Answer &told, Reply reply)
{
    require((reply == Reply::Failed) == told.fails);
    require((reply == Reply::Yes) == saysWhole(told, "yes"));
    require((reply == Reply::No) == saysWhole(told, "no"));
}

std::string readReplies(const ControllerAccess &access, AnswerHost &host)
{
    Transcript transcript;
    using Question = Reply (ControllerAccess::*)() const;
    for (const Question question :
         {&ControllerAccess::trackingAvailable, &ControllerAccess::configurationChangeable,
          &ControllerAccess::measurementToolAvailable}) {
        const AnswerHost::Answer told = host.next();
        const Reply reply = (access.*question)();
        checkReply(told, reply);
        transcript.note(reply);
    }
    require(host.reports() == 0);
    return transcript.text();
}

std::string readStates(const ControllerAccess &access, AnswerHost &host)
{
    Transcript transcript;
    AnswerHost::Answer told = host.next();
    const Activity activity = access.activity();
    require((activity == Activity::Failed) == told.fails);
    require((activity == Activity::Measuring) == saysWhole(told, "mea"));
    require((activity == Activity::None) == saysWhole(told, "none"));
    told = host.next();
    const CameraRoom room = access.roomOfCamera(1);
    require((room == CameraRoom::None) == saysWhole(told, "none"));
    told = host.next();
    const CalibrationStep step = access.activeStep();
    require((step == CalibrationStep::PauseAfterFirst) == saysWhole(told, "pause 1"));
    require((step == CalibrationStep::Failed) == told.fails);
    told = host.next();
    const QByteArray target = access.referenceTarget();
    require(target == (told.fails || told.text == "none" ? "" : told.text.c_str()));
    transcript.note(activity).note(room).note(step).note(target).note(access.coordinateType());
    return transcript.text();
}

std::string readCounts(const ControllerAccess &access, AnswerHost &host)
{
    Transcript transcript;
    for (const auto question :
         {&ControllerAccess::numberOfCameras, &ControllerAccess::numberOfCamerasToCalibrate}) {
        const AnswerHost::Answer told = host.next();
        const std::optional<int> count = (access.*question)();
        require(count.has_value() != told.fails);
        require(!count || (*count >= 0 && *count <= mostAsked));
        transcript.note(count.value_or(-1));
    }
    const bool fails = host.next().fails;
    const int tools = access.numberOfMeasurementTools();
    require(!fails || tools == 0);
    const bool failsAgain = host.next().fails;
    const int steps = access.calibrationSteps("room");
    require(!failsAgain || steps == 1);
    return transcript.note(tools).note(steps).text();
}

std::string readCameras(const ControllerAccess &access, AnswerHost &host)
{
    Transcript transcript;
    for (int camera = 1; camera <= 3; ++camera) {
        const AnswerHost::Answer told = host.next();
        const std::array<double, 3> position = access.positionOfCamera(camera);
        for (std::size_t i = 0; i < position.size(); ++i) {
            AnswerTexts::checkNumber(told.fails ? std::string() : AnswerTexts::word(told.text, i),
                                     position[i]);
            transcript.note(position[i]);
        }
        transcript.note(access.cameraHasRoom(camera)).note(access.cameraSerial(camera));
        transcript.note(access.cameraProgress(camera));
    }
    return transcript.text();
}

/// Each of the three is neutral, or holds what the words say.
std::string readRoomAdjustment(const ControllerAccess &access, AnswerHost &host)
{
    const AnswerHost::Answer rotationTold = host.next();
    const RoomTrafoData data = access.roomAdjustment();
    if (rotationTold.fails)
        require(data.rotation == RoomTrafoData().rotation);
    if (data.rotation != RoomTrafoData().rotation) {
        for (std::size_t i = 0; i < data.rotation.size(); ++i)
            AnswerTexts::checkNumber(AnswerTexts::word(rotationTold.text, i), data.rotation[i]);
    }
    require(host.calls() == 3 && host.reports() == 0);
    return Transcript().note(data).text();
}

std::string readNumbers(const ControllerAccess &access, AnswerHost &host)
{
    Transcript transcript;
    const auto take = [&](double fallback, double (*ask)(const ControllerAccess &)) {
        const bool fails = host.next().fails;
        const double value = ask(access);
        require(!fails || value == fallback);
        transcript.note(value);
    };
    take(1.0, [](const ControllerAccess &a) { return a.measurementDuration(1); });
    take(1.5, [](const ControllerAccess &a) { return a.tipTolerance(1); });
    take(30.0, [](const ControllerAccess &a) { return a.roomCalibrationDuration(); });
    take(-1.0, [](const ControllerAccess &a) { return a.extraScaling().value_or(-1.0); });
    take(-1.0, [](const ControllerAccess &a) { return a.angleToolHeight().value_or(-1.0); });
    take(-1.0, [](const ControllerAccess &a) { return a.calibrationProgress().value_or(-1.0); });
    const bool fails = host.next().fails;
    const auto distances = access.angleToolDistances();
    require(!fails || !distances);
    for (const double distance : distances.value_or(std::array<double, 3>{}))
        transcript.note(distance);
    return transcript.text();
}

std::string readCoordinateTypes(const ControllerAccess &access, AnswerHost &host)
{
    Transcript transcript;
    const std::vector<OfferedCoordinateType> types = access.coordinateTypesForAngleTool();
    require(types.size() <= mostAsked);
    for (const OfferedCoordinateType &type : types) {
        require(type.identifier != "mid_camera" && type.identifier != "first_camera");
        transcript.note(type.identifier).note(type.description);
    }
    const AnswerHost::Answer told = host.next();
    const QByteArray chosen = access.chosenCoordinateType();
    require(chosen == (told.fails ? "normal" : told.text.c_str()));
    return transcript.note(chosen).text();
}

std::string readTools(const ControllerAccess &access, AnswerHost &)
{
    Transcript transcript;
    const ToolSurvey survey = surveyTools(access);
    require(survey.toolCount >= 0 && survey.toolCount <= mostAsked);
    require(std::is_sorted(survey.calibrated.begin(), survey.calibrated.end()));
    for (const int tool : survey.calibrated) {
        require(tool >= 1 && tool <= survey.toolCount);
        transcript.note(tool);
    }
    return transcript.note(survey.verdict).note(survey.toolCount).text();
}

std::string followCalibration(const ControllerAccess &access, bool pausesBetweenSteps)
{
    constexpr int polls = 4;
    Transcript transcript;
    CalibrationRun run(access, pausesBetweenSteps);
    run.prepare("room");
    transcript.note(run.description()).note(run.steps()).note(run.pauseSeconds());
    if (!run.begin())
        return transcript.text();
    for (int i = 0; i < polls; ++i) {
        const CalibrationPoll poll = run.poll();
        const bool isRunning = poll.state == CalibrationPoll::State::Running;
        require(isRunning || (!poll.overallPercent && !poll.remainingSeconds && !poll.firstStepIsComplete));
        const bool isOver =
            poll.state == CalibrationPoll::State::Done || poll.state == CalibrationPoll::State::Failed;
        require(run.isInUse() && !(isOver && run.isGoingOn()));
        transcript.note(poll.state).note(poll.overallPercent.value_or(-1));
        transcript.note(poll.remainingSeconds.value_or(-1)).note(poll.firstStepIsComplete);
        if (isOver)
            break;
        run.resume();
    }
    transcript.note(run.fetchError());
    run.end();
    require(!run.isInUse());
    return transcript.text();
}

std::string followPlainCalibration(const ControllerAccess &access, AnswerHost &)
{
    return followCalibration(access, false);
}

std::string followCalibrationWithPauses(const ControllerAccess &access, AnswerHost &)
{
    return followCalibration(access, true);
}

/// Tracking that is stopped and started as the dialog does it.
class Tracking final : public TrackingControl
{
public:
    explicit Tracking(const ControllerAccess &access)
        : m_access(access)
    {
    }
    void stopTracking() override { m_access.stopTrackingIfMeasuring(); }
    void startTracking() override { (void)m_access.startTracking(); }

private:
    const ControllerAccess &m_access;
};

/// Nothing half-read is ever written.
std::string keepMeasuringFrame(const ControllerAccess &access, AnswerHost &host)
{
    Tracking tracking(access);
    MeasuringFrame frame(access, &tracking);
    const bool fails = host.next().fails;
    frame.prepareTransformation();
    require(!fails || host.written().empty());
    frame.prepareReference();
    frame.restoreReference();
    frame.restoreTransformation();
    Transcript transcript;
    for (const std::string &line : host.written())
        transcript.note(QByteArray::fromStdString(line));
    return transcript.text();
}

} // namespace

namespace AnswerReadings
{

const std::vector<Reading> &all()
{
    static const std::vector<Reading> readings = {readReplies,
                                                  readStates,
                                                  readCounts,
                                                  readCameras,
                                                  readRoomAdjustment,
                                                  readNumbers,
                                                  readCoordinateTypes,
                                                  readTools,
                                                  followPlainCalibration,
                                                  followCalibrationWithPauses,
                                                  keepMeasuringFrame};
    return readings;
}

} // namespace AnswerReadings
