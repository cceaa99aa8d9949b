#include "deck/deck_reader.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/convert.h"

using deck::DeckReader;
using deck::Line;
using deck::Problem;

namespace fs = std::filesystem;

namespace
{
// A deck read whole: each line as "file:number text", keyword lines too; and what was found.
struct Reading {
    std::vector<std::string> lines;
    std::vector<std::string> problems;
    std::vector<std::string> blocks;
};

Reading read(const fs::path& main_deck, deck::ReaderLimits limits = {})
{
    Reading reading;
    DeckReader reader(
        main_deck, [&](const Problem& problem) { reading.problems.push_back(to_string(problem)); }, limits);
    const auto add = [&](deck::FileNumber file, std::size_t number, std::string_view text) {
        reading.lines.push_back(reader.file(file).name + ":" + std::to_string(number) + " " + std::string(text));
    };
    while (reader.next_block()) {
        const deck::Block& block = reader.block();
        reading.blocks.push_back(block.keyword.name);
        if (!block.keyword.name.empty()) add(block.file, block.line, block.keyword.text);
        for (Line line; reader.next_line(line);) add(line.file, line.number, line.text);
    }
    return reading;
}
using Strings = std::vector<std::string>;

TEST(DeckReader, DeliversEveryLineOnceInOrder)
{
    const TemporaryFolder folder;
    write_file("main.k", "$ head\n*KEYWORD\n*NODE\n       1\n$ remark\n       2\n*END\nrest\n*more\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.lines,
              (Strings{"main.k:1 $ head", "main.k:2 *KEYWORD", "main.k:3 *NODE", "main.k:4        1",
                       "main.k:5 $ remark", "main.k:6        2", "main.k:7 *END", "main.k:8 rest", "main.k:9 *more"}));
    EXPECT_EQ(reading.blocks, (Strings{"", "*KEYWORD", "*NODE", "*END"}));
}

TEST(DeckReader, EndOfAnIncludedFileIsOnlyItsOwn)
{
    const TemporaryFolder folder;
    write_file("main.k", "*KEYWORD\n*INCLUDE\na.k\n*NODE\n       9\n*END\n");
    write_file("a.k", "*KEYWORD\n*NODE\n       1\n*END\n*NODE\n       2\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.lines, (Strings{"main.k:1 *KEYWORD", "main.k:2 *INCLUDE", "main.k:3 a.k", "a.k:1 *KEYWORD",
                                      "a.k:2 *NODE", "a.k:3        1", "a.k:4 *END", "a.k:5 *NODE", "a.k:6        2",
                                      "main.k:4 *NODE", "main.k:5        9", "main.k:6 *END"}));
    EXPECT_EQ(reading.blocks, (Strings{"*KEYWORD", "*INCLUDE", "*KEYWORD", "*NODE", "*END", "*NODE", "*END"}));
    EXPECT_TRUE(reading.problems.empty());
}

TEST(DeckReader, MissingEndsAndNewlinesAreNoError)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\na.k\n*NODE");
    write_file("a.k", "*NODE\n       1");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*INCLUDE", "*NODE", "*NODE"}));
    EXPECT_TRUE(reading.problems.empty());
}

TEST(DeckReader, FollowsSeveralNamesAndNamesOverLines)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\na.k\n$ remark\nfolder +\n/b.k\n*END\n");
    write_file("a.k", "*A\n");
    fs::create_directory("folder");
    write_file("folder/b.k", "*B\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*INCLUDE", "*A", "*B", "*END"}));
    EXPECT_EQ(reading.lines[6], "folder/b.k:1 *B");
}

TEST(DeckReader, LooksBesideTheFileThenBesideTheMainDeckThenInThePaths)
{
    const TemporaryFolder folder;
    for (const char* name : {"sub", "extra"}) fs::create_directory(name);
    write_file("main.k", "*INCLUDE_PATH_RELATIVE\nextra\n*INCLUDE\nsub/a.k\n");
    write_file("sub/a.k", "*INCLUDE\nx.k\ny.k\nz.k\nnowhere.k\n");
    for (const char* name : {"sub/x.k", "x.k", "extra/x.k", "y.k", "extra/y.k", "extra/z.k"})
        write_file(name, "*" + std::string(name) + "\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks,
              (Strings{"*INCLUDE_PATH_RELATIVE", "*INCLUDE", "*INCLUDE", "*SUB/X.K", "*Y.K", "*EXTRA/Z.K"}));
    ASSERT_EQ(reading.problems.size(), 1u);
    EXPECT_EQ(reading.problems[0], "sub/a.k:5:1: include file \"nowhere.k\" is not found (tried: sub/nowhere.k, "
                                   "nowhere.k, extra/nowhere.k) [MD122]");
}

