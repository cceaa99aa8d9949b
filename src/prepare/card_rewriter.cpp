#include "prepare/card_rewriter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "deck/fault.h"
#include "deck/include_transform.h"
#include "deck/keyword_line.h"

namespace prepare
{

namespace
{
using deck::Field;
using deck::FieldNumber;
using deck::FieldText;
using deck::Kind;
using Form = deck::FieldNumber::Form;

bool is_number(Kind kind)
{
    return kind != Kind::text && kind != Kind::word;
}

// An integer that ends its field is complete; any other number may go on in the next one.
bool may_go_on(Kind kind)
{
    return kind == Kind::real || kind == Kind::word;
}

std::string_view message_of(std::string_view code)
{
    if (code == "MD101") return "a number moved to its field's last column";
    if (code == "MD102") return "a number that the line's end cut off moved to its field's last column";
    if (code == "MD103") return "commas replaced by columns";
    if (code == "MD104") return "a parameter's value put in";
    if (code == "MD105") return "an exponent written with E";
    if (code == "MD107") return "a number moved out of the next field";
    if (code == "MD108") return "written in standard columns";
    if (code == "MD109") return "tabs replaced by blanks";
    if (code == "MD124") return "offsets or transformation of the include file applied";
    return "";
}

// ---- plain cards ---------------------------------------------------------------------------------------------------

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// Blanks, then a number without anything behind it, or blanks alone.
bool is_plain_field(const char* at, const char* end)
{
    while (at != end && *at == ' ') ++at;
    if (at == end) return true;
    if (*at == '-' || *at == '+') ++at;
    const char* const digits = at;
    while (at != end && is_digit(*at)) ++at;
    auto count = at - digits;
    if (at != end && *at == '.') {
        const char* const point = at++;
        while (at != end && is_digit(*at)) ++at;
        count += at - point - 1;
    }
    if (count == 0) return false;
    if (at == end) return true;
    if (*at != 'e' && *at != 'E') return false;
    ++at;
    if (at != end && (*at == '-' || *at == '+')) ++at;
    const char* const exponent = at;
    while (at != end && is_digit(*at)) ++at;
    return at == end && at != exponent;
}

// True when a tab does not stand for one blank; behind the last character it does no harm.
bool tabs_move_numbers(std::string_view line)
{
    line = line.substr(0, line.find_last_not_of(" \t\r") + 1);
    std::string blanks(line);
    std::replace(blanks.begin(), blanks.end(), '\t', ' ');
    return deck::with_tabs_expanded(line) != blanks;
}

bool is_blank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

// ---- texts of numbers ----------------------------------------------------------------------------------------------

// The text that stands in the field and is read as is meant; nothing when none fits.
std::optional<std::string> fitting(Kind kind, Form form, double value, const std::string& text, std::size_t width)
{
    if (form == Form::fortran) {
        if (auto rewritten = deck::with_exponent_letter(text); rewritten && rewritten->size() <= width)
            return rewritten;
    } else if (text.size() <= width) {
        return text;
    }
    if (form == Form::none || form == Form::empty) return std::nullopt;
    if (kind != Kind::real)
        if (const auto whole = deck::whole(value)) return deck::shortest_integer(*whole, width);
    return deck::shortest_real(value, width);
}

std::optional<std::string> text_of(double value, Kind kind, std::size_t width)
{
    if (kind != Kind::real)
        if (const auto whole = deck::whole(value)) return deck::shortest_integer(*whole, width);
    return deck::shortest_real(value, width);
}

void put(std::string& line, std::size_t column, std::size_t width, std::string_view text)
{
    if (line.size() < column + width) line.resize(column + width, ' ');
    line.replace(column, width, std::string(width - text.size(), ' ').append(text));
}
}  // namespace

bool is_plainly_strict(std::string_view line, const deck::CardLayout& card)
{
    if (std::memchr(line.data(), ',', line.size()) != nullptr) return false;
    std::size_t at = 0;
    for (const Field& field : card.fields) {
        if (at >= line.size() || field.kind == Kind::text) break;
        const std::string_view text = line.substr(at, field.width);
        if (text.size() < field.width ? !is_blank(text) : !is_plain_field(text.data(), text.data() + text.size()))
            return false;
        at += field.width;
    }
    return std::memchr(line.data(), '\t', line.size()) == nullptr;
}

// ---- what the fields mean ------------------------------------------------------------------------------------------

void CardRewriter::evaluate(const FieldText& field, Meaning& meaning)
{
    const deck::Evaluation evaluation = parameters_->evaluate(field.text);
    if (!evaluation.value)
        throw Undefined{field.column + evaluation.column + 1,
                        "\"" + std::string(deck::trimmed(field.text)) + "\": " + evaluation.why_not};
    meaning.code = "MD104";
    if (evaluation.value->type == deck::Value::Type::text) {
        const FieldNumber number = deck::standard_number(evaluation.value->text);
        meaning.form = number.form;
        meaning.value = number.value;
        meaning.text = deck::trimmed(evaluation.value->text);
        return;
    }
    meaning.form = Form::real;
    meaning.value = evaluation.value->number;
    meaning.text = text_of(meaning.value, field.field->kind, field.field->width)
                       .value_or(std::string(field.field->width + 1, '?'));  // fits nowhere
}

// A number that begins in the field and ends in the next one is certain when another number stands behind it there:
// read by column, the next field would be no number. Where both fields are numbers by column, they are these.
void CardRewriter::join_across(std::size_t index)
{
    const FieldText& field = fields_[index];
    const FieldText& next = fields_[index + 1];
    if (!may_go_on(field.field->kind) || !is_number(next.field->kind)) return;
    if (field.text.size() < field.width || next.text.empty() || field.text.back() == ' ' || next.text.front() == ' ')
        return;
    if (field.text.front() != ' ' || !(is_digit(next.text.front()) || next.text.front() == '.')) return;
    const std::string_view head = deck::trimmed(field.text);
    const std::size_t end = std::min(next.text.find(' '), next.text.size());
    const std::string_view rest = deck::trimmed(next.text.substr(end));
    const std::string joined = std::string(head).append(next.text.substr(0, end));
    const FieldNumber whole = deck::standard_number(joined);
    const FieldNumber behind = deck::standard_number(rest);
    if (whole.form == Form::none || behind.form == Form::none || behind.form == Form::empty) return;
    const bool ends = index + 2 >= fields_.size() || fields_[index + 2].text.empty() || next.text.back() == ' ' ||
                      fields_[index + 2].text.front() == ' ';
    if (!ends) return;
    meanings_[index] = {whole.form, whole.value, joined, "MD107"};
    meanings_[index + 1] = {behind.form, behind.value, std::string(rest), "MD107"};
}

void CardRewriter::shift(const deck::ContentChange& change, const deck::CardWalk& walk)
{
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (fields_[i].field == nullptr || fields_[i].field->kind == Kind::text) continue;
        const deck::Names names = deck::named(*fields_[i].field, walk.values());
        Meaning& meaning = meanings_[i];
        if (names == deck::Names::nothing || !(meaning.value > 0)) continue;  // 0 names nothing
        const auto whole = deck::whole(meaning.value);
        const std::int64_t offset = change.offset(deck::offset_of(names));
        if (!whole || offset == 0) continue;
        const std::int64_t shifted = deck::saturated_sum(*whole, offset);
        meaning = {Form::integer, static_cast<double>(shifted), std::to_string(shifted), "MD124"};
    }
}

