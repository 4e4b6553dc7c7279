#include "topology/PhGroup.h"

#include "model/PhConversion.h"
#include "model/PhSignal.h"
#include "model/PhStructure.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/ownership.h"
#include "objects.h"
#include "support/RecordingLogger.h"
#include "topology/PhChannel.h"
#include "topology/PhCluster.h"
#include "topology/PhCommParam.h"
#include "topology/PhEcu.h"
#include "topology/PhEntity.h"
#include "topology/PhFrame.h"
#include "topology/PhFunction.h"
#include "topology/PhMemoryPage.h"
#include "topology/PhRoot.h"
#include "topology/PhService.h"

#include <functional>

using namespace tavo;

namespace {

/// One of the seventeen lists with the operations that it has.
struct ListOfGroup
{
    const char* name;
    PhList* (PhGroup::*list)() const;
    /// Makes a mortal element, that bears the label as name and external id, and appends it.
    std::function<PhObject*(PhGroup&, Deaths&, const char* label)> append;
    void (PhGroup::*remove)(std::uint32_t);
    std::function<PhObject*(const PhGroup&, const PhString&)> byName;
    std::function<PhObject*(const PhGroup&, const PhString&)> byExternalId;
};

template <class Element>
ListOfGroup listOfGroup(const char* name, PhList* (PhGroup::*list)() const,
                        void (PhGroup::*append)(Element*), void (PhGroup::*remove)(std::uint32_t),
                        Element* (PhGroup::*byName)(const PhString&) const = nullptr,
                        Element* (PhGroup::*byExternalId)(const PhString&) const = nullptr)
{
    const auto appendFresh = [append](PhGroup& group, Deaths& deaths, const char* label) {
        auto* element = deaths.mortal<Element>(label);
        element->setExternalId(label);
        (group.*append)(element);
        return element;
    };
    return {name, list, appendFresh, remove, byName, byExternalId};
}

#define LIST(name, Element, ...) listOfGroup<Ph##Element>(#name, &PhGroup::name, __VA_ARGS__)

/// All lists, in the order of the record.
const std::vector<ListOfGroup> lists = {
    LIST(memoryPages, MemoryPage, &PhGroup::appendMemoryPage, nullptr),
    LIST(commParams, CommParam, &PhGroup::appendCommParam, nullptr),
    LIST(units, Unit, &PhGroup::appendUnit, &PhGroup::removeUnit, &PhGroup::resolveUnitByName,
         &PhGroup::resolveUnit),
    LIST(types, Type, &PhGroup::appendType, &PhGroup::removeType, &PhGroup::resolveTypeByName,
         &PhGroup::resolveType),
    LIST(signals, Signal, &PhGroup::appendSignal, &PhGroup::removeSignal, nullptr,
         &PhGroup::resolveSignal),
    LIST(structures, Structure, &PhGroup::appendStructure, &PhGroup::removeStructure,
         &PhGroup::resolveStructureByName, &PhGroup::resolveStructure),
    LIST(services, Service, &PhGroup::appendService, &PhGroup::removeService,
         &PhGroup::resolveService),
    LIST(frames, Frame, &PhGroup::appendFrame, &PhGroup::removeFrame, nullptr,
         &PhGroup::resolveFrame),
    LIST(conversions, Conversion, &PhGroup::appendConversion, &PhGroup::removeConversion,
         &PhGroup::resolveConversion),
    LIST(entities, Entity, &PhGroup::appendEntity, &PhGroup::removeEntity),
    LIST(requests, Object, &PhGroup::appendRequest, &PhGroup::removeRequest, nullptr,
         &PhGroup::resolveRequest),
    LIST(responses, Object, &PhGroup::appendResponse, &PhGroup::removeResponse, nullptr,
         &PhGroup::resolveResponse),
    LIST(functions, Function, &PhGroup::appendFunction, nullptr, nullptr,
         &PhGroup::resolveFunction),
    LIST(ecus, Ecu, &PhGroup::appendEcu, nullptr, nullptr, &PhGroup::resolveEcu),
    LIST(channels, Channel, &PhGroup::appendChannel, nullptr, nullptr, &PhGroup::resolveChannel),
    LIST(clusters, Cluster, &PhGroup::appendCluster, nullptr),
    LIST(groups, Group, &PhGroup::appendGroup, &PhGroup::removeGroup),
};

#undef LIST

PhGroup* named(const char* name)
{
    auto* group = new PhGroup;
    group->setName(name);
    group->setExternalId((std::string("id of ") + (name ? name : "none")).c_str());
    return group;
}

} // namespace