TEST(DeckReader, TellsOfCyclesAlsoThroughLinks)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\na.k\n*END\n");
    write_file("a.k", "*INCLUDE\nb.k\n*A\n");
    write_file("b.k", "*INCLUDE\nlink.k\nhard.k\nmain.k\n*B\n");
    fs::create_symlink("a.k", "link.k");
    fs::create_hard_link("b.k", "hard.k");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*INCLUDE", "*INCLUDE", "*INCLUDE", "*B", "*A", "*END"}));
    EXPECT_EQ(reading.problems, (Strings{"b.k:2:1: include file \"link.k\" includes itself [MD122]",
                                         "b.k:3:1: include file \"hard.k\" includes itself [MD122]",
                                         "b.k:4:1: include file \"main.k\" includes itself [MD122]"}));
}

TEST(DeckReader, OneFileMayBeIncludedTwice)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\na.k\na.k\n");
    write_file("a.k", "*A\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*INCLUDE", "*A", "*A"}));
    EXPECT_TRUE(reading.problems.empty());
}

TEST(DeckReader, DepthAndNumberOfFilesAreBounded)
{
    const TemporaryFolder folder;
    constexpr int depth = 50;
    for (int i = 0; i < depth; ++i)
        write_file("f" + std::to_string(i) + ".k", "*INCLUDE\nf" + std::to_string(i + 1) + ".k\n*BACK\n");
    const Reading deep = read("f0.k", {20, 1000});
    ASSERT_EQ(deep.problems.size(), 1u);
    EXPECT_EQ(deep.problems[0], "f20.k:2:1: include file \"f21.k\" is nested deeper than 20 [MD122]");
    EXPECT_EQ(deep.blocks.size(), 42u);

    write_file("many.k", "*INCLUDE\nb.k\nb.k\nb.k\n");
    write_file("b.k", "*B\n");
    EXPECT_EQ(read("many.k", {1000, 2}).problems,
              (Strings{"many.k:4:1: include file \"b.k\" is one of more than 2 include files [MD122]"}));
}

TEST(DeckReader, UnreadableIncludeFilesAreTold)
{
    const TemporaryFolder folder;
    fs::create_directory("folder.k");
    write_file("main.k", "*INCLUDE\nfolder.k\nlong.k\n*END\n");
    write_file("long.k", "*A\n" + std::string(deck::longest_line * 2, 'x'));
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*INCLUDE", "*A", "*END"}));
    ASSERT_EQ(reading.problems.size(), 2u);
    EXPECT_EQ(reading.problems[0], "main.k:2:1: include file \"folder.k\" is not found (tried: folder.k) [MD122]");
    EXPECT_EQ(reading.problems[1], "main.k:3:1: include file \"long.k\" cannot be read: line 2 is longer than 1048576 "
                                   "characters [MD122]");
}

TEST(DeckReader, MainDeckThatCannotBeReadIsAFault)
{
    const TemporaryFolder folder;
    EXPECT_THROW(read("nothing.k"), deck::Fault);
}

TEST(DeckReader, WhatIsThrownAtAProblemComesOut)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\nnothing.k\n");
    DeckReader reader("main.k", [](const Problem& problem) { throw deck::Fault(problem); });
    ASSERT_TRUE(reader.next_block());
    EXPECT_THROW(reader.next_block(), deck::Fault);
}

