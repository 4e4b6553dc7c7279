#include "optionTable.h"

#include "Suggestion.h"
#include "commands.h"
#include "render.h"

#include <charconv>
#include <cstdint>
#include <sstream>

namespace tavo {

namespace {

constexpr CommandSet onConvert = 1U << 0U;
constexpr CommandSet onNormalize = 1U << 1U;
constexpr CommandSet onCheck = 1U << 2U;
constexpr CommandSet onList = 1U << 3U;
constexpr CommandSet onDiff = 1U << 4U;
constexpr CommandSet onPage = 1U << 5U;
constexpr CommandSet onTokens = 1U << 6U;
constexpr CommandSet onAll = ~CommandSet{0};
constexpr std::size_t any = SIZE_MAX;

/// The number of a choice is that of its enumerator.
template <class Enumeration> Enumeration chosen(std::string_view choices, const std::string& value)
{
    return static_cast<Enumeration>(choiceNumber(choices, value));
}

void setVolume(Options& options, Volume volume)
{
    if (options.volume != Volume::Normal && options.volume != volume)
        throw BadValue("--quiet and --verbose exclude each other");
    options.volume = volume;
}

constexpr unsigned mostJobs = 256;
constexpr const char* colorChoices = "auto always never";
constexpr const char* listFormats = "table csv json";
constexpr const char* checkFormats = "gcc json sarif";
constexpr const char* diffFormats = "text json";
constexpr const char* changeWords = "added gone renamed moved changed";

/// What `parse` makes of a value.
template <class Parse> auto checked(Parse parse)
{
    try {
        return parse();
    } catch (const std::invalid_argument& wrong) {
        throw BadValue(wrong.what());
    }
}

/// Visits the words of a list with commas between them.
template <class Visit> void forEachWord(const std::string& list, Visit visit)
{
    std::istringstream words(list);
    for (std::string word; std::getline(words, word, ',');)
        visit(word);
}

/// The name of a column.
std::string column(const std::string& name)
{
    if (isColumn(name))
        return name;
    Suggestion suggestion(name);
    for (const Section& section : sections())
        for (const Column& known : section.columns)
            suggestion.consider(known.name);
    throw BadValue("There is no column '" + name + "'" +
                   (suggestion.isFound() ? "; did you mean '" + suggestion.best() + "'?" : ""));
}

ChangeSet changesOf(const std::string& value)
{
    ChangeSet changes{};
    forEachWord(value, [&](const std::string& word) {
        std::size_t number = 0;
        std::size_t found = changeCount;
        forEachChoice(changeWords, [&](std::string_view choice) {
            found = choice == word ? number : found;
            ++number;
        });
        if (found == changeCount)
            throw BadValue("'" + word + "' is not added, gone, renamed, moved or changed");
        changes[found] = true;
    });
    return changes;
}

constexpr CommandRow commands[] = {
    {"convert", onConvert, "Write the configuration of a description",
     "convert [OPTIONS] INPUT [OUTPUT]\nconvert [OPTIONS] --output-dir DIR INPUT...",
     R"(  INPUT                   A description, '-' for the standard input
  OUTPUT                  Where its configuration goes, '-' for the standard output
)",
     R"(An existing file is replaced with --force only, and only once the description
was read and its configuration is complete. What a configuration can't say is
worth a warning. In a PATTERN and a UNIT, * stands for any text and ? for any
character.

Examples:
  tavo convert ecu.a2l                       writes ecu.ini
  tavo convert ecu.a2l out/engine.ini
  tavo convert --strict ecu.a2l              as the strict library does it
  tavo convert ecu.a2l.gz - | less           unpacked on the way
  tavo convert ecu.a2l --match 'Eng*' --enable @labels.lab
  tavo convert -f -j 4 -d out *.a2l          writes out/*.ini, four at a time
)",
     any, convert},
    {"normalize", onNormalize, "Write a description that the strict library reads",
     "normalize [OPTIONS] INPUT [OUTPUT]\nnormalize [OPTIONS] --output-dir DIR INPUT...",
     R"(  INPUT                   A description, '-' for the standard input
  OUTPUT                  Where the strict description goes, '-' for the standard output
)",
     R"(The strict library converts what is written to the configuration that 'tavo convert'
writes of the input. What a configuration can't express is left out, with a warning.

Examples:
  tavo normalize ecu.a2l                     writes ecu.strict.a2l
  tavo normalize ecu.a2l out/ecu.a2l
  tavo normalize -f -d out *.a2l             writes out/*.strict.a2l
)",
     any, normalize},
    {"check", onCheck, "Report what descriptions hold and what is wrong", "check [OPTIONS] FILE...",
     "  FILE                    A description, '-' for the standard input\n",
     R"(With --strict, a warning for each value that strict reading changes.

Examples:
  tavo check ecu.a2l
  tavo check --strict ecu.a2l
  tavo check ecu.a2l --format sarif > ecu.sarif
  xz -dc ecu.a2l.xz | tavo check -
  tavo check --quiet --werror *.a2l || echo 'something is wrong'
)",
     any, check},
    {"list", onList, "Show the interfaces, sources and measurements of a description",
     "list [OPTIONS] FILE...",
     "  FILE                    A description, '-' for the standard input\n",
     R"(In a PATTERN and a UNIT, * stands for any text and ? for any character. Options can
be repeated: a name is shown if it matches any --match or stands in any --select.
--kind methods shows the conversions, and their tables with --columns name,rows.

Examples:
  tavo list ecu.a2l --match 'Eng*' --exclude '*[0]'
  tavo list ecu.a2l --select labels.lab --type uint8,int8 --address 0x1000-0x1FFF
  tavo list ecu.a2l --kind measurements --columns name,address,unit --sort address
  tavo list *.a2l --format csv > all.csv
  tavo list ecu.a2l --format json | jq '.measurements[] | {name, address}'
)",
     any, list},
    {"diff", onDiff, "Show what differs between two descriptions", "diff [OPTIONS] OLD NEW",
     "  OLD, NEW                Two descriptions of the same ECU\n",
     R"(Ends with 0 if there is no difference, and with 1 if there is one. A description
that is faulty ends it with 3.

Examples:
  tavo diff v1.a2l v2.a2l
  tavo diff v1.a2l v2.a2l --only renamed,moved
  tavo diff v1.a2l v2.a2l --format json | jq '.counts'
  tavo diff -q v1.a2l v2.a2l && echo 'nothing to do'
)",
     2, diff},
    {"page", onPage, "Write a page to look at a description with a browser",
     "page [OPTIONS] FILE [PAGE]\npage [OPTIONS] OLD NEW [PAGE]",
     R"(  FILE                    The description
  OLD, NEW                Two descriptions, of which the page also shows what differs
  PAGE                    Where the page goes, a name in .html or '-' for the standard output
)",
     R"(The page is one file that needs nothing else, no network either.

Examples:
  tavo page ecu.a2l                          writes ecu.html
  tavo page --force ecu.a2l out/engine.html
  tavo page v1.a2l v2.a2l changes.html
)",
     3, page},
    {"tokens", onTokens, "Print the tokens of a description, one a line", "tokens [OPTIONS] FILE",
     "  FILE                    The description, '-' for the standard input\n",
     R"(The tokens are those that the strict library reads.

Example:
  tavo tokens ecu.a2l | head
)",
     1, printTokens},
};

constexpr ProgramOption options[] = {
    {'d', "output-dir", "DIR", nullptr, onConvert | onNormalize,
     "Write to this folder, which is made if missing",
     [](Options& o, const std::string& value) { o.outputFolder = value; }},
    {'f', "force", nullptr, nullptr, onConvert | onNormalize | onPage, "Replace existing files",
     [](Options& o, const std::string&) { o.force = true; }},
    {'j', "jobs", "N", nullptr, onConvert | onNormalize, "Convert N descriptions at a time",
     [](Options& o, const std::string& value) {
         const char* const end = value.data() + value.size();
         const auto [stop, error] = std::from_chars(value.data(), end, o.jobs);
         if (error != std::errc() || stop != end || o.jobs < 1 || o.jobs > mostJobs)
             throw BadValue("'" + value + "' is no number from 1 to " + std::to_string(mostJobs));
     }},
    {0, "format", "FORMAT", listFormats, onList, "table, csv or json",
     [](Options& o, const std::string& value) {
         o.format = chosen<ListFormat>(listFormats, value);
     }},
    {0, "kind", "KINDS", nullptr, onList,
     "Show only these: interfaces, sources, measurements, methods",
     [](Options& o, const std::string& value) {
         forEachWord(value, [&](const std::string& word) {
             std::size_t kind = 0;
             while (kind < listedKindCount && sections()[kind].plural != word)
                 ++kind;
             if (kind == listedKindCount)
                 throw BadValue("'" + word +
                                "' is not interfaces, sources, measurements or methods");
             o.listedKinds.set(kind);
         });
     }},
    {0, "columns", "NAMES", nullptr, onList, "Show these columns: name,address,...",
     [](Options& o, const std::string& value) {
         forEachWord(value, [&](const std::string& word) { o.columns.push_back(column(word)); });
     }},
    {0, "sort", "NAMES", nullptr, onList,
     "Sort by these columns, each with a '-' before it for the greatest first",
     [](Options& o, const std::string& value) {
         forEachWord(value, [&](const std::string& word) {
             const bool isDescending = word.starts_with('-');
             o.sortKeys.push_back({column(word.substr(isDescending ? 1 : 0)), isDescending});
         });
     }},
    {0, "format", "FORMAT", checkFormats, onCheck, "gcc, json or sarif",
     [](Options& o, const std::string& value) {
         o.checkFormat = chosen<CheckFormat>(checkFormats, value);
     }},
    {0, "format", "FORMAT", diffFormats, onDiff, "text or json",
     [](Options& o, const std::string& value) {
         o.diffFormat = chosen<DiffFormat>(diffFormats, value);
     }},
    {0, "only", "CHANGES", nullptr, onDiff,
     "Show and count only these: added, gone, renamed, moved, changed",
     [](Options& o, const std::string& value) { o.shownChanges = changesOf(value); }},
    {0, "match", "PATTERN", nullptr, onConvert | onList, "Only names that match the pattern",
     [](Options& o, const std::string& value) { o.selection.patterns.push_back(value); }},
    {0, "exclude", "PATTERN", nullptr, onConvert | onList, "No names that match the pattern",
     [](Options& o, const std::string& value) { o.selection.excluded.push_back(value); }},
    {'i', "ignore-case", nullptr, nullptr, onConvert | onList,
     "Let capital and small letters match each other",
     [](Options& o, const std::string&) { o.selection.style.ignoresCase = true; }},
    {0, "regex", nullptr, nullptr, onConvert | onList,
     "Read each PATTERN as a regular expression for a part of the name",
     [](Options& o, const std::string&) { o.selection.style.isRegex = true; }},
    {0, "select", "FILE", nullptr, onConvert | onList, "Only names in the file, a name a line",
     [](Options& o, const std::string& value) { o.selection.files.push_back(value); }},
    {0, "unit", "UNIT", nullptr, onConvert | onList, "Only measurements of the unit",
     [](Options& o, const std::string& value) { o.selection.units.push_back(value); }},
    {0, "type", "TYPES", nullptr, onConvert | onList, "Only measurements of these types: uint8,...",
     [](Options& o, const std::string& value) {
         o.selection.types |= checked([&] { return typesOf(value); });
     }},
    {0, "address", "FROM-TO", nullptr, onConvert | onList, "Only measurements at these addresses",
     [](Options& o, const std::string& value) {
         o.selection.addresses.push_back(checked([&] { return addressRangeOf(value); }));
     }},
    {0, "enable", "PATTERN", nullptr, onConvert,
     "Write Enabled=1 for names that match; @FILE for names in a file",
     [](Options& o, const std::string& value) {
         if (value.starts_with('@'))
             o.enabledFiles.push_back(value.substr(1));
         else
             o.enabledPatterns.push_back(value);
     }},
    {0, "strict", nullptr, nullptr, onConvert | onCheck | onList | onDiff | onPage,
     "Read exactly what the strict library reads",
     [](Options& o, const std::string&) { o.dialect = Dialect::Strict; }},
    {0, "werror", nullptr, nullptr, onConvert | onNormalize,
     "Write nothing if there is a warning, and end with 1",
     [](Options& o, const std::string&) { o.warningsAreErrors = true; }},
    {0, "werror", nullptr, nullptr, onCheck, "End with 1 if there is a warning",
     [](Options& o, const std::string&) { o.warningsAreErrors = true; }},
    {'q', "quiet", nullptr, nullptr, onAll, "Show errors only",
     [](Options& o, const std::string&) { setVolume(o, Volume::Quiet); }},
    {'v', "verbose", nullptr, nullptr, onAll, "Show each case of a warning, and each step's time",
     [](Options& o, const std::string&) { setVolume(o, Volume::Verbose); }},
    {0, "color", "WHEN", colorChoices, onAll, "auto (on a terminal), always or never",
     [](Options& o, const std::string& value) {
         o.colors = chosen<ColorChoice>(colorChoices, value);
     }},
    {'h', "help", nullptr, nullptr, onAll, "Show this help",
     [](Options&, const std::string&) {}}, // the command line itself obeys it
};

} // namespace

std::span<const CommandRow> commandRows() { return commands; }
std::span<const ProgramOption> optionRows() { return options; }

const CommandRow* findCommand(std::string_view name)
{
    for (const CommandRow& row : commands)
        if (row.name == name)
            return &row;
    return nullptr;
}

std::size_t choiceNumber(std::string_view choices, std::string_view value)
{
    std::size_t number = 0;
    std::size_t found = 0;
    forEachChoice(choices, [&](std::string_view choice) {
        if (choice == value)
            found = number;
        ++number;
    });
    return found;
}

} // namespace tavo
