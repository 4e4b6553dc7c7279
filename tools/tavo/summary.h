#pragma once

#include <cstdint>
#include <string>

namespace tavo {

class Inventory;

/// "1,204": with a comma between groups of three digits.
std::string grouped(std::uint64_t number);
/// "2 sources", "1,204 sources"
std::string counted(std::uint64_t count, const char* noun);

/// What the configuration holds: "1 interface, 2 sources, 3 measurements", and how many it can't
/// express, if there are such.
std::string summaryOf(const Inventory& inventory);

} // namespace tavo
