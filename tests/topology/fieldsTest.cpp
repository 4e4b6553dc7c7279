// What the classes that no description fills do with the objects in their fields and lists: they
// keep a count of each and give it back when they die. The golden descriptions fill the other
// classes.

#include "model/PhParameter.h"
#include "model/PhRange.h"
#include "model/PhSignal.h"
#include "model/PhStructure.h"
#include "model/PhType.h"
#include "model/PhValue.h"
#include "topology/PhChannel.h"
#include "topology/PhCluster.h"
#include "topology/PhConnector.h"
#include "topology/PhConnectorMapping.h"
#include "topology/PhController.h"
#include "topology/PhEcu.h"
#include "topology/PhEntityRef.h"
#include "topology/PhFrame.h"
#include "topology/PhFrameMapping.h"
#include "topology/PhFrameTriggering.h"
#include "topology/PhFunction.h"
#include "topology/PhScheduleTable.h"
#include "topology/PhScheduleTableEntry.h"
#include "topology/PhService.h"
#include "topology/PhSignalMapping.h"
#include "topology/PhTiming.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using namespace tavo;

namespace {

int alive = 0;

template <class Base> class Counted : public Base
{
public:
    Counted() { ++alive; }
    ~Counted() override { --alive; }
};

template <class Field> Field* counted()
{
    using Made = std::conditional_t<std::is_same_v<Field, PhObject>, PhValue, Field>;
    return new Counted<Made>;
}

/// An object whose fields are filled one by one until it dies.
template <class Object> class Fields
{
public:
    explicit Fields(PhClassId classId) { EXPECT_EQ(object_->classId(), classId); }
    ~Fields()
    {
        EXPECT_EQ(alive, count_);
        object_.reset();
        EXPECT_EQ(alive, 0);
    }

    template <class Field> Fields& field(void (Object::*set)(Field*), Field* (Object::*get)() const)
    {
        EXPECT_EQ(((*object_).*get)(), nullptr) << count_;
        ((*object_).*set)(counted<Field>());
        Field* kept = counted<Field>();
        ((*object_).*set)(kept);
        EXPECT_EQ(((*object_).*get)(), kept) << count_;
        ++count_;
        return *this;
    }

    template <class Element>
    Fields& list(void (Object::*append)(Element*), PhList* (Object::*get)() const)
    {
        EXPECT_EQ(((*object_).*get)(), nullptr) << count_;
        Element* element = counted<Element>();
        ((*object_).*append)(element);
        EXPECT_EQ(((*object_).*get)()->last(), element) << count_;
        ++count_;
        return *this;
    }

private:
    std::unique_ptr<Object> object_ = std::make_unique<Object>();
    int count_ = 0;
};

} // namespace