void CardRewriter::transform(const deck::Transformation& transformation)
{
    constexpr std::size_t first = 1;  // x, y, z behind the node's number
    if (transformation.is_identity() || fields_.size() < first + 3) return;
    const deck::Point moved =
        transformation({meanings_[first].value, meanings_[first + 1].value, meanings_[first + 2].value});
    const double values[] = {moved.x, moved.y, moved.z};
    for (std::size_t i = 0; i < 3; ++i) {
        Meaning& meaning = meanings_[first + i];
        if (meaning.value == values[i]) continue;
        meaning = {Form::real, values[i], text_of(values[i], Kind::real, fields_[first + i].field->width).value_or("?"),
                   "MD124"};
    }
}

void CardRewriter::understand(const CardStyle& style, deck::CardWalk& walk)
{
    meanings_.assign(fields_.size(), {});
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const FieldText& field = fields_[i];
        if (field.field == nullptr || field.field->kind == Kind::text) continue;
        Meaning& meaning = meanings_[i];
        if (deck::refers_to_parameter(field.text)) {
            evaluate(field, meaning);
        } else {
            const FieldNumber number = deck::standard_number(field.text);
            meaning = {number.form, number.value, std::string(deck::trimmed(field.text)), {}};
        }
        if (i < deck::GroupValues::most_fields) walk.set_value(i, meaning.value);
    }
    if (style.change == nullptr) return;
    shift(*style.change, walk);
    if (style.bulk && fields_.size() > 1 && fields_[0].field->name == "nid" && fields_[1].field->name == "x")
        transform(style.change->transformation);
}

