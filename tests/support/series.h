#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One of the texts of a golden series.
struct SeriesText
{
    std::string title;
    std::string body;
    std::vector<std::string> endings; ///< Of the whole series: "" and none of them are the same.
};

/// The texts of a series, from its bytes. What comes before the first title is no text.
std::vector<SeriesText> seriesTexts(const std::string& bytes);

/// The description that a text for the wide reader stands for: itself if there is a PROJECT in it,
/// else a MODULE with this body, which begins on line 3.
std::string wideDescription(const std::string& body);
