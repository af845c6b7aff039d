#pragma once

#include <algorithm>
#include <vector>

/// The entries of one record kind. New entries are blank: all numbers 0, quality -1.0, id the entry's index.
///
/// An entry is made when it is first asked for, so a line that announces more than it holds costs nothing.
/// Memory is kept when the list gets shorter: a list whose entries have once been there allocates nothing
/// more. A pointer to an entry holds until the list changes or an entry behind it is asked for.
template <typename Record>
class RecordList
{
public:
    /// No list gets longer, whatever a record says.
    static constexpr int cap = 100000;

    [[nodiscard]] int count() const { return m_count; }

    /// Null when the index is outside 0 to count() - 1.
    [[nodiscard]] const Record *at(int index) const { return contains(index) ? &made(index) : nullptr; }
    [[nodiscard]] Record *at(int index) { return contains(index) ? &made(index) : nullptr; }

    /// Sizes the list, held inside 0 to cap; entries that stay keep their values.
    void resize(long long size)
    {
        m_count = static_cast<int>(std::clamp<long long>(size, 0, cap));
        if (m_made.size() > place(m_count))
            m_made.resize(place(m_count));
    }

    /// Makes every entry blank.
    void blank() { m_made.clear(); }

private:
    [[nodiscard]] bool contains(int index) const { return index >= 0 && index < count(); }
    [[nodiscard]] static std::size_t place(int index) { return static_cast<std::size_t>(index); }

    Record &made(int index) const
    {
        while (m_made.size() <= place(index)) {
            m_made.emplace_back();
            m_made.back().id = static_cast<int>(m_made.size()) - 1;
        }
        return m_made[place(index)];
    }

    mutable std::vector<Record> m_made; ///< the first entries; all behind them are blank
    int m_count = 0;
};
