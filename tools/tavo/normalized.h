#pragma once

#include <string>
#include <vector>

namespace tavo {

class ConfigurationStream;
class Inventory;

/// What keeps an inventory from being written as a strict description, a line for each thing: names
/// that the strict lexer can't read, texts with a byte 255, interfaces that strict reading would
/// make one. Nothing if there is no such thing. After a hundred lines, one says how many are left.
std::vector<std::string> hindrancesOf(const Inventory& inventory);

/// Writes a description that the strict library converts to the same configuration as the
/// inventory; there must be no hindrance. What the configuration can't express isn't in it.
void writeNormalized(ConfigurationStream& stream, const Inventory& inventory);

} // namespace tavo
