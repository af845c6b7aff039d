#pragma once

/// Something that is done piece by piece, so that whoever does it can look after a window in between.
class PiecewiseWork
{
public:
    PiecewiseWork() = default;
    virtual ~PiecewiseWork() = default;
    PiecewiseWork(const PiecewiseWork &) = delete;
    PiecewiseWork &operator=(const PiecewiseWork &) = delete;

    /// Does a piece, which takes a few milliseconds. False when nothing is left to do.
    [[nodiscard]] virtual bool doPiece() = 0;

    /// How much has been done.
    [[nodiscard]] virtual int percent() const = 0;
};
