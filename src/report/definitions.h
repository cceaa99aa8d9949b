// Parts, and what they name: sections with thicknesses, materials with densities.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/model.h"

namespace report
{

// Gathered in any order, and told when all are known. Identifiers are compared as numbers where they are numbers, and
// character for character where not. Of several definitions under one identifier the first counts.
class Definitions
{
public:
    void part(std::int64_t id, std::string_view title, std::string_view section, std::string_view material);
    void section(std::string_view id, const std::array<double, 4>& thickness);
    void material(std::string_view id, double density);

    // Tells of each part, in the order in which they were defined.
    void tell(ModelVisitor& visitor) const;

private:
    struct Part {
        std::int64_t id = 0;
        std::string title;
        std::string section;
        std::string material;
    };
    std::vector<Part> parts_;
    std::map<std::string, std::array<double, 4>, std::less<>> thicknesses_;
    std::map<std::string, double, std::less<>> densities_;
};

// The text as a whole number; nothing when it is none. Blanks at its ends do not count.
std::optional<std::int64_t> whole_number(std::string_view text);

// Without blanks at its end.
std::string_view without_blanks_behind(std::string_view text);

}  // namespace report
