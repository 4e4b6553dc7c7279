#include "model/PhString.h"

#include <charconv>
#include <cstring>
#include <new>

namespace tavo {

namespace {

PhStringBody* newBody(std::size_t capacity)
{
    void* block = ::operator new(sizeof(PhStringBody) + capacity + 1);
    return new (block) PhStringBody{1, capacity};
}

/// Copies `length` characters to `target` and ends the text behind them.
void copyText(char* target, const char* text, std::size_t length)
{
    std::memcpy(target, text, length);
    target[length] = '\0';
}

template <class Number> PhStringBody* newDecimal(Number number)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    PhStringBody* body = newBody(length);
    copyText(body->buffer(), digits, length);
    return body;
}

int sign(int difference) { return (difference > 0) - (difference < 0); }

} // namespace

PhString::PhString(int number) : body_(newDecimal(number)) {}

PhString::PhString(unsigned number) : body_(newDecimal(number)) {}

PhString& PhString::operator=(const PhString& other) noexcept
{
    if (body_ != other.body_) {
        clear();
        body_ = other.body_;
        share();
    }
    return *this;
}

PhString& PhString::operator=(PhString&& other) noexcept
{
    if (this != &other) {
        clear();
        body_ = other.body_;
        other.body_ = nullptr;
    }
    return *this;
}

PhString& PhString::operator=(const char* text)
{
    set(text);
    return *this;
}

void PhString::clear() noexcept
{
    if (body_ && --body_->count == 0)
        ::operator delete(body_);
    body_ = nullptr;
}

void PhString::set(const char* text)
{
    if (!text) {
        clear();
        return;
    }
    const std::size_t length = std::strlen(text);
    if (body_ && body_->count == 1 && body_->capacity >= length) {
        // The text may be a piece of this very buffer.
        std::memmove(body_->buffer(), text, length);
        body_->buffer()[length] = '\0';
        return;
    }
    PhStringBody* fresh = newBody(length);
    copyText(fresh->buffer(), text, length);
    clear();
    body_ = fresh;
}

void PhString::append(const char* text)
{
    if (!text || *text == '\0')
        return;
    if (!body_) {
        set(text);
        return;
    }
    const std::size_t head = length();
    const std::size_t tail = std::strlen(text);
    if (body_->count == 1 && body_->capacity >= head + tail) {
        // The text may be a piece of this very buffer: its terminator is written last.
        std::memmove(body_->buffer() + head, text, tail);
        body_->buffer()[head + tail] = '\0';
        return;
    }
    PhStringBody* fresh = newBody(head + tail);
    std::memcpy(fresh->buffer(), body_->buffer(), head);
    copyText(fresh->buffer() + head, text, tail);
    clear();
    body_ = fresh;
}

void PhString::detach()
{
    if (!body_ || body_->count == 1)
        return;
    const std::size_t size = length();
    PhStringBody* own = newBody(size);
    copyText(own->buffer(), body_->buffer(), size);
    clear();
    body_ = own;
}

PhString& PhString::operator+=(const PhString& other)
{
    append(other.cStr());
    return *this;
}

PhString PhString::operator+(const PhString& other) const
{
    PhString sum(*this);
    sum.append(other.cStr());
    return sum;
}

std::size_t PhString::length() const { return body_ ? std::strlen(body_->buffer()) : 0; }

std::uint32_t PhString::hash() const
{
    std::uint32_t hash = 0;
    if (body_)
        for (const char* p = body_->buffer(); *p != '\0'; ++p)
            hash = static_cast<unsigned char>(*p) + hash * 2;
    return hash;
}

int PhString::compare(const PhString& other) const
{
    return body_ == other.body_ ? 0 : compare(other.cStr());
}

int PhString::compare(const char* text) const
{
    if (!body_)
        return -1;
    if (!text)
        return 1;
    return sign(std::strcmp(body_->buffer(), text));
}

bool PhString::operator==(const char* text) const
{
    return body_ && text && std::strcmp(body_->buffer(), text) == 0;
}

bool sameText(const PhString& a, const PhString& b)
{
    return a.cStr() == b.cStr() || a == b.cStr();
}

} // namespace tavo
