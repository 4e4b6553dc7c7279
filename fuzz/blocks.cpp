// Descriptions built from blocks, so that every parser is reached and most readings get to the end.
// With TAVO_FUZZ_SHOW in the environment the descriptions go to the standard error. One that fails
// is kept in corpus/conversion, because what the bytes mean here changes with the grammar.

#include "GrammarWriter.h"
#include "description.h"
#include "grammar.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr std::string_view keywords[] = {
    "/begin",
    "/end",
#define TAVO_KEYWORD(enumerator, word, ...) word,
#include "a2l/coreKeywords.def"
#define TAVO_KEYWORD(enumerator, word) word,
#include "a2l/enumKeywords.def"
#define TAVO_KEYWORD(enumerator, word) word,
#include "a2l/ccpKeywords.def"
#define TAVO_KEYWORD(enumerator, word) word,
#include "a2l/xcpKeywords.def"
};
constexpr std::string_view names[] = {"a", "b", "c", "d", "NO_COMPU_METHOD", "e[1]", "f.g", "1h"};
constexpr std::string_view numbers[] = {"0",     "1",    "6",          "8",     "-2147483648",
                                        "1e400", "-0.5", "0xFFFFFFFF", "99999", "0.000001"};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    silenceReports();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string description =
        GrammarWriter({waysOf(grammar), keywords, names, numbers}, data, size).write();
    if (std::getenv("TAVO_FUZZ_SHOW"))
        std::fwrite(description.data(), 1, description.size(), stderr);
    convert(description);
    return 0;
}
