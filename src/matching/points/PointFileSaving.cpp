#include "PointFileSaving.h"

#include "RegularFile.h"

#include <algorithm>
#include <utility>

PointFileSaving::PointFileSaving(const QString &fileName, std::size_t count, RowAt rowAt)
    : m_file(ReferencePointFile::savedName(fileName))
    , m_count(count)
    , m_rowAt(std::move(rowAt))
{
    (void)RegularFile::beginToReplace(m_file);
}

bool PointFileSaving::doPiece()
{
    constexpr std::size_t rowsOfPiece = 500;
    if (!m_file.isOpen())
        return false;
    for (const std::size_t end = std::min(m_next + rowsOfPiece, m_count); m_next < end; ++m_next)
        ReferencePointFile::write(m_file, static_cast<int>(m_next) + 1, m_rowAt(m_next));
    if (m_next < m_count)
        return true;
    m_isSaved = RegularFile::endToReplace(m_file);
    return false;
}

int PointFileSaving::percent() const
{
    constexpr std::size_t all = 100;
    return static_cast<int>(m_count == 0 ? all : all * m_next / m_count);
}
