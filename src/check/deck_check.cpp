#include "check/deck_check.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "check/block.h"
#include "check/converted_block.h"
#include "check/line_findings.h"
#include "check/meaning.h"
#include "check/misread.h"
#include "check/references.h"
#include "deck/deck_reader.h"
#include "deck/field_number.h"
#include "deck/include.h"

namespace check
{
namespace
{
using deck::IncludeKind;

bool is_structural(std::string_view name)
{
    return name.empty() || name == "*KEYWORD" || name == "*END" || deck::is_of(name, "*COMMENT") ||
           deck::is_of(name, "*INCLUDE") || deck::is_of(name, "*PARAMETER") ||
           deck::is_of(name, "*DEFINE_TRANSFORMATION");
}

// Options of contacts that have no card of their own.
bool is_without_cards(std::string_view rest)
{
    constexpr std::string_view options[] = {"_SMOOTH", "_MORTAR", "_OFFSET", "_BEAM_OFFSET", "_CONSTRAINED_OFFSET"};
    return std::any_of(std::begin(options), std::end(options),
                       [=](std::string_view option) { return rest.starts_with(option); });
}

// True when cards of the keyword are taken for something else, as far as its name tells.
bool takes_cards_for_others(const deck::LayoutMatch& match)
{
    const deck::Layout& layout = *match.layout;
    const std::string_view rest = std::string_view(match.name).substr(layout.keyword.size());
    if (match.exact) {
        const bool has_option =
            std::any_of(layout.cards.begin(), layout.cards.end(), [&](const deck::CardLayout& card) {
                return !card.option.empty() && !card.converted && rest.find(card.option) != std::string_view::npos;
            });
        return has_option && layout.reads == deck::Reads::all;
    }
    if (layout.keyword.starts_with("*SECTION_") || layout.keyword.starts_with("*CONTROL") ||
        layout.keyword.starts_with("*DATABASE"))
        return false;
    if (layout.keyword.starts_with("*CONTACT")) return !is_without_cards(rest);
    return !(layout.keyword.starts_with("*MAT_") && rest.starts_with("_STOCHASTIC"));
}

// A form that is read and then not written: the keyword lacks what its lines are for.
bool is_read_for_nothing(std::string_view keyword)
{
    return keyword == "*BOUNDARY_SPC" || keyword == "*BOUNDARY_PRESCRIBED_MOTION" || keyword == "*LOAD_NODE";
}

// True when the block's format puts fields into other columns than the converter reads.
bool differs_from_standard(const deck::LayoutMatch& match, deck::Format format)
{
    if (format == deck::Format::standard) return false;
    const bool bulk = deck::is_bulk(match.name);
    for (const deck::CardLayout& card : match.layout->cards)
        for (const deck::Field& field : card.fields)
            if (card.converted && field.kind != deck::Kind::text &&
                deck::field_width(field, format, bulk) != field.width)
                return true;
    return false;
}

// Sets and keywords by number that prepare writes in a form that is converted.
bool has_an_equal(std::string_view name)
{
    constexpr std::string_view forms[] = {"_GENERATE", "_GENERAL", "_COLUMN", "_ADD"};
    if (!deck::named_form(name).empty()) return true;
    return name.starts_with("*SET_") && std::any_of(std::begin(forms), std::end(forms), [=](std::string_view form) {
               return name.find(form) != std::string_view::npos;
           });
}

bool needs_values(const deck::Layout& layout)
{
    return std::any_of(layout.cards.begin(), layout.cards.end(), [](const deck::CardLayout& card) {
        return card.count != nullptr || std::any_of(card.fields.begin(), card.fields.end(),
                                                    [](const deck::Field& field) { return field.by_type != nullptr; });
    });
}

// What goes on from one going through the deck to the next.
struct State {
    const Reading& reading;
    Collector& findings;
    Expectations expectations;
    References references;
    std::vector<Definition> definitions;
    bool files_missing = false;
    std::map<std::string, std::size_t> unknown;  // kinds of blocks without a layout
};

// One going through the tree of files. The first judges and collects; the second only tells of identifiers.
class Going
{
public:
    Going(const std::filesystem::path& deck, State& state, bool second);
    void run();

private:
    struct Active {
        const LinesRead* lines;
        std::size_t seen;  // lines of it that have gone by
    };

