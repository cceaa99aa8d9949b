#include "driver/file_names.h"

#include <cstddef>

std::string base_name(std::string_view deck)
{
    for (std::size_t extension = 1; extension <= 3; ++extension) {
        if (deck.size() <= extension) break;
        const std::size_t dot = deck.size() - extension - 1;
        if (deck[dot] == '.') return std::string(deck.substr(0, dot + 1));
    }
    return std::string(deck) + ".";
}

namespace
{
template <std::size_t size>
void store(char (&destination)[size], std::string_view name)
{
    destination[name.copy(destination, size - 1)] = '\0';
}
}  // namespace

bool set_file_names(std::string_view deck)
{
    if (deck.size() >= sizeof file_names.deck) return false;
    const std::string base = base_name(deck);
    store(file_names.deck, deck);
    store(file_names.card, base + "card");
    store(file_names.geom, base + "geom");
    store(file_names.sets, base + "sets");
    return true;
}
