// Writes what fields of all kinds are read as, and how the values are printed: for comparing systems and processors
// with each other. The lines are the same wherever the program is built.
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>

#include "reader/number_writers.h"
#include "reader/numbers.h"
#include "reader/output_stream.h"

namespace
{
constexpr int fields = 200'000;
constexpr std::array<std::string_view, 5> alphabets = {"0123456789", "0123456789.-+e", " 0123456789.eE+-",
                                                       "0123456789abcdefxXpP.+-", " \t+-.0189eExXpPaAfFnNiItTyY()_"};
constexpr std::array<std::string_view, 24> words = {"-",         "+",      ".",      "-.",     "e5",         "-e5",
                                                    "0x",        "-0x",    "0xg",    "-0x.p1", "0x.8p-1080", "inf",
                                                    "-infinity", "infini", "nan",    "-nan",   "nan(1)",     "-nan(x)",
                                                    "NaN(0x1)",  "1e400",  "-1e400", "1e-400", "-1e-400",    "-0"};

// The field of a number: the same everywhere, which the standard's distributions are not.
std::string field(int number, std::mt19937& random)
{
    if (number < static_cast<int>(words.size())) return std::string(words[static_cast<std::size_t>(number)]);
    const std::string_view alphabet = alphabets[random() % alphabets.size()];
    std::string text;
    for (std::size_t length = 1 + random() % 20; text.size() < length;) text += alphabet[random() % alphabet.size()];
    return text;
}

void write_lines(OutputStream& out)
{
    std::mt19937 random(20240305);
    for (int number = 0; number < fields; ++number) {
        const std::string characters = field(number, random);
        const double value = field_value(characters);
        const auto real = static_cast<float>(value);
        const auto bits =
            std::isnan(value) ? 0 : std::bit_cast<std::uint64_t>(value);  // nobody sees what a NaN carries
        print(out, "|%s| %08x%08x %i ", characters.c_str(), static_cast<unsigned>(bits >> 32),
              static_cast<unsigned>(bits), to_int(value));
        text(out, std::to_string(to_int64(value)));
        print(out, " %10.3e %20.13e %f %10.2f %g %e", real, real, real, real, real, value);
        print(out, " %10.3e %10.3e %10.3e ", quotient(real, 0.0f), sum(real, -real), product(real, 3.0e38f));
        char* const to = out.room(64);
        out.commit(write_real<13>(to, real, 20));
        text(out, "\n");
    }
}
}  // namespace

int main(int argc, char* argv[])
{
    OutputStream out;
    if (argc != 2 || !out.open(argv[1])) return 2;
    write_lines(out);
    out.close();
    return out.failure().empty() ? 0 : 2;
}
