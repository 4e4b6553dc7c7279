#include "asap2/leaves.h"

#include <algorithm>
#include <string>

namespace tavo {

namespace {

constexpr std::uint64_t mostLeaves = 10000000;
/// A structure nested as deep as the description is long has leaves with names as long as that.
constexpr std::uint64_t mostNameBytes = std::uint64_t{1} << 30U;

std::uint64_t sum(std::uint64_t a, std::uint64_t b)
{
    return a > UINT64_MAX - b ? UINT64_MAX : a + b;
}

std::uint64_t product(std::uint64_t a, std::uint64_t b)
{
    return a != 0 && b > UINT64_MAX / a ? UINT64_MAX : a * b;
}

std::uint64_t elementCount(const Dimensions& dimensions)
{
    std::uint64_t count = 1;
    for (const std::uint64_t dimension : dimensions)
        count = product(count, dimension);
    return count;
}

/// The most characters that an index of each dimension takes: "[0][12]".
std::size_t indexSize(const Dimensions& dimensions)
{
    std::size_t size = 0;
    for (const std::uint64_t dimension : dimensions)
        size += std::to_string(dimension).size() + 2;
    return size;
}

/// What there is in a structure with all that it contains. The counts stop at the highest number.
struct Tally
{
    std::uint64_t listed = 0;
    std::uint64_t adjustable = 0;
    std::uint64_t undefined = 0; ///< Of a type that is defined nowhere.
    std::uint64_t pointers = 0;
    std::uint64_t nameBytes = 0; ///< Of the listed ones, at most.

    std::uint64_t total() const { return sum(sum(listed, adjustable), sum(undefined, pointers)); }
    /// Adds what is in `times` elements of a part whose name has so many characters.
    void add(const Tally& other, std::uint64_t times, std::size_t nameSize)
    {
        const std::uint64_t ofEach = sum(other.nameBytes, product(other.listed, nameSize));
        nameBytes = sum(nameBytes, product(ofEach, times));
        listed = sum(listed, product(other.listed, times));
        adjustable = sum(adjustable, product(other.adjustable, times));
        undefined = sum(undefined, product(other.undefined, times));
        pointers = sum(pointers, product(other.pointers, times));
    }
};

class Expander
{
public:
    Expander(const TypeTable& types, Inventory& inventory, Notices& notices)
        : types_(types),
          inventory_(inventory),
          notices_(notices),
          states_(types.structures.size(), State::New),
          tallies_(types.structures.size()),
          listedComponents_(types.structures.size())
    {
    }

    void expand(const Instance& instance);

private:
    enum class State : std::uint8_t
    {
        New,
        Open, ///< Its components are being counted: whoever comes by it again contains it.
        Counted
    };

    /// A structure whose elements are being visited.
    struct Level
    {
        std::uint32_t structure;
        std::size_t component = 0;    ///< The next of the listed ones.
        const Dimensions* dimensions; ///< Of the array whose elements are visited.
        std::uint64_t element = 0;    ///< The one in hand.
        std::uint64_t elementCount;
        std::uint64_t base;     ///< Address of the first element.
        std::size_t nameLength; ///< Of the array's name; the index stands after it.
    };

    Tally tallyOf(const TypeTable::Entry& type, bool isPointer) const;
    bool isPointer(const TypeTable::Entry& type, bool isPointer) const;
    void count(std::uint32_t structure, const Instance& instance);
    void visit(const TypeTable::Entry& type, const Instance& instance);
    void enterElement(Level& level);
    void addLeaf(const Quantity& type, const Dimensions& dimensions, std::string_view layout,
                 std::uint64_t address, const Instance& instance);

