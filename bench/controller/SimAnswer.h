#pragma once

#include <string>

struct SimReply;

/// The words of the lines that a controller answers with, and of those that a control line is answered with.
namespace SimAnswer
{

constexpr const char *ok = "velmar2 ok";    ///< a request was carried out
constexpr const char *controlOk = "sim ok"; ///< a control line was carried out

/// velmar2 err <code> "<text>"
std::string error(int code, const std::string &text);
std::string error(const SimReply &refusal);

/// sim err "<reason>"
std::string controlError(const std::string &reason);

bool isError(const std::string &answer);
bool isControlError(const std::string &answer);

/// The reason of a control line's refusal, in its quotes.
std::string controlReason(const std::string &answer);

} // namespace SimAnswer
