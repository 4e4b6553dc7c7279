// What stands in an object as plain data until somebody asks for the object: numbers, names and
// types. Nothing may tell, except by its id, when an object was made.

#include "Probe.h"
#include "support/model.h"

#include "model/PhLazyValues.h"
#include "model/PhTextRef.h"
#include "model/ownership.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <set>

using namespace tavo;

namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t integers[] = {0, -1, least, 0x7FFFFFFF};
const double reals[] = {0.0, -0.0, 1e308, 5e-324, std::nan(""), -HUGE_VAL};

std::uint64_t bitsOf(double number) { return std::bit_cast<std::uint64_t>(number); }

/// A value with a list in which a probe stands: it tells when the value dies.
PhValue* watchedValue()
{
    auto list = std::make_unique<PhList>();
    list->append(new Probe);
    return new PhValue(list.release());
}

} // namespace

TEST(PhLazyValuesTest, AValueIsMadeOnceOfWhatWasStored)
{
    PhLazyValues<3> values;
    EXPECT_EQ(values.value(1), nullptr);
    EXPECT_EQ(values.peek(1).kind, PhFieldContent::Nothing);
    for (const std::int32_t number : integers) {
        values.set(1, number);
        EXPECT_EQ(values.peek(1).kind, PhFieldContent::Integer);
        EXPECT_EQ(values.peek(1).content.integer, number);
        PhValue* value = values.value(1);
        EXPECT_TRUE(value->isInteger() && !value->isDouble());
        EXPECT_EQ(value->intValue(), number);
        EXPECT_EQ(values.value(1), value);
        EXPECT_EQ(value->refCount(), 1);
        EXPECT_EQ(values.peek(1).kind, PhFieldContent::Object);
        EXPECT_EQ(values.peek(1).content.object, value);
    }
    for (const double number : reals) {
        values.set(1, number);
        EXPECT_EQ(values.peek(1).kind, PhFieldContent::Double);
        EXPECT_EQ(bitsOf(values.peek(1).content.real), bitsOf(number));
        PhValue* value = values.value(1);
        EXPECT_TRUE(value->isDouble() && !value->isInteger());
        EXPECT_EQ(bitsOf(value->doubleValue()), bitsOf(number));
        EXPECT_EQ(values.value(1), value);
    }
    EXPECT_EQ(values.value(0), nullptr);
    EXPECT_EQ(values.value(2), nullptr);
}

TEST(PhLazyValuesTest, EachStoreReplacesWhatWasHeldAndTheEndGivesItBack)
{
    {
        PhLazyValues<2> values;
        const auto hold = [&] {
            values.set(0, watchedValue());
            EXPECT_EQ(Probe::alive, 1);
        };
        hold();
        hold();
        values.set(0, 7);
        EXPECT_EQ(Probe::alive, 0);
        hold();
        values.set(0, 0.5);
        EXPECT_EQ(Probe::alive, 0);
        hold();
        values.set(0, nullptr);
        EXPECT_EQ(Probe::alive, 0);
        EXPECT_EQ(values.value(0), nullptr);
        hold();
        values.set(0, values.value(0)); // its only count
        EXPECT_EQ(values.value(0)->refCount(), 1);
        PhLazyValues<1> other;
        other.set(0, 1.5);
        other.take(0, values, 0);
        EXPECT_EQ(values.peek(0).kind, PhFieldContent::Nothing);
        EXPECT_EQ(other.value(0)->refCount(), 1);
        values.take(1, other, 0);
        EXPECT_EQ(Probe::alive, 1);
    }
    EXPECT_EQ(Probe::alive, 0);
}

TEST(PhTextRefTest, HoldsATextOrACountAndNeverBoth)
{
    const auto make = [](const PhString& text, bool isMarked) {
        auto* object = new Probe(text);
        isMarked ? object->setReported() : void();
        return object;
    };
    const PhString text("a text of some length, which has a block of its own");
    for (const bool isMarked : {false, true}) {
        PhTextRef<Probe> reference;
        EXPECT_FALSE(reference);
        EXPECT_EQ(reference.made(make), nullptr);
        reference.setText("before");
        reference.setText(text);
        isMarked ? reference.mark() : void();
        EXPECT_TRUE(reference);
        EXPECT_EQ(reference.peek(), nullptr);
        EXPECT_EQ(reference.release(), nullptr);
        EXPECT_EQ(*reference.text(), text);

        PhTextRef<Probe> other;
        other.take(reference);
        EXPECT_FALSE(reference);
        EXPECT_EQ(other.isMarked(), isMarked);
        Probe* object = other.made(make);
        EXPECT_EQ(other.made(make), object);
        EXPECT_EQ(other.peek(), object);
        EXPECT_EQ(other.text(), nullptr);
        EXPECT_FALSE(other.isMarked());
        EXPECT_EQ(object->refCount(), 1);
        EXPECT_EQ(object->isReported(), isMarked);
        EXPECT_EQ(object->name(), text);

        other = object;
        EXPECT_EQ(object->refCount(), 1);
        reference.take(other);
        EXPECT_FALSE(other);
        reference.setText(text);
        EXPECT_EQ(Probe::alive, 0);
        reference = new Probe;
        PhObject::unlink(reference.release());
        EXPECT_FALSE(reference);
        reference = new Probe;
        reference = nullptr;
        EXPECT_FALSE(reference);
        EXPECT_EQ(Probe::alive, 0);
        reference = new Probe;
        other.setText(text);
    }
    EXPECT_EQ(Probe::alive, 0);
}

