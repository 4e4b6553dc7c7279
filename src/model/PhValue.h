#pragma once

#include "model/PhList.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavo {

/// The kinds of infinity. Any other number stands for no value.
enum class PhInfinity : std::int32_t
{
    Positive,
    Negative
};

/// The model's variant: an integer, a double, a text, a block of bytes, a list of further values,
/// an infinity, or nothing at all.
///
/// Flags of its own tell what a value holds; they aren't those of `PhObject::isFlag`. The numeric
/// kinds, which are integer, double and the infinities, exclude each other. Text, block and list
/// stand next to them: a text that gets an integer is a text and an integer.
///
/// A number keeps the form in which the description file wrote it, because an integer reaches the
/// output without a fraction. A value may bear a name, so that a list of values is a property list.
class PhValue : public PhObject
{
public:
    /// No value.
    PhValue();
    explicit PhValue(int number);
    /// An integer of the same bits.
    explicit PhValue(unsigned number);
    explicit PhValue(double number);
    explicit PhValue(const PhString& text);
    /// A copy of `size` bytes. A null pointer or a size below 1 gives no value.
    PhValue(const void* data, int size);
    /// Takes ownership of a list from `new`. A null one gives a list value whose `list` is null.
    explicit PhValue(PhList* list);
    explicit PhValue(PhInfinity infinity);
    /// Copies the content, not the name. A list is copied, but its elements are shared.
    PhValue(const PhValue& other);
    ~PhValue() override;

    /// Replaces all content by that of `other`, as the copy constructor does it. Name and id stay.
    PhValue& operator=(const PhValue& other);

    /// A store replaces the numeric kind and its own kind of content, and leaves the rest alone.
    PhValue& operator=(int number);
    PhValue& operator=(double number);
    PhValue& operator=(const PhString& text);
    void setValue(int number);
    void setValue(unsigned number);
    void setValue(double number);
    void setValue(const PhString& text);
    /// Takes ownership of `list`, which may be null, and destroys the one held before.
    void setValue(PhList* list);
    /// Unlike the other stores, this one leaves no other kind and no marker.
    PhValue& operator=(PhInfinity infinity);
    /// Stores a double if the text contains a '.', else an integer: the longest leading decimal
    /// numeral after leading blanks, or 0 if there is none. An integer beyond 32 bits saturates.
    /// False for null, which changes nothing.
    bool setNumber(const char* text);

    /// True if there is content of any kind, or the marker.
    bool isValid() const { return has(AnyKind); }
    bool isInteger() const { return has(Integer); }
    bool isDouble() const { return has(Double); }
    bool isText() const { return has(Text); }
    bool isBlob() const { return has(Blob); }
    bool isList() const { return has(List); }
    bool isPositiveInfinity() const { return has(PositiveInfinity); }
    bool isNegativeInfinity() const { return has(NegativeInfinity); }

    /// A marker for free use.
    bool isMarked() const { return has(Marked); }
    void setMarked() { setBits(spare_ | Marked); }
    void clearMarked() { setBits(spare_ & ~std::uint32_t{Marked}); }

    /// The number, a double truncated toward zero; 0 for what is no number. A double outside the
    /// range of the result gives the nearer limit, NaN gives 0.
    int intValue() const;
    /// The same as unsigned; an integer gives its bits.
    unsigned unsignedValue() const;
    /// The number; 0.0 for what is no number.
    double doubleValue() const;
    /// The text itself, null if none was ever stored: a reference holds as long as the value and
    /// shows what is stored later. To ask for it makes room for it if there is none yet, which can
    /// run out of memory.
    const PhString& text() const { return contentApart().text; }
    /// The list, or null. It stays with the value.
    PhList* list() const { return content().list.get(); }
    /// True for a number that is exactly 0 or 1. Negative zero counts as 0.
    bool isZero() const;
    bool isOne() const;

    /// Arithmetic with another value. Two integers give an integer, which wraps at 32 bits, but
    /// always a double in a division; any other pair gives a double, for which what is no number
    /// counts as 0.0. A zero divisor gives the infinite or NaN double of IEEE 754. A neutral
    /// operand (1, or 0 in an addition) changes nothing, not even a value that is no number.
    PhValue& operator*=(const PhValue& factor);
    PhValue& operator+=(const PhValue& summand);
    PhValue& operator/=(const PhValue& divisor);

    /// Arithmetic in place: an integer stays one and wraps at 32 bits, a double stays one, and what
    /// is no number doesn't change.
    PhValue& multiply(int factor);
    PhValue& add(int summand);
    PhValue& subtract(int subtrahend);
    PhValue& negate();
    /// Integers are truncated toward zero; the smallest one divided by -1 wraps to itself. A
    /// divisor of 0 turns a number into an infinity and nothing else: the negative one for a number
    /// below 0, else the positive one.
    PhValue& divide(int divisor);

private:
    /// What the spare bits hold.
    enum Flag : std::uint32_t
    {
        Integer = 1,
        Double = 2,
        Text = 4,
        Blob = 8,
        List = 16,
        PositiveInfinity = 32,
        NegativeInfinity = 64,
        Marked = 128,
        AnyKind = 255,
        ContentApart = 256, ///< `content_` is in use, else `number_`.
    };

    bool has(Flag flag) const { return (spare_ & flag) != 0; }
    void setBits(std::uint32_t bits) { spare_ = bits & (AnyKind | ContentApart); }
    void setKinds(std::uint32_t kinds) { setBits((spare_ & ContentApart) | kinds); }
    void become(Flag kind);
    template <class Operation> PhValue& combine(const PhValue& operand, Operation operation);
    template <class Operation> PhValue& combineInPlace(int operand, Operation operation);

    /// One for both kinds: a value is never an integer and a double at once.
    union Number
    {
        std::int32_t integer; ///< Of an unsigned number, its bits.
        double real = 0.0;
    };

    /// All content of a value that has other content than a number, as few values do.
    struct Content : Pooled
    {
        Number number;
        PhString text;
        std::unique_ptr<PhList> list;
        std::vector<std::byte> blob;
    };

    Number& numeric() { return has(ContentApart) ? content_->number : number_; }
    const Number& numeric() const { return has(ContentApart) ? content_->number : number_; }
    const Content& content() const { return has(ContentApart) ? *content_ : noContent; }
    Content& contentApart() const;

    static const Content noContent;

    /// Mutable, because content can move apart without a change of what the value holds.
    union
    {
        mutable Number number_ = {};
        mutable Content* content_; ///< Owned; it stays where it is until the value dies.
    };
};

} // namespace tavo
