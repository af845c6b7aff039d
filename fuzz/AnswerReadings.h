#pragma once

#include <string>
#include <vector>

class AnswerHost;
class ControllerAccess;

/// Everything of the product that reads the controller's answers, in groups that each begin with the host's
/// next answer.
///
/// A reading checks what it got against the answers, by rules of its own, and returns all of it as one text:
/// the same answers must give the same text, whatever the locale and however often they are read.
namespace AnswerReadings
{

using Reading = std::string (*)(const ControllerAccess &, AnswerHost &);

const std::vector<Reading> &all();

} // namespace AnswerReadings
