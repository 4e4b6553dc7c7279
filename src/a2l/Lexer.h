#pragma once

#include "a2l/PhKeywordTable.h"
#include "a2l/PhTokenValue.h"
#include "a2l/SourceStream.h"
#include "a2l/tokens.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tavo {

/// Makes tokens of the characters of a description, one for each call of `next`. There is no
/// look-ahead and no put-back: the token read last is the current one until the next is read.
///
/// Names are keywords by the vocabulary that is active when they are read; `coreKeywords` is at
/// first.
class Lexer
{
public:
    /// Gets the text of a failure, a string or a comment without an end, before its code is
    /// returned. `line` is where the failure was noticed then.
    using Report = std::function<void(const char* text)>;

    explicit Lexer(Report report) : report_(std::move(report)) {}
    Lexer(const Lexer&) = delete;
    Lexer& operator=(const Lexer&) = delete;

    /// Begins at line 1 of a file. False if it can't be opened.
    bool open(const char* path);
    /// The same in memory, which stays the caller's and outlives the reading.
    void openMemory(std::string_view text);
    void close() { source_.close(); }
    SourceStream& source() { return source_; }
    const SourceStream& source() const { return source_; }

    /// Reads the next token and returns its code, a `Token` or a keyword's. A single character that
    /// starts no token is its own code, as a signed byte. At the end of the source T_EOF comes
    /// again and again.
    int next();
    /// Reads over a token of no use: only T_BEGIN, T_END, T_EOF and T_ERROR can be relied upon,
    /// which come as of `next` under a vocabulary that has the two words. The token has its text
    /// and no value.
    int skip();

    /// The current token. Its text is valid until the next one is read.
    const PhTokenValue& token() const { return token_; }
    /// The line of the last character read. It may wrap in a huge file.
    int line() { return static_cast<int>(source_.line()); }

    const PhKeywordTable& vocabulary() const { return *vocabulary_; }
    void setVocabulary(const PhKeywordTable& vocabulary) { vocabulary_ = &vocabulary; }

private:
    int scan();
    int finishPlain(int code, const unsigned char* first, const unsigned char* last,
                    const unsigned char* next);
    int scanPlainNumber(const unsigned char* first);
    int scanOther();
    bool skipComment();
    int scanName();
    int scanString();
    int scanEditedString();
    int scanNumber();
    int scanFraction();
    int scanExponent();
    int scanHexadecimal();
    int finishName(int code);
    int loseCharacter();

    PhTokenValue token_;
    const PhKeywordTable* vocabulary_ = &coreKeywords;
    SourceStream source_;
    std::string textBuffer_; ///< Holds the token's text if it differs from what stands in the file.
    Report report_;
};

/// Makes a vocabulary the active one for the length of a scope, and then the core vocabulary, on
/// the way of a failure too.
class VocabularyScope
{
public:
    VocabularyScope(Lexer& lexer, const PhKeywordTable& vocabulary) : lexer_(lexer)
    {
        lexer_.setVocabulary(vocabulary);
    }
    ~VocabularyScope() { lexer_.setVocabulary(coreKeywords); }
    VocabularyScope(const VocabularyScope&) = delete;
    VocabularyScope& operator=(const VocabularyScope&) = delete;

private:
    Lexer& lexer_;
};

} // namespace tavo
