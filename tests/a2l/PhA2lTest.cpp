// The reader as a whole: its statuses, what goes through a logger, and what it leaves in the model
// beyond what a configuration shows.

#include "a2l/PhA2l.h"
#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhRange.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "support/RecordingLogger.h"
#include "support/conversion.h"
#include "support/files.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhMemoryPage.h"
#include "topology/PhRaster.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace tavo;

namespace {

/// A description that is read at once.
struct Reading
{
    explicit Reading(std::string_view text, bool verbose = false, bool debug = false)
        : path(folder.path("d.a2l")), reader(path.c_str())
    {
        writeFile(path, text);
        reader.setLogger(&logger);
        reader.setVerbose(verbose);
        reader.setDebug(debug);
        status = reader.readFile(&root);
    }

    PhGroup* module(int project = 0, int index = 0) const
    {
        auto* group = static_cast<PhGroup*>(root.groups()->at(project));
        return static_cast<PhGroup*>(group->groups()->at(index));
    }
    PhCommParam* commParam() const
    {
        return static_cast<PhCommParam*>(module()->commParams()->first());
    }
    PhConversion* conversion(int index = 0) const
    {
        return static_cast<PhConversion*>(module()->conversions()->at(index));
    }
    PhEntity* entity() const { return static_cast<PhEntity*>(module()->entities()->first()); }

