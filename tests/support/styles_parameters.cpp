// Styles of parameters: a name or an expression in a field, defined further up.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/style_helpers.h"

namespace models
{
namespace
{
// A parameter's definition, as its fields stand on a card.
struct Parameter {
    char type;  // R or I
    std::string name;
    std::string value;       // of *PARAMETER
    std::string expression;  // of *PARAMETER_EXPRESSION, in place of the value
};

// Two characters that no other parameter of the deck has: short names fit into any field.
std::string new_name(Spelling& spelling, const std::vector<Parameter>& parameters)
{
    std::size_t count = parameters.size();
    for (const Block* const block : all_blocks(spelling.deck))
        if (begins(block->keyword, "*PARAMETER")) count += 4 * block->cards.size();
    static constexpr std::string_view letters = "abcfghjkmnpqrstuvwxyz";  // without d and e, which numbers have
    return std::string(1, letters[count % letters.size()]) + std::to_string(count / letters.size());
}

// Half of the number, as text that gives it back exactly when doubled; empty when it cannot be had.
std::string half(const Field& field)
{
    const double value = std::strtod(field.value.c_str(), nullptr);
    char text[32];
    if (field.kind != Kind::real) {
        if (whole(field) % 2 != 0) return {};
        return std::to_string(whole(field) / 2);
    }
    std::snprintf(text, sizeof text, "%.7g", value / 2);
    const bool same = static_cast<float>(2.0 * std::strtod(text, nullptr)) == static_cast<float>(value);
    return same && std::string_view(text).size() <= 10 ? text : std::string();
}

std::size_t room(const Field& field)
{
    return static_cast<std::size_t>(field.width);
}

bool replaceable(const Field& field)
{
    return field.kind != Kind::name && field.spelled.empty() && !field.value.empty() && field.value.size() <= 10;
}

enum class Way : std::uint8_t { name, negative, expression, bare_expression, defined_expression };

// Spells a field by a parameter and adds the parameter; false when the number does not suit.
bool spell_field(Field& field, Way way, Spelling& spelling, std::vector<Parameter>& parameters)
{
    if (!replaceable(field)) return false;
    const char type = field.kind == Kind::real ? 'R' : 'I';
    const std::string name = new_name(spelling, parameters);
    std::string value = field.value;
    std::string spelled = "&" + name;
    if (way == Way::negative) {
        if (value[0] != '-') return false;
        value.erase(0, 1);
        spelled = "-&" + name;
    } else if (way != Way::name) {
        value = half(field);
        if (value.empty()) return false;
        if (way == Way::expression) spelled = "<&" + name + "*2>";
        if (way == Way::bare_expression) spelled = "&" + name + "*2";
    }
    if (spelled.size() > room(field)) return false;
    parameters.push_back({type, name, value, {}});
    if (way == Way::defined_expression) {
        parameters.push_back({type, new_name(spelling, parameters), {}, name + "*2"});
        spelled = "&" + parameters.back().name;
    }
    field.spelled = spelled;
    return true;
}

// A parameter's name means the same in either case.
void capitalise(std::string& spelled)
{
    char& letter = spelled[spelled.find('&') + 1];
    letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
}

bool use(Spelling& spelling, Random& random, Way way, std::size_t most, std::vector<Parameter>& parameters)
{
    if (spelling.deck.format == Format::wide) return false;  // parameters would stand in long columns, too
    Block* const block = pick_block(spelling, random, [](const Block& candidate) {
        return std::any_of(candidate.cards.begin(), candidate.cards.end(), [](const Card& card) {
            return std::any_of(card.fields.begin(), card.fields.end(), replaceable);
        });
    });
    if (block == nullptr) return false;
    const std::size_t start = random.below(block->cards.size());
    std::size_t left = 1 + random.below(most);
    for (std::size_t i = 0; i < block->cards.size() && left > 0; ++i) {
        Card& card = block->cards[(start + i) % block->cards.size()];
        if (card.form != Card::Form::columns && card.form != Card::Form::commas) continue;
        for (Field& field : card.fields) {
            if (left == 0 || random.one_in(3) || !spell_field(field, way, spelling, parameters)) continue;
            if (random.one_in(5)) capitalise(field.spelled);
            field.left = card.form == Card::Form::columns && random.one_in(3);
            card.changed = true;
            --left;
        }
    }
    block->retouched = block->retouched || !parameters.empty();
    return !parameters.empty();
}

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

// The cards of *PARAMETER: up to four to a card, in columns of ten or with commas.
Block values(const std::vector<Parameter>& parameters, Random& random)
{
    Block block;
    block.number = -1;
    block.keyword = "*PARAMETER";
    const bool with_commas = random.one_in(3);
    const std::size_t on_a_card = 1 + random.below(4);
    std::size_t count = 0;
    for (const Parameter& parameter : parameters) {
        if (!parameter.expression.empty()) continue;
        if (count++ % on_a_card == 0) block.cards.push_back(title_card({}));
        std::string& line = block.cards.back().title;
        const std::string name = std::string(1, parameter.type) + (random.one_in(2) ? " " : "") + parameter.name;
        if (with_commas)
            line += (line.empty() ? "" : ",") + name + "," + parameter.value;
        else
            line += padded(name, 10) + std::string(10 - parameter.value.size(), ' ') + parameter.value;
    }
    return block;
}

Block expressions(const std::vector<Parameter>& parameters)
{
    Block block;
    block.number = -1;
    block.keyword = "*PARAMETER_EXPRESSION";
    for (const Parameter& parameter : parameters)
        if (!parameter.expression.empty())
            block.cards.push_back(
                title_card(padded(std::string(1, parameter.type) + parameter.name, 10) + parameter.expression));
    return block;
}

// Defines the parameters behind *KEYWORD, or in a file that is included there.
void define(Spelling& spelling, Random& random, const std::vector<Parameter>& parameters, bool in_a_file)
{
    std::vector<Block> blocks = {values(parameters, random)};
    if (Block more = expressions(parameters); !more.cards.empty()) blocks.push_back(std::move(more));
    std::vector<Block>& deck = spelling.deck.blocks;
    if (!in_a_file) {
        deck.insert(deck.begin() + 1, blocks.begin(), blocks.end());
        return;
    }
    const std::string name = "parameters" + std::to_string(count_files(spelling) + 1) + ".k";
    Block include;
    include.number = -1;
    include.keyword = "*INCLUDE";
    include.cards.push_back(title_card(name));
    include.files.push_back({name, name, std::move(blocks)});
    deck.insert(deck.begin() + 1, std::move(include));
}

template <Way way>
bool parameters_in(Spelling& spelling, Random& random)
{
    std::vector<Parameter> parameters;
    if (!use(spelling, random, way, 4, parameters)) return false;
    define(spelling, random, parameters, false);
    return true;
}

bool in_an_include_file(Spelling& spelling, Random& random)
{
    std::vector<Parameter> parameters;
    if (!use(spelling, random, Way::name, 6, parameters)) return false;
    define(spelling, random, parameters, true);
    return true;
}

// The definitions themselves are keywords that the converter skips, with a line in the debug log.
constexpr Style table[] = {
    {"parameters", "MD104", true, false, parameters_in<Way::name>},
    {"a parameter's negative", "MD104", true, false, parameters_in<Way::negative>},
    {"expressions", "MD104", true, false, parameters_in<Way::expression>},
    {"bare expressions", "MD104", true, false, parameters_in<Way::bare_expression>},
    {"parameters defined by expressions", "MD104", true, false, parameters_in<Way::defined_expression>},
    {"parameters in an include file", "MD104", true, false, in_an_include_file},
};
}  // namespace

std::span<const Style> styles_of_parameters()
{
    return table;
}
}  // namespace models
