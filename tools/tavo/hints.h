#pragma once

#include <string>

namespace tavo {

struct Diagnostic;

/// What probably helps with what a reader complains about, for a line "hint: ..."; "" if nobody
/// knows.
std::string hintFor(const Diagnostic& diagnostic);

/// The name in the same folder that is nearest to that of a file that doesn't exist, as a hint, or
/// "".
std::string hintForMissing(const std::string& file);

} // namespace tavo
