#pragma once

#include "asap2/Fault.h"
#include "asap2/SourceFile.h"
#include "asap2/characters.h"
#include "base/sameBytes.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavo {

enum class Token : std::uint8_t
{
    Word, ///< Any run of characters: a name, a keyword, a number.
    Text, ///< What stands between quotes.
    Begin,
    End,
    FileEnd ///< Of the described file; the end of an included one is no token.
};

class Mark;

/// Splits a description into tokens, with the files that it includes in their place.
///
/// One token is current: a parser looks at it, takes from it what it needs, and goes on. What is
/// passed over is searched for its end and not split at all.
class Scanner
{
public:
    Scanner() = default;
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;

    /// Opens the description, and no token is current yet. Throws an `OpenFailure`.
    void open(const std::string& path, SourceFile::Watch watch);
    /// The same with a description in memory, which outlives the scanner. The path is its name, and
    /// where included files are looked for.
    void use(std::string_view description, const std::string& path = "");

    /// Gets the fault of an included file that can't be read; the reading goes on after the include
    /// then. Without a sink, the fault ends the reading.
    void setIncludeSink(std::function<void(const Fault& fault)> sink)
    {
        includeSink_ = std::move(sink);
    }

    Token token() const { return token_; }
    /// What the current word or text says; a text without its quotes and with its escapes resolved.
    /// Valid until the next token.
    std::string_view text() const { return text_; }
    bool isWord(std::string_view word) const
    {
        return token_ == Token::Word && sameBytes(text_, word);
    }
    /// Where the current token begins.
    Place place();
    /// Goes on to the next token.
    void advance();

    /// Passes over the rest of a block, in which `depth` blocks are open, and over its `/end` and
    /// word, which is compared with `word`. The search begins after the current token. The block
    /// began at `begin`.
    void skipBlock(std::string_view word, const Mark& begin, std::uint64_t depth = 1);
    /// The same for an A2ML block, which ends at its first `/end A2ML`, whatever is in it.
    void skipA2ml(const Mark& begin);

    /// Throws the `Fault` of an `/end` with another word than its block's; what stands in the place
    /// of that word is current.
    [[noreturn]] void failAtOtherEnd(std::string_view word, const Mark& begin);

    /// Bytes of the description alone, or 0 if they can't be told; nothing has been read yet.
    std::size_t size() { return inputs_.front()->file.size(); }
    /// The name of a file by its number; 0 is the description itself.
    const std::string& fileName(std::uint32_t number) const { return fileNames_[number]; }
    /// The system's number of the error at which a file could be read no further, or 0.
    int readError() const { return readError_; }

private:
    friend class Mark;

    /// A file that is being read.
    struct Input
    {
        SourceFile file;
        std::filesystem::path path;
        std::unique_ptr<char[]> buffer;
        std::size_t capacity = 0;
        std::uint32_t number = 0;
        // What the scanner keeps while it reads an included file.
        const char* next = nullptr;
        const char* end = nullptr;
        const char* counted = nullptr;
        std::uint64_t countedOffset = 0;
        std::uint32_t line = 1;
        char previous = 0;
    };

    enum class Keyword : std::uint8_t
    {
        None,
        Begin,
        End,
        Include
    };

    void start(std::unique_ptr<Input> input);
    void suspend();
    void resume();
    bool leaveFile();
    bool more();
    /// True if the next characters are so many, the one in hand included.
    bool has(std::size_t count)
    {
        return static_cast<std::size_t>(end_ - next_) >= count || readUpTo(count);
    }
    bool readUpTo(std::size_t count);
    void countLines(const char* to);
    void countMarks();
    Place placeAt(const char* position);
    /// The place of a character up to which the lines are counted.
    Place countedPlace(const char* position) const
    {
        const auto after = static_cast<std::uint64_t>(counted_ - position);
        return {inputs_.back()->number, line_, countedOffset_ - after};
    }

    /// True if the slash in hand begins a comment.
    bool startsComment() { return has(2) && (next_[1] == '*' || next_[1] == '/'); }
    static std::size_t keywordLength(Keyword keyword)
    {
        static constexpr unsigned char lengths[] = {0, 6, 4, 8};
        return lengths[static_cast<std::size_t>(keyword)];
    }
    static Keyword keywordAt(const char* position);
    Keyword keyword();
    /// Goes on to the first character that is no blank, or to the end of the file.
    void skipBlanks()
    {
        next_ = asap2::blanksEnd(next_);
        if (*next_ == 0)
            skipZeros();
    }
    void skipZeros();
    void skipBlanksAndComments();
    void skipComment();
    void skipText();
    std::uint64_t skipKeyword(Keyword keyword, std::uint64_t depth);
    void advanceToOther();
    /// The first character is in hand, and `keep_` stands there.
    void scanWord()
    {
        token_ = Token::Word;
        next_ = asap2::wordEnd(next_ + 1);
        text_ = {keep_, static_cast<std::size_t>(next_ - keep_)};
        if (!asap2::is(*next_, asap2::Blank))
            finishWord();
    }
    void finishWord();
    void scanText();
    void finishText();
    void scanEditedText();
    void include();
    std::string includedName(Place place);
    void enter(const std::string& name, Place place);
    [[noreturn]] static void failAtEnd(std::string_view what, Place begin);

    Token token_ = Token::FileEnd;
    std::string_view text_;
    const char* next_ = nullptr;      ///< The first character that no token has taken.
    const char* end_ = nullptr;       ///< After the last character; a zero byte stands there.
    const char* keep_ = nullptr;      ///< What stays in the buffer from here on; null for nothing.
    std::vector<Mark*> marks_;        ///< In the order of the description.
    std::size_t countedMarks_ = 0;    ///< So many of them, from the first on, know their line.
    const char* counted_ = nullptr;   ///< The lines up to here are counted, no further than a mark.
    std::uint64_t countedOffset_ = 0; ///< Bytes of the file before `counted_`.
    std::uint32_t line_ = 1;          ///< The line of `counted_`.
    char previous_ = 0;               ///< The character before `counted_`.
    bool isPassingOver_ = false;      ///< No include is opened.
    bool isAtEnd_ = false;            ///< The description has no more characters.
    std::string edited_;              ///< The current text, if it isn't what stands in the file.
    Place editedPlace_;               ///< Where that text begins.
    std::vector<std::unique_ptr<Input>> inputs_; ///< The description, and what is included in it.
    std::vector<std::string> fileNames_;
    std::function<void(const Fault& fault)> includeSink_;
    int readError_ = 0;
};

/// A place in a description whose line is counted when somebody asks for it, or when its characters
/// leave the buffer: most blocks begin and end without a message. Marks are released in the reverse
/// of the order in which they are made.
class Mark
{
public:
    /// Where the current token begins, which is no text.
    explicit Mark(Scanner& scanner) : Mark(scanner, scanner.keep_ ? scanner.keep_ : scanner.next_)
    {
    }
    ~Mark();
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

    Place place() const;
    operator Place() const { return place(); }

private:
    friend class Scanner;

    /// Where a character stands that is in the buffer.
    Mark(Scanner& scanner, const char* position) : scanner_(scanner), position_(position)
    {
        scanner.marks_.push_back(this);
    }

    Scanner& scanner_;
    const char* position_; ///< Until the line is counted.
    Place place_;          ///< From then on.
};

inline Mark::~Mark()
{
    scanner_.marks_.pop_back();
    if (scanner_.countedMarks_ > scanner_.marks_.size())
        scanner_.countedMarks_ = scanner_.marks_.size();
}

inline Place Mark::place() const
{
    scanner_.countMarks();
    return place_;
}

} // namespace tavo
