#include "prepare/block_writer.h"

#include <algorithm>
#include <utility>

#include "deck/keyword_line.h"

namespace prepare
{

namespace
{
using deck::CardPlace;
using deck::Groups;
using deck::Heading;
using deck::Occurs;
using deck::Reads;

bool is_blank(std::string_view text)
{
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
}

bool is_heading(const CardPlace& place)
{
    return place.card != nullptr && place.index == CardPlace::no_index;
}

bool is_text(const deck::CardLayout& card)
{
    return !card.fields.empty() && card.fields[0].kind == deck::Kind::text;
}

// Blocks of which the converter reads one definition, and that can hold several.
bool has_lost_definitions(const deck::LayoutMatch& match)
{
    if (!match.exact || match.layout->groups != Groups::many) return false;
    return match.layout->reads == Reads::first_group || (match.layout->reads == Reads::first_if_headed && match.headed);
}

bool counts_cards(const deck::Layout& layout)
{
    return std::any_of(layout.cards.begin(), layout.cards.end(), [](const deck::CardLayout& card) {
        return card.count != nullptr ||
               std::any_of(card.fields.begin(), card.fields.end(), [](const auto& f) { return f.by_type != nullptr; });
    });
}

// A card of eight fields behind those that the layout knows.
const deck::CardLayout& further_card()
{
    static constexpr deck::Field field{.name = "", .kind = deck::Kind::word, .converted = false};
    static constexpr deck::Field fields[] = {field, field, field, field, field, field, field, field};
    static constexpr deck::CardLayout card{.name = "", .fields = fields, .converted = false};
    return card;
}
}  // namespace

BlockWriter::BlockWriter(deck::DeckReader& reader, Output& output, TroubleReport report, bool origins)
    : reader_(&reader), output_(&output), report_(std::move(report)), origins_(origins), rewriter_(reader.parameters())
{
}

void BlockWriter::changed(std::string_view code, std::size_t line, std::string_view before, std::string_view after,
                          std::string_view message)
{
    output_->change({code, file_, line, 0, before, after, message});
}

void BlockWriter::trouble(const Trouble& trouble, std::size_t line)
{
    report_(trouble.code, reader_->place(file_number_, line, trouble.column), trouble.message);
}

void BlockWriter::origin(std::size_t line)
{
    if (origins_) output_->line("$ from " + file_ + ":" + std::to_string(line));
}

void BlockWriter::keyword_line(const deck::Block& head, const KeywordForm& form)
{
    file_ = reader_->file(head.file).name;
    file_number_ = head.file;
    origin(head.line);
    if (form.line != head.keyword.text) changed(form.code, head.line, head.keyword.text, form.line, form.message);
    output_->line(form.line);
}

void BlockWriter::write(const KeywordForm& form, const CardStyle& style)
{
    const deck::Block& head = reader_->block();
    form_ = &form;
    style_ = style;
    first_line_ = head.line;
    walk_ = deck::CardWalk(form.match);
    splits_ = has_lost_definitions(form.match);
    needs_values_ = counts_cards(*form.match.layout);
    begun_ = two_lines_ = false;
    id_card_.clear();
    keyword_line(head, form);

    for (deck::Line line; reader_->next_line(line);) {
        if (!deck::is_comment(line.text) && is_blank(line.text))
            blank(line);
        else if (!deck::is_comment(line.text))
            data(line);
        else if (!waiting_.empty())
            waiting_.push_back({std::string(line.text), line.number});
        else
            output_->line(line.text);
    }
    settle_waiting(true);
    if (joiner_.is_waiting()) output_->line(*joiner_.with_nodes(""));
    if (form.match.exact) missing_cards();
}

// ---- blank lines ---------------------------------------------------------------------------------------------------

// True when a blank line at that place is an entry of a list that names nothing.
bool BlockWriter::drops(const CardPlace& place) const
{
    if (!form_->match.exact || place.card == nullptr || place.card->fields.empty() || is_text(*place.card))
        return false;
    if (place.card->occurs == Occurs::to_the_end) return true;
    if (form_->match.layout->groups != Groups::many || place.index != 0 || is_heading(place)) return false;
    if (splits_ && place.group > 0 && place.first_of_group) return false;
    return style_.bulk || place.card->fields[0].names != deck::Names::nothing;
}

// True when it depends on what comes whether it is one.
bool BlockWriter::waits(const CardPlace& place) const
{
    return form_->match.exact && place.first_of_group && place.group > 0;
}

void BlockWriter::blank(const deck::Line& line)
{
    if (!waiting_.empty()) {
        waiting_.push_back({std::string(line.text), line.number});
        return;
    }
    deck::CardWalk ahead = walk_;
    const CardPlace place = ahead.next();
    if (drops(place))
        changed("MD112", line.number, line.text, "", "a blank line in a list taken out");
    else if (waits(place))
        waiting_.push_back({std::string(line.text), line.number});
    else
        card(line.text, line.number);
}

// Blank lines behind a group: nothing at the block's end, and before a further definition in columns; else cards.
void BlockWriter::settle_waiting(bool at_the_end)
{
    if (waiting_.empty()) return;
    const std::vector<Held> held = std::exchange(waiting_, {});
    deck::CardWalk ahead = walk_;
    const CardPlace place = ahead.next();
    const bool is_list = form_->match.layout->reads == Reads::all || !splits_;
    const bool drop = at_the_end ? is_list : splits_ && !is_heading(place) && !is_text(*place.card);
    for (const Held& line : held) {
        if (deck::is_comment(line.text) || (at_the_end && !drop))
            output_->line(line.text);
        else if (drop)
            changed("MD112", line.line, line.text, "", "a blank line in a list taken out");
        else
            card(line.text, line.line);
    }
}

// ---- cards ---------------------------------------------------------------------------------------------------------

void BlockWriter::data(const deck::Line& line)
{
    if (!waiting_.empty()) {
        const std::string text(line.text);  // the view does not outlast what follows
        settle_waiting(false);
        card(text, line.number);
        return;
    }
    if (!std::exchange(begun_, true) && form_->match.exact && form_->match.layout->keyword == "*ELEMENT_SOLID" &&
        is_on_two_lines(line.text, style_.format)) {
        two_lines_ = true;
        walk_ = deck::CardWalk({&deck::solid_on_two_lines(), form_->match.name, false, true});
    }
    card(line.text, line.number);
}

void BlockWriter::card(std::string_view text, std::size_t line)
{
    const CardPlace place = walk_.next();
    if (place.first_of_group) {
        if (place.group > 0 && splits_) further_definition(line);
        if (!form_->adds_title.empty()) {
            changed("MD209", line, "", form_->adds_title, "a title put in");
            output_->line(form_->adds_title);
        }
    }
    if (is_heading(place))
        heading(place, text, line);
    else if (place.card != nullptr && form_->drops_options && !place.card->option.empty())
        option_card(place, text, line);
    else
        write_card(place, text, line);
}

void BlockWriter::further_definition(std::size_t line)
{
    changed("MD205", line, "", form_->line, "a keyword line of its own for a further definition");
    origin(line);
    output_->line(form_->line);
    if (form_->match.headed && form_->match.layout->heading == Heading::id_once && !form_->drops_heading)
        output_->line(id_card_);
}

void BlockWriter::heading(const CardPlace& place, std::string_view text, std::size_t line)
{
    if (form_->drops_heading) {
        changed(form_->code, line, text, "", "the title's or id's card taken out");
        return;
    }
    write_card(place, text, line);
}

void BlockWriter::option_card(const CardPlace& place, std::string_view text, std::size_t line)
{
    Rewritten ignored;
    try {
        rewriter_.rewrite(text, *place.card, true, style_, walk_, ignored);
    } catch (const Undefined& undefined) {
        stop_at(*reader_, file_number_, line, undefined);
    }
    changed("MD208", line, text, "", "a card of an option taken out");
    report_("MD208", reader_->place(file_number_, line, 1), "what the option of the part says is not carried");
}

void BlockWriter::write_card(const CardPlace& place, std::string_view text, std::size_t line)
{
    const bool plain = style_.format == deck::Format::standard && style_.change == nullptr;
    const deck::CardLayout* layout = place.card;
    if (layout == nullptr && !plain) layout = &further_card();
    const bool untouched =
        layout == nullptr || layout->fields.empty() || (plain && !needs_values_ && is_plainly_strict(text, *layout));
    std::string_view written = text;
    if (!untouched) {
        const bool read = place.read || (splits_ && layout->converted);
        try {
            if (rewriter_.rewrite(text, *layout, read, style_, walk_, rewritten_)) written = rewritten_.text;
        } catch (const Undefined& undefined) {
            stop_at(*reader_, file_number_, line, undefined);
        }
        for (const Trouble& found : rewritten_.troubles) trouble(found, line);
    }
    if (two_lines_) return solid_card(place, text, written, line);
    if (written.data() != text.data()) changed(rewritten_.code, line, text, written, rewritten_.message);
    if (is_heading(place)) id_card_ = written;
    output_->line(written);
}

void BlockWriter::solid_card(const CardPlace& place, std::string_view before, std::string_view written,
                             std::size_t line)
{
    if (place.index == 0) {
        joiner_.take_first(written, line);
        return;
    }
    const std::string first = joiner_.first();
    const auto whole = joiner_.with_nodes(written);
    if (!whole) return;
    changed("MD110", joiner_.line(), first + "\n" + std::string(before), *whole, "a solid written on one line");
    output_->line(*whole);
}

void BlockWriter::missing_cards()
{
    for (const deck::CardLayout* card = walk_.missing(); card != nullptr; card = walk_.missing()) {
        const std::size_t line = first_line_;
        const CardPlace place = walk_.next();
        if (place.card == nullptr || two_lines_) break;
        if (form_->drops_options && !place.card->option.empty()) continue;
        if (place.first_of_group && !form_->adds_title.empty()) output_->line(form_->adds_title);
        if (is_heading(place) && form_->drops_heading) continue;
        const deck::Field* const first = place.card->fields.empty() ? nullptr : place.card->fields.data();
        const bool has_number = first != nullptr && first->kind != deck::Kind::text;
        const std::string zero = has_number ? std::string(first->width - 1U, ' ') + "0" : std::string();
        changed("MD207", line, "", zero, "a missing card put in");
        output_->line(zero);
    }
}

}  // namespace prepare
