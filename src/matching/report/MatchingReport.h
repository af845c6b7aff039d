#pragma once

#include "ToolSurvey.h"

#include <QCoreApplication>
#include <QString>

#include <cstddef>

struct MatchingEvaluation;

/// The sentences in which the matching dialog tells the result of an evaluation.
class MatchingReport
{
    Q_DECLARE_TR_FUNCTIONS(AbcMatchingDialog)

public:
    [[nodiscard]] static QString report(const MatchingEvaluation &evaluation);

    /// The same in pieces of some hundred lines, one after the other; one at least.
    [[nodiscard]] static int pieceCount(const MatchingEvaluation &evaluation);
    [[nodiscard]] static QString piece(const MatchingEvaluation &evaluation, int index);

    /// Why nothing can be measured; empty when something can, or when no tip is calibrated, which another
    /// line tells.
    [[nodiscard]] static QString noTool(ToolSurvey::Verdict verdict);
    [[nodiscard]] static QString noData();
    /// Empty before there is a point.
    [[nodiscard]] static QString measuredOf(int measured, int references);

    [[nodiscard]] static QString cancelled();
    [[nodiscard]] static QString searching();
    [[nodiscard]] static QString tipMoved();
    [[nodiscard]] static QString tipMoved(double variance, double standardDeviation);
    [[nodiscard]] static QString worstRow(double distance);

private:
    [[nodiscard]] static QString failure(const MatchingEvaluation &evaluation);
    [[nodiscard]] static QString pointLine(const MatchingEvaluation &evaluation, std::size_t point);
};
