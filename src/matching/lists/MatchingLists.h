#pragma once

#include "PointList.h"

/// The two lists of points that are matched. Units: millimetres.
class MatchingLists
{
public:
    /// The tables must outlive this.
    MatchingLists(QTableWidget *references, QTableWidget *measured);

    [[nodiscard]] PointList &referenceList() { return m_references; }
    [[nodiscard]] PointList &measuredList() { return m_measured; }

    [[nodiscard]] const MatchingPoints &references() const { return m_references.points(); }
    [[nodiscard]] const MatchingPoints &measured() const { return m_measured.points(); }
    [[nodiscard]] PointTable &referenceTable() { return m_references.table(); }
    [[nodiscard]] PointTable &measuredTable() { return m_measured.table(); }

private:
    PointList m_references;
    PointList m_measured;
};
