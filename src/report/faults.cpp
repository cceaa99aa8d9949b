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

constexpr std::string_view no_blocks = "*KEYWORD\n*END\n";
constexpr std::string_view one_contact = "*CONTACT_SINGLE_SURFACE\n\n\n\n*END\n";

// A run with the ledger's settings.
FixedOutputs convert_text(std::string_view deck, const Ledger& ledger, const std::string& name)
{
    reset_run();
    ControlFile settings;
    for (const auto& [flag, value] : ledger.settings) set_flag(settings, flag, value);
    take_settings(settings);
    set_file_names(name);
    deck_source.use(deck);
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

// The lines of a file that no block has made. Those that a conversion may lack leave open where they are missing, so
// that all ways to go on are followed at once.
class Skeleton
{
public:
    explicit Skeleton(std::string_view text)
    {
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            lines_.push_back({std::string(text.substr(begin, end - begin)), {}});
            begin = end + 1;
        }
    }

    // The line that stands so far below the first with the label.
    void may_be_missing(std::string_view label, std::size_t below)
    {
        const std::size_t line = find(label) + below;
        if (line < lines_.size()) lines_[line].skips.push_back(line + 1);
    }

    // The options that hold without a contact: what does not stand behind one, either.
    void take_contacts_out(const std::string& with_contact)
    {
        const Skeleton other(with_contact);
        const std::size_t begin = find("! Contact Section") + 3;  // behind the banner and its empty line
        std::size_t end = find("! Boundary and Initial"), other_end = other.find("! Boundary and Initial");
        if (end == lines_.size()) {
            end = find("! Part Descriptions");
            other_end = other.find("! Part Descriptions");
        }
        while (end > begin && other_end > 0 && lines_[end - 1].text == other.lines_[other_end - 1].text) {
            --end;
            --other_end;
        }
        if (begin < end)
            lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(begin),
                         lines_.begin() + static_cast<std::ptrdiff_t>(end));
    }

    // The box outside of which particles are deactivated, as a whole, its first empty line included. Where the number
    // of particles has been written over that, it stands in place of what follows.
    void box_may_be_missing()
    {
        const std::size_t box = find(" SPH deactivation:"), velocity = find(" SPH deactivation velocity:");
        if (velocity == lines_.size()) return;
        if (box < velocity) {
            lines_[box - 1].skips.push_back(velocity - 1);
            return;
        }
        may_be_missing(particle_count_label, 2);
        if (const std::size_t count = find(particle_count_label); count < velocity)
            lines_[count].skips.push_back(velocity + 1);
    }

    // Begins at the first line: nothing can be left out after that.
    void start() { add(0, at_); }

    // Goes on to behind the line; false when it does not stand there.
    bool take(std::string_view line)
    {
        std::vector<std::size_t> behind;
        for (const std::size_t at : at_)
            if (at < lines_.size() && is_same(lines_[at].text, line)) add(at + 1, behind);
        if (behind.empty()) return false;
        at_ = std::move(behind);
        return true;
    }

    // True when nothing that must be there is left.
    [[nodiscard]] bool is_whole() const { return std::find(at_.begin(), at_.end(), lines_.size()) != at_.end(); }

private:
    struct Line {
        std::string text;
        std::vector<std::size_t> skips;  // where it can go on without it
    };

    // Adds a place, and all that can be reached from there by leaving lines out.
    void add(std::size_t place, std::vector<std::size_t>& places) const
    {
        if (std::find(places.begin(), places.end(), place) != places.end()) return;
        places.push_back(place);
        if (place == lines_.size()) return;
        for (const std::size_t next : lines_[place].skips) add(next, places);
    }

    // The day of the run may change while it runs.
    static bool is_same(std::string_view one, std::string_view other)
    {
        constexpr std::string_view version = "!  Version ";
        return one == other || (one.starts_with(version) && other.starts_with(version));
    }

    [[nodiscard]] std::size_t find(std::string_view label) const
    {
        const auto found =
            std::find_if(lines_.begin(), lines_.end(), [=](const Line& line) { return line.text.starts_with(label); });
        return static_cast<std::size_t>(found - lines_.begin());
    }

    std::vector<Line> lines_;
    std::vector<std::size_t> at_;  // where the next line may stand
};

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
    void check_output(const File& file, Skeleton skeleton);
    void take_setting(std::string_view line, std::size_t number, std::vector<std::size_t>& owned);
    [[nodiscard]] Skeleton skeleton_of(const std::string& text, const std::string& with_contact) const;
    [[nodiscard]] bool ran(std::string_view procedure) const;
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

