#pragma once

#include <QPushButton>
#include <QString>
#include <QTableWidget>

#include <array>
#include <functional>

/// Enters three points into the matching window and measures them with tool 1, turned by a quarter about z
/// and shifted. `deliver` hands the records over, as the host does.
inline void matchThreePoints(QWidget &matching,
                             const std::function<void(const char *kind, const char *record)> &deliver)
{
    auto *table = matching.findChild<QTableWidget *>("tableWidget_referencePoints");
    const std::array<std::array<int, 2>, 3> corners{{{0, 0}, {400, 0}, {0, 250}}};
    double time = 0.0;
    for (std::size_t row = 0; row < corners.size(); ++row) {
        matching.findChild<QPushButton *>("pushButton_addRefPoint")->click();
        for (std::size_t column = 0; column < 2; ++column)
            table->item(int(row), int(column))->setText(QString::number(corners[row][column]));
        for (const char *flags : {"1 0 0 0", "1 0 0 0", "0 0 0 0"}) {
            const QString stamp = QString("ts %1").arg(time += 1.5);
            const QString tool =
                QString("6dmt2 1 [0 1.000 4 2.500][%1 %2 0.25][1 0 0 0 1 0 0 0 1][%3][0 0 0 0 0 0]")
                    .arg(100.125 - corners[row][1])
                    .arg(200 + corners[row][0])
                    .arg(flags);
            deliver("ts", qPrintable(stamp));
            deliver("6dmt2", qPrintable(tool));
        }
    }
}
