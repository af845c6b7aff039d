#include "RecordSubscription.h"

#include <algorithm>
#include <array>

struct RecordSubscription::State {
    void subscribe(std::size_t kind);
    void unsubscribe(std::size_t kind);

    TrackingAccess controller;
    Requester *requester;
    std::array<bool, TrackingAccess::recordKindCount> isSubscribed{};
    std::array<unsigned, TrackingAccess::recordKindCount> endings{};
    bool isWanted = false;
};

/// Ends what was ended in the call itself, and with it what was begun in it again: a host that notes the kind
/// only when the call returns holds it as often as it was begun.
void RecordSubscription::State::subscribe(std::size_t kind)
{
    const unsigned before = endings[kind];
    isSubscribed[kind] = true;
    controller.subscribe(kind, requester);
    if (endings[kind] == before)
        return;
    for (int owed = isSubscribed[kind] ? 2 : 1; owed > 0; --owed) {
        unsubscribe(kind);
        owed += isSubscribed[kind] ? 1 : 0;
    }
}

void RecordSubscription::State::unsubscribe(std::size_t kind)
{
    ++endings[kind];
    isSubscribed[kind] = false;
    controller.unsubscribe(kind, requester);
}

RecordSubscription::RecordSubscription(const TrackingAccess &controller, Requester *requester)
    : m_state(std::make_shared<State>(State{controller, requester}))
{
}

RecordSubscription::~RecordSubscription()
{
    end();
}

void RecordSubscription::begin()
{
    m_state->isWanted = true;
    settle(m_state);
}

void RecordSubscription::end()
{
    m_state->isWanted = false;
    settle(m_state);
}

void RecordSubscription::forget()
{
    m_state->isWanted = false;
    m_state->isSubscribed.fill(false);
    for (unsigned &count : m_state->endings)
        ++count;
}

// Each round looks anew at what is left to do: the call of the round before may have done some of it.
void RecordSubscription::settle(const std::shared_ptr<State> &state)
{
    // Whoever holds the state may be destroyed by a call.
    const std::shared_ptr<State> kept = state; // NOLINT(performance-unnecessary-copy-initialization)
    const auto &kinds = kept->isSubscribed;
    for (;;) {
        const auto *const kind = std::find(kinds.begin(), kinds.end(), !kept->isWanted);
        if (kind == kinds.end())
            return;
        const auto number = std::size_t(kind - kinds.begin());
        if (kept->isWanted)
            kept->subscribe(number);
        else
            kept->unsubscribe(number);
    }
}
