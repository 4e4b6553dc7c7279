#pragma once

#include "Digits.h"
#include "Listing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace tavo {

/// Makes JSON of what an inventory holds. The text is valid UTF-8 whatever the bytes of the
/// description.
class JsonWriter
{
public:
    /// What was made since the last `clear`.
    std::string_view json() const { return text_; }
    void clear()
    {
        text_.clear();
        needsComma_ = false;
    }

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }
    /// A name of at most 60 characters, none of which has to be escaped.
    void key(std::string_view name)
    {
        constexpr std::size_t longest = 60;
        char made[longest + 4];
        std::size_t size = 0;
        if (needsComma_)
            made[size++] = ',';
        made[size++] = '"';
        const std::size_t length = std::min(name.size(), longest);
        std::memcpy(made + size, name.data(), length);
        size += length;
        made[size++] = '"';
        made[size++] = ':';
        text_.append(made, size);
        needsComma_ = false;
    }

    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(std::int64_t number) { raw(Digits(number).text()); }
    void value(std::uint64_t number) { raw(Digits(number).text()); }
    /// The shortest form that reads back as the same double, with a point or an exponent, so that
    /// it differs from an integer. JSON has no form for what is no number or infinite.
    void value(double number);
    void value(bool truth) { raw(truth ? "true" : "false"); }
    void null() { raw("null"); }
    /// A value, or members with commas between them, that were made before.
    void raw(std::string_view json)
    {
        separate();
        text_.append(json);
    }

    /// Begins another line before the next value.
    void lineBreak()
    {
        separate();
        text_.push_back('\n');
        needsComma_ = false;
    }

    template <class Value> void member(const char* name, const Value& content)
    {
        key(name);
        value(content);
    }
    template <class Value> void member(const char* name, const std::optional<Value>& content)
    {
        if (content)
            member(name, *content);
    }
    /// A cell without a text in it; none without a value.
    void member(const char* name, const CellView& cell);

private:
    void separate()
    {
        if (needsComma_)
            text_.push_back(',');
        needsComma_ = true;
    }
    void open(char bracket)
    {
        separate();
        text_.push_back(bracket);
        needsComma_ = false;
    }
    void close(char bracket)
    {
        text_.push_back(bracket);
        needsComma_ = true;
    }
    std::string text_;
    bool needsComma_ = false; ///< Something stands before on the same level.
};

/// The objects of the schema docs/listing.schema.json.
void putJson(JsonWriter& json, const Interface& interface);
void putJson(JsonWriter& json, const Interface& interface, const Source& source);
/// The members of a conversion that a method has, except its name and what is in its table.
void putMembers(JsonWriter& json, const Inventory& inventory, const Method& method);
/// The member for raw values that are in no row of the table, if it has one.
void putDefault(JsonWriter& json, const Table& table);

} // namespace tavo
