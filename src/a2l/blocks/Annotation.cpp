#include "a2l/PhA2l.h"

namespace tavo {

/// ANNOTATION { ANNOTATION_LABEL x | ANNOTATION_ORIGIN x |
/// /begin ANNOTATION_TEXT { "text" } /end ANNOTATION_TEXT } /end ANNOTATION, of which nothing is
/// kept.
int PhA2l::parseAnnotation()
{
    return parseOptions(T_ANNOTATION, [&](int code) {
        switch (code) {
        case T_ANNOTATION_LABEL:
        case T_ANNOTATION_ORIGIN:
            return afterFields(1);
        case T_BEGIN:
            code = nextToken();
            if (code == T_ANNOTATION_TEXT)
                // Hosts rely on this byte (docs/architecture.md), an A with diaeresis in Latin-1.
                return parseOpenRun(T_STRING, code, "Keyword '%s\xC4 expected after /end");
            break;
        }
        return unexpectedToken();
    });
}

} // namespace tavo
