#pragma once

#include "asap2/Number.h"
#include "asap2/characters.h"
#include "inventory/Inventory.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

/// A field of a block or of an option, after its kind was checked.
struct Field
{
    /// A word or text that stays: in the inventory, or in the field as `store` puts it there.
    std::string_view text;
    std::uint64_t prepared = 0;  ///< Of the name of a method: `NameTable::prepare`.
    Number number;               ///< Of a number.
    std::vector<Number> further; ///< The numbers after it, if there may be more.

    /// Copies a text.
    void store(std::string_view copied)
    {
        storage_.assign(copied);
        text = storage_;
    }
    /// Copies a word of the scanner, after which there are zero bytes, if nothing else: a short one
    /// is copied with what is after it, since a size that is known takes no call.
    void storeWord(std::string_view word)
    {
        if (word.size() > sizeof short_)
            return store(word);
        std::memcpy(short_, word.data(), sizeof short_);
        text = {short_, word.size()};
    }

private:
    std::string storage_;
    char short_[asap2::padding] = {};
};

/// An address, an extension or a mask.
Pattern64 patternOf(const Number& number);
/// The number as a limit.
Limit limitOf(const Number& number);

} // namespace tavo
