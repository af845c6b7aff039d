#pragma once

#include "PiecewiseWork.h"
#include "ReferencePointFile.h"

#include <QSaveFile>

#include <cstddef>
#include <functional>

/// Saves a reference point file row by row.
///
/// The file is replaced only when all is written; one that is not written to its end, because this has been
/// destroyed before or the disk is full, leaves an older file as it was.
class PointFileSaving : public PiecewiseWork
{
public:
    using RowAt = std::function<ReferencePointFile::Row(std::size_t row)>;

    /// Saves `count` rows, each of which is asked for when it is written, in ReferencePointFile::savedName.
    /// Regular files only: a pipe may wait for ever.
    PointFileSaving(const QString &fileName, std::size_t count, RowAt rowAt);

    [[nodiscard]] bool doPiece() override;
    [[nodiscard]] int percent() const override;

    /// Once everything has been done.
    [[nodiscard]] bool isSaved() const { return m_isSaved; }

private:
    QSaveFile m_file;
    std::size_t m_count;
    std::size_t m_next = 0;
    RowAt m_rowAt;
    bool m_isSaved = false;
};
