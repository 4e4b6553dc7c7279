#pragma once

#include "Listing.h"

#include <string>
#include <vector>

namespace tavo {

class ConfigurationStream;

/// How a listing is to look.
struct ListingForm
{
    /// In this order; `kind` and `file` can be among them. Empty for those that a form has of
    /// itself.
    std::vector<std::string> columns;
    bool hasFiles = false; ///< There are several files, so that each one is named.
};

/// True for a column that a section has, and for `kind` and `file`.
bool isColumn(std::string_view name);

/// For eyes: the sections that hold anything, in columns.
void renderTable(ConfigurationStream& stream, const Listing& listing, const ListingForm& form,
                 const std::string& file);

/// By RFC 4180: one header, with the columns of all sections after the kind of a row. Of several
/// files the first one has the header.
void renderCsvHeader(ConfigurationStream& stream, const KindSet& kinds, const ListingForm& form);
void renderCsv(ConfigurationStream& stream, const Listing& listing, const ListingForm& form,
               const std::string& file);

} // namespace tavo
