// What the classes do with the objects in their fields and lists: they keep a count of each and
// give it back when they are destroyed, in an order that stays as it is. A list holds its elements
// from its first one on. The classes that no description fills are left out.

#include "model/ownership.h"
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

TEST(PhGroupTest, IsTheParentOfItsChildrenUntilTheyLeave)
{
    PhGroup* parent = new PhGroup;
    const PhRef<PhGroup> removed(new PhGroup);
    const PhRef<PhGroup> survivor(new PhGroup);
    const PhRef<PhGroup> adopted(new PhGroup);
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
