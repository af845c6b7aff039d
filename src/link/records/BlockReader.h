#pragma once

/// Reads one number with a function of NumberReader. When something converts, the cursor moves behind it and
/// the value is written; otherwise both stay and the result is false.
template <typename Number>
[[nodiscard]] bool readNumber(char **cursor, Number (*reader)(const char *, char **), Number *value)
{
    char *end = *cursor;
    const Number number = reader(*cursor, &end);
    if (end == *cursor)
        return false;
    *cursor = end;
    *value = number;
    return true;
}

/// One block "[...]" of a measurement record while it is being read.
///
/// Construction finds the first "[" at or after the position and the first "]" behind it and overwrites that
/// "]" by a NUL; destruction puts it back, whatever happened in between. The text must be writable and
/// NUL-terminated. Nothing is copied and nothing is read behind the closing bracket.
class OpenBlock
{
public:
    /// A null position gives a block that is not open.
    explicit OpenBlock(char *position);
    ~OpenBlock();
    OpenBlock(const OpenBlock &) = delete;
    OpenBlock &operator=(const OpenBlock &) = delete;

    [[nodiscard]] bool isOpen() const { return m_closing != nullptr; }

    /// The next integer (base 0, held inside the range of int); false when nothing converts.
    [[nodiscard]] bool readInt(int *value);

    /// The next real in the C locale; false when nothing converts.
    [[nodiscard]] bool readReal(double *value);

    /// The position just behind the closing bracket; null for a block that is not open.
    [[nodiscard]] char *behind() const { return isOpen() ? m_closing + 1 : nullptr; }

private:
    char *m_cursor = nullptr;
    char *m_closing = nullptr;
};

/// Reads a block by a format of letters.
///
/// "i" reads an integer into the next place of `ints`, "d" a real into the next place of `doubles`, "f" a
/// real rounded to float into the next place of `floats`. A "d" or an "f" moves both real destinations on by
/// one, so a format that mixes them skips places in the other array. Numbers behind those of the format are
/// ignored; an empty format accepts any block. An array that the format does not write may be null.
///
/// Returns the position just behind the block. Null on failure: no block, a letter other than the three, or a
/// number that converts nothing; numbers read before the failure stay written.
[[nodiscard]] char *readBlock(char *position, const char *format, int *ints, double *doubles,
                              float *floats = nullptr);

/// Reads a block that announces `intCount` integers and then `realCount` reals.
///
/// Every announced number must be there; of each sort the first `capacity` are stored, and the places that
/// are left are set to 0. A negative count is 0. A destination whose count is 0 may be null only if capacity
/// is 0. Returns the position just behind the block, or null as readBlock() does.
[[nodiscard]] char *readCountedBlock(char *position, int capacity, int intCount, int *ints, int realCount = 0,
                                     double *reals = nullptr);
