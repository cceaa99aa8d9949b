// The ledger closes, and tells when it does not.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "accounted.h"
#include "report/ledger.h"
#include "support/styles.h"

namespace fs = std::filesystem;

namespace
{
using report::Ledger;

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

void write_files(const std::map<std::string, std::string>& files)
{
    for (const auto& [path, text] : files) {
        if (const fs::path folder = fs::path(path).parent_path(); !folder.empty()) fs::create_directories(folder);
        write_file(path, text);
    }
}

// Flags by which other lines are written.
std::vector<RunFlags> settings_to_try()
{
    std::vector<RunFlags> all = {every_output};
    const auto with = [](std::initializer_list<std::pair<std::size_t, int>> changes) {
        RunFlags flags = every_output;
        for (const auto& [flag, value] : changes) flags[flag] = value;
        return flags;
    };
    all.push_back(with({{3, 0}}));                   // concise
    all.push_back(with({{4, 1}}));                   // with a standards file
    all.push_back(with({{5, 2}}));                   // contacts as ties
    all.push_back(with({{12, 1}}));                  // accelerometers
    all.push_back(with({{1, 0}, {2, 0}}));           // the main deck alone
    all.push_back(with({{0, 0}}));                   // without it
    all.push_back(with({{6, 0}, {7, 0}, {10, 0}}));  // without sections
    return all;
}

std::vector<std::string> decks_below(const fs::path& root)
{
    std::vector<std::string> decks;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file() || entry.path().string().find("/expected/") != std::string::npos) continue;
        const std::string extension = entry.path().extension().string();
        if (extension == ".k" || extension == ".key" || extension == ".dyn") decks.push_back(entry.path().string());
    }
    std::sort(decks.begin(), decks.end());
    return decks;
}

// A deck that cannot be prepared is closed as it is alone.
void expect_closed(const std::string& deck)
{
    for (const bool prepare : {true, false}) {
        const TemporaryFolder folder;
        try {
            const Ledger ledger = account_for(deck, "out", every_output, prepare);
            EXPECT_EQ(joined(faults(ledger, "out", deck, true)), "") << deck << " " << prepare;
        } catch (const deck::Fault& fault) {
            EXPECT_TRUE(prepare) << deck << ": " << fault.what();
        }
    }
}

TEST(Ledger, ClosesOnStrictModels)
{
    const std::vector<RunFlags> settings = settings_to_try();
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        const TemporaryFolder folder;
        write_file("model.k", models::strict(models::random_model(seed)));
        for (const bool prepare : {true, false}) {
            const Ledger ledger = account_for("model.k", "out", settings[seed % settings.size()], prepare);
            ASSERT_EQ(joined(faults(ledger, "out", "model.k", true)), "") << seed << " " << prepare;
        }
    }
}

TEST(Ledger, ClosesOnModelsInEveryStyle)
{
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        ::Random random(seed);
        const models::SpelledDeck spelled = models::spell_mixed(models::random_model(seed), random, 8);
        const TemporaryFolder folder;
        write_files(spelled.files);
        for (const bool prepare : {true, false}) {
            const Ledger ledger = account_for(spelled.main_deck, "out", every_output, prepare);
            ASSERT_EQ(joined(faults(ledger, "out", spelled.main_deck, true)), "") << seed << " " << prepare;
        }
    }
}

TEST(Ledger, ClosesOnEveryDeckOfTheTests)
{
    std::size_t count = 0;
    for (const fs::path& root :
         {fs::path(MORVEX_TESTS) / "golden", fs::path(MORVEX_TESTS) / "decks", fs::path(MORVEX_EXAMPLES)})
        for (const std::string& deck : decks_below(root)) {
            expect_closed(deck);
            ++count;
        }
    EXPECT_GT(count, 300U);
}

#ifdef MORVEX_REAL_DECKS
// Decks that people really wrote.
TEST(Ledger, ClosesOnRealDecks)
{
    for (const std::string& deck : decks_below(MORVEX_REAL_DECKS)) expect_closed(deck);
}
#endif
}  // namespace
