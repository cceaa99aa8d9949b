// Cards for the decks of tests.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// A card line of fields of ten columns, each right-aligned: all of its columns are there, also those of empty fields.
inline std::string card(std::initializer_list<std::string_view> fields)
{
    std::string line;
    for (const std::string_view field : fields) line.append(10 - field.size(), ' ').append(field);
    return line + "\n";
}

// Cards 1 to 3 of a contact without anything in them.
inline const std::string blank_contact_cards = "\n\n\n";
