#pragma once

#include "TrackingAccess.h"

#include <memory>

class Requester;

/// The subscription of one requester to all measurement records that the module works with.
///
/// The host may do anything in the calls that this makes: ask for the opposite, end all subscriptions by
/// itself, or destroy the subscription together with its requester. What was asked for last is what comes to
/// be; each kind is ended exactly when it was begun, and a kind that was ended while it was being begun is
/// ended once more, since the host may have noted it only afterwards. What is asked for again in a call of
/// its own kind is begun after that call. A host that ends a kind in every one of its beginnings has it
/// ended, until the next begin() or end().
class RecordSubscription
{
public:
    /// The requester is not owned.
    RecordSubscription(const TrackingAccess &controller, Requester *requester);
    /// Ends what is subscribed. A requester that is still able to receive should have ended it before.
    ~RecordSubscription();
    RecordSubscription(const RecordSubscription &) = delete;
    RecordSubscription &operator=(const RecordSubscription &) = delete;

    void begin();
    void end();

    /// The host has ended all subscriptions by itself; none comes before the next begin().
    void forget();

private:
    struct State;
    static void settle(const std::shared_ptr<State> &state);

    std::shared_ptr<State> m_state; ///< lives until the last of the calls under way has returned
};
