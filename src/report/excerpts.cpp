#include "report/excerpts.h"

#include <algorithm>

#include "deck/line_file.h"

namespace report
{
namespace
{
std::string cut(std::string_view text)
{
    if (text.size() <= longest_excerpt) return std::string(text);
    std::size_t size = longest_excerpt;
    while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) --size;  // not within a character
    return std::string(text.substr(0, size)).append(" \xE2\x80\xA6");
}
}  // namespace

void read_lines(const std::filesystem::path& file, std::vector<WantedLines> wanted,
                const std::function<void(const WantedLines&, std::size_t line, std::string text)>& take)
{
    std::stable_sort(wanted.begin(), wanted.end(),
                     [](const WantedLines& a, const WantedLines& b) { return a.first < b.first; });
    std::vector<WantedLines> open;  // those that the present line may belong to
    auto next = wanted.begin();
    deck::LineFile lines(file, deck::LineEnds::as_meant);
    for (deck::Line line; (next != wanted.end() || !open.empty()) && lines.next(line);) {
        for (; next != wanted.end() && next->first <= line.number; ++next) open.push_back(*next);
        std::erase_if(open, [&](const WantedLines& range) { return range.last < line.number; });
        for (const WantedLines& range : open) take(range, line.number, cut(line.text));
    }
}
}  // namespace report
