#include "ReferencePointReader.h"

#include <QBuffer>
#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace
{

/// A point takes at least six bytes, a documentation line more.
void requireBounded(const std::optional<MatchingPoints> &points, std::size_t size)
{
    if (points && points->size() > size / 6 + 1)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QByteArray text(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    requireBounded(ReferencePointReader(buffer).read(), size);
    return 0;
}
