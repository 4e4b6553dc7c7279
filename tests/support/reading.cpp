#include "support/reading.h"

#include "a2l/PhA2l.h"
#include "model/PhConversion.h"
#include "model/PhRange.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "support/RecordingLogger.h"
#include "support/files.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhMemoryPage.h"
#include "topology/PhRaster.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tavo;

namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

/// A reader of a text, which stands in a file of its own.
struct Reading
{
    explicit Reading(std::string_view text) : path(folder.path("d.a2l")), reader(path.c_str())
    {
        writeFile(path, text);
        reader.setLogger(&logger);
    }

    /// What was told, with the file named without its folder.
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

/// Writes the model as text. What a configuration shows anyway is left out.
class ModelText
{
public:
    void putGroups(const PhList* groups, const std::string& indent = {})
    {
        for (const PhGroup* group : each<PhGroup>(groups)) {
            putTitle(indent, groupTypeName(static_cast<int>(group->groupType())), group) << "\n";
            const std::string inner = indent + "  ";
            for (const PhMemoryPage* page : each<PhMemoryPage>(group->memoryPages()))
                put(inner, *page);
            for (const PhCommParam* commParam : each<PhCommParam>(group->commParams()))
                put(inner, *commParam);
            for (const PhEntity* entity : each<PhEntity>(group->entities()))
                put(inner, *entity);
            for (const PhConversion* conversion : each<PhConversion>(group->conversions()))
                put(inner, *conversion);
            for (const PhList* dropped : {group->functions(), group->frames(), group->units()})
                EXPECT_EQ(dropped, nullptr);
            EXPECT_EQ(group->parent() == nullptr, indent.empty());
            putGroups(group->groups(), inner);
        }
    }

    std::ostringstream out;

private:
    /// What the object is, its name and, behind a comma, its long name.
    std::ostream& putTitle(const std::string& indent, const char* kind, const PhObject* object)
    {
        out << indent << kind << " " << object->name().view();
        if (object->longName().length() > 0)
            out << ", " << object->longName().view();
        return out;
    }

    void put(const std::string& indent, const PhMemoryPage& page)
    {
        putTitle(indent, "page", &page)
            << ": " << pageTypeName(static_cast<int>(page.pageType())) << " "
            << memoryTypeName(static_cast<int>(page.memoryType())) << " "
            << locationName(static_cast<int>(page.location())) << " ";
        put(page.address());
        out << " ";
        put(page.size());
        out << "\n";
    }

    void put(const std::string& indent, const PhCommParam& commParam)
    {
        out << indent << protocolName(static_cast<int>(commParam.protocol())) << " "
            << transportName(static_cast<int>(commParam.transport())) << " "
            << endianName(static_cast<int>(commParam.endian())) << " [";
        putAll(commParam.properties());
        out << "]\n";
        const char* const units[] = {"", "s", "ms", "us", "ns"};
        for (const PhRaster* raster : each<PhRaster>(commParam.rasters())) {
            putTitle(indent, "  raster", raster) << ": ";
            put(raster->channel());
            out << " ";
            put(raster->rate());
            out << units[static_cast<int>(raster->timeUnit())] << "\n";
        }
    }

    void put(const std::string& indent, const PhEntity& entity)
    {
        const PhType& type = *entity.type();
        putTitle(indent, "entity", &entity)
            << ": " << baseTypeName(static_cast<int>(type.baseType())) << " " << type.bitCount()
            << " " << endianName(static_cast<int>(type.endian()));
        putReference(type.conversion());
        out << "\n";
    }

    void put(const std::string& indent, const PhConversion& conversion)
    {
        putTitle(indent, conversionTypeName(static_cast<int>(conversion.conversionType())),
                 &conversion);
        if (conversion.unit())
            out << " in '" << conversion.unit()->label().view() << "'";
        if (conversion.numerator()) {
            out << ": (";
            putAll(conversion.numerator());
            out << ") / (";
            putAll(conversion.denominator());
            out << ")";
        }
        putReference(conversion.conversion());
        out << "\n";
        for (const PhRange* row : each<PhRange>(conversion.ranges())) {
            EXPECT_EQ(row->lowerLimitFlag() + row->upperLimitFlag(), 2);
            EXPECT_FALSE(row->inverseValue().isValid());
            out << indent << "  ";
            put(&row->lowerLimit());
            out << " to ";
            put(&row->upperLimit());
            out << ": ";
            put(&row->result());
            out << "\n";
        }
    }

    void putReference(const PhConversion* conversion)
    {
        if (conversion)
            out << " -> " << conversion->name().view() << (conversion->isUnresolved() ? "?" : "")
                << (conversion->isReported() ? "!" : "");
    }

    /// 5, 0.500000, 'text' or [...], with "name=" ahead of it if the value has one.
    void put(const PhValue* value)
    {
        if (!value->name().isNull())
            out << value->name().view() << "=";
        if (value->isInteger())
            out << value->intValue();
        if (value->isDouble())
            out << std::to_string(value->doubleValue());
        if (value->isText())
            out << "'" << value->text().view() << "'";
        if (value->isList()) {
            out << "[";
            putAll(value->list());
            out << "]";
        }
    }

    void putAll(const PhList* values)
    {
        const char* separator = "";
        for (const PhValue* value : each<PhValue>(values)) {
            out << separator;
            put(value);
            separator = " ";
        }
    }
};

} // namespace

std::string tokensOf(std::string_view text, int vocabulary)
{
    Reading reading(text);
    reading.reader.setKeywordTable(vocabulary);
    reading.reader.setKeywordTable(7); // There is none, so nothing changes.
    EXPECT_EQ(reading.reader.print_tokens(), 0);
    const std::string opening = "message: print_tokens ()\n";
    const std::string end = "EOF ";
    std::string tokens = reading.log();
    EXPECT_TRUE(tokens.starts_with(opening));
    tokens.erase(0, opening.size());
    replaceAll(tokens, "message: \n", " ");
    replaceAll(tokens, "\nmessage: ", "}");
    replaceAll(tokens, "message: ", "");
    replaceAll(tokens, "error: File 'd.a2l', Line ", "{");
    EXPECT_TRUE(tokens.ends_with(end)) << tokens;
    tokens.erase(tokens.size() - end.size());
    return tokens.substr(0, tokens.find_last_not_of(' ') + 1);
}

std::string modelOf(std::string_view description, Names names)
{
    Reading reading(description);
    PhRoot root;
    const int status = reading.reader.readFile(&root);
    if (names == Names::Resolved) {
        root.setLogger(&reading.logger);
        root.resolve();
        root.resolve(); // once more: all has been done and told
    }
    ModelText model;
    model.out << reading.log() << "status " << status << "\n";
    model.putGroups(root.groups());
    return model.out.str();
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