    const TypeTable& types_;
    Inventory& inventory_;
    Notices& notices_;
    std::vector<State> states_;
    std::vector<Tally> tallies_; ///< Of each structure that is counted.
    /// Of each structure that is counted, what holds a leaf that is listed.
    std::vector<std::vector<const Component*>> listedComponents_;
    std::uint64_t leafCount_ = 0;
    std::uint64_t nameBytes_ = 0;
    std::string name_; ///< Of the leaf in hand.
    Leaves* leaves_ = nullptr;
};

bool Expander::isPointer(const TypeTable::Entry& type, bool isPointer) const
{
    if (type.kind == TypeKind::Measurement)
        return isPointer || types_.measurements[type.index].isPointer;
    if (type.kind == TypeKind::Structure)
        return isPointer || types_.structures[type.index].isPointer;
    return isPointer;
}

/// Of one element of a type; a structure must have been counted.
Tally Expander::tallyOf(const TypeTable::Entry& type, bool isPointerItself) const
{
    Tally tally;
    if (isPointer(type, isPointerItself))
        tally.pointers = 1;
    else if (type.kind == TypeKind::Measurement)
        tally.listed = 1;
    else if (type.kind == TypeKind::Adjustable)
        tally.adjustable = 1;
    else if (type.kind == TypeKind::Undefined)
        tally.undefined = 1;
    else
        tally = tallies_[type.index];
    return tally;
}

/// Counts what is in a structure, with all structures that it contains first.
void Expander::count(std::uint32_t structure, const Instance& instance)
{
    std::vector<std::pair<std::uint32_t, std::size_t>> open; // with the next component
    const auto enter = [&](std::uint32_t index) {
        if (states_[index] == State::Open)
            throw Fault(instance.place,
                        joined({"The structure of the instance ", inQuotes(instance.quantity.name),
                                " contains itself"}));
        if (states_[index] == State::New) {
            states_[index] = State::Open;
            open.emplace_back(index, 0);
        }
    };
    enter(structure);
    while (!open.empty()) {
        const std::uint32_t index = open.back().first;
        const auto& components = types_.structures[index].components;
        if (open.back().second == components.size()) {
            for (const Component& component : components) {
                const TypeTable::Entry type = types_.entryOf(component.type);
                const bool isArrayOfStructures = type.kind == TypeKind::Structure;
                const std::uint64_t times =
                    isArrayOfStructures ? elementCount(component.dimensions) : 1;
                const Tally part = tallyOf(type, component.isPointer);
                tallies_[index].add(part, times,
                                    component.name.size() + 1 + indexSize(component.dimensions));
                if (part.listed > 0 && times > 0)
                    listedComponents_[index].push_back(&component);
            }
            states_[index] = State::Counted;
            open.pop_back();
            continue;
        }
        const Component& component = components[open.back().second++];
        const TypeTable::Entry type = types_.entryOf(component.type);
        if (type.kind == TypeKind::Structure && !isPointer(type, component.isPointer))
            enter(type.index);
    }
}

void Expander::expand(const Instance& instance)
{
    const Quantity& quantity = instance.quantity;
    const TypeTable::Entry type = types_.entryOf(instance.type);
    const bool isStructure = type.kind == TypeKind::Structure;
    if (isStructure && !isPointer(type, quantity.isPointer))
        count(type.index, instance);
    const Dimensions& dimensions = inventory_.detailsOf(quantity).dimensions;
    Tally tally;
    tally.add(tallyOf(type, quantity.isPointer), isStructure ? elementCount(dimensions) : 1,
              quantity.name.size() + indexSize(dimensions));
    leafCount_ = sum(leafCount_, tally.total());
    if (leafCount_ > mostLeaves)
        throw Fault(instance.place, joined({"The instances have more than ",
                                            std::to_string(mostLeaves), " leaves, with this one"}));
    nameBytes_ = sum(nameBytes_, tally.nameBytes);
    if (nameBytes_ > mostNameBytes)
        throw Fault(instance.place,
                    joined({"The names of leaves have more than ", std::to_string(mostNameBytes),
                            " bytes, with this one"}));
    inventory_.adjustableLeafCount += tally.adjustable;
    notices_.add(instance.place, "Pointers (ADDRESS_TYPE) are left out", inQuotes(quantity.name),
                 tally.pointers);
    notices_.add(instance.place, "Leaves of a type that is not defined are left out",
                 inQuotes(quantity.name), tally.undefined);
    if (tally.listed == 0)
        return;
    if (!quantity.address.fits32()) {
        notices_.add(instance.place, "Instances beyond 32 bits of address are left out",
                     inQuotes(quantity.name));
        return;
    }
    leaves_ = &inventory_.instances.emplace_back();
    leaves_->position = instance.position;
    visit(type, instance);
}

void Expander::visit(const TypeTable::Entry& type, const Instance& instance)
{
    const Quantity& quantity = instance.quantity;
    name_ = quantity.name;
    const Dimensions& own = inventory_.detailsOf(quantity).dimensions;
    if (type.kind == TypeKind::Measurement) {
        addLeaf(types_.measurements[type.index], own, inventory_.detailsOf(quantity).layout,
                quantity.address.bits, instance);
        return;
    }
    // Details move when others are made, so the dimensions are a copy.
    const Dimensions dimensions = own;
    std::vector<Level> levels;
    levels.push_back({type.index, 0, &dimensions, 0, elementCount(dimensions),
                      quantity.address.bits, name_.size()});
    enterElement(levels.back());
    while (!levels.empty()) {
        Level& level = levels.back();
        const auto& components = listedComponents_[level.structure];
        if (level.component == components.size()) {
            if (++level.element < level.elementCount) {
                level.component = 0;
                enterElement(level);
            } else {
                levels.pop_back();
            }
            continue;
        }
        const Component& component = *components[level.component++];
        const TypeTable::Entry part = types_.entryOf(component.type);
        enterElement(level);
        name_.append(".").append(component.name);
        const std::uint64_t address =
            level.base + level.element * types_.structures[level.structure].size + component.offset;
        if (part.kind == TypeKind::Measurement) {
            addLeaf(types_.measurements[part.index], component.dimensions, component.layout,
                    address, instance);
            continue;
        }
        levels.push_back({part.index, 0, &component.dimensions, 0,
                          elementCount(component.dimensions), address, name_.size()});
    }
}

/// Makes the name that of the element in hand: "a", "a[2]" or "a[1][2]", row by row.
void Expander::enterElement(Level& level)
{
    name_.resize(level.nameLength);
    std::uint64_t rest = level.element;
    std::uint64_t size = level.elementCount;
    for (const std::uint64_t dimension : *level.dimensions) {
        size /= dimension;
        name_.append("[").append(std::to_string(rest / size)).append("]");
        rest %= size;
    }
}

/// A leaf has the name in hand; everything else is its type's, or the instance's.
void Expander::addLeaf(const Quantity& type, const Dimensions& dimensions, std::string_view layout,
                       std::uint64_t address, const Instance& instance)
{
    const Quantity& whole = instance.quantity;
    Quantity leaf = type;
    leaf.details = noIndex;
    leaf.name = name_ == whole.name ? whole.name : inventory_.texts.keep(name_);
    if (leaf.description.empty())
        leaf.description = whole.description;
    leaf.address = {address & 0xFFFFFFFFU, true, false, false};
    leaf.addressExtension = whole.addressExtension;
    // References into the details would not survive that new ones are made.
    const QuantityDetails ofType = inventory_.detailsOf(type);
    const QuantityDetails& ofWhole = inventory_.detailsOf(whole);
    const bool hasDetails = !dimensions.empty() || !layout.empty() || !ofType.dimensions.empty() ||
                            !ofType.layout.empty() || ofType.hasDisplayName || ofWhole.hasSymbol ||
                            ofWhole.hasDisplayName || !ofWhole.events.empty();
    if (hasDetails) {
        QuantityDetails details = ofType;
        details.dimensions.insert(details.dimensions.begin(), dimensions.begin(), dimensions.end());
        if (!layout.empty())
            details.layout = layout;
        details.events = ofWhole.events;
        details.hasSymbol = ofWhole.hasSymbol;
        details.symbol = ofWhole.symbol;
        const std::uint64_t offset = (address - whole.address.bits) & 0xFFFFFFFFU;
        details.symbolOffset =
            static_cast<std::int64_t>(static_cast<std::uint64_t>(ofWhole.symbolOffset) + offset);
        if (ofWhole.hasDisplayName && name_ == whole.name) {
            details.displayName = ofWhole.displayName;
            details.hasDisplayName = true;
        }
        inventory_.makeDetails(leaf) = std::move(details);
    }
    leaves_->quantities.push_back(leaf);
}

} // namespace

void expandInstances(const std::deque<Instance>& instances, const TypeTable& types,
                     Inventory& inventory, Notices& notices)
{
    Expander expander(types, inventory, notices);
    for (const Instance& instance : instances)
        expander.expand(instance);
}

} // namespace tavo