TEST(PhConversionTest, ANameBecomesAPlaceholderAndALabelAUnit)
{
    PhConversion conversion;
    EXPECT_EQ(conversion.unitLabel(), nullptr);
    conversion.conversionRef().setText("method");
    PhConversion* placeholder = conversion.conversion();
    EXPECT_EQ(placeholder, conversion.conversion());
    EXPECT_STREQ(placeholder->name(), "method");
    EXPECT_TRUE(placeholder->isUnresolved());
    EXPECT_FALSE(placeholder->isReported());
    EXPECT_TRUE(placeholder->longName().isNull());
    EXPECT_EQ(placeholder->conversion(), nullptr);
    for (const char* label : {"1/min", ""}) {
        conversion.setUnitLabel(label);
        EXPECT_STREQ(*conversion.unitLabel(), label);
        PhUnit* unit = conversion.unit();
        EXPECT_EQ(unit, conversion.unit());
        EXPECT_STREQ(unit->label(), label);
        EXPECT_TRUE(unit->name().isNull());
        unit->setLabel("new");
        EXPECT_STREQ(*conversion.unitLabel(), "new");
    }
}

TEST(PhEntityTest, ATypeGivenByItsFieldsIsMadeOnceWithAllThatWasSaid)
{
    PhEntity entity;
    EXPECT_EQ(entity.type(), nullptr);
    EXPECT_EQ(entity.typeFields(), nullptr);
    PhTypeFields& fields = entity.makeTypeFields();
    fields.baseType = PhBaseType::BtIeee64;
    fields.endian = PhEndian::LittleEndian;
    fields.bitCount = 64;
    fields.conversion.setText("method");
    entity.setNumber(PhEntity::BitMask, -2);
    entity.setNumber(PhEntity::Address, 5);
    EXPECT_EQ(entity.peekType(), nullptr);
    EXPECT_EQ(entity.typeFields(), &fields);

    PhType* type = entity.type();
    EXPECT_EQ(entity.type(), type);
    EXPECT_EQ(type->refCount(), 1);
    EXPECT_EQ(entity.typeFields(), &type->fields());
    EXPECT_EQ(type->baseType(), PhBaseType::BtIeee64);
    EXPECT_EQ(type->endian(), PhEndian::LittleEndian);
    EXPECT_EQ(type->bitCount(), 64);
    EXPECT_EQ(entity.peek(PhEntity::BitMask).content.integer, -2);
    EXPECT_EQ(type->bitMask()->unsignedValue(), 0xFFFFFFFEU);
    EXPECT_EQ(entity.peek(PhEntity::BitMask).content.object, type->bitMask());
    EXPECT_STREQ(type->conversion()->name(), "method");
    EXPECT_EQ(entity.address()->intValue(), 5);

    std::set<std::uint32_t> ids;
    for (const PhObject* object : std::initializer_list<const PhObject*>{
             &entity, type, type->bitMask(), type->conversion(), entity.address()})
        ids.insert(object->id());
    EXPECT_EQ(ids.size(), 5U);
}

TEST(PhEntityTest, AnotherTypeTakesThePlaceOfTheFields)
{
    const PhRef<PhConversion> conversion(new PhConversion);
    for (const bool isNull : {true, false}) {
        PhEntity entity;
        entity.makeTypeFields().conversion = conversion.get();
        entity.setNumber(PhEntity::BitMask, 1);
        EXPECT_EQ(conversion->refCount(), 2);
        entity.setType(isNull ? nullptr : new PhType);
        EXPECT_EQ(conversion->refCount(), 1);
        EXPECT_EQ(entity.type() == nullptr, isNull);
        EXPECT_EQ(entity.peek(PhEntity::BitMask).kind, PhFieldContent::Nothing);
    }
}
