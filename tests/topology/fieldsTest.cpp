// What the classes that no description fills do with the objects in their fields and lists: they
// keep a count of each and give it back when they die. The golden descriptions fill the other
// classes, and the fields that nobody uses are left out.

#include "support/model.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using namespace tavo;

namespace {

template <class Base> class Counted : public Base
{
public:
    explicit Counted(int& alive) : alive_(alive) { ++alive_; }
    ~Counted() override { --alive_; }

private:
    int& alive_;
};

/// An object whose fields are filled one by one until it dies.
template <class Object> class Fields
{
public:
    explicit Fields(PhClassId classId) { EXPECT_EQ(object_->classId(), classId); }
    ~Fields()
    {
        EXPECT_EQ(alive_, count_);
        object_.reset();
        EXPECT_EQ(alive_, 0);
    }

    /// `Got` is `Field` itself, or the list in which it stands.
    template <class Field, class Got>
    Fields& have(void (Object::*store)(Field*), Got* (Object::*get)() const)
    {
        using Made = std::conditional_t<std::is_same_v<Field, PhObject>, PhValue, Field>;
        SCOPED_TRACE(++count_);
        EXPECT_EQ(((*object_).*get)(), nullptr);
        Field* field = new Counted<Made>(alive_);
        ((*object_).*store)(field);
        if constexpr (std::is_same_v<Got, PhList>)
            EXPECT_EQ(((*object_).*get)()->last(), field);
        else
            EXPECT_EQ(((*object_).*get)(), field);
        return *this;
    }

private:
    int alive_ = 0;
    int count_ = 0;
    std::unique_ptr<Object> object_ = std::make_unique<Object>();
};

} // namespace

TEST(FieldsTest, KeepWhatTheyAreGivenAsLongAsTheirObjectLives)
{
    Fields<PhSignal>(PhClassSignal).have(&PhSignal::setType, &PhSignal::type);
    Fields<PhParameter>(PhClassParameter).have(&PhParameter::setType, &PhParameter::type);
    Fields<PhStructure>(PhClassStructure)
        .have(&PhStructure::appendRange, &PhStructure::ranges)
        .have(&PhStructure::appendParameter, &PhStructure::parameters);
    Fields<PhEntityRef>(PhClassEntityRef)
        .have(&PhEntityRef::setSecondaryRef, &PhEntityRef::secondaryRef)
        .have(&PhEntityRef::setPrimaryRef, &PhEntityRef::primaryRef)
        .have(&PhEntityRef::setLocalRef, &PhEntityRef::localRef);
    Fields<PhFunction>(PhClassFunction)
        .have(&PhFunction::appendInputSignal, &PhFunction::inputSignals)
        .have(&PhFunction::appendOutputSignal, &PhFunction::outputSignals);
    Fields<PhService>(PhClassService)
        .have(&PhService::setRequest, &PhService::request)
        .have(&PhService::appendResponse, &PhService::responses);
    Fields<PhFrame>(PhClassFrame).have(&PhFrame::setStructure, &PhFrame::structure);
    Fields<PhFrameTriggering>(PhClassFrameTriggering)
        .have(&PhFrameTriggering::setFrame, &PhFrameTriggering::frame)
        .have(&PhFrameTriggering::setIdentifier, &PhFrameTriggering::identifier)
        .have(&PhFrameTriggering::setTiming, &PhFrameTriggering::timing);
    Fields<PhTiming>(PhClassTiming)
        .have(&PhTiming::setDelay, &PhTiming::delay)
        .have(&PhTiming::setCycle, &PhTiming::cycle);
    Fields<PhCluster>(PhClassCluster).have(&PhCluster::appendChannel, &PhCluster::channels);
    Fields<PhChannel>(PhClassChannel)
        .have(&PhChannel::setCluster, &PhChannel::cluster)
        .have(&PhChannel::setScheduleTable, &PhChannel::scheduleTable)
        .have(&PhChannel::appendFrameTriggering, &PhChannel::frameTriggerings);
    Fields<PhConnector>(PhClassConnector)
        .have(&PhConnector::setController, &PhConnector::controller)
        .have(&PhConnector::setChannel, &PhConnector::channel)
        .have(&PhConnector::appendFrameTriggering, &PhConnector::frameTriggerings)
        .have(&PhConnector::appendInputSignal, &PhConnector::inputSignals)
        .have(&PhConnector::appendInputFrame, &PhConnector::inputFrames);
    Fields<PhController>(PhClassController).have(&PhController::setChannel, &PhController::channel);
    Fields<PhEcu>(PhClassEcu)
        .have(&PhEcu::appendFunction, &PhEcu::functions)
        .have(&PhEcu::appendConnector, &PhEcu::connectors)
        .have(&PhEcu::appendController, &PhEcu::controllers)
        .have(&PhEcu::appendConnectorMapping, &PhEcu::connectorMappings);
    Fields<PhConnectorMapping>(PhClassConnectorMapping)
        .have(&PhConnectorMapping::setSource, &PhConnectorMapping::source)
        .have(&PhConnectorMapping::setTarget, &PhConnectorMapping::target)
        .have(&PhConnectorMapping::appendFrameMapping, &PhConnectorMapping::frameMappings);
    Fields<PhFrameMapping>(PhClassFrameMapping)
        .have(&PhFrameMapping::setSource, &PhFrameMapping::source)
        .have(&PhFrameMapping::setTarget, &PhFrameMapping::target)
        .have(&PhFrameMapping::appendSignalMapping, &PhFrameMapping::signalMappings);
    Fields<PhSignalMapping>(PhClassSignalMapping)
        .have(&PhSignalMapping::setSource, &PhSignalMapping::source)
        .have(&PhSignalMapping::setTarget, &PhSignalMapping::target);
    Fields<PhScheduleTable>(PhClassScheduleTable)
        .have(&PhScheduleTable::appendScheduleTableEntry, &PhScheduleTable::scheduleTableEntries);
    Fields<PhScheduleTableEntry>(PhClassScheduleTableEntry)
        .have(&PhScheduleTableEntry::setDelay, &PhScheduleTableEntry::delay)
        .have(&PhScheduleTableEntry::setFrame, &PhScheduleTableEntry::frame);
}
