#pragma once

#include "asap2/Fault.h"
#include "inventory/Inventory.h"

#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

namespace tavo {

/// What a typedef stands for.
enum class TypeKind : std::uint8_t
{
    Undefined, ///< No typedef has this name.
    Measurement,
    Structure,
    Adjustable ///< TYPEDEF_CHARACTERISTIC and the like: what is no measurement.
};

/// A STRUCTURE_COMPONENT.
struct Component
{
    std::string_view name;
    std::uint64_t offset = 0; ///< Bytes from the beginning of the structure; may wrap.
    Dimensions dimensions;
    std::string_view layout;
    std::uint32_t type = noIndex; ///< In `TypeTable::names`.
    bool isPointer = false;
};

/// A TYPEDEF_STRUCTURE.
struct Structure
{
    std::vector<Component> components;
    std::uint64_t size = 0; ///< Bytes from one element of an array to the next.
    bool isPointer = false; ///< ADDRESS_TYPE: each use of it is a pointer.
};

/// An INSTANCE, as it is read.
struct Instance
{
    std::size_t position = 0; ///< Measurements before it.
    /// Its name, description, address, extension, details and so on.
    Quantity quantity;
    std::uint32_t type = noIndex;
    Place place;
};

/// The typedefs of a module, by name. They may stand after their use.
struct TypeTable
{
    struct Entry
    {
        TypeKind kind = TypeKind::Undefined;
        std::uint32_t index = noIndex; ///< In `measurements` or `structures`.
    };

    explicit TypeTable(TextPool& texts) : names(texts) {}

    Entry entryOf(std::uint32_t name) const
    {
        return name < entries.size() ? entries[name] : Entry();
    }
    /// The first definition of a name counts.
    void define(std::string_view name, TypeKind kind, std::uint32_t index)
    {
        const std::uint32_t number = names.number(name);
        if (number >= entries.size())
            entries.resize(number + std::size_t{1});
        if (entries[number].kind == TypeKind::Undefined)
            entries[number] = {kind, index};
    }

    NameTable names;
    std::vector<Entry> entries;
    std::deque<Quantity> measurements;
    std::deque<Structure> structures;
};

} // namespace tavo
