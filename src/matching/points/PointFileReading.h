#pragma once

#include "PiecewiseWork.h"
#include "ReferencePointReader.h"

#include <QFile>

#include <cstdio>
#include <memory>

/// Reads the points of a reference point file. For the formats see ReferencePointReader.
class PointFileReading : public PiecewiseWork
{
public:
    enum class Result {
        NotOpened,     ///< no regular file of that name can be read
        UnknownFormat, ///< see ReferencePointReader
        TooManyPoints, ///< see ReferencePointReader
        Loaded,
    };

    /// Opens the file. The name reaches the file system as Latin-1, or as PointFileSaving writes it
    /// where there is no such file.
    explicit PointFileReading(const QString &fileName);

    [[nodiscard]] bool doPiece() override;
    [[nodiscard]] int percent() const override;

    /// Once everything has been read.
    [[nodiscard]] Result result() const;
    /// The points of a file that is Loaded. Call once.
    [[nodiscard]] MatchingPoints takePoints() { return m_reader.takePoints(); }

private:
    struct Closer {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };
    using FilePointer = std::unique_ptr<std::FILE, Closer>;

    [[nodiscard]] static FilePointer open(const QByteArray &name);

    FilePointer m_file;
    QFile m_device;
    ReferencePointReader m_reader{m_device};
};
