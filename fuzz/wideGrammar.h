#pragma once

#include "grammar.h"

/// The descriptions that the wide reader takes.
inline constexpr Rule wideGrammar[] = {
    {"description", "/begin PROJECT $name $text /begin MODULE $name $text <block> <block>* "
                    "/end MODULE /end PROJECT"},
    {"block",
     "/begin MEASUREMENT <quantity> <option>* /end MEASUREMENT | "
     "/begin TYPEDEF_MEASUREMENT <quantity> <option>* /end TYPEDEF_MEASUREMENT | "
     "/begin TYPEDEF_STRUCTURE $name $text $integer <component>* /end TYPEDEF_STRUCTURE | "
     "/begin INSTANCE $name $text $name $integer <instanceOption>* /end INSTANCE | "
     "/begin TYPEDEF_CHARACTERISTIC $name $text VALUE /end TYPEDEF_CHARACTERISTIC | "
     "/begin COMPU_METHOD $name $text <kind> $text $text <methodOption>* /end COMPU_METHOD | "
     "/begin COMPU_TAB $name $text TAB_INTP 1 $number $number <default>* /end COMPU_TAB | "
     "/begin COMPU_VTAB $name $text TAB_VERB 2 $number $text $number $text <default>* "
     "/end COMPU_VTAB | "
     "/begin COMPU_VTAB_RANGE $name $text 1 $number $number $text <default>* "
     "/end COMPU_VTAB_RANGE | "
     "/begin MOD_COMMON $text <commonOption>* /end MOD_COMMON | <anyBlock> | "
     "/begin IF_DATA ASAP1B_CCP <ccpBlock>* /end IF_DATA | "
     "/begin IF_DATA XCP <xcpBlock>* /end IF_DATA | "
     "/begin IF_DATA XCPplus $integer <xcpBlock>* /end IF_DATA"},
    {"quantity", "$name $text <type> $name $number $number $number $number"},
    {"type", "UBYTE | SWORD | ULONG | FLOAT64_IEEE | A_UINT64 | A_INT64 | FLOAT16_IEEE"},
    {"option",
     "ECU_ADDRESS $integer | ECU_ADDRESS_EXTENSION $integer | BIT_MASK $integer | <order> | "
     "PHYS_UNIT $text | ARRAY_SIZE $integer | <dimensions> | ADDRESS_TYPE PLONG | READ_ONLY | "
     "ADDRESS_TYPE DIRECT | LAYOUT ROW_DIR | SYMBOL_LINK $text $integer | VIRTUAL $name | "
     "DISPLAY_IDENTIFIER $name | FORMAT $text | MAX_REFRESH $integer $integer | <anyBlock> | "
     "FUNCTION_LIST <name>* | FUTURE <name>* | <ifData>"},
    {"order", "BYTE_ORDER MSB_FIRST | BYTE_ORDER MSB_LAST | BYTE_ORDER MSB_FIRST_MSW_LAST | "
              "BYTE_ORDER $name"},
    {"dimensions", "MATRIX_DIM $integer | MATRIX_DIM 2 3 | MATRIX_DIM 0 2 | "
                   "MATRIX_DIM $integer $integer $integer $integer"},
    {"name", "$name"},
    {"anyBlock", "/begin FUTURE <anything>* /end FUTURE | "
                 "/begin CHARACTERISTIC <anything>* /end CHARACTERISTIC"},
    {"anything", "$name | $number | $text | /begin $name <anything>* /end $name"},
    {"ifData", "/begin IF_DATA ASAP1B_CCP KP_BLOB $integer $integer $integer /end IF_DATA | "
               "/begin IF_DATA ASAP1B_KWP2000 /begin KP_BLOB $integer $name $integer /end KP_BLOB "
               "/end IF_DATA | "
               "/begin IF_DATA XCP /begin DAQ_EVENT <list>* /end DAQ_EVENT /end IF_DATA | "
               "/begin IF_DATA $name <anything>* /end IF_DATA"},
    {"list", "FIXED_EVENT_LIST EVENT $integer | AVAILABLE_EVENT_LIST EVENT $integer | VARIABLE | "
             "/begin DEFAULT_EVENT_LIST EVENT $integer /end DEFAULT_EVENT_LIST"},
    {"component", "/begin STRUCTURE_COMPONENT $name $name $integer <componentOption>* "
                  "/end STRUCTURE_COMPONENT | ADDRESS_TYPE PLONG | <anyBlock>"},
    {"componentOption", "<dimensions> | ADDRESS_TYPE PLONG | LAYOUT ROW_DIR | FUTURE $text"},
    {"instanceOption", "ECU_ADDRESS_EXTENSION $integer | <dimensions> | ADDRESS_TYPE PLONG | "
                       "SYMBOL_LINK $text $integer | DISPLAY_IDENTIFIER $name | <ifData> | "
                       "/begin OVERWRITE $name $integer <option>* /end OVERWRITE"},
    {"kind", "IDENTICAL | LINEAR | RAT_FUNC | TAB_INTP | TAB_VERB | FORM | FUTURE"},
    {"methodOption",
     "COEFFS $number $number $number $number $number $number | COEFFS 0 2 $number 0 0 4 | "
     "COEFFS_LINEAR $number $number | COMPU_TAB_REF $name | STATUS_STRING_REF $name | "
     "/begin FORMULA $text FORMULA_INV $text /end FORMULA | FORMULA $text | REF_UNIT $name"},
    {"default", "DEFAULT_VALUE $text | DEFAULT_VALUE_NUMERIC $number"},
    {"commonOption", "<order> | ALIGNMENT_INT64 $integer | DEPOSIT $name | FUTURE $integer"},
    {"ccpBlock",
     "/begin RASTER $text $text $integer $integer $integer EXCLUSIVE $integer /end RASTER | "
     "/begin TP_BLOB $integer $integer $integer $integer $integer $integer BAUDRATE $integer "
     "/end TP_BLOB | <anyBlock>"},
    {"xcpBlock",
     "<daq> | /begin XCP_ON_CAN $integer <canOption>* <daq> /end XCP_ON_CAN | "
     "/begin XCP_ON_UDP_IP $integer $integer <ethernetOption>* /end XCP_ON_UDP_IP | "
     "/begin XCP_ON_TCP_IP $integer $integer <ethernetOption>* <daq> /end XCP_ON_TCP_IP | "
     "/begin XCP_ON_USB <anything>* TRANSPORT_LAYER_INSTANCE $text <daq> /end XCP_ON_USB | "
     "<anyBlock>"},
    {"daq", "/begin DAQ DYNAMIC $integer $integer $integer x x x x $integer x <event>* /end DAQ"},
    {"event",
     "/begin EVENT $text $text $integer DAQ $integer $integer $integer $integer <eventOption>* "
     "/end EVENT"},
    {"eventOption", "CONSISTENCY DAQ | CPU_LOAD_MAX $number | MIN_CYCLE_TIME $integer $integer | "
                    "/begin BUFFER_RESERVE 1 2 /end BUFFER_RESERVE"},
    {"canOption", "CAN_ID_MASTER $integer | CAN_ID_SLAVE $integer | BAUDRATE $integer | "
                  "/begin CAN_FD CAN_FD_DATA_TRANSFER_BAUDRATE $integer /end CAN_FD"},
    {"ethernetOption", "ADDRESS $text | HOST_NAME $text | IPV6 $text | MAX_BUS_LOAD $integer"},
};

