#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// One line of a frame; the kind is that of the subscription, even if the line is damaged.
struct SimRecord {
    std::string kind;
    std::string line;
};

/// Damages the records of a frame on request.
class RecordFaults
{
public:
    enum class Formats { First, Second, Both };

    /// Which of the formats 6df, 6df2 and 6dmt, 6dmt2 exist.
    Formats formats = Formats::Both;

    struct Damage {
        int dropFrames = 0;                      ///< left out in that many next frames
        int repeatFrames = 0;                    ///< delivered twice in that many next frames
        std::optional<std::size_t> cutAfter;     ///< characters that are left of the line
        std::optional<std::size_t> paddedLength; ///< the line is filled up with x to this length
        bool withoutBracket = false;             ///< the first closing bracket is missing
        std::optional<int> count;                ///< stands in the place of the count
        std::optional<std::string> text;         ///< stands in the place of the whole line
    };

    Damage &of(const std::string &kind) { return m_damages[kind]; }

    /// Exchanges the two kinds' places in the next frames; at most 100 exchanges are at work at a time.
    void swap(const std::string &first, const std::string &second, int frames);

    /// Ends every damage; the formats stay.
    void clear();

    bool exists(const std::string &kind) const;

    /// The frame as it is delivered.
    std::vector<SimRecord> apply(std::vector<SimRecord> frame);

private:
    struct Swap {
        std::string first;
        std::string second;
        int frames = 0;
    };

    void applySwaps(std::vector<SimRecord> &frame);
    void deliver(SimRecord record, Damage &how, std::vector<SimRecord> &delivered);

    std::map<std::string, Damage> m_damages;
    std::vector<Swap> m_swaps;
};
