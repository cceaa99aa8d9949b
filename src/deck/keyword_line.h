// Keyword lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "deck/card_format.h"

namespace deck
{

// A line that begins with "*", taken apart.
//
//     *node_list_title +   text      name "*NODE_LIST_TITLE", suffix plus, rest "text" (at column 22)
struct KeywordLine {
    std::string text;  // as it stands
    std::string name;  // upper case, up to the first blank or tab, without suffix
    FormatSuffix suffix = FormatSuffix::none;
    std::string rest;             // what stands behind, without blanks at its ends; for *KEYWORD its settings
    std::size_t rest_column = 0;  // 1-based; 0 when there is no rest
};

KeywordLine read_keyword_line(std::string_view text);

// "*CONTACT_SINGLE_SURFACE_ID" ends in the option "ID".
bool ends_in_option(std::string_view name, std::string_view option);

// The name without that option at its end; the name itself when it has not got it.
std::string_view without_option(std::string_view name, std::string_view option);

// True when the name is `keyword`, or `keyword` and options behind it: "*PART_INERTIA" is of "*PART", "*PARTICLE" not.
bool is_of(std::string_view name, std::string_view keyword);

// Upper and lower case of ASCII letters; every other byte stays.
std::string to_upper(std::string_view text);
std::string to_lower(std::string_view text);

// Without blanks, tabs and CRs at its ends.
std::string_view trimmed(std::string_view text);

}  // namespace deck
