#include "BackendName.h"

#include "BackendVersions.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

#include <sys/uio.h>
#include <unistd.h>

namespace
{

/// A copy of memory that may not be there.
template <typename Value>
std::optional<Value> readFrom(std::uintptr_t address)
{
    Value value{};
    void *place = nullptr;
    std::memcpy(&place, &address, sizeof place);
    const iovec local{&value, sizeof value};
    const iovec remote{place, sizeof value};
    if (::process_vm_readv(::getpid(), &local, 1, &remote, 1, 0) != static_cast<ssize_t>(sizeof value))
        return std::nullopt;
    return value;
}

} // namespace

bool isBackendNamed(const BackendVersions *versions, QLatin1String name)
{
    if (versions == nullptr)
        return false;
    // What a string points to, in front of its characters.
    using Header = std::array<char, sizeof(QArrayData)>;
    const auto text = readFrom<std::uintptr_t>(reinterpret_cast<std::uintptr_t>(&versions->backendName));
    const auto header = text ? readFrom<Header>(*text) : std::nullopt;
    if (!header)
        return false;
    int size = 0;
    std::uintptr_t offset = 0;
    std::memcpy(&size, header->data() + offsetof(QArrayData, size), sizeof size);
    std::memcpy(&offset, header->data() + offsetof(QArrayData, offset), sizeof offset);
    if (size != name.size())
        return false;
    for (int i = 0; i < size; ++i) {
        const auto character = readFrom<ushort>(*text + offset + static_cast<unsigned>(i) * sizeof(ushort));
        if (character != QChar(name.at(i)).unicode())
            return false;
    }
    return true;
}
