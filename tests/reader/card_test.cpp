// Fields, titles and the loop over cards, and where the stream stands behind each.
#include "reader/card.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "reader/keyword.h"
#include "reader/run.h"
#include "support/on_text.h"

namespace
{
class FieldReader : public OnText
{
protected:
    static std::string word(int width, int* open)
    {
        std::array<char, 64> text{};
        text.fill('~');
        readstring(text.data(), width, open);
        return text.data();
    }
    int open_ = 1;
};
using TitleReader = OnText;
using Cards = OnText;
}  // namespace

// ---- numbers -------------------------------------------------------------------------------------------------------

TEST_F(FieldReader, NumberInTheLastColumnsOfItsFieldIsRead)
{
    read("      12.5         7\n");
    EXPECT_EQ(fblanks(10, &open_), 12.5);
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(infile.position(), 10U);
    EXPECT_EQ(fblanks(10, &open_), 7.0);
}

TEST_F(FieldReader, NumberInTheFirstColumnsOfItsFieldReadsAsZero)
{
    read("12.5               7\n");
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(infile.position(), 10U);
    EXPECT_EQ(fblanks(10, &open_), 7.0);
}

TEST_F(FieldReader, AllBlankFieldReadsAsZeroAndTheCardGoesOn)
{
    read("                   7\n");
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(fblanks(10, &open_), 7.0);
}

TEST_F(FieldReader, CardThatEndsInsideAFieldLosesItsDigitsAndEmptiesTheRest)
{
    read("       1\nnext\n");
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(open_, 0);
    EXPECT_EQ(infile.position(), 8U);
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(infile.position(), 8U);
    EXPECT_EQ(following(5), "\nnext");
}

TEST_F(FieldReader, FieldThatEndsWithTheLineIsReadAndTheNextOneMeetsTheNewline)
{
    read("       1\nnext\n");
    EXPECT_EQ(fblanks(8, &open_), 1.0);
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(infile.position(), 8U);
    EXPECT_EQ(fblanks(8, &open_), 0.0);
    EXPECT_EQ(open_, 0);
    EXPECT_EQ(following(5), "\nnext");
}

TEST_F(FieldReader, FlagOtherThanOneReadsNothing)
{
    for (const int flag : {0, 2, -1}) {
        read("         5\n");
        int open = flag;
        EXPECT_EQ(fblanks(10, &open), 0.0);
        EXPECT_EQ(word(10, &open), " 0");
        EXPECT_EQ(open, flag);
        EXPECT_EQ(infile.position(), 0U);
    }
}

TEST_F(FieldReader, FieldsNeedNoBlankBetweenThem)
{
    read("123456781234567887654321\n");
    EXPECT_EQ(fblanks(8, &open_), 12345678.0);
    EXPECT_EQ(fblanks(16, &open_), 1234567887654321.0);
}

TEST_F(FieldReader, OnlyABlankInTheLastColumnEmptiesAField)
{
    read("     12.5\t     12.5\r     12.5x     12.5\n");
    EXPECT_EQ(fblanks(10, &open_), 12.5);
    EXPECT_EQ(fblanks(10, &open_), 12.5);
    EXPECT_EQ(fblanks(10, &open_), 12.5);
    EXPECT_EQ(fblanks(9, &open_), 12.5);
    EXPECT_EQ(infile.next(), '\n');
}

TEST_F(FieldReader, CarriageReturnFillsAColumnOfTheLastField)
{
    read("        1\r\n");  // nine columns and the carriage return
    EXPECT_EQ(fblanks(10, &open_), 1.0);
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(infile.next(), '\n');
    open_ = 1;
    read("       1\r\n");
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(open_, 0);
    EXPECT_EQ(infile.next(), '\n');
}

TEST_F(FieldReader, TabsAreLeadingWhiteSpaceOfOneColumn)
{
    read("\t\t\t\t\t\t\t\t\t5\t 6\n");
    EXPECT_EQ(fblanks(10, &open_), 5.0);
    EXPECT_EQ(fblanks(3, &open_), 6.0);
}

TEST_F(FieldReader, TextAndStarsAndDollarsInAFieldAreData)
{
    read("      word        5*         *         $\n");
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(fblanks(10, &open_), 5.0);
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(infile.next(), '\n');
}

TEST_F(FieldReader, LastLineWithoutNewlineEndsLikeAnyOther)
{
    read("         5     7");
    EXPECT_EQ(fblanks(10, &open_), 5.0);
    EXPECT_EQ(fblanks(10, &open_), 0.0);
    EXPECT_EQ(open_, 0);
    EXPECT_EQ(following(6), "\n*END\n");
}

