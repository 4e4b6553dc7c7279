#include "a2l/PhA2l.h"

#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhGroup.h"
#include "topology/PhMemoryPage.h"

namespace tavo {

namespace {

PhPageType pageTypeOf(int code)
{
    switch (code) {
    case enumWord::T_RESERVED:
        return PhPageType::Reserved;
    case enumWord::T_CODE:
    case enumWord::T_SERAM:
        return PhPageType::Code;
    case enumWord::T_OFFLINE_DATA:
    case enumWord::T_VARIABLES:
    case enumWord::T_CALIBRATION_VARIABLES:
        return PhPageType::Variables;
    case enumWord::T_DATA:
    case enumWord::T_EXCLUDE_FROM_FLASH:
        return PhPageType::Data;
    default:
        return PhPageType::Undefined;
    }
}

PhMemoryType memoryTypeOf(int code)
{
    switch (code) {
    case enumWord::T_RAM:
        return PhMemoryType::Ram;
    case enumWord::T_ROM:
        return PhMemoryType::Rom;
    case enumWord::T_EPROM:
        return PhMemoryType::Eprom;
    case enumWord::T_EEPROM:
        return PhMemoryType::Eeprom;
    case enumWord::T_FLASH:
        return PhMemoryType::Flash;
    case enumWord::T_REGISTER:
        return PhMemoryType::Register;
    default:
        return PhMemoryType::Undefined;
    }
}

PhLocation locationOf(int code)
{
    switch (code) {
    case enumWord::T_INTERN:
        return PhLocation::Intern;
    case enumWord::T_EXTERN:
        return PhLocation::Extern;
    default:
        return PhLocation::Undefined;
    }
}

} // namespace

/// MEMORY_SEGMENT name longIdentifier pageType memoryType location address size
/// offset offset offset offset offset { IF_DATA ... } /end MEMORY_SEGMENT
int PhA2l::parseMemorySegment(PhGroup* group)
{
    const PhRef<PhMemoryPage> page(new PhMemoryPage);
    page->setName(readText());
    page->setLongName(readText());
    {
        const VocabularyScope words(lexer_, enumKeywords);
        page->setPageType(readWord(pageTypeOf));
        page->setMemoryType(readWord(memoryTypeOf));
        page->setLocation(readWord(locationOf));
    }
    page->setAddress(new PhValue(readInteger()));
    page->setSize(new PhValue(readInteger()));
    dropFields(5); // the offsets
    group->appendMemoryPage(page.get());

    return parseOptions(T_MEMORY_SEGMENT, [&](int code) {
        if (code == T_BEGIN) {
            code = nextToken();
            if (code == T_IF_DATA)
                return parseIfData(page.get());
        }
        return unexpectedToken();
    });
}

} // namespace tavo
