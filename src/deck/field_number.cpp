#include "deck/field_number.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

#include "deck/keyword_line.h"
#include "reader/numbers.h"

namespace deck
{

namespace
{
bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool is_sign(char c)
{
    return c == '+' || c == '-';
}

// The parts of a number's text. An exponent without digits makes it no number.
struct Parts {
    std::string_view mantissa;  // with its sign
    std::string_view exponent;  // with its sign, without a letter
    bool valid = false;
    bool point = false;
    bool has_exponent = false;
    char letter = '\0';
};

Parts parts_of(std::string_view text)
{
    Parts parts;
    std::size_t at = !text.empty() && is_sign(text[0]) ? 1 : 0;
    std::size_t digits = 0;
    for (; at < text.size() && (is_digit(text[at]) || (text[at] == '.' && !parts.point)); ++at)
        is_digit(text[at]) ? void(++digits) : void(parts.point = true);
    if (digits == 0) return parts;
    parts.mantissa = text.substr(0, at);
    if (at == text.size()) {
        parts.valid = true;
        return parts;
    }
    parts.has_exponent = true;
    if (!is_sign(text[at])) {
        parts.letter = text[at++];
        if (std::string_view("EeDdQq").find(parts.letter) == std::string_view::npos) return parts;
    }
    parts.exponent = text.substr(at);
    std::string_view exponent_digits = parts.exponent;
    if (!exponent_digits.empty() && is_sign(exponent_digits[0])) exponent_digits.remove_prefix(1);
    parts.valid = !exponent_digits.empty() && exponent_digits.find_first_not_of("0123456789") == std::string_view::npos;
    return parts;
}

bool is_e(char letter)
{
    return letter == 'E' || letter == 'e';
}
}  // namespace

// ---- reading -------------------------------------------------------------------------------------------------------

FieldNumber standard_number(std::string_view text)
{
    text = trimmed(text);
    if (text.empty()) return {FieldNumber::Form::empty, 0};
    const Parts parts = parts_of(text);
    if (!parts.valid) return {FieldNumber::Form::none, 0};
    if (!parts.has_exponent)
        return {parts.point ? FieldNumber::Form::real : FieldNumber::Form::integer, field_value(text)};
    if (is_e(parts.letter)) return {FieldNumber::Form::real, field_value(text)};
    std::string with_letter(parts.mantissa);
    with_letter += 'E';
    with_letter += parts.exponent;
    return {FieldNumber::Form::fortran, field_value(with_letter)};
}

double strict_number(std::string_view text, std::size_t width)
{
    const std::string_view field = text.substr(0, width);
    if (field.size() < width || field.empty() || field.back() == ' ') return 0;
    return field_value(field);
}

bool strictly_empty(std::string_view text, std::size_t width)
{
    const std::string_view field = text.substr(0, width);
    const bool reaches_the_end = field.size() == width && !field.empty() && field.back() != ' ';
    return !reaches_the_end && field.find_first_not_of(' ') != std::string_view::npos;
}

// ---- writing -------------------------------------------------------------------------------------------------------

namespace
{
// The significant digits of a single-precision number: value = 0.DIGITS x 10^exponent.
struct Digits {
    bool negative = false;
    std::string digits;  // without zeros at its end; not empty
    int exponent = 0;
};

// `precision` digits behind the first one; the fewest that tell the number from its neighbours when it is negative.
Digits digits_of(float value, int precision)
{
    std::array<char, 32> buffer{};
    char* const end = buffer.data() + buffer.size();
    const std::to_chars_result written =
        precision < 0 ? std::to_chars(buffer.data(), end, value, std::chars_format::scientific)
                      : std::to_chars(buffer.data(), end, value, std::chars_format::scientific, precision);
    std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    Digits result;
    result.negative = text.starts_with('-');
    if (result.negative) text.remove_prefix(1);
    const std::size_t e = text.find('e');
    for (const char c : text.substr(0, e))
        if (c != '.') result.digits += c;
    while (result.digits.size() > 1 && result.digits.back() == '0') result.digits.pop_back();
    std::string_view exponent = text.substr(e + 1);
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), result.exponent);
    ++result.exponent;
    return result;
}

