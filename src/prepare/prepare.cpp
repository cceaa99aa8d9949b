#include "prepare/prepare.h"

#include <algorithm>
#include <set>

#include "deck/keyword_line.h"
#include "prepare/block_writer.h"
#include "prepare/keyword_form.h"
#include "prepare/sets.h"

namespace prepare
{

namespace
{
using deck::IncludeKind;

// Keywords of places and directions that a transformation would have to move, too.
bool has_coordinates(std::string_view name)
{
    constexpr std::string_view keywords[] = {"*BOUNDARY_SPH",
                                             "*BOUNDARY_SYMMETRY",
                                             "*DEFINE_BOX",
                                             "*DEFINE_COORDINATE_SYSTEM",
                                             "*DEFINE_COORDINATE_VECTOR",
                                             "*DEFINE_VECTOR",
                                             "*INITIAL_",
                                             "*LOAD_BLAST",
                                             "*PART_INERTIA"};
    return std::any_of(std::begin(keywords), std::end(keywords),
                       [=](std::string_view keyword) { return name.starts_with(keyword); });
}

bool knows_all_cards(const deck::LayoutMatch& match)
{
    return match.exact && !match.layout->cards.empty() &&
           std::none_of(match.layout->cards.begin(), match.layout->cards.end(),
                        [](const deck::CardLayout& card) { return card.fields.empty(); });
}

// One going through a deck.
class Preparing
{
public:
    Preparing(const std::filesystem::path& deck, const Survey& survey, std::ostream& stream, const Options& options,
              const ChangeReport& report);

    Summary run();

private:
    void block();
    bool is_taken_in();
    void written_block();
    void end_of_include_file();
    void carriage_returns(deck::FileNumber file);
    void other_block(const KeywordForm& form);
    void set_block(KeywordForm form, const SetList& list);
    void changed_block(const KeywordForm& form, const deck::ContentChange& change);
    void copy_lines();
    void comments_alone(std::string_view code, std::string_view message);
    void taken_out(std::string_view code, std::string_view message);
    void end_of_deck();
    void keep_for_the_end(const KeywordForm& form);
    void write_kept();
    void tell_origin(const deck::Block& head, Origin origin);
    void lines_behind_end(bool main);
    void changed(std::string_view code, std::size_t line, std::string_view before, std::string_view after,
                 std::string_view message);
    void trouble(std::string_view code, deck::Place place, const std::string& message);

    struct Kept {
        KeywordForm form;
        deck::HeldBlock block;
        std::size_t number;
        std::size_t last_line;
    };

