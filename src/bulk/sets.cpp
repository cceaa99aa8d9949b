// The set file, and the index of the sets in the main deck.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "bulk/bulk.h"
#include "bulk/bulk_card.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
constexpr PassRow set_rows[] = {
    {"*SET_NODE_ADD", skipped},
    {"*SET_NODE_COLUMN", skipped},
    {"*SET_NODE_GENERAL", skipped},
    {"*SET_NODE_LIST_GENERATE", skipped},
    {"*SET_NODE", handler<setcard, SetType::node>, "Node set definition",
     "members, title, no attributes"},  // and *SET_NODE_LIST
    {"*SET_PART_ADD", skipped},
    {"*SET_PART_COLUMN", skipped},
    {"*SET_PART_LIST_GENERATE", skipped},
    {"*SET_PART", handler<setcard, SetType::part>, "Part set definition",
     "members, title, no attributes"},  // and *SET_PART_LIST
    {"*SET_SEGMENT_GENERAL", skipped},
    {"*SET_SEGMENT", handler<setsegment>, "Segment set definition", "nodes, title, no attributes"},
    {"*SET_SHELL_ADD", skipped},
    {"*SET_SHELL_COLUMN", skipped},
    {"*SET_SHELL_GENERAL", skipped},
    {{"*SET_SHELL_LIST_GENERATE", 19}, skipped},  // sic: compares "*SET_SHELL_LIST_GEN"
    {"*SET_SHELL", handler<setcard, SetType::shell>, "Element set definition",
     "members, title, no attributes"},  // and *SET_SHELL_LIST
    {"*SET_SOLID_ADD", skipped},
    {"*SET_SOLID_GENERAL", skipped},
    {"*SET_SOLID_GENERATE", skipped},
    {"*SET_SOLID", handler<setcard, SetType::solid>, "Element set definition",
     "members, title, no attributes"},  // and *SET_SOLID_LIST
    {"*SET", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(set_rows));

constexpr std::string_view index_rule = "!-----------------------------------------------------------\n";

constexpr Title no_title{" "};

bool titled()
{
    constexpr std::string_view variants[] = {
        "*SET_NODE_TITLE", "*SET_NODE_LIST_TITLE", "*SET_SOLID_TITLE", "*SET_SOLID_LIST_TITLE",
        "*SET_PART_TITLE", "*SET_PART_LIST_TITLE", "*SET_SHELL_TITLE", "*SET_SHELL_LIST_TITLE",
    };
    return std::any_of(std::begin(variants), std::end(variants), keyword_is);
}

const char* type_word(SetType type)
{
    switch (type) {
    case SetType::node:
        return "node";
    case SetType::solid:
        return "solid";
    case SetType::shell:
        return "shell";
    case SetType::part:
        return "part";
    }
    return "";
}

void write_header(SetType type, int sid, const Title& title)
{
    switch (type) {
    case SetType::node:
        print(setfile, "\n Node set definition    :%5i%10s %-80s\n", sid, " ", title.text);
        break;
    case SetType::solid:
    case SetType::shell:
        print(setfile, "\n Element set definition :%5i%10s %-80s\n", sid, " ", title.text);
        break;
    case SetType::part:
        print(setfile, "\n Part set definition    :%5i%10s %-80s\n", sid, " ", title.text);
        break;
    }
    if (cardflag == 1) print(inpfile, "!%7i%8s   %-80s|\n", sid, type_word(type), title.text);
}

// The four set attributes, which the solver does not take.
struct Attributes {
    float da1, da2, da3, da4;
};

Attributes read_attributes(Card& card)
{
    return {card.real(), card.real(), card.real(), card.real()};
}

void log_attributes(const Attributes& a)
{
    log_unused({{"da1", a.da1}, {"da2", a.da2}, {"da3", a.da3}, {"da4", a.da4}});
}

// ---- members -------------------------------------------------------------------------------------------------------

constexpr std::size_t members_per_row = 8;

// True when the field's number is 0, which is no member.
bool holds_none(std::string_view field)
{
    if (field.empty()) return true;
    if (field.starts_with("  ") && is_printed_integer(field.data() + 2)) return field.ends_with(" 0");
    return integer_of<int>(field) == 0;
}

void convert_members(Fields card, std::size_t& count)
{
    Row row(setfile);
    for (int i = 0; i < 8; ++i) {
        const std::string_view field = card.take(10);
        if (holds_none(field)) continue;
        row.integer<int>(field, 10);
        if (++count % members_per_row == 0) row.end();
    }
}

// The member cards up to the next keyword line.
void convert_member_cards()
{
    std::size_t count = 0;
    char c = skip_comments();
    while (c != '*') {
        const std::string_view columns = infile.ahead(80);
        watched_columns = infile.position();
        convert_members(columns, count);
        infile.advance(columns.size());
        // sic: two characters, the newline and the next line's first, not the rest of the line: a card longer than 80
        // columns goes on in mid-line
        infile.next();
        c = comments(infile.next());
    }
    if (count % members_per_row != 0) text(setfile, "\n");
}

// ---- segments ------------------------------------------------------------------------------------------------------

constexpr std::size_t first_attribute_column = 40;  // of a segment's own attributes, which are dropped

void convert_segment(Fields card)
{
    Row row(setfile);
    for (int i = 0; i < 4; ++i) row.integer<int>(card.take(10), 10);
    row.end();
}

// The attributes of a set's last segment.
void log_segment_attributes(Fields card)
{
    for (const char* name : {"a1", "a2", "a3", "a4"})
        print(outfile, "%10s:%10.3e . . . Not all values printed\n", name, static_cast<double>(card.real(10)));
}
}  // namespace

