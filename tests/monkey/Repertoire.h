#pragma once

#include <QByteArray>
#include <Qt>

#include <random>

/// A key with what is held down beside it.
struct Stroke {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

/// What there is to choose from, and the chance that chooses.
class Repertoire
{
public:
    explicit Repertoire(unsigned seed)
        : m_random(seed)
    {
    }

    /// From 0 to below the count.
    int upTo(int count);

    Stroke stroke();
    Qt::KeyboardModifiers modifiers();
    Qt::MouseButton button();

    /// A line for the simulated controller: its tool, its state, or what becomes of one of the next calls.
    QByteArray controlLine();

private:
    template <typename Thing, std::size_t count>
    Thing oneOf(const Thing (&things)[count])
    {
        return things[upTo(static_cast<int>(count))];
    }
    QByteArray fault();

    std::mt19937 m_random;
};
