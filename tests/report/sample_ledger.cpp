#include "report/sample_ledger.h"

#include <fstream>
#include <string_view>

using namespace report;

namespace
{
constexpr std::string_view deck_text = "*KEYWORD\n"
                                       "*TITLE\n"
                                       "A bar on a wall\n"
                                       "*CONTROL_TERMINATION\n"
                                       "  8.0E-05         0       0.0       0.0\n"
                                       "*DEFINE_CURVE_TITLE\n"
                                       "ramp, doubled and shifted\n"
                                       "         7         0       1.0       2.0       0.5       0.0         0\n"
                                       "$ a comment\n"
                                       "                 0.0                 0.0\n"
                                       "                 1.0                10.0\n"
                                       "                 4.0                10.0\n"
                                       "*DAMPING_GLOBAL\n"
                                       "         0       0.1\n"
                                       "*NODE\n"
                                       "       1             0.0             0.0             0.0\n"
                                       "       2             1.0             0.0             0.0\n"
                                       "*MAT_PLASTIC_KINEMATIC\n"
                                       "        11      7.89     2.0E12      0.3    4.0E09\n"
                                       "      40.0       5.0       0.8\n"
                                       "*WHATEVER\n"
                                       "         1\n"
                                       "*END\n"
                                       "*NODE\n";

constexpr std::string_view main_deck_text = " Title                       : A bar on a wall\n"
                                            " Termination time               :  5.000e-03\n"
                                            " Time step scale factor         :          0    1\n"
                                            " Contact scheme                       :          3\n"
                                            " Load curve definition:                7    ramp, doubled and sh\n"
                                            "           5.000e-01           0.000e+00\n"
                                            "           1.500e+00           2.000e+01\n"
                                            "           4.500e+00           2.000e+01\n"
                                            " Load curve definition:                1    Plot Curve\n"
                                            " Material Definition:         11          3\n"
                                            "#Include: \"bar.geom\"\n"
                                            "#Include: \"/opt/Software/Kestrune/library\"\n";

constexpr std::string_view geometry_text = "         1 0.0 0.0 0.0\n"
                                           "         2 1.0 0.0 0.0\n";

void write_file(const std::filesystem::path& path, std::string_view text)
{
    std::ofstream(path, std::ios::binary) << text;
}

Block block(std::string keyword, std::size_t line, std::size_t last_line, std::string procedure, Outcome outcome)
{
    Block made;
    made.file = "bar.k";
    made.line = made.prepared_line = line;
    made.last_line = made.prepared_last_line = last_line;
    made.keyword = std::move(keyword);
    made.procedure = std::move(procedure);
    made.outcome = outcome;
    return made;
}

// What is said of a block, which is the last of the ledger so far.
void add_finding(Ledger& ledger, std::string_view code, std::size_t line, std::string field, std::string message)
{
    check::Finding found = check::finding(code, {"bar.k", line, 1, 0}, std::move(message));
    found.keyword = ledger.blocks.back().keyword;
    found.field = std::move(field);
    ledger.blocks.back().findings.push_back(ledger.findings.size());
    ledger.findings.push_back(std::move(found));
}

Count sample_count()
{
    Count count;
    count.nodes = 2;
    count.solids = 1;
    count.box = {{0, 0, 0}, {1, 0, 0}, false};
    PartCount part;
    part.id = 1;
    part.title = "bar";
    part.section = 1;
    part.material = 11;
    part.solids = 1;
    part.volume = 0.25;
    part.mass = 1.9725;
    part.centre = {0.5, 0, 0};
    part.has_density = true;
    count.parts = {part};
    count.sets = {{SetKind::node, 3, "foot of the bar", 2}};
    count.smallest_edge = 0.125;
    count.smallest_edge_element = 1;
    count.worst = {{1, 1, 0.42}};
    return count;
}

void add_blocks(Ledger& ledger)
{
    ledger.blocks.push_back(block("*KEYWORD", 1, 1, "", Outcome::converted));
    ledger.blocks.push_back(block("*TITLE", 2, 3, "title", Outcome::converted));
    ledger.blocks.back().output = {{"bar.card", 1, 1}};
    ledger.blocks.push_back(block("*CONTROL_TERMINATION", 4, 5, "timing", Outcome::converted));
    add_finding(
        ledger, "MD303", 5, "endtim",
        "endtim 8.0E-05 of *CONTROL_TERMINATION is not taken over: the main deck has a termination time of 5.000e-03");
    ledger.blocks.push_back(block("*DEFINE_CURVE_TITLE", 6, 12, "definecurve", Outcome::converted));
    ledger.blocks.back().output = {{"bar.card", 5, 8}};
    ledger.blocks.push_back(block("*DAMPING_GLOBAL", 13, 14, "skipped", Outcome::skipped));
    add_finding(ledger, "MD201", 13, "", "*DAMPING_GLOBAL is skipped");
    ledger.blocks.push_back(block("*NODE", 15, 17, "nodes", Outcome::converted));
    ledger.blocks.back().output = {{"bar.geom", 1, 2}};
    ledger.blocks.push_back(block("*MAT_PLASTIC_KINEMATIC", 18, 20, "plastickinematic", Outcome::converted));
    ledger.blocks.back().output = {{"bar.card", 10, 10}};
    ledger.blocks.back().unused = {{"src", "40.0"}, {"srp", "5.0"}};
    add_finding(ledger, "MD301", 20, "src", "src 40.0 of *MAT_PLASTIC_KINEMATIC is not in the output");
    add_finding(ledger, "MD301", 20, "srp", "srp 5.0 of *MAT_PLASTIC_KINEMATIC is not in the output");
    ledger.blocks.push_back(block("*WHATEVER", 21, 22, "", Outcome::not_known));
    add_finding(ledger, "MD202", 21, "", "nobody knows *WHATEVER");
    ledger.blocks.push_back(block("*END", 23, 23, "", Outcome::converted));
    ledger.blocks.push_back(block("*NODE", 24, 24, "", Outcome::after_the_end));
}
}  // namespace

