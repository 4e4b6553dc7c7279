#include "model/PhPackedValues.h"

#include "model/pool.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace tavo {

template <class Number> Number PhPackedValues::Item::number() const
{
    Number number;
    std::memcpy(&number, bytes_ + 1, sizeof number);
    return number;
}

std::size_t PhPackedValues::Item::size() const
{
    switch (kind()) {
    case integerKind:
        return 1 + sizeof(std::int32_t);
    case doubleKind:
        return 1 + sizeof(double);
    default:
        return 1 + std::strlen(bytes_ + 1) + 1;
    }
}

double PhPackedValues::Item::doubleValue() const
{
    return kind() == doubleKind    ? number<double>()
           : kind() == integerKind ? number<std::int32_t>()
                                   : 0.0;
}

PhValue PhPackedValues::Item::value() const
{
    return kind() == doubleKind    ? PhValue(number<double>())
           : kind() == integerKind ? PhValue(number<std::int32_t>())
                                   : PhValue(PhString(bytes_ + 1));
}

bool PhPackedValues::canHold(const PhValue& value)
{
    return value.isInteger() + value.isDouble() + value.isText() == 1 && !value.isList() &&
           !value.isBlob() && !value.isMarked() && !value.isPositiveInfinity() &&
           !value.isNegativeInfinity();
}

void PhPackedValues::append(int mark, const PhValue& value)
{
    if (value.isInteger())
        appendNumber<std::int32_t>(mark << kindBits | integerKind, value.intValue());
    else if (value.isDouble())
        appendNumber(mark << kindBits | doubleKind, value.doubleValue());
    else
        append(mark, value.text().view());
}

void PhPackedValues::append(int mark, std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    char* bytes = room(text.size() + 2);
    *bytes++ = static_cast<char>(mark << kindBits | textKind);
    std::copy(text.begin(), text.end(), bytes);
    bytes[text.size()] = '\0';
}

template <class Number> void PhPackedValues::appendNumber(int tag, Number number)
{
    char* bytes = room(1 + sizeof number);
    *bytes = static_cast<char>(tag);
    std::memcpy(bytes + 1, &number, sizeof number);
}

/// The place of the next `size` bytes, which count as used from now on.
char* PhPackedValues::room(std::size_t size)
{
    constexpr std::size_t smallest = 56; // three doubles, which is what most methods have
    constexpr std::size_t largest = 4096;
    if (!last_ || last_->size - last_->used < size) {
        const std::size_t usual = last_ ? std::min(last_->size * 2, largest) : smallest;
        const std::size_t blockSize = std::max(usual, sizeof(Block) + size);
        auto* block = new (allocateBlock(blockSize)) Block{nullptr, blockSize, sizeof(Block)};
        block->next = last_ ? last_->next : block;
        if (last_)
            last_->next = block;
        last_ = block;
    }
    char* place = reinterpret_cast<char*>(last_) + last_->used;
    last_->used += size;
    return place;
}

void PhPackedValues::clear() noexcept
{
    if (!last_)
        return;
    Block* block = last_->next;
    last_->next = nullptr;
    last_ = nullptr;
    while (block) {
        Block* next = block->next;
        releaseBlock(block, block->size);
        block = next;
    }
}

} // namespace tavo
