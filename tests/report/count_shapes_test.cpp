// Volumes, centres and shapes of elements that were computed by hand.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "report/element_shape.h"

namespace report
{
namespace
{
constexpr double close = 1e-12;

using Solid = std::array<std::int64_t, 8>;
using Corners = std::array<Vector, 8>;

constexpr Solid eight = {1, 2, 3, 4, 5, 6, 7, 8};
constexpr Corners cube = {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}};

// The solid whose nodes are these, by their numbers from 1.
Shape solid(const Solid& nodes, const std::vector<Vector>& points)
{
    Corners at{};
    for (std::size_t i = 0; i < 8; ++i) at[i] = points[static_cast<std::size_t>(nodes[i] - 1)];
    return shape_of_solid(nodes, at);
}

// The cube's corners, each moved.
template <class Move>
Shape moved_cube(const Move& move)
{
    Corners at = cube;
    for (Vector& corner : at) corner = move(corner);
    return shape_of_solid(eight, at);
}

void expect_centre(const Shape& shape, const Vector& centre)
{
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(shape.moment[i] / shape.size, centre[i], close);
}

// ---- hexahedra -----------------------------------------------------------------------------------------------------

TEST(SolidShape, OfACube)
{
    const Shape shape = shape_of_solid(eight, cube);
    EXPECT_NEAR(shape.size, 1, close);
    expect_centre(shape, {0.5, 0.5, 0.5});
    EXPECT_NEAR(shape.quality, 1, close);
    EXPECT_NEAR(shape.shortest_edge, 1, close);
}

TEST(SolidShape, OfABrick)
{
    const Shape shape = moved_cube([](const Vector& p) { return Vector{2 * p[0] + 10, 3 * p[1], 0.25 * p[2] - 4}; });
    EXPECT_NEAR(shape.size, 1.5, close);
    expect_centre(shape, {11, 1.5, -3.875});
    EXPECT_NEAR(shape.quality, 1, close);
    EXPECT_NEAR(shape.shortest_edge, 0.25, close);
}

TEST(SolidShape, OfASheared)
{
    const Shape shape = moved_cube([](const Vector& p) { return Vector{p[0] + 0.5 * p[2], p[1], p[2]}; });
    EXPECT_NEAR(shape.size, 1, close);
    expect_centre(shape, {0.75, 0.5, 0.5});
    EXPECT_NEAR(shape.quality, 1 / std::sqrt(1.25), close);
}

// The top is the surface z = 1 + x y: the volume is the integral of that, and its first moments are
// x: 1/2 + 1/6, z: (1 + 2/4 + 1/9) / 2.
TEST(SolidShape, OfACubeWithOneCornerPulledUp)
{
    Corners at = cube;
    at[6][2] = 2;
    const Shape shape = shape_of_solid(eight, at);
    EXPECT_NEAR(shape.size, 1.25, close);
    expect_centre(shape, {2.0 / 3 / 1.25, 2.0 / 3 / 1.25, 29.0 / 36 / 1.25});
}

// x = u + v w / 2 and so on in turn has the Jacobian 1 - (u^2 + v^2 + w^2) / 4 + u v w / 4. Its integral is
// 1 - 1/4 + 1/32, and that of its product with x is 67/144. One point in the middle would give 27/32.
TEST(SolidShape, OfAHexahedronWithAllFacesWarped)
{
    const Shape shape = moved_cube([](const Vector& p) {
        return Vector{p[0] + p[1] * p[2] / 2, p[1] + p[2] * p[0] / 2, p[2] + p[0] * p[1] / 2};
    });
    EXPECT_NEAR(shape.size, 25.0 / 32, close);
    expect_centre(shape, {134.0 / 225, 134.0 / 225, 134.0 / 225});
    EXPECT_NEAR(shape.quality, 0.5 / std::pow(1.5, 1.5), close);  // at (1, 1, 1): edges (1, 1/2, 1/2) and so on
}

TEST(SolidShape, KeepsItsDigitsFarFromTheOrigin)
{
    const Shape shape = moved_cube([](const Vector& p) { return Vector{p[0] + 1e6, p[1] - 3e6, p[2] + 2e6}; });
    EXPECT_EQ(shape.size, 1);
    EXPECT_NEAR(shape.moment[0], 1e6 + 0.5, 1e-6);
}

TEST(SolidShape, IsNegativeInsideOut)
{
    const Shape shape = solid({5, 6, 7, 8, 1, 2, 3, 4}, {cube.begin(), cube.end()});
    EXPECT_NEAR(shape.size, -1, close);
    EXPECT_NEAR(shape.quality, -1, close);
}

TEST(SolidShape, IsBadWhereOneCornerIsPushedIn)
{
    Corners at = cube;
    at[6] = {0.3, 0.3, 0.3};  // behind the plane of its three neighbours, which is x + y + z = 2
    EXPECT_LT(shape_of_solid(eight, at).quality, 0);
}

TEST(SolidShape, IsFlatWithoutHeight)
{
    const Shape shape = moved_cube([](const Vector& p) { return Vector{p[0], p[1], 0}; });
    EXPECT_EQ(shape.size, 0);
    EXPECT_EQ(shape.quality, 0);
    EXPECT_EQ(shape.shortest_edge, 0);  // between different nodes in one place
}

// ---- with repeated nodes -------------------------------------------------------------------------------------------

// Four corners of a cube, of which it fills a third. The first three turn to the left as seen from the fourth.
TEST(SolidShape, OfARegularTetrahedron)
{
    const std::vector<Vector> points = {{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}};
    for (const Solid& nodes :
         {Solid{1, 3, 2, 4, 4, 4, 4, 4}, Solid{1, 3, 2, 2, 4, 4, 4, 4}, without_zeros({1, 3, 2, 4, 0, 0, 0, 0})}) {
        const Shape shape = solid(nodes, points);
        EXPECT_NEAR(shape.size, 8.0 / 3, close);
        for (const double moment : shape.moment) EXPECT_NEAR(moment, 0, close);
        EXPECT_NEAR(shape.quality, 1, close);
        EXPECT_NEAR(shape.shortest_edge, std::sqrt(8.0), close);
    }
    for (const Solid& nodes : {Solid{1, 2, 3, 4, 4, 4, 4, 4}, Solid{1, 2, 3, 3, 4, 4, 4, 4}}) {
        const Shape shape = solid(nodes, points);
        EXPECT_NEAR(shape.size, -8.0 / 3, close);
        EXPECT_NEAR(shape.quality, -1, close);
    }
}

TEST(SolidShape, OfTheCornerOfACube)
{
    const Shape shape = solid({1, 2, 3, 4, 4, 4, 4, 4}, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
    EXPECT_NEAR(shape.size, 1.0 / 6, close);
    expect_centre(shape, {0.25, 0.25, 0.25});
    EXPECT_NEAR(shape.quality, std::sqrt(0.5), close);  // at the other three corners: 1 by 1 root 2 root 2
}

TEST(SolidShape, OfAWedge)
{
    const double height = std::sqrt(0.75);
    // on a side, with its ridge along y
    const Shape lying = solid({1, 2, 3, 4, 5, 5, 6, 6},
                              {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.5, 0, height}, {0.5, 1, height}});
    EXPECT_NEAR(lying.size, height / 2, close);
    expect_centre(lying, {0.5, 0.5, height / 3});
    EXPECT_NEAR(lying.quality, 1, close);
    EXPECT_NEAR(lying.shortest_edge, 1, close);
    // on its triangle
    const Shape standing = solid({1, 2, 3, 3, 4, 5, 6, 6},
                                 {{0, 0, 0}, {1, 0, 0}, {0.5, height, 0}, {0, 0, 1}, {1, 0, 1}, {0.5, height, 1}});
    EXPECT_NEAR(standing.size, height / 2, close);
    expect_centre(standing, {0.5, height / 3, 0.5});
    EXPECT_NEAR(standing.quality, 1, close);
}

TEST(SolidShape, OfAPyramid)
{
    const double height = std::sqrt(0.5);
    const std::vector<Vector> points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.5, 0.5, height}};
    const Shape shape = solid({1, 2, 3, 4, 5, 5, 5, 5}, points);
    EXPECT_NEAR(shape.size, height / 3, close);
    expect_centre(shape, {0.5, 0.5, height / 4});
    EXPECT_NEAR(shape.quality, 1, close);
    EXPECT_NEAR(shape.shortest_edge, 1, close);
    const Shape turned = solid({4, 3, 2, 1, 5, 5, 5, 5}, points);
    EXPECT_NEAR(turned.size, -height / 3, close);
    EXPECT_LT(turned.quality, 0);
}

