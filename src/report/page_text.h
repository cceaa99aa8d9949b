// Texts of decks as they may stand in a page: never as markup.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace report
{

// JSON as it may stand in a script element: "<", ">", "&" and the two line separators of JavaScript are escaped. Bytes
// that are no UTF-8 become replacement characters.
std::string in_script(const nlohmann::ordered_json& json);

// Text as it may stand in an element or an attribute. What nobody would see, or what turns the direction of the text
// around it, is named: "[U+202E]".
std::string in_markup(std::string_view text);

}  // namespace report
