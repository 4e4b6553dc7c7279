#pragma once

#include <string_view>

/// What a rule stands for: one of its ways, which `|` parts. The words of a way are separated by
/// blanks: `<rule>` is written once, `<rule>*` any number of times, `$name`, `$text`, `$integer`
/// and
/// `$number` stand for a token of that kind, and everything else stands for itself.
struct Rule
{
    std::string_view name;
    std::string_view ways;
};

/// The descriptions that the reader takes. The first way of a rule must come to an end without `*`.
inline constexpr Rule grammar[] = {
    {"description", "<item> <item>*"},
    {"item", "ASAP2_VERSION $integer $integer | "
             "/begin PROJECT $name $text <header>* <module> <module>* /end PROJECT"},
    {"header", "/begin HEADER $text <headerOption>* /end HEADER"},
    {"headerOption", "VERSION $text | PROJECT_NO $name"},
    {"module", "/begin MODULE $name $text <block> <block>* /end MODULE"},

    {"block",
     "/begin MEASUREMENT $name $text <dataType> $name $integer $integer $number "
     "$number <measurementOption>* /end MEASUREMENT | "
     "/begin COMPU_METHOD $name $text <conversionType> $text $text <methodOption>* "
     "/end COMPU_METHOD | "
     "/begin COMPU_TAB $name $text TAB_INTP 2 $number $number $number $number <default>* "
     "/end COMPU_TAB | "
     "/begin COMPU_VTAB $name $text TAB_VERB 2 $number $text $number $text <default>* "
     "/end COMPU_VTAB | "
     "/begin COMPU_VTAB_RANGE $name $text 1 $number $number $text <default>* "
     "/end COMPU_VTAB_RANGE | "
     "/begin MOD_COMMON $text <commonOption>* /end MOD_COMMON | "
     "/begin MOD_PAR $text <parOption>* /end MOD_PAR | <ifData> | "
     "/begin CHARACTERISTIC $name $text VALUE $integer $name $number $name $number "
     "$number <characteristicOption>* /end CHARACTERISTIC | "
     "/begin AXIS_PTS <anything>* /end AXIS_PTS | /begin A2ML $text $name ; { } /end A2ML | "
     "/begin RECORD_LAYOUT $name <layoutOption>* /end RECORD_LAYOUT | "
     "/begin FUNCTION $name $text <functionOption>* /end FUNCTION | "
     "/begin GROUP $name $text <groupOption>* /end GROUP | "
     "/begin FRAME $name $text $integer $integer <frameOption>* /end FRAME | "
     "/begin USER_RIGHTS $name <rightsOption>* /end USER_RIGHTS | /include $text"},

    {"dataType", "UBYTE | SBYTE | UWORD | SWORD | ULONG | SLONG | FLOAT32_IEEE | FLOAT64_IEEE"},
    {"byteOrder", "BYTE_ORDER MSB_FIRST | BYTE_ORDER MSB_LAST | BYTE_ORDER LITTLE_ENDIAN | "
                  "BYTE_ORDER BIG_ENDIAN"},
    {"measurementOption",
     "ECU_ADDRESS $integer | ECU_ADDRESS_EXTENSION $integer | BIT_MASK $integer | <byteOrder> | "
     "READ_WRITE | ARRAY_SIZE $integer | FORMAT $text | MAX_REFRESH $integer $integer | "
     "MATRIX_DIM $integer $integer $integer | FUNCTION_LIST <name>* | "
     "/begin FUNCTION_LIST <name>* /end FUNCTION_LIST | /begin VIRTUAL <name>* /end VIRTUAL | "
     "/begin BIT_OPERATION <bitOption>* /end BIT_OPERATION | <annotation> | <ifData>"},
    {"bitOption", "LEFT_SHIFT $integer | RIGHT_SHIFT $integer | SIGN_EXTEND"},
    {"annotation", "/begin ANNOTATION <annotationOption>* /end ANNOTATION"},
    {"annotationOption", "ANNOTATION_LABEL $text | ANNOTATION_ORIGIN $text | "
                         "/begin ANNOTATION_TEXT <text>* /end ANNOTATION_TEXT"},
    {"name", "$name"},
    {"text", "$text"},

    {"conversionType", "TAB_INTP | TAB_NOINTP | TAB_VERB | RAT_FUNC | FORM"},
    {"methodOption", "COMPU_TAB_REF $name | COEFFS 0 $number $number 0 0 $number | "
                     "COEFFS 0 0 $number 0 $number $number | "
                     "COEFFS $number $number $number $number $number $number | "
                     "/begin FORMULA $text <formulaInv>* /end FORMULA"},
    {"formulaInv", "FORMULA_INV $text"},
    {"default", "DEFAULT_VALUE $text"},

    {"commonOption", "<byteOrder> | ALIGNMENT_BYTE $integer | DEPOSIT $name"},
    {"parOption",
     "VERSION $text | SYSTEM_CONSTANT $text $text | "
     "/begin CALIBRATION_METHOD <anything>* /end CALIBRATION_METHOD | "
     "/begin MEMORY_SEGMENT $name $text <pageType> <memoryType> <location> $integer "
     "$integer $integer $integer $integer $integer $integer <ifData>* /end MEMORY_SEGMENT"},
    {"pageType", "CODE | RESERVED | VARIABLES | DATA | OFFLINE_DATA | CALIBRATION_VARIABLES"},
    {"memoryType", "RAM | ROM | EPROM | EEPROM | FLASH | REGISTER"},
    {"location", "INTERN | EXTERN"},
    {"anything", "$name | $number | $text | /begin $name <anything>* /end $name"},

    {"characteristicOption",
     "READ_ONLY | NUMBER $integer | <byteOrder> | EXTENDED_LIMITS $number $number | "
     "MATRIX_DIM $integer $integer $integer | MAP_LIST <name>* | "
     "/begin AXIS_DESCR <anything>* /end AXIS_DESCR | "
     "/begin DEPENDENT_CHARACTERISTIC $text <name>* /end DEPENDENT_CHARACTERISTIC | "
     "<annotation> | <ifData>"},
    {"layoutOption",
     "RESERVED $integer $name | FNC_VALUES $integer $name $name $name | "
     "AXIS_RESCALE_X $integer $name $integer $name $name | FIX_NO_AXIS_PTS_X $integer"},
    {"functionOption", "FUNCTION_VERSION $text | IN_MEASUREMENT <name>* | "
                       "/begin DEF_CHARACTERISTIC <name>* /end DEF_CHARACTERISTIC | <annotation>"},
    {"groupOption", "ROOT | /begin REF_MEASUREMENT <name>* /end REF_MEASUREMENT | <annotation>"},
    {"frameOption", "FRAME_MEASUREMENT <name>* | <ifData>"},
    {"rightsOption", "READ_ONLY | /begin REF_GROUP <name>* /end REF_GROUP"},

    {"ifData", "/begin IF_DATA $name <anything>* /end IF_DATA | "
               "/begin IF_DATA ASAP1B_CCP <ccpBlock>* /end IF_DATA | "
               "/begin IF_DATA XCP <xcpBlock>* /end IF_DATA"},
    {"ccpBlock",
     "/begin RASTER $text $text $integer $integer $integer <exclusive>* /end RASTER | "
     "/begin TP_BLOB $integer $integer $integer $integer $integer $integer <tpBlobOption>* "
     "/end TP_BLOB | "
     "/begin SOURCE $text $integer $integer <sourceOption>* /end SOURCE | "
     "/begin EVENT_GROUP $text $text <rasterNumber>* /end EVENT_GROUP | "
     "/begin SEED_KEY $text $text $text /end SEED_KEY | /begin SEED_KEY <text>* /end SEED_KEY | "
     "/begin CHECKSUM $text /end CHECKSUM | ADDRESS_MAPPING $integer $integer $integer | "
     "KP_BLOB $integer $integer $integer <rasterNumber>*"},
    {"exclusive", "EXCLUSIVE $integer"},
    {"rasterNumber", "RASTER $integer"},
    {"sourceOption", "DISPLAY_IDENTIFIER $name | QP_BLOB $integer <qpBlobOption>* | "
                     "/begin QP_BLOB $integer <qpBlobOption>* /end QP_BLOB"},
    {"qpBlobOption", "LENGTH $integer | CAN_ID_VARIABLE | RASTER $integer"},
    {"tpBlobOption",
     "BAUDRATE $integer | SJW $integer | BYTES_ONLY | DAQ_MODE ALTERNATING | DAQ_MODE BURST | "
     "ADDRESS_EXTENSION ODT | OPTIONAL_CMD $integer | "
     "/begin CAN_PARAM $integer $integer $integer /end CAN_PARAM | "
     "/begin DEFINED_PAGES $integer $text $integer $integer $integer <pageWord>* "
     "/end DEFINED_PAGES | "
     "/begin CHECKSUM_PARAM $integer $integer CHECKSUM_CALCULATION $name /end CHECKSUM_PARAM"},
    {"pageWord", "RAM | FLASH"},
    {"xcpBlock", "/begin DAQ $name $integer $integer $integer $name $name $name $name $name $name "
                 "<daqOption>* /end DAQ | "
                 "/begin XCP_ON_CAN $integer <canOption>* /end XCP_ON_CAN | "
                 "/begin PROTOCOL_LAYER <anything>* /end PROTOCOL_LAYER | "
                 "/begin SEGMENT <anything>* /end SEGMENT"},
    {"daqOption",
     "/begin EVENT $text $text $integer DAQ $integer $integer $integer $integer /end EVENT | "
     "PRESCALER_SUPPORTED | /begin STIM $name $integer BIT_STIM_SUPPORTED /end STIM | "
     "/begin TIMESTAMP_SUPPORTED $integer $name $name TIMESTAMP_FIXED "
     "/end TIMESTAMP_SUPPORTED | "
     "/begin DAQ_LIST $integer <daqListOption>* /end DAQ_LIST"},
    {"daqListOption", "MAX_ODT $integer | /begin ODT $integer <odtEntry>* /end ODT"},
    {"odtEntry", "ODT_ENTRY $integer $integer $integer $integer $integer"},
    {"canOption",
     "CAN_ID_MASTER $integer | CAN_ID_SLAVE $integer | BAUDRATE $integer | SJW $integer | "
     "MAX_DLC_REQUIRED | "
     "/begin DAQ_LIST_CAN_ID $integer VARIABLE FIXED $integer /end DAQ_LIST_CAN_ID"},
};
