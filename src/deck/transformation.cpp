#include "deck/transformation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "deck/field_number.h"

namespace deck
{

namespace
{
using Vector = std::array<double, 3>;

double dot(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// The direction of a vector; nothing useful (a false flag) when it has no length.
bool normalize(Vector& v)
{
    const double length = std::sqrt(dot(v, v));
    if (!(length > 0) || !std::isfinite(length)) return false;
    for (double& component : v) component /= length;
    return true;
}

// The matrix `a` about a point that stays where it is.
Transformation about(const Transformation& linear, const Vector& point)
{
    Transformation result = linear;
    for (std::size_t i = 0; i < 3; ++i) result.b[i] = point[i] - dot(linear.a[i], point);
    return result;
}

// Quarter turns come out exactly.
double exact_sine(double degrees)
{
    const double turn = std::fmod(degrees, 360.0);
    if (turn == 0 || std::abs(turn) == 180) return 0;
    if (turn == 90 || turn == -270) return 1;
    if (turn == -90 || turn == 270) return -1;
    return std::sin(turn * std::numbers::pi / 180);
}

bool rotate(Transformation& step, const std::array<double, 7>& v)
{
    Vector axis{v[0], v[1], v[2]};
    const double degrees = v[6];
    if (degrees == 0 || !normalize(axis)) return false;  // an angle of 0 stands for a form by node numbers
    const double s = exact_sine(degrees);
    const double c = exact_sine(std::fmod(degrees, 360.0) + 90);
    const std::array<Vector, 3> across{{{0, -axis[2], axis[1]}, {axis[2], 0, -axis[0]}, {-axis[1], axis[0], 0}}};
    Transformation rotation;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            rotation.a[i][j] = (i == j ? c : 0) + (1 - c) * axis[i] * axis[j] + s * across[i][j];
    step = about(rotation, {v[3], v[4], v[5]});
    return true;
}

bool mirror(Transformation& step, const std::array<double, 7>& v)
{
    const Vector point{v[0], v[1], v[2]};
    Vector normal{v[3] - v[0], v[4] - v[1], v[5] - v[2]};
    if (v[6] != 0 || !normalize(normal)) return false;
    Transformation reflection;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) reflection.a[i][j] = (i == j ? 1 : 0) - 2 * normal[i] * normal[j];
    step = about(reflection, point);
    return true;
}

// sic: a factor of 0 is one that is not given.
void scale(Transformation& step, const std::array<double, 7>& v)
{
    for (std::size_t i = 0; i < 3; ++i) step.a[i][i] = v[i] == 0 ? 1 : v[i];
}
}  // namespace

Point Transformation::operator()(const Point& point) const
{
    const Vector p{point.x, point.y, point.z};
    return {dot(a[0], p) + b[0], dot(a[1], p) + b[1], dot(a[2], p) + b[2]};
}

bool Transformation::is_identity() const
{
    const Transformation none;
    return a == none.a && b == none.b;
}

Transformation combined(const Transformation& first, const Transformation& second)
{
    Transformation result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j)
            result.a[i][j] = dot(second.a[i], {first.a[0][j], first.a[1][j], first.a[2][j]});
        result.b[i] = dot(second.a[i], first.b) + second.b[i];
    }
    return result;
}

bool add_step(Transformation& transformation, std::string_view option, const std::array<double, 7>& values)
{
    if (!std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); })) return false;
    Transformation step;
    if (option == "TRANSL")
        step.b = {values[0], values[1], values[2]};
    else if (option == "SCALE")
        scale(step, values);
    else if (!(option == "ROTATE" && rotate(step, values)) && !(option == "MIRROR" && mirror(step, values)))
        return false;
    transformation = combined(transformation, step);
    return true;
}

bool ContentChange::is_none() const
{
    return offsets == std::array<std::int64_t, offset_kinds>{} && transformation.is_identity();
}

ContentChange combined(const ContentChange& inner, const ContentChange& outer)
{
    ContentChange result;
    for (std::size_t i = 0; i < offset_kinds; ++i)
        result.offsets[i] = saturated_sum(inner.offsets[i], outer.offsets[i]);
    result.transformation = combined(inner.transformation, outer.transformation);
    return result;
}

}  // namespace deck