std::vector<std::pair<std::size_t, std::string>> keyword_lines(const fs::path& file, deck::LineEnds ends)
{
    std::vector<std::pair<std::size_t, std::string>> found;
    deck::LineFile lines(file, ends);
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
    const deck::LineEnds ends = ledger_->prepared ? deck::LineEnds::as_meant : deck::LineEnds::newlines;
    for (const auto& [line, keyword] : keyword_lines(path_of(file), ends)) {
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
    for (const auto& [line, keyword] : keyword_lines(folder_ / converted_name(), deck::LineEnds::newlines)) {
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

// Lines of settings, and that of the number of particles.
bool may_be_shared(std::string_view line)
{
    return line.starts_with(particle_count_label) ||
           std::any_of(setting_lines().begin(), setting_lines().end(),
                       [=](const SettingLine& setting) { return line.starts_with(setting.label); });
}

bool has_procedure(const Block& block, std::string_view procedure)
{
    for (std::size_t at = block.procedure.find(procedure); at != std::string::npos;
         at = block.procedure.find(procedure, at + 1)) {
        const std::size_t end = at + procedure.size();
        if ((at == 0 || block.procedure[at - 1] == ' ') &&
            (end == block.procedure.size() || block.procedure[end] == ','))
            return true;
    }
    return false;
}

void Auditor::check_claims(const File& file, const std::vector<Claim>& claims, std::size_t lines)
{
    for (const Claim& claim : claims)
        if (claim.first == 0 || claim.last < claim.first || claim.last > lines)
            tell(name_of(*claim.block) + " has lines that " + file.name + " has not");
}

// The lines that stand in every conversion, and which of them may be missing in this one.
Skeleton Auditor::skeleton_of(const std::string& text, const std::string& with_contact) const
{
    Skeleton skeleton(text);
    if (ran("contact")) skeleton.take_contacts_out(with_contact);
    for (const SettingLine& line : setting_lines())
        if (line.only_if == nullptr && ran(line.procedure)) skeleton.may_be_missing(line.label, line.below);
    if (ran("esph") || ran("csph")) skeleton.may_be_missing(particle_count_label, 0);
    if (ran("csph")) skeleton.box_may_be_missing();
    skeleton.start();
    return skeleton;
}

bool Auditor::ran(std::string_view procedure) const
{
    return std::any_of(ledger_->blocks.begin(), ledger_->blocks.end(),
                       [=](const Block& block) { return has_procedure(block, procedure); });
}

// The line as of settings: those below it, and itself, that must be a block's.
void Auditor::take_setting(std::string_view line, std::size_t number, std::vector<std::size_t>& owned)
{
    for (const SettingLine& setting : setting_lines())
        if (line.starts_with(setting.label) && setting.only_if == nullptr && ran(setting.procedure))
            owned.push_back(number + setting.below);
}

void Auditor::check_output(const File& file, Skeleton skeleton)
{
    const std::vector<Claim> claims = claims_of(file);
    std::ifstream stream(folder_ / file.name, std::ios::binary);
    std::vector<std::size_t> owned;
    auto next = claims.begin();
    Claim cover{};  // the claim that reaches farthest
    std::size_t number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        for (; next != claims.end() && next->first == number; ++next) {
            if (cover.last >= number && !may_be_shared(line))
                tell(name_of(*next->block) + " and " + name_of(*cover.block) + " have the same line " +
                     std::to_string(number) + " of " + file.name);
            if (next->last > cover.last) cover = *next;
        }
        if (file.role == "main deck" && cover.last < number) take_setting(line, number, owned);
        const bool is_owned = std::find(owned.begin(), owned.end(), number) != owned.end();
        if (cover.last < number && (is_owned || !skeleton.take(line)))
            tell("line " + std::to_string(number) + " of " + file.name + " belongs to no block: " + line);
    }
    if (!skeleton.is_whole()) tell("a block has lines of " + file.name + " that stand in every conversion");
    check_claims(file, claims, number);
}

void Auditor::check_outputs()
{
    const FixedOutputs fixed = convert_text(no_blocks, *ledger_, converted_name());
    const FixedOutputs contact = convert_text(one_contact, *ledger_, converted_name());
    for (const File& file : ledger_->files)
        if (is_output(file.role)) check_output(file, skeleton_of(fixed.of(file.role), contact.of(file.role)));
}
}  // namespace

std::vector<std::string> faults(const Ledger& ledger, const fs::path& folder, const fs::path& deck, bool with_sums)
{
    return Auditor(ledger, folder, deck).run(with_sums);
}

}  // namespace report
