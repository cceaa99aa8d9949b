// A ledger held against the files themselves.
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "deck/fault.h"
#include "deck/keyword_line.h"
#include "deck/line_file.h"
#include "driver/conversion.h"
#include "driver/file_names.h"
#include "reader/control_flags.h"
#include "reader/run.h"
#include "report/make_ledger.h"
#include "report/sha256.h"
#include "report/written_lines.h"

namespace fs = std::filesystem;

namespace report
{

namespace
{
// ---- what every conversion writes ----------------------------------------------------------------------------------

struct FixedOutputs {
    std::string main_deck, geometry, sets, accelerometers;

    [[nodiscard]] const std::string& of(std::string_view role) const
    {
        if (role == "main deck") return main_deck;
        if (role == "geometry") return geometry;
        return role == "sets" ? sets : accelerometers;
    }
};

bool is_output(std::string_view role)
{
    return role == "main deck" || role == "geometry" || role == "sets" || role == "accelerometers";
}

// A run without a single block, with the ledger's settings.
FixedOutputs convert_nothing(const Ledger& ledger, const std::string& name)
{
    reset_run();
    ControlFile settings;
    for (const auto& [flag, value] : ledger.settings) set_flag(settings, flag, value);
    take_settings(settings);
    set_file_names(name);
    deck_source.use("*KEYWORD\n*END\n");
    FixedOutputs outputs;
    std::string copy, log;
    OutputStream unheard;
    unheard.open(static_cast<OutputStream::Sink>(nullptr), nullptr);
    OutputStream* const heard = std::exchange(warnings, &unheard);
    outfile.open(log);
    keyword_of.open(copy);
    if (cardflag == 1) inpfile.open(outputs.main_deck);
    if (geomflag == 1) geomfile.open(outputs.geometry);
    if (setflag == 1) setfile.open(outputs.sets);
    if (accelflag == 1) accelfile.open(outputs.accelerometers);
    begin_conversion();
    convert_deck();
    warnings = heard;
    reset_run();
    return outputs;
}

// ---- the checks ----------------------------------------------------------------------------------------------------

class Auditor
{
public:
    Auditor(const Ledger& ledger, fs::path folder, fs::path deck)
        : ledger_(&ledger), folder_(std::move(folder)), deck_(std::move(deck))
    {
    }

    std::vector<std::string> run(bool with_sums)
    {
        check_files(with_sums);
        check_sources();
        check_converted();
        check_numbers();
        check_outputs();
        return std::move(faults_);
    }

private:
    struct Claim {
        std::size_t first, last;
        const Block* block;
    };

    void tell(std::string fault)
    {
        constexpr std::size_t most = 100;  // one mistake has many consequences
        if (faults_.size() < most) faults_.push_back(std::move(fault));
    }
    static std::string name_of(const Block& block)
    {
        return block.keyword + " of " + block.file + ":" + std::to_string(block.line);
    }

    [[nodiscard]] fs::path path_of(const File& file) const
    {
        if (file.role == "deck") return deck_;
        return file.role == "include file" ? deck_.parent_path() / file.name : folder_ / file.name;
    }
    [[nodiscard]] std::string converted_name() const;

    void check_files(bool with_sums);
    void check_sources();
    void check_source(const File& file, const std::vector<const Block*>& blocks);
    void check_converted();
    void check_numbers();
    void check_outputs();
    void check_output(const File& file, const std::string& fixed);
    std::vector<Claim> claims_of(const File& file);
    void check_claims(const File& file, const std::vector<Claim>& claims, std::size_t lines);