    TemporaryFolder folder;
    std::string path;
    RecordingLogger logger;
    PhRoot root;
    PhA2l reader;
    int status = 1;
};

/// A value with what it holds, a list value with its elements: 5, 0.500000, 'text', [...], with the
/// name ahead of it if it has one.
std::string shown(const PhValue* value)
{
    if (!value)
        return "null";
    std::string text = value->name().isNull() ? "" : std::string(value->name().cStr()) + "=";
    if (value->isInteger())
        text += std::to_string(value->intValue());
    if (value->isDouble())
        text += std::to_string(value->doubleValue());
    if (value->isText())
        text += "'" + std::string(value->text().cStr()) + "'";
    if (value->isList()) {
        text += "[";
        for (const PhValue* element : each<PhValue>(value->list()))
            text += (text.back() == '[' ? "" : " ") + shown(element);
        text += "]";
    }
    return text;
}

std::string shown(const PhList* list)
{
    std::string text;
    for (const PhValue* element : each<PhValue>(list))
        text += (text.empty() ? "" : " ") + shown(element);
    return list ? text : "none";
}

TEST(PhA2lTest, StatusTellsWhetherTheFileIsMissingOrWrong)
{
    const TemporaryFolder folder;
    PhRoot root;
    PhA2l nameless(nullptr);
    PhA2l missing(folder.path("missing.a2l").c_str());
    for (const auto& [reader, status] : {std::pair(&nameless, -1), {&missing, -2}}) {
        RecordingLogger logger;
        reader->setLogger(&logger);
        EXPECT_EQ(reader->readFile(&root), status);
        EXPECT_EQ(logger.text, "");
        EXPECT_EQ(reader->print_tokens(), status);
        EXPECT_EQ(logger.text, "message: print_tokens ()\n");
        EXPECT_STREQ(reader->formatName(), "ASAP2");
    }
    EXPECT_EQ(root.groups(), nullptr);
    EXPECT_EQ(Reading(inModule("")).status, 0);
    EXPECT_EQ(Reading(inModule("77")).status, -1);
    EXPECT_EQ(Reading("ASAP2_VERSION 1 60").root.groups(), nullptr);
}

TEST(PhA2lTest, LeavesTheFileClosed)
{
    const std::filesystem::path openFiles = "/proc/self/fd";
    if (!std::filesystem::exists(openFiles))
        GTEST_SKIP() << "no list of open files here";
    const auto count = [&] {
        const std::filesystem::directory_iterator files(openFiles);
        return std::distance(begin(files), end(files));
    };
    const auto before = count();
    Reading good(inModule(""));
    const Reading bad(inModule("77"));
    EXPECT_EQ(good.reader.print_tokens(), 0);
    EXPECT_EQ(count(), before);
}

TEST(PhA2lTest, TellsALoggerFileAndLineAndKeepsTheStandardOutputSilent)
{
    testing::internal::CaptureStdout();
    const Reading reading(inModule("/include\nx y"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(reading.logger.text, "warning: File '" + reading.path +
                                       "', Line 3: /include is not supported\n" + "error: File '" +
                                       reading.path + "', Line 4: Unexpected token 'y'\n");
}

TEST(PhA2lTest, CutsOnlyTheTextOfAMessageForALogger)
{
    const std::string name(600, 'n');
    const Reading reading(inModule(name));
    EXPECT_EQ(reading.logger.text, "error: File '" + reading.path + "', Line 3: " +
                                       ("Unexpected token '" + name).substr(0, 499) + "\n");
}

TEST(PhA2lTest, AVerboseReaderTellsEachBlock)
{
    const Reading reading(R"(/begin PROJECT p "project" /begin HEADER "header" /end HEADER
/begin MODULE m "module"
/begin A2ML /end A2ML
/begin MOD_COMMON "common" /end MOD_COMMON
/begin MOD_PAR "par" /begin MEMORY_SEGMENT s "segment" CODE RAM INTERN 0 0 0 0 0 0 0
  /begin IF_DATA OTHER /end IF_DATA /end MEMORY_SEGMENT /end MOD_PAR
/begin MEASUREMENT n "measurement" UWORD c 0 0 0 1 /begin BIT_OPERATION /end BIT_OPERATION
  /begin ANNOTATION /end ANNOTATION /end MEASUREMENT
/begin CHARACTERISTIC n "characteristic" 3 4 5 6 7 8 9 /end CHARACTERISTIC
/begin COMPU_METHOD n "method" FORM "" "" /end COMPU_METHOD
/begin COMPU_TAB n "tab" TAB_INTP 0 /end COMPU_TAB
/begin COMPU_VTAB n "vtab" TAB_VERB 0 /end COMPU_VTAB
/begin COMPU_VTAB_RANGE n "range" 0 /end COMPU_VTAB_RANGE
/begin RECORD_LAYOUT layout /end RECORD_LAYOUT
/begin FUNCTION function "" /end FUNCTION
/begin GROUP group "" /end GROUP
/begin FRAME frame "" 1 1 /end FRAME
/begin USER_RIGHTS user /end USER_RIGHTS
/begin AXIS_PTS axis /end AXIS_PTS
/begin IF_DATA ASAP1B_CCP
  /begin SOURCE "s" 1 1 QP_BLOB 0 /end SOURCE
  /begin RASTER "" "r" 1 1 1 /end RASTER
  /begin EVENT_GROUP "" "g" /end EVENT_GROUP
  /begin SEED_KEY /end SEED_KEY
  /begin CHECKSUM "c" /end CHECKSUM
  /begin TP_BLOB 1 2 3 4 5 6 /begin CAN_PARAM 1 2 3 /end CAN_PARAM
    /begin DEFINED_PAGES 1 2 3 4 5 /end DEFINED_PAGES
    /begin CHECKSUM_PARAM 1 2 /end CHECKSUM_PARAM /end TP_BLOB /end IF_DATA
/begin IF_DATA XCP /begin PAG /end PAG /begin XCP_ON_CAN 1 /end XCP_ON_CAN
  /begin DAQ 1 2 3 4 5 6 7 8 9 10 /begin DAQ_LIST 0 /end DAQ_LIST
    /begin EVENT "" "e" 1 2 3 4 5 6 /end EVENT /end DAQ /end IF_DATA
/end MODULE /end PROJECT)",
                          true);
    EXPECT_EQ(reading.status, 0);
    EXPECT_EQ(reading.logger.text, R"(message:   Parse PROJECT 'project'
message:   Parse HEADER 'header'
message:   Parse MODULE 'module'
message:   Parse A2ML 
message:   Parse MOD_COMMON 'common'
message:   Parse MOD_PAR 'par'
message:   Parse unknown IF_DATA 'OTHER'
message:   Parse MEASUREMENT 'measurement'
message:   Parse CHARACTERISTIC 'characteristic'
message:   Parse COMPU_METHOD 'method'
message:   Parse COMPU_TAB 'tab'
message:   Parse COMPU_VTAB 'vtab'
message:   Parse COMPU_VTAB_RANGE 'range'
message:   Parse RECORD_LAYOUT
message:   Parse FUNCTION 'function'
message:   Parse GROUP 'group'
message:   Parse FRAME 'frame'
message:   Parse USER_RIGHTS
message:   Parse IF_DATA ASAP1B_CCP
message:   Parse IF_DATA ASAP1B_CCP/SOURCE
message:   Parse IF_DATA ASAP1B_CCP/SOURCE/QP_BLOB
message:   Parse IF_DATA ASAP1B_CCP/RASTER
message:   Parse IF_DATA ASAP1B_CCP/EVENT_GROUP
message:   Parse IF_DATA ASAP1B_CCP/SEED_KEY
message:   Parse IF_DATA ASAP1B_CCP/CHECKSUM
message:   Parse IF_DATA ASAP1B_CCP/TP_BLOB
message:   Parse IF_DATA ASAP1B_CCP/TP_BLOB/DEFINED_PAGES
message:   Parse IF_DATA ASAP1B_CCP/TP_BLOB/CHECKSUM_PARAM
message:   Parse IF_DATA XCP
message:   Parse IF_DATA XCP_ON_CAN
message:   Parse IF_DATA DAQ
message:   Parse IF_DATA DAQ_LIST
message:   Parse IF_DATA EVENT
)");
}

TEST(PhA2lTest, ADebuggedReaderTellsTheDefaultsOfTextTables)
{
    const Reading reading(
        inModule(R"(/begin COMPU_TAB n "" TAB_INTP 0 DEFAULT_VALUE 1 /end COMPU_TAB
/begin COMPU_VTAB n "" TAB_VERB 0 DEFAULT_VALUE "a" DEFAULT_VALUE b /end COMPU_VTAB
/begin COMPU_VTAB_RANGE n "" 0 DEFAULT_VALUE "c" /end COMPU_VTAB_RANGE)"),
        false, true);
    EXPECT_EQ(reading.logger.text, "message: T_DEFAULT_VALUE: 'a'\nmessage: T_DEFAULT_VALUE: 'b'\n"
                                   "message: T_DEFAULT_VALUE: 'c'\n");
}

TEST(PhA2lTest, TheCoreVocabularyIsBackAfterAnyFailure)
{
    for (const std::string body :
         {"/begin IF_DATA ASAP1B_CCP /begin SOURCE s 1 1 x",
          "/begin IF_DATA ASAP1B_CCP /begin TP_BLOB 1 2 3 4 5 6 DAQ_MODE /*",
          "/begin IF_DATA XCP /begin DAQ 1 2 3 4 5 6 7 8 9 10 /begin EVENT",
          "/begin IF_DATA XCP /begin PAG /*", "/begin MEASUREMENT n \"\" BYTE",
          "/begin MOD_COMMON \"\" BYTE_ORDER /*"}) {
        const Reading reading(inModule(body));
        EXPECT_EQ(reading.status, -1);
        EXPECT_EQ(&reading.reader.keywords(), &coreKeywords) << body;
    }
}

TEST(PhA2lTest, AProjectIsAGroupWithAGroupForEachModule)
{
    const Reading reading(R"(/begin PROJECT p "of p" /begin MODULE a "of a" /end MODULE
/begin MODULE b "" /begin GROUP g "" /end GROUP /begin FUNCTION f "" /end FUNCTION
/begin FRAME f "" 1 1 /end FRAME /end MODULE /end PROJECT /begin PROJECT q "" /end PROJECT)");
    EXPECT_EQ(reading.root.groups()->count(), 2U);
    auto* project = static_cast<PhGroup*>(reading.root.groups()->first());
    EXPECT_STREQ(project->longName(), "of p");
    EXPECT_EQ(project->groupType(), PhGroupType::Project);
    EXPECT_EQ(project->groups()->count(), 2U);
    EXPECT_STREQ(reading.module()->longName(), "of a");
    const PhGroup* second = reading.module(0, 1);
    EXPECT_STREQ(second->name(), "b");
    EXPECT_EQ(second->groupType(), PhGroupType::Module);
    EXPECT_EQ(second->parent(), project);
    for (const PhList* list : {second->groups(), second->functions(), second->frames()})
        EXPECT_EQ(list, nullptr);
}

TEST(PhA2lTest, AByteOrderHoldsUntilTheNextOneAcrossModulesAndProjects)
{
    // A module with a measurement and two interfaces, and behind them maybe a byte order.
    const auto module = [](const std::string& order) {
        return R"(/begin MODULE m "" /begin MEASUREMENT n "" UWORD c 0 0 0 1 /end MEASUREMENT
/begin IF_DATA XCP /begin PAG /end PAG /end IF_DATA
/begin IF_DATA ASAP1B_CCP /begin SEED_KEY /end SEED_KEY /end IF_DATA
/begin MOD_COMMON "" )" +
               order + " /end MOD_COMMON /end MODULE\n";
    };
    const Reading reading("/begin PROJECT p x\n" + module("BYTE_ORDER MSB_LAST") + module("") +
                          "/end PROJECT /begin PROJECT q x\n" + module("BYTE_ORDER MSB_FIRST") +
                          module("BYTE_ORDER x") + module("") + "/end PROJECT");
    std::string orders;
    for (const PhGroup* project : each<PhGroup>(reading.root.groups()))
        for (const PhGroup* group : each<PhGroup>(project->groups())) {
            const auto* entity = static_cast<PhEntity*>(group->entities()->first());
            orders += std::string(endianName(static_cast<int>(entity->type()->endian()))) + ":";
            for (const PhCommParam* commParam : each<PhCommParam>(group->commParams()))
                orders += std::string(" ") + endianName(static_cast<int>(commParam->endian()));
            orders += "\n";
        }
    // A comm param takes the module's order whichever comes first, a type only one ahead of it.
    EXPECT_EQ(orders, "Undefined: LittleEndian LittleEndian\n"
                      "LittleEndian: LittleEndian LittleEndian\n"
                      "LittleEndian: BigEndian BigEndian\n"
                      "BigEndian: Undefined Undefined\n"
                      "Undefined: Undefined Undefined\n");
}

TEST(PhA2lTest, ATypeWordGivesKindAndWidth)
{
    const std::tuple<std::string, PhBaseType, int> words[] = {
        {"UBYTE", PhBaseType::BtUInteger, 8},       {"SBYTE", PhBaseType::BtInteger, 8},
        {"UWORD", PhBaseType::BtUInteger, 16},      {"SWORD", PhBaseType::BtInteger, 16},
        {"ULONG", PhBaseType::BtUInteger, 32},      {"SLONG", PhBaseType::BtInteger, 32},
        {"FLOAT32_IEEE", PhBaseType::BtIeee32, 32}, {"FLOAT64_IEEE", PhBaseType::BtIeee64, 64}};
    for (const auto& [word, baseType, bitCount] : words) {
        const Reading reading(inModule("/begin MEASUREMENT n x " + word + " c 0 0 0 1"));
        const PhType* type = reading.entity()->type();
        EXPECT_EQ(type->baseType(), baseType) << word;
        EXPECT_EQ(type->bitCount(), bitCount) << word;
    }
}

TEST(PhA2lTest, MemorySegments)
{
    std::string segments;
    for (const std::string words : {"RESERVED RAM INTERN", "CODE ROM EXTERN", "SERAM EPROM INTERN",
                                    "OFFLINE_DATA EEPROM EXTERN", "VARIABLES FLASH INTERN",
                                    "CALIBRATION_VARIABLES REGISTER EXTERN", "DATA ram INTERN",
                                    "EXCLUDE_FROM_FLASH RAM FLASH", "RAM CODE EXTERN"})
        segments += "/begin MEMORY_SEGMENT name \"long\" " + words +
                    " 0x80000000 4096 1 2 3 4 5 /end MEMORY_SEGMENT\n";
    const Reading reading(inModule("/begin MOD_PAR \"\" " + segments + "/end MOD_PAR"));
    std::string pages;
    for (const PhMemoryPage* page : each<PhMemoryPage>(reading.module()->memoryPages())) {
        EXPECT_STREQ(page->name(), "name");
        EXPECT_STREQ(page->longName(), "long");
        EXPECT_EQ(shown(page->address()) + " " + shown(page->size()), "-2147483648 4096");
        pages += std::string(pageTypeName(static_cast<int>(page->pageType()))) + " " +
                 memoryTypeName(static_cast<int>(page->memoryType())) + " " +
                 locationName(static_cast<int>(page->location())) + "\n";
    }
    EXPECT_EQ(pages, "Reserved Ram Intern\nCode Rom Extern\nCode Eprom Intern\n"
                     "Variables Eeprom Extern\nVariables Flash Intern\nVariables Register Extern\n"
                     "Data Undefined Intern\nData Ram Undefined\nUndefined Undefined Extern\n");
}

TEST(PhA2lTest, ConversionTypesAndCoefficients)
{
    const std::tuple<const char*, PhConversionType, const char*, const char*> methods[] = {
        {"TAB_INTP \"\" u", PhConversionType::CtInterpolation, "none", "none"},
        {"TAB_NOINTP \"\" u COEFFS 0 2 -5 0 0 3", PhConversionType::CtTable, "3 5", "2"},
        {"TAB_VERB \"\" u COEFFS 0.0 2.5 0.0 0 0 3", PhConversionType::CtTable, "3 -0.000000",
         "2.500000"},
        {"RAT_FUNC \"\" u COEFFS 0 0 7 0 2 3", PhConversionType::CtRational, "-3 7", "2 0"},
        {"FORM \"\" u COEFFS 0 0 x 0 2.5 3.5", PhConversionType::CtFormula, "-3.500000",
         "2.500000 0"},
        {"LINEAR \"\" u COEFFS 1 2 3 4 5 6", PhConversionType::CtUndefined, "", ""},
        {"RAT_FUNC \"\" u COEFFS 0 0 0 0 0 0", PhConversionType::CtRational, "0 0", "0"},
        {"RAT_FUNC \"\" u COEFFS 0 1 2 0 0 3 COEFFS 0 0 4 0 5 6", PhConversionType::CtRational,
         "3 -2 -6 4", "1 5 0"},
    };
    for (const auto& [text, type, numerator, denominator] : methods) {
        const Reading reading(
            inModule("/begin COMPU_METHOD n \"of n\" " + std::string(text) + " /end COMPU_METHOD"));
        const PhConversion* conversion = reading.conversion();
        EXPECT_STREQ(conversion->longName(), "of n");
        EXPECT_EQ(conversion->conversionType(), type) << text;
        EXPECT_STREQ(conversion->unit()->label(), "u");
        EXPECT_TRUE(conversion->unit()->name().isNull());
        EXPECT_EQ(shown(conversion->numerator()), numerator) << text;
        EXPECT_EQ(shown(conversion->denominator()), denominator) << text;
    }
}

TEST(PhA2lTest, ANameThatIsNotThereYetGivesAPlaceholder)
{
    const Reading reading(inModule(R"(/begin MEASUREMENT n "" UWORD late 0 0 0 1 /end MEASUREMENT
/begin COMPU_METHOD m "" TAB_VERB "" "" COMPU_TAB_REF late /end COMPU_METHOD
/begin COMPU_VTAB late "" TAB_VERB 0 /end COMPU_VTAB
/begin COMPU_METHOD k "" TAB_VERB "" "" COMPU_TAB_REF late COMPU_TAB_REF k /end COMPU_METHOD
/begin COMPU_METHOD self "" TAB_VERB "" "" COMPU_TAB_REF self /end COMPU_METHOD)"));
    const PhConversion* table = reading.conversion(1);
    const PhConversion* placeholders[] = {reading.entity()->type()->conversion(),
                                          reading.conversion(0)->conversion()};
    for (const PhConversion* placeholder : placeholders) {
        EXPECT_STREQ(placeholder->name(), "late");
        EXPECT_TRUE(placeholder->isUnresolved());
        EXPECT_EQ(placeholder->refCount(), 1);
        EXPECT_NE(placeholder, table);
    }
    EXPECT_EQ(reading.conversion(2)->conversion(), table); // its own name doesn't replace it
    EXPECT_FALSE(table->isUnresolved());
    EXPECT_EQ(reading.conversion(3)->conversion(), nullptr);
    EXPECT_EQ(reading.module()->conversions()->count(), 4U);
}

TEST(PhA2lTest, TablesKeepTheirRowsInFileOrder)
{
    const Reading reading(inModule(R"(
/begin COMPU_TAB a "" TAB_INTP 3 1 10 -0x1 2.5 1 20 DEFAULT_VALUE 5 /end COMPU_TAB
/begin COMPU_VTAB b "" TAB_VERB 6 1 "one" 2.5 "" -2.5 "x" -0.7 "y" 1e10 "high" -1e10 "low" /end COMPU_VTAB
/begin COMPU_VTAB_RANGE c "" 2 0 1.5 "low" 5 4 "back" /end COMPU_VTAB_RANGE
/begin COMPU_TAB d "" TAB_VERB 0 /end COMPU_TAB)"));
    const char* const expected[] = {
        "1.000000..1.000000 10.000000; -1.000000..-1.000000 2.500000; 1.000000..1.000000 "
        "20.000000; ",
        "1..1 'one'; 3..3 ''; -2..-2 'x'; 0..0 'y'; 2147483647..2147483647 'high'; "
        "-2147483648..-2147483648 'low'; ",
        "0.000000..1.500000 'low'; 5.000000..4.000000 'back'; ",
        "",
    };
    for (int i = 0; i < 4; ++i) {
        const PhConversion* table = reading.conversion(i);
        EXPECT_EQ(table->conversionType(), PhConversionType::CtTable);
        std::string rows;
        for (const PhRange* row : each<PhRange>(table->ranges())) {
            EXPECT_EQ(row->lowerLimitFlag() + row->upperLimitFlag(), 2);
            EXPECT_FALSE(row->inverseValue().isValid());
            rows += shown(&row->lowerLimit()) + ".." + shown(&row->upperLimit()) + " " +
                    shown(&row->result()) + "; ";
        }
        EXPECT_EQ(rows, expected[i]);
    }
}

TEST(PhA2lTest, ACcpSectionFillsTheCommParamOfItsModule)
{
    const Reading reading(withIfData("ASAP1B_CCP", R"(
/begin SOURCE "s1" 4 10 QP_BLOB 0 /end SOURCE
/begin SOURCE "s2" 5 20 /end SOURCE
/begin EVENT_GROUP "long" "g1" RASTER 3 RASTER 1 /end EVENT_GROUP
/begin EVENT_GROUP "" "g2" /end EVENT_GROUP
/begin SEED_KEY "cal" "daq" "pgm" /end SEED_KEY /begin SEED_KEY "cal2" /end SEED_KEY
/begin CHECKSUM "sum" /end CHECKSUM
/begin TP_BLOB 1 2 0x700 0x80000701 5 2 BAUDRATE 500000 DAQ_MODE BURST ADDRESS_EXTENSION ODT
  OPTIONAL_CMD 17 OPTIONAL_CMD 3 DAQ_MODE x /end TP_BLOB
/begin RASTER "long r" "r" 3 4 5 /end RASTER)"));
    const PhCommParam* commParam = reading.commParam();
    EXPECT_EQ(commParam->transport(), PhTransport::CAN);
    EXPECT_EQ(shown(commParam->properties()),
              "sources=[s1=[scaling_unit=4 period=10] s2=[scaling_unit=5 period=20]] "
              "event_groups=[g1=[rasters=[3 1]] g2=[]] "
              "seed_key_dll_name_cal='cal2' seed_key_dll_name_daq='daq' "
              "seed_key_dll_name_pgm='pgm' checksum_dll_name='sum' "
              "bitrate=500000 daq_mode=0 address_extension=1 optional_cmd=[17 3]");
    EXPECT_STREQ(commParam->property("event_groups")->list()->first()->longName(), "long");
    EXPECT_STREQ(commParam->findRaster("r")->longName(), "long r");
}

TEST(PhA2lTest, AnXcpSectionFillsTheCommParamOfItsModule)
{
    const Reading reading(withIfData("XCP", R"(
/begin XCP_ON_CAN 1 BAUDRATE 250000 BAUDRATE 500000 CAN_ID_MASTER 1 /end XCP_ON_CAN
/begin DAQ 1 2 3 4 5 6 7 8 9 10 /begin EVENT "long e" "e" 3 DAQ 1 5 6 0 /end EVENT /end DAQ)"));
    const PhCommParam* commParam = reading.commParam();
    EXPECT_EQ(commParam->transport(), PhTransport::CAN);
    EXPECT_EQ(shown(commParam->properties()), "bitrate=500000");
    EXPECT_STREQ(commParam->findRaster("e")->longName(), "long e");
}

TEST(PhA2lTest, ACodeGivesARateItsUnit)
{
    std::string rasters;
    std::string events = "/begin DAQ 1 2 3 4 5 6 7 8 9 10\n";
    for (const std::string code :
         {"-3", "-1", "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}) {
        rasters += "/begin RASTER a b 1 " + code + " 7 /end RASTER\n";
        events += "/begin EVENT a b 1 2 3 7 " + code + " 0 /end EVENT\n";
    }
    const auto rates = [](const Reading& reading) {
        const std::string units[] = {"", "s", "ms", "us", "ns"};
        std::string text;
        for (const PhRaster* raster : each<PhRaster>(reading.commParam()->rasters()))
            text += shown(raster->rate()) + units[static_cast<int>(raster->timeUnit())] + " ";
        return text;
    };
    EXPECT_EQ(rates(Reading(withIfData("ASAP1B_CCP", rasters))),
              "7s 7s 7us 70us 700us 7ms 70ms 700ms 7s 7s 7s 7s 7s ");
    EXPECT_EQ(rates(Reading(withIfData("XCP", events + "/end DAQ"))),
              "7s 7s 7ns 70ns 700ns 7us 70us 700us 7ms 70ms 700ms 7s 7s ");
}

TEST(PhA2lTest, ASectionOutsideOfAModuleIsReadAndDropped)
{
    const std::string ccp = "/begin IF_DATA ASAP1B_CCP /begin SOURCE s 1 1 /end SOURCE "
                            "/begin TP_BLOB 1 2 3 4 5 6 BAUDRATE 1 OPTIONAL_CMD 1 /end TP_BLOB "
                            "/begin RASTER a b 1 1 1 /end RASTER /end IF_DATA\n";
    const std::string xcp = "/begin IF_DATA XCP /begin XCP_ON_CAN 1 BAUDRATE 1 CAN_ID_SLAVE 1 "
                            "/end XCP_ON_CAN /begin DAQ 1 2 3 4 5 6 7 8 9 10 "
                            "/begin EVENT a b 1 2 3 4 5 6 /end EVENT /end DAQ /end IF_DATA\n";
    const Reading reading(
        inModule("/begin MEASUREMENT n \"\" UWORD c 0 0 0 1 " + ccp + xcp + "/end MEASUREMENT\n" +
                 "/begin CHARACTERISTIC 1 2 3 4 5 6 7 8 9 " + ccp + xcp + "/end CHARACTERISTIC\n" +
                 "/begin FRAME f \"\" 1 1 " + ccp + xcp + "/end FRAME\n" +
                 "/begin MOD_PAR \"\" /begin MEMORY_SEGMENT s \"\" CODE RAM INTERN 0 0 0 0 0 0 0 " +
                 ccp + xcp + "/end MEMORY_SEGMENT /end MOD_PAR"));
    EXPECT_EQ(reading.status, 0);
    EXPECT_EQ(reading.logger.text, "");
    EXPECT_EQ(reading.module()->commParams(), nullptr);
}

TEST(PhA2lTest, WhatWasReadBeforeAFailureStays)
{
    const Reading type(inModule("/begin MEASUREMENT n \"of n\" BYTE"));
    EXPECT_STREQ(type.entity()->longName(), "of n");
    EXPECT_EQ(type.entity()->type()->baseType(), PhBaseType::BtUndefined);
    const Reading rows(inModule("/begin COMPU_TAB n \"\" TAB_INTP 3 1 1 2 2 x"));
    EXPECT_EQ(rows.conversion()->ranges()->count(), 2U);
    const Reading raster(withIfData("ASAP1B_CCP", "/begin RASTER \"\" r 1 1 1 x"));
    EXPECT_EQ(shown(raster.commParam()->findRaster("r")->channel()), "1");
    const Reading group(withIfData("ASAP1B_CCP", "/begin EVENT_GROUP \"\" g RASTER 7 x"));
    EXPECT_EQ(shown(group.commParam()->properties()), "event_groups=[g=[rasters=[7]]]");
}

} // namespace
