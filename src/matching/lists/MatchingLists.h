#pragma once

#include "MatchingPoint.h"
#include "PointTable.h"

/// The two lists of points that are matched, each with its table: row i always shows point i.
///
/// Every change made here is silent. Units: millimetres.
class MatchingLists
{
public:
    /// The tables must outlive this.
    MatchingLists(QTableWidget *references, QTableWidget *measured);

    [[nodiscard]] const MatchingPoints &references() const { return m_references; }
    [[nodiscard]] const MatchingPoints &measured() const { return m_measured; }
    [[nodiscard]] PointTable &referenceTable() { return m_referenceTable; }
    [[nodiscard]] PointTable &measuredTable() { return m_measuredTable; }

    /// The points as they are, whose decimals the table rounds.
    void setReferences(MatchingPoints points);
    void addReference();
    /// The row must exist.
    void removeReference(int row);
    /// Takes all reference points from their cells.
    void takeReferenceCells();

    /// Replaces the point of a row, or adds one where the row has none, as row -1.
    void takeMeasured(int row, const MatchingPoint &point);
    /// A row that was put into the table from outside has no point to go with it.
    void removeMeasured(int row);
    void clearMeasured();

private:
    PointTable m_referenceTable;
    PointTable m_measuredTable;
    MatchingPoints m_references;
    MatchingPoints m_measured;
};
