// Random models as strict decks: every keyword that the converter converts, every reference resolved, every number at
// the right edge of its field. A second derivation of the format: nothing of the program's own is used here.
//
// A Model is a deck in pieces: blocks, their cards, the cards' fields. strict() writes it the one way that is read
// wholly; the spelling members say how a deck in another style writes the same thing, and are empty in a strict model
// (see styles.h, which sets them).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace models
{
// What stands in a field. An identifier is carried as text from the deck to the outputs; a name is a word.
enum class Kind : std::uint8_t { integer, real, identifier, name };

struct Field {
    std::string_view name;  // as descriptions of the format call it, in lower case
    int width = 10;         // columns in the standard format
    Kind kind = Kind::integer;
    std::string value;  // without blanks; empty: nothing stands there, which reads as 0

    std::string spelled;  // written in place of the value
    bool left = false;    // at the field's left edge
};

struct Card {
    std::vector<Field> fields;  // none: the card is a title
    std::string title;
    std::string comment;  // a line above it that begins with "$"; empty: none

    enum class Form : std::uint8_t { columns, commas, tabs, cut, two_lines, missing };
    Form form = Form::columns;
    bool blank_above = false;  // an empty line stands above it
    bool changed = false;      // a style has changed how it is written

    [[nodiscard]] bool is_title() const { return fields.empty(); }
};

// Columns of a deck or a block: fields of their own widths, all of 20, or the integers of nodes and elements of 10.
enum class Format : std::uint8_t { standard, wide, ten };

struct Block;

// A file that an *INCLUDE names.
struct IncludeFile {
    std::string name;  // as the deck names it
    std::string path;  // where it stands, from the main deck's folder
    std::vector<Block> blocks;
    bool keyword = false;  // begins with *KEYWORD
    bool end = false;      // ends with *END and lines that nobody reads
    bool newline = true;   // behind its last line
};

struct Block {
    int number = 0;  // the same in a deck and in its strict form
    std::string keyword;
    std::vector<Card> cards;

    std::string spelled;             // the keyword line, when it differs
    char mark = ' ';                 // "+", "-" or "%" behind the keyword
    bool respelled = false;          // written in another form as a whole
    bool retouched = false;          // some of its cards are written in another way
    std::vector<IncludeFile> files;  // an *INCLUDE block's; its names stand in its cards
};

struct Model {
    std::vector<Block> blocks;  // the first is *KEYWORD; *END is written behind the last

    Format format = Format::standard;
    bool carriage_returns = false;
    bool end = true;      // *END stands at the end
    bool newline = true;  // behind the last line
    std::string after_end;
};

// ---- writing -------------------------------------------------------------------------------------------------------

// The deck of a model in which nothing is spelled otherwise.
std::string strict(const Model& model);

// A line that a style has changed, and the keyword line of its block.
struct Place {
    std::string file;
    std::size_t line = 0;  // from 1
    std::size_t block_line = 0;
};

struct WrittenDeck {
    std::map<std::string, std::string> files;  // by their path from the main deck's folder
    std::vector<Place> places;
};

// A model as its spelling members say, and the places that differ from the strict form.
WrittenDeck written(const Model& model, const std::string& main_deck);

// ---- random models -------------------------------------------------------------------------------------------------

// The same model for the same seed, on every machine. Most have a few dozen nodes, some a few hundred, some only one
// keyword.
Model random_model(std::uint32_t seed);

// ---- what a model holds --------------------------------------------------------------------------------------------

struct NodeFact {
    long id;
    std::array<double, 3> at;
};
struct ElementFact {
    long id;
    long part;
    std::vector<long> nodes;  // four of a shell, eight of a solid
};
struct ParticleFact {
    long node;
    long part;
    double mass;
};
struct PartFact {
    std::string title;
    std::string id, section, material, equation_of_state, hourglass;
};
enum class SetKind : std::uint8_t { node, part, shell, solid, segment };
struct SetFact {
    SetKind kind;
    long id;
    std::string title;
    std::vector<long> members;                  // of all but segment sets
    std::vector<std::array<long, 4>> segments;  // nodes
};

// Taken from the blocks of a strict model, in the order of the deck.
std::vector<NodeFact> nodes_of(const Model& model);
std::vector<ElementFact> shells_of(const Model& model);
std::vector<ElementFact> solids_of(const Model& model);
std::vector<ParticleFact> particles_of(const Model& model);
std::vector<PartFact> parts_of(const Model& model);
std::vector<SetFact> sets_of(const Model& model);

// ---- helpers for styles --------------------------------------------------------------------------------------------

// Every block, those of include files in the place of their *INCLUDE.
std::vector<Block*> all_blocks(Model& model);

bool begins(std::string_view text, std::string_view beginning);
bool ends(std::string_view text, std::string_view ending);

// Fields of one width: members of sets, identifiers of histories, eight to a card.
std::vector<Card> list_cards(const std::vector<long>& members);

Field integer_field(std::string_view name, long value, int width = 10);
Card title_card(std::string title);

// True when tabs can take the place of blanks in the card's line.
bool tabs_fit(const Card& card);

// Of a field's value; 0 where nothing stands.
long whole(const Field& field);
}  // namespace models
