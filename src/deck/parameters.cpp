#include "deck/parameters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "deck/expression.h"
#include "deck/field_number.h"
#include "deck/keyword_line.h"

namespace deck
{

namespace
{
constexpr double exact_integers = 9007199254740992.0;  // 2^53

bool is_name_character(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool is_name(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), is_name_character);
}

std::size_t column_of(std::string_view part, std::string_view line)
{
    return static_cast<std::size_t>(part.data() - line.data());
}

Evaluation refused(std::string why, std::size_t column)
{
    return {std::nullopt, std::move(why), column};
}

Value negative(Value value)
{
    value.number = -value.number;
    return value;
}

// The length of the name that begins here.
std::size_t name_length(std::string_view text)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), is_name_character) - text.begin());
}
}  // namespace

std::string to_string(const Value& value)
{
    if (value.type == Value::Type::text) return value.text;
    std::array<char, 40> buffer{};
    const auto written =
        value.type == Value::Type::integer && std::abs(value.number) <= exact_integers
            ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<std::int64_t>(value.number))
            : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value.number);
    return {buffer.data(), written.ptr};
}

bool refers_to_parameter(std::string_view field)
{
    return field.find_first_of("&<") != std::string_view::npos;
}

bool defines_parameters(std::string_view keyword)
{
    return is_of(keyword, "*PARAMETER") && !is_of(keyword, "*PARAMETER_DUPLICATION");
}

// ---- looking up ----------------------------------------------------------------------------------------------------

void Parameters::begin_file()
{
    scopes_.emplace_back();
}

void Parameters::end_file()
{
    if (scopes_.size() > 1) scopes_.pop_back();
}

const Parameters::Definition* Parameters::find(std::string_view name) const
{
    const std::string lower = to_lower(name);
    for (std::size_t i = scopes_.size(); i-- > 0;)
        if (const auto found = scopes_[i].find(lower); found != scopes_[i].end()) return &found->second;
    return nullptr;
}

Evaluation Parameters::computed(std::string_view expression) const
{
    bool integers = expression.find('.') == std::string_view::npos;
    const ExpressionResult result = compute(expression, [&](std::string_view name) -> std::optional<double> {
        const Definition* const definition = find(name);
        if (definition == nullptr || definition->value.type == Value::Type::text) return std::nullopt;
        if (definition->value.type == Value::Type::real) integers = false;
        return definition->value.number;
    });
    if (!result.value) return refused(result.why_not, result.column);
    integers = integers && std::abs(*result.value) <= exact_integers && whole(*result.value);
    return {Value{integers ? Value::Type::integer : Value::Type::real, *result.value, {}}, {}, 0};
}

// The text with what its references stand for; nothing when no reference is to a text.
std::optional<std::string> Parameters::put_together(std::string_view text) const
{
    std::string result;
    bool any_text = false;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] != '&') {
            result += text[at++];
            continue;
        }
        const std::size_t length = name_length(text.substr(at + 1));
        const Definition* const definition = find(text.substr(at + 1, length));
        if (definition == nullptr) return std::nullopt;
        any_text = any_text || definition->value.type == Value::Type::text;
        result += to_string(definition->value);
        at += 1 + length;
    }
    return any_text ? std::optional(result) : std::nullopt;
}

Evaluation Parameters::evaluate(std::string_view field) const
{
    const std::string_view text = trimmed(field);
    if (text.empty()) return refused("there is nothing", 0);
    const std::size_t begin = column_of(text, field);
    const auto shifted = [](Evaluation evaluation, std::size_t by) {
        if (!evaluation.value) evaluation.column += by;
        return evaluation;
    };

    if (text.front() == '<' && text.find_first_of("<>", 1) == text.size() - 1 && text.back() == '>')
        return shifted(computed(text.substr(1, text.size() - 2)), begin + 1);
    if (const std::size_t bracket = text.find_first_of("<>"); bracket != std::string_view::npos)
        return refused("not an expression", begin + bracket);

    const bool minus = text.front() == '-';
    const std::string_view reference = minus ? text.substr(1) : text;
    if (reference.starts_with('&') && is_name(reference.substr(1))) {
        const Definition* const definition = find(reference.substr(1));
        const std::size_t column = begin + (minus ? 1 : 0);
        if (definition == nullptr)
            return refused("parameter " + std::string(reference.substr(1)) + " is not defined", column);
        if (!minus) return {definition->value, {}, 0};
        if (definition->value.type == Value::Type::text)
            return refused("parameter " + std::string(reference.substr(1)) + " is no number", column);
        return {negative(definition->value), {}, 0};
    }
    if (std::optional<std::string> whole_text = put_together(text))
        return {Value{Value::Type::text, 0, std::move(*whole_text)}, {}, 0};
    return shifted(computed(text), begin);
}

