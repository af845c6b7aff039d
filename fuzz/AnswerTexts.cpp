#include "AnswerTexts.h"

#include "AnswerWords.h"
#include "CalibrationAnswers.h"
#include "Percentage.h"
#include "Requirement.h"
#include "Transcript.h"

#include <QByteArray>

#include <algorithm>
#include <charconv>

namespace
{

constexpr std::size_t surelyExact = 15; ///< digits
constexpr std::size_t shorterThanAnyInt = 9;

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

/// Digits, or digits, a point and digits.
bool isPlain(const std::string &word)
{
    const auto point = std::find(word.begin(), word.end(), '.');
    const auto rest = point == word.end() ? point : point + 1;
    const bool hasDigits = point != word.begin() && (point == word.end() || rest != word.end());
    return word.size() <= surelyExact && hasDigits && std::all_of(word.begin(), point, isDigit) &&
           std::all_of(rest, word.end(), isDigit);
}

bool mayBeNamed(const std::string &word)
{
    return word.find_first_of("nNiI") != std::string::npos;
}

void checkStepPause(const std::string &text, const std::optional<int> &seconds)
{
    require(seconds.has_value() == (AnswerTexts::word(text, 6) == "yes"));
    require(!seconds || *seconds != 0);
}

void checkQuoted(const std::string &text, const QByteArray &quoted)
{
    require(!quoted.contains('"'));
    require(quoted.isEmpty() || text.find('"' + quoted.toStdString()) != std::string::npos);
}

template <typename Real>
void check(const std::string &word, Real read)
{
    if (isPlain(word)) {
        Real expected = 0;
        std::from_chars(word.data(), word.data() + word.size(), expected);
        require(read == expected);
    } else if (std::none_of(word.begin(), word.end(), isDigit) && !mayBeNamed(word)) {
        require(read == 0);
    }
}

void checkPause(const std::string &text, int seconds)
{
    require(text.rfind("yes", 0) == 0 || seconds == 0);
    const std::string second = AnswerTexts::word(text, 1);
    if (text.rfind("yes ", 0) == 0 && second.size() < shorterThanAnyInt && isPlain(second))
        check(second.substr(0, second.find('.')), seconds);
}

} // namespace

namespace AnswerTexts
{

std::string word(const std::string &text, std::size_t n)
{
    std::size_t begin = 0;
    for (; n > 0 && begin != std::string::npos; --n) {
        const std::size_t blank = text.find(' ', begin);
        begin = blank == std::string::npos ? blank : blank + 1;
    }
    return begin == std::string::npos ? std::string() : text.substr(begin, text.find(' ', begin) - begin);
}

void checkNumber(const std::string &word, double read)
{
    check(word, read);
}

std::string read(const std::string &text)
{
    const QByteArray answer = QByteArray::fromStdString(text);
    Transcript transcript;
    for (int n = 0; n < 8; ++n)
        require(answerWord(answer, n).toStdString() == word(text, std::size_t(n)));
    const int pause = CalibrationAnswers::announcedPause(answer);
    checkPause(text, pause);
    const std::optional<int> stepPause = CalibrationAnswers::stepPause(answer);
    checkStepPause(text, stepPause);
    const QByteArray quoted = CalibrationAnswers::quotedText(answer);
    checkQuoted(text, quoted);
    const float camera = CalibrationAnswers::cameraProgress(answer);
    check(word(text, 5), camera);
    transcript.note(pause).note(stepPause.value_or(-1)).note(CalibrationAnswers::step(answer)).note(quoted);
    transcript.note(camera).note(Percentage::ofCamera(camera)).note(CalibrationAnswers::cameraSerial(answer));
    const std::optional<StepProgress> step = CalibrationAnswers::stepProgress(answer);
    transcript.note(step ? step->step : -1).note(step ? step->fraction.value_or(-1.0) : -1.0);
    const double leading = CalibrationAnswers::leadingReal(answer).value_or(-1.0);
    transcript.note(leading).note(Percentage::floored(leading)).note(Percentage::truncated(leading));
    return transcript.text();
}

} // namespace AnswerTexts
