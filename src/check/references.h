// What the deck's identifiers define and name.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "check/number_set.h"
#include "deck/fault.h"
#include "deck/layout.h"

namespace check
{

// An identifier: a number, or where identifiers are carried as text any text.
struct Identifier {
    std::int64_t number = 0;
    std::string text;  // empty for a number
};

// What becomes of the block in which something is defined.
enum class Defined { converted, elsewhere, skipped };  // elsewhere: in an include file, or a block that is lost

// Collects in one go through the deck, and answers in a second one.
class References
{
public:
    static constexpr std::size_t kind(deck::Names names) { return static_cast<std::size_t>(names); }
    static constexpr std::size_t kinds = static_cast<std::size_t>(deck::Names::vector) + 1;

    void define(std::size_t kind, const Identifier& id, Defined how);
    void refer(std::size_t kind, const Identifier& id);

    // True when something is named that is not defined, or defined twice: then the second going tells where.
    [[nodiscard]] bool has_troubles() const;

    [[nodiscard]] bool is_defined(std::size_t kind, const Identifier& id) const;
    [[nodiscard]] bool is_skipped(std::size_t kind, const Identifier& id) const;
    [[nodiscard]] bool is_used(std::size_t kind, const Identifier& id) const;

    // In the second going: where the identifier, which is defined more than once, was defined first; null for the first
    // itself, and for all that are defined once.
    const deck::Place* first_of_several(std::size_t kind, const Identifier& id, const deck::Place& here);

private:
    struct Sets {
        NumberSet defined, skipped, used, twice;
        std::map<std::string, int, std::less<>> texts;  // bits: see the constants in the implementation
        std::map<std::pair<std::int64_t, std::string>, deck::Place> first;
    };
    std::array<Sets, kinds> sets_;
    bool twice_ = false;
};

// The kind in words: "node set".
std::string_view kind_in_words(std::size_t kind);

// False for kinds that the converter has no definitions of: vectors, thermal materials.
bool is_followed(std::size_t kind);

}  // namespace check
