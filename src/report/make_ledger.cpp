#include "report/make_ledger.h"

#include <algorithm>
#include <future>
#include <set>
#include <string_view>

#include "check/check.h"
#include "check/passes.h"
#include "deck/fault.h"
#include "deck/include.h"
#include "deck/keyword_line.h"
#include "deck/line_file.h"
#include "reader/control_flags.h"
#include "report/sha256.h"
#include "report/written_lines.h"

namespace fs = std::filesystem;

namespace report
{

void Origins::take(const prepare::Origin& origin)
{
    const auto [file, is_new] = numbers_.try_emplace(std::string(origin.file), files_.size());
    if (is_new) files_.emplace_back(origin.file);
    lines_.push_back({origin.block, file->second, origin.line, origin.last_line, std::string(origin.keyword),
                      origin.fate, origin.first_in_output, origin.last_in_output});
}

std::vector<Origins::Line> Origins::lines() const
{
    std::vector<Line> ordered = lines_;
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const Line& one, const Line& other) { return one.block < other.block; });
    return ordered;
}

namespace
{
// ---- the converted deck --------------------------------------------------------------------------------------------

// A keyword line of the converted deck.
struct KeywordAt {
    std::size_t line = 0;
    std::string name;  // upper case, without what stands behind it
    std::string text;  // what the converter keeps of the line
};

struct ConvertedDeck {
    std::vector<KeywordAt> keywords;
    std::size_t lines = 0;
};

// Throws when the account is that of another deck. Without a single pass the account knows no keyword line.
ConvertedDeck read_converted(const fs::path& file, const Account& account)
{
    ConvertedDeck deck;
    deck::LineFile lines(file);
    Position begin = 0;
    const std::vector<Account::Block>& blocks = account.blocks();
    for (deck::Line line; lines.next(line);) {
        if (line.text.starts_with('*')) {
            const bool known = deck.keywords.size() < blocks.size() && blocks[deck.keywords.size()].begin == begin;
            if (!known && !blocks.empty()) throw deck::Fault(file.string() + ": it is not the deck that was converted");
            std::string kept(line.text.substr(0, longest_prefix));
            if (line.carriage_return && kept.size() < longest_prefix) kept += '\r';
            deck.keywords.push_back({lines.lines_read(), deck::read_keyword_line(line.text).name, std::move(kept)});
        }
        begin += line.text.size() + (line.carriage_return ? 1 : 0) + (line.newline ? 1 : 0);
    }
    deck.lines = lines.lines_read();
    if (!blocks.empty() && deck.keywords.size() != blocks.size())
        throw deck::Fault(file.string() + ": it is not the deck that was converted");
    return deck;
}

// ---- what became of a block ----------------------------------------------------------------------------------------

bool frames(std::string_view name)
{
    return name == "*KEYWORD" || name == "*END";
}

bool is_for_preparing(std::string_view name)
{
    const deck::IncludeKind include = deck::include_kind(name);
    return include == deck::IncludeKind::files || include == deck::IncludeKind::path ||
           include == deck::IncludeKind::transform || deck::is_of(name, "*PARAMETER") ||
           deck::is_of(name, "*DEFINE_TRANSFORMATION");
}

// Handlers that read forms for which they have no lines.
bool has_silent_forms(std::string_view procedure)
{
    return procedure == "bspc" || procedure == "bprescribedmotion" || procedure == "loadnode";
}

// Handlers whose values the sections write in lines of their own, if the settings want those.
bool is_collected(std::string_view procedure)
{
    return std::any_of(setting_lines().begin(), setting_lines().end(),
                       [=](const SettingLine& line) { return line.procedure == procedure; });
}

// Tells what became of a keyword line. The flags of the run must be set.
class Judge
{
public:
    Judge(const Account& account, bool prepared) : account_(&account), prepared_(prepared)
    {
        for (const Position end : account.pass_ends()) last_end_ = std::max(last_end_, end);
    }

