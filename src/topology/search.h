#pragma once

#include "model/PhList.h"

namespace tavo {

class PhGroup;

/// Searches a list of groups, which may be missing, and all groups below, depth first and each
/// group before its children. `text` is the text slot that has to match `wanted`. Null if none
/// does.
PhGroup* findGroup(const PhList* groups, const PhString& (PhObject::*text)() const,
                   const PhString& wanted);

} // namespace tavo