    void report(const deck::Problem& problem);
    void block();
    void begin_block();
    Fate fate_of_main(const Expectation& expectation);
    void take_keyword_line();
    void decide_form();
    void data_line(const deck::Line& line);
    void two_lines_or_not(std::string_view line);
    void end_block();
    void include_line(const deck::Line& line);
    void add_included(std::string_view code, const deck::IncludeName& name);
    void end_line(const deck::Line& line);
    void physical_line(const deck::Line& line);
    void end_deck();
    void settle_includes();
    const std::vector<PatternNumber>& patterns_at(Position begin);
    void split(const deck::Line& line, const deck::CardPlace& place);
    void set_values();
    void tell(std::string_view code, std::size_t line, std::size_t column, std::size_t end, std::string message);
    void note_in_main(std::size_t line, std::size_t column, const std::string& keyword, const std::string& message,
                      deck::Severity severity = deck::Severity::note);
    void carriage_return(const deck::Line& line, std::size_t column);

    State* state_;
    deck::DeckReader reader_;
    ConvertedBlock converted_;
    Meaning meaning_;
    BlockAt at_;
    std::size_t blocks_ = 0;

    // The present block.
    std::optional<deck::CardWalk> walk_;
    deck::GroupValues values_;
    std::size_t group_ = 0;
    std::optional<deck::IncludeNames> names_;
    std::vector<deck::FieldText> fields_;
    std::string expanded_;  // the present line without its tabs

    // The main deck as characters.
    Position offset_ = 0;
    Position size_ = 0;
    std::size_t next_lines_ = 0;  // of the reading
    std::vector<Active> active_;
    std::vector<PatternNumber> own_patterns_;
    BlockNumber eater_ = no_block;                           // that has read the present line, which is a keyword line
    std::unordered_map<BlockNumber, std::string> keywords_;  // of converted blocks, while they can read others
    std::set<BlockNumber> explained_;                        // blocks whose misreading is told whole
    deck::Place last_line_;
    std::string last_keyword_;

    using FileAndLine = std::pair<std::string, std::size_t>;
    std::map<FileAndLine, Finding> included_;  // names that are not followed
    std::set<FileAndLine> refused_;            // names with a worse finding

