// Golden end-to-end cases: every folder beside this file is one. It holds what a user has before a run (control file,
// deck, what is typed on standard input in `answer`), a README that tells what it shows, and in expected/ what must be
// there after the run, compared byte by byte:
//
//     <name>            a file that the run writes
//     model.card@<T>    the section of model.card whose banner says "! <T>", up to the next banner
//     stdout, stderr    what the terminal shows
//     status            the exit status, when it is not 0
//     absent            names of files that must not be there, one a line
//
// The models of examples/ are cases too: a user's files stand there, what must be there after the run in
// tests/examples/<name>/expected/.
//
// Each case runs twice: as it is, and with the smallest window. With MORVEX_APPROVE=1 in the environment the expected
// files that are there are written anew from the first run: for a difference that a person has read and found right.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/convert.h"
#include "support/process.h"

namespace fs = std::filesystem;

namespace
{
const fs::path golden_folder = MORVEX_GOLDEN_FOLDER;
const fs::path examples_folder = MORVEX_EXAMPLES_FOLDER;

constexpr char example_prefix[] = "example-";

std::vector<std::string> cases()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(golden_folder))
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    for (const auto& entry : fs::directory_iterator(examples_folder))
        if (entry.is_directory()) names.push_back(example_prefix + entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

struct Folders {
    fs::path given, expected;
};

Folders folders_of(const std::string& name)
{
    if (!name.starts_with(example_prefix)) return {golden_folder / name, golden_folder / name / "expected"};
    const std::string example = name.substr(sizeof example_prefix - 1);
    return {examples_folder / example, golden_folder.parent_path() / "examples" / example / "expected"};
}

std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

bool is_rule(std::string line)
{
    if (!line.empty() && line.back() == ' ') line.pop_back();
    return line == "!" + std::string(48, '-') || line == "!" + std::string(59, '-');
}

// True when a banner begins at the line: a rule, a title, a rule.
bool is_banner(const std::vector<std::string>& lines, std::size_t at)
{
    return at + 2 < lines.size() && is_rule(lines[at]) && lines[at + 1].starts_with("! ") && is_rule(lines[at + 2]);
}

std::string section_of(const std::string& deck, const std::string& title)
{
    const std::vector<std::string> lines = lines_of(deck);
    std::string section;
    bool inside = false;
    std::size_t banner = 0;  // lines of a banner that are still to come
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (banner > 0) {
            --banner;
        } else if (is_banner(lines, i)) {
            banner = 2;
            std::string found = lines[i + 1].substr(2);
            found.erase(found.find_last_not_of(' ') + 1);
            inside = found == title;
        }
        if (inside) section += lines[i] + "\n";
    }
    return section;
}

// What the run left under the name of an expected file.
std::string actual(const std::string& name, const Outcome& outcome)
{
    if (name == "stdout") return outcome.out;
    if (name == "stderr") return outcome.err;
    if (name == "status") return std::to_string(outcome.status) + "\n";
    if (const std::size_t at = name.find('@'); at != std::string::npos)
        return section_of(contents(name.substr(0, at)), name.substr(at + 1));
    return contents(name);
}

// The first line that differs, both ways, with blanks and line ends made visible.
std::string first_difference(const std::string& expected, const std::string& found)
{
    const std::vector<std::string> a = lines_of(expected);
    const std::vector<std::string> b = lines_of(found);
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
    const auto show = [&](const std::vector<std::string>& lines) {
        return i < lines.size() ? "|" + lines[i] + "|" : std::string("(no such line)");
    };
    return "line " + std::to_string(i + 1) + "\n  expected " + show(a) + "\n  found    " + show(b) + "\n  (" +
           std::to_string(expected.size()) + " and " + std::to_string(found.size()) + " characters)";
}

void run_case(const Folders& folders, const std::string& command, bool approve)
{
    SCOPED_TRACE(command);
    const TemporaryFolder work;
    for (const auto& entry : fs::directory_iterator(folders.given))
        if (entry.is_regular_file() && !entry.path().filename().string().starts_with("README"))
            fs::copy(entry.path(), work.path());
    std::string answer;
    if (fs::exists("answer")) {
        answer = contents("answer");
        fs::remove("answer");
    }
    const Outcome outcome = run_command(command, answer);
    bool status_expected = false;
    std::size_t compared = 0;
    for (const auto& entry : fs::directory_iterator(folders.expected)) {
        const std::string name = entry.path().filename().string();
        const std::string expected = contents(entry.path());
        ++compared;
        if (name == "absent") {
            for (const std::string& absent : lines_of(expected)) EXPECT_FALSE(fs::exists(absent)) << absent;
            continue;
        }
        status_expected = status_expected || name == "status";
        const std::string found = actual(name, outcome);
        if (approve) {
            write_file(entry.path(), found);
            continue;
        }
        const bool same = name == "status" ? std::atoi(expected.c_str()) == outcome.status : found == expected;
        EXPECT_TRUE(same) << name << ", " << first_difference(expected, found);
    }
    EXPECT_TRUE(status_expected || outcome.status == 0) << "status " << outcome.status << "\n" << outcome.err;
    EXPECT_GT(compared, 0U);
}

class Golden : public testing::TestWithParam<std::string>
{
};

TEST_P(Golden, Case)
{
    const Folders folders = folders_of(GetParam());
    const bool approve = std::getenv("MORVEX_APPROVE") != nullptr;
    run_case(folders, program(), approve);
    run_case(folders, tiny_window_program(), false);
}

std::string test_name(const testing::TestParamInfo<std::string>& folder)
{
    std::string name = folder.param;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(cases()), test_name);
}  // namespace
