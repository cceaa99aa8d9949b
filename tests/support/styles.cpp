#include "support/styles.h"

#include <utility>

namespace models
{
std::span<const Style> styles()
{
    static const std::vector<Style> all = [] {
        std::vector<Style> table;
        for (const std::span<const Style> family : {styles_of_cards(), styles_of_keyword_lines(), styles_of_files(),
                                                    styles_of_parameters(), styles_of_blocks(), styles_of_sets()})
            table.insert(table.end(), family.begin(), family.end());
        return table;
    }();
    return all;
}

namespace
{
constexpr char main_deck[] = "model.k";

SpelledDeck finished(Spelling spelling, std::vector<std::string_view> names, bool same_log)
{
    WrittenDeck deck = written(spelling.deck, main_deck);
    return {std::move(deck.files), main_deck, std::move(deck.places),
            std::move(names),      same_log,  std::move(spelling.strict)};
}
}  // namespace

std::optional<SpelledDeck> spell(const Style& style, const Model& model, Random& random)
{
    Spelling spelling{model, model};
    if (!style.apply(spelling, random)) return {};
    return finished(std::move(spelling), {style.name}, style.same_log);
}

SpelledDeck spell_mixed(const Model& model, Random& random, std::size_t times)
{
    Spelling spelling{model, model};
    std::vector<std::string_view> names;
    bool same_log = true;
    for (std::size_t i = 0; i < times; ++i) {
        const Style& style = random.pick(styles());
        if (!style.apply(spelling, random)) continue;
        names.push_back(style.name);
        same_log = same_log && style.same_log;
    }
    return finished(std::move(spelling), std::move(names), same_log);
}
}  // namespace models
