#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

/// Finds, among the names of a description, what somebody meant who has mistyped one. The time for
/// all questions together is bounded: once it is spent, nothing is found any more.
class NearestName
{
public:
    /// A name among which to look. The bytes outlive the object.
    void add(std::string_view name);
    bool isEmpty() const { return names_.empty(); }

    /// The nearest name, capital and small letters being the same; "" if there is none.
    std::string_view to(std::string_view word);

private:
    struct Name
    {
        std::string_view text;
        std::uint64_t letters; ///< Bits for those that it has.
    };

    std::vector<Name> names_;
    std::uint64_t budget_ = 200'000'000; ///< Steps of less than ten nanoseconds.
};

} // namespace tavo
