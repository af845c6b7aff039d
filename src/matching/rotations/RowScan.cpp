#include "RowScan.h"

#include <cstring>
#include <limits>

namespace
{

constexpr double infinite = std::numeric_limits<double>::infinity();

/// What every processor of the kind compares with one instruction.
constexpr std::size_t together = 2;
using Values = double __attribute__((vector_size(together * sizeof(double))));
using Numbers = std::int64_t __attribute__((vector_size(together * sizeof(std::int64_t))));

template <class Pack, class Value>
Pack load(const Value *from)
{
    Pack pack;
    std::memcpy(&pack, from, sizeof pack);
    return pack;
}

template <class Pack, class Value>
void store(Value *to, Pack pack)
{
    std::memcpy(to, &pack, sizeof pack);
}

template <class Value>
Value lesser(Value left, Value right)
{
    return left < right ? left : right;
}

} // namespace

double RowScan::leastOf(const double *values, std::size_t size)
{
    Values even = {infinite, infinite}, odd = even;
    std::size_t k = 0;
    for (; k + 2 * together <= size; k += 2 * together) {
        even = lesser(load<Values>(values + k), even);
        odd = lesser(load<Values>(values + k + together), odd);
    }
    even = lesser(odd, even);
    double least = lesser(even[0], even[1]);
    for (; k < size; ++k)
        least = lesser(values[k], least);
    return least;
}

std::size_t RowScan::firstUpTo(double value, const double *values, std::size_t size)
{
    std::size_t k = 0;
    while (k < size && !(values[k] <= value))
        ++k;
    return k;
}

void RowScan::lower(double *least, std::int64_t *origins, const double *values, std::size_t size,
                    double offset, std::int64_t origin)
{
    const Values offsets = {offset, offset};
    const Numbers these = {origin, origin};
    std::size_t k = 0;
    for (; k + together <= size; k += together) {
        const Values pack = load<Values>(values + k) + offsets;
        const auto before = load<Values>(least + k);
        const Numbers isLess = pack < before;
        store(least + k, lesser(pack, before));
        store(origins + k, isLess ? these : load<Numbers>(origins + k));
    }
    for (; k < size; ++k) {
        if (values[k] + offset < least[k]) {
            least[k] = values[k] + offset;
            origins[k] = origin;
        }
    }
}
