#include "report/page_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace report
{
namespace
{
constexpr std::string_view replacement = "\xEF\xBF\xBD";

struct Character {
    std::uint32_t value = 0;
    std::size_t bytes = 1;
    bool valid = false;
};

bool is_continuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// The first character of a text that is not empty. An invalid one has a single byte.
Character first_character(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80U) return {lead, 1, true};
    const std::size_t bytes = lead >= 0xF0U ? 4 : lead >= 0xE0U ? 3 : 2;
    if (lead < 0xC2U || lead > 0xF4U || text.size() < bytes) return {};
    std::uint32_t value = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i) {
        if (!is_continuation(text[i])) return {};
        value = value << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value < smallest[bytes] || value > 0x10FFFF || surrogate) return {};
    return {value, bytes, true};
}

// Control characters, marks of direction, and what has no width.
bool is_hidden(std::uint32_t c)
{
    struct Range {
        std::uint32_t first, last;
    };
    constexpr Range hidden[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},     {0x61C, 0x61C},  {0x180E, 0x180E},
                                {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF}};
    return std::any_of(std::begin(hidden), std::end(hidden),
                       [c](const Range& range) { return c >= range.first && c <= range.last; });
}

std::string_view reference(std::uint32_t c)
{
    switch (c) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '&':
        return "&amp;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return {};
    }
}
}  // namespace

std::string in_script(const nlohmann::ordered_json& json)
{
    using Json = nlohmann::ordered_json;
    const std::string plain = json.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string text;
    text.reserve(plain.size() + plain.size() / 16);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const char c = plain[i];
        const std::string_view rest = std::string_view(plain).substr(i, 3);
        if (c == '<')
            text += "\\u003c";
        else if (c == '>')
            text += "\\u003e";
        else if (c == '&')
            text += "\\u0026";
        else if (rest == "\xE2\x80\xA8" || rest == "\xE2\x80\xA9") {
            text += rest[2] == '\xA8' ? "\\u2028" : "\\u2029";
            i += 2;
        } else
            text += c;
    }
    return text;
}

std::string in_markup(std::string_view text)
{
    std::string markup;
    while (!text.empty()) {
        const Character c = first_character(text);
        if (!c.valid) {
            markup += replacement;
        } else if (is_hidden(c.value)) {
            char name[16];
            std::snprintf(name, sizeof name, "[U+%04X]", c.value);
            markup += name;
        } else if (const std::string_view named = reference(c.value); !named.empty()) {
            markup += named;
        } else {
            markup += text.substr(0, c.bytes);
        }
        text.remove_prefix(c.bytes);
    }
    return markup;
}
}  // namespace report
