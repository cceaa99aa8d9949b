#include "deck/keyword_line.h"

#include <algorithm>

namespace deck
{

namespace
{
constexpr std::string_view blanks = " \t\r";

FormatSuffix suffix_of(char c)
{
    switch (c) {
    case '+':
        return FormatSuffix::plus;
    case '%':
        return FormatSuffix::percent;
    case '-':
        return FormatSuffix::minus;
    default:
        return FormatSuffix::none;
    }
}
}  // namespace

std::string to_upper(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

std::string to_lower(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

KeywordLine read_keyword_line(std::string_view text)
{
    KeywordLine line;
    line.text = text;
    const std::size_t name_end = std::min(text.find_first_of(blanks), text.size());
    std::string_view name = text.substr(0, name_end);
    std::size_t at = std::min(text.find_first_not_of(blanks, name_end), text.size());
    if (name.size() > 1) line.suffix = suffix_of(name.back());
    if (line.suffix != FormatSuffix::none) {
        name.remove_suffix(1);
    } else if (at < text.size()) {
        const std::size_t token_end = std::min(text.find_first_of(blanks, at), text.size());
        if (token_end - at == 1) line.suffix = suffix_of(text[at]);
        if (line.suffix != FormatSuffix::none) at = std::min(text.find_first_not_of(blanks, token_end), text.size());
    }
    line.name = to_upper(name);
    line.rest = trimmed(text.substr(at));
    if (!line.rest.empty()) line.rest_column = at + 1;
    return line;
}

bool ends_in_option(std::string_view name, std::string_view option)
{
    return name.size() > option.size() + 1 && name.ends_with(option) && name[name.size() - option.size() - 1] == '_';
}

std::string_view without_option(std::string_view name, std::string_view option)
{
    if (ends_in_option(name, option)) name.remove_suffix(option.size() + 1);
    return name;
}

bool is_of(std::string_view name, std::string_view keyword)
{
    return name.starts_with(keyword) && (name.size() == keyword.size() || name[keyword.size()] == '_');
}

}  // namespace deck
