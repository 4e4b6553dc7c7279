// How groups and networks find and remove what they hold.

#include "model/ownership.h"
#include "support/model.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

/// A fresh object of this name and external id; a value where any object will do.
template <class Object> Object* made(const PhString& name, const PhString& externalId)
{
    using Made = std::conditional_t<std::is_same_v<Object, PhObject>, PhValue, Object>;
    auto* object = new Made;
    object->setName(name);
    object->setExternalId(externalId);
    return object;
}

PhGroup* group(const char* name)
{
    return made<PhGroup>(name, name ? PhString("id of ") + PhString(name) : PhString());
}

/// A look-up searches from its group upward, and compares the text that `setText` sets.
template <class Element>
void expectLookUp(void (PhGroup::*append)(Element*),
                  Element* (PhGroup::*lookUp)(const PhString&) const,
                  void (PhObject::*setText)(const PhString&))
{
    const auto add = [&](PhGroup* group, const char* label) {
        Element* element = made<Element>("other", "other");
        (element->*setText)(label);
        (group->*append)(element);
        return element;
    };
    PhGroup project;
    PhGroup* module = group("module");
    PhGroup* sibling = group("sibling");
    project.appendGroup(module);
    project.appendGroup(sibling);
    EXPECT_EQ((module->*lookUp)("shared"), nullptr);
    Element* outer = add(&project, "shared");
    EXPECT_EQ((module->*lookUp)("shared"), outer);
    Element* inner = add(module, "shared");
    add(module, "shared");
    add(sibling, "sibling's");
    EXPECT_EQ((module->*lookUp)("shared"), inner);
    EXPECT_EQ((project.*lookUp)("shared"), outer);
    for (const char* label : {"Shared", "sibling's", "other"})
        EXPECT_EQ((module->*lookUp)(label), nullptr) << label;
}

/// A removal takes the element with that id from its own list, and nothing else.
template <class Element>
void expectRemoval(void (PhGroup::*append)(Element*), void (PhGroup::*remove)(std::uint32_t),
                   PhList* (PhGroup::*list)() const)
{
    PhGroup owner;
    (owner.*remove)(0);
    EXPECT_EQ((owner.*list)(), nullptr);
    const PhRef<Element> kept(made<Element>(nullptr, nullptr));
    const PhRef<Element> removed(made<Element>(nullptr, nullptr));
    (owner.*append)(kept.get());
    (owner.*append)(removed.get());
    (owner.*remove)(owner.id());
    EXPECT_EQ((owner.*list)()->count(), 2U);
    (owner.*remove)(removed->id());
    EXPECT_EQ(removed->refCount(), 1);
    EXPECT_EQ((owner.*list)()->count(), 1U);
    EXPECT_EQ((owner.*list)()->first(), kept.get());
}

} // namespace

TEST(PhGroupTest, LookUpsSearchFromTheInnermostGroupUpward)
{
    using Group = PhGroup;
    expectLookUp(&Group::appendUnit, &Group::resolveUnitByName, &Group::setName);
    expectLookUp(&Group::appendType, &Group::resolveTypeByName, &Group::setName);
    expectLookUp(&Group::appendStructure, &Group::resolveStructureByName, &Group::setName);
    expectLookUp(&Group::appendService, &Group::resolveService, &Group::setName);
    expectLookUp(&Group::appendConversion, &Group::resolveConversion, &Group::setName);
    expectLookUp(&Group::appendUnit, &Group::resolveUnit, &Group::setExternalId);
    expectLookUp(&Group::appendType, &Group::resolveType, &Group::setExternalId);
    expectLookUp(&Group::appendSignal, &Group::resolveSignal, &Group::setExternalId);
    expectLookUp(&Group::appendStructure, &Group::resolveStructure, &Group::setExternalId);
    expectLookUp(&Group::appendFrame, &Group::resolveFrame, &Group::setExternalId);
    expectLookUp(&Group::appendRequest, &Group::resolveRequest, &Group::setExternalId);
    expectLookUp(&Group::appendResponse, &Group::resolveResponse, &Group::setExternalId);
    expectLookUp(&Group::appendFunction, &Group::resolveFunction, &Group::setExternalId);
    expectLookUp(&Group::appendEcu, &Group::resolveEcu, &Group::setExternalId);
    expectLookUp(&Group::appendChannel, &Group::resolveChannel, &Group::setExternalId);
}

TEST(PhGroupTest, EachRemovalTakesTheElementOfThatIdFromItsOwnList)
{
    using Group = PhGroup;
    expectRemoval(&Group::appendUnit, &Group::removeUnit, &Group::units);
    expectRemoval(&Group::appendType, &Group::removeType, &Group::types);
    expectRemoval(&Group::appendSignal, &Group::removeSignal, &Group::signals);
    expectRemoval(&Group::appendStructure, &Group::removeStructure, &Group::structures);
    expectRemoval(&Group::appendService, &Group::removeService, &Group::services);
    expectRemoval(&Group::appendFrame, &Group::removeFrame, &Group::frames);
    expectRemoval(&Group::appendConversion, &Group::removeConversion, &Group::conversions);
    expectRemoval(&Group::appendEntity, &Group::removeEntity, &Group::entities);
    expectRemoval(&Group::appendRequest, &Group::removeRequest, &Group::requests);
    expectRemoval(&Group::appendResponse, &Group::removeResponse, &Group::responses);
    expectRemoval(&Group::appendGroup, &Group::removeGroup, &Group::groups);
}

