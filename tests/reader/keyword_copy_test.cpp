// The keyword copy, and the indexes of keyword lines that are made with it.
#include "reader/keyword_copy.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "reader/keyword.h"
#include "reader/run.h"
#include "support/fresh_run.h"
#include "support/keyword_lines.h"
#include "support/random.h"

namespace
{
constexpr std::array<std::size_t, 4> windows = {128, 129, 200, 4096};

class KeywordCopy : public FreshRun
{
protected:
    static std::string copy_of(const std::string& deck, std::size_t window = InputStream::smallest_window)
    {
        infile_geom.open_text(deck, window);
        return copy();
    }

    // The copy of what infile_geom is open on.
    static std::string copy()
    {
        std::string copy;
        keyword_of.open(copy);
        keyword_writer();
        keyword_of.close();
        return copy;
    }
};

// The copy, made the plain way: pieces of at most 49 characters, all tests on each, the filter called by each that
// matches.
std::string plain_copy(const std::string& deck)
{
    std::string result;
    std::size_t at = 0;
    const auto filter = [&] {
        while (at < deck.size() && deck[at] != '*') {
            const std::size_t newline = deck.find('\n', at);
            at = newline == std::string::npos ? deck.size() : newline + 1;
        }
    };
    while (at < deck.size()) {
        std::string piece;
        while (piece.size() < 49 && at < deck.size() && (piece.empty() || piece.back() != '\n')) piece += deck[at++];
        bool written = true;
        for (const char* prefix : {"*NODE", "*ELEMENT_SHELL_THICKNESS", "*ELEMENT_SHELL", "*ELEMENT_SPH",
                                   "*ELEMENT_SOLID", "*SET_NODE", "*SET_PART", "*SET_SEGMENT", "*SET_SHELL"})
            if (piece.starts_with(prefix)) filter();
        if (piece.starts_with("*SET_SOLID")) {
            filter();
            written = false;
        }
        if (written) result += piece;
    }
    return result;
}

const std::string data = "$ comment\n         1       2\n\n  *not a keyword\n         3";
}  // namespace

TEST_F(KeywordCopy, BulkBlocksLoseTheirDataLinesAndCommentsAndKeepTheirKeywordLine)
{
    for (const std::string keyword_line :
         {"*NODE", "*ELEMENT_SHELL_THICKNESS", "*ELEMENT_SHELL", "*ELEMENT_SPH", "*ELEMENT_SOLID", "*SET_NODE",
          "*SET_NODE_LIST", "*SET_PART", "*SET_PART_LIST", "*SET_SEGMENT", "*SET_SHELL", "*SET_SHELL_LIST"}) {
        EXPECT_EQ(copy_of("*PART\n" + data + "\n" + keyword_line + "\n" + data + "\n*MAT\n1\n*END\n"),
                  "*PART\n" + data + "\n" + keyword_line + "\n*MAT\n1\n*END\n");
    }
}

TEST_F(KeywordCopy, SolidSetsVanishWithTheirKeywordLine)
{
    for (const std::string keyword_line :
         {"*SET_SOLID", "*SET_SOLID_LIST", "*SET_SOLID_GENERAL", "*SET_SOLID_LIST_TITLE", "*SET_SOLIDS"}) {
        EXPECT_EQ(copy_of("*PART\n1\n" + keyword_line + "\n" + data + "\n*MAT\n1\n*END\n"),
                  "*PART\n1\n*MAT\n1\n*END\n");
    }
}

TEST_F(KeywordCopy, DeckThatEndsInASolidSetGivesACopyThatEndsInEnd)
{
    const std::string copy = copy_of("*PART\n1\n*SET_SOLID\n         1\n         2\n*END\n");
    EXPECT_EQ(copy, "*PART\n1\n*END\n");
    EXPECT_EQ(copy.find("*SET_SOLID"), std::string::npos);
}

TEST_F(KeywordCopy, VariantsThatShareAPrefixAreFilteredToo)
{
    for (const std::string keyword_line :
         {"*NODE_RIGID_SURFACE", "*NODES", "*ELEMENT_SHELL_BETA", "*ELEMENT_SHELL_THICKNESS_BETA", "*ELEMENT_SHELLS",
          "*ELEMENT_SOLID_ORTHO", "*ELEMENT_SPHERE", "*SET_NODE_GENERAL", "*SET_NODE_LIST_TITLE", "*SET_PART_ADD",
          "*SET_SEGMENT_GENERAL", "*SET_SHELL_LIST_GENERATE", "*NODE  comment", "*NODE\r"}) {
        EXPECT_EQ(copy_of(keyword_line + "\n" + data + "\n*MAT\n1\n*END\n"), keyword_line + "\n*MAT\n1\n*END\n");
    }
}

