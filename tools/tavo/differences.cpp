#include "differences.h"

#include "properties.h"

#include <algorithm>
#include <tuple>

namespace tavo {

namespace {

/// What two descriptions have of one kind of object, in their order.
template <class Object> struct Matched
{
    std::vector<Pair<Object>> pairs; ///< Of one name.
    std::vector<const Object*> gone;
    std::vector<const Object*> added;
};

/// Brings together what has one name. Of objects that share theirs, the first of the older
/// description and the first of the newer one are the same, and so on.
template <class Object>
Matched<Object> matchByName(const std::vector<const Object*>& before,
                            const std::vector<const Object*>& after)
{
    constexpr std::uint32_t none = noIndex;
    Matched<Object> matched;
    // Most of two versions of a description is in one order, so that few names are looked up.
    const std::size_t most = std::min(before.size(), after.size());
    std::size_t first = 0;
    for (; first < most && before[first]->name == after[first]->name; ++first)
        matched.pairs.push_back({before[first], after[first]});
    TextPool pool;
    NameTable names(pool);
    std::vector<std::uint32_t> firstOfName; // By the number of a name: the first one left.
    std::vector<std::uint32_t> lastOfName;
    std::vector<std::uint32_t> next(before.size(), none);
    for (auto i = static_cast<std::uint32_t>(first); i < before.size(); ++i) {
        const std::uint32_t name = names.number(before[i]->name);
        if (name == firstOfName.size()) {
            firstOfName.push_back(i);
            lastOfName.push_back(i);
        } else {
            next[lastOfName[name]] = i;
            lastOfName[name] = i;
        }
    }
    std::vector<bool> isPaired(before.size());
    for (std::size_t i = first; i < after.size(); ++i) {
        const Object* object = after[i];
        const std::uint32_t name = names.number(object->name);
        const std::uint32_t partner = name < firstOfName.size() ? firstOfName[name] : none;
        if (partner == none) {
            matched.added.push_back(object);
            continue;
        }
        matched.pairs.push_back({before[partner], object});
        isPaired[partner] = true;
        firstOfName[name] = next[partner];
    }
    for (std::size_t i = first; i < before.size(); ++i)
        if (!isPaired[i])
            matched.gone.push_back(before[i]);
    return matched;
}

/// Something without a partner, in the search for what was renamed.
template <class Object> struct Candidate
{
    const Object* object;
    bool isNew;
    bool isTaken = false;
};

template <class Object> using Candidates = std::vector<Candidate<Object>>;

/// Pairs the two candidates of each run of candidates that are alike if there is one of each
/// description: a rename is told only where it is no guess.
template <class Object, class IsAlike>
void pairLonely(Candidates<Object>& candidates, IsAlike isAlike, std::vector<Pair<Object>>& renamed)
{
    for (auto begin = candidates.begin(); begin != candidates.end();) {
        Candidate<Object>* lonely[2] = {nullptr, nullptr};
        std::size_t counts[2] = {0, 0};
        auto end = begin;
        for (; end != candidates.end() && isAlike(*begin->object, *end->object); ++end)
            if (!end->isTaken) {
                lonely[end->isNew] = &*end;
                ++counts[end->isNew];
            }
        if (counts[0] == 1 && counts[1] == 1) {
            renamed.push_back({lonely[0]->object, lonely[1]->object});
            lonely[0]->isTaken = lonely[1]->isTaken = true;
        }
        begin = end;
    }
}

// What stays where something is renamed: by how much two objects are alike, from the least to the
// most. What is alike in one level is so in the levels before it.

constexpr int levelCount = 3;

auto keyOf(const Quantity& quantity, int level)
{
    const bool hasMask = level > 0;
    return std::tuple(quantity.address.bits, quantity.addressExtension.isGiven,
                      quantity.addressExtension.bits, quantity.type,
                      hasMask && quantity.bitMask.isGiven, hasMask ? quantity.bitMask.bits : 0,
                      level > 1 ? quantity.description : std::string_view());
}

auto keyOf(const Source& source, int level)
{
    return std::tuple(source.channel, source.cycle, source.unitCode,
                      level > 0 ? source.priority : 0,
                      level > 1 ? source.description : std::string_view());
}

bool hasPlace(const Quantity& quantity)
{
    return quantity.address.isGiven && !quantity.address.isBeyond64;
}
bool hasPlace(const Source&) { return true; }

/// Takes what was renamed away from what has gone and what was added. Looks for the most alike
/// first.
template <class Object> std::vector<Pair<Object>> takeRenamed(Matched<Object>& matched)
{
    std::vector<Pair<Object>> renamed;
    if (matched.gone.empty() || matched.added.empty())
        return renamed;
    Candidates<Object> candidates;
    Matched<Object> left;
    for (const bool isNew : {false, true})
        for (const Object* object : isNew ? matched.added : matched.gone) {
            if (hasPlace(*object))
                candidates.push_back({object, isNew});
            else
                (isNew ? left.added : left.gone).push_back(object);
        }
    std::stable_sort(candidates.begin(), candidates.end(), [](const auto& a, const auto& b) {
        return keyOf(*a.object, levelCount - 1) < keyOf(*b.object, levelCount - 1);
    });
    for (int level = levelCount - 1; level >= 0; --level)
        pairLonely(
            candidates,
            [&](const Object& a, const Object& b) { return keyOf(a, level) == keyOf(b, level); },
            renamed);
    for (const Candidate<Object>& candidate : candidates)
        if (!candidate.isTaken)
            (candidate.isNew ? left.added : left.gone).push_back(candidate.object);
    matched.gone = std::move(left.gone);
    matched.added = std::move(left.added);
    return renamed;
}

class Comparison
{
public:
    Comparison(const Inventory& before, const Inventory& after) : before_(before), after_(after) {}

