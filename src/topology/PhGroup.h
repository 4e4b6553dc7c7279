#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhChannel;
class PhCluster;
class PhCommParam;
class PhConversion;
class PhEcu;
class PhEntity;
class PhFrame;
class PhFunction;
class PhList;
class PhMemoryPage;
class PhRoot;
class PhService;
class PhSignal;
class PhStructure;
class PhType;
class PhUnit;
struct PhGroupPrivate;

/// Node of the model's tree, owner of nearly everything in it, and a scope of names: what isn't
/// found in a group is looked for in its parent. A PROJECT is a group, and each MODULE is a child
/// of its PROJECT. The A2L block GROUP is something else and makes none.
///
/// Lists may be null; an append operation makes the list if it is missing, and takes a count.
class PhGroup : public PhObject
{
public:
    PhGroup();
    /// Leaves children that are held elsewhere alive, without a parent.
    ~PhGroup() override;

    /// What the group stands for.
    PhGroupType groupType() const;
    void setGroupType(PhGroupType groupType);

    /// The enclosing group, null for a top-level one. A plain back pointer that owns no count;
    /// `appendGroup` sets it.
    PhGroup* parent() const;
    void setParent(PhGroup* parent);

    /// The lists, in the order of appending.
    PhList* memoryPages() const; ///< `PhMemoryPage`, from MEMORY_SEGMENT.
    PhList* commParams() const;  ///< `PhCommParam`, from IF_DATA.
    PhList* units() const;       ///< `PhUnit`. A unit of a COMPU_METHOD is its conversion's alone.
    PhList* types() const;       ///< `PhType`. A type of a MEASUREMENT is its entity's alone.
    PhList* signals() const;     ///< `PhSignal`.
    PhList* structures() const;  ///< `PhStructure`.
    PhList* services() const;    ///< `PhService`.
    PhList* frames() const;      ///< `PhFrame`. The A2L block FRAME makes none.
    PhList* conversions() const; ///< `PhConversion`, from COMPU_METHOD and the tables.
    PhList* entities() const;    ///< `PhEntity`, from MEASUREMENT.
    PhList* requests() const;    ///< Requests of services, of no particular class.
    PhList* responses() const;   ///< Responses of services, of no particular class.
    PhList* functions() const;   ///< `PhFunction`. The A2L block FUNCTION makes none.
    PhList* ecus() const;        ///< `PhEcu`.
    PhList* channels() const;    ///< `PhChannel`.
    PhList* clusters() const;    ///< `PhCluster`.
    PhList* groups() const;      ///< `PhGroup`: the children, from MODULE.

    /// Append at the tail. Nothing refuses a name twice.
    void appendMemoryPage(PhMemoryPage* memoryPage);
    void appendCommParam(PhCommParam* commParam);
    void appendUnit(PhUnit* unit);
    void appendType(PhType* type);
    void appendSignal(PhSignal* signal);
    void appendStructure(PhStructure* structure);
    void appendService(PhService* service);
    void appendFrame(PhFrame* frame);
    void appendConversion(PhConversion* conversion);
    void appendEntity(PhEntity* entity);
    void appendRequest(PhObject* request);
    void appendResponse(PhObject* response);
    void appendFunction(PhFunction* function);
    void appendEcu(PhEcu* ecu);
    void appendChannel(PhChannel* channel);
    void appendCluster(PhCluster* cluster);
    /// Makes this group the parent of `group`.
    void appendGroup(PhGroup* group);

    /// Remove the first element with this id; nothing happens if there is none.
    void removeUnit(std::uint32_t id);
    void removeType(std::uint32_t id);
    void removeSignal(std::uint32_t id);
    void removeStructure(std::uint32_t id);
    void removeService(std::uint32_t id);
    void removeFrame(std::uint32_t id);
    void removeConversion(std::uint32_t id);
    void removeEntity(std::uint32_t id);
    void removeRequest(std::uint32_t id);
    void removeResponse(std::uint32_t id);
    /// A child that is held elsewhere stays alive, and without a parent unless it stands in this
    /// group's list a second time.
    void removeGroup(std::uint32_t id);

    /// The comm param of this name in this group alone; null if there is none.
    PhCommParam* findCommParam(const PhString& name) const;

    /// Look the name up in this group, then in its parent, and so on up to the top. The first match
    /// in the innermost group wins; null says that there is none.
    PhUnit* resolveUnitByName(const PhString& name) const;
    PhType* resolveTypeByName(const PhString& name) const;
    PhStructure* resolveStructureByName(const PhString& name) const;
    PhService* resolveService(const PhString& name) const;
    PhConversion* resolveConversion(const PhString& name) const;
    /// Begins to fetch what `resolveConversion` of this name, or `appendConversion`, will need from
    /// the memory, while the caller does something else.
    void prepareConversion(const PhString& name) const;

    /// The same by external id.
    PhUnit* resolveUnit(const PhString& externalId) const;
    PhType* resolveType(const PhString& externalId) const;
    PhSignal* resolveSignal(const PhString& externalId) const;
    PhStructure* resolveStructure(const PhString& externalId) const;
    PhFrame* resolveFrame(const PhString& externalId) const;
    PhObject* resolveRequest(const PhString& externalId) const;
    PhObject* resolveResponse(const PhString& externalId) const;
    PhFunction* resolveFunction(const PhString& externalId) const;
    PhEcu* resolveEcu(const PhString& externalId) const;
    PhChannel* resolveChannel(const PhString& externalId) const;

    /// Search the groups below this one, depth first and each group before its children; the first
    /// match wins, and null says that there is none. A null text finds a group whose text is null.
    PhGroup* findGroupByExternalId(const PhString& externalId) const;
    PhGroup* findGroupByName(const PhString& name) const;

    /// Replaces the placeholders that the entities of the children, and then those of this group,
    /// reach. What isn't found is reported to the root's logger.
    void resolve(PhRoot* root);

private:
    std::unique_ptr<PhGroupPrivate> d;
};

} // namespace tavo
