#pragma once

#include <string>
#include <string_view>

/// The tokens of a text up to its end, with a blank between them: [keyword], 'name', "string", the
/// number or t=code. An error stands ahead of its token as {line: text}. `vocabulary` is the number
/// of the one that the names are looked up in.
std::string tokensOf(std::string_view text, int vocabulary = 0);

/// What the reading of a description tells, its status, and what it leaves in the model: a line for
/// each object, with the objects of a group indented. A "?" behind the name of a conversion says
/// that it is a placeholder, a "!" that this was reported.
enum class Names
{
    AsRead,
    Resolved
};
std::string modelOf(std::string_view description, Names names);

/// What a verbose reader that is being debugged tells of a description.
std::string logOf(std::string_view description);
