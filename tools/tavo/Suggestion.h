#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

/// Finds what somebody meant who has mistyped a word: of all that it could be, the one with the
/// fewest slips, which are characters too many, missing, exchanged or wrong.
class Suggestion
{
public:
    explicit Suggestion(std::string_view word) : Suggestion(word, word.size()) {}
    /// `length` of the word may have slips in it; the rest is the same for all.
    Suggestion(std::string_view word, std::size_t length);

    /// Takes something that the word could be. The time is that of both lengths multiplied at most,
    /// and next to nothing for one whose length differs too much.
    void consider(std::string_view candidate);
    /// The nearest so far, the first of several; "" if all are too far away to be meant.
    const std::string& best() const { return best_; }
    bool isFound() const { return !best_.empty(); }
    /// True if there can't be a nearer one any more.
    bool isCertain() const { return isFound() && most_ == 0; }

private:
    std::size_t distanceTo(std::string_view candidate);

    std::string word_;
    std::size_t most_; ///< Slips that are worth a suggestion.
    std::string best_;
    std::vector<std::size_t> rows_[3]; ///< Of the table of distances.
};

} // namespace tavo
