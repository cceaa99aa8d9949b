// What a deck says of its parts and sets that the files written of it do not say in one place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "report/count.h"

namespace report
{

// A boundary or initial condition, a load, a contact or a constraint, and what it is laid upon.
struct LaidUpon {
    std::string keyword;
    SetKind kind = SetKind::node;
    std::int64_t id = 0;                // of the set; 0 when it names nodes or parts one by one
    std::vector<std::int64_t> members;  // these
};

struct DeckFacts {
    struct Part {
        std::size_t line = 0;  // of the card that defines it
        std::int64_t section = 0;
        std::int64_t material = 0;
    };
    std::vector<LaidUpon> laid_upon;  // by order in the deck; a keyword names a set once
    std::map<std::int64_t, Part> parts;
    std::map<std::int64_t, std::size_t> sections;   // lines that define them
    std::map<std::int64_t, std::size_t> materials;  // likewise
};

// Of the converted deck: lines are its own. `most_members` bounds what is named one by one. Throws deck::Fault.
DeckFacts deck_facts(const std::filesystem::path& deck, std::size_t most_members);

}  // namespace report
