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

const PhValue::Content PhValue::noContent = {};

PhValue::PhValue() : PhObject(PhClassValue) {}

PhValue::PhValue(int number) : PhObject(PhClassValue), number_{.integer = number}
{
    setKinds(Integer);
}

PhValue::PhValue(unsigned number) : PhValue(static_cast<std::int32_t>(number)) {}

PhValue::PhValue(double number) : PhObject(PhClassValue), number_{.real = number}
{
    setKinds(Double);
}

PhValue::PhValue(const PhString& text) : PhObject(PhClassValue) { setValue(text); }

PhValue::PhValue(const void* data, int size) : PhObject(PhClassValue)
{
    std::vector<std::byte> blob = bytesOf(data, size);
    if (blob.empty())
        return;
    contentApart().blob = std::move(blob);
    setKinds(Blob);
}

PhValue::PhValue(PhList* list) : PhObject(PhClassValue) { setValue(list); }

PhValue::PhValue(PhInfinity infinity) : PhObject(PhClassValue) { *this = infinity; }

PhValue::PhValue(const PhValue& other) : PhObject(PhClassValue) { *this = other; }

PhValue::~PhValue()
{
    if (has(ContentApart))
        delete content_;
}

PhValue::Content& PhValue::contentApart() const
{
    if (!has(ContentApart)) {
        auto* content = new Content;
        content->number = number_;
        content_ = content;
        spare_ |= ContentApart;
    }
    return *content_;
}

PhValue& PhValue::operator=(const PhValue& other)
{
    if (!has(ContentApart) && !other.has(ContentApart)) {
        number_ = other.number_;
        spare_ = other.spare_;
        return *this;
    }
    // What may run out of memory comes first, so that a failure changes nothing; and what this
    // value held goes last, because `other` may be an element of its list.
    std::unique_ptr<PhList> list(duplicateOf(other.list()));
    std::vector<std::byte> blob = other.content().blob;
    Content& mine = contentApart();
    mine.number = other.numeric();
    mine.text = other.content().text;
    mine.list.swap(list);
    mine.blob.swap(blob);
    setKinds(other.spare_ & AnyKind);
    return *this;
}

/// Makes `kind` the value's kind in place of the numeric one that it had.
void PhValue::become(Flag kind)
{
    setBits((spare_ & ~std::uint32_t{Integer | Double | PositiveInfinity | NegativeInfinity}) |
            kind);
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
    numeric().integer = number;
    become(Integer);
}

void PhValue::setValue(unsigned number) { setValue(static_cast<std::int32_t>(number)); }

void PhValue::setValue(double number)
{
    numeric().real = number;
    become(Double);
}

void PhValue::setValue(const PhString& text)
{
    contentApart().text = text;
    become(Text);
}

void PhValue::setValue(PhList* list)
{
    // The list is the value's from here on, even if there is no memory to hold it.
    std::unique_ptr<PhList> held(list != this->list() ? list : nullptr);
    if (list != this->list())
        contentApart().list.swap(held);
    become(List);
}

PhValue& PhValue::operator=(PhInfinity infinity)
{
    setKinds(0);
    if (infinity == PhInfinity::Positive)
        setKinds(PositiveInfinity);
    else if (infinity == PhInfinity::Negative)
        setKinds(NegativeInfinity);
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
    return isInteger()  ? numeric().integer
           : isDouble() ? truncated<std::int32_t>(numeric().real)
                        : 0;
}

unsigned PhValue::unsignedValue() const
{
    return isInteger()  ? static_cast<std::uint32_t>(numeric().integer)
           : isDouble() ? truncated<std::uint32_t>(numeric().real)
                        : 0;
}

double PhValue::doubleValue() const
{
    return isDouble() ? numeric().real : isInteger() ? numeric().integer : 0.0;
}

bool PhValue::isZero() const
{
    return (isInteger() && numeric().integer == 0) || (isDouble() && numeric().real == 0.0);
}

bool PhValue::isOne() const
{
    return (isInteger() && numeric().integer == 1) || (isDouble() && numeric().real == 1.0);
}

template <class Operation> PhValue& PhValue::combine(const PhValue& operand, Operation operation)
{
    if (isInteger() && operand.isInteger())
        numeric().integer = wrapping(operation, numeric().integer, operand.numeric().integer);
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
        numeric().integer = wrapping(operation, numeric().integer, operand);
    if (isDouble())
        numeric().real = operation(numeric().real, operand);
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
        numeric().integer = wrapping(std::minus<>(), 0, numeric().integer);
    if (isDouble())
        numeric().real = -numeric().real;
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
        numeric().integer /= divisor;
    if (isDouble())
        numeric().real /= divisor;
    return *this;
}

} // namespace tavo
