// Descriptions built from blocks for the wide reader, which reads each of them in two forms.
// With TAVO_FUZZ_SHOW in the environment the descriptions go to the standard error. With
// TAVO_FUZZ_STRICT, some are held against the strict reader's configuration: what differs needs a
// look then, because some of the differences are meant (docs/dialect-wide.md).

#include "GrammarWriter.h"
#include "asap2/PhAsap2.h"
#include "description.h"
#include "inventory/Inventory.h"
#include "support/RecordingLogger.h"
#include "support/wide.h"
#include "wideGrammar.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>

using namespace tavo;

namespace {

constexpr std::string_view keywords[] = {
    "/begin",
    "/end",
    "FUTURE",
#define TAVO_OPTION(block, word, fields) #word,
#define TAVO_BLOCK(block, word) #word,
#define TAVO_KNOWN(block, word, fields) #word,
#include "asap2/options.def"
};
constexpr std::string_view names[] = {"a", "b", "c", "d", "e", "NO_COMPU_METHOD", "f[1].g"};
constexpr std::string_view numbers[] = {
    "0",     "1",  "2",          "-1", "3000", "4294967295", "0x100000000", "18446744073709551616",
    "1e400", ".5", "-2147483649"};
constexpr std::string_view commonNumbers[] = {"0", "1",           "2",          "6",
                                              "8", "-2147483648", "0x7FFFFFFF", "99999"};

void show(const std::string& description)
{
    if (std::getenv("TAVO_FUZZ_SHOW"))
        std::fwrite(description.data(), 1, description.size(), stderr);
}

void stop(const WideReading& reading, const std::string& other)
{
    std::fprintf(stderr, "== one:\n%s%s== other:\n%s", reading.configuration.c_str(),
                 reading.more.c_str(), other.c_str());
    std::abort();
}

/// False for descriptions of which the two readings differ by their names: strictly, a table can be
/// taken for a method of its name, and a method for none can be defined.
bool hasCommonNames(const std::string& description)
{
    Inventory inventory;
    PhAsap2 reader(nullptr);
    RecordingLogger logger;
    reader.setLogger(&logger);
    if (reader.read(description, inventory) != 0)
        return false;
    std::set<std::string_view> tables = {noMethod};
    for (const Table& table : inventory.tables)
        tables.insert(table.name);
    for (std::uint32_t i = 0; i < inventory.methodNames.size(); ++i)
        if (tables.count(inventory.methodNames.name(i)) > 0)
            return false;
    return true;
}

void compareWithStrict(const std::uint8_t* data, std::size_t size)
{
    static const Language language = {waysOf(grammar, commonRules), keywords, names, commonNumbers};
    const std::string description = GrammarWriter(language, data, size, false).write();
    show(description);
    RecordingLogger complaints;
    const auto strict = strictConfiguration(description, &complaints);
    const WideReading wide = readWide(description);
    // Strictly, a rate that is too large wraps; here its source is left out.
    const auto isTooLarge = [](const auto& message) {
        return message.find("beyond 32 bits is left out") != std::string::npos;
    };
    if (std::any_of(wide.messages.begin(), wide.messages.end(), isTooLarge))
        return;
    if (strict && complaints.text.empty() && wide.configuration != *strict &&
        hasCommonNames(description))
        stop(wide, *strict);
}

void compareForms(const std::uint8_t* data, std::size_t size, bool hasNoise)
{
    static const Language language = {waysOf(wideGrammar), keywords, names, numbers};
    GrammarWriter writer(language, data, size, hasNoise);
    const std::string description = writer.write();
    show(description);
    const WideReading reading = readWide(description);
    if (writer.isNoisy())
        return;
    std::string form;
    for (const char c : description)
        form += c == '\n' ? "\t/* \" */\r\n//'\"\r" : std::string(1, c);
    const WideReading other = readWide(form);
    if (other.status != reading.status || other.configuration != reading.configuration ||
        other.more != reading.more || other.messages.size() != reading.messages.size())
        stop(reading, other.configuration + other.more);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    if (*data % 4 == 0 && std::getenv("TAVO_FUZZ_STRICT"))
        compareWithStrict(data + 1, size - 1);
    else
        compareForms(data + 1, size - 1, *data % 4 == 1);
    return 0;
}