TEST(DeckReader, FormatsHoldForTheFilesBehind)
{
    const TemporaryFolder folder;
    write_file("main.k", "*KEYWORD LONG=Y\n*NODE\n*NODE -\n*INCLUDE\na.k\n*NODE\n");
    write_file("a.k", "*NODE\n*KEYWORD LONG=N\n*NODE\n");
    DeckReader reader("main.k", [](const Problem&) {});
    std::vector<deck::Format> formats;
    while (reader.next_block())
        if (reader.block().keyword.name == "*NODE") formats.push_back(reader.block().format);
    using enum deck::Format;
    EXPECT_EQ(formats, (std::vector{long_fields, standard, long_fields, standard, long_fields}));
}

TEST(DeckReader, ParametersAreKnownBehindTheirDefinition)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\nvalues.k\n*PARAMETER_EXPRESSION\nR b       2*a\n*NODE\n1\n2\n");
    write_file("values.k", "*PARAMETER\nRa               1.5\n*PARAMETER_LOCAL\nRhere            1.0\n*END\n");
    DeckReader reader("main.k", [](const Problem& problem) { FAIL() << to_string(problem); });
    while (reader.next_block() && reader.block().keyword.name != "*NODE") {}
    ASSERT_NE(reader.parameters().find("b"), nullptr);
    EXPECT_EQ(reader.parameters().find("b")->value.number, 3.0);
    EXPECT_EQ(reader.parameters().find("here"), nullptr);
}

TEST(DeckReader, NamesOfFilesMayBeParameters)
{
    const TemporaryFolder folder;
    write_file("main.k", "*PARAMETER\nCmesh        plate\n*INCLUDE\n&mesh\n&none\n");
    write_file("plate", "*A\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*PARAMETER", "*INCLUDE", "*A"}));
    EXPECT_EQ(reading.problems, (Strings{"main.k:5:1: \"&none\": parameter none is not defined [MD123]"}));
}

TEST(DeckReader, FileWhoseNameLooksLikeAnExpressionIsFound)
{
    const TemporaryFolder folder;
    write_file("main.k", "*INCLUDE\nnuts&bolts.k\n<final>.k\n&plate\n*PARAMETER\nCplate       other\n");
    write_file("nuts&bolts.k", "*A\n");
    write_file("<final>.k", "*B\n");
    write_file("&plate", "*C\n");
    const Reading reading = read("main.k");
    EXPECT_EQ(reading.blocks, (Strings{"*INCLUDE", "*A", "*B", "*C", "*PARAMETER"}));
    EXPECT_EQ(reading.problems, Strings{});
}

TEST(DeckReader, HoldsABlockOrAPartOfIt)
{
    const TemporaryFolder folder;
    write_file("main.k", "*NODE\r\n1\r\n2\n3\n*END\n");
    DeckReader reader("main.k", [](const Problem&) {});
    ASSERT_TRUE(reader.next_block());
    const deck::HeldBlock part = reader.hold(2);
    EXPECT_TRUE(part.head.carriage_return);
    ASSERT_EQ(part.lines.size(), 2u);
    EXPECT_TRUE(part.lines[0].carriage_return);
    EXPECT_FALSE(part.complete);
    const deck::HeldBlock rest = reader.hold();
    ASSERT_EQ(rest.lines.size(), 1u);
    EXPECT_EQ(rest.lines[0].text, "3");
    EXPECT_TRUE(rest.complete);
    ASSERT_TRUE(reader.next_block());
    EXPECT_TRUE(reader.block().ends_file);
    EXPECT_FALSE(reader.next_block());
    EXPECT_FALSE(reader.next_block());
}

TEST(DeckReader, CopyOfAFileIsItsLinesWithTheirEnds)
{
    const TemporaryFolder folder;
    const std::string text = "$\r\n*KEYWORD  \r\n\r\n*node\n 1\r\r\n*END\n\n*x\r";
    write_file("main.k", text);
    std::string copy;
    const auto add = [&](std::string_view line, bool carriage_return, bool newline) {
        copy += line;
        if (carriage_return) copy += '\r';
        if (newline) copy += '\n';
    };
    DeckReader reader("main.k", [](const Problem&) {});
    while (reader.next_block()) {
        const deck::Block& block = reader.block();
        if (!block.keyword.name.empty()) add(block.keyword.text, block.carriage_return, block.newline);
        for (Line line; reader.next_line(line);) add(line.text, line.carriage_return, line.newline);
    }
    EXPECT_EQ(copy, text);
}
}  // namespace
