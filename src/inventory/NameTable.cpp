#include "inventory/NameTable.h"

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

} // namespace

KeyedHash::KeyedHash()
{
    static const std::uint64_t key = newKey();
    key_ = key;
}

std::size_t KeyedHash::operator()(std::string_view text) const
{
    std::uint64_t hash = key_ ^ text.size();
    while (text.size() >= sizeof hash) {
        std::uint64_t part = 0;
        std::memcpy(&part, text.data(), sizeof part);
        hash = mixed(hash ^ part) + key_;
        text.remove_prefix(sizeof part);
    }
    std::uint64_t rest = 0;
    if (!text.empty())
        std::memcpy(&rest, text.data(), text.size());
    return static_cast<std::size_t>(mixed(hash ^ rest));
}

std::uint32_t NameTable::number(std::string_view name)
{
    if (const auto found = numbers_.find(name); found != numbers_.end())
        return found->second;
    const std::string_view kept = pool_.keep(name);
    names_.push_back(kept);
    numbers_.emplace(kept, size() - 1);
    return size() - 1;
}

} // namespace tavo
