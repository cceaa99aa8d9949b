// The index of keyword lines, against a plain list of positions.
#include "reader/keyword_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

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
    index.add(2, "*END");
    EXPECT_EQ(positions(index), Positions{2});
}

TEST(KeywordIndex, InitialsAreLettersOfEitherCaseAndAllOthersAsOne)
{
    Initials initials;
    EXPECT_FALSE(initials.has('A'));
    initials.add('m');
    initials.add('Z');
    for (int c = 0; c < 256; ++c)
        EXPECT_EQ(initials.has(static_cast<char>(c)), c == 'm' || c == 'M' || c == 'z' || c == 'Z') << c;
    initials.add('_');
    for (int c = 0; c < 256; ++c) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        EXPECT_EQ(initials.has(static_cast<char>(c)), !letter || c == 'm' || c == 'M' || c == 'z' || c == 'Z') << c;
        EXPECT_TRUE(Initials::all().has(static_cast<char>(c))) << c;
    }
}

TEST(KeywordIndex, FindsTheNextLineWithOneOfTheInitials)
{
    const std::string_view text = "*NODE\n*\n*set\n*_X\n*Mat\n*";
    const KeywordIndex index = index_of(text);
    const auto first_with = [&](std::string_view letters, Position from) {
        Initials wanted;
        for (const char c : letters) wanted.add(c);
        KeywordIndex::Place place;
        return index.find(from, place, wanted);
    };
    EXPECT_EQ(first_with("N", 0), 0U);
    EXPECT_EQ(first_with("N", 1), std::nullopt);
    EXPECT_EQ(first_with("SM", 0), 8U);
    EXPECT_EQ(first_with("SM", 9), 17U);
    EXPECT_EQ(first_with("-", 0), 6U);  // a line of "*" alone counts as one without a letter
    EXPECT_EQ(first_with("-", 7), 13U);
    EXPECT_EQ(first_with("-", 14), 22U);
    EXPECT_EQ(first_with("Q", 0), std::nullopt);
}

TEST(KeywordIndex, FindsInitialsFromAnyPlaceInManyLines)
{
    Random random(43);
    for (const unsigned bits : {2U, 9U, 30U}) {
        const Positions lines = random_lines(random, 5000, bits);
        std::string initials;
        KeywordIndex index;
        for (const Position line : lines) {
            initials += random.text(1, "NES_");
            index.add(line, "*" + initials.substr(initials.size() - 1));
        }
        KeywordIndex::Place place;
        for (int i = 0; i < 3000; ++i) {
            const std::string wanted_letters = random.text(1, "NES_Q");
            Initials wanted;
            wanted.add(wanted_letters[0]);
            std::size_t line = random.below(lines.size());
            const auto found = index.find(lines[line], place, wanted);
            line = initials.find(wanted_letters, line);
            ASSERT_EQ(found, line == std::string::npos ? std::nullopt : std::optional(lines[line]));
        }
    }
}

TEST(KeywordIndex, TakesLessThanFourBytesForALineAndFiveBehindAGap)
{
    for (const Position distance : {2U, 60U, 300U, 5000U, 65535U, 2000000U}) {
        KeywordIndex index;
        constexpr std::size_t lines = 1000000;
        for (std::size_t i = 0; i < lines; ++i) index.add(i * distance, "*NODE");
        EXPECT_LT(index.bytes(), (distance < 65536 ? 4 : 5) * lines) << distance;
    }
}
