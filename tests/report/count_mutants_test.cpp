// What was written wrong shows: every element, digit and member that is changed behind the converter's back.
#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "report/counted.h"
#include "support/models.h"

namespace
{
using report::Count;

// A model of solids, shells with and without thickness, particles, parts and sets.
constexpr char deck[] = "*KEYWORD\n"
                        "*PART\n"
                        "block\n"
                        "         1         1         1\n"
                        "*PART\n"
                        "skin\n"
                        "         2         2         1\n"
                        "*PART\n"
                        "drops\n"
                        "         3         3         1\n"
                        "*SECTION_SOLID\n"
                        "         1         1\n"
                        "*SECTION_SHELL\n"
                        "         2         2\n"
                        "     0.125     0.125     0.125     0.125\n"
                        "*SECTION_SPH\n"
                        "         3\n"
                        "*MAT_ELASTIC\n"
                        "         1   7.85e-9   210000.       0.3\n"
                        "*NODE\n"
                        "       1             0.1             0.2             0.3\n"
                        "       2             1.1             0.2             0.3\n"
                        "       3             1.1             1.2             0.3\n"
                        "       4             0.1             1.2             0.3\n"
                        "       5             0.1             0.2             1.3\n"
                        "       6             1.1             0.2             1.3\n"
                        "       7             1.1             1.2        -12.3456\n"
                        "       8             0.1             1.2        9876.543\n"
                        "       9         1.23e-5         -7.7e+9             5.5\n"
                        "*ELEMENT_SOLID\n"
                        "       1       1       1       2       3       4       5       6       7       8\n"
                        "*ELEMENT_SHELL\n"
                        "       2       2       1       2       3       4\n"
                        "*ELEMENT_SHELL_THICKNESS\n"
                        "       3       2       1       2       3       3\n"
                        "            0.25            0.25            0.25            0.25\n"
                        "*ELEMENT_SPH\n"
                        "       9       3       1.2345e-4\n"
                        "*SET_NODE_LIST\n"
                        "         1\n"
                        "         1         2         3         4         5         6         7         8\n"
                        "         9\n"
                        "*SET_SEGMENT\n"
                        "         2\n"
                        "         1         2         3         4\n"
                        "*SET_PART_LIST\n"
                        "         3\n"
                        "         1         2\n"
                        "*SET_SHELL_LIST\n"
                        "         4\n"
                        "         2         3\n"
                        "*END\n";

class Mutants : public testing::Test
{
protected:
    [[nodiscard]] bool shows(const RunOutputs& outputs) const
    {
        return !report::differences(in, counted_outputs(outputs)).empty();
    }

    RunOutputs written = run_whole(deck);
    Count in = counted_deck(deck);
};

std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

bool is_row(const std::string& line)
{
    return line.find_first_not_of(" -+.e0123456789") == std::string::npos &&
           line.find_first_of("0123456789") != std::string::npos;
}

// Every row of the text with each of its digits changed by one, in turn.
void change_digits(std::string text, const std::function<void(const std::string& text, const std::string& what)>& look)
{
    std::size_t line = 1;
    bool row = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (at == 0 || text[at - 1] == '\n') {
            if (at > 0) ++line;
            row = is_row(text.substr(at, text.find('\n', at) - at));
        }
        if (!row || std::isdigit(static_cast<unsigned char>(text[at])) == 0) continue;
        const char before = text[at];
        text[at] = before == '9' ? '8' : static_cast<char>(before + 1);
        look(text, "line " + std::to_string(line) + ": " + before + " became " + text[at]);
        text[at] = before;
    }
}

TEST_F(Mutants, NothingShowsWhenNothingIsChanged)
{
    EXPECT_FALSE(shows(written));
}

TEST_F(Mutants, EveryRowThatIsDroppedShows)
{
    int dropped = 0;
    for (std::string RunOutputs::*const file : {&RunOutputs::geometry, &RunOutputs::sets}) {
        const std::vector<std::string> lines = lines_of(written.*file);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (!is_row(lines[i])) continue;
            std::vector<std::string> others = lines;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
            RunOutputs mutant = written;
            mutant.*file = joined(others);
            EXPECT_TRUE(shows(mutant)) << lines[i];
            ++dropped;
        }
    }
    EXPECT_EQ(dropped, 9 + 1 + 4 + 1 + 2 + 1 + 1 + 1);
}

