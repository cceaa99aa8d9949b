// A model counts the same in the deck and in what is written of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "check/check.h"
#include "deck/fault.h"
#include "prepare/prepared.h"
#include "report/counted.h"
#include "support/models.h"
#include "support/styles.h"

namespace
{
namespace fs = std::filesystem;

std::vector<fs::path> decks_below(const fs::path& folder)
{
    std::vector<fs::path> decks;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        const std::string extension = entry.path().extension().string();
        const bool is_output = entry.path().parent_path().filename() == "expected";
        if (entry.is_regular_file() && !is_output && (extension == ".k" || extension == ".key"))
            decks.push_back(entry.path());
    }
    std::sort(decks.begin(), decks.end());
    return decks;
}

bool has_errors(const fs::path& deck)
{
    const std::vector<check::Finding> findings = check::check_deck(deck, {{{"lcflag", 1}}, true}).findings;
    return std::any_of(findings.begin(), findings.end(),
                       [](const check::Finding& finding) { return finding.severity == deck::Severity::error; });
}

void expect_same_counts_once_prepared(const fs::path& path)
{
    SCOPED_TRACE(path.string());
    EXPECT_EQ(conversion_differences(prepared(path.string())), "");
}

// What check has an error for may differ: something that cannot be prepared, or was not.
void expect_same_counts_or_errors(const fs::path& path)
{
    SCOPED_TRACE(path.string());
    const std::string differences = conversion_differences(path);
    if (!differences.empty()) {
        EXPECT_TRUE(has_errors(path)) << differences;
    }
}

// ---- golden decks --------------------------------------------------------------------------------------------------

TEST(Counts, AreTheSameOfEveryGoldenDeckOncePrepared)
{
    const std::vector<fs::path> decks = decks_below(fs::path(MORVEX_TESTS) / "golden");
    ASSERT_GT(decks.size(), 250U);
    for (const fs::path& deck : decks) {
        const std::string name = deck.parent_path().filename().string();
        if (name == "bulk-sets-long-cards" || name == "bulk-node-variants") continue;  // see below
        if (name == "spine-unhandled-keywords") continue;  // cannot be prepared: a parameter without a type
        expect_same_counts_once_prepared(deck);
    }
}

TEST(Counts, ShowTheMemberThatIsMadeOfColumnsBeyondTheCard)
{
    const fs::path deck = fs::path(MORVEX_TESTS) / "golden" / "bulk-sets-long-cards/model.k";
    EXPECT_EQ(conversion_differences(prepared(deck.string())),
              "part set 2: members: 9 in the deck, 10 in the written files\n");
}

TEST(Counts, ShowTheNodesThatAreMadeOfOtherKeywords)
{
    const fs::path deck = fs::path(MORVEX_TESTS) / "golden" / "bulk-node-variants/model.k";
    EXPECT_TRUE(
        conversion_differences(prepared(deck.string())).starts_with("nodes: 0 in the deck, 2 in the written files\n"));
    EXPECT_TRUE(has_errors(deck));
}

TEST(Counts, DifferOfNoGoldenDeckWithoutAnErrorOfCheck)
{
    for (const fs::path& deck : decks_below(fs::path(MORVEX_TESTS) / "golden")) expect_same_counts_or_errors(deck);
}

// ---- other decks ---------------------------------------------------------------------------------------------------

TEST(Counts, AreTheSameOfTheExamples)
{
    const std::vector<fs::path> decks = decks_below(MORVEX_EXAMPLES);
    ASSERT_EQ(decks.size(), 4U);
    for (const fs::path& deck : decks) {
        SCOPED_TRACE(deck.string());
        EXPECT_EQ(conversion_differences(deck), "");
        expect_same_counts_once_prepared(deck);
    }
}

TEST(Counts, AreTheSameOfRandomModels)
{
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        EXPECT_EQ(conversion_differences(models::strict(models::random_model(seed))), "");
        if (HasFailure()) FAIL() << "seed " << seed;
    }
}

// As it is, and once prepared, unless it cannot be.
void expect_same_counts_or_errors_twice(const fs::path& deck)
{
    expect_same_counts_or_errors(deck);
    try {
        const TemporaryName place;
        write_file(place.path() / "model.k", prepared(deck.string()));
        expect_same_counts_or_errors(place.path() / "model.k");
    } catch (const deck::Fault& fault) {
        EXPECT_FALSE(fault.problem().code.empty()) << fault.what();  // says why
    }
}

TEST(Counts, DifferOfNoDeckOfTheCorpusWithoutAnErrorOfCheck)
{
    for (const fs::path& folder : fs::directory_iterator(MORVEX_DECKS))
        if (fs::is_directory(folder)) expect_same_counts_or_errors_twice(folder / "deck.k");
}

#ifdef MORVEX_REAL_DECKS
TEST(Counts, DifferOfNoRealDeckWithoutAnErrorOfCheck)
{
    for (const fs::path& deck : decks_below(MORVEX_REAL_DECKS)) expect_same_counts_or_errors_twice(deck);
}
#endif

// ---- spelling ------------------------------------------------------------------------------------------------------

// A deck in another style counts as its strict form does, though it has not been prepared. Left out are forms that the
// converter skips as they are, so that neither side counts them: sets that are no lists, materials by number.
std::vector<models::Style> counted_styles()
{
    std::vector<models::Style> styles;
    for (const auto& family : {models::styles_of_cards(), models::styles_of_keyword_lines(), models::styles_of_files(),
                               models::styles_of_parameters(), models::styles_of_blocks()})
        for (const models::Style& style : family)
            if (style.name != "a keyword by its number") styles.push_back(style);
    return styles;
}

class CountsOfStyle : public testing::TestWithParam<models::Style>
{
};

TEST_P(CountsOfStyle, AreThoseOfTheStrictModel)
{
    for (std::uint32_t seed = 0; seed < 25; ++seed) {
        ::Random random(seed);
        const auto spelled = models::spell(GetParam(), models::random_model(seed), random);
        if (!spelled) continue;
        const TemporaryName folder;
        for (const auto& [path, text] : spelled->files) {
            fs::create_directories((folder.path() / path).parent_path());
            write_file(folder.path() / path, text);
        }
        EXPECT_EQ(text_of(report::differences(report::count_deck(folder.path() / spelled->main_deck),
                                              counted_deck(models::strict(spelled->strict)))),
                  "");
        if (HasFailure()) FAIL() << "seed " << seed;
    }
}

std::string name_of(const testing::TestParamInfo<models::Style>& test)
{
    std::string name(test.param.name);
    std::erase_if(name, [](char c) { return c == '\'' || c == '*' || c == ','; });
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Styles, CountsOfStyle, testing::ValuesIn(counted_styles()), name_of);
}  // namespace
