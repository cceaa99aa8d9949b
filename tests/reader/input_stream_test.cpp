// The stream that decks are read from, against the text as it is meant to be read: the file, the newline that its last
// line lacks, and endless "*END" lines.
#include "reader/input_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "reader/file_position.h"
#include "support/convert.h"
#include "support/keyword_lines.h"
#include "support/random.h"

namespace
{
constexpr std::size_t smallest = InputStream::smallest_window;
constexpr std::array<std::size_t, 4> windows = {128, 129, 200, 4096};

// The same text, read the plain way.
class NaiveStream
{
public:
    explicit NaiveStream(std::string text) : size_(text.size()), text_(std::move(text))
    {
        if (!text_.empty() && text_.back() != '\n') text_ += '\n';
    }

    [[nodiscard]] char at(Position p) const
    {
        return p < text_.size() ? text_[static_cast<std::size_t>(p)] : "*END\n"[(p - text_.size()) % 5];
    }
    [[nodiscard]] std::string rest_of_line() const
    {
        std::string rest;
        for (Position p = position; at(p) != '\n'; ++p) rest += at(p);
        return rest;
    }
    void skip_line() { position += rest_of_line().size() + 1; }
    void to_keyword()
    {
        if (at(position) == '*') return;
        do {
            ++position;
        } while (at(position) != '*' || at(position - 1) != '\n');
    }
    [[nodiscard]] Position size() const { return size_; }
    [[nodiscard]] bool at_end() const { return position >= size_; }

    // To the next line with an initial; 'E' must be one of them, since the text ends in "*END".
    void to_keyword(Initials wanted)
    {
        for (to_keyword(); !wanted.has(at(position + 1)); to_keyword()) skip_line();
    }

