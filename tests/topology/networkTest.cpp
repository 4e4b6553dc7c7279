#include "model/ownership.h"
#include "objects.h"
#include "topology/PhChannel.h"
#include "topology/PhCluster.h"
#include "topology/PhConnector.h"
#include "topology/PhConnectorMapping.h"
#include "topology/PhController.h"
#include "topology/PhEcu.h"
#include "topology/PhFrame.h"
#include "topology/PhFrameMapping.h"
#include "topology/PhFrameTriggering.h"
#include "topology/PhFunction.h"
#include "topology/PhScheduleTable.h"
#include "topology/PhScheduleTableEntry.h"
#include "topology/PhService.h"
#include "topology/PhSignalMapping.h"
#include "topology/PhTiming.h"

using namespace tavo;

namespace {

/// A fresh object with this external id.
template <class Object> Object* identified(const char* externalId)
{
    auto* object = new Object;
    object->setExternalId(externalId);
    return object;
}

} // namespace

TEST(Traffic, ObjectsReleaseTheirFieldsInOrder)
{
    EXPECT_EQ(Holder<PhService>(14)
                  .list(&PhService::appendResponse, &PhService::responses, "response")
                  .ref(&PhService::setRequest, &PhService::request, "request")
                  .releaseOrder(),
              "request response1 response2");
    EXPECT_EQ(Holder<PhFrame>(17)
                  .ref(&PhFrame::setStructure, &PhFrame::structure, "structure")
                  .releaseOrder(),
              "structure");
    EXPECT_EQ(
        Holder<PhFrameTriggering>(18)
            .ref(&PhFrameTriggering::setAuxRef3, &PhFrameTriggering::auxRef3, "aux3")
            .ref(&PhFrameTriggering::setAuxRef2, &PhFrameTriggering::auxRef2, "aux2")
            .ref(&PhFrameTriggering::setTiming, &PhFrameTriggering::timing, "timing")
            .ref(&PhFrameTriggering::setAuxRef1, &PhFrameTriggering::auxRef1, "aux1")
            .ref(&PhFrameTriggering::setIdentifier, &PhFrameTriggering::identifier, "identifier")
            .ref(&PhFrameTriggering::setFrame, &PhFrameTriggering::frame, "frame")
            .releaseOrder(),
        "frame identifier aux1 timing aux2 aux3");
    EXPECT_EQ(Holder<PhTiming>(25)
                  .ref(&PhTiming::setCycle, &PhTiming::cycle, "cycle")
                  .ref(&PhTiming::setDelay, &PhTiming::delay, "delay")
                  .releaseOrder(),
              "delay cycle");
}

TEST(Network, ObjectsReleaseTheirFieldsInOrder)
{
    EXPECT_EQ(Holder<PhCluster>(20)
                  .ref(&PhCluster::setAuxRef2, &PhCluster::auxRef2, "aux2")
                  .ref(&PhCluster::setAuxRef1, &PhCluster::auxRef1, "aux1")
                  .list(&PhCluster::appendChannel, &PhCluster::channels, "channel")
                  .releaseOrder(),
              "channel1 channel2 aux1 aux2");
    EXPECT_EQ(
        Holder<PhChannel>(19)
            .list(&PhChannel::appendFrameTriggering, &PhChannel::frameTriggerings, "triggering")
            .ref(&PhChannel::setScheduleTable, &PhChannel::scheduleTable, "table")
            .ref(&PhChannel::setCluster, &PhChannel::cluster, "cluster")
            .releaseOrder(),
        "cluster table triggering1 triggering2");
    EXPECT_EQ(
        Holder<PhConnector>(21)
            .list(&PhConnector::appendInputFrame, &PhConnector::inputFrames, "frame")
            .list(&PhConnector::appendInputSignal, &PhConnector::inputSignals, "signal")
            .list(&PhConnector::appendFrameTriggering, &PhConnector::frameTriggerings, "triggering")
            .ref(&PhConnector::setChannel, &PhConnector::channel, "channel")
            .ref(&PhConnector::setController, &PhConnector::controller, "controller")
            .releaseOrder(),
        "controller channel triggering1 triggering2 signal1 signal2 frame1 frame2");
    EXPECT_EQ(Holder<PhController>(22)
                  .ref(&PhController::setChannel, &PhController::channel, "channel")
                  .releaseOrder(),
              "channel");
    EXPECT_EQ(
        Holder<PhEcu>(24)
            .list(&PhEcu::appendConnectorMapping, &PhEcu::connectorMappings, "mapping")
            .list(&PhEcu::appendController, &PhEcu::controllers, "controller")
            .list(&PhEcu::appendConnector, &PhEcu::connectors, "connector")
            .list(&PhEcu::appendFunction, &PhEcu::functions, "function")
            .releaseOrder(),
        "function1 function2 connector1 connector2 controller1 controller2 mapping1 mapping2");
}

