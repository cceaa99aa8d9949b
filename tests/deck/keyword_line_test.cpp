#include "deck/keyword_line.h"

#include <gtest/gtest.h>

#include "deck/card_format.h"

using deck::FormatSuffix;
using deck::KeywordLine;
using deck::read_keyword_line;

namespace
{
TEST(KeywordLine, NameIsUpperCaseAndWithoutWhatFollows)
{
    const KeywordLine line = read_keyword_line("*Control_Sph   carte de control  ");
    EXPECT_EQ(line.text, "*Control_Sph   carte de control  ");
    EXPECT_EQ(line.name, "*CONTROL_SPH");
    EXPECT_EQ(line.rest, "carte de control");
    EXPECT_EQ(line.rest_column, 16u);
    EXPECT_EQ(line.suffix, FormatSuffix::none);
}

TEST(KeywordLine, BlanksAndTabsBehindItAreNoRest)
{
    const KeywordLine line = read_keyword_line("*NODE \t ");
    EXPECT_EQ(line.name, "*NODE");
    EXPECT_EQ(line.rest, "");
    EXPECT_EQ(line.rest_column, 0u);
}

TEST(KeywordLine, SuffixStandsAtTheNameOrBehindIt)
{
    EXPECT_EQ(read_keyword_line("*NODE+").suffix, FormatSuffix::plus);
    EXPECT_EQ(read_keyword_line("*NODE+").name, "*NODE");
    EXPECT_EQ(read_keyword_line("*NODE +").suffix, FormatSuffix::plus);
    EXPECT_EQ(read_keyword_line("*NODE   %").suffix, FormatSuffix::percent);
    EXPECT_EQ(read_keyword_line("*NODE -").suffix, FormatSuffix::minus);
    const KeywordLine with_text = read_keyword_line("*NODE + the mesh");
    EXPECT_EQ(with_text.suffix, FormatSuffix::plus);
    EXPECT_EQ(with_text.rest, "the mesh");
    EXPECT_EQ(with_text.rest_column, 9u);
}

TEST(KeywordLine, SignInsideANameOrATextIsNoSuffix)
{
    EXPECT_EQ(read_keyword_line("*MAT_MOONEY-RIVLIN_RUBBER").name, "*MAT_MOONEY-RIVLIN_RUBBER");
    EXPECT_EQ(read_keyword_line("*NODE +x").suffix, FormatSuffix::none);
    EXPECT_EQ(read_keyword_line("*NODE +x").rest, "+x");
    EXPECT_EQ(read_keyword_line("*").name, "*");
}

TEST(KeywordLine, OptionsStandAtTheEnd)
{
    EXPECT_TRUE(deck::ends_in_option("*PART_TITLE", "TITLE"));
    EXPECT_FALSE(deck::ends_in_option("*TITLE", "TITLE"));
    EXPECT_EQ(deck::without_option("*BOUNDARY_SPC_SET_ID", "ID"), "*BOUNDARY_SPC_SET");
    EXPECT_EQ(deck::without_option("*MAT_RIGID", "ID"), "*MAT_RIGID");
    EXPECT_TRUE(deck::is_of("*PART_INERTIA", "*PART"));
    EXPECT_FALSE(deck::is_of("*PARTICLE", "*PART"));
}

TEST(FormatSettings, AreTakenFromTheKeywordLine)
{
    using deck::FormatSettings;
    using deck::settings_from;
    EXPECT_EQ(settings_from("LONG=Y", {}), (FormatSettings{true, false}));
    EXPECT_EQ(settings_from("memory=20m long=k", {}), (FormatSettings{true, false}));
    EXPECT_EQ(settings_from("LONG = Y  I10 = Y", {}), (FormatSettings{true, true}));
    EXPECT_EQ(settings_from("LONG=N", {true, true}), (FormatSettings{false, true}));
    EXPECT_EQ(settings_from("", {true, false}), (FormatSettings{true, false}));
    EXPECT_EQ(settings_from("PROLONG=Y", {}), FormatSettings{});
}

TEST(FormatSettings, LongEqualsSIsAboutOutputOnly)
{
    EXPECT_EQ(deck::settings_from("long=s", {}), deck::FormatSettings{});
}

TEST(FormatSettings, SuffixDecidesForOneBlock)
{
    using deck::block_format;
    using deck::Format;
    const deck::FormatSettings long_deck{true, false};
    EXPECT_EQ(block_format(long_deck, FormatSuffix::none), Format::long_fields);
    EXPECT_EQ(block_format(long_deck, FormatSuffix::minus), Format::standard);
    EXPECT_EQ(block_format({}, FormatSuffix::plus), Format::long_fields);
    EXPECT_EQ(block_format({}, FormatSuffix::percent), Format::ten_columns);
    EXPECT_EQ(block_format({false, true}, FormatSuffix::none), Format::ten_columns);
}
}  // namespace