TEST_F(KeywordCopy, NearMissesAreCopiedWhole)
{
    for (const std::string keyword_line :
         {"*NOD", "*NOSE", "*ELEMENT", "*ELEMENT_SHEL", "*ELEMENT_SHAPE", "*ELEMENT_SP", "*ELEMENT_SOLI",
          "*ELEMENT_BEAM", "*ELEMENT_DISCRETE", "*ELEMENT_MASS", "*SET_NOD", "*SET_PAR", "*SET_SEGMEN", "*SET_SHEL",
          "*SET_SOLI", "*SET_BEAM", "*SET", "* NODE", "*INITIAL_VELOCITY_NODE"}) {
        const std::string deck = keyword_line + "\n" + data + "\n*MAT\n1\n*END\n";
        EXPECT_EQ(copy_of(deck), deck) << keyword_line;
    }
}

TEST_F(KeywordCopy, LowerCaseIsKeptAndItsBlocksAreCopiedWhole)
{
    const std::string deck =
        "*node\n" + data + "\n*Set_Solid\n1\n*ELEMENT_shell\n2\n*nODE\n3\n*mat_Elastic\nabC\n*end\n";
    EXPECT_EQ(copy_of(deck), deck);
}

TEST_F(KeywordCopy, EmptyBulkBlocksStandOneAfterTheOther)
{
    EXPECT_EQ(copy_of("*NODE\n*ELEMENT_SHELL_THICKNESS\n*SET_SOLID\n*SET_SOLID\n*NODE\n*END\n"),
              "*NODE\n*ELEMENT_SHELL_THICKNESS\n*NODE\n*END\n");
}

TEST_F(KeywordCopy, LinesBeforeTheFirstKeywordAndBehindEndAreCopied)
{
    const std::string deck = "$ head\n\nwords\n*END\nbehind\n*MAT\nmore\n";
    EXPECT_EQ(copy_of(deck), deck);
}

TEST_F(KeywordCopy, LinesOfAllLengthsAreCopiedUnchanged)
{
    for (const std::size_t window : windows) {
        for (std::size_t length = 0; length <= 330; ++length) {
            const std::string deck = "*MAT\n" + std::string(length, 'x') + "\n*END\n";
            ASSERT_EQ(copy_of(deck, window), deck) << window << " " << length;
        }
        const std::string deck = "*MAT\n" + std::string(20000, 'x') + "\n*END\n";
        EXPECT_EQ(copy_of(deck, window), deck) << window;
    }
}

TEST_F(KeywordCopy, LongKeywordLineOfAnotherFamilyIsCopiedUnchanged)
{
    const std::string deck = "*CONTACT_" + std::string(60, 'X') + "\n1\n*END\n";
    EXPECT_EQ(copy_of(deck), deck);
}

// ---- pieces of 49 characters ---------------------------------------------------------------------------------------

TEST_F(KeywordCopy, BulkKeywordLineOfFortyEightCharactersKeepsItsNewline)
{
    const std::string line = "*NODE" + std::string(43, 'x');
    EXPECT_EQ(copy_of(line + "\n1\n*MAT\n2\n*END\n"), line + "\n*MAT\n2\n*END\n");
}

TEST_F(KeywordCopy, BulkKeywordLineOfFortyNineCharactersLosesItsNewline)
{
    const std::string line = "*NODE" + std::string(44, 'x');
    EXPECT_EQ(copy_of(line + "\n1\n*MAT\n2\n*END\n"), line + "*MAT\n2\n*END\n");
    EXPECT_EQ(positions(copy_index), (Positions{0, 49 + 7}));
    EXPECT_EQ(positions(deck_index), (Positions{0, 52, 59}));
}

TEST_F(KeywordCopy, LongerBulkKeywordLineIsCutToItsFirstPiece)
{
    const std::string line = "*NODE" + std::string(44, 'x');
    for (const std::string rest : {"y", "y*NODE", " and more than another forty-nine characters of it *END"})
        EXPECT_EQ(copy_of(line + rest + "\n1\n*MAT\n2\n*END\n"), line + "*MAT\n2\n*END\n");
}

