// What the ledger comes to, and how it is written.
#include "report/ledger.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>

#include "check/formats.h"
#include "reader/run.h"

namespace report
{

namespace
{
using Json = nlohmann::ordered_json;

std::string version()
{
    char text[16];
    std::snprintf(text, sizeof text, "%5.3f", morvex_version);
    return text;
}

std::string dump(const Json& value)
{
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// An element a line.
template <class Range, class Make>
void write_array(std::ostream& stream, const Range& range, const Make& make)
{
    bool first = true;
    stream << "[";
    for (const auto& element : range) {
        stream << (first ? "\n" : ",\n") << dump(make(element));
        first = false;
    }
    stream << (first ? "]" : "\n]");
}

std::string_view word(SetKind kind)
{
    constexpr std::string_view words[] = {"node", "part", "segment", "shell", "solid", "other"};
    return words[static_cast<std::size_t>(kind)];
}

void write_count(std::ostream& stream, const Count& count)
{
    const Json head = {{"nodes", count.nodes},
                       {"solids", count.solids},
                       {"shells", count.shells},
                       {"particles", count.particles},
                       {"box", count.box.empty ? Json() : Json{{"low", count.box.low}, {"high", count.box.high}}},
                       {"smallest_edge", count.smallest_edge},
                       {"smallest_edge_element", count.smallest_edge_element}};
    std::string text = dump(head);
    text.pop_back();  // the object goes on
    stream << text << ",\n\"parts\": ";
    write_array(stream, count.parts, [](const PartCount& part) -> Json {
        return {{"id", part.id},
                {"title", part.title},
                {"section", part.section},
                {"material", part.material},
                {"solids", part.solids},
                {"shells", part.shells},
                {"particles", part.particles},
                {"volume", part.volume},
                {"mass", part.mass},
                {"centre", part.centre},
                {"has_density", part.has_density}};
    });
    stream << ",\n\"sets\": ";
    write_array(stream, count.sets, [](const SetCount& set) -> Json {
        return {{"kind", word(set.kind)}, {"id", set.id}, {"title", set.title}, {"members", set.members}};
    });
    stream << ",\n\"worst\": ";
    write_array(stream, count.worst, [](const BadElement& bad) -> Json {
        return {{"id", bad.id}, {"part", bad.part}, {"shape", bad.shape}};
    });
    stream << "}";
}

Json json_of(const check::Finding& found)
{
    return {{"file", found.place.file},
            {"line", found.place.line},
            {"column", found.place.column},
            {"end_column", found.place.end_column},
            {"severity", check::word(found.severity)},
            {"code", found.code},
            {"keyword", found.keyword},
            {"field", found.field},
            {"text", found.text},
            {"read_as", found.read_as},
            {"message", found.message},
            {"others", found.others}};
}

Json json_of(const Block& block)
{
    Json output = Json::array(), unused = Json::array(), replaced = Json::array();
    for (const Lines& lines : block.output)
        output.push_back({{"file", lines.file}, {"first", lines.first}, {"last", lines.last}});
    for (const Unused& field : block.unused) unused.push_back({{"field", field.field}, {"value", field.value}});
    for (const Replaced& field : block.replaced)
        replaced.push_back({{"field", field.field}, {"value", field.value}, {"by", field.by}});
    return {{"file", block.file},
            {"line", block.line},
            {"last_line", block.last_line},
            {"keyword", block.keyword},
            {"procedure", block.procedure},
            {"outcome", words(block.outcome)},
            {"prepared_line", block.prepared_line},
            {"prepared_last_line", block.prepared_last_line},
            {"output", output},
            {"unused", unused},
            {"replaced", replaced},
            {"findings", block.findings}};
}

constexpr Outcome outcomes[] = {Outcome::converted, Outcome::skipped, Outcome::passed_over, Outcome::not_known,
                                Outcome::after_the_end};

std::string_view word(Verdict verdict)
{
    constexpr std::string_view words[] = {"converted whole", "converted with losses", "not usable"};
    return words[static_cast<std::size_t>(verdict)];
}

Json totals_json(const Ledger& ledger)
{
    const Totals sums = totals(ledger);
    Json json = {{"blocks", sums.blocks}};
    for (const Outcome outcome : outcomes)
        json[std::string(words(outcome))] = sums.by_outcome[static_cast<std::size_t>(outcome)];
    std::size_t found[3] = {};
    for (const check::Finding& finding : ledger.findings)
        found[static_cast<std::size_t>(finding.severity)] += 1 + finding.others;
    json["errors"] = found[static_cast<std::size_t>(deck::Severity::error)];
    json["warnings"] = found[static_cast<std::size_t>(deck::Severity::warning)];
    json["notes"] = found[static_cast<std::size_t>(deck::Severity::note)];
    return json;
}

bool has_file(const Ledger& ledger, std::string_view role)
{
    return std::any_of(ledger.files.begin(), ledger.files.end(), [=](const File& file) { return file.role == role; });
}
}  // namespace

std::vector<std::string> disagreements(const Ledger& ledger)
{
    std::vector<std::string> all = differences(ledger.in, ledger.out, asked_for(ledger.settings));
    all.insert(all.end(), ledger.faults.begin(), ledger.faults.end());
    if (ledger.blocks.empty()) all.emplace_back("the deck has no keyword line");
    if (!has_file(ledger, "main deck")) all.emplace_back("no main deck is written: cardflag is not 1");
    if (!has_file(ledger, "geometry")) all.emplace_back("no mesh is written: geomflag is not 1");
    return all;
}

Verdict verdict(const Ledger& ledger)
{
    if (!disagreements(ledger).empty()) return Verdict::not_usable;
    const auto tells = [](const check::Finding& found) { return found.severity != deck::Severity::note; };
    const bool losses = std::any_of(ledger.findings.begin(), ledger.findings.end(), tells) ||
                        std::any_of(ledger.blocks.begin(), ledger.blocks.end(),
                                    [&](const Block& block) { return is_lost(ledger, block); });
    return losses ? Verdict::with_losses : Verdict::whole;
}

void write_json(std::ostream& stream, const Ledger& ledger)
{
    Json settings = Json::object();
    for (const auto& [name, value] : ledger.settings) settings[name] = value;
    stream << "{\"schema\": 1,\n\"tool\": \"morvex-deck convert\",\n\"version\": " << dump(version())
           << ",\n\"deck\": " << dump(ledger.deck) << ",\n\"prepared\": " << (ledger.prepared ? "true" : "false")
           << ",\n\"verdict\": " << dump(word(verdict(ledger))) << ",\n\"totals\": " << dump(totals_json(ledger))
           << ",\n\"settings\": " << dump(settings) << ",\n\"files\": ";
    write_array(stream, ledger.files, [](const File& file) -> Json {
        return {{"name", file.name}, {"role", file.role}, {"size", file.size}, {"sha256", file.sha256}};
    });
    stream << ",\n\"in\": ";
    write_count(stream, ledger.in);
    stream << ",\n\"out\": ";
    write_count(stream, ledger.out);
    stream << ",\n\"differences\": " << dump(disagreements(ledger))
           << ",\n\"findings_of_converted\": " << ledger.findings_of_converted << ",\n\"findings\": ";
    write_array(stream, ledger.findings, [](const check::Finding& found) { return json_of(found); });
    stream << ",\n\"blocks\": ";
    write_array(stream, ledger.blocks, [](const Block& block) { return json_of(block); });
    stream << "}\n";
}

}  // namespace report
