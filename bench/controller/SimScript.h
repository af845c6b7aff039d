#pragma once

#include "SimRequest.h"

#include <string>

class SimController;

/// The control lines: they change the room, the controller, its clock and its records, as the hands and the
/// feet of a person would. Every line begins with "sim ".
///
/// Answers: "sim ok", for a question "sim get <question> <value>", else `sim err "<reason>"`. Any text is a
/// safe line. Words are separated by blanks; a text with blanks stands in double quotes. docs/protocol.md
/// lists them.
class SimScript
{
public:
    /// The controller must outlive the script.
    explicit SimScript(SimController &controller);

    std::string run(const std::string &line);

    static bool isControlLine(const std::string &line);

private:
    SimController &m_controller;
    SimRequestTable m_controls;
};
