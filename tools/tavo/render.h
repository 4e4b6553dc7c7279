#pragma once

#include "Listing.h"

namespace tavo {

class ConfigurationStream;

/// The forms of a listing.

/// For eyes: the sections that hold anything, in columns.
void renderTable(ConfigurationStream& stream, const std::vector<Section>& listing);

/// By RFC 4180: one header, with the columns of all sections after the kind of a row.
void renderCsv(ConfigurationStream& stream, const std::vector<Section>& listing);

} // namespace tavo