TEST(PhGroupTest, IsTheParentOfItsChildrenUntilTheyLeave)
{
    PhGroup* parent = group("parent");
    const PhRef<PhGroup> removed(group("removed"));
    const PhRef<PhGroup> survivor(group("survivor"));
    const PhRef<PhGroup> adopted(group("adopted"));
    PhGroup other;
    for (PhGroup* child : {removed.get(), survivor.get(), adopted.get()}) {
        EXPECT_EQ(child->parent(), nullptr);
        parent->appendGroup(child);
        EXPECT_EQ(child->parent(), parent);
    }
    parent->appendGroup(removed.get());
    parent->removeGroup(removed->id());
    EXPECT_EQ(removed->parent(), parent) << "still listed";
    parent->removeGroup(removed->id());
    EXPECT_EQ(removed->parent(), nullptr);
    other.appendGroup(adopted.get());
    parent->removeGroup(adopted->id());
    EXPECT_EQ(adopted->parent(), &other);
    delete parent;
    EXPECT_EQ(survivor->parent(), nullptr);
    EXPECT_EQ(survivor->refCount(), 1);
}

TEST(PhRootTest, SearchesDepthFirstAndEachGroupBeforeItsChildren)
{
    // first: a (twin, one without a name), twin
    // second
    PhRoot root;
    EXPECT_EQ(root.findGroupByName("first"), nullptr);
    PhGroup* first = group("first");
    PhGroup* second = group("second");
    PhGroup* a = group("a");
    PhGroup* twin = group("twin");
    PhGroup* nameless = group(nullptr);
    root.appendGroup(first);
    root.appendGroup(second);
    first->appendGroup(a);
    first->appendGroup(group("twin"));
    a->appendGroup(twin);
    a->appendGroup(nameless);

    for (PhGroup* wanted : {first, a, twin, second, nameless}) {
        const bool isBelow = wanted != first && wanted != second;
        EXPECT_EQ(root.findGroupByName(wanted->name()), wanted);
        EXPECT_EQ(root.findGroupByExternalId(wanted->externalId()), wanted);
        EXPECT_EQ(first->findGroupByName(wanted->name()), isBelow ? wanted : nullptr);
        EXPECT_EQ(first->findGroupByExternalId(wanted->externalId()), isBelow ? wanted : nullptr);
    }
    EXPECT_EQ(root.findGroupByName("A"), nullptr);
    EXPECT_EQ(root.findGroupByExternalId("a"), nullptr);

    EXPECT_EQ(first->parent(), nullptr);
    root.removeGroup(root.id());
    root.removeGroup(first->id());
    EXPECT_EQ(root.groups()->first(), second);
}

TEST(PhEcuTest, FindsConnectorsByTheExternalIdOfTheirChannel)
{
    PhEcu ecu;
    const PhRef<PhChannel> wanted(new PhChannel);
    EXPECT_EQ(ecu.findConnector(wanted.get()), nullptr);
    ecu.appendConnector(new PhConnector); // without a channel
    const char* const ids[] = {"", nullptr, "can0", "can0"};
    for (const char* id : ids) {
        ecu.appendConnector(new PhConnector);
        static_cast<PhConnector*>(ecu.connectors()->last())
            ->setChannel(made<PhChannel>(nullptr, id));
    }
    for (int i = 0; i < 3; ++i) {
        wanted->setExternalId(ids[i]);
        EXPECT_EQ(ecu.findConnector(wanted.get()), ecu.connectors()->at(i + 1));
    }
    EXPECT_EQ(ecu.findConnector(nullptr), nullptr);
}

namespace {

/// The operation of each level of mappings finds the mapping of two ends by their external ids, or
/// makes it. A missing end is equal to nothing.
template <class Owner, class Mapping>
void expectOneMappingForEachPair(Mapping* (Owner::*findOrCreate)(PhObject*, PhObject*),
                                 PhList* (Owner::*list)() const)
{
    const PhRef<PhObject> a(made<PhObject>(nullptr, "a"));
    const PhRef<PhObject> sameA(made<PhObject>(nullptr, "a"));
    const PhRef<PhObject> blank(made<PhObject>(nullptr, ""));
    const PhRef<PhObject> null(made<PhObject>(nullptr, nullptr));
    Owner owner;
    for (int round = 0; round < 2; ++round)
        for (PhObject* target :
             {a.get(), blank.get(), null.get(), static_cast<PhObject*>(nullptr)}) {
            const Mapping* there = (owner.*findOrCreate)((round ? sameA : a).get(), target);
            EXPECT_EQ(there->source(), round && !target ? sameA.get() : a.get());
            EXPECT_EQ(there->target(), target);
            (owner.*findOrCreate)(target, blank.get());
        }
    // Five pairs of ends, and in each round two mappings more with a missing end.
    EXPECT_EQ((owner.*list)()->count(), 5U + 2U * 2U);
    EXPECT_EQ(sameA->refCount(), 2);
}

} // namespace

TEST(MappingTest, OnePairOfExternalIdsHasOneMapping)
{
    expectOneMappingForEachPair(&PhEcu::findOrCreateConnectorMapping, &PhEcu::connectorMappings);
    expectOneMappingForEachPair(&PhConnectorMapping::findOrCreateFrameMapping,
                                &PhConnectorMapping::frameMappings);
    expectOneMappingForEachPair(&PhFrameMapping::findOrCreateSignalMapping,
                                &PhFrameMapping::signalMappings);
}
