#pragma once

#include <algorithm>
#include <vector>

/// The entries of one record kind. New entries are blank: all numbers 0, quality -1.0, id the entry's index.
/// Memory is kept when the list gets shorter, so a list that has once had its size allocates nothing more.
template <typename Record>
class RecordList
{
public:
    /// No list gets longer, whatever a record says.
    static constexpr int cap = 100000;

    [[nodiscard]] int count() const { return static_cast<int>(m_records.size()); }

    /// Null when the index is outside 0 to count() - 1.
    [[nodiscard]] const Record *at(int index) const
    {
        return contains(index) ? &m_records[place(index)] : nullptr;
    }
    [[nodiscard]] Record *at(int index) { return contains(index) ? &m_records[place(index)] : nullptr; }

    /// Sizes the list, held inside 0 to cap; entries that stay keep their values.
    void resize(long long size)
    {
        const int old = count();
        m_records.resize(static_cast<std::size_t>(std::clamp<long long>(size, 0, cap)));
        for (int index = old; index < count(); ++index)
            m_records[place(index)].id = index;
    }

    /// Makes every entry blank.
    void blank()
    {
        for (int index = 0; index < count(); ++index) {
            m_records[place(index)] = Record();
            m_records[place(index)].id = index;
        }
    }

private:
    [[nodiscard]] bool contains(int index) const { return index >= 0 && index < count(); }
    [[nodiscard]] static std::size_t place(int index) { return static_cast<std::size_t>(index); }

    std::vector<Record> m_records;
};
