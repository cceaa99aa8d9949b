#include "report/page_data.h"

#include <algorithm>
#include <array>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

#include "check/formats.h"
#include "deck/fault.h"
#include "report/by_hand.h"
#include "report/curves.h"
#include "report/excerpts.h"
#include "report/page_text.h"

namespace report
{
namespace
{
using Json = nlohmann::ordered_json;

// ---- the ledger ----------------------------------------------------------------------------------------------------

// Texts that many rows share: a row has the number.
class Names
{
public:
    std::size_t number(const std::string& name)
    {
        const auto [place, added] = numbers_.try_emplace(name, list_.size());
        if (added) {
            list_.push_back(name);
            bytes_ += name.size() + 3;
        }
        return place->second;
    }
    [[nodiscard]] std::size_t bytes() const { return bytes_; }
    [[nodiscard]] const std::vector<std::string>& list() const { return list_; }

private:
    std::map<std::string, std::size_t> numbers_;
    std::vector<std::string> list_;
    std::size_t bytes_ = 0;
};

struct SharedNames {
    Names files;
    Names keywords;
    Names procedures;
    [[nodiscard]] std::size_t bytes() const { return files.bytes() + keywords.bytes() + procedures.bytes(); }
};

// A list's first elements.
template <class List, class Make>
Json first_of(const List& list, std::size_t most, const Make& make)
{
    Json some = Json::array();
    for (std::size_t i = 0; i < std::min(list.size(), most); ++i) some.push_back(make(list[i]));
    return some;
}

bool lost_something(const Block& block)
{
    return block.outcome != Outcome::converted || !block.findings.empty() || !block.unused.empty() ||
           !block.replaced.empty();
}

// A row of a table, in the order in which the page's script takes it apart.
Json block_row(std::size_t number, const Ledger& ledger, SharedNames& names)
{
    constexpr std::size_t most = 40;
    const Block& block = ledger.blocks[number];
    return Json::array({number, names.files.number(block.file), block.line, block.last_line,
                        names.keywords.number(block.keyword), names.procedures.number(block.procedure),
                        static_cast<int>(block.outcome),
                        first_of(block.output, most,
                                 [&](const Lines& lines) {
                                     return Json::array({names.files.number(lines.file), lines.first, lines.last});
                                 }),
                        first_of(block.unused, most,
                                 [](const Unused& field) {
                                     return Json::array({field.field, field.value});
                                 }),
                        first_of(block.replaced, most,
                                 [](const Replaced& field) {
                                     return Json::array({field.field, field.value, field.by});
                                 }),
                        first_of(block.findings, most, [](std::size_t finding) { return Json(finding); }),
                        block.prepared_line, block.prepared_last_line, block.unused.size(), block.replaced.size(),
                        block.findings.size(), is_lost(ledger, block)});
}

Json finding_row(std::size_t number, const check::Finding& found)
{
    return Json::array({number, static_cast<int>(found.severity), found.code, found.place.file, found.place.line,
                        found.place.column, found.keyword, found.field, found.text, found.read_as, found.message,
                        found.others});
}

// A row's text and what it costs.
struct RowText {
    std::string text;
    std::size_t bytes = 0;
};

// Which of many rows fit: those that matter first, then the others, each in their order.
template <class Row, class Matters>
std::vector<std::pair<std::size_t, std::string>> rows_that_fit(std::size_t count, std::size_t room, const Row& row,
                                                               const Matters& matters)
{
    std::vector<std::pair<std::size_t, std::string>> rows;
    for (const bool important : {true, false})
        for (std::size_t i = 0; i < count; ++i) {
            if (matters(i) != important) continue;
            auto [text, bytes] = row(i);
            if (bytes > room) break;
            room -= bytes;
            rows.emplace_back(i, std::move(text));
        }
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    return rows;
}

void write_rows(std::ostream& stream, std::string_view name,
                const std::vector<std::pair<std::size_t, std::string>>& rows)
{
    stream << ",\n\"" << name << "\": [";
    bool first = true;
    for (const auto& [number, text] : rows) {
        stream << (first ? "\n" : ",\n") << text;
        first = false;
    }
    stream << "]";
}

std::string_view word(SetKind kind)
{
    constexpr std::string_view words_of_kinds[] = {"node", "part", "segment", "shell", "solid", "other"};
    return words_of_kinds[static_cast<std::size_t>(kind)];
}

Json json_of(const PartCount& part)
{
    return {
        {"id", part.id},         {"title", part.title},   {"section", part.section},        {"material", part.material},
        {"solids", part.solids}, {"shells", part.shells}, {"particles", part.particles},    {"volume", part.volume},
        {"mass", part.mass},     {"centre", part.centre}, {"has_density", part.has_density}};
}

Json json_of(const SetCount& set)
{
    return {{"kind", word(set.kind)}, {"id", set.id}, {"title", set.title}, {"members", set.members}};
}

Json json_of(const BadElement& element)
{
    return {{"id", element.id}, {"part", element.part}, {"shape", element.shape}};
}

Json json_of(const File& file)
{
    return {{"name", file.name}, {"role", file.role}, {"size", file.size}, {"sha256", file.sha256}};
}

Json json_of(const Count& count, std::size_t most)
{
    const auto json = [](const auto& element) { return json_of(element); };
    return {{"nodes", count.nodes},
            {"solids", count.solids},
            {"shells", count.shells},
            {"particles", count.particles},
            {"box", count.box.empty ? Json() : Json::array({count.box.low, count.box.high})},
            {"smallest_edge", count.smallest_edge},
            {"smallest_edge_element", count.smallest_edge_element},
            {"all_parts", count.parts.size()},
            {"all_sets", count.sets.size()},
            {"parts", first_of(count.parts, most, json)},
            {"sets", first_of(count.sets, most, json)},
            {"worst", first_of(count.worst, most, json)}};
}

Json head_of(const Ledger& ledger, const PageLimits& limits)
{
    Json settings = Json::array();
    for (const auto& [name, value] : ledger.settings) settings.push_back(Json::array({name, value}));
    Json codes = Json::object();
    for (const check::Finding& found : ledger.findings)
        if (const check::Code* const code = check::find_code(found.code); code != nullptr)
            codes[found.code] = code->title;
    std::array<std::size_t, 3> by_severity{};
    for (const check::Finding& found : ledger.findings)
        by_severity[static_cast<std::size_t>(found.severity)] += 1 + found.others;
    const Totals sums = totals(ledger);
    const Asked asked = asked_for(ledger.settings);
    const std::vector<std::string> differing = disagreements(ledger);
    return {{"deck", ledger.deck},
            {"codes", std::move(codes)},
            {"prepared", ledger.prepared},
            {"converted", converted_deck(ledger)},
            {"main_deck", main_deck(ledger)},
            {"verdict", static_cast<int>(verdict(ledger))},
            {"settings", std::move(settings)},
            {"files", first_of(ledger.files, limits.files, [](const File& file) { return json_of(file); })},
            {"all_files", ledger.files.size()},
            {"all_blocks", sums.blocks},
            {"by_outcome", sums.by_outcome},
            {"by_severity", by_severity},
            {"all_findings", ledger.findings.size()},
            {"findings_of_converted", ledger.findings_of_converted},
            {"differences", first_of(differing, 200, [](const std::string& sentence) { return Json(sentence); })},
            {"all_differences", differing.size()},
            {"asked", {{"main_deck", asked.main_deck}, {"geometry", asked.geometry}, {"sets", asked.sets}}},
            {"in", json_of(ledger.in, limits.parts)},
            {"out", json_of(ledger.out, limits.parts)}};
}

// ---- details -------------------------------------------------------------------------------------------------------

constexpr std::size_t first_lines = 12;
constexpr std::size_t last_lines = 2;

// The lines at both ends of a range.
void want_ends(std::size_t first, std::size_t last, std::size_t owner, std::vector<WantedLines>& wanted)
{
    if (first == 0 || last < first) return;
    const std::size_t head_end = std::min(last, first + first_lines - 1);
    wanted.push_back({first, head_end, owner});
    if (head_end < last) wanted.push_back({std::max(head_end + 1, last - last_lines + 1), last, owner});
}

std::size_t lines_shown(std::size_t first, std::size_t last)
{
    return first == 0 || last < first ? 0 : std::min(last - first + 1, first_lines + last_lines);
}

// The blocks whose cards and lines are shown, by what they will need: those that lost something first.
std::vector<std::size_t> blocks_with_details(const Ledger& ledger, std::size_t room)
{
    constexpr std::size_t usual_line = 90;
    std::vector<std::size_t> shown;
    for (const bool important : {true, false})
        for (std::size_t i = 0; i < ledger.blocks.size(); ++i) {
            const Block& block = ledger.blocks[i];
            if (lost_something(block) != important) continue;
            std::size_t lines = lines_shown(block.prepared_line, block.prepared_last_line);
            for (const Lines& range : block.output) lines += lines_shown(range.first, range.last);
            if (lines * usual_line > room) continue;
            room -= lines * usual_line;
            shown.push_back(i);
        }
    std::sort(shown.begin(), shown.end());
    return shown;
}

// Cards or lines of blocks: of each block a list of runs, each the number of its first line and its lines.
class Excerpts
{
public:
    Excerpts(const std::filesystem::path& folder, std::size_t& room) : folder_(folder), room_(room) {}

