#include "model/PhString.h"

#include "model/pool.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>

namespace tavo {

namespace {

std::uint32_t kept(std::size_t size)
{
    return static_cast<std::uint32_t>(std::min<std::size_t>(size, PhStringBody::huge));
}

PhStringBody* newBody(std::size_t capacity)
{
    void* block = allocateBlock(sizeof(PhStringBody) + capacity + 1);
    return new (block) PhStringBody{1, kept(capacity), 0};
}

/// Gives the body a text whose characters, except the first `head`, come from `text`, which may be
/// a piece of this very body.
void write(PhStringBody& body, std::size_t head, std::string_view text)
{
    if (!text.empty())
        std::memmove(body.buffer() + head, text.data(), text.size());
    body.buffer()[head + text.size()] = '\0';
    body.length = kept(head + text.size());
}

PhStringBody* newText(std::string_view text)
{
    PhStringBody* body = newBody(text.size());
    write(*body, 0, text);
    return body;
}

template <class Number> PhStringBody* newDecimal(Number number)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return newText({digits, static_cast<std::size_t>(end - digits)});
}

int sign(int difference) { return (difference > 0) - (difference < 0); }

} // namespace

PhString::PhString(int number) : body_(newDecimal(number)) {}

PhString::PhString(unsigned number) : body_(newDecimal(number)) {}

PhString& PhString::operator=(const char* text)
{
    set(text);
    return *this;
}

void PhString::release(PhStringBody* body) noexcept
{
    releaseBlock(body, sizeof(PhStringBody) + body->capacity + 1);
}

void PhString::set(const char* text)
{
    if (text)
        set(std::string_view(text));
    else
        clear();
}

void PhString::set(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    if (body_ && body_->count == 1 && body_->capacity >= text.size()) {
        write(*body_, 0, text);
        return;
    }
    PhStringBody* fresh = newText(text);
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
    const std::string_view tail = text;
    if (body_->count == 1 && body_->capacity >= head + tail.size()) {
        write(*body_, head, tail);
        return;
    }
    PhStringBody* fresh = newBody(head + tail.size());
    write(*fresh, 0, view());
    write(*fresh, head, tail);
    clear();
    body_ = fresh;
}

void PhString::detach()
{
    if (!body_ || body_->count == 1)
        return;
    PhStringBody* own = newText(view());
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

std::uint32_t PhString::hash() const
{
    std::uint32_t hash = 0;
    for (const char c : view())
        hash = static_cast<unsigned char>(c) + hash * 2;
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

} // namespace tavo
