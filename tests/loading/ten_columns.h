// Cards for decks in tests.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// A card of fields of ten columns, each right-aligned, with its newline.
inline std::string ten_columns(std::initializer_list<std::string_view> fields)
{
    std::string card;
    for (const std::string_view field : fields) {
        card.append(10 - field.size(), ' ');
        card += field;
    }
    return card + '\n';
}

// Cards 1 to 3 of a contact without anything in them.
inline const std::string blank_contact_cards = "\n\n\n";
