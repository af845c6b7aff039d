#pragma once

#include "FitSketch.h"
#include "MatchingEvaluation.h"

#include <QWidget>

/// Draws a matching: the reference points as crosses with their numbers, the mapped measured points as discs,
/// and the errors between them enlarged. The worst point has a ring and its distance. Readable on light and
/// dark palettes, and without colours.
class FitPicture : public QWidget
{
    Q_OBJECT

public:
    explicit FitPicture(QWidget *parent = nullptr);

    /// Shows a matching that succeeded; `worstPair` is the index of the reference point to be set off, or -1.
    void show(const MatchingPoints &references, const MatchingEvaluation &evaluation, int worstPair);

    void setView(FitSketch::Along along);
    [[nodiscard]] FitSketch::Along view() const { return m_along; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintPair(QPainter &painter, const FitSketch::Pair &pair, std::size_t index) const;
    void paintWorst(QPainter &painter, const FitSketch::Pair &pair) const;
    void paintLegend(QPainter &painter, double enlargement) const;
    void paintAxes(QPainter &painter) const;

    MatchingPoints m_references;
    MatchingEvaluation m_evaluation;
    int m_worstPair = -1;
    FitSketch::Along m_along = FitSketch::Along::Z;
};
