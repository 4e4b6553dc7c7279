#include "generator.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

/// Small and deterministic: the same numbers on every machine.
class Numbers
{
public:
    unsigned below(unsigned limit)
    {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<unsigned>(state_ >> 33) % limit;
    }

private:
    std::uint64_t state_ = 42;
};

constexpr const char* systems[] = {"Eng",  "Inj", "Ign",  "Air", "Exh",
                                   "Fuel", "Tmp", "Diag", "Can", "Knk"};
constexpr const char* quantities[] = {"Speed",  "Load",   "Temperature", "Pressure", "Position",
                                      "Torque", "Lambda", "Counter",     "State",    "Voltage"};
constexpr const char* units[] = {"rpm", "%", "degC", "hPa", "mm", "Nm", "-", "", "", "V"};
constexpr const char* types[] = {"UBYTE", "SBYTE", "UWORD",        "SWORD",
                                 "ULONG", "SLONG", "FLOAT32_IEEE", "FLOAT64_IEEE"};

class Writer
{
public:
    Writer(std::FILE* file, const DescriptionPlan& plan) : file_(file), plan_(plan) {}

    void write()
    {
        std::fputs("ASAP2_VERSION 1 60\n"
                   "/begin PROJECT Bench \"generated description\"\n"
                   "/begin MODULE Ecu \"engine control\"\n"
                   "/begin MOD_COMMON \"\" BYTE_ORDER MSB_LAST ALIGNMENT_WORD 2 /end MOD_COMMON\n",
                   file_);
        if (plan_.measurementsOnly) {
            for (long i = 0; i < plan_.measurements; ++i)
                bareMeasurement(i);
        } else {
            interfaces();
            if (plan_.methodsFirst)
                methods();
            for (long i = 0; i < plan_.measurements; ++i) {
                measurement(i);
                const auto share = [&](long n) {
                    return plan_.characteristics * n / plan_.measurements;
                };
                for (long j = share(i); j < share(i + 1); ++j)
                    characteristic(j);
            }
            if (!plan_.methodsFirst)
                methods();
            groups();
        }
        std::fputs("/end MODULE\n/end PROJECT\n", file_);
    }

private:
    static std::string nameOf(long i)
    {
        char name[64];
        std::snprintf(name, sizeof name, "%s.%s_%s_%07ld", systems[i % 10], quantities[i / 10 % 10],
                      i % 3 ? "filtered" : "raw", i);
        return name;
    }

    void interfaces()
    {
        std::fputs("/begin IF_DATA XCP\n"
                   "  /begin DAQ DYNAMIC 0 8 0 OPTIMISATION_TYPE_DEFAULT ADDRESS_EXTENSION_FREE\n"
                   "    IDENTIFICATION_FIELD_TYPE_ABSOLUTE GRANULARITY_ODT_ENTRY_SIZE_DAQ_BYTE 7\n"
                   "    NO_OVERLOAD_INDICATION\n",
                   file_);
        for (int i = 0; i < 8; ++i)
            std::fprintf(file_,
                         "    /begin EVENT \"event no. %d\" \"E%d\" %d DAQ 1 %d 6 0 /end EVENT\n",
                         i, i, i, 1 << i);
        std::fputs(
            "  /end DAQ\n"
            "  /begin XCP_ON_CAN 0x0100 CAN_ID_MASTER 0x7E0 CAN_ID_SLAVE 0x7E1 BAUDRATE 500000\n"
            "  /end XCP_ON_CAN\n"
            "/end IF_DATA\n",
            file_);
        for (int i = 0; i < 4; ++i)
            std::fprintf(file_,
                         "/begin RECORD_LAYOUT Layout_%d\n"
                         "  NO_AXIS_PTS_X 1 UWORD AXIS_PTS_X 2 UWORD INDEX_INCR DIRECT\n"
                         "  FNC_VALUES 3 UWORD COLUMN_DIR DIRECT\n"
                         "/end RECORD_LAYOUT\n",
                         i);
    }

    void methods()
    {
        for (long i = 0; i < plan_.methods; ++i)
            method(i);
    }

    void method(long i)
    {
        const bool verbal = i % 8 == 7;
        std::fprintf(
            file_,
            "/begin COMPU_METHOD Conv_%06ld \"conversion of %s no. %ld\" %s \"%%8.3\" \"%s\"\n", i,
            quantities[i % 10], i, verbal ? "TAB_VERB" : "RAT_FUNC", units[i % 10]);
        if (!verbal) {
            std::fprintf(file_, "  COEFFS 0 %u %u 0 0 %u.%u\n/end COMPU_METHOD\n",
                         1 + numbers_.below(1000), numbers_.below(100), 1 + numbers_.below(50),
                         numbers_.below(10));
            return;
        }
        std::fprintf(file_,
                     "  COMPU_TAB_REF Table_%06ld\n/end COMPU_METHOD\n"
                     "/begin COMPU_VTAB Table_%06ld \"states\" TAB_VERB 4\n"
                     "  0 \"off\" 1 \"starting\" 2 \"running\" 3 \"failed\"\n"
                     "  DEFAULT_VALUE \"unknown\"\n"
                     "/end COMPU_VTAB\n",
                     i, i);
    }