    const Survey* survey_;
    OriginReport origin_;
    bool origins_;
    deck::DeckReader reader_;
    Output output_;
    BlockWriter writer_;
    Summary summary_;
    std::size_t blocks_ = 0;
    std::map<std::string, std::size_t, std::less<>> troubles_of_block_;  // by code: places in summary_.not_carried
    std::set<deck::FileNumber> told_carriage_returns_;
    std::vector<Kept> kept_;
    std::map<std::size_t, SetList> lists_;  // by block
};

Preparing::Preparing(const std::filesystem::path& deck, const Survey& survey, std::ostream& stream,
                     const Options& options, const ChangeReport& report)
    : survey_(&survey),
      origin_(options.origin),
      origins_(options.origins),
      reader_(deck, [](const deck::Problem&) {}),  // sic: the survey has told them
      output_(stream, report),
      writer_(
          reader_, output_,
          [this](std::string_view code, deck::Place place, const std::string& message) {
              trouble(code, std::move(place), message);
          },
          options.origins)
{
    if (survey.has_questions) lists_ = lists_of(deck);
}

void Preparing::changed(std::string_view code, std::size_t line, std::string_view before, std::string_view after,
                        std::string_view message)
{
    output_.change({code, reader_.file(reader_.block().file).name, line, 0, before, after, message});
}

void Preparing::trouble(std::string_view code, deck::Place place, const std::string& message)
{
    const auto known = troubles_of_block_.find(code);
    if (known != troubles_of_block_.end()) {
        ++summary_.not_carried[known->second].second;
        return;
    }
    troubles_of_block_.emplace(code, summary_.not_carried.size());
    check::Finding found = check::finding(code, std::move(place), message);
    found.keyword = reader_.block().keyword.name;
    found.block = blocks_;
    found.mended_by_prepare = false;
    summary_.not_carried.emplace_back(std::move(found), 0);
}

// ---- lines ---------------------------------------------------------------------------------------------------------

void Preparing::carriage_returns(deck::FileNumber file)
{
    const auto found = survey_->carriage_returns.find(file);
    if (found == survey_->carriage_returns.end() || !told_carriage_returns_.insert(file).second) return;
    output_.change({"MD113", reader_.file(file).name, found->second, 0, "", "", "carriage returns taken away"});
}

void Preparing::copy_lines()
{
    for (deck::Line line; reader_.next_line(line);) output_.line(line.text);
}

// The block's comments stay, its other lines go.
void Preparing::comments_alone(std::string_view code, std::string_view message)
{
    for (deck::Line line; reader_.next_line(line);) {
        if (deck::is_comment(line.text))
            output_.line(line.text);
        else
            changed(code, line.number, line.text, "", message);
    }
}

void Preparing::taken_out(std::string_view code, std::string_view message)
{
    const deck::Block& head = reader_.block();
    changed(code, head.line, head.keyword.text, "", message);
    comments_alone(code, message);
}

// ---- the deck's end ------------------------------------------------------------------------------------------------

void Preparing::keep_for_the_end(const KeywordForm& form)
{
    const deck::Block& head = reader_.block();
    changed("MD204", head.line, head.keyword.text, "", "moved behind everything else");
    deck::HeldBlock held = reader_.hold();
    kept_.push_back({form, std::move(held), blocks_, reader_.last_line()});
}

void Preparing::write_kept()
{
    for (const Kept& kept : kept_) {
        const std::size_t first = output_.lines() + (origins_ ? 2 : 1);
        writer_.keyword_line(kept.block.head, kept.form);
        for (const deck::HeldLine& line : kept.block.lines) output_.line(line.text);
        tell_origin(kept.block.head, {.block = kept.number,
                                      .last_line = kept.last_line,
                                      .first_in_output = first,
                                      .last_in_output = output_.lines()});
    }
    kept_.clear();
}

void Preparing::tell_origin(const deck::Block& head, Origin origin)
{
    if (!origin_ || head.keyword.name.empty()) return;
    origin.file = reader_.file(head.file).name;
    origin.line = head.line;
    origin.keyword = head.keyword.name;
    origin_(origin);
}

// The lines behind an *END: of the main deck comments and blank lines stay.
void Preparing::lines_behind_end(bool main)
{
    deck::Block behind;  // what would be a block there
    const auto end_behind = [&](std::size_t last_line) {
        tell_origin(behind, {.block = blocks_, .last_line = last_line, .fate = Origin::Fate::behind_end});
    };
    for (deck::Line line; reader_.next_line(line);) {
        if (origin_ && line.text.starts_with('*')) {
            end_behind(line.number - 1);
            behind.keyword = deck::read_keyword_line(line.text);
            behind.file = line.file;
            behind.line = line.number;
        }
        if (!main) continue;
        if (deck::is_comment(line.text) || deck::trimmed(line.text).empty())
            output_.line(line.text);
        else
            changed("MD113", line.number, line.text, "", "what stands behind *END taken away");
    }
    end_behind(reader_.last_line());
}

// *END of the main deck, and what stands behind it.
void Preparing::end_of_deck()
{
    write_kept();
    const deck::Block& head = reader_.block();
    const std::size_t first = output_.lines() + (origins_ ? 2 : 1);
    writer_.keyword_line(head, form_of(head, survey_->standard_deck));
    tell_origin(head, {.block = blocks_, .last_line = head.line, .first_in_output = first, .last_in_output = first});
    lines_behind_end(true);
}

// ---- blocks --------------------------------------------------------------------------------------------------------

// A block of an include file that is shifted or moved.
void Preparing::changed_block(const KeywordForm& form, const deck::ContentChange& change)
{
    const deck::Block& head = reader_.block();
    const std::string& name = head.keyword.name;
    if (!change.transformation.is_identity() && has_coordinates(name))
        throw deck::Fault(deck::problem_at(reader_.place(head.file, head.line, 1, 1 + name.size()), "MD124",
                                           name + " in an include file with a transformation"));
    if (form.rewritten || knows_all_cards(form.match)) {
        writer_.write(form, {form.format, deck::is_bulk(form.match.name), &change});
        return;
    }
    trouble("MD124", reader_.place(head.file, head.line, 1, 1 + name.size()),
            "the identifiers in " + name + " are not shifted: its cards are not known");
    writer_.keyword_line(head, form);
    copy_lines();
}

void Preparing::other_block(const KeywordForm& form)
{
    const deck::Block& head = reader_.block();
    if (is_question(head.keyword.name))
        trouble("MD201", reader_.place(head.file, head.line, 1, 1 + head.keyword.name.size()),
                "the set stays as it is: it asks for what is not known here");
    const deck::ContentChange& change = reader_.file(head.file).change;
    if (!change.is_none() && !deck::defines_parameters(head.keyword.name)) {
        const deck::ContentChange kept = change;  // the list of files may grow
        changed_block(form, kept);
    } else if (form.rewritten) {
        writer_.write(form, {form.format, deck::is_bulk(form.match.name), nullptr});
    } else {
        writer_.keyword_line(head, form);
        copy_lines();
    }
}

// A set whose members are known. Its comments come first.
void Preparing::set_block(KeywordForm form, const SetList& list)
{
    form.line = list.keyword;
    form.code = "MD201";
    form.message = "the set written as the list of its members";
    writer_.keyword_line(reader_.block(), form);
    for (deck::Line line; reader_.next_line(line);)
        if (deck::is_comment(line.text)) output_.line(line.text);
    for (const std::string& card : list.cards) output_.line(card);
}

// True when the block has done what it is for once the deck has been put together, and is taken out.
bool Preparing::is_taken_in()
{
    const deck::Block& head = reader_.block();
    const std::string& name = head.keyword.name;
    const bool included = head.file != 0;
    if (name == "*KEYWORD" && included) {
        taken_out("MD121", "taken out of the include file");
    } else if (head.include == IncludeKind::files || head.include == IncludeKind::path) {
        taken_out("MD121", "the include file's content stands in its place");
    } else if (head.include == IncludeKind::transform) {
        taken_out("MD124", "the include file's content, shifted and transformed, stands in its place");
    } else if (included && deck::is_of(name, "*PARAMETER") && name.find("_LOCAL") != std::string::npos) {
        taken_out("MD104", "parameters of the include file alone: their values stand in the fields");
    } else {
        return false;
    }
    tell_origin(head, {.block = blocks_, .last_line = reader_.last_line(), .fate = Origin::Fate::taken_in});
    return true;
}

void Preparing::end_of_include_file()
{
    const deck::Block& head = reader_.block();
    changed("MD121", head.line, head.keyword.text, "", "taken out of the include file");
    tell_origin(head, {.block = blocks_, .last_line = head.line, .fate = Origin::Fate::taken_in});
    lines_behind_end(false);
}

void Preparing::written_block()
{
    const deck::Block& head = reader_.block();
    const KeywordForm form = form_of(head, survey_->standard_deck);
    if (ends_boundary_pass(head.keyword.name) && blocks_ < survey_->last_of_boundary_pass) {
        keep_for_the_end(form);
        return;
    }
    const std::size_t first = output_.lines() + (origins_ ? 2 : 1);
    if (const auto list = lists_.find(blocks_); list != lists_.end())
        set_block(form, list->second);
    else
        other_block(form);
    tell_origin(head, {.block = blocks_,
                       .last_line = reader_.last_line(),
                       .first_in_output = first,
                       .last_in_output = output_.lines()});
}

void Preparing::block()
{
    const deck::Block& head = reader_.block();
    const bool included = head.file != 0;
    ++blocks_;
    troubles_of_block_.clear();
    carriage_returns(head.file);
    if (head.keyword.name.empty()) {
        if (included)
            comments_alone("MD121", "a line before the include file's first keyword taken away");
        else
            copy_lines();
    } else if (head.ends_file) {
        if (included)
            end_of_include_file();
        else
            end_of_deck();
    } else if (!is_taken_in()) {
        written_block();
    }
}

Summary Preparing::run()
{
    for (const deck::Problem& problem : survey_->problems)
        if (problem.severity == deck::Severity::error) {
            troubles_of_block_.clear();
            trouble(problem.code, problem.place, problem.message);
        }
    while (reader_.next_block()) block();
    if (!survey_->has_end) {
        write_kept();
        output_.change({"MD113", survey_->files[0].name, survey_->last_line, 0, "", "*END", "*END put in"});
        output_.line("*END");
    }
    if (!survey_->ends_in_newline)
        output_.change({"MD113", survey_->files[0].name, survey_->last_line, 0, "", "", "a newline put in at the end"});
    output_.flush();
    summary_.changes_by_code = output_.changes();
    for (const auto& [code, count] : summary_.changes_by_code) summary_.changes += count;
    return std::move(summary_);
}
}  // namespace

Preparation::Preparation(std::filesystem::path deck, std::vector<deck::Problem>* problems)
    : deck_(std::move(deck)), survey_(survey(deck_))
{
    const auto first = std::find_if(survey_.problems.begin(), survey_.problems.end(), stops);
    if (first == survey_.problems.end()) return;
    if (problems != nullptr) *problems = survey_.problems;
    throw deck::Fault(*first);
}

Summary Preparation::write(std::ostream& stream, const Options& options, const ChangeReport& report) const
{
    return Preparing(deck_, survey_, stream, options, report).run();
}

}  // namespace prepare
