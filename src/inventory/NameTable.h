#pragma once

#include "inventory/TextPool.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tavo {

/// Numbers names from 0 up, in the order of their first use.
///
/// It hashes with a key that no description can know, so that nobody can choose names that collide.
class NameTable
{
public:
    /// `pool` keeps the names and outlives the table.
    explicit NameTable(TextPool& pool) : pool_(pool) {}

    /// The number of the name, a new one if it isn't known yet.
    std::uint32_t number(std::string_view name) { return number(name, prepare(name)); }
    /// Begins to look up a name: its place comes from the memory while the caller does something
    /// else. Returns what the next operation asks for.
    std::uint64_t prepare(std::string_view name) const;
    std::uint32_t number(std::string_view name, std::uint64_t prepared);
    /// The number of the name, or `noName` if it isn't known.
    std::uint32_t find(std::string_view name) const;
    static constexpr std::uint32_t noName = 0xFFFFFFFF;
    std::string_view name(std::uint32_t number) const { return names_[number]; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(names_.size()); }

private:
    /// A place for a name.
    struct Slot
    {
        std::uint32_t tag;    ///< Of the name's hash.
        std::uint32_t number; ///< One more than the name's; 0 for an empty slot.
    };

    std::size_t slotOf(std::string_view name, std::uint64_t hash) const;
    void grow();

    TextPool& pool_;
    std::vector<Slot> slots_; ///< A power of two of them, at least half of them empty.
    std::vector<std::string_view> names_;
};

} // namespace tavo
