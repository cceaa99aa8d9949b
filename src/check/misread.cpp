#include "check/misread.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "deck/field_number.h"
#include "deck/keyword_line.h"

namespace check
{
namespace
{
using deck::FieldNumber;
using deck::FieldText;
using deck::Kind;

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool is_integer(Kind kind)
{
    return kind == Kind::integer || kind == Kind::integer64;
}

// The field's text as the converter sees it: with the carriage return that may stand in its last columns.
std::string with_carriage_return(const ReadCard& card, const FieldText& field)
{
    std::string text(field.text);
    if (card.carriage_return && field.column + text.size() == card.line.size() && text.size() < field.width)
        text += '\r';
    return text;
}

struct Extent {
    std::size_t begin, end;  // columns of the line
};

// From the first to the last character that is no blank.
Extent extent_of(const FieldText& field)
{
    const std::string_view inner = deck::trimmed(field.text);
    const std::size_t begin =
        inner.empty() ? field.column : field.column + static_cast<std::size_t>(inner.data() - field.text.data());
    return {begin, begin + inner.size()};
}

Misread at_field(std::string_view code, const FieldText& field, std::string read_as, std::string why)
{
    const Extent extent = extent_of(field);
    return {code,           extent.begin, extent.end, field.field, std::string(field.text), std::move(read_as),
            std::move(why), true};
}

// ---- single fields -------------------------------------------------------------------------------------------------

// A reference to a parameter; false when the field has none.
bool find_reference(const ReadCard& card, const FieldText& field, const deck::Parameters& parameters,
                    std::vector<Misread>& to)
{
    if (!deck::refers_to_parameter(field.text)) return false;
    const deck::Evaluation evaluation = parameters.evaluate(field.text);
    if (!evaluation.value) {
        to.push_back(at_field("MD123", field, "", "has no value: " + evaluation.why_not));
        to.back().mended = false;
        return true;
    }
    const std::string read = with_carriage_return(card, field);
    const bool word = field.field->kind == Kind::word;
    std::string read_as = word ? std::string(read) : shown(deck::strict_number(read, field.width));
    const std::string means = deck::to_string(*evaluation.value);
    if (word && deck::strictly_empty(read, field.width)) read_as = "0";
    std::string why = "is read as " + (word ? "\"" + read_as + "\"" : read_as);
    why.append(": it is a parameter reference, and means ").append(means);
    to.push_back(at_field("MD104", field, std::move(read_as), std::move(why)));
    return true;
}

void find_lost_place(const ReadCard& card, const FieldText& field, std::vector<Misread>& to)
{
    const bool cut = field.column + field.width > card.line.size() + (card.carriage_return ? 1 : 0);
    to.push_back(at_field(cut ? "MD102" : "MD101", field, "0",
                          cut ? "is read as 0: the line ends before the field's last column"
                              : "is read as 0: it does not reach the field's last column"));
}

void find_misread_word(const ReadCard& card, const FieldText& field, std::vector<Misread>& to)
{
    const std::string read = with_carriage_return(card, field);
    if (!deck::strictly_empty(read, field.width)) return;
    const FieldNumber number = deck::standard_number(field.text);
    if (number.form == FieldNumber::Form::empty || (number.form != FieldNumber::Form::none && number.value == 0))
        return;
    find_lost_place(card, field, to);
}

void find_misread_integer(const FieldText& field, double value, double strict, std::vector<Misread>& to)
{
    const bool wide = field.field->kind == Kind::integer64;
    const double least = wide ? -0x1p63 : -0x1p31;
    const bool fits = value >= least && value < -least;
    if (fits && std::trunc(value) == value && value == strict) return;
    const double kept = fits ? std::trunc(strict) : least;
    to.push_back(at_field("MD114", field, shown(kept),
                          "is read as " + shown(kept) +
                              (fits   ? ": it is not whole"
                               : wide ? ": it is beyond 64 bits"
                                      : ": it is beyond 32 bits")));
    to.back().mended = false;
}

// True for a number other than 0 of which single precision, or even double, leaves nothing; not for a coordinate, which
// may as well be 0.
bool vanishes(const FieldNumber& number, const FieldText& field)
{
    const std::string_view name = field.field->name;
    if (static_cast<float>(number.value) != 0.0F || name == "x" || name == "y" || name == "z") return false;
    const std::string_view mantissa = field.text.substr(0, field.text.find_first_of("eEdD"));
    return number.value != 0 || mantissa.find_first_of("123456789") != std::string_view::npos;
}

void find_misread_number(const ReadCard& card, const FieldText& field, std::vector<Misread>& to, bool& lost)
{
    const FieldNumber number = deck::standard_number(field.text);
    if (number.form == FieldNumber::Form::empty) return;
    const std::string read = with_carriage_return(card, field);
    const double strict = deck::strict_number(read, field.width);
    const std::size_t before = to.size();
    if (number.form == FieldNumber::Form::none) {
        lost = true;
        to.push_back(at_field("MD106", field, shown(strict), "is read as " + shown(strict) + ": it is no number"));
        to.back().mended = false;
    } else if (deck::strictly_empty(read, field.width)) {
        if (number.value != 0) find_lost_place(card, field, to);
    } else if (number.form == FieldNumber::Form::fortran && number.value != strict) {
        to.push_back(
            at_field("MD105", field, shown(strict),
                     "is read as " + shown(strict) + ": its exponent has no E, and it means " + shown(number.value)));
    } else if (is_integer(field.field->kind)) {
        find_misread_integer(field, number.value, strict, to);
        lost = to.size() > before;
    } else if (std::isinf(static_cast<float>(number.value))) {
        to.push_back(at_field("MD114", field, number.value > 0 ? "inf" : "-inf",
                              "is beyond single precision, in which it is read"));
        to.back().mended = false;
    } else if (vanishes(number, field)) {
        to.push_back(at_field("MD114", field, "0", "is read as 0: it is too small for single precision"));
        to.back().mended = false;
    } else if (number.value != strict) {
        to.push_back(at_field("MD106", field, shown(strict), "is read as " + shown(strict) + ": it is no number"));
        to.back().mended = false;
    }
}

// ---- whole cards ---------------------------------------------------------------------------------------------------

// The characters around the end of a field that touch each other without a blank between; empty when none do.
Extent run_across(std::string_view line, const FieldText& field)
{
    const std::size_t border = field.column + field.width;
    if (line.size() <= border || is_blank(line[border - 1]) || is_blank(line[border])) return {border, border};
    Extent run{border - 1, border + 1};
    while (run.begin > field.column && !is_blank(line[run.begin - 1])) --run.begin;
    while (run.end < line.size() && !is_blank(line[run.end])) ++run.end;
    return run;
}

// The field that holds the column; the number of fields when none does.
std::size_t field_at(const std::vector<FieldText>& fields, std::size_t column)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (column >= fields[i].column && column < fields[i].column + fields[i].width) return i;
    return fields.size();
}

// A number that begins in field `at` and ends in the midst of a later one: the field in which it ends; `at` when there
// is none. Numbers that fill their fields touch each other, and so does one that begins with its sign. A whole number
// that ends its field is complete: what touches it is a number of its own.
std::size_t runs_into(const ReadCard& card, std::size_t at, Extent& run)
{
    const std::vector<FieldText>& fields = *card.fields;
    const FieldText& field = fields[at];
    run = run_across(card.line, field);
    if (run.begin == run.end || field.field->kind == Kind::text || is_integer(field.field->kind)) return at;
    const std::size_t last = field_at(fields, run.end - 1);
    if (last == fields.size() || fields[last].field->kind == Kind::text) return at;
    if (run.end == fields[last].column + fields[last].width) return at;
    const std::size_t border = field.column + field.width;
    const char before = card.line[border - 1];
    if ((card.line[border] == '-' || card.line[border] == '+') && (is_digit(before) || before == '.')) return at;
    const std::string_view text = card.line.substr(run.begin, run.end - run.begin);
    const FieldNumber number = deck::standard_number(text);
    if (number.form == FieldNumber::Form::none || deck::refers_to_parameter(text)) return at;
    return last;
}

// True when the numbers are read as they mean although one runs across a border: its tail is zeros.
bool same_in_spite_of_run(const ReadCard& card, std::size_t at, std::size_t last, const Extent& run)
{
    const std::vector<FieldText>& fields = *card.fields;
    const auto strict = [&](std::size_t i) {
        return deck::strict_number(with_carriage_return(card, fields[i]), fields[i].width);
    };
    const double means = deck::standard_number(card.line.substr(run.begin, run.end - run.begin)).value;
    if (last != at + 1 || strict(at) != means) return false;
    const std::size_t end = std::min(card.line.size(), fields[last].column + fields[last].width);
    const FieldNumber rest = deck::standard_number(card.line.substr(run.end, end - run.end));
    return rest.form != FieldNumber::Form::none && strict(last) == rest.value;
}

void add_run(const ReadCard& card, std::size_t at, const Extent& run, std::vector<Misread>& to)
{
    const FieldText& field = (*card.fields)[at];
    const double strict = deck::strict_number(with_carriage_return(card, field), field.width);
    Misread found = at_field("MD107", field, shown(strict), "");
    found.column = run.begin;
    found.end = run.end;
    found.text = card.line.substr(run.begin, run.end - run.begin);
    found.why = "is read as " + shown(strict) + ": it runs into the next field";
    to.push_back(std::move(found));
}

// Whether blanks in the tabs' places would leave the characters where they are.
bool tabs_move_numbers(std::string_view line)
{
    const std::size_t last = line.find_last_not_of(" \t\r");
    if (last == std::string_view::npos || line.find('\t') > last) return false;
    std::string blanks(line.substr(0, last + 1));
    std::replace(blanks.begin(), blanks.end(), '\t', ' ');
    return deck::with_tabs_expanded(line.substr(0, last + 1)) != blanks;
}

// What is wrong with the card as a whole; false when nothing is.
bool find_misread_card(const ReadCard& card, std::vector<Misread>& to)
{
    const std::string_view line = card.line;
    if (line.find('\t') != std::string_view::npos && tabs_move_numbers(line)) {
        const std::size_t tab = line.find('\t');
        to.push_back({"MD109", tab, tab + 1, nullptr, std::string(line), "",
                      "a tab is one character to the reader: what stands behind it is read in other columns", true});
        return true;
    }
    return false;
}

bool is_text_card(const std::vector<FieldText>& fields)
{
    return fields.empty() || fields.front().field == nullptr || fields.front().field->kind == Kind::text;
}
}  // namespace

