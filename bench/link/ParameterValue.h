#pragma once

#include <optional>
#include <string>
#include <vector>

/// Reading of a parameter's text as the value that a typed read asks for.
namespace ParameterValue
{

/// yes, true, 1 and no, false, 0.
std::optional<bool> truth(const std::string &word);

/// The first `count` numbers of a text that has at least so many, separated by single blanks.
std::optional<std::vector<double>> reals(const std::string &text, int count);

} // namespace ParameterValue
