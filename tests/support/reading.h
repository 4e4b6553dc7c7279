#pragma once

#include "a2l/PhKeywordTable.h"

#include <string>
#include <string_view>

/// The tokens of a text up to its end, with a blank between them: [keyword], 'name', "string", the
/// number or t=code. A failure comes before its token as {line: text}.
enum class Source
{
    Memory,
    File
};
std::string tokensOf(std::string_view text, Source source = Source::Memory,
                     const tavo::PhKeywordTable& vocabulary = tavo::coreKeywords);

/// What the reader reports of a description, its status, and what it leaves in the model: a line
/// for each object, with the objects of a group indented. A "?" after the name of a conversion says
/// that it is a placeholder, a "!" that this was reported.
enum class Names
{
    AsRead,
    Resolved
};
std::string modelOf(std::string_view description, Names names);

/// What a verbose reader that is being debugged reports of a description.
std::string logOf(std::string_view description);
