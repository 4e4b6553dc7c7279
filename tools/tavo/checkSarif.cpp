#include "Finding.h"
#include "JsonWriter.h"
#include "version.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace tavo {

namespace {

constexpr const char* levels[] = {"error", "warning", "note"};

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// An identifier for messages that differ only in names and numbers: their other words.
std::string ruleOf(std::string_view text)
{
    constexpr std::size_t most = 80;
    text = text.substr(0, text.find(" ("));
    for (const std::string_view count : {" times, first", ": '"})
        text = text.substr(0, text.find(count));
    std::string rule;
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isApostrophe = text[i] == '\'' && i > 0 && i + 1 < text.size() &&
                                  isLetter(text[i - 1]) && isLetter(text[i + 1]);
        if (isApostrophe)
            continue;
        if (text[i] == '\'' || text[i] == '"')
            isQuoted = !isQuoted;
        else if (isLetter(text[i]) && !isQuoted)
            rule.push_back(static_cast<char>(text[i] | 0x20));
        else if (!rule.empty() && rule.back() != '-')
            rule.push_back('-');
    }
    rule.resize(std::min(rule.size(), most));
    rule.erase(rule.find_last_not_of('-') + 1);
    return rule.empty() ? "message" : rule;
}

/// The path as a URI, or as a reference relative to the folder of the program.
std::string uriOf(const std::string& file)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string uri = file.starts_with('/') ? "file://" : "";
    for (const char c : file) {
        const auto byte = static_cast<unsigned char>(c);
        if (isLetter(c) || isDigit(c) ||
            std::string_view("-._~/").find(c) != std::string_view::npos) {
            uri.push_back(c);
        } else {
            uri.push_back('%');
            uri.push_back(digits[byte >> 4U]);
            uri.push_back(digits[byte & 0xFU]);
        }
    }
    return uri;
}

class SarifWriter
{
public:
    std::string write(const std::vector<CheckReport>& reports);

private:
    void collectRules(const std::vector<CheckReport>& reports);
    void putTool();
    void putInvocation(const std::vector<CheckReport>& reports);
    void putResult(const Finding& finding);
    void putMessage(const char* key, const std::string& text)
    {
        json_.key(key);
        json_.beginObject();
        json_.member("text", text.c_str());
        json_.endObject();
    }

    JsonWriter json_;
    std::map<std::string, std::uint64_t> rules_; ///< With their places in the list.
};

void SarifWriter::collectRules(const std::vector<CheckReport>& reports)
{
    for (const CheckReport& report : reports)
        for (const Finding& finding : report.findings)
            if (!finding.file.empty())
                rules_.emplace(ruleOf(finding.text), 0);
    std::uint64_t number = 0;
    for (auto& rule : rules_)
        rule.second = number++;
}

void SarifWriter::putTool()
{
    const std::string_view line = versionLine;
    const std::size_t begin = line.find(' ') + 1;
    const std::string version(line.substr(begin, line.find_first_of(" \n", begin) - begin));
    json_.key("tool");
    json_.beginObject();
    json_.key("driver");
    json_.beginObject();
    json_.member("name", "tavo");
    json_.member("version", version.c_str());
    json_.key("rules");
    json_.beginArray();
    for (const auto& rule : rules_) {
        json_.beginObject();
        json_.member("id", rule.first.c_str());
        json_.endObject();
    }
    json_.endArray();
    json_.endObject();
    json_.endObject();
}

/// What the program says about itself, a file that can't be opened for example.
void SarifWriter::putInvocation(const std::vector<CheckReport>& reports)
{
    ExitCode exitCode = ExitCode::AllWell;
    for (const CheckReport& report : reports)
        exitCode = worse(exitCode, report.exitCode);
    json_.key("invocations");
    json_.beginArray();
    json_.beginObject();
    json_.member("executionSuccessful", exitCode <= ExitCode::DescriptionFailed);
    json_.member("exitCode", static_cast<std::int64_t>(exitCode));
    json_.key("toolExecutionNotifications");
    json_.beginArray();
    for (const CheckReport& report : reports)
        for (const Finding& finding : report.findings) {
            if (!finding.file.empty())
                continue;
            json_.beginObject();
            json_.member("level", levels[static_cast<int>(finding.severity)]);
            putMessage("message", finding.text);
            json_.endObject();
        }
    json_.endArray();
    json_.endObject();
    json_.endArray();
}

void SarifWriter::putResult(const Finding& finding)
{
    const auto rule = rules_.find(ruleOf(finding.text));
    json_.lineBreak();
    json_.beginObject();
    json_.member("ruleId", rule->first.c_str());
    json_.member("ruleIndex", rule->second);
    json_.member("level", levels[static_cast<int>(finding.severity)]);
    putMessage("message",
               finding.text + (finding.hint.empty() ? "" : " (hint: " + finding.hint + ")"));
    json_.key("locations");
    json_.beginArray();
    json_.beginObject();
    json_.key("physicalLocation");
    json_.beginObject();
    json_.key("artifactLocation");
    json_.beginObject();
    json_.member("uri", uriOf(finding.file).c_str());
    json_.endObject();
    if (finding.line > 0) {
        json_.key("region");
        json_.beginObject();
        json_.member("startLine", static_cast<std::int64_t>(finding.line));
        if (finding.column > 0)
            json_.member("startColumn", std::uint64_t{finding.column});
        json_.endObject();
    }
    json_.endObject();
    json_.endObject();
    json_.endArray();
    json_.endObject();
}

std::string SarifWriter::write(const std::vector<CheckReport>& reports)
{
    collectRules(reports);
    json_.beginObject();
    json_.member("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
    json_.member("version", "2.1.0");
    json_.key("runs");
    json_.beginArray();
    json_.beginObject();
    putTool();
    putInvocation(reports);
    json_.member("columnKind", "unicodeCodePoints");
    json_.key("results");
    json_.beginArray();
    for (const CheckReport& report : reports)
        for (const Finding& finding : report.findings)
            if (!finding.file.empty())
                putResult(finding);
    json_.endArray();
    json_.endObject();
    json_.endArray();
    json_.endObject();
    return std::string(json_.json()) + "\n";
}

} // namespace

std::string checkSarif(const std::vector<CheckReport>& reports)
{
    return SarifWriter().write(reports);
}

} // namespace tavo
