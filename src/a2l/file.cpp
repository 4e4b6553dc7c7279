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
    line_ = 1;
    if (!fileName())
        return -1;
    return file_.open(fileName()) ? 0 : -2;
}

/// { ASAP2_VERSION major minor | PROJECT ... } EOF
int PhA2l::readFile(PhRoot* root)
{
    byteOrder_ = PhEndian::Undefined;
    if (const int status = openFile())
        return status;
    // The model of a usual description takes more than half the size of the file.
    expectBlocks(file_.size() / 2);
    PhTokenValue value = {};
    int code = nextToken(value);
    do
        code = parseFileItem(root, value, code);
    while (code != T_EOF && code != T_ERROR);
    file_.close();
    return code == T_ERROR ? -1 : 0;
}

/// ASAP2_VERSION major minor | /begin PROJECT ...
int PhA2l::parseFileItem(PhRoot* root, PhTokenValue& value, int code)
{
    if (code == T_ASAP2_VERSION)
        return afterFields(value, 2);
    if (code == T_BEGIN) {
        code = nextToken(value);
        if (code == T_PROJECT)
            return parseProject(root, value);
    }
    return unexpectedToken(value, code);
}

/// PROJECT name longIdentifier { HEADER ... | MODULE ... } /end PROJECT
int PhA2l::parseProject(PhRoot* root, PhTokenValue& value)
{
    const PhHold<PhGroup> project(new PhGroup);
    project->setName(readText(value));
    project->setLongName(readText(value));
    project->setGroupType(PhGroupType::Project);
    root->appendGroup(project.get());
    progress("  Parse PROJECT '%s'\n", token_);
    return parseOptions(value, T_PROJECT, [&](int code) {
        if (code != T_BEGIN)
            return unexpectedToken(value, code);
        switch (code = nextToken(value)) {
        case T_HEADER:
            return parseHeader(value);
        case T_MODULE:
            return parseModule(project.get(), value);
        default:
            return unexpectedToken(value, code);
        }
    });
}

/// HEADER comment { VERSION x | PROJECT_NO x } /end HEADER
int PhA2l::parseHeader(PhTokenValue& value)
{
    dropFields(1);
    progress("  Parse HEADER '%s'\n", token_);
    return parseOptions(value, T_HEADER, [&](int code) {
        if (code == T_VERSION || code == T_PROJECT_NO)
            return afterFields(value, 1);
        return unexpectedToken(value, code);
    });
}

/// MODULE name longIdentifier { /begin block | /include file } /end MODULE
int PhA2l::parseModule(PhGroup* project, PhTokenValue& value)
{
    const PhHold<PhGroup> module(new PhGroup);
    module->setName(readText(value));
    module->setLongName(readText(value));
    module->setGroupType(PhGroupType::Module);
    project->appendGroup(module.get());
    progress("  Parse MODULE '%s'\n", token_);
    return parseOptions(value, T_MODULE, [&](int code) {
        if (code == T_BEGIN)
            return parseModuleBlock(module.get(), value);
        if (code == T_INCLUDE) {
            warning("/include is not supported");
            return afterFields(value, 1);
        }
        return unexpectedToken(value, code);
    });
}

/// The block behind a /begin in a MODULE.
int PhA2l::parseModuleBlock(PhGroup* module, PhTokenValue& value)
{
    const int code = nextToken(value);
    switch (code) {
    case T_A2ML:
        return parseA2ml(value);
    case T_AXIS_PTS:
        return skipBlock(value, code);
    case T_CHARACTERISTIC:
        return parseCharacteristic(value);
    case T_COMPU_METHOD:
        return parseCompuMethod(module, value);
    case T_COMPU_TAB:
        return parseCompuTab(module, value);
    case T_COMPU_VTAB:
        return parseCompuVtab(module, value);
    case T_COMPU_VTAB_RANGE:
        return parseCompuVtabRange(module, value);
    case T_FRAME:
        return parseFrame(value);
    case T_FUNCTION:
        return parseFunction(value);
    case T_GROUP:
        return parseGroup(value);
    case T_IF_DATA:
        return parseIfData(module, value);
    case T_MEASUREMENT:
        return parseMeasurement(module, value);
    case T_MOD_COMMON:
        return parseModCommon(module, value);
    case T_MOD_PAR:
        return parseModPar(module, value);
    case T_RECORD_LAYOUT:
        return parseRecordLayout(value);
    case T_USER_RIGHTS:
        return parseUserRights(value);
    default:
        return unexpectedToken(value, code);
    }
}

/// A2ML ... /end A2ML, of which nothing is interpreted: the first /end closes the block.
int PhA2l::parseA2ml(PhTokenValue& value)
{
    progress("  Parse A2ML \n");
    int code = skipToken();
    while (code != T_END) {
        if (code == T_EOF)
            return unexpectedToken(value, code);
        code = skipToken();
    }
    return expectEnd(value, T_A2ML);
}

} // namespace tavo
