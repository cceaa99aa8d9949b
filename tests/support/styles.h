// Other ways to write a strict model that mean the same to a reader of the format: what real decks do and the converter
// does not understand, or only half.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "support/models.h"
#include "support/random.h"

namespace models
{
// A model under a style's hands: the deck as it is spelled, and the strict model that it means. Most styles leave the
// strict model alone; some can only say what the model does not hold yet (a set that is a range, a second material).
struct Spelling {
    Model deck;
    Model strict;
};

struct Style {
    std::string_view name;
    std::string_view code;  // of the finding that tells of it; empty where several would do
    bool misread;           // the converter, given the deck as it is, makes another model of it at least sometimes
    bool same_log;          // once mended it leaves the strict form's debug log, too: its keyword lines are the same

    // Spells something in the style; false, and nothing is changed, where the model has nothing for it.
    bool (*apply)(Spelling& spelling, Random& random);
};

// Every style, in families: fields, formats, keyword lines, files, parameters, blocks, sets.
std::span<const Style> styles();
std::span<const Style> styles_of_cards();
std::span<const Style> styles_of_keyword_lines();
std::span<const Style> styles_of_files();
std::span<const Style> styles_of_parameters();
std::span<const Style> styles_of_blocks();
std::span<const Style> styles_of_sets();

// A deck in other styles. Prepared and converted, it gives the very main deck, geometry, set and accelerometer files of
// its strict form, and with `same_log` the debug log, too. The keyword copy holds what the deck holds and may differ.
struct SpelledDeck {
    std::map<std::string, std::string> files;  // by path from the main deck's folder
    std::string main_deck;
    std::vector<Place> places;  // the lines that are not as in the strict form
    std::vector<std::string_view> styles;
    bool same_log = true;
    Model strict;
};

// The model with one style at one place; nothing where the model has no place for it.
std::optional<SpelledDeck> spell(const Style& style, const Model& model, Random& random);

// The model with up to `times` styles, each at a place of its own, or several at one place where they go together.
SpelledDeck spell_mixed(const Model& model, Random& random, std::size_t times);
}  // namespace models
