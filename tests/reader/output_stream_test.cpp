// The streams that everything is written to.
#include "reader/output_stream.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/convert.h"
#include "support/random.h"

namespace
{
constexpr std::size_t piece = 128 * 1024;                          // what it writes at once
constexpr std::size_t buffer = piece + OutputStream::largest_row;  // what it holds back at most

class OutputStreamTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stream_.open("out")); }

    // Closes the stream and reads back what it wrote.
    std::string written()
    {
        stream_.close();
        EXPECT_EQ(stream_.failure(), "");
        return contents("out");
    }

    const TemporaryFolder folder_;
    OutputStream stream_;
};
}  // namespace

TEST_F(OutputStreamTest, PrintFormatsAsPrintfDoes)
{
    print(stream_, "%10s:%10.3e|%-5i|%8i|%%\n", "da1", 0.5, 7, -12);
    EXPECT_EQ(written(), "       da1: 5.000e-01|7    |     -12|%\n");
}

TEST_F(OutputStreamTest, TextTakesPercentSignsAsTheyStand)
{
    text(stream_, "100 %s %d %\n");
    EXPECT_EQ(written(), "100 %s %d %\n");
}

TEST_F(OutputStreamTest, PrintLongerThanTheBufferIsWhole)
{
    const std::string longest(3 * buffer + 17, 'x');
    text(stream_, "before\n");
    print(stream_, "<%s>\n", longest.c_str());
    EXPECT_EQ(stream_.position(), 7 + longest.size() + 3);
    text(stream_, "after\n");
    EXPECT_EQ(written(), "before\n<" + longest + ">\nafter\n");
}

TEST_F(OutputStreamTest, PrintAtEveryDistanceFromTheBuffersEndIsWhole)
{
    for (std::size_t left = 0; left <= 12; ++left) {
        ASSERT_TRUE(stream_.open("out"));
        const std::string filler(buffer - left, '.');
        text(stream_, filler);
        print(stream_, "%s", "0123456789");
        EXPECT_EQ(stream_.position(), filler.size() + 10);
        EXPECT_TRUE(written() == filler + "0123456789") << left;
    }
}

TEST_F(OutputStreamTest, AppendGoesAcrossBordersOfTheBuffer)
{
    std::string expected;
    Random random(3);
    for (const std::size_t length : {buffer - 1, std::size_t{1}, std::size_t{1}, buffer, buffer + 1, 2 * buffer,
                                     std::size_t{0}, 5 * buffer + 3, buffer - 4}) {
        const std::string part = random.text(length, "abcdefgh\n");
        stream_.append(part);
        expected += part;
        EXPECT_EQ(stream_.position(), expected.size());
    }
    EXPECT_TRUE(written() == expected);
}

TEST_F(OutputStreamTest, WritesPiecesOfWholePages)
{
    std::vector<std::pair<std::uint64_t, std::size_t>> pieces;  // position and length
    stream_.open(
        [](void* context, std::uint64_t position, std::string_view characters) {
            static_cast<decltype(pieces)*>(context)->emplace_back(position, characters.size());
        },
        &pieces);
    for (int i = 0; i < 3000; ++i) {
        stream_.commit(stream_.room(OutputStream::largest_row) + 73);
        print(stream_, "%60s\n", "a row");
        text(stream_, "a line\n");
    }
    stream_.close();
    constexpr std::size_t length = 3000 * (73 + 61 + 7);
    ASSERT_EQ(pieces.size(), length / piece + 1);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        EXPECT_EQ(pieces[i].first, i * piece);
        EXPECT_EQ(pieces[i].second, i + 1 < pieces.size() ? piece : length % piece);
    }
}

TEST_F(OutputStreamTest, RowsComposedInTheBufferMixWithPrintAndText)
{
    std::string expected;
    Random random(4);
    while (expected.size() < 3 * buffer) {
        const std::string row = random.text(random.below(OutputStream::largest_row + 1), "0123456789 \n");
        switch (random.below(3)) {
        case 0: {
            char* const to = stream_.room(OutputStream::largest_row);
            row.copy(to, row.size());
            stream_.commit(to + row.size());
            break;
        }
        case 1:
            print(stream_, "%s", row.c_str());
            break;
        case 2:
            text(stream_, row);
            break;
        }
        expected += row;
        ASSERT_EQ(stream_.position(), expected.size());
    }
    EXPECT_TRUE(written() == expected);
}

// ---- overwriting ---------------------------------------------------------------------------------------------------

TEST_F(OutputStreamTest, OverwriteReplacesJustItsCharacters)
{
    text(stream_, "0123456789");
    stream_.overwrite(3, "abc");
    EXPECT_EQ(stream_.position(), 10U);
    text(stream_, "+");
    EXPECT_EQ(written(), "012abc6789+");
}

TEST_F(OutputStreamTest, OverwriteOfWhatIsLongOutOfTheBuffer)
{
    const std::string longest(3 * buffer, 'x');
    text(stream_, longest);
    stream_.overwrite(5, "abc");
    text(stream_, "end");
    EXPECT_TRUE(written() == "xxxxxabc" + longest.substr(8) + "end");
}

TEST_F(OutputStreamTest, OverwriteAcrossTheEndMakesTheFileLonger)
{
    text(stream_, "0123456789");
    stream_.overwrite(8, "abcd");
    EXPECT_EQ(stream_.position(), 12U);
    text(stream_, "+");
    EXPECT_EQ(stream_.position(), 13U);
    EXPECT_EQ(written(), "01234567abcd+");
}

TEST_F(OutputStreamTest, OverwriteAtTheVeryEndAppends)
{
    text(stream_, "01");
    stream_.overwrite(2, "ab");
    text(stream_, "+");
    EXPECT_EQ(written(), "01ab+");
}

TEST_F(OutputStreamTest, OverwriteAtTheBeginningTwice)
{
    text(stream_, "0123");
    stream_.overwrite(0, "ab");
    stream_.overwrite(1, "cd");
    EXPECT_EQ(stream_.position(), 4U);
    EXPECT_EQ(written(), "acd3");
}

// ---- opening, closing, failing -------------------------------------------------------------------------------------

TEST_F(OutputStreamTest, OpenEmptiesAnExistingFileAndStartsAtZero)
{
    write_file("old", "a long text that was there before");
    ASSERT_TRUE(stream_.open("old"));
    EXPECT_EQ(stream_.position(), 0U);
    EXPECT_EQ(contents("out"), "");
    text(stream_, "new");
    stream_.close();
    EXPECT_EQ(contents("old"), "new");
}

TEST_F(OutputStreamTest, OpeningAnotherFileWritesTheFirstOneOut)
{
    text(stream_, "first");
    ASSERT_TRUE(stream_.open("second"));
    text(stream_, "second");
    stream_.close();
    EXPECT_EQ(contents("out"), "first");
    EXPECT_EQ(contents("second"), "second");
}

TEST(OutputStream, IsWrittenOutWhenItGoesAway)
{
    const TemporaryFolder folder;
    {
        OutputStream stream;
        ASSERT_TRUE(stream.open("out"));
        text(stream, "kept");
    }
    EXPECT_EQ(contents("out"), "kept");
}

TEST(OutputStream, UnopenedStreamDropsEverything)
{
    OutputStream stream;
    EXPECT_FALSE(stream.is_open());
    text(stream, "lost");
    print(stream, "%s", "lost");
    stream.overwrite(0, "lost");
    for (int i = 0; i < 300; ++i) {
        char* const to = stream.room(OutputStream::largest_row);
        stream.commit(to + OutputStream::largest_row);
    }
    stream.close();
    EXPECT_EQ(stream.failure(), "");
}
