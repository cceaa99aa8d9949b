// What holds of every deck, over random models and the styles that they can be spelled in. MORVEX_PREPARE_MODELS sets
// how many models are tried.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "prepared.h"
#include "support/styles.h"
#include "support/whole_run.h"

namespace models
{
void PrintTo(const Style& style, std::ostream* stream)
{
    *stream << style.name;
}

namespace
{
std::uint32_t count(std::uint32_t usual)
{
    const char* const asked = std::getenv("MORVEX_PREPARE_MODELS");
    return asked == nullptr ? usual : static_cast<std::uint32_t>(std::strtoul(asked, nullptr, 10));
}

void write_files(const std::map<std::string, std::string>& files)
{
    for (const auto& [path, text] : files) {
        const std::filesystem::path folder = std::filesystem::path(path).parent_path();
        if (!folder.empty()) std::filesystem::create_directories(folder);
        write_file(path, text);
    }
}

std::string all_text(const std::map<std::string, std::string>& files)
{
    std::string text;
    for (const auto& [path, content] : files) text += "==== " + path + "\n" + content;
    return text;
}

// The first lines that differ; empty when none do.
std::string difference(const std::string& text, const std::string& expected)
{
    std::istringstream one(text);
    std::istringstream other(expected);
    std::string line;
    std::string expected_line;
    for (int number = 1; text != expected; ++number) {
        const bool more = static_cast<bool>(std::getline(one, line));
        const bool more_expected = static_cast<bool>(std::getline(other, expected_line));
        if (more != more_expected || line != expected_line || !more)
            return "line " + std::to_string(number) + ": " + line + "\nexpected: " + expected_line;
    }
    return {};
}

// What check would have prepare mend; empty when nothing.
std::string still_to_mend(const std::string& deck)
{
    const TemporaryFolder folder;
    write_file("model.k", deck);
    std::string text;
    for (const check::Finding& finding : check::check_deck("model.k", {{{"lcflag", 1}}, true}).findings)
        if (finding.mended_by_prepare)
            text += finding.code + " in line " + std::to_string(finding.place.line) + ": " + finding.message + "\n";
    return text;
}

// The deck prepared is the strict deck to the converter, and prepare does not change it further.
void expect_same_model(const SpelledDeck& spelled)
{
    const TemporaryFolder folder;
    write_files(spelled.files);
    const std::string deck = prepared(spelled.main_deck);
    const RunOutputs outputs = run_whole(deck);
    const RunOutputs expected = run_whole(strict(spelled.strict));
    EXPECT_EQ(difference(outputs.deck, expected.deck), "");
    EXPECT_EQ(difference(outputs.geometry, expected.geometry), "");
    EXPECT_EQ(difference(outputs.sets, expected.sets), "");
    EXPECT_EQ(difference(outputs.accelerometers, expected.accelerometers), "");
    const bool same_keyword_lines = deck.find("LONG=Y") == std::string::npos;  // one that misleads nobody stays
    if (spelled.same_log && same_keyword_lines) {
        EXPECT_EQ(difference(outputs.log, expected.log), "");
    }
    EXPECT_EQ(prepared_text(deck), deck);
    EXPECT_EQ(still_to_mend(deck), "");
    if (testing::Test::HasFailure()) ADD_FAILURE() << all_text(spelled.files) << "==== prepared\n" << deck;
}

class EveryStyle : public testing::TestWithParam<Style>
{
};
}  // namespace

TEST(Prepare, LeavesStrictDecksAsTheyAre)
{
    for (std::uint32_t seed = 0; seed < count(300); ++seed) {
        const std::string deck = strict(random_model(seed));
        prepare::Summary summary;
        ASSERT_EQ(prepared_text(deck, &summary), deck) << seed;
        EXPECT_EQ(summary.changes, 0U);
        EXPECT_TRUE(summary.not_carried.empty());
    }
}

TEST_P(EveryStyle, IsTheStrictModelOncePrepared)
{
    int applied = 0;
    for (std::uint32_t seed = 0; seed < count(120); ++seed) {
        Random random(seed);
        const std::optional<SpelledDeck> spelled = spell(GetParam(), random_model(seed), random);
        if (!spelled) continue;
        ++applied;
        expect_same_model(*spelled);
        if (HasFailure()) FAIL() << "seed " << seed;
    }
    EXPECT_GT(applied, 3);
}

INSTANTIATE_TEST_SUITE_P(Styles, EveryStyle, testing::ValuesIn(styles().begin(), styles().end()),
                         [](const testing::TestParamInfo<Style>& test) {
                             std::string name(test.param.name);
                             std::erase_if(name, [](char c) { return c == '\'' || c == '*' || c == ','; });
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

// ---- the corpus of small decks -------------------------------------------------------------------------------------

class CorpusDeck : public testing::TestWithParam<std::string>
{
};

TEST_P(CorpusDeck, IsLeftAloneOrMendedForGood)
{
    const std::string path = std::string(MORVEX_CORPUS) + "/" + GetParam() + "/deck.k";
    std::size_t to_mend = 0;
    for (const check::Finding& finding : check::check_deck(path, {{{"lcflag", 1}}, true}).findings) {
        if (finding.code == "MD122" || finding.code == "MD123") {
            EXPECT_THROW(prepared(path), deck::Fault);
            return;
        }
        if (finding.mended_by_prepare && finding.code != "MD404") ++to_mend;
    }
    const std::string deck = prepared(path);
    EXPECT_EQ(deck == contents(path), to_mend == 0) << deck;
    EXPECT_EQ(prepared_text(deck), deck);
    EXPECT_EQ(still_to_mend(deck), "") << deck;
}

std::vector<std::string> corpus()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(MORVEX_CORPUS))
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Corpus, CorpusDeck, testing::ValuesIn(corpus()),
                         [](const testing::TestParamInfo<std::string>& test) {
                             std::string name = test.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(MixedStyles, AreTheStrictModelOncePrepared)
{
    for (std::uint32_t seed = 0; seed < count(300); ++seed) {
        Random random(seed);
        const SpelledDeck spelled = spell_mixed(random_model(seed), random, 2 + seed % 11);
        expect_same_model(spelled);
        if (HasFailure()) FAIL() << "seed " << seed;
    }
}
}  // namespace models
