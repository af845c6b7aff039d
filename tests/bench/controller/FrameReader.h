#pragma once

#include <QString>
#include <QVector>

#include <vector>

/// One body, device or tool of a record line: the numbers of each of its blocks.
struct FrameEntry {
    QVector<QVector<double>> blocks;
};

/// A record line, read by hand of the format's description and by nothing of the product or the bench.
struct FrameLine {
    QString kind;
    QVector<double> numbers; ///< those before the first block
    QVector<FrameEntry> entries;
    bool isWellFormed = false; ///< single blanks, closed blocks, numbers only
};

/// Reads a line whose entries have that many blocks each.
FrameLine readFrameLine(const QString &line, int blocksPerEntry);
