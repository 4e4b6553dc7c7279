#pragma once

#include "render.h"

namespace tavo {

/// Writes all that the inventory says of what is listed, by the schema docs/listing.schema.json:
/// one object with an array for each kind, and in it a line for each object. `form.columns` are the
/// members that objects have. Each of several files has an object of its own, which names it.
void renderJson(ConfigurationStream& stream, const Listing& listing, const ListingForm& form,
                const std::string& file);

} // namespace tavo
