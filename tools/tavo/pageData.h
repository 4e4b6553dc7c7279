#pragma once

#include <string_view>

namespace tavo {

class ConfigurationStream;
class Differences;
class Inventory;

/// What a page shows of an older description.
struct PageComparison
{
    const Differences& differences;
    std::string_view title; ///< Of the older description.
};

/// Writes what the listing in JSON says of an inventory, and in less space, as a block of data of a
/// page: one JSON object that holds no "<", whatever the bytes of the description. docs/page.md
/// explains its form. `title` names the description; `comparison` is null if there is no older one.
void writePageData(ConfigurationStream& stream, const Inventory& inventory, std::string_view title,
                   const PageComparison* comparison);

} // namespace tavo