    void measurement(long i)
    {
        const std::string name = nameOf(i);
        std::fprintf(file_,
                     "/* ---- quantity no. %ld of the %s system ---- */\n"
                     "/begin MEASUREMENT %s\n"
                     "  \"%s of the %s system, no. %ld\"\n"
                     "  %s Conv_%06ld 0 0 %d %u.%02u\n"
                     "  ECU_ADDRESS 0x%08lX\n",
                     i, systems[i % 10], name.c_str(), quantities[i / 10 % 10], systems[i % 10], i,
                     types[i % 8], i % plan_.methods, i % 4 ? 0 : -40, numbers_.below(65536),
                     numbers_.below(100), 0xD0000000 + static_cast<unsigned long>(i) * 4);
        if (i % 5 == 0)
            std::fprintf(file_, "  BIT_MASK 0x%X\n", 1U << numbers_.below(16));
        if (i % 4 == 1)
            std::fputs("  ECU_ADDRESS_EXTENSION 0x0\n  FORMAT \"%6.2\"\n", file_);
        if (i % 3 == 1)
            std::fprintf(file_,
                         "  /begin IF_DATA BENCH_ACCESS\n"
                         "    LINK \"%s\" 0x%08lX 0 1 /* display */ 0 65535\n"
                         "  /end IF_DATA\n",
                         name.c_str(), 0xD0000000 + static_cast<unsigned long>(i) * 4);
        std::fputs("/end MEASUREMENT\n\n", file_);
    }

    void characteristic(long i)
    {
        std::fprintf(file_,
                     "/begin CHARACTERISTIC Map.%s_%07ld\n"
                     "  \"correction of the %s, no. %ld\"\n"
                     "  %s 0x%08lX Layout_%ld 0.5 Conv_%06ld 0 %u.5\n",
                     quantities[i % 10], i, quantities[i % 10], i, i % 2 ? "CURVE" : "VALUE",
                     0x80000000 + static_cast<unsigned long>(i) * 64, i % 4, i % plan_.methods,
                     numbers_.below(1000));
        if (i % 2)
            std::fprintf(file_,
                         "  /begin AXIS_DESCR STD_AXIS %s Conv_%06ld 16 0 8000\n"
                         "    FORMAT \"%%5.1\" EXTENDED_LIMITS 0 10000\n"
                         "  /end AXIS_DESCR\n",
                         nameOf(i).c_str(), i % plan_.methods);
        std::fputs("  EXTENDED_LIMITS 0 2000 FORMAT \"%6.2\"\n/end CHARACTERISTIC\n\n", file_);
    }

    void groups()
    {
        constexpr long size = 200;
        for (long first = 0; first < plan_.measurements; first += size) {
            const long last = std::min(first + size, plan_.measurements);
            std::fprintf(
                file_, "/begin FUNCTION Fct_%05ld \"function no. %ld\"\n  /begin OUT_MEASUREMENT\n",
                first / size, first / size);
            names(first, last);
            std::fprintf(file_,
                         "  /end OUT_MEASUREMENT\n/end FUNCTION\n"
                         "/begin GROUP Grp_%05ld \"group no. %ld\"\n  /begin REF_MEASUREMENT\n",
                         first / size, first / size);
            names(first, last);
            std::fputs("  /end REF_MEASUREMENT\n/end GROUP\n", file_);
        }
    }

    void names(long first, long last)
    {
        for (long i = first; i < last; ++i)
            std::fprintf(file_, "    %s\n", nameOf(i).c_str());
    }

    void bareMeasurement(long i)
    {
        std::fprintf(
            file_,
            "/begin MEASUREMENT Measured_Quantity_Of_%09ld \"the long name of this, %09ld\" UWORD "
            "NO_COMPU_METHOD 0 0 0 65535 ECU_ADDRESS 0x%08lX /end MEASUREMENT\n",
            i, i, 0xD0000000 + static_cast<unsigned long>(i) * 4);
    }

    std::FILE* file_;
    const DescriptionPlan& plan_;
    Numbers numbers_;
};

} // namespace

DescriptionPlan planOfSize(long bytes, bool methodsFirst)
{
    DescriptionPlan plan;
    plan.measurements = std::max(1L, bytes / 700);
    plan.characteristics = plan.measurements;
    plan.methods = std::max(1L, std::min(5000L, plan.measurements / 20));
    plan.methodsFirst = methodsFirst;
    return plan;
}

void writeDescription(std::FILE* file, const DescriptionPlan& plan) { Writer(file, plan).write(); }