Ledger sample_ledger(const std::filesystem::path& folder)
{
    write_file(folder / "bar.k", deck_text);
    write_file(folder / "bar.card", main_deck_text);
    write_file(folder / "bar.geom", geometry_text);
    Ledger ledger;
    ledger.deck = "bar.k";
    ledger.settings = {{"cardflag", 1}, {"lcflag", 1}, {"sphflag", 0}};
    ledger.files = {{"bar.k", "prepared deck", deck_text.size(), std::string(64, 'a')},
                    {"bar.card", "main deck", main_deck_text.size(), std::string(64, 'b')},
                    {"bar.geom", "geometry", geometry_text.size(), std::string(64, 'c')}};
    ledger.in = sample_count();
    ledger.out = sample_count();
    add_blocks(ledger);
    ledger.findings_of_converted = ledger.findings.size();
    return ledger;
}

Ledger hostile_ledger(const std::filesystem::path& folder, const std::string& text)
{
    Ledger ledger = sample_ledger(folder);
    ledger.deck = text;
    ledger.settings.emplace_back(text, 1);
    for (File& file : ledger.files)
        if (file.role != "main deck") file.name = text;
    for (Block& each : ledger.blocks) {
        each.file = text;
        each.procedure = text;
        each.keyword = text;
        each.unused.push_back({text, text});
        each.replaced.push_back({text, text, text});
    }
    for (check::Finding& found : ledger.findings) {
        found.place.file = text;
        found.keyword = text;
        found.field = text;
        found.text = text;
        found.message = text;
    }
    for (Count* count : {&ledger.in, &ledger.out}) {
        for (PartCount& part : count->parts) part.title = text;
        for (SetCount& set : count->sets) set.title = text;
    }
    write_file(folder / "bar.card", " Title                       : " + text + "\n Termination time" + text + "\n");
    return ledger;
}

Ledger long_ledger(const std::filesystem::path& folder, std::size_t blocks)
{
    Ledger ledger = sample_ledger(folder);
    for (std::size_t i = 0; i < blocks; ++i) {
        ledger.blocks.push_back(block("*SET_NODE_LIST", 100 + 3 * i, 102 + 3 * i, "setnode", Outcome::converted));
        ledger.blocks.back().output = {{"bar.sets", 10 + 2 * i, 11 + 2 * i}};
    }
    return ledger;
}
