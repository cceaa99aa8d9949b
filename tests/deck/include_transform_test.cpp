// *INCLUDE_TRANSFORM and *DEFINE_TRANSFORMATION as the reader of a deck takes them.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "deck/deck_reader.h"
#include "support/convert.h"

using deck::OffsetKind;

namespace
{
struct Reading {
    std::vector<deck::SourceFile> files;
    std::vector<std::string> problems;
};

Reading read(const std::string& main_deck)
{
    write_file("main.k", main_deck);
    write_file("mesh.k", "*NODE\n");
    Reading reading;
    deck::DeckReader reader("main.k",
                            [&](const deck::Problem& problem) { reading.problems.push_back(to_string(problem)); });
    while (reader.next_block()) {}
    reading.files = reader.files();
    return reading;
}

TEST(IncludeTransform, OffsetsAreByKind)
{
    const TemporaryFolder folder;
    const Reading reading = read("*PARAMETER\nIoff             100\n*INCLUDE_TRANSFORM\nmesh.k\n"
                                 "      &off         2         3         4         5         6         7\n"
                                 "         8\n");
    ASSERT_EQ(reading.files.size(), 2u);
    const deck::ContentChange& change = reading.files[1].change;
    EXPECT_EQ(change.offset(OffsetKind::node), 100);
    EXPECT_EQ(change.offset(OffsetKind::element), 2);
    EXPECT_EQ(change.offset(OffsetKind::part), 3);
    EXPECT_EQ(change.offset(OffsetKind::material), 4);
    EXPECT_EQ(change.offset(OffsetKind::set), 5);
    EXPECT_EQ(change.offset(OffsetKind::curve), 6);
    EXPECT_EQ(change.offset(OffsetKind::definition), 7);
    EXPECT_EQ(change.offset(OffsetKind::other), 8);
    EXPECT_TRUE(change.transformation.is_identity());
    EXPECT_TRUE(reading.problems.empty());
}

TEST(IncludeTransform, TransformationIsTheDefinedOne)
{
    const TemporaryFolder folder;
    const Reading reading = read("*DEFINE_TRANSFORMATION\n         3\n"
                                 "TRANSL           1.0       0.0       0.0\n"
                                 "SCALE            2.0       2.0       2.0\n"
                                 "*INCLUDE_TRANSFORM\nmesh.k\n,,,,\n\n1.,1.,1.\n3\n");
    EXPECT_TRUE(reading.problems.empty());
    ASSERT_EQ(reading.files.size(), 2u);
    const deck::Point point = reading.files[1].change.transformation({1, 1, 1});
    EXPECT_DOUBLE_EQ(point.x, 4);
    EXPECT_DOUBLE_EQ(point.y, 2);
}

TEST(IncludeTransform, AddsUpThroughNestedFiles)
{
    const TemporaryFolder folder;
    write_file("inner.k", "*INCLUDE_TRANSFORM\nmesh.k\n        10\n");
    const Reading reading = read("*INCLUDE_TRANSFORM\ninner.k\n       100\n");
    ASSERT_EQ(reading.files.size(), 3u);
    EXPECT_EQ(reading.files[2].change.offset(OffsetKind::node), 110);
}

TEST(IncludeTransform, WhatCannotBeAppliedIsTold)
{
    const TemporaryFolder folder;
    const std::string begin = "*INCLUDE_TRANSFORM\nmesh.k\n\n";
    EXPECT_EQ(
        read(begin + "\n    1000.0\n").problems,
        (std::vector<std::string>{"main.k:2:1: *INCLUDE_TRANSFORM with a conversion of units in line 5 [MD124]"}));
    EXPECT_EQ(read(begin + "\n       0.0       0.0       0.0      FtoC\n").problems,
              (std::vector<std::string>{
                  "main.k:2:1: *INCLUDE_TRANSFORM with a conversion of temperatures in line 5 [MD124]"}));
    EXPECT_EQ(read(begin + "                    left_\n").problems,
              (std::vector<std::string>{"main.k:2:1: *INCLUDE_TRANSFORM with a prefix or suffix in line 4 [MD124]"}));
    EXPECT_EQ(
        read(begin + "\n\n         7\n").problems,
        (std::vector<std::string>{"main.k:2:1: *INCLUDE_TRANSFORM with undefined transformation 7 in line 6 [MD124]"}));
    EXPECT_EQ(read("*DEFINE_TRANSFORMATION_TITLE\nmirror, then move\n         7\nPOS6P              1\n" + begin +
                   "\n\n         7\n")
                  .problems,
              (std::vector<std::string>{
                  "main.k:6:1: *INCLUDE_TRANSFORM with transformation 7 (its step POS6P) in line 10 [MD124]"}));
    EXPECT_EQ(read("*INCLUDE_TRANSFORM\nmesh.k\n       abc\n").problems,
              (std::vector<std::string>{"main.k:2:1: *INCLUDE_TRANSFORM with \"abc\" is no number in line 3 [MD124]"}));
}

TEST(IncludeTransform, OtherKindsAreNotFollowed)
{
    const TemporaryFolder folder;
    const Reading reading = read("*INCLUDE_STAMPED_PART\nmesh.k\n");
    EXPECT_EQ(reading.files.size(), 1u);
    EXPECT_EQ(reading.problems,
              (std::vector<std::string>{"main.k:1:1: *INCLUDE_STAMPED_PART is not followed [MD121]"}));
}
}  // namespace