    void compareInterfaces(Protocol protocol);
    void compareQuantities();

    std::vector<Difference> take();

private:
    template <class Object> void add(Matched<Object> matched, Protocol protocol);
    template <class Object> void addPair(const Pair<Object>& pair, Protocol protocol);
    std::uint32_t differing(const Pair<Interface>& pair) const
    {
        return differingProperties(*pair.before, *pair.after);
    }
    std::uint32_t differing(const Pair<Source>& pair) const
    {
        return differingProperties(*pair.before, *pair.after);
    }
    std::uint32_t differing(const Pair<Quantity>& pair) const
    {
        return differingProperties(before_, *pair.before, after_, *pair.after, conversions_);
    }

    const Inventory& before_;
    const Inventory& after_;
    Conversions conversions_{before_, after_};
    std::vector<Difference> found_;
};

template <class Object> void Comparison::addPair(const Pair<Object>& pair, Protocol protocol)
{
    const std::uint32_t properties = differing(pair);
    const std::uint32_t places = std::is_same_v<Object, Quantity> ? placeProperties : 0;
    if ((properties & places) != 0)
        found_.push_back({pair, Change::Moved, protocol, properties & places});
    if ((properties & ~places) != 0)
        found_.push_back({pair, Change::Changed, protocol, properties & ~places});
}

template <class Object> void Comparison::add(Matched<Object> matched, Protocol protocol)
{
    if constexpr (!std::is_same_v<Object, Interface>)
        for (const Pair<Object>& pair : takeRenamed(matched)) {
            found_.push_back({pair, Change::Renamed, protocol, 0});
            addPair(pair, protocol);
        }
    for (const Pair<Object>& pair : matched.pairs)
        addPair(pair, protocol);
    for (const Object* object : matched.gone)
        found_.push_back({Pair<Object>{object, nullptr}, Change::Gone, protocol, 0});
    for (const Object* object : matched.added)
        found_.push_back({Pair<Object>{nullptr, object}, Change::Added, protocol, 0});
}

/// Interfaces of a protocol have no name of their own: the first of the one and the first of the
/// other description are the same, and so on.
void Comparison::compareInterfaces(Protocol protocol)
{
    std::vector<const Interface*> interfaces[2];
    std::vector<const Source*> sources[2];
    for (const bool isNew : {false, true})
        for (const Interface& interface : (isNew ? after_ : before_).interfaces)
            if (interface.protocol == protocol) {
                interfaces[isNew].push_back(&interface);
                for (const Source& source : interface.sources)
                    sources[isNew].push_back(&source);
            }
    Matched<Interface> matched;
    const auto& [old, now] = interfaces;
    for (std::size_t i = 0; i < std::max(old.size(), now.size()); ++i) {
        if (i >= old.size())
            matched.added.push_back(now[i]);
        else if (i >= now.size())
            matched.gone.push_back(old[i]);
        else
            matched.pairs.push_back({old[i], now[i]});
    }
    add(matched, protocol);
    add(matchByName(sources[0], sources[1]), protocol);
}

void Comparison::compareQuantities()
{
    std::vector<const Quantity*> quantities[2];
    for (const bool isNew : {false, true}) {
        const Inventory& inventory = isNew ? after_ : before_;
        quantities[isNew].reserve(inventory.quantityCount());
        inventory.forEachQuantity(
            [&](const Quantity& quantity) { quantities[isNew].push_back(&quantity); });
    }
    add(matchByName(quantities[0], quantities[1]), Protocol::Ccp);
}

std::vector<Difference> Comparison::take()
{
    std::stable_sort(found_.begin(), found_.end(), [](const Difference& a, const Difference& b) {
        if (a.objects.index() != b.objects.index())
            return a.objects.index() < b.objects.index();
        return std::tuple(a.protocol, a.name(), a.change) <
               std::tuple(b.protocol, b.name(), b.change);
    });
    return std::move(found_);
}

/// The one of the two that has the name.
template <class Object> const Object& newest(const Pair<Object>& pair)
{
    return *(pair.after ? pair.after : pair.before);
}

std::string_view nameOf(const Interface& interface) { return interfaceName(interface.protocol); }
std::string_view nameOf(const Source& source) { return source.name; }
std::string_view nameOf(const Quantity& quantity) { return quantity.name; }

} // namespace

const char* changeText(Change change)
{
    constexpr const char* texts[changeCount] = {"added", "gone", "renamed", "moved", "changed"};
    return texts[static_cast<std::size_t>(change)];
}

const char* interfaceName(Protocol protocol)
{
    return protocol == Protocol::XcpPlus ? "XCPplus" : protocolText(protocol);
}

const char* Difference::kind() const
{
    constexpr const char* kinds[] = {"interface", "source", "measurement"};
    return kinds[objects.index()];
}

std::string_view Difference::name() const
{
    return std::visit([](const auto& pair) { return nameOf(newest(pair)); }, objects);
}

std::string_view Difference::formerName() const
{
    return std::visit(
        [](const auto& pair) { return pair.before ? nameOf(*pair.before) : std::string_view(); },
        objects);
}

Differences::Differences(const Inventory& before, const Inventory& after)
    : before_(before), after_(after)
{
    Comparison comparison(before, after);
    for (const Protocol protocol : {Protocol::Ccp, Protocol::Xcp, Protocol::XcpPlus})
        comparison.compareInterfaces(protocol);
    comparison.compareQuantities();
    all_ = comparison.take();
    for (const Difference& difference : all_)
        ++counts_[static_cast<std::size_t>(difference.change)];
}

std::vector<PropertyChange> Differences::propertiesOf(const Difference& difference) const
{
    const std::uint32_t properties = difference.properties;
    if (properties == 0)
        return {};
    if (const auto* interfaces = std::get_if<Pair<Interface>>(&difference.objects))
        return propertyChanges(properties, *interfaces->before, *interfaces->after);
    if (const auto* sources = std::get_if<Pair<Source>>(&difference.objects))
        return propertyChanges(properties, *sources->before, *sources->after);
    const auto& quantities = std::get<Pair<Quantity>>(difference.objects);
    return propertyChanges(properties, before_, *quantities.before, after_, *quantities.after,
                           comparedRows_);
}

} // namespace tavo
