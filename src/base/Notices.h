#pragma once

#include "base/Place.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavo {

/// Collects warnings about a description: one for each kind of thing and not for each thing, with
/// the count and the first case.
class Notices
{
public:
    /// Gets a warning.
    using Sink = std::function<void(Place place, const std::string& text)>;
    /// Number of a kind of warning.
    using Kind = std::size_t;

    /// `eachCase`, which may be empty, gets every single case when it comes.
    explicit Notices(Sink eachCase = {}) : eachCase_(std::move(eachCase)) {}

    /// The kind that says `text`. It is no warning as long as there is no case of it.
    Kind kind(std::string_view text);
    /// True if the text of another case will be seen, so that it is worth making one.
    bool wants(Kind kind) const { return eachCase_ || kinds_[kind].count == 0; }
    /// Counts one case, or `count` of them. `subject` says what the case is about; "" if the kind
    /// says it all.
    void add(Kind kind, Place place, std::string_view subject, std::uint64_t count = 1);

    /// The same for a kind that comes up seldom.
    void add(Place place, std::string_view text, std::string_view subject = {},
             std::uint64_t count = 1)
    {
        add(kind(text), place, subject, count);
    }

    /// All cases of all kinds.
    std::uint64_t count() const { return count_; }
    /// Hands on one warning for each kind, in the order in which the kinds came up.
    void report(const Sink& sink) const;

private:
    struct Summary
    {
        std::string text;
        std::string firstSubject;
        Place firstPlace;
        std::uint64_t count = 0;
    };

    Sink eachCase_;
    std::map<std::string, Kind, std::less<>> numbers_; ///< By text, in `kinds_`.
    std::vector<Summary> kinds_;
    std::uint64_t count_ = 0;
};

/// The parts as one text.
std::string joined(std::initializer_list<std::string_view> parts);

/// As much of a word of a description as a message can show, in quotes.
std::string inQuotes(std::string_view word);

} // namespace tavo
