#pragma once

#include "model/PhValue.h"

#include <cstdint>
#include <string_view>

namespace tavo {

/// Numbers and texts one after another, in as few bytes as they can do with: for what a file may
/// hold millions of and hardly anybody asks for, where an object each would cost a multiple of the
/// file.
///
/// Each bears a mark below 64 that says what it is to its user. An integer takes 5 bytes, a double
/// 9, a text 2 and its length; the blocks that they stand in grow with their number, so that at
/// most half of them is free.
class PhPackedValues
{
public:
    constexpr PhPackedValues() = default;
    constexpr ~PhPackedValues()
    {
        if (last_)
            clear();
    }
    PhPackedValues(const PhPackedValues&) = delete;
    PhPackedValues& operator=(const PhPackedValues&) = delete;

    /// True for an integer, a double or a text that is nothing else besides.
    static bool canHold(const PhValue& value);

    bool isEmpty() const { return !last_; }
    /// Appends the content of a value that can be held, without its name.
    void append(int mark, const PhValue& value);
    /// Appends a text, up to its end or to a NUL in it.
    void append(int mark, std::string_view text);
    void clear() noexcept;

    /// One of them. It is valid as long as nothing is appended or cleared.
    class Item
    {
    public:
        int mark() const { return static_cast<unsigned char>(*bytes_) >> kindBits; }
        /// The number; 0.0 for a text.
        double doubleValue() const;
        PhValue value() const;

    private:
        friend class PhPackedValues;

        explicit Item(const char* bytes) : bytes_(bytes) {}
        int kind() const { return static_cast<unsigned char>(*bytes_) & kindMask; }
        template <class Number> Number number() const;
        std::size_t size() const;

        const char* bytes_;
    };

    /// Calls `visit(item)` for one after another, as long as it returns true.
    template <class Visit> void forEach(Visit visit) const
    {
        for (const Block* block = first(); block; block = after(block))
            for (const char* bytes = begin(block); bytes != end(block);) {
                const Item item(bytes);
                if (!visit(item))
                    return;
                bytes += item.size();
            }
    }

private:
    struct Block
    {
        Block* next;
        std::size_t size; ///< Of the whole block.
        std::size_t used;
    };

    // What the lowest bits of the first byte of a value tell; the mark stands above them.
    static constexpr int integerKind = 0;
    static constexpr int doubleKind = 1;
    static constexpr int textKind = 2;
    static constexpr int kindMask = 3;
    static constexpr int kindBits = 2;

    static const char* begin(const Block* block)
    {
        return reinterpret_cast<const char*>(block + 1);
    }
    static const char* end(const Block* block)
    {
        return reinterpret_cast<const char*>(block) + block->used;
    }
    const Block* first() const { return last_ ? last_->next : nullptr; }
    const Block* after(const Block* block) const { return block == last_ ? nullptr : block->next; }
    char* room(std::size_t size);
    template <class Number> void appendNumber(int tag, Number number);

    Block* last_ = nullptr; ///< Its successor is the first one.
};

} // namespace tavo
