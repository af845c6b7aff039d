#include "AnswerReadings.h"

#include "AnswerHost.h"
#include "AnswerTexts.h"
#include "CalibrationRun.h"
#include "NeutralRoom.h"
#include "Requirement.h"
#include "ToolSurvey.h"
#include "TrackingControl.h"
#include "Transcript.h"

#include <algorithm>

namespace
{

using AnswerReadings::Accesses;

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

std::string readReplies(const Accesses &access, AnswerHost &host)
{
    Transcript transcript;
    using Question = Reply (*)(const Accesses &);
    for (const Question question :
         {Question([](const Accesses &a) { return a.tracking.trackingAvailable(); }),
          Question([](const Accesses &a) { return a.tracking.configurationChangeable(); }),
          Question([](const Accesses &a) { return a.measurement.toolAvailable(); })}) {
        const AnswerHost::Answer told = host.next();
        const Reply reply = question(access);
        checkReply(told, reply);
        transcript.note(reply);
    }
    require(host.reports() == 0);
    return transcript.text();
}

std::string readStates(const Accesses &access, AnswerHost &host)
{
    Transcript transcript;
    AnswerHost::Answer told = host.next();
    const Activity activity = access.calibration.activity();
    require((activity == Activity::Failed) == told.fails);
    require((activity == Activity::Measuring) == saysWhole(told, "mea"));
    require((activity == Activity::None) == saysWhole(told, "none"));
    told = host.next();
    const CameraRoom room = access.tracking.roomOfCamera(1);
    require((room == CameraRoom::None) == saysWhole(told, "none"));
    told = host.next();
    const CalibrationStep step = access.calibration.activeStep();
    require((step == CalibrationStep::PauseAfterFirst) == saysWhole(told, "pause 1"));
    require((step == CalibrationStep::Failed) == told.fails);
    told = host.next();
    const QByteArray target = access.measurement.referenceTarget();
    require(target == (told.fails || told.text == "none" ? "" : told.text.c_str()));
    transcript.note(activity).note(room).note(step).note(target).note(access.tracking.coordinateType());
    return transcript.text();
}

std::string readCounts(const Accesses &access, AnswerHost &host)
{
    Transcript transcript;
    using Question = std::optional<int> (*)(const Accesses &);
    for (const Question question :
         {Question([](const Accesses &a) { return a.tracking.numberOfCameras(); }),
          Question([](const Accesses &a) { return a.calibration.numberOfCameras(); })}) {
        const AnswerHost::Answer told = host.next();
        const std::optional<int> count = question(access);
        require(count.has_value() != told.fails);
        require(!count || (*count >= 0 && *count <= mostAsked));
        transcript.note(count.value_or(-1));
    }
    const bool fails = host.next().fails;
    const int tools = access.measurement.numberOfTools();
    require(!fails || tools == 0);
    const bool failsAgain = host.next().fails;
    const int steps = access.calibration.steps("room");
    require(!failsAgain || steps == 1);
    return transcript.note(tools).note(steps).text();
}

std::string readCameras(const Accesses &access, AnswerHost &host)
{
    Transcript transcript;
    for (int camera = 1; camera <= 3; ++camera) {
        const AnswerHost::Answer told = host.next();
        const std::array<double, 3> position = access.tracking.positionOfCamera(camera);
        for (std::size_t i = 0; i < position.size(); ++i) {
            AnswerTexts::checkNumber(told.fails ? std::string() : AnswerTexts::word(told.text, i),
                                     position[i]);
            transcript.note(position[i]);
        }
        transcript.note(access.tracking.cameraHasRoom(camera)).note(access.calibration.cameraSerial(camera));
        transcript.note(access.calibration.cameraProgress(camera));
    }
    return transcript.text();
}

/// Each of the three is neutral, or holds what the words say.
std::string readRoomAdjustment(const Accesses &access, AnswerHost &host)
{
    const AnswerHost::Answer rotationTold = host.next();
    const RoomTrafoData data = access.tracking.roomAdjustment();
    if (rotationTold.fails)
        require(data.rotation == RoomTrafoData().rotation);
    if (data.rotation != RoomTrafoData().rotation) {
        for (std::size_t i = 0; i < data.rotation.size(); ++i)
            AnswerTexts::checkNumber(AnswerTexts::word(rotationTold.text, i), data.rotation[i]);
    }
    require(host.calls() == 3 && host.reports() == 0);
    return Transcript().note(data).text();
}

std::string readNumbers(const Accesses &access, AnswerHost &host)
{
    Transcript transcript;
    const auto take = [&](double fallback, double (*ask)(const Accesses &)) {
        const bool fails = host.next().fails;
        const double value = ask(access);
        require(!fails || value == fallback);
        transcript.note(value);
    };
    take(1.0, [](const Accesses &a) { return a.measurement.duration(1); });
    take(1.5, [](const Accesses &a) { return a.measurement.tipTolerance(1); });
    take(-1.0, [](const Accesses &a) { return a.measurement.extraScaling().value_or(-1.0); });
    take(-1.0, [](const Accesses &a) { return a.calibration.progress().value_or(-1.0); });
    return transcript.text();
}

/// The duration is the third of the five calls.
std::string setUpAngleTool(const Accesses &access, AnswerHost &host)
{
    const double seconds = access.calibration.setUpAngleTool(AngleToolSetup());
    require(host.calls() == 5);
    access.calibration.abandonAngleTool(seconds);
    return Transcript().note(seconds).text();
}

std::string readAngleTool(const Accesses &access, AnswerHost &)
{
    Transcript transcript;
    const AngleToolSettings settings = access.calibration.angleToolSettings();
    require(settings.coordinateTypes.size() <= mostAsked);
    for (const OfferedCoordinateType &type : settings.coordinateTypes) {
        require(type.identifier != "mid_camera" && type.identifier != "first_camera");
        transcript.note(type.identifier).note(type.description);
    }
    for (const double distance : settings.distances.value_or(std::array<double, 3>{}))
        transcript.note(distance);
    return transcript.note(settings.height.value_or(-1.0)).note(settings.coordinateType).text();
}

std::string readTools(const Accesses &access, AnswerHost &)
{
    Transcript transcript;
    const ToolSurvey survey = surveyTools(access.measurement);
    require(survey.toolCount >= 0 && survey.toolCount <= mostAsked);
    require(std::is_sorted(survey.calibrated.begin(), survey.calibrated.end()));
    for (const int tool : survey.calibrated) {
        require(tool >= 1 && tool <= survey.toolCount);
        transcript.note(tool);
    }
    return transcript.note(survey.verdict).note(survey.toolCount).text();
}

std::string followCalibration(const CalibrationAccess &access, bool pausesBetweenSteps)
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

std::string followPlainCalibration(const Accesses &access, AnswerHost &)
{
    return followCalibration(access.calibration, false);
}

std::string followCalibrationWithPauses(const Accesses &access, AnswerHost &)
{
    return followCalibration(access.calibration, true);
}

/// Tracking that is stopped and started as the dialog does it.
class Tracking final : public TrackingControl
{
public:
    explicit Tracking(const TrackingAccess &access)
        : m_access(access)
    {
    }
    virtual ~Tracking() = default;
    void stopTracking() override { m_access.stopTrackingIfMeasuring(); }
    void startTracking() override { m_access.startTracking(); }

private:
    const TrackingAccess &m_access;
};

/// Nothing half-read is ever written.
std::string keepNeutralRoom(const Accesses &access, AnswerHost &host)
{
    Tracking tracking(access.tracking);
    NeutralRoom neutral(access.measurement, &tracking);
    const bool fails = host.next().fails;
    neutral.prepareTransformation();
    require(!fails || host.written().empty());
    neutral.prepareReference();
    neutral.restoreReference();
    neutral.restoreTransformation();
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
                                                  setUpAngleTool,
                                                  readAngleTool,
                                                  readTools,
                                                  followPlainCalibration,
                                                  followCalibrationWithPauses,
                                                  keepNeutralRoom};
    return readings;
}

} // namespace AnswerReadings
