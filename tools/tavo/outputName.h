#pragma once

#include <string>

namespace tavo {

/// True for a name that descriptions have, compressed ones too.
bool looksLikeDescription(const std::string& path);

/// Where what is made of the input goes if nobody says: next to it, with this extension in place
/// of its own. Throws a `Failure` for an input that has no name, such as the standard input.
std::string outputNextTo(const std::string& input, const std::string& extension);

} // namespace tavo
