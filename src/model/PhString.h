#pragma once

#include "base/sameBytes.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

namespace tavo {

/// The shared text of a `PhString`. The characters stand in the same block, right after it.
struct PhStringBody
{
    /// A size from here on isn't kept.
    static constexpr std::uint32_t huge = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t count; ///< Handles that share this body.
    /// Characters that fit, without the terminator; `huge` for that or more.
    std::uint32_t capacity;
    std::uint32_t length; ///< Characters of the text; `huge` for that or more.

    char* buffer() { return reinterpret_cast<char*>(this + 1); }
};

/// Counted text with copy on write, one pointer wide. Copies share the body and cost no
/// allocation.
///
/// The null string and the empty text are two things: a text that the description gives as "" is
/// set, a text that it doesn't give is null. Texts are bytes in no particular encoding and end at
/// their first NUL; they compare by unsigned byte.
class PhString
{
public:
    constexpr PhString() = default;
    /// A null pointer gives the null string.
    PhString(const char* text) { set(text); }
    PhString(const PhString& other) noexcept : body_(other.body_) { share(); }
    PhString(PhString&& other) noexcept : body_(other.body_) { other.body_ = nullptr; }
    PhString(std::string_view text) { set(text); }
    /// The number in decimal.
    explicit PhString(int number);
    explicit PhString(unsigned number);
    constexpr ~PhString()
    {
        if (body_)
            clear();
    }

    PhString& operator=(const PhString& other) noexcept
    {
        if (body_ != other.body_) {
            clear();
            body_ = other.body_;
            share();
        }
        return *this;
    }
    PhString& operator=(PhString&& other) noexcept
    {
        if (this != &other) {
            clear();
            body_ = other.body_;
            other.body_ = nullptr;
        }
        return *this;
    }
    PhString& operator=(const char* text);

    /// Makes this the null string.
    void clear() noexcept
    {
        if (body_ && --body_->count == 0)
            release(body_);
        body_ = nullptr;
    }
    /// Takes a copy of `text`; null makes this the null string. A body of its own that is large
    /// enough is used again.
    void set(const char* text);
    /// The same for a text that ends at its end or at a NUL in it. It is never null.
    void set(std::string_view text);
    /// Adds a copy of `text`; null and "" change nothing, so a null string stays null.
    void append(const char* text);
    /// Makes sure that no other string shares the body.
    void detach();

    PhString& operator+=(const PhString& other);
    PhString operator+(const PhString& other) const;

    /// The text, or null for the null string. Valid until this string changes or dies.
    const char* cStr() const { return body_ ? body_->buffer() : nullptr; }
    operator const char*() const { return cStr(); }
    std::size_t length() const { return body_ ? lengthOf(*body_) : 0; }
    /// The text; empty for the null string.
    std::string_view view() const
    {
        return body_ ? std::string_view(body_->buffer(), length()) : std::string_view();
    }
    bool isNull() const { return body_ == nullptr; }
    /// Folds the bytes from first to last as `byte + 2 * hash`; 0 for null and "".
    std::uint32_t hash() const;

    /// -1, 0 or +1 by unsigned bytes. Null equals null and is less than every text.
    int compare(const PhString& other) const;
    /// As above, but a null `text` is less than this string, and a null string less than that.
    int compare(const char* text) const;
    bool operator==(const PhString& other) const { return compare(other) == 0; }
    bool operator!=(const PhString& other) const { return compare(other) != 0; }
    /// A null string equals no text, and no null pointer either.
    bool operator==(const char* text) const;
    bool operator!=(const char* text) const { return !(*this == text); }

private:
    static void release(PhStringBody* body) noexcept;
    static std::size_t lengthOf(PhStringBody& body)
    {
        return body.length < PhStringBody::huge ? body.length : std::strlen(body.buffer());
    }

    void share() noexcept
    {
        if (body_)
            ++body_->count;
    }

    PhStringBody* body_ = nullptr;
};

/// The test by which lists and searches find a text: two null strings match, a null string matches
/// nothing else, and any other two texts match if their bytes are equal.
inline bool sameText(const PhString& a, const PhString& b)
{
    return a.isNull() || b.isNull() ? a.isNull() && b.isNull() : sameBytes(a.view(), b.view());
}

} // namespace tavo