// But for a node's constraints, a shell's angle and its thickness within the digits that are written.
TEST_F(Mutants, EveryDigitOfTheGeometryThatIsChangedShows)
{
    const std::vector<std::string> lines = lines_of(written.geometry);
    int changed = 0;
    RunOutputs mutant = written;
    const auto compared = [&](std::size_t column, const std::string& line) {
        if (line.size() == 83) return column < 71;  // a node without its constraints
        const bool thickness = line.size() == 61 && line.find('e') != std::string::npos;
        return !thickness;
    };
    for (std::size_t i = 0, start = 0; i < lines.size(); start += lines[i].size() + 1, ++i) {
        if (!is_row(lines[i])) continue;
        for (std::size_t column = 0; column < lines[i].size(); ++column) {
            char& digit = mutant.geometry[start + column];
            const char before = digit;
            if (std::isdigit(static_cast<unsigned char>(before)) == 0 || !compared(column, lines[i])) continue;
            digit = before == '9' ? '8' : static_cast<char>(before + 1);
            EXPECT_TRUE(shows(mutant)) << lines[i] << ", column " << column + 1;
            digit = before;
            ++changed;
        }
    }
    EXPECT_GT(changed, 9 * 3 * 16);
}

TEST_F(Mutants, EveryDigitOfASetThatIsChangedShows)
{
    int changed = 0;
    change_digits(written.sets, [&](const std::string& text, const std::string& what) {
        RunOutputs mutant = written;
        mutant.sets = text;
        EXPECT_TRUE(shows(mutant)) << what;
        ++changed;
    });
    EXPECT_EQ(changed, 9 + 4 + 2 + 2);
}

TEST_F(Mutants, EveryMemberThatIsDroppedShows)
{
    const std::string member = "         7";
    const std::size_t at = written.sets.find(member);
    ASSERT_NE(at, std::string::npos);
    RunOutputs mutant = written;
    mutant.sets.erase(at, member.size());
    EXPECT_EQ(text_of(report::differences(in, counted_outputs(mutant))),
              "node set 1: members: 9 in the deck, 8 in the written files\n");
}

TEST_F(Mutants, DefinitionsThatAreChangedShow)
{
    const std::pair<std::string, std::string> changes[] = {
        {" Part definition:       1", " Part definition:       4"},                        // another part
        {" Part definition:       2          2", " Part definition:       2          1"},  // section
        {" Part definition:       3", "!Part definition:       3"},
        {" 7.850e-09", " 7.851e-09"},
        {" Material Definition:", "!Material Definition:"},
        {" 1.250e-01 1.250e-01 1.250e-01", " 1.250e-01 1.251e-01 1.250e-01"},
    };
    for (const auto& [before, after] : changes) {
        const std::size_t at = written.deck.find(before);
        ASSERT_NE(at, std::string::npos) << before;
        RunOutputs mutant = written;
        mutant.deck.replace(at, before.size(), after);
        EXPECT_TRUE(shows(mutant)) << after;
    }
}

TEST_F(Mutants, AnElementsThicknessThatIsChangedShows)
{
    RunOutputs mutant = written;
    const std::size_t at = mutant.geometry.find(" 2.500e-01");
    ASSERT_NE(at, std::string::npos);
    mutant.geometry.replace(at, 10, " 2.600e-01");
    EXPECT_TRUE(shows(mutant));
}

// ---- outputs that were not asked for -------------------------------------------------------------------------------

TEST_F(Mutants, NothingShowsOfOutputsThatWereNotAskedFor)
{
    for (const std::size_t off : {0U, 1U, 2U}) {
        RunFlags flags = every_output;
        flags[off] = 0;
        const RunOutputs outputs = run_whole(deck, flags);
        report::Asked asked;
        (off == 0 ? asked.main_deck : off == 1 ? asked.sets : asked.geometry) = false;
        const Count out = counted_outputs(outputs, flags);
        EXPECT_FALSE(report::differences(in, out).empty()) << off;
        EXPECT_EQ(text_of(report::differences(in, out, asked)), "") << off;
    }
}

TEST_F(Mutants, WhatWasAskedForIsInTheSettings)
{
    const report::Asked asked = report::asked_for({{"cardflag", 1}, {"setflag", 0}, {"geomflag", 2}});
    EXPECT_TRUE(asked.main_deck);
    EXPECT_FALSE(asked.sets);
    EXPECT_FALSE(asked.geometry);
}
}  // namespace