    void read(const std::string& file, const std::vector<WantedLines>& wanted)
    {
        try {
            read_lines(folder_ / file, wanted, [&](const WantedLines& range, std::size_t line, std::string text) {
                take(file, range.owner, line, std::move(text));
            });
        } catch (const deck::Fault&) {
            unreadable_.insert(file);
        }
    }

    [[nodiscard]] const std::map<std::size_t, Json>& of_blocks() const { return of_blocks_; }
    [[nodiscard]] const std::set<std::string>& unreadable() const { return unreadable_; }

private:
    // Of a block: [[file, first line, [text, ...]], ...].
    void take(const std::string& file, std::size_t block, std::size_t line, std::string text)
    {
        const std::size_t bytes = in_script(text).size() + 1;
        if (bytes > room_) return;
        room_ -= bytes;
        Json& runs = of_blocks_.try_emplace(block, Json::array()).first->second;
        const bool goes_on = !runs.empty() && runs.back()[0] == file &&
                             runs.back()[1].get<std::size_t>() + runs.back()[2].size() == line;
        if (!goes_on) runs.push_back(Json::array({file, line, Json::array()}));
        runs.back()[2].push_back(std::move(text));
    }

    const std::filesystem::path& folder_;
    std::size_t& room_;
    std::map<std::size_t, Json> of_blocks_;
    std::set<std::string> unreadable_;
};

void write_excerpts(std::ostream& stream, std::string_view name, const std::map<std::size_t, Json>& of_blocks)
{
    stream << "\"" << name << "\": {";
    bool first = true;
    for (const auto& [block, runs] : of_blocks) {
        stream << (first ? "\n\"" : ",\n\"") << block << "\": " << in_script(runs);
        first = false;
    }
    stream << "},\n";
}

Json json_of(const Curve& curve)
{
    return {{"block", curve.block}, {"id", curve.id},       {"title", curve.title},
            {"x", curve.abscissas}, {"y", curve.ordinates}, {"points", curve.points}};
}

Json json_of(const ByHand& thing)
{
    Json written = Json::array();
    for (const auto& [line, text] : thing.written) written.push_back(Json::array({line, text}));
    return {{"topic", thing.topic},
            {"text", thing.text},
            {"findings", thing.findings},
            {"blocks", thing.blocks},
            {"all_blocks", thing.all_blocks},
            {"written", std::move(written)},
            {"written_left_out", thing.written_left_out}};
}
}  // namespace

PageLimits limits_within(std::size_t bytes)
{
    constexpr std::size_t of_a_point = 40;
    constexpr std::size_t of_parts = 700;  // a part and a set, of both sides
    constexpr std::size_t of_a_file = 200;
    PageLimits limits;
    limits.blocks = std::min(limits.blocks, bytes / 100 * 35);
    limits.findings = std::min(limits.findings, bytes / 100 * 20);
    limits.details = std::min(limits.details, bytes / 100 * 25);
    limits.curve_points = std::min(limits.curve_points, bytes / 100 * 8 / of_a_point);
    limits.parts = std::min(limits.parts, bytes / 100 * 10 / of_parts);
    limits.files = std::min(limits.files, bytes / 100 * 2 / of_a_file);
    return limits;
}

void write_ledger_data(std::ostream& stream, const Ledger& ledger, const PageLimits& limits)
{
    constexpr std::size_t between = 2;  // a comma and a newline
    SharedNames names;
    const auto blocks = rows_that_fit(
        ledger.blocks.size(), limits.blocks,
        [&](std::size_t i) -> RowText {
            const std::size_t before = names.bytes();
            std::string text = in_script(block_row(i, ledger, names));
            const std::size_t bytes = text.size() + between + names.bytes() - before;
            return {std::move(text), bytes};
        },
        [&](std::size_t i) { return lost_something(ledger.blocks[i]); });
    const auto findings = rows_that_fit(
        ledger.findings.size(), limits.findings,
        [&](std::size_t i) -> RowText {
            std::string text = in_script(finding_row(i, ledger.findings[i]));
            const std::size_t bytes = text.size() + between;
            return {std::move(text), bytes};
        },
        [&](std::size_t i) { return ledger.findings[i].severity == deck::Severity::error; });

    std::string head = in_script(head_of(ledger, limits));
    head.pop_back();  // the object goes on
    stream << head << ",\n\"names\": "
           << in_script({{"files", names.files.list()},
                         {"keywords", names.keywords.list()},
                         {"procedures", names.procedures.list()}});
    write_rows(stream, "blocks", blocks);
    write_rows(stream, "findings", findings);
    stream << "}";
}

void write_details_data(std::ostream& stream, const Ledger& ledger, const std::filesystem::path& folder,
                        const PageLimits& limits)
{
    std::size_t room = limits.details;
    std::vector<WantedLines> cards;
    std::map<std::string, std::vector<WantedLines>> lines;
    for (const std::size_t i : blocks_with_details(ledger, room)) {
        const Block& block = ledger.blocks[i];
        want_ends(block.prepared_line, block.prepared_last_line, i, cards);
        for (const Lines& range : block.output) want_ends(range.first, range.last, i, lines[range.file]);
    }
    Excerpts from_deck(folder, room);
    if (!cards.empty()) from_deck.read(converted_deck(ledger), cards);
    Excerpts from_outputs(folder, room);
    for (const auto& [file, wanted] : lines) from_outputs.read(file, wanted);

    std::set<std::string> unreadable = from_outputs.unreadable();
    unreadable.insert(from_deck.unreadable().begin(), from_deck.unreadable().end());
    Json curves = Json::array();
    Json list = Json::array();
    try {
        for (const Curve& curve : read_curves(ledger, folder, limits.curve_points)) curves.push_back(json_of(curve));
    } catch (const deck::Fault&) {
        unreadable.insert(converted_deck(ledger));
    }
    try {
        for (const ByHand& thing : by_hand(ledger, folder)) list.push_back(json_of(thing));
    } catch (const deck::Fault&) {
        unreadable.insert(main_deck(ledger));
    }
    stream << "{";
    write_excerpts(stream, "cards", from_deck.of_blocks());
    write_excerpts(stream, "lines", from_outputs.of_blocks());
    stream << "\"curves\": " << in_script(curves) << ",\n\"by_hand\": " << in_script(list)
           << ",\n\"unreadable\": " << in_script(unreadable) << "}";
}
}  // namespace report
