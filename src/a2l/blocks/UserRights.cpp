#include "a2l/PhA2l.h"

namespace tavo {

/// USER_RIGHTS userLevel { READ_ONLY | /begin REF_GROUP { identifier } /end REF_GROUP }
/// /end USER_RIGHTS, of which nothing is kept.
int PhA2l::parseUserRights()
{
    dropFields(1);
    progress("  Parse USER_RIGHTS\n");
    return parseOptions(T_USER_RIGHTS, [&](int code) {
        switch (code) {
        case T_READ_ONLY:
            return nextToken();
        case T_BEGIN:
            code = nextToken();
            // The message has no quotes, which hosts rely on (docs/architecture.md).
            if (code == T_REF_GROUP)
                return parseNameList(code, "Keyword %s expected after /end");
            break;
        }
        return unexpectedToken();
    });
}

} // namespace tavo
