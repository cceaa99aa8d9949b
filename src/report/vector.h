// Points and vectors of three coordinates.
#pragma once

#include <array>
#include <cmath>

namespace report
{

using Vector = std::array<double, 3>;

inline Vector operator+(const Vector& a, const Vector& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
inline Vector operator-(const Vector& a, const Vector& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline Vector operator*(double factor, const Vector& a)
{
    return {factor * a[0], factor * a[1], factor * a[2]};
}
inline Vector& operator+=(Vector& a, const Vector& b)
{
    return a = a + b;
}
inline double dot(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
inline Vector cross(const Vector& a, const Vector& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double length(const Vector& a)
{
    return std::sqrt(dot(a, a));
}

}  // namespace report
