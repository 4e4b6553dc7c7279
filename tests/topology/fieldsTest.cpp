// What the classes do with the objects in their fields and lists: they keep a count of each and
// give it back when they are destroyed, in an order that stays as it is. A list holds its elements
// from its first one on. Most of the fields that nobody uses are left out.

#include "support/model.h"

#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <type_traits>
#include <vector>

using namespace tavo;

namespace {

/// Notes its number when it dies.
template <class Base> class Noted : public Base
{
public:
    Noted(std::vector<int>& deaths, int number) : deaths_(deaths), number_(number) {}
    ~Noted() override { deaths_.push_back(number_); }

private:
    std::vector<int>& deaths_;
    int number_;
};

/// An object whose fields are filled one by one, in the order in which it gives them back.
template <class Object> class Fields
{
public:
    explicit Fields(PhClassId classId) { EXPECT_EQ(object_->classId(), classId); }
    ~Fields()
    {
        EXPECT_EQ(deaths_.size(), 0U);
        object_.reset();
        std::vector<int> numbers(static_cast<std::size_t>(count_));
        std::iota(numbers.begin(), numbers.end(), 1);
        EXPECT_EQ(deaths_, numbers);
    }

    /// `Got` is `Field` itself, or the list that holds it.
    template <class Field, class Got>
    Fields& have(void (Object::*store)(Field*), Got* (Object::*get)() const)
    {
        using Made = std::conditional_t<std::is_same_v<Field, PhObject>, PhValue, Field>;
        SCOPED_TRACE(++count_);
        EXPECT_EQ(((*object_).*get)(), nullptr);
        Field* field = new Noted<Made>(deaths_, count_);
        ((*object_).*store)(field);
        if constexpr (std::is_same_v<Got, PhList>)
            EXPECT_EQ(((*object_).*get)()->last(), field);
        else
            EXPECT_EQ(((*object_).*get)(), field);
        return *this;
    }

private:
    std::vector<int> deaths_;
    int count_ = 0;
    std::unique_ptr<Object> object_ = std::make_unique<Object>();
};

} // namespace

TEST(FieldsTest, OfTheNetworkKeepWhatTheyAreGivenUntilTheirObjectDies)
{
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

TEST(FieldsTest, OfTheModelKeepWhatTheyAreGivenUntilTheirObjectDies)
{
    Fields<PhSignal>(PhClassSignal).have(&PhSignal::setType, &PhSignal::type);
    Fields<PhParameter>(PhClassParameter).have(&PhParameter::setType, &PhParameter::type);
    Fields<PhStructure>(PhClassStructure)
        .have(&PhStructure::appendRange, &PhStructure::ranges)
        .have(&PhStructure::appendParameter, &PhStructure::parameters);
    Fields<PhType>(PhClassType)
        .have(&PhType::setUnit, &PhType::unit)
        .have(&PhType::setConversion, &PhType::conversion)
        .have(&PhType::setBitMask, &PhType::bitMask);
    Fields<PhConversion>(PhClassConversion)
        .have(&PhConversion::appendRange, &PhConversion::ranges)
        .have(&PhConversion::setConversion, &PhConversion::conversion)
        .have(&PhConversion::setUnit, &PhConversion::unit);
    Fields<PhRange>(PhClassRange)
        .have(&PhRange::setConversion, &PhRange::conversion)
        .have(&PhRange::setAuxRef, &PhRange::auxRef);
    Fields<PhEntity>(PhClassEntity)
        .have(&PhEntity::setAddress, &PhEntity::address)
        .have(&PhEntity::setAddressExtension, &PhEntity::addressExtension)
        .have(&PhEntity::setAuxRef1, &PhEntity::auxRef1)
        .have(&PhEntity::setAuxRef2, &PhEntity::auxRef2)
        .have(&PhEntity::setType, &PhEntity::type)
        .have(&PhEntity::setAuxRef3, &PhEntity::auxRef3)
        .have(&PhEntity::setAuxRef4, &PhEntity::auxRef4)
        .have(&PhEntity::setLowerLimit, &PhEntity::lowerLimit)
        .have(&PhEntity::setUpperLimit, &PhEntity::upperLimit);
    Fields<PhRaster>(PhClassRaster)
        .have(&PhRaster::setRate, &PhRaster::rate)
        .have(&PhRaster::setChannel, &PhRaster::channel)
        .have(&PhRaster::setAuxRef, &PhRaster::auxRef);
    Fields<PhMemoryPage>(PhClassMemoryPage)
        .have(&PhMemoryPage::setSize, &PhMemoryPage::size)
        .have(&PhMemoryPage::setAddress, &PhMemoryPage::address);
    Fields<PhCommParam>(PhClassCommParam)
        .have(&PhCommParam::appendRaster, &PhCommParam::rasters)
        .have(&PhCommParam::setSlaveId, &PhCommParam::slaveId)
        .have(&PhCommParam::setMasterId, &PhCommParam::masterId)
        .have(&PhCommParam::setStationAddress, &PhCommParam::stationAddress)
        .have(&PhCommParam::setPort, &PhCommParam::port)
        .have(&PhCommParam::setHost, &PhCommParam::host);
    Fields<PhGroup>(PhClassGroup)
        .have(&PhGroup::appendCommParam, &PhGroup::commParams)
        .have(&PhGroup::appendMemoryPage, &PhGroup::memoryPages)
        .have(&PhGroup::appendUnit, &PhGroup::units)
        .have(&PhGroup::appendType, &PhGroup::types)
        .have(&PhGroup::appendSignal, &PhGroup::signals)
        .have(&PhGroup::appendStructure, &PhGroup::structures)
        .have(&PhGroup::appendService, &PhGroup::services)
        .have(&PhGroup::appendFrame, &PhGroup::frames)
        .have(&PhGroup::appendConversion, &PhGroup::conversions)
        .have(&PhGroup::appendEntity, &PhGroup::entities)
        .have(&PhGroup::appendRequest, &PhGroup::requests)
        .have(&PhGroup::appendResponse, &PhGroup::responses)
        .have(&PhGroup::appendFunction, &PhGroup::functions)
        .have(&PhGroup::appendEcu, &PhGroup::ecus)
        .have(&PhGroup::appendChannel, &PhGroup::channels)
        .have(&PhGroup::appendCluster, &PhGroup::clusters)
        .have(&PhGroup::appendGroup, &PhGroup::groups);
}
