// Card layouts: one table with a row for each card of each keyword that the converter reads.
//
// The table says how the keyword format lays cards out in standard columns. Where the converter reads less of a block
// than the format allows, the row says so (Reads).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
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
    element,  // of any kind
    shell,
    solid,
    part,
    section,
    material,
    equation_of_state,
    hourglass,
    thermal_material,
    curve,
    node_set,
    part_set,
    segment_set,
    shell_set,
    solid_set,
    box,
    coordinate_system,
    vector,
    contact,  // also *BOUNDARY and *LOAD definitions with an _ID: nothing refers to them
};

struct Field {
    std::string_view name;  // in the keyword format, lower case
    std::uint8_t width;     // standard columns
    Kind kind;
    Names names = Names::nothing;
    bool defines = false;   // it defines what it names
    bool converted = true;  // the converter reads it
};

// When a card is there.
enum class Occurs : std::uint8_t {
    always,
    when_more,    // when the next line is not a keyword line (optional cards at a block's end)
    conditional,  // when the values of the group's cards say so: see CardLayout::when
    to_the_end,   // this card again and again to the block's end
};

// The numbers of the cards of the present group, in order; a card that was not there is empty.
struct GroupValues;

struct CardLayout {
    std::string_view name;  // "1", "2", "a", "id", "title", "members"
    std::span<const Field> fields;
    Occurs occurs = Occurs::always;
    bool (*when)(const GroupValues&) = nullptr;
    bool converted = true;  // the converter reads this card
};

// What a title or id option adds before the cards.
enum class Heading : std::uint8_t {
    none,
    title_each,  // _TITLE: a title line before each group
    title_once,  // _TITLE: a title line for the block, which has one group
    id_once,     // _ID: an id card (id and heading) that stands for the whole block
};

// How many groups of cards a block can have, and how many of them the converter reads.
enum class Groups : std::uint8_t { one, many };
enum class Reads : std::uint8_t {
    nothing,          // the converter skips the keyword; the layout is here for what it defines or names
    first_group,      // the first only
    first_if_headed,  // the first only when the block has a title or id card, else all
    all
};

struct Layout {
    std::string_view keyword;  // without its _TITLE or _ID; longer names begin with it
    std::span<const CardLayout> cards;
    Groups groups = Groups::many;
    Reads reads = Reads::all;
    Heading heading = Heading::none;
};

// The layout of a keyword.
struct LayoutMatch {
    const Layout* layout = nullptr;  // null when the table has none
    bool headed = false;             // the name has the layout's _TITLE or _ID
    bool exact = false;              // the name is the layout's keyword (and heading): no further options
};

// By normalised name (KeywordLine::name): the row with the longest keyword that the name begins with.
LayoutMatch find_layout(std::string_view name);

// The whole table.
std::span<const Layout> layouts();

// The columns of a field in a block of that format. `bulk` is true for *NODE and *ELEMENT.
std::size_t field_width(const Field& field, Format format, bool bulk);

// True for the keywords whose integers are ten wide in the ten-column format.
bool is_bulk(std::string_view name);

// The values that conditions look at.
struct GroupValues {
    static constexpr std::size_t most_cards = 16;
    static constexpr std::size_t most_fields = 10;
    double values[most_cards][most_fields]{};

    [[nodiscard]] double of(std::size_t card, std::size_t field) const { return values[card][field]; }
};

// Goes through the lines of a block and says which card each is.
//
//     deck::CardWalk walk(match);
//     for each line of the block that is no comment:
//         const deck::CardPlace place = walk.next();
//         ... place.card->fields ...
//         walk.set_values(numbers of the fields)      // when place.card is one that conditions look at: always safe
struct CardPlace {
    const CardLayout* card = nullptr;  // null: a line beyond the layout
    std::size_t index = 0;             // of the card in Layout::cards; of a title or id card: no_index
    std::size_t group = 0;             // from 0
    bool first_of_group = false;
    bool read = true;  // by the converter, by the layout
    static constexpr std::size_t no_index = static_cast<std::size_t>(-1);
};

class CardWalk
{
public:
    explicit CardWalk(const LayoutMatch& match);

    CardPlace next();
    void set_value(std::size_t field, double value);

    // True when a group has begun of which cards are missing still (the block ends too early).
    [[nodiscard]] bool wants_more() const;

private:
    enum class Stage { heading, cards, beyond };
    void begin_group();
    [[nodiscard]] CardPlace heading_place();

    LayoutMatch match_;
    GroupValues values_;
    std::size_t card_ = 0;     // the next to look at
    std::size_t present_ = 0;  // the last that next() gave
    std::size_t group_ = 0;
    bool heading_due_ = false;
    bool in_group_ = false;
};

// Names by number: "*MAT_001" and "*MAT_001_TITLE" are "*MAT_ELASTIC" and "*MAT_ELASTIC_TITLE". Empty for a name that
// is none of them, or whose named form the converter does not read.
std::string_view named_form(std::string_view number_form);

}  // namespace deck
