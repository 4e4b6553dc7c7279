#include "inventory/NameTable.h"

#include "base/sameBytes.h"

#include <chrono>
#include <cstring>
#include <random>

namespace tavo {

namespace {

/// A random number, or at least one that changes from run to run where the system has none to give.
std::uint64_t newKey()
{
    try {
        std::random_device device;
        return std::uint64_t{device()} << 32U | device();
    } catch (const std::exception&) {
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        return static_cast<std::uint64_t>(now) ^ reinterpret_cast<std::uintptr_t>(&newKey);
    }
}

/// Mixes all bits of `hash` into all bits of the result.
std::uint64_t mixed(std::uint64_t hash)
{
    hash = (hash ^ hash >> 32U) * 0xD6E8FEB86659FD93U;
    hash = (hash ^ hash >> 32U) * 0xD6E8FEB86659FD93U;
    return hash ^ hash >> 32U;
}

/// The same key for all hashes of the process.
std::uint64_t hashOf(std::string_view text)
{
    static const std::uint64_t key = newKey();
    std::uint64_t hash = key ^ text.size();
    std::uint64_t part = 0;
    constexpr std::size_t partSize = sizeof part;
    if (text.size() < partSize) {
        if (!text.empty())
            std::memcpy(&part, text.data(), text.size());
        return mixed(hash ^ part);
    }
    const std::size_t last = text.size() - partSize; // of a part that may overlap the one before it
    for (std::size_t i = 0; i < last; i += partSize) {
        std::memcpy(&part, text.data() + i, partSize);
        hash = mixed(hash ^ part) + key;
    }
    std::memcpy(&part, text.data() + last, partSize);
    return mixed(hash ^ part);
}

std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32U); }

} // namespace

/// Where the name stands, or the empty slot where it belongs.
std::size_t NameTable::slotOf(std::string_view name, std::uint64_t hash) const
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = static_cast<std::size_t>(hash) & mask;
    while (slots_[slot].number != 0 &&
           (slots_[slot].tag != tagOf(hash) || !sameBytes(names_[slots_[slot].number - 1], name)))
        slot = (slot + 1) & mask;
    return slot;
}

/// Makes room for twice as many names.
void NameTable::grow()
{
    constexpr std::size_t smallest = 64;
    slots_.assign(slots_.empty() ? smallest : 2 * slots_.size(), {0, 0});
    for (std::uint32_t i = 0; i < size(); ++i) {
        const std::uint64_t hash = hashOf(names_[i]);
        slots_[slotOf(names_[i], hash)] = {tagOf(hash), i + 1};
    }
}

std::uint32_t NameTable::find(std::string_view name) const
{
    return slots_.empty() ? noName : slots_[slotOf(name, hashOf(name))].number - 1;
}

std::uint64_t NameTable::prepare(std::string_view name) const
{
    const std::uint64_t hash = hashOf(name);
    if (!slots_.empty())
        __builtin_prefetch(&slots_[static_cast<std::size_t>(hash) & (slots_.size() - 1)]);
    return hash;
}

std::uint32_t NameTable::number(std::string_view name, std::uint64_t hash)
{
    if (slots_.size() <= 2 * names_.size())
        grow();
    Slot& slot = slots_[slotOf(name, hash)];
    if (slot.number == 0) {
        names_.push_back(pool_.keep(name));
        slot = {tagOf(hash), size()};
    }
    return slot.number - 1;
}

} // namespace tavo
