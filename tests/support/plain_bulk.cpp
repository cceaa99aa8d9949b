#include "support/plain_bulk.h"

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bulk/bulk.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/numbers.h"
#include "reader/pass.h"
#include "reader/run.h"

namespace
{
constexpr char last_integer[] = "%10s:%10lli . . . Not all values printed\n";
constexpr char last_real[] = "%10s:%10.3e . . . Not all values printed\n";

// ---- geometry ------------------------------------------------------------------------------------------------------

void plain_node()
{
    if (counts.nodes == 0) {
        text(geomfile, "\nNode Definition:\n");
        text(geomfile, "!--- nid                    x                    y                    z    tc    rc\n");
    }
    for (Card card; card.next(); ++counts.nodes) {
        const long long nid = card.integer64(8);
        const double x = card.real(16);
        const double y = card.real(16);
        const double z = card.real(16);
        const int tc = card.integer(8);
        const int rc = card.integer(8);
        print(geomfile, "%8lli %20.13e %20.13e %20.13e %5i %5i\n", nid, x, y, z, tc, rc);
    }
    log_recognized();
    log_unused({});
}

void shell_heading()
{
    if (counts.shells > 0) return;
    text(geomfile, "\n Shell Element Definition:\n");
    text(geomfile, "!--- eid      pid         n1         n2         n3         n4\n");
    text(geomfile, "!------------- t1         t2         t3         t4       beta\n");
}

void log_shells(const std::array<long long, 4>& later)
{
    log_recognized();
    log_unused_heading();
    print(outfile, last_integer, "n5", later[0]);
    print(outfile, last_integer, "n6", later[1]);
    print(outfile, last_integer, "n7", later[2]);
    print(outfile, last_integer, "n8", later[3]);
}

void plain_eshell()
{
    shell_heading();
    std::array<long long, 4> later{};
    for (Card card; card.next(); ++counts.shells) {
        const long long eid = card.integer64(8);
        const long long pid = card.integer64(8);
        const long long n1 = card.integer64(8);
        const long long n2 = card.integer64(8);
        const long long n3 = card.integer64(8);
        const long long n4 = card.integer64(8);
        for (long long& node : later) node = card.integer64(8);
        print(geomfile, "%8lli %8lli %10lli %10lli %10lli %10lli\n", eid, pid, n1, n2, n3, n4);
        print(geomfile, "%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", 0.0, 0.0, 0.0, 0.0, 0.0);
    }
    log_shells(later);
}

void plain_eshellt()
{
    shell_heading();
    std::array<long long, 4> later{};
    for (Card card; card.next(); ++counts.shells) {
        const int eid = card.integer(8);
        const int pid = card.integer(8);
        const int n1 = card.integer(8);
        const int n2 = card.integer(8);
        const int n3 = card.integer(8);
        const int n4 = card.integer(8);
        for (long long& node : later) node = card.integer(8);
        card.another();
        const double t1 = card.real(16);
        const double t2 = card.real(16);
        const double t3 = card.real(16);
        const double t4 = card.real(16);
        const double beta = card.real(16);
        print(geomfile, "%8i %8i %10i %10i %10i %10i\n", eid, pid, n1, n2, n3, n4);
        print(geomfile, "%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", t1, t2, t3, t4, beta);
    }
    log_shells(later);
}

void plain_esolid()
{
    if (counts.solids == 0) {
        text(geomfile, "\n Solid Element Definition:\n");
        text(geomfile, "!--- eid      pid       n1       n2       n3       n4       n5       n6       n7       n8\n");
    }
    for (Card card; card.next(); ++counts.solids) {
        std::array<long long, 10> v{};  // eid, pid, n1 to n8
        for (long long& value : v) value = card.integer64(8);
        print(geomfile, "%8lli %8lli %8lli %8lli %8lli %8lli %8lli %8lli %8lli %8lli\n", v[0], v[1], v[2], v[3], v[4],
              v[5], v[6], v[7], v[8], v[9]);
    }
    log_recognized();
    log_unused({});
}

void plain_esph()
{
    if (counts.particles == 0) {
        text(geomfile, "\n SPH Element Definition:\n");
        text(geomfile, "!--- nid      pid             mass\n");
    }
    for (Card card; card.next(); ++counts.particles) {
        const int nid = card.integer(8);
        const int pid = card.integer(8);
        const double mass = card.real(16);
        print(geomfile, "%8i %8i %16.8e\n", nid, pid, mass);
    }
    log_recognized();
    log_unused({});
}

// ---- sets ----------------------------------------------------------------------------------------------------------

struct SetHead {
    Title title{" "};
    int sid = 0;
    std::array<float, 4> attributes{};
};

SetHead read_head(Card& card, std::string_view keyword_line)
{
    SetHead head;
    const std::string name(keyword_line);
    if (keyword_is(name + "_TITLE") || keyword_is(name + "_LIST_TITLE")) head.title = readtitle();
    card.first();
    head.sid = card.integer();
    if (keyword_line != "*SET_SOLID")
        for (float& attribute : head.attributes) attribute = card.real();
    return head;
}

void log_head(std::string_view keyword_line)
{
    const std::string name(keyword_line);
    log_recognized();
    if (keyword_is(name + "_TITLE") || keyword_is(name + "_LIST_TITLE")) log_ignored_title();
}

void log_attributes(const SetHead& head)
{
    log_unused({{"da1", head.attributes[0]},
                {"da2", head.attributes[1]},
                {"da3", head.attributes[2]},
                {"da4", head.attributes[3]}});
}

void plain_members()
{
    int members = 0;
    char c = skip_comments();
    while (c != '*') {
        int open = 1;
        for (int i = 0; i < 8; ++i) {
            const int id = to_int(fblanks(10, &open));
            if (id == 0) continue;
            print(setfile, "%10i", id);
            if (++members % 8 == 0) text(setfile, "\n");
        }
        infile.next();
        c = comments(infile.next());
    }
    if (members % 8 != 0) text(setfile, "\n");
}

void plain_set(std::string_view keyword_line, const char* heading, const char* word)
{
    Card card;
    const SetHead head = read_head(card, keyword_line);
    print(setfile, "\n %-23s:%5i%10s %-80s\n", heading, head.sid, " ", head.title.text);
    if (cardflag == 1) print(inpfile, "!%7i%8s   %-80s|\n", head.sid, word, head.title.text);
    Card::end_line();
    plain_members();
    log_head(keyword_line);
    if (keyword_line == "*SET_SOLID")
        log_unused({});
    else
        log_attributes(head);
}

void plain_setcard()
{
    if (keyword_is("*SET_NODE")) {
        plain_set("*SET_NODE", "Node set definition", "node");
        ++counts.node_sets;
    }
    if (keyword_is("*SET_SOLID")) plain_set("*SET_SOLID", "Element set definition", "solid");
    if (keyword_is("*SET_SHELL")) plain_set("*SET_SHELL", "Element set definition", "shell");
    if (keyword_is("*SET_PART")) plain_set("*SET_PART", "Part set definition", "part");
}

void plain_setsegment()
{
    Card card;
    const SetHead head = read_head(card, "*SET_SEGMENT");
    print(setfile, "\n Segment set definition :%5i%10s %-80s\n", head.sid, " ", head.title.text);
    if (cardflag == 1) print(inpfile, "!%7i%8s   %40s|\n", head.sid, "segment", head.title.text);
    std::array<double, 4> last{};
    while (card.next()) {
        const int n1 = card.integer();
        const int n2 = card.integer();
        const int n3 = card.integer();
        const int n4 = card.integer();
        for (double& attribute : last) attribute = card.real();
        print(setfile, "%10i%10i%10i%10i\n", n1, n2, n3, n4);
    }
    log_head("*SET_SEGMENT");
    log_attributes(head);
    print(outfile, last_real, "a1", last[0]);
    print(outfile, last_real, "a2", last[1]);
    print(outfile, last_real, "a3", last[2]);
    print(outfile, last_real, "a4", last[3]);
}

// ---- passes --------------------------------------------------------------------------------------------------------

Action plain_action(const Action& action)
{
    if (action.treatment != Treatment::converted) return action;
    for (const Action& plain :
         {Action{Treatment::converted, plain_node, "node"}, Action{Treatment::converted, plain_eshell, "eshell"},
          Action{Treatment::converted, plain_eshellt, "eshellt"}, Action{Treatment::converted, plain_esolid, "esolid"},
          Action{Treatment::converted, plain_esph, "esph"}, Action{Treatment::converted, plain_setcard, "setcard"},
          Action{Treatment::converted, plain_setsegment, "setsegment"}})
        if (plain.procedure == action.procedure) return plain;
    throw std::logic_error("a handler without a plain derivation");
}

// The pass with the plain handlers in place of its own.
void run_plain_pass(const Pass& pass)
{
    std::vector<PassRow> rows(pass.rows.begin(), pass.rows.end());
    for (PassRow& row : rows) row.action = plain_action(row.action);
    run_pass({pass.name, rows});
}
}  // namespace

void plain_set_section()
{
    constexpr std::string_view index_rule = "!-----------------------------------------------------------\n";
    banner(setfile, "Set Definitions");
    if (cardflag == 1) {
        text(inpfile, index_rule);
        print(inpfile, "! Set Definitions in %80s                  |\n", file_names.sets);
        text(inpfile, index_rule);
        text(inpfile, "!    SID    TYPE   TITLE                                   |\n");
    }
    run_plain_pass(set_keywords);
    if (cardflag == 1) {
        text(inpfile, index_rule);
        text(inpfile, "\n\n");
    }
    text(setfile, "\n\n");
}

void plain_geometry_section()
{
    banner(geomfile, "Geometry Definitions");
    for (const Pass* pass : {&node_keywords, &shell_keywords, &solid_keywords, &sph_element_keywords})
        run_plain_pass(*pass);
    text(geomfile, "\n\n");
}
