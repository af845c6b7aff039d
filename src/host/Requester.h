#pragma once

/// A receiver of measurement data. The host calls it on the GUI thread.
///
/// Binary contract: the order of the virtual operations is fixed, and no destructor takes a place among them.
class Requester
{
public:
    /// One measurement record of a subscribed kind.
    ///
    /// `kind` is the kind exactly as it was subscribed, `record` the whole line, which begins with its kind;
    /// both are NUL-terminated and belong to the host. The result is for the host's information only.
    virtual int dataReceived(const char *kind, const char *record) = 0;

    /// A notice without content.
    virtual void requesterNotice() = 0;

protected:
    ~Requester() = default;
};
