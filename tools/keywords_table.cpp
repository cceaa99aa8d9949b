// Prints docs/keywords.md from the pass tables. With --dictionary it prints the words that the fuzzers of decks know.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bulk/bulk.h"
#include "controls/controls.h"
#include "driver/driver.h"
#include "loading/loading.h"
#include "materials/materials.h"
#include "reader/pass.h"

namespace
{
struct Chapter {
    const Pass* pass;
    const char* heading;
    const char* remark;
};

const Chapter chapters[] = {
    {&control_keywords, "Run settings", "Read first, whenever the main deck is written (`cardflag` 1)."},
    {&history_keywords, "Histories", "Main deck, behind the status file section."},
    {&contact_keywords, "Contact Section", "Main deck."},
    {&boundary_keywords, "Boundary and Initial Conditions Definition", "Main deck, with `icflag` 1."},
    {&curve_keywords, "Load Curve Definitions", "Main deck, with `lcflag` 1."},
    {&part_keywords, "Part Descriptions: parts", "Main deck."},
    {&section_keywords, "Part Descriptions: element formulations", "Main deck."},
    {&eos_keywords, "Part Descriptions: equations of state", "Main deck."},
    {&failure_keywords, "Part Descriptions: failure definitions",
     "Main deck. One for each material keyword, under the material's identifier."},
    {&hourglass_keywords, "Part Descriptions: hourglass definitions", "Main deck."},
    {&material_keywords, "Part Descriptions: materials", "Main deck."},
    {&sph_keywords, "SPH Control Section: settings", "Main deck, with `sphflag` 1."},
    {&sph_part_keywords, "SPH Control Section: particle parts", "Main deck, with `sphflag` 1."},
    {&set_keywords, "Set file", "With `setflag` 1."},
    {&accelerometer_keywords, "Accelerometer file", "With `accelflag` 1."},
    {&node_keywords, "Geometry file: nodes", "With `geomflag` 1."},
    {&shell_keywords, "Geometry file: shells", "With `geomflag` 1."},
    {&solid_keywords, "Geometry file: solids", "With `geomflag` 1."},
    {&sph_element_keywords, "Geometry file: particles", "With `geomflag` 1."},
    {&unhandled_keywords, "Keywords of unknown families",
     "A last look at the deck, for the debug log alone: what no section above knows is logged as skipped."},
};

std::string quoted(std::string_view code)
{
    return std::string("`").append(code).append("`");
}

std::string what_becomes_of(const PassRow& row)
{
    switch (row.action.treatment) {
    case Treatment::skipped:
        return "skipped";
    case Treatment::passed_over:
        return "passed over";
    case Treatment::end_of_pass:
        return "ends the pass";
    case Treatment::converted:
        break;
    }
    return quoted(row.action.procedure).append(": ").append(row.writes);
}

void print_chapter(const Chapter& chapter)
{
    std::printf("\n## %s\n\n%s\n\n| keyword begins with | compared | what becomes of it |\n|---|---|---|\n",
                chapter.heading, chapter.remark);
    for (const PassRow& row : chapter.pass->rows) {
        const std::string prefix = row.prefix.empty() ? "anything else" : quoted(row.prefix);
        const std::string condition = row.only_if.words.empty() ? "" : std::string(", ").append(row.only_if.words);
        std::printf("| %s | %zu%s | %s |\n", prefix.c_str(), row.prefix.size(), condition.c_str(),
                    what_becomes_of(row).c_str());
    }
}

// What becomes of a keyword over all passes.
struct Support {
    bool converted = false;
    std::set<std::string_view> limits;
};

// The keywords of one family by name, in the order of the alphabet.
using Family = std::map<std::string_view, Support>;

// "*MAT" of "*MAT_RIGID"; the row for all others has no name.
std::string_view family_of(std::string_view keyword)
{
    return keyword.substr(0, keyword.find('_'));
}

// A keyword is what a row begins with, but for the rows that leave it to another pass.
std::map<std::string_view, Family> families()
{
    std::map<std::string_view, Family> all;
    for (const Chapter& chapter : chapters)
        for (const PassRow& row : chapter.pass->rows) {
            if (row.action.treatment == Treatment::passed_over || row.prefix == "*END") continue;
            Support& support = all[family_of(row.prefix)][row.prefix];
            if (row.action.treatment == Treatment::converted) support.converted = true;
            if (!row.limits.empty()) support.limits.insert(row.limits);
        }
    return all;
}

std::string joined(const std::vector<std::string>& entries, const char* between)
{
    std::string text;
    for (const std::string& each : entries) text.append(text.empty() ? "" : between).append(each);
    return text;
}

// A column of a family's row: the keywords by their limits, which stand in brackets behind them.
class Column
{
public:
    void add(std::string_view keyword, const Support& support)
    {
        std::string limits;
        for (const std::string_view limit : support.limits) limits.append(limits.empty() ? "" : "; ").append(limit);
        for (auto& [known, keywords] : groups_)
            if (known == limits) {
                keywords.emplace_back(keyword);
                return;
            }
        groups_.push_back({limits, {std::string(keyword)}});
    }

