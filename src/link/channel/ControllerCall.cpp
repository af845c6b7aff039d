#include "ControllerCall.h"

#include "ControllerName.h"

bool ControllerCall::reported(bool done) const
{
    if (!done && m_failure != nullptr)
        report(m_commands, m_failure);
    return done;
}

void ControllerCall::report(IOManager *commands, const char *message)
{
    constexpr auto category = "standard";
    constexpr int level = 1;
    if (commands != nullptr)
        commands->reportError(category, controllerName, level, message);
}
