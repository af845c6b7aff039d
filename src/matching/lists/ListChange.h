#pragma once

#include "PointRow.h"

#include <QUndoCommand>

class PointList;

/// One change of a list: some rows took the place of others that followed each other.
///
/// Only these rows are kept; the whole list, too, the one time that it loses decimals which no cell shows.
class ListChange : public QUndoCommand
{
public:
    enum class Points {
        AsGiven,  ///< the rows bring their points
        FromCells ///< all points of the list are what its cells show then
    };

    /// The list must outlive this. `removed` are rows that are there, or were until their user changed them
    /// in the table; `added` may be there already.
    ListChange(PointList &list, int first, PointRows removed, PointRows added, Points points);

    void redo() override;
    void undo() override;

private:
    void lead(std::size_t shown, std::size_t before);

    PointList &m_list;
    int m_first;
    PointRows m_removed;
    PointRows m_added;
    Points m_points;
    bool m_wasFiner = false;
    MatchingPoints m_finerPoints;
};
