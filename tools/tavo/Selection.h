#pragma once

#include "NameSet.h"
#include "inventory/Inventory.h"

#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

class Diagnostics;

/// Addresses from the first to the last.
struct AddressRange
{
    std::uint64_t first = 0;
    std::uint64_t last = 0;
};

using TypeSet = std::bitset<16>; ///< By the numbers of `DataType`.

/// What a command line says about the quantities to choose.
struct SelectionOptions
{
    std::vector<std::string> patterns;
    std::vector<std::string> excluded;
    std::vector<std::string> files; ///< With lists of names, see `NameSet`.
    std::vector<std::string> units;
    TypeSet types;
    std::vector<AddressRange> addresses;
    PatternStyle style;
};

/// "uint8,SLONG", in the words of a configuration or of the file format. Throws a
/// `std::invalid_argument` for another word, and so does the next function for another form.
TypeSet typesOf(const std::string& list);
/// "0x1000-0x1FFF", "0x1000-" up to the greatest address, or one address alone.
AddressRange addressRangeOf(const std::string& text);

/// Chooses quantities: those whose name is in the patterns or in a list, if there are such, is not
/// excluded, and whose unit, type and address are among the ones that are asked for.
class Selection
{
public:
    /// Reads the lists. Throws as `NameSet` does.
    explicit Selection(const SelectionOptions& options);

    /// True if nothing was asked for.
    bool isAll() const { return isAll_; }
    bool has(const Inventory& inventory, const Quantity& quantity);
    /// The same for a thing that has a name and nothing else that could be asked for. It isn't
    /// chosen if anything else is asked for.
    bool hasName(std::string_view name);

    /// True if all that is asked for by its name was there.
    bool isComplete() const { return names_.isComplete(); }
    /// Another description follows.
    void forget() { names_.forget(); }
    /// Warns of what is asked for by its name and wasn't there.
    void reportMissing(Diagnostics& diagnostics, const std::string& description,
                       NearestName& nearest) const
    {
        names_.reportMissing(diagnostics, description, nearest);
    }

private:
    bool hasOnlyName(std::string_view name);
    bool hasAddress(const Quantity& quantity) const;

    SelectionOptions options_;
    NameSet names_;
    std::vector<NameTest> excluded_;
    std::vector<NameTest> units_;
    bool isAll_ = false;
};

/// The names among which a mistyped one is searched.
NearestName nearestNameIn(const Inventory& inventory);

} // namespace tavo