std::string shown(double number)
{
    if (std::isnan(number)) return std::signbit(number) ? "-nan" : "nan";
    char text[40];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
    return {text, end.ptr};
}

bool is_plain(std::string_view text, bool integer)
{
    std::size_t at = 0;
    while (at < text.size() && text[at] == ' ') ++at;
    if (at == text.size()) return true;  // blank
    if (text[at] == '-') ++at;
    const std::size_t first = at;
    while (at < text.size() && is_digit(text[at])) ++at;
    std::size_t digits = at - first;
    if (integer) return at == text.size() && digits > 0 && digits <= 9;
    if (at < text.size() && text[at] == '.') {
        const std::size_t point = at++;
        while (at < text.size() && is_digit(text[at])) ++at;
        digits += at - point - 1;
    }
    if (digits == 0) return false;
    if (at == text.size()) return true;
    if (text[at] != 'e' && text[at] != 'E') return false;
    if (++at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    const std::size_t exponent = at;
    while (at < text.size() && is_digit(text[at])) ++at;
    if (at != text.size() || at == exponent || at - exponent > 2) return false;
    return at - exponent < 2 || text[exponent] < '3';  // below 1e30: within single precision for few digits before
}

void find_misread(const ReadCard& card, const deck::Parameters& parameters, std::vector<Misread>& to,
                  std::uint32_t& lost)
{
    const std::vector<FieldText>& fields = *card.fields;
    if (is_text_card(fields) || find_misread_card(card, to)) return;
    std::size_t skip_to = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const FieldText& field = fields[i];
        const Kind kind = field.field->kind;
        if (kind == Kind::text) break;
        if (i < skip_to || field.text.empty() || (card.read >> i & 1) == 0 || field.field->name.empty()) continue;
        const bool touches = card.line.size() > field.column + field.width && !is_blank(field.text.back()) &&
                             !is_blank(card.line[field.column + field.width]);
        if (!touches && kind != Kind::word && field.text.size() == field.width &&
            is_plain(field.text, is_integer(kind)))
            continue;
        if (Extent run{}; touches) {
            const std::size_t last = runs_into(card, i, run);
            if (last != i) {
                lost |= ~0U << i & ~(~0U << last << 1);
                if (!same_in_spite_of_run(card, i, last, run)) add_run(card, i, run, to);
                skip_to = last + 1;
                continue;
            }
        }
        if (find_reference(card, field, parameters, to)) continue;
        bool is_lost = false;
        if (kind == Kind::word)
            find_misread_word(card, field, to);
        else
            find_misread_number(card, field, to, is_lost);
        if (is_lost) lost |= 1U << i;
    }
}

void find_undefined(const std::vector<FieldText>& fields, const deck::Parameters& parameters, std::vector<Misread>& to)
{
    for (const FieldText& field : fields) {
        if (field.field == nullptr || field.field->kind == Kind::text || !deck::refers_to_parameter(field.text))
            continue;
        const deck::Evaluation evaluation = parameters.evaluate(field.text);
        if (evaluation.value) continue;
        to.push_back(at_field("MD123", field, "", "has no value: " + evaluation.why_not));
        to.back().mended = false;
    }
}
}  // namespace check
