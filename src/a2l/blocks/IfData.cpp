#include "a2l/PhA2l.h"

#include "topology/PhCommParam.h"
#include "topology/PhGroup.h"

namespace tavo {

/// IF_DATA { ASAP1B_CCP ... | XCP ... | name ... } /end IF_DATA
///
/// What is stored goes to `owner` if that is a group; it may be null. A section of any other name
/// is passed over up to its `/end IF_DATA`, whatever it holds.
int PhA2l::parseIfData(PhObject* owner)
{
    int code = nextToken();
    if (code == T_IDENTIFIER && token().text == "ASAP1B_CCP")
        return parseIfDataCcp(owner);
    if (code == T_IDENTIFIER && token().text == "XCP")
        return parseIfDataXcp(owner);
    progress("  Parse unknown IF_DATA '%s'\n", token().text);
    do {
        code = skipToken();
        if (code == T_END) {
            code = nextToken();
            if (code == T_IF_DATA)
                return nextToken();
        }
    } while (code != T_EOF);
    return code;
}

/// The comm param of this name in the group `owner`, made if there is none yet. Another owner has
/// no place for one: it gives a new one that stands nowhere, so that what is read into it is
/// dropped. Nobody holds that one yet, so the caller does.
PhCommParam* PhA2l::commParamOf(PhObject* owner, const PhString& name, PhProtocol protocol)
{
    PhGroup* group =
        owner && owner->classId() == PhClassGroup ? static_cast<PhGroup*>(owner) : nullptr;
    if (group)
        if (PhCommParam* commParam = group->findCommParam(name))
            return commParam;
    auto fresh = std::make_unique<PhCommParam>();
    fresh->setName(name);
    fresh->setProtocol(protocol);
    fresh->setTransport(PhTransport::CAN);
    fresh->setEndian(byteOrder_);
    PhCommParam* commParam = fresh.release();
    if (group)
        group->appendCommParam(commParam);
    return commParam;
}

} // namespace tavo
