// Which card each line of a block is.
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "deck/card_fields.h"
#include "deck/field_number.h"
#include "deck/layout.h"

namespace
{
// The cards of the lines: group:name, with "-" behind what is not read; "?" beyond the layout.
struct Walk {
    std::string cards;
    std::string missing;
};

Walk walk(std::string_view keyword, const std::vector<std::string_view>& lines)
{
    Walk result;
    deck::CardWalk walk(deck::find_layout(keyword));
    for (const std::string_view line : lines) {
        const deck::CardPlace place = walk.next();
        if (!result.cards.empty()) result.cards += ' ';
        if (place.card == nullptr) {
            result.cards += '?';
            continue;
        }
        result.cards += std::to_string(place.group) + ":" + std::string(place.card->name) + (place.read ? "" : "-");
        const auto fields = deck::split_card(line, *place.card, deck::Format::standard, deck::is_bulk(keyword));
        for (std::size_t i = 0; i < fields.size(); ++i) walk.set_value(i, deck::standard_number(fields[i].text).value);
    }
    if (const deck::CardLayout* const card = walk.missing()) result.missing = card->name;
    return result;
}

TEST(CardWalk, ListsGoOnToTheEnd)
{
    EXPECT_EQ(walk("*SET_NODE_LIST_TITLE", {"a", "1", "1,2", "3"}).cards, "0:title 0:1 0:members 0:members");
}

TEST(CardWalk, DefinitionsFollowEachWithItsTitle)
{
    EXPECT_EQ(walk("*MAT_ELASTIC_TITLE", {"a", "1", "b", "2"}).cards, "0:title 0:1 1:title- 1:1-");
    EXPECT_EQ(walk("*PART", {"a", "1", "b", "2"}).cards, "0:heading 0:1 1:heading 1:1");
}

TEST(CardWalk, IdCardStandsForTheBlock)
{
    EXPECT_EQ(walk("*BOUNDARY_SPC_NODE_ID", {"1,a", "1", "2"}).cards, "0:id 0:1 1:1-");
    EXPECT_EQ(walk("*BOUNDARY_SPC_NODE", {"1", "2"}).cards, "0:1 1:1");
}

TEST(CardWalk, CardsComeAsValuesSay)
{
    EXPECT_EQ(walk("*BOUNDARY_PRESCRIBED_MOTION_SET", {"1,1", "1,9", "0.5", "1,1"}).cards, "0:1 1:1 1:2 2:1");
    EXPECT_EQ(walk("*INITIAL_VELOCITY", {"1,2", "0.", "0.", "1"}).cards, "0:1 0:2 0:3- 1:1");
    EXPECT_EQ(walk("*SECTION_SHELL", {"1,2,1.,9,,,1", "1.", "0.", "0.", "2"}).cards, "0:1 0:2 0:3- 0:3- 1:1-");
}

TEST(CardWalk, OptionsHaveCards)
{
    EXPECT_EQ(walk("*PART_INERTIA_CONTACT", {"a", "1", ",,,,1", "", "", "", "", "b", "2"}).cards,
              "0:heading 0:1 0:mass- 0:inertia- 0:velocity- 0:axes- 0:contact- 1:heading 1:1");
    EXPECT_EQ(walk("*PART_CONTACT", {"a", "1", "", "b"}).cards, "0:heading 0:1 0:contact- 1:heading");
}

TEST(CardWalk, OptionalCardsEndTheBlock)
{
    EXPECT_EQ(walk("*CONTACT_ERODING_SINGLE_SURFACE", {"1", "", "", "1", "1", "", "", "", "", ""}).cards,
              "0:1 0:2 0:3 0:4 0:a 0:b- 0:c- 0:d- 0:e- ?");
    EXPECT_EQ(walk("*CONTACT_SINGLE_SURFACE", {"1", "", ""}).missing, "");
}

TEST(CardWalk, TellsWhichCardIsMissing)
{
    EXPECT_EQ(walk("*CONTROL_CONTACT", {"1"}).missing, "2");
    EXPECT_EQ(walk("*CONTROL_CONTACT", {"1", "2"}).missing, "");
    EXPECT_EQ(walk("*CONTROL_TERMINATION", {}).missing, "1");
    EXPECT_EQ(walk("*BOUNDARY_SPC_SET", {}).missing, "");
    EXPECT_EQ(walk("*PART", {"a", "1", "b"}).missing, "1");
    EXPECT_EQ(walk("*MAT_RIGID_TITLE", {"a"}).missing, "1");
    EXPECT_EQ(walk("*MAT_RIGID", {"1", "0."}).missing, "3");
    EXPECT_EQ(walk("*BOUNDARY_PRESCRIBED_MOTION_SET", {"1,9"}).missing, "2");
}

TEST(CardWalk, KnowsNoCardOfAnUnknownKeyword)
{
    EXPECT_EQ(walk("*AIRBAG", {"1"}).cards, "?");
}
}  // namespace
