#pragma once

#include "JsonWriter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavo {

class ConfigurationStream;

/// Puts JSON where HTML must see nothing but characters: in JSON, "<" is in texts only.
void putSafely(ConfigurationStream& stream, std::string_view json);

/// Writes one item for each quantity as a member of an object: an array, in which an item that
/// comes again and again is written once, with [n] after it for n times more. A member stands
/// before it, and the stream outlives it.
class PageColumn
{
public:
    PageColumn(ConfigurationStream& stream, const char* name);
    ~PageColumn();
    PageColumn(const PageColumn&) = delete;
    PageColumn& operator=(const PageColumn&) = delete;

    void put(std::int64_t number);
    void put(std::string_view text);
    void putTrue() { add("true"); }
    void putNone() { add("null"); }
    /// A text, or the number that it has as an earlier one.
    void putText(std::string_view text);
    void putText(const std::optional<std::string_view>& text);
    /// The shortest form that reads back as the same double; "inf", "-inf" or "nan" for what JSON
    /// has no number for.
    void putNumber(double number);

private:
    void add(std::string_view item);
    void putRepeats();
    void putItem(std::string_view item);

    ConfigurationStream& stream_;
    JsonWriter json_;
    TextPool pool_;
    NameTable texts_{pool_};
    std::string lastText_; ///< What `putText` had last, and its number.
    std::uint32_t lastNumber_ = 0;
    std::string last_; ///< The item before, which is never "".
    std::uint64_t repeats_ = 0;
    bool isFirst_ = true;
};

} // namespace tavo
