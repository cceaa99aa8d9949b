#include "deck/line_file.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "deck/fault.h"
#include "support/convert.h"

using deck::Line;
using deck::LineEnds;
using deck::LineFile;

namespace
{
TEST(LineFile, TellsHowEachLineEnds)
{
    const TemporaryFolder folder;
    write_file("f", "a\r\n\n b \r\r\nlast");
    LineFile file("f");
    Line line;
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "a");
    EXPECT_EQ(line.number, 1u);
    EXPECT_TRUE(line.carriage_return);
    EXPECT_TRUE(line.newline);
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "");
    EXPECT_FALSE(line.carriage_return);
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, " b \r");
    EXPECT_TRUE(line.carriage_return);
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "last");
    EXPECT_EQ(line.number, 4u);
    EXPECT_FALSE(line.newline);
    EXPECT_FALSE(file.next(line));
    EXPECT_EQ(file.lines_read(), 4u);
}

TEST(LineFile, CarriageReturnsEndTheLinesOfAFileWithoutNewlines)
{
    const TemporaryFolder folder;
    write_file("f", "a\r\r b\rlast");
    LineFile file("f", LineEnds::as_meant);
    Line line;
    for (const std::string text : {"a", "", " b"}) {
        ASSERT_TRUE(file.next(line));
        EXPECT_EQ(line.text, text);
        EXPECT_TRUE(line.carriage_return);
        EXPECT_FALSE(line.newline);
        file.suspend();
    }
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "last");
    EXPECT_EQ(line.number, 4u);
    EXPECT_FALSE(line.carriage_return);
    EXPECT_FALSE(line.newline);
    EXPECT_FALSE(file.next(line));
}

TEST(LineFile, FileWithoutNewlinesIsOneLineToTheConverter)
{
    const TemporaryFolder folder;
    write_file("f", "a\r\r b\rlast");
    LineFile file("f");
    Line line;
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "a\r\r b\rlast");
    EXPECT_FALSE(file.next(line));
}

TEST(LineFile, CarriageReturnBeforeANewlineEndsNoLine)
{
    const TemporaryFolder folder;
    write_file("f", "a\rb\nc\r");
    LineFile file("f", LineEnds::as_meant);
    Line line;
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "a\rb");
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text, "c");
    EXPECT_TRUE(line.carriage_return);
    EXPECT_FALSE(line.newline);
    EXPECT_FALSE(file.next(line));
}

TEST(LineFile, EmptyFileHasNoLine)
{
    const TemporaryFolder folder;
    write_file("f", "");
    LineFile file("f");
    Line line;
    EXPECT_EQ(file.peek(), -1);
    EXPECT_FALSE(file.next(line));
}

TEST(LineFile, GoesOnAfterItWasSuspended)
{
    const TemporaryFolder folder;
    std::string text;
    for (int i = 0; i < 50000; ++i) text += "line " + std::to_string(i) + "\n";
    write_file("f", text);
    LineFile file("f");
    Line line;
    for (int i = 0; i < 50000; ++i) {
        if (i % 7001 == 0) file.suspend();
        EXPECT_EQ(file.peek(), 'l');
        ASSERT_TRUE(file.next(line));
        ASSERT_EQ(line.text, "line " + std::to_string(i));
    }
    EXPECT_FALSE(file.next(line));
}

TEST(LineFile, LinesMayBeLongButNotEndless)
{
    const TemporaryFolder folder;
    write_file("f", std::string(500000, 'x') + "\n" + std::string(deck::longest_line + 300000, 'y'));
    LineFile file("f");
    Line line;
    ASSERT_TRUE(file.next(line));
    EXPECT_EQ(line.text.size(), 500000u);
    EXPECT_THROW(file.next(line), deck::Fault);
}

TEST(LineFile, RefusesWhatIsNoRegularFile)
{
    const TemporaryFolder folder;
    EXPECT_THROW(LineFile("nothing"), deck::Fault);
    std::filesystem::create_directory("folder");
    EXPECT_THROW(LineFile("folder"), deck::Fault);
    EXPECT_THROW(LineFile("/dev/zero"), deck::Fault);
}
}  // namespace
