#include "deck/transformation.h"

#include <array>
#include <limits>
#include <string_view>

#include <gtest/gtest.h>

using deck::add_step;
using deck::Point;
using deck::Transformation;

namespace
{
Point moved(std::string_view option, const std::array<double, 7>& values, const Point& point)
{
    Transformation transformation;
    EXPECT_TRUE(add_step(transformation, option, values));
    return transformation(point);
}

void expect_at(const Point& point, double x, double y, double z)
{
    EXPECT_DOUBLE_EQ(point.x, x);
    EXPECT_DOUBLE_EQ(point.y, y);
    EXPECT_DOUBLE_EQ(point.z, z);
}

TEST(Transformation, Translates)
{
    expect_at(moved("TRANSL", {1, 2, 3}, {10, 20, 30}), 11, 22, 33);
}

TEST(Transformation, ScalesByEachFactorThatIsGiven)
{
    expect_at(moved("SCALE", {2, 0, -1}, {10, 20, 30}), 20, 20, -30);
}

TEST(Transformation, RotatesByDegreesAboutAnAxisThroughAPoint)
{
    expect_at(moved("ROTATE", {0, 0, 2, 0, 0, 0, 90}, {1, 0, 5}), 0, 1, 5);
    expect_at(moved("ROTATE", {0, 0, 1, 1, 1, 0, 180}, {2, 1, 0}), 0, 1, 0);
    expect_at(moved("ROTATE", {1, 0, 0, 0, 0, 0, -90}, {0, 1, 0}), 0, 0, -1);
}

TEST(Transformation, MirrorsAtThePlaneThroughTheFirstPoint)
{
    expect_at(moved("MIRROR", {1, 0, 0, 5, 0, 0}, {3, 7, 8}), -1, 7, 8);
}

TEST(Transformation, StepsFollowOneAnother)
{
    Transformation transformation;
    ASSERT_TRUE(add_step(transformation, "SCALE", {2, 2, 2}));
    ASSERT_TRUE(add_step(transformation, "TRANSL", {1, 0, 0}));
    expect_at(transformation({1, 1, 1}), 3, 2, 2);
    EXPECT_FALSE(transformation.is_identity());
    EXPECT_TRUE(Transformation{}.is_identity());
}

TEST(Transformation, RefusesWhatHasNoMatrixHere)
{
    Transformation transformation;
    EXPECT_FALSE(add_step(transformation, "ROTATE", {1, 2, 90}));              // about two points by their numbers
    EXPECT_FALSE(add_step(transformation, "ROTATE", {0, 0, 0, 0, 0, 0, 90}));  // about no axis
    EXPECT_FALSE(add_step(transformation, "MIRROR", {1, 1, 1, 1, 1, 1}));      // at no plane
    EXPECT_FALSE(add_step(transformation, "MIRROR", {0, 0, 0, 1, 0, 0, 1}));   // with its further flag
    EXPECT_FALSE(add_step(transformation, "POS6P", {1, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(add_step(transformation, "TRANSL", {std::numeric_limits<double>::infinity()}));
    EXPECT_TRUE(transformation.is_identity());
}

TEST(ContentChange, AddsUpFromTheInsideOutwards)
{
    deck::ContentChange inner;
    deck::ContentChange outer;
    EXPECT_TRUE(inner.is_none());
    inner.offsets = {1, 2, 3, 4, 5, 6, 7, 8};
    outer.offsets[0] = 100;
    ASSERT_TRUE(add_step(inner.transformation, "TRANSL", {1, 0, 0}));
    ASSERT_TRUE(add_step(outer.transformation, "SCALE", {10, 10, 10}));
    const deck::ContentChange both = combined(inner, outer);
    EXPECT_EQ(both.offset(deck::OffsetKind::node), 101);
    EXPECT_EQ(both.offset(deck::OffsetKind::other), 8);
    expect_at(both.transformation({1, 1, 1}), 20, 10, 10);
}
}  // namespace
