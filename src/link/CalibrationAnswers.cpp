#include "CalibrationAnswers.h"

#include "AnswerWords.h"
#include "NumberReader.h"
#include "Saturated.h"

#include <cstdlib>

namespace CalibrationAnswers
{

int announcedPause(const QByteArray &value)
{
    return value.startsWith("yes") ? saturated(answerWord(value, 1).toDouble()) : 0;
}

std::optional<int> stepPause(const QByteArray &answer)
{
    if (answerWord(answer, 6) != "yes")
        return std::nullopt;
    const int seconds = answerWord(answer, 7).toInt();
    return seconds == 0 ? defaultPauseSeconds : seconds;
}

CalibrationStep step(const QByteArray &value)
{
    if (value == "cal 1")
        return CalibrationStep::First;
    if (value == "cal 2")
        return CalibrationStep::Second;
    if (value == "pause 1")
        return CalibrationStep::PauseAfterFirst;
    if (value == "err")
        return CalibrationStep::Error;
    return value == "none" ? CalibrationStep::None : CalibrationStep::Other;
}

std::optional<StepProgress> stepProgress(const QByteArray &value)
{
    char *end = nullptr;
    const long number = std::strtol(value.constData(), &end, 10);
    if (end == value.constData())
        return std::nullopt;
    return StepProgress{saturated(number), leadingReal(QByteArray(end))};
}

std::optional<double> leadingReal(const QByteArray &value)
{
    char *end = nullptr;
    const double number = NumberReader::real(value.constData(), &end);
    return end == value.constData() ? std::nullopt : std::make_optional(number);
}

QByteArray quotedText(const QByteArray &answer)
{
    const int opening = answer.indexOf('"');
    if (opening < 0)
        return {};
    const QByteArray behind = answer.mid(opening + 1);
    return behind.mid(0, behind.indexOf('"')); // all of it when nothing closes it
}

float cameraProgress(const QByteArray &answer)
{
    return NumberReader::singleReal(answerWord(answer, 5).constData(), nullptr);
}

QByteArray cameraSerial(const QByteArray &answer)
{
    return answerWord(answer, 6);
}

} // namespace CalibrationAnswers