TEST_F(KeywordCopy, StarBehindTheFirstPieceEndsTheFilterInMidLine)
{
    const std::string line = "*NODE" + std::string(44, 'x');
    EXPECT_EQ(copy_of(line + "*y\n1\n*MAT\n2\n*END\n"), line + "*y\n1\n*MAT\n2\n*END\n");
    EXPECT_EQ(copy_of(line + "*SET_SOLID\n1\n*MAT\n2\n*END\n"), line + "*MAT\n2\n*END\n");
}

TEST_F(KeywordCopy, BulkKeywordAtAPieceBorderOfALongLineFiltersWhatFollows)
{
    for (const std::size_t window : windows) {
        for (const std::size_t before : {49U, 98U, 147U, 490U}) {
            const std::string head(before, 'x');
            EXPECT_EQ(copy_of(head + "*NODE\n1\n2\n*MAT\n3\n*END\n", window), head + "*NODE\n*MAT\n3\n*END\n");
            EXPECT_EQ(copy_of(head + "*SET_SOLID\n1\n*MAT\n3\n*END\n", window), head + "*MAT\n3\n*END\n");
            EXPECT_EQ(positions(deck_index), (Positions{before + 13, before + 20}));
            EXPECT_EQ(positions(copy_index), (Positions{before + 7}));
        }
    }
}

TEST_F(KeywordCopy, BulkKeywordOffAPieceBorderIsText)
{
    for (const std::size_t before : {1U, 48U, 50U, 97U, 99U}) {
        const std::string deck = std::string(before, 'x') + "*NODE\n1\n2\n*MAT\n3\n*END\n";
        EXPECT_EQ(copy_of(deck), deck) << before;
    }
}

TEST_F(KeywordCopy, LineOfFortyNineCharactersLeavesItsNewlineAsAPieceOfItsOwn)
{
    for (const std::size_t length : {48U, 49U, 50U, 97U, 98U, 99U}) {
        const std::string deck = std::string(length, 'x') + "\n*NODE\n1\n*MAT\n*END\n";
        EXPECT_EQ(copy_of(deck), std::string(length, 'x') + "\n*NODE\n*MAT\n*END\n") << length;
        EXPECT_EQ(positions(deck_index), (Positions{length + 1, length + 9, length + 14})) << length;
        EXPECT_EQ(positions(copy_index), (Positions{length + 1, length + 7, length + 12})) << length;
    }
}

// ---- the end of the deck -------------------------------------------------------------------------------------------

TEST_F(KeywordCopy, NothingIsAddedAtTheEnd)
{
    for (const std::string deck : {"", "\n", "*MAT", "*MAT\n", "*MAT\n1", "*END", "$", "x"})
        EXPECT_EQ(copy_of(deck), deck) << deck;
}

TEST_F(KeywordCopy, BulkBlockAtTheEndOfTheDeckWithoutEnd)
{
    for (const std::string rest : {"\n1\n2\n", "\n1\n2", "\n", ""}) {
        const std::string newline = rest.empty() ? "" : "\n";
        EXPECT_EQ(copy_of("*MAT\n*NODE" + rest), "*MAT\n*NODE" + newline);
        EXPECT_EQ(copy_of("*MAT\n*SET_SOLID" + rest), "*MAT\n");
        EXPECT_EQ(copy_of("*MAT\n*ELEMENT_SHELL_THICKNESS" + rest), "*MAT\n*ELEMENT_SHELL_THICKNESS" + newline);
    }
}

TEST_F(KeywordCopy, LongLastLineWithoutNewlineIsCopiedWhole)
{
    for (std::size_t length = 40; length <= 210; ++length) {
        const std::string deck = "*MAT\n" + std::string(length, 'x');
        ASSERT_EQ(copy_of(deck), deck) << length;
    }
}

TEST_F(KeywordCopy, DeckWithoutABulkBlockIsCopiedByteForByte)
{
    std::string bytes;
    for (int c = 0; c < 256; ++c)
        if (c != '*') bytes += static_cast<char>(c);
    EXPECT_EQ(copy_of(bytes + "\r\n" + bytes), bytes + "\r\n" + bytes);
}

TEST_F(KeywordCopy, SecondRunReplacesTheCopyAndTheIndexes)
{
    copy_of("*NODE\n1\n*MAT\n2\n*END\n");
    EXPECT_EQ(copy_of("*END\n"), "*END\n");
    EXPECT_EQ(positions(deck_index), Positions{0});
    EXPECT_EQ(positions(copy_index), Positions{0});
}

