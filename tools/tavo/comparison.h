#pragma once

namespace tavo {

class Diagnostics;
class Input;
class Inventory;

/// Reads the description a second time, in the wide dialect, and warns of each value that the
/// strict reading changes. What it says on its own, a wide reading that fails for example, is a
/// warning too.
void compareReadings(const Input& input, const Inventory& strict, Diagnostics& diagnostics);

/// True if the description can be read in the wide dialect.
bool isReadWide(const Input& input);

} // namespace tavo
