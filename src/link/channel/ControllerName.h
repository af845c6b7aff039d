#pragma once

/// What the controller is called: in reports to the host, and as the title of what the user is told about it.
constexpr auto controllerName = "VELMAR3";