// "123.", ".00123", "1.23": without an exponent.
std::string plain_form(const Digits& d)
{
    const auto count = static_cast<int>(d.digits.size());
    std::string text = d.negative ? "-" : "";
    if (d.exponent <= 0) return text + "." + std::string(static_cast<std::size_t>(-d.exponent), '0') + d.digits;
    if (d.exponent >= count)
        return text + d.digits + std::string(static_cast<std::size_t>(d.exponent - count), '0') + ".";
    const auto before = static_cast<std::size_t>(d.exponent);
    return text + d.digits.substr(0, before) + "." + d.digits.substr(before);
}

// "1.23E-5", with `before` digits before the point; without a point when there are no more.
std::string exponent_form(const Digits& d, std::size_t before)
{
    std::string text = d.negative ? "-" : "";
    text += d.digits.substr(0, before);
    if (before < d.digits.size()) text += "." + d.digits.substr(before);
    return text + "E" + std::to_string(d.exponent - static_cast<int>(before));
}

bool is_same(const std::string& text, float value)
{
    return std::bit_cast<std::uint32_t>(static_cast<float>(field_value(text))) == std::bit_cast<std::uint32_t>(value);
}

std::optional<std::string> shortest_of(const Digits& digits, float value, std::size_t columns)
{
    constexpr int longest_plain = 40;
    std::string best;
    const auto consider = [&](const std::string& text) {
        if (text.size() <= columns && (best.empty() || text.size() < best.size()) && is_same(text, value)) best = text;
    };
    if (std::abs(digits.exponent) < longest_plain) consider(plain_form(digits));
    consider(exponent_form(digits, 1));
    consider(exponent_form(digits, digits.digits.size()));
    if (best.empty() && digits.exponent == static_cast<int>(columns) - (digits.negative ? 1 : 0)) {
        std::string whole_number = plain_form(digits);
        whole_number.pop_back();  // no room for the point
        consider(whole_number);
    }
    return best.empty() ? std::nullopt : std::optional(best);
}

std::optional<std::string> zero(bool negative, std::size_t columns)
{
    for (const char* text : {"0.0", "0.", "0"}) {
        std::string signed_text = (negative ? "-" : "") + std::string(text);
        if (signed_text.size() <= columns) return signed_text;
    }
    return std::nullopt;
}
}  // namespace

std::optional<std::string> shortest_real(double value, std::size_t columns)
{
    const auto single = static_cast<float>(value);
    if (!std::isfinite(single)) return std::nullopt;
    if (single == 0) return zero(std::signbit(single), columns);
    // The fewest digits are those of a single-precision reader. The converter reads in double precision and rounds
    // then; where that gives another number, nine digits do.
    constexpr int fewest = -1;
    if (auto text = shortest_of(digits_of(single, fewest), single, columns)) return text;
    constexpr int always_enough = std::numeric_limits<float>::max_digits10 - 1;
    return shortest_of(digits_of(single, always_enough), single, columns);
}

std::optional<std::string> shortest_integer(std::int64_t value, std::size_t columns)
{
    std::string text = std::to_string(value);
    return text.size() <= columns ? std::optional(text) : std::nullopt;
}

std::optional<std::string> with_exponent_letter(std::string_view text)
{
    if (standard_number(text).form != FieldNumber::Form::fortran) return std::nullopt;
    const Parts parts = parts_of(trimmed(text));
    return std::string(parts.mantissa) + "E" + std::string(parts.exponent);
}

std::optional<std::int64_t> whole(double value)
{
    constexpr double beyond = 9223372036854775808.0;  // 2^63
    if (!(value >= -beyond && value < beyond) || value != std::trunc(value)) return std::nullopt;
    return static_cast<std::int64_t>(value);
}

std::int64_t saturated_sum(std::int64_t a, std::int64_t b)
{
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    if (b > 0 && a > most - b) return most;
    if (b < 0 && a < least - b) return least;
    return a + b;
}

}  // namespace deck
