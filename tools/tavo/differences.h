#pragma once

#include "Cell.h"
#include "inventory/Inventory.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

/// What differs between two descriptions, as plain data.
namespace tavo {

enum class Change : std::uint8_t
{
    Added,
    Gone,
    Renamed, ///< What has the same address and type has another name.
    Moved,   ///< To another address.
    Changed  ///< In anything else.
};
constexpr std::size_t changeCount = 5;
/// Which of them, by their numbers.
using ChangeSet = std::array<bool, changeCount>;
constexpr ChangeSet allChanges = {true, true, true, true, true};

/// "added", "gone" and so on.
const char* changeText(Change change);

/// An object in the older and in the newer description. One is null for what was added or has gone.
template <class Object> struct Pair
{
    const Object* before = nullptr;
    const Object* after = nullptr;
};

/// One change of one object. An object that was changed in two ways, moved and renamed the unit for
/// example, has two.
struct Difference
{
    std::variant<Pair<Interface>, Pair<Source>, Pair<Quantity>> objects;
    Change change = Change::Changed;
    Protocol protocol = Protocol::Ccp; ///< Of an interface, or of the one that has the source.
    std::uint32_t properties = 0;      ///< Those that differ, for `Differences::propertiesOf`.

    /// "interface", "source" or "measurement"
    const char* kind() const;
    /// In the newer description, for what has gone in the older one. Bytes of the description.
    std::string_view name() const;
    /// In the older one; "" for what was added.
    std::string_view formerName() const;
};

/// What a property is.
enum class Form : std::uint8_t
{
    Plain, ///< A number, or a word that this program has chosen or the standard has.
    Text,  ///< Of the description.
    List   ///< Any number of cells.
};

/// A property that differs: what it was and what it is. All except a list is one cell, or none if
/// there is no such thing.
struct PropertyChange
{
    const char* name; ///< As the listing calls it.
    Form form;
    std::vector<Cell> before;
    std::vector<Cell> after;
};

class Differences
{
public:
    /// Compares them in linear time, except for the sorting of what differs. Both outlive the
    /// object.
    Differences(const Inventory& before, const Inventory& after);

    /// By kind, source's protocol, name and change.
    const std::vector<Difference>& all() const { return all_; }
    std::size_t count(Change change) const { return counts_[static_cast<std::size_t>(change)]; }
    /// What moved or changed, with what each property was and is; of a table only the rows that
    /// differ. Empty for the other changes. Once tables of ten million rows were compared, all
    /// others have no rows: many quantities can share a large one.
    std::vector<PropertyChange> propertiesOf(const Difference& difference) const;

private:
    const Inventory& before_;
    const Inventory& after_;
    std::vector<Difference> all_;
    std::array<std::size_t, changeCount> counts_{};
    mutable std::size_t comparedRows_ = 0;
};

/// "CCP", "XCP" or, for an interface of its own, "XCPplus".
const char* interfaceName(Protocol protocol);

} // namespace tavo
