#include "deck/card_fields.h"

#include <algorithm>

#include "deck/field_number.h"
#include "deck/keyword_line.h"

namespace deck
{

namespace
{
// The next comma that stands in no "<expression>"; the line's end when there is none.
std::size_t next_comma(std::string_view line, std::size_t from)
{
    bool in_expression = false;
    for (std::size_t at = from; at < line.size(); ++at) {
        if (line[at] == '<') in_expression = true;
        if (line[at] == '>') in_expression = false;
        if (line[at] == ',' && !in_expression) return at;
    }
    return line.size();
}

bool is_number_then_text(const CardLayout& card)
{
    return card.fields.size() == 2 && card.fields[0].kind != Kind::text && card.fields[1].kind == Kind::text;
}

void split_free(std::string_view line, const CardLayout& card, Format format, bool bulk, std::vector<FieldText>& to)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < card.fields.size() || at <= line.size(); ++i) {
        FieldText text;
        if (i < card.fields.size()) {
            text.field = &card.fields[i];
            text.width = field_width(*text.field, format, bulk);
        }
        text.column = std::min(at, line.size());
        if (at <= line.size()) {
            const bool rest = text.field != nullptr && text.field->kind == Kind::text;
            const std::size_t end = rest ? line.size() : next_comma(line, at);
            text.text = line.substr(at, end - at);
            at = end + 1;
        }
        to.push_back(text);
    }
}

void split_columns(std::string_view line, const CardLayout& card, Format format, bool bulk, std::vector<FieldText>& to)
{
    std::size_t at = 0;
    for (const Field& field : card.fields) {
        FieldText text;
        text.field = &field;
        text.column = at;
        text.width = field_width(field, format, bulk);
        if (at < line.size()) text.text = field.kind == Kind::text ? line.substr(at) : line.substr(at, text.width);
        text.cut = field.kind != Kind::text && !text.text.empty() && text.text.size() < text.width;
        at += text.width;
        to.push_back(text);
    }
}
}  // namespace

bool is_free(std::string_view line, const CardLayout& card)
{
    if (card.fields.empty() || card.fields[0].kind == Kind::text) return false;
    if (line.find(',') == std::string_view::npos) return false;  // nearly all lines: they are searched in no time
    const std::size_t comma = next_comma(line, 0);
    if (comma == line.size()) return false;
    if (!is_number_then_text(card)) return true;
    return standard_number(line.substr(0, comma)).form == FieldNumber::Form::integer;
}

void split_card(std::string_view line, const CardLayout& card, Format format, bool bulk, std::vector<FieldText>& to)
{
    to.clear();
    if (is_free(line, card))
        split_free(line, card, format, bulk, to);
    else
        split_columns(line, card, format, bulk, to);
}

std::vector<FieldText> split_card(std::string_view line, const CardLayout& card, Format format, bool bulk)
{
    std::vector<FieldText> fields;
    split_card(line, card, format, bulk, fields);
    return fields;
}

FieldText behind_fields(std::string_view line, const CardLayout& card, Format format, bool bulk)
{
    const std::vector<FieldText> fields = split_card(line, card, format, bulk);
    std::size_t end = 0;
    if (is_free(line, card)) {
        if (fields.size() <= card.fields.size()) return {};
        end = fields[card.fields.size()].column;
    } else if (!fields.empty()) {
        if (fields.back().field->kind == Kind::text) return {};
        end = fields.back().column + fields.back().width;
    }
    if (end >= line.size()) return {};
    FieldText rest;
    rest.text = trimmed(line.substr(end));
    if (!rest.text.empty()) rest.column = static_cast<std::size_t>(rest.text.data() - line.data());
    return rest;
}

std::string with_tabs_expanded(std::string_view line)
{
    constexpr std::size_t stop = 8;
    std::string expanded;
    for (const char c : line) {
        if (c == '\t')
            expanded.append(stop - expanded.size() % stop, ' ');
        else
            expanded += c;
    }
    return expanded;
}

}  // namespace deck
