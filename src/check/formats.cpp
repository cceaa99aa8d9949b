#include "check/formats.h"

#include <map>
#include <nlohmann/json.hpp>
#include <ostream>
#include <tuple>

#include "reader/run.h"

extern const std::string_view findings_page;  // docs/findings.md

namespace check
{
namespace
{
using Json = nlohmann::ordered_json;
using deck::Severity;

constexpr int indentation = 2;

// Texts of decks may hold bytes that are no UTF-8: they are shown as replacement characters.
void write(std::ostream& stream, const Json& json)
{
    stream << json.dump(indentation, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::string version()
{
    char text[16];
    std::snprintf(text, sizeof text, "%5.3f", morvex_version);
    return text;
}

std::string counted(std::size_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count).append(" ").append(count == 1 ? one : many);
}

std::string_view colour_of(Severity severity)
{
    switch (severity) {
    case Severity::error:
        return "\033[1;31m";
    case Severity::warning:
        return "\033[1;35m";
    case Severity::note:
        break;
    }
    return "\033[1;36m";
}

// A path as a relative reference of a URI.
std::string uri(std::string_view path)
{
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : path) {
        if (plain.find(c) != std::string_view::npos) {
            text += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        text += '%';
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

Json sarif_rules()
{
    Json rules = Json::array();
    for (const Code& code : codes())
        rules.push_back({{"id", code.code},
                         {"shortDescription", {{"text", code.title}}},
                         {"fullDescription", {{"text", explanation(code.code)}}},
                         {"defaultConfiguration", {{"level", word(code.severity)}}}});
    return rules;
}

Json sarif_result(const Finding& finding)
{
    Json location = {{"artifactLocation", {{"uri", uri(finding.place.file)}}}};
    if (finding.place.line > 0) {
        Json region = {{"startLine", finding.place.line}};
        if (finding.place.column > 0) region["startColumn"] = finding.place.column;
        if (finding.place.end_column > finding.place.column) region["endColumn"] = finding.place.end_column;
        location["region"] = std::move(region);
    }
    Json result = {{"ruleId", finding.code},
                   {"level", word(finding.severity)},
                   {"message", {{"text", finding.message}}},
                   {"locations", Json::array({{{"physicalLocation", std::move(location)}}})}};
    if (const Code* const code = find_code(finding.code); code != nullptr) result["ruleIndex"] = code - codes().data();
    return result;
}

// Replaces a JSON array's end by hand, so that findings are written one by one.
template <class Range, class Make>
void write_array(std::ostream& stream, const Range& range, const Make& make)
{
    bool first = true;
    stream << "[";
    for (const auto& element : range) {
        stream << (first ? "\n" : ",\n") << make(element).dump(-1, ' ', false, Json::error_handler_t::replace);
        first = false;
    }
    stream << (first ? "]" : "\n]");
}
}  // namespace

std::string_view word(Severity severity)
{
    switch (severity) {
    case Severity::error:
        return "error";
    case Severity::warning:
        return "warning";
    case Severity::note:
        break;
    }
    return "note";
}

std::string text_line(const Finding& finding, std::size_t others, bool colour)
{
    std::string line = deck::in_one_line(finding.place.file);
    if (finding.place.line > 0) line.append(":").append(std::to_string(finding.place.line));
    if (finding.place.line > 0 && finding.place.column > 0)
        line.append(":").append(std::to_string(finding.place.column));
    line.append(": ");
    if (colour) line.append(colour_of(finding.severity));
    line.append(word(finding.severity)).append(":");
    if (colour) line.append("\033[0m");
    line.append(" ").append(deck::in_one_line(finding.message)).append(" [").append(finding.code).append("]");
    if (others > 0) line.append(" (and ").append(std::to_string(others)).append(" more in this block)");
    return line;
}

std::string totals_line(const Result& result)
{
    const Totals sums = totals(result);
    std::string line = counted(sums.errors, "error", "errors");
    line.append(", ").append(counted(sums.warnings, "warning", "warnings"));
    line.append(", ").append(counted(sums.notes, "note", "notes"));
    if (!result.not_checked.empty())
        line.append("; ").append(
            counted(result.not_checked.size(), "kind of block not checked", "kinds of block not checked"));
    return line;
}

void write_text(std::ostream& stream, const Result& result, const TextOptions& options)
{
    using Key = std::tuple<std::size_t, std::string_view, Severity>;  // block, code
    std::map<Key, std::size_t> further;
    if (!options.all)
        for (const Finding& found : result.findings)
            further[{found.block, found.code, found.severity}] += 1 + found.others;
    for (const Finding& found : result.findings) {
        std::size_t others = 0;
        if (!options.all) {
            std::size_t& count = further[{found.block, found.code, found.severity}];
            if (count == 0) continue;  // told with the first of them
            others = count - 1;
            count = 0;
        }
        stream << text_line(found, others, options.colour) << '\n';
    }
    stream << totals_line(result) << '\n';
}

void write_json(std::ostream& stream, const Result& result)
{
    Json settings = Json::object();
    for (const auto& [name, value] : result.settings) settings[name] = value;
    const Json head = {{"schema", 1},
                       {"tool", "morvex-deck check"},
                       {"version", version()},
                       {"deck", result.deck},
                       {"settings", settings}};
    std::string text = head.dump(-1, ' ', false, Json::error_handler_t::replace);
    text.pop_back();  // the object goes on
    stream << text << ",\n\"findings\": ";
    write_array(stream, result.findings, [](const Finding& found) -> Json {
        return {{"file", found.place.file},
                {"line", found.place.line},
                {"column", found.place.column},
                {"end_column", found.place.end_column},
                {"severity", word(found.severity)},
                {"code", found.code},
                {"keyword", found.keyword},
                {"field", found.field},
                {"text", found.text},
                {"read_as", found.read_as},
                {"message", found.message},
                {"mended_by_prepare", found.mended_by_prepare}};
    });
    stream << ",\n\"not_checked\": ";
    write_array(stream, result.not_checked, [](const NotChecked& kind) -> Json {
        return {{"keyword", kind.keyword}, {"count", kind.count}, {"reason", kind.reason}};
    });
    const Totals sums = totals(result);
    const Json counts = {{"errors", sums.errors}, {"warnings", sums.warnings}, {"notes", sums.notes}};
    stream << ",\n\"totals\": " << counts.dump() << "}\n";
}

void write_sarif(std::ostream& stream, const Result& result)
{
    Json results = Json::array();
    for (const Finding& found : result.findings) results.push_back(sarif_result(found));
    Json driver = {{"name", "morvex-deck"}, {"version", version()}, {"rules", sarif_rules()}};
    write(stream,
          {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
           {"version", "2.1.0"},
           {"runs", Json::array({{{"tool", {{"driver", std::move(driver)}}}, {"results", std::move(results)}}})}});
}

std::string_view explanation(std::string_view code)
{
    if (find_code(code) == nullptr) return {};
    const std::string heading = std::string("\n## ").append(code).append(":");
    const std::size_t begin = findings_page.find(heading);
    if (begin == std::string_view::npos) return {};
    const std::size_t end = findings_page.find("\n## ", begin + heading.size());
    std::string_view section = findings_page.substr(begin + 4, end == std::string_view::npos ? end : end - begin - 4);
    while (!section.empty() && section.back() == '\n') section.remove_suffix(1);
    return section;
}
}  // namespace check
