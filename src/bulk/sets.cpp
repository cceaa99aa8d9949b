// The set file, and the index of the sets in the main deck.
#include <algorithm>
#include <array>
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
    {"*SET_NODE", handler<setcard, SetType::node>, "Node set definition"},  // and *SET_NODE_LIST
    {"*SET_PART_ADD", skipped},
    {"*SET_PART_COLUMN", skipped},
    {"*SET_PART_LIST_GENERATE", skipped},
    {"*SET_PART", handler<setcard, SetType::part>, "Part set definition"},  // and *SET_PART_LIST
    {"*SET_SEGMENT_GENERAL", skipped},
    {"*SET_SEGMENT", handler<setsegment>, "Segment set definition"},
    {"*SET_SHELL_ADD", skipped},
    {"*SET_SHELL_COLUMN", skipped},
    {"*SET_SHELL_GENERAL", skipped},
    {{"*SET_SHELL_LIST_GENERATE", 19}, skipped},                                 // sic: compares "*SET_SHELL_LIST_GEN"
    {"*SET_SHELL", handler<setcard, SetType::shell>, "Element set definition"},  // and *SET_SHELL_LIST
    {"*SET_SOLID_ADD", skipped},
    {"*SET_SOLID_GENERAL", skipped},
    {"*SET_SOLID_GENERATE", skipped},
    {"*SET_SOLID", handler<setcard, SetType::solid>, "Element set definition"},  // and *SET_SOLID_LIST
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
constexpr std::size_t widest_member_card = 80;

void write_member(int id, std::size_t& count)
{
    if (id == 0) return;
    print(setfile, "%10i", id);
    if (++count % members_per_row == 0) text(setfile, "\n");
}

void convert_members(std::size_t& count)
{
    int open = 1;
    for (int i = 0; i < 8; ++i) write_member(to_int(fblanks(10, &open)), count);
}

void convert_members(std::string_view line, std::size_t& count)
{
    LineFields fields(line);
    Row row(setfile);
    for (int i = 0; i < 8; ++i) {
        const std::string_view field = fields.take(10);
        if (field.empty()) continue;
        if (field[0] == ' ' && field[1] == ' ' && is_printed_integer(field.data() + 2)) {
            if (field[8] == ' ' && field[9] == '0') continue;
            row.text(field);
        } else {
            const int id = to_int(field_value(field));
            if (id == 0) continue;
            row.integer(id, 10);
        }
        if (++count % members_per_row == 0) row.end();
    }
}

// The member cards up to the next keyword line.
void convert_member_cards()
{
    std::size_t count = 0;
    char c = skip_comments();
    while (c != '*') {
        std::string_view line;
        if (fast_cards && infile.whole_line(line, widest_member_card)) {
            convert_members(line, count);
            infile.advance(line.size());
        } else {
            convert_members(count);
        }
        // sic: two characters, the newline and the next line's first, not the rest of the line: a card longer than 80
        // columns goes on in mid-line
        infile.next();
        c = comments(infile.next());
    }
    if (count % members_per_row != 0) text(setfile, "\n");
}

// ---- segments ------------------------------------------------------------------------------------------------------

// The segment attributes, which are dropped; the log shows those of a set's last card.
using SegmentAttributes = std::array<float, 4>;
constexpr std::size_t first_attribute_column = 40;

SegmentAttributes convert_segment(Card& card)
{
    const int n1 = card.integer();
    const int n2 = card.integer();
    const int n3 = card.integer();
    const int n4 = card.integer();
    print(setfile, "%10i%10i%10i%10i\n", n1, n2, n3, n4);
    return {card.real(), card.real(), card.real(), card.real()};
}

void convert_segment(std::string_view line)
{
    LineFields fields(line);
    Row row(setfile);
    for (int i = 0; i < 4; ++i) row.integer(fields.take(10), 10);
    row.end();
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
    SegmentAttributes attributes_of_last{};
    LastColumns last(first_attribute_column);
    bool whole = false;
    while (card.next()) {
        std::string_view line;
        whole = card.take_line(line);
        if (whole) {
            convert_segment(line);
            last.keep(line);
        } else {
            attributes_of_last = convert_segment(card);
        }
    }
    if (LineFields fields = last.fields(); whole)
        for (float& a : attributes_of_last) a = fields.real(10);

    log_recognized();
    if (has_title) log_ignored_title();
    log_attributes(attributes);
    constexpr std::array names = {"a1", "a2", "a3", "a4"};
    for (std::size_t i = 0; i < attributes_of_last.size(); ++i)
        print(outfile, "%10s:%10.3e . . . Not all values printed\n", names[i],
              static_cast<double>(attributes_of_last[i]));
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
