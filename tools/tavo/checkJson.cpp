#include "Finding.h"
#include "JsonWriter.h"

namespace tavo {

namespace {

constexpr const char* severityWords[] = {"error", "warning", "note"};

void putFinding(JsonWriter& json, const Finding& finding)
{
    json.beginObject();
    json.member("severity", severityWords[static_cast<int>(finding.severity)]);
    if (!finding.file.empty())
        json.member("file", finding.file.c_str());
    if (finding.line > 0)
        json.member("line", static_cast<std::int64_t>(finding.line));
    if (finding.column > 0)
        json.member("column", static_cast<std::uint64_t>(finding.column));
    json.member("text", finding.text.c_str());
    if (!finding.hint.empty())
        json.member("hint", finding.hint.c_str());
    json.endObject();
}

void putReport(JsonWriter& json, const CheckReport& report)
{
    json.beginObject();
    json.member("file", report.file.c_str());
    if (report.counts) {
        json.member("interfaces", std::uint64_t{report.counts->interfaces});
        json.member("sources", std::uint64_t{report.counts->sources});
        json.member("measurements", std::uint64_t{report.counts->measurements});
        json.member("left_out", std::uint64_t{report.counts->leftOut});
    }
    json.member("errors", std::uint64_t{report.errors});
    json.member("warnings", std::uint64_t{report.warnings});
    json.key("messages");
    json.beginArray();
    for (const Finding& finding : report.findings) {
        json.lineBreak();
        putFinding(json, finding);
    }
    json.endArray();
    json.endObject();
}

} // namespace

std::string checkJson(const std::vector<CheckReport>& reports)
{
    JsonWriter json;
    std::uint64_t errors = 0;
    std::uint64_t warnings = 0;
    json.beginObject();
    json.key("files");
    json.beginArray();
    for (const CheckReport& report : reports) {
        errors += report.errors;
        warnings += report.warnings;
        putReport(json, report);
    }
    json.endArray();
    json.member("errors", errors);
    json.member("warnings", warnings);
    json.endObject();
    return std::string(json.json()) + "\n";
}

} // namespace tavo
