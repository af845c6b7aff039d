#pragma once

#include <QLatin1String>

struct BackendVersions;

/// Whether the host's record names its backend exactly so; no record names none.
///
/// A host's record may end behind its six numbers. What then stands in the place of the name is anything, or
/// no memory at all, so the name is read by way of the kernel, which refuses where the program would crash.
/// What is not this name, or cannot be read, is another name. Where the system refuses that way, or has none,
/// the name is read directly.
[[nodiscard]] bool isBackendNamed(const BackendVersions *versions, QLatin1String name);