// ---- writing -------------------------------------------------------------------------------------------------------

// True when the converter reads another value than is meant from the field at that column of the line.
bool CardRewriter::differs(std::size_t index, std::string_view line, std::size_t column) const
{
    const Field& field = *fields_[index].field;
    const Meaning& meaning = meanings_[index];
    const std::string_view text = column < line.size() ? line.substr(column, field.width) : std::string_view{};
    if (field.kind == Kind::text) return false;
    if (meaning.code == "MD104") return true;
    if (field.kind != Kind::word)
        return meaning.form != Form::none && deck::strict_number(text, field.width) != meaning.value;
    const bool read = text.size() == field.width && text.back() != ' ';
    const std::string_view word = read ? deck::trimmed(text) : std::string_view{};
    if (word == meaning.text) return false;
    const bool means_nothing = meaning.form != Form::none && meaning.value == 0;
    const FieldNumber number = deck::standard_number(word);
    return !means_nothing || number.form == Form::none || number.value != 0;
}

// True for a number that is well where it is (a zero, or one that is not read), but for the number before it in the
// line, which seems to go on in it as another one.
bool CardRewriter::seems_to_go_on(std::size_t index, std::string_view line) const
{
    if (index == 0 || fields_[index].text.empty() || meanings_[index].form == Form::none) return false;
    const FieldText& field = fields_[index];
    const std::string_view before = line.substr(fields_[index - 1].column, fields_[index - 1].width);
    if (!may_go_on(fields_[index - 1].field->kind) || before.back() == ' ') return false;
    if (!is_digit(field.text.front()) && field.text.front() != '.') return false;
    const std::string_view tail = field.text.substr(0, field.text.find(' '));
    if (tail.size() == field.width) return false;
    const std::string_view head = before.substr(before.find_last_of(' ') + 1);
    const FieldNumber whole = deck::standard_number(std::string(head).append(tail));
    return whole.form != Form::none && whole.value != meanings_[index - 1].value;
}

// True when the number, once moved, would seem to go on in the next field, where two numbers stand.
bool CardRewriter::would_touch(std::size_t index) const
{
    if (index + 1 >= fields_.size() || meanings_[index + 1].form != Form::none) return false;
    if (!may_go_on(fields_[index].field->kind)) return false;
    const std::string_view next = fields_[index + 1].text;
    return !next.empty() && (is_digit(next.front()) || next.front() == '.');
}

// In standard columns only the fields that are misread change.
bool CardRewriter::touch_up(std::string_view line, std::string_view blanks_for_tabs, bool read, bool all, Rewritten& to)
{
    bool changed = false;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const FieldText& field = fields_[i];
        const bool counts = all || (read && field.field->converted);
        const bool misread = counts && differs(i, line, field.column);
        if (!misread && !(read && seems_to_go_on(i, changed ? std::string_view(to.text) : blanks_for_tabs))) continue;
        if (would_touch(i)) continue;
        const Meaning& meaning = meanings_[i];
        const auto text = fitting(field.field->kind, meaning.form, meaning.value, meaning.text, field.width);
        std::string_view code = meaning.code;
        if (code.empty() && meaning.form == Form::fortran && field.text.size() == field.width &&
            field.text.back() != ' ')
            code = "MD105";
        if (code.empty()) code = field.cut ? "MD102" : "MD101";
        if (!text) {
            to.troubles.push_back({"MD114", field.column + 1,
                                   "\"" + std::string(deck::trimmed(field.text)) + "\" does not fit its field"});
            continue;
        }
        if (!changed) {
            to.text = blanks_for_tabs;
            if (to.code.empty()) to.code = code;
        }
        changed = true;
        put(to.text, field.column, field.width, *text);
    }
    return changed;
}

// What stands behind the last field of a card whose columns change.
void CardRewriter::behind(std::string_view line, const deck::CardLayout& card, const CardStyle& style, Rewritten& to)
{
    const FieldText rest = deck::behind_fields(line, card, style.format, style.bulk);
    if (rest.text.empty()) return;
    const FieldNumber number = deck::standard_number(rest.text);
    if (number.form != Form::none && number.value == 0) return;
    if (rest.text.find_first_not_of("0., ") == std::string_view::npos) return;
    to.troubles.push_back(
        {"MD206", rest.column + 1, "\"" + std::string(rest.text) + "\" behind the card's last field is dropped"});
}

