// Compares the writers of reals with std::to_chars on every single-precision value, which takes some minutes.
//
//     every_float [STEP [THREADS]]
//
// STEP above 1 takes only every so many bit patterns. THREADS is as many as there are processors unless it is given.
// The status is 1 when a value differs.
#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "reader/number_writers.h"

namespace
{
constexpr std::uint64_t patterns = std::uint64_t{1} << 32;

struct Result {
    std::uint64_t values = 0;
    std::uint64_t differences = 0;
};

// What printf would print, by the library's own conversion.
std::string_view expected(float value, int digits, int width, char (&text)[64])
{
    char number[40];
    std::size_t length = 0;
    if (std::isfinite(value))
        length = static_cast<std::size_t>(std::to_chars(number, number + sizeof number, static_cast<double>(value),
                                                        std::chars_format::scientific, digits)
                                              .ptr -
                                          number);
    else
        length =
            static_cast<std::size_t>(std::snprintf(number, sizeof number, "%.*e", digits, static_cast<double>(value)));
    const std::size_t total = std::max(length, static_cast<std::size_t>(width));
    std::fill_n(text, total - length, ' ');
    std::copy_n(number, length, text + (total - length));
    return {text, total};
}

template <int digits>
void compare(float value, int width, Result& result)
{
    char wanted[64];
    char found[64];
    const std::string_view right = expected(value, digits, width, wanted);
    const char* const end = write_real<digits>(found, value, width);
    ++result.values;
    if (std::string_view(found, static_cast<std::size_t>(end - found)) == right) return;
    if (++result.differences <= 5)
        std::printf("%08x: \"%.*s\", not \"%.*s\"\n", std::bit_cast<std::uint32_t>(value),
                    static_cast<int>(end - found), found, static_cast<int>(right.size()), right.data());
}

void compare_from(std::uint64_t first, std::uint64_t step, Result& result)
{
    for (std::uint64_t bits = first; bits < patterns; bits += step) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        compare<13>(value, 20, result);  // coordinates
        compare<8>(value, 16, result);   // masses
        compare<3>(value, 10, result);   // thicknesses
    }
}
}  // namespace

int main(int argc, char* argv[])
{
    const std::uint64_t step = argc > 1 ? std::max(1ULL, std::strtoull(argv[1], nullptr, 10)) : 1;
    const std::uint64_t count =
        std::max(1ULL, argc > 2 ? std::strtoull(argv[2], nullptr, 10) : std::thread::hardware_concurrency());
    std::vector<Result> results(count);
    std::vector<std::thread> threads;
    for (std::uint64_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] { compare_from(i * step, count * step, results[i]); });
    Result sum;
    for (std::uint64_t i = 0; i < count; ++i) {
        threads[i].join();
        sum.values += results[i].values;
        sum.differences += results[i].differences;
    }
    std::printf("%llu values compared, three forms of each bit pattern; %llu differ\n",
                static_cast<unsigned long long>(sum.values), static_cast<unsigned long long>(sum.differences));
    return sum.differences == 0 ? 0 : 1;
}
