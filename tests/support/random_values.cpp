#include "support/random_values.h"

#include <string_view>

namespace models
{
namespace
{
constexpr std::string_view digits = "0123456789";
}

std::string random_positive(Random& random)
{
    std::string whole = std::to_string(random.below(random.one_in(3) ? 1000 : 10));
    if (whole == "0") return "0." + random.text(1 + random.below(3), digits) + "1";
    switch (random.below(5)) {
    case 0:
        return whole;
    case 1:
        return whole + ".";
    case 2:
        return whole + "." + random.text(1 + random.below(4), digits);
    case 3:
        return "." + random.text(1 + random.below(4), digits) + "5";
    default:
        break;
    }
    static constexpr const char* exponents[] = {"E-03", "e+05", "E6", "E-9", "e11", "E+11", "e-2"};
    whole.resize(1);
    whole += "." + random.text(random.below(4), digits);
    return whole + random.pick(exponents);
}

std::string random_real(Random& random)
{
    if (random.one_in(5)) return {};
    const std::string sign = random.one_in(3) ? "-" : "";
    return sign + random_positive(random);
}

std::string random_title(Random& random)
{
    std::string title = random.text(1, "ABCDEFGHKLMNPRSTabcdefghklmnprst");
    const std::size_t length = random.below(random.one_in(8) ? 60 : 16);
    title += random.text(length, "abcdefghijklmnopqrstuvwxyz  ,.-_/()=0123456789");
    while (title.back() == ' ') title.pop_back();
    return title;
}
}  // namespace models
