#include "RecordSubscription.h"

#include <algorithm>
#include <array>

struct RecordSubscription::State {
    TrackingAccess controller;
    Requester *requester;
    std::array<bool, TrackingAccess::recordKindCount> isSubscribed{};
    bool isWanted = false;
};

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
}

// Each round looks anew at what is left to do: the call of the round before may have done some of it.
void RecordSubscription::settle(const std::shared_ptr<State> &state)
{
    // Whoever holds the state may be destroyed by a call.
    const std::shared_ptr<State> kept = state; // NOLINT(performance-unnecessary-copy-initialization)
    auto &kinds = kept->isSubscribed;
    for (;;) {
        auto *const kind = std::find(kinds.begin(), kinds.end(), !kept->isWanted);
        if (kind == kinds.end())
            return;
        const auto number = std::size_t(kind - kinds.begin());
        *kind = kept->isWanted;
        if (*kind)
            kept->controller.subscribe(number, kept->requester);
        if (!*kind)
            kept->controller.unsubscribe(number, kept->requester);
    }
}
