// Finding keyword lines, and skipping comment lines.
#include "reader/keyword.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "reader/run.h"
#include "support/keyword_lines.h"
#include "support/on_text.h"

using namespace std::string_literals;

namespace
{
class Keyword : public OnText
{
protected:
    // The keyword lines of the text up to the first *END, as cbuffer shows them.
    std::vector<std::string> keywords_of(const std::string& text)
    {
        read(text);
        std::vector<std::string> lines;
        do {
            keyword();
            lines.emplace_back(cbuffer);
        } while (lines.back() != "*END" && lines.size() < 100);
        return lines;
    }
};

using Lines = std::vector<std::string>;

// A keyword line of so many characters.
std::string keyword_line(std::size_t length)
{
    std::string line(length, 'X');
    line.front() = '*';
    return line;
}
}  // namespace

TEST_F(Keyword, LowerCaseIsFoundAndStoredInUpperCase)
{
    EXPECT_EQ(keywords_of("*node\n*Element_Solid_x9 (a)\n*end\n"), (Lines{"*NODE", "*ELEMENT_SOLID_X9 (A)", "*END"}));
}

TEST_F(Keyword, OnlyLettersOfAsciiChangeCase)
{
    EXPECT_EQ(keywords_of("*a\xe4[`{@\n*END\n"), (Lines{"*A\xe4[`{@", "*END"}));
}

TEST_F(Keyword, StreamStandsAtTheLineAfterTheKeywordLine)
{
    read("comment\n*NODE\n   first card\n");
    keyword();
    EXPECT_EQ(following(8), "   first");
}

TEST_F(Keyword, LinesThatDoNotBeginWithAStarAreWadedThrough)
{
    EXPECT_EQ(keywords_of("$*A\n *B\n\n12 *C\n\r*D\n*E\n* \n*\n*END\n"), (Lines{"*E", "* ", "*", "*END"}));
}

TEST_F(Keyword, EmptyBlocksYieldTheirKeywordsOneByOne)
{
    EXPECT_EQ(keywords_of("*A\n*B\n*C\n*END\n"), (Lines{"*A", "*B", "*C", "*END"}));
}

TEST_F(Keyword, LineOfFortyNineCharactersIsKeptWhole)
{
    const std::string line = keyword_line(49);
    EXPECT_EQ(keywords_of(line + "\n*B\n"), (Lines{line, "*B", "*END"}));
}

TEST_F(Keyword, LongerLinesAreCutToFortyNineCharactersAndReadToTheirEnd)
{
    for (const std::size_t length : {50U, 60U, 63U, 64U, 65U, 200U, 5000U}) {
        const std::string line = keyword_line(length - 1) + "*";
        EXPECT_EQ(keywords_of(line + "\n*B\n*END\n"), (Lines{keyword_line(49), "*B", "*END"})) << length;
    }
}

TEST_F(Keyword, CarriageReturnStaysBehindTheKeyword)
{
    EXPECT_EQ(keywords_of("*NODE\r\n*END\n"), (Lines{"*NODE\r", "*END"}));
    read("*NODE\r\n");
    keyword();
    EXPECT_TRUE(keyword_is("*NODE"));
    EXPECT_FALSE(keyword_ends_in("NODE"));
}

TEST_F(Keyword, NulCharacterEndsTheKeptLineOnly)
{
    EXPECT_EQ(keywords_of("*NO\0DE\n*B\n*END\n"s), (Lines{"*NO", "*B", "*END"}));
    EXPECT_EQ(keywords_of("\0*A\n*B\n*END\n"s), (Lines{"*B", "*END"}));
}

TEST_F(Keyword, DeckWithoutEndEndsInOne)
{
    EXPECT_EQ(keywords_of("*NODE\n1\n"), (Lines{"*NODE", "*END"}));
    EXPECT_EQ(keywords_of("*NODE\n1"), (Lines{"*NODE", "*END"}));
    EXPECT_EQ(keywords_of("*NODE"), (Lines{"*NODE", "*END"}));
    EXPECT_EQ(keywords_of(""), (Lines{"*END"}));
}

