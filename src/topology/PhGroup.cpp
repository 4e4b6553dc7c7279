#include "topology/PhGroup.h"

#include "model/PhConversion.h"
#include "model/PhSignal.h"
#include "model/PhStructure.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/ownership.h"
#include "network/PhChannel.h"
#include "network/PhCluster.h"
#include "network/PhEcu.h"
#include "network/PhFrame.h"
#include "network/PhFunction.h"
#include "network/PhService.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhMemoryPage.h"
#include "topology/search.h"

namespace tavo {

namespace {

/// The children of a group, which may outlive it: none of them leads back to it then.
class Children : public PhLazyList
{
public:
    ~Children()
    {
        for (PhGroup* child : each<PhGroup>(*this))
            child->setParent(nullptr);
    }
};

} // namespace

struct PhGroupPrivate : Pooled
{
    PhGroupType groupType = PhGroupType::Undefined;
    PhGroup* parent = nullptr; ///< Back pointer without a count.
    Children groups;
    PhLazyList clusters;
    PhLazyList channels;
    PhLazyList ecus;
    PhLazyList functions;
    PhLazyList responses;
    PhLazyList requests;
    PhLazyList entities;
    PhLazyList conversions;
    PhLazyList frames;
    PhLazyList services;
    PhLazyList structures;
    PhLazyList signals;
    PhLazyList types;
    PhLazyList units;
    PhLazyList memoryPages;
    PhLazyList commParams;
};

PhGroup::PhGroup() : PhObject(PhClassGroup), d(new PhGroupPrivate) {}

PhGroup::~PhGroup() = default;

PhGroupType PhGroup::groupType() const { return d->groupType; }

void PhGroup::setGroupType(PhGroupType groupType) { d->groupType = groupType; }

PhGroup* PhGroup::parent() const { return d->parent; }

void PhGroup::setParent(PhGroup* parent) { d->parent = parent; }

PhList* PhGroup::memoryPages() const { return d->memoryPages; }
PhList* PhGroup::commParams() const { return d->commParams; }
PhList* PhGroup::units() const { return d->units; }
PhList* PhGroup::types() const { return d->types; }
PhList* PhGroup::signals() const { return d->signals; }
PhList* PhGroup::structures() const { return d->structures; }
PhList* PhGroup::services() const { return d->services; }
PhList* PhGroup::frames() const { return d->frames; }
PhList* PhGroup::conversions() const { return d->conversions; }
PhList* PhGroup::entities() const { return d->entities; }
PhList* PhGroup::requests() const { return d->requests; }
PhList* PhGroup::responses() const { return d->responses; }
PhList* PhGroup::functions() const { return d->functions; }
PhList* PhGroup::ecus() const { return d->ecus; }
PhList* PhGroup::channels() const { return d->channels; }
PhList* PhGroup::clusters() const { return d->clusters; }
PhList* PhGroup::groups() const { return d->groups; }

void PhGroup::appendMemoryPage(PhMemoryPage* memoryPage) { d->memoryPages.append(memoryPage); }
void PhGroup::appendCommParam(PhCommParam* commParam) { d->commParams.append(commParam); }
void PhGroup::appendUnit(PhUnit* unit) { d->units.append(unit); }
void PhGroup::appendType(PhType* type) { d->types.append(type); }
void PhGroup::appendSignal(PhSignal* signal) { d->signals.append(signal); }
void PhGroup::appendStructure(PhStructure* structure) { d->structures.append(structure); }
void PhGroup::appendService(PhService* service) { d->services.append(service); }
void PhGroup::appendFrame(PhFrame* frame) { d->frames.append(frame); }
void PhGroup::appendConversion(PhConversion* conversion) { d->conversions.append(conversion); }
void PhGroup::appendEntity(PhEntity* entity) { d->entities.append(entity); }
void PhGroup::appendRequest(PhObject* request) { d->requests.append(request); }
void PhGroup::appendResponse(PhObject* response) { d->responses.append(response); }
void PhGroup::appendFunction(PhFunction* function) { d->functions.append(function); }
void PhGroup::appendEcu(PhEcu* ecu) { d->ecus.append(ecu); }
void PhGroup::appendChannel(PhChannel* channel) { d->channels.append(channel); }
void PhGroup::appendCluster(PhCluster* cluster) { d->clusters.append(cluster); }

void PhGroup::appendGroup(PhGroup* group)
{
    d->groups.append(group);
    if (group)
        group->setParent(this);
}

void PhGroup::removeUnit(std::uint32_t id) { d->units.remove(id); }
void PhGroup::removeType(std::uint32_t id) { d->types.remove(id); }
void PhGroup::removeSignal(std::uint32_t id) { d->signals.remove(id); }
void PhGroup::removeStructure(std::uint32_t id) { d->structures.remove(id); }
void PhGroup::removeService(std::uint32_t id) { d->services.remove(id); }
void PhGroup::removeFrame(std::uint32_t id) { d->frames.remove(id); }
void PhGroup::removeConversion(std::uint32_t id) { d->conversions.remove(id); }
void PhGroup::removeEntity(std::uint32_t id) { d->entities.remove(id); }
void PhGroup::removeRequest(std::uint32_t id) { d->requests.remove(id); }
void PhGroup::removeResponse(std::uint32_t id) { d->responses.remove(id); }

void PhGroup::removeGroup(std::uint32_t id)
{
    PhListNode* node = d->groups ? d->groups->findNodeById(id) : nullptr;
    if (!node)
        return;
    const PhRef<PhGroup> child(static_cast<PhGroup*>(node->object()));
    d->groups->remove(node);
    // Nobody would take the back pointer of a surviving child away when this group dies.
    if (child->parent() == this && !d->groups->findById(id))
        child->setParent(nullptr);
}

PhCommParam* PhGroup::findCommParam(const PhString& name) const
{
    return findByName<PhCommParam>(d->commParams, name);
}

namespace {

/// What `find` gives for `text` in one list of `group`, or else of the nearest group above it.
template <class Element>
Element* resolveIn(const PhGroup* group, PhList* (PhGroup::*list)() const,
                   Element* (*find)(const PhList*, const PhString&), const PhString& text)
{
    for (; group; group = group->parent())
        if (Element* element = find((group->*list)(), text))
            return element;
    return nullptr;
}

} // namespace

PhUnit* PhGroup::resolveUnitByName(const PhString& name) const
{
    return resolveIn(this, &PhGroup::units, findByName<PhUnit>, name);
}

PhType* PhGroup::resolveTypeByName(const PhString& name) const
{
    return resolveIn(this, &PhGroup::types, findByName<PhType>, name);
}

PhStructure* PhGroup::resolveStructureByName(const PhString& name) const
{
    return resolveIn(this, &PhGroup::structures, findByName<PhStructure>, name);
}

PhService* PhGroup::resolveService(const PhString& name) const
{
    return resolveIn(this, &PhGroup::services, findByName<PhService>, name);
}

PhConversion* PhGroup::resolveConversion(const PhString& name) const
{
    return resolveIn(this, &PhGroup::conversions, findByName<PhConversion>, name);
}

void PhGroup::prepareConversion(const PhString& name) const
{
    if (d->conversions)
        d->conversions->prepareName(name);
}

PhUnit* PhGroup::resolveUnit(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::units, findByExternalId<PhUnit>, externalId);
}

