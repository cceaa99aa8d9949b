// Writes pages with models for the browser's tests of the view: view_pages FOLDER.
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "report/page.h"
#include "report/sample_ledger.h"
#include "report/small_mesh.h"

namespace
{
namespace fs = std::filesystem;

void write(const fs::path& folder, const std::string& name, const report::Surface& surface)
{
    std::ofstream file(folder / name, std::ios::binary);
    report::write_page(file, sample_ledger(folder), surface, folder);
}

// Two blocks of 3 by 2 by 1 cubes beside each other, above them a shell and before them four particles. Seen from +Z,
// the cube of element 1 is at the lower left, that of element 12 at the upper right.
SmallMesh beside_each_other()
{
    SmallMesh mesh;
    mesh.block({3, 2, 1}, 5);             // nodes 1 to 24, elements 1 to 6
    mesh.block({3, 2, 1}, 7, {3, 0, 0});  // nodes 25 to 48, elements 7 to 12
    mesh.nodes.insert(mesh.nodes.end(),
                      {{101, {0, 2.5, 0}}, {102, {2, 2.5, 0}}, {103, {2, 3.5, 0}}, {104, {0, 3.5, 0}}});
    mesh.shell(501, 9, {101, 102, 103, 104});
    for (std::int64_t i = 0; i < 4; ++i) {
        mesh.nodes.emplace_back(201 + i, std::array{0.5 + static_cast<double>(i), -1.0, 0.0});
        mesh.particle(201 + i, 11);
    }
    mesh.parts = {{.id = 5, .title = "Left", .section = 1, .material = 2},
                  {.id = 7, .title = "<b>Right</b>", .section = 1, .material = 2},
                  {.id = 9, .title = "", .section = 2, .material = 3},
                  {.id = 11, .title = "Powder", .section = 3, .material = 4}};
    mesh.sets = {{report::SetKind::node, 31, "Corner", {{1}, {13}, {999}}},
                 {report::SetKind::segment, 32, "", {{14, 15, 19, 18}}},
                 {report::SetKind::part, 33, "All solids", {{5}, {7}}},
                 {report::SetKind::solid, 34, "", {{12}}}};
    return mesh;
}

// A block of 3 by 2 by 1 cubes, and one shell on all of its upper side.
SmallMesh coated()
{
    SmallMesh mesh;
    mesh.block({3, 2, 1}, 5);
    mesh.shell(501, 3, {13, 16, 24, 21});
    mesh.parts = {{.id = 3, .title = "Coat", .section = 2, .material = 3}, {.id = 5, .title = "Core", .section = 1}};
    return mesh;
}

report::Surface with_outcomes(report::Surface surface)
{
    const std::array<std::string, 4> outcomes = {"converted", "skipped", "not known", "converted"};
    for (std::size_t i = 0; i < outcomes.size(); ++i) surface.parts.at(i).outcome = outcomes.at(i);
    surface.sets.push_back(surface.sets.front());
    surface.sets.back().laid = "*BOUNDARY_SPC_SET";
    return surface;
}

// Ten cubes of 47 by 47 by 47 solids, 1038230 in all, in two rows.
void million(report::ModelVisitor& visitor, const report::Pieces& pieces)
{
    constexpr std::int64_t side = 47, nodes = side + 1;
    for (std::int64_t block = 0; block < 10; ++block) {
        const std::int64_t first = 1 + block * nodes * nodes * nodes;
        const auto x = static_cast<double>(block % 5) * 60.0, y = static_cast<double>(block / 5) * 60.0;
        if (pieces.nodes)
            for (std::int64_t i = 0; i < nodes * nodes * nodes; ++i)
                visitor.node(first + i, {x + static_cast<double>(i % nodes), y + static_cast<double>(i / nodes % nodes),
                                         static_cast<double>(i / nodes / nodes)});
        if (!pieces.elements) continue;
        for (std::int64_t i = 0; i < side * side * side; ++i) {
            const std::int64_t low = first + i % side + nodes * (i / side % side + nodes * (i / side / side));
            const std::int64_t high = low + nodes * nodes;
            visitor.element({.kind = report::ElementKind::solid,
                             .id = 1 + i + block * side * side * side,
                             .part = block + 1,
                             .nodes = {low, low + 1, low + 1 + nodes, low + nodes, high, high + 1, high + 1 + nodes,
                                       high + nodes}});
        }
    }
}
}  // namespace

int main(int arguments, char** argument)
{
    if (arguments != 2) return 2;
    const fs::path folder = argument[1];
    write(folder, "beside.html", with_outcomes(beside_each_other().surface()));
    write(folder, "coated.html", coated().surface());
    write(folder, "nothing.html", {});
    write(folder, "million.html", report::surface_of(million));
    write(folder, "thinned.html", report::surface_of(million, {.bytes = 300'000}));
}
