#include "Suggestion.h"

#include <algorithm>

namespace tavo {

namespace {

/// Longer words are no slip of a finger, and would take long.
constexpr std::size_t longest = 200;

} // namespace

Suggestion::Suggestion(std::string_view word, std::size_t length)
    : word_(word.substr(0, longest)),
      most_(word.size() > longest ? 0 : std::max<std::size_t>(length / 3, 1))
{
}

void Suggestion::consider(std::string_view candidate)
{
    const std::size_t difference =
        std::max(word_.size(), candidate.size()) - std::min(word_.size(), candidate.size());
    if (most_ == 0 || difference > most_ || candidate.empty())
        return;
    const std::size_t distance = distanceTo(candidate);
    if (distance > most_ || distance >= std::max(word_.size(), candidate.size()))
        return;
    best_ = candidate;
    most_ = distance > 0 ? distance - 1 : 0; // an equal one comes too late
}

std::size_t Suggestion::distanceTo(std::string_view candidate)
{
    for (auto& row : rows_)
        row.assign(candidate.size() + 1, 0);
    for (std::size_t j = 0; j <= candidate.size(); ++j)
        rows_[1][j] = j;
    for (std::size_t i = 1; i <= word_.size(); ++i) {
        auto& [before, former, row] = rows_;
        row[0] = i;
        std::size_t least = i;
        for (std::size_t j = 1; j <= candidate.size(); ++j) {
            const bool isSame = word_[i - 1] == candidate[j - 1];
            row[j] = std::min({former[j] + 1, row[j - 1] + 1, former[j - 1] + (isSame ? 0 : 1)});
            if (i > 1 && j > 1 && word_[i - 1] == candidate[j - 2] &&
                word_[i - 2] == candidate[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
            least = std::min(least, row[j]);
        }
        if (least > most_)
            return least;
        std::swap(before, former);
        std::swap(former, row);
    }
    return rows_[1][candidate.size()];
}

} // namespace tavo