PhType* PhGroup::resolveType(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::types, findByExternalId<PhType>, externalId);
}

PhSignal* PhGroup::resolveSignal(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::signals, findByExternalId<PhSignal>, externalId);
}

PhStructure* PhGroup::resolveStructure(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::structures, findByExternalId<PhStructure>, externalId);
}

PhFrame* PhGroup::resolveFrame(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::frames, findByExternalId<PhFrame>, externalId);
}

PhObject* PhGroup::resolveRequest(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::requests, findByExternalId<PhObject>, externalId);
}

PhObject* PhGroup::resolveResponse(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::responses, findByExternalId<PhObject>, externalId);
}

PhFunction* PhGroup::resolveFunction(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::functions, findByExternalId<PhFunction>, externalId);
}

PhEcu* PhGroup::resolveEcu(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::ecus, findByExternalId<PhEcu>, externalId);
}

PhChannel* PhGroup::resolveChannel(const PhString& externalId) const
{
    return resolveIn(this, &PhGroup::channels, findByExternalId<PhChannel>, externalId);
}

PhGroup* PhGroup::findGroupByExternalId(const PhString& externalId) const
{
    return findGroup(d->groups, &PhObject::peekExternalId, externalId);
}

PhGroup* PhGroup::findGroupByName(const PhString& name) const
{
    return findGroup(d->groups, &PhObject::name, name);
}

} // namespace tavo