// ---- definitions ---------------------------------------------------------------------------------------------------

ParameterBlock::ParameterBlock(Parameters& parameters, std::string_view keyword, Format format, std::string file,
                               Report report)
    : parameters_(&parameters), format_(format), file_(std::move(file)), report_(std::move(report))
{
    const auto has = [&](std::string_view option) { return keyword.find(option) != std::string_view::npos; };
    expressions_ = has("_EXPRESSION");
    local_ = has("_LOCAL");
    mutable_ = has("_MUTABLE");
    duplication_ = has("_DUPLICATION");
    typed_ = has("_TYPE");
}

void ParameterBlock::take(std::string_view text, std::size_t line_number)
{
    if (trimmed(text).empty()) return;
    if (duplication_)
        take_duplication(text);
    else if (expressions_)
        take_expression(text, line_number);
    else
        take_pairs(text, line_number);
}

void ParameterBlock::finish()
{
    if (!pending_) return;
    const Pending pending = std::move(*pending_);
    pending_.reset();
    define({pending.prefixed_name, 0}, {pending.expression, pending.column}, pending.line);
}

void ParameterBlock::take_duplication(std::string_view text)
{
    const std::size_t width = format_ == Format::long_fields ? 20 : 10;
    const auto value = whole(standard_number(text.substr(0, std::min(text.find(','), width))).value);
    switch (value.value_or(1)) {
    case 2:  // with a warning
    case 4:  // without
        parameters_->duplicates_ = Parameters::Duplicates::take_last;
        break;
    case 3:
        parameters_->duplicates_ = Parameters::Duplicates::error;
        break;
    default:
        parameters_->duplicates_ = Parameters::Duplicates::keep_first;
        break;
    }
}

// Names and values in turn.
void ParameterBlock::take_pairs(std::string_view text, std::size_t line_number)
{
    constexpr std::size_t most_pairs = 4;
    const std::size_t width = format_ == Format::long_fields ? 20 : 10;
    const bool free = text.find(',') != std::string_view::npos;
    std::size_t at = 0;
    const auto next = [&]() -> Part {
        if (at >= text.size()) return {{}, text.size()};
        const std::size_t begin = at;
        const std::size_t end = free ? std::min(text.find(',', at), text.size()) : std::min(at + width, text.size());
        at = end + (free ? 1 : 0);
        return {text.substr(begin, end - begin), begin};
    };
    for (std::size_t pair = 0; at < text.size() && (free || pair < (typed_ ? 1 : most_pairs)); ++pair) {
        const Part name = next();
        const Part value = next();
        if (!trimmed(name.text).empty() || !trimmed(value.text).empty()) define(name, value, line_number);
        if (typed_) break;
    }
}

// A name, then an expression that goes on in the lines whose name is blank.
void ParameterBlock::take_expression(std::string_view text, std::size_t line_number)
{
    const std::size_t width = format_ == Format::long_fields ? 20 : 10;
    const std::size_t comma = text.find(',');
    const bool free = comma != std::string_view::npos && comma <= width;
    const std::size_t name_end = std::min(free ? comma : width, text.size());
    const std::size_t begin = std::min(name_end + (free ? 1 : 0), text.size());
    const std::string_view name = text.substr(0, name_end);
    if (trimmed(name).empty() && pending_) {
        pending_->expression += trimmed(text.substr(begin));
        return;
    }
    finish();
    pending_ = Pending{std::string(name), std::string(text.substr(begin)), line_number, begin};
    while (pending_->expression.ends_with(' ')) pending_->expression.pop_back();
}