TEST_F(Keyword, EndAfterEndIsFoundForEver)
{
    read("*END\n");
    for (int i = 0; i < 1000; ++i) {
        keyword();
        ASSERT_STREQ(cbuffer, "*END");
    }
}

TEST_F(Keyword, NextUnreadCharacterCountsAsTheFirstOfALine)
{
    const std::string text = "*A\n12*mid 34\n*B\n*END\n";
    const KeywordIndex index = index_of(Positions{0, 13, 16});
    for (const bool indexed : {false, true}) {
        read(text);
        if (indexed) infile.use_index(&index);
        infile.seek(5);
        keyword();
        EXPECT_STREQ(cbuffer, "*MID 34");
        keyword();
        EXPECT_STREQ(cbuffer, "*B");
        infile.seek(4);
        keyword();
        EXPECT_STREQ(cbuffer, "*B");
    }
}

TEST_F(Keyword, NewlineLeftUnreadIsAnEmptyLine)
{
    read("12\n*B\n");
    infile.seek(2);
    keyword();
    EXPECT_STREQ(cbuffer, "*B");
}

TEST_F(Keyword, ShorterLineLeavesNothingOfTheOneBefore)
{
    read("*ELEMENT_SHELL_THICKNESS\n*NODE\n");
    keyword();
    keyword();
    EXPECT_STREQ(cbuffer, "*NODE");
    EXPECT_TRUE(keyword_ends_in("DE"));
    EXPECT_FALSE(keyword_is("*NODE_"));
}

TEST_F(Keyword, PrefixAndEndingAreTakenExactly)
{
    read("*contact_id\n*CONTACT_ID \n");
    keyword();
    EXPECT_TRUE(keyword_is("*CONTACT"));
    EXPECT_TRUE(keyword_is("*CONTACT_ID"));
    EXPECT_FALSE(keyword_is("*CONTACT_ID "));
    EXPECT_FALSE(keyword_is("CONTACT"));
    EXPECT_TRUE(keyword_ends_in("ID"));
    keyword();
    EXPECT_FALSE(keyword_ends_in("ID"));
}

// ---- comments ------------------------------------------------------------------------------------------------------

TEST_F(Keyword, CommentLinesAreSkippedAndTheFirstOtherCharacterStaysUnread)
{
    read("$ one\n$\n$$ *\n  12\n");
    EXPECT_EQ(comments(infile.next()), ' ');
    EXPECT_EQ(following(4), "  12");
}

TEST_F(Keyword, CharacterThatIsNoCommentIsGivenBack)
{
    read("7$8\n");
    EXPECT_EQ(skip_comments(), '7');
    EXPECT_EQ(infile.position(), 0U);
    EXPECT_EQ(following(4), "7$8\n");
}

TEST_F(Keyword, DollarThatIsNotInTheFirstColumnIsData)
{
    read(" $ 12\n");
    EXPECT_EQ(skip_comments(), ' ');
    EXPECT_EQ(following(5), " $ 12");
}

TEST_F(Keyword, BlankLineIsNoComment)
{
    read("$ comment\n\n  12\n");
    EXPECT_EQ(skip_comments(), '\n');
    EXPECT_EQ(following(2), "\n ");
}

TEST_F(Keyword, CommentLinesOfAllLengthsAreSkippedAtWindowBorders)
{
    for (std::size_t length = 1; length <= 200; ++length) {
        read(std::string(length, '$') + "\n$\n*NEXT\n");
        EXPECT_EQ(skip_comments(), '*');
        EXPECT_EQ(infile.position(), length + 3);
    }
}

TEST_F(Keyword, CommentAtTheEndOfTheDeckIsFollowedByEnd)
{
    read("$ comment");
    EXPECT_EQ(skip_comments(), '*');
    EXPECT_EQ(following(5), "*END\n");
}