TEST_F(FieldReader, FieldsAreTheSameAtEveryPlaceInTheWindow)
{
    for (std::size_t before = 0; before < 140; ++before) {
        read(std::string(before, 'x') + "\n       1       216 columns, full\n");
        infile.skip_line();
        int open = 1;
        ASSERT_EQ(fblanks(8, &open), 1.0) << before;
        ASSERT_EQ(fblanks(8, &open), 2.0) << before;
        ASSERT_EQ(word(16, &open), "16 columns, full") << before;
        ASSERT_EQ(word(10, &open), " 0") << before;
    }
}

// ---- words ---------------------------------------------------------------------------------------------------------

TEST_F(FieldReader, WordKeepsItsLeadingBlanks)
{
    read("      mat1\n");
    EXPECT_EQ(word(10, &open_), "      mat1");
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(infile.position(), 10U);
}

TEST_F(FieldReader, AllBlankWordIsBlankAndZero)
{
    read("                mat1\n");
    EXPECT_EQ(word(10, &open_), " 0");
    EXPECT_EQ(open_, 1);
    EXPECT_EQ(word(10, &open_), "      mat1");
}

TEST_F(FieldReader, WordWithABlankInItsLastColumnIsBlankAndZero)
{
    read("mat1      \n");
    EXPECT_EQ(word(10, &open_), " 0");
    EXPECT_EQ(infile.position(), 10U);
}

TEST_F(FieldReader, WordThatMeetsTheNewlineIsBlankAndZero)
{
    read("     mat1\nnext\n");
    EXPECT_EQ(word(10, &open_), " 0");
    EXPECT_EQ(open_, 0);
    EXPECT_EQ(following(5), "\nnext");
}

TEST_F(FieldReader, WordMayFillItsField)
{
    read("abcdefghijklmnop\n");
    EXPECT_EQ(word(10, &open_), "abcdefghij");
    EXPECT_EQ(word(6, &open_), "klmnop");
    EXPECT_EQ(word(10, &open_), " 0");
}

TEST_F(FieldReader, WordMayEndInATabOrCarriageReturn)
{
    read("     mat1\t     mat1\r\n");
    EXPECT_EQ(word(10, &open_), "     mat1\t");
    EXPECT_EQ(word(10, &open_), "     mat1\r");
}

// ---- titles --------------------------------------------------------------------------------------------------------

TEST_F(TitleReader, ThirtyCharactersAreThoseThirty)
{
    read("a title of thirty characters..\nnext\n");
    EXPECT_STREQ(readtitle().text, "a title of thirty characters..");
    EXPECT_EQ(following(4), "next");
}

TEST_F(TitleReader, HundredCharactersAreCutToEighty)
{
    const std::string line = std::string(70, 't') + "0123456789" + std::string(20, 'x');
    read(line + "\nnext\n");
    EXPECT_EQ(std::string(readtitle().text), std::string(70, 't') + "0123456789");
    EXPECT_EQ(following(4), "next");
}

TEST_F(TitleReader, LengthsAroundEightyAreExact)
{
    for (std::size_t length = 0; length <= 300; ++length) {
        std::string line;
        for (std::size_t i = 0; i < length; ++i) line += static_cast<char>('a' + i % 26);
        read(line + "\nnext\n");
        std::string expected = line.substr(0, 80);
        if (length == 79) expected += '\n';  // sic
        EXPECT_EQ(std::string(readtitle().text), expected) << length;
        EXPECT_EQ(infile.position(), length + 1) << length;
    }
}

TEST_F(TitleReader, LineOfSeventyEightCharactersLosesItsNewline)
{
    read(std::string(78, 't') + "\nnext\n");
    EXPECT_EQ(std::string(readtitle().text), std::string(78, 't'));
}

TEST_F(TitleReader, LineOfSeventyNineCharactersKeepsItsNewline)
{
    read(std::string(79, 't') + "\nnext\n");
    EXPECT_EQ(std::string(readtitle().text), std::string(79, 't') + "\n");
    EXPECT_EQ(following(4), "next");
}

TEST_F(TitleReader, CarriageReturnCountsAsACharacter)
{
    read("short\r\n" + std::string(78, 't') + "\r\nnext\n");
    EXPECT_STREQ(readtitle().text, "short\r");
    EXPECT_EQ(std::string(readtitle().text), std::string(78, 't') + "\r\n");
    EXPECT_EQ(following(4), "next");
}

TEST_F(TitleReader, LeadingAndTrailingBlanksAreKept)
{
    read("   a title   \n");
    EXPECT_STREQ(readtitle().text, "   a title   ");
}

