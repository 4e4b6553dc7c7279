#pragma once

#include "inventory/TextPool.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavo {

/// Hashes a text with a key that no description can know, so that nobody can choose names that
/// collide.
class KeyedHash
{
public:
    /// The same key for all hashes of the process, taken from the system at first use.
    KeyedHash();
    std::size_t operator()(std::string_view text) const;

private:
    std::uint64_t key_;
};

/// Numbers names from 0 up, in the order of their first use.
class NameTable
{
public:
    /// `pool` keeps the names and outlives the table.
    explicit NameTable(TextPool& pool) : pool_(pool) {}

    /// The number of the name, a new one if it isn't known yet.
    std::uint32_t number(std::string_view name);
    std::string_view name(std::uint32_t number) const { return names_[number]; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(names_.size()); }

private:
    TextPool& pool_;
    std::unordered_map<std::string_view, std::uint32_t, KeyedHash> numbers_;
    std::vector<std::string_view> names_;
};

} // namespace tavo