TEST_F(KeywordCopy, FilterStopsAtTheKeywordThatItStandsOn)
{
    const std::string deck = "1\n2\n*NODE\n3\n";
    infile_geom.open_text(deck, InputStream::smallest_window);
    keyword_filter();
    EXPECT_EQ(infile_geom.position(), 4U);
    keyword_filter();
    EXPECT_EQ(infile_geom.position(), 4U);
}

TEST_F(KeywordCopy, CopyThatCannotBeWrittenTells)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(keyword_copy_name);
    const std::string deck = "*NODE\n1\n*END\n";
    infile_geom.open_text(deck, InputStream::smallest_window);
    EXPECT_FALSE(keyword_of.open(keyword_copy_name));
    keyword_writer();
#ifdef _WIN32
    EXPECT_EQ(keyword_of.failure(), "Permission denied");
#else
    EXPECT_EQ(keyword_of.failure(), "Is a directory");
#endif
    EXPECT_EQ(positions(deck_index), (Positions{0, 8}));
}

// ---- against the plain way -----------------------------------------------------------------------------------------

namespace
{
std::string random_deck(Random& random)
{
    constexpr std::array keywords = {"*NODE",          "*NODE_RIGID",
                                     "*ELEMENT_SHELL", "*ELEMENT_SHELL_THICKNESS",
                                     "*ELEMENT_SPH",   "*ELEMENT_SOLID",
                                     "*SET_NODE",      "*SET_PART",
                                     "*SET_SEGMENT",   "*SET_SHELL_LIST",
                                     "*SET_SOLID",     "*SET_SOLID_TITLE",
                                     "*node",          "*ELEMENT_BEAM",
                                     "*MAT_ELASTIC",   "*",
                                     "*SET_BEAM",      "*END"};
    constexpr std::array<std::size_t, 12> borders = {47, 48, 49, 50, 63, 64, 65, 97, 98, 99, 147, 196};
    std::string deck;
    for (std::size_t lines = random.below(40); lines > 0; --lines) {
        std::string line;
        if (random.one_in(2)) line = random.pick(keywords);
        if (random.one_in(3)) {
            const std::size_t length = random.pick(borders);
            if (line.size() < length) line += random.text(length - line.size(), "x* ");
            if (random.one_in(2)) line += random.pick(keywords);
            if (random.one_in(4)) line += random.text(random.below(60), "y*");
        } else if (random.one_in(2)) {
            line += random.text(random.below(30), "ab*$\r ");
        }
        deck += line + '\n';
    }
    if (random.one_in(3) && !deck.empty()) deck.resize(random.below(deck.size()));
    return deck;
}
}  // namespace

TEST_F(KeywordCopy, RandomDecksGiveThePlainCopyAndItsIndexes)
{
    Random random(5);
    for (int i = 0; i < 2000; ++i) {
        const std::string deck = random_deck(random);
        const std::size_t window = random.pick(windows);
        const std::string expected = plain_copy(deck);
        ASSERT_EQ(copy_of(deck, window), expected) << deck;
        ASSERT_EQ(positions(deck_index), keyword_lines(deck)) << deck;
        ASSERT_EQ(positions(copy_index), keyword_lines(expected)) << deck;
    }
}

TEST_F(KeywordCopy, RandomFilesGiveTheSameAsTextInMemory)
{
    const TemporaryFolder folder;
    Random random(6);
    for (int i = 0; i < 200; ++i) {
        const std::string deck = random_deck(random);
        write_file("deck.k", deck);
        ASSERT_TRUE(infile_geom.open("deck.k", random.pick(windows)));
        ASSERT_EQ(copy(), plain_copy(deck));
        ASSERT_EQ(positions(deck_index), keyword_lines(deck));
    }
}

TEST_F(KeywordCopy, KeywordsFoundByTheIndexesAreThoseFoundBySearching)
{
    Random random(7);
    const auto keywords_of = [](const std::string& text, const KeywordIndex* index) {
        std::vector<std::string> found;
        infile.open_text(text, InputStream::smallest_window);
        infile.use_index(index);
        while (!infile.at_end()) {
            keyword();
            found.push_back(cbuffer + std::string("@") + std::to_string(infile.position()));
        }
        return found;
    };
    for (int i = 0; i < 300; ++i) {
        const std::string deck = random_deck(random);
        const std::string copy = copy_of(deck);
        ASSERT_EQ(keywords_of(deck, &deck_index), keywords_of(deck, nullptr)) << deck;
        ASSERT_EQ(keywords_of(copy, &copy_index), keywords_of(copy, nullptr)) << copy;
    }
}
