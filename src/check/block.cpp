#include "check/block.h"

#include <utility>

#include "check/misread.h"

namespace check
{
Finding finding_at(const BlockAt& block, std::string_view code, std::size_t line, std::size_t column, std::size_t end,
                   std::string message)
{
    Finding found = finding(code, {block.file, line, column + 1, end + 1}, std::move(message));
    found.keyword = block.keyword;
    found.block = block.index;
    found.file_order = block.file_order;
    return found;
}

Inked inked(std::string_view line)
{
    std::size_t begin = 0, end = line.size();
    while (begin < end && is_blank(line[begin])) ++begin;
    while (end > begin && is_blank(line[end - 1])) --end;
    return begin == end ? Inked{} : Inked{begin, end};
}
}  // namespace check
