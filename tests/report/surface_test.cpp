// The surface of a mesh is what one element has alone, and it looks outward.
#include "report/surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <utility>

#include "report/mesh_data.h"
#include "report/small_mesh.h"

namespace
{
using report::ElementKind;
using report::SetKind;
using report::Surface;
using report::SurfaceLimits;

std::size_t triangles(const Surface& surface)
{
    return static_cast<std::size_t>(
        std::count_if(surface.faces.begin(), surface.faces.end(), [](const auto& face) { return face[2] == face[3]; }));
}

std::array<double, 3> at(const Surface& surface, std::uint32_t node)
{
    return {surface.positions[3 * node], surface.positions[3 * node + 1], surface.positions[3 * node + 2]};
}

double six_volumes(const std::array<double, 3>& a, const std::array<double, 3>& b, const std::array<double, 3>& c)
{
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) + a[2] * (b[0] * c[1] - b[1] * c[0]);
}

// What the faces enclose: positive when they look outward.
double volume(const Surface& surface)
{
    double sum = 0;
    for (const auto& face : surface.faces) {
        sum += six_volumes(at(surface, face[0]), at(surface, face[1]), at(surface, face[2]));
        sum += six_volumes(at(surface, face[0]), at(surface, face[2]), at(surface, face[3]));
    }
    return sum / 6;
}

// Every edge is gone along once in each direction.
bool is_closed(const Surface& surface)
{
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> edges;
    for (const auto& face : surface.faces)
        for (std::size_t i = 0; i < 4; ++i) {
            const std::uint32_t from = face[i], to = face[(i + 1) % 4];
            if (from == to) continue;
            edges[std::minmax(from, to)] += from < to ? 1 : -1;
        }
    return std::all_of(edges.begin(), edges.end(), [](const auto& edge) { return edge.second == 0; });
}

// The eight corners of a cube are nodes 1 to 8 in the order of a hexahedron.
SmallMesh cube_nodes()
{
    SmallMesh mesh;
    mesh.nodes = {{1, {0, 0, 0}}, {2, {1, 0, 0}}, {3, {1, 1, 0}}, {4, {0, 1, 0}},
                  {5, {0, 0, 1}}, {6, {1, 0, 1}}, {7, {1, 1, 1}}, {8, {0, 1, 1}}};
    return mesh;
}

Surface one_solid(const std::array<std::int64_t, 8>& corners)
{
    SmallMesh mesh = cube_nodes();
    mesh.solid(1, 1, corners);
    return mesh.surface();
}

// Faces as sets of numbers of nodes, with part and element: what does not depend on the order of reading.
std::multiset<std::vector<std::int64_t>> described(const Surface& surface)
{
    std::multiset<std::vector<std::int64_t>> all;
    for (const Surface::Part& part : surface.parts)
        for (std::size_t i = part.first_face; i < part.first_face + part.faces; ++i) {
            std::vector<std::int64_t> face;
            for (const std::uint32_t node : surface.faces[i]) face.push_back(surface.node_numbers[node]);
            std::sort(face.begin(), face.end());
            face.push_back(part.id);
            face.push_back(surface.element_numbers[surface.face_elements[i]]);
            all.insert(face);
        }
    return all;
}

