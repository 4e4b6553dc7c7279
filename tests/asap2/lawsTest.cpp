// Laws of the wide reader: what may be done to any description without changing its configuration.
// They are tried on all golden descriptions.

#include "daq/sections.h"
#include "support/conversion.h"
#include "support/files.h"
#include "support/series.h"
#include "support/wide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

/// Golden descriptions by their names, "FILE" or "FILE: TITLE".
std::map<std::string, std::string> golden(const std::set<std::string>& extensions)
{
    std::map<std::string, std::string> descriptions;
    for (const fs::directory_entry& entry : fs::directory_iterator(TAVO_GOLDEN_FOLDER)) {
        const std::string name = entry.path().filename().string();
        if (!extensions.contains(entry.path().extension().string()))
            continue;
        const std::string bytes = readFile(entry.path());
        if (entry.path().extension() == ".a2l") {
            descriptions[name] = bytes;
            continue;
        }
        for (const SeriesText& text : seriesTexts(bytes)) {
            const std::string body =
                text.endings.empty() ? text.body : text.body + "\n" + text.endings.front();
            descriptions[name.substr(0, name.rfind('.')) + ": " + text.title] =
                name.ends_with(".wide") ? wideDescription(body) : body;
        }
    }
    return descriptions;
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// The description with each of its parts - texts, comments, runs of blanks, and what is between -
/// replaced by what `change` makes of it.
std::string rewritten(const std::string& text,
                      const std::function<std::string(const std::string& part)>& change)
{
    static const std::regex parts(
        R"re("(?:[^"\\]|\\[^]|"")*"|/\*(?:[^*]|\*(?!/))*\*/|//[^\n]*|[ \t\r\n]+|(?:[^\s"/]|/(?![*/]))+|[^])re");
    std::string result;
    for (std::sregex_iterator part(text.begin(), text.end(), parts), end; part != end; ++part)
        result += change(part->str());
    return result;
}

std::string withBlanks(const std::string& text, const std::string& blanks)
{
    return rewritten(text, [&](const std::string& part) {
        return part.find('\n') == std::string::npos && isBlank(part[0]) ? blanks : part;
    });
}

std::string withLineEnds(const std::string& text, const std::string& lineEnd)
{
    return rewritten(text, [&](const std::string& part) {
        return part[0] == '"' ? part : std::regex_replace(part, std::regex("\n"), lineEnd);
    });
}

/// Comments to the end of the line for all others, and one after each word.
std::string withLineComments(const std::string& text)
{
    return rewritten(text, [](const std::string& part) {
        if (part.starts_with("/*"))
            return "// " + part.substr(2, part.find('\n') - 2) + "\n";
        return part.find('\n') == std::string::npos && isBlank(part[0])
                   ? std::string(" // /end MODULE \"\n")
                   : part;
    });
}

std::string withComments(const std::string& text)
{
    return rewritten(text, [](const std::string& part) {
        return isBlank(part[0]) ? part + "/* // \" /end MODULE * /*/" : part;
    });
}

/// UTF-16 or UTF-32 of a text in UTF-8, with a mark or without.
std::string encoded(const std::string& text, std::size_t unitSize, bool isLittle, bool hasMark)
{
    std::string bytes;
    const auto put = [&](char32_t unit) {
        for (std::size_t i = 0; i < unitSize; ++i)
            bytes += static_cast<char>(unit >> 8 * (isLittle ? i : unitSize - 1 - i));
    };
    if (hasMark)
        put(0xFEFF);
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i++]);
        const int further = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
        char32_t character = further == 0 ? lead : lead & (0x3F >> further);
        for (int left = further; left > 0 && i < text.size(); --left)
            character = character << 6 | (static_cast<unsigned char>(text[i++]) & 0x3F);
        if (unitSize == 2 && character > 0xFFFF) {
            put(0xD7C0 + (character >> 10));
            put(0xDC00 + (character & 0x3FF));
        } else {
            put(character);
        }
    }
    return bytes;
}

std::vector<std::string> withoutLines(std::vector<std::string> messages)
{
    for (std::string& message : messages)
        message = std::regex_replace(message, std::regex("^[0-9]+: "), "");
    return messages;
}

TEST(WideReader, readsTheSameInEveryFormOfTheSameTokens)
{
    for (const auto& [name, text] : golden({".wide"})) {
        SCOPED_TRACE(name);
        const WideReading plain = readWide(text);
        for (const std::string& same :
             {withLineEnds(text, "\r\n"), withLineEnds(text, "\r"), withBlanks(text, "\t\v\f"),
              withBlanks(text, std::string("\0\x1A ", 3)), "\xEF\xBB\xBF" + text,
              encoded(text, 2, true, true), encoded(text, 2, false, true),
              encoded(text, 2, true, false), encoded(text, 2, false, false),
              encoded(text, 4, true, true), encoded(text, 4, false, true)}) {
            const WideReading reading = readWide(same);
            EXPECT_EQ(reading.configuration, plain.configuration);
            EXPECT_EQ(reading.messages, plain.messages);
            EXPECT_EQ(reading.more, plain.more);
        }
        if (name.starts_with("wide-errors") || text.find("/begin A2ML") != std::string::npos)
            continue; // their comments are what they are about
        for (const std::string& same :
             {withLineComments(text), withComments(text), withBlanks(text, "\n")}) {
            const WideReading reading = readWide(same);
            EXPECT_EQ(reading.configuration, plain.configuration);
            EXPECT_EQ(withoutLines(reading.messages), withoutLines(plain.messages));
            EXPECT_EQ(reading.more, plain.more);
        }
    }
}

/// True for the blocks of which something is taken, and whose unknown words are reported.
bool isWanted(const std::string& word)
{
    static const std::regex words(
        "MODULE|MEASUREMENT|INSTANCE|COMPU_.*|FORMULA|MOD_COMMON|TYPEDEF_(MEASUREMENT|STRUCTURE)|"
        "STRUCTURE_COMPONENT|IF_DATA (ASAP1B_CCP|XCP|XCPplus)|RASTER|TP_BLOB|DAQ|EVENT|DAQ_EVENT|"
        "(FIXED|DEFAULT)_EVENT_LIST|XCP_ON_.*|CAN_FD|IF_DATA ASAP1B_KWP2000");
    return std::regex_match(word, words);
}

/// Calls `use` with each place where an option could stand, and with whether it is in a block
/// whose unknown words are reported. The lines of the golden descriptions begin at such places.
void forEachGap(const std::string& text, const std::function<void(std::size_t, bool)>& use)
{
    static const std::regex token(
        R"re(^/(begin|BEGIN) (IF_DATA \S+|\S+)|/(end|End) |/\*.*?\*/|"(?:[^"\\]|\\.|"")*"| /(begin|BEGIN) (IF_DATA \S+|\S+))re");
    std::vector<std::string> open;
    bool isList = false; // a list of words would take the new one for one of them
    for (std::size_t line = 0; line < text.size(); line = text.find('\n', line) + 1) {
        const std::string rest = text.substr(line, text.find('\n', line) - line);
        if (open.size() > 1 && !isList)
            use(line, !open.back().starts_with("XCP_ON_USB") &&
                          !open.back().starts_with("XCP_ON_SxI") &&
                          !open.back().starts_with("XCP_ON_FLX") &&
                          std::all_of(open.begin() + 1, open.end(), isWanted));
        isList = rest.starts_with("FUNCTION_LIST") || rest.starts_with("VIRTUAL");
        for (std::sregex_iterator found(rest.begin(), rest.end(), token), end; found != end;
             ++found) {
            if ((*found)[3].matched && !open.empty())
                open.pop_back();
            else if ((*found)[2].matched || (*found)[5].matched)
                open.push_back((*found)[2].matched ? (*found)[2] : (*found)[5]);
        }
    }
}

bool isOfFuture(const std::string& message)
{
    return message.find("'FUTURE' is passed over") != std::string::npos;
}

bool isOfGap(const std::string& message)
{
    return message.find("is passed over") != std::string::npos ||
           message.find("is left out:") != std::string::npos;
}

TEST(WideReader, passesOverWhatItDoesNotKnowInEveryGap)
{
    int gapCount = 0;
    for (const auto& [name, text] : golden({".wide"})) {
        if (name.starts_with("wide-left-out") || name.starts_with("wide-errors"))
            continue; // their lines begin anywhere
        SCOPED_TRACE(name);
        const WideReading plain = readWide(text);
        // After an unknown word, another one is taken for a field of it.
        const bool isPlain = std::none_of(plain.messages.begin(), plain.messages.end(), isOfGap);
        forEachGap(text, [&](std::size_t gap, bool isTold) {
            for (const std::string unknown : {"FUTURE 1 0x2 -3.5 \"text\" word ", "FUTURE ",
                                              "/begin FUTURE 1 \"/end FUTURE\" ECU_ADDRESS 9 "
                                              "/begin FUTURE /end FUTURE /end FUTURE "}) {
                std::string changed = text;
                const WideReading reading = readWide(changed.insert(gap, unknown));
                std::vector<std::string> messages = reading.messages;
                const std::size_t told = std::erase_if(messages, isOfFuture);
                SCOPED_TRACE(changed.substr(gap, changed.find('\n', gap) - gap));
                if (isPlain) {
                    EXPECT_EQ(told, isTold ? 1U : 0U);
                }
                EXPECT_EQ(messages, plain.messages);
                EXPECT_EQ(reading.configuration, plain.configuration);
                EXPECT_EQ(reading.more, plain.more);
            }
            ++gapCount;
        });
    }
    EXPECT_GT(gapCount, 500);
}

constexpr const char* byPosition = "the strict reader takes any token for a field";

/// Why a description that the strict reader accepts has another configuration in the wide dialect.
const std::map<std::string, std::string> differences = {
    {"names: a placeholder is reported once, and so is each one without a name", "a name is ''"},
    {"ok-a2ml.a2l", "texts and comments in A2ML"},
    {"ok-ccp.a2l", byPosition},
    {"ok-coeffs.a2l", byPosition},
    {"ok-form-only.a2l", byPosition},
    {"ok-frame.a2l", "an include"},
    {"ok-if-data-unknown.a2l", "/end with another word"},
    {"ok-line-ends.a2l", "what ends the file"},
    {"ok-measurement-warnings.a2l", byPosition},
    {"ok-measurement.a2l", "a block that is left open"},
    {"ok-module-level.a2l", byPosition},
    {"ok-names.a2l", byPosition},
    {"ok-numbers.a2l", "numbers beyond 31 bits, and what strict makes of others"},
    {"ok-references.a2l", "the kind of a method, whose table is a method"},
    {"ok-stray-characters.a2l", "characters that strict skips are words"},
    {"ok-strings.a2l", byPosition},
    {"ok-tables.a2l", byPosition},
    {"ok-xcp.a2l", byPosition},
    {"reader: CCP", byPosition},
    {"reader: XCP", byPosition},
    {"reader: a byte order holds until the next one: for sections of the module, and for what "
     "stands behind it",
     "more than one MODULE"},
    {"reader: every block is told", byPosition},
    {"wide-interfaces: CCP in several sections, the last identifiers count",
     "numbers beyond 31 bits"},
    {"wide-left-out: sections without a block make no interface", "an XCPplus section"},
};

TEST(WideReader, agreesWithTheStrictReader)
{
    std::map<std::string, std::string> descriptions =
        golden({".a2l", ".messages", ".model", ".resolved", ".log", ".wide"});
    for (const char* example : {"engine.a2l", "minimal.a2l"})
        descriptions[example] = readFile(fs::path(TAVO_EXAMPLES_FOLDER) / example);
    std::set<std::string> different;
    int accepted = 0;
    for (const auto& [name, text] : descriptions) {
        tavo::daqSourceIndex = 0;
        const Conversion strict = convertText(text);
        if (!strict.output || diagnostics(strict).find("Error") != std::string::npos)
            continue;
        ++accepted;
        const WideReading wide = readWide(text);
        if (wide.configuration == *strict.output)
            continue;
        different.insert(name);
        EXPECT_TRUE(differences.contains(name)) << name << "\n"
                                                << text << "\n"
                                                << *strict.output << "\n"
                                                << wide.configuration;
    }
    EXPECT_EQ(different.size(), differences.size());
    EXPECT_GT(accepted, 30);
}

} // namespace
