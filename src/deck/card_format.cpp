#include "deck/card_format.h"

#include <string>

#include "deck/keyword_line.h"

namespace deck
{

namespace
{
// The first letter of the value behind "NAME=", upper case; 0 when the name is not there. Blanks around "=" do not
// count.
char setting(std::string_view rest, std::string_view name)
{
    std::string upper;
    for (const char c : to_upper(rest)) {
        if (c == '=')
            while (!upper.empty() && upper.back() == ' ') upper.pop_back();
        if (c != ' ' || upper.empty() || upper.back() != '=') upper += c == '\t' || c == ',' ? ' ' : c;
    }
    const std::string wanted = std::string(name) + "=";
    for (std::size_t at = upper.find(wanted); at != std::string::npos; at = upper.find(wanted, at + 1)) {
        const std::size_t value = at + wanted.size();
        if ((at == 0 || upper[at - 1] == ' ') && value < upper.size()) return upper[value];
    }
    return '\0';
}
}  // namespace

FormatSettings settings_from(std::string_view rest, FormatSettings before)
{
    FormatSettings settings = before;
    if (const char c = setting(rest, "LONG"); c != '\0') settings.long_fields = c == 'Y' || c == 'K';
    if (const char c = setting(rest, "I10"); c != '\0') settings.ten_columns = c == 'Y';
    return settings;
}

Format block_format(FormatSettings settings, FormatSuffix suffix)
{
    switch (suffix) {
    case FormatSuffix::plus:
        return Format::long_fields;
    case FormatSuffix::percent:
        return Format::ten_columns;
    case FormatSuffix::minus:
        return Format::standard;
    case FormatSuffix::none:
        break;
    }
    if (settings.long_fields) return Format::long_fields;
    return settings.ten_columns ? Format::ten_columns : Format::standard;
}

}  // namespace deck
