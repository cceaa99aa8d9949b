#include "deck/card_fields.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "deck/layout.h"

using deck::FieldText;
using deck::Format;
using deck::split_card;

namespace
{
const deck::CardLayout& first_card(std::string_view keyword)
{
    return deck::find_layout(keyword).layout->cards[0];
}

std::vector<std::string> texts(const std::vector<FieldText>& fields)
{
    std::vector<std::string> result;
    for (const FieldText& field : fields) result.emplace_back(field.text);
    return result;
}
using Texts = std::vector<std::string>;

TEST(SplitCard, TakesStandardColumns)
{
    const auto fields = split_card("       1             0.5             1.0             1.5       7       6",
                                   first_card("*NODE"), Format::standard, true);
    EXPECT_EQ(texts(fields),
              (Texts{"       1", "             0.5", "             1.0", "             1.5", "       7", "       6"}));
    EXPECT_EQ(fields[1].column, 8u);
    EXPECT_EQ(fields[1].width, 16u);
    EXPECT_EQ(fields[1].field->name, "x");
    EXPECT_FALSE(fields[5].cut);
}

TEST(SplitCard, TellsWhereTheLineCutsAField)
{
    const auto fields = split_card("       1    0.5", first_card("*NODE"), Format::standard, true);
    EXPECT_EQ(texts(fields), (Texts{"       1", "    0.5", "", "", "", ""}));
    EXPECT_FALSE(fields[0].cut);
    EXPECT_TRUE(fields[1].cut);
    EXPECT_FALSE(fields[2].cut);
}

TEST(SplitCard, LongFieldsAreTwentyColumns)
{
    const std::string line = std::string(19, ' ') + "1" + std::string(17, ' ') + "0.5";
    const auto fields = split_card(line, first_card("*NODE"), Format::long_fields, true);
    EXPECT_EQ(texts(fields)[0], std::string(19, ' ') + "1");
    EXPECT_EQ(texts(fields)[1], std::string(17, ' ') + "0.5");
    EXPECT_EQ(fields[5].column, 100u);
}

TEST(SplitCard, TenColumnsAreOfTheIntegersOfNodesAndElements)
{
    const auto node = split_card("", first_card("*NODE"), Format::ten_columns, true);
    EXPECT_EQ(node[1].column, 10u);
    EXPECT_EQ(node[2].column, 26u);
    EXPECT_EQ(node[4].column, 58u);
    EXPECT_EQ(node[5].column, 68u);
    const auto solid = split_card("", first_card("*ELEMENT_SOLID"), Format::ten_columns, true);
    EXPECT_EQ(solid[9].column, 90u);
    const auto particle = split_card("", first_card("*ELEMENT_SPH"), Format::ten_columns, true);
    EXPECT_EQ(particle[2].column, 20u);
    EXPECT_EQ(particle[2].width, 16u);
    const auto curve = split_card("", first_card("*DEFINE_CURVE"), Format::ten_columns, false);
    EXPECT_EQ(curve[1].column, 10u);
}

TEST(SplitCard, AnyCommaMakesANumericCardFree)
{
    const auto fields = split_card("1, 0.5,,1.5 ,0,0,extra", first_card("*NODE"), Format::standard, true);
    EXPECT_EQ(texts(fields), (Texts{"1", " 0.5", "", "1.5 ", "0", "0", "extra"}));
    EXPECT_EQ(fields[1].column, 2u);
    EXPECT_EQ(fields[1].field->name, "x");
    EXPECT_EQ(fields[6].field, nullptr);
}

TEST(SplitCard, ShortFreeCardHasEmptyFieldsBehind)
{
    const auto fields = split_card("1,2", first_card("*NODE"), Format::standard, true);
    EXPECT_EQ(texts(fields), (Texts{"1", "2", "", "", "", ""}));
}

TEST(SplitCard, CommasInExpressionsDoNotPart)
{
    const auto fields = split_card("1,<max(&a,2)>,3", first_card("*NODE"), Format::standard, true);
    EXPECT_EQ(texts(fields)[1], "<max(&a,2)>");
    EXPECT_FALSE(deck::is_free("       1    <max(&a,2)>", first_card("*NODE")));
}

TEST(SplitCard, HeadingsAreNeverFree)
{
    EXPECT_FALSE(deck::is_free("plate, front", deck::title_card));
    EXPECT_FALSE(deck::is_free("plate, front", first_card("*PART")));
    EXPECT_EQ(texts(split_card("plate, front", deck::title_card, Format::standard, false)), (Texts{"plate, front"}));
}

TEST(SplitCard, IdCardIsFreeWhenACommaEndsItsNumber)
{
    EXPECT_TRUE(deck::is_free("1,front, left", deck::id_card));
    EXPECT_EQ(texts(split_card("1,front, left", deck::id_card, Format::standard, false)), (Texts{"1", "front, left"}));
    EXPECT_FALSE(deck::is_free("         1front, left", deck::id_card));
    EXPECT_EQ(texts(split_card("         1front, left", deck::id_card, Format::standard, false)),
              (Texts{"         1", "front, left"}));
}

TEST(BehindFields, IsWhatTheLayoutDoesNotKnow)
{
    const std::string card(80, ' ');
    const std::string longer = card + "  9";
    const FieldText behind = deck::behind_fields(longer, first_card("*ELEMENT_SOLID"), Format::standard, true);
    EXPECT_EQ(behind.text, "9");
    EXPECT_EQ(behind.column, 82u);
    EXPECT_EQ(deck::behind_fields(card + "   ", first_card("*ELEMENT_SOLID"), Format::standard, true).text, "");
    EXPECT_EQ(deck::behind_fields("1,0,0,0,0,0, x,y", first_card("*NODE"), Format::standard, true).text, "x,y");
    EXPECT_EQ(deck::behind_fields("a title", deck::title_card, Format::standard, false).text, "");
}

TEST(WithTabsExpanded, StopsAreEightColumnsApart)
{
    EXPECT_EQ(deck::with_tabs_expanded("1\t2\t\t3"), "1       2               3");
    EXPECT_EQ(deck::with_tabs_expanded("12345678\t9"), "12345678        9");
}
}  // namespace
