#include "report/written_digits.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace report
{

namespace
{
// Powers of ten around the exponents of single precision, as near as doubles come.
constexpr int lowest_power = -60;
constexpr int highest_power = 40;
constexpr std::size_t number_of_powers = 101;
static_assert(number_of_powers == highest_power - lowest_power + 1);

constexpr auto make_powers()
{
    std::array<double, number_of_powers> table{};
    double below = 1;
    for (int exponent = 0; exponent >= lowest_power; --exponent) {
        table[static_cast<std::size_t>(exponent - lowest_power)] = below;
        below /= 10;
    }
    double above = 1;
    for (int exponent = 0; exponent <= highest_power; ++exponent) {
        table[static_cast<std::size_t>(exponent - lowest_power)] = above;
        above *= 10;
    }
    return table;
}
constexpr auto powers = make_powers();

constexpr double power_of_ten(int exponent)
{
    return powers[static_cast<std::size_t>(exponent - lowest_power)];
}

// The exponent of ten that a value between 1e-46 and 1e39 is written with.
int decimal_exponent(double size)
{
    int binary = 0;
    std::frexp(size, &binary);
    constexpr double decimals_of_a_bit = 0.30102999566398120;
    int exponent = static_cast<int>(std::floor((binary - 1) * decimals_of_a_bit));
    if (size >= power_of_ten(exponent + 1)) ++exponent;
    return exponent;
}

constexpr double smallest = 1e-46, largest = 1e39;  // beyond these single precision has no numbers but 0 and infinity
}  // namespace

double half_of_last_digit(double value, int digits)
{
    constexpr double half = 0.5125;  // a double of 14 digits is off by up to 0.011 units of the last one
    const double size = std::abs(value);
    if (!(size >= smallest && size <= largest)) return 0;
    return half * power_of_ten(decimal_exponent(size) - digits);
}

bool is_written_single(double value, int digits)
{
    const auto single = static_cast<float>(value);
    const double off = std::abs(value - static_cast<double>(single));
    return !(off > 0) || off <= half_of_last_digit(value, digits);
}

}  // namespace report