TEST(Mapping, ObjectsReleaseTheirFieldsInOrder)
{
    EXPECT_EQ(Holder<PhConnectorMapping>(26)
                  .list(&PhConnectorMapping::appendFrameMapping, &PhConnectorMapping::frameMappings,
                        "frame")
                  .ref(&PhConnectorMapping::setTarget, &PhConnectorMapping::target, "target")
                  .ref(&PhConnectorMapping::setSource, &PhConnectorMapping::source, "source")
                  .releaseOrder(),
              "source target frame1 frame2");
    EXPECT_EQ(
        Holder<PhFrameMapping>(27)
            .list(&PhFrameMapping::appendSignalMapping, &PhFrameMapping::signalMappings, "signal")
            .ref(&PhFrameMapping::setTarget, &PhFrameMapping::target, "target")
            .ref(&PhFrameMapping::setSource, &PhFrameMapping::source, "source")
            .releaseOrder(),
        "source target signal1 signal2");
    EXPECT_EQ(Holder<PhSignalMapping>(28)
                  .ref(&PhSignalMapping::setTarget, &PhSignalMapping::target, "target")
                  .ref(&PhSignalMapping::setSource, &PhSignalMapping::source, "source")
                  .releaseOrder(),
              "source target");
}

TEST(Schedule, ObjectsReleaseTheirFieldsInOrder)
{
    EXPECT_EQ(Holder<PhScheduleTable>(29)
                  .list(&PhScheduleTable::appendScheduleTableEntry,
                        &PhScheduleTable::scheduleTableEntries, "entry")
                  .releaseOrder(),
              "entry1 entry2");
    EXPECT_EQ(Holder<PhScheduleTableEntry>(30)
                  .ref(&PhScheduleTableEntry::setFrame, &PhScheduleTableEntry::frame, "frame")
                  .ref(&PhScheduleTableEntry::setDelay, &PhScheduleTableEntry::delay, "delay")
                  .ref(&PhScheduleTableEntry::setAuxRef, &PhScheduleTableEntry::auxRef, "aux")
                  .releaseOrder(),
              "aux delay frame");
}

TEST(Schedule, CountsItsEntries)
{
    PhScheduleTable table;
    EXPECT_EQ(table.size(), 0U);
    table.appendScheduleTableEntry(new PhScheduleTableEntry);
    table.appendScheduleTableEntry(new PhScheduleTableEntry);
    EXPECT_EQ(table.size(), 2U);
}

TEST(PhEcu, FindsAConnectorByTheExternalIdOfItsChannel)
{
    PhChannel wanted;
    wanted.setExternalId("can0");
    PhEcu ecu;
    EXPECT_EQ(ecu.findConnector(&wanted), nullptr);

    const auto connect = [&ecu](PhChannel* channel) {
        auto* connector = new PhConnector;
        connector->setChannel(channel);
        ecu.appendConnector(connector);
        return connector;
    };
    connect(nullptr);
    PhConnector* empty = connect(identified<PhChannel>(""));
    PhConnector* anonymous = connect(new PhChannel);
    EXPECT_EQ(ecu.findConnector(&wanted), nullptr);
    PhConnector* can0 = connect(identified<PhChannel>("can0"));
    connect(identified<PhChannel>("can0"));

    const PhChannel nameless;
    PhChannel blank;
    blank.setExternalId("");
    EXPECT_EQ(ecu.findConnector(&wanted), can0);
    EXPECT_EQ(ecu.findConnector(&nameless), anonymous);
    EXPECT_EQ(ecu.findConnector(&blank), empty);
    EXPECT_EQ(ecu.findConnector(nullptr), nullptr);
}

