// Card layouts: one table with a row for each card of each keyword that the converter reads.
//
// The table says how the keyword format lays cards out in standard columns. Where the converter reads less of a block
// than the format allows, the row says so (Reads, `converted`). Keywords that the converter skips are there with what
// they define, so that a reference to it can be told from one to nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "deck/card_format.h"

namespace deck
{

enum class Kind : std::uint8_t {
    integer,    // read as a number, used with 32 bits
    integer64,  // used with 64 bits
    real,       // used in single precision
    word,       // an identifier that the converter carries as text; a number in most decks
    text        // a heading: all that is left of the line
};

// What a number names.
enum class Names : std::uint8_t {
    nothing,
    node,
    element,  // of any other kind than these
    shell,
    solid,
    particle,
    part,
    section,
    material,
    equation_of_state,
    hourglass,
    thermal_material,
    curve,  // tables and functions, too: they share their numbers
    node_set,
    part_set,
    segment_set,
    shell_set,
    solid_set,
    box,
    coordinate_system,
    vector,
};

// The numbers of the cards of the present group; 0 where a card was not there.
struct GroupValues {
    static constexpr std::size_t most_cards = 16;
    static constexpr std::size_t most_fields = 10;
    std::array<std::array<double, most_fields>, most_cards> values{};

    [[nodiscard]] double of(std::size_t card, std::size_t field) const { return values[card][field]; }
};

struct Field {
    std::string_view name;    // in the keyword format, lower case; empty for columns without a meaning
    std::uint8_t width = 10;  // standard columns
    Kind kind = Kind::integer;
    Names names = Names::nothing;         // 0 never names anything
    bool defines = false;                 // it defines what it names
    Names also_defines = Names::nothing;  // a particle has its node's number: it names one thing and defines another
    bool converted = true;                // the converter reads it
    Names (*by_type)(const GroupValues&) = nullptr;  // what it names where another field decides: see named()
};

// What the field names, once all cards of its group are known.
Names named(const Field& field, const GroupValues& values);

// When a card is there.
enum class Occurs : std::uint8_t {
    always,      // the converter takes the next line for it whatever that is
    when_more,   // when the next line is no keyword line (optional cards at a block's end)
    counted,     // as many times as CardLayout::count says
    to_the_end,  // again and again to the block's end
};

// Its fields stand in the order in which the table gives them.
struct CardLayout {
    std::string_view name;  // "1", "2", "a", "id", "title", "members"
    std::span<const Field> fields;
    Occurs occurs = Occurs::always;
    std::size_t (*count)(const GroupValues&) = nullptr;
    bool converted = true;         // the converter reads this card
    std::string_view option = {};  // the card is there only when the keyword has this option
};

// The cards of titles and of the id option: one text; a number and a text.
extern const CardLayout title_card;
extern const CardLayout id_card;

// What a title or id option adds.
enum class Heading : std::uint8_t {
    none,
    title_each,  // _TITLE: a title line before each group
    title_once,  // _TITLE: a title line for the block, which has one group
    id_once,     // _ID (with *CONTACT also _TITLE): an id card that stands for the whole block
};

// How many groups of cards a block can have, and how many of them the converter reads.
enum class Groups : std::uint8_t { one, many };
enum class Reads : std::uint8_t {
    nothing,          // the converter skips the keyword
    first_group,      // the first only
    first_if_headed,  // the first only when the block has a title or id card, else all
    all
};

struct Layout {
    std::string_view keyword;  // without its _TITLE or _ID
    std::span<const CardLayout> cards;
    Groups groups = Groups::many;
    Reads reads = Reads::all;
    Heading heading = Heading::none;
};

// The layout of a keyword.
struct LayoutMatch {
    const Layout* layout = nullptr;  // null when the table has none
    std::string name;                // that was asked for
    bool headed = false;             // the name has the layout's _TITLE or _ID
    bool exact = false;              // the name is the layout's keyword, its heading and options that have cards there
};

// By normalised name (KeywordLine::name): the row with the longest keyword that the name begins with, letter by letter,
// as the converter compares them. So *EOS_JWLB has the layout of *EOS_JWL, but not exactly.
LayoutMatch find_layout(std::string_view name);

// The whole table.
std::span<const Layout> layouts();

// A solid on two lines: its number and part, then ten nodes.
const Layout& solid_on_two_lines();

// True for the keywords whose integers are ten wide in the ten-column format: *NODE and *ELEMENT.
bool is_bulk(std::string_view name);

// The columns of a field in a block of that format. `bulk` is is_bulk() of its keyword. Of a text, the columns before
// which it begins are all that changes: it has the rest of the line.
std::size_t field_width(const Field& field, Format format, bool bulk);

// A line's place in its block.
struct CardPlace {
    static constexpr std::size_t no_index = static_cast<std::size_t>(-1);

    const CardLayout* card = nullptr;  // null: a line beyond the layout
    std::size_t index = no_index;      // of the card in Layout::cards; none of a title or id card
    std::size_t group = 0;             // from 0
    bool first_of_group = false;       // a title line before a group is the first of it
    bool read = false;                 // by the converter, as far as the layout knows
};

// Goes through the lines of a block and says which card each is.
//
//     deck::CardWalk walk(deck::find_layout(block.keyword.name));
//     for each line of the block that is no comment:
//         const deck::CardPlace place = walk.next();
//         ... the fields of *place.card, by split_card ...
//         walk.set_value(i, number)   // for each field: counts and types depend on them
class CardWalk
{
public:
    explicit CardWalk(LayoutMatch match);

    CardPlace next();
    void set_value(std::size_t field, double value);

    // Of the present group.
    [[nodiscard]] const GroupValues& values() const { return values_; }

    // The card that a group which has begun must still have, when the block ends here; null when none is missing.
    [[nodiscard]] const CardLayout* missing() const;

private:
    [[nodiscard]] bool has(const CardLayout& card) const;
    [[nodiscard]] std::size_t due(std::size_t index) const;
    void skip_absent();
    [[nodiscard]] bool read_group() const;

    LayoutMatch match_;
    GroupValues values_;
    std::size_t card_ = 0;     // the next line is this card
    std::size_t times_ = 0;    // that this card has been there
    std::size_t present_ = 0;  // the card that next() gave last
    std::size_t group_ = 0;
    bool heading_due_ = false;
    bool group_begun_ = false;  // a line of the present group has been given
};

// Names by number: "*MAT_001_TITLE" is "*MAT_ELASTIC_TITLE". Empty for a name that is no such form, or whose named form
// the converter does not read.
std::string named_form(std::string_view name);

}  // namespace deck
