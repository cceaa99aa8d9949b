#include "deck/expression.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include <muParser.h>

#include "deck/keyword_line.h"

namespace deck
{

namespace
{
static_assert(std::is_same_v<mu::value_type, double>);

double to_real(double value)
{
    return value;
}
double nearest(double value)
{
    return std::round(value);
}
double cut(double value)
{
    return std::trunc(value);
}
double remainder_of(double a, double b)
{
    return std::fmod(a, b);
}
double with_sign(double a, double b)
{
    return std::copysign(a, b);
}
double smallest(const double* values, int count)
{
    double least = values[0];
    for (int i = 1; i < count; ++i) least = std::fmin(least, values[i]);
    return least;
}
double largest(const double* values, int count)
{
    double most = values[0];
    for (int i = 1; i < count; ++i) most = std::fmax(most, values[i]);
    return most;
}

void define_functions(mu::Parser& parser)
{
    using Function = double (*)(double);
    constexpr std::array<std::pair<const char*, Function>, 19> functions{{
        {"abs", std::fabs},  {"acos", std::acos}, {"aint", cut},         {"anint", nearest},  {"asin", std::asin},
        {"atan", std::atan}, {"cos", std::cos},   {"cosh", std::cosh},   {"exp", std::exp},   {"float", to_real},
        {"int", cut},        {"log", std::log},   {"log10", std::log10}, {"nint", nearest},   {"sin", std::sin},
        {"sinh", std::sinh}, {"sqrt", std::sqrt}, {"tan", std::tan},     {"tanh", std::tanh},
    }};
    parser.ClearFun();
    for (const auto& [name, function] : functions) parser.DefineFun(name, function);
    parser.DefineFun("atan2", static_cast<double (*)(double, double)>(std::atan2));
    parser.DefineFun("mod", remainder_of);
    parser.DefineFun("sign", with_sign);
    parser.DefineFun("min", smallest);
    parser.DefineFun("max", largest);
    parser.ClearConst();
    parser.DefineConst("pi", std::numbers::pi);
}

// Characters that the parser knows and the format does not: assignments, comparisons, text, lists.
constexpr std::string_view foreign = "=<>!&|?:;\"'{}[]^%$#@~`\\,";

bool is_name_start(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

std::size_t find_foreign(std::string_view expression)
{
    std::size_t depth = 0;
    for (std::size_t i = 0; i < expression.size(); ++i) {
        const char c = expression[i];
        if (c == '(') ++depth;
        if (c == ')' && depth > 0) --depth;
        const bool reference = c == '&' && i + 1 < expression.size() && is_name_start(expression[i + 1]);
        const bool allowed = reference || (c == ',' && depth > 0);
        const bool printable = c == '\t' || (c >= ' ' && c <= '~');
        if (!allowed && (!printable || foreign.find(c) != std::string_view::npos)) return i;
    }
    return std::string_view::npos;
}

bool is_letter(char c)
{
    return (c >= 'a' && c <= 'z') || c == '_';
}
bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// True when an exponent begins here: a letter behind a number, then digits with or without a sign.
bool is_exponent(std::string_view text, std::size_t at)
{
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'd')) return false;
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    return at < text.size() && is_digit(text[at]);
}

// Calls for each name of the text, and for the letter of each number's exponent.
template <class OnName, class OnExponent>
void scan(std::string_view text, OnName on_name, OnExponent on_exponent)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i;
        if (is_letter(text[i])) {
            while (i < text.size() && (is_letter(text[i]) || is_digit(text[i]))) ++i;
            on_name(text.substr(begin, i - begin), begin);
        } else if (is_digit(text[i]) || text[i] == '.') {
            while (i < text.size() && (is_digit(text[i]) || text[i] == '.')) ++i;
            if (is_exponent(text, i)) {
                on_exponent(i);
                i += 2;
            }
        } else {
            ++i;
        }
    }
}

// The expression in the parser's spelling: lower case, "^" for "**", "e" for the D of an exponent, nothing for "&". One
// column for each character, so that the parser's positions are columns of the text.
std::string in_parser_spelling(std::string_view expression)
{
    std::string text = to_lower(expression);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' || text[i] == '\t') text[i] = ' ';
        if (text[i] == '*' && i + 1 < text.size() && text[i + 1] == '*') {
            text[i] = '^';
            text[i + 1] = ' ';
        }
    }
    scan(
        text, [](std::string_view, std::size_t) {}, [&](std::size_t at) { text[at] = 'e'; });
    return text;
}

bool is_call(std::string_view text, std::size_t name_end)
{
    const std::size_t next = text.find_first_not_of(' ', name_end);
    return next != std::string_view::npos && text[next] == '(';
}

ExpressionResult refused(std::string why, std::size_t column)
{
    return {std::nullopt, std::move(why), column};
}

// Makes the names in the text known to the parser; what it returns has a reason when one is undefined.
ExpressionResult define_names(mu::Parser& parser, const std::string& text, const NumberOf& number_of)
{
    ExpressionResult trouble;
    const auto define = [&](std::string_view name, std::size_t at) {
        const std::string constant(name);
        const bool is_function = is_call(text, at + name.size()) && parser.GetFunDef().contains(constant);
        if (is_function || !trouble.why_not.empty()) return;
        if (const std::optional<double> value = number_of(name))
            parser.DefineConst(constant, *value);
        else if (constant != "pi")
            trouble = refused("parameter " + constant + " is not defined, or is no number", at);
    };
    scan(text, define, [](std::size_t) {});
    return trouble;
}
}  // namespace

ExpressionResult compute(std::string_view expression, const NumberOf& number_of)
{
    if (trimmed(expression).empty()) return refused("an empty expression", 0);
    if (const std::size_t at = find_foreign(expression); at != std::string_view::npos)
        return refused("not an expression", at);
    try {
        mu::Parser parser;
        define_functions(parser);
        const std::string text = in_parser_spelling(expression);
        if (ExpressionResult trouble = define_names(parser, text, number_of); !trouble.why_not.empty()) return trouble;
        parser.SetExpr(text);
        const double value = parser.Eval();
        if (!std::isfinite(value)) return refused("it has no finite value", 0);
        return {value, {}, 0};
    } catch (const mu::Parser::exception_type& error) {
        const int position = std::max(error.GetPos(), 0);
        return refused("not an expression", std::min(static_cast<std::size_t>(position), expression.size()));
    }
}

}  // namespace deck
