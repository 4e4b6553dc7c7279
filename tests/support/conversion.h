#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What one conversion gave.
struct Conversion
{
    std::int32_t result = 0;
    std::string report;                ///< Everything on the standard output.
    std::optional<std::string> output; ///< The file written; nothing if there is none.
};

/// Converts a file, with the standard output caught.
Conversion convertFile(const std::string& input, const std::string& output);

/// Converts a description that is given as text. It has the name "d.a2l" in the report.
Conversion convertText(std::string_view description);

/// The description of a module that holds `body`, which begins on line 3.
std::string inModule(std::string_view body);
/// Of a module with one MEASUREMENT that has these options.
std::string withMeasurement(std::string_view options);

/// The diagnostics in a report: the lines between the blank one and the reader's status.
std::string diagnostics(const Conversion& conversion);