/// What stands in place of other rules, so that a description means the same in both dialects: one
/// module, its byte order first, no include, no method that is more than one thing.
inline constexpr Rule commonRules[] = {
    {"description", "/begin PROJECT $name $text <header>* /begin MODULE $name $text "
                    "/begin MOD_COMMON $text <commonOption>* /end MOD_COMMON <block> <block>* "
                    "/end MODULE /end PROJECT"},
    {"block", "/begin MEASUREMENT $name $text <dataType> $name $integer $integer $number "
              "$number <measurementOption>* /end MEASUREMENT | "
              "/begin COMPU_METHOD $name $text RAT_FUNC $text $text <coefficients> <coefficients>* "
              "/end COMPU_METHOD | "
              "/begin COMPU_TAB $name $text TAB_INTP 2 $number $number $number $number <default>* "
              "/end COMPU_TAB | "
              "/begin COMPU_VTAB $name $text TAB_VERB 2 $number $text $number $text <default>* "
              "/end COMPU_VTAB | "
              "/begin MOD_PAR $text <parOption>* /end MOD_PAR | "
              "/begin CHARACTERISTIC $name $text VALUE $integer $name $number $name $number "
              "$number <characteristicOption>* /end CHARACTERISTIC | "
              "/begin RECORD_LAYOUT $name <layoutOption>* /end RECORD_LAYOUT | "
              "/begin FUNCTION $name $text <functionOption>* /end FUNCTION | "
              "/begin GROUP $name $text <groupOption>* /end GROUP | <ifData>"},
    {"coefficients",
     "COEFFS 0 $number $number 0 0 $number | COEFFS 0 0 $number 0 $number $number | "
     "COEFFS $number $number $number $number $number $number"},
    {"anything", "$name | $number | $text | /begin x <anything>* /end x"},
    {"parOption", "VERSION $text | SYSTEM_CONSTANT $text $text"},
    {"ifData", "/begin IF_DATA x <anything>* /end IF_DATA | "
               "/begin IF_DATA ASAP1B_CCP <ccpBlock>* /end IF_DATA | "
               "/begin IF_DATA XCP <xcpBlock>* /end IF_DATA"},
};
