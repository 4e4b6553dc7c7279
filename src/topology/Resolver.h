#pragma once

#include <functional>
#include <unordered_map>

namespace tavo {

class PhConversion;
class PhEntity;
class PhGroup;
class PhObject;
class PhRoot;
class PhType;

/// Name resolution. A description may refer to a conversion before its definition; the reader puts
/// a placeholder there, which knows the name and nothing else. Once all is read, this pass replaces
/// the placeholders that entities reach by the objects of their names. It never fails: a name that
/// isn't found leaves its placeholder in place, marked as reported.
///
/// An object is one run of the pass, over as much of a model as it is called for. What it has come
/// by is forgotten with it, so that the next run goes over everything again.
class Resolver
{
public:
    /// Gets each placeholder that stays, once: a conversion, or a type. `entity` is the one that
    /// reaches it; null if the run began below entities.
    using Report = std::function<void(const PhObject& placeholder, const PhEntity* entity)>;

    explicit Resolver(Report report) : report_(std::move(report)) {}

    void resolve(const PhRoot& root);
    /// Names are looked up in the group and then in the groups above.
    void resolve(const PhGroup& group);
    void resolve(PhEntity& entity, const PhGroup& group);
    void resolve(PhType& type, const PhGroup& group);
    void resolve(PhConversion& conversion, const PhGroup& group);

private:
    template <class Object, class Find, class Store>
    Object* resolved(Object* held, Find find, Store store);
    bool leadsBack(const PhConversion* from, const PhConversion* start) const;

    Report report_;
    const PhEntity* entity_ = nullptr; ///< Where the walk has begun.
    /// The conversions that were come by, each with the one at which that walk began.
    std::unordered_map<const PhConversion*, const PhConversion*> walks_;
};

} // namespace tavo
