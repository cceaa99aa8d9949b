// The corpus of tests/decks: what check finds in each deck is what was written beside it by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "check/check.h"
#include "check/formats.h"

namespace fs = std::filesystem;

namespace
{
// What the corpus says of a finding, and what a failing test prints of it.
std::string in_a_line(const std::string& file, std::size_t line, std::size_t column, const std::string& severity,
                      const std::string& code, const std::string& keyword, const std::string& field)
{
    return file + ":" + std::to_string(line) + ":" + std::to_string(column) + " " + severity + " " + code + " " +
           keyword + (field.empty() ? "" : " " + field);
}

std::vector<std::string> expected_findings(const nlohmann::json& expected)
{
    std::vector<std::string> lines;
    for (const nlohmann::json& one : expected.at("findings"))
        lines.push_back(in_a_line(one.at("file"), one.at("line"), one.at("column"), one.at("severity"), one.at("code"),
                                  one.at("keyword"), one.value("field", "")));
    return lines;
}

std::vector<std::string> findings_of(const check::Result& result)
{
    std::vector<std::string> lines;
    for (const check::Finding& one : result.findings)
        lines.push_back(in_a_line(one.place.file, one.place.line, one.place.column,
                                  std::string(check::word(one.severity)), one.code, one.keyword, one.field));
    return lines;
}

std::vector<std::string> cases()
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(MORVEX_DECKS))
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string name_of(const testing::TestParamInfo<std::string>& deck)
{
    std::string name = deck.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class Corpus : public testing::TestWithParam<std::string>
{
};
}  // namespace

TEST_P(Corpus, FindingsAreThoseWrittenBesideTheDeck)
{
    const fs::path folder = fs::path(MORVEX_DECKS) / GetParam();
    std::ifstream file(folder / "expected.json");
    const nlohmann::json expected = nlohmann::json::parse(file);
    check::Options options;
    options.all = true;
    const nlohmann::json settings = expected.value("settings", nlohmann::json::object());
    for (const auto& [name, value] : settings.items()) options.settings.emplace_back(name, value);
    EXPECT_EQ(findings_of(check::check_deck(folder / "deck.k", options)), expected_findings(expected));
}

INSTANTIATE_TEST_SUITE_P(Decks, Corpus, testing::ValuesIn(cases()), name_of);

TEST(CorpusOfCodes, EachCodeHasADeckThatHasItAndOneThatNearlyHas)
{
    const std::vector<std::string> names = cases();
    for (const check::Code& code : check::codes()) {
        const std::string near = std::string(code.code) + "-near-";
        const auto is_near = [&](const std::string& name) { return name.starts_with(near); };
        const auto is_of = [&](const std::string& name) { return name.starts_with(code.code) && !is_near(name); };
        EXPECT_TRUE(std::any_of(names.begin(), names.end(), is_of)) << code.code;
        EXPECT_TRUE(std::any_of(names.begin(), names.end(), is_near)) << code.code;
    }
}
