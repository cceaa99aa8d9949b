#include "check/references.h"

#include <algorithm>

namespace check
{
namespace
{
// What is known of a text that is an identifier.
constexpr int defined_bit = 1, skipped_bit = 2, used_bit = 4, twice_bit = 8;
}  // namespace

void References::define(std::size_t kind, const Identifier& id, Defined how)
{
    Sets& sets = sets_[kind];
    if (!id.text.empty()) {
        int& known = sets.texts[id.text];
        if (how != Defined::skipped && (known & defined_bit) != 0) {
            known |= twice_bit;
            twice_ = true;
        }
        known |= how == Defined::skipped ? skipped_bit : defined_bit;
        return;
    }
    if (how == Defined::skipped) {
        sets.skipped.insert(id.number);
    } else if (!sets.defined.insert(id.number)) {
        sets.twice.insert(id.number);
        twice_ = true;
    }
}

void References::refer(std::size_t kind, const Identifier& id)
{
    if (id.text.empty())
        sets_[kind].used.insert(id.number);
    else
        sets_[kind].texts[id.text] |= used_bit;
}

bool References::has_troubles() const
{
    const NumberSet none;
    return twice_ || std::any_of(sets_.begin(), sets_.end(), [&](const Sets& sets) {
               return !sets.used.is_within(sets.defined, none) ||
                      std::any_of(sets.texts.begin(), sets.texts.end(), [](const auto& text) {
                          return (text.second & used_bit) != 0 && (text.second & defined_bit) == 0;
                      });
           });
}

bool References::is_defined(std::size_t kind, const Identifier& id) const
{
    const Sets& sets = sets_[kind];
    if (id.text.empty()) return sets.defined.contains(id.number);
    const auto found = sets.texts.find(id.text);
    return found != sets.texts.end() && (found->second & defined_bit) != 0;
}

bool References::is_skipped(std::size_t kind, const Identifier& id) const
{
    const Sets& sets = sets_[kind];
    if (id.text.empty()) return sets.skipped.contains(id.number);
    const auto found = sets.texts.find(id.text);
    return found != sets.texts.end() && (found->second & skipped_bit) != 0;
}

bool References::is_used(std::size_t kind, const Identifier& id) const
{
    const Sets& sets = sets_[kind];
    if (id.text.empty()) return sets.used.contains(id.number);
    const auto found = sets.texts.find(id.text);
    return found != sets.texts.end() && (found->second & used_bit) != 0;
}

const deck::Place* References::first_of_several(std::size_t kind, const Identifier& id, const deck::Place& here)
{
    Sets& sets = sets_[kind];
    if (id.text.empty()) {
        if (!sets.twice.contains(id.number)) return nullptr;
    } else if ((sets.texts[id.text] & twice_bit) == 0) {
        return nullptr;
    }
    const auto [place, is_new] = sets.first.try_emplace({id.number, id.text}, here);
    return is_new ? nullptr : &place->second;
}

std::string_view kind_in_words(std::size_t kind)
{
    constexpr std::array<std::string_view, References::kinds> words = {"",
                                                                       "node",
                                                                       "element",
                                                                       "shell",
                                                                       "solid",
                                                                       "particle",
                                                                       "part",
                                                                       "section",
                                                                       "material",
                                                                       "equation of state",
                                                                       "hourglass definition",
                                                                       "thermal material",
                                                                       "curve",
                                                                       "node set",
                                                                       "part set",
                                                                       "segment set",
                                                                       "shell set",
                                                                       "solid set",
                                                                       "box",
                                                                       "coordinate system",
                                                                       "vector"};
    return words[kind];
}

bool is_followed(std::size_t kind)
{
    return kind != References::kind(deck::Names::nothing) && kind != References::kind(deck::Names::element) &&
           kind != References::kind(deck::Names::vector) && kind != References::kind(deck::Names::thermal_material);
}
}  // namespace check