TEST(PhGroup, EachAppendFillsItsOwnListAtTheTail)
{
    Deaths deaths;
    PhGroup group;
    EXPECT_EQ(group.classId(), 15);
    EXPECT_EQ(group.groupType(), PhGroupType::Undefined);
    for (const ListOfGroup& row : lists) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ((group.*row.list)(), nullptr);
        PhObject* first = row.append(group, deaths, "equal names");
        PhObject* second = row.append(group, deaths, "equal names");
        ASSERT_NE((group.*row.list)(), nullptr);
        EXPECT_EQ((group.*row.list)()->count(), 2U);
        EXPECT_EQ((group.*row.list)()->first(), first);
        EXPECT_EQ((group.*row.list)()->last(), second);
        EXPECT_EQ(first->refCount(), 1);
    }
}

TEST(PhGroup, EachRemoveTakesTheElementOfThatIdFromItsOwnList)
{
    for (const ListOfGroup& row : lists) {
        if (!row.remove)
            continue;
        SCOPED_TRACE(row.name);
        Deaths deaths;
        PhGroup group;
        (group.*row.remove)(0);
        EXPECT_EQ((group.*row.list)(), nullptr);

        PhObject* kept = row.append(group, deaths, "kept");
        const std::uint32_t id = row.append(group, deaths, "removed")->id();
        (group.*row.remove)(group.id());
        EXPECT_EQ((group.*row.list)()->count(), 2U);
        (group.*row.remove)(id);
        EXPECT_EQ(deaths.take(), "removed");
        EXPECT_EQ((group.*row.list)()->count(), 1U);
        EXPECT_EQ((group.*row.list)()->first(), kept);
    }
}

TEST(PhGroup, ListsDieInTheirOrderWithCommParamsAheadAndChildrenLast)
{
    Deaths deaths;
    auto* group = new PhGroup;
    for (const ListOfGroup& row : lists)
        row.append(*group, deaths, row.name);
    delete group;
    EXPECT_EQ(deaths.take(),
              "commParams memoryPages units types signals structures services frames "
              "conversions entities requests responses functions ecus channels "
              "clusters groups");
}

TEST(PhGroup, LookUpsSearchFromTheInnermostGroupUpward)
{
    Deaths deaths;
    for (const ListOfGroup& row : lists)
        for (const bool byName : {true, false}) {
            const auto& lookUp = byName ? row.byName : row.byExternalId;
            if (!lookUp)
                continue;
            SCOPED_TRACE(std::string(row.name) + (byName ? " by name" : " by external id"));
            PhRoot root;
            PhGroup* project = named("project");
            PhGroup* module = named("module");
            PhGroup* sibling = named("sibling");
            root.appendGroup(project);
            project->appendGroup(module);
            project->appendGroup(sibling);

            EXPECT_EQ(lookUp(*module, "shared"), nullptr);
            PhObject* outer = row.append(*project, deaths, "shared");
            EXPECT_EQ(lookUp(*module, "shared"), outer);
            PhObject* inner = row.append(*module, deaths, "shared");
            row.append(*module, deaths, "shared");
            row.append(*sibling, deaths, "sibling's");
            EXPECT_EQ(lookUp(*module, "shared"), inner);
            EXPECT_EQ(lookUp(*project, "shared"), outer);
            EXPECT_EQ(lookUp(*module, "Shared"), nullptr);
            EXPECT_EQ(lookUp(*module, "sibling's"), nullptr);
            EXPECT_EQ(lookUp(*project, "sibling's"), nullptr);

            // The other text must not be what is compared.
            if (byName)
                inner->setExternalId("different");
            else
                inner->setName("different");
            EXPECT_EQ(lookUp(*module, "shared"), inner);
        }
}

TEST(PhGroup, FindsACommParamInItselfAlone)
{
    PhRoot root;
    PhGroup* project = named("project");
    PhGroup* module = named("module");
    root.appendGroup(project);
    project->appendGroup(module);
    auto* commParam = new PhCommParam;
    commParam->setName("CCP");
    project->appendCommParam(commParam);
    EXPECT_EQ(project->findCommParam("CCP"), commParam);
    EXPECT_EQ(project->findCommParam("XCP"), nullptr);
    EXPECT_EQ(module->findCommParam("CCP"), nullptr);
}

