#pragma once

#include <functional>
#include <unordered_map>

namespace tavo {

class PhConversion;
class PhConversionRef;
class PhEntity;
class PhGroup;
class PhRoot;
class PhString;
class PhType;
struct PhTypeFields;

/// Name resolution. A description may refer to a conversion before its definition; the reader puts
/// the name there, and who asks for the conversion gets a placeholder, which knows the name and
/// nothing else. Once all is read, this pass replaces the names and placeholders that entities
/// reach by the objects. It never fails: a name that isn't found stays, marked as reported.
///
/// An object is one run of the pass, over as much of a model as it is called for. What it has come
/// by is forgotten with it, so that the next run goes over everything again.
class Resolver
{
public:
    /// A reference that leads nowhere.
    struct Unresolved
    {
        const PhString& name;
        bool isType;            ///< Else it is one to a conversion.
        bool isOfConversion;    ///< It stands in a conversion.
        const PhEntity* entity; ///< From which it is reached; null if the run began below entities.
    };
    /// Gets each reference that stays unresolved, once.
    using Report = std::function<void(const Unresolved&)>;

    explicit Resolver(Report report) : report_(std::move(report)) {}

    void resolve(const PhRoot& root);
    /// Names are looked up in the group and then in the groups above.
    void resolve(const PhGroup& group);
    void resolve(PhEntity& entity, const PhGroup& group);
    void resolve(PhType& type, const PhGroup& group);
    void resolve(PhTypeFields& type, const PhGroup& group);
    void resolve(PhConversion& conversion, const PhGroup& group);

private:
    template <class Object, class Find, class Store>
    Object* resolved(Object* held, bool isOfConversion, Find find, Store store);
    template <class Find>
    PhConversion* resolved(PhConversionRef& reference, bool isOfConversion, Find find);
    bool leadsBack(const PhConversion* from, const PhConversion* start) const;

    Report report_;
    const PhEntity* entity_ = nullptr; ///< Where the walk has begun.
    /// The conversions that were come by, each with the one at which that walk began.
    std::unordered_map<const PhConversion*, const PhConversion*> walks_;
};

} // namespace tavo