TEST(Surface, OfACubeIsSixQuadranglesThatLookOutward)
{
    const Surface surface = one_solid({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(surface.faces.size(), 6U);
    EXPECT_EQ(triangles(surface), 0U);
    EXPECT_TRUE(is_closed(surface));
    EXPECT_DOUBLE_EQ(volume(surface), 1);
    EXPECT_EQ(surface.all_faces, 6U);
    ASSERT_EQ(surface.solids, 1U);
    EXPECT_EQ(surface.corners[0], (std::array<std::int32_t, 8>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(Surface, OfATetrahedronIsFourTriangles)
{
    for (const auto& corners :
         {std::array<std::int64_t, 8>{1, 2, 4, 5, 5, 5, 5, 5}, std::array<std::int64_t, 8>{1, 2, 4, 4, 5, 5, 5, 5}}) {
        const Surface surface = one_solid(corners);
        EXPECT_EQ(surface.faces.size(), 4U);
        EXPECT_EQ(triangles(surface), 4U);
        EXPECT_TRUE(is_closed(surface));
        EXPECT_NEAR(volume(surface), 1.0 / 6, 1e-12);
    }
}

TEST(Surface, OfAWedgeIsThreeQuadranglesAndTwoTriangles)
{
    for (const auto& corners :
         {std::array<std::int64_t, 8>{1, 2, 6, 5, 4, 4, 8, 8}, std::array<std::int64_t, 8>{1, 2, 4, 4, 5, 6, 8, 8}}) {
        const Surface surface = one_solid(corners);
        EXPECT_EQ(surface.faces.size(), 5U);
        EXPECT_EQ(triangles(surface), 2U);
        EXPECT_TRUE(is_closed(surface));
        EXPECT_NEAR(std::abs(volume(surface)), 0.5, 1e-12);
    }
}

TEST(Surface, OfAPyramidIsAQuadrangleAndFourTriangles)
{
    const Surface surface = one_solid({1, 2, 3, 4, 5, 5, 5, 5});
    EXPECT_EQ(surface.faces.size(), 5U);
    EXPECT_EQ(triangles(surface), 4U);
    EXPECT_TRUE(is_closed(surface));
    EXPECT_NEAR(volume(surface), 1.0 / 3, 1e-12);
}

TEST(Surface, LeavesOutFacesWithoutArea)
{
    EXPECT_TRUE(one_solid({1, 1, 1, 1, 1, 1, 1, 1}).faces.empty());
    EXPECT_TRUE(one_solid({1, 2, 3, 4, 1, 2, 3, 4}).faces.size() <= 2);
    EXPECT_TRUE(one_solid({1, 2, 1, 2, 1, 2, 1, 2}).faces.empty());
}

TEST(Surface, HasNoFaceThatTwoSolidsOfAPartShare)
{
    SmallMesh mesh;
    mesh.block({2, 1, 1}, 1);
    const Surface surface = mesh.surface();
    EXPECT_EQ(surface.faces.size(), 10U);
    EXPECT_TRUE(is_closed(surface));
    EXPECT_DOUBLE_EQ(volume(surface), 2);
}

TEST(Surface, HasAFaceThatTwoPartsShareForEachOfThem)
{
    SmallMesh mesh;
    mesh.block({2, 1, 1}, 1);
    mesh.elements[1].part = 2;
    const Surface surface = mesh.surface();
    ASSERT_EQ(surface.parts.size(), 2U);
    EXPECT_EQ(surface.parts[0].faces, 6U);
    EXPECT_EQ(surface.parts[1].faces, 6U);
}

TEST(Surface, OfFiveTetrahedraInACubeIsTwelveTriangles)
{
    SmallMesh mesh = cube_nodes();
    mesh.solid(1, 1, {1, 2, 4, 5, 5, 5, 5, 5});
    mesh.solid(2, 1, {3, 4, 2, 7, 7, 7, 7, 7});
    mesh.solid(3, 1, {6, 5, 7, 2, 2, 2, 2, 2});
    mesh.solid(4, 1, {8, 7, 5, 4, 4, 4, 4, 4});
    mesh.solid(5, 1, {2, 7, 4, 4, 5, 5, 5, 5});
    const Surface surface = mesh.surface();
    EXPECT_EQ(surface.faces.size(), 12U);
    EXPECT_TRUE(is_closed(surface));
    EXPECT_NEAR(volume(surface), 1, 1e-12);
}

TEST(Surface, JoinsAHexahedronWithThePyramidUponIt)
{
    SmallMesh mesh = cube_nodes();
    mesh.nodes.emplace_back(9, std::array{0.5, 0.5, 2.0});
    mesh.solid(1, 1, {1, 2, 3, 4, 5, 6, 7, 8});
    mesh.solid(2, 1, {5, 6, 7, 8, 9, 9, 9, 9});
    const Surface surface = mesh.surface();
    EXPECT_EQ(surface.faces.size(), 9U);
    EXPECT_TRUE(is_closed(surface));
    EXPECT_NEAR(volume(surface), 4.0 / 3, 1e-12);
}

TEST(Surface, HoldsNodesOfTheSurfaceOnly)
{
    SmallMesh mesh;
    mesh.block({2, 2, 2}, 1);
    const Surface surface = mesh.surface();
    EXPECT_EQ(surface.node_numbers.size(), 26U);
    EXPECT_EQ(std::count(surface.node_numbers.begin(), surface.node_numbers.end(), 14), 0);
    EXPECT_EQ(surface.faces.size(), 24U);
}

TEST(Surface, MeasuresFromTheFirstNodeSoThatDigitsAreKept)
{
    SmallMesh mesh;
    mesh.block({1, 1, 1}, 1, {1e7, -1e7, 3e6});
    EXPECT_DOUBLE_EQ(volume(mesh.surface()), 1);
}

TEST(Surface, IsTheSameInAnyOrderOfTheElementsAndInSeveralReadings)
{
    SmallMesh mesh;
    mesh.block({12, 11, 10}, 1);
    mesh.block({7, 7, 7}, 2, {20, 0, 0});
    for (std::size_t i = 0; i < 300; ++i) mesh.elements[i].part = 3;
    const auto wanted = described(mesh.surface());
    EXPECT_EQ(mesh.readings, 1);
    std::shuffle(mesh.elements.begin(), mesh.elements.end(), std::mt19937(7));
    EXPECT_EQ(described(mesh.surface()), wanted);

    mesh.readings = 0;
    EXPECT_EQ(described(mesh.surface({.open_faces = 500})), wanted);
    EXPECT_GT(mesh.readings, 2);
    mesh.readings = 0;
    EXPECT_EQ(described(mesh.surface({.held_elements = 300})), wanted);
    EXPECT_GT(mesh.readings, 2);
}

TEST(Surface, OfABlockInOrderIsReadAtOnceWithFewFacesHeld)
{
    SmallMesh mesh;
    mesh.block({30, 30, 30}, 1);
    const Surface surface = mesh.surface({.open_faces = 6 * 30 * 30 + 30 * 30, .held_elements = 5500});
    EXPECT_EQ(mesh.readings, 1);
    EXPECT_EQ(surface.faces.size(), 5400U);
}

TEST(Surface, TellsEachElementOnceThoughItsFacesComeInSeveralReadings)
{
    SmallMesh mesh;
    for (int i = 0; i < 50; ++i) mesh.block({1, 1, 1}, 1, {2.0 * i, 0, 0});
    const Surface surface = mesh.surface({.open_faces = 20});
    EXPECT_EQ(surface.faces.size(), 300U);
    EXPECT_EQ(surface.element_numbers.size(), 50U);
}

TEST(Surface, IsThinnedEvenlyToTheSizeOfThePage)
{
    SmallMesh mesh;
    mesh.block({40, 40, 1}, 1);
    mesh.block({40, 40, 1}, 2, {0, 0, 5});
    const Surface whole = mesh.surface();
    const std::size_t third = report::mesh_size(whole) / 3;
    const Surface thinned = mesh.surface({.bytes = third});
    EXPECT_EQ(thinned.all_faces, whole.faces.size());
    EXPECT_LE(report::mesh_size(thinned), third);
    EXPECT_GE(report::mesh_size(thinned), third / 2);
    ASSERT_EQ(thinned.parts.size(), 2U);
    // By lot: three standard deviations.
    EXPECT_NEAR(static_cast<double>(thinned.parts[0].faces), static_cast<double>(thinned.parts[1].faces),
                0.15 * static_cast<double>(thinned.parts[0].faces));
    EXPECT_EQ(mesh.surface({.bytes = third}).faces, thinned.faces);
    const auto all = described(whole), some = described(thinned);
    EXPECT_TRUE(std::includes(all.begin(), all.end(), some.begin(), some.end()));
}

// Rows of 47 and layers of 47 by 47 are a trap for thinning by order.
TEST(Surface, IsThinnedAlikeOnAllSidesOfABlock)
{
    SmallMesh mesh;
    mesh.block({47, 47, 47}, 1);
    const Surface thinned = mesh.surface({.bytes = report::mesh_size(mesh.surface()) / 4});
    std::array<std::array<double, 2>, 3> sides{};  // faces by axis and end
    for (const auto& face : thinned.faces)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double first = at(thinned, face[0])[axis];
            if (std::all_of(face.begin(), face.end(),
                            [&](std::uint32_t node) { return at(thinned, node)[axis] == first; }))
                sides[axis][first > 20 ? 1 : 0] += 1;
        }
    const double average = static_cast<double>(thinned.faces.size()) / 6;
    for (const auto& axis : sides)
        for (const double side : axis) EXPECT_NEAR(side, average, 0.2 * average);
}

TEST(Surface, IsThinnedWhileItIsRead)
{
    SmallMesh mesh;
    mesh.block({30, 30, 1}, 1);
    for (std::int64_t node = 1; node <= 900; ++node) mesh.particle(node, 2);
    const Surface surface = mesh.surface({.kept_elements = 500, .kept_particles = 100});
    EXPECT_EQ(surface.all_faces, 2U * 900 + 4 * 30);
    EXPECT_EQ(surface.all_particles, 900U);
    EXPECT_LE(surface.element_numbers.size(), 500U);
    EXPECT_LE(surface.particles.size(), 100U);
    EXPECT_GE(surface.particles.size(), 50U);
}

TEST(Surface, HasShellsAndParticlesByPart)
{
    SmallMesh mesh = cube_nodes();
    mesh.particle(8, 7);
    mesh.shell(11, 5, {1, 2, 3, 4});
    mesh.shell(12, 5, {5, 6, 7, 7});
    mesh.solid(11, 5, {1, 2, 3, 4, 5, 6, 7, 8});
    mesh.particle(7, 3);
    mesh.parts = {{.id = 5, .title = "Plate", .section = 2, .material = 9}, {.id = 6, .title = "Nothing of it"}};
    const Surface surface = mesh.surface();
    ASSERT_EQ(surface.parts.size(), 3U);
    EXPECT_EQ(surface.parts[0].id, 3);
    EXPECT_EQ(surface.parts[0].particles, 1U);
    EXPECT_EQ(surface.node_numbers[surface.particles[surface.parts[0].first_particle]], 7);
    EXPECT_EQ(surface.parts[1].title, "Plate");
    EXPECT_EQ(surface.parts[1].section, 2);
    EXPECT_EQ(surface.parts[1].material, 9);
    EXPECT_EQ(surface.parts[1].faces, 8U);
    EXPECT_EQ(surface.parts[2].id, 7);
    EXPECT_EQ(surface.solids, 1U);
    EXPECT_EQ(surface.element_numbers, (std::vector<std::int32_t>{11, 11, 12}));
    EXPECT_EQ(triangles(surface), 1U);
    EXPECT_EQ(surface.particle_numbers, (std::vector<std::int32_t>{7, 8}));
}

TEST(Surface, LeavesOutWhatHasNodesThatAreNotDefined)
{
    SmallMesh mesh = cube_nodes();
    mesh.nodes.pop_back();
    mesh.solid(1, 1, {1, 2, 3, 4, 5, 6, 7, 8});
    mesh.shell(2, 2, {1, 2, 3, 4});
    mesh.particle(8, 2);
    mesh.particle(7, 2);
    const Surface surface = mesh.surface();
    ASSERT_EQ(surface.parts.size(), 2U);
    EXPECT_EQ(surface.parts[0].faces, 3U);
    EXPECT_EQ(surface.parts[1].first_face, 3U);
    EXPECT_EQ(surface.parts[1].faces, 1U);
    EXPECT_EQ(surface.particle_numbers, (std::vector<std::int32_t>{7}));
    EXPECT_EQ(surface.all_faces, 7U);
}

std::vector<std::uint32_t> members(const Surface& surface, std::size_t set)
{
    const auto begin = surface.members.begin() + static_cast<std::ptrdiff_t>(surface.sets[set].first);
    return {begin, begin + static_cast<std::ptrdiff_t>(surface.sets[set].count)};
}

TEST(Surface, KnowsTheMembersOfSetsThatAreSeen)
{
    SmallMesh mesh;
    mesh.block({3, 3, 3}, 4);  // node 22 and element 14 are inside
    mesh.shell(14, 9, {1, 2, 6, 5});
    mesh.sets = {{SetKind::node, 1, "N", {{22}, {1}, {64}, {99}}},
                 {SetKind::segment, 1, "S", {{1, 2, 6, 5}, {22, 2, 6, 5}, {1, 2, 6, 0}}},
                 {SetKind::part, 1, "P", {{9}, {10}}},
                 {SetKind::solid, 2, "", {{14}, {1}}},
                 {SetKind::shell, 3, "", {{14}, {1}}},
                 {SetKind::other, 4, "", {{1}}}};
    const Surface surface = mesh.surface();
    ASSERT_EQ(surface.sets.size(), 6U);
    const auto last = static_cast<std::uint32_t>(surface.node_numbers.size() - 1);
    EXPECT_EQ(members(surface, 0), (std::vector<std::uint32_t>{0, last}));
    EXPECT_EQ(surface.sets[0].all, 4U);
    EXPECT_EQ(surface.sets[0].title, "N");
    EXPECT_EQ(members(surface, 1), (std::vector<std::uint32_t>{0, 1, 5, 4, 0, 1, 5, 5}));
    EXPECT_EQ(surface.sets[1].all, 3U);
    EXPECT_EQ(members(surface, 2), (std::vector<std::uint32_t>{1}));
    ASSERT_EQ(surface.sets[3].count, 1U);
    EXPECT_EQ(surface.element_numbers[members(surface, 3)[0]], 1);
    ASSERT_EQ(surface.sets[4].count, 1U);
    EXPECT_EQ(members(surface, 4)[0], surface.solids);
    EXPECT_EQ(surface.sets[5].count, 0U);
    EXPECT_EQ(surface.sets[5].all, 1U);
}

TEST(Surface, BoundsTheMembersOfAllSets)
{
    SmallMesh mesh;
    mesh.block({3, 1, 1}, 4);
    for (std::int64_t set = 0; set < 10; ++set) mesh.sets.push_back({SetKind::node, set, "", {{1}, {2}, {3}}});
    const Surface surface = mesh.surface({.members = 7});
    EXPECT_EQ(surface.members.size(), 7U);
    EXPECT_EQ(surface.sets[2].count, 1U);
    EXPECT_EQ(surface.sets[9].all, 3U);
}

TEST(Surface, OfNothingIsEmpty)
{
    const Surface surface = SmallMesh{}.surface();
    EXPECT_TRUE(surface.faces.empty());
    EXPECT_TRUE(surface.parts.empty());
    EXPECT_EQ(surface.all_faces, 0U);
}
}  // namespace
