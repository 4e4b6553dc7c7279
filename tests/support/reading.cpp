#include "support/reading.h"

#include "a2l/Lexer.h"
#include "a2l/PhA2l.h"
#include "support/RecordingLogger.h"
#include "support/files.h"
#include "support/model.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tavo;

namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

/// A reader of a text, which is in a file of its own.
struct Reading
{
    explicit Reading(std::string_view text) : path(folder.path("d.a2l")), reader(path.c_str())
    {
        writeFile(path, text);
        reader.setLogger(&logger);
    }

    /// What was reported, with the file named without its folder.
    std::string log() const
    {
        std::string text = logger.text;
        replaceAll(text, path, "d.a2l");
        return text;
    }

    TemporaryFolder folder;
    std::string path;
    RecordingLogger logger;
    PhA2l reader;
};

// The parts of a model as text. What a configuration shows anyway is left out.

template <class Enumeration>
const char* word(const char* (*name)(std::int32_t), Enumeration enumerator)
{
    return name(static_cast<std::int32_t>(enumerator));
}

/// The name of an object and, after a comma, its long name.
std::string title(const PhObject& object)
{
    std::string text(object.name().view());
    if (object.longName().length() > 0)
        text.append(", ").append(object.longName().view());
    return text;
}

std::string shown(const PhList* values);

/// 5, 0.500000, 'text' or [...], with "name=" before it if the value has one.
std::string shown(const PhValue* value)
{
    std::ostringstream out;
    if (!value->name().isNull())
        out << value->name().view() << "=";
    if (value->isInteger())
        out << value->intValue();
    if (value->isDouble())
        out << std::to_string(value->doubleValue());
    if (value->isText())
        out << "'" << value->text().view() << "'";
    if (value->isList())
        out << "[" << shown(value->list()) << "]";
    return out.str();
}

std::string shown(const PhList* values)
{
    std::string text;
    for (const PhValue* value : each<PhValue>(values))
        text.append(text.empty() ? "" : " ").append(shown(value));
    return text;
}

std::string reference(const PhConversion* conversion)
{
    return !conversion ? ""
                       : std::string(" -> ")
                             .append(conversion->name().view())
                             .append(conversion->isUnresolved() ? "?" : "")
                             .append(conversion->isReported() ? "!" : "");
}

void put(std::ostream& out, const std::string& indent, const PhCommParam& commParam)
{
    out << indent << word(protocolName, commParam.protocol()) << " "
        << word(transportName, commParam.transport()) << " " << word(endianName, commParam.endian())
        << " [" << shown(commParam.properties()) << "]\n";
    const char* const units[] = {"", "s", "ms", "us", "ns"};
    for (const PhRaster* raster : each<PhRaster>(commParam.rasters()))
        out << indent << "  raster " << title(*raster) << ": " << shown(raster->channel()) << " "
            << shown(raster->rate()) << units[static_cast<int>(raster->timeUnit())] << "\n";
}

void put(std::ostream& out, const std::string& indent, const PhConversion& conversion)
{
    out << indent << word(conversionTypeName, conversion.conversionType()) << " "
        << title(conversion);
    if (conversion.unit())
        out << " in '" << conversion.unit()->label().view() << "'";
    if (conversion.numerator())
        out << ": (" << shown(conversion.numerator()) << ") / (" << shown(conversion.denominator())
            << ")";
    out << reference(conversion.conversion()) << "\n";
    for (const PhRange* row : each<PhRange>(conversion.ranges()))
        out << indent << "  " << shown(&row->lowerLimit()) << " to " << shown(&row->upperLimit())
            << ": " << shown(&row->result()) << "\n";
}

void put(std::ostream& out, const std::string& indent, const PhGroup& group)
{
    out << indent << word(groupTypeName, group.groupType()) << " " << title(group) << "\n";
    const std::string inner = indent + "  ";
    for (const PhMemoryPage* page : each<PhMemoryPage>(group.memoryPages()))
        out << inner << "page " << title(*page) << ": " << word(pageTypeName, page->pageType())
            << " " << word(memoryTypeName, page->memoryType()) << " "
            << word(locationName, page->location()) << " " << shown(page->address()) << " "
            << shown(page->size()) << "\n";
    for (const PhCommParam* commParam : each<PhCommParam>(group.commParams()))
        put(out, inner, *commParam);
    for (const PhEntity* entity : each<PhEntity>(group.entities()))
        out << inner << "entity " << title(*entity) << ": "
            << word(baseTypeName, entity->type()->baseType()) << " " << entity->type()->bitCount()
            << " " << word(endianName, entity->type()->endian())
            << reference(entity->type()->conversion()) << "\n";
    for (const PhConversion* conversion : each<PhConversion>(group.conversions()))
        put(out, inner, *conversion);
    for (const PhGroup* child : each<PhGroup>(group.groups()))
        put(out, inner, *child);
}

} // namespace

std::string tokensOf(std::string_view text, Source source, const PhKeywordTable& vocabulary)
{
    std::string tokens;
    std::string failure;
    Lexer lexer([&](const char* report) { failure = report; });
    const TemporaryFolder folder;
    if (source == Source::Memory) {
        lexer.openMemory(text);
    } else {
        writeFile(folder.path("d.a2l"), text);
        EXPECT_TRUE(lexer.open(folder.path("d.a2l").c_str()));
    }
    lexer.setVocabulary(vocabulary);
    while (lexer.next() != T_EOF) {
        const PhTokenValue& token = lexer.token();
        const std::string itself(token.text);
        tokens.append(tokens.empty() ? "" : " ");
        if (!failure.empty())
            tokens.append("{")
                .append(std::to_string(lexer.line()))
                .append(": ")
                .append(failure + "}");
        failure.clear();
        const char quote = token.code == T_STRING ? '"' : '\'';
        if (const char* keyword = vocabulary.keywordName(token.code))
            tokens.append("[").append(keyword).append("]");
        else if (token.code == T_STRING || token.code == T_IDENTIFIER)
            tokens.append(1, quote).append(itself).append(1, quote);
        else if (token.code == T_INTEGER)
            tokens += std::to_string(token.integer);
        else if (token.code == T_DOUBLE)
            tokens += std::to_string(token.real);
        else
            tokens += "t=" + std::to_string(token.code);
    }
    return tokens;
}

std::string modelOf(std::string_view description, Names names)
{
    Reading reading(description);
    PhRoot root;
    const int status = reading.reader.readFile(&root);
    if (names == Names::Resolved) {
        root.setLogger(&reading.logger);
        root.resolve();
        root.resolve(); // once more: everything has been done and reported
    }
    std::ostringstream out;
    out << reading.log() << "status " << status << "\n";
    for (const PhGroup* group : each<PhGroup>(root.groups()))
        put(out, "", *group);
    return out.str();
}

std::string logOf(std::string_view description)
{
    Reading reading(description);
    reading.reader.setVerbose(true);
    reading.reader.setDebug(true);
    PhRoot root;
    EXPECT_EQ(reading.reader.readFile(&root), 0);
    return reading.log();
}
