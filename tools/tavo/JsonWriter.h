#pragma once

#include "Listing.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavo {

/// Makes JSON of what an inventory holds. The text is valid UTF-8 whatever the bytes of the
/// description.
class JsonWriter
{
public:
    /// What was made since the last `clear`.
    std::string_view json() const { return {buffer_.GetString(), buffer_.GetSize()}; }
    void clear();

    void beginObject() { writer_.StartObject(); }
    void endObject() { writer_.EndObject(); }
    void beginArray() { writer_.StartArray(); }
    void endArray() { writer_.EndArray(); }
    void key(const char* name) { writer_.Key(name); }

    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(std::int64_t number) { writer_.Int64(number); }
    void value(std::uint64_t number) { writer_.Uint64(number); }
    /// The shortest form that reads back as the same double, with a point or an exponent, so that
    /// it differs from an integer. JSON has no form for what is no number or infinite.
    void value(double number);
    void value(bool truth) { writer_.Bool(truth); }
    void null() { writer_.Null(); }

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
    void member(const char* name, const Cell& cell);

private:
    rapidjson::StringBuffer buffer_;
    rapidjson::Writer<rapidjson::StringBuffer> writer_{buffer_};
};

/// The objects of the schema docs/listing.schema.json.
void putJson(JsonWriter& json, const Interface& interface);
void putJson(JsonWriter& json, const Interface& interface, const Source& source);
/// The members of a conversion that a method has, except its name and what is in its table.
void putMembers(JsonWriter& json, const Inventory& inventory, const Method& method);
/// The member for raw values that are in no row of the table, if it has one.
void putDefault(JsonWriter& json, const Table& table);

} // namespace tavo