TEST(FieldsTest, KeepWhatTheyAreGivenAsLongAsTheirObjectLives)
{
    Fields<PhSignal>(PhClassSignal)
        .field(&PhSignal::setType, &PhSignal::type)
        .field(&PhSignal::setAuxRef1, &PhSignal::auxRef1)
        .field(&PhSignal::setAuxRef2, &PhSignal::auxRef2)
        .field(&PhSignal::setAuxRef3, &PhSignal::auxRef3);
    Fields<PhParameter>(PhClassParameter)
        .field(&PhParameter::setAuxRef1, &PhParameter::auxRef1)
        .field(&PhParameter::setType, &PhParameter::type)
        .field(&PhParameter::setAuxRef2, &PhParameter::auxRef2)
        .field(&PhParameter::setAuxRef3, &PhParameter::auxRef3)
        .field(&PhParameter::setAuxRef4, &PhParameter::auxRef4)
        .field(&PhParameter::setAuxRef5, &PhParameter::auxRef5)
        .field(&PhParameter::setAuxRef6, &PhParameter::auxRef6)
        .field(&PhParameter::setAuxRef7, &PhParameter::auxRef7);
    Fields<PhStructure>(PhClassStructure)
        .field(&PhStructure::setAuxRef1, &PhStructure::auxRef1)
        .field(&PhStructure::setAuxRef2, &PhStructure::auxRef2)
        .list(&PhStructure::appendRange, &PhStructure::ranges)
        .list(&PhStructure::appendParameter, &PhStructure::parameters)
        .field(&PhStructure::setAuxRef3, &PhStructure::auxRef3);
    Fields<PhEntityRef>(PhClassEntityRef)
        .field(&PhEntityRef::setSecondaryRef, &PhEntityRef::secondaryRef)
        .field(&PhEntityRef::setPrimaryRef, &PhEntityRef::primaryRef)
        .field(&PhEntityRef::setLocalRef, &PhEntityRef::localRef);
    Fields<PhFunction>(PhClassFunction)
        .list(&PhFunction::appendInputSignal, &PhFunction::inputSignals)
        .list(&PhFunction::appendOutputSignal, &PhFunction::outputSignals);
    Fields<PhService>(PhClassService)
        .field(&PhService::setRequest, &PhService::request)
        .list(&PhService::appendResponse, &PhService::responses);
    Fields<PhFrame>(PhClassFrame).field(&PhFrame::setStructure, &PhFrame::structure);
    Fields<PhFrameTriggering>(PhClassFrameTriggering)
        .field(&PhFrameTriggering::setFrame, &PhFrameTriggering::frame)
        .field(&PhFrameTriggering::setIdentifier, &PhFrameTriggering::identifier)
        .field(&PhFrameTriggering::setAuxRef1, &PhFrameTriggering::auxRef1)
        .field(&PhFrameTriggering::setTiming, &PhFrameTriggering::timing)
        .field(&PhFrameTriggering::setAuxRef2, &PhFrameTriggering::auxRef2)
        .field(&PhFrameTriggering::setAuxRef3, &PhFrameTriggering::auxRef3);
    Fields<PhTiming>(PhClassTiming)
        .field(&PhTiming::setDelay, &PhTiming::delay)
        .field(&PhTiming::setCycle, &PhTiming::cycle);
    Fields<PhCluster>(PhClassCluster)
        .list(&PhCluster::appendChannel, &PhCluster::channels)
        .field(&PhCluster::setAuxRef1, &PhCluster::auxRef1)
        .field(&PhCluster::setAuxRef2, &PhCluster::auxRef2);
    Fields<PhChannel>(PhClassChannel)
        .field(&PhChannel::setCluster, &PhChannel::cluster)
        .field(&PhChannel::setScheduleTable, &PhChannel::scheduleTable)
        .list(&PhChannel::appendFrameTriggering, &PhChannel::frameTriggerings);
    Fields<PhConnector>(PhClassConnector)
        .field(&PhConnector::setController, &PhConnector::controller)
        .field(&PhConnector::setChannel, &PhConnector::channel)
        .list(&PhConnector::appendFrameTriggering, &PhConnector::frameTriggerings)
        .list(&PhConnector::appendInputSignal, &PhConnector::inputSignals)
        .list(&PhConnector::appendInputFrame, &PhConnector::inputFrames);
    Fields<PhController>(PhClassController)
        .field(&PhController::setChannel, &PhController::channel);
    Fields<PhEcu>(PhClassEcu)
        .list(&PhEcu::appendFunction, &PhEcu::functions)
        .list(&PhEcu::appendConnector, &PhEcu::connectors)
        .list(&PhEcu::appendController, &PhEcu::controllers)
        .list(&PhEcu::appendConnectorMapping, &PhEcu::connectorMappings);
    Fields<PhConnectorMapping>(PhClassConnectorMapping)
        .field(&PhConnectorMapping::setSource, &PhConnectorMapping::source)
        .field(&PhConnectorMapping::setTarget, &PhConnectorMapping::target)
        .list(&PhConnectorMapping::appendFrameMapping, &PhConnectorMapping::frameMappings);
    Fields<PhFrameMapping>(PhClassFrameMapping)
        .field(&PhFrameMapping::setSource, &PhFrameMapping::source)
        .field(&PhFrameMapping::setTarget, &PhFrameMapping::target)
        .list(&PhFrameMapping::appendSignalMapping, &PhFrameMapping::signalMappings);
    Fields<PhSignalMapping>(PhClassSignalMapping)
        .field(&PhSignalMapping::setSource, &PhSignalMapping::source)
        .field(&PhSignalMapping::setTarget, &PhSignalMapping::target);
    Fields<PhScheduleTable>(PhClassScheduleTable)
        .list(&PhScheduleTable::appendScheduleTableEntry, &PhScheduleTable::scheduleTableEntries);
    Fields<PhScheduleTableEntry>(PhClassScheduleTableEntry)
        .field(&PhScheduleTableEntry::setAuxRef, &PhScheduleTableEntry::auxRef)
        .field(&PhScheduleTableEntry::setDelay, &PhScheduleTableEntry::delay)
        .field(&PhScheduleTableEntry::setFrame, &PhScheduleTableEntry::frame);
}