TEST_F(TitleReader, CommentLinesBeforeItAreSkipped)
{
    read("$ one\n$ two\nthe $title\n$ three\n");
    EXPECT_STREQ(readtitle().text, "the $title");
    EXPECT_EQ(following(7), "$ three");
}

TEST_F(TitleReader, EmptyLineIsAnEmptyTitle)
{
    read("\nnext\n");
    EXPECT_STREQ(readtitle().text, "");
    EXPECT_EQ(following(4), "next");
}

TEST_F(TitleReader, KeywordLineIsTakenForATitleThatIsMissing)
{
    read("*NODE\nnext\n");
    EXPECT_STREQ(readtitle().text, "*NODE");
    EXPECT_EQ(following(4), "next");
}

TEST_F(TitleReader, LastLineWithoutNewlineIsATitle)
{
    read("title");
    EXPECT_STREQ(readtitle().text, "title");
    EXPECT_STREQ(readtitle().text, "*END");
}

TEST_F(TitleReader, SkippedTitleConsumesTheSameLine)
{
    read("$ comment\na title\nnext\n");
    skip_title();
    EXPECT_EQ(following(4), "next");
}

// ---- the loop over cards -------------------------------------------------------------------------------------------

TEST_F(Cards, LoopEndsAtTheKeywordLineAndLeavesIt)
{
    read("         1\n         2\n*NEXT\n");
    std::vector<int> values;
    for (Card card; card.next();) values.push_back(card.integer());
    EXPECT_EQ(values, (std::vector{1, 2}));
    EXPECT_EQ(following(5), "*NEXT");
}

TEST_F(Cards, EmptyBlockHasNoCardAndTheNextKeywordIsFound)
{
    read("*A\n*B\n");
    keyword();
    Card card;
    EXPECT_FALSE(card.next());
    keyword();
    EXPECT_STREQ(cbuffer, "*B");
}

TEST_F(Cards, CommentLinesBeforeBetweenAndAfterCardsAreSkipped)
{
    read("$\n$ a\n         1\n$ b\n$ c\n         2\n$ d\n*NEXT\n");
    std::vector<int> values;
    for (Card card; card.next();) values.push_back(card.integer());
    EXPECT_EQ(values, (std::vector{1, 2}));
    EXPECT_EQ(following(5), "*NEXT");
}

TEST_F(Cards, DollarThatIsNotInTheFirstColumnIsACard)
{
    read(" $       1\n*NEXT\n");
    Card card;
    ASSERT_TRUE(card.next());
    EXPECT_EQ(card.integer(2), 0);
    EXPECT_EQ(card.integer(8), 1);
    EXPECT_FALSE(card.next());
}

TEST_F(Cards, StarThatIsNotInTheFirstColumnIsACard)
{
    read(" *       1\n*NEXT\n");
    Card card;
    ASSERT_TRUE(card.next());
    EXPECT_FALSE(card.next());
    EXPECT_EQ(following(5), "*NEXT");
}

TEST_F(Cards, BlankLineIsACardOfEmptyFields)
{
    read("\n         2\n*NEXT\n");
    std::vector<int> values;
    for (Card card; card.next();) values.push_back(card.integer());
    EXPECT_EQ(values, (std::vector{0, 2}));
}

TEST_F(Cards, RestOfALineIsDiscardedBetweenCards)
{
    read("         1 and *much* more $ of it\n         2\n*NEXT\n");
    std::vector<int> values;
    for (Card card; card.next();) values.push_back(card.integer());
    EXPECT_EQ(values, (std::vector{1, 2}));
}

TEST_F(Cards, EachCardOpensItsLineAgain)
{
    read("    1\n         2\n*NEXT\n");
    Card card;
    ASSERT_TRUE(card.next());
    EXPECT_EQ(card.integer(), 0);
    EXPECT_EQ(card.integer(), 0);
    ASSERT_TRUE(card.next());
    EXPECT_EQ(card.integer(), 2);
}

TEST_F(Cards, LoopEndsWithTheDeckAlsoWithoutANewlineOrEnd)
{
    read("         1\n         2");
    std::vector<int> values;
    for (Card card; card.next();) values.push_back(card.integer());
    EXPECT_EQ(values, (std::vector{1, 2}));
    EXPECT_EQ(following(5), "*END\n");
}

TEST_F(Cards, LoopEndsBehindTheLineOfItsLastCard)
{
    read("         1 and more\n         2\n*NEXT\n");
    std::vector<int> values;
    for (Card card(one_card); card.next();) values.push_back(card.integer());
    EXPECT_EQ(values, (std::vector{1}));
    EXPECT_EQ(following(10), "         2");
}

