#include "model/PhValue.h"

#include "model/PhList.h"
#include "model/decimal.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <utility>

namespace tavo {

namespace {

template <class Operation>
std::int32_t wrapping(Operation operation, std::int32_t left, std::int32_t right)
{
    return static_cast<std::int32_t>(
        operation(static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(right)));
}

std::vector<std::byte> bytesOf(const void* data, int size)
{
    if (!data || size < 1)
        return {};
    const auto* first = static_cast<const std::byte*>(data);
    return {first, first + size};
}

PhList* duplicateOf(const PhList* list) { return list ? list->duplicate() : nullptr; }

} // namespace

const PhValue::Extra PhValue::noExtra;

PhValue::PhValue() : PhObject(PhClassValue) {}

PhValue::PhValue(int number) : PhObject(PhClassValue), flags_(Integer), integer_(number) {}

PhValue::PhValue(unsigned number) : PhValue(static_cast<std::int32_t>(number)) {}

PhValue::PhValue(double number) : PhObject(PhClassValue), flags_(Double), number_(number) {}

PhValue::PhValue(const PhString& text) : PhObject(PhClassValue) { setValue(text); }

PhValue::PhValue(const void* data, int size) : PhObject(PhClassValue)
{
    std::vector<std::byte> blob = bytesOf(data, size);
    if (blob.empty())
        return;
    extra().blob = std::move(blob);
    flags_ = Blob;
}

PhValue::PhValue(PhList* list) : PhObject(PhClassValue) { setValue(list); }

PhValue::PhValue(PhInfinity infinity) : PhObject(PhClassValue) { *this = infinity; }

PhValue::PhValue(const PhValue& other) : PhObject(PhClassValue) { *this = other; }

PhValue::~PhValue() = default;

PhValue::Extra& PhValue::extra()
{
    if (!extra_)
        extra_ = std::make_unique<Extra>();
    return *extra_;
}

PhValue& PhValue::operator=(const PhValue& other)
{
    // What may run out of memory comes first, so that a failure changes nothing.
    std::unique_ptr<Extra> extra;
    if (other.extra_) {
        std::unique_ptr<PhList> list(duplicateOf(other.list()));
        extra.reset(new Extra{{}, other.extra_->text, std::move(list), other.extra_->blob});
    }
    flags_ = other.flags_;
    if (other.isDouble())
        number_ = other.number_;
    else if (other.isInteger())
        integer_ = other.integer_;
    // The old list goes last: `other` may be an element of it.
    extra_ = std::move(extra);
    return *this;
}

/// Makes `kind` the value's kind in place of the numeric one that it had.
void PhValue::become(Flag kind)
{
    flags_ &= ~std::uint32_t{Integer | Double | PositiveInfinity | NegativeInfinity};
    flags_ |= kind;
}

PhValue& PhValue::operator=(int number)
{
    setValue(number);
    return *this;
}

PhValue& PhValue::operator=(double number)
{
    setValue(number);
    return *this;
}

PhValue& PhValue::operator=(const PhString& text)
{
    setValue(text);
    return *this;
}

void PhValue::setValue(int number)
{
    integer_ = number;
    become(Integer);
}

void PhValue::setValue(unsigned number) { setValue(static_cast<std::int32_t>(number)); }

void PhValue::setValue(double number)
{
    number_ = number;
    become(Double);
}

void PhValue::setValue(const PhString& text)
{
    extra().text = text;
    become(Text);
}

void PhValue::setValue(PhList* list)
{
    // The list is the value's from here on, even if there is no memory to hold it.
    std::unique_ptr<PhList> held(list != this->list() ? list : nullptr);
    if (list != this->list())
        extra().list.swap(held);
    become(List);
}

PhValue& PhValue::operator=(PhInfinity infinity)
{
    flags_ = 0;
    if (infinity == PhInfinity::Positive)
        flags_ = PositiveInfinity;
    else if (infinity == PhInfinity::Negative)
        flags_ = NegativeInfinity;
    return *this;
}

bool PhValue::setNumber(const char* text)
{
    if (!text)
        return false;
    const char* first = text + std::strspn(text, " \t\n\v\f\r");
    const char* last = first + std::strlen(first);
    if (std::find(first, last, '.') != last)
        setValue(parseDouble(first, last));
    else
        setValue(parseInt32(first, last));
    return true;
}

int PhValue::intValue() const
{
    return isInteger() ? integer_ : isDouble() ? truncated<std::int32_t>(number_) : 0;
}

unsigned PhValue::unsignedValue() const
{
    return isInteger()  ? static_cast<std::uint32_t>(integer_)
           : isDouble() ? truncated<std::uint32_t>(number_)
                        : 0;
}

double PhValue::doubleValue() const { return isDouble() ? number_ : isInteger() ? integer_ : 0.0; }

bool PhValue::isZero() const
{
    return (isInteger() && integer_ == 0) || (isDouble() && number_ == 0.0);
}

bool PhValue::isOne() const
{
    return (isInteger() && integer_ == 1) || (isDouble() && number_ == 1.0);
}

template <class Operation> PhValue& PhValue::combine(const PhValue& operand, Operation operation)
{
    if (isInteger() && operand.isInteger())
        integer_ = wrapping(operation, integer_, operand.integer_);
    else
        setValue(operation(doubleValue(), operand.doubleValue()));
    return *this;
}

PhValue& PhValue::operator*=(const PhValue& factor)
{
    return factor.isOne() ? *this : combine(factor, std::multiplies<>());
}

PhValue& PhValue::operator+=(const PhValue& summand)
{
    return summand.isZero() ? *this : combine(summand, std::plus<>());
}

PhValue& PhValue::operator/=(const PhValue& divisor)
{
    if (!divisor.isOne())
        setValue(doubleValue() / divisor.doubleValue());
    return *this;
}

template <class Operation> PhValue& PhValue::combineInPlace(int operand, Operation operation)
{
    if (isInteger())
        integer_ = wrapping(operation, integer_, operand);
    if (isDouble())
        number_ = operation(number_, operand);
    return *this;
}

PhValue& PhValue::multiply(int factor) { return combineInPlace(factor, std::multiplies<>()); }

PhValue& PhValue::add(int summand)
{
    // Adding 0.0 would take the sign from a negative zero.
    return summand == 0 ? *this : combineInPlace(summand, std::plus<>());
}

PhValue& PhValue::subtract(int subtrahend) { return combineInPlace(subtrahend, std::minus<>()); }

PhValue& PhValue::negate()
{
    if (isInteger())
        integer_ = wrapping(std::minus<>(), 0, integer_);
    if (isDouble())
        number_ = -number_;
    return *this;
}

PhValue& PhValue::divide(int divisor)
{
    if (divisor == -1)
        return negate();
    if (divisor == 0) {
        if (isInteger() || isDouble())
            *this = doubleValue() < 0.0 ? PhInfinity::Negative : PhInfinity::Positive;
        return *this;
    }
    if (isInteger())
        integer_ /= divisor;
    if (isDouble())
        number_ /= divisor;
    return *this;
}

} // namespace tavo