    Outcome of(BlockNumber number, const KeywordAt& at, const Logged& logged, bool has_lines)
    {
        static const Account::Block none;
        const bool run = number < account_->blocks().size();
        const Account::Block& block = run ? account_->blocks()[number] : none;
        const std::string& name = at.name;
        const bool behind = run && !block.reached && block.begin > last_end_;
        if (behind) return Outcome::after_the_end;
        if (frames(name)) return Outcome::converted;
        if (is_for_preparing(name)) return prepared_ ? Outcome::converted : Outcome::not_known;
        if (deck::is_of(name, "*COMMENT")) return Outcome::passed_over;
        if (block.converted) return of_converted(number, logged, has_lines);
        const check::Expectation& expectation = expectations_.of(at.text);
        switch (expectation.outcome) {
        case check::Outcome::passed_over:
        case check::Outcome::none:
            return Outcome::passed_over;
        case check::Outcome::converted:
            return is_behind_its_passes(block, expectation) ? Outcome::after_the_end : Outcome::skipped;
        case check::Outcome::skipped:
            return Outcome::skipped;
        case check::Outcome::not_known:
            break;
        }
        return Outcome::not_known;
    }

private:
    [[nodiscard]] Outcome of_converted(BlockNumber number, const Logged& logged, bool has_lines) const
    {
        if (has_lines) return Outcome::converted;
        const std::vector<std::string_view>& ran = account_->blocks()[number].procedures;
        const bool silent = std::any_of(ran.begin(), ran.end(), has_silent_forms);
        if (logged.groups > 0 && (logged.refused == logged.groups || silent)) return Outcome::skipped;
        const bool collected = std::any_of(ran.begin(), ran.end(), [&](std::string_view procedure) {
            return is_collected(procedure) && account_->last_of(procedure) == number;
        });
        return collected ? Outcome::passed_over : Outcome::converted;
    }

    // Else the passes have gone by without meeting it: it was taken for a card.
    [[nodiscard]] bool is_behind_its_passes(const Account::Block& block, const check::Expectation& expectation) const
    {
        for (std::size_t pass = 0; pass < account_->pass_ends().size(); ++pass)
            if ((expectation.converted_by >> pass & 1) != 0 && account_->pass_ends()[pass] > block.begin) return false;
        return true;
    }

    const Account* account_;
    bool prepared_;
    Position last_end_ = 0;
    check::Expectations expectations_;
};

// The best of the outcomes of the keyword lines that a block was split into.
Outcome better(Outcome one, Outcome other)
{
    constexpr Outcome order[] = {Outcome::converted, Outcome::skipped, Outcome::not_known, Outcome::passed_over,
                                 Outcome::after_the_end};
    return *std::find_if(std::begin(order), std::end(order),
                         [=](Outcome outcome) { return outcome == one || outcome == other; });
}

bool holds(const Block& block, const deck::Place& place)
{
    return block.file == place.file && block.line <= place.line && place.line <= block.last_line;
}

// ---- the ledger ----------------------------------------------------------------------------------------------------

class Maker
{
public:
    Maker(const Account& account, const Conversion& conversion)
        : account_(&account),
          conversion_(&conversion),
          deck_(read_converted(conversion.folder / conversion.name, account)),
          logged_(logged_of(conversion.folder / debug_file_name, account)),
          lines_(account.blocks().size())
    {
        logged_.resize(deck_.keywords.size());
        lines_.resize(deck_.keywords.size());
    }

    Ledger make();

private:
    void collect_lines();
    void blocks_of_origins();
    void blocks_of_deck();
    void fill_blocks();
    void fill(Block& block, Judge& judge);
    void add_lines(Block& block, BlockNumber number);
    void add_findings();
    void add_not_carried();
    [[nodiscard]] std::size_t index_of(std::vector<std::size_t>::const_iterator number) const
    {
        return static_cast<std::size_t>(number - numbers_.begin());
    }
    [[nodiscard]] std::vector<File> files_without_sums() const;
    [[nodiscard]] fs::path path_of(const File& file) const;

