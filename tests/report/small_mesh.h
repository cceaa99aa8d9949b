// Meshes for tests, made in memory and told like a file's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "report/surface.h"

// What a reader would tell.
struct SmallMesh {
    struct Set {
        report::SetKind kind;
        std::int64_t id;
        std::string title;
        std::vector<std::array<std::int64_t, 4>> members;
    };

    std::vector<std::pair<std::int64_t, std::array<double, 3>>> nodes;
    std::vector<report::Element> elements;
    std::vector<Set> sets;
    std::vector<report::PartCount> parts;
    mutable int readings = 0;  // of elements

    void solid(std::int64_t id, std::int64_t part, const std::array<std::int64_t, 8>& corners)
    {
        elements.push_back(
            {.kind = report::ElementKind::solid, .id = id, .part = part, .corners = 8, .nodes = corners});
    }
    void shell(std::int64_t id, std::int64_t part, const std::array<std::int64_t, 4>& corners)
    {
        report::Element element{.kind = report::ElementKind::shell, .id = id, .part = part, .corners = 4};
        for (std::size_t i = 0; i < 4; ++i) element.nodes[i] = corners[i];
        elements.push_back(element);
    }
    void particle(std::int64_t node, std::int64_t part)
    {
        elements.push_back(
            {.kind = report::ElementKind::particle, .id = node, .part = part, .corners = 1, .nodes = {node}});
    }

    // Cubes of edge 1, x fastest; numbers go on from those there are.
    void block(std::array<std::int64_t, 3> sides, std::int64_t part, std::array<double, 3> at = {})
    {
        const std::int64_t first = nodes.empty() ? 1 : nodes.back().first + 1;
        const std::int64_t nx = sides[0] + 1, ny = sides[1] + 1;
        for (std::int64_t k = 0; k <= sides[2]; ++k)
            for (std::int64_t j = 0; j <= sides[1]; ++j)
                for (std::int64_t i = 0; i <= sides[0]; ++i)
                    nodes.emplace_back(first + i + nx * (j + ny * k),
                                       std::array{at[0] + static_cast<double>(i), at[1] + static_cast<double>(j),
                                                  at[2] + static_cast<double>(k)});
        for (std::int64_t k = 0; k < sides[2]; ++k)
            for (std::int64_t j = 0; j < sides[1]; ++j)
                for (std::int64_t i = 0; i < sides[0]; ++i) {
                    const std::int64_t low = first + i + nx * (j + ny * k), high = low + nx * ny;
                    solid(static_cast<std::int64_t>(elements.size()) + 1, part,
                          {low, low + 1, low + 1 + nx, low + nx, high, high + 1, high + 1 + nx, high + nx});
                }
    }

    void tell(report::ModelVisitor& visitor, const report::Pieces& pieces) const
    {
        readings += pieces.elements ? 1 : 0;
        if (pieces.parts)
            for (const auto& part : parts) visitor.part(part);
        if (pieces.nodes)
            for (const auto& [id, at] : nodes) visitor.node(id, at);
        if (pieces.elements)
            for (const auto& element : elements) visitor.element(element);
        if (!pieces.sets) return;
        for (const Set& set : sets) {
            visitor.set_begins(set.kind, set.id, set.title);
            for (const auto& member : set.members) visitor.set_member(member);
        }
    }

    [[nodiscard]] report::Surface surface(const report::SurfaceLimits& limits = {}) const
    {
        return report::surface_of(
            [this](report::ModelVisitor& visitor, const report::Pieces& pieces) { tell(visitor, pieces); }, limits);
    }
};
