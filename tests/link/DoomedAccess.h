#pragma once

#include "RecordingHost.h"

#include <cstring>
#include <functional>
#include <new>
#include <type_traits>

/// What an operation says to a host in whose first call the access goes and its memory becomes something
/// else.
template <typename Access>
QStringList callsOfDoomed(const BackendVersions &versions,
                          const std::function<void(const Access &)> &operation)
{
    static_assert(std::is_trivially_destructible_v<Access>);
    constexpr int garbage = 0x5a;
    alignas(Access) std::array<char, sizeof(Access)> place{};
    RecordingHost host;
    const Access *access = new (place.data()) Access(&host, &versions);
    host.onCall([&place](const QString &) { std::memset(place.data(), garbage, place.size()); });
    operation(*access);
    return host.calls();
}

/// What the same operation says when nothing happens to the access.
template <typename Access>
QStringList callsOfSafe(const BackendVersions &versions, const std::function<void(const Access &)> &operation)
{
    RecordingHost host;
    operation(Access(&host, &versions));
    return host.calls();
}
