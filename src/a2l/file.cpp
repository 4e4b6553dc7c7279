// The frame of a description: the file, PROJECT, HEADER, MODULE and A2ML.

#include "a2l/PhA2l.h"

#include "model/ownership.h"
#include "model/pool.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

namespace tavo {

/// 0, or the status of a reading that can't begin: -1 without a file name, -2 without a file.
int PhA2l::openFile()
{
    if (!fileName())
        return -1;
    if (memory_) {
        lexer_.openMemory(*memory_);
        return 0;
    }
    return lexer_.open(fileName()) ? 0 : -2;
}

/// { ASAP2_VERSION major minor | PROJECT ... } EOF
int PhA2l::readFile(PhRoot* root)
{
    byteOrder_ = PhEndian::Undefined;
    if (const int status = openFile())
        return status;
    const std::size_t size = lexer_.source().size();
    // The model of a usual description takes a quarter to half of the size of the file.
    expectBlocks(size / 2);
    // A small description has few names.
    constexpr std::size_t smallSize = 65536;
    sharedNames_.assign(size > 0 && size < smallSize ? 64 : 1024, PhString());
    int code = nextToken();
    do
        code = parseFileItem(root, code);
    while (code != T_EOF && code != T_ERROR);
    lexer_.close();
    return code == T_ERROR ? -1 : 0;
}

/// ASAP2_VERSION major minor | /begin PROJECT ...
int PhA2l::parseFileItem(PhRoot* root, int code)
{
    if (code == T_ASAP2_VERSION)
        return afterFields(2);
    if (code == T_BEGIN) {
        code = nextToken();
        if (code == T_PROJECT)
            return parseProject(root);
    }
    return unexpectedToken();
}

/// PROJECT name longIdentifier { HEADER ... | MODULE ... } /end PROJECT
int PhA2l::parseProject(PhRoot* root)
{
    const PhRef<PhGroup> project(new PhGroup);
    project->setName(readText());
    project->setLongName(readText());
    project->setGroupType(PhGroupType::Project);
    root->appendGroup(project.get());
    progress("  Parse PROJECT '%s'\n", token().text);
    return parseOptions(T_PROJECT, [&](int code) {
        if (code != T_BEGIN)
            return unexpectedToken();
        switch (code = nextToken()) {
        case T_HEADER:
            return parseHeader();
        case T_MODULE:
            return parseModule(project.get());
        default:
            return unexpectedToken();
        }
    });
}

/// HEADER comment { VERSION x | PROJECT_NO x } /end HEADER
int PhA2l::parseHeader()
{
    dropFields(1);
    progress("  Parse HEADER '%s'\n", token().text);
    return parseOptions(T_HEADER, [&](int code) {
        if (code == T_VERSION || code == T_PROJECT_NO)
            return afterFields(1);
        return unexpectedToken();
    });
}

/// MODULE name longIdentifier { /begin block | /include file } /end MODULE
int PhA2l::parseModule(PhGroup* project)
{
    const PhRef<PhGroup> module(new PhGroup);
    module->setName(readText());
    module->setLongName(readText());
    module->setGroupType(PhGroupType::Module);
    project->appendGroup(module.get());
    progress("  Parse MODULE '%s'\n", token().text);
    return parseOptions(T_MODULE, [&](int code) {
        if (code == T_BEGIN)
            return parseModuleBlock(module.get());
        if (code == T_INCLUDE) {
            warning("/include is not supported");
            return afterFields(1);
        }
        return unexpectedToken();
    });
}

/// The block after a /begin in a MODULE.
int PhA2l::parseModuleBlock(PhGroup* module)
{
    const int code = nextToken();
    switch (code) {
    case T_A2ML:
        return parseA2ml();
    case T_AXIS_PTS:
        return skipBlock(code);
    case T_CHARACTERISTIC:
        return parseCharacteristic();
    case T_COMPU_METHOD:
        return parseCompuMethod(module);
    case T_COMPU_TAB:
        return parseCompuTab(module);
    case T_COMPU_VTAB:
        return parseCompuVtab(module);
    case T_COMPU_VTAB_RANGE:
        return parseCompuVtabRange(module);
    case T_FRAME:
        return parseFrame();
    case T_FUNCTION:
        return parseFunction();
    case T_GROUP:
        return parseGroup();
    case T_IF_DATA:
        return parseIfData(module);
    case T_MEASUREMENT:
        return parseMeasurement(module);
    case T_MOD_COMMON:
        return parseModCommon(module);
    case T_MOD_PAR:
        return parseModPar(module);
    case T_RECORD_LAYOUT:
        return parseRecordLayout();
    case T_USER_RIGHTS:
        return parseUserRights();
    default:
        return unexpectedToken();
    }
}

/// A2ML ... /end A2ML, of which nothing is interpreted: the first /end closes the block.
int PhA2l::parseA2ml()
{
    progress("  Parse A2ML \n");
    int code = skipToken();
    while (code != T_END) {
        if (code == T_EOF)
            return unexpectedToken();
        code = skipToken();
    }
    return expectEnd(T_A2ML);
}

} // namespace tavo
