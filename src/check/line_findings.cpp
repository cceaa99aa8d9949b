#include "check/line_findings.h"

#include <algorithm>

#include "deck/keyword_line.h"
#include "reader/pass.h"

namespace check
{
namespace
{
// Keywords whose data lines the keyword copy leaves out: it looks at their lines in pieces of 49 characters.
bool is_left_out(std::string_view name)
{
    constexpr std::string_view keywords[] = {"*NODE",          "*ELEMENT_SHELL", "*ELEMENT_SPH",
                                             "*ELEMENT_SOLID", "*SET_NODE",      "*SET_PART",
                                             "*SET_SEGMENT",   "*SET_SHELL",     "*SET_SOLID"};
    return std::any_of(std::begin(keywords), std::end(keywords),
                       [=](std::string_view keyword) { return name.starts_with(keyword); });
}

// True when the converter looks at the end of the keyword line for a title or id.
bool end_is_looked_at(std::string_view name)
{
    return (name.starts_with("*MAT_") && name.ends_with("TITLE")) ||
           (name.starts_with("*CONTACT_") && name.ends_with("ID"));
}

bool has_small_letters(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

KeywordLineFlaw text_behind(const deck::KeywordLine& line, bool hides, bool joins)
{
    const std::size_t column = line.rest_column - 1;
    KeywordLineFlaw flaw{"MD111", hides || joins, column, column + line.rest.size(), "", joins, hides};
    flaw.message = "text behind " + line.name;
    if (hides) flaw.message += " hides the end of the keyword: its title is read as a card";
    if (joins) flaw.message += " makes the line longer than 48 characters: the next keyword is not found";
    return flaw;
}
}  // namespace

KeywordLineFlaw flaw_of(const deck::Block& block, Outcome outcome)
{
    const deck::KeywordLine& line = block.keyword;
    const bool converted = outcome == Outcome::converted;
    const bool looked_at = converted && end_is_looked_at(line.name);
    const bool joins = converted && is_left_out(line.name) && !line.name.starts_with("*SET_SOLID") &&
                       line.text.size() + (block.carriage_return ? 1 : 0) >= longest_prefix;
    const bool settings = line.name == "*KEYWORD";

    if (looked_at && line.name.size() > longest_prefix)
        return {"MD111",
                true,
                longest_prefix,
                line.name.size(),
                line.name + " is cut behind 49 characters: its title or id is read as a card",
                false,
                true};
    if (!line.rest.empty() && !settings) return text_behind(line, looked_at, joins);
    if (joins && line.name.size() >= longest_prefix)
        return {"MD111",
                true,
                longest_prefix - 1,
                line.name.size(),
                line.name + " is longer than 48 characters: the next keyword is not found",
                true,
                false};

    const bool blanks = !settings && line.suffix == deck::FormatSuffix::none && line.text.size() > line.name.size();
    if (blanks && (looked_at || joins)) {
        const char* const harm =
            looked_at ? ": its end is looked at, and its title is read as a card" : ": the next keyword is not found";
        return {"MD113", true, 0, line.name.size(), "blanks behind " + line.name + harm, joins, looked_at};
    }
    if (looked_at && block.carriage_return)
        return {"MD113",
                true,
                0,
                line.name.size(),
                "a carriage return behind " + line.name + ": its end is looked at, and its title is read as a card",
                false,
                true};
    if (looked_at && line.suffix != deck::FormatSuffix::none) return {"", false, 0, 0, "", false, true};
    if (blanks) return {"MD113", false, 0, line.name.size(), "blanks behind " + line.name, false, false};
    if (has_small_letters(line.text.substr(0, line.name.size())))
        return {"MD113", false, 0, line.name.size(), line.name + " in small letters", false, false};
    return {};
}

bool title_is_written(std::string_view keyword)
{
    constexpr std::string_view written[] = {"*TITLE", "*PART", "*MAT_", "*EOS_", "*SET_", "*DEFINE_CURVE"};
    return std::any_of(std::begin(written), std::end(written),
                       [=](std::string_view beginning) { return keyword.starts_with(beginning); });
}
}  // namespace check