const Pass set_keywords{"sets", set_rows};

// *SET_NODE, *SET_SOLID, *SET_SHELL, *SET_PART, each also as _LIST and as _TITLE
void setcard(SetType type)
{
    const bool has_title = titled();
    const Title title = has_title ? readtitle() : no_title;
    Card card;
    card.first();
    const int sid = card.integer();
    const Attributes attributes = type == SetType::solid ? Attributes{} : read_attributes(card);
    write_header(type, sid, title);
    Card::end_line();
    convert_member_cards();
    if (type == SetType::node) ++counts.node_sets;

    log_recognized();
    if (has_title) log_ignored_title();
    if (type == SetType::solid)
        log_unused({});
    else
        log_attributes(attributes);
}

// *SET_SEGMENT, also as _TITLE
void setsegment()
{
    const bool has_title = keyword_is("*SET_SEGMENT_TITLE") || keyword_is("*SET_SEGMENT_LIST_TITLE");
    const Title title = has_title ? readtitle() : no_title;
    Card card;
    card.first();
    const int sid = card.integer();
    const Attributes attributes = read_attributes(card);
    print(setfile, "\n Segment set definition :%5i%10s %-80s\n", sid, " ", title.text);
    if (cardflag == 1) print(inpfile, "!%7i%8s   %40s|\n", sid, "segment", title.text);
    LastFields last(first_attribute_column, 10);
    while (card.next()) {
        const std::string_view columns = card.columns(80);
        convert_segment(columns);
        last.keep(columns);
    }

    log_recognized();
    if (has_title) log_ignored_title();
    log_attributes(attributes);
    log_segment_attributes(last.fields());
}

void set_section()
{
    banner(setfile, "Set Definitions");
    if (cardflag == 1) {
        text(inpfile, index_rule);
        print(inpfile, "! Set Definitions in %80s                  |\n", file_names.sets);
        text(inpfile, index_rule);
        text(inpfile, "!    SID    TYPE   TITLE                                   |\n");
    }
    run_pass(set_keywords);
    if (cardflag == 1) {
        text(inpfile, index_rule);
        text(inpfile, "\n\n");
    }
    text(setfile, "\n\n");
}