TEST(PhEcu, ResolvesItsOwnControllersByExternalId)
{
    PhEcu ecu;
    EXPECT_EQ(ecu.resolveController("b"), nullptr);
    ecu.appendController(identified<PhController>("a"));
    auto* controller = identified<PhController>("b");
    ecu.appendController(controller);
    EXPECT_EQ(ecu.resolveController("b"), controller);
    EXPECT_EQ(ecu.resolveController("c"), nullptr);
}

namespace {

/// One level of mappings: an owner with its list and its find-or-create operation.
template <class OwnerClass, class Mapping,
          Mapping* (OwnerClass::*findOrCreateOperation)(PhObject*, PhObject*),
          PhList* (OwnerClass::*listOperation)() const>
struct Level
{
    Mapping* findOrCreate(PhObject* source, PhObject* target)
    {
        return (owner.*findOrCreateOperation)(source, target);
    }
    PhList* list() const { return (owner.*listOperation)(); }

    OwnerClass owner;
};

template <class Level> class MappingLevels : public testing::Test
{
};

using Levels = testing::Types<
    Level<PhEcu, PhConnectorMapping, &PhEcu::findOrCreateConnectorMapping,
          &PhEcu::connectorMappings>,
    Level<PhConnectorMapping, PhFrameMapping, &PhConnectorMapping::findOrCreateFrameMapping,
          &PhConnectorMapping::frameMappings>,
    Level<PhFrameMapping, PhSignalMapping, &PhFrameMapping::findOrCreateSignalMapping,
          &PhFrameMapping::signalMappings>>;

} // namespace

TYPED_TEST_SUITE(MappingLevels, Levels);

TYPED_TEST(MappingLevels, OnePairOfExternalIdsHasOneMapping)
{
    const PhHold<PhObject> a(identified<PhValue>("a"));
    const PhHold<PhObject> b(identified<PhValue>("b"));
    const PhHold<PhObject> otherA(identified<PhValue>("a"));
    const PhHold<PhObject> otherB(identified<PhValue>("b"));
    TypeParam level;
    ASSERT_EQ(level.list(), nullptr);

    auto* there = level.findOrCreate(a.get(), b.get());
    ASSERT_NE(there, nullptr);
    EXPECT_EQ(there->source(), a.get());
    EXPECT_EQ(there->target(), b.get());
    EXPECT_EQ(a->refCount(), 2);
    auto* back = level.findOrCreate(b.get(), a.get());
    EXPECT_NE(back, there);

    EXPECT_EQ(level.findOrCreate(a.get(), b.get()), there);
    EXPECT_EQ(level.findOrCreate(otherA.get(), otherB.get()), there);
    EXPECT_EQ(level.findOrCreate(otherB.get(), otherA.get()), back);
    EXPECT_EQ(otherA->refCount(), 1);
    EXPECT_EQ(level.list()->count(), 2U);
    EXPECT_EQ(level.list()->first(), there);
    EXPECT_EQ(level.list()->last(), back);
}

TYPED_TEST(MappingLevels, EndsWithoutExternalIdAreEqualButNullEndsMatchNothing)
{
    const PhHold<PhObject> a(new PhValue);
    const PhHold<PhObject> b(new PhValue);
    const PhHold<PhObject> blank(identified<PhValue>(""));
    TypeParam level;
    auto* anonymous = level.findOrCreate(a.get(), b.get());
    EXPECT_EQ(level.findOrCreate(b.get(), a.get()), anonymous);
    EXPECT_NE(level.findOrCreate(blank.get(), b.get()), anonymous);

    auto* open = level.findOrCreate(a.get(), nullptr);
    EXPECT_EQ(open->target(), nullptr);
    EXPECT_NE(level.findOrCreate(a.get(), nullptr), open);
    EXPECT_NE(level.findOrCreate(nullptr, nullptr), level.findOrCreate(nullptr, nullptr));
    EXPECT_EQ(level.list()->count(), 6U);
}
