#pragma once

#include "ListEditing.h"
#include "MatchingLists.h"

#include <QTableWidget>
#include <QWidget>

/// Both lists with their tables in a window, and what edits them.
struct TwoLists {
    QWidget window;
    QTableWidget *references = new QTableWidget(0, 3, &window);
    QTableWidget *measured = new QTableWidget(0, 3, &window);
    MatchingLists lists{references, measured};
    ListEditing *editing = new ListEditing(lists, &window);

    /// The first cells of a table, from above.
    static QStringList firstCells(const QTableWidget *table)
    {
        QStringList texts;
        for (int row = 0; row < table->rowCount(); ++row)
            texts << table->item(row, 0)->text();
        return texts;
    }

    /// Points with these first coordinates, as they were read from a file.
    void refer(const std::vector<double> &first) { fill(lists.referenceList(), first); }
    void measure(const std::vector<double> &first) { fill(lists.measuredList(), first); }

private:
    static void fill(PointList &list, const std::vector<double> &first)
    {
        PointRows rows;
        for (const double x : first)
            rows.push_back({{x, 0.0, 0.0}, {}});
        list.replace(0, list.table().rowCount(), rows);
        list.setFiner(true);
    }
};
