#include "check/converted_block.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

#include "check/line_findings.h"
#include "deck/field_number.h"
#include "deck/keyword_line.h"
#include "reader/run.h"

namespace check
{
namespace
{
using deck::CardLayout;
using deck::FieldText;
using deck::Kind;
using deck::Reads;

// The debug log's names of fields that differ from the format's.
struct Alias {
    std::string_view logged, field;
};
constexpr Alias aliases[] = {{"settyp", "setyp"}, {"smax", "sigmax"}, {"tslimit", "tslimt"}, {"msist", "ms1st"},
                             {"dthff", "dthf"},   {"qtype", "ibq"},   {"qtype", "type"}};

std::optional<std::size_t> field_named(const CardLayout& card, std::string_view name)
{
    for (std::size_t i = 0; i < card.fields.size(); ++i) {
        const std::string_view own = card.fields[i].name;
        const auto is_alias = [&](const Alias& alias) { return alias.logged == name && alias.field == own; };
        if (own == name || std::any_of(std::begin(aliases), std::end(aliases), is_alias)) return i;
    }
    return {};
}

// A value that the log counts as unused, though another pass writes it: into the failure definition.
bool is_written_elsewhere(const deck::Layout& layout, std::string_view field)
{
    return layout.keyword == "*MAT_PLASTIC_KINEMATIC" && field == "fs";
}

// The values for which handlers refuse a group of cards.
constexpr std::string_view refusing_fields[] = {"vad", "nsidex", "boxid", "irigid"};

// What the main deck has in place of a value, whatever the deck says.
struct FixedValue {
    std::string_view keyword, field;
    double value;
    std::string_view text;
};
constexpr FixedValue fixed_values[] = {
    {"*CONTROL_TERMINATION", "endtim", 5.0e-3, "a termination time of 5.000e-03"},
    {"*CONTROL_TIMESTEP", "tssfac", 0.0, "a time step scale factor of 0"},
    {"*DATABASE_BINARY_D3PLOT", "dt", 1.0, "a plot state frequency of 1"},
};

// A card of members or identifiers, of which zeros are dropped.
bool drops_zeros(const CardLayout& card)
{
    return card.occurs == deck::Occurs::to_the_end && card.fields.size() == 8 &&
           card.fields[0].names == card.fields[7].names && card.fields[0].names != deck::Names::nothing;
}

bool defines(const CardLayout& card)
{
    return std::any_of(card.fields.begin(), card.fields.end(), [](const deck::Field& field) { return field.defines; });
}

bool is_text(const CardLayout& card)
{
    return card.fields.empty() || card.fields.back().kind == Kind::text;
}

// What preprocessors write behind the attributes of every set, and what is meant without it.
constexpr std::string_view usual_solver = "MECH";

// The first word from the column on that is more than a zero; nothing when there is none.
std::optional<Inked> value_from(std::string_view line, std::size_t column)
{
    while (column < line.size()) {
        while (column < line.size() && (is_blank(line[column]) || line[column] == ',')) ++column;
        const std::size_t begin = column;
        while (column < line.size() && !is_blank(line[column]) && line[column] != ',') ++column;
        if (begin == column) break;
        std::string_view word = line.substr(begin, column - begin);
        if (word.ends_with(usual_solver)) word.remove_suffix(usual_solver.size());
        const deck::FieldNumber number = deck::standard_number(word);
        if (word.empty()) continue;
        if (number.form == deck::FieldNumber::Form::none || number.value != 0) return Inked{begin, column};
    }
    return {};
}

// What a log line's words say is written: "1" of "Changed to 1 for Kestrune input".
std::string written_instead(std::string_view said)
{
    const std::size_t to = said.find(" to ");
    if (to == std::string_view::npos) return {};
    const std::string_view behind = said.substr(to + 4);
    return std::string(behind.substr(0, behind.find(' ')));
}
}  // namespace

// ---- the block -----------------------------------------------------------------------------------------------------

void ConvertedBlock::begin(const BlockAt& block, bool flawed, bool two_lines)
{
    block_ = &block;
    flawed_ = flawed;
    two_lines_ = two_lines;
    whole_told_ = false;
    errors_ = false;
    last_further_ = 0;
    pending_.clear();
    const auto log = reading_->log.find(block.number);
    shapes_ = log == reading_->log.end() ? nullptr : &log->second;
}

bool ConvertedBlock::end()
{
    for (Finding& found : pending_) findings_->add(std::move(found));
    pending_.clear();
    return whole_told_ || flawed_ || two_lines_;
}

void ConvertedBlock::tell(std::string_view code, const LineOfBlock& line, std::size_t column, std::size_t end,
                          std::string message)
{
    pending_.push_back(finding_at(*block_, code, line.line->number, column, end, std::move(message)));
    pending_.back().text = std::string(line.line->text.substr(std::min(column, line.line->text.size()), end - column));
    errors_ = errors_ || pending_.back().severity == deck::Severity::error;
    constexpr std::size_t enough = 4096;
    if (pending_.size() < enough) return;
    for (Finding& found : pending_) findings_->add(std::move(found));  // a block of this size is not taken back
    pending_.clear();
}

// One finding at the keyword line in place of all others.
void ConvertedBlock::stand_alone(std::string_view code, std::string message)
{
    pending_.clear();
    whole_told_ = true;
    pending_.push_back(
        finding_at(*block_, code, block_->head->line, 0, block_->head->keyword.name.size(), std::move(message)));
}

// ---- how the line was read -----------------------------------------------------------------------------------------

const ConvertedBlock::Fit& ConvertedBlock::fit_of(PatternNumber pattern, const CardLayout& card)
{
    const auto [place, is_new] = fits_.try_emplace({pattern, &card});
    Fit& fit = place->second;
    if (!is_new) return fit;
    if (&card == &deck::id_card) {  // of its number nothing is used
        fit.whole = fit.in_step = reading_->patterns[pattern].back().as == ReadAs::text;
        return fit;
    }
    for (const ReadField& read : reading_->patterns[pattern]) {
        if (read.as == ReadAs::text) {
            fit.in_step = fit.in_step && is_text(card);
            fit.whole = true;
            continue;
        }
        std::size_t column = 0, index = 0;
        while (index < card.fields.size() && column < read.column) column += card.fields[index++].width;
        const bool found = index < card.fields.size() && column == read.column &&
                           card.fields[index].kind != Kind::text && card.fields[index].width == read.width;
        if (found) {
            fit.fields |= 1U << index;
            fit.end = std::max<std::size_t>(fit.end, column + read.width);
        } else if (drops_zeros(card) && read.column >= column && index == card.fields.size()) {
            fit.beyond.push_back(read);
        } else {
            fit.in_step = false;
            break;
        }
    }
    return fit;
}

// All that the handlers of the block read of the line. What a flawed keyword line has put out of step does not count.
ConvertedBlock::Fit ConvertedBlock::read_of(const LineOfBlock& line)
{
    Fit all;
    for (const PatternNumber pattern : line.patterns) {
        if (line.place.card == nullptr) {
            all.in_step = flawed_;
            continue;
        }
        const Fit& fit = fit_of(pattern, *line.place.card);
        if (!fit.in_step) {
            all.in_step = all.in_step && flawed_;
            continue;
        }
        all.whole = all.whole || fit.whole;
        all.fields |= fit.fields;
        all.end = std::max(all.end, fit.end);
        all.beyond.insert(all.beyond.end(), fit.beyond.begin(), fit.beyond.end());
    }
    return all;
}

// The converter reads the line as something else than it is: the block has an option or a form that it does not know.
void ConvertedBlock::out_of_step(const LineOfBlock& line)
{
    if (whole_told_ || errors_) return;
    const std::string& keyword = block_->head->keyword.name;
    const bool heading = line.place.card == &deck::title_card || line.place.card == &deck::id_card;
    if (!block_->match.exact) {
        stand_alone("MD208", block_->keyword + " is read as " + std::string(block_->match.layout->keyword) +
                                 ": cards of its option are taken for something else");
    } else if (heading) {
        stand_alone("MD209", keyword + " converts only without a title, or with _ID: its title is read as a card");
    } else if (keyword.starts_with("*CONTACT")) {
        stand_alone("MD209", keyword + " converts only with _ID: its first card is read as the ID card");
    } else {
        const Inked ink = inked(line.line->text);
        tell("MD206", line, ink.begin, ink.end, "the card is read in other columns than it is written in");
        pending_.back().severity = deck::Severity::error;
        errors_ = true;
    }
}

std::uint32_t ConvertedBlock::take(const LineOfBlock& line, const deck::Parameters& parameters)
{
    if (whole_told_) return 0;
    const std::string_view text = line.line->text;
    const Inked ink = inked(text);
    if (two_lines_) {
        if (line.place.first_of_group && ink.end > 0)
            tell("MD110", line, ink.begin, ink.end, "the solid stands on two lines, each of which is read as a solid");
        return 0;
    }
    if (line.patterns.empty()) {
        if (!flawed_ && ink.end > 0) take_unread(line);
        return 0;
    }
    const Fit fit = read_of(line);
    if (!fit.in_step) {
        out_of_step(line);
        return 0;
    }
    if (fit.whole) take_title(line);
    if (line.place.card == nullptr || is_text(*line.place.card) || (fit.fields == 0 && fit.beyond.empty())) return 0;
    if (ink.end == 0) {
        take_blank(line);
        return 0;
    }
    if (line.free) {
        tell("MD103", line, ink.begin, ink.end, "the card has commas: morvex reads columns");
        return 0;
    }
    std::uint32_t lost = 0;
    misread_.clear();
    find_misread({text, line.line->carriage_return, line.fields, fit.fields}, parameters, misread_, lost);
    for (const Misread& misread : misread_) tell_misread(line, misread);
    const bool card_lost = !misread_.empty() && misread_.front().field == nullptr;
    if (card_lost) return 0;
    if (!fit.beyond.empty())
        take_beyond(line, fit);
    else if (text.size() > fit.end && !fit.whole && !flawed_)
        take_behind(line, std::max(fit.end, logged_end(line)));
    take_values(line, fit);
    return lost;
}

// ---- lines that are not read, or read as nothing -------------------------------------------------------------------

void ConvertedBlock::take_unread(const LineOfBlock& line)
{
    const std::string_view text = line.line->text;
    const bool further = line.place.card != nullptr && line.place.group > 0 && !line.place.read &&
                         block_->match.exact && block_->match.layout->groups == deck::Groups::many;
    const std::optional<Inked> value = value_from(text, 0);
    if (!value) return;
    if (further) {
        if (last_further_ == line.place.group) return;
        last_further_ = line.place.group;
        const Inked ink = inked(text);
        tell("MD205", line, ink.begin, ink.end, "only the first definition of the block is converted, this one is not");
        return;
    }
    tell("MD206", line, value->begin, value->end, "the card is not read");
}

void ConvertedBlock::take_behind(const LineOfBlock& line, std::size_t from)
{
    const std::string_view text = line.line->text;
    while (from > 0 && from < text.size() && !is_blank(text[from - 1]) && !is_blank(text[from])) ++from;
    const std::optional<Inked> value = value_from(text, from);
    if (value)
        tell("MD206", line, value->begin, value->end,
             "\"" + std::string(text.substr(value->begin, value->end - value->begin)) + "\" of " + block_->keyword +
                 " is not read");
}

void ConvertedBlock::take_beyond(const LineOfBlock& line, const Fit& fit)
{
    const std::string_view text = line.line->text;
    for (const ReadField& read : fit.beyond) {
        if (read.column >= text.size()) continue;
        const std::string_view field = text.substr(read.column, read.width);
        if (deck::strict_number(field, read.width) == 0) continue;
        const Inked ink = inked(field);
        tell("MD206", line, read.column + ink.begin, read.column + ink.end,
             "\"" + std::string(field) + "\" behind column 80 is read as a further member");
        pending_.back().severity = deck::Severity::error;
        errors_ = true;
        return;
    }
    take_behind(line, std::max<std::size_t>(fit.beyond.back().column + fit.beyond.back().width, fit.end));
}

void ConvertedBlock::take_blank(const LineOfBlock& line)
{
    const CardLayout& card = *line.place.card;
    const deck::Layout& layout = *block_->match.layout;
    const bool in_list =
        layout.reads == Reads::all || (layout.reads == Reads::first_if_headed && !block_->match.headed);
    const bool first_of_many = layout.groups == deck::Groups::many && in_list && line.place.index == 0;
    const bool listed = card.occurs == deck::Occurs::to_the_end;
    const bool makes_something = !drops_zeros(card) && (first_of_many || listed || defines(card));
    tell("MD112", line, 0, 0,
         makes_something ? "the blank line is read as a card of zeros" : "the blank line is a card of zeros");
    pending_.back().mended_by_prepare = first_of_many || listed || defines(card);  // not one that the keyword has
    if (!makes_something) return;
    pending_.back().severity = deck::Severity::error;
    errors_ = true;
}

// A carriage return that is written with the title.
void ConvertedBlock::take_title(const LineOfBlock& line)
{
    const std::string& keyword = block_->head->keyword.name;
    const std::size_t kept = keyword.starts_with("*TITLE") ? 46 : 80;
    if (!line.line->carriage_return || line.line->text.size() >= kept || !title_is_written(keyword)) return;
    const Inked ink = inked(line.line->text);
    tell("MD113", line, ink.begin, ink.end, "the carriage return behind the title is written with it");
    pending_.back().severity = deck::Severity::error;
}

// ---- fields --------------------------------------------------------------------------------------------------------

void ConvertedBlock::tell_misread(const LineOfBlock& line, const Misread& misread)
{
    std::string message = misread.why;
    if (misread.field != nullptr)
        message = "\"" + misread.text + "\" in field " + std::string(misread.field->name) + " of " + block_->keyword +
                  " " + misread.why;
    tell(misread.code, line, misread.column, misread.end, std::move(message));
    Finding& found = pending_.back();
    if (misread.field != nullptr) found.field = misread.field->name;
    found.text = misread.text;
    found.read_as = misread.read_as;
    found.mended_by_prepare = misread.mended;
}

const ShapeNumber* ConvertedBlock::shape_of(std::size_t group) const
{
    if (shapes_ == nullptr) return nullptr;
    if (shapes_->size() == 1) return shapes_->data();
    return group < shapes_->size() ? &(*shapes_)[group] : nullptr;
}

const ConvertedBlock::Logged& ConvertedBlock::logged_of(ShapeNumber shape_number, const CardLayout& card)
{
    const auto [place, is_new] = logged_.try_emplace({shape_number, &card});
    Logged& logged = place->second;
    if (!is_new) return logged;
    const LogShape& shape = reading_->shapes[shape_number];
    for (const std::string& name : shape.unused)
        if (const auto field = field_named(card, name); field && !is_written_elsewhere(*block_->match.layout, name))
            logged.unused |= 1U << *field;
    for (const LogShape::Replaced& replaced : shape.replaced)
        if (const auto field = field_named(card, replaced.field)) logged.replaced.emplace_back(*field, replaced.by);
    for (std::size_t i = 0; shape.refused && i < card.fields.size(); ++i)
        if (std::find(std::begin(refusing_fields), std::end(refusing_fields), card.fields[i].name) !=
            std::end(refusing_fields))
            logged.refusing.push_back(i);
    return logged;
}

// What the log says of the line's card; null when it says nothing.
const ConvertedBlock::Logged* ConvertedBlock::logged_of(const LineOfBlock& line)
{
    const ShapeNumber* const shape = shape_of(line.place.group);
    return shape == nullptr ? nullptr : &logged_of(*shape, *line.place.card);
}

// Behind the last field of the card that the log names: of a list it is read on the last card alone.
std::size_t ConvertedBlock::logged_end(const LineOfBlock& line)
{
    const Logged* const logged = logged_of(line);
    if (logged == nullptr || logged->unused == 0) return 0;
    const auto last = static_cast<std::size_t>(std::bit_width(logged->unused)) - 1;
    return (*line.fields)[last].column + (*line.fields)[last].width;
}

void ConvertedBlock::tell_value(std::string_view code, const LineOfBlock& line, std::size_t field,
                                const std::string& said, std::string read_as)
{
    const FieldText& text = (*line.fields)[field];
    const Inked ink = inked(text.text);
    const bool blank = ink.end == 0;
    const Inked at = blank ? Inked{inked(line.line->text).begin, inked(line.line->text).begin + 1}
                           : Inked{text.column + ink.begin, text.column + ink.end};
    const std::string name(text.field->name);
    std::string message = blank ? "blank field " + name : name + " " + std::string(deck::trimmed(text.text));
    message.append(" of ").append(block_->keyword).append(" ").append(said);
    tell(code, line, at.begin, at.end, std::move(message));
    Finding& found = pending_.back();
    found.field = name;
    found.text = std::string(text.text);
    found.read_as = std::move(read_as);
}

void ConvertedBlock::take_fixed_values(const LineOfBlock& line, std::size_t field, double value)
{
    for (const FixedValue& fixed : fixed_values) {
        if (block_->match.layout->keyword != fixed.keyword || (*line.fields)[field].field->name != fixed.field)
            continue;
        if (value == 0 || value == fixed.value) return;
        tell_value("MD303", line, field, "is not taken over: the main deck has " + std::string(fixed.text), "");
    }
}

// What becomes of the card's values in the output.
void ConvertedBlock::take_values(const LineOfBlock& line, const Fit& fit)
{
    const Logged* const known = logged_of(line);
    if (known == nullptr) return;
    const Logged& logged = *known;
    const bool settings = block_->keyword.starts_with("*CONTROL") || block_->keyword.starts_with("*DATABASE");
    if (logged.unused == 0 && logged.replaced.empty() && logged.refusing.empty() && !settings) return;
    const auto value_of = [&](std::size_t i) {
        const FieldText& field = (*line.fields)[i];
        std::string text(field.text);
        if (line.line->carriage_return && text.size() < field.width) text += '\r';
        return deck::strict_number(text, field.width);
    };
    const auto is_misread = [&](std::size_t i) {
        return std::any_of(misread_.begin(), misread_.end(),
                           [&](const Misread& misread) { return misread.field == (*line.fields)[i].field; });
    };
    for (std::size_t i = 0; i < line.fields->size(); ++i) {
        if (((fit.fields | logged.unused) >> i & 1) == 0) continue;
        const double value = value_of(i);
        if (is_misread(i)) continue;
        if ((logged.unused >> i & 1) != 0 && value != 0)
            tell_value("MD301", line, i, "is not in the output", "");
        else if (settings && (logged.unused >> i & 1) == 0)
            take_fixed_values(line, i, value);
    }
    for (const auto& [field, by] : logged.replaced)
        if (!is_misread(field)) tell_value("MD302", line, field, "is replaced: " + by, written_instead(by));
    const auto refusing = std::find_if(logged.refusing.begin(), logged.refusing.end(),
                                       [&](std::size_t field) { return value_of(field) != 0; });
    if (refusing != logged.refusing.end()) tell_value("MD201", line, *refusing, "has the card skipped", "");
}
}  // namespace check
