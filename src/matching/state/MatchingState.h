#pragma once

#include "ToolSurvey.h"

/// What the matching dialog knows and does, and what that leaves to its user. No widget takes part.
///
/// The operations tell what happened; controls() is the one place that says what is enabled.
class MatchingState
{
public:
    /// What the two lists hold.
    struct Rows {
        int references = 0;
        int measured = 0;
        bool measuredIsSelected = false;
    };

    /// What the user can use. Cancel can always be used and the notices always be read; they are not among
    /// them.
    struct Controls {
        bool others = false; ///< everything that has no rule of its own
        bool lists = false;  ///< what changes a list or the order
        bool save = false;
        bool replace = false;
        bool clear = false;
        bool measure = false;
        bool progress = false;
        bool apply = false;
    };

    [[nodiscard]] Controls controls(const Rows &rows) const;

    /// The controller is asked for its tools. Nothing is known of them, and nothing is measured.
    void beginOpening();
    void opened(const ToolSurvey &survey);
    void closed();

    /// Open, with controls that can be used.
    [[nodiscard]] bool isOpen() const { return m_open && m_usable; }
    [[nodiscard]] ToolSurvey::Verdict verdict() const { return m_verdict; }
    [[nodiscard]] int toolCount() const { return m_toolCount; }
    /// At least one tool has a calibrated tip.
    [[nodiscard]] bool isToolReady() const { return m_toolReady; }

    [[nodiscard]] bool takesRecords() const { return isOpen() && !m_searching; }
    [[nodiscard]] bool canStart() const { return !m_starting && !m_searching; }
    /// The calls that start a measurement begin, and are over.
    void beginStart();
    void started() { m_starting = false; }
    /// Seconds since the first sample of a measurement; 0 when none goes on.
    void measured(double elapsed) { m_measuring = elapsed > 0.0; }
    /// The tracking state was looked at, as it is from time to time. "Measure" follows it only then.
    void looked(bool tracked);

    /// The lists are matched anew; a search may go on after that.
    void beginEvaluation();
    void searchGoesOn() { m_searching = true; }
    void evaluated(bool valid);
    [[nodiscard]] bool isSearching() const { return m_searching; }

private:
    bool m_open = false;
    ToolSurvey::Verdict m_verdict = ToolSurvey::Verdict::Ready;
    int m_toolCount = 0;
    bool m_toolReady = false;
    bool m_usable = true; ///< outlasts a closing
    bool m_starting = false;
    bool m_measuring = false;
    bool m_searching = false;
    bool m_valid = false;          ///< the last evaluation succeeded
    bool m_measureOffered = false; ///< as the tracking state last had it
};