    Position position = 0;

private:
    Position size_;
    std::string text_;
};

// A text with lines of all lengths, some beginning with "*", some with a "*" inside.
std::string random_text(Random& random, std::size_t size)
{
    using namespace std::string_view_literals;
    const std::size_t typical_line = 1 + random.below(150);
    std::string text;
    while (text.size() < size) {
        if (random.one_in(3)) text += random.one_in(8) ? '$' : '*';
        text += random.text(random.below(typical_line), "abcXYZ 019.*$\r\t\0"sv);
        text += '\n';
    }
    text.resize(size);
    return text;
}

// Does the same to both streams at random, and compares what they tell.
void walk(InputStream& stream, NaiveStream& naive, std::size_t window, Random& random, int steps)
{
    for (int step = 0; step < steps; ++step) {
        switch (random.below(13)) {
        case 0:
        case 1:
            ASSERT_EQ(stream.next(), naive.at(naive.position));
            ++naive.position;
            break;
        case 2:
            ASSERT_EQ(stream.peek(), naive.at(naive.position));
            break;
        case 3:
            for (std::size_t times = 1 + random.below(3); times > 0 && naive.position > 0; --times) {
                stream.back();
                --naive.position;
            }
            break;
        case 4:
        case 5: {
            const std::size_t columns = 1 + random.below(std::min<std::size_t>(window - 1, 80));
            const std::string seen{stream.ahead(columns)};
            ASSERT_EQ(seen, naive.rest_of_line().substr(0, columns));
            const std::size_t taken = random.below(seen.size() + 1);
            stream.advance(taken);
            naive.position += taken;
            break;
        }
        case 6: {
            std::string_view line;
            const std::string expected = naive.rest_of_line();
            const bool whole = stream.whole_line(line);
            if (whole) {
                ASSERT_EQ(line, expected);
                const std::size_t taken = random.below(line.size() + 2);  // perhaps the newline too
                stream.advance(taken);
                naive.position += taken;
            } else {
                ASSERT_GT(expected.size() + 2, window) << "a line that fits was not given whole";
            }
            break;
        }
        case 7:
        case 8:
            stream.skip_line();
            naive.skip_line();
            break;
        case 9:
            stream.to_keyword();
            naive.to_keyword();
            break;
        case 12: {
            Initials wanted;
            for (const char c : "E" + random.text(random.below(3), "aXZ9*")) wanted.add(c);
            naive.to_keyword(wanted);
            for (stream.to_keyword(wanted); !wanted.has(naive.at(stream.position() + 1)); stream.to_keyword(wanted)) {
                ASSERT_LT(stream.position(), naive.position);
                stream.skip_line();
            }
            break;
        }
        case 10: {
            const Position to = random.one_in(2) ? random.below(static_cast<std::size_t>(naive.size()) + 30)
                                                 : naive.position + random.below(2 * window) -
                                                       std::min<Position>(naive.position, window);
            stream.seek(to);
            naive.position = to;
            break;
        }
        case 11:
            if (!random.one_in(4)) break;
            stream.rewind();
            naive.position = 0;
            break;
        }
        ASSERT_EQ(stream.position(), naive.position);
        ASSERT_EQ(stream.at_end(), naive.at_end());
        ASSERT_EQ(stream.size(), naive.size());
    }
    EXPECT_EQ(stream.failure(), "");
}

// Texts of many sizes, each with all windows, with and without the index.
template <class Open>
void walk_over_texts(std::uint32_t seed, const std::vector<std::size_t>& sizes, Open&& open)
{
    Random random(seed);
    for (const std::size_t size : sizes) {
        const std::string text = random_text(random, size);
        const KeywordIndex index = index_of(text);
        for (const std::size_t window : windows) {
            for (const bool indexed : {false, true}) {
                SCOPED_TRACE(testing::Message() << "size " << size << ", window " << window << ", index " << indexed);
                InputStream stream;
                open(stream, text, window);
                if (indexed) stream.use_index(&index);
                NaiveStream naive(text);
                walk(stream, naive, window, random, 300);
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

std::vector<std::size_t> sizes_up_to(std::size_t last)
{
    std::vector<std::size_t> sizes;
    for (std::size_t size = 0; size <= last; ++size) sizes.push_back(size);
    for (const std::size_t border : {4095U, 4096U, 4097U, 8191U, 20000U}) sizes.push_back(border);
    return sizes;
}

std::string read_on(InputStream& stream, std::size_t count)
{
    std::string text;
    while (text.size() < count) text += stream.next();
    return text;
}
}  // namespace

TEST(InputStream, TellsOfTextInMemoryWhatAPlainReaderTells)
{
    walk_over_texts(1, sizes_up_to(300), [](InputStream& stream, const std::string& text, std::size_t window) {
        stream.open_text(text, window);
    });
}

TEST(InputStream, TellsOfAFileWhatAPlainReaderTells)
{
    const TemporaryFolder folder;
    walk_over_texts(2, sizes_up_to(140), [](InputStream& stream, const std::string& text, std::size_t window) {
        write_file("deck.k", text);
        ASSERT_TRUE(stream.open("deck.k", window));
        EXPECT_TRUE(stream.is_open());
    });
}

TEST(InputStream, LineThatJustFitsTheWindowIsGivenWholeAtEveryPlaceInIt)
{
    for (const std::size_t window : windows) {
        for (std::size_t length = window - 4; length <= window + 2; ++length) {
            for (const std::size_t before : {std::size_t{0}, std::size_t{1}, window / 2, window - 1, window}) {
                const std::string line(length, 'x');
                const std::string text = std::string(before, 'a') + "\n" + line + "\nnext\n";
                InputStream stream;
                stream.open_text(text, window);
                stream.skip_line();
                std::string_view seen;
                const bool whole = stream.whole_line(seen);
                if (length + 2 <= window) {
                    EXPECT_TRUE(whole) << window << " " << length << " " << before;
                }
                if (whole) {
                    EXPECT_EQ(seen, line);
                }
                EXPECT_EQ(stream.position(), before + 1);
                stream.skip_line();
                EXPECT_EQ(stream.ahead(10), "next");
            }
        }
    }
}

TEST(InputStream, EmptyTextIsEndlessEndLines)
{
    InputStream stream;
    stream.open_text("", smallest);
    EXPECT_TRUE(stream.at_end());
    EXPECT_EQ(read_on(stream, 200).substr(0, 15), "*END\n*END\n*END\n");
}

TEST(InputStream, LastLineWithoutNewlineReadsAsIfItHadOne)
{
    InputStream stream;
    stream.open_text("*NODE\n12", smallest);
    EXPECT_EQ(read_on(stream, 19), "*NODE\n12\n*END\n*END\n");
}

TEST(InputStream, StreamThatWasNeverOpenedIsEndlessEndLines)
{
    InputStream stream;
    EXPECT_FALSE(stream.is_open());
    EXPECT_EQ(stream.size(), 0U);
    std::string_view line;
    EXPECT_TRUE(stream.whole_line(line));
    EXPECT_EQ(line, "*END");
    EXPECT_EQ(read_on(stream, 300).substr(0, 10), "*END\n*END\n");
}

TEST(InputStream, ClosedStreamIsEndlessEndLines)
{
    InputStream stream;
    stream.open_text("*NODE\n", smallest);
    stream.skip_line();
    stream.close();
    EXPECT_EQ(stream.position(), 0U);
    EXPECT_EQ(read_on(stream, 10), "*END\n*END\n");
}

TEST(InputStream, WindowSmallerThanTheSmallestWorksAsTheSmallest)
{
    const std::string text = "a line of more than a few characters\n*END\n";
    InputStream stream;
    stream.open_text(text, 0);
    EXPECT_EQ(stream.ahead(40), "a line of more than a few characters");
    EXPECT_EQ(read_on(stream, text.size()), text);
}

TEST(InputStream, OpenedAgainForgetsWindowIndexAndPosition)
{
    const TemporaryFolder folder;
    write_file("first", "*AAA\n*BBB\n");
    write_file("second", "ccc\nddd\n*EEE\n");
    const KeywordIndex index = index_of(Positions{0, 5});
    InputStream stream;
    ASSERT_TRUE(stream.open("first", smallest));
    stream.use_index(&index);
    stream.skip_line();
    EXPECT_EQ(stream.next(), '*');
    ASSERT_TRUE(stream.open("second", 100));
    EXPECT_EQ(stream.position(), 0U);
    EXPECT_EQ(stream.size(), 13U);
    stream.to_keyword();  // by the first file's index it would end at 5
    EXPECT_EQ(stream.position(), 8U);
}

TEST(InputStream, StarInMidLineBeginsAKeywordOnlyAtThePresentPosition)
{
    const std::string text = "ab*cd\n  *ef\n*GH\n";
    const KeywordIndex index = index_of(text);
    for (const bool indexed : {false, true}) {
        InputStream stream;
        stream.open_text(text, smallest);
        if (indexed) stream.use_index(&index);
        stream.seek(2);
        stream.to_keyword();
        EXPECT_EQ(stream.position(), 2U);
        stream.next();
        stream.to_keyword();
        EXPECT_EQ(stream.position(), 12U);
    }
}

TEST(InputStream, KeywordBehindTheLastOneIsTheFirstEndLine)
{
    for (const std::string text : {"*A\nb\nc\n", "*A\nb\nc"}) {
        const KeywordIndex index = index_of(text);
        for (const bool indexed : {false, true}) {
            InputStream stream;
            stream.open_text(text, smallest);
            if (indexed) stream.use_index(&index);
            stream.next();
            stream.to_keyword();
            EXPECT_EQ(stream.position(), 7U);
            EXPECT_TRUE(stream.at_end());
            EXPECT_EQ(stream.ahead(5), "*END");
        }
    }
}

TEST(InputStream, RefusedFileClosesTheOneThatWasOpen)
{
    const TemporaryFolder folder;
    write_file("deck.k", "text\n");
    InputStream stream;
    ASSERT_TRUE(stream.open("deck.k", smallest));
    EXPECT_FALSE(stream.open("missing", smallest));
    EXPECT_EQ(read_on(stream, 5), "*END\n");
}

TEST(InputStream, EmptyFileOpens)
{
    const TemporaryFolder folder;
    write_file("deck.k", "");
    InputStream stream;
    ASSERT_TRUE(stream.open("deck.k", smallest));
    EXPECT_EQ(stream.size(), 0U);
    EXPECT_EQ(read_on(stream, 5), "*END\n");
    EXPECT_EQ(stream.failure(), "");
}

// ---- a file that shrinks while it is read --------------------------------------------------------------------------

class ShrinkingFile : public testing::Test
{
protected:
    // A deck of 1000 lines of 10 characters, a keyword line every 100.
    void SetUp() override
    {
        for (int i = 0; i < 1000; ++i) text_ += i % 100 == 0 ? "*KEYWORD1\n" : "data line\n";
        write_file("deck.k", text_);
    }

    const TemporaryFolder folder_;
    std::string text_;
};

TEST_F(ShrinkingFile, ReadsAsIfItEndedThereAndTells)
{
    for (const std::size_t window : windows) {
        for (const std::size_t left : {5000U, 5003U, 9999U}) {
            write_file("deck.k", text_);
            InputStream stream;
            ASSERT_TRUE(stream.open("deck.k", window));
            std::string read = read_on(stream, 15);
            std::filesystem::resize_file("deck.k", left);
            read += read_on(stream, left - 15 + 11);
            // A newline stands behind the cut also when the last whole line ended there.
            EXPECT_EQ(read, text_.substr(0, left) + "\n*END\n*END\n") << window << " " << left;
            EXPECT_NE(stream.failure(), "") << window << " " << left;
            EXPECT_TRUE(stream.at_end());
        }
    }
}

TEST_F(ShrinkingFile, EmptiedAtOnceStillEndsInEndLines)
{
    for (const std::size_t window : windows) {
        write_file("deck.k", text_);
        InputStream stream;
        ASSERT_TRUE(stream.open("deck.k", window));
        read_on(stream, 3);
        std::filesystem::resize_file("deck.k", 0);
        std::size_t lines = 0;
        for (std::string_view line; line != "*END" && lines < 2000; ++lines) {
            stream.skip_line();
            line = stream.ahead(6);
        }
        EXPECT_LT(lines, 2000U) << window;
        EXPECT_NE(stream.failure(), "") << window;
    }
}

TEST_F(ShrinkingFile, JumpsByTheIndexOfTheLongerFileEndInEndLines)
{
    const KeywordIndex index = index_of(text_);
    for (const std::size_t window : windows) {
        for (const std::size_t left : {0U, 1500U, 8004U}) {
            write_file("deck.k", text_);
            InputStream stream;
            ASSERT_TRUE(stream.open("deck.k", window));
            stream.use_index(&index);
            std::filesystem::resize_file("deck.k", left);
            std::size_t keywords = 0;
            for (bool end = false; !end && keywords < 30; ++keywords) {
                stream.to_keyword();
                end = stream.ahead(5) == "*END";
                stream.skip_line();
            }
            EXPECT_LT(keywords, 30U) << window << " " << left;
            EXPECT_NE(stream.failure(), "") << window << " " << left;
        }
    }
}

TEST_F(ShrinkingFile, FailureStaysUntilTheStreamIsOpenedAgain)
{
    InputStream stream;
    ASSERT_TRUE(stream.open("deck.k", smallest));
    std::filesystem::resize_file("deck.k", 20);
    stream.seek(9000);
    stream.next();
    EXPECT_NE(stream.failure(), "");
    stream.rewind();
    EXPECT_EQ(read_on(stream, 20), text_.substr(0, 20));
    EXPECT_NE(stream.failure(), "");
    stream.close();
    EXPECT_NE(stream.failure(), "");
    ASSERT_TRUE(stream.open("deck.k", smallest));
    EXPECT_EQ(stream.failure(), "");
    EXPECT_EQ(stream.size(), 20U);
}

TEST_F(ShrinkingFile, FileThatGrowsIsReadToItsFirstLength)
{
    InputStream stream;
    ASSERT_TRUE(stream.open("deck.k", smallest));
    write_file("deck.k", text_ + "*MORE\n");
    EXPECT_EQ(read_on(stream, text_.size() + 5), text_ + "*END\n");
    EXPECT_EQ(stream.failure(), "");
}

// Beyond what 31 and 32 bits can count: most of the file is a hole.
TEST(LongDeck, IsReadBehindTwoAndFourGiB)
{
    const TemporaryFolder folder;
    for (const std::int64_t before : {std::int64_t{1} << 31, (std::int64_t{1} << 32) + 10}) {
        std::FILE* const file = std::fopen("deck.k", "wb");
        ASSERT_NE(file, nullptr);
        ASSERT_EQ(seek_file(file, before, SEEK_SET), 0);
        ASSERT_GE(std::fputs("\n*NODE\n*EN", file), 0);
        ASSERT_EQ(tell_file(file), before + 10);
        ASSERT_EQ(std::fclose(file), 0);

        InputStream stream;
        ASSERT_TRUE(stream.open("deck.k", 4096));
        EXPECT_EQ(stream.size(), static_cast<Position>(before) + 10);
        stream.seek(static_cast<Position>(before) + 1);
        EXPECT_EQ(read_on(stream, 9), "*NODE\n*EN");
        EXPECT_EQ(stream.next(), '\n');
        EXPECT_EQ(stream.failure(), "");
    }
}
