#include "check/collector.h"

#include <tuple>
#include <utility>

#include "check/formats.h"

namespace check
{
void Collector::add(Finding found)
{
    if (!all_) {
        std::string key = found.code + std::string(word(found.severity)) + std::to_string(found.block);
        const auto [kept_at, is_new] = kept_.try_emplace(std::move(key), to_->size());
        if (!is_new) {
            Finding& kept = (*to_)[kept_at->second];
            const std::size_t others = kept.others + found.others + 1;
            const auto place = [](const Finding& of) {
                return std::tie(of.file_order, of.place.line, of.place.column);
            };
            if (place(found) < place(kept)) kept = std::move(found);
            kept.others = others;
            return;
        }
    }
    to_->push_back(std::move(found));
}
}  // namespace check
