#pragma once

#include "Listing.h"

namespace tavo {

class ConfigurationStream;

/// Writes all that an inventory says of the interfaces, sources and measurements that are chosen,
/// by the schema docs/listing.schema.json: one object with an array for each of the three kinds,
/// and in it a line for each object.
void renderJson(ConfigurationStream& stream, const Inventory& inventory, Selection& selection);

} // namespace tavo
