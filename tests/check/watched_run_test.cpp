// A watched run, and what is made of it.
#include "check/watched_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

#include "check/check.h"
#include "check/number_set.h"
#include "check/watch.h"
#include "deck/fault.h"
#include "reader/observer.h"
#include "support/convert.h"
#include "support/models.h"
#include "support/random.h"
#include "support/whole_run.h"

namespace
{
constexpr std::uint32_t many = 150;

// The outputs of a run that is watched as check watches it, but for the log, which check takes for itself.
RunOutputs run_watched(const std::string& deck)
{
    check::Watch watch;
    observer = &watch;
    RunOutputs outputs = run_whole(deck);
    observer = nullptr;
    return outputs;
}

check::Reading reading_of(const std::string& deck)
{
    const TemporaryFolder folder;
    write_file("deck.k", deck);
    check::Reading reading = check::watched_run("deck.k", initial_settings());
    reset_run();
    return reading;
}
}  // namespace

TEST(WatchedRun, WritesTheBytesOfAPlainRun)
{
    for (std::uint32_t seed = 1; seed <= many; ++seed) {
        const std::string deck = models::strict(models::random_model(seed));
        const RunOutputs plain = run_whole(deck), watched = run_watched(deck);
        ASSERT_TRUE(plain.same_model(watched)) << "seed " << seed;
        ASSERT_EQ(plain.log, watched.log) << "seed " << seed;
        ASSERT_EQ(plain.keyword_copy, watched.keyword_copy) << "seed " << seed;
    }
}

TEST(WatchedRun, RegularBlockIsKeptAsOneRecord)
{
    std::string deck = "*KEYWORD\n*NODE\n";
    for (int i = 0; i < 1000; ++i) deck += "       1             0.5\n$ a comment\n";
    const check::Reading reading = reading_of(deck + "*END\n");
    const auto records = std::count_if(reading.lines.begin(), reading.lines.end(),
                                       [](const check::LinesRead& lines) { return lines.block == 1; });
    EXPECT_EQ(records, 1);
    EXPECT_EQ(reading.lines.front().count, 1000U);
}

TEST(WatchedRun, CardsByTurnsAreKeptAsOneRecord)
{
    std::string deck = "*KEYWORD\n*ELEMENT_SHELL_THICKNESS\n";
    for (int i = 0; i < 500; ++i) deck += "       1       1       1       2       3       4\n             0.5\n";
    const check::Reading reading = reading_of(deck + "*END\n");
    ASSERT_EQ(reading.lines.size(), 1U);
    EXPECT_EQ(reading.lines.front().count, 1000U);
    EXPECT_NE(reading.lines.front().patterns[0], reading.lines.front().patterns[1]);
}

TEST(WatchedRun, PlacesOfTheKeywordCopyAreThoseOfTheDeck)
{
    const std::string deck = "*KEYWORD\n"
                             "*NODE\n"
                             "       1             0.5             0.0             0.0\n"
                             "*SECTION_SPH\n"
                             "$ a comment\n"
                             "         7\n"
                             "*END\n";
    const check::Reading reading = reading_of(deck);
    const auto section = std::find_if(reading.lines.begin(), reading.lines.end(),
                                      [](const check::LinesRead& lines) { return lines.block == 2; });
    ASSERT_NE(section, reading.lines.end());
    EXPECT_EQ(section->first, deck.find("         7\n"));
}

TEST(WatchedRun, DeckThatCannotBeReadIsAFault)
{
    const TemporaryFolder folder;
    EXPECT_THROW(check::watched_run("missing.k", initial_settings()), deck::Fault);
    EXPECT_THROW(check::check_deck("missing.k"), deck::Fault);
}

TEST(WatchedRun, CheckCanBeRunAgain)
{
    const TemporaryFolder folder;
    write_file("deck.k", "*KEYWORD\n*NODE\n       1        0.5\n");
    const check::Result first = check::check_deck("deck.k"), second = check::check_deck("deck.k");
    ASSERT_EQ(first.findings.size(), 2U);
    EXPECT_EQ(second.findings.size(), first.findings.size());
}

TEST(NumberSet, HoldsWhatWasInserted)
{
    Random random(7);
    check::NumberSet numbers;
    std::set<std::int64_t> plain;
    const std::int64_t bases[] = {0, -70000, 1LL << 40, 65536};
    for (int i = 0; i < 20000; ++i) {
        const std::int64_t number = bases[random.below(4)] + static_cast<std::int64_t>(random.below(9000));
        EXPECT_EQ(numbers.insert(number), plain.insert(number).second);
    }
    for (int i = 0; i < 20000; ++i) {
        const std::int64_t number = bases[random.below(4)] + static_cast<std::int64_t>(random.below(9000));
        EXPECT_EQ(numbers.contains(number), plain.contains(number)) << number;
    }
}

TEST(NumberSet, KnowsWhetherAllItsNumbersAreInOthers)
{
    check::NumberSet mine, one, other;
    for (const std::int64_t number : {1, 100000, -5}) mine.insert(number);
    for (const std::int64_t number : {1, -5}) one.insert(number);
    EXPECT_FALSE(mine.is_within(one, other));
    other.insert(100000);
    EXPECT_TRUE(mine.is_within(one, other));
    for (std::int64_t number = 0; number < 5000; ++number) mine.insert(number);
    EXPECT_FALSE(mine.is_within(one, other));
    for (std::int64_t number = 0; number < 5000; ++number) other.insert(number);
    EXPECT_TRUE(mine.is_within(one, other));
}
