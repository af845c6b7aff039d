#pragma once

/// Something that is read piece by piece, so that whoever reads can look after a window in between.
class PiecewiseReading
{
public:
    PiecewiseReading() = default;
    virtual ~PiecewiseReading() = default;
    PiecewiseReading(const PiecewiseReading &) = delete;
    PiecewiseReading &operator=(const PiecewiseReading &) = delete;

    /// Reads a piece, which takes a few milliseconds. False when nothing is left to read.
    [[nodiscard]] virtual bool readPiece() = 0;

    /// How much has been read.
    [[nodiscard]] virtual int percent() const = 0;
};
