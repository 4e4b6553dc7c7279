#include "topology/search.h"

#include "topology/PhGroup.h"

#include <vector>

namespace tavo {

PhGroup* findGroup(const PhList* groups, const PhString& (PhObject::*text)() const,
                   const PhString& wanted)
{
    const auto head = [](const PhList* list) { return list ? list->entryAt(0) : nullptr; };

    // What remains to be searched, one chain of siblings for each level; the innermost is on top.
    std::vector<const PhListNode*> chains{head(groups)};
    while (!chains.empty()) {
        const PhListNode* node = chains.back();
        chains.pop_back();
        if (!node)
            continue;
        auto* group = static_cast<PhGroup*>(node->object());
        if (sameText((group->*text)(), wanted))
            return group;
        chains.push_back(node->next());
        chains.push_back(head(group->groups()));
    }
    return nullptr;
}

} // namespace tavo
