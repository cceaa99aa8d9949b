// *DEFINE_TRANSFORMATION, and what *INCLUDE_TRANSFORM does to the content of a file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace deck
{

struct Point {
    double x = 0, y = 0, z = 0;
};

// x' = A x + b
struct Transformation {
    std::array<std::array<double, 3>, 3> a{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    std::array<double, 3> b{0, 0, 0};

    [[nodiscard]] Point operator()(const Point& point) const;
    [[nodiscard]] bool is_identity() const;
};

// First `first`, then `second`.
Transformation combined(const Transformation& first, const Transformation& second);

// The steps of *DEFINE_TRANSFORMATION. `values` are A1 to A7. False, and nothing changed, when the step is another one
// or is given in a form that has no matrix here (by node numbers, with a further flag, about an axis of no length).
bool add_step(Transformation& transformation, std::string_view option, const std::array<double, 7>& values);

// The kinds of identifiers that *INCLUDE_TRANSFORM offsets: each has a field of its own on the cards.
enum class OffsetKind {
    node,        // IDNOFF
    element,     // IDEOFF
    part,        // IDPOFF
    material,    // IDMOFF, equations of state, too
    set,         // IDSOFF
    curve,       // IDFOFF: functions, tables, curves
    definition,  // IDDOFF: any other *DEFINE
    other        // IDROFF: sections, hourglass definitions and all else
};
inline constexpr std::size_t offset_kinds = 8;

// What is done to a file's content. That of a file in a file is the sum of both.
struct ContentChange {
    std::array<std::int64_t, offset_kinds> offsets{};
    Transformation transformation;

    [[nodiscard]] std::int64_t offset(OffsetKind kind) const { return offsets[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] bool is_none() const;
};

ContentChange combined(const ContentChange& inner, const ContentChange& outer);

}  // namespace deck
