#include "report/element_shape.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace report
{

namespace
{
using Nodes = std::array<std::int64_t, 8>;
using Points = std::array<Vector, 8>;
using Places = std::array<std::size_t, 4>;

constexpr double infinite = std::numeric_limits<double>::infinity();

// What corners of the regular forms have for their scaled Jacobian, turned round.
constexpr double regular_tetrahedron = std::numbers::sqrt2;  // pyramid, too
constexpr double regular_triangle = 2 * std::numbers::inv_sqrt3;

// The number that stands for what cannot be computed is 0: the worst that is not inside out.
double at_most_one(double quality)
{
    return std::isnan(quality) ? 0 : std::min(quality, 1.0);
}

// ---- hexahedra and what is a hexahedron with some of its nodes in one place -----------------------------------------

constexpr Places faces[] = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
constexpr std::array<std::size_t, 2> edges[] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                                                {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
// The neighbours of each corner, in right-handed order.
using Ends = std::array<std::size_t, 3>;
constexpr std::array<Ends, 8> neighbours = {
    {{1, 3, 4}, {2, 0, 5}, {3, 1, 6}, {0, 2, 7}, {7, 5, 0}, {4, 6, 1}, {5, 7, 2}, {6, 4, 3}}};

// By the divergence theorem both integrals are sums over the faces, which are bilinear: on a face r(u, v) the integrand
// r . (r_u x r_v) is bilinear, too, with the values `g` at the corners. So its integral is their mean, and that of its
// product with r follows from the integrals of products of two bilinear functions (4, 2, 1, 2 thirty-sixths).
void integrate_face(const Vector& a, const Vector& b, const Vector& c, const Vector& d, Shape& shape)
{
    const Vector diagonals_1 = cross(b, d);
    const Vector diagonals_2 = cross(a, c);
    const std::array<double, 4> g = {dot(a, diagonals_1), -dot(b, diagonals_2), -dot(c, diagonals_1),
                                     dot(d, diagonals_2)};
    const std::array<const Vector*, 4> corners = {&a, &b, &c, &d};
    shape.size += (g[0] + g[1] + g[2] + g[3]) / 12;
    for (std::size_t i = 0; i < 4; ++i) {
        const double weight = (4 * g[i] + 2 * g[(i + 1) % 4] + g[(i + 2) % 4] + 2 * g[(i + 3) % 4]) / 144;
        shape.moment += weight * *corners[i];
    }
}

double corner_quality(const Points& at, std::size_t corner, const Ends& ends)
{
    const Vector a = at[ends[0]] - at[corner];
    const Vector b = at[ends[1]] - at[corner];
    const Vector c = at[ends[2]] - at[corner];
    return dot(cross(a, b), c) / std::sqrt(dot(a, a) * dot(b, b) * dot(c, c));
}

// Where an edge of a corner has no length, the edge that goes on from its other end takes its place. False when the
// corner has not three different edges: then others of the element tell.
bool find_edges(const Nodes& nodes, std::size_t corner, Ends& ends)
{
    ends = neighbours[corner];
    for (std::size_t i = 0; i < 3; ++i) {
        if (nodes[ends[i]] != nodes[corner]) continue;
        const auto& further = neighbours[ends[i]];
        const auto* const found = std::find_if(further.begin(), further.end(), [&](std::size_t end) {
            return nodes[end] != nodes[corner] && nodes[end] != nodes[ends[(i + 1) % 3]] &&
                   nodes[end] != nodes[ends[(i + 2) % 3]];
        });
        if (found == further.end()) return false;
        ends[i] = *found;
    }
    return nodes[ends[0]] != nodes[ends[1]] && nodes[ends[1]] != nodes[ends[2]] && nodes[ends[0]] != nodes[ends[2]];
}

double worst_corner(const Nodes& nodes, const Points& at)
{
    double worst = infinite;
    for (std::size_t corner = 0; corner < 8; ++corner) {
        Ends ends{};
        if (!find_edges(nodes, corner, ends)) continue;
        const double quality = corner_quality(at, corner, ends);
        if (!(quality >= worst)) worst = quality;
    }
    return worst == infinite ? 0 : worst;
}

double shortest_edge_of(const Nodes& nodes, const Points& at)
{
    double shortest = infinite;
    for (const auto& [from, to] : edges) {
        const Vector edge = at[to] - at[from];
        if (nodes[from] != nodes[to]) shortest = std::min(shortest, dot(edge, edge));
    }
    return std::sqrt(shortest);
}

// ---- tetrahedra ----------------------------------------------------------------------------------------------------

Shape shape_of_tetrahedron(const std::array<Vector, 4>& at)
{
    Shape shape;
    shape.size = dot(cross(at[1] - at[0], at[2] - at[0]), at[3] - at[0]) / 6;
    shape.moment = (shape.size / 4) * (at[0] + at[1] + at[2] + at[3]);
    double longest = 0;
    double shortest = infinite;
    for (std::size_t i = 0; i < 4; ++i) {
        double product = 1;
        for (std::size_t k = 0; k < 4; ++k) {
            if (k == i) continue;
            const double edge = length(at[k] - at[i]);
            product *= edge;
            shortest = std::min(shortest, edge);
        }
        longest = std::max(longest, product);
    }
    shape.shortest_edge = shortest;
    shape.quality = at_most_one(6 * shape.size * regular_tetrahedron / longest);
    return shape;
}

// The places of different nodes, each where it is first; how many there are.
std::size_t different(const Nodes& nodes, std::array<std::size_t, 8>& places)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (std::find(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(i), nodes[i]) ==
            nodes.begin() + static_cast<std::ptrdiff_t>(i))
            places[count++] = i;
    return count;
}

// From a corner as the origin, which keeps the digits of elements far from that of the model.
template <std::size_t size>
std::array<Vector, size> from_first(const std::array<Vector, size>& at)
{
    std::array<Vector, size> moved{};
    for (std::size_t i = 1; i < size; ++i) moved[i] = at[i] - at[0];
    return moved;
}
}  // namespace

std::array<std::int64_t, 8> without_zeros(std::array<std::int64_t, 8> nodes)
{
    for (std::size_t i = 1; i < nodes.size(); ++i)
        if (nodes[i] == 0) nodes[i] = nodes[i - 1];
    return nodes;
}

Shape shape_of_solid(const std::array<std::int64_t, 8>& nodes, const std::array<Vector, 8>& at)
{
    const Points points = from_first(at);
    std::array<std::size_t, 8> places{};
    const std::size_t count = different(nodes, places);
    Shape shape;
    if (count == 4) {
        shape = shape_of_tetrahedron({points[places[0]], points[places[1]], points[places[2]], points[places[3]]});
    } else {
        for (const Places& face : faces)
            integrate_face(points[face[0]], points[face[1]], points[face[2]], points[face[3]], shape);
        shape.shortest_edge = shortest_edge_of(nodes, points);
        if (count == 8) shape.quality = at_most_one(worst_corner(nodes, points));
        if (count == 5) shape.quality = at_most_one(worst_corner(nodes, points) * regular_tetrahedron);
        if (count == 6 || count == 7) shape.quality = at_most_one(worst_corner(nodes, points) * regular_triangle);
    }
    shape.moment += shape.size * at[0];
    return shape;
}

// ---- shells --------------------------------------------------------------------------------------------------------

namespace
{
Shape shape_of_triangle(const Vector& b, const Vector& c)
{
    Shape shape;
    const double doubled = length(cross(b, c));
    shape.size = doubled / 2;
    shape.moment = (shape.size / 3) * (b + c);
    const double ab = length(b), bc = length(c - b), ca = length(c);
    shape.shortest_edge = std::min({ab, bc, ca});
    shape.quality = at_most_one(regular_triangle * doubled / std::max({ab * bc, bc * ca, ca * ab}));
    return shape;
}

// Both triangles on a diagonal, each with its sign as seen from above the mean plane.
Shape shape_of_quadrilateral(const std::array<Vector, 4>& at)
{
    Shape shape;
    const Vector normal = cross(at[2] - at[0], at[3] - at[1]);
    const double doubled = length(normal);
    shape.size = doubled / 2;
    const double first = dot(cross(at[1] - at[0], at[2] - at[0]), normal);
    const double second = dot(cross(at[2] - at[0], at[3] - at[0]), normal);
    if (doubled > 0)
        shape.moment = (1 / (6 * doubled)) * (first * (at[0] + at[1] + at[2]) + second * (at[0] + at[2] + at[3]));
    shape.shortest_edge = shape.quality = infinite;
    for (std::size_t i = 0; i < 4; ++i) {
        const Vector next = at[(i + 1) % 4] - at[i];
        const Vector last = at[(i + 3) % 4] - at[i];
        const double quality = dot(cross(next, last), normal) / (length(next) * length(last) * doubled);
        if (!(quality >= shape.quality)) shape.quality = quality;
        shape.shortest_edge = std::min(shape.shortest_edge, length(next));
    }
    shape.quality = at_most_one(shape.quality);
    return shape;
}
}  // namespace

Shape shape_of_shell(const std::array<std::int64_t, 4>& nodes, const std::array<Vector, 4>& at)
{
    const std::array<Vector, 4> points = from_first(at);
    Shape shape = is_triangle(nodes) ? shape_of_triangle(points[1], points[2]) : shape_of_quadrilateral(points);
    shape.moment += shape.size * at[0];
    return shape;
}

}  // namespace report
