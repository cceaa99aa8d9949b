// The cards of the keywords that random models are made of.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace models
{
// What a field names.
enum class Pool : std::uint8_t {
    none,
    node,
    part,
    section,
    material,
    state,  // equation of state
    hourglass,
    curve,
    box,
    system,
    node_set,
    part_set,
    shell_set,
    solid_set,
    segment_set,
    count
};

// How the value of a field comes about.
struct FieldForm {
    enum class Source : std::uint8_t {
        count,       // a small integer, often nothing
        real,        // a real number, sometimes nothing
        positive,    // a positive real number
        fixed,       // `text`
        range,       // an integer from `low` to `high`
        reference,   // the number of something that is defined
        maybe,       // the same, or nothing
        definition,  // the number that is defined here
        direction,   // X, Y or Z
    };
    std::string_view name;
    Source source = Source::count;
    Pool pool = Pool::none;
    std::string_view text;
    int low = 0;
    int high = 0;
};

// A keyword and the cards of one definition in its block. A keyword with cards of several forms has a row for each.
struct KeywordForm {
    std::string keyword;
    std::string option;  // "_TITLE" or "_ID": may be written with it
    bool always;         // only with it
    bool many;           // without the option, the block may hold several definitions
    std::vector<std::vector<FieldForm>> cards;
};

// Settings, contacts, boundary conditions, loads: what a model has or has not.
std::span<const KeywordForm> feature_forms();

// What defines a number of this pool; none for nodes, parts and sets.
std::span<const KeywordForm> definition_forms(Pool pool);

// The three *SECTION keywords: of solids, shells, particles.
const KeywordForm& section_form(std::size_t kind);
}  // namespace models