    [[nodiscard]] std::string text() const
    {
        std::vector<std::string> entries;
        for (const auto& [limits, keywords] : groups_) {
            std::string& entry = entries.emplace_back(joined(keywords, ", "));
            if (!limits.empty()) entry.append(" (").append(limits).append(")");
        }
        return joined(entries, "; ");
    }

private:
    std::vector<std::pair<std::string, std::vector<std::string>>> groups_;
};

// True when a longer keyword is converted: then the shorter one stands for the others that begin with it.
bool some_are_converted(const Family& family, std::string_view keyword)
{
    return std::any_of(family.begin(), family.end(), [keyword](const auto& entry) {
        return entry.second.converted && entry.first.starts_with(keyword);
    });
}

void print_family(std::string_view name, const Family& family)
{
    Column whole, limited, left_out;
    for (const auto& [keyword, support] : family) {
        if (keyword == name && !support.converted) continue;  // comes last
        const std::string shown = quoted(keyword == name ? keyword : keyword.substr(name.size()));
        if (support.converted)
            (support.limits.empty() ? whole : limited).add(shown, support);
        else
            left_out.add(some_are_converted(family, keyword) ? "other " + shown : shown, support);
    }
    // Without a row for all others they are of an unknown family.
    const auto others = family.find(name);
    if (others == family.end())
        left_out.add("all others", {});
    else if (!others->second.converted)
        left_out.add("all others", others->second);
    std::printf("| %s | %s | %s | %s |\n", quoted(name).c_str(), whole.text().c_str(), limited.text().c_str(),
                left_out.text().c_str());
}

void print_families()
{
    std::printf("| family | whole | with limits | skipped |\n|---|---|---|---|\n");
    const auto all = families();
    for (const auto& [name, family] : all)
        if (!name.empty()) print_family(name, family);
    Column unknown;
    unknown.add("all", all.at("").at(""));
    std::printf("| any other | | | %s |\n", unknown.text().c_str());
}

void print_page()
{
    std::printf(
        "# Keywords\n"
        "\n"
        "Every keyword that morvex knows, and what becomes of it. This page is made from the pass tables of the program.\n"
        "\n"
        "## What is supported\n"
        "\n"
        "*Whole*: all fields that the solver has a place for are converted. *With limits*: only what stands in\n"
        "brackets, or all but that. *Skipped*: logged as skipped. Longer names count as the name that they begin with,\n"
        "unless they have an entry of their own. For all keywords: cards are read by columns\n"
        "([guide.md](guide.md#how-cards-are-read)); behind a title or an ID card only the first definition is converted,\n"
        "and of sections, materials, equations of state and hourglass definitions only the first of a block in any case;\n"
        "and a section whose setting is off converts nothing.\n"
        "\n");
    print_families();
    std::printf(
        "\n"
        "## The passes\n"
        "\n"
        "Each table is one pass over the deck, from its beginning to its `*END` line. A keyword line is compared with the\n"
        "rows from the top; the first row that it begins with decides, over as many characters as the second column\n"
        "says. A keyword that no row matches is passed over without a word in that pass. *Converted* keywords show the\n"
        "procedure that reads them and the lines that it writes; *skipped* ones get a line in the debug log; those that\n"
        "are *passed over* leave no trace in this pass (another one takes them, or the solver has no use for them).\n"
        "Keyword lines are compared in upper case, over their first 49 characters. Some rows have a further condition, which\n"
        "stands behind the number.\n");
    for (const Chapter& chapter : chapters) print_chapter(chapter);
}

// Each keyword once, alone and as a line.
void print_dictionary()
{
    std::set<std::string_view> keywords;
    for (const Chapter& chapter : chapters)
        for (const PassRow& row : chapter.pass->rows)
            if (!row.prefix.empty()) keywords.insert(row.prefix);
    for (const std::string_view keyword : keywords)
        std::printf("\"%.*s\"\n\"\\x0A%.*s\\x0A\"\n", static_cast<int>(keyword.size()), keyword.data(),
                    static_cast<int>(keyword.size()), keyword.data());
    for (const char* const word : {"_ID", "_TITLE", "\\x0A", "\\x0A$", "       1", "         1", "       1.0"})
        std::printf("\"%s\"\n", word);
}
}  // namespace

int main(int argc, char* argv[])
{
    if (argc > 1 && std::string_view(argv[1]) == "--dictionary")
        print_dictionary();
    else
        print_page();
    return 0;
}
