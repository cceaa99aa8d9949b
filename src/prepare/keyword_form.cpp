#include "prepare/keyword_form.h"

#include <algorithm>
#include <utility>

namespace prepare
{

namespace
{
using deck::Format;
using deck::FormatSuffix;
using deck::Reads;

constexpr std::size_t longest_keyword = 49;  // that the converter sees

bool is_all_of_ten(const deck::Layout& layout)
{
    return std::all_of(layout.cards.begin(), layout.cards.end(), [](const deck::CardLayout& card) {
        return std::all_of(card.fields.begin(), card.fields.end(), [](const deck::Field& field) {
            return field.kind == deck::Kind::text || field.width == 10;
        });
    });
}

// Where the converter looks at the line's very end.
bool end_is_looked_at(std::string_view name)
{
    return (name.starts_with("*MAT_") && name.ends_with("TITLE")) ||
           (name.starts_with("*CONTACT") && name.ends_with("ID"));
}

std::string_view mark(FormatSuffix suffix)
{
    switch (suffix) {
    case FormatSuffix::plus:
        return " +";
    case FormatSuffix::percent:
        return " %";
    case FormatSuffix::minus:
        return " -";
    case FormatSuffix::none:
        break;
    }
    return "";
}

// Keywords whose lines are no cards in columns.
bool has_no_columns(std::string_view name)
{
    return name == "*END" || name == "*KEYWORD" || name == "*COMMENT";
}

// What keeps a block's format when the deck's own is taken away.
FormatSuffix suffix_of(Format format, std::string_view name)
{
    if (format == Format::long_fields) return FormatSuffix::plus;
    return format == Format::ten_columns && deck::is_bulk(name) ? FormatSuffix::percent : FormatSuffix::none;
}

bool drops_options(const deck::LayoutMatch& match)
{
    return match.exact && match.layout->keyword == "*PART" && match.name != "*PART";
}

// The first rule that gives the keyword another name, or its cards another heading.
void rename(KeywordForm& form, std::string& name)
{
    const auto set = [&](std::string_view code, std::string_view message) {
        if (!form.code.empty()) return;
        form.code = code;
        form.message = message;
    };
    if (std::string named = deck::named_form(name); !named.empty()) {
        set("MD201", "the keyword by its name instead of its number");
        name = std::move(named);
    }
    form.match = deck::find_layout(name);
    if (form.match.layout == nullptr) return;
    const std::string_view keyword = form.match.layout->keyword;
    if (drops_options(form.match)) {
        set("MD208", "options of the part, and their cards, taken out");
        form.drops_options = true;
        name = "*PART";
    } else if (keyword.starts_with("*CONTACT") && deck::ends_in_option(name, "TITLE") && form.match.headed) {
        set("MD209", "_ID instead of _TITLE");
        name = std::string(deck::without_option(name, "TITLE")) + "_ID";
    } else if (name == "*EOS_LINEAR_POLYNOMIAL" || name == "*MAT_STEINBERG") {
        set("MD209", "a title put in: without one the block is skipped");
        form.adds_title = name.substr(1);
        name += "_TITLE";
    } else if (name == "*MAT_JOHNSON_HOLMQUIST_CERAMICS_TITLE") {
        set("MD209", "the title taken out: with it the block is misread");
        form.drops_heading = true;
        name = deck::without_option(name, "TITLE");
    }
    if (name.size() > longest_keyword && end_is_looked_at(name)) {
        set("MD111", "_ID or _TITLE, and its card, taken out: the keyword is too long for them");
        form.drops_heading = true;
        name.resize(name.rfind('_'));
    }
}
}  // namespace

bool is_rewritten(const deck::LayoutMatch& match)
{
    if (match.layout == nullptr || match.layout->cards.empty() || match.layout->reads == Reads::nothing) return false;
    if (match.exact) return true;
    const std::string_view keyword = match.layout->keyword;
    const bool only_begins_alike = !keyword.starts_with("*CONTACT") && !keyword.starts_with("*SECTION") &&
                                   !keyword.starts_with("*CONTROL") && !keyword.starts_with("*DATABASE_");
    return !only_begins_alike && match.layout->reads == Reads::first_group && is_all_of_ten(*match.layout);
}

bool has_other_columns(const deck::LayoutMatch& match, Format format)
{
    if (format == Format::standard || match.layout == nullptr) return false;
    const bool bulk = deck::is_bulk(match.name);
    for (const deck::CardLayout& card : match.layout->cards)
        for (const deck::Field& field : card.fields)
            if (field.kind != deck::Kind::text && deck::field_width(field, format, bulk) != field.width) return true;
    return false;
}

std::string without_formats(const deck::KeywordLine& line)
{
    std::string kept;
    std::string_view rest = line.rest;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(" \t,"), rest.size());
        const std::string word = deck::to_upper(rest.substr(0, end));
        if (!word.empty() && !word.starts_with("LONG=") && !word.starts_with("I10="))
            kept.append(" ").append(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return line.name + kept;
}

KeywordForm form_of(const deck::Block& block, bool standard_deck)
{
    KeywordForm form;
    const deck::KeywordLine& keyword = block.keyword;
    std::string name = keyword.name;
    rename(form, name);
    form.rewritten = is_rewritten(form.match);
    form.format = has_other_columns(form.match, block.format) ? block.format : Format::standard;
    const bool changes_columns = form.rewritten && has_other_columns(form.match, block.format);
    const auto set = [&](std::string_view code, std::string_view message) {
        if (!form.code.empty()) return;
        form.code = code;
        form.message = message;
    };

    form.line = name;
    FormatSuffix suffix = changes_columns ? FormatSuffix::none : keyword.suffix;
    if (suffix == FormatSuffix::minus && (standard_deck || end_is_looked_at(name))) suffix = FormatSuffix::none;
    if (suffix == FormatSuffix::none && standard_deck && !form.rewritten && !has_no_columns(name))
        suffix = suffix_of(block.format, name);
    if (suffix != keyword.suffix) set("MD108", "the keyword's format");
    form.line += mark(suffix);

    if (name == "*KEYWORD") {
        form.line = standard_deck ? without_formats(keyword) : keyword.name;
        if (!standard_deck) form.line = keyword.name + keyword.text.substr(keyword.name.size());
        if (standard_deck && form.line != keyword.text) set("MD108", "the deck's format");
    } else if (!keyword.rest.empty()) {
        set("MD111", "text behind the keyword taken away");
    } else if (suffix != FormatSuffix::none && suffix == keyword.suffix && form.code.empty() &&
               name == keyword.text.substr(0, name.size())) {
        form.line = keyword.text;  // as it stands
    }
    if (form.line != keyword.text) set("MD113", "the keyword in capitals, without blanks behind it");
    return form;
}

}  // namespace prepare
