// The index of keyword lines, against a plain list of positions.
#include "reader/keyword_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "support/keyword_lines.h"
#include "support/random.h"

namespace
{
std::optional<Position> plain_find(const Positions& lines, Position position)
{
    const auto found = std::lower_bound(lines.begin(), lines.end(), position);
    return found == lines.end() ? std::nullopt : std::optional(*found);
}

// Lines whose distances have up to so many bits.
Positions random_lines(Random& random, std::size_t count, unsigned bits)
{
    Positions lines;
    Position position = random.below(3);
    for (std::size_t i = 0; i < count; ++i) {
        lines.push_back(position);
        const Position distance = (Position{random.bits()} << 32 | random.bits()) >> (64 - 1 - random.below(bits));
        position += 1 + distance;
    }
    return lines;
}
}  // namespace

TEST(KeywordIndex, EmptyOneFindsNothing)
{
    const KeywordIndex index;
    KeywordIndex::Place place;
    EXPECT_EQ(index.find(0, place), std::nullopt);
    EXPECT_EQ(index.find(1000, place), std::nullopt);
}

TEST(KeywordIndex, FindsTheFirstLineAtOrBehindAPosition)
{
    const KeywordIndex index = index_of(Positions{40, 41, 300});
    for (const bool near : {false, true}) {
        KeywordIndex::Place place;
        for (const auto& [position, line] :
             {std::pair<Position, Position>{0, 40}, {40, 40}, {41, 41}, {42, 300}, {300, 300}}) {
            if (!near) place = {};
            EXPECT_EQ(index.find(position, place), line) << position;
        }
        EXPECT_EQ(index.find(301, place), std::nullopt);
        EXPECT_EQ(index.find(41, place), 41U);
    }
}

TEST(KeywordIndex, GivesBackEveryLineInOrder)
{
    Random random(41);
    for (const unsigned bits : {1U, 7U, 8U, 14U, 15U, 21U, 28U, 35U, 40U}) {
        for (const std::size_t count : {1U, 2U, 100U, 989U, 990U, 991U, 992U, 1000U, 1001U, 20000U}) {
            const Positions lines = random_lines(random, count, bits);
            ASSERT_EQ(positions(index_of(lines)), lines) << bits << " " << count;
        }
    }
}

TEST(KeywordIndex, FindsFromAnyPlaceWhatASearchFromTheBeginningFinds)
{
    Random random(42);
    for (const unsigned bits : {1U, 8U, 12U, 30U}) {
        const Positions lines = random_lines(random, 5000, bits);
        const KeywordIndex index = index_of(lines);
        KeywordIndex::Place place;
        Position position = 0;
        for (int i = 0; i < 20000; ++i) {
            if (random.one_in(3))
                position = lines[random.below(lines.size())] + random.below(3) - std::min<Position>(position, 1);
            else
                position += random.below(40);
            ASSERT_EQ(index.find(position, place), plain_find(lines, position)) << position;
        }
    }
}

TEST(KeywordIndex, ForgetsItsLines)
{
    KeywordIndex index = index_of(Positions{5, 9});
    index.clear();
    EXPECT_EQ(positions(index), Positions{});
    index.add(2);
    EXPECT_EQ(positions(index), Positions{2});
}

TEST(KeywordIndex, TakesLessThanFourBytesForALine)
{
    for (const Position distance : {2U, 60U, 300U, 5000U, 2000000U}) {
        KeywordIndex index;
        constexpr std::size_t lines = 1000000;
        for (std::size_t i = 0; i < lines; ++i) index.add(i * distance);
        EXPECT_LT(index.bytes(), 4 * lines) << distance;
    }
}
