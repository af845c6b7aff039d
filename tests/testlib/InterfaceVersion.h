#pragma once

#include "BackendVersions.h"

/// The versions of a host whose controller speaks this interface; -1 as the patch: not known.
inline BackendVersions interfaceVersion(int major, int minor, int patch = -1)
{
    BackendVersions versions;
    versions.interfaceMajor = major;
    versions.interfaceMinor = minor;
    versions.interfacePatch = patch;
    return versions;
}