void ParameterBlock::problem(const std::string& message, std::size_t line_number, std::size_t column)
{
    report_(problem_at({file_, line_number, column + 1}, "MD123", message));
}

// The value of a definition of that type; nothing, and a problem, when it has none.
std::optional<Value> ParameterBlock::value_of(char type, const std::string& name, const Part& part,
                                              std::size_t line_number)
{
    const std::string_view text = trimmed(part.text);
    const std::size_t column = part.column + (text.empty() ? 0 : column_of(text, part.text));
    if (type == 'C' && !refers_to_parameter(text)) return Value{Value::Type::text, 0, std::string(text)};
    const FieldNumber number = standard_number(text);
    Evaluation evaluation;
    if (number.form != FieldNumber::Form::none)
        evaluation.value = Value{Value::Type::real, number.value, {}};  // sic: nothing is 0
    else if (expressions_ && !text.starts_with('<'))
        evaluation = parameters_->computed(text);
    else
        evaluation = parameters_->evaluate(text);
    if (!evaluation.value) {
        problem("parameter " + name + ": \"" + std::string(text) + "\": " + evaluation.why_not, line_number,
                column + evaluation.column);
        return std::nullopt;
    }
    Value value = *evaluation.value;
    if (type == 'C') return Value{Value::Type::text, 0, to_string(value)};
    if (value.type == Value::Type::text) {
        problem("parameter " + name + ": \"" + value.text + "\" is no number", line_number, column);
        return std::nullopt;
    }
    if (type == 'R') return Value{Value::Type::real, value.number, {}};
    const double nearest = std::round(value.number);
    constexpr double rounding_error = 1e-9;
    if (std::abs(value.number - nearest) > rounding_error * std::max(1.0, std::abs(nearest))) {
        problem("parameter " + name + " is an integer, but \"" + std::string(text) + "\" is " + to_string(value) +
                    ": int() or nint() would tell what is meant",
                line_number, column);
        return std::nullopt;
    }
    return Value{Value::Type::integer, nearest, {}};
}

void ParameterBlock::define(const Part& prefixed_name, const Part& value, std::size_t line_number)
{
    const std::string_view prefixed = trimmed(prefixed_name.text);
    const std::size_t column = prefixed_name.column + (prefixed.empty() ? 0 : column_of(prefixed, prefixed_name.text));
    const char type = prefixed.empty() ? '\0' : to_upper(prefixed)[0];
    const std::string name = prefixed.empty() ? std::string() : to_lower(trimmed(prefixed.substr(1)));
    if ((type != 'R' && type != 'I' && type != 'C') || !is_name(name)) {
        problem("\"" + std::string(prefixed) + "\" defines no parameter: R, I or C, then its name", line_number,
                column);
        return;
    }
    if (std::optional<Value> result = value_of(type, name, value, line_number))
        store(name, std::move(*result), {file_, line_number, column + 1, column + 1 + prefixed.size()});
}

void ParameterBlock::store(const std::string& name, Value value, const Place& place)
{
    Parameters::Scope& scope = local_ ? parameters_->scopes_.back() : parameters_->scopes_.front();
    const auto known = scope.find(name);
    if (known == scope.end()) {
        scope.emplace(name, Parameters::Definition{std::move(value), mutable_, place});
        return;
    }
    using enum Parameters::Duplicates;
    const bool last_holds = known->second.mutable_value || mutable_ || parameters_->duplicates_ == take_last;
    const Place& first = known->second.place;
    const bool is_error = !last_holds && parameters_->duplicates_ == error;
    report_(problem_at(place, "MD402",
                       "parameter " + name + " is defined twice, first at " + first.file + ":" +
                           std::to_string(first.line) + ": the " + (last_holds ? "last" : "first") +
                           " definition holds",
                       is_error ? Severity::error : Severity::warning));
    if (last_holds) known->second = {std::move(value), mutable_ || known->second.mutable_value, place};
}

}  // namespace deck