    bool second_;
    bool judged_ = false;     // its lines are held against what was read
    bool first_line_ = true;  // no data line has been met
    bool needs_values_ = false;
    bool told_format_ = false;  // the block is in another format, which its first data line tells
    bool transform_told_ = false;
    bool joined_ = false;  // the next keyword line is joined to this block's
    bool carriage_return_told_ = false;
    bool one_line_ = false;  // lines end in carriage returns alone
    bool end_met_ = false;
    bool after_end_told_ = false;
    bool last_newline_ = true;
};

Going::Going(const std::filesystem::path& deck, State& state, bool second)
    : state_(&state),
      reader_(deck, [this](const deck::Problem& problem) { report(problem); }),
      converted_(state.reading, state.findings),
      meaning_(state.references, second ? &state.findings : nullptr, state.definitions),
      second_(second)
{
    std::error_code none;  // the reader has opened it
    size_ = std::filesystem::file_size(deck, none);
}

// ---- findings ------------------------------------------------------------------------------------------------------

void Going::tell(std::string_view code, std::size_t line, std::size_t column, std::size_t end, std::string message)
{
    if (!second_) state_->findings.add(finding_at(at_, code, line, column, end, std::move(message)));
}

void Going::note_in_main(std::size_t line, std::size_t column, const std::string& keyword, const std::string& message,
                         deck::Severity severity)
{
    if (second_) return;
    Finding found = finding("MD113", {reader_.file(0).name, line, column, column + 1}, message);
    found.severity = severity;
    found.keyword = keyword;
    found.block = blocks_;
    state_->findings.add(std::move(found));
}

// What the deck room has found: of files, parameters and expressions.
void Going::report(const deck::Problem& problem)
{
    if (second_) return;
    Finding found = finding(problem.code, problem.place, problem.message);
    found.severity = problem.severity;
    found.mended_by_prepare = false;
    found.keyword = at_.keyword;
    found.block = at_.index;
    const std::vector<deck::SourceFile>& files = reader_.files();
    const auto file = std::find_if(files.begin(), files.end(),
                                   [&](const deck::SourceFile& one) { return one.name == problem.place.file; });
    found.file_order = static_cast<std::size_t>(file - files.begin());
    const FileAndLine place{problem.place.file, problem.place.line};
    if (const auto name = included_.find(place); name != included_.end()) {
        found.keyword = name->second.keyword;
        if (found.place.column == 0) found.place = name->second.place;
    }
    if (problem.code == "MD122") state_->files_missing = true;
    refused_.insert(place);
    state_->findings.add(std::move(found));
}

// ---- what was read of a line ---------------------------------------------------------------------------------------

// The patterns by which the line that begins there was read for its own block. Notes who else has read it.
const std::vector<PatternNumber>& Going::patterns_at(Position begin)
{
    const std::vector<LinesRead>& lines = state_->reading.lines;
    while (next_lines_ < lines.size() && lines[next_lines_].first <= begin)
        active_.push_back({&lines[next_lines_++], 0});
    std::erase_if(active_, [=](const Active& active) { return active.lines->last < begin; });
    own_patterns_.clear();
    eater_ = no_block;
    for (Active& active : active_) {
        const PatternNumber pattern = active.lines->patterns[active.seen++ % 2];
        if (active.lines->block == at_.number)
            own_patterns_.push_back(pattern);
        else
            eater_ = active.lines->block;
    }
    return own_patterns_;
}

// Keeps count of the main deck's characters, and of its line ends.
void Going::physical_line(const deck::Line& line)
{
    if (line.file != 0) return;
    offset_ += line.text.size() + (line.carriage_return ? 1 : 0) + (line.newline ? 1 : 0);
    const std::size_t column = inked(line.text).begin + 1;
    last_line_ = {"", line.number, column, column + 1};
    last_newline_ = line.newline;
    last_keyword_ = at_.keyword;
    if (line.carriage_return && !carriage_return_told_) carriage_return(line, column);
}

void Going::carriage_return(const deck::Line& line, std::size_t column)
{
    carriage_return_told_ = true;
    one_line_ = !line.newline && offset_ < size_;
    note_in_main(line.number, column, at_.keyword,
                 one_line_ ? "lines end in carriage returns alone: the whole deck is read as one line"
                           : "lines end in carriage returns",
                 one_line_ ? deck::Severity::error : deck::Severity::note);
}

// ---- blocks --------------------------------------------------------------------------------------------------------

void Going::begin_block()
{
    const deck::Block& head = reader_.block();
    at_ = {};
    at_.head = &head;
    at_.index = ++blocks_;
    at_.keyword = head.keyword.name.substr(0, longest_prefix);
    at_.match = deck::find_layout(head.keyword.name);
    at_.file = reader_.file(head.file).name;
    const std::vector<deck::SourceFile>& files = reader_.files();
    at_.file_order = static_cast<std::size_t>(
        std::find_if(files.begin(), files.end(), [&](const deck::SourceFile& one) { return one.name == at_.file; }) -
        files.begin());
    walk_.reset();
    values_ = {};
    group_ = 0;
    judged_ = false;
    first_line_ = true;
    told_format_ = false;
    names_.reset();
    transform_told_ = false;
    eater_ = no_block;
    if (head.include == IncludeKind::files || head.include == IncludeKind::transform) names_.emplace();
    if (at_.match.layout != nullptr && at_.match.layout->cards.empty()) at_.match.layout = nullptr;
}

Fate Going::fate_of_main(const Expectation& expectation)
{
    const BlockRead* const read = at_.number == no_block ? nullptr : &state_->reading.blocks[at_.number];
    const bool was_joined = joined_;
    const bool swallowed = eater_ != no_block || was_joined;
    const std::string& name = at_.head->keyword.name;
    const std::size_t line = at_.head->line, end = name.size();
    if (read != nullptr && read->reached_by == 0 && was_joined) return Fate::lost;
    switch (expectation.outcome) {
    case Outcome::converted:
        if (read != nullptr && (read->converted_by & expectation.converted_by) != 0) return Fate::converted;
        if (!swallowed)
            tell("MD204", line, 0, end, name + " is not reached: a keyword before it ends the pass that reads it");
        return Fate::lost;
    case Outcome::passed_over:
        tell("MD203", line, 0, end, name + " is passed over: it is converted with " + expectation.settings);
        return Fate::passed_over;
    case Outcome::skipped:
        if (!expectation.wants_title) break;
        tell("MD209", line, 0, end, name + " converts only with _TITLE: it is skipped");
        return Fate::lost;
    case Outcome::not_known:
    case Outcome::none:
        break;
    }
    const bool known = expectation.outcome == Outcome::skipped;
    if (expectation.outcome == Outcome::none) return Fate::structural;
    Finding found = finding_at(at_, known ? "MD201" : "MD202", line, 0, end,
                               name + (known ? " is skipped" : " is not known: it is skipped"));
    if (name.starts_with("*DATABASE") && known) found.severity = deck::Severity::note;
    found.mended_by_prepare = has_an_equal(name);
    if (!second_) state_->findings.add(std::move(found));
    return Fate::skipped;
}

void Going::take_keyword_line()
{
    const deck::Block& head = *at_.head;
    const std::string& name = head.keyword.name;
    if (name.empty()) {
        if (head.file != 0) at_.fate = Fate::not_followed;
        return;
    }
    const Position begin = offset_;
    if (head.file == 0) {
        at_.number = state_->reading.block_at(begin);
        if (!second_) patterns_at(begin);
        physical_line({head.keyword.text, 0, head.line, head.carriage_return, head.newline});
    }
    if (eater_ != no_block && !explained_.contains(eater_)) {
        Finding found =
            finding_at(at_, "MD207", head.line, 0, name.size(),
                       name + " is read as a card of the " + keywords_[eater_] + " before it, which lacks one");
        found.keyword = keywords_[eater_];
        state_->findings.add(std::move(found));
    }
    const std::string line = head.keyword.text + (head.carriage_return ? "\r" : "");
    const bool structural = is_structural(name);
    static const Expectation none;
    const Expectation& expectation = structural ? none : state_->expectations.of(line);
    at_.skipped = (expectation.outcome == Outcome::skipped && !expectation.wants_title) ||
                  expectation.outcome == Outcome::not_known;
    if (head.file != 0) {
        at_.fate = Fate::not_followed;
        return;
    }
    if (!structural) at_.fate = fate_of_main(expectation);
    const bool readable = at_.fate == Fate::converted || at_.fate == Fate::lost;
    const KeywordLineFlaw flaw = flaw_of(head, readable ? expectation.outcome : Outcome::none);
    joined_ = flaw.joins;
    if (!flaw.code.empty()) {
        Finding found = finding_at(at_, flaw.code, head.line, flaw.column, flaw.end, flaw.message);
        found.severity = flaw.error ? deck::Severity::error : deck::Severity::note;
        if (!second_) state_->findings.add(std::move(found));
    }
    judged_ = !second_ && at_.fate == Fate::converted && at_.match.layout != nullptr;
    if (judged_) {
        keywords_[at_.number] = at_.keyword;
        const bool in_part = (state_->reading.blocks[at_.number].converted_by & expectation.converted_by) !=
                             expectation.converted_by;  // some pass has lost it, which is told elsewhere
        converted_.begin(at_, flaw.hides || in_part, false);
        if (flaw.hides) explained_.insert(at_.number);
        decide_form();
    }
    end_met_ = end_met_ || head.ends_file;
}

// What the name and the format alone tell of the block: one finding for all of it.
void Going::decide_form()
{
    const std::string& name = at_.head->keyword.name;
    const deck::Layout& layout = *at_.match.layout;
    std::string_view code;
    std::string message;
    const bool flawed = explained_.contains(at_.number);
    if (takes_cards_for_others(at_.match) && !flawed) {
        code = "MD208";
        message =
            name + " is read as " + std::string(layout.keyword) + ": cards of its option are taken for something else";
    } else if (at_.match.exact && is_read_for_nothing(layout.keyword)) {
        code = "MD208";
        message = name + " is read, and nothing is written for it";
    }
    const bool out_of_step = flawed && name.starts_with("*CONTACT");  // by a card, which is told
    told_format_ = code.empty() && differs_from_standard(at_.match, at_.head->format);
    if (code.empty() && !told_format_ && !out_of_step) return;
    judged_ = false;
    explained_.insert(at_.number);
    if (code.empty() || second_) return;
    Finding found = finding_at(at_, code, at_.head->line, 0, name.size(), std::move(message));
    found.mended_by_prepare = (at_.match.exact && layout.keyword == "*PART") || has_an_equal(name);
    state_->findings.add(std::move(found));
}

void Going::end_block()
{
    if (names_ && names_->finish()) add_included("MD121", names_->name());
    meaning_.end_group();
    if (judged_ && converted_.end()) explained_.insert(at_.number);
    if (judged_ && keywords_.size() > 64) {
        // what is far behind has long read what it reads
        const BlockNumber here = at_.number;
        std::erase_if(keywords_, [=](const auto& known) { return known.first + 64 < here; });
        std::erase_if(explained_, [=](BlockNumber known) { return known + 64 < here; });
    }
}

void Going::block()
{
    begin_block();
    take_keyword_line();
    if (!second_ && at_.match.layout == nullptr && !is_structural(at_.head->keyword.name))
        ++state_->unknown[at_.keyword];
    meaning_.begin(at_, reader_.file(at_.head->file).change);
    needs_values_ = at_.match.layout != nullptr && needs_values(*at_.match.layout);
    for (deck::Line line; reader_.next_line(line);) {
        if (at_.head->ends_file) {
            end_line(line);
        } else if (!deck::is_comment(line.text)) {
            if (names_) include_line(line);
            data_line(line);
        }
        physical_line(line);
    }
    end_block();
}

// ---- lines ---------------------------------------------------------------------------------------------------------

// A line behind *END.
void Going::end_line(const deck::Line& line)
{
    if (line.file != 0 || after_end_told_ || deck::is_comment(line.text) || inked(line.text).end == 0) return;
    after_end_told_ = true;
    note_in_main(line.number, inked(line.text).begin + 1, at_.keyword, "what stands behind *END is not read");
}

void Going::add_included(std::string_view code, const deck::IncludeName& name)
{
    if (second_) return;
    std::string message = "include file \"" + name.name + "\" is not followed";
    if (code == "MD124") message += ", nor are its offsets and its transformation";
    Finding found = finding_at(at_, code, name.line, name.column - 1, name.end_column - 1, std::move(message));
    found.text = name.name;
    const FileAndLine place{at_.file, name.line};
    included_.try_emplace(place, std::move(found));
}

void Going::include_line(const deck::Line& line)
{
    const bool transform = at_.head->include == IncludeKind::transform;
    if (transform && transform_told_) return;
    if (!names_->take(line)) return;
    add_included(transform ? "MD124" : "MD121", names_->name());
    transform_told_ = true;
}

// A solid whose first line has no nodes stands on two lines.
void Going::two_lines_or_not(std::string_view line)
{
    if (at_.match.layout->keyword != "*ELEMENT_SOLID" || !at_.match.exact) return;
    const deck::CardLayout& card = at_.match.layout->cards[0];
    deck::split_card(line, card, at_.head->format, true, fields_);
    const auto is_empty = [](const deck::FieldText& field) { return inked(field.text).end == 0; };
    if (is_empty(fields_[0]) || is_empty(fields_[1])) return;
    if (!std::all_of(fields_.begin() + 2, fields_.end(), is_empty)) return;
    at_.match.layout = &deck::solid_on_two_lines();
    if (judged_) {
        converted_.begin(at_, false, true);
        explained_.insert(at_.number);
    }
}

void Going::split(const deck::Line& line, const deck::CardPlace& place)
{
    std::string_view text = line.text;
    if (text.find('\t') != std::string_view::npos) {
        expanded_ = deck::with_tabs_expanded(text);
        text = expanded_;
    }
    deck::split_card(text, *place.card, at_.head->format, deck::is_bulk(at_.match.name), fields_);
}

void Going::set_values()
{
    for (std::size_t i = 0; i < fields_.size() && i < deck::GroupValues::most_fields; ++i) {
        if (fields_[i].field == nullptr) break;
        double value = deck::standard_number(fields_[i].text).value;
        if (deck::refers_to_parameter(fields_[i].text)) {
            const deck::Evaluation evaluation = reader_.parameters().evaluate(fields_[i].text);
            value = evaluation.value ? evaluation.value->number : 0;
        }
        walk_->set_value(i, value);
    }
}

void Going::data_line(const deck::Line& line)
{
    if (std::exchange(told_format_, false))
        tell("MD108", at_.head->line, 0, at_.head->keyword.name.size(),
             at_.keyword + " is written in " +
                 (at_.head->format == deck::Format::long_fields ? "columns of 20" : "ten-column format") +
                 " and read in standard columns");
    if (at_.match.layout == nullptr) return;
    if (first_line_ && inked(line.text).end > 0) {
        first_line_ = false;
        if (!walk_) two_lines_or_not(line.text);
    }
    if (!walk_) walk_.emplace(at_.match);
    const deck::CardPlace place = walk_->next();
    if (place.group != group_) {
        meaning_.end_group();
        group_ = place.group;
    }
    fields_.clear();
    std::uint32_t lost = 0;
    const bool free = place.card != nullptr && deck::is_free(line.text, *place.card);
    if (judged_) {
        LineOfBlock of_block{&line, place, &fields_, free, patterns_at(offset_)};
        if (place.card != nullptr)
            deck::split_card(line.text, *place.card, deck::Format::standard, deck::is_bulk(at_.match.name), fields_);
        lost = converted_.take(of_block, reader_.parameters());
    }
    if (place.card == nullptr || place.card->fields.empty()) return;
    const bool tabs = line.text.find('\t') != std::string_view::npos;
    if (!judged_ || tabs) split(line, place);
    if (needs_values_) set_values();
    meaning_.take(place, fields_, lost, reader_.parameters(), line.number, walk_->values());
}

// ---- the whole -----------------------------------------------------------------------------------------------------

// Names that are not followed, but for those of which something worse is told.
void Going::settle_includes()
{
    for (auto& [place, found] : included_)
        if (!refused_.contains(place)) state_->findings.add(std::move(found));
}

void Going::end_deck()
{
    if (last_line_.line == 0) return;
    if (!end_met_) note_in_main(last_line_.line, last_line_.column, last_keyword_, "the deck has no *END");
    if (!last_newline_) note_in_main(last_line_.line, last_line_.column, last_keyword_, "the last line has no newline");
}

void Going::run()
{
    while (!one_line_ && reader_.next_block()) block();
    if (!one_line_) end_deck();
    settle_includes();
}
}  // namespace

void find_all(const std::filesystem::path& deck, const Reading& reading, Collector& findings,
              std::vector<NotChecked>& not_checked)
{
    State state{reading, findings, {}, {}, {}, false, {}};
    Going(deck, state, false).run();
    if (!state.files_missing && state.references.has_troubles()) Going(deck, state, true).run();
    for (Definition& definition : state.definitions)
        if (!state.references.is_used(definition.kind, definition.id)) findings.add(std::move(definition.unused));
    for (const auto& [keyword, count] : state.unknown)
        not_checked.push_back({keyword, count, "its cards are not known"});
}
}  // namespace check
