#pragma once

#include "PiecewiseWork.h"
#include "PointRow.h"
#include "ReferencePointFile.h"

#include <QString>

#include <cstddef>
#include <utility>
#include <vector>

/// Points as a spreadsheet puts them into the clipboard: a line per point, three numbers with tabs between.
///
/// What is read may also have semicolons or blanks between the numbers of a line, and commas as decimal
/// points. A line is not read when it has not three numbers, or one that NumberText would have to guess: one
/// with several points or commas. Empty lines do not count.
class PointText : public PiecewiseWork
{
public:
    using Row = ReferencePointFile::Row;

    [[nodiscard]] static QString write(const std::vector<Row> &rows);

    /// Reads no more than `room` rows.
    PointText(const QString &text, std::size_t room);

    [[nodiscard]] bool doPiece() override;
    [[nodiscard]] int percent() const override;

    /// With normalised texts, see NumberText, where the numbers alone would not show the same.
    [[nodiscard]] const PointRows &rows() const { return m_rows; }
    /// The rows, which are gone here afterwards.
    [[nodiscard]] PointRows takeRows() { return std::exchange(m_rows, {}); }
    /// Counted from 1.
    [[nodiscard]] const std::vector<int> &linesNotRead() const { return m_linesNotRead; }
    /// There was no room for all; the rest was not read.
    [[nodiscard]] bool isTooLong() const { return m_tooLong; }

private:
    void readLine();

    QString m_text;
    std::size_t m_room;
    int m_position = 0;
    int m_line = 0;
    PointRows m_rows;
    std::vector<int> m_linesNotRead;
    bool m_tooLong = false;
};