TEST(PhGroup, IsTheParentOfItsChildrenUntilTheyLeave)
{
    PhGroup* parent = named("parent");
    const PhHold<PhGroup> removed(named("removed"));
    const PhHold<PhGroup> survivor(named("survivor"));
    const PhHold<PhGroup> adopted(named("adopted"));
    PhGroup other;
    for (PhGroup* child : {removed.get(), survivor.get(), adopted.get()}) {
        EXPECT_EQ(child->parent(), nullptr);
        parent->appendGroup(child);
        EXPECT_EQ(child->parent(), parent);
    }

    parent->removeGroup(removed->id());
    EXPECT_EQ(removed->parent(), nullptr);
    EXPECT_EQ(removed->refCount(), 1);

    other.appendGroup(adopted.get());
    parent->removeGroup(adopted->id());
    EXPECT_EQ(adopted->parent(), &other);

    delete parent;
    EXPECT_EQ(survivor->parent(), nullptr);
    EXPECT_EQ(survivor->refCount(), 1);
}

TEST(PhRoot, OwnsTopLevelGroupsThatHaveNoParent)
{
    Holder<PhRoot> root(16);
    root->removeGroup(0);
    EXPECT_EQ(root->groups(), nullptr);
    root.list(&PhRoot::appendGroup, &PhRoot::groups, "group");
    auto* removed = root.deaths().mortal<PhGroup>("removed");
    root->appendGroup(removed);
    EXPECT_EQ(removed->parent(), nullptr);
    root->removeGroup(root->id());
    root->removeGroup(removed->id());
    EXPECT_EQ(root.deaths().take(), "removed");
    EXPECT_EQ(root.releaseOrder(), "group1 group2");
}

TEST(PhRoot, SearchesDepthFirstAndEachGroupBeforeItsChildren)
{
    // first: a (twin, one without a name), twin
    // second: b
    PhRoot root;
    EXPECT_EQ(root.findGroupByName("first"), nullptr);
    PhGroup* first = named("first");
    PhGroup* second = named("second");
    PhGroup* a = named("a");
    PhGroup* b = named("b");
    PhGroup* deepTwin = named("twin");
    PhGroup* twin = named("twin");
    PhGroup* nameless = named(nullptr);
    root.appendGroup(first);
    root.appendGroup(second);
    first->appendGroup(a);
    first->appendGroup(twin);
    second->appendGroup(b);
    a->appendGroup(deepTwin);
    a->appendGroup(nameless);

    const struct
    {
        const char* name;
        PhGroup* inRoot;
        PhGroup* belowFirst;
    } cases[] = {
        {"first", first, nullptr},
        {"a", a, a},
        {"twin", deepTwin, deepTwin},
        {"second", second, nullptr},
        {"b", b, nullptr},
        {nullptr, nameless, nameless},
        {"A", nullptr, nullptr},
        {"", nullptr, nullptr},
    };
    for (const auto& [name, inRoot, belowFirst] : cases) {
        SCOPED_TRACE(name ? name : "null");
        EXPECT_EQ(root.findGroupByName(name), inRoot);
        EXPECT_EQ(first->findGroupByName(name), belowFirst);
    }
    EXPECT_EQ(root.findGroupByExternalId("id of b"), b);
    EXPECT_EQ(root.findGroupByExternalId("b"), nullptr);
    EXPECT_EQ(first->findGroupByExternalId("id of twin"), deepTwin);
    EXPECT_EQ(first->findGroupByExternalId("id of b"), nullptr);
    EXPECT_EQ(b->findGroupByName("b"), nullptr);
}

TEST(PhRoot, LogsToItsSinkOrElseToStandardOutput)
{
    RecordingLogger sink;
    {
        PhRoot root;
        testing::internal::CaptureStdout();
        root.log("%s %d\n", "line", 1);
        root.setLogger(&sink);
        root.log("%s %d\n", "line", 2);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "-: line 1\n");
    }
    EXPECT_EQ(sink.text, "message: line 2\n");
}

TEST(PhFunction, ReleasesItsSignalsInOrder)
{
    EXPECT_EQ(Holder<PhFunction>(23)
                  .list(&PhFunction::appendOutputSignal, &PhFunction::outputSignals, "out")
                  .list(&PhFunction::appendInputSignal, &PhFunction::inputSignals, "in")
                  .releaseOrder(),
              "in1 in2 out1 out2");
}