// ---- shells --------------------------------------------------------------------------------------------------------

TEST(ShellShape, OfASquareInSpace)
{
    const Shape shape = shape_of_shell({1, 2, 3, 4}, {{{0, 0, 0}, {3, 4, 0}, {3, 4, 5}, {0, 0, 5}}});
    EXPECT_NEAR(shape.size, 25, close);
    expect_centre(shape, {1.5, 2, 2.5});
    EXPECT_NEAR(shape.quality, 1, close);
    EXPECT_NEAR(shape.shortest_edge, 5, close);
}

TEST(ShellShape, OfATrapezoid)
{
    const Shape shape = shape_of_shell({1, 2, 3, 4}, {{{0, 0, 0}, {2, 0, 0}, {1, 1, 0}, {0, 1, 0}}});
    EXPECT_NEAR(shape.size, 1.5, close);
    expect_centre(shape, {(0.5 + 0.5 * 4 / 3) / 1.5, (0.5 + 0.5 / 3) / 1.5, 0});  // a square and half of one
    EXPECT_NEAR(shape.quality, std::sqrt(0.5), close);
}

TEST(ShellShape, IsNegativeWhereACornerIsPushedIn)
{
    const Shape shape = shape_of_shell({1, 2, 3, 4}, {{{0, 0, 0}, {2, 0, 0}, {0.5, 0.5, 0}, {0, 2, 0}}});
    EXPECT_NEAR(shape.size, 1, close);
    expect_centre(shape, {0.5, 0.5, 0});  // two triangles of one size, centres (5/6, 1/6) and (1/6, 5/6)
    EXPECT_LT(shape.quality, 0);
}

TEST(ShellShape, OfATriangle)
{
    const double height = std::sqrt(0.75);
    for (const std::int64_t last : {3, 0}) {
        const Shape shape = shape_of_shell({1, 2, 3, last}, {{{0, 0, 0}, {1, 0, 0}, {0.5, height, 0}, {9, 9, 9}}});
        EXPECT_NEAR(shape.size, height / 2, close);
        expect_centre(shape, {0.5, height / 3, 0});
        EXPECT_NEAR(shape.quality, 1, close);
        EXPECT_NEAR(shape.shortest_edge, 1, close);
    }
}
}  // namespace
}  // namespace report
