#include "version.h"

#include "commit.h"

namespace tavo {

const char* const versionLine = "tavo " TAVO_VERSION TAVO_COMMIT "\n";

} // namespace tavo