bool CardRewriter::compose(std::string_view line, const deck::CardLayout& card, bool read, const CardStyle& style,
                           Rewritten& to)
{
    const bool all = style.format != deck::Format::standard || style.change != nullptr;
    bool needed = style.format != deck::Format::standard;
    std::size_t column = 0;
    for (std::size_t i = 0; i < card.fields.size() && !needed; ++i) {
        needed = (all && differs(i, line, column)) || read;
        column += card.fields[i].width;
    }
    if (!needed) return false;
    to.code = style.format != deck::Format::standard ? "MD108" : "MD103";
    to.text.clear();
    column = 0;
    for (std::size_t i = 0; i < card.fields.size(); ++i) {
        const Field& field = card.fields[i];
        const Meaning& meaning = meanings_[i];
        if (field.kind == Kind::text) {
            if (!fields_[i].text.empty()) to.text.append(column - to.text.size(), ' ').append(fields_[i].text);
            break;
        }
        if (meaning.form != Form::empty) {
            auto text = fitting(field.kind, meaning.form, meaning.value, meaning.text, field.width);
            if (!text) {
                to.troubles.push_back({"MD114", fields_[i].column + 1,
                                       "\"" + std::string(deck::trimmed(fields_[i].text)) +
                                           "\" does not fit its field of " + std::to_string(field.width) + " columns"});
                text = std::string(field.width, '?');
            }
            put(to.text, column, field.width, *text);
        }
        column += field.width;
    }
    behind(line, card, style, to);
    return true;
}

// Cards of fields of ten columns have eight of them, also where the layout knows fewer.
const deck::CardLayout& CardRewriter::with_all_columns(const deck::CardLayout& card)
{
    constexpr std::size_t most = 8;
    const bool ten_wide = std::all_of(card.fields.begin(), card.fields.end(),
                                      [](const Field& field) { return field.kind != Kind::text && field.width == 10; });
    if (card.fields.size() >= most || !ten_wide) return card;
    const auto known = extended_.find(&card);
    if (known != extended_.end()) return known->second.card;
    Extended& extended = extended_[&card];
    extended.fields.assign(card.fields.begin(), card.fields.end());
    extended.fields.resize(most, Field{.name = "", .kind = Kind::word, .converted = false});
    extended.card = card;
    extended.card.fields = extended.fields;
    return extended.card;
}

void stop_at(const deck::DeckReader& reader, deck::FileNumber file, std::size_t line, const Undefined& undefined)
{
    throw deck::Fault(deck::problem_at(reader.place(file, line, undefined.column), "MD123", undefined.why));
}

bool CardRewriter::rewrite(std::string_view line, const deck::CardLayout& layout_card, bool read,
                           const CardStyle& style, deck::CardWalk& walk, Rewritten& to)
{
    to.code = {};
    to.troubles.clear();
    if (layout_card.fields.empty() || layout_card.fields[0].kind == Kind::text) return false;
    const bool standard = style.format == deck::Format::standard;
    const bool changes = style.change != nullptr;
    read = read || !standard || changes;
    std::string_view expanded = line;
    if (line.find('\t') != std::string_view::npos) expanded = expanded_ = deck::with_tabs_expanded(line);
    const bool free = deck::is_free(expanded, layout_card);
    const deck::CardLayout& card = standard && !free ? layout_card : with_all_columns(layout_card);
    deck::split_card(expanded, card, style.format, style.bulk, fields_);
    try {
        understand(style, walk);
    } catch (const Undefined&) {
        if (read) throw;
        return false;
    }
    bool changed = false;
    if (standard && !free) {
        for (std::size_t i = 0; i + 1 < fields_.size(); ++i) join_across(i);
        const bool tabs_matter = read && tabs_move_numbers(line);
        if (tabs_matter) {
            to.code = "MD109";
            to.text = expanded;
        }
        // behind the last character a tab is read as a part of its field
        changed = touch_up(tabs_matter ? expanded : line, expanded, read, changes, to) || tabs_matter;
        if (tabs_matter && to.text.empty()) to.text = expanded;
    } else {
        changed = compose(expanded, card, read, style, to) && to.text != line;
    }
    to.message = message_of(to.code);
    return changed;
}

}  // namespace prepare