    const Account* account_;
    const Conversion* conversion_;
    ConvertedDeck deck_;
    std::vector<Logged> logged_;
    std::vector<std::vector<Lines>> lines_;  // by keyword line of the converted deck
    std::vector<std::size_t> numbers_;       // of the ledger's blocks, as prepare counts them
    Ledger ledger_;
};

void Maker::collect_lines()
{
    for (std::size_t i = 0; i < output_count; ++i) {
        const auto output = static_cast<Output>(i);
        const std::string& name = account_->name(output);
        if (name.empty()) continue;
        for (const BlockLines& lines : written_lines(conversion_->folder / name, *account_, output)) {
            std::vector<Lines>& known = lines_[lines.block];
            const bool goes_on = !known.empty() && known.back().file == name && lines.first <= known.back().last + 1 &&
                                 lines.first >= known.back().first;
            if (goes_on)
                known.back().last = std::max(known.back().last, lines.last);
            else
                known.push_back({name, lines.first, lines.last});
        }
    }
}

void Maker::blocks_of_origins()
{
    using Fate = prepare::Origin::Fate;
    for (const Origins::Line& line : conversion_->origins->lines()) {
        Block block;
        block.file = conversion_->origins->files()[line.file];
        block.line = line.line;
        block.last_line = line.last_line;
        block.keyword = line.keyword;
        block.prepared_line = line.first_in_output;
        block.prepared_last_line = line.last_in_output;
        if (line.fate == Fate::behind_end) block.outcome = Outcome::after_the_end;
        if (line.fate == Fate::taken_in) {
            block.outcome = Outcome::converted;
            block.procedure = "prepare";
        }
        ledger_.blocks.push_back(std::move(block));
        numbers_.push_back(line.block);
    }
}

void Maker::blocks_of_deck()
{
    for (std::size_t i = 0; i < deck_.keywords.size(); ++i) {
        Block block;
        block.file = conversion_->deck.filename().string();
        block.line = block.prepared_line = deck_.keywords[i].line;
        block.last_line = block.prepared_last_line =
            i + 1 < deck_.keywords.size() ? deck_.keywords[i + 1].line - 1 : deck_.lines;
        block.keyword = deck_.keywords[i].name;
        ledger_.blocks.push_back(std::move(block));
    }
}

void Maker::add_lines(Block& block, BlockNumber number)
{
    for (const Lines& lines : lines_[number]) {
        // those of a split block may follow each other
        const auto before = std::find_if(block.output.begin(), block.output.end(), [&](const Lines& known) {
            return known.file == lines.file && known.last + 1 == lines.first;
        });
        if (before != block.output.end())
            before->last = lines.last;
        else
            block.output.push_back(lines);
    }
}

// The outcome, the lines and the log's words of all keyword lines that stand for the block in the converted deck.
void Maker::fill(Block& block, Judge& judge)
{
    const auto first = std::lower_bound(deck_.keywords.begin(), deck_.keywords.end(), block.prepared_line,
                                        [](const KeywordAt& at, std::size_t line) { return at.line < line; });
    std::vector<std::string_view> procedures;
    block.outcome = Outcome::after_the_end;
    for (auto at = first; at != deck_.keywords.end() && at->line <= block.prepared_last_line; ++at) {
        const auto number = static_cast<BlockNumber>(at - deck_.keywords.begin());
        Logged& logged = logged_[number];
        block.outcome = better(block.outcome, judge.of(number, *at, logged, !lines_[number].empty()));
        add_lines(block, number);
        std::move(logged.unused.begin(), logged.unused.end(), std::back_inserter(block.unused));
        std::move(logged.replaced.begin(), logged.replaced.end(), std::back_inserter(block.replaced));
        if (number >= account_->blocks().size()) continue;
        for (const std::string_view procedure : account_->blocks()[number].procedures)
            if (std::find(procedures.begin(), procedures.end(), procedure) == procedures.end())
                procedures.push_back(procedure);
    }
    for (const std::string_view procedure : procedures)
        block.procedure.append(block.procedure.empty() ? "" : ", ").append(procedure);
    if (ledger_.prepared && is_for_preparing(block.keyword)) block.procedure = "prepare";
    std::stable_sort(block.output.begin(), block.output.end(), [this](const Lines& one, const Lines& other) {
        const auto place = [this](const std::string& file) {
            std::size_t i = 0;
            while (i < output_count && account_->name(static_cast<Output>(i)) != file) ++i;
            return i;
        };
        return std::make_pair(place(one.file), one.first) < std::make_pair(place(other.file), other.first);
    });
}

void Maker::fill_blocks()
{
    take_settings(conversion_->settings);  // what keywords come to depends on them
    Judge judge(*account_, ledger_.prepared);
    for (Block& block : ledger_.blocks)
        if (block.prepared_line != 0) fill(block, judge);
    reset_run();
}

// ---- findings ------------------------------------------------------------------------------------------------------

void Maker::add_findings()
{
    check::Options options;
    for (std::size_t i = 0; i < control_flags.size(); ++i)
        options.settings.emplace_back(control_flags[i].name, conversion_->settings.values[i]);
    // a deck that is not prepared has its include files beside it, not in the folder
    const fs::path checked = ledger_.prepared ? conversion_->folder / conversion_->name : conversion_->deck;
    ledger_.findings = check::check_deck(checked, options).findings;
    ledger_.findings_of_converted = ledger_.findings.size();

    std::vector<std::pair<std::size_t, std::size_t>> places;  // in the converted deck, and of the ledger's blocks
    for (std::size_t i = 0; i < ledger_.blocks.size(); ++i)
        if (ledger_.blocks[i].prepared_line != 0) places.emplace_back(ledger_.blocks[i].prepared_line, i);
    std::sort(places.begin(), places.end());
    for (std::size_t i = 0; i < ledger_.findings.size(); ++i) {
        const deck::Place& place = ledger_.findings[i].place;
        if (place.file != checked.filename()) continue;  // of an include file that was not followed
        const auto behind = std::upper_bound(places.begin(), places.end(), std::make_pair(place.line, places.size()));
        if (behind == places.begin()) continue;
        Block& block = ledger_.blocks[(behind - 1)->second];
        if (place.line <= block.prepared_last_line) block.findings.push_back(i);
    }
}

void Maker::add_not_carried()
{
    if (conversion_->not_carried == nullptr) return;
    for (const auto& [finding, others] : *conversion_->not_carried) {
        ledger_.findings.push_back(finding);
        ledger_.findings.back().others += others;
        // a problem that was met before anything was written names no block
        auto block = std::lower_bound(numbers_.cbegin(), numbers_.cend(), finding.block);
        if (finding.block == 0)
            while (block != numbers_.cend() && !holds(ledger_.blocks[index_of(block)], finding.place)) ++block;
        if (block != numbers_.cend() && (finding.block == 0 || *block == finding.block))
            ledger_.blocks[index_of(block)].findings.push_back(ledger_.findings.size() - 1);
    }
}

// ---- files ---------------------------------------------------------------------------------------------------------

std::vector<File> Maker::files_without_sums() const
{
    const Conversion& of = *conversion_;
    std::vector<File> files = {{of.deck.filename().string(), "deck", 0, {}}};
    if (of.sources != nullptr) {
        std::set<std::string_view> known;
        for (std::size_t i = 1; i < of.sources->size(); ++i)
            if (const deck::SourceFile& source = (*of.sources)[i]; known.insert(source.name).second)
                files.push_back({source.name, "include file", 0, {}});
    }
    if (ledger_.prepared) files.push_back({of.name, "prepared deck", 0, {}});
    files.push_back({control_file_name, "control file", 0, {}});
    constexpr const char* roles[] = {"main deck", "geometry", "sets", "accelerometers"};
    for (std::size_t i = 0; i < output_count; ++i)
        if (const std::string& name = account_->name(static_cast<Output>(i)); !name.empty())
            files.push_back({name, roles[i], 0, {}});
    files.push_back({keyword_copy_name, "keyword copy", 0, {}});
    files.push_back({debug_file_name, "debug log", 0, {}});
    return files;
}

fs::path Maker::path_of(const File& file) const
{
    if (file.role == "deck") return conversion_->deck;
    if (file.role != "include file") return conversion_->folder / file.name;
    return std::find_if(conversion_->sources->begin(), conversion_->sources->end(),
                        [&](const deck::SourceFile& source) { return source.name == file.name; })
        ->path;
}

Ledger Maker::make()
{
    ledger_.prepared = conversion_->origins != nullptr;
    ledger_.files = files_without_sums();
    // sums take as long as all else, and need nothing of it
    std::future<void> sums = std::async([this] {
        for (File& file : ledger_.files) file.sha256 = sha256_of_file(path_of(file), &file.size);
    });
    ledger_.deck = conversion_->name;
    for (std::size_t i = 0; i < control_flags.size(); ++i)
        ledger_.settings.emplace_back(control_flags[i].name, conversion_->settings.values[i]);
    collect_lines();
    if (ledger_.prepared)
        blocks_of_origins();
    else
        blocks_of_deck();
    fill_blocks();
    add_findings();
    add_not_carried();
    sums.get();
    return std::move(ledger_);
}
}  // namespace

Ledger make_ledger(const Account& account, const Conversion& conversion)
{
    return Maker(account, conversion).make();
}

}  // namespace report
