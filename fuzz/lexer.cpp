// The lexer alone. The first byte chooses the vocabulary, the rest is the file.

#include "a2l/Lexer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    using namespace tavo;
    static constexpr const PhKeywordTable* vocabularies[] = {
        &coreKeywords, &enumKeywords, &ccpKeywords, &xcpKeywords, &kwpKeywords};
    Lexer lexer([](const char*) {});
    lexer.setVocabulary(*vocabularies[*data % std::size(vocabularies)]);
    lexer.openMemory({reinterpret_cast<const char*>(data) + 1, size - 1});
    // A byte of the end mark's value ends the tokens, too, and can be read on from.
    for (int ends = 0; ends < 3; ends += lexer.token().code == T_EOF)
        if (lexer.next() == T_IDENTIFIER && lexer.token().text.find('\n') != std::string_view::npos)
            std::abort();
    return 0;
}
