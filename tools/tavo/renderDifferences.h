#pragma once

#include "differences.h"

#include <string>

namespace tavo {

class ConfigurationStream;

/// A line for each difference. It is harmless to a terminal.
void renderDifferences(ConfigurationStream& stream, const Differences& differences,
                       const ChangeSet& shown, bool hasColors);
/// The same by the schema docs/differences.schema.json.
void renderDifferencesJson(ConfigurationStream& stream, const Differences& differences,
                           const ChangeSet& shown);

/// "2 added, 1 gone, 0 renamed, 12 moved, 1,204 changed", of those that are shown; or "No
/// differences".
std::string summaryOf(const Differences& differences, const ChangeSet& shown);
/// How many are shown.
std::size_t countOf(const Differences& differences, const ChangeSet& shown);

/// The value of a property for a line of text: a text in quotes, patterns in hexadecimal, of a long
/// list the first few, and "nothing" for none.
std::string textOf(const PropertyChange& property, const std::vector<Cell>& value);

} // namespace tavo
