#include "RecordSubscription.h"

#include <array>
#include <cstddef>

namespace
{

constexpr std::size_t kindCount = TrackingAccess::recordKindCount;
/// How often a kind is begun before it is left alone, when the host ends it whenever it begins.
constexpr int mostBeginnings = 4;

} // namespace

struct RecordSubscription::State {
    void settle();
    bool isDue(std::size_t kind) const;
    void subscribe(std::size_t kind);
    void unsubscribe(std::size_t kind);

    TrackingAccess controller;
    Requester *requester;
    std::array<bool, kindCount> isSubscribed{};
    std::array<unsigned, kindCount> endings{};
    std::array<int, kindCount> callsUnderWay{};
    std::array<int, kindCount> beginnings{};
    int settling = 0;
    bool isWanted = false;
};

/// Each round looks anew at what is left to do: the call of the round before may have done some of it.
void RecordSubscription::State::settle()
{
    if (settling++ == 0)
        beginnings.fill(0);
    for (std::size_t kind = 0; kind < kindCount;) {
        if (!isDue(kind)) {
            ++kind;
            continue;
        }
        if (isWanted)
            subscribe(kind);
        else
            unsubscribe(kind);
        kind = 0;
    }
    --settling;
}

/// A kind of which a call is under way is begun only after that one, so that no host can hold it twice, nor
/// sink into calls of its own. It is ended at once: its requester may be about to go.
bool RecordSubscription::State::isDue(std::size_t kind) const
{
    if (!isWanted)
        return isSubscribed[kind];
    return !isSubscribed[kind] && callsUnderWay[kind] == 0 && beginnings[kind] < mostBeginnings;
}

/// Ends what was ended in the call itself: a host that notes the kind only when the call returns holds it
/// still.
void RecordSubscription::State::subscribe(std::size_t kind)
{
    const unsigned before = endings[kind];
    isSubscribed[kind] = true;
    ++beginnings[kind];
    ++callsUnderWay[kind];
    controller.subscribe(kind, requester);
    if (endings[kind] != before)
        unsubscribe(kind);
    --callsUnderWay[kind];
}

void RecordSubscription::State::unsubscribe(std::size_t kind)
{
    ++endings[kind];
    isSubscribed[kind] = false;
    ++callsUnderWay[kind];
    controller.unsubscribe(kind, requester);
    --callsUnderWay[kind];
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

void RecordSubscription::settle(const std::shared_ptr<State> &state)
{
    // Whoever holds the state may be destroyed by a call.
    const std::shared_ptr<State> kept = state; // NOLINT(performance-unnecessary-copy-initialization)
    kept->settle();
}
