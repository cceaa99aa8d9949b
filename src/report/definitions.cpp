#include "report/definitions.h"

#include <charconv>

#include "deck/keyword_line.h"

namespace report
{

namespace
{
// Identifiers that are the same have the same name; one that is left out is 0.
std::string name_of(std::string_view identifier)
{
    identifier = deck::trimmed(identifier);
    if (identifier.empty()) return "0";
    const std::optional<std::int64_t> number = whole_number(identifier);
    return number ? std::to_string(*number) : std::string(identifier);
}
}  // namespace

std::optional<std::int64_t> whole_number(std::string_view text)
{
    text = deck::trimmed(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::string_view without_blanks_behind(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(" \r") + 1);
}

void Definitions::part(std::int64_t id, std::string_view title, std::string_view section, std::string_view material)
{
    parts_.push_back({id, std::string(without_blanks_behind(title)), name_of(section), name_of(material)});
}

void Definitions::section(std::string_view id, const std::array<double, 4>& thickness)
{
    thicknesses_.try_emplace(name_of(id), thickness);
}

void Definitions::material(std::string_view id, double density)
{
    densities_.try_emplace(name_of(id), density);
}

void Definitions::tell(ModelVisitor& visitor) const
{
    for (const Part& known : parts_) {
        PartCount part;
        part.id = known.id;
        part.title = known.title;
        part.section = whole_number(known.section).value_or(0);
        part.material = whole_number(known.material).value_or(0);
        if (const auto section = thicknesses_.find(known.section); section != thicknesses_.end())
            part.thickness = section->second;
        if (const auto material = densities_.find(known.material); material != densities_.end()) {
            part.density = material->second;
            part.has_density = true;
        }
        visitor.part(part);
    }
}

}  // namespace report
