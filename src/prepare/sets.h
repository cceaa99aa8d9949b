// Sets that are no lists: ranges, what the mesh has, columns, other sets. Their members are asked of the model.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace prepare
{

// True for the forms of *SET_NODE, _PART, _SHELL, _SOLID and _SEGMENT that can be written as lists.
bool is_question(std::string_view keyword);

// A set as a list.
struct SetList {
    std::string keyword;
    std::vector<std::string> cards;  // a title, the set's number and attributes, then its members
};

// The lists that the deck's sets are, by the block (from 1) in which they stand. Sets that ask for something that is
// not computed here are missing: they stay as they are. The deck is read twice, for what the sets ask and for what the
// model answers; only members are held. Throws deck::Fault when a field has no value.
std::map<std::size_t, SetList> lists_of(const std::filesystem::path& deck);

}  // namespace prepare