    const Ledger* ledger_;
    fs::path folder_;
    fs::path deck_;
    std::vector<std::string> faults_;
};

std::string Auditor::converted_name() const
{
    for (const File& file : ledger_->files)
        if (file.role == "prepared deck") return file.name;
    return ledger_->deck;
}

void Auditor::check_files(bool with_sums)
{
    for (const File& file : ledger_->files) {
        std::error_code failed;
        const bool same = fs::file_size(path_of(file), failed) == file.size && !failed;
        if (!same || (with_sums && sha256_of_file(path_of(file)) != file.sha256))
            tell("the " + file.role + " " + file.name + " is not what it was");
    }
}

// ---- keyword lines -------------------------------------------------------------------------------------------------

std::vector<std::pair<std::size_t, std::string>> keyword_lines(const fs::path& file)
{
    std::vector<std::pair<std::size_t, std::string>> found;
    deck::LineFile lines(file);
    for (deck::Line line; lines.next(line);)
        if (line.text.starts_with('*')) found.emplace_back(lines.lines_read(), deck::read_keyword_line(line.text).name);
    return found;
}

// Each keyword line of the user's files is there, once; of an include file as often as that is read.
void Auditor::check_sources()
{
    std::map<std::string_view, std::vector<const Block*>> by_file;
    for (const Block& block : ledger_->blocks) by_file[block.file].push_back(&block);
    for (const File& file : ledger_->files) {
        if (file.role != "deck" && file.role != "include file") continue;
        check_source(file, by_file[file.name]);
        by_file.erase(file.name);
    }
    for (const auto& [name, blocks] : by_file)
        if (!blocks.empty()) tell(name_of(*blocks.front()) + " is of a file that the ledger does not have");
}

void Auditor::check_source(const File& file, const std::vector<const Block*>& blocks)
{
    std::map<std::size_t, std::vector<const Block*>> by_line;
    for (const Block* const block : blocks) by_line[block->line].push_back(block);
    std::size_t times = file.role == "deck" ? 1 : 0;
    for (const auto& [line, keyword] : keyword_lines(path_of(file))) {
        const auto found = by_line.find(line);
        const std::size_t count = found == by_line.end() ? 0 : found->second.size();
        if (times == 0) times = count;
        if (count == 0 || count != times)
            tell(keyword + " of " + file.name + ":" + std::to_string(line) + " is in the ledger " +
                 std::to_string(count) + " times");
        if (found == by_line.end()) continue;
        for (const Block* const block : found->second)
            if (block->keyword != keyword || block->last_line < block->line)
                tell(name_of(*block) + " is not what stands there");
        by_line.erase(found);
    }
    for (const auto& [line, strays] : by_line) tell(name_of(*strays.front()) + " begins at no keyword line");
}

// Each keyword line of the converted deck belongs to one block; but for an *END that was put in.
void Auditor::check_converted()
{
    std::vector<Claim> ranges;
    for (const Block& block : ledger_->blocks)
        if (block.prepared_line != 0) ranges.push_back({block.prepared_line, block.prepared_last_line, &block});
    std::sort(ranges.begin(), ranges.end(), [](const Claim& a, const Claim& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < ranges.size(); ++i)
        if (ranges[i].first <= ranges[i - 1].last)
            tell(name_of(*ranges[i - 1].block) + " and " + name_of(*ranges[i].block) +
                 " have the same lines of the converted deck");
    auto range = ranges.begin();
    bool begun = false;
    for (const auto& [line, keyword] : keyword_lines(folder_ / converted_name())) {
        while (range != ranges.end() && range->last < line) {
            if (!begun) tell(name_of(*range->block) + " begins at no keyword line of the converted deck");
            ++range;
            begun = false;
        }
        const bool inside = range != ranges.end() && range->first <= line;
        if (!inside && (!ledger_->prepared || keyword != "*END"))
            tell(keyword + " in line " + std::to_string(line) + " of the converted deck belongs to no block");
        if (inside && !begun && line != range->first)
            tell(name_of(*range->block) + " begins at no keyword line of the converted deck");
        begun = begun || inside;
    }
}

void Auditor::check_numbers()
{
    const Totals sums = totals(*ledger_);
    std::size_t all = 0;
    for (const std::size_t count : sums.by_outcome) all += count;
    if (all != sums.blocks) tell("the outcomes do not add up");
    for (const Block& block : ledger_->blocks) {
        for (const std::size_t finding : block.findings)
            if (finding >= ledger_->findings.size()) tell(name_of(block) + " has a finding that there is not");
        if (block.outcome != Outcome::converted && !block.output.empty())
            tell(name_of(block) + " has lines and is " + std::string(words(block.outcome)));
    }
}

// ---- outputs -------------------------------------------------------------------------------------------------------

std::vector<Auditor::Claim> Auditor::claims_of(const File& file)
{
    std::vector<Claim> claims;
    for (const Block& block : ledger_->blocks)
        for (const Lines& lines : block.output)
            if (lines.file == file.name) claims.push_back({lines.first, lines.last, &block});
    std::sort(claims.begin(), claims.end(),
              [](const Claim& a, const Claim& b) { return std::pair(a.first, a.last) < std::pair(b.first, b.last); });
    return claims;
}

bool is_blast(const Block& block)
{
    return block.keyword.starts_with("*LOAD_BLAST") || block.keyword.starts_with("*LOAD_SEGMENT_SET");
}

// A line of the output, and how often it is claimed; `once` by blocks that share no lines.
void Auditor::check_claims(const File& file, const std::vector<Claim>& claims, std::size_t lines)
{
    for (const Claim& claim : claims)
        if (claim.first == 0 || claim.last < claim.first || claim.last > lines)
            tell(name_of(*claim.block) + " has lines that " + file.name + " has not");
}

// A reader of lines that may be as long as they like.
bool next_line(std::string_view& text, std::string_view& line)
{
    if (text.empty()) return false;
    const std::size_t newline = std::min(text.find('\n'), text.size());
    line = text.substr(0, newline);
    text.remove_prefix(std::min(newline + 1, text.size()));
    return true;
}

// True when the line stands in what is left of the fixed text, which goes on behind it. The day of the run may change.
bool stands_in(std::string_view& fixed, std::string_view line)
{
    constexpr std::string_view version = "!  Version ";
    std::string_view rest = fixed;
    for (std::string_view one; next_line(rest, one);)
        if (one == line || (one.starts_with(version) && line.starts_with(version))) {
            fixed = rest;
            return true;
        }
    return false;
}

void Auditor::check_output(const File& file, const std::string& fixed_text)
{
    const std::vector<Claim> claims = claims_of(file);
    std::ifstream stream(folder_ / file.name, std::ios::binary);
    std::string_view fixed = fixed_text;
    auto next = claims.begin();
    std::size_t covered = 0;  // the last line of the claims that have begun
    const Block* coverer = nullptr;
    std::size_t number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        for (; next != claims.end() && next->first == number; ++next) {
            const bool shared =
                is_shared_line(line) || (coverer != nullptr && is_blast(*coverer) && is_blast(*next->block));
            if (covered >= number && !shared)
                tell(name_of(*next->block) + " and " + name_of(*coverer) + " have the same line " +
                     std::to_string(number) + " of " + file.name);
            if (next->last < covered) continue;
            covered = next->last;
            coverer = next->block;
        }
        if (covered < number && !stands_in(fixed, line))
            tell("line " + std::to_string(number) + " of " + file.name + " belongs to no block: " + line);
    }
    check_claims(file, claims, number);
}

void Auditor::check_outputs()
{
    const FixedOutputs fixed = convert_nothing(*ledger_, converted_name());
    for (const File& file : ledger_->files)
        if (is_output(file.role)) check_output(file, fixed.of(file.role));
}
}  // namespace

std::vector<std::string> faults(const Ledger& ledger, const fs::path& folder, const fs::path& deck, bool with_sums)
{
    return Auditor(ledger, folder, deck).run(with_sums);
}

}  // namespace report