TEST_F(Cards, LoopWhoseLastCardIsMissingEndsAtTheKeywordLine)
{
    read("$ c\n*NEXT\n");
    for (Card card(one_card); card.next();) ADD_FAILURE();
    EXPECT_EQ(following(5), "*NEXT");
}

TEST_F(Cards, LastCardMayHaveFurtherCards)
{
    read("         1\n         2 and more\n         3\n*NEXT\n");
    for (Card card(one_card); card.next();) {
        EXPECT_EQ(card.integer(), 1);
        card.another();
        EXPECT_EQ(card.integer(), 2);
    }
    EXPECT_EQ(following(10), "         3");
}

TEST_F(Cards, FixedCardsAreReadWithoutATestForAKeyword)
{
    read("$ c\n*     1234\n$ d\n*     5678\n");
    Card card;
    card.first();
    EXPECT_EQ(card.integer(5), 0);
    EXPECT_EQ(card.integer(5), 1234);
    card.another();
    EXPECT_EQ(card.integer(5), 0);
    EXPECT_EQ(card.integer(5), 5678);
    EXPECT_EQ(following(1), "\n");
}

TEST_F(Cards, FixedCardLeavesTheStreamWhereItsLastFieldEnded)
{
    read("         1*MID 9\n*NEXT\n");
    Card card;
    card.first();
    EXPECT_EQ(card.integer(), 1);
    EXPECT_EQ(infile.position(), 10U);
    keyword();
    EXPECT_STREQ(cbuffer, "*MID 9");
}

TEST_F(Cards, EndLineDiscardsUpToAndIncludingTheNewline)
{
    read("         1 and more\nnext\n");
    Card card;
    card.first();
    card.integer();
    Card::end_line();
    EXPECT_EQ(following(4), "next");
}

TEST_F(Cards, FurtherCardAfterAFieldThatMetTheNewlineIsTheNextLine)
{
    read("   1\n         2\n*NEXT\n");
    Card card;
    card.first();
    EXPECT_EQ(card.integer(), 0);
    card.another();
    EXPECT_EQ(card.integer(), 2);
}

TEST_F(Cards, ColumnsAreThoseOfTheLineUpToTheirNumber)
{
    read("123456789\n12345678\n1234567\n\nnext\n");
    std::vector<std::string> columns;
    for (Card card; columns.size() < 4 && card.next();) columns.emplace_back(card.columns(8));
    EXPECT_EQ(columns, (std::vector<std::string>{"12345678", "12345678", "1234567", ""}));
    EXPECT_EQ(following(4), "next");
}

TEST_F(Cards, ColumnsOfAFurtherCardFollowThoseOfTheFirst)
{
    read("12345678 rest\n$ comment\n*2345678 rest\nnext\n");
    Card card;
    ASSERT_TRUE(card.next());
    EXPECT_EQ(card.columns(8), "12345678");
    card.another();
    EXPECT_EQ(card.columns(80), "*2345678 rest");
    card.another();
    EXPECT_EQ(card.columns(80), "next");
}

TEST_F(Cards, FieldsAreTenColumnsWideUnlessToldOtherwise)
{
    read("         1       2               3.5       0.1      mat1\n");
    Card card;
    card.first();
    EXPECT_EQ(card.integer(), 1);
    EXPECT_EQ(card.integer(8), 2);
    EXPECT_EQ(card.number(18), 3.5);
    EXPECT_EQ(card.real(), 0.1f);
    EXPECT_STREQ(card.word().text, "      mat1");
    EXPECT_STREQ(card.word().text, " 0");
}

TEST_F(Cards, IntegersAreTruncatedTowardZero)
{
    read("       2.9      -2.9     1.5e3       2e9       3e9      -3e9       nan      2147483648\n");
    Card card;
    card.first();
    EXPECT_EQ(card.integer(), 2);
    EXPECT_EQ(card.integer(), -2);
    EXPECT_EQ(card.integer(), 1500);
    EXPECT_EQ(card.integer(), 2000000000);
    EXPECT_EQ(card.integer(), INT32_MIN);
    EXPECT_EQ(card.integer(), INT32_MIN);
    EXPECT_EQ(card.integer(), INT32_MIN);
    EXPECT_EQ(card.integer64(16), 2147483648);
}

TEST_F(Cards, RealsAreOfSinglePrecision)
{
    read("       0.1      1e39     1e-46       nan\n");
    Card card;
    card.first();
    EXPECT_EQ(static_cast<double>(card.real()), 0.100000001490116119384765625);
    EXPECT_EQ(card.real(), HUGE_VALF);
    EXPECT_EQ(card.real(), 0.0f);
    EXPECT_TRUE(std::isnan(card.real()));
}
