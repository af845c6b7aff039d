#pragma once

#include <cstddef>
#include <string>

/// What a single answer's text means, by rules of its own, against what the product makes of it.
namespace AnswerTexts
{

/// The n-th word, counted from 0; words are separated by single blanks.
std::string word(const std::string &text, std::size_t n);

/// A plain decimal number has its value, a word without any digit is 0 unless it names infinity or NaN.
void checkNumber(const std::string &word, double read);

/// Whatever CalibrationAnswers makes of the text; returns all of it as one text.
std::string read(const std::string &text);

} // namespace AnswerTexts
