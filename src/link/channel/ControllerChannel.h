#pragma once

#include "ControllerVersion.h"

class ControllerCall;
class IOManager;
struct BackendVersions;

/// The host's way to the controller, and the version of what answers there; for the sources of the accesses
/// alone.
///
/// The host may destroy an access in any call that it makes. So every call is made on the stack, and an
/// operation that goes on after its first call works with a copy of the channel. Neither pointer is owned;
/// both may be null.
class ControllerChannel
{
public:
    ControllerChannel(IOManager *commands, const BackendVersions *versions);

    [[nodiscard]] bool supports(ControllerFeature feature) const;
    [[nodiscard]] IOManager *commands() const { return m_commands; }

    /// A call whose failure nobody hears of.
    [[nodiscard]] ControllerCall silently() const;
    /// A call whose failure the host is told in these words.
    [[nodiscard]] ControllerCall reporting(const char *failure) const;
    /// Tells the host something for its log.
    void note(const char *message) const;

private:
    IOManager *m_commands;
    const BackendVersions *m_versions;
};
