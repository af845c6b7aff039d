#include "BackendName.h"

#include "BackendVersions.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

#if defined(__linux__)
#include <sys/uio.h>
#include <unistd.h>
#endif

namespace
{

/// Copies memory that may not be there; false when it is not, or when the system allows no such copy.
bool copyGuarded(void *to, void *from, std::size_t size)
{
#if defined(__linux__)
    const iovec local{to, size};
    const iovec remote{from, size};
    return ::process_vm_readv(::getpid(), &local, 1, &remote, 1, 0) == static_cast<ssize_t>(size);
#else
    static_cast<void>(to);
    static_cast<void>(from);
    static_cast<void>(size);
    return false;
#endif
}

/// Whether memory that is there can be copied so: a system may refuse it, or not know how.
bool canBeGuarded()
{
    int there = 0;
    int copy = 0;
    return copyGuarded(&copy, &there, sizeof copy);
}

template <typename Value>
std::optional<Value> readFrom(std::uintptr_t address)
{
    Value value{};
    void *place = nullptr;
    std::memcpy(&place, &address, sizeof place);
    return copyGuarded(&value, place, sizeof value) ? std::make_optional(value) : std::nullopt;
}

bool isNamedGuarded(const BackendVersions *versions, QLatin1String name)
{
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

} // namespace

bool isBackendNamed(const BackendVersions *versions, QLatin1String name)
{
    if (versions == nullptr)
        return false;
    return canBeGuarded() ? isNamedGuarded(versions, name) : versions->backendName == name;
}
